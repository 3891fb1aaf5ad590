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

// Any thread may post; only the thread that the queue belongs to may take.
class MessageQueue {
 public:
  // Appends a message.
  void Post(const MSG& message);
  // Ends the message loop of the thread: Take stores WM_QUIT when no other message is left.
  void Quit(int exitCode);

  // Stores the first message in `message`, or the first one for `window` if that is not null, and removes it
  // from the queue if `removes`. Returns false if none arrives within `milliseconds`; INFINITE waits without
  // limit.
  bool Take(MSG& message, HWND window, bool removes, DWORD milliseconds);

  // Removes the messages that were posted to the window.
  void Drop(HWND window);

 private:
  bool TakeNow(MSG& message, HWND window, bool removes);

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<MSG> messages_;
  std::optional<int> exitCode_;
};

// Returns the queue of the calling thread. The first call creates it; it is destroyed when the thread ends.
MessageQueue& OwnMessageQueue();
// Destroys the queue of the calling thread earlier.
void EndMessageQueue();

// Returns the queue of the thread with this number; null if the thread has none.
std::shared_ptr<MessageQueue> MessageQueueOf(DWORD thread);

// Sets the number of the calling thread, which has just started, to one that its creator got from
// NewThreadNumber.
void SetThreadNumber(DWORD number);
// Returns a thread number that has not been used in this process.
DWORD NewThreadNumber();

}  // namespace Platform
