#include "linesorter/engine/date_parser.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>

#include "linesorter/engine/sort_lines_exception.h"
#include "platform/ascii_case.h"

namespace WQLineSorter {

namespace {

// A field can hold any number in the text, so the arithmetic on fields wraps around like that of a 32-bit
// register.
constexpr int Add(int a, int b) {
  return static_cast<int>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}
constexpr int Times(int a, int b) {
  return static_cast<int>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}

// For years before 1971 the weeks begin on another day. The order of a sort does not depend on it (C-152).
bool IsOldYear(const std::tm& date) { return Add(date.tm_year, 1900) < 1971; }

void SetWeekFrom(std::tm& date, int week, int firstDay) {
  date.tm_yday = Add(Add(Times(week, 7), -firstDay), date.tm_wday);
  if (date.tm_yday >= 0) return;
  date.tm_wday = firstDay;
  date.tm_yday = 0;
}

void SetMondayWeek(std::tm& date, int week) {
  const int firstDay = IsOldYear(date) ? 3 : 0;
  date.tm_yday = Add(Add(Add(date.tm_wday, 6) % 7, Times(week, 7)), -firstDay);
  if (date.tm_yday >= 0) return;
  date.tm_yday = 0;
  date.tm_wday = (firstDay + 1) % 7;
}

struct NumberRow {
  char conversion;
  void (*store)(std::tm& date, int number);
};

// clang-format off
constexpr NumberRow kNumbers[] = {
  {'C', [](std::tm& date, int n) { date.tm_year = Times(Add(n, -19), 100); }},
  {'d', [](std::tm& date, int n) { date.tm_mday = n; }},
  {'e', [](std::tm& date, int n) { date.tm_mday = n; }},
  {'H', [](std::tm& date, int n) { date.tm_hour = n; }},
  {'k', [](std::tm& date, int n) { date.tm_hour = n; }},
  {'I', [](std::tm& date, int n) { date.tm_hour = n == 12 ? 0 : n; }},
  {'l', [](std::tm& date, int n) { date.tm_hour = n == 12 ? 0 : n; }},
  {'j', [](std::tm& date, int n) { date.tm_yday = Add(n, -1); }},
  {'M', [](std::tm& date, int n) { date.tm_min = n; }},
  {'m', [](std::tm& date, int n) { date.tm_mon = Add(n, -1); }},
  {'S', [](std::tm& date, int n) { date.tm_sec = n; }},
  {'U', [](std::tm& date, int n) { SetWeekFrom(date, n, IsOldYear(date) ? 4 : 1); }},
  {'u', [](std::tm& date, int n) { date.tm_wday = Add(n, -1); }},
  {'V', [](std::tm& date, int n) { SetWeekFrom(date, n, IsOldYear(date) ? 3 : 0); }},
  {'W', [](std::tm& date, int n) { SetMondayWeek(date, n); }},
  {'w', [](std::tm& date, int n) { date.tm_wday = n; }},
  {'Y', [](std::tm& date, int n) { date.tm_year = Add(n, -1900); }},
  {'y', [](std::tm& date, int n) { date.tm_year = n < 70 ? Add(n, 100) : n; }},
};

// `%B` accepts "Mars" for the third month, and does not match "March" (C-116).
constexpr std::string_view kDayNames[] = {
  "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
constexpr std::string_view kShortDayNames[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr std::string_view kMonthNames[] = {
  "January", "February", "Mars", "April", "May", "June", "July", "August", "September", "October",
  "November", "December"};
constexpr std::string_view kShortMonthNames[] = {
  "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::string_view kDayHalves[] = {"am", "pm"};

struct NameRow {
  char conversion;
  std::span<const std::string_view> names;
  void (*store)(std::tm& date, int index);
};

constexpr NameRow kNames[] = {
  {'A', kDayNames, [](std::tm& date, int index) { date.tm_wday = index; }},
  {'a', kShortDayNames, [](std::tm& date, int index) { date.tm_wday = index; }},
  {'B', kMonthNames, [](std::tm& date, int index) { date.tm_mon = index; }},
  {'b', kShortMonthNames, [](std::tm& date, int index) { date.tm_mon = index; }},
  {'h', kShortMonthNames, [](std::tm& date, int index) { date.tm_mon = index; }},
  {'p', kDayHalves, [](std::tm& date, int index) { if (index == 1) date.tm_hour = Add(date.tm_hour, 12); }},
};

// `%x` has colons, so a date with slashes does not match it (C-117).
struct FormatRow {
  char conversion;
  const char* format;
};
constexpr FormatRow kFormats[] = {
  {'D', "%m/%d/%y"}, {'R', "%H:%M"}, {'r', "%I:%M:%S %p"}, {'T', "%H:%M:%S"}, {'X', "%H:%M:%S"}, {'x', "%Y:%m:%d"},
};

struct LiteralRow {
  char conversion;
  char character;
};
constexpr LiteralRow kLiterals[] = {{'%', '%'}, {'n', '\n'}, {'t', '\t'}};
// clang-format on

template <typename Row, std::size_t N>
const Row* Find(const Row (&rows)[N], char conversion) {
  const Row* const row = std::ranges::find(rows, conversion, &Row::conversion);
  return row == rows + N ? nullptr : row;
}

// Converts a byte of a format to a character of the text; in wide text its sign is extended (C-147).
template <typename CharT>
CharT Widen(char c) {
  return static_cast<CharT>(static_cast<signed char>(c));
}

template <typename CharT>
bool BeginsWith(const CharT* text, std::string_view name) {
  return std::ranges::all_of(name,
                             [&text](char c) { return AsciiLower(*text++) == Widen<CharT>(AsciiLower(c)); });
}

template <typename CharT>
const CharT* ParseName(const CharT* text, const NameRow& row, std::tm* result) {
  for (std::size_t index = 0; index < row.names.size(); ++index) {
    if (!BeginsWith(text, row.names[index])) continue;
    row.store(*result, static_cast<int>(index));
    return text + row.names[index].size();
  }
  return nullptr;
}

template <typename CharT>
const CharT* ParseConversion(const CharT* text, char conversion, std::tm* result,
                             NumberReader<CharT>& reader) {
  if (const NumberRow* const row = Find(kNumbers, conversion)) {
    const CharT* end;
    const auto number = reader.template Read<std::int32_t>(text, &end);
    if (end == text) return nullptr;
    row->store(*result, number);
    return end;
  }
  if (const NameRow* const row = Find(kNames, conversion)) return ParseName(text, *row, result);
  if (const FormatRow* const row = Find(kFormats, conversion))
    return ParseDate(text, row->format, result, reader);
  if (const LiteralRow* const row = Find(kLiterals, conversion)) {
    return *text == Widen<CharT>(row->character) ? text + 1 : nullptr;
  }
  if (conversion == 'c' || conversion == 'Z') {
    throw QXLineSorterException(ERROR_INVALID_PARAMETER, "Unsupported date format");
  }
  // An unknown conversion matches a percent sign, or any one character followed by the conversion's own
  // letter (C-121).
  if (*text == Widen<CharT>('%')) return text + 1;
  return text[1] == Widen<CharT>(conversion) ? text + 2 : nullptr;
}

}  // namespace

template <typename CharT>
const CharT* ParseDate(const CharT* text, const char* format, std::tm* result, NumberReader<CharT>& reader) {
  for (; *format && text; ++format) {
    if (IsSpace(Widen<CharT>(*format))) {
      text = reader.SkipSpaces(text);
    } else if (*format != '%' || format[1] == '\0') {
      text = *text == Widen<CharT>(*format) ? text + 1 : nullptr;
    } else {
      ++format;
      if (*format == 'E' || *format == 'O') ++format;
      text = ParseConversion(text, *format, result, reader);
      if (*format == '\0') break;
    }
  }
  return text;
}

template <typename CharT>
const CharT* ParseDate(const CharT* text, const char* format, std::tm* result) {
  NumberReader<CharT> reader;
  return ParseDate(text, format, result, reader);
}

template const char* ParseDate(const char*, const char*, std::tm*);
template const WCHAR* ParseDate(const WCHAR*, const char*, std::tm*);
template const char* ParseDate(const char*, const char*, std::tm*, NumberReader<char>&);
template const WCHAR* ParseDate(const WCHAR*, const char*, std::tm*, NumberReader<WCHAR>&);

}  // namespace WQLineSorter
