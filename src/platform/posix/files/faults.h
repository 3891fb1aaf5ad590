// Fault injection for tests: makes the n-th call of a Windows function fail with a chosen error, or write
// fewer bytes, and counts calls. Tests use it to reach the code for full disks, denied access, vanished files
// and lack of memory. The product never arms it; while it is not armed, a call costs one relaxed load.
//
// Functions are given by name: "MoveFileW". Thread-safe; a fault applies to all threads of the process.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/posix/windows_functions.h"

namespace Platform::Faults {

// Makes the `nth` call of `function` (1 is the next call) fail with `error` and do nothing else. With
// `repeat`, all later calls fail too.
QX_PLATFORM_API void Fail(const char* function, int nth, DWORD error, bool repeat = false);

// Makes the `nth` call of WriteFile write at most `count` bytes and succeed.
QX_PLATFORM_API void WriteShort(int nth, DWORD count);

// Makes the `nth` FindFirstFileExW call with FindExInfoBasic return its first entry without a name, as some
// file systems do.
QX_PLATFORM_API void ReturnNoName(int nth);

// Makes WNetGetUniversalNameW return this network name for every path; the empty text undoes it.
QX_PLATFORM_API void NameNetwork(std::u16string name);

// Runs `action` once, at the beginning of the `nth` call of `function`, so that a test can change something
// between two calls of the code under test. The action may call any function.
QX_PLATFORM_API void Before(const char* function, int nth, std::function<void()> action);

// Makes `function` output these bytes, as far as the buffer has room, and return `result`, to test how
// callers handle malformed output. `function` is one of
//   GetFileSecurityW, GetNamedSecurityInfoW: a security descriptor; the result must be 0
//   NtQueryInformationFile: the contents of the buffer, and the status
//   WNetGetUniversalNameW: the contents of the buffer, and the error.
QX_PLATFORM_API void Give(const char* function, std::vector<BYTE> bytes, DWORD result = ERROR_SUCCESS);

// CallCount returns how often `function` was called, failed calls included, since Watch, Fail, Before or Give
// last named it; 0 if none of them has named it since Clear. Watch only starts the count.
QX_PLATFORM_API int CallCount(const char* function);
QX_PLATFORM_API void Watch(const char* function);

// Returns the flags of the last call of `function` since Watch or Fail named it; 0 if there was none. Works
// for functions with a flags argument, such as FormatMessageW, LoadLibraryExW, FindFirstFileExW and the
// CompareString functions.
QX_PLATFORM_API std::uint32_t LastFlags(const char* function);

// Returns the path arguments of all calls since Watch or Fail named the function, failed calls included, with
// null as the empty text. Recorded for FindFirstFileExW, GetFileAttributesW, CreateDirectoryW, MoveFileW (the
// source), the functions of file security and WNetGetUniversalNameW; for LookupAccountSidW it is the system,
// for LookupAccountNameW and LookupPrivilegeValueW the name.
QX_PLATFORM_API std::vector<std::u16string> Paths(const char* function);

// Returns the information level of the last FindFirstFileExW call since Watch or Fail named it.
QX_PLATFORM_API FINDEX_INFO_LEVELS LastInfoLevel();

// The source and language arguments of the last FormatMessageW call since Watch or Fail named it.
struct MessageSource {
  const void* source = nullptr;
  DWORD language = 0;
};
QX_PLATFORM_API MessageSource LastMessageSource();

// Removes all faults, actions and counts.
QX_PLATFORM_API void Clear();

// Clears all faults at the beginning and the end of a scope.
struct Scope {
  Scope() { Clear(); }
  ~Scope() { Clear(); }
  Scope(const Scope&) = delete;
  Scope& operator=(const Scope&) = delete;
};

}  // namespace Platform::Faults
