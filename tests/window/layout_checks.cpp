#include "window/layout_checks.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <vector>

#include "ui/controls.h"
#include "window/dialog_controls.h"

namespace {

std::vector<HWND> ControlsOf(HWND dialog) {
  std::vector<HWND> controls;
  for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    controls.push_back(child);
  }
  return controls;
}

RECT AreaOf(HWND control) {
  RECT area = {};
  GetWindowRect(control, &area);
  MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&area), 2);
  return area;
}

WString ClassOf(HWND control) {
  WCHAR name[64] = {};
  GetClassNameW(control, name, 64);
  return name;
}

// Measures with the control's font, which is selected for the duration of the call.
SIZE MeasureText(HWND control, const WString& text, LONG width, UINT format) {
  const HDC dc = GetDC(control);
  const auto font = reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0));
  const HGDIOBJ before = SelectObject(dc, font);
  RECT area = {0, 0, width, 0};
  DrawTextW(dc, text.c_str(), -1, &area, format | DT_CALCRECT);
  SelectObject(dc, before);
  ReleaseDC(control, dc);
  return {area.right, area.bottom};
}

// Labels wrap at blanks; a word that is too wide is cut.
void ExpectLabelFits(HWND label) {
  RECT room = {};
  GetClientRect(label, &room);
  const bool noPrefix = (GetWindowLongW(label, GWL_STYLE) & SS_NOPREFIX) != 0;
  const UINT format = DT_WORDBREAK | DT_EXPANDTABS | (noPrefix ? DT_NOPREFIX : 0U);
  const SIZE needed = MeasureText(label, Ui::GetText(label), room.right, format);
  EXPECT_LE(needed.cx, room.right) << "label " << GetDlgCtrlID(label);
  EXPECT_LE(needed.cy, room.bottom) << "label " << GetDlgCtrlID(label);
}

// Returns whether a label is only the name of its field for screen readers.
bool IsHiddenName(HWND control) {
  return ClassOf(control) == L"Static" && (GetWindowLongW(control, GWL_STYLE) & WS_VISIBLE) == 0;
}

LONG ButtonTypeOf(HWND button) { return GetWindowLongW(button, GWL_STYLE) & BS_TYPEMASK; }

bool IsGroupBox(HWND control) {
  return ClassOf(control) == L"Button" && ButtonTypeOf(control) == BS_GROUPBOX;
}

bool HasMarkNextToItsText(HWND button) {
  const LONG type = ButtonTypeOf(button);
  return type == BS_AUTOCHECKBOX || type == BS_AUTORADIOBUTTON;
}

void ExpectButtonFits(HWND button) {
  RECT room = {};
  GetClientRect(button, &room);
  const SIZE needed = MeasureText(button, Ui::GetText(button), 0, DT_SINGLELINE);
  if (HasMarkNextToItsText(button)) {
    const LONG mark = GetSystemMetrics(SM_CXMENUCHECK) + 2 * GetSystemMetrics(SM_CXEDGE);
    EXPECT_LE(needed.cx + mark, room.right) << "box " << GetDlgCtrlID(button);
    EXPECT_LE(needed.cy, room.bottom) << "box " << GetDlgCtrlID(button);
    return;
  }
  // The frame and the focus rectangle need space too.
  const LONG border = 2 * (GetSystemMetrics(SM_CXEDGE) + 2);
  EXPECT_LE(needed.cx + border, room.right) << "button " << GetDlgCtrlID(button);
  EXPECT_LE(needed.cy + border, room.bottom) << "button " << GetDlgCtrlID(button);
}

