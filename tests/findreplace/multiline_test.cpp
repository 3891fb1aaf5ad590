// The mode that replaces blocks of consecutive lines.
#include <gmock/gmock.h>

#include <stdexcept>

#include "findreplace/applied.h"

using namespace QXFindAndReplace;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr auto kAnswerReplace = ConfirmResult::Replace;
constexpr auto kAnswerReplaceAll = ConfirmResult::ReplaceAll;
constexpr auto kAnswerReplaceToo = ConfirmResult::ReplaceToo;
constexpr auto kAnswerSkip = ConfirmResult::Skip;
constexpr auto kAnswerCancel = ConfirmResult::Cancel;

template <typename CharT>
class Multiline : public AppliedModes<CharT> {
 protected:
  std::string Replaced(std::string_view text, std::string_view find, std::string_view replace,
                       std::uint32_t flags = 0) {
    return this->Apply(ModeMultiline | flags, text, find, replace);
  }
};
TYPED_TEST_SUITE(Multiline, BothWidths);

}  // namespace

TYPED_TEST(Multiline, TwoLinesByTwo) {
  EXPECT_EQ(this->Replaced("1a2\nb3\n", "a\nb", "x\ny"), "1x\ny3\n");
  EXPECT_EQ(this->changes, 1u);
  EXPECT_EQ(this->Replaced("0\r\n1a\r\nb3\r\n4", "a\nb\n", "x\ny\n"), "0\r\n1x\r\ny3\r\n4");
}

TYPED_TEST(Multiline, TextAfterTheFirstItemIsRemovedToo) {
  EXPECT_EQ(this->Replaced("abcXY\ndefZ\n", "abc\ndef", "1\n2"), "1\n2Z\n");
}

TYPED_TEST(Multiline, OneReplaceLineLeavesTheEndLineAsItIs) {
  EXPECT_EQ(this->Replaced("a\nb\n", "a\nb", "x"), "x\nb\n");
  EXPECT_EQ(this->Replaced("a\nm\nb2\n", "a\nm\nb", "x"), "x\nb2\n");
  EXPECT_EQ(this->changes, 1u);
}

TYPED_TEST(Multiline, OneLineByOneLine) {
  EXPECT_EQ(this->Replaced("1a2a3\na\n", "a", "x"), "1x2x3\nx\n");
  EXPECT_EQ(this->changes, 3u);
}

TYPED_TEST(Multiline, OneLineByTwoLines) {
  EXPECT_EQ(this->Replaced("1a2\n", "a", "x\ny"), "1x\ny2\n");
  EXPECT_EQ(this->changes, 1u);
  EXPECT_EQ(this->Replaced("1a2a3\na\n", "a", "x\ny"), "1x\ny2x\ny3\nx\ny\n");
  EXPECT_EQ(this->changes, 3u);
}

TYPED_TEST(Multiline, MatchAtItsLinesEndByTwoLines) {
  EXPECT_EQ(this->Replaced("1a\n2\n", "a", "x\ny"), "1x\ny\n2\n");
  EXPECT_EQ(this->Replaced("aa\n", "a", "x\ny"), "x\nyx\ny\n");
}

TYPED_TEST(Multiline, LinesInsertedIntoAFileWithoutAnEndingHaveTheirOwn) {
  EXPECT_EQ(this->Replaced("1a2", "a", "x\ny"), "1x\ny2\n");
  EXPECT_EQ(this->Replaced("1a", "a", "x\ny"), "1x\ny\n");
}

// The rest of the line is lost and the middle line is doubled (C-224).
TYPED_TEST(Multiline, OneLineByThreeLines) {
  EXPECT_EQ(this->Replaced("1a2\n", "a", "x\ny\nz"), "1x\ny\nz\ny\n");
  EXPECT_EQ(this->changes, 1u);
  EXPECT_EQ(this->Replaced("1a2\n3a\n", "a", "x\ny\nz"), "1x\ny\nz\ny\n3x\ny\nz\ny\n");
}

TYPED_TEST(Multiline, SecondMatchInALineWhoseRestIsLostIsNotFound) {
  EXPECT_EQ(this->ErrorOf(ModeMultiline, "1a2a\n", "a", "x\ny\nz"), kPartNotFound);
}

TYPED_TEST(Multiline, LinesByThreeLinesOrMore) {
  EXPECT_EQ(this->Replaced("1a\nb2\n", "a\nb", "x\ny\nz"), "1x\ny\nz2\n");
  EXPECT_EQ(this->Replaced("1a\nm\nb2\n", "a\nm\nb", "p\nq\nr\ns"), "1p\nq\nr\ns2\n");
}

