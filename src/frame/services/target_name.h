// Target names from a pattern with asterisks.
#pragma once

#include "frame/host/host_files.h"

// The name that `targetPattern` gives for `item`: "*.*" the same name, "*.bak" another extension, "new_*" a
// prefix, "*_x.*" a suffix. A pattern without an asterisk is the name as it stands; an empty one gives an
// empty name.
WString BuildTargetName(Velmora::SDK::IHostFileItem& item, WStringView targetPattern);
