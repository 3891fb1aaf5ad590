// Helpers that misbehave: shell scripts that write what a test sets, or nothing.
#include "host/helper/helper_channel.h"

#include <gmock/gmock.h>

#include "frame/services/helper_requests.h"
#include "platform/windows_api.h"

namespace QxHost {
namespace {

using namespace std::chrono_literals;
using Velmora::SDK::kHelperCreateLink;

constexpr HelperTimes kShort{.start = 200ms, .answer = 200ms, .end = 200ms};
// Limits that are never reached, for helpers that end by themselves.
constexpr HelperTimes kLong{.start = 60s, .answer = 60s, .end = 60s};

HelperCommand Shell(const char* script) { return {W("Z:\\bin\\sh"), {W("-c"), FromUtf8(script)}}; }

u32 SendTo(const char* script, const HelperTimes& times, u32 size = 4) {
  HelperChannel channel(Shell(script), times);
  EXPECT_TRUE(channel.Connect());
  const std::string body(size, 'x');
  const u32 answer = channel.Send(kHelperCreateLink, body.data(), size);
  EXPECT_EQ(channel.Send(kHelperCreateLink, body.data(), size), ERROR_BROKEN_PIPE)
      << "a helper that failed is still used";
  channel.Disconnect();
  return answer;
}

TEST(BadHelper, OneThatSaysNothingIsNotReached) {
  HelperChannel channel(Shell("exec sleep 1000"), kShort);
  EXPECT_FALSE(channel.Connect());
}

TEST(BadHelper, OneThatEndsAtOnceIsNotReached) {
  HelperChannel channel(Shell("exit 0"), kLong);
  EXPECT_FALSE(channel.Connect());
}

TEST(BadHelper, OneThatGreetsOtherwiseIsNotReached) {
  HelperChannel channel(Shell("printf QXH2; exec sleep 1000"), kLong);
  EXPECT_FALSE(channel.Connect());
}

TEST(BadHelper, OneThatDoesNotReplyTimesOut) {
  EXPECT_EQ(SendTo("printf QXH1; exec sleep 1000", kShort), ERROR_TIMEOUT);
}

TEST(BadHelper, OneThatDoesNotListenIsGivenUpInTime) {
  EXPECT_EQ(SendTo("printf QXH1; exec sleep 1000", kShort, 50'000'000), ERROR_TIMEOUT);
}

TEST(BadHelper, OneThatRepliesInPartTimesOut) {
  EXPECT_EQ(SendTo("printf QXH1QXRP; exec sleep 1000", kShort), ERROR_TIMEOUT);
}

TEST(BadHelper, OneThatDiesIsABrokenPipe) {
  EXPECT_EQ(SendTo("printf QXH1; head -c 16 >/dev/null; exit 3", kLong), ERROR_BROKEN_PIPE);
  EXPECT_EQ(SendTo("printf QXH1; kill -9 $$", kLong), ERROR_BROKEN_PIPE);
  EXPECT_EQ(SendTo("printf QXH1; head -c 16 >/dev/null; exit 3", kLong, 50'000'000), ERROR_BROKEN_PIPE);
}

TEST(BadHelper, OneThatRepliesWithGarbageIsInvalidData) {
  EXPECT_EQ(SendTo("printf QXH1; head -c 16 >/dev/null; printf 'this is no reply at all'", kLong),
            ERROR_INVALID_DATA);
}

TEST(BadHelper, OneThatDoesNotEndIsEnded) {
  HelperChannel channel(Shell("printf QXH1; exec sleep 1000"), kShort);
  EXPECT_TRUE(channel.Connect());
  channel.Disconnect();
}

}  // namespace
}  // namespace QxHost
