// Runs part of a test in a separate process. For tests of the native build only.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>

// Runs `check` in a new process with this environment variable, so that values which a process reads once are
// read again.
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
