#include "platform/posix/time/calendar.h"

namespace Platform {

namespace {

constexpr std::int64_t kDaysTo1970 = 719468;  // from 0000-03-01
constexpr std::int64_t kDaysOf400Years = 146097;

}  // namespace

// Counts years from March, so that the leap day is the last day of a year.
std::int64_t DaysToMonth(std::int64_t year, std::int64_t month) {
  const std::int64_t marchYear = month < 2 ? year - 1 : year;
  const std::int64_t marchMonth = (month + 10) % 12;
  const auto floorOf = [](std::int64_t number, std::int64_t divisor) {
    return number / divisor - (number % divisor < 0 ? 1 : 0);
  };
  const std::int64_t leapDays = floorOf(marchYear, 4) - floorOf(marchYear, 100) + floorOf(marchYear, 400);
  return marchYear * 365 + leapDays + (153 * marchMonth + 2) / 5 - kDaysTo1970;
}

CalendarDay DayOf(std::int64_t days) {
  const std::int64_t since = days + kDaysTo1970;
  const std::int64_t cycle = since / kDaysOf400Years;
  const std::int64_t inCycle = since % kDaysOf400Years;
  const std::int64_t yearInCycle = (inCycle - inCycle / 1460 + inCycle / 36524 - inCycle / 146096) / 365;
  const std::int64_t inYear = inCycle - (365 * yearInCycle + yearInCycle / 4 - yearInCycle / 100);
  const std::int64_t marchMonth = (5 * inYear + 2) / 153;
  const auto month = static_cast<int>((marchMonth + 2) % 12);
  return {cycle * 400 + yearInCycle + (month < 2 ? 1 : 0), month,
          static_cast<int>(inYear - (153 * marchMonth + 2) / 5 + 1)};
}

}  // namespace Platform
