// Translates Windows paths to paths of the native file system.
#pragma once

#include <string>
#include <string_view>

#include "platform/posix/windows_types.h"

namespace Platform {

// A path of the native file system.
struct NativePath {
  std::string path;              // absolute, "." and ".." resolved, no separator at the end except in "/"
  bool endsInSeparator = false;  // the Windows path did, so it can only name a folder

  // Returns the last name; empty for "/".
  std::string_view Name() const { return std::string_view(path).substr(path.find_last_of('/') + 1); }
};

// Translates `path` and stores the result in `native`. Returns 0 or an error: ERROR_PATH_NOT_FOUND for a path
// that is null, empty or on a drive other than Z:, ERROR_BAD_NETPATH for one on a server, ERROR_INVALID_NAME
// for a name that Windows forbids. A name with a vertical bar is accepted only if such a file exists.
DWORD TranslatePath(const WCHAR* path, NativePath& native);

// Returns the error that Windows reports if `path` does not exist: ERROR_FILE_NOT_FOUND if its folder exists,
// otherwise ERROR_PATH_NOT_FOUND.
DWORD MissingError(const std::string& path);

// Returns the Windows error for `error`, the errno value of a call with `path`. For ENOENT it is that of
// MissingError.
DWORD PathError(int error, const std::string& path);

}  // namespace Platform
