// Runs renames of which none conflicts with another or waits for one.
#pragma once

#include <deque>

#include "host/rename/planned_renames.h"

namespace QxHost {

// Does the renames, or none if `isDryRun`, without examining the disk. They are renames of items that
// PredictRenames has found to be independent. Two threads rename files of different folders at the same
// time; the reports come from the calling thread, in the order of the batch. After an interruption
// (interruption.h) nothing more is renamed (1223).
void RunIndependent(std::deque<QueuedRename>& renames, FileItemTree& tree, bool isDryRun,
                    const RenameReport& report);

}  // namespace QxHost
