// The questions of a pass before each replacement, and the effect of the answers.
#include <gmock/gmock.h>

#include "findreplace/documents.h"
#include "findreplace/engine/multiline_match.h"
#include "findreplace/engine/replace_pass.h"
#include "findreplace/scripted_callback.h"

using namespace QXFindAndReplace;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr auto kReplace = ConfirmResult::Replace;
constexpr auto kReplaceAll = ConfirmResult::ReplaceAll;
constexpr auto kReplaceToo = ConfirmResult::ReplaceToo;
constexpr auto kSkip = ConfirmResult::Skip;
constexpr auto kCancel = ConfirmResult::Cancel;

const Thrown kCancelled = {1223, "Operation cancelled by user"};

template <typename CharT>
class ConfirmPass : public testing::Test {
 protected:
  void Load(std::string_view text) { document = MakeDocument<CharT>(text); }
  void Run(ScriptedCallback<CharT>& callback, std::string_view find, std::string_view replace,
           std::uint32_t matching = kMatchPlain) {
    const auto wideFind = In<CharT>(find);
    const auto wideReplace = In<CharT>(replace);
    callback.document = document.get();
    FindAndReplaceInLines<CharT>(*document, wideFind.c_str(), static_cast<std::uint32_t>(wideFind.size()),
                                 wideReplace.c_str(), static_cast<std::uint32_t>(wideReplace.size()), false,
                                 matching, &callback);
  }
  bool RunRange(ScriptedCallback<CharT>& callback, const TextRange& range, std::string_view replace) {
    return ConfirmAndReplaceRange<CharT>(*document, callback, range, *MakeLines<CharT>(replace));
  }
  std::string Text() const { return Written(*document); }

  DocumentPointer<CharT> document;
};
TYPED_TEST_SUITE(ConfirmPass, BothWidths);

}  // namespace

// --- a pass over lines

TYPED_TEST(ConfirmPass, EachAnswerHasItsEffect) {
  struct Case {
    std::vector<ConfirmResult> answers;
    const char* result;
    std::uint32_t changes;
    std::size_t questions;
  };
  const std::vector<Case> cases = {
      {{kReplace, kReplace, kReplace}, "-b-\n-", 3, 3},
      {{kReplaceToo, kReplaceToo, kReplaceToo}, "-b-\n-", 3, 3},
      {{kSkip, kSkip, kSkip}, "aba\na", 0, 3},
      {{kReplace, kSkip, kReplaceToo}, "-ba\n-", 2, 3},
      {{kSkip, kReplace, kSkip}, "ab-\na", 1, 3},
      {{kReplaceAll, kCancel}, "-b-\n-", 3, 1},
      {{kSkip, kReplaceAll, kCancel}, "ab-\n-", 2, 2},
  };
  for (const Case& one : cases) {
    this->Load("aba\na");
    ScriptedCallback<TypeParam> callback(one.answers, kCancel);
    this->Run(callback, "a", "-");
    EXPECT_EQ(this->Text(), one.result);
    EXPECT_EQ(this->document->changeCount, one.changes);
    EXPECT_THAT(callback.questions, SizeIs(one.questions));
  }
}

TYPED_TEST(ConfirmPass, OtherAnswersActLikeSkip) {
  for (const int answer : {4, 6, 7, -1, 99, 0x7FFFFFFF}) {
    this->Load("aba\na");
    ScriptedCallback<TypeParam> callback({static_cast<ConfirmResult>(answer)});
    this->Run(callback, "a", "-");
    EXPECT_EQ(this->Text(), "ab-\n-");
    EXPECT_EQ(this->document->changeCount, 2u);
    EXPECT_THAT(callback.questions, SizeIs(3));
  }
}

TYPED_TEST(ConfirmPass, CancelThrowsAndAsksNoMore) {
  for (const std::size_t before : {0u, 1u, 2u}) {
    this->Load("aba\na");
    std::vector<ConfirmResult> answers(before, kReplace);
    answers.push_back(kCancel);
    ScriptedCallback<TypeParam> callback(answers);
    EXPECT_EQ(DataError([&] { this->Run(callback, "a", "-"); }), kCancelled);
    EXPECT_THAT(callback.questions, SizeIs(before + 1));
    EXPECT_FALSE(this->document->replaceAll);
  }
}

