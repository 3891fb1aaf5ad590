// _mktime64.

#include <cstdint>
#include <ctime>
#include <optional>

#include "platform/posix/files/fault_gate.h"
#include "platform/posix/time/calendar.h"
#include "platform/posix/windows_functions.h"

namespace {

constexpr std::int64_t kDay = 86400;
constexpr std::int64_t kLastTime = 32535215999;  // 3000-12-31 23:59:59
// An upper bound of the distance of local time from UTC.
constexpr std::int64_t kFurthestZone = 2 * kDay;
constexpr std::int64_t kHalfYear = 182 * kDay;

// Returns the number of seconds from 1970-01-01 00:00:00 to the time in the fields, taken as UTC. Cannot
// overflow for any values of the fields.
std::int64_t SecondsOf(const std::tm& time) {
  std::int64_t year = std::int64_t{1900} + time.tm_year + time.tm_mon / 12;
  std::int64_t month = time.tm_mon % 12;
  if (month < 0) {
    month += 12;
    --year;
  }
  const std::int64_t days = Platform::DaysToMonth(year, month) + time.tm_mday - std::int64_t{1};
  return days * kDay + time.tm_hour * std::int64_t{3600} + time.tm_min * std::int64_t{60} + time.tm_sec;
}

// Returns the offset of local time from UTC at `moment`, in seconds; std::nullopt if daylight saving time
// applies. Stores the local time in `local`.
std::optional<long> StandardOffset(std::time_t moment, std::tm& local) {
  if (!localtime_r(&moment, &local) || local.tm_isdst != 0) return std::nullopt;
  return local.tm_gmtoff;
}

// Converts standard time without mktime, which reads the time zone file on each call; sorting by dates makes
// millions of calls. During daylight saving time, the standard offset is that of half a year before and
// after, if both agree. Returns true if `local` and `moment` hold the result; false if the caller must use
// mktime.
bool FindStandardTime(std::int64_t seconds, std::tm& local, std::time_t& moment) {
  static thread_local long offset = 0;  // that of the previous result
  for (int attempt = 0; attempt < 2; ++attempt) {
    moment = seconds - offset;
    std::optional<long> standard = StandardOffset(moment, local);
    if (!standard) {
      std::tm other;
      standard = StandardOffset(moment - kHalfYear, other);
      if (!standard || standard != StandardOffset(moment + kHalfYear, other)) return false;
    }
    if (standard == offset) return true;
    offset = *standard;
  }
  return false;
}

}  // namespace

std::int64_t _mktime64(std::tm* time) {
  if (Platform::FaultFires("_mktime64")) return -1;
  const std::int64_t seconds = SecondsOf(*time);
  if (seconds < -kFurthestZone || seconds > kLastTime + kFurthestZone) return -1;

  std::tm local{};
  std::time_t moment = 0;
  if (time->tm_isdst != 0 || !FindStandardTime(seconds, local, moment)) {
    const std::time_t universal = seconds;
    gmtime_r(&universal, &local);
    local.tm_isdst = time->tm_isdst;
    moment = mktime(&local);
  }
  if (moment < 0 || moment > kLastTime) return -1;
  *time = local;
  return moment;
}
