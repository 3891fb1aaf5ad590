// MoveFileW. It never overwrites a target. The kernel makes that check as part of the rename, because another
// process could create the target between a check made here and the rename.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "platform/posix/files/fault_gate.h"
#include "platform/posix/files/file_copy.h"
#include "platform/posix/files/name_encoding.h"
#include "platform/posix/files/path_translation.h"
#include "platform/posix/files/share_table.h"
#include "platform/posix/last_error.h"
#include "platform/posix/text/upper_case.h"
#include "platform/posix/windows_functions.h"

namespace {

using Platform::NativePath;
using Platform::ShareTable;

struct Move {
  NativePath from;
  NativePath to;
  struct stat source;  // lstat of `from`: of a link itself, not its target
};

bool IsInside(const std::string& path, const std::string& folder) {
  return path.size() > folder.size() && path.starts_with(folder) && path[folder.size()] == '/';
}

std::u16string InUpperCase(std::string_view name) {
  std::u16string text = Platform::WideName(name);
  for (char16_t& unit : text) unit = Platform::UpperCase(unit);
  return text;
}

// Returns whether the existing target is the source itself, which a case-insensitive file system found under
// another spelling. A second hard link to the same file does not count.
bool IsOtherSpelling(const Move& move, const struct stat& target) {
  return target.st_dev == move.source.st_dev && target.st_ino == move.source.st_ino && target.st_nlink == 1 &&
         InUpperCase(move.from.path) == InUpperCase(move.to.path);
}

// Renames on file systems that do not support RENAME_NOREPLACE. A file gets a second hard link, which the
// kernel refuses if the target exists, and then loses the first. For folders and links this checks that the
// target does not exist and calls rename; between the two, another process may create a target, which rename
// then replaces if it is an empty folder (for a folder) or no folder (for a link).
int RenameUnlessThere(const Move& move) {
  const char* from = move.from.path.c_str();
  const char* to = move.to.path.c_str();
  if (S_ISREG(move.source.st_mode) && link(from, to) == 0) {
    if (unlink(from) == 0) return 0;
    const int error = errno;
    unlink(to);
    return error;
  }
  if (errno == EEXIST) return EEXIST;
  struct stat target;
  if (lstat(to, &target) == 0) return EEXIST;
  return rename(from, to) == 0 ? 0 : errno;
}

int Rename(const Move& move) {
  const char* from = move.from.path.c_str();
  const char* to = move.to.path.c_str();
  if (renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0) return 0;
  switch (errno) {
    case EEXIST: {
      struct stat target;
      if (lstat(to, &target) != 0 || !IsOtherSpelling(move, target)) return EEXIST;
      return rename(from, to) == 0 ? 0 : errno;
    }
    case EINVAL:
    case ENOSYS:
      errno = 0;
      return RenameUnlessThere(move);
    default:
      return errno;
  }
}

// Moves a file to another file system by copying it. Releases `lock` during the copy; a claim protects the
// source meanwhile.
DWORD MoveAcross(const Move& move, ShareTable::Lock& lock) {
  if (S_ISDIR(move.source.st_mode)) return ERROR_NOT_SAME_DEVICE;
  constexpr DWORD kReadAndDelete = FILE_SHARE_READ | FILE_SHARE_DELETE;
  const auto claim = ShareTable::Instance().TryClaim(lock, move.source, kReadAndDelete, FILE_SHARE_READ);
  lock.unlock();
  if (!claim) return ERROR_SHARING_VIOLATION;
  int error = Platform::CopyAcross(move.from.path, move.source, move.to.path);
  if (error != 0) return Platform::PathError(error, move.to.path);
  if (unlink(move.from.path.c_str()) == 0) return ERROR_SUCCESS;
  // The source could not be deleted: delete the copy, so that a failed move leaves everything as it was.
  error = errno;
  unlink(move.to.path.c_str());
  return Platform::PathError(error, move.from.path);
}

// Tries the move with one rename and no checks, which is enough for most moves. Returns false if that failed
// for any reason; the caller then goes on step by step to find the reason.
bool MovesAtOnce(const Move& move) {
  return !move.from.endsInSeparator && !move.to.endsInSeparator &&
         renameat2(AT_FDCWD, move.from.path.c_str(), AT_FDCWD, move.to.path.c_str(), RENAME_NOREPLACE) == 0;
}

// Returns 0 or an error.
DWORD DoMove(const WCHAR* fromPath, const WCHAR* toPath) {
  Move move{};
  DWORD error = Platform::TranslatePath(fromPath, move.from);
  if (error != ERROR_SUCCESS) return error;

  // An error of the source takes precedence over one of the target.
  const DWORD targetError = Platform::TranslatePath(toPath, move.to);
  if (targetError == ERROR_SUCCESS) {
    const ShareTable::SharedLock lock = ShareTable::Instance().AcquireShared();
    if (ShareTable::Instance().IsEmpty(lock) && MovesAtOnce(move)) return ERROR_SUCCESS;
  }
  ShareTable::Lock lock = ShareTable::Instance().Acquire();
  const char* from = move.from.path.c_str();
  if (lstat(from, &move.source) != 0) return Platform::PathError(errno, move.from.path);
  struct stat followed;
  const bool isFolder =
      S_ISDIR(move.source.st_mode) ||
      (S_ISLNK(move.source.st_mode) && stat(from, &followed) == 0 && S_ISDIR(followed.st_mode));
  if (move.from.endsInSeparator && !isFolder) return ERROR_INVALID_NAME;
  if (!ShareTable::Instance().Allows(lock, move.source, FILE_SHARE_DELETE, Platform::kShareAll)) {
    return ERROR_SHARING_VIOLATION;
  }

  if (targetError != ERROR_SUCCESS) return targetError;
  if (move.to.path == move.from.path) return ERROR_SUCCESS;
  if (move.to.endsInSeparator && !isFolder) {
    struct stat target;
    return lstat(move.to.path.c_str(), &target) == 0 ? ERROR_ALREADY_EXISTS : ERROR_DIRECTORY;
  }
  if (S_ISDIR(move.source.st_mode) && IsInside(move.to.path, move.from.path)) return ERROR_INVALID_PARAMETER;

  const int result = Rename(move);
  if (result == 0) return ERROR_SUCCESS;
  if (result == EXDEV) return MoveAcross(move, lock);
  // The source existed a moment ago, so the folder of the target is missing.
  return result == ENOENT ? ERROR_PATH_NOT_FOUND : Platform::ErrorOfErrno(result);
}

}  // namespace

BOOL MoveFileW(const WCHAR* from, const WCHAR* to) {
  if (Platform::FaultFires("MoveFileW", {.path = from})) return FALSE;
  const DWORD error = DoMove(from, to);
  return error == ERROR_SUCCESS ? TRUE : Platform::FailWith(error);
}
