#include "host/rename/planned_renames.h"

#include <span>
#include <unordered_map>

#include "host/output/error_text.h"
#include "host/rename/interruption.h"
#include "host/rename/move_item.h"
#include "host/rename/rename_plan.h"
#include "host/system/paths.h"

namespace QxHost {
namespace {

using Row = std::uint32_t;
using Velmora::SDK::kRenameIgnored;

// The file of a rename.
struct RenamedFile {
  FileItem* item = nullptr;
  std::uint32_t folder = 0;  // index into Gathered::folders
  WString name;              // before the run
};

// The folders of the renames of a batch, each once.
class BatchFolders {
 public:
  explicit BatchFolders(std::vector<WString>& paths) : paths_(paths) {}

  std::uint32_t Of(const FileItem& item) {
    // Successive renames of a batch are often in one folder.
    if (lastParent_ && item.Parent() == lastParent_) return lastFolder_;
    const auto [entry, isNew] = byItem_.emplace(item.Parent(), 0);
    if (isNew) entry->second = Of(item.FolderPath());
    lastParent_ = item.Parent();
    lastFolder_ = entry->second;
    return lastFolder_;
  }

  std::uint32_t Of(const WString& path) {
    if (!paths_.empty() && path == paths_.back()) return static_cast<std::uint32_t>(paths_.size() - 1);
    const auto [entry, isNew] = byPath_.emplace(path, static_cast<std::uint32_t>(paths_.size()));
    if (isNew) paths_.push_back(path);
    return entry->second;
  }

 private:
  std::vector<WString>& paths_;
  const FileItem* lastParent_ = nullptr;
  std::uint32_t lastFolder_ = 0;
  std::unordered_map<const FileItem*, std::uint32_t> byItem_;
  std::unordered_map<WString, std::uint32_t> byPath_;
};

// The renames of a batch with their paths before the run.
class Gathered {
 public:
  explicit Gathered(std::deque<QueuedRename>& renames) {
    files.reserve(renames.size());
    refusals_.reserve(renames.size());
    wanted.rows.reserve(renames.size());
    for (QueuedRename& rename : renames) Add(rename);
    for (Row row = 0; row < files.size(); ++row) {
      wanted.rows.push_back({.folder = files[row].folder,
                             .name = files[row].name,
                             .newName = NameToMakeOf(renames[row]),
                             .isByPath = !renames[row].item,
                             .refusal = refusals_[row]});
    }
    wanted.currentFolder = FullPathOf(W(".")).value_or(WString());
  }
  Gathered(const Gathered&) = delete;
  Gathered& operator=(const Gathered&) = delete;

  WString PathOf(Row row) const { return wanted.folders[files[row].folder] + files[row].name; }

  std::vector<RenamedFile> files;
  WantedRenames wanted;  // its texts belong to `files` and to the batch

 private:
  void Add(QueuedRename& rename) {
    RenamedFile& file = files.emplace_back();
    bool hasPath = true;
    bool isDrive = false;
    if (rename.item) {
      file.item = rename.item;
      isDrive = !file.item->Parent();
      file.folder = folders_.Of(*rename.item);
      file.name = rename.item->Name();
    } else {
      const std::optional<WString> fullPath = PathOfRename(rename);
      const WString& path = fullPath ? *fullPath : rename.fullPath;
      hasPath = fullPath.has_value();
      isDrive = hasPath && SplitRoot(path).rest.empty();
      const std::size_t nameAt = isDrive || !hasPath ? 0 : path.rfind(W('\\')) + 1;
      file.folder = folders_.Of(path.substr(0, nameAt));
      file.name = path.substr(nameAt);
    }
    refusals_.push_back(RefusalOf(NameToMakeOf(rename), rename.newName, hasPath, isDrive, file.name));
  }

  std::vector<DWORD> refusals_;
  BatchFolders folders_{wanted.folders};
};

// The files on the disk. Uses the listings of folders that were just read.
class ListedView final : public DiskView {
 public:
  explicit ListedView(FolderListings& listings) : listings_(listings) {}

  bool ReadNames(const WString& folder, std::size_t most, FolderNames& names) override {
    const auto listing = listings_.find(folder);
    if (listing == listings_.end()) return DiskView::ReadNames(folder, most, names);
    names = std::move(listing->second);
    listings_.erase(listing);
    return true;
  }

 private:
  FolderListings& listings_;
};

// Renames items on the disk and in their tree.
class ItemMover {
 public:
  explicit ItemMover(FileItemTree& tree) : tree_(tree) {}

  // `from` is the item's path. Returns 0 or the error number.
  DWORD Move(FileItem& item, const WString& from, WStringView newName) {
    to_.assign(from, 0, from.size() - item.Name().size());
    to_ += newName;
    const DWORD error = MoveItem(from, to_);
    if (error == ERROR_SUCCESS) tree_.Rename(item, newName);
    return error == kRenameIgnored ? DWORD{ERROR_GEN_FAILURE} : error;  // as a result, 10 means ignored
  }

 private:
  FileItemTree& tree_;
  WString to_;  // of the current move; a member to reuse its memory
};

// Runs the chains of a plan and stores the results.
class ChainRunner {
 public:
  ChainRunner(RenamePlan& plan, const Gathered& gathered, FileItemTree& tree, Output& output)
      : plan_(plan), gathered_(gathered), mover_(tree), output_(output) {}

