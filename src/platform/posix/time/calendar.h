// Converts between dates of the Gregorian calendar and numbers of days.
#pragma once

#include <cstdint>

namespace Platform {

// Returns the number of days from 1970-01-01 to the first day of a month. `month` is 0 to 11; any year is
// allowed.
std::int64_t DaysToMonth(std::int64_t year, std::int64_t month);

// A date.
struct CalendarDay {
  std::int64_t year;
  int month;  // 0 to 11
  int day;    // from 1
};

// Returns the date `days` days after 1970-01-01. The date must not be before the year 0.
CalendarDay DayOf(std::int64_t days);

}  // namespace Platform
