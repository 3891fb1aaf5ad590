// Replacing ranges inside a line and ranges of lines.
#include <gmock/gmock.h>

#include <stdexcept>

#include "findreplace/documents.h"
#include "findreplace/engine/text_document.h"

using namespace QXFindAndReplace;
using namespace std::string_view_literals;
using testing::ElementsAre;
using testing::SizeIs;

namespace {

const char kBadSubscript[] = "invalid vector<T> subscript";

template <typename CharT>
class TextDocumentEdit : public testing::Test {
 protected:
  void Load(std::string_view text, std::uint32_t block = kUsualBlock<CharT>) {
    document = MakeDocument<CharT>(text, block);
  }
  bool ReplaceInLine(std::uint32_t line, std::uint32_t start, std::uint32_t end, std::string_view text) {
    const auto wide = In<CharT>(text);
    return document->ReplaceInLine(line, start, end, wide.data(), static_cast<std::uint32_t>(wide.size()));
  }
  Thrown ErrorOf(std::uint32_t line, std::uint32_t start, std::uint32_t end, std::string_view text) {
    return DataError([&] { ReplaceInLine(line, start, end, text); });
  }
  void ReplaceRange(const TextRange& range, std::string_view replacement) {
    document->ReplaceRange(range, *MakeLines<CharT>(replacement));
  }
  std::string Text() const { return Written(*document); }
  // Returns the text after one range of it is replaced.
  std::string Replaced(std::string_view text, const TextRange& range, std::string_view replacement) {
    Load(text);
    ReplaceRange(range, replacement);
    EXPECT_EQ(document->changeCount, 1u);
    return Text();
  }

  DocumentPointer<CharT> document;
};
TYPED_TEST_SUITE(TextDocumentEdit, BothWidths);

}  // namespace

// --- within a line

TYPED_TEST(TextDocumentEdit, TextBeforeAnInsertedLineAcceptsNoNewTextByDesign) {
  this->Load("abc\n");
  // An empty range is replaced by an empty text and a line, so the text before it is followed by that line.
  this->ReplaceRange({{0, 1}, {0, 1}}, "\ny");
  EXPECT_EQ(this->Text(), "a\nybc\n");
  EXPECT_TRUE(this->ReplaceInLine(0, 0, 1, "Z"));
  EXPECT_EQ(this->Text(), "\nybc\n");
}

TYPED_TEST(TextDocumentEdit, StretchThatEndsBeforeItBeginsStaysOnlyWhereItsLengthIsTheText) {
  // The length is compared with start minus end (C-226).
  this->Load("abcd\n");
  EXPECT_TRUE(this->ReplaceInLine(0, 3, 1, "xy"));
  EXPECT_EQ(this->Text(), "abcd\n");
  EXPECT_EQ(this->ErrorOf(0, 3, 1, "x"), kPartNotFound);
}

TYPED_TEST(TextDocumentEdit, StretchAtEachPlaceIsReplaced) {
  struct Case {
    std::uint32_t start, end;
    const char* text;
    const char* result;
  };
  for (const Case& one :
       {Case{0, 1, "xyz", "xyzbcd"}, Case{1, 3, "x", "axd"}, Case{3, 4, "xy", "abcxy"}, Case{0, 4, "x", "x"},
        Case{0, 4, "", ""}, Case{1, 2, "", "acd"}, Case{2, 4, "", "ab"}, Case{1, 3, "xy", "axyd"}}) {
    this->Load("0\nabcd\r\n1");
    EXPECT_TRUE(this->ReplaceInLine(1, one.start, one.end, one.text));
    EXPECT_EQ(this->Text(), "0\n" + std::string(one.result) + "\n1");
    EXPECT_EQ(this->document->changeCount, 0u) << "the caller counts";
  }
}

TYPED_TEST(TextDocumentEdit, DisjointStretchesComeOutInPlaceInAnyOrder) {
  this->Load("abcdefgh\n");
  EXPECT_TRUE(this->ReplaceInLine(0, 1, 2, "one"));
  EXPECT_TRUE(this->ReplaceInLine(0, 4, 6, "two"));
  EXPECT_EQ(this->Text(), "aonecdtwogh\n");

  this->Load("abcdefgh\n");
  EXPECT_TRUE(this->ReplaceInLine(0, 6, 7, "3"));
  EXPECT_TRUE(this->ReplaceInLine(0, 0, 1, "1"));
  EXPECT_TRUE(this->ReplaceInLine(0, 3, 5, ""));
  EXPECT_TRUE(this->ReplaceInLine(0, 7, 8, "4"));
  EXPECT_TRUE(this->ReplaceInLine(0, 5, 6, "2"));
  EXPECT_EQ(this->Text(), "1bc234\n");
}

