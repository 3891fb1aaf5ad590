// Parses the number at the beginning of untrusted text.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

#include "platform/text.h"

namespace Velmora::SDK {

// Returns the decimal number at the beginning of `text`, after optional white space and a sign; ignores the
// text after it. Returns 0 if there is no number; clamps a number that does not fit to the largest or
// smallest value.
inline std::int32_t LeadingNumber(WStringView text) {
  const std::size_t begin = text.find_first_not_of(W(" \t\n\v\f\r"));
  if (begin == WStringView::npos) return 0;
  text.remove_prefix(begin);
  const bool isNegative = text.front() == W('-');
  if (isNegative || text.front() == W('+')) text.remove_prefix(1);
  constexpr std::int64_t kSaturated = std::int64_t{1} << 32;
  std::int64_t number = 0;
  for (const WCHAR character : text) {
    if (character < W('0') || character > W('9')) break;
    number = std::min(number * 10 + (character - W('0')), kSaturated);
  }
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(
      std::clamp<std::int64_t>(isNegative ? -number : number, Limits::min(), Limits::max()));
}

}  // namespace Velmora::SDK
