// The order of lines by their texts, in both character widths.
#include "linesorter/engine/line_sort.h"

#include <gtest/gtest.h>

#include "linesorter/engine/sort_keys.h"
#include "linesorter/line_records.h"

using namespace WQLineSorter;

namespace {

using Texts = std::vector<std::string>;

SortLinesOptions Options(std::uint32_t bits) {
  SortLinesOptions options;
  options.options = bits;
  return options;
}

SortLinesOptions Text(std::uint32_t bits = 0) { return Options(SortByLine | SortAsText | bits); }

SortLinesOptions Number(std::uint32_t bits = 0) { return Options(SortBySubstring | SortAsNumber | bits); }

SortLinesOptions Date(const char* format, std::uint32_t bits = 0) {
  SortLinesOptions options = Options(SortBySubstring | SortAsDate | bits);
  CopyTerminated(options.dateFormat, sizeof(options.dateFormat), std::string_view(format));
  return options;
}

SortLinesOptions Item(std::uint32_t item, char separator, std::uint32_t bits = 0) {
  SortLinesOptions options = Options(SortByItem | bits);
  options.lineItem = item;
  options.matchChar = static_cast<unsigned char>(separator);
  options.matchCharA = static_cast<unsigned char>(separator);
  return options;
}

SortLinesOptions From(std::uint32_t lineOffset, SortLinesOptions options) {
  options.lineOffset = lineOffset;
  return options;
}

SortLinesOptions Keeping(std::uint32_t top, std::uint32_t bottom, SortLinesOptions options) {
  options.keepLinesTop = top;
  options.keepLinesBottom = bottom;
  return options;
}

template <typename CharT>
Texts SortRecords(LineRecords<CharT> records, const SortLinesOptions& options) {
  ComputeSortKeys<CharT>(records.lines, options);
  std::vector<SortLine> plain = records.lines;
  const LineRange range = MovableRange(records.lines, options);
  SortLineRange<CharT>(records.lines, range, options);
  SortLineRangeReference<CharT>(plain, range, options);
  EXPECT_EQ(TextsOf<CharT>(plain), TextsOf<CharT>(records.lines));
  if ((options.options & SortRemoveBlank) != 0) RemoveBlankLines(records.lines, range);
  return TextsOf<CharT>(records.lines);
}

template <typename CharT>
Texts Sorted(const Texts& texts, const SortLinesOptions& options) {
  return SortRecords(LinesOf<CharT>(texts), options);
}

template <typename CharT>
class LineSort : public testing::Test {
 protected:
  static Texts Sort(const Texts& texts, const SortLinesOptions& options) {
    return Sorted<CharT>(texts, options);
  }
};
TYPED_TEST_SUITE(LineSort, BothWidths);

}  // namespace

TYPED_TEST(LineSort, TextsAreInOrder) {
  EXPECT_EQ(this->Sort({}, Text()), Texts{});
  EXPECT_EQ(this->Sort({"b"}, Text()), Texts{"b"});
  EXPECT_EQ(this->Sort({"b", "a"}, Text()), (Texts{"a", "b"}));
  EXPECT_EQ(this->Sort({"pear", "apple", "", "fig"}, Text()), (Texts{"", "apple", "fig", "pear"}));
}

TYPED_TEST(LineSort, CaseCountsUnlessItIsIgnored) {
  EXPECT_EQ(this->Sort({"a", "B"}, Text()), (Texts{"B", "a"}));
  EXPECT_EQ(this->Sort({"B", "a"}, Text(SortIgnoreCase)), (Texts{"a", "B"}));
  EXPECT_EQ(this->Sort({"a1", "A1", "a0", "A0"}, Text(SortIgnoreCase)), (Texts{"a0", "A0", "a1", "A1"}));
}

TEST(LineSortBytes, LinesWithEqualPrefixesKeepTheirOrderByDesign) {
  EXPECT_EQ(Sorted<char>({"abcd", "abc", "abcde", "ab"}, Text()), (Texts{"abcd", "abc", "abcde", "ab"}));
  EXPECT_EQ(Sorted<char>({"b", "abcd", "abc"}, Text()), (Texts{"abcd", "abc", "b"}));
}

