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

// Called once for each rename, in the order of the batch, with the path before the run.
using RenameReport = std::function<void(const WString& from, QueuedRename& rename, u32 result)>;

// A rename whose result is to be predicted.
struct RenameToPredict {
  const FileItem* item;
  WStringView newName;
};

// The results that RunPlanned would report for these renames, in their order.
struct PredictedRenames {
  std::vector<u32> results;
  // True if no rename conflicts with another or waits for one, so that their order does not matter.
  bool areIndependent = false;
};

// Predicts the results of RunPlanned. Uses the listings of folders instead of reading these folders, and
// removes those that it has used.
PredictedRenames PredictRenames(std::span<const RenameToPredict> renames, FolderListings& listings);

// Does the renames that the plan allows, or none if `isDryRun`, and then reports all. If a file cannot be
// moved, those that wait for its name are not renamed. If a step of a cycle fails, the other files of the
// cycle get their old names back; if the system refuses that too, a line of `output` names the file that
// still has a temporary name. After an interruption (interruption.h) nothing more is renamed (1223), except
// for the rest of a cycle that has begun.
void RunPlanned(std::deque<QueuedRename>& renames, FileItemTree& tree, bool isDryRun, Output& output,
                const RenameReport& report);

}  // namespace QxHost
