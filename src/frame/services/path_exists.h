// Whether there is something under a path.
#pragma once

#include "platform/text.h"
#include "platform/windows_api.h"

// True for a file or folder whose attributes can be read (GetFileAttributesW); what cannot be reached is not
// there.
inline bool PathExists(const WString& path) {
  return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}
