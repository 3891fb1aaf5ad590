// Service 3000: looking files up, and renames that are real.
#pragma once

#include <deque>
#include <functional>
#include <unordered_map>
#include <unordered_set>

#include "frame/services/host_files.h"
#include "host/file_item.h"
#include "host/owned_by_module.h"
#include "host/reporter.h"

namespace QxHost {

// One rename of a batch, and its result after the run.
class QueuedRename final : public Velmora::SDK::IHostRenameResult {
 public:
  QueuedRename(Velmora::SDK::IHostFileItem* renamedItem, const WCHAR* path, const WCHAR* name, void* data)
      : item(renamedItem), fullPath(ViewOf(path)), newName(ViewOf(name)), userData_(data) {}

  void* UserData() override { return userData_; }
  u32 ResultCode() override { return result; }

  Velmora::SDK::IHostFileItem* item;  // null if the rename is by path
  WString fullPath;                   // empty if the rename is by item
  WString newName;
  u32 result = 0;

 private:
  void* userData_;
};

class RenameBatch final : public OwnedByModule<RenameBatch, Velmora::SDK::IHostRenameBatch> {
 public:
  void AddByPath(const WCHAR* fullPath, const WCHAR* newName, void* userData) override {
    renames.emplace_back(nullptr, fullPath, newName, userData);
  }
  void AddByItem(Velmora::SDK::IHostFileItem* item, const WCHAR* newName, void* userData) override {
    renames.emplace_back(item, nullptr, newName, userData);
  }
  // 0 before the run.
  u32 Count() override { return wasRun ? static_cast<u32>(renames.size()) : 0; }
  Velmora::SDK::IHostRenameResult* At(u32 index) override {
    return index < Count() ? &renames[index] : nullptr;
  }

  std::deque<QueuedRename> renames;
  bool wasRun = false;
};

class FileOperation final : public Velmora::SDK::IHostFileOperation {
 public:
  // With `dryRun` renames are reported as they would go, and not done.
  FileOperation(FileItemTree& items, Reporter& reporter, Output& output, bool dryRun)
      : items_(items), reporter_(reporter), output_(output), dryRun_(dryRun) {}

  int FileExists(const WCHAR* path) override;
  Velmora::SDK::IHostFileItem* GetFileItem(const WCHAR* path, u32 one) override;
  // The list stays its owner's, who releases it.
  void ReleaseFileList(Velmora::SDK::IHostFileList*) override {}
  Velmora::SDK::IHostRenameBatch* CreateRenameBatch() override { return RenameBatch::Lend(); }
  void ReleaseRenameBatch(Velmora::SDK::IHostRenameBatch* batch) override {
    if (batch) batch->Release();
  }
  // In the order of the batch. Dots and blanks at the end of a new name are left out, as the system does. A
  // rename that fails is told and does not stop the others. A name that can be none is refused (123), a name
  // that stays is ignored (10), and a target that exists is never replaced.
  void RunBatch(Velmora::SDK::IHostRenameBatch* batch,
                Velmora::SDK::IRenameResultCallback* callback) override;
  void RunPathBatch(Velmora::SDK::IHostRenameBatch* batch,
                    Velmora::SDK::IRenameResultCallback* callback) override;

  // Whether a rename has failed, or would have in a dry run. A name that stays is no failure.
  bool HasFailed() const { return hasFailed_; }

 private:
  void Run(RenameBatch& batch, Velmora::SDK::IRenameResultCallback* callback);
  u32 RenameOne(const FileItem& item, const WString& from, const WString& newName);
  // What the rename would answer after those that this dry run has reported. Paths have their folders as they
  // are on the disk, since a dry run renames none.
  u32 TryOne(const FileItem& item, const WString& from, const WString& to);
  u32 Rename(FileItem* item, const QueuedRename& rename);

  FileItemTree& items_;
  Reporter& reporter_;
  Output& output_;
  bool dryRun_;
  bool hasFailed_ = false;
  std::unordered_map<const FileItem*, WString> dryPaths_;  // where an item would be by now
  std::unordered_set<WString> taken_;                      // by keys: paths that items would have by now
  std::unordered_set<WString> left_;                       // by keys: paths that items would have left
};

}  // namespace QxHost
