// The list of the Windows build: a virtual list view, which asks for a row when it paints it and keeps none.
//
// What the list view tells its parent is seen by a subclass of the parent, which may be any window.
#pragma once

#include <atomic>

#include "host/controls/list_control.h"

// Needs windows.h before it.
#include <commctrl.h>

namespace QxHost {

class ListView final : public ListControl {
 public:
  // A list of no size in the window; `Handle` is null if the system makes none.
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

  // What the list view tells its parent. False for what the list view does itself.
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
  // Gives the list view the number of rows that there are.
  void ShowRows();
  void SetStateOfAll(UINT state, UINT mask);
  // A key or a click is about to come to the list view. If it leads to a selection in place of one of many
  // rows, these are taken out of it at once.
  void BeforeInput(UINT message, WPARAM wParam, LPARAM lParam);
  bool IsReplacedByKey(WPARAM key);
  static bool IsReplacedByClick(WPARAM keys, int row);
  bool IsReplacedByRightClick(WPARAM keys, int row) const;
  // -1 for a point without a row.
  int RowAt(LPARAM point) const;
  void DeselectAll();
  void SetState(const RowRanges& rows, UINT state);
  void SetState(int row, UINT state, UINT mask);
  void PostSelectionChanged();
  // Makes a column as wide as its heading and its cells that can be seen.
  void FitColumn(int index);
  int PixelsOfWidth(u32 width) const {
    return MulDiv(static_cast<int>(width), scale_, USER_DEFAULT_SCREEN_DPI);
  }
  void StoreWidths();
  void SetScale(int pixelsOfAnInch);
  HFONT MarkedFont();

  HWND parent_;
  HWND window_ = nullptr;
  int scale_;  // pixels of an inch
  HFONT markedFont_ = nullptr;
  bool isMoving_ = false;  // the selection is the same, at other places
  bool isSelectionPosted_ = false;
  std::atomic<bool> isShowPosted_ = false;
  std::atomic<bool> isCleared_ = false;  // the list view still has the rows of before
};

}  // namespace QxHost
