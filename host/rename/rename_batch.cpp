#include "host/rename/rename_batch.h"

#include <utility>

#include "host/rename/independent_renames.h"
#include "host/rename/planned_renames.h"
#include "host/rename/renames_in_order.h"
#include "host/system/paths.h"

namespace QxHost {

using Velmora::SDK::IHostFileItem;
using Velmora::SDK::IHostRenameBatch;
using Velmora::SDK::IRenameResultCallback;
using Velmora::SDK::kRenameDone;
using Velmora::SDK::kRenameIgnored;

int FileOperation::FileExists(const WCHAR* path) {
  const std::optional<WString> fullPath = FullPathOf(WString(ViewOf(path)));
  return fullPath && GetFileAttributesW(SystemPath(*fullPath).c_str()) != INVALID_FILE_ATTRIBUTES ? 1 : 0;
}

IHostFileItem* FileOperation::GetFileItem(const WCHAR* path, u32) {
  const std::optional<WString> fullPath = FullPathOf(WString(ViewOf(path)));
  return fullPath ? items_.Find(*fullPath) : nullptr;
}

void FileOperation::RunBatch(IHostRenameBatch* batch, IRenameResultCallback* callback) {
  if (batch) Run(*static_cast<RenameBatch*>(batch), callback);
}

void FileOperation::RunPathBatch(IHostRenameBatch* batch, IRenameResultCallback* callback) {
  if (batch) Run(*static_cast<RenameBatch*>(batch), callback);
}

void FileOperation::Run(RenameBatch& batch, IRenameResultCallback* callback) {
  batch.wasRun = true;
  lastResults_.clear();
  const RenameReport report = [&](const WString& from, QueuedRename& rename, u32 result) {
    rename.result = result;
    lastResults_.push_back(result);
    Report(from, rename);
    if (callback) callback->OnRenameResult(rename.UserData(), result);
  };
  if (std::exchange(isNextIndependent_, false)) {
    RunIndependent(batch.renames, items_, dryRun_, report);
  } else if (inOrder_) {
    RunInOrder(batch.renames, items_, dryRun_, report);
  } else {
    RunPlanned(batch.renames, items_, dryRun_, output_, report);
  }
}

void FileOperation::Report(const WString& from, const QueuedRename& rename) {
  const bool stays = from.ends_with(W('\\') + rename.newName);
  const WString newName = stays ? rename.newName : NameOfRename(rename);
  reporter_.Rename({from, newName, rename.result, dryRun_});
  if (rename.result == kRenameDone || rename.result == kRenameIgnored) return;
  if (rename.result == ERROR_CANCELLED) {
    hasFailed_ = true;
    ++untried_;  // one message reports all of them
    return;
  }
  std::string line = "cannot rename " + ToUtf8(from) +
                     (newName.empty() ? " to an empty name" : " to " + ToUtf8(newName)) + ": " +
                     RenameErrorText(from, rename.result);
  if (defersUnreachable_ && IsUnreachable(rename.result)) {
    unreachable_.push_back(std::move(line));
  } else {
    ReportFailure(line);
  }
}

void FileOperation::ReportFailure(const std::string& line) {
  hasFailed_ = true;
  output_.Problem(line);
}

void FileOperation::ReportUnreachable() {
  for (const std::string& line : std::exchange(unreachable_, {})) ReportFailure(line);
  defersUnreachable_ = false;
}

}  // namespace QxHost
