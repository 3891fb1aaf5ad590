// ReadFile, WriteFile, SetFilePointer and other functions of open files.

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>

#include "platform/posix/files/fault_gate.h"
#include "platform/posix/files/open_file.h"
#include "platform/posix/last_error.h"
#include "platform/posix/windows_functions.h"

namespace {

using Platform::FailWith;
using Platform::OpenFile;
using Platform::OpenFiles;

constexpr DWORD kNoAccess = 998;  // ERROR_NOACCESS
constexpr off_t kLastPosition = std::numeric_limits<off_t>::max();

std::shared_ptr<OpenFile> FindFile(HANDLE handle) { return OpenFiles::Instance().Find(handle); }

// Checks the arguments of a transfer. Returns 0 or an error.
DWORD CheckTransfer(const OpenFile* file, bool allowed, const void* buffer, DWORD count,
                    const OVERLAPPED* overlapped) {
  if (!file) return ERROR_INVALID_HANDLE;
  if (!allowed) return ERROR_ACCESS_DENIED;
  if (overlapped) return ERROR_INVALID_PARAMETER;
  if (!buffer && count > 0) return kNoAccess;
  return ERROR_SUCCESS;
}

// Calls `transfer(offset, size)` until `count` bytes are transferred, it returns 0 or it fails. Returns the
// number of bytes transferred; stores 0 or a Windows error in `error`.
template <typename Transfer>
DWORD TransferAll(DWORD count, DWORD& error, Transfer transfer) {
  error = ERROR_SUCCESS;
  DWORD total = 0;
  while (total < count) {
    const ssize_t size = transfer(total, static_cast<std::size_t>(count - total));
    if (size == 0) break;
    if (size > 0) {
      total += static_cast<DWORD>(size);
    } else if (errno != EINTR) {
      error = Platform::ErrorOfErrno(errno);
      break;
    }
  }
  return total;
}

}  // namespace

BOOL ReadFile(HANDLE handle, void* buffer, DWORD count, DWORD* done, OVERLAPPED* overlapped) {
  if (done) *done = 0;
  if (Platform::FaultFires("ReadFile")) return FALSE;
  const std::shared_ptr<OpenFile> file = FindFile(handle);
  DWORD error = CheckTransfer(file.get(), file && file->canRead, buffer, count, overlapped);
  if (error != ERROR_SUCCESS) return FailWith(error);
  const DWORD total = TransferAll(count, error, [&](DWORD offset, std::size_t size) {
    return read(file->descriptor.Get(), static_cast<char*>(buffer) + offset, size);
  });
  if (done) *done = total;
  // If some bytes were read, returns them with success; the next call reports the failure.
  return error == ERROR_SUCCESS || total > 0 ? TRUE : FailWith(error);
}

BOOL WriteFile(HANDLE handle, const void* buffer, DWORD count, DWORD* done, OVERLAPPED* overlapped) {
  if (done) *done = 0;
  if (Platform::FaultFires("WriteFile")) return FALSE;
  if (Platform::Faults::armed.load(std::memory_order_relaxed)) {
    count = std::min(count, Platform::Faults::ShortWrite().value_or(count));
  }
  const std::shared_ptr<OpenFile> file = FindFile(handle);
  DWORD error = CheckTransfer(file.get(), file && file->canWrite, buffer, count, overlapped);
  if (error != ERROR_SUCCESS) return FailWith(error);
  const DWORD total = TransferAll(count, error, [&](DWORD offset, std::size_t size) {
    return write(file->descriptor.Get(), static_cast<const char*>(buffer) + offset, size);
  });
  if (done) *done = total;
  return error == ERROR_SUCCESS ? TRUE : FailWith(error);
}

DWORD SetFilePointer(HANDLE handle, LONG distance, LONG* distanceHigh, DWORD method) {
  const auto fail = [](DWORD error) {
    FailWith(error);
    return INVALID_SET_FILE_POINTER;
  };
  if (Platform::FaultFires("SetFilePointer")) return INVALID_SET_FILE_POINTER;
  const std::shared_ptr<OpenFile> file = FindFile(handle);
  if (!file) return fail(ERROR_INVALID_HANDLE);

  off_t base = 0;
  if (method == FILE_CURRENT) {
    base = lseek(file->descriptor.Get(), 0, SEEK_CUR);
  } else if (method == FILE_END) {
    struct stat status;
    base = fstat(file->descriptor.Get(), &status) == 0 ? status.st_size : -1;
  } else if (method != FILE_BEGIN) {
    return fail(ERROR_INVALID_PARAMETER);
  }
  if (base < 0) return fail(Platform::ErrorOfErrno(errno));

  off_t offset = distance;
  if (distanceHigh) {
    offset = static_cast<off_t>(static_cast<std::uint64_t>(static_cast<std::uint32_t>(*distanceHigh)) << 32 |
                                static_cast<std::uint32_t>(distance));
  }
  if (offset > kLastPosition - base) return fail(ERROR_INVALID_PARAMETER);
  const off_t target = base + offset;
  if (target < 0) return fail(ERROR_NEGATIVE_SEEK);
  // Without `distanceHigh`, only positions that fit into the return value can be reported.
  if (!distanceHigh && target > std::numeric_limits<DWORD>::max()) return fail(ERROR_INVALID_PARAMETER);
  if (lseek(file->descriptor.Get(), target, SEEK_SET) < 0) return fail(Platform::ErrorOfErrno(errno));

  if (distanceHigh) *distanceHigh = static_cast<LONG>(target >> 32);
  SetLastError(ERROR_SUCCESS);  // distinguishes a low half of 0xFFFFFFFF from a failure
  return static_cast<DWORD>(target & 0xFFFFFFFF);
}

BOOL GetFileSizeEx(HANDLE handle, LARGE_INTEGER* size) {
  if (Platform::FaultFires("GetFileSizeEx")) return FALSE;
  const std::shared_ptr<OpenFile> file = FindFile(handle);
  if (!file) return FailWith(ERROR_INVALID_HANDLE);
  if (!size) return FailWith(ERROR_INVALID_PARAMETER);
  struct stat status;
  if (fstat(file->descriptor.Get(), &status) != 0) return FailWith(Platform::ErrorOfErrno(errno));
  size->QuadPart = status.st_size;
  return TRUE;
}

BOOL GetFileInformationByHandle(HANDLE handle, BY_HANDLE_FILE_INFORMATION* information) {
  if (Platform::FaultFires("GetFileInformationByHandle")) return FALSE;
  const std::shared_ptr<OpenFile> file = FindFile(handle);
  if (!file) return FailWith(ERROR_INVALID_HANDLE);
  if (!information) return FailWith(ERROR_INVALID_PARAMETER);
  struct stat status;
  if (fstat(file->descriptor.Get(), &status) != 0) return FailWith(Platform::ErrorOfErrno(errno));
  *information = {};
  // The device number has 64 bits, the serial number 32: combine both halves. The numbers of devices in use
  // usually differ in the low half.
  information->dwVolumeSerialNumber = static_cast<DWORD>(status.st_dev ^ (status.st_dev >> 32));
  information->nFileIndexHigh = static_cast<DWORD>(status.st_ino >> 32);
  information->nFileIndexLow = static_cast<DWORD>(status.st_ino);
  return TRUE;
}
