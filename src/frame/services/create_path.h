// Making a folder, with its parents if asked.
#pragma once

#include "platform/text.h"

// True if `path` is a folder at the end: it was there or was made (GetFileAttributesW, CreateDirectoryW).
// With parents every missing folder above it is made first, but for what cannot be made: a drive, a server
// and its share. False at the first folder that cannot be made; those made so far stay.
bool CreatePath(const WString& path, bool withParents);
