// Service 3000: looks files up and renames them.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "host/output/reporter.h"
#include "host/rename/queued_rename.h"

namespace QxHost {

class FileOperation final : public Velmora::SDK::IHostFileOperation {
 public:
  // With `dryRun`, reports the results that renames would have and does not rename. With `inOrder`, tries
  // each rename once, in order, instead of planning them.
  FileOperation(FileItemTree& items, Reporter& reporter, Output& output, bool dryRun, bool inOrder = false)
      : items_(items), reporter_(reporter), output_(output), dryRun_(dryRun), inOrder_(inOrder) {}

  bool IsInOrder() const { return inOrder_; }
  bool IsDry() const { return dryRun_; }

  int FileExists(const WCHAR* path) override;
  Velmora::SDK::IHostFileItem* GetFileItem(const WCHAR* path, u32 one) override;
  // The list belongs to its owner, which releases it.
  void ReleaseFileList(Velmora::SDK::IHostFileList*) override {}
  Velmora::SDK::IHostRenameBatch* CreateRenameBatch() override { return RenameBatch::Lend(); }
  void ReleaseRenameBatch(Velmora::SDK::IHostRenameBatch* batch) override {
    if (batch) batch->Release();
  }
  // Plans the batch as a whole (rename_plan.h), unless renames are to run in order. Results and callbacks are
  // in the order of the batch. Removes dots and blanks from the end of an item's new name, as the system
  // does; uses the name of a rename by path unchanged. Reports a rename that fails and continues with the
  // others. Refuses a name that is not possible (123), ignores a rename to the present name (10), and never
  // replaces an existing file.
  void RunBatch(Velmora::SDK::IHostRenameBatch* batch,
                Velmora::SDK::IRenameResultCallback* callback) override;
  void RunPathBatch(Velmora::SDK::IHostRenameBatch* batch,
                    Velmora::SDK::IRenameResultCallback* callback) override;

  // Returns whether a rename has failed, or would have failed in a dry run. A rename to the present name is
  // not a failure.
  bool HasFailed() const { return hasFailed_; }

  // Returns the results of the last batch, in its order.
  const std::vector<u32>& LastResults() const { return lastResults_; }

  // After DeferUnreachable, failures because a path does not exist or is too long (3, 206) are not reported
  // until ReportUnreachable: these renames can be tried again after folders above them have been renamed.
  // DiscardUnreachable discards the failures so far, for another try.
  void DeferUnreachable() { defersUnreachable_ = true; }
  void DiscardUnreachable() { unreachable_.clear(); }
  void ReportUnreachable();
  static bool IsUnreachable(u32 result) {
    return result == ERROR_PATH_NOT_FOUND || result == ERROR_FILENAME_EXCED_RANGE;
  }

  // Declares that the next batch consists of items only, with exactly the renames that PredictRenames has
  // found to be independent.
  void ExpectIndependent() { isNextIndependent_ = true; }

  // Returns the number of renames that were skipped (1223) after an interruption.
  std::size_t Untried() const { return untried_; }

 private:
  void Run(RenameBatch& batch, Velmora::SDK::IRenameResultCallback* callback);
  void Report(const WString& from, const QueuedRename& rename);
  void ReportFailure(const std::string& line);

  FileItemTree& items_;
  Reporter& reporter_;
  Output& output_;
  const bool dryRun_;
  const bool inOrder_;
  bool hasFailed_ = false;
  bool isNextIndependent_ = false;
  bool defersUnreachable_ = false;
  std::vector<std::string> unreachable_;  // messages
  std::vector<u32> lastResults_;
  std::size_t untried_ = 0;
};

}  // namespace QxHost
