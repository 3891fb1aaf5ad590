#include "host/controls/vector_list.h"

#include <utility>

#include "host/controls/shell_images.h"

namespace QxHost {

HWND VectorList::Handle() const {
  return reinterpret_cast<HWND>(const_cast<VectorList*>(this));  // any unique value serves
}

u32 VectorList::GetImageSet() { return kShellImages; }

void VectorList::Select(RowRanges rows) {
  {
    const std::lock_guard lock(selectionMutex_);
    if (selected_ == rows) return;
    selected_ = std::move(rows);
  }
  SendSelectionChanged();
}

void VectorList::Focus(std::size_t row) {
  const std::lock_guard lock(selectionMutex_);
  focused_ = row;
}

RowRanges VectorList::Selected() {
  const std::lock_guard lock(selectionMutex_);
  return selected_;
}

std::size_t VectorList::Focused() {
  const std::lock_guard lock(selectionMutex_);
  return focused_;
}

void VectorList::SetColumnWidth(u32 number, u32 width) {
  for (Column& column : columns_) {
    if (column.number != number) continue;
    column.width = width;
    controls_.StoreWidth(number, width);
  }
}

// Sends the event only on the list's own thread, as all events.
void VectorList::OnClear() {
  bool wasSelected = false;
  {
    const std::lock_guard lock(selectionMutex_);
    wasSelected = !std::exchange(selected_, {}).IsEmpty();
    focused_ = 0;
  }
  if (wasSelected && std::this_thread::get_id() == thread_) SendSelectionChanged();
}

void VectorList::OnMove(const RowRanges&, const RowRanges& selected, std::size_t focused) {
  const std::lock_guard lock(selectionMutex_);
  selected_ = selected;
  focused_ = focused;
}

}  // namespace QxHost
