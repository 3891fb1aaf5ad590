// Checks of the fields of a SYSTEMTIME.
#pragma once

#include "platform/posix/windows_functions.h"

namespace Platform {

// Returns whether hour, minute, second and milliseconds are in their ranges.
bool IsTimeOfDay(const SYSTEMTIME& time);

// Returns the file time `seconds` and `nanoseconds` after 1970-01-01 UTC, rounded down to 100 nanoseconds; 0
// for a time before 1601 or after 30828-09-14 02:48:04.
QX_PLATFORM_API FILETIME FileTimeOf(std::int64_t seconds, std::uint32_t nanoseconds);

// Returns whether the fields are a date from 1601-01-01 to 30827-12-31. Ignores the day of the week.
bool IsDate(const SYSTEMTIME& date);

// Returns the day of the week of a valid date, computed from the date; 0 is Sunday.
int DayOfWeek(const SYSTEMTIME& date);

}  // namespace Platform
