#include "multirename/engine/multi_rename_item.h"

#include <thread>

#include "frame/host/host_objects.h"
#include "multirename/saved/multi_rename_undo.h"

namespace Velmora::SDK {

namespace {

constexpr u32 kItemTextSize = 4096;

// A spin lock, held only while one name is copied.
class NameGuard {
 public:
  explicit NameGuard(std::atomic_flag& flag) : flag_(flag) {
    while (flag_.test_and_set(std::memory_order_acquire)) std::this_thread::yield();
  }
  NameGuard(const NameGuard&) = delete;
  NameGuard& operator=(const NameGuard&) = delete;
  ~NameGuard() { flag_.clear(std::memory_order_release); }

 private:
  std::atomic_flag& flag_;
};

}  // namespace

MultiRenameItem::MultiRenameItem(IHostFileItem& item, const SharedText& neighbour)
    : tag(kItemTag), isFolder(item.IsFolder()), rowImage(-1), hostItem(&item) {
  WCHAR buffer[kItemTextSize];
  buffer[0] = WCHAR();
  item.GetFolderPath(buffer, kItemTextSize);
  folderPath = neighbour == buffer ? neighbour : SharedText(buffer);
  buffer[0] = WCHAR();
  item.GetName(buffer, kItemTextSize);
  oldName = buffer;
  // Reserves room for a counter or a word.
  constexpr std::size_t kRoom = 7;
  newName.reserve(oldName.size() + kRoom);
  newName = oldName;
}

void MultiRenameItem::StoreNewName(WStringView name) {
  const NameGuard guard(copying_);
  newName.assign(name);
}

void MultiRenameItem::CopyNewName(WCHAR* buffer, u32 size) const {
  const NameGuard guard(copying_);
  CopyTerminated(buffer, size, WStringView(newName));
}

SharedItems ReadSelection(IHostApp& host) {
  auto items = std::make_shared<MultiRenameItems>();
  const HostObject<IHostFileList> list(host.CreateFileList());
  if (!list) return items;
  host.FileListRequest(kListSelectedItems, list.Get(), kModeRename, 0);
  for (u32 index = 0, count = list->GetCount(); index < count; ++index) {
    IHostFileItem* const item = list->GetItem(index);
    if (item) items->emplace_back(*item, items->empty() ? SharedText() : items->back().folderPath);
  }
  return items;
}

SharedItems LoadSession(const MultiRenameUndo& session) {
  auto items = std::make_shared<MultiRenameItems>();
  for (const MultiRenameUndoEntry& entry : session.entries) {
    MultiRenameItem& item = items->emplace_back();
    item.folderPath = entry.folder;
    item.oldName = entry.oldName;
    item.newName = entry.newName;
    item.state = StateRenamed;
  }
  return items;
}

}  // namespace Velmora::SDK