TYPED_TEST(TextDocumentEdit, EditsOfSeveralLinesDoNotMix) {
  this->Load("abc\nabc\nabc");
  this->ReplaceInLine(1, 0, 1, "x");
  this->ReplaceInLine(0, 2, 3, "y");
  this->ReplaceInLine(2, 1, 2, "z");
  this->ReplaceInLine(1, 1, 2, "w");
  this->ReplaceInLine(0, 0, 1, "v");
  EXPECT_EQ(this->Text(), "vby\nxwc\nazc");
}

TYPED_TEST(TextDocumentEdit, LineOfALaterBlockIsEdited) {
  this->Load("abc\ndefgh\nij", 8);
  this->ReplaceInLine(1, 1, 4, "X");
  this->ReplaceInLine(2, 0, 2, "");
  EXPECT_EQ(this->Text(), "abc\ndXh\n");
}

TYPED_TEST(TextDocumentEdit, ReplacementIsCopied) {
  this->Load("abc");
  auto text = In<TypeParam>("x\0y"sv);
  this->document->ReplaceInLine(0, 1, 2, text.data(), 3);
  text.assign(3, TypeParam('!'));
  EXPECT_EQ(this->Text(), "ax\0yc"sv);
}

TYPED_TEST(TextDocumentEdit, StretchInsideReplacedTextIsNotFound) {
  this->Load("abcdef\n");
  this->ReplaceInLine(0, 1, 4, "long replacement");
  EXPECT_EQ(this->ErrorOf(0, 1, 4, "x"), kPartNotFound);
  EXPECT_EQ(this->ErrorOf(0, 2, 3, "x"), kPartNotFound);
  EXPECT_EQ(this->ErrorOf(0, 3, 6, "x"), kPartNotFound);
  EXPECT_EQ(this->ErrorOf(0, 2, 2, ""), kPartNotFound);
}

TYPED_TEST(TextDocumentEdit, ReplacementOfEqualLengthGetsNoShortCut) {
  this->Load("abcd\n");
  this->ReplaceInLine(0, 1, 3, "bc");
  EXPECT_EQ(this->Text(), "abcd\n");
  EXPECT_EQ(this->ErrorOf(0, 1, 3, "x"), kPartNotFound);
  EXPECT_EQ(this->ErrorOf(0, 2, 3, "x"), kPartNotFound);
}

TYPED_TEST(TextDocumentEdit, StretchThatBeginsInKeptTextAndEndsBeyondItIsNotFound) {
  this->Load("abcdef\n");
  this->ReplaceInLine(0, 2, 4, "x");
  EXPECT_EQ(this->ErrorOf(0, 1, 3, "y"), kPartNotFound);
  EXPECT_EQ(this->ErrorOf(0, 1, 4, "y"), kPartNotFound);
  EXPECT_EQ(this->ErrorOf(0, 0, 6, ""), kPartNotFound);
  EXPECT_EQ(this->ErrorOf(0, 4, 7, "y"), kPartNotFound);
  EXPECT_EQ(this->ErrorOf(0, 5, 0xFFFFFFFF, "y"), kPartNotFound);
}

TYPED_TEST(TextDocumentEdit, RangeThatEndsAfterAnUnchangedLineIsNotFound) {
  this->Load("abc\ndef\n");
  EXPECT_EQ(this->ErrorOf(0, 1, 4, "y"), kPartNotFound);
  EXPECT_EQ(this->ErrorOf(0, 0, 7, "y"), kPartNotFound);
}

TYPED_TEST(TextDocumentEdit, StretchUpToReplacedTextIsReplaced) {
  this->Load("abcdef");
  this->ReplaceInLine(0, 2, 4, "x");
  EXPECT_TRUE(this->ReplaceInLine(0, 0, 2, "1"));
  EXPECT_TRUE(this->ReplaceInLine(0, 4, 6, "2"));
  EXPECT_EQ(this->Text(), "1x2");
}

