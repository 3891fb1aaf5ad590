// Dates in time zones that the test sets.
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <optional>

#include "linesorter/engine/sort_keys.h"
#include "linesorter/line_records.h"

using namespace WQLineSorter;

namespace {

class TimeZone {
 public:
  explicit TimeZone(const char* zone) {
    if (const char* before = std::getenv("TZ")) old = before;
    setenv("TZ", zone, 1);
    tzset();
  }
  ~TimeZone() {
    if (old) {
      setenv("TZ", old->c_str(), 1);
    } else {
      unsetenv("TZ");
    }
    tzset();
  }
  TimeZone(const TimeZone&) = delete;
  TimeZone& operator=(const TimeZone&) = delete;

 private:
  std::optional<std::string> old;
};

std::int64_t DateKey(const char* zone, const std::string& text) {
  const TimeZone scope(zone);
  SortLinesOptions options;
  options.options = SortBySubstring | SortAsDate;
  CopyTerminated(options.dateFormat, sizeof(options.dateFormat), std::string_view("%Y-%m-%d %H:%M:%S"));
  LineRecords<char> bytes = LinesOf<char>({text});
  ComputeSortKeys<char>(bytes.lines, options);
  LineRecords<WCHAR> units = LinesOf<WCHAR>({text});
  ComputeSortKeys<WCHAR>(units.lines, options);
  EXPECT_EQ(units.lines[0].numericKey, bytes.lines[0].numericKey);
  return bytes.lines[0].numericKey;
}

}  // namespace

TEST(SortKeysOfDates, CountSecondsSinceTheYear1970) {
  EXPECT_EQ(DateKey("UTC0", "2014-11-21 00:00:00"), 1416528000);
  EXPECT_EQ(DateKey("UTC0", "1970-01-01 00:00:00"), 0);
  EXPECT_EQ(DateKey("UTC0", "2000-02-29 12:34:56"), 951827696);
}

TEST(SortKeysOfDates, AreLocalTime) {
  EXPECT_EQ(DateKey("EST5EDT,M3.2.0,M11.1.0", "2014-01-15 00:00:00"), 1389762000);
  EXPECT_EQ(DateKey("CET-1CEST,M3.5.0,M10.5.0/3", "2014-01-15 00:00:00"), 1389740400);
}

TEST(SortKeysOfDates, DaylightTimesAreReadAsStandardTimesByDesign) {
  EXPECT_EQ(DateKey("EST5EDT,M3.2.0,M11.1.0", "2014-07-01 00:00:00"), 1404190800);
}

TEST(SortKeysOfDates, NothingBefore1970OrAfter3000IsConverted) {
  EXPECT_EQ(DateKey("UTC0", "1969-12-31 23:59:58"), -1);
  EXPECT_EQ(DateKey("UTC0", "1969-12-31 00:00:00"), -1);
  EXPECT_EQ(DateKey("UTC0", "3000-12-31 23:59:59"), 32535215999);
  EXPECT_EQ(DateKey("UTC0", "3001-01-02 00:00:00"), -1);
}

// In the native build only: Wine's C library reduces days beyond 32 bits modulo 2^32.
TEST(SortKeysOfDates, DaysWithoutNumberAreNotConverted) {
  EXPECT_EQ(DateKey("UTC0", "2014-11-99999999999 00:00:00"), -1);
  EXPECT_EQ(DateKey("UTC0", "2014-11--99999999999 00:00:00"), -1);
}
