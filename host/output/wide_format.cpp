#include "host/output/wide_format.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace QxHost {
namespace {

// The largest width or precision that is accepted.
constexpr std::size_t kMostWidth = 1024;
constexpr std::size_t kNoPrecision = std::numeric_limits<std::size_t>::max();
constexpr WStringView kMissingText = W("(null)");

struct Conversion {
  bool left = false;
  bool plus = false;
  bool blank = false;
  bool zeros = false;
  bool alternate = false;
  std::size_t width = 0;
  std::size_t precision = kNoPrecision;
  bool is64Bit = false;
  WCHAR kind = 0;
};

bool TakeFlag(Conversion& conversion, WCHAR character) {
  switch (character) {
    case W('-'):
      return conversion.left = true;
    case W('+'):
      return conversion.plus = true;
    case W(' '):
      return conversion.blank = true;
    case W('0'):
      return conversion.zeros = true;
    case W('#'):
      return conversion.alternate = true;
    default:
      return false;
  }
}

// Reads a number. Returns false if it is above kMostWidth.
bool TakeNumber(WStringView& rest, std::size_t& number) {
  number = 0;
  while (!rest.empty() && rest.front() >= W('0') && rest.front() <= W('9')) {
    number = number * 10 + static_cast<std::size_t>(rest.front() - W('0'));
    if (number > kMostWidth) return false;
    rest.remove_prefix(1);
  }
  return true;
}

bool TakePrefix(WStringView& rest, WStringView prefix) {
  if (!rest.starts_with(prefix)) return false;
  rest.remove_prefix(prefix.size());
  return true;
}

// Parses the conversion after a percent sign. Returns false if it is not a known one.
bool TakeConversion(WStringView& rest, Conversion& conversion) {
  while (!rest.empty() && TakeFlag(conversion, rest.front())) rest.remove_prefix(1);
  if (!TakeNumber(rest, conversion.width)) return false;
  if (TakePrefix(rest, W(".")) && !TakeNumber(rest, conversion.precision)) return false;
  conversion.is64Bit = TakePrefix(rest, W("ll")) || TakePrefix(rest, W("I64"));
  if (!conversion.is64Bit) TakePrefix(rest, W("l"));
  if (rest.empty()) return false;
  conversion.kind = rest.front();
  rest.remove_prefix(1);
  return WStringView(W("sScdiuxX")).find(conversion.kind) != WStringView::npos;
}

void AppendField(WString& result, const Conversion& conversion, WStringView sign, WStringView body,
                 bool zeros) {
  const std::size_t size = sign.size() + body.size();
  const std::size_t padding = conversion.width > size ? conversion.width - size : 0;
  if (!conversion.left && !zeros) result.append(padding, W(' '));
  result += sign;
  if (!conversion.left && zeros) result.append(padding, W('0'));
  result += body;
  if (conversion.left) result.append(padding, W(' '));
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

void AppendText(WString& result, const Conversion& conversion, WStringView text) {
  AppendField(result, conversion, {}, text, false);
}

void AppendNumber(WString& result, const Conversion& conversion, std::uint64_t bits) {
  const bool isSigned = conversion.kind == W('d') || conversion.kind == W('i');
  const bool isHex = conversion.kind == W('x') || conversion.kind == W('X');
  const bool negative = isSigned && static_cast<std::int64_t>(bits) < 0;
  std::uint64_t value = negative ? 0 - bits : bits;

  WString sign;
  if (negative) {
    sign = W("-");
  } else if (isSigned && conversion.plus) {
    sign = W("+");
  } else if (isSigned && conversion.blank) {
    sign = W(" ");
  } else if (isHex && conversion.alternate && value != 0) {
    sign = conversion.kind == W('x') ? W("0x") : W("0X");
  }

  const WStringView digits = conversion.kind == W('X') ? W("0123456789ABCDEF") : W("0123456789abcdef");
  const std::uint64_t base = isHex ? 16 : 10;
  WString body;
  for (; value != 0; value /= base) body += digits[static_cast<std::size_t>(value % base)];
  const std::size_t fewest = conversion.precision == kNoPrecision ? 1 : conversion.precision;
  if (body.size() < fewest) body.append(fewest - body.size(), W('0'));
  std::reverse(body.begin(), body.end());
  AppendField(result, conversion, sign, body, conversion.zeros && conversion.precision == kNoPrecision);
}

// A va_list may be an array, which decays as an argument, so it is wrapped in a structure.
struct ArgumentWalk {
  va_list list;
};

std::uint64_t TakeInteger(ArgumentWalk& walk, const Conversion& conversion) {
  if (conversion.is64Bit) return va_arg(walk.list, std::uint64_t);
  const std::uint32_t bits = va_arg(walk.list, std::uint32_t);
  if (conversion.kind != W('d') && conversion.kind != W('i')) return bits;
  return static_cast<std::uint64_t>(std::int64_t{static_cast<std::int32_t>(bits)});
}

void AppendConversion(WString& result, const Conversion& conversion, ArgumentWalk& walk) {
  if (conversion.kind == W('s')) {
    const WCHAR* text = va_arg(walk.list, const WCHAR*);
    AppendText(result, conversion, BoundedText(text ? text : kMissingText.data(), conversion.precision));
  } else if (conversion.kind == W('S')) {
    const char* text = va_arg(walk.list, const char*);
    AppendText(result, conversion, FromNarrow(BoundedText(text ? text : "(null)", conversion.precision)));
  } else if (conversion.kind == W('c')) {
    const WCHAR character = static_cast<WCHAR>(va_arg(walk.list, int));
    AppendText(result, conversion, WStringView(&character, 1));
  } else {
    AppendNumber(result, conversion, TakeInteger(walk, conversion));
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
    if (TakePrefix(rest, W("%%"))) {
      result += W('%');
      continue;
    }
    WStringView behind = rest.substr(1);
    Conversion conversion;
    if (!TakeConversion(behind, conversion)) {
      result += rest;
      break;
    }
    AppendConversion(result, conversion, walk);
    rest = behind;
  }
  va_end(walk.list);
  return result;
}

}  // namespace QxHost
