// The lines of a popup menu of the window.
#pragma once

#include <vector>

#include "platform/text.h"

namespace Velmora::SDK {

// A line with number 0 is a separator.
struct MenuLine {
  int number;
  WString text;
};
using MenuLines = std::vector<MenuLine>;

// The result of a menu that is closed without a choice.
constexpr int kNoMenuLine = 0;

}  // namespace Velmora::SDK
