// Copying a file to another file system.
#pragma once

#include <sys/stat.h>

#include <string>

namespace Platform {

// Copies the file or link `from`, whose lstat result is `status`, to `to`, which must not exist: contents,
// permissions, times and extended attributes of a file, the target of a link. A file has been flushed to disk
// when the call succeeds. Returns 0 or an errno value; leaves nothing at `to` after a failure. Anything else
// than a file or a link fails with EXDEV.
int CopyAcross(const std::string& from, const struct stat& status, const std::string& to);

}  // namespace Platform
