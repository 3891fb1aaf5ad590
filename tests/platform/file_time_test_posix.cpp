// File times as a search returns them.
#include <gtest/gtest.h>

#include "platform/posix/time/system_time.h"

namespace {

std::uint64_t UnitsOf(std::int64_t seconds, std::uint32_t nanoseconds) {
  const FILETIME time = Platform::FileTimeOf(seconds, nanoseconds);
  return std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
}

}  // namespace

TEST(NativeFileTime, BeginsIn1601AndCounts100Nanoseconds) {
  EXPECT_EQ(UnitsOf(0, 0), 116444736000000000u);
  EXPECT_EQ(UnitsOf(0, 199), 116444736000000001u);
  EXPECT_EQ(UnitsOf(-1, 999999999), 116444735999999999u);
}

TEST(NativeFileTime, IsZeroBefore1601) {
  EXPECT_EQ(UnitsOf(-11644473600, 100), 1u);
  EXPECT_EQ(UnitsOf(-11644473601, 100), 0u);
  EXPECT_EQ(UnitsOf(INT64_MIN, 100), 0u);
}

TEST(NativeFileTime, IsZeroAfterTheLastWholeSecondThatHasANumber) {
  EXPECT_EQ(UnitsOf(910692730084, 999999999), 9223372036849999999u);
  EXPECT_EQ(UnitsOf(910692730085, 0), 0u);
  EXPECT_EQ(UnitsOf(INT64_MAX, 0), 0u);
}
