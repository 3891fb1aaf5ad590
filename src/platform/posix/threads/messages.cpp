// The message functions, and the windows of platform/message_window.h.

#include "platform/message_window.h"

#include "platform/posix/files/fault_gate.h"
#include "platform/posix/files/handle_table.h"
#include "platform/posix/last_error.h"
#include "platform/posix/threads/message_queue.h"
#include "platform/posix/windows_functions.h"

namespace {

struct NativeWindow {
  std::shared_ptr<Platform::MessageQueue> queue;  // of the thread that created the window
  DWORD thread;
  MessageWindow::Handler handler;
};

using NativeWindows = Platform::HandleTable<NativeWindow>;

std::shared_ptr<NativeWindow> FindWindowOf(HWND handle) { return NativeWindows::Instance().Find(handle); }

MSG MessageOf(HWND window, UINT message, WPARAM first, LPARAM second) {
  MSG posted = {};
  posted.hwnd = window;
  posted.message = message;
  posted.wParam = first;
  posted.lParam = second;
  return posted;
}

// Checks the filter of GetMessageW and PeekMessageW. Ranges of message numbers, and -1 for the window, are
// not supported. Sets the last error if the result is false.
bool IsSupportedFilter(HWND window, UINT least, UINT most) {
  if (least != 0 || most != 0) return Platform::FailWith(ERROR_INVALID_PARAMETER) != FALSE;
  if (window && !FindWindowOf(window)) return Platform::FailWith(ERROR_INVALID_WINDOW_HANDLE) != FALSE;
  return true;
}

}  // namespace

struct MessageWindow::State {
  std::shared_ptr<NativeWindow> window;
  HWND handle;
};

MessageWindow::MessageWindow(Handler handler) : state_(std::make_unique<State>()) {
  Platform::OwnMessageQueue();
  const DWORD thread = GetCurrentThreadId();
  state_->window = std::make_shared<NativeWindow>(
      NativeWindow{Platform::MessageQueueOf(thread), thread, std::move(handler)});
  state_->handle = static_cast<HWND>(NativeWindows::Instance().Add(state_->window));
}

MessageWindow::~MessageWindow() {
  NativeWindows::Instance().Remove(state_->handle);
  state_->window->queue->Drop(state_->handle);
}

HWND MessageWindow::Handle() const { return state_->handle; }

bool MessageWindow::Take(PostedMessage& message, DWORD milliseconds) {
  MSG taken;
  if (!state_->window->queue->Take(taken, state_->handle, true, milliseconds)) return false;
  message = {taken.message, taken.wParam, taken.lParam};
  return true;
}

BOOL PostMessageW(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (Platform::FaultFires("PostMessageW", message)) return FALSE;
  if (!window) return PostThreadMessageW(GetCurrentThreadId(), message, first, second);
  const auto found = FindWindowOf(window);
  // A window ends with its thread.
  if (!found || Platform::MessageQueueOf(found->thread) != found->queue)
    return Platform::FailWith(ERROR_INVALID_WINDOW_HANDLE);
  found->queue->Post(MessageOf(window, message, first, second));
  return TRUE;
}

BOOL PostThreadMessageW(DWORD thread, UINT message, WPARAM first, LPARAM second) {
  if (Platform::FaultFires("PostThreadMessageW", message)) return FALSE;
  const auto queue = Platform::MessageQueueOf(thread);
  if (!queue) return Platform::FailWith(ERROR_INVALID_THREAD_ID);
  queue->Post(MessageOf(nullptr, message, first, second));
  return TRUE;
}

void PostQuitMessage(int exitCode) { Platform::OwnMessageQueue().Quit(exitCode); }

BOOL GetMessageW(MSG* message, HWND window, UINT least, UINT most) {
  constexpr BOOL kFailed = -1;
  if (Platform::FaultFires("GetMessageW") || !IsSupportedFilter(window, least, most)) return kFailed;
  Platform::OwnMessageQueue().Take(*message, window, true, INFINITE);
  return message->message != WM_QUIT;
}

BOOL PeekMessageW(MSG* message, HWND window, UINT least, UINT most, UINT flags) {
  if (Platform::FaultFires("PeekMessageW", flags) || !IsSupportedFilter(window, least, most)) return FALSE;
  return Platform::OwnMessageQueue().Take(*message, window, (flags & PM_REMOVE) != 0, 0);
}

BOOL TranslateMessage(const MSG*) { return FALSE; }

LRESULT DispatchMessageW(const MSG* message) {
  if (Platform::FaultFires("DispatchMessageW", message->message)) return 0;
  const auto found = FindWindowOf(message->hwnd);
  if (found && found->handler && MessageWindow::IsHandled(message->message))
    found->handler({message->message, message->wParam, message->lParam});
  return 0;
}
