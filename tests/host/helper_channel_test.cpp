// The channel to the helper, with a real helper process: qxhost and the module from this program's folder.
#include "host/helper/helper_channel.h"

#include <gmock/gmock.h>

#include "host/system/system_places.h"
#include "support/scratch_folder.h"

namespace QxHost {
namespace {

constexpr s32 kCreateLink = 5004;

HelperCommand Helper(const WString& module) {
  const WString program = OwnProgram();
  const WString ending = program.ends_with(W(".exe")) ? W(".exe") : W("");
  return {ProgramFolder() + W("\\qxhost") + ending, {W("helper"), module}};
}

HelperCommand RealHelper() { return Helper(ProgramFolder() + W("\\") + ModuleFileName()); }

u32 SendLink(HelperChannel& channel, u32 kind, const WString& link, const WString& target) {
  Velmora::SDK::IHostPacketWriter* const writer = channel.CreateWriter();
  writer->WriteU32(kind);
  writer->WriteString(link.c_str());
  writer->WriteString(target.c_str());
  writer->WriteU32(0);
  const u32 answer = channel.Send(kCreateLink, writer->GetData(), writer->GetSize());
  writer->Release();
  return answer;
}

TEST(HelperChannel, TheHelperDoesWhatItIsSent) {
  const ScratchFolder scratch;
  const WString target = scratch.Write(W("a \u0416.txt"), "abc");
  HelperChannel channel(RealHelper());
  ASSERT_TRUE(channel.Connect());
  ASSERT_TRUE(channel.Connect());  // connected already
  EXPECT_EQ(SendLink(channel, 1, scratch.Path(W("link")), target), 0u);
  EXPECT_EQ(SendLink(channel, 1, scratch.Path(W("link")), target), 183u);
  EXPECT_EQ(SendLink(channel, 99, scratch.Path(W("other")), target), 13u);
  channel.Disconnect();
  EXPECT_EQ(scratch.Read(W("link")), "abc");
  EXPECT_EQ(scratch.Names().size(), 2u);
}

TEST(HelperChannel, AMessageLongerThanAnyPipeGoesThrough) {
  HelperChannel channel(RealHelper());
  ASSERT_TRUE(channel.Connect());
  const WString longPath(2'000'000, W('x'));
  EXPECT_NE(SendLink(channel, 1, longPath, longPath), 0u);
  EXPECT_EQ(SendLink(channel, 0, longPath, longPath), 13u);
  channel.Disconnect();
}

TEST(HelperChannel, ItMayBeUsedAgain) {
  HelperChannel channel(RealHelper());
  for (int round = 0; round < 2; ++round) {
    ASSERT_TRUE(channel.Connect());
    EXPECT_EQ(SendLink(channel, 0, W("a"), W("b")), 13u);
    channel.Disconnect();
    channel.Disconnect();
  }
}

TEST(HelperChannel, WithoutADisconnectNoHelperRemains) {
  HelperChannel channel(RealHelper());
  EXPECT_TRUE(channel.Connect());
}

TEST(HelperChannel, AMessageThatTheModuleDoesNotKnowIsError1) {
  HelperChannel channel(RealHelper());
  ASSERT_TRUE(channel.Connect());
  EXPECT_EQ(channel.Send(5002, nullptr, 0), 1u);
  EXPECT_EQ(SendLink(channel, 0, W("a"), W("b")), 13u);  // the helper still runs
}

TEST(HelperChannel, NothingIsSentBeforeConnectOrWithoutData) {
  HelperChannel channel(RealHelper());
  EXPECT_EQ(channel.Send(kCreateLink, "abcd", 4), 109u);
  ASSERT_TRUE(channel.Connect());
  EXPECT_EQ(channel.Send(kCreateLink, nullptr, 4), 87u);
  EXPECT_EQ(channel.Send(kCreateLink, "abcd", 0xFFFFFFFF), 87u);
  channel.Disconnect();
  EXPECT_EQ(channel.Send(kCreateLink, "abcd", 4), 109u);
}

TEST(HelperChannel, AMessageThatIsCutIsRejectedAsInvalid) {
  HelperChannel channel(RealHelper());
  ASSERT_TRUE(channel.Connect());
  EXPECT_EQ(channel.Send(kCreateLink, "abcd", 4), 13u);
}

TEST(HelperChannel, AProgramThatIsNotThereIsNotReached) {
  HelperChannel channel({ProgramFolder() + W("\\no-such-program"), {}});
  EXPECT_FALSE(channel.Connect());
  EXPECT_EQ(channel.Send(kCreateLink, "abcd", 4), 109u);
  channel.Disconnect();
}

TEST(HelperChannel, AHelperWithoutItsModuleIsNotReached) {
  const ScratchFolder scratch;
  HelperChannel channel(Helper(scratch.Path(W("no-such-module"))));
  EXPECT_FALSE(channel.Connect());
}

}  // namespace
}  // namespace QxHost
