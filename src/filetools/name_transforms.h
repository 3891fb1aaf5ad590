// The transforms of the quick rename commands: each computes the new name of one item. They have no side
// effects.
#pragma once

#include "frame/services/file_item_entry.h"

// Sets the entry's `newName` and returns true if it differs from the item's present name; otherwise clears it
// and returns false.
using NameTransform = bool (*)(FileItemEntry& entry);

// Returns the transform of a one-step rename command (kCommandUpperCase to kCommandTidyName), or null for any
// other number.
NameTransform FindNameTransform(Velmora::SDK::s32 commandNumber);

// Replaces every occurrence of `find` in the item's name, from left to right and case-sensitively. Does not
// search inserted text again; an empty `find` replaces nothing. `part` is the part of a file's name to
// search: 1 before the last dot, 2 from the last dot on, 3 the whole name, any other value nothing. In a
// folder's name always searches the whole name (C-305).
bool ReplaceInName(FileItemEntry& entry, WStringView find, WStringView replace, int part);
