// The transforms of the quick rename commands: each computes the new name of one item. They have no side
// effects.
#pragma once

#include "frame/services/file_item_entry.h"

// Sets the entry's `newName` and returns true if it differs from the item's present name; otherwise clears it
// and returns false.
using NameTransform = bool (*)(FileItemEntry& entry);

// The transform of a one-step rename command (kCommandUpperCase to kCommandTidyName), or null for another
// number.
NameTransform FindNameTransform(Velmora::SDK::s32 commandNumber);

// Replaces every occurrence of `find` in the item's name, from left to right, case-sensitive; what was put in
// is not searched again, and an empty `find` replaces nothing. `part` says where in a file's name: 1 before
// the last dot, 2 from the last dot on, 3 everywhere, anything else nowhere. A folder's name is always
// searched whole (C-305).
bool ReplaceInName(FileItemEntry& entry, WStringView find, WStringView replace, int part);
