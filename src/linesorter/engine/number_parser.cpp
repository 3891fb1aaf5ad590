#include "linesorter/engine/number_parser.h"

#include <algorithm>
#include <cstddef>

namespace WQLineSorter {

namespace {

// White space outside ASCII, for wide text.
constexpr std::uint16_t kWideSpaces[] = {0x0085, 0x00A0, 0x1680, 0x2000, 0x2001, 0x2002, 0x2003,
                                         0x2004, 0x2005, 0x2006, 0x2007, 0x2008, 0x2009, 0x200A,
                                         0x2028, 0x2029, 0x202F, 0x205F, 0x3000};

// The minimum length of the runs that are remembered.
constexpr std::ptrdiff_t kLongRun = 16;

// The maximum number of remembered runs of white space, which is more than a block can have.
constexpr std::size_t kMaxRuns = 4096;

template <typename CharT>
bool IsDigit(CharT character) {
  return character >= '0' && character <= '9';
}

}  // namespace

template <typename CharT>
bool IsSpace(CharT character) {
  if (character == ' ' || (character >= '\t' && character <= '\r')) return true;
  if constexpr (sizeof(CharT) == 1) {
    return false;
  } else {
    return character > 0x7F && std::ranges::binary_search(kWideSpaces, static_cast<std::uint16_t>(character));
  }
}

template <typename CharT>
const CharT* NumberReader<CharT>::SkipSpaces(const CharT* text) {
  const CharT* p = text;
  while (IsSpace(*p)) {
    ++p;
    if ((p - text) % kLongRun != 0) continue;
    const auto after = std::ranges::upper_bound(spaces_, p, {}, &Run::begin);
    if (after != spaces_.begin() && p < std::prev(after)->end) return std::prev(after)->end;
  }
  if (p - text >= kLongRun) {
    if (spaces_.size() == kMaxRuns) spaces_.clear();
    spaces_.insert(std::ranges::upper_bound(spaces_, text, {}, &Run::begin), {text, p, 0});
  }
  return p;
}

template <typename CharT>
std::int64_t NumberReader<CharT>::ReadLong(const CharT* text, const CharT** end) {
  using Limits = std::numeric_limits<std::int64_t>;
  const CharT* p = SkipSpaces(text);
  const bool isNegative = *p == '-';
  if (isNegative || *p == '+') ++p;
  *end = text;
  if (!IsDigit(*p)) return 0;
  const std::int64_t value = ReadDigits(p, end);
  if (isNegative) return value;
  return value == Limits::min() ? Limits::max() : -value;
}

template <typename CharT>
std::int64_t NumberReader<CharT>::ReadDigits(const CharT* text, const CharT** end) {
  constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();
  std::int64_t value = 0;
  const CharT* p = text;
  for (; IsDigit(*p); ++p) {
    const auto digit = static_cast<std::int64_t>(*p - '0');
    value = value < (kMin + digit) / 10 ? kMin : value * 10 - digit;
    if (p - text != kLongRun) continue;
    const auto known = std::ranges::find(digits_, text, &Run::begin);
    if (known == digits_.end()) continue;
    *end = known->end;
    return known->value;
  }
  if (p - text > kLongRun) {
    // Only recent runs are needed, since white space leads to the digits that follow it.
    constexpr std::size_t kMax = 64;
    if (digits_.size() == kMax) digits_.erase(digits_.begin());
    digits_.push_back({text, p, value});
  }
  *end = p;
  return value;
}

template bool IsSpace(char);
template bool IsSpace(WCHAR);
template class NumberReader<char>;
template class NumberReader<WCHAR>;

}  // namespace WQLineSorter
