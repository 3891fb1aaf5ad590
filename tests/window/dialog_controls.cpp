#include "window/dialog_controls.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include "window/modal_driver.h"

namespace {

constexpr std::size_t kLongestWalk = 200;

HWND WindowOf(HWND dialog, int control) { return control == kTitle ? dialog : GetDlgItem(dialog, control); }

LRESULT Send(HWND dialog, int control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  return SendMessageW(WindowOf(dialog, control), message, wParam, lParam);
}

LRESULT SendBuffer(HWND dialog, int control, UINT message, WPARAM wParam, WCHAR* buffer) {
  return Send(dialog, control, message, wParam, reinterpret_cast<LPARAM>(buffer));
}

// Calls `read` for each row of a combo box, in order, and returns the results.
template <typename Read>
auto ReadRows(HWND dialog, int control, Read read) {
  std::vector<decltype(read(WPARAM()))> rows;
  const LRESULT count = Send(dialog, control, CB_GETCOUNT);
  for (LRESULT row = 0; row < count; ++row) rows.push_back(read(static_cast<WPARAM>(row)));
  return rows;
}

}  // namespace

WString TextOf(HWND dialog, int control) {
  WString text(static_cast<std::size_t>(Send(dialog, control, WM_GETTEXTLENGTH)) + 1, W('\0'));
  const LRESULT length = SendBuffer(dialog, control, WM_GETTEXT, text.size(), text.data());
  text.resize(static_cast<std::size_t>(length));
  return text;
}

WString CueBannerOf(HWND dialog, int control) {
  const HWND window = GetDlgItem(dialog, control);
  WCHAR text[512] = {};
  const auto buffer = reinterpret_cast<WPARAM>(text);
  // If the combo box does not support the message, its edit field does.
  if (SendMessageW(window, CB_GETCUEBANNER, buffer, 512)) return text;
  COMBOBOXINFO info = {};
  info.cbSize = sizeof(info);
  const HWND field = GetComboBoxInfo(window, &info) ? info.hwndItem : window;
  if (info.hwndCombo != field) SendMessageW(field, EM_GETCUEBANNER, buffer, 512);
  return text;
}

bool IsEnabled(HWND dialog, int control) { return IsWindowEnabled(GetDlgItem(dialog, control)) != FALSE; }

bool IsChecked(HWND dialog, int control) {
  return IsDlgButtonChecked(dialog, control) == static_cast<UINT>(BST_CHECKED);
}

std::vector<WString> RowsOf(HWND dialog, int control) {
  return ReadRows(dialog, control, [&](WPARAM row) {
    WString text(static_cast<std::size_t>(Send(dialog, control, CB_GETLBTEXTLEN, row)) + 1, W('\0'));
    text.resize(static_cast<std::size_t>(SendBuffer(dialog, control, CB_GETLBTEXT, row, text.data())));
    return text;
  });
}

std::vector<int> RowDataOf(HWND dialog, int control) {
  return ReadRows(dialog, control,
                  [&](WPARAM row) { return static_cast<int>(Send(dialog, control, CB_GETITEMDATA, row)); });
}

int SelectedRow(HWND dialog, int control) { return static_cast<int>(Send(dialog, control, CB_GETCURSEL)); }

void Focus(HWND dialog, int control) {
  SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(dialog, control)), TRUE);
  Pump(dialog);
}

void EnterText(HWND dialog, int control, const WString& text) {
  Focus(dialog, control);
  Send(dialog, control, EM_SETSEL, 0, -1);
  if (text.empty()) return PressKey(dialog, VK_DELETE);
  TypeText(dialog, text);
}

void PasteText(HWND dialog, int control, const WString& text) {
  Send(dialog, control, EM_SETSEL, 0, -1);
  Send(dialog, control, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

void SendText(HWND dialog, int control, const WString& text) {
  Send(dialog, control, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void PressAtOnce(HWND dialog, int button) {
  SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
               reinterpret_cast<LPARAM>(GetDlgItem(dialog, button)));
}

void PressCloseButton(HWND dialog) {
  PostMessageW(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
  Pump(dialog);
}

std::vector<int> WalkByTab(HWND dialog) {
  std::vector<int> walk = {FocusedControl(dialog)};
  for (PressKey(dialog, VK_TAB); FocusedControl(dialog) != walk.front(); PressKey(dialog, VK_TAB)) {
    walk.push_back(FocusedControl(dialog));
    if (walk.size() == kLongestWalk) {
      ADD_FAILURE() << "the tab key does not come back to control " << walk.front();
      break;
    }
  }
  return walk;
}

void ExpectOwnedBy(HWND dialog, HWND owner) {
  EXPECT_EQ(GetWindow(dialog, GW_OWNER), owner);
  EXPECT_FALSE(IsWindowEnabled(owner));
}
