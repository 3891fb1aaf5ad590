// The objects that WaitForSingleObject can wait for: events and threads.
#pragma once

#include <condition_variable>
#include <mutex>

#include "platform/posix/files/handle_table.h"

namespace Platform {

// An event, or the end of a thread. May be used from any thread.
class Waitable {
 public:
  // `resetsItself` makes an auto-reset event: each Set releases one wait.
  Waitable(bool resetsItself, bool isSet) : resetsItself_(resetsItself), isSet_(isSet) {}

  // Sets the object, which releases waits: all of them, or one for an auto-reset event.
  void Set();
  void Reset();
  // Waits until the object is set. Returns false if that does not happen within `milliseconds`; INFINITE
  // waits without limit.
  bool Wait(DWORD milliseconds);

  // For a thread that was created suspended: set by ResumeThread. Null for all other objects.
  std::shared_ptr<Waitable> gate;

 private:
  const bool resetsItself_;
  std::mutex mutex_;
  std::condition_variable changed_;
  bool isSet_;
};

using Waitables = HandleTable<Waitable>;

}  // namespace Platform
