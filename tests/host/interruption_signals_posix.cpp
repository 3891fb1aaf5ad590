// The signals that interrupt a run, and the second one that ends it.
#include <gtest/gtest.h>
#include <signal.h>

#include "host/interruption.h"

namespace QxHost {
namespace {

class InterruptionSignalsTest : public testing::TestWithParam<int> {};

TEST_P(InterruptionSignalsTest, TheFirstInterruptsAndTheProgramGoesOn) {
  {
    const InterruptionWatch watch;
    EXPECT_FALSE(IsInterrupted());
    raise(GetParam());
    EXPECT_TRUE(IsInterrupted());
  }
  const InterruptionWatch forget;
  EXPECT_FALSE(IsInterrupted());
}

TEST_P(InterruptionSignalsTest, TheSecondEndsTheProgramWhicheverTheFirstWas) {
  const auto interruptTwice = [](int first) {
    const InterruptionWatch watch;
    raise(first);
    raise(GetParam());
  };
  for (const int first : {SIGINT, SIGTERM, SIGHUP}) {
    EXPECT_EXIT(interruptTwice(first), testing::KilledBySignal(GetParam()), "");
  }
}

TEST_P(InterruptionSignalsTest, OneThatComesAfterTheWatchEndsTheProgram) {
  const auto interruptLate = [] {
    { const InterruptionWatch watch; }
    raise(GetParam());
  };
  EXPECT_EXIT(interruptLate(), testing::KilledBySignal(GetParam()), "");
}

TEST_P(InterruptionSignalsTest, OneThatWasIgnoredStaysIgnored) {
  const auto old = signal(GetParam(), SIG_IGN);
  {
    const InterruptionWatch watch;
    raise(GetParam());
    EXPECT_FALSE(IsInterrupted());
  }
  EXPECT_EQ(signal(GetParam(), old), SIG_IGN);
}

INSTANTIATE_TEST_SUITE_P(All, InterruptionSignalsTest, testing::Values(SIGINT, SIGTERM, SIGHUP));

}  // namespace
}  // namespace QxHost
