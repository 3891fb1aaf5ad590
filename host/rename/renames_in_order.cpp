#include "host/rename/renames_in_order.h"

#include <unordered_map>
#include <unordered_set>

#include "host/rename/interruption.h"
#include "host/rename/move_item.h"
#include "host/services/file_view.h"
#include "host/system/paths.h"

namespace QxHost {
namespace {

using Velmora::SDK::kRenameIgnored;

// The files as they would be if the renames of a dry run had been done.
class DryFiles {
 public:
  // Returns the path that an item would have now; its folder is that on the disk.
  const WString& PresentPath(const FileItem& item, const WString& onDisk) const {
    const auto renamed = present_.find(&item);
    return renamed == present_.end() ? onDisk : renamed->second;
  }

  // Returns the result of a rename and, if it succeeds, records the item's new path.
  u32 Rename(const FileItem& item, const WString& from, const WString& to) {
    const WString fromKey = PathKey(from);
    WString key = PathKey(to);
    if (!taken_.contains(fromKey)) {
      const DWORD error = left_.contains(fromKey) ? DWORD{ERROR_FILE_NOT_FOUND} : disk_.Look(from);
      if (error != ERROR_SUCCESS) return error;
    }
    if (key != fromKey) {
      if (taken_.contains(key)) return ERROR_ALREADY_EXISTS;
      if (!left_.contains(key) && disk_.Look(to) == ERROR_SUCCESS) return ERROR_ALREADY_EXISTS;
    }
    taken_.erase(fromKey);
    left_.insert(fromKey);
    taken_.insert(std::move(key));
    present_[&item] = to;
    return ERROR_SUCCESS;
  }

 private:
  DiskView disk_;
  std::unordered_map<const FileItem*, WString> present_;
  std::unordered_set<WString> taken_;  // keys of the paths that items would have now
  std::unordered_set<WString> left_;   // keys of the paths that items would have left
};

u32 Move(FileItem& item, const WString& from, const WString& newName, FileItemTree& tree) {
  const DWORD error = MoveItem(from, item.FolderPath() + newName);
  if (error == ERROR_SUCCESS) tree.Rename(item, newName);
  return error == kRenameIgnored ? u32{ERROR_GEN_FAILURE} : error;  // as a result, 10 means ignored
}

}  // namespace

void RunInOrder(std::deque<QueuedRename>& renames, FileItemTree& tree, bool isDryRun,
                const RenameReport& report) {
  // Converts paths to items before the first rename, so that they change with the folders above them.
  std::vector<FileItem*> items;
  for (const QueuedRename& rename : renames) {
    const std::optional<WString> fullPath = rename.item ? std::nullopt : PathOfRename(rename);
    items.push_back(fullPath ? &tree.Follow(*fullPath) : rename.item);
  }
  const std::optional<WString> current = FullPathOf(W("."));
  DryFiles dryFiles;
  std::size_t index = 0;
  for (QueuedRename& rename : renames) {
    FileItem* const item = items[index++];
    const WString from = item ? item->FullPath() : rename.fullPath;
    const WString newName = NameOfRename(rename);
    const WString folder = item ? item->FolderPath() : WString();
    const WString& present = isDryRun && item ? dryFiles.PresentPath(*item, from) : from;
    const WStringView presentName = WStringView(present).substr(folder.size());
    u32 result =
        RefusalOf(NameToMakeOf(rename), rename.newName, item != nullptr, folder.empty(), presentName);
    // Windows keeps the current folder open. Other systems would rename it, for example for an accidental
    // ITEM ".".
    if (result == 0 && current && IsSameOrAbove(from, *current)) result = ERROR_SHARING_VIOLATION;
    if (result == 0 && IsInterrupted()) result = ERROR_CANCELLED;
    if (result == 0) {
      result =
          isDryRun ? dryFiles.Rename(*item, present, folder + newName) : Move(*item, from, newName, tree);
    }
    report(from, rename, result);
  }
}

}  // namespace QxHost
