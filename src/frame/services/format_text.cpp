#include "frame/services/format_text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace {

// The largest width or precision that is accepted. A larger one is a mistake or an attack, so the text is not
// treated as a conversion.
constexpr std::size_t kMostWidth = 1024;

constexpr WStringView kNumberLetters = W("diuoxX");
constexpr WStringView kTextLetters = W("sS");

// One conversion specification of a format, from its percent sign to its letter.
struct Conversion {
  bool leftAligned = false;
  bool zeroFilled = false;
  bool plusSign = false;
  bool blankSign = false;
  bool alternateForm = false;  // prefix 0x before a hexadecimal number
  std::size_t width = 0;
  std::size_t precision = 1;  // of a number, the least number of digits; of a text, the most characters
  bool hasPrecision = false;
  WCHAR letter = 0;
  std::size_t size = 0;  // length of the specification in characters; 0 if it is invalid
};

std::size_t SkipAny(WStringView text, std::size_t at, WStringView set) {
  while (at < text.size() && set.find(text[at]) != WStringView::npos) ++at;
  return at;
}

// Reads the digits at position `at`, if any, and advances it. Returns false if the number is above
// kMostWidth.
bool ReadNumber(WStringView text, std::size_t& at, std::size_t& number) {
  for (; at < text.size() && text[at] >= W('0') && text[at] <= W('9'); ++at) {
    number = number * 10 + static_cast<std::size_t>(text[at] - W('0'));
    if (number > kMostWidth) return false;
  }
  return true;
}

// Skips a length modifier, which is ignored: the size of the value is known.
std::size_t SkipLength(WStringView text, std::size_t at) {
  for (const WStringView length : {W("I64"), W("I32"), W("I")}) {
    if (text.substr(at).starts_with(length)) return at + length.size();
  }
  return SkipAny(text, at, W("hljztw"));
}

// Parses the conversion specification at the beginning of `text`, which begins with a percent sign. The
// result has size 0 if its letter is not one of `letters`.
Conversion ReadConversion(WStringView text, WStringView letters) {
  Conversion result;
  const std::size_t afterFlags = SkipAny(text, 1, W("-+ #0"));
  const WStringView flags = text.substr(1, afterFlags - 1);
  result.leftAligned = flags.find(W('-')) != WStringView::npos;
  result.zeroFilled = flags.find(W('0')) != WStringView::npos && !result.leftAligned;
  result.plusSign = flags.find(W('+')) != WStringView::npos;
  result.blankSign = flags.find(W(' ')) != WStringView::npos;
  result.alternateForm = flags.find(W('#')) != WStringView::npos;
  std::size_t at = afterFlags;
  if (!ReadNumber(text, at, result.width)) return {};
  if (at < text.size() && text[at] == W('.')) {
    result.hasPrecision = true;
    result.precision = 0;
    if (!ReadNumber(text, ++at, result.precision)) return {};
  }
  at = SkipLength(text, at);
  if (at == text.size() || letters.find(text[at]) == WStringView::npos) return {};
  result.letter = text[at];
  result.size = at + 1;
  return result;
}

