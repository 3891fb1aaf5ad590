// Converting whole texts to the bytes of a code page and back.
#include "data/code_pages.h"

#include <gtest/gtest.h>

namespace WQDR {
namespace {

TEST(CodePages, TextsBecomeBytesAndBytesTexts) {
  EXPECT_EQ(ToCodePage(1252, W("a\u00E4\u20AC")), "a\xE4\x80");
  EXPECT_EQ(FromCodePage(1252, "a\xE4\x80"), W("a\u00E4\u20AC"));
  EXPECT_EQ(ToCodePage(CP_UTF8, W("a\u00E4\u20AC")), "a\xC3\xA4\xE2\x82\xAC");
  EXPECT_EQ(FromCodePage(CP_UTF8, "a\xC3\xA4\xE2\x82\xAC"), W("a\u00E4\u20AC"));
}

TEST(CodePages, ThreadsCodePageIsThatOfTheTests) {
  EXPECT_EQ(ToCodePage(CP_THREAD_ACP, W("\u20AC")), "\x80");
  EXPECT_EQ(FromCodePage(CP_THREAD_ACP, "\x9F"), W("\u0178"));
}

TEST(CodePages, EmptyTextsAreEmpty) {
  EXPECT_EQ(ToCodePage(CP_THREAD_ACP, {}), "");
  EXPECT_EQ(FromCodePage(CP_UTF8, {}), W(""));
}

TEST(CodePages, ZeroCharactersAreCharacters) {
  EXPECT_EQ(ToCodePage(CP_THREAD_ACP, WStringView(W("a\0b"), 3)), std::string("a\0b", 3));
  EXPECT_EQ(FromCodePage(CP_THREAD_ACP, std::string_view("a\0b", 3)), WString(W("a\0b"), 3));
}

TEST(CodePages, CodePageThatThereIsNotGivesNothing) {
  EXPECT_EQ(ToCodePage(99999, W("a")), "");
  EXPECT_EQ(FromCodePage(99999, "a"), W(""));
}

}  // namespace
}  // namespace WQDR
