// Numbers and dates of long runs of blank lines: each line reads on to the next number in its block. The
// values must equal those that are parsed for every line alone.
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <limits>
#include <random>

#include "data/data_reader.h"
#include "linesorter/engine/date_parser.h"
#include "linesorter/engine/line_loader.h"
#include "linesorter/engine/number_parser.h"
#include "linesorter/engine/sort_keys.h"
#include "linesorter/widths.h"

using namespace WQLineSorter;

namespace {

using Values = std::vector<std::int64_t>;

constexpr std::int64_t kMaxNumber = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMinNumber = std::numeric_limits<std::int64_t>::min();

// The number of characters of a block.
template <typename CharT>
constexpr std::size_t kBlockChars = kBlockSize / sizeof(CharT);

SortLinesOptions NumberOptions() {
  SortLinesOptions options;
  options.options = SortBySubstring | SortAsNumber;
  return options;
}

SortLinesOptions DateOptions(std::string_view format) {
  SortLinesOptions options;
  options.options = SortBySubstring | SortAsDate;
  CopyTerminated(options.dateFormat, sizeof(options.dateFormat), format);
  return options;
}

std::string Times(std::size_t count, std::string_view text) {
  std::string result;
  result.reserve(count * text.size());
  for (std::size_t i = 0; i < count; ++i) result += text;
  return result;
}

Values Times(std::size_t count, std::int64_t value) { return Values(count, value); }

Values operator+(Values values, const Values& more) {
  values.insert(values.end(), more.begin(), more.end());
  return values;
}

// In local time, as computed by the C library.
std::int64_t MidnightOf(int year, int month, int day) {
  std::tm time{};
  time.tm_year = year - 1900;
  time.tm_mon = month - 1;
  time.tm_mday = day;
  return static_cast<std::int64_t>(std::mktime(&time));
}
std::int64_t NovemberDay(int day) { return MidnightOf(2014, 11, day); }

template <typename CharT>
std::shared_ptr<SortableLinesData> Load(const std::basic_string<CharT>& text) {
  WQDR::MemoryDataReader reader(text.data(), text.size() * sizeof(CharT));
  return ReadLines<CharT>(reader);
}

Values ValuesOfAll(const std::vector<SortLine>& lines) {
  Values values;
  for (const SortLine& line : lines) values.push_back(line.numericKey);
  return values;
}

// Returns how many lines have this value, for files with too many values to print.
std::size_t CountOf(const Values& values, std::int64_t value) {
  return static_cast<std::size_t>(std::count(values.begin(), values.end(), value));
}

template <typename CharT>
class BlankRuns : public testing::Test {
 protected:
  static Values ValuesOf(const std::string& text, const SortLinesOptions& options) {
    const auto data = Load(In<CharT>(text));
    ComputeSortKeys<CharT>(data->lines, options);
    return ValuesOfAll(data->lines);
  }
  // Compares without printing all values, which are too many.
  static void Expect(const std::string& text, const SortLinesOptions& options, const Values& expected) {
    const Values values = ValuesOf(text, options);
    ASSERT_EQ(values.size(), expected.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
      ASSERT_EQ(values[i], expected[i]) << "line " << i << " by \"" << options.dateFormat << '"';
    }
  }
};
TYPED_TEST_SUITE(BlankRuns, BothWidths);

constexpr const char* kEndings[] = {"\n", "\r", "\r\n"};

}  // namespace

TYPED_TEST(BlankRuns, EachBlankLineHasTheNumberOfTheNextLine) {
  for (const std::string ending : kEndings) {
    for (const std::string blanks : {"", " ", "\t", " \t\v\f "}) {
      const std::string blank = blanks + ending;
      this->Expect(
          Times(1000, blank) + "42" + ending + Times(700, blank) + " -7" + ending + Times(299, blank),
          NumberOptions(), Times(1000, 42) + Times(1, 42) + Times(700, -7) + Times(1, -7) + Times(299, 0));
    }
  }
}

TYPED_TEST(BlankRuns, EachBlankLineHasTheDateOfTheNextLine) {
  const std::int64_t early = NovemberDay(20);
  const std::int64_t late = NovemberDay(21);
  for (const std::string ending : kEndings) {
    this->Expect(Times(2000, ending) + "2014-11-21" + ending + Times(1000, ending) + " 2014-11-20" + ending +
                     Times(499, ending),
                 DateOptions("%Y-%m-%d"),
                 Times(2000, late) + Times(1, late) + Times(1000, early) + Times(1, early) + Times(499, -1));
  }
}

