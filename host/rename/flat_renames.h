// The renames of a batch that are decided at first sight, which most are: each of files in a folder that was
// read once, to a name that nothing else has or is to have there.
#pragma once

#include <vector>

#include "host/rename/rename_plan.h"

namespace QxHost {

// By row: true for a rename that can be done at any time, and is in no other's way. All rows of a folder in
// which names may meet are left out, and all of a batch that has more than files: what is renamed may then be
// above other files of the batch.
std::vector<bool> DecideFlatRenames(const WantedRenames& wanted, FileView& files);

}  // namespace QxHost