TYPED_TEST(TextDocumentEdit, StretchThatBeginsAtTheLinesEndIsNotFound) {
  this->Load("abc\n\nd");
  EXPECT_EQ(this->ErrorOf(0, 3, 3, "x"), kPartNotFound);
  EXPECT_EQ(this->ErrorOf(0, 3, 3, ""), kPartNotFound);
  EXPECT_EQ(this->ErrorOf(0, 4, 4, "x"), kPartNotFound);
  EXPECT_EQ(this->ErrorOf(1, 0, 0, "x"), kPartNotFound);
  EXPECT_EQ(this->ErrorOf(1, 0, 0, ""), kPartNotFound);
  EXPECT_EQ(this->ErrorOf(2, 1, 1, "x"), kPartNotFound);
}

TYPED_TEST(TextDocumentEdit, EmptyStretchAndEmptyTextChangeNothing) {
  this->Load("abc");
  EXPECT_TRUE(this->ReplaceInLine(0, 1, 1, ""));
  EXPECT_THAT(this->document->parts, SizeIs(0));
  // The text still consists of one part.
  EXPECT_TRUE(this->ReplaceInLine(0, 0, 3, "x"));
  EXPECT_EQ(this->Text(), "x");
}

TYPED_TEST(TextDocumentEdit, TextIsInsertedAtAnEmptyStretch) {
  this->Load("abc");
  EXPECT_TRUE(this->ReplaceInLine(0, 1, 1, "X"));
  EXPECT_TRUE(this->ReplaceInLine(0, 0, 0, "Y"));
  EXPECT_EQ(this->Text(), "YaXbc");
  // The range cannot cross the cut.
  EXPECT_EQ(this->ErrorOf(0, 0, 2, "z"), kPartNotFound);
}

TYPED_TEST(TextDocumentEdit, TextIsInsertedDirectlyAfterReplacedText) {
  this->Load("abc");
  this->ReplaceInLine(0, 1, 2, "X");
  EXPECT_TRUE(this->ReplaceInLine(0, 2, 2, "Y"));
  EXPECT_EQ(this->Text(), "aXYc");
  EXPECT_EQ(this->ErrorOf(0, 1, 1, "Z"), kPartNotFound);
}

TYPED_TEST(TextDocumentEdit, LineThatIsNotThereIsOutOfRange) {
  this->Load("a\nb\n");
  EXPECT_THROW(this->ReplaceInLine(2, 0, 1, "x"), std::out_of_range);
  EXPECT_THROW(this->ReplaceInLine(0xFFFFFFFF, 0, 1, "x"), std::out_of_range);
  this->Load("");
  EXPECT_THROW(this->ReplaceInLine(0, 0, 0, ""), std::out_of_range);
}

TYPED_TEST(TextDocumentEdit, CutLineIsAChainOfItsHeadTheInsertedTextAndItsTail) {
  constexpr std::uint32_t kWidth = sizeof(TypeParam);
  this->Load("abcdef\n");
  this->ReplaceInLine(0, 1, 3, "xyz");
  const TextLine& line = this->document->lines[0];
  EXPECT_EQ(line.kind, kFileText);
  EXPECT_EQ(line.length, 1 * kWidth);
  EXPECT_EQ(line.fileLength, 6 * kWidth);
  EXPECT_EQ(line.lineFollows, 0);
  ASSERT_NE(line.next, nullptr);
  const TextPart& inserted = *line.next;
  EXPECT_EQ(inserted.kind, kInsertedText);
  EXPECT_EQ(inserted.length, 3 * kWidth);
  EXPECT_EQ(inserted.originOffset, 0u);
  EXPECT_EQ(inserted.lineFollows, 0);
  EXPECT_EQ(reinterpret_cast<const TypeParam*>(inserted.text)[3], TypeParam()) << "zero-terminated";
  ASSERT_NE(inserted.next, nullptr);
  const TextPart& tail = *inserted.next;
  EXPECT_EQ(tail.kind, kFileText);
  EXPECT_EQ(tail.originOffset, 3 * kWidth);
  EXPECT_EQ(tail.length, 3 * kWidth);
  EXPECT_EQ(tail.text, line.text + 3 * kWidth) << "the file's text does not move";
  EXPECT_EQ(tail.next, nullptr);
}

