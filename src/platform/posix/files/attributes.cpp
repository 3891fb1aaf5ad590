#include "platform/posix/files/attributes.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <climits>

#include "platform/posix/files/fault_gate.h"
#include "platform/posix/files/path_translation.h"
#include "platform/posix/last_error.h"
#include "platform/posix/windows_functions.h"

namespace Platform {

bool IsJunction(int folder, const char* path) {
  char text[PATH_MAX];
  const ssize_t size = readlinkat(folder, path, text, sizeof text);
  // A link target cannot exceed PATH_MAX, so the text is complete.
  return size > 0 && text[0] == '/' && text[size - 1] == '/';
}

bool LinksToFolder(int folder, const char* path) {
  struct stat target;
  if (fstatat(folder, path, &target, 0) == 0) return S_ISDIR(target.st_mode);
  return IsJunction(folder, path);
}

DWORD AttributesOf(mode_t mode, std::string_view name, bool linksToFolder) {
  DWORD attributes = FILE_ATTRIBUTE_ARCHIVE;
  if (S_ISDIR(mode)) {
    attributes = FILE_ATTRIBUTE_DIRECTORY;
  } else if (S_ISLNK(mode)) {
    attributes = FILE_ATTRIBUTE_REPARSE_POINT;
    if (linksToFolder) attributes |= FILE_ATTRIBUTE_DIRECTORY;
  } else if (S_ISREG(mode) && (mode & S_IWUSR) == 0) {
    attributes |= FILE_ATTRIBUTE_READONLY;
  }
  if (name.size() > 1 && name[0] == '.' && name != "..") attributes |= FILE_ATTRIBUTE_HIDDEN;
  return attributes;
}

namespace {

// Stores the translated path and the status of the file or link itself. Returns 0 or an error.
DWORD Look(const WCHAR* path, NativePath& native, struct stat& status, bool& linksToFolder) {
  const DWORD error = TranslatePath(path, native);
  if (error != ERROR_SUCCESS) return error;
  if (lstat(native.path.c_str(), &status) != 0) return PathError(errno, native.path);
  linksToFolder = S_ISLNK(status.st_mode) && LinksToFolder(AT_FDCWD, native.path.c_str());
  const bool isFolder = S_ISDIR(status.st_mode) || linksToFolder;
  return native.endsInSeparator && !isFolder ? ERROR_PATH_NOT_FOUND : ERROR_SUCCESS;
}

}  // namespace

}  // namespace Platform

DWORD GetFileAttributesW(const WCHAR* path) {
  if (Platform::FaultFires("GetFileAttributesW", {.path = path})) return INVALID_FILE_ATTRIBUTES;
  Platform::NativePath native;
  struct stat status;
  bool linksToFolder = false;
  const DWORD error = Platform::Look(path, native, status, linksToFolder);
  if (error != ERROR_SUCCESS) {
    SetLastError(error);
    return INVALID_FILE_ATTRIBUTES;
  }
  return Platform::AttributesOf(status.st_mode, native.Name(), linksToFolder);
}

BOOL SetFileAttributesW(const WCHAR* path, DWORD attributes) {
  if (Platform::FaultFires("SetFileAttributesW")) return FALSE;
  Platform::NativePath native;
  struct stat status;
  bool linksToFolder = false;
  const DWORD error = Platform::Look(path, native, status, linksToFolder);
  if (error != ERROR_SUCCESS) return Platform::FailWith(error);
  // Only the read-only attribute can be stored here; the others are ignored, as on any file system that does
  // not support them.
  if (!S_ISREG(status.st_mode)) return TRUE;
  const mode_t current = status.st_mode & static_cast<mode_t>(07777);
  const bool makeReadOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
  mode_t wanted = current;
  if (makeReadOnly) {
    wanted = Platform::ReadOnlyMode(status);
  } else if (Platform::IsReadOnly(status)) {
    wanted |= S_IWUSR;
  }
  if (wanted != current && chmod(native.path.c_str(), wanted) != 0) {
    return Platform::FailWith(Platform::PathError(errno, native.path));
  }
  return TRUE;
}
