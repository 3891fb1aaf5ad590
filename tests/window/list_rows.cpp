#include "window/list_rows.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include "window/modal_driver.h"

namespace {

LRESULT Ask(HWND dialog, int control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  return SendDlgItemMessageW(dialog, control, message, wParam, lParam);
}

int ColumnCount(HWND dialog, int control) {
  const auto header = reinterpret_cast<HWND>(Ask(dialog, control, LVM_GETHEADER));
  return static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
}

void ClickAt(HWND dialog, int control, POINT place) {
  const HWND list = GetDlgItem(dialog, control);
  const LPARAM point = MAKELPARAM(place.x, place.y);
  PostMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, point);
  PostMessageW(list, WM_LBUTTONUP, 0, point);
  Pump(dialog);
}

POINT PlaceOfCell(HWND dialog, int control, int row, int column) {
  RECT area = {LVIR_LABEL, column, 0, 0};
  EXPECT_TRUE(
      Ask(dialog, control, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area)));
  return {area.left + 3, (area.top + area.bottom) / 2};
}

}  // namespace

std::vector<std::vector<WString>> TableRowsOf(HWND dialog, int control) {
  std::vector<std::vector<WString>> rows(static_cast<std::size_t>(Ask(dialog, control, LVM_GETITEMCOUNT)));
  for (std::size_t row = 0; row < rows.size(); ++row) {
    for (int column = 0; column < ColumnCount(dialog, control); ++column) {
      WCHAR text[512] = {};
      LVITEMW item = {};
      item.iSubItem = column;
      item.pszText = text;
      item.cchTextMax = 512;
      Ask(dialog, control, LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
      rows[row].emplace_back(text);
    }
  }
  return rows;
}

std::vector<std::pair<WString, int>> ColumnsOf(HWND dialog, int control) {
  std::vector<std::pair<WString, int>> columns;
  for (int column = 0; column < ColumnCount(dialog, control); ++column) {
    WCHAR heading[512] = {};
    LVCOLUMNW info = {};
    info.mask = LVCF_TEXT | LVCF_WIDTH;
    info.pszText = heading;
    info.cchTextMax = 512;
    Ask(dialog, control, LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&info));
    columns.emplace_back(heading, info.cx);
  }
  return columns;
}

std::vector<int> SelectedTableRows(HWND dialog, int control) {
  std::vector<int> rows;
  for (int row = -1;;) {
    row = static_cast<int>(
        Ask(dialog, control, LVM_GETNEXTITEM, static_cast<WPARAM>(row), MAKELPARAM(LVNI_SELECTED, 0)));
    if (row < 0) return rows;
    rows.push_back(row);
  }
}

int FocusedTableRow(HWND dialog, int control) {
  return static_cast<int>(
      Ask(dialog, control, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), MAKELPARAM(LVNI_FOCUSED, 0)));
}

void ClickCell(HWND dialog, int control, int row, int column) {
  ClickAt(dialog, control, PlaceOfCell(dialog, control, row, column));
}

void ClickBelowRows(HWND dialog, int control) {
  RECT client = {};
  GetClientRect(GetDlgItem(dialog, control), &client);
  ClickAt(dialog, control, {5, client.bottom - 3});
}

void DoubleClickCell(HWND dialog, int control, int row) {
  const POINT place = PlaceOfCell(dialog, control, row, 0);
  const HWND list = GetDlgItem(dialog, control);
  PostMessageW(list, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(place.x, place.y));
  PostMessageW(list, WM_LBUTTONUP, 0, MAKELPARAM(place.x, place.y));
  Pump(dialog);
}

std::vector<WString> ListLinesOf(HWND dialog, int control) {
  std::vector<WString> lines(static_cast<std::size_t>(Ask(dialog, control, LB_GETCOUNT)));
  for (std::size_t line = 0; line < lines.size(); ++line) {
    lines[line].resize(static_cast<std::size_t>(Ask(dialog, control, LB_GETTEXTLEN, line)) + 1);
    const LRESULT length =
        Ask(dialog, control, LB_GETTEXT, line, reinterpret_cast<LPARAM>(lines[line].data()));
    lines[line].resize(static_cast<std::size_t>(length));
  }
  return lines;
}

void ClickLine(HWND dialog, int control, int line) {
  RECT area = {};
  ASSERT_NE(Ask(dialog, control, LB_GETITEMRECT, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(&area)),
            LB_ERR);
  ClickAt(dialog, control, {area.left + 3, (area.top + area.bottom) / 2});
}
