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
// No zone is further from universal time, and no clock is put further forward.
constexpr std::int64_t kFurthestZone = 2 * kDay;
constexpr std::int64_t kHalfYear = 182 * kDay;

// The seconds that the fields are from 1970-01-01 00:00:00, all in the same zone. Whatever the fields hold,
// it fits.
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

// The distance of the zone's standard time at a moment; nothing while clocks are put forward.
std::optional<long> StandardOffset(std::time_t moment, std::tm& local) {
  if (!localtime_r(&moment, &local) || local.tm_isdst != 0) return std::nullopt;
  return local.tm_gmtoff;
}

// The usual question, for standard time, answered some millions of times without mktime's look at the file of
// the zone each time. While clocks are put forward, standard time is that of half a year before and after.
// True if `local` and `moment` are the answer.
bool FindStandardTime(std::int64_t seconds, std::tm& local, std::time_t& moment) {
  static thread_local long offset = 0;  // of the last answer
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
