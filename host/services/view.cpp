#include "host/services/view.h"

#include <algorithm>

namespace QxHost {
namespace {

using namespace Velmora::SDK;

WString SortKey(const FileItem& item) {
  WString key(item.Name());
  const int size = static_cast<int>(key.size());
  if (size != 0) LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, key.data(), size, key.data(), size);
  return key;
}

// Sorts by name, ignoring case; names that differ only in case, by their characters.
void SortByName(std::vector<FileItem*>& items) {
  std::vector<std::pair<WString, FileItem*>> keyed;
  keyed.reserve(items.size());
  for (FileItem* item : items) keyed.emplace_back(SortKey(*item), item);
  std::sort(keyed.begin(), keyed.end(), [](const auto& left, const auto& right) {
    return left.first != right.first ? left.first < right.first : left.second->Name() < right.second->Name();
  });
  std::transform(keyed.begin(), keyed.end(), items.begin(), [](const auto& row) { return row.second; });
}

void AddItems(IHostFileList& list, u32 mode, const std::vector<FileItem*>& items) {
  for (FileItem* item : items) {
    if (mode != kModeContent || !item->IsFolder()) list.AddItem(item);
  }
}

}  // namespace

View::View(FileItemTree& items, std::vector<FileItem*> selected, FileItem* focused, WString folder)
    : items_(items), folder_(std::move(folder)) {
  std::vector<bool> isSeen(items.Count(), false);
  selected_.reserve(selected.size());
  for (FileItem* item : selected) {
    if (!isSeen[item->Number()]) selected_.push_back(item);
    isSeen[item->Number()] = true;
  }
  focused_ = focused ? focused : (selected_.empty() ? nullptr : selected_.front());
}

bool View::ReadFolder() {
  if (all_) return true;
  if (folder_.empty() && focused_) folder_ = focused_->FolderPath();
  std::vector<FileItem*> all;
  if (folder_.empty() || !items_.AddFolderItems(folder_, all)) return false;
  SortByName(all);
  all_ = std::move(all);
  return true;
}

int View::Fill(u32 code, IHostFileList& list, u32 mode) {
  switch (code) {
    case kListSelectedItems:
      AddItems(list, mode, selected_);
      return 1;
    case kListFocusedItem:
      if (!focused_) return 0;
      AddItems(list, mode, {focused_});
      return 1;
    case kListAllItems:
      if (!ReadFolder()) return 0;
      AddItems(list, mode, *all_);
      return 1;
    default:
      return 0;
  }
}

}  // namespace QxHost
