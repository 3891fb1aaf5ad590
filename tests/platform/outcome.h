// The error numbers of calls that are expected to fail.
#pragma once

#include "platform/windows_api.h"

constexpr DWORD kNoFailure = 0xFFFFFFFE;

// Returns the last error if the call failed, otherwise kNoFailure. To be used around the call itself, so that
// no other call changes the last error.
inline DWORD FailureOf(BOOL result) { return result ? kNoFailure : GetLastError(); }

// For CreateFileW; if the call succeeded, closes the handle.
inline DWORD FailureOfOpen(HANDLE handle) {
  if (handle == INVALID_HANDLE_VALUE) return GetLastError();
  CloseHandle(handle);
  return kNoFailure;
}

// For FindFirstFileExW.
inline DWORD FailureOfSearch(HANDLE search) {
  if (search == INVALID_HANDLE_VALUE) return GetLastError();
  FindClose(search);
  return kNoFailure;
}

// For GetFileAttributesW and SetFilePointer, which return the same value on failure.
inline DWORD FailureOfValue(DWORD value) {
  static_assert(INVALID_FILE_ATTRIBUTES == 0xFFFFFFFF);
  return value == 0xFFFFFFFF ? GetLastError() : kNoFailure;
}

// Calls CreateFileW with the arguments that most tests need.
inline HANDLE OpenFor(const WCHAR* path, DWORD access, DWORD creation,
                      DWORD share = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE) {
  return CreateFileW(path, access, share, nullptr, creation, 0, nullptr);
}
