#include "ui/dialog.h"

#include <algorithm>
#include <utility>

#include "ui/common_controls.h"
#include "ui/module_instance.h"

namespace Ui {

namespace {

// Changes are told a message later: when a combo box tells of a new selection its edit field has the old
// text.
constexpr UINT kChangeMessage = WM_APP + 1;

constexpr int kChanges[] = {BN_CLICKED, CBN_SELCHANGE, CBN_EDITCHANGE, EN_CHANGE};

// The place of a window along one axis: centred over `from` to `to`, inside the work area, its beginning
// visible above all.
LONG Center(LONG from, LONG to, LONG size, LONG workFrom, LONG workTo) {
  const LONG place = from + (to - from - size) / 2;
  return std::max(workFrom, std::min(place, workTo - size));
}

void CenterOverOwner(HWND window) {
  const HWND owner = GetWindow(window, GW_OWNER);
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof(monitor);
  const HMONITOR which = MonitorFromWindow(owner ? owner : window, MONITOR_DEFAULTTONEAREST);
  RECT own = {};
  if (!GetMonitorInfoW(which, &monitor) || !GetWindowRect(window, &own)) return;
  RECT base = monitor.rcWork;
  // A hidden or minimised owner has no place that the user sees.
  if (owner && IsWindowVisible(owner) && !IsIconic(owner)) GetWindowRect(owner, &base);
  const RECT& work = monitor.rcWork;
  const LONG x = Center(base.left, base.right, own.right - own.left, work.left, work.right);
  const LONG y = Center(base.top, base.bottom, own.bottom - own.top, work.top, work.bottom);
  SetWindowPos(window, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

INT_PTR Dialog::ShowModal(HWND owner) {
  const CommonControlsScope controls;
  changePending_ = false;
  const INT_PTR result = DialogBoxParamW(ModuleInstance(), MAKEINTRESOURCEW(resource_), owner, Procedure,
                                         reinterpret_cast<LPARAM>(this));
  window_ = nullptr;
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
  return result > 0 ? result : IDCANCEL;
}

INT_PTR CALLBACK Dialog::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(window, DWLP_USER, lParam);
    reinterpret_cast<Dialog*>(lParam)->window_ = window;
  }
  // Some messages come before WM_INITDIALOG and find no object yet.
  auto* self = reinterpret_cast<Dialog*>(GetWindowLongPtrW(window, DWLP_USER));
  if (!self) return FALSE;
  try {
    return self->Handle(message, wParam, lParam);
  } catch (...) {
    // The first is what went wrong; later ones come of it.
    if (!self->failure_) self->failure_ = std::current_exception();
    EndDialog(window, IDCANCEL);
    return TRUE;
  }
}

INT_PTR Dialog::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG:
      CenterOverOwner(window_);
      OnInit();
      OnChange();
      return TRUE;  // the system sets the focus on the first field
    case WM_COMMAND:
      HandleCommand(LOWORD(wParam), HIWORD(wParam));
      return TRUE;
    case WM_CTLCOLORSTATIC:
      // Of the few messages whose answer is the procedure's own.
      return reinterpret_cast<INT_PTR>(
          OnColorStatic(GetDlgCtrlID(reinterpret_cast<HWND>(lParam)), reinterpret_cast<HDC>(wParam)));
    case kChangeMessage:
      changePending_ = false;
      OnChange();
      return TRUE;
    default:
      return FALSE;
  }
}

void Dialog::HandleCommand(int control, int notification) {
  if (control == IDOK || control == IDCANCEL) {
    if (notification != BN_CLICKED) return;
    if (control == IDOK) return OnOk();
    return OnCancel();
  }
  if (notification == BN_CLICKED) OnButton(control);
  if (std::find(std::begin(kChanges), std::end(kChanges), notification) == std::end(kChanges)) return;
  if (!changePending_) changePending_ = PostMessageW(window_, kChangeMessage, 0, 0) != FALSE;
}

}  // namespace Ui
