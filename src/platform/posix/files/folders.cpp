// CreateDirectoryW, RemoveDirectoryW and DeleteFileW.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/posix/files/attributes.h"
#include "platform/posix/files/fault_gate.h"
#include "platform/posix/files/path_translation.h"
#include "platform/posix/files/share_table.h"
#include "platform/posix/last_error.h"
#include "platform/posix/windows_functions.h"

namespace {

using Platform::FailWith;
using Platform::NativePath;
using Platform::PathError;
using Platform::ShareTable;

bool LinksToFolder(const std::string& path) { return Platform::LinksToFolder(AT_FDCWD, path.c_str()); }

// Checks whether DeleteFileW may delete the entry at `path`. Returns 0 or an error.
DWORD CheckDeletable(const NativePath& path, const struct stat& status) {
  if (S_ISDIR(status.st_mode)) return ERROR_ACCESS_DENIED;
  // Windows treats a link to a folder as a folder: RemoveDirectoryW removes it.
  if (S_ISLNK(status.st_mode) && LinksToFolder(path.path)) return ERROR_ACCESS_DENIED;
  if (path.endsInSeparator) return ERROR_INVALID_NAME;
  return Platform::IsReadOnly(status) ? ERROR_ACCESS_DENIED : ERROR_SUCCESS;
}

}  // namespace

BOOL CreateDirectoryW(const WCHAR* path, SECURITY_ATTRIBUTES*) {
  if (Platform::FaultFires("CreateDirectoryW", {.path = path})) return FALSE;
  NativePath native;
  const DWORD error = Platform::TranslatePath(path, native);
  if (error != ERROR_SUCCESS) return FailWith(error);
  if (mkdir(native.path.c_str(), 0777) == 0) return TRUE;
  return FailWith(errno == ENOENT ? ERROR_PATH_NOT_FOUND : Platform::ErrorOfErrno(errno));
}

BOOL RemoveDirectoryW(const WCHAR* path) {
  if (Platform::FaultFires("RemoveDirectoryW")) return FALSE;
  NativePath native;
  const DWORD error = Platform::TranslatePath(path, native);
  if (error != ERROR_SUCCESS) return FailWith(error);
  if (native.path == "/") return FailWith(ERROR_DIR_NOT_EMPTY);
  struct stat status;
  if (lstat(native.path.c_str(), &status) != 0) return FailWith(PathError(errno, native.path));
  if (S_ISLNK(status.st_mode) && LinksToFolder(native.path)) {
    return unlink(native.path.c_str()) == 0 ? TRUE : FailWith(PathError(errno, native.path));
  }
  if (!S_ISDIR(status.st_mode)) return FailWith(ERROR_DIRECTORY);
  if (rmdir(native.path.c_str()) == 0) return TRUE;
  return FailWith(errno == EEXIST ? ERROR_DIR_NOT_EMPTY : PathError(errno, native.path));
}

BOOL DeleteFileW(const WCHAR* path) {
  if (Platform::FaultFires("DeleteFileW")) return FALSE;
  NativePath native;
  DWORD error = Platform::TranslatePath(path, native);
  if (error != ERROR_SUCCESS) return FailWith(error);

  ShareTable& shares = ShareTable::Instance();
  const ShareTable::Lock lock = shares.Acquire();
  struct stat status;
  if (lstat(native.path.c_str(), &status) != 0) return FailWith(PathError(errno, native.path));
  error = CheckDeletable(native, status);
  if (error != ERROR_SUCCESS) return FailWith(error);
  if (!shares.Allows(lock, status, FILE_SHARE_DELETE, Platform::kShareAll)) {
    return FailWith(ERROR_SHARING_VIOLATION);
  }
  return unlink(native.path.c_str()) == 0 ? TRUE : FailWith(PathError(errno, native.path));
}
