// The common part of the lists of both builds: rows, columns, moves and the callback.
//
// The rows are pointers of the module. The list reads them and calls the row provider under a lock, so that
// it does not use removed rows after Clear has returned on any thread.
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
  // Creates nothing: the row is the item itself.
  void* CreateRow(void* item) override { return item; }
  void AddRow(void* row) override;
  void Clear() override;
  // Stores at most `size` items and returns their number; if `items` is null, returns the number of rows.
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
    u32 width;  // in pixels at 96 DPI
    u32 number;
  };

  // OnAdd is called after a row was added, OnClear after all were removed. On any thread, without the lock.
  virtual void OnAdd() = 0;
  virtual void OnClear() = 0;
  virtual void OnColumn(const Column& column) = 0;
  virtual RowRanges Selected() = 0;
  virtual std::size_t SelectedCount() = 0;
  // Returns the index of the row with the focus; an index past the last row if no row has it.
  virtual std::size_t Focused() = 0;
  // Called after rows have moved, and the selection and the focus with them.
  virtual void OnMove(const RowRanges& selectedBefore, const RowRanges& selected, std::size_t focused) = 0;

  std::size_t CountRows();

  // Calls `ask(provider, item)` for the row at index `place`. Returns false if there is no such row or no
  // provider.
  template <typename Ask>
  bool AskRow(std::size_t place, Ask ask) {
    const std::lock_guard lock(mutex_);
    if (!provider_ || place >= rows_.Count()) return false;
    ask(*provider_, rows_.At(place));
    return true;
  }

  // Returns the text of a cell, truncated to the length that a cell can show. `column` is the column's
  // number. The pointer is valid until the next call.
  const WCHAR* CellText(std::size_t place, u32 column);

  void SendSelectionChanged() { controls_.SendEvent(static_cast<std::intptr_t>(id_), kSelectionChanged); }
  // Sends the event to the callback and returns its result; 0 if there is no callback.
  s32 SendContextMenu(s32 x, s32 y);

  Controls& controls_;
  std::vector<Column> columns_;

 private:
  void Move(RowMove move);

  const u32 id_;
  Velmora::SDK::IEventCallback* contextMenu_ = nullptr;
  std::vector<WCHAR> cellText_;
  // Protects the members below. A function that the row provider calls may handle messages of this thread, as
  // the shell does when it looks for an image, and so ask for a row again.
  std::recursive_mutex mutex_;
  Velmora::SDK::IMLRowCallBack* provider_ = nullptr;
  RowOrder rows_;
};

}  // namespace QxHost
