#include "frame/services/format_text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace {

// A width beyond this is no layout but a mistake or an attack; the result is cut at the limit anyway.
constexpr std::size_t kMostWidth = 1024;

// One integer conversion of a format, from its percent sign to its letter.
struct Conversion {
  bool leftAligned = false;
  bool zeroFilled = false;
  bool plusSign = false;
  bool blankSign = false;
  bool alternateForm = false;  // 0x in front of a hexadecimal number
  std::size_t width = 0;
  WCHAR letter = 0;
  std::size_t size = 0;  // characters of the conversion; 0 for none
};

std::size_t SkipAny(WStringView text, std::size_t at, WStringView set) {
  while (at < text.size() && set.find(text[at]) != WStringView::npos) ++at;
  return at;
}

// Reads the conversion at the beginning of `text`, which begins with a percent sign.
Conversion ReadConversion(WStringView text) {
  Conversion result;
  const std::size_t afterFlags = SkipAny(text, 1, W("-+ #0"));
  const WStringView flags = text.substr(1, afterFlags - 1);
  result.leftAligned = flags.find(W('-')) != WStringView::npos;
  result.zeroFilled = flags.find(W('0')) != WStringView::npos && !result.leftAligned;
  result.plusSign = flags.find(W('+')) != WStringView::npos;
  result.blankSign = flags.find(W(' ')) != WStringView::npos;
  result.alternateForm = flags.find(W('#')) != WStringView::npos;
  std::size_t at = afterFlags;
  for (; at < text.size() && text[at] >= W('0') && text[at] <= W('9'); ++at) {
    result.width = result.width * 10 + static_cast<std::size_t>(text[at] - W('0'));
    if (result.width > kMostWidth) return {};
  }
  at = SkipAny(text, at, W("hl"));
  if (at == text.size() || WStringView(W("diuxX")).find(text[at]) == WStringView::npos) return {};
  result.letter = text[at];
  result.size = at + 1;
  return result;
}

WString Digits(const Conversion& conversion, std::uint32_t value) {
  std::array<char, 16> buffer;
  const bool isHex = conversion.letter == W('x') || conversion.letter == W('X');
  char* const begin = buffer.data();
  char* const end = std::to_chars(begin, begin + buffer.size(), value, isHex ? 16 : 10).ptr;
  WString digits(begin, end);
  if (conversion.letter == W('X')) {
    for (WCHAR& digit : digits) {
      if (digit >= W('a')) digit = static_cast<WCHAR>(digit - W('a') + W('A'));
    }
  }
  return digits;
}

void AppendNumber(WString& result, const Conversion& conversion, std::uint32_t value) {
  WString number;
  const bool isSigned = conversion.letter == W('d') || conversion.letter == W('i');
  if (isSigned && conversion.plusSign) number = W("+");
  if (isSigned && conversion.blankSign && !conversion.plusSign) number = W(" ");
  const bool isHex = conversion.letter == W('x') || conversion.letter == W('X');
  if (isHex && conversion.alternateForm && value != 0) number = {W('0'), conversion.letter};
  const WString digits = Digits(conversion, value);
  const std::size_t size = number.size() + digits.size();
  const std::size_t fill = conversion.width > size ? conversion.width - size : 0;
  if (conversion.zeroFilled) number.append(fill, W('0'));
  number += digits;
  if (!conversion.zeroFilled) {
    number.insert(conversion.leftAligned ? number.size() : 0, fill, W(' '));
  }
  result += number;
}

}  // namespace

WString FormatCount(WStringView format, std::uint32_t value, std::size_t limit) {
  WString result;
  bool isFilled = false;
  while (!format.empty() && result.size() < limit) {
    const std::size_t plain = std::min(format.find(W('%')), format.size());
    result += format.substr(0, plain);
    format.remove_prefix(plain);
    if (format.empty()) break;
    if (format.starts_with(W("%%"))) {
      result += W('%');
      format.remove_prefix(2);
      continue;
    }
    const Conversion conversion = isFilled ? Conversion() : ReadConversion(format);
    if (conversion.size == 0) {
      result += W('%');
      format.remove_prefix(1);
      continue;
    }
    AppendNumber(result, conversion, value);
    isFilled = true;
    format.remove_prefix(conversion.size);
  }
  if (limit == 0) return {};
  if (result.size() > limit - 1) result.resize(limit - 1);
  return result;
}
