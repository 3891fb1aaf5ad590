// Windows' file attributes for what stands on disk.
#pragma once

#include <sys/stat.h>

#include <string_view>

#include "platform/posix/windows_types.h"

namespace Platform {

// A file without write permission for its owner. The superuser, whom the system would let write, is held to
// it as well. Folders and links are never read-only.
inline bool IsReadOnly(const struct stat& status) {
  return S_ISREG(status.st_mode) && (status.st_mode & S_IWUSR) == 0;
}

// The permissions of a file that becomes read-only.
inline mode_t ReadOnlyMode(const struct stat& status) {
  return status.st_mode & static_cast<mode_t>(07777 & ~(S_IWUSR | S_IWGRP | S_IWOTH));
}

// What is told of a link at `path`, which is relative to the open folder `folder` (AT_FDCWD for none):
// whether it is a folder to Windows. That is one that leads to a folder, and every junction.
bool LinksToFolder(int folder, const char* path);

// Whether the link at `path` is a junction: a link to a full path with a slash at its
// end, which so leads to folders alone.
bool IsJunction(int folder, const char* path);

// The attributes of what lstat found at `name` (its last part alone counts: a leading dot hides it). Links to
// folders are told from others by `linksToFolder`.
DWORD AttributesOf(mode_t mode, std::string_view name, bool linksToFolder);

}  // namespace Platform
