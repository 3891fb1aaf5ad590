// Letter case of names.
#include "filetools/title_case.h"

#include <gtest/gtest.h>

namespace {

WString Titled(WString text) {
  TitleCase(text);
  return text;
}

}  // namespace

TEST(TitleCase, EmptyTextStaysEmpty) { EXPECT_EQ(Titled(W("")), W("")); }

TEST(TitleCase, FirstLetterIsUpperAndTheRestLower) {
  EXPECT_EQ(Titled(W("a")), W("A"));
  EXPECT_EQ(Titled(W("abc")), W("Abc"));
  EXPECT_EQ(Titled(W("ABC")), W("Abc"));
  EXPECT_EQ(Titled(W("aBC")), W("Abc"));
}

TEST(TitleCase, BlankDotUnderscoreAndHyphenSeparateWords) {
  EXPECT_EQ(Titled(W("one two.three_four-five")), W("One Two.Three_Four-Five"));
  EXPECT_EQ(Titled(W("hello-wORLD")), W("Hello-World"));
}

TEST(TitleCase, OtherCharactersSeparateNothing) {
  EXPECT_EQ(Titled(W("a+b,C(d)E\tF;G")), W("A+b,c(d)e\tf;g"));
}

TEST(TitleCase, SkipsOneSeparatorAtATimeSoTheSecondTakesTheCapital) {
  EXPECT_EQ(Titled(W("a--b")), W("A--b"));
  EXPECT_EQ(Titled(W("A--B")), W("A--b"));
  EXPECT_EQ(Titled(W("a. b")), W("A. b"));
  EXPECT_EQ(Titled(W("a---b")), W("A---B"));
  EXPECT_EQ(Titled(W("a----b")), W("A----b"));
}

TEST(TitleCase, LeadingSeparatorTakesTheCapital) {
  EXPECT_EQ(Titled(W("_abc")), W("_abc"));
  EXPECT_EQ(Titled(W("_ABC")), W("_abc"));
  EXPECT_EQ(Titled(W(" abc def")), W(" abc Def"));
  EXPECT_EQ(Titled(W("--abc")), W("--Abc"));
}

TEST(TitleCase, SeparatorsAtTheEndEndTheWalk) {
  EXPECT_EQ(Titled(W("ab-")), W("Ab-"));
  EXPECT_EQ(Titled(W("ab--")), W("Ab--"));
  EXPECT_EQ(Titled(W("ab---")), W("Ab---"));
  EXPECT_EQ(Titled(W("-")), W("-"));
  EXPECT_EQ(Titled(W("--")), W("--"));
}

TEST(TitleCase, DigitTakesTheCapitalOfItsWord) { EXPECT_EQ(Titled(W("1ABC 2D")), W("1abc 2d")); }

TEST(TitleCase, LettersBeyondAsciiAreMapped) {
  EXPECT_EQ(Titled(W("\u00E4\u00D6-\u00E9T \u0436\u0416")), W("\u00C4\u00F6-\u00C9t \u0416\u0436"));
}

TEST(TitleCase, WorksOnVeryLongTexts) {
  WString text, expected;
  for (int i = 0; i < 5000; ++i) {
    text += W("aB ");
    expected += W("Ab ");
  }
  EXPECT_EQ(Titled(text), expected);
}

TEST(LetterCase, MapsLettersAndLeavesTheRest) {
  EXPECT_EQ(ToUpperCase(W("aBc-1.z\u00E4\u00E9\u03C9\u0436")), W("ABC-1.Z\u00C4\u00C9\u03A9\u0416"));
  EXPECT_EQ(ToLowerCase(W("AbC-1.Z\u00C4\u00C9\u03A9\u0416")), W("abc-1.z\u00E4\u00E9\u03C9\u0436"));
  EXPECT_EQ(ToUpperCase(W("")), W(""));
  EXPECT_EQ(ToLowerCase(W("")), W(""));
}

TEST(LetterCase, OneCharacterStaysOneCharacter) {
  EXPECT_EQ(ToUpperCase(W("stra\u00DFe")), W("STRA\u00DFE"));
}
