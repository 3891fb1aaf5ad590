// Service 3000: looking files up, and renames that are real.
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
  // With `dryRun` renames are reported as they would go, and not done. With `inOrder` each is tried once, in
  // order, as it comes, instead of being planned.
  FileOperation(FileItemTree& items, Reporter& reporter, Output& output, bool dryRun, bool inOrder = false)
      : items_(items), reporter_(reporter), output_(output), dryRun_(dryRun), inOrder_(inOrder) {}

  bool IsInOrder() const { return inOrder_; }
  bool IsDry() const { return dryRun_; }

  int FileExists(const WCHAR* path) override;
  Velmora::SDK::IHostFileItem* GetFileItem(const WCHAR* path, u32 one) override;
  // The list stays its owner's, who releases it.
  void ReleaseFileList(Velmora::SDK::IHostFileList*) override {}
  Velmora::SDK::IHostRenameBatch* CreateRenameBatch() override { return RenameBatch::Lend(); }
  void ReleaseRenameBatch(Velmora::SDK::IHostRenameBatch* batch) override {
    if (batch) batch->Release();
  }
  // The batch is planned as a whole (rename_plan.h) unless they are to run in order; results and callbacks
  // come in its order. Dots and blanks at the end of an item's new name are left out, as the system does;
  // a path gets its name as it was given. A rename that fails is reported and does not stop the others. A
  // name that cannot be one is refused (123), a name that stays is ignored (10), and a file that exists is
  // never replaced.
  void RunBatch(Velmora::SDK::IHostRenameBatch* batch,
                Velmora::SDK::IRenameResultCallback* callback) override;
  void RunPathBatch(Velmora::SDK::IHostRenameBatch* batch,
                    Velmora::SDK::IRenameResultCallback* callback) override;

  // Whether a rename has failed, or would have in a dry run. A name that stays is no failure.
  bool HasFailed() const { return hasFailed_; }

  // The results of the last batch, in its order.
  const std::vector<u32>& LastResults() const { return lastResults_; }

  // From now on renames of files that no path leads to, for its length too (3, 206), are not reported as
  // failed before ReportOutOfReach: when the folders above have other names they can be tried again.
  // ForgetOutOfReach is for that.
  void HoldOutOfReach() { holdsOutOfReach_ = true; }
  void ForgetOutOfReach() { outOfReach_.clear(); }
  void ReportOutOfReach();
  static bool IsOutOfReach(u32 result) {
    return result == ERROR_PATH_NOT_FOUND || result == ERROR_FILENAME_EXCED_RANGE;
  }

  // The next batch is of items alone, and the very renames that ForetellPlanned has found to be independent.
  void ExpectIndependent() { isNextIndependent_ = true; }

  // The renames that were left out (1223) after an interruption.
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
  bool holdsOutOfReach_ = false;
  std::vector<std::string> outOfReach_;  // lines
  std::vector<u32> lastResults_;
  std::size_t untried_ = 0;
};

}  // namespace QxHost