// As drawn in the overview of text_document.h.
TYPED_TEST(TextDocumentEdit, ChainOfTwoEditsIsThatOfTheOverview) {
  constexpr std::uint32_t kWidth = sizeof(TypeParam);
  const auto drawn = [&] {
    std::string chain;
    const TextPart* previous = nullptr;
    for (const TextPart* part = &this->document->lines[0]; part; previous = part, part = part->next) {
      if (previous) chain += previous->lineFollows == 0 ? " -> " : " => ";
      const auto* const text = reinterpret_cast<const TypeParam*>(part->text);
      const std::string narrow = Narrow(std::basic_string_view<TypeParam>(text, part->length / kWidth));
      chain += part->kind == kFileText ? '[' + narrow + ']' : '(' + narrow + ')';
    }
    return chain;
  };
  this->Load("abcdef\n");
  EXPECT_EQ(drawn(), "[abcdef]");
  this->ReplaceInLine(0, 1, 3, "xyz");
  EXPECT_EQ(drawn(), "[a] -> (xyz) -> [def]");
  this->ReplaceRange(InLine(0, 4, 5), "u\nv");
  EXPECT_EQ(drawn(), "[a] -> (xyz) -> [d] -> (u) -> [] => (v) -> [f]");
  EXPECT_EQ(this->Text(), "axyzdu\nvf\n");
}

// --- ranges of one line

TYPED_TEST(TextDocumentEdit, RangeOfOneLineByOneLine) {
  EXPECT_EQ(this->Replaced("a\n1b2\nc\n", InLine(1, 1, 2), "x"), "a\n1x2\nc\n");
  EXPECT_EQ(this->Replaced("abc", InLine(0, 0, 3), "\n"), "");
}

TYPED_TEST(TextDocumentEdit, RangeOfOneLineByTwoLinesKeepsTheTailAfterTheSecond) {
  EXPECT_EQ(this->Replaced("1a2\n3\n", InLine(0, 1, 2), "x\ny"), "1x\ny2\n3\n");
  EXPECT_EQ(this->Replaced("1a2\r\n3\r\n", InLine(0, 1, 2), "x\ny\n"), "1x\r\ny2\r\n3\r\n");
  EXPECT_EQ(this->Replaced("1a2\n3\n", InLine(0, 0, 1), "x\n\n"), "x\na2\n3\n");
}

TYPED_TEST(TextDocumentEdit, RangeThatEndsWithItsLineTakesLinesToo) {
  EXPECT_EQ(this->Replaced("1a\n3\n", InLine(0, 1, 2), "x\ny"), "1x\ny\n3\n");
  EXPECT_EQ(this->Replaced("a\n3\n", InLine(0, 0, 1), "x\ny"), "x\ny\n3\n");
  EXPECT_EQ(this->Replaced("1a\n3\n", InLine(0, 1, 2), "x\ny\nz"), "1x\ny\nz\ny\n3\n");
}

// The lines are inserted twice and the rest of the file's line is lost (C-224).
TYPED_TEST(TextDocumentEdit, RangeOfOneLineByThreeLinesOrMoreRepeatsTheMiddleAndLosesTheTail) {
  EXPECT_EQ(this->Replaced("1a2\n3\n", InLine(0, 1, 2), "x\ny\nz"), "1x\ny\nz\ny\n3\n");
  EXPECT_EQ(this->Replaced("1a2\n3\n", InLine(0, 1, 2), "x\ny\nz\nw"), "1x\ny\nz\nw\ny\nz\n3\n");
  EXPECT_EQ(this->Replaced("1a2\n3\n", InLine(0, 1, 2), "p\nq\nr\ns\nt"), "1p\nq\nr\ns\nt\nq\nr\ns\n3\n");
}

TYPED_TEST(TextDocumentEdit, InsertedLinesOwnEndingIsWrittenAlthoughTheFileHadNone) {
  EXPECT_EQ(this->Replaced("1a2", InLine(0, 1, 2), "x\ny"), "1x\ny2\n");
  EXPECT_EQ(this->Replaced("1a2", InLine(0, 1, 2), "x\ny\nz"), "1x\ny\nz\ny\n");
  EXPECT_EQ(this->Replaced("0\r\n1a", InLine(1, 1, 2), "x\ny"), "0\r\n1x\r\ny\r\n");
}