  void Run(const RenameChain& chain) {
    const std::span<const Row> rows(plan_.order.data() + chain.first, chain.count);
    if (IsInterrupted()) {
      for (const Row row : rows) plan_.results[row] = ERROR_CANCELLED;
    } else if (chain.waitsFor != kNoRow && plan_.results[chain.waitsFor] != 0) {
      for (const Row row : rows) plan_.results[row] = ERROR_ALREADY_EXISTS;
    } else if (chain.temporaryName == kNoRow) {
      for (const Row row : rows) {
        plan_.results[row] = IsInterrupted() ? DWORD{ERROR_CANCELLED} : Move(ItemOf(row), NewName(row));
      }
    } else {
      RunCycle(rows, plan_.temporaryNames[chain.temporaryName]);
    }
  }

 private:
  struct Step {
    Row row;
    WString oldName;
  };

  FileItem& ItemOf(Row row) const { return *gathered_.files[row].item; }
  WString NewName(Row row) const { return WString(gathered_.wanted.rows[row].newName); }

  DWORD Move(FileItem& item, const WString& newName) {
    item.WriteFullPath(from_);
    return mover_.Move(item, from_, newName);
  }

  // Returns false if the step fails, and stores the error as the result of the rename.
  bool Try(Row row, const WString& newName, std::vector<Step>& done) {
    WString oldName(ItemOf(row).Name());
    const DWORD error = Move(ItemOf(row), newName);
    if (error == ERROR_SUCCESS) {
      done.push_back({row, std::move(oldName)});
    } else {
      plan_.results[row] = error;
    }
    return error == ERROR_SUCCESS;
  }

  void RunCycle(std::span<const Row> rows, const WString& temporaryName) {
    const Row aside = rows.back();
    std::vector<Step> done;
    bool isDone = Try(aside, temporaryName, done);
    for (const Row row : rows) isDone = isDone && Try(row, NewName(row), done);
    if (isDone) return;
    RevertSteps(done);
    for (const Row row : rows) {
      const bool hasNewName = ItemOf(row).Name() == NewName(row);
      if (!hasNewName && plan_.results[row] == 0) plan_.results[row] = ERROR_ALREADY_EXISTS;
    }
  }

  // Undoes the steps in reverse order, so that each old name is free.
  void RevertSteps(const std::vector<Step>& done) {
    for (auto step = done.rbegin(); step != done.rend(); ++step) {
      FileItem& item = ItemOf(step->row);
      const DWORD error = Move(item, step->oldName);
      if (error == ERROR_SUCCESS) continue;
      const FileItem& aside = ItemOf(done.front().row);
      output_.Problem(ToUtf8(gathered_.PathOf(done.front().row)) + " is left as " + ToUtf8(aside.Name()) +
                      ": " + ErrorText(error));
      return;
    }
  }

  RenamePlan& plan_;
  const Gathered& gathered_;
  ItemMover mover_;
  Output& output_;
  WString from_;  // of the current move; a member to reuse its memory
};

// Converts paths to items before the first rename, so that they change with the folders above them.
void FindItems(Gathered& gathered, const RenamePlan& plan, FileItemTree& tree) {
  const std::vector<WString>& folders = gathered.wanted.folders;
  for (const Row row : plan.order) {
    RenamedFile& file = gathered.files[row];
    if (file.item) continue;
    const std::uint32_t folder = plan.folders[row];
    const WString& path =
        folder < folders.size() ? folders[folder] : plan.otherFolders[folder - folders.size()];
    file.item = &tree.Follow(path + file.name);
  }
}

}  // namespace

PredictedRenames PredictRenames(std::span<const RenameToPredict> renames, FolderListings& listings) {
  WantedRenames wanted;
  wanted.rows.reserve(renames.size());
  wanted.currentFolder = FullPathOf(W(".")).value_or(WString());
  BatchFolders folders(wanted.folders);
  for (const RenameToPredict& rename : renames) {
    const WStringView name = rename.item->Name();
    const WStringView newName = NameToMake(rename.newName);
    wanted.rows.push_back(
        {.folder = folders.Of(*rename.item),
         .name = name,
         .newName = newName,
         .refusal = RefusalOf(newName, rename.newName, true, !rename.item->Parent(), name)});
  }
  ListedView disk(listings);
  const RenamePlan plan = PlanRenames(wanted, disk);
  return {{plan.results.begin(), plan.results.end()}, plan.areIndependent};
}

void RunPlanned(std::deque<QueuedRename>& renames, FileItemTree& tree, bool isDryRun, Output& output,
                const RenameReport& report) {
  Gathered gathered(renames);
  DiskView disk;
  RenamePlan plan = PlanRenames(gathered.wanted, disk);
  if (!isDryRun) {
    FindItems(gathered, plan, tree);
    ChainRunner runner(plan, gathered, tree, output);
    for (const RenameChain& chain : plan.chains) runner.Run(chain);
  }
  for (Row row = 0; row < renames.size(); ++row)
    report(gathered.PathOf(row), renames[row], plan.results[row]);
}

}  // namespace QxHost
