// The edit field of the dialog of search pairs: it takes dropped files and passes the function keys on. All
// else is as in any edit control. Its parent gets three messages from it, sent:
//
//   MRM_EDIT_FKEY          a function key, without Shift and with it. First parameter: its number from 1 to
//   MRM_EDIT_SHIFT_FKEY    24; second: the field's window
//   MRM_EDIT_FILE_DROPPED  files were dropped on the field. First parameter: the field's window; second: the
//                          path of the first file, a const WCHAR*, cut at kMostOfDroppedPath characters
#pragma once

#include "platform/windows_api.h"

namespace Velmora::SDK {

enum DropEditMessage : UINT {
  MRM_EDIT_FKEY = 34168,
  MRM_EDIT_SHIFT_FKEY = 34268,
  MRM_EDIT_FILE_DROPPED = 34368,
};

class CDropEdit {
 public:
  // Makes an edit control one of this kind, for as long as it lives.
  static void Attach(HWND edit);

 private:
  static LRESULT CALLBACK OnMessage(HWND edit, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                    DWORD_PTR unused);
  // Returns true if the key is a function key, which the parent has got then.
  static bool PassKey(HWND edit, UINT message, WPARAM key, LPARAM flags);
  // Returns true if the drop is on the field; its record is released then.
  static bool TakeDrop(HWND edit, HDROP drop);
};

}  // namespace Velmora::SDK
