#include "multirename/rules/date_text.h"

#include <algorithm>
#include <iterator>

namespace Velmora::SDK {

namespace {

constexpr int kDateTextSize = 256;

// `count` is the number of characters that the system reports as written, including the terminator.
WString WrittenText(const WCHAR (&buffer)[kDateTextSize], int count) {
  const auto written = static_cast<std::size_t>(std::clamp(count, 0, kDateTextSize));
  return WString(buffer, std::find(buffer, buffer + written, WCHAR()));
}

}  // namespace

WString LocaleFormat(DWORD item) {
  WCHAR buffer[kDateTextSize];
  return WrittenText(buffer, GetLocaleInfoW(LOCALE_USER_DEFAULT, item, buffer, kDateTextSize));
}

WString FormatDate(const SYSTEMTIME& time, const WString& format) {
  WCHAR buffer[kDateTextSize];
  return WrittenText(buffer,
                     GetDateFormatW(LOCALE_USER_DEFAULT, 0, &time, format.c_str(), buffer, kDateTextSize));
}

WString FormatTime(const SYSTEMTIME& time, const WString& format) {
  WCHAR buffer[kDateTextSize];
  return WrittenText(buffer,
                     GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, format.c_str(), buffer, kDateTextSize));
}

}  // namespace Velmora::SDK
