// Runs a batch of renames by its plan (rename_plan.h).
#pragma once

#include <deque>
#include <functional>
#include <span>
#include <vector>

#include "host/output/output.h"
#include "host/rename/queued_rename.h"
#include "host/system/folder_names.h"

namespace QxHost {

// Called once for each rename, in the order of the batch, with the path as it was before the run.
using RenameReport = std::function<void(const WString& from, QueuedRename& rename, u32 result)>;

// A rename that nobody has asked for yet.
struct ImaginedRename {
  const FileItem* item;
  WStringView newName;
};

// What RunPlanned would report of each of these renames, in their order.
struct ForetoldRenames {
  std::vector<u32> results;
  // None is in the way of another or waits for one: in whichever order they are done, it comes to the same.
  bool areIndependent = false;
};

// Folders are not read that stand in `listings`; those that are looked up are taken out of it.
ForetoldRenames ForetellPlanned(std::span<const ImaginedRename> renames, FolderListings& listings);

// Does what the plan lets pass, or nothing if `isDryRun`, and then reports all. A file that cannot be moved
// leaves those that wait for its name as they are. If a step of a cycle fails, its other files take their old
// names back; where the system refuses that too, a line of `output` names the file that keeps a temporary
// name. After an interruption (interruption.h) nothing more is renamed (1223), but for the rest of a cycle
// that has begun.
void RunPlanned(std::deque<QueuedRename>& renames, FileItemTree& tree, bool isDryRun, Output& output,
                const RenameReport& report);

// The same without a look at the disk, for renames of items that ForetellPlanned has found to be independent.
// Each is reported when it is done.
void RunIndependent(std::deque<QueuedRename>& renames, FileItemTree& tree, bool isDryRun,
                    const RenameReport& report);

}  // namespace QxHost
