#include "platform/message_window.h"

struct MessageWindow::State {
  HWND window;
};

// A window of the system's own class "STATIC" below no desktop: nobody sees it, and it answers nothing.
MessageWindow::MessageWindow() : state_(std::make_unique<State>()) {
  state_->window =
      CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
}

MessageWindow::~MessageWindow() {
  if (state_->window) DestroyWindow(state_->window);
}

HWND MessageWindow::Handle() const { return state_->window; }

bool MessageWindow::Take(PostedMessage& message, DWORD milliseconds) {
  const ULONGLONG begin = GetTickCount64();
  for (;;) {
    MSG taken;
    if (PeekMessageW(&taken, state_->window, 0, 0, PM_REMOVE)) {
      message = {taken.message, taken.wParam, taken.lParam};
      return true;
    }
    DWORD left = INFINITE;
    if (milliseconds != INFINITE) {
      const ULONGLONG passed = GetTickCount64() - begin;
      if (passed >= milliseconds) return false;
      left = milliseconds - static_cast<DWORD>(passed);
    }
    MsgWaitForMultipleObjects(0, nullptr, FALSE, left, QS_ALLINPUT);
  }
}