void ExpectComboBoxFits(HWND combo) {
  COMBOBOXINFO info = {};
  info.cbSize = sizeof(info);
  ASSERT_TRUE(GetComboBoxInfo(combo, &info));
  const bool editable = info.hwndItem && info.hwndItem != combo;
  const LONG width = info.rcItem.right - info.rcItem.left;
  const LONG height = info.rcItem.bottom - info.rcItem.top;
  const LRESULT count = SendMessageW(combo, CB_GETCOUNT, 0, 0);
  for (LRESULT row = 0; !editable && row < count; ++row) {
    const auto index = static_cast<WPARAM>(row);
    WString text(static_cast<std::size_t>(SendMessageW(combo, CB_GETLBTEXTLEN, index, 0)) + 1, WCHAR());
    SendMessageW(combo, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()));
    const SIZE needed = MeasureText(combo, text.c_str(), 0, DT_SINGLELINE | DT_NOPREFIX);
    EXPECT_LE(needed.cx, width) << "row " << row << " of combo box " << GetDlgCtrlID(combo);
    EXPECT_LE(needed.cy, height) << "row " << row << " of combo box " << GetDlgCtrlID(combo);
  }
  const WString hint = CueBannerOf(GetParent(combo), GetDlgCtrlID(combo));
  const SIZE needed = MeasureText(combo, hint, 0, DT_SINGLELINE | DT_NOPREFIX);
  EXPECT_LE(needed.cx, width) << "hint of combo box " << GetDlgCtrlID(combo);
}

// Checks the hint of an empty edit control.
void ExpectHintFits(HWND edit) {
  RECT room = {};
  SendMessageW(edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&room));
  const WString hint = CueBannerOf(GetParent(edit), GetDlgCtrlID(edit));
  const SIZE needed = MeasureText(edit, hint, 0, DT_SINGLELINE | DT_NOPREFIX);
  EXPECT_LE(needed.cx, room.right - room.left) << "hint of edit control " << GetDlgCtrlID(edit);
}

void ExpectTitleFits(HWND dialog) {
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof(metrics);
  ASSERT_TRUE(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0));
  const HFONT font = CreateFontIndirectW(&metrics.lfCaptionFont);
  const HDC dc = GetDC(dialog);
  const HGDIOBJ before = SelectObject(dc, font);
  const WString title = Ui::GetText(dialog);
  RECT needed = {};
  DrawTextW(dc, title.c_str(), -1, &needed, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX);
  SelectObject(dc, before);
  ReleaseDC(dialog, dc);
  DeleteObject(font);
  RECT area = {};
  GetWindowRect(dialog, &area);
  // The title bar also contains the close button and, at most, an icon.
  const LONG taken = 2 * metrics.iCaptionWidth + 4 * GetSystemMetrics(SM_CXFIXEDFRAME);
  EXPECT_LE(needed.right, area.right - area.left - taken) << "title";
}

bool IsField(HWND control) {
  const WString name = control ? ClassOf(control) : WString();
  const bool hasName = name == L"Edit" || name == L"ComboBox" || name == L"ListBox" || name == WC_LISTVIEWW;
  return hasName && (GetWindowLongW(control, GWL_STYLE) & WS_TABSTOP) != 0;
}

// Returns whether a control's text is the name of the next field, for screen readers and access keys.
bool CanName(HWND control) { return ClassOf(control) == L"Static" || IsGroupBox(control); }

HWND NextOf(HWND control) { return GetWindow(control, GW_HWNDNEXT); }

// Returns the upper-case character after the first single ampersand, or 0 if not found.
WCHAR AccessKeyOf(const WString& text) {
  for (std::size_t at = 0; at + 1 < text.size(); ++at) {
    if (text[at] != L'&') continue;
    if (text[at + 1] != L'&') return static_cast<WCHAR>(towupper(text[at + 1]));
    ++at;
  }
  return 0;
}

// Returns the access key of a control; 0 if the control shows ampersands as plain characters.
WCHAR AccessKeyOf(HWND control) {
  const bool isPlain =
      ClassOf(control) == L"Static" && (GetWindowLongW(control, GWL_STYLE) & SS_NOPREFIX) != 0;
  return isPlain ? WCHAR() : AccessKeyOf(Ui::GetText(control));
}

}  // namespace

RECT AreaOf(HWND dialog, int control) { return AreaOf(GetDlgItem(dialog, control)); }

void ExpectControlsInsideClientArea(HWND dialog) {
  RECT client = {};
  GetClientRect(dialog, &client);
  for (const HWND control : ControlsOf(dialog)) {
    const RECT area = AreaOf(control);
    EXPECT_TRUE(area.left >= 0 && area.top >= 0 && area.right <= client.right && area.bottom <= client.bottom)
        << "control " << GetDlgCtrlID(control);
  }
}

