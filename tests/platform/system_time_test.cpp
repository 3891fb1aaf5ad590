// Converting file times to fields and back, and the local time.

#include <gtest/gtest.h>

#include <ctime>

#include "platform/outcome.h"
#include "platform/windows_api.h"

namespace {

FILETIME FileTimeOf(std::uint64_t units) {
  return {static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
}

struct TimeRow {
  std::uint64_t units;
  SYSTEMTIME time;
};

constexpr TimeRow kTimeRows[] = {
    {0, {1601, 1, 1, 1, 0, 0, 0, 0}},
    {10000, {1601, 1, 1, 1, 0, 0, 0, 1}},
    {116444736000000000, {1970, 1, 4, 1, 0, 0, 0, 0}},
    {125962998000000000, {2000, 2, 2, 29, 12, 10, 0, 0}},
    {94354848000000000, {1900, 1, 1, 1, 0, 0, 0, 0}},
    {133485407999990000, {2023, 12, 0, 31, 23, 59, 59, 999}},
    {0x7FFFFFFFFFFF0000, {30828, 9, 4, 14, 2, 48, 5, 471}},
};

void ExpectEqual(const SYSTEMTIME& lhs, const SYSTEMTIME& rhs) {
  EXPECT_EQ(lhs.wYear, rhs.wYear);
  EXPECT_EQ(lhs.wMonth, rhs.wMonth);
  EXPECT_EQ(lhs.wDayOfWeek, rhs.wDayOfWeek);
  EXPECT_EQ(lhs.wDay, rhs.wDay);
  EXPECT_EQ(lhs.wHour, rhs.wHour);
  EXPECT_EQ(lhs.wMinute, rhs.wMinute);
  EXPECT_EQ(lhs.wSecond, rhs.wSecond);
  EXPECT_EQ(lhs.wMilliseconds, rhs.wMilliseconds);
}

TEST(SystemTimeTest, ATimeOfAFileHasTheseFields) {
  for (const TimeRow& row : kTimeRows) {
    SCOPED_TRACE(row.units);
    const FILETIME fileTime = FileTimeOf(row.units);
    SYSTEMTIME time{};
    ASSERT_TRUE(FileTimeToSystemTime(&fileTime, &time));
    ExpectEqual(time, row.time);
  }
}

TEST(SystemTimeTest, FieldsBecomeATimeOfAFileWhateverTheirDayOfTheWeek) {
  for (const TimeRow& row : kTimeRows) {
    if (row.time.wYear > 30827) continue;
    SCOPED_TRACE(row.units);
    SYSTEMTIME time = row.time;
    time.wDayOfWeek = 9;
    FILETIME fileTime{};
    ASSERT_TRUE(SystemTimeToFileTime(&time, &fileTime));
    EXPECT_EQ(static_cast<std::uint64_t>(fileTime.dwHighDateTime) << 32 | fileTime.dwLowDateTime, row.units);
  }
}

constexpr WORD kDaysOfMonths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

WORD DaysOf(WORD year, WORD month) {
  const bool isLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  return static_cast<WORD>(kDaysOfMonths[month - 1] + (month == 2 && isLeap ? 1 : 0));
}

// More than one cycle of the calendar, which has 400 years.
TEST(SystemTimeTest, EveryDayFollowsTheOneBefore) {
  constexpr std::uint64_t kDay = 864000000000;
  std::uint64_t units = 0;
  WORD dayOfWeek = 1;
  for (WORD year = 1601; year < 2102; ++year) {
    for (WORD month = 1; month <= 12; ++month) {
      for (WORD day = 1; day <= DaysOf(year, month);
           ++day, units += kDay, dayOfWeek = static_cast<WORD>((dayOfWeek + 1) % 7)) {
        const SYSTEMTIME expected = {year, month, dayOfWeek, day, 0, 0, 0, 0};
        FILETIME fileTime = FileTimeOf(units);
        SYSTEMTIME time{};
        ASSERT_TRUE(FileTimeToSystemTime(&fileTime, &time));
        ExpectEqual(time, expected);
        ASSERT_TRUE(SystemTimeToFileTime(&expected, &fileTime));
        ASSERT_EQ(static_cast<std::uint64_t>(fileTime.dwHighDateTime) << 32 | fileTime.dwLowDateTime, units);
        ASSERT_FALSE(HasFailure()) << year << "-" << month << "-" << day;
      }
    }
  }
}

TEST(SystemTimeTest, TheLastMomentOfEachFieldIsTaken) {
  for (WORD month = 1; month <= 12; ++month) {
    const SYSTEMTIME last = {2023, month, 0, DaysOf(2023, month), 23, 59, 59, 999};
    FILETIME fileTime{};
    EXPECT_TRUE(SystemTimeToFileTime(&last, &fileTime)) << month;
    SYSTEMTIME time{};
    ASSERT_TRUE(FileTimeToSystemTime(&fileTime, &time));
    EXPECT_EQ(time.wDay, last.wDay);
    EXPECT_EQ(time.wHour, 23);
    EXPECT_EQ(time.wMinute, 59);
    EXPECT_EQ(time.wSecond, 59);
    EXPECT_EQ(time.wMilliseconds, 999);
    if (month == 2) continue;
    const SYSTEMTIME behind = {2023, month, 0, static_cast<WORD>(last.wDay + 1), 0, 0, 0, 0};
    EXPECT_EQ(FailureOf(SystemTimeToFileTime(&behind, &fileTime)), 87u) << month;
  }
}

TEST(SystemTimeTest, ATimeWithItsHighestBitIsNone) {
  const FILETIME fileTime = FileTimeOf(0x8000000000000000);
  SYSTEMTIME time{};
  EXPECT_EQ(FailureOf(FileTimeToSystemTime(&fileTime, &time)), 87u);
}

TEST(SystemTimeTest, FieldsThatAreNoTimeAreRefused) {
  constexpr SYSTEMTIME kNoTimes[] = {
      {1600, 1, 0, 1, 0, 0, 0, 0},  {2026, 0, 0, 1, 0, 0, 0, 0},    {2026, 13, 0, 1, 0, 0, 0, 0},
      {2026, 1, 0, 0, 0, 0, 0, 0},  {2026, 1, 0, 32, 0, 0, 0, 0},   {2026, 4, 0, 31, 0, 0, 0, 0},
      {2026, 2, 0, 30, 0, 0, 0, 0}, {2026, 1, 0, 1, 24, 0, 0, 0},   {2026, 1, 0, 1, 0, 60, 0, 0},
      {2026, 1, 0, 1, 0, 0, 60, 0}, {2026, 1, 0, 1, 0, 0, 0, 1000},
  };
  for (const SYSTEMTIME& row : kNoTimes) {
    FILETIME fileTime{};
    EXPECT_EQ(FailureOf(SystemTimeToFileTime(&row, &fileTime)), 87u)
        << row.wYear << " " << row.wMonth << " " << row.wDay;
  }
}

TEST(SystemTimeTest, TheLocalTimeIsNow) {
  const auto secondsOf = [](const SYSTEMTIME& clock) {
    std::tm fields{};
    fields.tm_year = clock.wYear - 1900;
    fields.tm_mon = clock.wMonth - 1;
    fields.tm_mday = clock.wDay;
    fields.tm_hour = clock.wHour;
    fields.tm_min = clock.wMinute;
    fields.tm_sec = clock.wSecond;
    fields.tm_isdst = -1;
    return _mktime64(&fields);
  };
  const std::int64_t before = std::time(nullptr);
  SYSTEMTIME local{};
  GetLocalTime(&local);
  const std::int64_t after = std::time(nullptr);
  EXPECT_GE(secondsOf(local), before);
  EXPECT_LE(secondsOf(local), after);
  EXPECT_LT(local.wMilliseconds, 1000);
  EXPECT_LT(local.wDayOfWeek, 7);
}

}  // namespace
