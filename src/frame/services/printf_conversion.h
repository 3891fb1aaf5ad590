// Parses and formats the conversions of printf formats. The formats are untrusted input, so they are never
// passed to printf.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/text.h"

// One conversion of a format, from its percent sign to its letter.
struct PrintfConversion {
  bool leftAligned = false;
  bool zeroFilled = false;
  bool plusSign = false;
  bool blankSign = false;
  bool alternateForm = false;  // prefix 0x before a hexadecimal number
  std::size_t width = 0;
  std::size_t precision = 1;  // of a number, the least number of digits; of a text, the most characters
  bool hasPrecision = false;
  WStringView length;  // the length modifier, such as l, ll or I64
  WCHAR letter = 0;
  std::size_t size = 0;  // length of the conversion in characters; 0 if it is invalid
};

// Parses the conversion at the beginning of `text`, which begins with a percent sign. The result has size 0
// if its letter is not one of `letters`, or its width or precision is above 1024.
PrintfConversion ReadPrintfConversion(WStringView text, WStringView letters);

// Appends an integer, formatted according to the letter: d, i, u, o, x or X. `magnitude` is its absolute
// value.
void AppendPrintfInteger(WString& result, const PrintfConversion& conversion, bool isNegative,
                         std::uint64_t magnitude);

// Appends a text, truncated to the precision and padded with blanks to the width.
void AppendPrintfText(WString& result, const PrintfConversion& conversion, WStringView text);
