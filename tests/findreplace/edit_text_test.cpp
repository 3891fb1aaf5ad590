// Text in the form that a multi-line edit control shows.
#include "findreplace/tool/edit_text.h"

#include <gtest/gtest.h>

namespace QXFindAndReplace {
namespace {

TEST(EditText, LinesThatEndInCrLfStayAsTheyAre) {
  EXPECT_EQ(EditText(W("")), W(""));
  EXPECT_EQ(EditText(W("one")), W("one"));
  EXPECT_EQ(EditText(W("one\r\ntwo\r\n\r\n")), W("one\r\ntwo\r\n\r\n"));
}

TEST(EditText, LinesThatEndInLfEndInCrLf) {
  EXPECT_EQ(EditText(W("one\ntwo\n\nthree")), W("one\r\ntwo\r\n\r\nthree"));
  EXPECT_EQ(EditText(W("\n")), W("\r\n"));
}

TEST(EditText, LinesThatEndInCrEndInCrLf) {
  EXPECT_EQ(EditText(W("one\rtwo\r\rthree\r")), W("one\r\ntwo\r\n\r\nthree\r\n"));
}

TEST(EditText, EachLineKeepsItsOwnEndWhereTheyAreMixed) {
  EXPECT_EQ(EditText(W("a\r\nb\nc\rd\n\re\r\r\nf")), W("a\r\nb\r\nc\r\nd\r\n\r\ne\r\n\r\nf"));
}

TEST(EditText, CharactersThatEndNoLineStay) {
  EXPECT_EQ(EditText(WString(W("a\tb\0c\u2028d"), 7)), WString(W("a\tb\0c\u2028d"), 7));
}

TEST(EditOffset, WithoutLineEndsOfTheirOwnOffsetsStay) {
  for (const std::size_t offset : {0U, 1U, 3U, 4U, 5U, 8U}) {
    EXPECT_EQ(EditOffset(W("one\r\ntwo"), offset), offset);
  }
}

TEST(EditOffset, EachLfBeforeItMovesItByOne) {
  const WString text = W("ab\ncd\nef");
  EXPECT_EQ(EditOffset(text, 0), 0u);
  EXPECT_EQ(EditOffset(text, 2), 2u);  // at the first LF, which becomes CR LF
  EXPECT_EQ(EditOffset(text, 3), 4u);
  EXPECT_EQ(EditOffset(text, 5), 6u);
  EXPECT_EQ(EditOffset(text, 6), 8u);
  EXPECT_EQ(EditOffset(text, 8), 10u);
}

TEST(EditOffset, EachCrAloneBeforeItMovesItByOne) {
  const WString text = W("ab\rcd\r\nef");
  EXPECT_EQ(EditOffset(text, 2), 2u);
  EXPECT_EQ(EditOffset(text, 3), 4u);
  EXPECT_EQ(EditOffset(text, 6), 7u);  // between CR and LF, in both texts
  EXPECT_EQ(EditOffset(text, 7), 8u);
}

TEST(EditOffset, BeyondTheEndItIsTheEnd) {
  EXPECT_EQ(EditOffset(W("a\nb"), 3), 4u);
  EXPECT_EQ(EditOffset(W("a\nb"), 4), 4u);
  EXPECT_EQ(EditOffset(W("a\nb"), 0xFFFFFFFF), 4u);
  EXPECT_EQ(EditOffset(W(""), 7), 0u);
}

TEST(EditOffset, StretchOfTheTextIsTheSameStretchOfWhatIsShown) {
  const WString text = W("first\nan old\ntext\nlast\n");
  const std::size_t from = EditOffset(text, 9);
  const std::size_t to = EditOffset(text, 17);
  EXPECT_EQ(EditText(text).substr(from, to - from), W("old\r\ntext"));
}

}  // namespace
}  // namespace QXFindAndReplace