TYPED_TEST(BlankRuns, WhatIsNoNumberEndsTheRunWithZero) {
  this->Expect(Times(3000, "\n") + "x\n" + Times(3000, "\n") + "- 5\n" + Times(3000, "\n") + "+\n8\n",
               NumberOptions(), Times(9002, 0) + Times(1, 0) + Times(1, 8));
}

TYPED_TEST(BlankRuns, WhatIsNoDateEndsTheRunWithMinusOne) {
  this->Expect(Times(3000, "\n") + "x\n" + Times(3000, "\n") + "-11-21\n", DateOptions("%Y-%m-%d"),
               Times(6002, -1));
}

TYPED_TEST(BlankRuns, APartialDateCountsWithWhatItHasByDesign) {
  // The year is not followed by a dash, so month and day stay 0, which is the last day of the previous year.
  this->Expect(Times(3000, "\n") + "2014\n-11-21\n", DateOptions("%Y-%m-%d"),
               Times(3001, MidnightOf(2013, 12, 31)) + Times(1, -1));
}

TYPED_TEST(BlankRuns, ADateMaySpanManyLinesByDesign) {
  // White space before each number is skipped, including line ends.
  const std::int64_t day = NovemberDay(21);
  this->Expect(Times(3000, "\n") + "2014-\n" + Times(3000, "\n") + "11-\n" + Times(3000, "\n") + "21\n",
               DateOptions("%Y-%m-%d"), Times(3001, day) + Times(6002, -1));
}

TYPED_TEST(BlankRuns, AnyWhiteSpaceMayPrecedeTheNumberOfAFormat) {
  for (const char* format : {"%Y-%m-%d", " %Y-%m-%d", "  %Y-\t%m-%d ", "\n%Y-%m-%d"}) {
    this->Expect(Times(5000, "\n") + "2014-11-21\n" + Times(100, "\n"), DateOptions(format),
                 Times(5001, NovemberDay(21)) + Times(100, -1));
  }
}

TYPED_TEST(BlankRuns, AFormatsLineFeedTakesTheLineFeedsOfBlankLinesAlone) {
  const std::int64_t day = NovemberDay(21);
  this->Expect(Times(5000, "\n") + "2014-11-21\n", DateOptions("%n%Y-%m-%d"),
               Times(5000, day) + Times(1, -1));
  this->Expect(Times(5000, "\r\n") + "2014-11-21\r\n", DateOptions("%n%Y-%m-%d"), Times(5001, -1));
  this->Expect(Times(5000, "\n") + "2014-11-21\n", DateOptions("%n%n%n%Y-%m-%d"),
               Times(4998, day) + Times(3, -1));
}

TYPED_TEST(BlankRuns, TwoNumbersOfAFormatAreTheNextTwo) {
  this->Expect(Times(3000, "\n") + "7\n" + Times(3000, "\n") + "2014\n" + Times(3000, "\n") + "x\n",
               DateOptions("%d %Y"),
               // After the first number, the lines read 2014 as the day and find no year; the date in 1900 is
               // before the first valid one.
               Times(3001, MidnightOf(2014, 1, 7)) + Times(6002, -1));
}

TYPED_TEST(BlankRuns, NothingIsReadBeyondTheBlock) {
  const std::size_t block = kBlockChars<TypeParam>;
  this->Expect(Times(block, "\n") + "42\n", NumberOptions(), Times(block, 0) + Times(1, 42));
  this->Expect(Times(block + 1000, "\n") + "42\n", NumberOptions(), Times(block, 0) + Times(1001, 42));
  this->Expect(Times(block, "\n") + "2014-11-21\n", DateOptions("%Y-%m-%d"),
               Times(block, -1) + Times(1, NovemberDay(21)));
  this->Expect(Times(block + 1000, "\n") + "2014-11-21\n", DateOptions("%Y-%m-%d"),
               Times(block, -1) + Times(1001, NovemberDay(21)));
}

TYPED_TEST(BlankRuns, ALineThatIsCarriedOverIsReadAsFarAsTheBlockHoldsItByDesign) {
  const std::size_t blank = kBlockChars<TypeParam> - 2;
  this->Expect(Times(blank, "\n") + "1234\n", NumberOptions(), Times(blank, 12) + Times(1, 1234));
  this->Expect(Times(blank, "\n") + "-234\n", NumberOptions(), Times(blank, -2) + Times(1, -234));
  this->Expect(Times(blank, "\n") + "  34\n", NumberOptions(), Times(blank, 0) + Times(1, 34));
  this->Expect(Times(blank, "\n") + "2014-11-21\n", DateOptions("%Y-%m-%d"),
               Times(blank, -1) + Times(1, NovemberDay(21)));
}

