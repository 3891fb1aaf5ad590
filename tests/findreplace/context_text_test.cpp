// The context of a range that a question shows.
#include <gmock/gmock.h>

#include "findreplace/documents.h"
#include "findreplace/engine/text_document.h"

using namespace QXFindAndReplace;

namespace {

struct Context {
  std::string text;
  std::uint32_t start;
  std::uint32_t end;
  friend bool operator==(const Context&, const Context&) = default;
};
void PrintTo(const Context& context, std::ostream* out) {
  *out << testing::PrintToString(context.text) << " " << context.start << ".." << context.end;
}

template <typename CharT>
class ContextText : public testing::Test {
 protected:
  void Load(std::string_view text) { document = MakeDocument<CharT>(text); }
  Context Around(const TextRange& range, LineEnding ending = LineEnding::CrLf) const {
    Highlight highlight = {};
    const std::unique_ptr<CharT[]> text = document->GetContextText(range, highlight, ending);
    if (!text) return {"null", 0, 0};
    return {Narrow<CharT>(text.get()), highlight.start, highlight.end};
  }
  void ReplaceInLine(std::uint32_t line, std::uint32_t start, std::uint32_t end, std::string_view text) {
    const auto wide = In<CharT>(text);
    document->ReplaceInLine(line, start, end, wide.data(), static_cast<std::uint32_t>(wide.size()));
  }
  void ReplaceRange(const TextRange& range, std::string_view replacement) {
    document->ReplaceRange(range, *MakeLines<CharT>(replacement));
  }

  DocumentPointer<CharT> document;
};
TYPED_TEST_SUITE(ContextText, BothWidths);

}  // namespace

TYPED_TEST(ContextText, ContainsTheLineBeforeAndTheLineAfter) {
  this->Load("zero\none\ntwo\nthree\nfour\n");
  EXPECT_EQ(this->Around(InLine(2, 1, 3)), (Context{"one\r\ntwo\r\nthree\r\n", 6, 8}));
  EXPECT_EQ(this->Around(InLine(3, 0, 5)), (Context{"two\r\nthree\r\nfour\r\n", 5, 10}));
}

TYPED_TEST(ContextText, BeginsAndEndsWithTheDocument) {
  this->Load("zero\none\ntwo\nthree");
  EXPECT_EQ(this->Around(InLine(0, 0, 2)), (Context{"zero\r\none\r\n", 0, 2}));
  EXPECT_EQ(this->Around(InLine(1, 1, 2)), (Context{"zero\r\none\r\ntwo\r\n", 7, 8}));
  EXPECT_EQ(this->Around(InLine(3, 1, 5)), (Context{"two\r\nthree", 6, 10}));
  this->Load("only");
  EXPECT_EQ(this->Around(InLine(0, 1, 3)), (Context{"only", 1, 3}));
}

TYPED_TEST(ContextText, EndingIsTheOneAskedFor) {
  this->Load("a\nb\nc");
  EXPECT_EQ(this->Around(InLine(1, 0, 1), LineEnding::CrLf), (Context{"a\r\nb\r\nc", 3, 4}));
  EXPECT_EQ(this->Around(InLine(1, 0, 1), LineEnding::Lf), (Context{"a\nb\nc", 2, 3}));
  EXPECT_EQ(this->Around(InLine(1, 0, 1), LineEnding::Cr), (Context{"a\rb\rc", 2, 3}));
  EXPECT_EQ(this->Around(InLine(1, 0, 1), LineEnding::None), (Context{"abc", 1, 2}));
}

TYPED_TEST(ContextText, InsertedAsTheEndingIsThatOfTheOutput) {
  this->Load("a\nb\r\nc");
  EXPECT_EQ(this->Around(InLine(1, 0, 1), LineEnding::Inserted), (Context{"a\nb\nc", 2, 3}));
  this->Load("a\r\nb\nc");
  EXPECT_EQ(this->Around(InLine(1, 0, 1), LineEnding::Inserted), (Context{"a\r\nb\r\nc", 3, 4}));
}

TYPED_TEST(ContextText, LinesWithoutAnEndingGetNone) {
  this->Load("a\rb\rc");
  EXPECT_EQ(this->Around(InLine(1, 0, 1)), (Context{"abc", 1, 2}));
}

TYPED_TEST(ContextText, EarlierEditsOfTheLineAreShownAndMoveTheHighlight) {
  this->Load("abcabc\n");
  this->ReplaceInLine(0, 0, 1, "xyz");
  EXPECT_EQ(this->Around(InLine(0, 3, 4)), (Context{"xyzbcabc\r\n", 5, 6}));
  this->ReplaceInLine(0, 1, 2, "");
  EXPECT_EQ(this->Around(InLine(0, 3, 4)), (Context{"xyzcabc\r\n", 4, 5}));
  this->ReplaceInLine(0, 5, 6, "!!");
  EXPECT_EQ(this->Around(InLine(0, 3, 4)), (Context{"xyzcab!!\r\n", 4, 5}));
  EXPECT_EQ(this->Around(InLine(0, 2, 5)), (Context{"xyzcab!!\r\n", 3, 6}));
}

