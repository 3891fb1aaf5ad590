// The key of a line, step by step, in both widths; and how comparators are given it.
#include "linesorter/sort_keys.h"

#include <gtest/gtest.h>

#include <ctime>

#include "linesorter/line_records.h"
#include "linesorter/sort_lines_exception.h"

using namespace WQLineSorter;

namespace {

constexpr std::uint32_t kMost = 0xFFFFFFFF;

SortLinesOptions Options(std::uint32_t bits) {
  SortLinesOptions options;
  options.options = bits;
  return options;
}

SortLinesOptions Substring(std::uint32_t bits = 0) { return Options(SortBySubstring | bits); }

SortLinesOptions Item(std::uint32_t item, char separator = ';', std::uint32_t bits = 0) {
  SortLinesOptions options = Options(SortByItem | bits);
  options.lineItem = item;
  options.matchChar = static_cast<unsigned char>(separator);
  options.matchCharA = static_cast<unsigned char>(separator);
  return options;
}

SortLinesOptions Number(std::uint32_t limit = 0) {
  SortLinesOptions options = Substring(SortAsNumber);
  options.subStringLen = limit;
  return options;
}

SortLinesOptions Date(const char* format) {
  SortLinesOptions options = Substring(SortAsDate);
  CopyTerminated(options.dateFormat, sizeof(options.dateFormat), std::string_view(format));
  return options;
}

SortLinesOptions From(std::uint32_t lineOffset, SortLinesOptions options) {
  options.lineOffset = lineOffset;
  return options;
}

// Local time as the C library tells it.
std::int64_t LocalTime(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  std::tm time{};
  time.tm_year = year - 1900;
  time.tm_mon = month - 1;
  time.tm_mday = day;
  time.tm_hour = hour;
  time.tm_min = minute;
  time.tm_sec = second;
  return static_cast<std::int64_t>(std::mktime(&time));
}

struct Key {
  std::uint32_t offset;
  std::uint32_t length;
  std::int64_t number = 0;
  bool operator==(const Key&) const = default;
  friend void PrintTo(const Key& key, std::ostream* out) {
    *out << "offset " << key.offset << ", length " << key.length << ", number " << key.number;
  }
};

template <typename CharT>
class SortKeys : public testing::Test {
 protected:
  static std::vector<Key> KeysOf(const std::vector<std::string>& texts, const SortLinesOptions& options,
                                 std::string_view ending = "\n") {
    LineRecords<CharT> records = LinesOf<CharT>(texts, ending);
    const std::vector<SortLine> before = records.lines;
    ComputeSortKeys<CharT>(records.lines, options);
    EXPECT_EQ(records.lines.size(), before.size());
    std::vector<Key> keys;
    for (std::size_t i = 0; i < records.lines.size(); ++i) {
      const SortLine& line = records.lines[i];
      EXPECT_EQ(line.text, before[i].text);
      EXPECT_EQ(line.length, before[i].length);
      EXPECT_EQ(line.endingSize, before[i].endingSize);
      EXPECT_EQ(line.endingKind, before[i].endingKind);
      keys.push_back({line.keyOffset, line.keyLength, line.numericKey});
    }
    return keys;
  }
  static Key KeyIn(const std::string& text, const SortLinesOptions& options) {
    return KeysOf({text}, options, "")[0];
  }
  static std::vector<std::int64_t> NumbersOf(const std::vector<std::string>& texts,
                                             const SortLinesOptions& options,
                                             std::string_view ending = "\n") {
    std::vector<std::int64_t> numbers;
    for (const Key& key : KeysOf(texts, options, ending)) numbers.push_back(key.number);
    return numbers;
  }
};
TYPED_TEST_SUITE(SortKeys, BothWidths);

using Numbers = std::vector<std::int64_t>;

}  // namespace

TYPED_TEST(SortKeys, StartAtTheLineOffset) {
  EXPECT_EQ(this->KeyIn("abcdef", From(0, Substring())), (Key{0, 0}));
  EXPECT_EQ(this->KeyIn("abcdef", From(1, Substring())), (Key{1, 0}));
  EXPECT_EQ(this->KeyIn("abcdef", From(6, Substring())), (Key{6, 0}));
  EXPECT_EQ(this->KeyIn("abcdef", From(2, Options(0))), (Key{2, 0}));
}

