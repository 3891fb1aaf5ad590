// _mktime64: seconds of a local time. The tests run in the zone of the process, so they compare differences
// in standard time, in which all days have the same length.

#include <gtest/gtest.h>

#include <climits>
#include <ctime>

#include "platform/windows_api.h"

namespace {

constexpr std::int64_t kDay = 86400;

struct Fields {
  int year;  // in full, such as 2014
  int month = 1;
  int day = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

std::tm FilledTime(const Fields& fields) {
  std::tm time{};
  time.tm_year = fields.year - 1900;
  time.tm_mon = fields.month - 1;
  time.tm_mday = fields.day;
  time.tm_hour = fields.hour;
  time.tm_min = fields.minute;
  time.tm_sec = fields.second;
  return time;
}

std::int64_t Seconds(const Fields& fields) {
  std::tm time = FilledTime(fields);
  return _mktime64(&time);
}

TEST(MkTimeTest, ATimeIsCountedFrom1970InALocalZone) {
  constexpr std::int64_t kNewYear2014 = 1388534400;  // in UTC
  constexpr std::int64_t kFurthestZone = 15 * 3600;
  EXPECT_GT(Seconds({2014}), kNewYear2014 - kFurthestZone);
  EXPECT_LT(Seconds({2014}), kNewYear2014 + kFurthestZone);
}

struct DistanceRow {
  Fields from;
  Fields to;
  std::int64_t seconds;
};

constexpr DistanceRow kDistanceRows[] = {
    {{2014}, {2014, 1, 1, 1, 2, 3}, 3723},
    {{2014}, {2014, 1, 2}, kDay},
    {{2014, 2, 28}, {2014, 3, 1}, kDay},
    {{2016, 2, 28}, {2016, 3, 1}, 2 * kDay},
    {{2000, 2, 28}, {2000, 3, 1}, 2 * kDay},
    {{2100, 2, 28}, {2100, 3, 1}, kDay},
    {{2400, 2, 28}, {2400, 3, 1}, 2 * kDay},
    {{2015, 1, 10}, {2016, 1, 10}, 365 * kDay},
    {{2016, 1, 10}, {2017, 1, 10}, 366 * kDay},
    // Fields outside their ranges.
    {{2014, 1, 31}, {2014, 1, 32}, kDay},
    {{2014}, {2014, 13}, 365 * kDay},
    {{2014}, {2014, 25}, 730 * kDay},
    {{2014}, {2014, 1, 0}, -kDay},
    {{2014}, {2014, 0}, -31 * kDay},
    {{2014}, {2014, -11}, -365 * kDay},
    {{2014}, {2014, 1, 1, -1}, -3600},
    {{2014}, {2014, 1, 1, 24}, kDay},
    {{2014}, {2014, 1, 1, 0, -1440}, -kDay},
    {{2014}, {2014, 1, 1, 0, 0, 86400}, kDay},
    {{2014}, {2014, 1, 1, 0, 0, -1}, -1},
    {{2014}, {2014, 2, -30, 0, 60, -3600}, 0},
};

TEST(MkTimeTest, DistancesAreThoseOfTheCalendar) {
  for (const DistanceRow& row : kDistanceRows) {
    EXPECT_EQ(Seconds(row.to) - Seconds(row.from), row.seconds)
        << row.from.year << "-" << row.from.month << "-" << row.from.day << " to " << row.to.year << "-"
        << row.to.month << "-" << row.to.day;
  }
}

TEST(MkTimeTest, TheFieldsAreBroughtIntoTheirRanges) {
  std::tm time = FilledTime({2014, 14, 1, 12});
  time.tm_wday = 77;
  time.tm_yday = -5;
  ASSERT_GT(_mktime64(&time), 0);
  EXPECT_EQ(time.tm_year, 115);
  EXPECT_EQ(time.tm_mon, 1);
  EXPECT_EQ(time.tm_mday, 1);
  EXPECT_EQ(time.tm_wday, 0);
  EXPECT_EQ(time.tm_yday, 31);
  EXPECT_EQ(time.tm_min, 0);
}

TEST(MkTimeTest, TheDaysOfTheWeekAndOfTheYearAreNotLookedAt) {
  std::tm time = FilledTime({2014, 6, 15});
  time.tm_wday = 77;
  time.tm_yday = -5;
  EXPECT_EQ(_mktime64(&time), Seconds({2014, 6, 15}));
}

TEST(MkTimeTest, TheFirstAndLastYearsAreConverted) {
  EXPECT_GT(Seconds({1970, 1, 3}), 0);
  EXPECT_LT(Seconds({1970, 1, 3}), 4 * kDay);
  EXPECT_GT(Seconds({2038, 1, 20, 12}), std::int64_t{INT_MAX});
  EXPECT_EQ(Seconds({3000, 12, 29}) - Seconds({3000, 12, 28}), kDay);
}

TEST(MkTimeTest, TimesBeyondTheLimitsAreMinusOne) {
  std::tm zeros{};
  EXPECT_EQ(_mktime64(&zeros), -1);
  EXPECT_EQ(Seconds({1969, 12, 29}), -1);
  EXPECT_EQ(Seconds({1970, -5}), -1);
  EXPECT_EQ(Seconds({1601}), -1);
  EXPECT_EQ(Seconds({1}), -1);
  EXPECT_EQ(Seconds({-9999}), -1);
  EXPECT_EQ(Seconds({3001, 1, 4}), -1);
  EXPECT_EQ(Seconds({3000, 13, 4}), -1);
  EXPECT_EQ(Seconds({9999, 12, 31}), -1);
  EXPECT_EQ(Seconds({40000}), -1);
}

}  // namespace
