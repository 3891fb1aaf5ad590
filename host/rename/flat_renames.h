// Decides the renames of a batch that need no further planning, which are most: those of files in a folder
// that is read once, to names that nothing else there has or will have.
#pragma once

#include <vector>

#include "host/rename/rename_plan.h"

namespace QxHost {

// Returns, for each row, true if the rename can be done at any time and conflicts with no other. Decides no
// row of a folder in which names may conflict, and no row at all if a row is not a file, as a renamed folder
// may contain other files of the batch.
std::vector<bool> DecideFlatRenames(const WantedRenames& wanted, FileView& files);

}  // namespace QxHost
