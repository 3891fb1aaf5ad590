// Runs a command once for every call that the host can refuse, refusing that call only, and again refusing
// all later ones too. The command must end with all objects given back.
#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "support/fake_host.h"

// `prepare` sets up a host with which the command runs to its end; `run` runs it and answers the message
// boxes.
inline void ExpectEveryRefusalEndsQuietly(const std::function<void(FakeHost&)>& prepare,
                                          const std::function<void(FakeHost&)>& run) {
  FakeHost willing;
  prepare(willing);
  run(willing);
  ExpectAllReleased(willing);
  const int refusable = willing.recorder.RefusableCalls();
  ASSERT_GT(refusable, 0);
  for (int nth = 1; nth <= refusable; ++nth) {
    for (const bool repeat : {false, true}) {
      FakeHost host;
      prepare(host);
      host.recorder.RefuseCall(nth, repeat);
      SCOPED_TRACE("refused call " + std::to_string(nth) + (repeat ? " and all later ones" : ""));
      EXPECT_NO_THROW(run(host));
      ExpectAllReleased(host);
    }
  }
}
