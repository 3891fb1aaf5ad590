// Messages of the elevated helper.
#include <gmock/gmock.h>

#include <limits>

#include "frame/qx_utils.h"
#include "support/fake_helper_message.h"

using namespace Velmora::SDK;

TEST(HelperMessage, OtherCodesAnswerZeroAndLeaveTheMessageUntouched) {
  CQXUtils extension;
  for (const s32 code :
       {5002, 4999, 5005, 0, -1, 30000, std::numeric_limits<s32>::min(), std::numeric_limits<s32>::max()}) {
    FakeHelperMessage message;
    EXPECT_EQ(extension.OnHelperMessage(code, &message), 0) << code;
    EXPECT_EQ(message.uses, 0) << code;
  }
}

TEST(HelperMessage, OtherCodesAnswerZeroToANullMessage) {
  CQXUtils extension;
  for (const s32 code : {5002, 4999, 5005}) EXPECT_EQ(extension.OnHelperMessage(code, nullptr), 0) << code;
}

// There is nothing to read and nobody to reply to; that it comes back is all that can be asked.
TEST(HelperMessage, NullMessageOfAKnownCodeDoesNotCrash) {
  CQXUtils extension;
  int answers = 0;
  for (const s32 code : {5000, 5001, 5003, 5004}) {
    const s32 answer = extension.OnHelperMessage(code, nullptr);
    if (answer == 0 || answer == 1) ++answers;
  }
  EXPECT_EQ(answers, 4);
}
