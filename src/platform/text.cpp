#include "platform/text.h"

#include <limits>

namespace {

// One call of a conversion function takes an int; longer texts do not occur where these helpers are used.
int CountOf(std::size_t size) {
  constexpr std::size_t kMost = std::numeric_limits<int>::max();
  return static_cast<int>(size < kMost ? size : kMost);
}

}  // namespace

std::string ToUtf8(WStringView text) {
  std::string result;
  if (text.empty()) return result;
  const int size = CountOf(text.size());
  const int needed = WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  if (needed <= 0) return result;
  result.resize(static_cast<std::size_t>(needed));
  WideCharToMultiByte(CP_UTF8, 0, text.data(), size, result.data(), needed, nullptr, nullptr);
  return result;
}

WString FromUtf8(std::string_view text) {
  WString result;
  if (text.empty()) return result;
  const int size = CountOf(text.size());
  const int needed = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0);
  if (needed <= 0) return result;
  result.resize(static_cast<std::size_t>(needed));
  MultiByteToWideChar(CP_UTF8, 0, text.data(), size, result.data(), needed);
  return result;
}
