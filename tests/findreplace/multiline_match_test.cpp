// Searching consecutive lines.
#include <gmock/gmock.h>

#include <optional>

#include "findreplace/documents.h"
#include "findreplace/engine/line_match.h"
#include "findreplace/engine/multiline_match.h"

using namespace QXFindAndReplace;
using namespace std::string_view_literals;

namespace {

using Found = std::optional<RangeNumbers>;

template <typename CharT>
class FindMultilineMatchTest : public testing::Test {
 protected:
  // Returns the first block at or after a position.
  static Found Find(std::string_view text, std::string_view find, bool ignoreCase = false,
                    TextPosition start = {0, 0}) {
    const auto document = MakeDocument<CharT>(text);
    return FindIn(*document, find, ignoreCase, start);
  }
  static Found FindIn(const TextDocumentT<CharT>& document, std::string_view find, bool ignoreCase = false,
                      TextPosition start = {0, 0}) {
    LineMatch match;
    match.found = true;  // must be cleared by a search without a match
    FindMultilineMatch(document, match, *MakeLines<CharT>(find), start, ignoreCase);
    return match.found ? Found(NumbersOf(match.range)) : std::nullopt;
  }
  static Found NoCase(std::string_view text, std::string_view find) { return Find(text, find, true); }
  static Found At(std::uint32_t startLine, std::uint32_t start, std::uint32_t endLine, std::uint32_t end) {
    return RangeNumbers{startLine, start, endLine, end};
  }
  static constexpr Found kNone = std::nullopt;
};
TYPED_TEST_SUITE(FindMultilineMatchTest, BothWidths);

}  // namespace

TYPED_TEST(FindMultilineMatchTest, OneLineIsFoundAnywhere) {
  EXPECT_EQ(this->Find("x\nyab\nab", "ab"), this->At(1, 1, 1, 3));
  EXPECT_EQ(this->Find("x\nyab\nab", "ab\n"), this->At(1, 1, 1, 3));
  EXPECT_EQ(this->Find("x\nyAB\nab", "ab"), this->At(2, 0, 2, 2));
  EXPECT_EQ(this->NoCase("x\nyAB\nab", "ab"), this->At(1, 1, 1, 3));
  EXPECT_EQ(this->Find("x\ny", "ab"), this->kNone);
}

TYPED_TEST(FindMultilineMatchTest, TwoLinesAreFoundIfTheSecondIsAtTheStartOfItsLine) {
  EXPECT_EQ(this->Find("1a\nb3", "a\nb"), this->At(0, 1, 1, 1));
  EXPECT_EQ(this->Find("a\nb", "a\nb"), this->At(0, 0, 1, 1));
  EXPECT_EQ(this->Find("a\nxb", "a\nb"), this->kNone);
  EXPECT_EQ(this->Find("x\na\nb\n", "a\nb\n"), this->At(1, 0, 2, 1));
  EXPECT_EQ(this->Find("a\r\nb", "a\nb"), this->At(0, 0, 1, 1)) << "the endings do not count";
}

// This is not checked, and the range includes the rest of the first line.
TYPED_TEST(FindMultilineMatchTest, FirstLineNeedNotReachItsEnd) {
  EXPECT_EQ(this->Find("abcXY\ndefZ", "abc\ndef"), this->At(0, 0, 1, 3));
  EXPECT_EQ(this->Find("a1a2\nb", "a\nb"), this->At(0, 0, 1, 1)) << "the first place in the line";
}

TYPED_TEST(FindMultilineMatchTest, LastLineMustHoldTheLastItem) {
  EXPECT_EQ(this->Find("a\nde", "a\ndef"), this->kNone);
  EXPECT_EQ(this->Find("a\ndef", "a\ndef"), this->At(0, 0, 1, 3));
  EXPECT_EQ(this->Find("a\nDEF", "a\ndef"), this->kNone);
  EXPECT_EQ(this->NoCase("A\nDEFg", "a\ndef"), this->At(0, 0, 1, 3));
  EXPECT_EQ(this->NoCase("A\nxdef", "a\ndef"), this->kNone);
  EXPECT_EQ(this->Find("a\n", "a\nb"), this->kNone);
}

