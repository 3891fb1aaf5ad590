// What the list of both builds has in common: its rows, its columns, the moves and the callback.
//
// The rows are pointers of the module. They are looked up, and the row provider is asked, under a lock: after
// Clear on any thread no row of before is asked for.
#pragma once

#include <mutex>
#include <vector>

#include "frame/host/host_rows.h"
#include "host/controls/controls.h"
#include "host/controls/row_order.h"

namespace QxHost {

class ListControl : public Control, public Velmora::SDK::IHostListControl {
 public:
  explicit ListControl(Controls& controls) : controls_(controls), id_(controls.NextId()) {}
  ~ListControl() override;

  u32 Kind() const override { return Velmora::SDK::kServiceListControl; }
  void* Service() override { return static_cast<Velmora::SDK::IHostListControl*>(this); }

  u32 GetId() override { return id_; }
  void SetRowProvider(Velmora::SDK::IMLRowCallBack* provider) override;
  // A row is its item: nothing is made.
  void* CreateRow(void* item) override { return item; }
  void AddRow(void* row) override;
  void Clear() override;
  // Returns how many it has stored; without a place for them, how many there are.
  u32 GetRows(void** items, u32 size) override;
  void GetCounts(u32* rows, u32* selectedRows) override;
  void MoveRowUp() override { Move(RowMove::kUp); }
  void MoveRowDown() override { Move(RowMove::kDown); }
  void MoveRowTop() override { Move(RowMove::kTop); }
  void MoveRowBottom() override { Move(RowMove::kBottom); }
  void AddColumn(const WCHAR* heading, u32 width, u32 number) override;
  void SetEventCallback(u32 event, Velmora::SDK::IEventCallback* callback) override;

 protected:
  struct Column {
    WString heading;
    u32 width;  // in pixels of a screen of 96 to an inch
    u32 number;
  };

  // A row was added, or all were taken out. Any thread, with no lock held.
  virtual void OnAdd() = 0;
  virtual void OnClear() = 0;
  virtual void OnColumn(const Column& column) = 0;
  virtual RowRanges Selected() = 0;
  virtual std::size_t SelectedCount() = 0;
  // The row with the focus; beyond the last row if no row has it.
  virtual std::size_t Focused() = 0;
  // Rows have moved, and the selection and the focus with them.
  virtual void OnMove(const RowRanges& selectedBefore, const RowRanges& selected, std::size_t focused) = 0;

  std::size_t CountRows();

  // Calls `ask(provider, item)` for the row at a place. False without such a row or a provider.
  template <typename Ask>
  bool AskRow(std::size_t place, Ask ask) {
    const std::lock_guard lock(mutex_);
    if (!provider_ || place >= rows_.Count()) return false;
    ask(*provider_, rows_.At(place));
    return true;
  }

  // The text of a cell, by the column's number, cut at what a cell can show. The pointer is good until the
  // next call.
  const WCHAR* CellText(std::size_t place, u32 column);

  void SendSelectionChanged() { controls_.SendEvent(static_cast<std::intptr_t>(id_), kSelectionChanged); }
  // The callback's result; 0 without a callback.
  s32 SendContextMenu(s32 x, s32 y);

  Controls& controls_;
  std::vector<Column> columns_;

 private:
  void Move(RowMove move);

  const u32 id_;
  Velmora::SDK::IEventCallback* contextMenu_ = nullptr;
  std::vector<WCHAR> cellText_;
  // Guards what follows. What the row provider calls may take messages of this thread, as the shell does when
  // it looks for an image, and so ask for a row again.
  std::recursive_mutex mutex_;
  Velmora::SDK::IMLRowCallBack* provider_ = nullptr;
  RowOrder rows_;
};

}  // namespace QxHost
