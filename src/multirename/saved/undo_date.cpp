#include "multirename/saved/undo_date.h"

namespace Velmora::SDK {

namespace {

// A FILETIME counts units of 100 nanoseconds since 1601.
constexpr u64 kUnitsOfSecond = 10000000;
constexpr u64 kSecondsTo1970 = 11644473600;

}  // namespace

s64 SecondsOfDate(const SYSTEMTIME& date) {
  FILETIME time{};
  if (!SystemTimeToFileTime(&date, &time)) return 0;
  const u64 units = static_cast<u64>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
  return static_cast<s64>(units / kUnitsOfSecond) - static_cast<s64>(kSecondsTo1970);
}

SYSTEMTIME DateOfSeconds(s64 seconds) {
  // A file may contain any number; an overflow wraps around.
  const u64 units = (static_cast<u64>(seconds) + kSecondsTo1970) * kUnitsOfSecond;
  const FILETIME time{static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
  SYSTEMTIME date{};
  if (!FileTimeToSystemTime(&time, &date)) date = {};
  return date;
}

}  // namespace Velmora::SDK
