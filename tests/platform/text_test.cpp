// The helpers of platform/text.h.

#include "platform/text.h"

#include <gtest/gtest.h>

namespace {

TEST(TextTest, Utf8GoesThereAndBack) {
  const WString text = W("a\u00E9\u20AC\U0001F600");
  const std::string bytes = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80";
  EXPECT_EQ(ToUtf8(text), bytes);
  EXPECT_EQ(FromUtf8(bytes), text);
}

TEST(TextTest, AnEmptyTextStaysEmpty) {
  EXPECT_EQ(ToUtf8({}), "");
  EXPECT_EQ(FromUtf8({}), W(""));
}

TEST(TextTest, ZerosInsideATextAreKept) {
  EXPECT_EQ(ToUtf8(WStringView(W("a\0b"), 3)), std::string("a\0b", 3));
  EXPECT_EQ(FromUtf8(std::string_view("a\0b", 3)), WString(W("a\0b"), 3));
}

TEST(TextTest, WhatIsNoTextBecomesAReplacement) {
  EXPECT_EQ(ToUtf8(WString{W('a'), 0xD800, W('b')}),
            "a\xEF\xBF\xBD"
            "b");
  EXPECT_EQ(FromUtf8("a\xFFz"), W("a\uFFFDz"));
}

TEST(TextTest, AMissingTextCountsAsEmpty) {
  EXPECT_EQ(ViewOf(nullptr), W(""));
  EXPECT_EQ(ViewOf(W("abc")), W("abc"));
}

TEST(TextTest, APaddedFieldIsFilledWithZerosOrCut) {
  char field[5] = {'x', 'x', 'x', 'x', 'x'};
  CopyPadded<char>(field, 4, "ab");
  EXPECT_EQ(std::string(field, 5), std::string("ab\0\0x", 5));
  CopyPadded<char>(field, 4, "abcdef");
  EXPECT_EQ(std::string(field, 5), "abcdx");
  CopyPadded<char>(field, 0, "abcdef");
  EXPECT_EQ(std::string(field, 5), "abcdx");
}

TEST(TextTest, ATerminatedBufferIsCutAndAlwaysTerminated) {
  WCHAR buffer[4] = {1, 1, 1, 1};
  CopyTerminated<WCHAR>(buffer, 4, W("ab"));
  EXPECT_EQ(WString(buffer), W("ab"));
  EXPECT_EQ(buffer[3], 1);
  CopyTerminated<WCHAR>(buffer, 4, W("abcdef"));
  EXPECT_EQ(WString(buffer), W("abc"));
  CopyTerminated<WCHAR>(buffer, 0, W("xyz"));
  EXPECT_EQ(WString(buffer), W("abc"));
  CopyTerminated<WCHAR>(buffer, 1, W("xyz"));
  EXPECT_EQ(WString(buffer), W(""));
}

}  // namespace