TEST(LineSortUnits, LinesWithEqualPrefixesComeShortestFirst) {
  EXPECT_EQ(Sorted<WCHAR>({"abcd", "abc", "abcde", "ab"}, Text()), (Texts{"ab", "abc", "abcd", "abcde"}));
}

TEST(LineSortBytes, EndAtAZeroByte) {
  const Texts texts = {std::string("a\0z", 3), std::string("a\0b", 3), "b"};
  EXPECT_EQ(Sorted<char>(texts, Text()), texts);
}

TEST(LineSortUnits, ContinueAfterAZeroUnit) {
  EXPECT_EQ(Sorted<WCHAR>({std::string("a\0z", 3), std::string("a\0b", 3)}, Text()),
            (Texts{std::string("a\0b", 3), std::string("a\0z", 3)}));
}

TEST(LineSortBytes, UnderscoreComesBeforeLettersWhenCaseIsIgnored) {
  EXPECT_EQ(Sorted<char>({"B", "_", "a"}, Text(SortIgnoreCase)), (Texts{"_", "a", "B"}));
}

TEST(LineSortUnits, UnderscoreComesAfterLettersWhenCaseIsIgnored) {
  EXPECT_EQ(Sorted<WCHAR>({"B", "_", "a"}, Text(SortIgnoreCase)), (Texts{"a", "B", "_"}));
}

TYPED_TEST(LineSort, EqualKeysKeepTheirOrder) {
  EXPECT_EQ(this->Sort({"3b", "1b", "2a", "5a", "4b"}, From(4, Text())),
            (Texts{"3b", "1b", "2a", "5a", "4b"}));
  EXPECT_EQ(this->Sort({"2c", "1c", "2b", "1b", "2a"}, Number()), (Texts{"1c", "1b", "2c", "2b", "2a"}));
}

TYPED_TEST(LineSort, ReverseInvertsTheStableOrderByDesign) {
  EXPECT_EQ(this->Sort({"a", "c", "b"}, Text(SortReverse)), (Texts{"c", "b", "a"}));
  // This is not a descending sort: equal keys are in the reverse of their original order.
  EXPECT_EQ(this->Sort({"7a", "7b", "7c", "7d", "7e"}, Number(SortReverse)),
            (Texts{"7e", "7d", "7c", "7b", "7a"}));
  EXPECT_EQ(this->Sort({"1a", "2a", "1b", "2b"}, Number(SortReverse)), (Texts{"2b", "2a", "1b", "1a"}));
}

TYPED_TEST(LineSort, KeptLinesStayInPlace) {
  EXPECT_EQ(this->Sort({"z", "c", "b", "a", "A"}, Keeping(1, 1, Text())), (Texts{"z", "a", "b", "c", "A"}));
  EXPECT_EQ(this->Sort({"z", "b", "c", "A"}, Keeping(1, 1, Text(SortReverse))), (Texts{"z", "c", "b", "A"}));
  EXPECT_EQ(this->Sort({"c", "b", "a"}, Keeping(1, 0, Text())), (Texts{"c", "a", "b"}));
  EXPECT_EQ(this->Sort({"c", "b", "a"}, Keeping(0, 1, Text())), (Texts{"b", "c", "a"}));
}

TYPED_TEST(LineSort, NothingMovesWhenAllLinesOrMoreAreKept) {
  const Texts texts = {"c", "", "b", "", "a"};
  constexpr std::uint32_t kMax = 0xFFFFFFFF;
  for (const auto& [top, bottom] :
       {std::pair{5u, 0u}, std::pair{0u, 5u}, std::pair{3u, 2u}, std::pair{3u, 3u}, std::pair{6u, 0u},
        std::pair{0u, 6u}, std::pair{kMax, 0u}, std::pair{0u, kMax}, std::pair{kMax, kMax},
        std::pair{1u, kMax}}) {
    for (const std::uint32_t bits : {0u, +SortReverse, +SortRemoveBlank, SortReverse | SortRemoveBlank}) {
      EXPECT_EQ(this->Sort(texts, Keeping(top, bottom, Text(bits))), texts) << top << " " << bottom;
    }
  }
}