TYPED_TEST(TextDocumentEdit, MovedTailIsStillTextOfItsLine) {
  this->Load("1a2a3\n");
  this->ReplaceRange(InLine(0, 1, 2), "x\ny");
  this->ReplaceRange(InLine(0, 3, 4), "x\ny");
  EXPECT_EQ(this->Text(), "1x\ny2x\ny3\n");
  EXPECT_EQ(this->document->changeCount, 2u);
  this->ReplaceRange(InLine(0, 4, 5), "!");
  EXPECT_EQ(this->Text(), "1x\ny2x\ny!\n");
  this->ReplaceRange(InLine(0, 0, 1), "?");
  EXPECT_EQ(this->Text(), "?x\ny2x\ny!\n");
}

TYPED_TEST(TextDocumentEdit, LostTailIsNotFound) {
  this->Load("1a2a3\n");
  this->ReplaceRange(InLine(0, 1, 2), "x\ny\nz");
  EXPECT_EQ(DataError([&] { this->ReplaceRange(InLine(0, 3, 4), "x\ny\nz"); }), kPartNotFound);
  EXPECT_EQ(this->document->changeCount, 1u);
}

// --- ranges of several lines

TYPED_TEST(TextDocumentEdit, RangeOfLinesByOneLineLeavesTheEndLineAsItIs) {
  EXPECT_EQ(this->Replaced("1a2\nb3\n", {{0, 1}, {1, 1}}, "x"), "1x\nb3\n");
  EXPECT_EQ(this->Replaced("1a2\nm\nn\nb3\n", {{0, 1}, {3, 1}}, "x"), "1x\nb3\n");
}

TYPED_TEST(TextDocumentEdit, RangeOfLinesByTwoLines) {
  EXPECT_EQ(this->Replaced("1a2\nb3\n", {{0, 1}, {1, 1}}, "x\ny"), "1x\ny3\n");
  EXPECT_EQ(this->Replaced("1a2\nm\nn\nb3\n4", {{0, 1}, {3, 1}}, "x\ny"), "1x\ny3\n4");
  EXPECT_EQ(this->Replaced("a\nm\nb", {{0, 0}, {2, 1}}, "x\ny"), "x\ny");
}

TYPED_TEST(TextDocumentEdit, RangeOfLinesByThreeLinesOrMore) {
  EXPECT_EQ(this->Replaced("1a2\nb3\n", {{0, 1}, {1, 1}}, "x\ny\nz"), "1x\ny\nz3\n");
  EXPECT_EQ(this->Replaced("1a2\nm\nb3\n", {{0, 1}, {2, 1}}, "p\nq\nr\ns"), "1p\nq\nr\ns3\n");
  EXPECT_EQ(this->Replaced("1a2\r\nm\nn\no\nb3", {{0, 1}, {4, 1}}, "p\nq\nr\ns\nt"),
            "1p\r\nq\r\nr\r\ns\r\nt3");
}

TYPED_TEST(TextDocumentEdit, StartLineOfALoneCrHasNoEndingUnlessLinesFollowIt) {
  EXPECT_EQ(this->Replaced("1a\rb2\n", {{0, 1}, {1, 1}}, "x\ny"), "1xy2\n");
  EXPECT_EQ(this->Replaced("1a\rb2\n", {{0, 1}, {1, 1}}, "x\ny\nz"), "1x\ny\nz2\n");
}

TYPED_TEST(TextDocumentEdit, LinesBetweenAreRemovedAndTheEndsAreNot) {
  this->Load("a\nb\nc\nd\ne\n");
  this->ReplaceRange({{1, 0}, {4, 1}}, "x\ny");
  std::vector<int> removed;
  for (const TextLine& line : this->document->lines) removed.push_back(line.removed);
  EXPECT_THAT(removed, ElementsAre(0, 0, 1, 1, 0));
  EXPECT_EQ(this->Text(), "a\nx\ny\n");
  EXPECT_EQ(this->document->GetLineCount(), 5u);
}

