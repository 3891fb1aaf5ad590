// Windows paths to paths of the file system below.
#pragma once

#include <string>
#include <string_view>

#include "platform/posix/windows_types.h"

namespace Platform {

struct NativePath {
  std::string path;              // absolute, "." and ".." worked in, no separator at the end but for "/"
  bool endsInSeparator = false;  // as the Windows path did: it can mean a folder only

  // The last name; empty for "/".
  std::string_view Name() const { return std::string_view(path).substr(path.find_last_of('/') + 1); }
};

// Fills `native` and answers 0, or an error: ERROR_PATH_NOT_FOUND for a path that is null, empty or of
// another drive, ERROR_BAD_NETPATH for one of a server, ERROR_INVALID_NAME for a name that Windows forbids.
// A name that holds a bar is forbidden as well unless there is such a file.
DWORD TranslatePath(const WCHAR* path, NativePath& native);

// What Windows answers where `path` was not found: ERROR_FILE_NOT_FOUND if its folder is there, otherwise
// ERROR_PATH_NOT_FOUND.
DWORD MissingError(const std::string& path);

// The same for any errno of a call that was given `path`.
DWORD PathError(int error, const std::string& path);

}  // namespace Platform