void ExpectNoControlsOverlap(HWND dialog) {
  std::vector<HWND> controls = ControlsOf(dialog);
  std::erase_if(controls, IsHiddenName);
  for (std::size_t first = 0; first < controls.size(); ++first) {
    for (std::size_t second = first + 1; second < controls.size(); ++second) {
      const RECT one = AreaOf(controls[first]);
      const RECT other = AreaOf(controls[second]);
      RECT common = {};
      // A group box contains its controls completely.
      if (IsGroupBox(controls[first]) && IntersectRect(&common, &one, &other) && EqualRect(&common, &other)) {
        continue;
      }
      EXPECT_FALSE(IntersectRect(&common, &one, &other))
          << "controls " << GetDlgCtrlID(controls[first]) << " and " << GetDlgCtrlID(controls[second]);
    }
  }
}

void ExpectLabelsAndButtonsFit(HWND dialog) {
  for (const HWND control : ControlsOf(dialog)) {
    const WString name = ClassOf(control);
    if (name == L"Static") ExpectLabelFits(control);
    if (name == L"Button") ExpectButtonFits(control);
  }
}

void ExpectNoTextCutOff(HWND dialog) {
  ExpectTitleFits(dialog);
  ExpectLabelsAndButtonsFit(dialog);
  for (const HWND control : ControlsOf(dialog)) {
    const WString name = ClassOf(control);
    if (name == L"ComboBox") ExpectComboBoxFits(control);
    if (name == L"Edit") ExpectHintFits(control);
  }
}

void ExpectAccessKeysDiffer(HWND dialog) {
  std::map<WCHAR, int> taken;
  for (const HWND control : ControlsOf(dialog)) {
    const WCHAR key = AccessKeyOf(control);
    if (!key) continue;
    const auto [place, isNew] = taken.emplace(key, GetDlgCtrlID(control));
    EXPECT_TRUE(isNew) << "controls " << place->second << " and " << GetDlgCtrlID(control);
    if (CanName(control)) {
      EXPECT_TRUE(IsField(NextOf(control))) << "label " << GetDlgCtrlID(control);
    }
  }
}

void ExpectEachLabelHasAnAccessKey(HWND dialog, const std::set<int>& except) {
  for (const HWND control : ControlsOf(dialog)) {
    if (except.contains(GetDlgCtrlID(control)) || Ui::GetText(control).empty()) continue;
    const bool isLabel = CanName(control) && IsField(NextOf(control));
    const bool isButton = ClassOf(control) == L"Button" && !IsGroupBox(control);
    if (isLabel || isButton) {
      EXPECT_NE(AccessKeyOf(control), 0) << "control " << GetDlgCtrlID(control);
    }
  }
}

void ExpectFieldsHaveNames(HWND dialog, const std::set<int>& except) {
  for (const HWND control : ControlsOf(dialog)) {
    if (!IsField(control) || except.contains(GetDlgCtrlID(control))) continue;
    const HWND label = GetWindow(control, GW_HWNDPREV);
    ASSERT_NE(label, nullptr) << "field " << GetDlgCtrlID(control);
    EXPECT_TRUE(CanName(label)) << "field " << GetDlgCtrlID(control);
    EXPECT_FALSE(Ui::GetText(label).empty()) << "label " << GetDlgCtrlID(label);
    EXPECT_TRUE(IsWindowVisible(label)) << "label " << GetDlgCtrlID(label);
  }
}

void ExpectLayoutHolds(HWND dialog, const std::set<int>& withoutName) {
  ExpectControlsInsideClientArea(dialog);
  ExpectNoControlsOverlap(dialog);
  ExpectNoTextCutOff(dialog);
  ExpectAccessKeysDiffer(dialog);
  ExpectFieldsHaveNames(dialog, withoutName);
}

void ExpectCenteredOver(HWND dialog, HWND owner) {
  RECT area = {};
  RECT base = {};
  GetWindowRect(dialog, &area);
  GetWindowRect(owner, &base);
  EXPECT_LE(std::abs((area.left + area.right) - (base.left + base.right)), 1);
  EXPECT_LE(std::abs((area.top + area.bottom) - (base.top + base.bottom)), 1);
}
