// Parses white space and decimal numbers as isspace, strtoll, strtol and their wide forms do on Windows, with
// the digits of ASCII only: skips white space, accepts a sign, and reads digits up to the first other
// character. Texts have no length; they must end with a zero character.
#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "platform/text.h"

namespace WQLineSorter {

// Like isspace and iswspace in the "C" locale of Windows.
template <typename CharT>
bool IsSpace(CharT character);

// Reads many numbers from one text, at one position after the other. Remembers long runs of white space and
// of digits: otherwise, if thousands of empty lines are followed by a number, each of them would be scanned
// up to that number again. The text must not change during the lifetime of the reader.
template <typename CharT>
class NumberReader {
 public:
  // Returns the first character at or after `text` that is not white space.
  const CharT* SkipSpaces(const CharT* text);

  // Returns the value, clamped to the limits of Number, or 0 if there is no digit. Sets `*end` to the
  // character after the last digit, or to `text` without a digit. Number is std::int64_t for strtoll and
  // std::int32_t for strtol on Windows.
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
    std::int64_t value;  // the negated value of a run of digits
  };

  std::int64_t ReadLong(const CharT* text, const CharT** end);
  // Returns the negated value of the digits at `text`. Negative numbers have room for one value more.
  std::int64_t ReadDigits(const CharT* text, const CharT** end);

  std::vector<Run> spaces_;  // sorted by `begin`
  std::vector<Run> digits_;
};

// Reads one number like NumberReader::Read.
template <typename Number, typename CharT>
Number ParseNumber(const CharT* text, const CharT** end) {
  return NumberReader<CharT>().template Read<Number>(text, end);
}

}  // namespace WQLineSorter