TYPED_TEST(FindMultilineMatchTest, LastLineMayLieBeyondTheDocument) {
  EXPECT_EQ(this->Find("a", "a\nb"), this->kNone);
  EXPECT_EQ(this->Find("x\na", "a\nb"), this->kNone);
  EXPECT_EQ(this->Find("a\nb", "a\nb\nc"), this->kNone);
  EXPECT_EQ(this->Find("a\nb\nc", "a\nb\nc\nd\ne\nf\ng"), this->kNone);
  EXPECT_EQ(this->Find("", "a\nb"), this->kNone);
  EXPECT_EQ(this->Find("", "a"), this->kNone);
}

TYPED_TEST(FindMultilineMatchTest, EmptyLastItemIsInEveryLine) {
  EXPECT_EQ(this->Find("1a\nxyz", "a\n\n"), this->At(0, 1, 1, 0));
  EXPECT_EQ(this->Find("1a\n\n", "a\n\n"), this->At(0, 1, 1, 0));
  EXPECT_EQ(this->NoCase("1A\nxyz", "a\n\n"), this->At(0, 1, 1, 0));
  EXPECT_EQ(this->NoCase("1A\n\n", "a\n\n"), this->At(0, 1, 1, 0));
  EXPECT_EQ(this->Find("1a\n", "a\n\n"), this->kNone);
}

// An empty first item is searched as the rest of the find text, which no line contains.
TYPED_TEST(FindMultilineMatchTest, EmptyFirstItemIsInNoLine) {
  EXPECT_EQ(this->Find("\nb\n", "\nb"), this->kNone);
  EXPECT_EQ(this->NoCase("\nb\n", "\nb"), this->kNone);
  EXPECT_EQ(this->Find("\n\n", "\n"), this->kNone);
  EXPECT_EQ(this->Find("x\nb\n", "\n\nb"), this->kNone);
}

// Splitting a find text does not produce such an item: an empty item is followed by the rest of the text.
TYPED_TEST(FindMultilineMatchTest, EmptyItemWithNothingAfterItIsFoundAtOnceButWithCaseNotBeforeAZero) {
  const TypeParam nothing[] = {0};
  Lines lines;
  lines.items.push_back({reinterpret_cast<const char*>(nothing), 0, LineEnding::None, 0});
  const auto document = MakeDocument<TypeParam>("\0a\nb\n"sv);
  const auto find = [&](bool ignoreCase, TextPosition start) {
    LineMatch match;
    FindMultilineMatch(*document, match, lines, start, ignoreCase);
    EXPECT_TRUE(match.found);
    return NumbersOf(match.range);
  };
  EXPECT_EQ(find(false, {0, 0}), (RangeNumbers{1, 0, 1, 0}));
  EXPECT_EQ(find(false, {0, 1}), (RangeNumbers{0, 1, 0, 1}));
  EXPECT_EQ(find(true, {0, 0}), (RangeNumbers{0, 0, 0, 0}));
  document->lines[0].removed = 1;
  EXPECT_EQ(find(true, {0, 0}), (RangeNumbers{1, 0, 1, 0}));
}

TYPED_TEST(FindMultilineMatchTest, FailureGoesOnWithTheNextLine) {
  EXPECT_EQ(this->Find("a\nx\na\nb", "a\nb"), this->At(2, 0, 3, 1));
  EXPECT_EQ(this->Find("aa\naa\nb", "a\nb"), this->At(1, 0, 2, 1));
  EXPECT_EQ(this->Find("a\na\na\nb", "a\na\nb"), this->At(1, 0, 3, 1));
}

TYPED_TEST(FindMultilineMatchTest, SearchBeginsAtItsPosition) {
  const char* text = "a1a\nb\na\nb\n";
  EXPECT_EQ(this->Find(text, "a\nb", false, {0, 0}), this->At(0, 0, 1, 1));
  EXPECT_EQ(this->Find(text, "a\nb", false, {0, 1}), this->At(0, 2, 1, 1));
  EXPECT_EQ(this->Find(text, "a\nb", false, {0, 3}), this->At(2, 0, 3, 1));
  EXPECT_EQ(this->Find(text, "a\nb", false, {1, 1}), this->At(2, 0, 3, 1)) << "column 0 in the lines behind";
  EXPECT_EQ(this->Find(text, "a\nb", false, {2, 1}), this->kNone);
  EXPECT_EQ(this->Find(text, "a\nb", false, {4, 0}), this->kNone);
  EXPECT_EQ(this->Find(text, "a", true, {0, 1}), this->At(0, 2, 0, 3));
}

