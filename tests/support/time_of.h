// A point in time as the C library's std::tm.
#pragma once

#include <ctime>

// Months count from 1; the year is the full number.
inline std::tm TimeOf(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  std::tm time{};
  time.tm_year = year - 1900;
  time.tm_mon = month - 1;
  time.tm_mday = day;
  time.tm_hour = hour;
  time.tm_min = minute;
  time.tm_sec = second;
  return time;
}
