#include "ui/dialog.h"

#include <algorithm>
#include <utility>

#include "ui/common_controls.h"
#include "ui/module_instance.h"
#include "ui/placement.h"

namespace Ui {

namespace {

// Changes are told a message later: when a combo box tells of a new selection its edit field has the old
// text.
constexpr UINT kChangeMessage = WM_APP + 1;

// The window has got another scale or another screen, and by now all its controls have their new places. The
// first parameter is whether it may be moved.
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
  if (message != WM_INITDIALOG && OnMessage(message, wParam, lParam)) return TRUE;
  switch (message) {
    case WM_INITDIALOG:
      return Start();
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
    case WM_DPICHANGED:
      scrollArea_.ScrollToTop();
      OnScale(HIWORD(wParam));
      // The user may be dragging the window from one monitor to the other, so its place stays theirs.
      PostMessageW(window_, kFitMessage, FALSE, 0);
      return FALSE;  // the system goes on to scale the window
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

// Returns whether the system is to set the focus, on the first control of the tab order.
BOOL Dialog::Start() {
  // Before OnInit as well: what the screen has room for depends on the monitor.
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