// The check of the middle lines ends too early: the last two are not compared.
TYPED_TEST(FindMultilineMatchTest, UpToTwoMiddleLinesHoldAnyText) {
  EXPECT_EQ(this->Find("a\nWHAT\nc", "a\nb\nc"), this->At(0, 0, 2, 1));
  EXPECT_EQ(this->Find("a\n\nc", "a\nb\nc"), this->At(0, 0, 2, 1));
  EXPECT_EQ(this->Find("a\nWHAT\nEVER\nd", "a\nb\nc\nd"), this->At(0, 0, 3, 1));
  EXPECT_EQ(this->NoCase("a\nWHAT\nEVER\nd", "a\nb\nc\nd"), this->At(0, 0, 3, 1));
}

TYPED_TEST(FindMultilineMatchTest, MiddleLinesButTheLastTwoAreCompared) {
  EXPECT_EQ(this->Find("a\nb\nWHAT\nEVER\ne", "a\nb\nc\nd\ne"), this->At(0, 0, 4, 1));
  EXPECT_EQ(this->Find("a\nB\nc\nd\ne", "a\nb\nc\nd\ne"), this->kNone);
  EXPECT_EQ(this->NoCase("a\nB\nWHAT\nEVER\ne", "a\nb\nc\nd\ne"), this->At(0, 0, 4, 1));
  EXPECT_EQ(this->Find("a\nb\nc\nWHAT\nEVER\nf", "a\nb\nc\nd\ne\nf"), this->At(0, 0, 5, 1));
  EXPECT_EQ(this->Find("a\nb\nX\nd\ne\nf", "a\nb\nc\nd\ne\nf"), this->kNone);
  EXPECT_EQ(this->Find("a\nX\nc\nd\ne\nf", "a\nb\nc\nd\ne\nf"), this->kNone);
}

TYPED_TEST(FindMultilineMatchTest, ComparedMiddleLineMustBeAllOfItsLine) {
  EXPECT_EQ(this->Find("a\nbb\nc\nd\ne", "a\nb\nc\nd\ne"), this->kNone);
  EXPECT_EQ(this->Find("a\nxb\nc\nd\ne", "a\nb\nc\nd\ne"), this->kNone);
  EXPECT_EQ(this->Find("a\n\nc\nd\ne", "a\nb\nc\nd\ne"), this->kNone);
  EXPECT_EQ(this->Find("a\nb\nc\nd\ne", "a\nbb\nc\nd\ne"), this->kNone);
}

TYPED_TEST(FindMultilineMatchTest, EmptyMiddleItemThatIsComparedIsInNoLine) {
  EXPECT_EQ(this->Find("a\n\nc\nd\ne", "a\n\nc\nd\ne"), this->kNone);
  EXPECT_EQ(this->NoCase("a\n\nc\nd\ne", "a\n\nc\nd\ne"), this->kNone);
  EXPECT_EQ(this->Find("a\n\nc\nd", "a\n\nc\nd"), this->At(0, 0, 3, 1)) << "this one is not compared";
}

TYPED_TEST(FindMultilineMatchTest, ZeroHidesTheRestOfTheFirstLineWithCaseAlone) {
  EXPECT_EQ(this->Find("x\0a\nb"sv, "a\nb"), this->kNone);
  EXPECT_EQ(this->NoCase("x\0a\nb"sv, "a\nb"), this->At(0, 2, 1, 1));
  EXPECT_EQ(this->Find("a\0x\nb\0y"sv, "a\nb"), this->At(0, 0, 1, 1));
}

TYPED_TEST(FindMultilineMatchTest, RemovedLineBeginsNoBlock) {
  const auto document = MakeDocument<TypeParam>("a\nb\na\nb\n");
  document->lines[0].removed = 1;
  EXPECT_EQ(this->FindIn(*document, "a\nb"), this->At(2, 0, 3, 1));
}

TYPED_TEST(FindMultilineMatchTest, WithoutItemsThereIsNoMatch) {
  EXPECT_EQ(this->Find("a\nb", ""), this->kNone);
  EXPECT_EQ(this->Find("", ""), this->kNone);
}

TYPED_TEST(FindMultilineMatchTest, ScanIgnoringCaseDoesNotGoBackInTheFirstLine) {
  EXPECT_EQ(this->NoCase("aab\nc", "ab\nc"), this->kNone);
  EXPECT_EQ(this->Find("aab\nc", "ab\nc"), this->At(0, 1, 1, 1));
}