TYPED_TEST(BlankRuns, LongRunsOfDigitsAreReadToTheirEnd) {
  const std::string nines = Times(8000, "9");
  const std::string zeros = Times(8000, "0");
  this->Expect(Times(3000, "\n") + zeros + "42\n", NumberOptions(), Times(3001, 42));
  this->Expect(Times(3000, "\n") + "-" + zeros + "42\n", NumberOptions(), Times(3001, -42));
  this->Expect(Times(3000, "\n") + zeros + "\n", NumberOptions(), Times(3001, 0));
  this->Expect(Times(3000, "\n") + nines + "\n", NumberOptions(), Times(3001, kMaxNumber));
  this->Expect(Times(3000, "\n") + "-" + nines + "\n", NumberOptions(), Times(3001, kMinNumber));
  this->Expect(Times(3000, "\n") + zeros + "9223372036854775806\n", NumberOptions(),
               Times(3001, kMaxNumber - 1));
  const std::string fewer = Times(4000, "0");
  this->Expect(Times(3000, "\n") + fewer + "2014-" + fewer + "11-21\n" + Times(3000, "\n"),
               DateOptions("%Y-%m-%d"), Times(3001, NovemberDay(21)) + Times(3000, -1));
}

TYPED_TEST(BlankRuns, FilesOfMegabytesOfLineEndsGetTheirValues) {
  constexpr std::size_t kMany = std::size_t{2} << 20;
  const Values numbers = this->ValuesOf(Times(kMany, "\n"), NumberOptions());
  EXPECT_EQ(numbers.size(), kMany);
  EXPECT_EQ(CountOf(numbers, 0), kMany);
  const Values dates = this->ValuesOf(Times(kMany / 8, "\n"), DateOptions("%Y-%m-%d"));
  EXPECT_EQ(dates.size(), kMany / 8);
  EXPECT_EQ(CountOf(dates, -1), kMany / 8);
  const Values blank = this->ValuesOf(Times(kMany / 8, " \t\r\n"), NumberOptions());
  EXPECT_EQ(blank.size(), kMany / 8);
  EXPECT_EQ(CountOf(blank, 0), kMany / 8);
}

TYPED_TEST(BlankRuns, BlocksOfBlankLinesAndOneLongNumberGetTheirValues) {
  constexpr std::size_t kBlocks = 32;
  constexpr std::size_t kHalf = kBlockChars<TypeParam> / 2;
  const std::string block = Times(kHalf, "\n") + Times(kHalf - 3, "0") + "42\n";
  const Values numbers = this->ValuesOf(Times(kBlocks, block), NumberOptions());
  EXPECT_EQ(numbers.size(), kBlocks * (kHalf + 1));
  EXPECT_EQ(CountOf(numbers, 42), kBlocks * (kHalf + 1));
}

namespace {

template <typename CharT>
class BlankRunsByThePlainRule : public BlankRuns<CharT> {
 protected:
  using Text = std::basic_string<CharT>;

  static constexpr CharT Char(char c) { return static_cast<CharT>(c); }

  // Returns the start of a line's key, in characters.
  static std::size_t StartOf(const SortLine& line, const SortLinesOptions& options) {
    const auto* const text = reinterpret_cast<const CharT*>(line.text);
    const std::size_t end = line.length / sizeof(CharT);
    std::size_t start = options.lineOffset;
    if ((options.options & SortSkipLeadingSpace) != 0) {
      while (start < end && (text[start] == Char(' ') || text[start] == Char('\t'))) ++start;
    }
    if ((options.options & SortByItem) != 0) {
      for (std::uint32_t item = 1; start < end && item != options.lineItem; ++start) {
        if (text[start] == Char(';')) ++item;
      }
    }
    return start;
  }

  static std::int64_t NumberAt(const CharT* text) {
    while (IsSpace(*text)) ++text;
    const bool isNegative = *text == Char('-');
    if (isNegative || *text == Char('+')) ++text;
    std::int64_t number = 0;
    for (; *text >= Char('0') && *text <= Char('9'); ++text) {
      const std::int64_t digit = *text - Char('0');
      if (isNegative) {
        number = number < (kMinNumber + digit) / 10 ? kMinNumber : number * 10 - digit;
      } else {
        number = number > (kMaxNumber - digit) / 10 ? kMaxNumber : number * 10 + digit;
      }
    }
    return number;
  }

