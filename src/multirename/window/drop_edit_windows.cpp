#include "multirename/window/drop_edit.h"

#include <commctrl.h>
#include <shellapi.h>

#include <array>

#include "multirename/form/find_replace_dialog_form.h"

namespace Velmora::SDK {

namespace {

constexpr UINT_PTR kDropEditId = 1;

// A flag of the messages of keys.
constexpr LPARAM kAltIsDown = 1 << 29;

// F10 alone arrives as WM_SYSKEYDOWN. A function key with Alt is left to the system: Alt+F4 closes a window.
bool IsKeyOfField(UINT message, LPARAM flags) {
  return message == WM_KEYDOWN || (message == WM_SYSKEYDOWN && (flags & kAltIsDown) == 0);
}

}  // namespace

void CDropEdit::Attach(HWND edit) {
  DragAcceptFiles(edit, TRUE);
  SetWindowSubclass(edit, OnMessage, kDropEditId, 0);
}

LRESULT CALLBACK CDropEdit::OnMessage(HWND edit, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR) {
  if (message == WM_NCDESTROY) RemoveWindowSubclass(edit, OnMessage, id);
  if (PassKey(edit, message, wParam, lParam)) return 0;
  if (message == WM_DROPFILES && TakeDrop(edit, reinterpret_cast<HDROP>(wParam))) return 0;
  return DefSubclassProc(edit, message, wParam, lParam);
}

bool CDropEdit::PassKey(HWND edit, UINT message, WPARAM key, LPARAM flags) {
  if (!IsKeyOfField(message, flags)) return false;
  const int number = FunctionKeyNumber(static_cast<u32>(key));
  if (number == 0) return false;
  const bool isShift = GetKeyState(VK_SHIFT) < 0;
  SendMessageW(GetParent(edit), isShift ? MRM_EDIT_SHIFT_FKEY : MRM_EDIT_FKEY, static_cast<WPARAM>(number),
               reinterpret_cast<LPARAM>(edit));
  return true;
}

bool CDropEdit::TakeDrop(HWND edit, HDROP drop) {
  POINT place = {};
  RECT client = {};
  // Elsewhere on the window, such as on a scroll bar, the position is relative to the screen.
  if (!DragQueryPoint(drop, &place) || !GetClientRect(edit, &client) || !PtInRect(&client, place))
    return false;
  std::array<WCHAR, kMaxDroppedPathChars + 1> path = {};
  const UINT length = DragQueryFileW(drop, 0, path.data(), static_cast<UINT>(path.size()));
  DragFinish(drop);
  if (length > 0) {
    SendMessageW(GetParent(edit), MRM_EDIT_FILE_DROPPED, reinterpret_cast<WPARAM>(edit),
                 reinterpret_cast<LPARAM>(path.data()));
  }
  return true;
}

}  // namespace Velmora::SDK
