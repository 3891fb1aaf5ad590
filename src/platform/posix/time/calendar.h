// Days of the calendar.
#pragma once

#include <cstdint>

namespace Platform {

// The days from 1970-01-01 to the first day of a month; `month` is 0 to 11, and the year may be any.
std::int64_t DaysToMonth(std::int64_t year, std::int64_t month);

struct CalendarDay {
  std::int64_t year;
  int month;  // 0 to 11
  int day;    // from 1
};

// The day that is so many days after 1970-01-01, from the year 0 on.
CalendarDay DayOf(std::int64_t days);

}  // namespace Platform
