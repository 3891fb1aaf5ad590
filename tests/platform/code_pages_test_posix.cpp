// Conversions that follow Windows where Wine differs.

#include <gtest/gtest.h>

#include "platform/outcome.h"
#include "platform/text.h"

namespace {

// Wine consumes the letter after an incomplete sequence as part of that sequence.
TEST(NativeCodePagesTest, ALetterAfterABrokenSequenceIsKept) {
  EXPECT_EQ(FromUtf8("\xF0\x9F"
                     "a"),
            W("\uFFFDa"));
  EXPECT_EQ(FromUtf8("\xF0\xC3\xA9"), W("\uFFFD\u00E9"));
}

// Wine writes half a surrogate pair and returns success.
TEST(NativeCodePagesTest, ACharacterOfTwoUnitsIsWrittenWholeOrNotAtAll) {
  WCHAR target[4] = {1, 1, 1, 1};
  EXPECT_EQ(FailureOf(MultiByteToWideChar(CP_UTF8, 0, "ab\xF0\x9F\x98\x80z", 7, target, 3)), 122u);
  EXPECT_EQ((WString(target, 4)), (WString{W('a'), W('b'), 1, 1}));
}

TEST(NativeCodePagesTest, Utf8HasNoDefaultCharacter) {
  char target[4];
  BOOL used = FALSE;
  EXPECT_EQ(FailureOf(WideCharToMultiByte(CP_UTF8, 0, W("a"), 1, target, 4, "?", nullptr)), 87u);
  EXPECT_EQ(FailureOf(WideCharToMultiByte(CP_UTF8, 0, W("a"), 1, target, 4, nullptr, &used)), 87u);
}

TEST(NativeCodePagesTest, BestFitCanBeForbidden) {
  constexpr DWORD kNoBestFit = 0x400;
  char target[4] = {};
  BOOL used = FALSE;
  EXPECT_EQ(WideCharToMultiByte(CP_ACP, kNoBestFit, W("\u0100\u20AC"), 2, target, 4, nullptr, &used), 2);
  EXPECT_EQ(std::string(target), "?\x80");
  EXPECT_EQ(used, TRUE);
}

}  // namespace
