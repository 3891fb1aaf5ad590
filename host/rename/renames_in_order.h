// Runs a batch of renames one by one, in order: each is tried once, with the files as those before it have
// left them.
#pragma once

#include "host/rename/planned_renames.h"

namespace QxHost {

// Reports each rename as soon as it was tried. In a dry run the paths contain the folders as they are on the
// disk.
void RunInOrder(std::deque<QueuedRename>& renames, FileItemTree& tree, bool isDryRun,
                const RenameReport& report);

}  // namespace QxHost
