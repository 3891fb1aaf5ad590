// Finds the renames of a run for which the names alone do not show later whether they were done.
//
// For most renames they do: a file whose new name nothing else had before the run has that name after its
// rename, and only then. In a chain (a to b, b to c) and in a cycle (a to b, b to a) a name shows nothing, as
// another file of the run had it or will have it. The same holds for names in a folder that is renamed as
// well.
#pragma once

#include <span>
#include <vector>

#include "multirename/saved/multi_rename_undo.h"

namespace QxHost {

// Returns, for each entry, true if one of its names is also a name of another entry. If one of the entries is
// a folder that contains another entry, directly or not, returns true for all. Names that differ only in
// letter case count as equal. A few more entries may be marked. Returns an empty vector if no names collide,
// as in most runs.
std::vector<bool> FindCollidingNames(std::span<const Velmora::SDK::MultiRenameUndoEntry> entries);

}  // namespace QxHost
