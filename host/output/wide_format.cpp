#include "host/output/wide_format.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>

#include "frame/services/printf_conversion.h"

namespace QxHost {
namespace {

constexpr WStringView kMissingText = W("(null)");

constexpr WStringView kWideLetters = W("sScdiuxX");

// The supported length modifiers. `l` means 32 bits.
constexpr WStringView kWideLengths[] = {W(""), W("l"), W("ll"), W("I64")};

bool Is64Bit(const PrintfConversion& conversion) { return conversion.length.size() > 1; }

bool IsSigned(const PrintfConversion& conversion) {
  return conversion.letter == W('d') || conversion.letter == W('i');
}

// Returns the text up to its terminator, at most `precision` characters. Reads no further, because such a
// text need not be terminated.
template <typename CharT>
std::basic_string_view<CharT> BoundedText(const CharT* text, std::size_t precision) {
  std::size_t size = 0;
  while (size < precision && text[size] != CharT()) ++size;
  return {text, size};
}

WString FromNarrow(std::string_view text) {
  WString wide(text.size(), WCHAR());
  if (text.empty()) return wide;
  const int size = static_cast<int>(std::min<std::size_t>(text.size(), std::numeric_limits<int>::max()));
  const int done = MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), size);
  wide.resize(static_cast<std::size_t>(std::max(done, 0)));
  return wide;
}

// A va_list may be an array, which decays as an argument, so it is wrapped in a structure.
struct ArgumentWalk {
  va_list list;
};

std::uint64_t TakeInteger(ArgumentWalk& walk, const PrintfConversion& conversion) {
  if (Is64Bit(conversion)) return va_arg(walk.list, std::uint64_t);
  const std::uint32_t bits = va_arg(walk.list, std::uint32_t);
  if (!IsSigned(conversion)) return bits;
  return static_cast<std::uint64_t>(std::int64_t{static_cast<std::int32_t>(bits)});
}

void AppendConversion(WString& result, PrintfConversion conversion, ArgumentWalk& walk) {
  const std::size_t most = conversion.hasPrecision ? conversion.precision : WStringView::npos;
  if (conversion.letter == W('s')) {
    const WCHAR* text = va_arg(walk.list, const WCHAR*);
    AppendPrintfText(result, conversion, BoundedText(text ? text : kMissingText.data(), most));
  } else if (conversion.letter == W('S')) {
    const char* text = va_arg(walk.list, const char*);
    AppendPrintfText(result, conversion, FromNarrow(BoundedText(text ? text : "(null)", most)));
  } else if (conversion.letter == W('c')) {
    const WCHAR character = static_cast<WCHAR>(va_arg(walk.list, int));
    conversion.hasPrecision = false;  // ignored for characters
    AppendPrintfText(result, conversion, WStringView(&character, 1));
  } else {
    const std::uint64_t bits = TakeInteger(walk, conversion);
    const bool isNegative = IsSigned(conversion) && static_cast<std::int64_t>(bits) < 0;
    AppendPrintfInteger(result, conversion, isNegative, isNegative ? 0 - bits : bits);
  }
}

}  // namespace

WString FormatWide(const WCHAR* format, va_list arguments) {
  WString result;
  WStringView rest = ViewOf(format);
  ArgumentWalk walk;
  va_copy(walk.list, arguments);
  while (!rest.empty()) {
    const std::size_t percent = rest.find(W('%'));
    result += rest.substr(0, percent);
    if (percent == WStringView::npos) break;
    rest.remove_prefix(percent);
    if (rest.starts_with(W("%%"))) {
      result += W('%');
      rest.remove_prefix(2);
      continue;
    }
    const PrintfConversion conversion = ReadPrintfConversion(rest, kWideLetters);
    if (conversion.size == 0 ||
        std::ranges::find(kWideLengths, conversion.length) == std::end(kWideLengths)) {
      result += rest;
      break;
    }
    AppendConversion(result, conversion, walk);
    rest.remove_prefix(conversion.size);
  }
  va_end(walk.list);
  return result;
}

}  // namespace QxHost
