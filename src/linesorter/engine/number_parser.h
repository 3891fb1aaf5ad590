// White space and decimal numbers in text, as isspace, strtoll, strtol and their wide forms read them on
// Windows, with ASCII's digits alone: white space is skipped, a sign is allowed, digits are taken up to the
// first other character. Texts have no length; they end at a zero character at the latest.
#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "platform/text.h"

namespace WQLineSorter {

// As isspace and iswspace in the "C" locale of Windows.
template <typename CharT>
bool IsSpace(CharT character);

// Reads numbers in a text again and again, from one place after the other. It remembers the long runs of
// white space and of digits: where thousands of empty lines lead on to the same number, each of them would go
// all the way otherwise. The text must not change as long as the reader lives.
template <typename CharT>
class NumberReader {
 public:
  // The first character at or after `text` that is no white space.
  const CharT* SkipSpaces(const CharT* text);

  // Returns the value, cut at the limits of Number, and 0 without a digit. Sets `*end` after the last digit,
  // or to `text` without one. Number is std::int64_t for strtoll and std::int32_t for Windows' strtol.
  template <typename Number>
  Number Read(const CharT* text, const CharT** end) {
    using Limits = std::numeric_limits<Number>;
    const std::int64_t value = ReadLong(text, end);
    if (value < Limits::min()) return Limits::min();
    return value > Limits::max() ? Limits::max() : static_cast<Number>(value);
  }

 private:
  struct Run {
    const CharT* begin;
    const CharT* end;
    std::int64_t value;  // of digits, below zero
  };

  std::int64_t ReadLong(const CharT* text, const CharT** end);
  // The value of the digits at `text`, below zero, where there is room for one more.
  std::int64_t ReadDigits(const CharT* text, const CharT** end);

  std::vector<Run> spaces_;  // in the order of their places
  std::vector<Run> digits_;
};

// One number, as NumberReader::Read.
template <typename Number, typename CharT>
Number ParseNumber(const CharT* text, const CharT** end) {
  return NumberReader<CharT>().template Read<Number>(text, end);
}

}  // namespace WQLineSorter
