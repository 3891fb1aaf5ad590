// Lines of a menu that the window opens for one choice.
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

// What a menu returns that was left without a choice.
constexpr int kNoMenuLine = 0;

}  // namespace Velmora::SDK
