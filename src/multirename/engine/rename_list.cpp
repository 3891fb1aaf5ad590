#include "multirename/engine/rename_list.h"

namespace Velmora::SDK {

void RenameList::Attach(IHostList& list, IMLRowCallBack& rowInfo) {
  list_ = &list;
  rowInfo_ = &rowInfo;
}

void RenameList::Detach() {
  Empty();
  list_ = nullptr;
  rowInfo_ = nullptr;
}

void RenameList::FillList(SharedItems items) {
  if (!list_) return;
  Empty();
  items_ = std::move(items);
  list_->SetRowProvider(rowInfo_);
  if (items_) {
    for (MultiRenameItem& item : *items_) list_->AddRow(list_->CreateRow(&item));
  }
  list_->Refresh();
}

void RenameList::Empty() {
  if (list_) list_->Clear();
  items_.reset();
}

// With a million rows, an extra copy or newly allocated memory would take longer than everything else that a
// keystroke causes.
std::vector<MultiRenameItem*> RenameList::CollectRows(std::vector<MultiRenameItem*> memory) const {
  std::vector<MultiRenameItem*> rows = std::move(memory);
  rows.clear();
  if (!list_) return rows;
  u32 count = 0;
  u32 selected = 0;
  list_->GetCounts(&count, &selected);
  rows.resize(count);  // rows that the list does not return remain null
  // The list returns the pointers that were passed to CreateRow.
  static_assert(sizeof(MultiRenameItem*) == sizeof(void*));
  list_->GetRows(reinterpret_cast<void**>(rows.data()), count);
  std::erase(rows, nullptr);
  return rows;
}

void RenameList::Refresh() {
  if (list_) list_->Refresh();
}

}  // namespace Velmora::SDK
