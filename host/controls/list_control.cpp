#include "host/controls/list_control.h"

#include <algorithm>

namespace QxHost {
namespace {

// More characters than any screen shows in one line.
constexpr std::size_t kMaxCellChars = 2048;

}  // namespace

ListControl::~ListControl() {
  if (contextMenu_) contextMenu_->Release();
}

void ListControl::SetRowProvider(Velmora::SDK::IMLRowCallBack* provider) {
  const std::lock_guard lock(mutex_);
  provider_ = provider;
}

void ListControl::AddRow(void* row) {
  {
    const std::lock_guard lock(mutex_);
    rows_.Add(row);
  }
  OnAdd();
}

void ListControl::Clear() {
  {
    const std::lock_guard lock(mutex_);
    rows_.Clear();
  }
  OnClear();
}

u32 ListControl::GetRows(void** items, u32 size) {
  const std::lock_guard lock(mutex_);
  if (!items) return static_cast<u32>(rows_.Count());
  const std::size_t count = std::min<std::size_t>(size, rows_.Count());
  std::copy_n(rows_.Rows().begin(), count, items);
  return static_cast<u32>(count);
}

void ListControl::GetCounts(u32* rows, u32* selectedRows) {
  if (rows) *rows = static_cast<u32>(CountRows());
  if (selectedRows) *selectedRows = static_cast<u32>(SelectedCount());
}

void ListControl::AddColumn(const WCHAR* heading, u32 width, u32 number) {
  const Column& column = columns_.emplace_back(
      Column{WString(ViewOf(heading)), controls_.StoredWidth(number).value_or(width), number});
  OnColumn(column);
}

void ListControl::SetEventCallback(u32 event, Velmora::SDK::IEventCallback* callback) {
  if (event != Velmora::SDK::kListContextMenu) {
    if (callback) callback->Release();
    return;
  }
  if (contextMenu_) contextMenu_->Release();
  contextMenu_ = callback;
}

std::size_t ListControl::CountRows() {
  const std::lock_guard lock(mutex_);
  return rows_.Count();
}

const WCHAR* ListControl::CellText(std::size_t place, u32 column) {
  cellText_.resize(kMaxCellChars);
  cellText_.front() = WCHAR();
  AskRow(place, [&](Velmora::SDK::IMLRowCallBack& provider, void* item) {
    provider.GetCellText(item, column, cellText_.data(), static_cast<u32>(cellText_.size()));
  });
  cellText_.back() = WCHAR();
  return cellText_.data();
}

s32 ListControl::SendContextMenu(s32 x, s32 y) {
  Velmora::SDK::ListContextMenu place{Handle(), x, y};
  return contextMenu_ ? contextMenu_->OnEvent(Velmora::SDK::kListContextMenu, &place) : 0;
}

void ListControl::Move(RowMove move) {
  const RowRanges before = Selected();
  if (before.IsEmpty()) return;
  std::size_t focused = Focused();
  RowRanges after;
  {
    const std::lock_guard lock(mutex_);
    if (before.All().back().end > rows_.Count()) return;  // another thread has removed the rows
    const bool hasFocus = focused < rows_.Count();
    after = rows_.Move(move, before, focused);
    if (!hasFocus) focused = rows_.Count();
  }
  OnMove(before, after, focused);
}

}  // namespace QxHost
