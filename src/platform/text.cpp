#include "platform/text.h"

#include <algorithm>
#include <limits>
#include <type_traits>

namespace {

// Limits a size to INT_MAX, the most that the conversion functions accept. These helpers are not used for
// longer texts.
int CountOf(std::size_t size) {
  constexpr std::size_t kMax = std::numeric_limits<int>::max();
  return static_cast<int>(size < kMax ? size : kMax);
}

// Returns whether all units are ASCII. Most texts are, and are copied without a call of the conversion
// functions.
template <typename Unit>
bool IsAscii(std::basic_string_view<Unit> text) {
  using Bits = std::make_unsigned_t<std::conditional_t<sizeof(Unit) == 1, char, short>>;
  Bits all = 0;
  for (const Unit unit : text) all = static_cast<Bits>(all | static_cast<Bits>(unit));
  return all < 0x80;
}

}  // namespace

std::string ToUtf8(WStringView text) {
  std::string result;
  AppendAsUtf8(result, text);
  return result;
}

void AppendAsUtf8(std::string& result, WStringView text) {
  if (IsAscii(text)) {
    result.resize(result.size() + text.size());
    std::transform(text.begin(), text.end(), result.end() - static_cast<std::ptrdiff_t>(text.size()),
                   [](WCHAR unit) { return static_cast<char>(unit); });
    return;
  }
  const int size = CountOf(text.size());
  const int needed = WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  if (needed <= 0) return;
  const std::size_t before = result.size();
  result.resize(before + static_cast<std::size_t>(needed));
  WideCharToMultiByte(CP_UTF8, 0, text.data(), size, result.data() + before, needed, nullptr, nullptr);
}

WString FromUtf8(std::string_view text) {
  if (IsAscii(text)) return WString(text.begin(), text.end());
  WString result;
  const int size = CountOf(text.size());
  const int needed = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0);
  if (needed <= 0) return result;
  result.resize(static_cast<std::size_t>(needed));
  MultiByteToWideChar(CP_UTF8, 0, text.data(), size, result.data(), needed);
  return result;
}
