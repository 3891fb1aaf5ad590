#include "window/opened_menu.h"

#include "window/modal_driver.h"

OpenedMenu::OpenedMenu() : hook_(SetWindowsHookExW(WH_CALLWNDPROC, OnHook, nullptr, GetCurrentThreadId())) {
  current_ = this;
}

OpenedMenu::~OpenedMenu() {
  UnhookWindowsHookEx(hook_);
  current_ = nullptr;
}

void OpenedMenu::Read(HMENU menu) {
  ++opened;
  texts.clear();
  const int count = GetMenuItemCount(menu);
  for (int item = 0; item < count; ++item) {
    WCHAR text[256] = {};
    GetMenuStringW(menu, static_cast<UINT>(item), text, 256, MF_BYPOSITION);
    texts.emplace_back(text);
  }
}

LRESULT CALLBACK OpenedMenu::OnHook(int code, WPARAM wParam, LPARAM lParam) {
  const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
  if (code == HC_ACTION && current_) {
    if (sent.message == WM_INITMENUPOPUP) current_->Read(reinterpret_cast<HMENU>(sent.wParam));
    WCHAR name[16] = {};
    GetClassNameW(sent.hwnd, name, 16);
    if (WStringView(name) == L"#32768" && IsWindowVisible(sent.hwnd)) {
      GetWindowRect(sent.hwnd, &current_->area);
    }
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

void PressKeysInMenuOf(HWND dialog, int button, const std::vector<WORD>& keys) {
  const HWND window = GetDlgItem(dialog, button);
  // All messages are posted in advance: the menu processes them in its own message loop.
  PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
  PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
  for (const WORD key : keys) {
    PostMessageW(dialog, WM_KEYDOWN, key, 1);
    PostMessageW(dialog, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
  }
  Pump(dialog);
}
