// Creates a folder, optionally with its parents.
#pragma once

#include "platform/text.h"

// Creates the folder `path` if it does not exist (GetFileAttributesW, CreateDirectoryW); with `withParents`
// also its missing parents, except a drive, a server and its share. Returns true if `path` is a folder
// afterwards. Stops and returns false at the first folder that cannot be created; folders created before
// remain.
bool CreatePath(const WString& path, bool withParents);
