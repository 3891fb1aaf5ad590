// A fixture for platform functions that a test makes fail.
#pragma once

#include <gtest/gtest.h>

#include "platform/posix/files/faults.h"
#include "platform/windows_api.h"

// An error that none of the functions sets by itself.
inline constexpr DWORD kFaultError = 4711;

class FaultsOnDemand : public testing::Test {
 protected:
  // Expects that `call` fails with the chosen error at its second call only.
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
