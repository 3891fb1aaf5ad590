// Runs a part of a test in a process of its own; for tests that run natively alone.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>

// `check` in a process whose environment has this value: what reads it once does so there anew.
template <typename Check>
void InEnvironment(const char* variable, const char* value, Check check) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto checkAndLeave = [&] {
    setenv(variable, value, 1);
    check();
    std::exit(testing::Test::HasFailure() ? EXIT_FAILURE : EXIT_SUCCESS);
  };
  EXPECT_EXIT(checkAndLeave(), testing::ExitedWithCode(EXIT_SUCCESS), "") << variable << "=" << value;
}
