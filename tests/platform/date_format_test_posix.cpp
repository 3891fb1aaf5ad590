// Dates and times in other languages, each in a separate process, and results that differ from Wine's.

#include <gtest/gtest.h>

#include "platform/outcome.h"
#include "platform/text.h"
#include "support/in_environment_posix.h"

namespace {

constexpr SYSTEMTIME kEvening = {2026, 11, 0, 22, 19, 5, 0, 0};

WString DateIn(const WCHAR* picture) {
  WCHAR buffer[100] = {};
  EXPECT_GT(GetDateFormatW(LOCALE_USER_DEFAULT, 0, &kEvening, picture, buffer, 100), 0);
  return buffer;
}

WString UsersPicture(DWORD item) {
  WCHAR buffer[100] = {};
  EXPECT_GT(GetLocaleInfoW(LOCALE_USER_DEFAULT, item, buffer, 100), 0);
  return buffer;
}

TEST(NativeDateFormatDeathTest, AMonthWithADayIsInItsOtherCase) {
  InEnvironment("LC_ALL", "pl_PL.UTF-8", [] {
    EXPECT_EQ(DateIn(W("MMMM yyyy")), W("listopad 2026"));
    EXPECT_EQ(DateIn(W("d MMMM")), W("22 listopada"));
    EXPECT_EQ(DateIn(W("dddd")), W("niedziela"));
  });
}

TEST(NativeDateFormatDeathTest, ThePicturesOfTheLanguageAreInWindowsLetters) {
  InEnvironment("LC_ALL", "de_DE.UTF-8", [] {
    EXPECT_EQ(UsersPicture(LOCALE_SSHORTDATE), W("d.M.yyyy"));
    EXPECT_EQ(UsersPicture(LOCALE_STIMEFORMAT), W("HH:mm:ss"));
    EXPECT_EQ(DateIn(W("dddd, d. MMMM")), W("Sonntag, 22. November"));
  });
  InEnvironment("LC_ALL", "en_US.UTF-8", [] {
    EXPECT_EQ(UsersPicture(LOCALE_SSHORTDATE), W("M/d/yyyy"));
    EXPECT_EQ(UsersPicture(LOCALE_STIMEFORMAT), W("h:mm:ss tt"));
  });
}

TEST(NativeDateFormatTest, AQuoteWithoutAnEndGoesToTheEnd) {
  EXPECT_EQ(DateIn(W("d 'of")), W("22 of"));
  EXPECT_EQ(DateIn(W("d 'of''d")), W("22 of'd"));
  EXPECT_EQ(DateIn(W("'d' d")), W("d 22"));
}

// Wine returns two digits.
TEST(NativeDateFormatTest, AYearOfOneLetterHasNoLeadingZero) {
  constexpr SYSTEMTIME kEarly = {2001, 1, 0, 2, 0, 0, 0, 0};
  WCHAR buffer[100] = {};
  EXPECT_EQ(GetDateFormatW(LOCALE_USER_DEFAULT, 0, &kEarly, W("y yyy"), buffer, 100), 7);
  EXPECT_EQ(WString(buffer), W("1 2001"));
}

TEST(NativeDateFormatTest, EachArgumentMustBeThere) {
  WCHAR buffer[100];
  EXPECT_EQ(FailureOf(GetDateFormatW(LOCALE_USER_DEFAULT, 0, nullptr, W("d"), buffer, 100)), 87u);
  EXPECT_EQ(FailureOf(GetDateFormatW(LOCALE_USER_DEFAULT, 0, &kEvening, nullptr, buffer, 100)), 87u);
  EXPECT_EQ(FailureOf(GetTimeFormatW(LOCALE_USER_DEFAULT, 0, nullptr, W("h"), buffer, 100)), 87u);
  EXPECT_EQ(FailureOf(GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &kEvening, nullptr, buffer, 100)), 87u);
  EXPECT_EQ(FailureOf(GetDateFormatW(LOCALE_USER_DEFAULT, 0, &kEvening, W("d"), nullptr, 100)), 122u);
  EXPECT_EQ(FailureOf(GetLocaleInfoW(LOCALE_USER_DEFAULT, 30, buffer, 100)), 1004u);
  EXPECT_EQ(FailureOf(GetLocaleInfoW(LOCALE_USER_DEFAULT, 4098, buffer, 100)), 1004u);
}

}  // namespace
