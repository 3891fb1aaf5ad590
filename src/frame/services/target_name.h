// Makes target names from a pattern with asterisks.
#pragma once

#include "frame/host/host_files.h"

// The name that `targetPattern` gives for `item`: "*.*" the same name, "*.bak" another extension, "new_*" a
// prefix, "*_x.*" a suffix. Of several asterisks only the first of each part is replaced; the others are
// removed (C-013). A pattern without an asterisk is the name itself; an empty one gives an empty name.
WString BuildTargetName(Velmora::SDK::IHostFileItem& item, WStringView targetPattern);
