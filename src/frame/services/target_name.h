// Makes target names from a pattern with asterisks.
#pragma once

#include "frame/host/host_files.h"

// Returns the name that `targetPattern` makes from the name of `item`: "*.*" keeps the name, "*.bak" changes
// the extension, "new_*" adds a prefix, "*_x.*" a suffix. Only the first asterisk of each part is replaced;
// further ones are removed (C-013). Returns a pattern without an asterisk unchanged, also an empty one.
WString BuildTargetName(Velmora::SDK::IHostFileItem& item, WStringView targetPattern);
