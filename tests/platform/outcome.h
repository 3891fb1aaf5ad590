// The error numbers of calls that must fail.
#pragma once

#include "platform/windows_api.h"

constexpr DWORD kNoFailure = 0xFFFFFFFE;

// The last error if the call failed, otherwise kNoFailure. Used around the call itself, so that nothing comes
// between the failure and the question.
inline DWORD FailureOf(BOOL result) { return result ? kNoFailure : GetLastError(); }

// For CreateFileW; a handle that was opened after all is closed.
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

// For GetFileAttributesW and SetFilePointer, which answer the same value for a failure.
inline DWORD FailureOfValue(DWORD value) {
  static_assert(INVALID_FILE_ATTRIBUTES == 0xFFFFFFFF);
  return value == 0xFFFFFFFF ? GetLastError() : kNoFailure;
}

// CreateFileW with what the tests mostly want.
inline HANDLE OpenFor(const WCHAR* path, DWORD access, DWORD creation,
                      DWORD share = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE) {
  return CreateFileW(path, access, share, nullptr, creation, 0, nullptr);
}