TYPED_TEST(Multiline, BlocksFollowOneAnother) {
  EXPECT_EQ(this->Replaced("1a\nb2\na\nb\nx\na\nb", "a\nb", "x\ny"), "1x\ny2\nx\ny\nx\nx\ny");
  EXPECT_EQ(this->changes, 3u);
  EXPECT_EQ(this->Replaced("1a\nb2a\nb3a\nb", "a\nb", "x\ny"), "1x\ny2x\ny3x\ny");
  EXPECT_EQ(this->changes, 3u);
  EXPECT_EQ(this->Replaced("a\na\na\na", "a\na", "x\ny"), "x\ny\nx\ny");
  EXPECT_EQ(this->changes, 2u);
}

TYPED_TEST(Multiline, MiddleLinesThatAreNotComparedGoToo) {
  EXPECT_EQ(this->Replaced("a\nWHAT\nEVER\nd\n", "a\nb\nc\nd", "x\ny"), "x\ny\n");
}

TYPED_TEST(Multiline, LinesAreFoundAcrossTheirEndingsOfAnyKind) {
  EXPECT_EQ(this->Replaced("1a\r\nb2\nc", "a\nb", "x\ny"), "1x\r\ny2\r\nc");
  EXPECT_EQ(this->Replaced("1a\rb2", "a\nb", "x\ny"), "1xy2");
  EXPECT_EQ(this->Replaced("1a\nb2\n", "a\r\nb", "x\ry"), "1x\ny2\n");
}

TYPED_TEST(Multiline, WithWildcardTheTextIsFoundLiterally) {
  EXPECT_EQ(this->Replaced("abc\na?c\nd\n", "a?c\nd", "x\ny", Wildcard), "abc\nx\ny\n");
  EXPECT_EQ(this->Replaced("abc\n", "*", "x", Wildcard), "abc\n");
  EXPECT_EQ(this->Replaced("a{2\n", "a{2", "x", Wildcard), "x\n");
}

TYPED_TEST(Multiline, IgnoringCase) {
  EXPECT_EQ(this->Replaced("1A\nB2\n", "a\nb", "x\ny"), "1A\nB2\n");
  EXPECT_EQ(this->changes, 0u);
  EXPECT_EQ(this->Replaced("1A\nB2\n", "a\nb", "x\ny", IgnoreCase), "1x\ny2\n");
}

TYPED_TEST(Multiline, WithoutFindLinesItIsRefused) {
  const Thrown tooFew = {87, "To few find items. Atleast one must be set"};
  EXPECT_EQ(this->ErrorOf(ModeMultiline, "abc", "", "x"), tooFew);
  EXPECT_EQ(this->ErrorOf(ModeMultiline, "", "", ""), tooFew);
}

TYPED_TEST(Multiline, WithoutReplaceLinesItFailsAtTheFirstMatch) {
  const auto errorOf = [this](const char* text, const char* find) {
    return WhatOf<std::out_of_range>([&] { this->Replaced(text, find, ""); });
  };
  EXPECT_EQ(errorOf("a\nb\n", "a\nb"), "invalid vector<T> subscript");
  EXPECT_EQ(errorOf("a\nb\n", "b"), "invalid vector<T> subscript");
  EXPECT_EQ(this->Replaced("a\nb\n", "b\na", ""), "a\nb\n") << "without a match it does not";
}

TYPED_TEST(Multiline, EmptyFindLineAtTheBeginningMatchesNothing) {
  EXPECT_EQ(this->Replaced("\nb\n", "\nb", "x\ny"), "\nb\n");
  EXPECT_EQ(this->changes, 0u);
}

TYPED_TEST(Multiline, EmptyLastFindLine) {
  EXPECT_EQ(this->Replaced("a\n\nc\n", "a\n\n", "x"), "x\n\nc\n");
  EXPECT_EQ(this->Replaced("a\nb\nc\n", "a\n\n", "x\ny"), "x\nyb\nc\n");
  EXPECT_EQ(this->ErrorOf(ModeMultiline, "a\n\nc\n", "a\n\n", "x\ny"), kPartNotFound);
}

TYPED_TEST(Multiline, TextsAreSplitForEachDocumentAnew) {
  FindAndReplaceOptions options;
  options.flags = ModeMultiline;
  const auto first = MakeDocument<TypeParam>("a\nb\n");
  this->ApplyTo(*first, options, "a\nb", "x\ny");
  EXPECT_EQ(options.findLinesAnsi, nullptr);
  EXPECT_EQ(options.findLinesUtf8, nullptr);
  EXPECT_EQ(options.findLinesWide, nullptr);
  EXPECT_EQ(options.replaceLinesAnsi, nullptr);
  EXPECT_EQ(options.replaceLinesUtf8, nullptr);
  EXPECT_EQ(options.replaceLinesWide, nullptr);
  // Lines that another mode has stored have no effect.
  options.findLinesAnsi = options.findLinesWide = MakeLines<TypeParam>("q");
  options.replaceLinesAnsi = options.replaceLinesWide = MakeLines<TypeParam>("q");
  const auto second = MakeDocument<TypeParam>("c\nd\n");
  this->ApplyTo(*second, options, "c\nd", "x\ny");
  EXPECT_EQ(Written(*second), "x\ny\n");
}

