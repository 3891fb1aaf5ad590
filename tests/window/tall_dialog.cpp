#include "window/tall_dialog.h"

#include "window/layout_checks.h"

TallDialogs::TallDialogs(int pixels)
    : pixels_(pixels), hook_(SetWindowsHookExW(WH_CALLWNDPROC, OnHook, nullptr, GetCurrentThreadId())) {
  current_ = this;
}

TallDialogs::~TallDialogs() {
  UnhookWindowsHookEx(hook_);
  current_ = nullptr;
}

// The hook is called before the dialog's own procedure receives the message.
LRESULT CALLBACK TallDialogs::OnHook(int code, WPARAM wParam, LPARAM lParam) {
  const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
  if (code == HC_ACTION && current_ && sent.message == WM_INITDIALOG) current_->Stretch(sent.hwnd);
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

void TallDialogs::Stretch(HWND dialog) const {
  constexpr UINT kPlaceOnly = SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;
  for (const int button : {IDOK, IDCANCEL}) {
    const RECT area = AreaOf(dialog, button);
    SetWindowPos(GetDlgItem(dialog, button), nullptr, area.left, area.top + pixels_, 0, 0, kPlaceOnly);
  }
  RECT window = {};
  GetWindowRect(dialog, &window);
  SetWindowPos(dialog, nullptr, 0, 0, window.right - window.left, window.bottom - window.top + pixels_,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}
