// Handles and what they stand for. A handle is a number that is never given twice, so that one that was
// closed, or never was one, is found out and not followed.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <unordered_map>

#include "platform/posix/windows_types.h"

namespace Platform {

// The next handle of the process. All tables draw from one row, so no handle is in two of them.
inline HANDLE NewHandle() {
  static std::atomic<std::uintptr_t> last{0};
  constexpr std::uintptr_t kStep = 4;  // as on Windows, the two low bits are clear
  return reinterpret_cast<HANDLE>(last.fetch_add(kStep, std::memory_order_relaxed) + kStep);
}

template <typename Object>
class HandleTable {
 public:
  static HandleTable& Instance() {
    // Never destroyed: static objects may close their handles at the end of the process.
    static HandleTable& table = *std::make_unique<HandleTable>().release();
    return table;
  }

  HANDLE Add(std::shared_ptr<Object> object) {
    const HANDLE handle = NewHandle();
    const std::lock_guard lock(mutex_);
    objects_.emplace(handle, std::move(object));
    return handle;
  }

  // Null if there is no such handle. The object lives as long as the caller holds it, even if another thread
  // closes the handle.
  std::shared_ptr<Object> Find(HANDLE handle) {
    const std::lock_guard lock(mutex_);
    const auto found = objects_.find(handle);
    return found == objects_.end() ? nullptr : found->second;
  }

  // Takes the handle out of the table; null if there is none.
  std::shared_ptr<Object> Remove(HANDLE handle) {
    const std::lock_guard lock(mutex_);
    const auto found = objects_.find(handle);
    if (found == objects_.end()) return nullptr;
    std::shared_ptr<Object> object = std::move(found->second);
    objects_.erase(found);
    return object;
  }

 private:
  std::mutex mutex_;
  std::unordered_map<HANDLE, std::shared_ptr<Object>> objects_;
};

}  // namespace Platform
