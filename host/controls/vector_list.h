// The list of the native build, which has rows, columns and a selection but no window.
#pragma once

#include <atomic>
#include <thread>

#include "host/controls/list_control.h"

namespace QxHost {

class VectorList final : public ListControl {
 public:
  using ListControl::Column;
  using ListControl::ListControl;

  HWND Handle() const override;
  u32 GetImageSet() override;
  void Refresh() override { ++refreshes_; }
  void SetRowHeight(u32 height) override { rowHeight_ = height; }
  bool FilterMessage(tagMSG*) override { return false; }

  // The actions of a user.
  void Select(RowRanges rows);
  void Focus(std::size_t row);
  void SetColumnWidth(u32 number, u32 width);
  void OpenContextMenu(s32 x, s32 y) { SendContextMenu(x, y); }

  // What a user would see.
  RowRanges Selected() override;
  std::size_t Focused() override;
  const std::vector<Column>& Columns() const { return columns_; }
  WString CellAt(std::size_t row, u32 column) { return CellText(row, column); }
  u32 RowHeight() const { return rowHeight_; }
  int Refreshes() const { return refreshes_; }

 private:
  void OnAdd() override {}
  void OnClear() override;
  void OnColumn(const Column&) override {}
  std::size_t SelectedCount() override { return Selected().Count(); }
  void OnMove(const RowRanges& selectedBefore, const RowRanges& selected, std::size_t focused) override;

  const std::thread::id thread_ = std::this_thread::get_id();
  u32 rowHeight_ = 0;
  std::atomic<int> refreshes_ = 0;
  std::mutex selectionMutex_;  // protects the members below, as Clear may be called on any thread
  RowRanges selected_;
  std::size_t focused_ = 0;
};

}  // namespace QxHost
