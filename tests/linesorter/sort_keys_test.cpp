// Start and end of a line's key, rule by rule, in both character widths.
#include "linesorter/engine/sort_keys.h"

#include <gtest/gtest.h>

#include "linesorter/sort_keys_helper.h"

namespace WQLineSorter {

TYPED_TEST(SortKeys, StartAtTheLineOffset) {
  EXPECT_EQ(this->KeyIn("abcdef", From(0, Substring())), (Key{0, 0}));
  EXPECT_EQ(this->KeyIn("abcdef", From(1, Substring())), (Key{1, 0}));
  EXPECT_EQ(this->KeyIn("abcdef", From(6, Substring())), (Key{6, 0}));
  EXPECT_EQ(this->KeyIn("abcdef", From(2, Options(0))), (Key{2, 0}));
}

TYPED_TEST(SortKeys, StartBeyondTheLinesEndIsUnchanged) {
  EXPECT_EQ(this->KeyIn("abc", From(4, Substring())), (Key{4, 0}));
  EXPECT_EQ(this->KeyIn("", From(1, Substring())), (Key{1, 0}));
  EXPECT_EQ(this->KeyIn("abc", From(4, Options(SortByLine))), (Key{4, 0}));
}

TYPED_TEST(SortKeys, HugeStartsDoNotWrapRoundToTheLine) {
  for (const std::uint32_t start : {0x7FFFFFFFu, 0x80000000u, 0x80000001u, 0xFFFFFFFEu, kMax}) {
    for (const std::uint32_t bits :
         {0u, +SortSkipLeadingSpace, +SortEndAtWhitespace, +SortEndAtChar, +SortAsNumber}) {
      SortLinesOptions options = From(start, Substring(bits));
      options.matchChar = options.matchCharA = ';';
      EXPECT_EQ(this->KeyIn(" 12;34 ", options), (Key{start, 0})) << start << " " << bits;
      options.subStringLen = kMax;
      EXPECT_EQ(this->KeyIn(" 12;34 ", options), (Key{start, 0})) << start << " " << bits;
      EXPECT_EQ(this->KeyIn(" 12;34 ", From(start, Item(2, ';', bits))), (Key{start, 0}))
          << start << " " << bits;
      EXPECT_EQ(this->KeyIn(" 12;34 ", From(start, Item(kMax, ';', bits))), (Key{start, 0}))
          << start << " " << bits;
    }
  }
}

TYPED_TEST(SortKeys, BlanksAndTabsAtTheStartAreSkippedIfAsked) {
  EXPECT_EQ(this->KeyIn(" \t abc", Substring(SortSkipLeadingSpace)), (Key{3, 0}));
  EXPECT_EQ(this->KeyIn(" \t abc", Substring()), (Key{0, 0}));
  EXPECT_EQ(this->KeyIn("abc", Substring(SortSkipLeadingSpace)), (Key{0, 0}));
  EXPECT_EQ(this->KeyIn("ab  cd", From(2, Substring(SortSkipLeadingSpace))), (Key{4, 0}));
  EXPECT_EQ(this->KeyIn("  abcd", From(3, Substring(SortSkipLeadingSpace))), (Key{3, 0}));
  EXPECT_EQ(this->KeyIn("  abc", Options(SortByLine | SortSkipLeadingSpace)), (Key{2, 0}));
}

TYPED_TEST(SortKeys, OtherWhiteSpaceAtTheStartIsNotSkipped) {
  const std::vector<std::string> texts = {"\vabc", "\fabc", "\rabc",
                                          "\xA0"
                                          "abc",
                                          std::string("\0abc", 4)};
  for (const std::string& text : texts) {
    EXPECT_EQ(this->KeyIn(text, Substring(SortSkipLeadingSpace)), (Key{0, 0}));
  }
  EXPECT_EQ(this->KeyIn(" \vabc", Substring(SortSkipLeadingSpace)), (Key{1, 0}));
}

TYPED_TEST(SortKeys, SkippingEndsAtTheLinesEnd) {
  EXPECT_EQ(this->KeyIn("   ", Substring(SortSkipLeadingSpace)), (Key{3, 0}));
  EXPECT_EQ(this->KeyIn("", Substring(SortSkipLeadingSpace)), (Key{0, 0}));
  EXPECT_EQ(this->KeysOf({"a", "  b"}, From(2, Substring(SortSkipLeadingSpace)))[0], (Key{2, 0}));
  EXPECT_EQ(this->KeysOf({"a", "  b"}, From(1, Substring(SortSkipLeadingSpace)), "")[0], (Key{1, 0}));
}

TYPED_TEST(SortKeys, EntireLineHasNoLengthAndNoNumber) {
  EXPECT_EQ(this->KeyIn("42", Options(SortByLine)), (Key{0, 0, 0}));
  EXPECT_EQ(this->KeyIn("42", Options(SortByLine | SortAsNumber)), (Key{0, 0, 0}));
  SortLinesOptions date = Date("%Y-%m-%d");
  date.options |= SortByLine;
  EXPECT_EQ(this->KeyIn("2014-11-21", date), (Key{0, 0, 0}));
}

TYPED_TEST(SortKeys, EntireLineGoesBeforeSubstringAndItem) {
  SortLinesOptions options = Item(2, ';', SortByLine | SortBySubstring | SortEndAtChar);
  options.subStringLen = 1;
  EXPECT_EQ(this->KeyIn("a;b;c", options), (Key{0, 0}));
}

TYPED_TEST(SortKeys, SubstringGoesBeforeItem) {
  EXPECT_EQ(this->KeyIn("a;b;c", Item(2, ';', SortBySubstring)), (Key{0, 0}));
  EXPECT_EQ(this->KeyIn("ab;c", Item(2, ';', SortBySubstring | SortEndAtChar)), (Key{0, 2}));
}

TYPED_TEST(SortKeys, SubstringLengthIsTakenIfItEndsBeforeTheLine) {
  SortLinesOptions options = Substring();
  options.subStringLen = 3;
  EXPECT_EQ(this->KeyIn("abcd", options), (Key{0, 3}));
  EXPECT_EQ(this->KeyIn("abcde", From(1, options)), (Key{1, 3}));
}

TYPED_TEST(SortKeys, SubstringThatReachesTheLinesEndIsTheRestOfTheLine) {
  SortLinesOptions options = Substring();
  options.subStringLen = 3;
  EXPECT_EQ(this->KeyIn("abc", options), (Key{0, 0}));
  EXPECT_EQ(this->KeyIn("ab", options), (Key{0, 0}));
  EXPECT_EQ(this->KeyIn("", options), (Key{0, 0}));
  EXPECT_EQ(this->KeyIn("abcd", From(1, options)), (Key{1, 0}));
  EXPECT_EQ(this->KeyIn("abcd", From(9, options)), (Key{9, 0}));
}

TYPED_TEST(SortKeys, HugeSubstringLengthsDoNotWrapRound) {
  for (const std::uint32_t length : {0x7FFFFFFFu, 0x80000000u, 0x80000001u, 0xFFFFFFFDu, kMax}) {
    SortLinesOptions options = Substring();
    options.subStringLen = length;
    EXPECT_EQ(this->KeyIn("abcdef", options), (Key{0, 0})) << length;
    EXPECT_EQ(this->KeyIn("abcdef", From(3, options)), (Key{3, 0})) << length;
  }
}

TYPED_TEST(SortKeys, SubstringLengthGoesBeforeTheEndCharacters) {
  SortLinesOptions options = Substring(SortEndAtWhitespace | SortEndAtChar);
  options.matchChar = options.matchCharA = ';';
  options.subStringLen = 5;
  EXPECT_EQ(this->KeyIn("a b;cdef", options), (Key{0, 5}));
  // Even if the line is too short for it.
  options.subStringLen = 50;
  EXPECT_EQ(this->KeyIn("a b;cdef", options), (Key{0, 0}));
}

TYPED_TEST(SortKeys, EndAtWhitespaceGoesBeforeTheEndCharacter) {
  SortLinesOptions options = Substring(SortEndAtWhitespace | SortEndAtChar);
  options.matchChar = options.matchCharA = ';';
  EXPECT_EQ(this->KeyIn("a;b c", options), (Key{0, 3}));
}

TYPED_TEST(SortKeys, SubstringEndsAtABlankOrTab) {
  EXPECT_EQ(this->KeyIn("abc def", Substring(SortEndAtWhitespace)), (Key{0, 3}));
  EXPECT_EQ(this->KeyIn("abc\tdef g", Substring(SortEndAtWhitespace)), (Key{0, 3}));
  EXPECT_EQ(this->KeyIn("abc def ghi", From(4, Substring(SortEndAtWhitespace))), (Key{4, 3}));
  EXPECT_EQ(this->KeyIn("a\v\f\xA0"
                        "b c",
                        Substring(SortEndAtWhitespace)),
            (Key{0, 5}));
  EXPECT_EQ(this->KeyIn("  ab c", Substring(SortEndAtWhitespace | SortSkipLeadingSpace)), (Key{2, 2}));
}

TYPED_TEST(SortKeys, DistanceToTheLinesEndIsStored) {
  EXPECT_EQ(this->KeyIn("abc", Substring(SortEndAtWhitespace)), (Key{0, 3}));
  EXPECT_EQ(this->KeysOf({"abc", " x"}, Substring(SortEndAtWhitespace), "")[0], (Key{0, 3}));
  SortLinesOptions atChar = Substring(SortEndAtChar);
  atChar.matchChar = atChar.matchCharA = ';';
  EXPECT_EQ(this->KeyIn("abc", From(1, atChar)), (Key{1, 2}));
  EXPECT_EQ(this->KeysOf({"abc", ";x"}, atChar, "")[0], (Key{0, 3}));
  EXPECT_EQ(this->KeyIn("a;bcd", Item(2)), (Key{2, 3}));
}

TYPED_TEST(SortKeys, EndAtWhitespaceRightAtTheStartIsTheRestOfTheLineByDesign) {
  EXPECT_EQ(this->KeyIn(" abc", Substring(SortEndAtWhitespace)), (Key{0, 0}));
  EXPECT_EQ(this->KeyIn("ab\tcd", From(2, Substring(SortEndAtWhitespace))), (Key{2, 0}));
}

TYPED_TEST(SortKeys, SubstringEndsAtTheEndCharacter) {
  SortLinesOptions options = Substring(SortEndAtChar);
  options.matchChar = options.matchCharA = ';';
  EXPECT_EQ(this->KeyIn("abc;d;e", options), (Key{0, 3}));
  EXPECT_EQ(this->KeyIn("abc;d;e", From(4, options)), (Key{4, 1}));
  EXPECT_EQ(this->KeyIn("abc", options), (Key{0, 3}));
  EXPECT_EQ(this->KeyIn(";abc", options), (Key{0, 0}));
  EXPECT_EQ(this->KeyIn("a b\tc;", options), (Key{0, 5}));
}

TYPED_TEST(SortKeys, EndCharacterMayBeAZeroOrLieAboveAscii) {
  SortLinesOptions options = Substring(SortEndAtChar);
  EXPECT_EQ(this->KeyIn(std::string("ab\0cd", 5), options), (Key{0, 2}));
  options.matchChar = options.matchCharA = 0xE9;
  EXPECT_EQ(this->KeyIn("abc\xE9"
                        "d",
                        options),
            (Key{0, 3}));
  options.matchChar = options.matchCharA = 0xFF;
  EXPECT_EQ(this->KeyIn("a\xFF"
                        "d",
                        options),
            (Key{0, 1}));
  EXPECT_EQ(this->KeyIn("a\xFF"
                        "d",
                        Item(2, '\xFF')),
            (Key{2, 1}));
}

TYPED_TEST(SortKeys, ItemsAreCountedFromOne) {
  EXPECT_EQ(this->KeyIn("a;b;c", Item(1)), (Key{0, 1}));
  EXPECT_EQ(this->KeyIn("a;b;c", Item(2)), (Key{2, 1}));
  EXPECT_EQ(this->KeyIn("a;b;c", Item(3)), (Key{4, 1}));
  EXPECT_EQ(this->KeyIn("abc;defg;h", Item(2)), (Key{4, 4}));
  EXPECT_EQ(this->KeyIn("abc", Item(1)), (Key{0, 3}));
}

TYPED_TEST(SortKeys, ItemsAreCountedFromTheStart) {
  EXPECT_EQ(this->KeyIn("a;b;c", From(2, Item(1))), (Key{2, 1}));
  EXPECT_EQ(this->KeyIn("a;b;c", From(2, Item(2))), (Key{4, 1}));
  EXPECT_EQ(this->KeyIn("a;b;c", From(1, Item(2))), (Key{2, 1}));
  EXPECT_EQ(this->KeyIn("  a;b", Item(1, ';', SortSkipLeadingSpace)), (Key{2, 1}));
  EXPECT_EQ(this->KeyIn("  a b", Item(2, ' ', SortSkipLeadingSpace)), (Key{4, 1}));
  // The leading blanks of an item belong to it.
  EXPECT_EQ(this->KeyIn("a; b", Item(2, ';', SortSkipLeadingSpace)), (Key{2, 2}));
}

TYPED_TEST(SortKeys, EmptyItemBetweenSeparatorsIsTheRestOfTheLineByDesign) {
  EXPECT_EQ(this->KeyIn("a;;c", Item(2)), (Key{2, 0}));
  EXPECT_EQ(this->KeyIn(";b", Item(1)), (Key{0, 0}));
}

TYPED_TEST(SortKeys, ItemThatTheLineDoesNotHaveIsEmptyAtTheLinesEnd) {
  EXPECT_EQ(this->KeyIn("a;b;c", Item(4)), (Key{5, 0}));
  EXPECT_EQ(this->KeyIn("a;b;c", Item(0)), (Key{5, 0}));
  EXPECT_EQ(this->KeyIn("a;b;c", Item(kMax)), (Key{5, 0}));
  EXPECT_EQ(this->KeyIn("a;b;", Item(3)), (Key{4, 0}));
  EXPECT_EQ(this->KeyIn("", Item(1)), (Key{0, 0}));
  EXPECT_EQ(this->KeyIn("", Item(2)), (Key{0, 0}));
  EXPECT_EQ(this->KeysOf({"a", "b;c"}, Item(2), ";")[0], (Key{1, 0}));
}

TYPED_TEST(SortKeys, ItemsIgnoreTheSubstringsChoices) {
  SortLinesOptions options = Item(2, ';', SortEndAtWhitespace | SortEndAtChar);
  options.subStringLen = 1;
  EXPECT_EQ(this->KeyIn("a;b c;d", options), (Key{2, 3}));
}

TYPED_TEST(SortKeys, WithoutAKindOfKeyItRunsToTheLinesEnd) {
  SortLinesOptions options = Options(SortAsNumber | SortEndAtChar);
  options.matchChar = options.matchCharA = ';';
  EXPECT_EQ(this->KeyIn("12;3", From(1, options)), (Key{1, 0, 2}));
}

TEST(SortKeysBytes, TakeTheByteOfTheEndCharacter) {
  SortLinesOptions options;
  options.options = SortBySubstring | SortEndAtChar;
  options.matchChar = ';';
  options.matchCharA = ',';
  LineRecords<char> records = LinesOf<char>({"ab;cd,ef"});
  ComputeSortKeys<char>(records.lines, options);
  EXPECT_EQ(records.lines[0].keyLength, 5u);
}

TEST(SortKeysUnits, TakeTheUnitOfTheEndCharacter) {
  SortLinesOptions options;
  options.options = SortBySubstring | SortEndAtChar;
  options.matchChar = ';';
  options.matchCharA = ',';
  LineRecords<WCHAR> records = LinesOf<WCHAR>({"ab,cd;ef"});
  ComputeSortKeys<WCHAR>(records.lines, options);
  EXPECT_EQ(records.lines[0].keyLength, 5u);
}

TEST(SortKeysUnits, AreComparedWhole) {
  // Units whose low or high bytes are a semicolon, a blank or a tab.
  const WString text = {0x0120, 0x0109, 0x013B, 0x3B00, 0x2000, 0x0900, W('a'), 0x203B, W('b')};
  LineRecords<WCHAR> records({text});
  ComputeSortKeys<WCHAR>(records.lines, Substring(SortSkipLeadingSpace | SortEndAtWhitespace));
  EXPECT_EQ(records.lines[0].keyOffset, 0u);
  EXPECT_EQ(records.lines[0].keyLength, 9u);
  ComputeSortKeys<WCHAR>(records.lines, Item(2));
  EXPECT_EQ(records.lines[0].keyOffset, 9u);
  SortLinesOptions wide = Item(2);
  wide.matchChar = 0x203B;
  ComputeSortKeys<WCHAR>(records.lines, wide);
  EXPECT_EQ(records.lines[0].keyOffset, 8u);
  EXPECT_EQ(records.lines[0].keyLength, 1u);
}

}  // namespace WQLineSorter
