// Converts the dates of undo files: seconds since 1970-01-01 00:00:00 to and from a local date, without a
// conversion between time zones (C-657).
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

// Returns 0 if the fields are not a valid date.
s64 SecondsOfDate(const SYSTEMTIME& date);

// Returns zeros if the seconds are outside the range of dates.
SYSTEMTIME DateOfSeconds(s64 seconds);

}  // namespace Velmora::SDK
