// The gate that each Windows function of this layer passes first: where tests make it fail (faults.h).
#pragma once

#include <atomic>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/posix/windows_types.h"

namespace Platform::Faults {

// Set while any function is named by Fail, WriteShort or Watch.
extern std::atomic<bool> armed;

// What a call was given, as far as tests ask for it.
struct Arguments {
  std::uint32_t flags = 0;
  const WCHAR* path = nullptr;
  FINDEX_INFO_LEVELS level = FindExInfoStandard;
  const void* source = nullptr;
  DWORD language = 0;
};

// Counts the call, keeps what it was given and, if it is to fail, sets the last error and answers true.
bool Fires(const char* function, const Arguments& arguments);

// The bytes that this call of WriteFile shall write at most. Counts a call of its own kind.
std::optional<DWORD> ShortWrite();

// What a test makes the function hand out, and return.
struct Gift {
  std::vector<BYTE> bytes;
  DWORD result = ERROR_SUCCESS;
};
std::optional<Gift> GiftOf(const char* function);

// What every drive's network name is to be; empty for none.
std::u16string UniversalName();

// True if the search with the basic information that was just opened gives its first entry without a name.
bool LeavesNameOut();

}  // namespace Platform::Faults

namespace Platform {

// True if this call of `function` is to fail; the last error is set then.
inline bool FaultFires(const char* function, const Faults::Arguments& arguments) {
  return Faults::armed.load(std::memory_order_relaxed) && Faults::Fires(function, arguments);
}
inline bool FaultFires(const char* function, std::uint32_t flags = 0) {
  return FaultFires(function, Faults::Arguments{.flags = flags});
}

// What a test makes the function hand out; nothing without a test.
inline std::optional<Faults::Gift> GivenByTest(const char* function) {
  if (!Faults::armed.load(std::memory_order_relaxed)) return std::nullopt;
  return Faults::GiftOf(function);
}

}  // namespace Platform
