// Dates and times by Windows' format pictures. Names are tested in English only, the language of the test
// machines; numbers do not depend on it.

#include <gtest/gtest.h>

#include "platform/outcome.h"
#include "platform/text.h"

namespace {

constexpr SYSTEMTIME kAfternoon = {2026, 3, 0, 5, 14, 7, 9, 0};  // a Thursday, whatever the field is
constexpr SYSTEMTIME kMidnight = {2011, 11, 0, 22, 0, 0, 0, 0};

WString DateTextOf(const SYSTEMTIME& date, const WCHAR* picture) {
  WCHAR buffer[100] = {};
  const int count = GetDateFormatW(LOCALE_USER_DEFAULT, 0, &date, picture, buffer, 100);
  EXPECT_EQ(count, static_cast<int>(WString(buffer).size()) + 1);
  return buffer;
}

WString TimeTextOf(const SYSTEMTIME& time, const WCHAR* picture) {
  WCHAR buffer[100] = {};
  const int count = GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, picture, buffer, 100);
  EXPECT_EQ(count, static_cast<int>(WString(buffer).size()) + 1);
  return buffer;
}

WString LocaleItemOf(DWORD item) {
  WCHAR buffer[100] = {};
  EXPECT_GT(GetLocaleInfoW(LOCALE_USER_DEFAULT, item, buffer, 100), 0);
  return buffer;
}

TEST(DateFormatTest, NumbersOfDates) {
  EXPECT_EQ(DateTextOf(kAfternoon, W("yyyy-MM-dd")), W("2026-03-05"));
  EXPECT_EQ(DateTextOf(kAfternoon, W("d.M.yy")), W("5.3.26"));
  EXPECT_EQ(DateTextOf(kAfternoon, W("yyyyy")), W("2026"));
  EXPECT_EQ(DateTextOf(kMidnight, W("dd.MM.yy")), W("22.11.11"));
}

TEST(DateFormatTest, QuotedTextAndOtherCharactersThanLettersAreLiteral) {
  EXPECT_EQ(DateTextOf(kAfternoon, W("'day' d, 'o''clock' [/]")), W("day 5, o'clock [/]"));
  EXPECT_EQ(TimeTextOf(kAfternoon, W("H'h'mm'm'")), W("14h07m"));
}

TEST(DateFormatTest, NamesInEnglish) {
  EXPECT_EQ(DateTextOf(kAfternoon, W("ddd dddd")), W("Thu Thursday"));
  EXPECT_EQ(DateTextOf(kAfternoon, W("MMM MMMM")), W("Mar March"));
  EXPECT_EQ(DateTextOf(kMidnight, W("dddd, d. MMMM")), W("Tuesday, 22. November"));
}

TEST(DateFormatTest, Times) {
  EXPECT_EQ(TimeTextOf(kAfternoon, W("HH:mm:ss")), W("14:07:09"));
  EXPECT_EQ(TimeTextOf(kAfternoon, W("h:m:s")), W("2:7:9"));
  EXPECT_EQ(TimeTextOf(kAfternoon, W("hh tt")), W("02 PM"));
  EXPECT_EQ(TimeTextOf(kMidnight, W("h tt t H")), W("12 AM A 0"));
}

TEST(DateFormatTest, EachHalfOfTheDayBeginsWithTwelve) {
  const std::pair<WORD, const WCHAR*> rows[] = {{0, W("12 12 AM")},  {1, W("1 01 AM")},  {11, W("11 11 AM")},
                                                {12, W("12 12 PM")}, {13, W("1 01 PM")}, {23, W("11 11 PM")}};
  for (const auto& [hour, text] : rows) {
    const SYSTEMTIME time = {2026, 3, 0, 5, hour, 0, 0, 0};
    EXPECT_EQ(TimeTextOf(time, W("h hh tt")), text) << hour;
  }
}

