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
  const PopupMenu menu;
  // 0 is what the system answers for no choice.
  UINT_PTR command = 0;
  for (const WString& text : texts) AppendMenuW(menu.Get(), MF_STRING, ++command, text.c_str());
  POINT mouse = {};
  GetCursorPos(&mouse);
  constexpr UINT kFlags = TPM_LEFTALIGN | TPM_TOPALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD;
  const BOOL chosen = TrackPopupMenu(menu.Get(), kFlags, mouse.x, mouse.y, 0, owner, nullptr);
  if (chosen <= 0) return std::nullopt;
  return static_cast<std::size_t>(chosen) - 1;
}

}  // namespace Ui
