// Windows that only receive messages, and PostMessageW to them.

#include "platform/message_window.h"

#include <deque>

#include "platform/posix/fault_gate.h"
#include "platform/posix/last_error.h"
#include "platform/posix/waitable.h"
#include "platform/posix/windows_functions.h"

namespace {

struct MessageQueue {
  std::mutex mutex;
  std::condition_variable changed;
  std::deque<PostedMessage> messages;
};

using MessageQueues = Platform::HandleTable<MessageQueue>;

}  // namespace

struct MessageWindow::State {
  std::shared_ptr<MessageQueue> queue;
  HANDLE handle;
};

MessageWindow::MessageWindow() : state_(std::make_unique<State>()) {
  state_->queue = std::make_shared<MessageQueue>();
  state_->handle = MessageQueues::Instance().Add(state_->queue);
}

MessageWindow::~MessageWindow() { MessageQueues::Instance().Remove(state_->handle); }

HWND MessageWindow::Handle() const { return static_cast<HWND>(state_->handle); }

bool MessageWindow::Take(PostedMessage& message, DWORD milliseconds) {
  MessageQueue& queue = *state_->queue;
  std::unique_lock lock(queue.mutex);
  const auto hasMessage = [&queue] { return !queue.messages.empty(); };
  if (milliseconds == INFINITE)
    queue.changed.wait(lock, hasMessage);
  else if (!queue.changed.wait_for(lock, std::chrono::milliseconds(milliseconds), hasMessage))
    return false;
  message = queue.messages.front();
  queue.messages.pop_front();
  return true;
}

BOOL PostMessageW(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (Platform::FaultFires("PostMessageW", message)) return FALSE;
  const auto queue = MessageQueues::Instance().Find(window);
  if (!queue) return Platform::FailWith(ERROR_INVALID_WINDOW_HANDLE);
  const std::lock_guard lock(queue->mutex);
  queue->messages.push_back({message, first, second});
  queue->changed.notify_one();
  return TRUE;
}
