// What fields of a SYSTEMTIME are.
#pragma once

#include "platform/posix/windows_functions.h"

namespace Platform {

bool IsTimeOfDay(const SYSTEMTIME& time);

// From 1601-01-01 to 30827-12-31. The day of the week is not looked at.
bool IsDate(const SYSTEMTIME& date);

// 0 is Sunday. Counted from the date, which must be one.
int DayOfWeek(const SYSTEMTIME& date);

}  // namespace Platform
