// Maps handles to objects. A handle is a number that is never reused, so a closed or invalid handle is
// detected and never reaches another object.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <unordered_map>

#include "platform/posix/windows_types.h"

namespace Platform {

// Returns a new handle. All tables use the same sequence, so no handle is in two of them.
inline HANDLE NewHandle() {
  static std::atomic<std::uintptr_t> last{0};
  constexpr std::uintptr_t kStep = 4;  // as on Windows, the two low bits are clear
  return reinterpret_cast<HANDLE>(last.fetch_add(kStep, std::memory_order_relaxed) + kStep);
}

// The open handles of one type of object. Thread-safe.
template <typename Object>
class HandleTable {
 public:
  // Returns the table of the process.
  static HandleTable& Instance() {
    // Never destroyed: static objects may close their handles at the end of the process.
    static HandleTable& table = *std::make_unique<HandleTable>().release();
    return table;
  }

  // Adds an object and returns its new handle.
  HANDLE Add(std::shared_ptr<Object> object) {
    const HANDLE handle = NewHandle();
    const std::lock_guard lock(mutex_);
    objects_.emplace(handle, std::move(object));
    return handle;
  }

  // Returns the object of a handle; null if the handle is invalid. The caller shares ownership, so the object
  // outlives a close by another thread.
  std::shared_ptr<Object> Find(HANDLE handle) {
    const std::lock_guard lock(mutex_);
    const auto found = objects_.find(handle);
    return found == objects_.end() ? nullptr : found->second;
  }

  // Removes a handle and returns its object; null if the handle is invalid.
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