TYPED_TEST(TextDocumentEdit, RangeMayBeginInTheLineWhereTheLastOneEnded) {
  this->Load("1a\nb2a\nb3\n");
  this->ReplaceRange({{0, 1}, {1, 1}}, "x\ny");
  this->ReplaceRange({{1, 2}, {2, 1}}, "x\ny");
  EXPECT_EQ(this->Text(), "1x\ny2x\ny3\n");
  EXPECT_EQ(this->document->changeCount, 2u);
}

TYPED_TEST(TextDocumentEdit, RangeThatBeginsAtItsLinesEndIsNotFound) {
  this->Load("a\nb\n\nc\n");
  EXPECT_EQ(DataError([&] { this->ReplaceRange({{0, 1}, {1, 1}}, "x"); }), kPartNotFound);
  EXPECT_EQ(DataError([&] { this->ReplaceRange({{2, 0}, {3, 1}}, "x"); }), kPartNotFound);
  EXPECT_EQ(this->document->changeCount, 0u);
}

TYPED_TEST(TextDocumentEdit, EmptyEndLineTakesNoReplacement) {
  EXPECT_EQ(this->Replaced("a\n\nb\n", {{0, 0}, {1, 0}}, "x"), "x\n\nb\n");
  this->Load("a\n\nb\n");
  EXPECT_EQ(DataError([&] { this->ReplaceRange({{0, 0}, {1, 0}}, "x\ny"); }), kPartNotFound);
}

TYPED_TEST(TextDocumentEdit, EndColumnZeroInsertsTheLastLineAtTheEndLinesBeginning) {
  EXPECT_EQ(this->Replaced("a\nb\n", {{0, 0}, {1, 0}}, "x\ny"), "x\nyb\n");
  EXPECT_EQ(this->Replaced("a\nb\n", {{0, 0}, {1, 0}}, "x\n\n"), "x\nb\n");
}

// --- refusals

TYPED_TEST(TextDocumentEdit, ReplacementWithoutLinesIsOutOfRange) {
  this->Load("a\nb\n");
  EXPECT_EQ(WhatOf<std::out_of_range>([&] { this->ReplaceRange(InLine(0, 0, 1), ""); }), kBadSubscript);
  EXPECT_EQ(WhatOf<std::out_of_range>([&] { this->ReplaceRange({{0, 0}, {1, 1}}, ""); }), kBadSubscript);
  EXPECT_EQ(this->document->changeCount, 0u);
}

TYPED_TEST(TextDocumentEdit, StartLineThatIsNotThereIsOutOfRange) {
  this->Load("a\nb\n");
  EXPECT_EQ(WhatOf<std::out_of_range>([&] { this->ReplaceRange(InLine(2, 0, 1), "x"); }), kBadSubscript);
  EXPECT_EQ(WhatOf<std::out_of_range>([&] { this->ReplaceRange({{2, 0}, {9, 1}}, "x\ny"); }), kBadSubscript);
  this->Load("");
  EXPECT_EQ(WhatOf<std::out_of_range>([&] { this->ReplaceRange(InLine(0, 0, 0), "x"); }), kBadSubscript);
}

TYPED_TEST(TextDocumentEdit, EndLineThatIsNotThereIsRefused) {
  this->Load("a\nb\n");
  const Thrown refused = {87, "Line index out of range"};
  EXPECT_EQ(DataError([&] { this->ReplaceRange({{0, 0}, {2, 0}}, "x"); }), refused);
  EXPECT_EQ(DataError([&] { this->ReplaceRange({{1, 0}, {0xFFFFFFFF, 0}}, "x\ny\nz"); }), refused);
  EXPECT_EQ(this->document->changeCount, 0u);
}

TYPED_TEST(TextDocumentEdit, RangeInReplacedTextIsNotFoundAndNotCounted) {
  this->Load("abcd\nefgh\n");
  this->ReplaceRange(InLine(0, 1, 3), "x");
  EXPECT_EQ(DataError([&] { this->ReplaceRange(InLine(0, 2, 4), "y"); }), kPartNotFound);
  EXPECT_EQ(DataError([&] { this->ReplaceRange({{0, 1}, {1, 2}}, "y\nz"); }), kPartNotFound);
  EXPECT_EQ(this->document->changeCount, 1u);
}
