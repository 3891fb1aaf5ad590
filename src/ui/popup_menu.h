// Menus that a dialog opens for one choice.
#pragma once

#include <optional>
#include <vector>

#include "platform/text.h"

namespace Ui {

// Opens a menu of these texts at the mouse and waits for the choice: the number of the text, from 0. Nothing
// if the menu was left without a choice.
std::optional<std::size_t> ChooseFromMenu(HWND owner, const std::vector<WString>& texts);

}  // namespace Ui
