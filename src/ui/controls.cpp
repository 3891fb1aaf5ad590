#include "ui/controls.h"

#include <commctrl.h>

#include <algorithm>

namespace Ui {

namespace {

LPARAM Pointer(const WCHAR* text) { return reinterpret_cast<LPARAM>(text); }

// Returns the text of `id`, and the empty text instead of null, which has another meaning for some messages.
const WCHAR* TextOf(const TextSource& texts, std::uint32_t id) {
  const WCHAR* text = texts(id);
  return text ? text : W("");
}

HWND Find(HWND dialog, int control) { return control == kTitle ? dialog : GetDlgItem(dialog, control); }

// Makes the drop-down list as wide as its longest row, up to the width of the work area, so that long names
// that the field truncates are readable in the list.
void FitList(HWND combo, int longestRow) {
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof(monitor);
  if (!GetMonitorInfoW(MonitorFromWindow(combo, MONITOR_DEFAULTTONEAREST), &monitor)) return;
  const int room = monitor.rcWork.right - monitor.rcWork.left;
  const int frame = GetSystemMetrics(SM_CXVSCROLL) + 4 * GetSystemMetrics(SM_CXEDGE);
  const int width = std::min(longestRow + frame, room);
  SendMessageW(combo, CB_SETDROPPEDWIDTH, static_cast<WPARAM>(width), 0);
}

// Removes DLGC_HASSETSEL from the control's reply to WM_GETDLGCODE: the dialog manager selects all text of
// controls that report it.
LRESULT CALLBACK KeepingSelection(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                  DWORD_PTR) {
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, KeepingSelection, id);
  const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
  return message == WM_GETDLGCODE ? result & ~LRESULT{DLGC_HASSETSEL} : result;
}

}  // namespace

WString GetText(HWND control) {
  const LRESULT length = SendMessageW(control, WM_GETTEXTLENGTH, 0, 0);
  if (length <= 0) return {};
  WString text(static_cast<std::size_t>(length) + 1, WCHAR());
  // WM_GETTEXTLENGTH may return more than the text's length, so use the count that WM_GETTEXT returns.
  const LRESULT copied =
      SendMessageW(control, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(std::clamp<LRESULT>(copied, 0, length)));
  return text;
}

void SetText(HWND control, const WString& text) {
  SendMessageW(control, WM_SETTEXT, 0, Pointer(text.c_str()));
}

void SetTexts(HWND dialog, std::span<const ControlText> rows, const TextSource& texts) {
  for (const ControlText& row : rows) {
    const WCHAR* const text = texts(row.text);
    if (text) SendMessageW(Find(dialog, row.control), WM_SETTEXT, 0, Pointer(text));
  }
}

void SetCueBanners(HWND dialog, std::span<const ControlText> rows, const TextSource& texts) {
  for (const ControlText& row : rows) {
    const HWND control = Find(dialog, row.control);
    const LPARAM text = Pointer(TextOf(texts, row.text));
    COMBOBOXINFO combo = {};
    combo.cbSize = sizeof(combo);
    if (!GetComboBoxInfo(control, &combo)) {
      SendMessageW(control, EM_SETCUEBANNER, FALSE, text);
    } else if (SendMessageW(control, CB_SETCUEBANNER, 0, text) != TRUE) {
      // Some systems support cue banners only in edit controls, such as the edit field of the combo box.
      SendMessageW(combo.hwndItem, EM_SETCUEBANNER, FALSE, text);
    }
  }
}

void FillComboBox(HWND combo, std::span<const ComboRow> rows, const TextSource& texts) {
  SendMessageW(combo, CB_RESETCONTENT, 0, 0);
  int longest = 0;
  for (const ComboRow& row : rows) {
    const WString text = TextOf(texts, row.text);
    const LRESULT index = SendMessageW(combo, CB_ADDSTRING, 0, Pointer(text.c_str()));
    if (index < 0) return;
    SendMessageW(combo, CB_SETITEMDATA, static_cast<WPARAM>(index), row.data);
    longest = std::max(longest, TextWidth(combo, text));
  }
  FitList(combo, longest);
}

void FillHistory(HWND combo, const std::vector<WString>& strings) {
  const WString edited = GetText(combo);
  SendMessageW(combo, CB_RESETCONTENT, 0, 0);
  int longest = 0;
  for (const WString& text : strings) {
    if (SendMessageW(combo, CB_ADDSTRING, 0, Pointer(text.c_str())) < 0) break;
    longest = std::max(longest, TextWidth(combo, text));
  }
  SetText(combo, edited);
  FitList(combo, longest);
}

int SelectedData(HWND combo) {
  const LRESULT index = SendMessageW(combo, CB_GETCURSEL, 0, 0);
  if (index == CB_ERR) return kNoRow;
  return static_cast<int>(SendMessageW(combo, CB_GETITEMDATA, static_cast<WPARAM>(index), 0));
}

void SelectData(HWND combo, int data) {
  const LRESULT count = SendMessageW(combo, CB_GETCOUNT, 0, 0);
  LRESULT index = 0;
  while (index < count &&
         static_cast<int>(SendMessageW(combo, CB_GETITEMDATA, static_cast<WPARAM>(index), 0)) != data) {
    ++index;
  }
  SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(index < count ? index : CB_ERR), 0);
}

int MarkedRadio(HWND dialog, std::span<const RadioRow> rows) {
  for (const RadioRow& row : rows) {
    if (IsDlgButtonChecked(dialog, row.control) == BST_CHECKED) return row.data;
  }
  return kNoRow;
}

void MarkRadio(HWND dialog, std::span<const RadioRow> rows, int data) {
  for (const RadioRow& row : rows) {
    CheckDlgButton(dialog, row.control, row.data == data ? BST_CHECKED : BST_UNCHECKED);
  }
  // The tab key moves the focus to the checked button of a group; without one no button is a tab stop, so
  // make the first one a tab stop.
  if (rows.empty() || MarkedRadio(dialog, rows) != kNoRow) return;
  const HWND first = GetDlgItem(dialog, rows.front().control);
  if (first) SetWindowLongW(first, GWL_STYLE, GetWindowLongW(first, GWL_STYLE) | WS_TABSTOP);
}

void LimitTexts(HWND dialog, std::span<const TextLimit> rows) {
  for (const TextLimit& row : rows) {
    SendDlgItemMessageW(dialog, row.control, EM_SETLIMITTEXT, row.characters, 0);
  }
}

void KeepSelection(HWND edit) {
  constexpr UINT_PTR kId = 1;
  SetWindowSubclass(edit, KeepingSelection, kId, 0);
}

void UpdateText(HWND control, const WString& text) {
  if (GetText(control) != text) SetText(control, text);
}

void EnableControl(HWND dialog, int control, bool enabled) {
  const HWND window = GetDlgItem(dialog, control);
  if (!window) return;
  const HWND focus = GetFocus();
  if (!enabled && (focus == window || IsChild(window, focus))) SendMessageW(dialog, WM_NEXTDLGCTL, 0, FALSE);
  EnableWindow(window, enabled);
}

int TextWidth(HWND control, const WString& text) {
  const HDC dc = GetDC(control);
  if (!dc) return 0;
  // A control without a font draws with the system font, which the device context has by default.
  const auto font = reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0));
  const HGDIOBJ before = font ? SelectObject(dc, font) : nullptr;
  RECT area = {};
  DrawTextW(dc, text.c_str(), -1, &area, DT_CALCRECT | DT_NOPREFIX);
  if (before) SelectObject(dc, before);
  ReleaseDC(control, dc);
  return area.right - area.left;
}

}  // namespace Ui
