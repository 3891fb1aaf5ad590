// The number in the key of a line, in both character widths.
#include "linesorter/engine/sort_keys.h"

#include <gtest/gtest.h>

#include "linesorter/sort_keys_helper.h"

namespace WQLineSorter {

TYPED_TEST(SortKeys, NumberOfTheKey) {
  EXPECT_EQ(this->NumbersOf({"12abc", "-3", "x", "+4"}, Number()), (Numbers{12, -3, 0, 4}));
  EXPECT_EQ(this->NumbersOf({"abc12", "abc-3"}, From(3, Number())), (Numbers{12, -3}));
  EXPECT_EQ(this->NumbersOf({"  12", "\t\v-3"}, Number()), (Numbers{12, -3}));
}

TYPED_TEST(SortKeys, NumberIsCutAtTheLimitsOf64Bits) {
  EXPECT_EQ(this->NumbersOf({"9223372036854775807", "9223372036854775808", "99999999999999999999"}, Number()),
            (Numbers{INT64_MAX, INT64_MAX, INT64_MAX}));
  EXPECT_EQ(this->NumbersOf({"-9223372036854775808", "-9223372036854775809"}, Number(40)),
            (Numbers{INT64_MIN, INT64_MIN}));
}

TYPED_TEST(SortKeys, SubstringLengthLimitsTheNumber) {
  EXPECT_EQ(this->KeyIn("12345", Number(2)), (Key{0, 2, 12}));
  EXPECT_EQ(this->KeyIn("12345", Number(5)), (Key{0, 0, 12345}));
  EXPECT_EQ(this->KeyIn("12345", Number(9)), (Key{0, 0, 12345}));
  EXPECT_EQ(this->KeyIn("12345", From(2, Number(2))), (Key{2, 2, 34}));
  EXPECT_EQ(this->KeyIn("  12", Number(3)), (Key{0, 3, 1}));
  EXPECT_EQ(this->KeyIn("-123", Number(1)), (Key{0, 1, 0}));
}

TYPED_TEST(SortKeys, SubstringLengthLimitsTheNumberOfAnItemToo) {
  SortLinesOptions options = Item(2, ';', SortAsNumber);
  options.subStringLen = 3;
  EXPECT_EQ(this->KeyIn("a;12345;6", options), (Key{2, 5, 123}));
  EXPECT_EQ(this->KeyIn("a;1;6", options), (Key{2, 1, 1}));
}

TYPED_TEST(SortKeys, NumberOfAnItemEndsAtItsSeparator) {
  EXPECT_EQ(this->KeyIn("a;12;34", Item(2, ';', SortAsNumber)), (Key{2, 2, 12}));
  EXPECT_EQ(this->KeyIn("a;;34", Item(2, ';', SortAsNumber)), (Key{2, 0, 0}));
  // Unless the separator can be part of a number.
  EXPECT_EQ(this->KeyIn("a  34", Item(2, ' ', SortAsNumber)), (Key{2, 0, 34}));
  EXPECT_EQ(this->KeyIn("a1213", Item(2, '1', SortAsNumber)), (Key{2, 1, 213}));
}

TYPED_TEST(SortKeys, EmptyLineHasTheNextLinesNumberByDesign) {
  EXPECT_EQ(this->NumbersOf({"", "", "42", "7"}, Number()), (Numbers{42, 42, 42, 7}));
  EXPECT_EQ(this->NumbersOf({"", "42"}, Number(), "\r\n"), (Numbers{42, 42}));
  EXPECT_EQ(this->NumbersOf({"", "42"}, Number(), "\r"), (Numbers{42, 42}));
  EXPECT_EQ(this->NumbersOf({"  ", "42"}, Number()), (Numbers{42, 42}));
  EXPECT_EQ(this->NumbersOf({"", "x"}, Number()), (Numbers{0, 0}));
  EXPECT_EQ(this->NumbersOf({"-", "42"}, Number()), (Numbers{0, 42}));
}

TYPED_TEST(SortKeys, DigitsAtTheLinesEndContinueWithoutAnEnding) {
  EXPECT_EQ(this->NumbersOf({"4", "2"}, Number(), ""), (Numbers{42, 2}));
  EXPECT_EQ(this->NumbersOf({"4", "2"}, Number(1), ""), (Numbers{4, 2}));
}

TYPED_TEST(SortKeys, NumberReadsOnWhereALimitMeetsNoCharacters) {
  EXPECT_EQ(this->NumbersOf({"", "42"}, Number(3)), (Numbers{42, 42}));
  EXPECT_EQ(this->NumbersOf({"abc", "def42"}, From(3, Number())), (Numbers{0, 42}));
  EXPECT_EQ(this->NumbersOf({"a;b", "42"}, Item(3, ';', SortAsNumber)), (Numbers{42, 0}));
}

TYPED_TEST(SortKeys, NumberWithinALimitDoesNotReadOn) {
  EXPECT_EQ(this->NumbersOf({"  ", "42"}, Number(3)), (Numbers{0, 42}));
}

TYPED_TEST(SortKeys, NumberLimitIsNoMoreThanTheCharactersThatAreLeft) {
  EXPECT_EQ(this->NumbersOf({"  ", "42"}, Number(6)), (Numbers{0, 42}));
  EXPECT_EQ(this->NumbersOf({"4", "2"}, Number(6), ""), (Numbers{4, 2}));
  EXPECT_EQ(this->NumbersOf({"ab ", "42"}, From(2, Number(6))), (Numbers{0, 0}));
  // Skipped blanks do not count towards the length.
  SortLinesOptions skipping = Number(6);
  skipping.options |= SortSkipLeadingSpace;
  EXPECT_EQ(this->NumbersOf({"  ", "42"}, skipping), (Numbers{42, 42}));
}

TYPED_TEST(SortKeys, NumberOfTheLastLineEndsInTheZerosAfterTheBlock) {
  EXPECT_EQ(this->NumbersOf({""}, Number()), (Numbers{0}));
  EXPECT_EQ(this->NumbersOf({"", " "}, Number()), (Numbers{0, 0}));
  EXPECT_EQ(this->NumbersOf({"12"}, Number(), ""), (Numbers{12}));
  EXPECT_EQ(this->NumbersOf({"-"}, Number(), ""), (Numbers{0}));
}

TYPED_TEST(SortKeys, NumberOfAKeyBeyondTheLinesEndIsZero) {
  EXPECT_EQ(this->NumbersOf({"abc", "defgh"}, From(4, Number())), (Numbers{0, 0}));
  EXPECT_EQ(this->NumbersOf({"1", "2345"}, From(2, Number())), (Numbers{0, 45}));
  EXPECT_EQ(this->NumbersOf({"1", "2345"}, From(2, Number(9))), (Numbers{0, 45}));
  EXPECT_EQ(this->NumbersOf({"1", "2345"}, From(2, Item(1, ';', SortAsNumber))), (Numbers{0, 45}));
}

TYPED_TEST(SortKeys, NumberLimitsOf64AndMoreAreCutAt63Characters) {
  // The 63rd character is the "1"; without a limit all characters are read.
  const std::string text = std::string(62, '0') + "123";
  EXPECT_EQ(this->KeyIn(text, Number(62)), (Key{0, 62, 0}));
  EXPECT_EQ(this->KeyIn(text, Number(63)), (Key{0, 63, 1}));
  EXPECT_EQ(this->KeyIn(text, Number(64)), (Key{0, 64, 1}));
  EXPECT_EQ(this->KeyIn(text, Number(65)), (Key{0, 0, 1}));
  EXPECT_EQ(this->KeyIn(text, Number(1000)), (Key{0, 0, 1}));
  EXPECT_EQ(this->KeyIn(text, Number(kMax)), (Key{0, 0, 1}));
  EXPECT_EQ(this->KeyIn(text, Number(0)), (Key{0, 0, 123}));
}

TYPED_TEST(SortKeys, HugeNumberLimitsOnAShorterLineTakeTheLine) {
  for (const std::uint32_t limit : {64u, 1000u, 0x80000000u, 0x80000001u, kMax}) {
    EXPECT_EQ(this->KeyIn("123", Number(limit)), (Key{0, 0, 123})) << limit;
  }
}

TYPED_TEST(SortKeys, LimitedNumberEndsAtAZeroCharacter) {
  EXPECT_EQ(this->KeyIn(std::string("12\0"
                                    "34",
                                    5),
                        Number(5)),
            (Key{0, 0, 12}));
}

TYPED_TEST(SortKeys, NumberGoesBeforeDate) {
  SortLinesOptions options = Date("%Y");
  options.options |= SortAsNumber;
  EXPECT_EQ(this->KeyIn("2014", options), (Key{0, 0, 2014}));
}

TYPED_TEST(SortKeys, TextHasNoNumber) {
  EXPECT_EQ(this->KeyIn("42", Substring(SortAsText)), (Key{0, 0, 0}));
  SortLinesOptions options = Date("%Y");
  options.options = SortBySubstring;
  EXPECT_EQ(this->KeyIn("2014", options), (Key{0, 0, 0}));
}

TYPED_TEST(SortKeys, LinesThatStayInPlaceHaveKeysToo) {
  SortLinesOptions options = Number();
  options.keepLinesTop = 1;
  options.keepLinesBottom = 1;
  EXPECT_EQ(this->NumbersOf({"3", "2", "1"}, options), (Numbers{3, 2, 1}));
}

}  // namespace WQLineSorter
