#include "multirename/window/control_view_windows.h"

// Needs windows.h first.
#include <commctrl.h>

#include "platform/screen_scale.h"
#include "ui/controls.h"

namespace Velmora::SDK {

namespace {

constexpr UINT_PTR kControlsSubclass = 0x5158;

// List boxes and combo boxes have different messages for the same operations.
struct LineMessages {
  UINT select;
  UINT selected;
};

bool IsPlainListBox(HWND control) {
  WCHAR name[16] = {};
  return GetClassNameW(control, name, 16) > 0 && lstrcmpiW(name, WC_LISTBOXW) == 0;
}

LineMessages LineMessagesOf(HWND control) {
  if (IsPlainListBox(control)) return {LB_SETCURSEL, LB_GETCURSEL};
  return {CB_SETCURSEL, CB_GETCURSEL};
}

void FillListBox(HWND list, const std::vector<WString>& lines) {
  SendMessageW(list, LB_RESETCONTENT, 0, 0);
  for (const WString& line : lines)
    SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
}

void SetRowState(HWND list, int row, UINT state) {
  LVITEMW item = {};
  item.state = state;
  item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
  SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

// Fills in the text of a cell that a list requests.
void FillCell(const TableRows& rows, LVITEMW& cell) {
  if ((cell.mask & LVIF_TEXT) == 0) return;
  const auto row = static_cast<std::size_t>(cell.iItem);
  const auto column = static_cast<std::size_t>(cell.iSubItem);
  const bool isThere = row < rows.size() && column < rows[row].size();
  cell.pszText = const_cast<WCHAR*>(isThere ? rows[row][column].c_str() : W(""));
}

// Returns the first row whose first cell begins with the wanted text, from a position to the end and then
// from the top.
int FindRow(const TableRows& rows, const NMLVFINDITEMW& search) {
  if ((search.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || !search.lvfi.psz) return kNoLine;
  const WStringView wanted(search.lvfi.psz);
  const auto size = static_cast<int>(wanted.size());
  const std::size_t from = search.iStart > 0 ? static_cast<std::size_t>(search.iStart) : 0;
  for (std::size_t step = 0; step < rows.size(); ++step) {
    const std::size_t row = (from + step) % rows.size();
    if (rows[row].empty() || rows[row].front().size() < wanted.size()) continue;
    if (CompareStringOrdinal(rows[row].front().data(), size, wanted.data(), size, TRUE) == CSTR_EQUAL)
      return static_cast<int>(row);
  }
  return kNoLine;
}

}  // namespace

HWND EditFieldOf(HWND control) {
  COMBOBOXINFO box = {};
  box.cbSize = sizeof(box);
  return GetComboBoxInfo(control, &box) && box.hwndItem ? box.hwndItem : control;
}

void WindowControls::Attach(HWND window) {
  Detach();
  window_ = window;
  SetWindowSubclass(window, OnWindowMessage, kControlsSubclass, reinterpret_cast<DWORD_PTR>(this));
}

void WindowControls::Detach() {
  if (window_) RemoveWindowSubclass(window_, OnWindowMessage, kControlsSubclass);
  window_ = nullptr;
  rows_.clear();
}

LRESULT CALLBACK WindowControls::OnWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                                 UINT_PTR, DWORD_PTR data) {
  auto& controls = *reinterpret_cast<WindowControls*>(data);
  LRESULT result = 0;
  if (message == WM_NOTIFY && controls.OnNotify(*reinterpret_cast<NMHDR*>(lParam), result)) return result;
  if (message == WM_NCDESTROY) controls.Detach();
  return DefSubclassProc(window, message, wParam, lParam);
}

// Leaves all other messages to the window's procedure.
bool WindowControls::OnNotify(NMHDR& header, LRESULT& result) {
  if (header.code != LVN_GETDISPINFOW && header.code != LVN_ODFINDITEMW) return false;
  const auto found = rows_.find(static_cast<int>(header.idFrom));
  if (found == rows_.end()) return false;
  if (header.code == LVN_ODFINDITEMW) {
    result = FindRow(found->second, reinterpret_cast<const NMLVFINDITEMW&>(header));
  } else {
    FillCell(found->second, reinterpret_cast<NMLVDISPINFOW&>(header).item);
  }
  return true;
}

WString WindowControls::GetText(int control) const {
  return Ui::GetText(control == kWindowTitle ? window_ : Control(control));
}

void WindowControls::SetText(int control, const WString& text) {
  Ui::SetText(control == kWindowTitle ? window_ : Control(control), text);
}

void WindowControls::SelectEnd(int control) {
  const HWND field = EditFieldOf(Control(control));
  const auto end = SendMessageW(field, WM_GETTEXTLENGTH, 0, 0);
  SendMessageW(field, EM_SETSEL, static_cast<WPARAM>(end), end);
  SendMessageW(field, EM_SCROLLCARET, 0, 0);
}

bool WindowControls::IsChecked(int control) const {
  return SendMessageW(Control(control), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void WindowControls::SetChecked(int control, bool isChecked) {
  SendMessageW(Control(control), BM_SETCHECK, isChecked ? BST_CHECKED : BST_UNCHECKED, 0);
}

bool WindowControls::IsEnabled(int control) const { return IsWindowEnabled(Control(control)) != FALSE; }

void WindowControls::SetEnabled(int control, bool isEnabled) {
  Ui::EnableControl(window_, control, isEnabled);
}

void WindowControls::GiveFocus(int control) {
  if (const HWND window = Control(control))
    SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(window), TRUE);
}

void WindowControls::SetLines(int control, const std::vector<WString>& lines) {
  const HWND window = Control(control);
  if (IsPlainListBox(window)) return FillListBox(window, lines);
  Ui::FillHistory(window, lines);
}

int WindowControls::SelectedLine(int control) const {
  const HWND window = Control(control);
  // Without a selection the message returns -1, which is kNoLine.
  return window ? static_cast<int>(SendMessageW(window, LineMessagesOf(window).selected, 0, 0)) : kNoLine;
}

void WindowControls::SelectLine(int control, int line) {
  const HWND window = Control(control);
  SendMessageW(window, LineMessagesOf(window).select, static_cast<WPARAM>(line), 0);
}

void WindowControls::SetColumns(int control, std::span<const TableColumn> columns) {
  const HWND list = Control(control);
  constexpr DWORD kExtended = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP;
  SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, kExtended, kExtended);
  while (SendMessageW(list, LVM_DELETECOLUMN, 0, 0)) continue;
  const int scale = PixelsOfAnInch(list);
  int index = 0;
  for (const TableColumn& column : columns) {
    LVCOLUMNW made = {};
    made.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
    made.cx = MulDiv(column.width, scale, USER_DEFAULT_SCREEN_DPI);
    made.pszText = const_cast<WCHAR*>(column.heading.c_str());
    made.iSubItem = index;
    SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index++), reinterpret_cast<LPARAM>(&made));
  }
}

