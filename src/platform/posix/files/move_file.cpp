// MoveFileW. Nothing is ever overwritten: the kernel is asked to refuse a target that is there, not we in
// advance, since another process may make it in between.

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
  struct stat source;  // of the file, folder or link itself
};

bool IsInside(const std::string& path, const std::string& folder) {
  return path.size() > folder.size() && path.starts_with(folder) && path[folder.size()] == '/';
}

std::u16string InUpperCase(std::string_view name) {
  std::u16string text = Platform::WideName(name);
  for (char16_t& unit : text) unit = Platform::UpperCase(unit);
  return text;
}

// True if the target that is there is the source itself, which a file system that is blind to case found by
// another spelling. A second hard link is a file of its own.
bool IsOtherSpelling(const Move& move, const struct stat& target) {
  return target.st_dev == move.source.st_dev && target.st_ino == move.source.st_ino && target.st_nlink == 1 &&
         InUpperCase(move.from.path) == InUpperCase(move.to.path);
}

// For file systems that cannot rename without overwriting. A second link to a file is refused by the kernel
// where the target is there. A folder and a link go by rename, which replaces no folder that holds something
// and no file by a folder; what is left is the moment between the look and the rename.
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

// The target is on another file system. `lock` is given up while bytes are copied; a claim stands in for it.
DWORD MoveAcross(const Move& move, ShareTable::Lock& lock) {
  if (S_ISDIR(move.source.st_mode)) return ERROR_NOT_SAME_DEVICE;
  constexpr DWORD kReadAndDelete = FILE_SHARE_READ | FILE_SHARE_DELETE;
  const auto claim = ShareTable::Instance().TryClaim(lock, move.source, kReadAndDelete, FILE_SHARE_READ);
  lock.unlock();
  if (!claim) return ERROR_SHARING_VIOLATION;
  int error = Platform::CopyAcross(move.from.path, move.source, move.to.path);
  if (error != 0) return Platform::PathError(error, move.to.path);
  if (unlink(move.from.path.c_str()) == 0) return ERROR_SUCCESS;
  // The source stays, so the copy must not: a move that fails has moved nothing.
  error = errno;
  unlink(move.to.path.c_str());
  return Platform::PathError(error, move.from.path);
}

// Most moves need no look at anything: the kernel refuses whatever is in the way. False if this one was not
// done, for whatever reason; then it is done step by step.
bool MovesAtOnce(const Move& move) {
  return !move.from.endsInSeparator && !move.to.endsInSeparator &&
         renameat2(AT_FDCWD, move.from.path.c_str(), AT_FDCWD, move.to.path.c_str(), RENAME_NOREPLACE) == 0;
}

// 0 or an error.
DWORD DoMove(const WCHAR* fromPath, const WCHAR* toPath) {
  Move move{};
  DWORD error = Platform::TranslatePath(fromPath, move.from);
  if (error != ERROR_SUCCESS) return error;

  ShareTable::Lock lock = ShareTable::Instance().Acquire();
  // Of a wrong target the source still has the first word.
  const DWORD targetError = Platform::TranslatePath(toPath, move.to);
  if (targetError == ERROR_SUCCESS && ShareTable::Instance().IsEmpty(lock) && MovesAtOnce(move)) {
    return ERROR_SUCCESS;
  }
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
  // The source was there a moment ago, so what is missing is the folder of the target.
  return result == ENOENT ? ERROR_PATH_NOT_FOUND : Platform::ErrorOfErrno(result);
}

}  // namespace

BOOL MoveFileW(const WCHAR* from, const WCHAR* to) {
  if (Platform::FaultFires("MoveFileW", {.path = from})) return FALSE;
  const DWORD error = DoMove(from, to);
  return error == ERROR_SUCCESS ? TRUE : Platform::FailWith(error);
}
