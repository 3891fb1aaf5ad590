// Dates of undo files: seconds from 1970-01-01 00:00:00 to the fields of a clock on the wall, without any
// change of zone (C-657).
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

// 0 for fields that are no date.
s64 SecondsOfDate(const SYSTEMTIME& date);

// All zero for seconds beyond what a date can be.
SYSTEMTIME DateOfSeconds(s64 seconds);

}  // namespace Velmora::SDK