TYPED_TEST(ConfirmPass, QuestionShowsTheMatchAndItsContext) {
  this->Load("zero\none\ntwo one\nthree\nfour\n");
  ScriptedCallback<TypeParam> callback({kReplace, kReplace});
  this->Run(callback, "one", "1!");
  ASSERT_THAT(callback.questions, SizeIs(2));
  const auto& first = callback.questions[0];
  EXPECT_EQ(first.context, "zero\r\none\r\ntwo one\r\n");
  EXPECT_EQ(first.format, kUsualFormat<TypeParam>);
  EXPECT_EQ(first.range, (RangeNumbers{1, 0, 1, 3}));
  EXPECT_EQ(first.highlight.start, 6u);
  EXPECT_EQ(first.highlight.end, 9u);
  EXPECT_EQ(first.replacement, "1!");
  EXPECT_EQ(first.replacementLength, 2u);
  const auto& second = callback.questions[1];
  EXPECT_EQ(second.context, "1!\r\ntwo one\r\nthree\r\n");
  EXPECT_EQ(second.range, (RangeNumbers{2, 4, 2, 7}));
  EXPECT_EQ(second.highlight.start, 8u);
  EXPECT_EQ(second.highlight.end, 11u);
}

TYPED_TEST(ConfirmPass, QuestionHasTheDocumentsFormat) {
  for (const WQDR::TextFormat format :
       {WQDR::TextFormat::Ansi, WQDR::TextFormat::Utf16, WQDR::TextFormat::Utf8}) {
    this->Load("a");
    this->document->format = format;
    ScriptedCallback<TypeParam> callback({kSkip});
    this->Run(callback, "a", "b");
    ASSERT_THAT(callback.questions, SizeIs(1));
    EXPECT_EQ(callback.questions[0].format, format);
  }
}

TYPED_TEST(ConfirmPass, EachQuestionComesBeforeItsReplacementAndAfterThePreviousOne) {
  this->Load("aa\n");
  ScriptedCallback<TypeParam> callback({kReplace, kReplace});
  this->Run(callback, "a", "xyz");
  ASSERT_THAT(callback.questions, SizeIs(2));
  EXPECT_EQ(callback.questions[0].changesBefore, 0u);
  EXPECT_EQ(callback.questions[1].changesBefore, 1u);
  EXPECT_THAT(callback.Contexts(), ElementsAre("aa\r\n", "xyza\r\n"));
  EXPECT_THAT(callback.Matches(), ElementsAre("a", "a"));
  EXPECT_EQ(callback.questions[1].highlight.start, 3u);
}

TYPED_TEST(ConfirmPass, SkippedMatchIsNotOfferedAgain) {
  this->Load("aaaa");
  ScriptedCallback<TypeParam> callback({}, kSkip);
  this->Run(callback, "aa", "b");
  EXPECT_THAT(callback.Ranges(), ElementsAre(RangeNumbers{0, 0, 0, 2}, RangeNumbers{0, 2, 0, 4}));
  EXPECT_EQ(this->document->changeCount, 0u);
}

TYPED_TEST(ConfirmPass, ReplaceAllHoldsForLaterPassesOfTheDocument) {
  this->Load("abab");
  ScriptedCallback<TypeParam> callback({kReplaceAll}, kCancel);
  this->Run(callback, "a", "x");
  EXPECT_TRUE(this->document->replaceAll);
  this->Run(callback, "b", "y");
  EXPECT_EQ(this->Text(), "xyxy");
  EXPECT_THAT(callback.questions, SizeIs(1));
}

TYPED_TEST(ConfirmPass, NoQuestionIsAskedWhenAllAreToBeReplaced) {
  this->Load("aba");
  this->document->replaceAll = true;
  ScriptedCallback<TypeParam> callback({}, kCancel);
  this->Run(callback, "a", "x");
  EXPECT_EQ(this->Text(), "xbx");
  EXPECT_THAT(callback.questions, IsEmpty());
}

TYPED_TEST(ConfirmPass, WithoutAMatchNothingIsAsked) {
  this->Load("aba");
  ScriptedCallback<TypeParam> callback({}, kCancel);
  this->Run(callback, "x", "y");
  EXPECT_THAT(callback.questions, IsEmpty());
}

TYPED_TEST(ConfirmPass, EmptyReplacementHasNoLength) {
  this->Load("a");
  ScriptedCallback<TypeParam> callback({kReplace});
  this->Run(callback, "a", "");
  ASSERT_THAT(callback.questions, SizeIs(1));
  EXPECT_EQ(callback.questions[0].replacement, "");
  EXPECT_EQ(callback.questions[0].replacementLength, 0u);
}

