// The edit field of the dialog of search pairs: an ordinary edit control that accepts dropped files and
// passes function keys on. It sends three messages to its parent:
//
//   MRM_EDIT_FKEY          A function key was pressed, without or with Shift. First parameter: its number
//   MRM_EDIT_SHIFT_FKEY    from 1 to 24; second: the field's window.
//   MRM_EDIT_FILE_DROPPED  Files were dropped on the field. First parameter: the field's window; second:
//                          the path of the first file, a const WCHAR*, cut at kMaxDroppedPathChars
//                          characters.
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
  // Gives an edit control this behavior until it is destroyed.
  static void Attach(HWND edit);

 private:
  static LRESULT CALLBACK OnMessage(HWND edit, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                    DWORD_PTR unused);
  // Sends a function key to the parent. Returns false for any other key.
  static bool PassKey(HWND edit, UINT message, WPARAM key, LPARAM flags);
  // Handles a drop on the field and releases its record. Returns false for a drop elsewhere.
  static bool TakeDrop(HWND edit, HDROP drop);
};

}  // namespace Velmora::SDK
