// The list of the Windows build: a virtual list view (LVS_OWNERDATA), which stores no rows and requests the
// text of a row when it paints it.
//
// The list view sends notifications to its parent, which may be any window. A subclass of the parent receives
// them.
#pragma once

#include <atomic>

#include "host/controls/list_control.h"

// Must be included after windows.h.
#include <commctrl.h>

namespace QxHost {

class ListView final : public ListControl {
 public:
  // Creates a list of size 0 in the window. `Handle` returns null if that fails.
  ListView(Controls& controls, HWND parent);
  ~ListView() override;

  HWND Handle() const override { return window_; }
  u32 GetImageSet() override;
  void Refresh() override;
  void SetRowHeight(u32 height) override;
  bool FilterMessage(tagMSG* message) override;

 private:
  static LRESULT CALLBACK OnParentMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                          UINT_PTR id, DWORD_PTR list);
  static LRESULT CALLBACK OnListMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                        DWORD_PTR list);

  void OnAdd() override { PostShowRows(); }
  void OnClear() override;
  void OnColumn(const Column& column) override;
  RowRanges Selected() override;
  std::size_t SelectedCount() override;
  std::size_t Focused() override;
  void OnMove(const RowRanges& selectedBefore, const RowRanges& selected, std::size_t focused) override;

  // Handles a notification of the list view. Returns false to let the list view handle it.
  bool OnNotify(NMHDR& header, LRESULT& result);
  LRESULT OnCustomDraw(NMLVCUSTOMDRAW& draw);
  void FillCell(LVITEMW& cell);
  void SetStateImages(HIMAGELIST images);
  int FindByText(const NMLVFINDITEMW& search);
  void OnContextMenu(LPARAM place);

  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(window_, message, wParam, lParam);
  }
  void PostShowRows();
  // Sets the list view's number of rows to the present one.
  void ShowRows();
  void SetStateOfAll(UINT state, UINT mask);
  // Called before a key or a click reaches the list view. If it replaces a selection of many rows, deselects
  // them all at once.
  void BeforeInput(UINT message, WPARAM wParam, LPARAM lParam);
  bool IsReplacedByKey(WPARAM key);
  static bool IsReplacedByClick(WPARAM keys, int row);
  bool IsReplacedByRightClick(WPARAM keys, int row) const;
  // Returns the index of the row at a point; -1 if there is no row.
  int RowAt(LPARAM point) const;
  void DeselectAll();
  void SetState(const RowRanges& rows, UINT state);
  void SetState(int row, UINT state, UINT mask);
  void PostSelectionChanged();
  // Fits the width of a column to its heading and its visible cells.
  void FitColumn(int index);
  int PixelsOfWidth(u32 width) const {
    return MulDiv(static_cast<int>(width), scale_, USER_DEFAULT_SCREEN_DPI);
  }
  void StoreWidths();
  void SetScale(int pixelsOfAnInch);
  HFONT MarkedFont();

  HWND parent_;
  HWND window_ = nullptr;
  int scale_;  // pixels per inch
  HFONT markedFont_ = nullptr;
  bool isMoving_ = false;  // rows are being moved, so changes of the selection are not reported
  bool isSelectionPosted_ = false;
  std::atomic<bool> isShowPosted_ = false;
  std::atomic<bool> isCleared_ = false;  // the rows were removed, but the list view still has their number
};

}  // namespace QxHost
