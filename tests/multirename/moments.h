// Points in time as text, for comparisons.
#pragma once

#include <cstdio>
#include <string>

#include "platform/windows_api.h"

// Returns a text such as "20260305-140709.123", which sorts by time.
inline std::string MomentText(const SYSTEMTIME& time) {
  char text[64];
  std::snprintf(text, sizeof text, "%04u%02u%02u-%02u%02u%02u.%03u", unsigned{time.wYear},
                unsigned{time.wMonth}, unsigned{time.wDay}, unsigned{time.wHour}, unsigned{time.wMinute},
                unsigned{time.wSecond}, unsigned{time.wMilliseconds});
  return text;
}
