// Each Windows function of this layer calls FaultFires first, so that tests can make it fail (faults.h).
#pragma once

#include <atomic>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/posix/windows_types.h"

namespace Platform::Faults {

// True while a test has set any fault or watches any function.
extern std::atomic<bool> armed;

// The arguments of a call that tests can inspect.
struct Arguments {
  std::uint32_t flags = 0;
  const WCHAR* path = nullptr;
  FINDEX_INFO_LEVELS level = FindExInfoStandard;
  const void* source = nullptr;
  DWORD language = 0;
};

// Counts the call and records its arguments. If the call is to fail, sets the last error and returns true.
bool Fires(const char* function, const Arguments& arguments);

// Returns the most bytes that this call of WriteFile may write, if a test limits it. Calls of this function
// are counted separately from those of Fires.
std::optional<DWORD> ShortWrite();

// The output and the result that a test chooses for a function.
struct Injection {
  std::vector<BYTE> bytes;
  DWORD result = ERROR_SUCCESS;
};
std::optional<Injection> InjectedResultOf(const char* function);

// Returns the network name that a test has chosen for all drives; empty for none.
std::u16string UniversalName();

// Returns whether the FindExInfoBasic search just opened must return its first entry without a name.
bool ReturnsNoName();

}  // namespace Platform::Faults

namespace Platform {

// Returns whether this call of `function` must fail; if so, the last error has been set.
inline bool FaultFires(const char* function, const Faults::Arguments& arguments) {
  return Faults::armed.load(std::memory_order_relaxed) && Faults::Fires(function, arguments);
}
inline bool FaultFires(const char* function, std::uint32_t flags = 0) {
  return FaultFires(function, Faults::Arguments{.flags = flags});
}

// Returns the output that a test has chosen for `function`, if any.
inline std::optional<Faults::Injection> InjectedResult(const char* function) {
  if (!Faults::armed.load(std::memory_order_relaxed)) return std::nullopt;
  return Faults::InjectedResultOf(function);
}

}  // namespace Platform
