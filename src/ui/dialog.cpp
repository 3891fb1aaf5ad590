#include "ui/dialog.h"

#include <algorithm>
#include <utility>

#include "ui/common_controls.h"
#include "ui/module_instance.h"
#include "ui/placement.h"

namespace Ui {

namespace {

// Posted to call OnChange later: when a combo box reports a new selection, its edit field still has the old
// text.
constexpr UINT kChangeMessage = WM_APP + 1;

// Posted after the scale or the screen of the window has changed; when it arrives, all controls have their
// new positions. wParam says whether the window may be moved.
constexpr UINT kFitMessage = WM_APP + 2;

constexpr int kChanges[] = {BN_CLICKED, CBN_SELCHANGE, CBN_EDITCHANGE, EN_CHANGE};

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
  // Some messages arrive before WM_INITDIALOG, which stores the object.
  auto* self = reinterpret_cast<Dialog*>(GetWindowLongPtrW(window, DWLP_USER));
  if (!self) return FALSE;
  try {
    return self->Handle(message, wParam, lParam);
  } catch (...) {
    // Keep the first exception; later ones are consequences of it.
    if (!self->failure_) self->failure_ = std::current_exception();
    EndDialog(window, IDCANCEL);
    return TRUE;
  }
}

INT_PTR Dialog::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_INITDIALOG && OnMessage(message, wParam, lParam)) return TRUE;
  switch (message) {
    case WM_INITDIALOG:
      return Start();
    case WM_COMMAND:
      HandleCommand(LOWORD(wParam), HIWORD(wParam));
      return TRUE;
    case WM_CTLCOLORSTATIC:
      // For this message the dialog procedure returns the result itself instead of setting DWLP_MSGRESULT.
      return reinterpret_cast<INT_PTR>(
          OnColorStatic(GetDlgCtrlID(reinterpret_cast<HWND>(lParam)), reinterpret_cast<HDC>(wParam)));
    case kChangeMessage:
      changePending_ = false;
      OnChange();
      return TRUE;
    case WM_DPICHANGED:
      scrollArea_.ScrollToTop();
      OnScale(HIWORD(wParam));
      // The user may be dragging the window from one monitor to another, so do not move it.
      PostMessageW(window_, kFitMessage, FALSE, 0);
      return FALSE;  // the system then scales the window
    case WM_DISPLAYCHANGE:
    case WM_SETTINGCHANGE:
      PostMessageW(window_, kFitMessage, TRUE, 0);
      return FALSE;
    case kFitMessage:
      scrollArea_.Fit(window_);
      if (wParam) MoveInside(window_);
      return TRUE;
    default:
      return scrollArea_.Handle(message, wParam);
  }
}

// Returns whether the system shall set the focus to the first control of the tab order.
BOOL Dialog::Start() {
  // Move the window before OnInit as well, because the available space depends on the monitor.
  CenterOverOwner(window_);
  OnInit();
  OnChange();
  scrollArea_.Fit(window_);
  OnPlace();
  const int first = FirstField();
  if (first == 0) return TRUE;
  SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(first)), TRUE);
  return FALSE;
}

void Dialog::OnPlace() { CenterOverOwner(window_); }

void Dialog::HandleCommand(int control, int notification) {
  if (control == IDOK || control == IDCANCEL) {
    if (notification != BN_CLICKED) return;
    if (control == IDOK) return OnOk();
    return OnCancel();
  }
  if (notification == EN_HSCROLL) return OnScroll(control);
  if (notification == BN_CLICKED) OnButton(control);
  if (std::find(std::begin(kChanges), std::end(kChanges), notification) == std::end(kChanges)) return;
  if (!changePending_) changePending_ = PostMessageW(window_, kChangeMessage, 0, 0) != FALSE;
}

}  // namespace Ui
