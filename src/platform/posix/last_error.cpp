#include "platform/posix/last_error.h"

#include <cerrno>

#include "platform/posix/windows_functions.h"

namespace {

constexpr DWORD kSemaphoreTimeout = 121;
constexpr DWORD kBusy = 170;
constexpr DWORD kNotSupported = 50;
constexpr DWORD kUnresolvableName = 1921;
constexpr DWORD kNoAccess = 998;
constexpr DWORD kSeekOnDevice = 132;

struct ErrnoRow {
  int number;
  DWORD error;
};

constexpr ErrnoRow kErrnoRows[] = {
    {ENOENT, ERROR_FILE_NOT_FOUND},
    {ENOTDIR, ERROR_PATH_NOT_FOUND},
    {EACCES, ERROR_ACCESS_DENIED},
    {EPERM, ERROR_ACCESS_DENIED},
    {EISDIR, ERROR_ACCESS_DENIED},
    {EEXIST, ERROR_ALREADY_EXISTS},
    {ENOTEMPTY, ERROR_DIR_NOT_EMPTY},
    {EXDEV, ERROR_NOT_SAME_DEVICE},
    {EROFS, ERROR_WRITE_PROTECT},
    {ENOSPC, ERROR_DISK_FULL},
    {EDQUOT, ERROR_DISK_FULL},
    {EFBIG, ERROR_DISK_FULL},
    {E2BIG, ERROR_DISK_FULL},
    {EIO, ERROR_IO_DEVICE},
    {EMFILE, ERROR_TOO_MANY_OPEN_FILES},
    {ENFILE, ERROR_TOO_MANY_OPEN_FILES},
    {ENOMEM, ERROR_NOT_ENOUGH_MEMORY},
    {ENAMETOOLONG, ERROR_FILENAME_EXCED_RANGE},
    {ELOOP, kUnresolvableName},
    {EINVAL, ERROR_INVALID_PARAMETER},
    {EBADF, ERROR_INVALID_HANDLE},
    {EPIPE, ERROR_BROKEN_PIPE},
    {ETXTBSY, ERROR_SHARING_VIOLATION},
    {EBUSY, kBusy},
    {EFAULT, kNoAccess},
    {ESPIPE, kSeekOnDevice},
    {ETIMEDOUT, kSemaphoreTimeout},
    {EOPNOTSUPP, kNotSupported},
    {ENOSYS, kNotSupported},
};

thread_local DWORD lastError = ERROR_SUCCESS;

}  // namespace

DWORD GetLastError() { return lastError; }

void SetLastError(DWORD error) { lastError = error; }

namespace Platform {

BOOL FailWith(DWORD error) {
  SetLastError(error);
  return FALSE;
}

DWORD ErrorOfErrno(int error) {
  for (const ErrnoRow& row : kErrnoRows) {
    if (row.number == error) return row.error;
  }
  return ERROR_GEN_FAILURE;
}

}  // namespace Platform