TYPED_TEST(LineSort, NumbersAreOrderedByValue) {
  EXPECT_EQ(this->Sort({"12abc", "-3", "x"}, Number()), (Texts{"-3", "x", "12abc"}));
  EXPECT_EQ(this->Sort({"10", "9", "-10", "-9", "0"}, Number()), (Texts{"-10", "-9", "0", "9", "10"}));
  EXPECT_EQ(this->Sort({"9223372036854775807", "-9223372036854775808", "0", "-1", "4294967296"}, Number()),
            (Texts{"-9223372036854775808", "-1", "0", "4294967296", "9223372036854775807"}));
}

TYPED_TEST(LineSort, EntireLineAsNumberKeepsTheOrderByDesign) {
  const Texts texts = {"3", "1", "2"};
  EXPECT_EQ(this->Sort(texts, Options(SortByLine | SortAsNumber)), texts);
  EXPECT_EQ(this->Sort(texts, Options(SortByLine | SortAsDate)), texts);
  EXPECT_EQ(this->Sort(texts, Options(SortByLine | SortAsNumber | SortReverse)), (Texts{"2", "1", "3"}));
}

TYPED_TEST(LineSort, DatesAreOrderedByTime) {
  EXPECT_EQ(this->Sort({"1 Feb 2014", "2 Jan 2014", "31 Dec 1999", "5 Jan 2014"}, Date("%d %b %Y")),
            (Texts{"31 Dec 1999", "2 Jan 2014", "5 Jan 2014", "1 Feb 2014"}));
}

TYPED_TEST(LineSort, LinesWithoutADateComeFirstInTheirOrder) {
  EXPECT_EQ(this->Sort({"2014-11-22", "zebra", "2014-11-21", "", "ape"}, Date("%Y-%m-%d")),
            (Texts{"zebra", "", "ape", "2014-11-21", "2014-11-22"}));
}

TYPED_TEST(LineSort, ValuesGoBeforeTheWayOfComparingText) {
  EXPECT_EQ(this->Sort({"10", "9"}, Number(SortLanguageAware | SortNaturalNumbers | SortIgnoreCase)),
            (Texts{"9", "10"}));
}

TYPED_TEST(LineSort, LanguageOrderIgnoresCaseWithAndWithoutTheOption) {
  const Texts texts = {"b", "C", "a", "B", "c", "A"};
  const Texts sorted = {"a", "A", "b", "B", "C", "c"};
  EXPECT_EQ(this->Sort(texts, Text(SortLanguageAware)), sorted);
  EXPECT_EQ(this->Sort(texts, Text(SortLanguageAware | SortIgnoreCase)), sorted);
  EXPECT_EQ(this->Sort(texts, Text(SortLanguageAware | SortNaturalNumbers)), sorted);
  EXPECT_EQ(this->Sort(texts, Text(SortLanguageAware | SortNoCompareStringEx)), sorted);
}

TYPED_TEST(LineSort, LanguageOrderSortsLettersWithMarksNextToTheirLetters) {
  EXPECT_EQ(this->Sort({"z", "b", "\xE4", "a"}, Text(SortLanguageAware)), (Texts{"a", "\xE4", "b", "z"}));
  EXPECT_EQ(this->Sort({"z", "b", "\xE4", "a"}, Text(SortLanguageAware | SortNaturalNumbers)),
            (Texts{"a", "\xE4", "b", "z"}));
  EXPECT_EQ(this->Sort({"z", "b", "\xE4", "a"}, Text()), (Texts{"a", "b", "z", "\xE4"}));
}

TYPED_TEST(LineSort, DigitRunsGoByValueInTheLanguageOrderAlone) {
  const Texts texts = {"a10", "a9", "", "a1"};
  EXPECT_EQ(this->Sort(texts, Text(SortLanguageAware | SortNaturalNumbers)), (Texts{"", "a1", "a9", "a10"}));
  EXPECT_EQ(this->Sort({"a9", "a10"}, Text(SortLanguageAware)), (Texts{"a10", "a9"}));
  EXPECT_EQ(this->Sort({"a9", "a10"}, Text(SortNaturalNumbers)), (Texts{"a10", "a9"}));
}

