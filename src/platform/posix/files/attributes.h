// Maps the status of files, folders and links to Windows file attributes.
#pragma once

#include <sys/stat.h>

#include <string_view>

#include "platform/posix/windows_types.h"

namespace Platform {

// Returns whether a file is read-only: its owner has no write permission. The superuser, whom the system
// would let write, is bound by it as well. Folders and links are never read-only.
inline bool IsReadOnly(const struct stat& status) {
  return S_ISREG(status.st_mode) && (status.st_mode & S_IWUSR) == 0;
}

// Returns the permissions that make a file read-only.
inline mode_t ReadOnlyMode(const struct stat& status) {
  return status.st_mode & static_cast<mode_t>(07777 & ~(S_IWUSR | S_IWGRP | S_IWOTH));
}

// Returns whether Windows would report the link at `path` as a folder: a link to a folder, and every
// junction, even one whose target is missing. `path` is relative to the open folder `folder`, or to the
// current folder for AT_FDCWD.
bool LinksToFolder(int folder, const char* path);

// Returns whether the link at `path` is a junction: a link to an absolute path that ends in a slash, so that
// it can only lead to a folder. `path` is relative as above.
bool IsJunction(int folder, const char* path);

// Returns the Windows attributes of an entry with the mode `mode`, as lstat reports it. A dot at the start of
// the last part of `name` makes the entry hidden. `linksToFolder` is the result of LinksToFolder for a link.
DWORD AttributesOf(mode_t mode, std::string_view name, bool linksToFolder);

}  // namespace Platform
