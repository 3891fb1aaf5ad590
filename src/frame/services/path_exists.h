// Checks whether a path exists.
#pragma once

#include "platform/text.h"
#include "platform/windows_api.h"

// Returns whether the attributes of a file or folder at `path` can be read (GetFileAttributesW). Returns
// false for every failure, not only for a missing file.
inline bool PathExists(const WString& path) {
  return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}
