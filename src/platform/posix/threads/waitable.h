// What WaitForSingleObject waits for: events and threads.
#pragma once

#include <condition_variable>
#include <mutex>

#include "platform/posix/files/handle_table.h"

namespace Platform {

// Any thread.
class Waitable {
 public:
  // With `resetsItself` one wait is let through for each Set.
  Waitable(bool resetsItself, bool isSet) : resetsItself_(resetsItself), isSet_(isSet) {}

  void Set();
  void Reset();
  // False if the time ends first. The greatest number of milliseconds waits for ever.
  bool Wait(DWORD milliseconds);

  // Of a thread that was made suspended: set by its ResumeThread. Null for all others.
  std::shared_ptr<Waitable> gate;

 private:
  const bool resetsItself_;
  std::mutex mutex_;
  std::condition_variable changed_;
  bool isSet_;
};

using Waitables = HandleTable<Waitable>;

}  // namespace Platform
