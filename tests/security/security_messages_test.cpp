// File Security in the elevated helper.
#include <gmock/gmock.h>

#include "frame/qx_utils.h"
#include "frame/services/helper_requests.h"
#include "security/current_user.h"
#include "support/fake_helper_message.h"
#include "support/scratch_folder.h"
#include "support/security_bytes.h"

using namespace Velmora::SDK;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SecurityMessages : public testing::Test {
 protected:
  // Sends a message and returns the reply, which must be the last call to the message. There is no host in
  // the helper.
  std::string Send(s32 code, std::vector<PayloadValue> payload) {
    FakeHelperMessage message(std::move(payload));
    EXPECT_EQ(extension_.OnHelperMessage(code, &message), 1);
    EXPECT_THAT(message.recorder.Open(), IsEmpty());
    EXPECT_THAT(message.recorder.Problems(), IsEmpty());
    EXPECT_EQ(message.recorder.CallsOf({"SetReply"}).size(), 1u);
    return message.recorder.Calls().back();
  }

  static constexpr u32 kFull = 0x1F01FF;
  CQXUtils extension_;
  ScratchFolder scratch_;
  const WString first_ = scratch_.Write(W("a.txt"), "a");
  const WString second_ = scratch_.Write(W("b.txt"), "b");
  const WString missing_ = scratch_.Path(W("nosuch"));
};

}  // namespace

TEST_F(SecurityMessages, AreReadInTheirOrderAndTheReaderIsGivenBackBeforeTheReply) {
  FakeHelperMessage message({kFull, WString(W("Everyone")), u32{2}, first_, second_});
  EXPECT_EQ(extension_.OnHelperMessage(kHelperAddAccess, &message), 1);
  EXPECT_THAT(
      message.recorder.Calls(),
      ElementsAre("CreateReader()", "GetData()", "GetSize()", "reader.Attach(the payload)",
                  "reader.ReadU32()", "reader.ReadString()", "reader.ReadU32()", "reader.ReadString()",
                  "reader.ReadString()", "reader.Release()", "SetReply(1, 0, 0, 0)"));
  EXPECT_EQ(FullEntriesOfEveryone(first_), 1);
  EXPECT_EQ(FullEntriesOfEveryone(second_), 1);
}

TEST_F(SecurityMessages, TakeOwnershipForTheUserOfTheHelper) {
  EXPECT_EQ(Send(kHelperTakeOwnership, {u32{2}, first_, second_}), "SetReply(1, 0, 0, 0)");
  EXPECT_EQ(Send(kHelperTakeOwnership, {u32{2}, missing_, second_}), "SetReply(1, 2, 0, 0)");
}

TEST_F(SecurityMessages, StopAtTheFirstErrorAndReplyWithIt) {
  EXPECT_EQ(Send(kHelperAddAccess, {kFull, WString(W("Everyone")), u32{3}, first_, missing_, second_}),
            "SetReply(1, 2, 0, 0)");
  EXPECT_EQ(FullEntriesOfEveryone(first_), 1);
  EXPECT_EQ(FullEntriesOfEveryone(second_), 0);
  EXPECT_EQ(Send(kHelperResetAccess, {u32{2}, missing_, first_}), "SetReply(1, 2, 0, 0)");
  EXPECT_EQ(FullEntriesOfEveryone(first_), 1);
  EXPECT_EQ(Send(kHelperResetAccess, {u32{1}, first_}), "SetReply(1, 0, 0, 0)");
  EXPECT_EQ(FullEntriesOfEveryone(first_), 0);
}

TEST_F(SecurityMessages, UnknownAndEmptyUsersAreErrorsOfTheWork) {
  EXPECT_EQ(Send(kHelperAddAccess, {kFull, WString(W("nosuchuser")), u32{1}, first_}),
            "SetReply(1, 1332, 0, 0)");
  EXPECT_EQ(Send(kHelperAddAccess, {kFull, WString(), u32{1}, first_}), "SetReply(1, 87, 0, 0)");
  EXPECT_EQ(Send(kHelperAddAccess, {u32{0}, WString(W("Everyone")), u32{1}, first_}),
            "SetReply(1, 87, 0, 0)");
}

TEST_F(SecurityMessages, WithoutAUserOrAListTheReplyIsInvalidData) {
  EXPECT_EQ(Send(kHelperAddAccess, {kFull}), "SetReply(1, 13, 0, 0)");
  EXPECT_EQ(Send(kHelperAddAccess, {kFull, u32{1}, first_}), "SetReply(1, 13, 0, 0)");
  EXPECT_EQ(Send(kHelperAddAccess, {kFull, WString(W("Everyone"))}), "SetReply(1, 13, 0, 0)");
  EXPECT_EQ(Send(kHelperAddAccess, {kFull, WString(W("Everyone")), u32{0}}), "SetReply(1, 13, 0, 0)");
}

TEST_F(SecurityMessages, OnesThatEndTooEarlyChangeNothing) {
  EXPECT_EQ(Send(kHelperAddAccess, {kFull, WString(W("Everyone")), u32{2}, first_}), "SetReply(1, 13, 0, 0)");
  EXPECT_EQ(FullEntriesOfEveryone(first_), 0);
  for (const s32 code : {kHelperTakeOwnership, kHelperResetAccess}) {
    EXPECT_EQ(Send(code, {}), "SetReply(1, 13, 0, 0)");
    EXPECT_EQ(Send(code, {first_}), "SetReply(1, 13, 0, 0)");
    EXPECT_EQ(Send(code, {u32{0xFFFFFFFF}, first_}), "SetReply(1, 13, 0, 0)");
    FakeHelperMessage message({u32{1}, first_});
    message.givesReader = false;
    EXPECT_EQ(extension_.OnHelperMessage(code, &message), 1);
    EXPECT_THAT(message.recorder.Calls(), ElementsAre("CreateReader()", "SetReply(1, 13, 0, 0)"));
  }
}

TEST_F(SecurityMessages, EmptyPathsAreSkippedWithoutAnError) {
  EXPECT_EQ(Send(kHelperAddAccess, {kFull, WString(W("Everyone")), u32{2}, WString(), second_}),
            "SetReply(1, 0, 0, 0)");
  EXPECT_EQ(FullEntriesOfEveryone(second_), 1);
  EXPECT_EQ(Send(kHelperResetAccess, {u32{2}, WString(), second_}), "SetReply(1, 0, 0, 0)");
  EXPECT_EQ(FullEntriesOfEveryone(second_), 0);
  EXPECT_EQ(Send(kHelperTakeOwnership, {u32{1}, WString()}), "SetReply(1, 0, 0, 0)");
  EXPECT_EQ(Send(kHelperTakeOwnership, {u32{0}}), "SetReply(1, 0, 0, 0)");
}
