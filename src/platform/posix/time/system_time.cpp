// GetLocalTime, FileTimeToSystemTime and SystemTimeToFileTime.

#include <ctime>

#include "platform/posix/files/fault_gate.h"
#include "platform/posix/last_error.h"
#include "platform/posix/time/calendar.h"
#include "platform/posix/time/system_time.h"

namespace {

constexpr std::uint64_t kUnitsOfMillisecond = 10000;
constexpr std::uint64_t kMillisecondsOfDay = 86400000;
constexpr std::int64_t kDays1601To1970 = 134774;
constexpr std::uint64_t kLastFileTime = 0x7FFFFFFFFFFFFFFF;

}  // namespace

namespace Platform {

FILETIME FileTimeOf(std::int64_t seconds, std::uint32_t nanoseconds) {
  constexpr std::int64_t kSecondsTo1970 = kDays1601To1970 * 86400;
  constexpr std::int64_t kUnitsOfSecond = 10000000;
  constexpr std::int64_t kLastSecond = INT64_MAX / kUnitsOfSecond - kSecondsTo1970 - 1;
  if (seconds < -kSecondsTo1970 || seconds > kLastSecond) return {};
  const std::int64_t units = (seconds + kSecondsTo1970) * kUnitsOfSecond + nanoseconds / 100;
  return {static_cast<DWORD>(units & 0xFFFFFFFF), static_cast<DWORD>(units >> 32)};
}

bool IsTimeOfDay(const SYSTEMTIME& time) {
  return time.wHour < 24 && time.wMinute < 60 && time.wSecond < 60 && time.wMilliseconds < 1000;
}

bool IsDate(const SYSTEMTIME& date) {
  constexpr WORD kLastYear = 30827;
  if (date.wYear < 1601 || date.wYear > kLastYear || date.wMonth < 1 || date.wMonth > 12) return false;
  const std::int64_t first = DaysToMonth(date.wYear, date.wMonth - 1);
  const std::int64_t next =
      date.wMonth == 12 ? DaysToMonth(date.wYear + 1, 0) : DaysToMonth(date.wYear, date.wMonth);
  return date.wDay >= 1 && date.wDay <= next - first;
}

int DayOfWeek(const SYSTEMTIME& date) {
  constexpr std::int64_t kThursday = 4;  // 1970-01-01
  const std::int64_t days = DaysToMonth(date.wYear, date.wMonth - 1) + date.wDay - 1;
  return static_cast<int>(((days + kThursday) % 7 + 7) % 7);
}

}  // namespace Platform

void GetLocalTime(SYSTEMTIME* time) {
  std::timespec moment{};
  std::timespec_get(&moment, TIME_UTC);
  std::tm local{};
  localtime_r(&moment.tv_sec, &local);
  *time = {static_cast<WORD>(local.tm_year + 1900), static_cast<WORD>(local.tm_mon + 1),
           static_cast<WORD>(local.tm_wday),        static_cast<WORD>(local.tm_mday),
           static_cast<WORD>(local.tm_hour),        static_cast<WORD>(local.tm_min),
           static_cast<WORD>(local.tm_sec),         static_cast<WORD>(moment.tv_nsec / 1000000)};
}

BOOL FileTimeToSystemTime(const FILETIME* fileTime, SYSTEMTIME* time) {
  if (Platform::FaultFires("FileTimeToSystemTime")) return FALSE;
  const std::uint64_t units =
      static_cast<std::uint64_t>(fileTime->dwHighDateTime) << 32 | fileTime->dwLowDateTime;
  if (units > kLastFileTime) return Platform::FailWith(ERROR_INVALID_PARAMETER);
  const std::uint64_t milliseconds = units / kUnitsOfMillisecond;
  const auto rest = static_cast<std::uint32_t>(milliseconds % kMillisecondsOfDay);
  const Platform::CalendarDay day =
      Platform::DayOf(static_cast<std::int64_t>(milliseconds / kMillisecondsOfDay) - kDays1601To1970);
  time->wYear = static_cast<WORD>(day.year);
  time->wMonth = static_cast<WORD>(day.month + 1);
  time->wDay = static_cast<WORD>(day.day);
  time->wHour = static_cast<WORD>(rest / 3600000);
  time->wMinute = static_cast<WORD>(rest / 60000 % 60);
  time->wSecond = static_cast<WORD>(rest / 1000 % 60);
  time->wMilliseconds = static_cast<WORD>(rest % 1000);
  time->wDayOfWeek = static_cast<WORD>(Platform::DayOfWeek(*time));
  return TRUE;
}

BOOL SystemTimeToFileTime(const SYSTEMTIME* time, FILETIME* fileTime) {
  if (Platform::FaultFires("SystemTimeToFileTime")) return FALSE;
  if (!Platform::IsDate(*time) || !Platform::IsTimeOfDay(*time)) {
    return Platform::FailWith(ERROR_INVALID_PARAMETER);
  }
  const std::int64_t days =
      Platform::DaysToMonth(time->wYear, time->wMonth - 1) + time->wDay - 1 + kDays1601To1970;
  const std::uint64_t seconds = time->wHour * 3600u + time->wMinute * 60u + time->wSecond;
  const std::uint64_t units =
      (static_cast<std::uint64_t>(days) * kMillisecondsOfDay + seconds * 1000 + time->wMilliseconds) *
      kUnitsOfMillisecond;
  fileTime->dwLowDateTime = static_cast<DWORD>(units);
  fileTime->dwHighDateTime = static_cast<DWORD>(units >> 32);
  return TRUE;
}