// --- questions

TYPED_TEST(Multiline, EachBlockIsAskedFor) {
  ScriptedCallback<TypeParam> callback({kAnswerReplace, kAnswerSkip, kAnswerReplaceToo});
  EXPECT_EQ(this->Apply(ModeMultiline, "1a\nb2\na\nb\na\nb\n", "a\nb", "x\ny", &callback),
            "1x\ny2\na\nb\nx\ny\n");
  EXPECT_EQ(this->changes, 2u);
  EXPECT_THAT(callback.Contexts(), ElementsAre("1a\nb2\na\n", "y2\na\nb\na\n", "b\na\nb\n"));
  EXPECT_THAT(callback.Matches(), ElementsAre("a\nb", "a\nb", "a\nb"));
  EXPECT_THAT(callback.Ranges(),
              ElementsAre(RangeNumbers{0, 1, 1, 1}, RangeNumbers{2, 0, 3, 1}, RangeNumbers{4, 0, 5, 1}));
  for (const auto& question : callback.questions) {
    EXPECT_EQ(question.replacement, "x\r\ny");
    EXPECT_EQ(question.replacementLength, 0xFFFFFFFFu);
    EXPECT_EQ(question.format, kUsualFormat<TypeParam>);
  }
}

TYPED_TEST(Multiline, SkippedBlockIsPassedToItsEnd) {
  ScriptedCallback<TypeParam> callback({}, kAnswerSkip);
  EXPECT_EQ(this->Apply(ModeMultiline, "a\na\na\na\na\n", "a\na", "x\ny", &callback), "a\na\na\na\na\n");
  EXPECT_EQ(this->changes, 0u);
  EXPECT_THAT(callback.Ranges(), ElementsAre(RangeNumbers{0, 0, 1, 1}, RangeNumbers{2, 0, 3, 1}));
}

TYPED_TEST(Multiline, ReplaceAllAsksNoMore) {
  ScriptedCallback<TypeParam> callback({kAnswerSkip, kAnswerReplaceAll}, kAnswerCancel);
  EXPECT_EQ(this->Apply(ModeMultiline, "a\nb\na\nb\na\nb\n", "a\nb", "x\ny", &callback),
            "a\nb\nx\ny\nx\ny\n");
  EXPECT_THAT(callback.questions, SizeIs(2));
}

// Unlike the other modes.
TYPED_TEST(Multiline, CancelThrowsNothingAndKeepsWhatIsDone) {
  ScriptedCallback<TypeParam> callback({kAnswerReplace, kAnswerCancel});
  EXPECT_EQ(this->Apply(ModeMultiline, "a\nb\na\nb\na\nb\n", "a\nb", "x\ny", &callback),
            "x\ny\na\nb\na\nb\n");
  EXPECT_EQ(this->changes, 1u);
  EXPECT_THAT(callback.questions, SizeIs(2));
}

TYPED_TEST(Multiline, OtherAnswersActLikeSkip) {
  ScriptedCallback<TypeParam> callback({static_cast<ConfirmResult>(4), static_cast<ConfirmResult>(-7)});
  EXPECT_EQ(this->Apply(ModeMultiline, "a\nb\na\nb\na\nb\n", "a\nb", "x\ny", &callback),
            "a\nb\na\nb\nx\ny\n");
}

TYPED_TEST(Multiline, WithoutReplaceLinesTheQuestionComesBeforeTheFailure) {
  ScriptedCallback<TypeParam> skip({}, kAnswerSkip);
  EXPECT_EQ(this->Apply(ModeMultiline, "a\nb\n", "a\nb", "", &skip), "a\nb\n");
  ASSERT_THAT(skip.questions, SizeIs(1));
  EXPECT_EQ(skip.questions[0].replacement, "");
  EXPECT_EQ(skip.questions[0].replacementLength, 0xFFFFFFFFu);
  ScriptedCallback<TypeParam> replace({kAnswerReplace});
  EXPECT_EQ(WhatOf<std::out_of_range>([&] { this->Apply(ModeMultiline, "a\nb\n", "a\nb", "", &replace); }),
            "invalid vector<T> subscript");
}

TYPED_TEST(Multiline, WithoutAMatchNothingIsAsked) {
  ScriptedCallback<TypeParam> callback({});
  this->Apply(ModeMultiline, "a\nb\n", "b\na", "x", &callback);
  EXPECT_THAT(callback.questions, IsEmpty());
}
