#include "linesorter/engine/code_page_text.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "data/code_pages.h"

namespace WQLineSorter {
namespace {

// The room for a date format in the options, without the terminator.
constexpr std::size_t kMaxFormatBytes = sizeof SortLinesOptions::dateFormat - 1;

}  // namespace

void SetMatchChar(SortLinesOptions& options, WCHAR character) {
  const std::string bytes = WQDR::ToCodePage(CP_THREAD_ACP, WStringView(&character, 1));
  options.matchChar = static_cast<std::uint16_t>(character);
  options.matchCharA = bytes.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(bytes.front());
}

void SetDateFormat(SortLinesOptions& options, const WString& format, std::size_t limit) {
  std::string bytes =
      WQDR::ToCodePage(CP_THREAD_ACP, WStringView(format.c_str()));  // up to its first zero character
  bytes.resize(std::min({bytes.size(), limit, kMaxFormatBytes}));
  std::fill(std::begin(options.dateFormat), std::end(options.dateFormat), '\0');
  std::copy(bytes.begin(), bytes.end(), options.dateFormat);
}

WString DateFormatText(const SortLinesOptions& options) {
  const char* const begin = options.dateFormat;
  return WQDR::FromCodePage(CP_THREAD_ACP, {begin, std::find(begin, std::end(options.dateFormat), '\0')});
}

}  // namespace WQLineSorter
