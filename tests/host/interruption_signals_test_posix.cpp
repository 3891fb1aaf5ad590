// The signals that interrupt a run, and a second signal, which ends the process.
#include <gtest/gtest.h>
#include <signal.h>

#include <vector>

#include "host/rename/interruption.h"

namespace QxHost {
namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

// The tests may have been started with signals ignored, as a shell does for background jobs.
class InterruptionSignalsTest : public testing::TestWithParam<int> {
 protected:
  InterruptionSignalsTest() {
    for (const int number : kSignals) before_.push_back(signal(number, SIG_DFL));
  }
  ~InterruptionSignalsTest() override {
    for (std::size_t index = 0; index < before_.size(); ++index) signal(kSignals[index], before_[index]);
  }

 private:
  std::vector<sighandler_t> before_;
};

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
  for (const int first : kSignals) {
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

INSTANTIATE_TEST_SUITE_P(All, InterruptionSignalsTest, testing::ValuesIn(kSignals));

}  // namespace
}  // namespace QxHost
