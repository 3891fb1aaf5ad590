// Renames whose files exchange their names: a to b, b to c, c to a. Of such a run no name says later how far
// it came.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "multirename/saved/multi_rename_undo.h"

namespace QxHost {

// The path of a name in a folder, whose own path may end in a backslash.
WString PathInFolder(const WString& folder, WStringView name);

// The indexes of all entries that are in a circle, circle by circle, each from the entry at which the walk
// along the names comes back. A file that gets its own name in another letter case is a circle of one, where
// letter case does not tell files apart.
std::vector<std::size_t> FindRenameCircles(std::span<const Velmora::SDK::MultiRenameUndoEntry> entries);

// The same by a walk over all entries, which is slow: the rule that the one above follows.
std::vector<std::size_t> FindRenameCirclesByWalk(std::span<const Velmora::SDK::MultiRenameUndoEntry> entries);

}  // namespace QxHost