// The question is asked before the replacement is attempted, so after Skip the pass continues.
TYPED_TEST(ConfirmPass, MatchInReplacedTextIsAskedForWithoutAHighlight) {
  this->Load("xabcx\nab\n");
  ScriptedCallback<TypeParam> first({kReplace});
  this->Run(first, "bc", "-");
  ScriptedCallback<TypeParam> second({kSkip, kReplace});
  this->Run(second, "ab", "!");
  ASSERT_THAT(second.questions, SizeIs(2));
  EXPECT_EQ(second.questions[0].context, "xa-x\r\nab\r\n");
  EXPECT_EQ(second.questions[0].range, (RangeNumbers{0, 1, 0, 3}));
  EXPECT_EQ(second.questions[0].highlight.start, 0u);
  EXPECT_EQ(second.questions[0].highlight.end, 0u);
  EXPECT_EQ(this->Text(), "xa-x\n!\n");
  ScriptedCallback<TypeParam> third({kReplace});
  EXPECT_EQ(DataError([&] { this->Run(third, "ab", "!"); }), kPartNotFound);
}

TYPED_TEST(ConfirmPass, WildcardMatchesAreAskedFor) {
  this->Load("xabcabd\n");
  ScriptedCallback<TypeParam> callback({kSkip, kReplace});
  this->Run(callback, "a??", "-", kMatchWildcard);
  EXPECT_THAT(callback.Matches(), ElementsAre("abc", "abd"));
  EXPECT_EQ(this->Text(), "xabc-\n");
}

TYPED_TEST(ConfirmPass, SkippedEmptyMatchesDoNotKeepThePassFromEnding) {
  for (const char* find : {"*", "x{0}"}) {
    this->Load("abc");
    ScriptedCallback<TypeParam> callback({}, kSkip);
    EXPECT_EQ(DataError([&] { this->Run(callback, find, "-", kMatchWildcard); }), kPartNotFound);
  }
}

// --- a range of lines

TYPED_TEST(ConfirmPass, EachAnswerToARangeHasItsEffect) {
  for (const auto answer : {kReplace, kReplaceToo, kReplaceAll}) {
    this->Load("1a\nb2\n");
    ScriptedCallback<TypeParam> callback({answer});
    EXPECT_TRUE(this->RunRange(callback, {{0, 1}, {1, 1}}, "x\ny"));
    EXPECT_EQ(this->Text(), "1x\ny2\n");
    EXPECT_EQ(this->document->changeCount, 1u);
    EXPECT_EQ(this->document->replaceAll, answer == kReplaceAll);
  }
  for (const auto answer : {kSkip, static_cast<ConfirmResult>(4), static_cast<ConfirmResult>(-1)}) {
    this->Load("1a\nb2\n");
    ScriptedCallback<TypeParam> callback({answer});
    EXPECT_TRUE(this->RunRange(callback, {{0, 1}, {1, 1}}, "x\ny"));
    EXPECT_EQ(this->Text(), "1a\nb2\n");
    EXPECT_EQ(this->document->changeCount, 0u);
  }
  this->Load("1a\nb2\n");
  ScriptedCallback<TypeParam> callback({kCancel});
  EXPECT_FALSE(this->RunRange(callback, {{0, 1}, {1, 1}}, "x\ny"));
  EXPECT_EQ(this->Text(), "1a\nb2\n");
  EXPECT_EQ(this->document->changeCount, 0u);
}

TYPED_TEST(ConfirmPass, QuestionAboutARangeHasTheLinesJoinedWithCrLf) {
  this->Load("zero\n1a\nb2\nthree\n");
  ScriptedCallback<TypeParam> callback({kSkip, kSkip});
  this->RunRange(callback, {{1, 1}, {2, 1}}, "x\ny\rz\r\n");
  this->RunRange(callback, {{1, 1}, {1, 2}}, "x");
  ASSERT_THAT(callback.questions, SizeIs(2));
  const auto& question = callback.questions[0];
  EXPECT_EQ(question.context, "zero\n1a\nb2\nthree\n") << "with the output's own ending";
  EXPECT_EQ(question.format, kUsualFormat<TypeParam>);
  EXPECT_EQ(question.range, (RangeNumbers{1, 1, 2, 1}));
  EXPECT_EQ(question.Highlighted(), "a\nb");
  EXPECT_EQ(question.replacement, "x\r\ny\r\nz");
  EXPECT_EQ(question.replacementLength, 0xFFFFFFFFu);
  EXPECT_EQ(callback.questions[1].replacement, "x");
  EXPECT_EQ(callback.questions[1].replacementLength, 0xFFFFFFFFu);
  EXPECT_EQ(callback.questions[1].Highlighted(), "a");
}

TYPED_TEST(ConfirmPass, RangeIsReplacedWithoutAQuestionWhenAllAre) {
  this->Load("1a\nb2\n");
  this->document->replaceAll = true;
  ScriptedCallback<TypeParam> callback({}, kCancel);
  EXPECT_TRUE(this->RunRange(callback, {{0, 1}, {1, 1}}, "x\ny"));
  EXPECT_THAT(callback.questions, IsEmpty());
  EXPECT_EQ(this->Text(), "1x\ny2\n");
}