void WindowControls::SetRows(int control, const TableRows& rows) {
  const HWND list = Control(control);
  if (!list) return;
  // The list stores the state of rows by their position and would apply it to the new rows.
  SetRowState(list, -1, 0);
  SendMessageW(list, LVM_SETSELECTIONMARK, 0, kNoLine);
  SendMessageW(list, LVM_SETITEMCOUNT, 0, 0);
  rows_[control] = rows;
  SendMessageW(list, LVM_SETITEMCOUNT, rows.size(), 0);
  InvalidateRect(list, nullptr, TRUE);
}

int WindowControls::MarkedRow(int control) const {
  const HWND list = Control(control);
  return list ? static_cast<int>(SendMessageW(list, LVM_GETSELECTIONMARK, 0, 0)) : kNoLine;
}

void WindowControls::SelectRow(int control, int row) {
  const HWND list = Control(control);
  const auto count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
  if (row < 0 || row >= count) return;
  SetRowState(list, row, LVIS_SELECTED | LVIS_FOCUSED);
  SendMessageW(list, LVM_SETSELECTIONMARK, 0, row);
  SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

int WindowControls::ShowBox(const WString& title, const WString& text, UINT style) {
  return MessageBoxW(window_ ? GetAncestor(window_, GA_ROOT) : nullptr, text.c_str(), title.c_str(), style);
}

}  // namespace Velmora::SDK
