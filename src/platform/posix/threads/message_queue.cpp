#include "platform/posix/threads/message_queue.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <unordered_map>

#include "platform/posix/windows_functions.h"

namespace Platform {

namespace {

class QueueTable {
 public:
  static QueueTable& Instance() {
    // Never destroyed: the main thread removes its queue at the very end of the process.
    static QueueTable& table = *std::make_unique<QueueTable>().release();
    return table;
  }

  void Add(DWORD thread, std::shared_ptr<MessageQueue> queue) {
    const std::lock_guard lock(mutex_);
    queues_[thread] = std::move(queue);
  }
  void Remove(DWORD thread) {
    const std::lock_guard lock(mutex_);
    queues_.erase(thread);
  }
  std::shared_ptr<MessageQueue> Find(DWORD thread) {
    const std::lock_guard lock(mutex_);
    const auto found = queues_.find(thread);
    return found == queues_.end() ? nullptr : found->second;
  }

 private:
  std::mutex mutex_;
  std::unordered_map<DWORD, std::shared_ptr<MessageQueue>> queues_;
};

// The number of a thread and its queue, which is null before the first use.
struct ThreadMessages {
  DWORD number = 0;
  std::shared_ptr<MessageQueue> queue;

  ThreadMessages() = default;
  ThreadMessages(const ThreadMessages&) = delete;
  ThreadMessages& operator=(const ThreadMessages&) = delete;
  ~ThreadMessages() { End(); }
  void End() {
    if (queue) QueueTable::Instance().Remove(number);
    queue.reset();
  }
};

thread_local ThreadMessages ownMessages;

DWORD OwnThreadNumber() {
  if (ownMessages.number == 0) ownMessages.number = NewThreadNumber();
  return ownMessages.number;
}

}  // namespace

void MessageQueue::Post(const MSG& message) {
  const std::lock_guard lock(mutex_);
  messages_.push_back(message);
  changed_.notify_one();
}

void MessageQueue::Quit(int exitCode) {
  const std::lock_guard lock(mutex_);
  exitCode_ = exitCode;
  changed_.notify_one();
}

bool MessageQueue::TakeNow(MSG& message, HWND window, bool removes) {
  const auto found = std::ranges::find_if(
      messages_, [window](const MSG& posted) { return !window || posted.hwnd == window; });
  if (found != messages_.end()) {
    message = *found;
    if (removes) messages_.erase(found);
    return true;
  }
  if (!exitCode_ || window) return false;
  message = {};
  message.message = WM_QUIT;
  message.wParam = static_cast<WPARAM>(*exitCode_);
  if (removes) exitCode_.reset();
  return true;
}

bool MessageQueue::Take(MSG& message, HWND window, bool removes, DWORD milliseconds) {
  std::unique_lock lock(mutex_);
  const auto takes = [&] { return TakeNow(message, window, removes); };
  if (milliseconds == INFINITE) {
    changed_.wait(lock, takes);
    return true;
  }
  return changed_.wait_for(lock, std::chrono::milliseconds(milliseconds), takes);
}

void MessageQueue::Drop(HWND window) {
  const std::lock_guard lock(mutex_);
  std::erase_if(messages_, [window](const MSG& posted) { return posted.hwnd == window; });
}

MessageQueue& OwnMessageQueue() {
  if (!ownMessages.queue) {
    const DWORD number = OwnThreadNumber();
    ownMessages.queue = std::make_shared<MessageQueue>();
    QueueTable::Instance().Add(number, ownMessages.queue);
  }
  return *ownMessages.queue;
}

void EndMessageQueue() { ownMessages.End(); }

std::shared_ptr<MessageQueue> MessageQueueOf(DWORD thread) { return QueueTable::Instance().Find(thread); }

void SetThreadNumber(DWORD number) { ownMessages.number = number; }

DWORD NewThreadNumber() {
  static std::atomic<DWORD> last{0};
  constexpr DWORD kStep = 4;  // as on Windows
  return last.fetch_add(kStep, std::memory_order_relaxed) + kStep;
}

}  // namespace Platform

DWORD GetCurrentThreadId() { return Platform::OwnThreadNumber(); }
