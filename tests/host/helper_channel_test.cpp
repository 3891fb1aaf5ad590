// The channel to the helper, with a real helper process: qxhost and the module from this program's folder.
#include "host/helper/helper_channel.h"

#include <gmock/gmock.h>

#include "frame/services/helper_requests.h"
#include "host/system/system_places.h"
#include "platform/windows_api.h"
#include "support/scratch_folder.h"

namespace QxHost {
namespace {

using Velmora::SDK::kHelperCreateLink;

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
  const u32 answer = channel.Send(kHelperCreateLink, writer->GetData(), writer->GetSize());
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
  EXPECT_EQ(SendLink(channel, 1, scratch.Path(W("link")), target), DWORD{ERROR_ALREADY_EXISTS});
  EXPECT_EQ(SendLink(channel, 99, scratch.Path(W("other")), target), DWORD{ERROR_INVALID_DATA});
  channel.Disconnect();
  EXPECT_EQ(scratch.Read(W("link")), "abc");
  EXPECT_EQ(scratch.Names().size(), 2u);
}

TEST(HelperChannel, AMessageLongerThanAnyPipeGoesThrough) {
  HelperChannel channel(RealHelper());
  ASSERT_TRUE(channel.Connect());
  const WString longPath(2'000'000, W('x'));
  EXPECT_NE(SendLink(channel, 1, longPath, longPath), 0u);
  EXPECT_EQ(SendLink(channel, 0, longPath, longPath), DWORD{ERROR_INVALID_DATA});
  channel.Disconnect();
}

TEST(HelperChannel, ItMayBeUsedAgain) {
  HelperChannel channel(RealHelper());
  for (int round = 0; round < 2; ++round) {
    ASSERT_TRUE(channel.Connect());
    EXPECT_EQ(SendLink(channel, 0, W("a"), W("b")), DWORD{ERROR_INVALID_DATA});
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
  EXPECT_EQ(channel.Send(5002, nullptr, 0), DWORD{ERROR_INVALID_FUNCTION});
  EXPECT_EQ(SendLink(channel, 0, W("a"), W("b")), DWORD{ERROR_INVALID_DATA});  // the helper still runs
}

TEST(HelperChannel, NothingIsSentBeforeConnectOrWithoutData) {
  HelperChannel channel(RealHelper());
  EXPECT_EQ(channel.Send(kHelperCreateLink, "abcd", 4), DWORD{ERROR_BROKEN_PIPE});
  ASSERT_TRUE(channel.Connect());
  EXPECT_EQ(channel.Send(kHelperCreateLink, nullptr, 4), DWORD{ERROR_INVALID_PARAMETER});
  EXPECT_EQ(channel.Send(kHelperCreateLink, "abcd", 0xFFFFFFFF), DWORD{ERROR_INVALID_PARAMETER});
  channel.Disconnect();
  EXPECT_EQ(channel.Send(kHelperCreateLink, "abcd", 4), DWORD{ERROR_BROKEN_PIPE});
}

TEST(HelperChannel, AMessageThatIsCutIsRejectedAsInvalid) {
  HelperChannel channel(RealHelper());
  ASSERT_TRUE(channel.Connect());
  EXPECT_EQ(channel.Send(kHelperCreateLink, "abcd", 4), DWORD{ERROR_INVALID_DATA});
}

TEST(HelperChannel, AProgramThatIsNotThereIsNotReached) {
  HelperChannel channel({ProgramFolder() + W("\\no-such-program"), {}});
  EXPECT_FALSE(channel.Connect());
  EXPECT_EQ(channel.Send(kHelperCreateLink, "abcd", 4), DWORD{ERROR_BROKEN_PIPE});
  channel.Disconnect();
}

TEST(HelperChannel, AHelperWithoutItsModuleIsNotReached) {
  const ScratchFolder scratch;
  HelperChannel channel(Helper(scratch.Path(W("no-such-module"))));
  EXPECT_FALSE(channel.Connect());
}

}  // namespace
}  // namespace QxHost