  // Returns the value that is parsed for the line alone.
  static std::int64_t ValueOf(const SortLine& line, const SortLinesOptions& options) {
    constexpr CharT kNothing[2] = {};
    const std::size_t start = StartOf(line, options);
    const bool isInside = start <= line.length / sizeof(CharT);
    const CharT* const text = isInside ? reinterpret_cast<const CharT*>(line.text) + start : kNothing;
    if ((options.options & SortAsNumber) != 0) return NumberAt(text);
    std::tm date{};
    ParseDate(text, options.dateFormat, &date);
    if (date.tm_year > 1900) date.tm_year -= 1900;
    return _mktime64(&date);
  }

  // Returns runs of line ends and blanks, separated by pieces that are or are not part of numbers and dates.
  static Text MakeText(std::mt19937& random, std::size_t length) {
    static const std::vector<std::string> kBlanks = {"\n",     "\r", "\r\n", "\n\r", " \n",
                                                     "\t\r\n", "\v", "\f",   " ",    "\t"};
    static const std::vector<std::string> kThings = {"2014-11-21",
                                                     "2014-11-",
                                                     "41000",
                                                     "-3",
                                                     "-",
                                                     "+7",
                                                     "+",
                                                     "x",
                                                     "12abc",
                                                     "0",
                                                     "00",
                                                     ";45000",
                                                     "a;2014-1-2",
                                                     "42000 43000",
                                                     "- 5",
                                                     "2014",
                                                     std::string("\0", 1),
                                                     std::string("4\0"
                                                                 "1000",
                                                                 6),
                                                     "99999999999999999999",
                                                     "-99999999999999999999",
                                                     "\xA0"
                                                     "41001",
                                                     "\x85"
                                                     "41002"};
    Text text;
    // Starts with a long line, so that the runs lie on both sides of a block boundary.
    text.append(kBlockChars<CharT> - random() % length, Char('x')).push_back(Char('\n'));
    const std::size_t end = text.size() + length;
    while (text.size() < end) {
      const std::string& blank = kBlanks[random() % kBlanks.size()];
      const bool isMixed = random() % 4 == 0;
      for (std::size_t count = random() % 5 == 0 ? random() % 800 : random() % 4; count > 0; --count) {
        text += In<CharT>(isMixed ? kBlanks[random() % kBlanks.size()] : blank);
      }
      text += In<CharT>(random() % 12 == 0 ? Times(1 + random() % 400, random() % 2 == 0 ? "0" : "9")
                                           : kThings[random() % kThings.size()]);
    }
    return text;
  }

  static void Check(const Text& text, const SortLinesOptions& options) {
    const auto data = Load(text);
    ComputeSortKeys<CharT>(data->lines, options);
    for (std::size_t i = 0; i < data->lines.size(); ++i) {
      const SortLine& line = data->lines[i];
      ASSERT_EQ(line.numericKey, ValueOf(line, options))
          << "line " << i << " of length " << line.length << " by \"" << options.dateFormat << "\", bits "
          << options.options << ", from " << options.lineOffset;
    }
  }
};
TYPED_TEST_SUITE(BlankRunsByThePlainRule, BothWidths);

}  // namespace

TYPED_TEST(BlankRunsByThePlainRule, GiveEachLineWhatItFindsByItself) {
  constexpr const char* kFormats[] = {
      nullptr, "%d",  " %d",  "%n%d",    "%Y-%m-%d", " %Y-%m-%d",    "%d %d", "%d%d", "%t%d", "%Y -%m-%d",
      "%n %d", "x%d", "%q%d", "%e %n%d", "%d %b",    "%n%n%Y-%m-%d", "%D",    " ",    "%d %"};
  constexpr struct {
    std::uint32_t bits;
    std::uint32_t lineOffset;
  } kKeys[] = {{SortBySubstring, 0}, {SortBySubstring | SortSkipLeadingSpace, 0},
               {SortBySubstring, 1}, {SortBySubstring | SortSkipLeadingSpace, 2},
               {SortByItem, 0},      {SortByItem | SortSkipLeadingSpace, 1}};
  for (unsigned seed = 1; seed <= 2; ++seed) {
    std::mt19937 random(seed);
    const auto text = this->MakeText(random, 4000);
    for (const char* format : kFormats) {
      for (const auto& key : kKeys) {
        SortLinesOptions options = format ? DateOptions(format) : NumberOptions();
        options.options = (options.options & ~std::uint32_t{SortBySubstring}) | key.bits;
        options.lineOffset = key.lineOffset;
        options.lineItem = 2;
        options.matchChar = options.matchCharA = ';';
        this->Check(text, options);
        if (this->HasFatalFailure()) return;
      }
    }
  }
}