TYPED_TEST(SortKeys, StartBehindTheLinesEndStandsAsItIs) {
  EXPECT_EQ(this->KeyIn("abc", From(4, Substring())), (Key{4, 0}));
  EXPECT_EQ(this->KeyIn("", From(1, Substring())), (Key{1, 0}));
  EXPECT_EQ(this->KeyIn("abc", From(4, Options(SortByLine))), (Key{4, 0}));
}

TYPED_TEST(SortKeys, HugeStartsDoNotWrapRoundToTheLine) {
  for (const std::uint32_t start : {0x7FFFFFFFu, 0x80000000u, 0x80000001u, 0xFFFFFFFEu, kMost}) {
    for (const std::uint32_t bits :
         {0u, +SortSkipLeadingSpace, +SortEndAtWhitespace, +SortEndAtChar, +SortAsNumber}) {
      SortLinesOptions options = From(start, Substring(bits));
      options.matchChar = options.matchCharA = ';';
      EXPECT_EQ(this->KeyIn(" 12;34 ", options), (Key{start, 0})) << start << " " << bits;
      options.subStringLen = kMost;
      EXPECT_EQ(this->KeyIn(" 12;34 ", options), (Key{start, 0})) << start << " " << bits;
      EXPECT_EQ(this->KeyIn(" 12;34 ", From(start, Item(2, ';', bits))), (Key{start, 0}))
          << start << " " << bits;
      EXPECT_EQ(this->KeyIn(" 12;34 ", From(start, Item(kMost, ';', bits))), (Key{start, 0}))
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
  for (const std::uint32_t length : {0x7FFFFFFFu, 0x80000000u, 0x80000001u, 0xFFFFFFFDu, kMost}) {
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
  // Also where it does not fit.
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

TYPED_TEST(SortKeys, EndAtWhitespaceRightAtTheStartIsTheRestOfTheLineAsMeant) {
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
  // The blanks of an item are its own.
  EXPECT_EQ(this->KeyIn("a; b", Item(2, ';', SortSkipLeadingSpace)), (Key{2, 2}));
}

TYPED_TEST(SortKeys, EmptyItemBetweenSeparatorsIsTheRestOfTheLineAsMeant) {
  EXPECT_EQ(this->KeyIn("a;;c", Item(2)), (Key{2, 0}));
  EXPECT_EQ(this->KeyIn(";b", Item(1)), (Key{0, 0}));
}

TYPED_TEST(SortKeys, ItemThatTheLineDoesNotHaveIsEmptyAtTheLinesEnd) {
  EXPECT_EQ(this->KeyIn("a;b;c", Item(4)), (Key{5, 0}));
  EXPECT_EQ(this->KeyIn("a;b;c", Item(0)), (Key{5, 0}));
  EXPECT_EQ(this->KeyIn("a;b;c", Item(kMost)), (Key{5, 0}));
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
  // Units whose low or high bytes are those of a semicolon, a blank and a tab.
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
  // Unless the separator can stand in a number.
  EXPECT_EQ(this->KeyIn("a  34", Item(2, ' ', SortAsNumber)), (Key{2, 0, 34}));
  EXPECT_EQ(this->KeyIn("a1213", Item(2, '1', SortAsNumber)), (Key{2, 1, 213}));
}

TYPED_TEST(SortKeys, EmptyLineReadsOnIntoTheNextLinesNumberAsMeant) {
  EXPECT_EQ(this->NumbersOf({"", "", "42", "7"}, Number()), (Numbers{42, 42, 42, 7}));
  EXPECT_EQ(this->NumbersOf({"", "42"}, Number(), "\r\n"), (Numbers{42, 42}));
  EXPECT_EQ(this->NumbersOf({"", "42"}, Number(), "\r"), (Numbers{42, 42}));
  EXPECT_EQ(this->NumbersOf({"  ", "42"}, Number()), (Numbers{42, 42}));
  EXPECT_EQ(this->NumbersOf({"", "x"}, Number()), (Numbers{0, 0}));
  EXPECT_EQ(this->NumbersOf({"-", "42"}, Number()), (Numbers{0, 42}));
}

TYPED_TEST(SortKeys, DigitsAtTheLinesEndReadOnWhereNoEndingStands) {
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
  // Blanks that are skipped are not left.
  SortLinesOptions skipping = Number(6);
  skipping.options |= SortSkipLeadingSpace;
  EXPECT_EQ(this->NumbersOf({"  ", "42"}, skipping), (Numbers{42, 42}));
}

TYPED_TEST(SortKeys, NumberOfTheLastLineEndsInTheZerosBehindTheBlock) {
  EXPECT_EQ(this->NumbersOf({""}, Number()), (Numbers{0}));
  EXPECT_EQ(this->NumbersOf({"", " "}, Number()), (Numbers{0, 0}));
  EXPECT_EQ(this->NumbersOf({"12"}, Number(), ""), (Numbers{12}));
  EXPECT_EQ(this->NumbersOf({"-"}, Number(), ""), (Numbers{0}));
}

TYPED_TEST(SortKeys, NumberOfAKeyBehindTheLinesEndIsZero) {
  EXPECT_EQ(this->NumbersOf({"abc", "defgh"}, From(4, Number())), (Numbers{0, 0}));
  EXPECT_EQ(this->NumbersOf({"1", "2345"}, From(2, Number())), (Numbers{0, 45}));
  EXPECT_EQ(this->NumbersOf({"1", "2345"}, From(2, Number(9))), (Numbers{0, 45}));
  EXPECT_EQ(this->NumbersOf({"1", "2345"}, From(2, Item(1, ';', SortAsNumber))), (Numbers{0, 45}));
}

TYPED_TEST(SortKeys, NumberLimitsOf64AndMoreAreCutAt63Characters) {
  // The 63rd character is the "1"; without a limit all are read.
  const std::string text = std::string(62, '0') + "123";
  EXPECT_EQ(this->KeyIn(text, Number(62)), (Key{0, 62, 0}));
  EXPECT_EQ(this->KeyIn(text, Number(63)), (Key{0, 63, 1}));
  EXPECT_EQ(this->KeyIn(text, Number(64)), (Key{0, 64, 1}));
  EXPECT_EQ(this->KeyIn(text, Number(65)), (Key{0, 0, 1}));
  EXPECT_EQ(this->KeyIn(text, Number(1000)), (Key{0, 0, 1}));
  EXPECT_EQ(this->KeyIn(text, Number(kMost)), (Key{0, 0, 1}));
  EXPECT_EQ(this->KeyIn(text, Number(0)), (Key{0, 0, 123}));
}

TYPED_TEST(SortKeys, HugeNumberLimitsOnAShorterLineTakeTheLine) {
  for (const std::uint32_t limit : {64u, 1000u, 0x80000000u, 0x80000001u, kMost}) {
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

TYPED_TEST(SortKeys, DateIsItsLocalTime) {
  EXPECT_EQ(this->NumbersOf({"2014-11-21", "2014-11-22"}, Date("%Y-%m-%d")),
            (Numbers{LocalTime(2014, 11, 21), LocalTime(2014, 11, 22)}));
  EXPECT_EQ(this->NumbersOf({"21.11.14 13:44:48"}, Date("%d.%m.%y %T")),
            (Numbers{LocalTime(2014, 11, 21, 13, 44, 48)}));
}

TYPED_TEST(SortKeys, DatesOfOneDayDifferByTheirSeconds) {
  const Numbers keys = this->NumbersOf({"2014-11-21 00:00:00", "2014-11-21 13:44:48"}, Date("%Y-%m-%d %T"));
  EXPECT_EQ(keys[1] - keys[0], 49488);
}

TYPED_TEST(SortKeys, DateStartsAtTheKey) {
  EXPECT_EQ(this->KeyIn("on 2014-11-21", From(3, Date("%Y-%m-%d"))), (Key{3, 0, LocalTime(2014, 11, 21)}));
  SortLinesOptions item = Date("%Y-%m-%d");
  item.options = SortByItem | SortAsDate;
  item.lineItem = 2;
  item.matchChar = item.matchCharA = ';';
  EXPECT_EQ(this->KeyIn("a;2014-11-21;b", item), (Key{2, 10, LocalTime(2014, 11, 21)}));
}

TYPED_TEST(SortKeys, SubstringLengthDoesNotLimitTheDate) {
  SortLinesOptions options = Date("%Y-%m-%d");
  options.subStringLen = 4;
  EXPECT_EQ(this->KeyIn("2014-11-21", options), (Key{0, 4, LocalTime(2014, 11, 21)}));
}

TYPED_TEST(SortKeys, DateThatDoesNotMatchIsMinusOne) {
  EXPECT_EQ(this->NumbersOf({"x", "", "21.11.2014", "13:44"}, Date("%b %Y")), (Numbers{-1, -1, -1, -1}));
  EXPECT_EQ(this->NumbersOf({"13:44"}, Date("%H:%M")), (Numbers{-1}));
}

TYPED_TEST(SortKeys, DateThatMatchesInPartCountsWithWhatItHasAsMeant) {
  // No month is January; no day is the last one of the month before.
  EXPECT_EQ(this->NumbersOf({"2014-x", "2014-11-x", "2014-11"}, Date("%Y-%m-%d")),
            (Numbers{LocalTime(2013, 12, 31), LocalTime(2014, 10, 31), LocalTime(2014, 10, 31)}));
}

TYPED_TEST(SortKeys, DatesBeyondTheirCalendarAreCarriedOver) {
  EXPECT_EQ(this->NumbersOf({"2014-13-01", "2014-11-31"}, Date("%Y-%m-%d")),
            (Numbers{LocalTime(2015, 1, 1), LocalTime(2014, 12, 1)}));
}

TYPED_TEST(SortKeys, YearThatAFormatLeavesAbsoluteIsTakenAsOne) {
  EXPECT_EQ(this->NumbersOf({"2014-11-21"}, Date("%y-%m-%d")), (Numbers{LocalTime(2014, 11, 21)}));
  EXPECT_EQ(this->NumbersOf({"1901-11-21"}, Date("%y-%m-%d")), (Numbers{-1}));
  EXPECT_EQ(this->NumbersOf({"3801-11-21"}, Date("%Y-%m-%d")), (Numbers{-1}));
  // The year 3871 is 1971 above 1900.
  EXPECT_EQ(this->NumbersOf({"3871-11-21"}, Date("%Y-%m-%d")), (Numbers{LocalTime(1971, 11, 21)}));
}

TYPED_TEST(SortKeys, YearOf1900IsNotYetAbsolute) {
  EXPECT_EQ(this->NumbersOf({"1900-11-21"}, Date("%y-%m-%d")), (Numbers{-1}));
}

TYPED_TEST(SortKeys, DatesThatWindowsCannotTellAreMinusOne) {
  EXPECT_EQ(this->NumbersOf({"1969-06-01", "1900-01-01", "0-1-1", "-5-1-1", "3002-01-01", "3700-01-01",
                             "99999999999-1-1", "-99999999999-1-1"},
                            Date("%Y-%m-%d")),
            (Numbers{-1, -1, -1, -1, -1, -1, -1, -1}));
}

TYPED_TEST(SortKeys, DatesUpToTheYear3000AreTold) {
  EXPECT_EQ(this->NumbersOf({"1970-02-01", "2106-02-08", "2999-12-31", "3000-06-01"}, Date("%Y-%m-%d")),
            (Numbers{LocalTime(1970, 2, 1), LocalTime(2106, 2, 8), LocalTime(2999, 12, 31),
                     LocalTime(3000, 6, 1)}));
}

TYPED_TEST(SortKeys, EmptyDateFormatReadsNoDate) {
  EXPECT_EQ(this->NumbersOf({"2014-11-21", ""}, Date("")), (Numbers{0, 0}));
}

TYPED_TEST(SortKeys, DateOfAKeyAtTheLinesEndIsThatOfTheNextLineAsMeant) {
  const std::int64_t day = LocalTime(2014, 11, 21);
  EXPECT_EQ(this->NumbersOf({"", "2014-11-21"}, Date("%Y-%m-%d")), (Numbers{day, day}));
  EXPECT_EQ(this->NumbersOf({"", "2014-11-21"}, Date("%Y-%m-%d"), "\r\n"), (Numbers{day, day}));
  EXPECT_EQ(this->NumbersOf({"abc", "abc2014-11-21"}, From(3, Date("%Y-%m-%d"))), (Numbers{-1, day}));
  EXPECT_EQ(this->NumbersOf({"abc", "   2014-11-21"}, From(3, Date("%Y-%m-%d"))), (Numbers{day, day}));
}

TYPED_TEST(SortKeys, DateReadsOnIntoTheNextLineAsMeant) {
  EXPECT_EQ(this->NumbersOf({"2014", "11 21"}, Date("%Y %m %d"))[0], LocalTime(2014, 11, 21));
  EXPECT_EQ(this->NumbersOf({"2014", "11 21"}, Date("%Y %m %d"), "\r\n")[0], LocalTime(2014, 11, 21));
}

TYPED_TEST(SortKeys, DateOfTheLastLineEndsInTheZerosBehindTheBlock) {
  EXPECT_EQ(this->NumbersOf({"2014-11-21"}, Date("%Y-%m-%d"), ""), (Numbers{LocalTime(2014, 11, 21)}));
  EXPECT_EQ(this->NumbersOf({"2014-11-21"}, Date("%Y-%m-%d%q"), ""), (Numbers{LocalTime(2014, 11, 21)}));
  EXPECT_EQ(this->NumbersOf({""}, Date("%q"), ""), (Numbers{-1}));
}

TYPED_TEST(SortKeys, DateOfAKeyBehindTheLinesEndIsMinusOne) {
  EXPECT_EQ(this->NumbersOf({"a", "2014-11-21"}, From(2, Date("%Y-%m-%d")))[0], -1);
  EXPECT_EQ(this->NumbersOf({"a", "2014-11-21"}, From(kMost, Date("%Y-%m-%d"))), (Numbers{-1, -1}));
}

TYPED_TEST(SortKeys, RefusedDateFormatsAreThrown) {
  LineRecords<TypeParam> records = LinesOf<TypeParam>({"2014"});
  for (const char* format : {"%c", "%Y%Z", "%Ec"}) {
    try {
      ComputeSortKeys<TypeParam>(records.lines, Date(format));
      ADD_FAILURE() << format << " was taken";
    } catch (const QXLineSorterException& refusal) {
      EXPECT_EQ(refusal.errorCode, 87u);
      EXPECT_STREQ(refusal.what(), "Unsupported date format");
    }
  }
}

TYPED_TEST(SortKeys, RefusedDateFormatThatNoLineReachesIsNotThrown) {
  EXPECT_EQ(this->NumbersOf({"x"}, Date("%Y%c")), (Numbers{-1}));
  EXPECT_EQ(this->NumbersOf({}, Date("%c")), Numbers{});
  SortLinesOptions entireLine = Date("%c");
  entireLine.options |= SortByLine;
  EXPECT_EQ(this->NumbersOf({"2014"}, entireLine), (Numbers{0}));
}

TYPED_TEST(SortKeys, LinesThatStayInPlaceHaveKeysToo) {
  SortLinesOptions options = Number();
  options.keepLinesTop = 1;
  options.keepLinesBottom = 1;
  EXPECT_EQ(this->NumbersOf({"3", "2", "1"}, options), (Numbers{3, 2, 1}));
}

namespace {

// A line of 12 bytes with the key that is given.
SortLine LineWithKey(const char* text, std::uint32_t keyOffset, std::uint32_t keyLength,
                     std::uint32_t length = 12) {
  SortLine line{};
  line.text = text;
  line.length = length;
  line.keyOffset = keyOffset;
  line.keyLength = keyLength;
  return line;
}

struct Place {
  std::ptrdiff_t bytes;
  std::uint32_t length;
  bool operator==(const Place&) const = default;
  friend void PrintTo(const Place& place, std::ostream* out) {
    *out << place.length << " characters " << place.bytes << " bytes in";
  }
};

alignas(2) constexpr char kText[12] = {};

template <typename CharT>
Place PlaceOfKey(std::uint32_t keyOffset, std::uint32_t keyLength, std::uint32_t length = 12) {
  const KeyText<CharT> key = KeyOf<CharT>(LineWithKey(kText, keyOffset, keyLength, length));
  return {reinterpret_cast<const char*>(key.text) - kText, key.length};
}

}  // namespace

TEST(SortKeysBytes, AreComparedFromTheOffsetOverTheLength) {
  EXPECT_EQ(PlaceOfKey<char>(0, 5), (Place{0, 5}));
  EXPECT_EQ(PlaceOfKey<char>(3, 5), (Place{3, 5}));
  EXPECT_EQ(PlaceOfKey<char>(3, 1), (Place{3, 1}));
}

TEST(SortKeysBytes, OfNoLengthAreComparedToTheLinesEnd) {
  EXPECT_EQ(PlaceOfKey<char>(0, 0), (Place{0, 12}));
  EXPECT_EQ(PlaceOfKey<char>(11, 0), (Place{11, 1}));
  EXPECT_EQ(PlaceOfKey<char>(12, 0), (Place{12, 0}));
  EXPECT_EQ(PlaceOfKey<char>(0, 0, 0), (Place{0, 0}));
}

TEST(SortKeysBytes, BehindTheLinesEndAreEmpty) {
  for (const std::uint32_t offset : {13u, 14u, 0x80000000u, kMost}) {
    EXPECT_EQ(PlaceOfKey<char>(offset, 0).length, 0u) << offset;
  }
}

TEST(SortKeysUnits, AreComparedFromTheOffsetInBytesOverHalfTheLengthAsMeant) {
  EXPECT_EQ(PlaceOfKey<WCHAR>(4, 6), (Place{4, 3}));
  EXPECT_EQ(PlaceOfKey<WCHAR>(3, 5), (Place{3, 2}));
  EXPECT_EQ(PlaceOfKey<WCHAR>(0, 2), (Place{0, 1}));
  EXPECT_EQ(PlaceOfKey<WCHAR>(1, 3), (Place{1, 1}));
}

TEST(SortKeysUnits, OfOneCharacterAreEmptyAsMeant) {
  EXPECT_EQ(PlaceOfKey<WCHAR>(0, 1), (Place{0, 0}));
  EXPECT_EQ(PlaceOfKey<WCHAR>(2, 1), (Place{2, 0}));
}

TEST(SortKeysUnits, OfNoLengthAreComparedToTheLinesEndByBytesAsMeant) {
  EXPECT_EQ(PlaceOfKey<WCHAR>(0, 0), (Place{0, 6}));
  EXPECT_EQ(PlaceOfKey<WCHAR>(2, 0), (Place{2, 5}));
  EXPECT_EQ(PlaceOfKey<WCHAR>(3, 0), (Place{3, 4}));
  // Behind the sixth and last character, and yet half way in bytes.
  EXPECT_EQ(PlaceOfKey<WCHAR>(6, 0), (Place{6, 3}));
  EXPECT_EQ(PlaceOfKey<WCHAR>(11, 0), (Place{11, 0}));
  EXPECT_EQ(PlaceOfKey<WCHAR>(12, 0), (Place{12, 0}));
}

TEST(SortKeysUnits, BehindTheLinesEndInBytesAreEmpty) {
  for (const std::uint32_t offset : {13u, 14u, 0x80000000u, kMost}) {
    EXPECT_EQ(PlaceOfKey<WCHAR>(offset, 0).length, 0u) << offset;
  }
}

TEST(SortKeysBytes, OfEmptyItemsAreTheRestOfTheLineAndOfMissingOnesNothing) {
  LineRecords<char> records = LinesOf<char>({"a;;c", "a;b;c"});
  ComputeSortKeys<char>(records.lines, Item(2));
  const KeyText<char> rest = KeyOf<char>(records.lines[0]);
  EXPECT_EQ(std::string(rest.text, rest.length), ";c");
  const KeyText<char> item = KeyOf<char>(records.lines[1]);
  EXPECT_EQ(std::string(item.text, item.length), "b");
  ComputeSortKeys<char>(records.lines, Item(4));
  EXPECT_EQ(KeyOf<char>(records.lines[0]).length, 0u);
}
