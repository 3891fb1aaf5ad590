// Conversions of printf formats, read and filled without a printf: such a format may come from outside and be
// anything.
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
  bool alternateForm = false;  // 0x before a hexadecimal number
  std::size_t width = 0;
  std::size_t precision = 1;  // digits at least; of a text, characters at most
  bool hasPrecision = false;
  WStringView length;  // the length words as they are: l, ll, I64 and the like
  WCHAR letter = 0;
  std::size_t size = 0;  // characters of the conversion; 0 if there is none
};

// Reads the conversion at the beginning of `text`, which begins with a percent sign. There is none if its
// letter is not one of `letters`, or if its width or precision is larger than 1024.
PrintfConversion ReadPrintfConversion(WStringView text, WStringView letters);

// Appends an integer as the letter says: d, i, u, o, x or X. `magnitude` is without the sign.
void AppendPrintfInteger(WString& result, const PrintfConversion& conversion, bool isNegative,
                         std::uint64_t magnitude);

// Appends a text, cut at the precision and filled to the width with blanks.
void AppendPrintfText(WString& result, const PrintfConversion& conversion, WStringView text);
