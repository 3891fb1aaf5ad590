// Carrying a file over to another file system.
#pragma once

#include <sys/stat.h>

#include <string>

namespace Platform {

// Copies the file or link `from`, of which lstat said `status`, to `to`, which must not be there: bytes,
// permissions, times and extended attributes. What is copied is on the disk when the call succeeds. Answers 0
// or an errno; nothing stays at `to` after a failure.
int CopyAcross(const std::string& from, const struct stat& status, const std::string& to);

}  // namespace Platform