TEST(DateFormatTest, EachMonthAndDayOfTheWeekHasItsNames) {
  constexpr const WCHAR* kMonths[] = {W("Jan January"), W("Feb February"), W("Mar March"),
                                      W("Apr April"),   W("May May"),      W("Jun June"),
                                      W("Jul July"),    W("Aug August"),   W("Sep September"),
                                      W("Oct October"), W("Nov November"), W("Dec December")};
  for (WORD month = 1; month <= 12; ++month) {
    const SYSTEMTIME date = {2026, month, 0, 1, 0, 0, 0, 0};
    EXPECT_EQ(DateTextOf(date, W("MMM MMMM")), kMonths[month - 1]);
    EXPECT_EQ(DateTextOf(date, W("d MMMM")), W("1 ") + WString(kMonths[month - 1]).substr(4));
  }
  constexpr const WCHAR* kDays[] = {W("Sun Sunday"),   W("Mon Monday"), W("Tue Tuesday"), W("Wed Wednesday"),
                                    W("Thu Thursday"), W("Fri Friday"), W("Sat Saturday")};
  for (WORD day = 1; day <= 7; ++day) {
    const SYSTEMTIME date = {2026, 2, 0, day, 0, 0, 0, 0};  // starting with a Sunday
    EXPECT_EQ(DateTextOf(date, W("ddd dddd")), kDays[day - 1]);
  }
}

TEST(DateFormatTest, NumbersHaveNoMoreDigitsThanAsked) {
  constexpr SYSTEMTIME kEarly = {2001, 1, 0, 2, 3, 4, 5, 0};
  EXPECT_EQ(DateTextOf(kEarly, W("d dd M MM yy yyyy")), W("2 02 1 01 01 2001"));
  EXPECT_EQ(TimeTextOf(kEarly, W("H HH m mm s ss")), W("3 03 4 04 5 05"));
}

TEST(DateFormatTest, TheUsersOwnFormatsInAmericanEnglish) {
  EXPECT_EQ(LocaleItemOf(LOCALE_SSHORTDATE), W("M/d/yyyy"));
  EXPECT_EQ(LocaleItemOf(LOCALE_STIMEFORMAT), W("h:mm:ss tt"));
}

TEST(DateFormatTest, ATextThatDoesNotFitIsRefusedAndItsSizeCanBeAsked) {
  WCHAR buffer[10];
  EXPECT_EQ(FailureOf(GetDateFormatW(LOCALE_USER_DEFAULT, 0, &kAfternoon, W("yyyy-MM-dd"), buffer, 10)),
            122u);
  EXPECT_EQ(GetDateFormatW(LOCALE_USER_DEFAULT, 0, &kAfternoon, W("yyyy-MM-dd"), nullptr, 0), 11);
  WCHAR exact[11];
  EXPECT_EQ(GetDateFormatW(LOCALE_USER_DEFAULT, 0, &kAfternoon, W("yyyy-MM-dd"), exact, 11), 11);
  EXPECT_EQ(WString(exact), W("2026-03-05"));
  EXPECT_EQ(FailureOf(GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &kAfternoon, W("HH:mm:ss"), buffer, 8)), 122u);
  EXPECT_EQ(FailureOf(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, buffer, 8)), 122u);
}

TEST(DateFormatTest, FieldsThatAreNoDateOrTimeAreRefused) {
  WCHAR buffer[100];
  constexpr SYSTEMTIME kNoDate = {2026, 4, 0, 31, 0, 0, 0, 0};
  constexpr SYSTEMTIME kNoTime = {2026, 2, 0, 28, 24, 0, 0, 0};
  EXPECT_EQ(FailureOf(GetDateFormatW(LOCALE_USER_DEFAULT, 0, &kNoDate, W("yyyy"), buffer, 100)), 87u);
  EXPECT_EQ(FailureOf(GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &kNoTime, W("HH"), buffer, 100)), 87u);
}

}  // namespace
