// Menus that a dialog opens for one choice.
#pragma once

#include <optional>
#include <vector>

#include "platform/text.h"

namespace Ui {

// Opens a menu of these texts at the mouse and waits for the choice: the number of the text, from 0. Nothing
// if the menu was left without a choice.
std::optional<std::size_t> ChooseFromMenu(HWND owner, const std::vector<WString>& texts);

// A line of a menu. Number 0 is a separator.
struct MenuRow {
  int number;
  WString text;
};

// The same with lines that have numbers of their own, at a position of the screen; 0 without a choice. The
// menu leaves `button`, a rectangle of the screen, free where the monitor has room above or below it; null
// for no such rectangle.
int ShowMenuAt(HWND owner, POINT position, const std::vector<MenuRow>& rows, const RECT* button = nullptr);

}  // namespace Ui
