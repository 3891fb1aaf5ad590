#include "multirename/rules/padded_number.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace Velmora::SDK {

void AppendPadded(WString& text, s32 number, s64 width) {
  constexpr s64 kWidest = 1023;
  char digits[12];
  const char* const end = std::to_chars(digits, std::end(digits), number).ptr;
  const char* begin = digits;
  const s64 room = std::min(width < 0 ? -width : width, kWidest);
  const auto padding = static_cast<std::size_t>(std::max<s64>(room - (end - begin), 0));
  if (width > 0) {
    if (number < 0) text += static_cast<WCHAR>(*begin++);
    text.append(padding, W('0'));
  }
  text.append(begin, end);
  if (width < 0) text.append(padding, W(' '));
}

}  // namespace Velmora::SDK
