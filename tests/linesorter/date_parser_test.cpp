// Parsing dates by a format: each conversion, in both character widths.
#include "linesorter/engine/date_parser.h"

#include <gtest/gtest.h>

#include <climits>
#include <initializer_list>

#include "linesorter/engine/sort_lines_exception.h"
#include "linesorter/widths.h"
#include "platform/windows_api.h"

using namespace WQLineSorter;

namespace {

struct Field {
  int std::tm::*field;
  int value;
};
using Fields = std::initializer_list<Field>;

constexpr auto kSec = &std::tm::tm_sec;
constexpr auto kMin = &std::tm::tm_min;
constexpr auto kHour = &std::tm::tm_hour;
constexpr auto kMday = &std::tm::tm_mday;
constexpr auto kMon = &std::tm::tm_mon;
constexpr auto kYear = &std::tm::tm_year;
constexpr auto kWday = &std::tm::tm_wday;
constexpr auto kYday = &std::tm::tm_yday;

struct NamedField {
  const char* name;
  int std::tm::*field;
};
constexpr NamedField kAllFields[] = {
    {"tm_sec", kSec},   {"tm_min", kMin},   {"tm_hour", kHour},
    {"tm_mday", kMday}, {"tm_mon", kMon},   {"tm_year", kYear},
    {"tm_wday", kWday}, {"tm_yday", kYday}, {"tm_isdst", &std::tm::tm_isdst}};

// The initial value of fields that must not be written.
constexpr int kUntouched = 71;

constexpr int kMismatch = -1;

std::tm TimeOf(Fields fields) {
  std::tm time{};
  for (const NamedField& field : kAllFields) time.*field.field = kUntouched;
  for (const Field& field : fields) time.*field.field = field.value;
  return time;
}

template <typename CharT>
void CheckWidth(const std::string& format, const std::basic_string<CharT>& text, int consumed,
                const std::tm& start, const std::tm& expected) {
  const Exact<CharT> copy(text + CharT() + CharT());
  const Exact<char> formatCopy(format + '\0');
  std::tm time = start;
  const CharT* const end = ParseDate(copy.Begin(), formatCopy.Begin(), &time);
  EXPECT_EQ(end == nullptr ? kMismatch : end - copy.Begin(), consumed);
  for (const NamedField& field : kAllFields) {
    EXPECT_EQ(time.*field.field, expected.*field.field) << field.name;
  }
}

// Parses `text` into fields that start as `start`. Expects that `consumed` characters are consumed (or
// kMismatch), and that exactly the fields in `written` are written.
void Check(const std::string& format, const std::string& text, int consumed, Fields written,
           Fields start = {}) {
  const std::tm before = TimeOf(start);
  std::tm after = before;
  for (const Field& field : written) after.*field.field = field.value;
  {
    SCOPED_TRACE("bytes: \"" + format + "\" on \"" + text + "\"");
    CheckWidth<char>(format, text, consumed, before, after);
  }
  {
    SCOPED_TRACE("units: \"" + format + "\" on \"" + text + "\"");
    CheckWidth<WCHAR>(format, In<WCHAR>(text), consumed, before, after);
  }
}

template <typename CharT>
void CheckRefused(const std::string& format, const std::string& text, Fields written) {
  const Exact<CharT> copy(In<CharT>(text) + CharT() + CharT());
  std::tm time = TimeOf({});
  const std::tm expected = TimeOf(written);
  try {
    ParseDate(copy.Begin(), format.c_str(), &time);
    ADD_FAILURE() << format << " on " << text << " was taken";
  } catch (const QXLineSorterException& refusal) {
    EXPECT_EQ(refusal.errorCode, DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_STREQ(refusal.what(), "Unsupported date format");
  }
  for (const NamedField& field : kAllFields) {
    EXPECT_EQ(time.*field.field, expected.*field.field) << field.name;
  }
}

}  // namespace

TEST(DateParser, EmptyFormatReturnsTheTextAndWritesNothing) {
  Check("", "", 0, {});
  Check("", "2014", 0, {});
}

TEST(DateParser, WhiteSpaceInTheFormatIsOptionalInTheText) {
  for (const std::string format : {"a b", "a\tb", "a\nb", "a\vb", "a\fb", "a\rb", "a \t\r\n b"}) {
    Check(format, "ab", 2, {});
    Check(format, "a b", 3, {});
    Check(format, "a\tb", 3, {});
    Check(format, "a \t\r\n\v\fb", 8, {});
    Check(format, "axb", kMismatch, {});
  }
  Check(" ", "", 0, {});
  Check(" ", "  x", 2, {});
  Check("  %d", "5", 1, {{kMday, 5}});
}

TEST(DateParser, WhiteSpaceInTheFormatMatchesLineEnds) {
  Check("%Y %m", "2014\r\n11", 8, {{kYear, 114}, {kMon, 10}});
}

TEST(DateParser, WhiteSpaceOfTheTextIsNotSkippedWithoutTheFormatsOwn) {
  Check("ab", "a b", kMismatch, {});
  Check("a", " a", kMismatch, {});
}

TEST(DateParser, OtherCharactersMustBeEqual) {
  Check("a-b", "a-b", 3, {});
  Check("a-b", "a-bc", 3, {});
  Check("a", "A", kMismatch, {});
  Check("a", "b", kMismatch, {});
  Check("a", "", kMismatch, {});
  Check("ab", "a", kMismatch, {});
  Check("q", "%", kMismatch, {});
}

TEST(DateParser, PercentAtTheFormatsEndNeedsAPercent) {
  Check("%", "%", 1, {});
  Check("%", "%%", 1, {});
  Check("%", "a", kMismatch, {});
  Check("%", "", kMismatch, {});
  Check("%d%", "5%", 2, {{kMday, 5}});
  Check("%d%", "5", kMismatch, {{kMday, 5}});
}

TEST(DateParser, DoubledPercentNeedsAPercent) {
  Check("%%", "%", 1, {});
  Check("%%%d", "%5", 2, {{kMday, 5}});
  Check("%%", "a", kMismatch, {});
  Check("%%", "a%", kMismatch, {});
  Check("%%", "", kMismatch, {});
}

TEST(DateParser, ModifiersAreDropped) {
  Check("%Ed", "5", 1, {{kMday, 5}});
  Check("%Od", "5", 1, {{kMday, 5}});
  Check("%EY-%Om", "2014-11", 7, {{kYear, 114}, {kMon, 10}});
  Check("%E%", "%", 1, {});
  Check("%OD", "11/23/14", 8, {{kMon, 10}, {kMday, 23}, {kYear, 114}});
}

TEST(DateParser, ModifierAfterAModifierIsAnUnknownConversion) {
  Check("%EO", "zO", 2, {});
  Check("%OE", "zE", 2, {});
  Check("%EE", "zO", kMismatch, {});
}

TEST(DateParser, ModifierAtTheFormatsEndStaysWithinTheFormat) {
  // The terminator is handled like an unknown conversion.
  Check("%E", "%", 1, {});
  Check("%O", "%%", 1, {});
  Check("%E", "ab", kMismatch, {});
  Check("%d%O", "5ab", kMismatch, {{kMday, 5}});
}

TEST(DateParser, NumbersSkipWhiteSpaceTakeASignAndAllDigits) {
  Check("%d", "5", 1, {{kMday, 5}});
  Check("%d", "05", 2, {{kMday, 5}});
  Check("%d", "  \t\r\n5", 6, {{kMday, 5}});
  Check("%d", "+5", 2, {{kMday, 5}});
  Check("%d", "-5", 2, {{kMday, -5}});
  Check("%d", " +7x", 3, {{kMday, 7}});
  Check("%d", "123456", 6, {{kMday, 123456}});
}

TEST(DateParser, NumberWithoutADigitIsAMismatchAndWritesNothing) {
  for (const char conversion : std::string_view("CdeHIjklMmSUuVWwYy")) {
    const std::string format = {'%', conversion};
    for (const std::string text : {"", " ", "x", "-", "+", "- 5", "--5", "x5", "/5"}) {
      Check(format, text, kMismatch, {});
    }
  }
}

TEST(DateParser, NumbersHaveNoWidth) {
  // The year consumes all digits, so the month finds none.
  Check("%Y%m%d", "20141121", kMismatch, {{kYear, 20139221}});
}

TEST(DateParser, SignInFrontOfANumberIsNoSeparator) {
  Check("%Y%m", "2014-11", 7, {{kYear, 114}, {kMon, -12}});
}

TEST(DateParser, NumbersAreNotCheckedAgainstARange) {
  Check("%H:%M:%S", "99:-1:1000", 10, {{kHour, 99}, {kMin, -1}, {kSec, 1000}});
  Check("%m", "13", 2, {{kMon, 12}});
  Check("%m", "0", 1, {{kMon, -1}});
}

TEST(DateParser, NumbersAreCutAt32Bits) {
  Check("%d", "2147483647", 10, {{kMday, 2147483647}});
  Check("%d", "2147483648", 10, {{kMday, 2147483647}});
  Check("%d", "99999999999999999999x", 20, {{kMday, 2147483647}});
  Check("%d", "-2147483648", 11, {{kMday, INT_MIN}});
  Check("%d", "-99999999999", 12, {{kMday, INT_MIN}});
  Check("%Y", "99999999999", 11, {{kYear, 2147481747}});
  Check("%y", "99999999999", 11, {{kYear, 2147483647}});
  Check("%m", "99999999999", 11, {{kMon, 2147483646}});
}

TEST(DateParser, SumsBeyond32BitsWrap) {
  Check("%Y", "-2147483648", 11, {{kYear, 2147481748}});
  Check("%m", "-2147483648", 11, {{kMon, 2147483647}});
  Check("%j", "-2147483648", 11, {{kYday, 2147483647}});
  Check("%u", "-2147483648", 11, {{kWday, 2147483647}});
  Check("%C", "2147483647", 10, {{kYear, -2000}});
  Check("%y", "-2147483648", 11, {{kYear, -2147483548}});
  Check("%H %p", "2147483647 pm", 13, {{kHour, -2147483637}});
  Check("%U", "2147483647", 10, {{kYday, 2147483640}}, {{kYear, 114}, {kWday, 0}});
  Check("%V", "2147483647", 10, {{kYday, 2147483641}}, {{kYear, 114}, {kWday, 0}});
  Check("%W", "2147483647", 10, {{kYday, 2147483641}}, {{kYear, 114}, {kWday, 1}});
}

TEST(DateParser, ZeroCharacterEndsWhatANumberOrTextTakes) {
  const std::string text("5\0-6", 4);
  Check("%d-%m", text, kMismatch, {{kMday, 5}});
  Check("%d%m",
        std::string("5\0"
                    "6",
                    3),
        kMismatch, {{kMday, 5}});
  Check("%d ", text, 1, {{kMday, 5}});
  Check("a", std::string("\0a", 2), kMismatch, {});
  Check("%b", std::string("\0Jan", 4), kMismatch, {});
}

TEST(DateParser, FullDayNames) {
  constexpr const char* kNames[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                    "Thursday", "Friday", "Saturday"};
  constexpr int kLengths[] = {6, 6, 7, 9, 8, 6, 8};
  for (int day = 0; day < 7; ++day) Check("%A", kNames[day], kLengths[day], {{kWday, day}});
  Check("%A", "Sun", kMismatch, {});
  Check("%A", "Sunda", kMismatch, {});
  Check("%A", "", kMismatch, {});
  Check("%A", " Sunday", kMismatch, {});
}

TEST(DateParser, ShortDayNames) {
  constexpr const char* kNames[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  for (int day = 0; day < 7; ++day) Check("%a", kNames[day], 3, {{kWday, day}});
  Check("%a", "Su", kMismatch, {});
  Check("%a", "Son", kMismatch, {});
}

TEST(DateParser, FullMonthNames) {
  constexpr const char* kNames[] = {"January", "February", "Mars",      "April",   "May",      "June",
                                    "July",    "August",   "September", "October", "November", "December"};
  constexpr int kLengths[] = {7, 8, 4, 5, 3, 4, 4, 6, 9, 7, 8, 8};
  for (int month = 0; month < 12; ++month) Check("%B", kNames[month], kLengths[month], {{kMon, month}});
  Check("%B", "Jan", kMismatch, {});
}

TEST(DateParser, ThirdMonthIsMarsAndNotMarchByDesign) {
  Check("%B", "March", kMismatch, {});
  Check("%B", "march", kMismatch, {});
  Check("%B", "Mars", 4, {{kMon, 2}});
  Check("%B", "MARS", 4, {{kMon, 2}});
  Check("%B", "Marsh", 4, {{kMon, 2}});
  Check("%b", "March", 3, {{kMon, 2}});
}

TEST(DateParser, ShortMonthNames) {
  constexpr const char* kNames[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  for (int month = 0; month < 12; ++month) {
    Check("%b", kNames[month], 3, {{kMon, month}});
    Check("%h", kNames[month], 3, {{kMon, month}});
  }
  Check("%b", "Ja", kMismatch, {});
  Check("%h", "Mai", kMismatch, {});
}

TEST(DateParser, NamesIgnoreCase) {
  Check("%A", "sUNDAY", 6, {{kWday, 0}});
  Check("%a", "SAT", 3, {{kWday, 6}});
  Check("%B", "dECEMBER", 8, {{kMon, 11}});
  Check("%b", "nov", 3, {{kMon, 10}});
}

TEST(DateParser, NamesNeedNotEndAtAWordsEnd) {
  Check("%b", "Marsh", 3, {{kMon, 2}});
  Check("%bsh", "Marsh", 5, {{kMon, 2}});
  Check("%a", "Sunday", 3, {{kWday, 0}});
  Check("%A", "Mondays", 6, {{kWday, 1}});
}

TEST(DateParser, Centuries) {
  Check("%C", "20", 2, {{kYear, 100}});
  Check("%C", "19", 2, {{kYear, 0}});
  Check("%C", "18", 2, {{kYear, -100}});
  Check("%C", "0", 1, {{kYear, -1900}});
}

TEST(DateParser, DaysOfTheMonth) {
  Check("%d", "23", 2, {{kMday, 23}});
  Check("%e", "23", 2, {{kMday, 23}});
  Check("%e", " 3", 2, {{kMday, 3}});
}

TEST(DateParser, HoursOf24) {
  for (const std::string format : {"%H", "%k"}) {
    Check(format, "0", 1, {{kHour, 0}});
    Check(format, "12", 2, {{kHour, 12}});
    Check(format, "23", 2, {{kHour, 23}});
  }
}

TEST(DateParser, TwelveOfTwelveHoursIsZero) {
  for (const std::string format : {"%I", "%l"}) {
    Check(format, "12", 2, {{kHour, 0}});
    Check(format, "0", 1, {{kHour, 0}});
    Check(format, "11", 2, {{kHour, 11}});
    Check(format, "13", 2, {{kHour, 13}});
    Check(format, "24", 2, {{kHour, 24}});
    Check(format, "-12", 3, {{kHour, -12}});
  }
}

TEST(DateParser, DaysOfTheYearCountFromOne) {
  Check("%j", "1", 1, {{kYday, 0}});
  Check("%j", "366", 3, {{kYday, 365}});
}

TEST(DateParser, MinutesMonthsAndSeconds) {
  Check("%M", "59", 2, {{kMin, 59}});
  Check("%m", "1", 1, {{kMon, 0}});
  Check("%m", "12", 2, {{kMon, 11}});
  Check("%S", "60", 2, {{kSec, 60}});
}

TEST(DateParser, LineFeedAndTabAreTakenLiterally) {
  Check("%n", "\n", 1, {});
  for (const std::string text : {"", " ", "\r", "\r\n", "\t", "n"}) Check("%n", text, kMismatch, {});
  Check("%t", "\t", 1, {});
  for (const std::string text : {"", " ", "\n", "t"}) Check("%t", text, kMismatch, {});
}

TEST(DateParser, DaysOfTheWeekByNumber) {
  Check("%u", "1", 1, {{kWday, 0}});
  Check("%u", "7", 1, {{kWday, 6}});
  Check("%w", "0", 1, {{kWday, 0}});
  Check("%w", "6", 1, {{kWday, 6}});
}

TEST(DateParser, YearsOfFourAndOfTwoDigits) {
  Check("%Y", "2014", 4, {{kYear, 114}});
  Check("%Y", "1900", 4, {{kYear, 0}});
  Check("%Y", "14", 2, {{kYear, -1886}});
  Check("%y", "14", 2, {{kYear, 114}});
  Check("%y", "0", 1, {{kYear, 100}});
  Check("%y", "69", 2, {{kYear, 169}});
  Check("%y", "70", 2, {{kYear, 70}});
  Check("%y", "99", 2, {{kYear, 99}});
  Check("%y", "-1", 2, {{kYear, 99}});
  Check("%y", "2014", 4, {{kYear, 2014}});
}

TEST(DateParser, FormatsThatEqualAConversion) {
  Check("%D", "11/23/14", 8, {{kMon, 10}, {kMday, 23}, {kYear, 114}});
  Check("%R", "13:44", 5, {{kHour, 13}, {kMin, 44}});
  Check("%r", "1:44:48 pm", 10, {{kHour, 13}, {kMin, 44}, {kSec, 48}});
  Check("%r", "12:44:48am", 10, {{kHour, 0}, {kMin, 44}, {kSec, 48}});
  Check("%T", "13:44:48", 8, {{kHour, 13}, {kMin, 44}, {kSec, 48}});
  Check("%X", "13:44:48", 8, {{kHour, 13}, {kMin, 44}, {kSec, 48}});
  Check("%x", "2014:11:23", 10, {{kYear, 114}, {kMon, 10}, {kMday, 23}});
  Check("%x %T.", "2014:11:23 13:44:48.", 20,
        {{kYear, 114}, {kMon, 10}, {kMday, 23}, {kHour, 13}, {kMin, 44}, {kSec, 48}});
}

TEST(DateParser, DateOfTheConversionXHasColonsByDesign) {
  Check("%x", "2014/11/23", kMismatch, {{kYear, 114}});
  Check("%x", "11/23/14", kMismatch, {{kYear, -1889}});
}

TEST(DateParser, InnerMismatchIsTheResultOfTheWholeAndKeepsWhatWasWritten) {
  Check("%D", "11/23-14", kMismatch, {{kMon, 10}, {kMday, 23}});
  Check("%D", "x", kMismatch, {});
  Check("%R", "13.44", kMismatch, {{kHour, 13}});
  Check("%r", "1:44:48 xm", kMismatch, {{kHour, 1}, {kMin, 44}, {kSec, 48}});
  Check("%r", "12:44", kMismatch, {{kHour, 0}, {kMin, 44}});
  Check("%T", "13:44", kMismatch, {{kHour, 13}, {kMin, 44}});
  Check("%X%d", "13:44:", kMismatch, {{kHour, 13}, {kMin, 44}});
  Check("%x%d", "2014:11:", kMismatch, {{kYear, 114}, {kMon, 10}});
}

TEST(DateParser, DayHalfActsOnTheHourReadBefore) {
  Check("%p", "pm", 2, {{kHour, 12}}, {{kHour, 0}});
  Check("%p", "pm", 2, {{kHour, 13}}, {{kHour, 1}});
  Check("%p", "pm", 2, {{kHour, 23}}, {{kHour, 11}});
  Check("%p", "pm", 2, {{kHour, 24}}, {{kHour, 12}});
  Check("%p", "pm", 2, {{kHour, 35}}, {{kHour, 23}});
  Check("%p", "pm", 2, {{kHour, 7}}, {{kHour, -5}});
  Check("%p", "am", 2, {}, {{kHour, 0}});
  Check("%p", "am", 2, {}, {{kHour, 12}});
  Check("%p", "PM", 2, {{kHour, 13}}, {{kHour, 1}});
  Check("%p", "Pmx", 2, {{kHour, 13}}, {{kHour, 1}});
  Check("%p", "AM", 2, {}, {{kHour, 1}});
  for (const std::string text : {"", "p", "xm", "p.m.", " pm"}) Check("%p", text, kMismatch, {});
}

TEST(DateParser, HoursWithTheirDayHalf) {
  Check("%I:%M %p", "12:30 pm", 8, {{kHour, 12}, {kMin, 30}});
  Check("%I:%M %p", "12:30 am", 8, {{kHour, 0}, {kMin, 30}});
  Check("%I:%M %p", "1:00 pm", 7, {{kHour, 13}, {kMin, 0}});
  Check("%I:%M %p", "11:59pm", 7, {{kHour, 23}, {kMin, 59}});
}

TEST(DateParser, HourOf24BeforeAPmGoesBeyondTheDayByDesign) { Check("%H%p", "12pm", 4, {{kHour, 24}}); }

TEST(DateParser, DayHalfInFrontOfTheHourIsLostByDesign) {
  Check("%p %I", "pm 1", 4, {{kHour, 1}}, {{kHour, 0}});
  Check("%p %I", "pm 12", 5, {{kHour, 0}}, {{kHour, 0}});
}

TEST(DateParser, WeeksThatBeginOnSunday) {
  Check("%U", "1", 1, {{kYday, 6}}, {{kYear, 114}, {kWday, 0}});
  Check("%U", "1", 1, {{kYday, 12}}, {{kYear, 114}, {kWday, 6}});
  Check("%U", "47", 2, {{kYday, 333}}, {{kYear, 114}, {kWday, 5}});
  Check("%U", "0", 1, {{kYday, 0}}, {{kYear, 114}, {kWday, 1}});
  Check("%U", "1", 1, {{kYday, 6}}, {{kYear, 71}, {kWday, 0}});
  Check("%U", "1", 1, {{kYday, 3}}, {{kYear, 70}, {kWday, 0}});
  Check("%U", "1", 1, {{kYday, 3}}, {{kYear, 0}, {kWday, 0}});
}

TEST(DateParser, WeeksThatBeginOnSundayBeforeTheYearBegins) {
  Check("%U", "0", 1, {{kYday, 0}, {kWday, 1}}, {{kYear, 114}, {kWday, 0}});
  Check("%U", "-3", 2, {{kYday, 0}, {kWday, 1}}, {{kYear, 114}, {kWday, 6}});
  Check("%U", "0", 1, {{kYday, 0}, {kWday, 4}}, {{kYear, 70}, {kWday, 3}});
  Check("%U", "0", 1, {{kYday, 0}}, {{kYear, 70}, {kWday, 4}});
}

TEST(DateParser, WeeksOfTheStandard) {
  Check("%V", "1", 1, {{kYday, 7}}, {{kYear, 114}, {kWday, 0}});
  Check("%V", "47", 2, {{kYday, 334}}, {{kYear, 114}, {kWday, 5}});
  Check("%V", "0", 1, {{kYday, 0}}, {{kYear, 114}, {kWday, 0}});
  Check("%V", "1", 1, {{kYday, 7}}, {{kYear, 71}, {kWday, 0}});
  Check("%V", "1", 1, {{kYday, 4}}, {{kYear, 70}, {kWday, 0}});
}

TEST(DateParser, WeeksOfTheStandardBeforeTheYearBegins) {
  Check("%V", "-1", 2, {{kYday, 0}, {kWday, 0}}, {{kYear, 114}, {kWday, 6}});
  Check("%V", "0", 1, {{kYday, 0}, {kWday, 3}}, {{kYear, 70}, {kWday, 2}});
  Check("%V", "0", 1, {{kYday, 0}}, {{kYear, 70}, {kWday, 3}});
}

TEST(DateParser, WeeksThatBeginOnMonday) {
  Check("%W", "1", 1, {{kYday, 7}}, {{kYear, 114}, {kWday, 1}});
  Check("%W", "1", 1, {{kYday, 13}}, {{kYear, 114}, {kWday, 0}});
  Check("%W", "47", 2, {{kYday, 333}}, {{kYear, 114}, {kWday, 5}});
  Check("%W", "0", 1, {{kYday, 0}}, {{kYear, 114}, {kWday, 1}});
  Check("%W", "1", 1, {{kYday, 7}}, {{kYear, 71}, {kWday, 1}});
  Check("%W", "1", 1, {{kYday, 4}}, {{kYear, 70}, {kWday, 1}});
}

TEST(DateParser, WeeksThatBeginOnMondayBeforeTheYearBegins) {
  Check("%W", "-1", 2, {{kYday, 0}, {kWday, 1}}, {{kYear, 114}, {kWday, 3}});
  Check("%W", "0", 1, {{kYday, 0}, {kWday, 4}}, {{kYear, 70}, {kWday, 3}});
  Check("%W", "0", 1, {{kYday, 0}}, {{kYear, 70}, {kWday, 4}});
}

TEST(DateParser, WeeksUseTheYearAndDayReadBefore) {
  Check("%Y %a %U", "1970 Thu 1", 10, {{kYear, 70}, {kWday, 4}, {kYday, 7}});
  Check("%Y %a %W", "2014 Sun 10", 11, {{kYear, 114}, {kWday, 0}, {kYday, 76}});
}

TEST(DateParser, UnknownConversionTakesAPercentWithoutReadingTheRest) {
  Check("%q", "%", 1, {});
  Check("%q", "%q", 1, {});
  Check("%q%d", "%5", 2, {{kMday, 5}});
  Check("%q%d", "%q5", kMismatch, {});
}

TEST(DateParser, UnknownConversionTakesAnyCharacterFollowedByItsOwn) {
  Check("%q", "aq", 2, {});
  Check("%q", "qq", 2, {});
  Check("%q", " q", 2, {});
  Check("%q%d", "aq5", 3, {{kMday, 5}});
  Check("%q", "q", kMismatch, {});
  Check("%q", "a", kMismatch, {});
  Check("%q", "aQ", kMismatch, {});
  Check("%q", "aaq", kMismatch, {});
  Check("%q", "", kMismatch, {});
}

TEST(DateParser, ConversionsOfOtherSystemsAreNotKnown) {
  for (const char conversion : std::string_view("FfGgiJKLNoPQsvz+-_^#0159 ./:")) {
    const std::string format = {'%', conversion};
    Check(format, std::string("7") + conversion, 2, {});
    Check(format, "7~", kMismatch, {});
    Check(format, "%", 1, {});
  }
}

TEST(DateParser, WidthInFrontOfAConversionIsAConversionThatIsNotKnown) {
  Check("%4Y", "2014", kMismatch, {});
  Check("%4Y", "x4Y", 3, {});
}

TEST(DateParser, TwoConversionsAreRefused) {
  for (const std::string conversion : {"%c", "%Z", "%Ec", "%OZ"}) {
    for (const std::string text : {"", "5", "%"}) {
      CheckRefused<char>(conversion, text, {});
      CheckRefused<WCHAR>(conversion, text, {});
    }
    CheckRefused<char>("%d " + conversion, "5 x", {{kMday, 5}});
    CheckRefused<WCHAR>("%d " + conversion, "5 x", {{kMday, 5}});
  }
}

TEST(DateParser, RefusedConversionAfterAMismatchIsNotReached) {
  Check("%d%c", "x", kMismatch, {});
  Check("%D%Z", "11/x", kMismatch, {{kMon, 10}});
  Check("%%c", "%c", 2, {});
}

TEST(DateParser, WholeDates) {
  Check("%d %b %Y", "23 nov 2014", 11, {{kMday, 23}, {kMon, 10}, {kYear, 114}});
  Check("%d/%m/%y", "23/11/14", 8, {{kMday, 23}, {kMon, 10}, {kYear, 114}});
  Check("%d/%m/%y", "23/11/69", 8, {{kMday, 23}, {kMon, 10}, {kYear, 169}});
  Check("%d/%m/%y", "23/11/70", 8, {{kMday, 23}, {kMon, 10}, {kYear, 70}});
  Check("%d/%m/%Y %I:%M:%S %p", "23/11/2014 1:44:48 pm", 21,
        {{kMday, 23}, {kMon, 10}, {kYear, 114}, {kHour, 13}, {kMin, 44}, {kSec, 48}});
  Check("%A, %B %e, %Y", "Friday, November 21, 2014", 25,
        {{kWday, 5}, {kMon, 10}, {kMday, 21}, {kYear, 114}});
}

TEST(DateParser, WhiteSpaceBeforeANumberIsReadAndAfterItIsNot) {
  Check("%H:%M", "7 :5", kMismatch, {{kHour, 7}});
  Check("%H:%M", "7: 5", 4, {{kHour, 7}, {kMin, 5}});
}

TEST(DateParser, BytesOfTheFormatMeetUnitsSignExtendedByDesign) {
  const std::tm untouched = TimeOf({});
  CheckWidth<char>("\xE9", "\xE9", 1, untouched, untouched);
  CheckWidth<WCHAR>("\xE9", {static_cast<WCHAR>(0xFFE9)}, 1, untouched, untouched);
  CheckWidth<WCHAR>("\xE9", {static_cast<WCHAR>(0x00E9)}, kMismatch, untouched, untouched);
}

TEST(DateParser, HighByteOfAUnitCounts) {
  const std::tm untouched = TimeOf({});
  // Units whose low bytes are "5", "Jan" and a blank.
  CheckWidth<WCHAR>("%d", {static_cast<WCHAR>(0x0135)}, kMismatch, untouched, untouched);
  CheckWidth<WCHAR>("%b", {static_cast<WCHAR>(0x044A), W('a'), W('n')}, kMismatch, untouched, untouched);
  CheckWidth<WCHAR>(" a", {static_cast<WCHAR>(0x0120), W('a')}, kMismatch, untouched, untouched);
}
