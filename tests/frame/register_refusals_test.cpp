// OnRegister with a host that refuses everything that it can.
#include <gmock/gmock.h>

#include "frame/qx_utils.h"
#include "support/refusals.h"

TEST(Register, EveryRefusalOfTheHostEndsItQuietlyAndSucceeds) {
  ExpectEveryRefusalEndsQuietly(
      [](FakeHost&) {},
      [](FakeHost& host) {
        Velmora::SDK::CQXUtils extension;
        EXPECT_EQ(extension.OnRegister(&host), 1);
        EXPECT_THAT(host.recorder.CallsOf({"Log", "MessageBox"}), testing::IsEmpty());
      });
}
