// A fixture for functions of the platform that a test makes fail.
#pragma once

#include <gtest/gtest.h>

#include "platform/posix/files/faults.h"
#include "platform/windows_api.h"

// Not a number that any of the functions would come upon by itself.
inline constexpr DWORD kFaultError = 4711;

class FaultsOnDemand : public testing::Test {
 protected:
  // `call` must fail with the chosen error at its second call, and not before or after.
  template <typename Failure>
  void ExpectSecondCallFails(const char* function, Failure call) {
    Platform::Faults::Fail(function, 2, kFaultError);
    EXPECT_NE(call(), kFaultError) << function;
    EXPECT_EQ(call(), kFaultError) << function;
    EXPECT_NE(call(), kFaultError) << function;
    EXPECT_EQ(Platform::Faults::CallCount(function), 3) << function;
    Platform::Faults::Clear();
  }

  Platform::Faults::Scope scope_;
};