int BaseOf(const Conversion& conversion) {
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

// Returns the digits of a number without its sign. In the bases 8 and 16, a negative number is formatted as
// its 64 bits.
WString Digits(const Conversion& conversion, std::int64_t number) {
  const auto bits = static_cast<std::uint64_t>(number);
  const std::uint64_t value = number < 0 && BaseOf(conversion) == 10 ? 0 - bits : bits;
  std::array<char, 24> buffer;
  char* const begin = buffer.data();
  char* const end = std::to_chars(begin, begin + buffer.size(), value, BaseOf(conversion)).ptr;
  WString digits(begin, end);
  if (value == 0) digits.clear();  // the precision determines the number of zeros
  if (digits.size() < conversion.precision) digits.insert(0, conversion.precision - digits.size(), W('0'));
  if (conversion.letter == W('X')) {
    for (WCHAR& digit : digits) {
      if (digit >= W('a')) digit = static_cast<WCHAR>(digit - W('a') + W('A'));
    }
  }
  if (conversion.letter == W('o') && conversion.alternateForm && !digits.starts_with(W('0'))) {
    digits.insert(0, 1, W('0'));
  }
  return digits;
}

// Returns the sign or prefix before the digits. A negative number in base 10 always gets a minus sign, even
// for %u.
WString Prefix(const Conversion& conversion, std::int64_t value) {
  if (value < 0 && BaseOf(conversion) == 10) return W("-");
  switch (conversion.letter) {
    case W('d'):
    case W('i'):
      if (conversion.plusSign) return W("+");
      return conversion.blankSign ? W(" ") : W("");
    case W('x'):
    case W('X'):
      if (conversion.alternateForm && value != 0) return {W('0'), conversion.letter};
      return {};
    default:
      return {};
  }
}

void AppendNumber(WString& result, const Conversion& conversion, std::int64_t value) {
  WString number = Prefix(conversion, value);
  const WString digits = Digits(conversion, value);
  const std::size_t size = number.size() + digits.size();
  const std::size_t fill = conversion.width > size ? conversion.width - size : 0;
  const bool fillsWithZeros = conversion.zeroFilled && !conversion.hasPrecision;
  if (fillsWithZeros) number.append(fill, W('0'));
  number += digits;
  if (!fillsWithZeros) {
    number.insert(conversion.leftAligned ? number.size() : 0, fill, W(' '));
  }
  result += number;
}

void AppendText(WString& result, const Conversion& conversion, WString text) {
  if (conversion.hasPrecision && text.size() > conversion.precision) text.resize(conversion.precision);
  const std::size_t fill = conversion.width > text.size() ? conversion.width - text.size() : 0;
  text.insert(conversion.leftAligned ? text.size() : 0, fill, W(' '));
  result += text;
}

// Replaces the first `count` conversions whose letter is one of `letters`: `append(result, conversion,
// index)` appends the formatted value.
template <typename Append>
WString Fill(WStringView format, WStringView letters, std::size_t count, std::size_t limit, Append append) {
  WString result;
  std::size_t index = 0;
  while (result.size() < limit) {
    const std::size_t plain = std::min(format.find(W('%')), format.size());
    result += format.substr(0, plain);
    format.remove_prefix(plain);
    if (format.empty()) break;
    if (format.starts_with(W("%%"))) {
      result += W('%');
      format.remove_prefix(2);
      continue;
    }
    const Conversion conversion = index == count ? Conversion() : ReadConversion(format, letters);
    if (conversion.size == 0) {
      result += W('%');
      format.remove_prefix(1);
      continue;
    }
    append(result, conversion, index++);
    format.remove_prefix(conversion.size);
  }
  if (limit == 0) return {};
  if (result.size() > limit - 1) result.resize(limit - 1);
  return result;
}

WString FillNumbers(WStringView format, WStringView letters, std::span<const std::int64_t> values,
                    std::size_t limit) {
  const auto append = [values](WString& result, const Conversion& conversion, std::size_t index) {
    if (kTextLetters.find(conversion.letter) != WStringView::npos) {
      AppendText(result, conversion, FromUtf8(std::to_string(values[index])));
    } else {
      AppendNumber(result, conversion, values[index]);
    }
  };
  return Fill(format, letters, values.size(), limit, append);
}

}  // namespace

WString FormatCounts(WStringView format, std::span<const std::int64_t> values, std::size_t limit) {
  return FillNumbers(format, kNumberLetters, values, limit);
}

WString FormatCountTexts(WStringView format, std::span<const std::int64_t> values, std::size_t limit) {
  return FillNumbers(format, WString(kNumberLetters).append(kTextLetters), values, limit);
}

WString FormatCount(WStringView format, std::uint32_t value, std::size_t limit) {
  return FormatCounts(format, std::array{std::int64_t{value}}, limit);
}

WString FormatCountText(WStringView format, std::uint32_t value, std::size_t limit) {
  return FormatCountTexts(format, std::array{std::int64_t{value}}, limit);
}

WString FormatText(WStringView format, WStringView text, std::size_t limit) {
  const auto append = [text](WString& result, const Conversion& conversion, std::size_t) {
    AppendText(result, conversion, WString(text));
  };
  return Fill(format, kTextLetters, 1, limit, append);
}