TEST(LineSortBytes, KeyOfASubstring) {
  SortLinesOptions options = Options(SortBySubstring);
  options.lineOffset = 2;
  options.subStringLen = 2;
  EXPECT_EQ(Sorted<char>({"1.cba", "2.caz", "3.abz", "4.ca"}, options),
            (Texts{"3.abz", "2.caz", "4.ca", "1.cba"}));
  EXPECT_EQ(Sorted<char>({"ab1", "aa2"}, From(2, Options(SortBySubstring))), (Texts{"ab1", "aa2"}));
}

TEST(LineSortBytes, KeyOfAnItem) {
  EXPECT_EQ(Sorted<char>({"1;c;x", "2;a;x", "3;b;x"}, Item(2, ';')), (Texts{"2;a;x", "3;b;x", "1;c;x"}));
  // A missing item is an empty key and comes first; an empty item extends to the end of its line.
  EXPECT_EQ(Sorted<char>({"1;c;x", "2;;x", "3"}, Item(2, ';')), (Texts{"3", "2;;x", "1;c;x"}));
}

TEST(LineSortBytes, LinesShorterThanTheStartComeFirst) {
  EXPECT_EQ(Sorted<char>({"0123b", "x", "0123a", "", "0123"}, From(4, Options(SortBySubstring))),
            (Texts{"x", "", "0123", "0123a", "0123b"}));
}

TEST(LineSortUnits, KeysStartHalfAsFarByDesign) {
  // The offset of two counts bytes, so the keys are "b1" and "a2".
  EXPECT_EQ(Sorted<WCHAR>({"ab1", "aa2"}, From(2, Options(SortBySubstring))), (Texts{"aa2", "ab1"}));
}

TEST(LineSortUnits, KeysAreHalfAsLongByDesign) {
  SortLinesOptions options = Options(SortBySubstring);
  options.subStringLen = 4;
  EXPECT_EQ(Sorted<WCHAR>({"abz--", "aba--", "aaz--", "aaa--"}, options),
            (Texts{"aaz--", "aaa--", "abz--", "aba--"}));
  options.subStringLen = 1;
  EXPECT_EQ(Sorted<WCHAR>({"c-", "b-", "a-"}, options), (Texts{"c-", "b-", "a-"}));
}

TEST(LineSortUnits, KeysAtOddOffsetsStraddleTheCharactersByDesign) {
  // The units from the second byte on are 0x7800 and 0x1000, although 0x0178 is less than 0x0210.
  LineRecords<WCHAR> records({{W('a'), 0x0178}, {W('b'), 0x0210}});
  const char* const first = records.lines[0].text;
  const char* const second = records.lines[1].text;
  const SortLinesOptions options = From(1, Options(SortBySubstring));
  ComputeSortKeys<WCHAR>(records.lines, options);
  SortLineRange<WCHAR>(records.lines, {0, 2}, options);
  EXPECT_EQ(records.lines[0].text, second);
  EXPECT_EQ(records.lines[1].text, first);
}

TEST(LineSortUnits, LinesThatEndBeforeTheStartComeFirstByTheirBytes) {
  // The offset of 4 is after the end of "abc", but in bytes it is its third character.
  EXPECT_EQ(Sorted<WCHAR>({"zzzz", "abc", "a", "ab"}, From(4, Options(SortBySubstring))),
            (Texts{"a", "ab", "abc", "zzzz"}));
}

TYPED_TEST(LineSort, NumbersStartAtTheirCharacterInBothWidths) {
  EXPECT_EQ(this->Sort({"ab10", "cd9", "ef-1"}, From(2, Number())), (Texts{"ef-1", "cd9", "ab10"}));
}

TYPED_TEST(LineSort, BlankLinesAreRemovedFromTheRange) {
  EXPECT_EQ(this->Sort({"b", "", "a", ""}, Text(SortRemoveBlank)), (Texts{"a", "b"}));
  EXPECT_EQ(this->Sort({"", "", ""}, Text(SortRemoveBlank)), Texts{});
  EXPECT_EQ(this->Sort({"b", "", "a", ""}, Text(SortRemoveBlank | SortReverse)), (Texts{"b", "a"}));
  EXPECT_EQ(this->Sort({"b", " ", "", "\t"}, Text(SortRemoveBlank)), (Texts{"\t", " ", "b"}));
}

