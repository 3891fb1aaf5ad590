// Faults on demand, for tests: makes the n-th call of a Windows function fail with a chosen error, or write
// short, and counts calls. This is how disk-full, access-denied, vanished-file and out-of-memory paths are
// walked. Nothing in the product arms it; unarmed, a call costs one relaxed load.
//
// Functions are named as they are called: "MoveFileW". Thread-safe; a fault serves the whole process.
#pragma once

#include <cstdint>

#include "platform/posix/windows_functions.h"

namespace Platform::Faults {

// The call number `nth` (1 is the next call) of `function` fails with `error` and does nothing. With
// `repeat`, all later ones too.
QX_PLATFORM_API void Fail(const char* function, int nth, DWORD error, bool repeat = false);

// The call number `nth` of WriteFile writes `count` bytes of those it is given, and succeeds.
QX_PLATFORM_API void WriteShort(int nth, DWORD count);

// How often `function` was called since Watch or Fail named it or Clear was called, the failed calls
// included. 0 for a function that was not named.
QX_PLATFORM_API int CallCount(const char* function);
QX_PLATFORM_API void Watch(const char* function);

// The flags word of the last call of FormatMessageW or LoadLibraryExW since Watch named it; 0 before.
QX_PLATFORM_API std::uint32_t LastFlags(const char* function);

// Disarms everything.
QX_PLATFORM_API void Clear();

// Clears at the end of a test's scope.
struct Scope {
  Scope() { Clear(); }
  ~Scope() { Clear(); }
  Scope(const Scope&) = delete;
  Scope& operator=(const Scope&) = delete;
};

}  // namespace Platform::Faults
