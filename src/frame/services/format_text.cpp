#include "frame/services/format_text.h"

#include <algorithm>
#include <array>

#include "frame/services/printf_conversion.h"

namespace {

constexpr WStringView kNumberLetters = W("diuoxX");
constexpr WStringView kTextLetters = W("sS");

// Appends a number. A negative number gets a minus sign in base 10, even for %u; in the bases 8 and 16 it is
// formatted as its 64 bits.
void AppendPrintfNumber(WString& result, const PrintfConversion& conversion, std::int64_t value) {
  const auto bits = static_cast<std::uint64_t>(value);
  const bool isNegative = value < 0 && WStringView(W("diu")).find(conversion.letter) != WStringView::npos;
  AppendPrintfInteger(result, conversion, isNegative, isNegative ? 0 - bits : bits);
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
    const PrintfConversion conversion =
        index == count ? PrintfConversion() : ReadPrintfConversion(format, letters);
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
  const auto append = [values](WString& result, const PrintfConversion& conversion, std::size_t index) {
    if (kTextLetters.find(conversion.letter) != WStringView::npos) {
      AppendPrintfText(result, conversion, FromUtf8(std::to_string(values[index])));
    } else {
      AppendPrintfNumber(result, conversion, values[index]);
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
  const auto append = [text](WString& result, const PrintfConversion& conversion, std::size_t) {
    AppendPrintfText(result, conversion, text);
  };
  return Fill(format, kTextLetters, 1, limit, append);
}
