// Pop-up menus of dialogs.
#pragma once

#include <optional>
#include <vector>

#include "platform/text.h"

namespace Ui {

// Shows a menu of these texts at the mouse pointer and waits until it closes. Returns the index of the chosen
// text; std::nullopt if none was chosen.
std::optional<std::size_t> ChooseFromMenu(HWND owner, const std::vector<WString>& texts);

// One entry of a menu. An entry with the number 0 is a separator.
struct MenuRow {
  int number;
  WString text;
};

// Shows a menu at a position of the screen and waits until it closes. Returns the number of the chosen entry;
// 0 if none was chosen. If `button`, a rectangle in screen coordinates, is not null, the menu does not cover
// it as long as there is room above or below it.
int ShowMenuAt(HWND owner, POINT position, const std::vector<MenuRow>& rows, const RECT* button = nullptr);

}  // namespace Ui
