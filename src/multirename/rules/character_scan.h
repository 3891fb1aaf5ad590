// Looking through a whole name for a few characters.
#pragma once

#include <cstdint>

#include "platform/text.h"

namespace Velmora::SDK {

// True if one of the characters is in the text. There is no way out of the loop, so that compilers make it
// look at many characters at once.
template <WCHAR... wanted>
bool HoldsAnyOf(WStringView text) {
  std::uint16_t found = 0;
  for (const WCHAR c : text) {
    const auto unit = static_cast<std::uint16_t>(c);
    found = static_cast<std::uint16_t>(
        found | (... | static_cast<std::uint16_t>(unit == static_cast<std::uint16_t>(wanted) ? 0xFFFF : 0)));
  }
  return found != 0;
}

}  // namespace Velmora::SDK
