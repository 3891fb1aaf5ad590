// February 29, which Wine accepts in every year.

#include <gtest/gtest.h>

#include "platform/outcome.h"

namespace {

bool IsADay(WORD year, WORD day) {
  const SYSTEMTIME time = {year, 2, 0, day, 0, 0, 0, 0};
  FILETIME fileTime{};
  return SystemTimeToFileTime(&time, &fileTime) != FALSE;
}

TEST(SystemTimePosixTest, FebruaryHas29DaysInLeapYearsAlone) {
  for (const int year : {1604, 2000, 2024, 2400}) {
    EXPECT_TRUE(IsADay(static_cast<WORD>(year), 29)) << year;
    EXPECT_FALSE(IsADay(static_cast<WORD>(year), 30)) << year;
  }
  for (const int year : {1601, 1900, 2001, 2026, 2100}) {
    EXPECT_TRUE(IsADay(static_cast<WORD>(year), 28)) << year;
    EXPECT_FALSE(IsADay(static_cast<WORD>(year), 29)) << year;
  }
}

TEST(SystemTimePosixTest, TheLastYearIs30827) {
  EXPECT_TRUE(IsADay(30827, 28));
  EXPECT_FALSE(IsADay(30828, 28));
  EXPECT_FALSE(IsADay(1600, 28));
}

}  // namespace