TYPED_TEST(LineSort, BlankKeptLinesStayAndFollowTheRange) {
  EXPECT_EQ(this->Sort({"", "b", "", "a", "", "z", ""}, Keeping(1, 2, Text(SortRemoveBlank))),
            (Texts{"", "a", "b", "z", ""}));
}

TYPED_TEST(LineSort, LinesMoveWithTheirOwnEndings) {
  LineRecords<TypeParam> records = LinesOf<TypeParam>({"b", "a"}, "\r\n");
  records.lines[1].endingSize = 0;
  records.lines[1].endingKind = LineEnding::None;
  SortLineRange<TypeParam>(records.lines, {0, 2}, Text());
  EXPECT_EQ(TextsOf<TypeParam>(records.lines), (Texts{"a", "b"}));
  EXPECT_EQ(records.lines[0].endingSize, 0);
  EXPECT_EQ(records.lines[0].endingKind, LineEnding::None);
  EXPECT_EQ(records.lines[1].endingSize, 2 * sizeof(TypeParam));
  EXPECT_EQ(records.lines[1].endingKind, LineEnding::CrLf);
}

// The comparison is not a strict weak order: "a" equals all others, and "ab" is less than "ac". libstdc++
// sorts the two halves, which do not change, and merges them: "ab" is less than "ac", so both lines of the
// second half come first. A library that sorts so few lines by insertion finds "ab" equal to the "a" before
// it and moves nothing.
TEST(LineSortOfLibstdcxx, MergesTheHalvesOfKeysThatEqualTheirPrefixes) {
  EXPECT_EQ(Sorted<char>({"ac", "a", "ab", "ab"}, Text()), (Texts{"ab", "ab", "ac", "a"}));
}

TEST(RemoveBlankLines, ChecksOnlyTheTextAndOnlyTheRange) {
  LineRecords<char> records = LinesOf<char>({"", "b", "", " ", "", "a", ""});
  records.lines[2].endingSize = 0;
  records.lines[2].endingKind = LineEnding::None;
  RemoveBlankLines(records.lines, {1, 6});
  EXPECT_EQ(TextsOf<char>(records.lines), (Texts{"", "b", " ", "a", ""}));
}

TEST(RemoveBlankLines, LeavesAnEmptyRangeAlone) {
  LineRecords<char> records = LinesOf<char>({"", "", ""});
  for (const std::size_t at : {0u, 1u, 3u}) RemoveBlankLines(records.lines, {at, at});
  EXPECT_EQ(records.lines.size(), 3u);
}

TEST(MovableRange, IsWhatIsLeftBetweenTheKeptLines) {
  const std::vector<SortLine> lines(5);
  const auto check = [&](std::uint32_t top, std::uint32_t bottom, std::size_t first, std::size_t last) {
    const LineRange range = MovableRange(lines, Keeping(top, bottom, {}));
    EXPECT_EQ(range.first, first) << top << " " << bottom;
    EXPECT_EQ(range.last, last) << top << " " << bottom;
  };
  check(0, 0, 0, 5);
  check(1, 0, 1, 5);
  check(0, 1, 0, 4);
  check(2, 1, 2, 4);
  check(2, 2, 2, 3);
}

TEST(MovableRange, IsEmptyWhenAllLinesOrMoreAreKept) {
  const std::vector<SortLine> lines(5);
  constexpr std::uint32_t kMax = 0xFFFFFFFF;
  for (const auto& [top, bottom] :
       {std::pair{5u, 0u}, std::pair{0u, 5u}, std::pair{3u, 2u}, std::pair{3u, 3u}, std::pair{6u, 0u},
        std::pair{0u, 6u}, std::pair{kMax, 0u}, std::pair{0u, kMax}, std::pair{kMax, kMax},
        std::pair{1u, kMax}, std::pair{kMax, 1u}}) {
    const LineRange range = MovableRange(lines, Keeping(top, bottom, {}));
    EXPECT_EQ(range.first, range.last) << top << " " << bottom;
    EXPECT_LE(range.last, lines.size()) << top << " " << bottom;
  }
  const LineRange ofNone = MovableRange({}, {});
  EXPECT_EQ(ofNone.first, 0u);
  EXPECT_EQ(ofNone.last, 0u);
}