TYPED_TEST(ContextText, EditsOfTheNeighboursAreShown) {
  this->Load("a\nb\nc\n");
  this->ReplaceInLine(0, 0, 1, "before");
  this->ReplaceRange(InLine(2, 0, 1), "behind\nit");
  EXPECT_EQ(this->Around(InLine(1, 0, 1)), (Context{"before\r\nb\r\nbehind\r\nit\r\n", 8, 9}));
}

TYPED_TEST(ContextText, ARangeWithOneEndInNoTextOfTheFileHasNoHighlight) {
  this->Load("abcd\nefgh\n");
  this->ReplaceInLine(1, 0, 2, "XY");
  EXPECT_EQ(this->Around({{0, 1}, {1, 3}}), (Context{"abcd\r\nXYgh\r\n", 0, 0}));
  this->Load("abcd\nefgh\n");
  this->ReplaceInLine(0, 2, 4, "XY");
  EXPECT_EQ(this->Around({{0, 1}, {1, 3}}), (Context{"abXY\r\nefgh\r\n", 0, 0}));
}

TYPED_TEST(ContextText, RemovedLinesAreNotShown) {
  this->Load("a\nb\nc\nd\ne\n");
  this->ReplaceRange({{0, 0}, {2, 1}}, "x\ny");
  EXPECT_EQ(this->Around(InLine(2, 0, 1)).text, "y\r\nd\r\n");
  EXPECT_EQ(this->Around(InLine(3, 0, 1)), (Context{"y\r\nd\r\ne\r\n", 3, 4}));
}

TYPED_TEST(ContextText, StretchThatLiesInNoSinglePartHasNoHighlight) {
  this->Load("0\nabcdef\n");
  this->ReplaceInLine(1, 2, 4, "XY");
  EXPECT_EQ(this->Around(InLine(1, 2, 4)), (Context{"0\r\nabXYef\r\n", 0, 0}));
  EXPECT_EQ(this->Around(InLine(1, 3, 4)), (Context{"0\r\nabXYef\r\n", 0, 0}));
  EXPECT_EQ(this->Around(InLine(1, 1, 3)), (Context{"0\r\nabXYef\r\n", 0, 0}));
  EXPECT_EQ(this->Around(InLine(1, 3, 5)), (Context{"0\r\nabXYef\r\n", 0, 0}));
  EXPECT_EQ(this->Around(InLine(1, 1, 5)), (Context{"0\r\nabXYef\r\n", 0, 0}));
  EXPECT_EQ(this->Around(InLine(1, 0, 2)), (Context{"0\r\nabXYef\r\n", 3, 5}));
  EXPECT_EQ(this->Around(InLine(1, 4, 6)), (Context{"0\r\nabXYef\r\n", 7, 9}));
}

TYPED_TEST(ContextText, RangeOfSeveralLinesIsHighlightedFromItsStartToItsEnd) {
  this->Load("zero\none\ntwo\nthree\nfour\nfive\n");
  EXPECT_EQ(this->Around({{1, 1}, {3, 2}}), (Context{"zero\r\none\r\ntwo\r\nthree\r\nfour\r\n", 7, 18}));
  EXPECT_EQ(this->Around({{2, 0}, {3, 5}}, LineEnding::Inserted),
            (Context{"one\ntwo\nthree\nfour\n", 4, 13}));
  EXPECT_EQ(this->Around({{4, 3}, {5, 1}}), (Context{"three\r\nfour\r\nfive\r\n", 10, 14}));
}

TYPED_TEST(ContextText, RangeThatBeginsWhereTheLastOneEndedIsHighlighted) {
  this->Load("1a\nb2a\nb3\n");
  this->ReplaceRange({{0, 1}, {1, 1}}, "x\ny");
  EXPECT_EQ(this->Around({{1, 2}, {2, 1}}, LineEnding::Inserted), (Context{"1x\ny2a\nb3\n", 5, 8}));
}

TYPED_TEST(ContextText, MovedTailIsHighlightedInItsNewLine) {
  this->Load("1a2a3\n");
  this->ReplaceRange(InLine(0, 1, 2), "x\ny");
  EXPECT_EQ(this->Around(InLine(0, 3, 4), LineEnding::Inserted), (Context{"1x\ny2a3\n", 5, 6}));
  EXPECT_EQ(this->Around(InLine(0, 3, 4), LineEnding::CrLf), (Context{"1x\r\ny2a3\r\n", 6, 7}));
}

TYPED_TEST(ContextText, ManyInsertedLinesAreShownWhole) {
  std::string lines;
  for (int i = 0; i < 3000; ++i) lines += "x\n";
  this->Load("a\nb\n");
  this->ReplaceRange({{0, 0}, {1, 1}}, lines);
  std::string expected;
  for (int i = 0; i < 3000; ++i) expected += "x\r\n";
  EXPECT_EQ(this->Around(InLine(0, 0, 1)).text, expected);
}

TYPED_TEST(ContextText, LongLinesAreShownWhole) {
  const std::string fill(5000, 'x');
  this->Load(fill + "\n" + fill + "a" + fill + "\n" + fill);
  EXPECT_EQ(this->Around(InLine(1, 5000, 5001)),
            (Context{fill + "\r\n" + fill + "a" + fill + "\r\n" + fill, 10002, 10003}));
}
