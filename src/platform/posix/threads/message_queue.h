// The message queue of a thread, and the windows that belong to it.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

#include "platform/posix/windows_types.h"

namespace Platform {

// Any thread posts; the thread that it belongs to takes.
class MessageQueue {
 public:
  void Post(const MSG& message);
  // Ends the loop of the thread: Take gives WM_QUIT once no other message is left.
  void Quit(int exitCode);

  // Stores the first message, or the first of the window if one is given, and takes it out with `removes`.
  // False if no message comes within the time; the greatest number of milliseconds waits for ever.
  bool Take(MSG& message, HWND window, bool removes, DWORD milliseconds);

  // Takes out what was posted to the window.
  void Drop(HWND window);

 private:
  bool TakeNow(MSG& message, HWND window, bool removes);

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<MSG> messages_;
  std::optional<int> exitCode_;
};

// The queue of the calling thread; it is made by the first call and ends with the thread.
MessageQueue& OwnMessageQueue();
// Ends it before that.
void EndMessageQueue();

// The queue of a thread by its number; null if the thread has none.
std::shared_ptr<MessageQueue> MessageQueueOf(DWORD thread);

// Gives the calling thread, which has just begun, the number that its maker has drawn for it.
void SetThreadNumber(DWORD number);
DWORD NewThreadNumber();

}  // namespace Platform
