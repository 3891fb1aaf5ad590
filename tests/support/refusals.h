// Walks a command through every refusal of the host: each call that can be refused is refused in turn, alone
// and together with all that follow. The command must end, with everything given back.
#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "support/fake_host.h"

// `prepare` sets up a host for which the command would run to its end; `run` runs it and sees to the boxes.
inline void ExpectEveryRefusalEndsQuietly(const std::function<void(FakeHost&)>& prepare,
                                          const std::function<void(FakeHost&)>& run) {
  FakeHost willing;
  prepare(willing);
  run(willing);
  ExpectAllGivenBack(willing);
  const int refusable = willing.recorder.RefusableCalls();
  ASSERT_GT(refusable, 0);
  for (int nth = 1; nth <= refusable; ++nth) {
    for (const bool repeat : {false, true}) {
      FakeHost host;
      prepare(host);
      host.recorder.RefuseCall(nth, repeat);
      SCOPED_TRACE("refused call " + std::to_string(nth) + (repeat ? " and all later ones" : ""));
      EXPECT_NO_THROW(run(host));
      ExpectAllGivenBack(host);
    }
  }
}
