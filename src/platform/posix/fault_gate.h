// The gate that each Windows function of this layer passes first: where tests make it fail (faults.h).
#pragma once

#include <atomic>
#include <cstdint>
#include <optional>

#include "platform/posix/windows_types.h"

namespace Platform::Faults {

// Set while any function is named by Fail, WriteShort or Watch.
extern std::atomic<bool> armed;

// Counts the call and, if it is to fail, sets the last error and answers true.
bool Fires(const char* function, std::uint32_t flags);

// The bytes that this call of WriteFile shall write at most. Counts a call of its own kind.
std::optional<DWORD> ShortWrite();

}  // namespace Platform::Faults

namespace Platform {

// True if this call of `function` is to fail; the last error is set then. `flags` is what LastFlags answers.
inline bool FaultFires(const char* function, std::uint32_t flags = 0) {
  return Faults::armed.load(std::memory_order_relaxed) && Faults::Fires(function, flags);
}

}  // namespace Platform
