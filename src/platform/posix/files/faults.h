// Faults on demand, for tests: makes the n-th call of a Windows function fail with a chosen error, or write
// short, and counts calls. This is how disk-full, access-denied, vanished-file and out-of-memory paths are
// walked. Nothing in the product arms it; unarmed, a call costs one relaxed load.
//
// Functions are named as they are called: "MoveFileW". Thread-safe; a fault serves the whole process.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/posix/windows_functions.h"

namespace Platform::Faults {

// The call number `nth` (1 is the next call) of `function` fails with `error` and does nothing. With
// `repeat`, all later ones too.
QX_PLATFORM_API void Fail(const char* function, int nth, DWORD error, bool repeat = false);

// The call number `nth` of WriteFile writes `count` bytes of those it is given, and succeeds.
QX_PLATFORM_API void WriteShort(int nth, DWORD count);

// The search number `nth` that FindFirstFileExW opens with the basic information succeeds, but its first
// entry has no name, as on file systems that do not give names that way.
QX_PLATFORM_API void LeaveNameOut(int nth);

// WNetGetUniversalNameW gives every path this network name from now on; the empty text is none.
QX_PLATFORM_API void NameNetwork(std::u16string name);

// Runs `action` before the call number `nth` of `function` does its work, once: what the action changes is
// changed between two calls of whoever is tested. It may call any function.
QX_PLATFORM_API void Before(const char* function, int nth, std::function<void()> action);

// From now on the function hands out these bytes, as far as there is room for them, and returns `result`, as
// a system would whose answer is not to be trusted. One of
//   GetFileSecurityW, GetNamedSecurityInfoW: a security descriptor; the result must be 0
//   NtQueryInformationFile: what is to fill the buffer, and the status
//   WNetGetUniversalNameW: what is to fill the buffer, and the error.
QX_PLATFORM_API void Give(const char* function, std::vector<BYTE> bytes, DWORD result = ERROR_SUCCESS);

// How often `function` was called since Watch or Fail named it or Clear was called, the failed calls
// included. 0 for a function that was not named.
QX_PLATFORM_API int CallCount(const char* function);
QX_PLATFORM_API void Watch(const char* function);

// The flags word of the last call of FormatMessageW, LoadLibraryExW, FindFirstFileExW or a CompareString
// function with flags since Watch or Fail named it; 0 before.
QX_PLATFORM_API std::uint32_t LastFlags(const char* function);

// The paths that FindFirstFileExW, GetFileAttributesW, CreateDirectoryW, MoveFileW (its source), a function
// of file security or WNetGetUniversalNameW was given, or the system of LookupAccountSidW, or the name of
// LookupAccountNameW and LookupPrivilegeValueW, since Watch or Fail named it, the failed calls included; null
// is an empty text.
QX_PLATFORM_API std::vector<std::u16string> Paths(const char* function);

// The amount of information that the last FindFirstFileExW asked for, since Watch or Fail named it.
QX_PLATFORM_API FINDEX_INFO_LEVELS LastInfoLevel();

// The source and language that the last FormatMessageW was given, since Watch or Fail named it.
struct MessageSource {
  const void* source = nullptr;
  DWORD language = 0;
};
QX_PLATFORM_API MessageSource LastMessageSource();

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
