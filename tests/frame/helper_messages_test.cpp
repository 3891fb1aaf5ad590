// Messages to the elevated helper.
#include <gmock/gmock.h>

#include <limits>

#include "frame/qx_utils.h"
#include "frame/services/helper_requests.h"
#include "support/fake_helper_message.h"
#include "support/fake_host.h"
#include "support/scratch_folder.h"

using namespace Velmora::SDK;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

TEST(HelperMessage, OtherCodesReturnZeroAndLeaveTheMessageUnchanged) {
  CQXUtils extension;
  for (const s32 code :
       {5002, 4999, 5005, 0, -1, 30000, std::numeric_limits<s32>::min(), std::numeric_limits<s32>::max()}) {
    FakeHelperMessage message;
    EXPECT_EQ(extension.OnHelperMessage(code, &message), 0) << code;
    EXPECT_THAT(message.recorder.Calls(), IsEmpty()) << code;
  }
}

TEST(HelperMessage, OtherCodesReturnZeroForANullMessage) {
  CQXUtils extension;
  for (const s32 code : {5002, 4999, 5005}) EXPECT_EQ(extension.OnHelperMessage(code, nullptr), 0) << code;
}

// There is nothing to read and no reply to set; the call must only return.
TEST(HelperMessage, NullMessageOfAKnownCodeDoesNotCrash) {
  CQXUtils extension;
  int answers = 0;
  for (const s32 code : {5000, 5001, 5003, 5004}) {
    const s32 answer = extension.OnHelperMessage(code, nullptr);
    if (answer == 0 || answer == 1) ++answers;
  }
  EXPECT_EQ(answers, 4);
}

class CreateLinkMessage : public testing::Test {
 protected:
  // Sends the payload and returns the reply, which must be the last call to the message.
  std::string Send(std::vector<PayloadValue> payload) {
    FakeHelperMessage message(std::move(payload));
    EXPECT_EQ(extension_.OnHelperMessage(kHelperCreateLink, &message), 1);
    EXPECT_THAT(message.recorder.Open(), IsEmpty());
    EXPECT_THAT(message.recorder.Problems(), IsEmpty());
    EXPECT_EQ(message.recorder.CallsOf({"SetReply"}).size(), 1u);
    return message.recorder.CallsOf({"SetReply"}).front();
  }

  ScratchFolder scratch_;
  WString target_ = scratch_.Write(W("a.txt"), "abc");
  WString link_ = scratch_.Path(W("link"));
  CQXUtils extension_;
};

TEST_F(CreateLinkMessage, IsReadInItsOrderAndGetsAReply) {
  FakeHelperMessage message({u32{1}, link_, target_, u32{0}});
  EXPECT_EQ(extension_.OnHelperMessage(kHelperCreateLink, &message), 1);
  EXPECT_THAT(message.recorder.Calls(),
              ElementsAre("CreateReader()", "GetData()", "GetSize()", "reader.Attach(the payload)",
                          "reader.ReadU32()", "reader.ReadString()", "reader.ReadString()",
                          "reader.ReadU32()", "reader.Release()", "SetReply(1, 0, 0, 0)"));
  EXPECT_EQ(scratch_.Read(W("link")), "abc");
}

TEST_F(CreateLinkMessage, TheErrorGoesBack) {
  EXPECT_EQ(Send({u32{1}, target_, target_, u32{0}}), "SetReply(0, 183, 0, 0)");
  EXPECT_EQ(Send({u32{1}, link_, scratch_.Path(W("nosuch")), u32{0}}), "SetReply(0, 2, 0, 0)");
  EXPECT_EQ(Send({u32{0}, link_, target_, u32{0}}), "SetReply(0, 13, 0, 0)");
  EXPECT_EQ(Send({u32{0xFFFFFFFF}, link_, target_, u32{0}}), "SetReply(0, 13, 0, 0)");
  EXPECT_EQ(Send({u32{2}, target_, scratch_.Path(), u32{1}}), "SetReply(0, 13, 0, 0)");
  EXPECT_EQ(Send({u32{1}, WString(), WString(), u32{0}}), "SetReply(0, 3, 0, 0)");
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("a.txt")));
}

TEST_F(CreateLinkMessage, OneThatIsCutMakesNoLink) {
  const std::vector<PayloadValue> whole = {u32{1}, link_, target_, u32{0}};
  for (std::ptrdiff_t count = 0; count < 4; ++count) {
    EXPECT_EQ(Send({whole.begin(), whole.begin() + count}), "SetReply(0, 13, 0, 0)") << count;
  }
  EXPECT_EQ(Send({link_, u32{1}, target_, u32{0}}), "SetReply(0, 13, 0, 0)");
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("a.txt")));
}

TEST_F(CreateLinkMessage, WithoutAReaderNoLinkIsMade) {
  FakeHelperMessage message({u32{1}, link_, target_, u32{0}});
  message.givesReader = false;
  EXPECT_EQ(extension_.OnHelperMessage(kHelperCreateLink, &message), 1);
  EXPECT_THAT(message.recorder.Calls(), ElementsAre("CreateReader()", "SetReply(0, 13, 0, 0)"));
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("a.txt")));
}

TEST_F(CreateLinkMessage, AHostThatIsThereGetsALogLine) {
  FakeHost host;
  extension_.OnStart(&host);
  EXPECT_EQ(Send({u32{1}, link_, target_, u32{0}}), "SetReply(1, 0, 0, 0)");
  EXPECT_THAT(host.recorder.Calls(),
              ElementsAre("LogMessage(1, 10, \"Link Created (Hardlink) Link : \"" + ToUtf8(link_) +
                          "\" Link Target : \"" + ToUtf8(target_) + "\"\")"));
}

}  // namespace
