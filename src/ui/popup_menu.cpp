#include "ui/popup_menu.h"

namespace Ui {

namespace {

class PopupMenu {
 public:
  PopupMenu() : menu_(CreatePopupMenu()) {}
  PopupMenu(const PopupMenu&) = delete;
  PopupMenu& operator=(const PopupMenu&) = delete;
  ~PopupMenu() {
    if (menu_) DestroyMenu(menu_);
  }
  HMENU Get() const { return menu_; }

 private:
  HMENU menu_;
};

}  // namespace

std::optional<std::size_t> ChooseFromMenu(HWND owner, const std::vector<WString>& texts) {
  std::vector<MenuRow> rows;
  for (const WString& text : texts) rows.push_back({static_cast<int>(rows.size()) + 1, text});
  POINT mouse = {};
  GetCursorPos(&mouse);
  const int chosen = ShowMenuAt(owner, mouse, rows);
  if (chosen <= 0) return std::nullopt;
  return static_cast<std::size_t>(chosen) - 1;
}

int ShowMenuAt(HWND owner, POINT position, const std::vector<MenuRow>& rows, const RECT* button) {
  const PopupMenu menu;
  for (const MenuRow& row : rows) {
    if (row.number == 0) {
      AppendMenuW(menu.Get(), MF_SEPARATOR, 0, nullptr);
    } else {
      AppendMenuW(menu.Get(), MF_STRING, static_cast<UINT_PTR>(row.number), row.text.c_str());
    }
  }
  constexpr UINT kFlags = TPM_LEFTALIGN | TPM_TOPALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD | TPM_VERTICAL;
  TPMPARAMS free = {};
  free.cbSize = sizeof(free);
  if (button) free.rcExclude = *button;
  return TrackPopupMenuEx(menu.Get(), kFlags, position.x, position.y, owner, button ? &free : nullptr);
}

}  // namespace Ui
