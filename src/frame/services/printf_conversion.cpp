#include "frame/services/printf_conversion.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "platform/ascii_case.h"

namespace {

// The largest width or precision that is accepted. A larger one is a mistake or an attack.
constexpr std::size_t kMaxWidth = 1024;

std::size_t SkipAnyOf(WStringView text, std::size_t at, WStringView set) {
  while (at < text.size() && set.find(text[at]) != WStringView::npos) ++at;
  return at;
}

// Reads the digits at position `at`, if any, and advances it. Returns false if the number is above
// kMaxWidth.
bool ReadWidth(WStringView text, std::size_t& at, std::size_t& number) {
  number = 0;
  for (; at < text.size() && text[at] >= W('0') && text[at] <= W('9'); ++at) {
    number = number * 10 + static_cast<std::size_t>(text[at] - W('0'));
    if (number > kMaxWidth) return false;
  }
  return true;
}

std::size_t SkipLength(WStringView text, std::size_t at) {
  for (const WStringView length : {W("I64"), W("I32"), W("I")}) {
    if (text.substr(at).starts_with(length)) return at + length.size();
  }
  return SkipAnyOf(text, at, W("hljztw"));
}

int BaseOf(const PrintfConversion& conversion) {
  switch (conversion.letter) {
    case W('x'):
    case W('X'):
      return 16;
    case W('o'):
      return 8;
    default:
      return 10;
  }
}

WString DigitsOf(const PrintfConversion& conversion, std::uint64_t magnitude) {
  std::array<char, 24> buffer;
  char* const begin = buffer.data();
  char* const end = std::to_chars(begin, begin + buffer.size(), magnitude, BaseOf(conversion)).ptr;
  WString digits(begin, end);
  if (magnitude == 0) digits.clear();  // the precision determines the number of zeros
  if (digits.size() < conversion.precision) digits.insert(0, conversion.precision - digits.size(), W('0'));
  if (conversion.letter == W('X')) {
    for (WCHAR& digit : digits) digit = AsciiUpper(digit);
  }
  if (conversion.letter == W('o') && conversion.alternateForm && !digits.starts_with(W('0'))) {
    digits.insert(0, 1, W('0'));
  }
  return digits;
}

// Returns the sign or prefix before the digits.
WString PrefixOf(const PrintfConversion& conversion, bool isNegative, std::uint64_t magnitude) {
  if (isNegative) return W("-");
  switch (conversion.letter) {
    case W('d'):
    case W('i'):
      if (conversion.plusSign) return W("+");
      return conversion.blankSign ? W(" ") : W("");
    case W('x'):
    case W('X'):
      if (conversion.alternateForm && magnitude != 0) return {W('0'), conversion.letter};
      return {};
    default:
      return {};
  }
}

}  // namespace

PrintfConversion ReadPrintfConversion(WStringView text, WStringView letters) {
  PrintfConversion result;
  const std::size_t afterFlags = SkipAnyOf(text, 1, W("-+ #0"));
  const WStringView flags = text.substr(1, afterFlags - 1);
  result.leftAligned = flags.find(W('-')) != WStringView::npos;
  result.zeroFilled = flags.find(W('0')) != WStringView::npos && !result.leftAligned;
  result.plusSign = flags.find(W('+')) != WStringView::npos;
  result.blankSign = flags.find(W(' ')) != WStringView::npos;
  result.alternateForm = flags.find(W('#')) != WStringView::npos;
  std::size_t at = afterFlags;
  if (!ReadWidth(text, at, result.width)) return {};
  if (at < text.size() && text[at] == W('.')) {
    result.hasPrecision = true;
    if (!ReadWidth(text, ++at, result.precision)) return {};
  }
  const std::size_t afterLength = SkipLength(text, at);
  result.length = text.substr(at, afterLength - at);
  if (afterLength == text.size() || letters.find(text[afterLength]) == WStringView::npos) return {};
  result.letter = text[afterLength];
  result.size = afterLength + 1;
  return result;
}

void AppendPrintfInteger(WString& result, const PrintfConversion& conversion, bool isNegative,
                         std::uint64_t magnitude) {
  WString number = PrefixOf(conversion, isNegative, magnitude);
  const WString digits = DigitsOf(conversion, magnitude);
  const std::size_t size = number.size() + digits.size();
  const std::size_t fill = conversion.width > size ? conversion.width - size : 0;
  const bool fillsWithZeros = conversion.zeroFilled && !conversion.hasPrecision;
  if (fillsWithZeros) number.append(fill, W('0'));
  number += digits;
  if (!fillsWithZeros) number.insert(conversion.leftAligned ? number.size() : 0, fill, W(' '));
  result += number;
}

void AppendPrintfText(WString& result, const PrintfConversion& conversion, WStringView text) {
  if (conversion.hasPrecision) text = text.substr(0, conversion.precision);
  const std::size_t fill = conversion.width > text.size() ? conversion.width - text.size() : 0;
  if (!conversion.leftAligned) result.append(fill, W(' '));
  result += text;
  if (conversion.leftAligned) result.append(fill, W(' '));
}
