// _mktime64 in known zones, each in a separate process, and fields for which Wine overflows.

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <ctime>
#include <random>
#include <string>
#include <vector>

#include "platform/windows_api.h"
#include "support/in_environment_posix.h"
#include "support/scratch_folder.h"
#include "support/time_of.h"

namespace {

constexpr char kCentralEurope[] = "CET-1CEST,M3.5.0,M10.5.0/3";

// Runs `check` in a new process in this time zone.
template <typename Check>
void InZone(const char* zone, Check check) {
  InEnvironment("TZ", zone, [&] {
    tzset();
    check();
  });
}

std::int64_t Seconds(std::tm time) { return _mktime64(&time); }

TEST(NativeMkTimeDeathTest, TheLimitsAreExactInUniversalTime) {
  InZone("UTC0", [] {
    EXPECT_EQ(Seconds(TimeOf(1970, 1, 1)), 0);
    EXPECT_EQ(Seconds(TimeOf(1970, 1, 1, 0, 0, 1)), 1);
    EXPECT_EQ(Seconds(TimeOf(1970, 1, 1, 0, 0, -1)), -1);
    EXPECT_EQ(Seconds(TimeOf(1970, 1, 1, 0, 0, -2)), -1);
    EXPECT_EQ(Seconds(TimeOf(2014, 1, 1)), 1388534400);
    EXPECT_EQ(Seconds(TimeOf(3000, 12, 31, 23, 59, 59)), 32535215999);
    EXPECT_EQ(Seconds(TimeOf(3000, 12, 31, 23, 59, 60)), -1);
    EXPECT_EQ(Seconds(TimeOf(3001, 1, 1)), -1);
  });
}

TEST(NativeMkTimeDeathTest, TheLimitsAreOfUniversalTimeInOtherZonesToo) {
  InZone("CET-1", [] {
    EXPECT_EQ(Seconds(TimeOf(1970, 1, 1, 1)), 0);
    EXPECT_EQ(Seconds(TimeOf(1970, 1, 1)), -1);
    EXPECT_EQ(Seconds(TimeOf(3001, 1, 1, 0, 59, 59)), 32535215999);
    EXPECT_EQ(Seconds(TimeOf(3001, 1, 1, 1)), -1);
  });
  InZone("EST5", [] {
    EXPECT_EQ(Seconds(TimeOf(1969, 12, 31, 19)), 0);
    EXPECT_EQ(Seconds(TimeOf(3000, 12, 31, 19)), -1);
  });
}

// 2014-07-01 00:00 UTC is 1404172800.
TEST(NativeMkTimeDeathTest, TheFieldSaysWhichTimeASummersDayIsGivenIn) {
  InZone(kCentralEurope, [] {
    std::tm standard = TimeOf(2014, 7, 1, 12);
    EXPECT_EQ(_mktime64(&standard), 1404172800 + 11 * 3600);
    EXPECT_EQ(standard.tm_hour, 13);
    EXPECT_EQ(standard.tm_isdst, 1);
    std::tm summer = TimeOf(2014, 7, 1, 12);
    summer.tm_isdst = 1;
    EXPECT_EQ(_mktime64(&summer), 1404172800 + 10 * 3600);
    EXPECT_EQ(summer.tm_hour, 12);
    std::tm any = TimeOf(2014, 7, 1, 12);
    any.tm_isdst = -1;
    EXPECT_EQ(_mktime64(&any), 1404172800 + 10 * 3600);
    EXPECT_EQ(any.tm_isdst, 1);
  });
}

TEST(NativeMkTimeDeathTest, TheFieldSaysWhichTimeAWintersDayIsGivenIn) {
  InZone(kCentralEurope, [] {
    EXPECT_EQ(Seconds(TimeOf(2014, 1, 1, 12)), 1388534400 + 11 * 3600);
    std::tm summer = TimeOf(2014, 1, 1, 12);
    summer.tm_isdst = 1;
    EXPECT_EQ(_mktime64(&summer), 1388534400 + 10 * 3600);
    EXPECT_EQ(summer.tm_isdst, 0);
    EXPECT_EQ(summer.tm_hour, 11);
    std::tm any = TimeOf(2014, 1, 1, 12);
    any.tm_isdst = -1;
    EXPECT_EQ(_mktime64(&any), 1388534400 + 11 * 3600);
  });
}

// The C library's result is the reference; for standard time the tested function takes a shorter way.
TEST(NativeMkTimeDeathTest, StandardTimeIsTheSameAsTheLibrarys) {
  for (const char* zone : {"UTC0", kCentralEurope, "EST5EDT,M3.2.0,M11.1.0", "AEST-10AEDT,M10.1.0,M4.1.0/3",
                           "<+0545>-5:45", "<+1030>-10:30<+11>-11,M10.1.0,M4.1.0"}) {
    InZone(zone, [zone] {
      std::mt19937 random(12);
      const auto upTo = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
      for (int round = 0; round < 3000; ++round) {
        std::tm time = TimeOf(1971 + upTo(500), upTo(30) - 6, upTo(100) - 30, upTo(60) - 20, upTo(200) - 70,
                              upTo(200) - 70);
        std::tm same = time;
        const std::int64_t expected = mktime(&same);
        ASSERT_EQ(_mktime64(&time), expected < 0 ? -1 : expected) << zone << " " << round;
        if (expected < 0) continue;
        ASSERT_EQ(time.tm_hour, same.tm_hour) << zone << " " << round;
        ASSERT_EQ(time.tm_mday, same.tm_mday) << zone << " " << round;
        ASSERT_EQ(time.tm_isdst, same.tm_isdst) << zone << " " << round;
      }
    });
  }
}

// A zone file (RFC 8536, version 1).
struct ZoneTime {
  int offset;  // seconds
  bool isSummer;
};
struct ZoneChange {
  std::int32_t at;  // in UTC
  char time;        // index of the time that applies from then on
};

std::string ZoneFile(const std::vector<ZoneTime>& times, const std::vector<ZoneChange>& changes) {
  std::string file("TZif", 4);
  file.append(16, '\0');
  const auto add = [&file](std::uint32_t number) {
    for (int shift = 24; shift >= 0; shift -= 8) file += static_cast<char>(number >> shift);
  };
  for (const std::size_t count :
       {std::size_t{0}, std::size_t{0}, std::size_t{0}, changes.size(), times.size()}) {
    add(static_cast<std::uint32_t>(count));
  }
  add(4);  // number of characters in names
  for (const ZoneChange& change : changes) add(static_cast<std::uint32_t>(change.at));
  for (const ZoneChange& change : changes) file += change.time;
  for (const ZoneTime& time : times) {
    add(static_cast<std::uint32_t>(time.offset));
    file += time.isSummer ? '\1' : '\0';
    file += '\0';
  }
  return file.append("ZON\0", 4);
}

// Checks each hour of five years in a zone from this file. Must run in a separate process.
void CheckHoursAgainstTheLibrary(const std::string& zoneFile) {
  const ScratchFolder folder;
  folder.Write(W("zone"), zoneFile);
  setenv("TZ", (":" + folder.NativePath(W("zone")).string()).c_str(), 1);
  tzset();
  for (int hour = 0; hour < 5 * 366 * 24; ++hour) {
    std::tm time = TimeOf(2014, 1, 1, hour, 30);
    std::tm same = time;
    const std::int64_t expected = mktime(&same);
    ASSERT_EQ(_mktime64(&time), expected) << hour;
    ASSERT_EQ(time.tm_hour, same.tm_hour) << hour;
    ASSERT_EQ(time.tm_isdst, same.tm_isdst) << hour;
  }
}

// 2016-03-27 01:00 UTC and 2016-09-07 00:00 UTC.
constexpr std::int32_t kSpring2016 = 1459040400;
constexpr std::int32_t kAutumn2016 = 1473206400;

TEST(NativeMkTimeDeathTest, AZoneWhoseStandardTimeIsAnotherAfterASummerIsTheLibrarys) {
  InZone("UTC0", [] {
    CheckHoursAgainstTheLibrary(
        ZoneFile({{7200, false}, {10800, true}, {10800, false}}, {{kSpring2016, 1}, {kAutumn2016, 2}}));
  });
}

TEST(NativeMkTimeDeathTest, AZoneThatChangesItsStandardTimeIsTheLibrarys) {
  for (const int other : {14400, 7200, 21600}) {
    InZone("UTC0", [other] {
      CheckHoursAgainstTheLibrary(
          ZoneFile({{10800, false}, {other, false}}, {{kSpring2016, 1}, {kAutumn2016, 0}}));
    });
  }
}

TEST(NativeMkTimeDeathTest, FieldsFarOutOfTheirRangesAreMinusOneOrExact) {
  InZone("UTC0", [] {
    constexpr std::int64_t kNewYear2014 = 1388534400;
    for (int std::tm::*field : {&std::tm::tm_sec, &std::tm::tm_min, &std::tm::tm_hour, &std::tm::tm_mday,
                                &std::tm::tm_mon, &std::tm::tm_year}) {
      for (const int value : {INT_MIN, INT_MIN + 1, INT_MAX - 1, INT_MAX}) {
        std::tm time = TimeOf(2014, 1, 1);
        time.*field = value;
        const bool inRange = field == &std::tm::tm_sec && value > 0;
        EXPECT_EQ(_mktime64(&time), inRange ? kNewYear2014 + value : -1) << value;
      }
    }
    for (const int value : {INT_MIN, INT_MAX}) {
      std::tm time{};
      time.tm_sec = time.tm_min = time.tm_hour = time.tm_mday = time.tm_mon = time.tm_year = value;
      EXPECT_EQ(_mktime64(&time), -1);
      EXPECT_EQ(time.tm_mon, value);
    }
    // A year far out of range that the months bring back.
    std::tm time = TimeOf(2014, 1, 1);
    time.tm_year -= 1000;
    time.tm_mon += 12000;
    EXPECT_EQ(_mktime64(&time), kNewYear2014);
  });
}

TEST(NativeMkTimeTest, FieldsOfATimeBeyondTheLimitsStayAsTheyAre) {
  std::tm time = TimeOf(1950, 14, 40, 30);
  EXPECT_EQ(_mktime64(&time), -1);
  EXPECT_EQ(time.tm_year, 50);
  EXPECT_EQ(time.tm_mon, 13);
  EXPECT_EQ(time.tm_mday, 40);
  EXPECT_EQ(time.tm_hour, 30);
}

}  // namespace
