// A counting semaphore for tests with threads. The standard library's loses wake-ups on systems without a
// wait on an address, such as the Windows build's: it reads the count before it takes its lock.
#pragma once

#include <condition_variable>
#include <mutex>

namespace Velmora::SDK {

class Semaphore {
 public:
  void Release() {
    {
      const std::lock_guard lock(mutex_);
      ++count_;
    }
    released_.notify_one();
  }

  void Acquire() {
    std::unique_lock lock(mutex_);
    released_.wait(lock, [this] { return count_ > 0; });
    --count_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable released_;
  int count_ = 0;
};

}  // namespace Velmora::SDK
