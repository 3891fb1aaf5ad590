// Renames of a run whose names do not say, later, which of them were done.
//
// Most do: a file whose new name nothing else had before the run has it after its rename, and only then. In a
// chain (a to b, b to c) and in a circle (a to b, b to a) a name says nothing, as another file of the run had
// it or is to have it. Nor do names in a folder that is renamed as well.
#pragma once

#include <span>
#include <vector>

#include "multirename/saved/multi_rename_undo.h"

namespace QxHost {

// By entry: true if its names meet those of another one, or for all of them if one is a folder that another
// one, or a folder above it, is in. Names that differ in letter case alone count as one; a few entries more
// may be marked. Empty if there are none, as in most runs.
std::vector<bool> FindMeetingNames(std::span<const Velmora::SDK::MultiRenameUndoEntry> entries);

}  // namespace QxHost
