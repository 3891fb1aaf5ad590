#include "platform/message_window.h"

struct MessageWindow::State {
  HWND window = nullptr;
  std::shared_ptr<const Handler> handler;
  WNDPROC procedure = nullptr;  // the window procedure of the class

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    const auto* const state = reinterpret_cast<const State*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!state || !IsHandled(message))
      return CallWindowProcW(state ? state->procedure : DefWindowProcW, window, message, first, second);
    const std::shared_ptr<const Handler> handler = state->handler;  // the call may destroy the window
    (*handler)({message, first, second});
    return 0;
  }
};

// Uses the system's window class "STATIC" for a message-only window (HWND_MESSAGE), so no class is
// registered.
MessageWindow::MessageWindow(Handler handler) : state_(std::make_unique<State>()) {
  state_->window =
      CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
  if (!state_->window || !handler) return;
  state_->handler = std::make_shared<const Handler>(std::move(handler));
  state_->procedure = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(state_->window, GWLP_WNDPROC));
  SetWindowLongPtrW(state_->window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(state_.get()));
  SetWindowLongPtrW(state_->window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&State::Procedure));
}

MessageWindow::~MessageWindow() {
  if (!state_->window) return;
  if (state_->handler) {
    SetWindowLongPtrW(state_->window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(state_->procedure));
    SetWindowLongPtrW(state_->window, GWLP_USERDATA, 0);
  }
  DestroyWindow(state_->window);
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
