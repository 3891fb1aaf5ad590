#include "linesorter/code_page_text.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <string>

namespace WQLineSorter {
namespace {

// Room in the record, without the terminator.
constexpr std::size_t kMostFormatBytes = sizeof SortLinesOptions::dateFormat - 1;

int CountOf(std::size_t size) {
  constexpr std::size_t kMost = std::numeric_limits<int>::max();
  return static_cast<int>(std::min(size, kMost));
}

// Empty if the system refuses.
std::string ToCodePage(WStringView text) {
  if (text.empty()) return {};
  const int size = CountOf(text.size());
  const int needed = WideCharToMultiByte(CP_THREAD_ACP, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  if (needed <= 0) return {};
  std::string bytes(static_cast<std::size_t>(needed), '\0');
  const int written =
      WideCharToMultiByte(CP_THREAD_ACP, 0, text.data(), size, bytes.data(), needed, nullptr, nullptr);
  bytes.resize(static_cast<std::size_t>(std::max(written, 0)));
  return bytes;
}

}  // namespace

void SetMatchChar(SortLinesOptions& options, WCHAR character) {
  const std::string bytes = ToCodePage(WStringView(&character, 1));
  options.matchChar = static_cast<std::uint16_t>(character);
  options.matchCharA = bytes.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(bytes.front());
}

void SetDateFormat(SortLinesOptions& options, const WString& format, std::size_t limit) {
  std::string bytes = ToCodePage(WStringView(format.c_str()));  // up to its first zero character
  bytes.resize(std::min({bytes.size(), limit, kMostFormatBytes}));
  std::fill(std::begin(options.dateFormat), std::end(options.dateFormat), '\0');
  std::copy(bytes.begin(), bytes.end(), options.dateFormat);
}

WString DateFormatText(const SortLinesOptions& options) {
  const char* const begin = options.dateFormat;
  const int size = static_cast<int>(std::find(begin, std::end(options.dateFormat), '\0') - begin);
  if (size == 0) return {};
  const int needed = MultiByteToWideChar(CP_THREAD_ACP, 0, begin, size, nullptr, 0);
  if (needed <= 0) return {};
  WString text(static_cast<std::size_t>(needed), WCHAR());
  const int written = MultiByteToWideChar(CP_THREAD_ACP, 0, begin, size, text.data(), needed);
  text.resize(static_cast<std::size_t>(std::max(written, 0)));
  return text;
}

}  // namespace WQLineSorter
