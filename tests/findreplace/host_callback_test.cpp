// The callback of a run in the host: what it asks, shows and logs.
#include "findreplace/tool/host_callback.h"

#include <gmock/gmock.h>

#include "support/box_answers.h"
#include "support/fake_host.h"

namespace QXFindAndReplace {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Velmora::SDK::IHostApp;
using WQDR::TextFormat;

constexpr std::uint32_t kReplaceAll = 0x200;
constexpr std::uint32_t kSilent = 0x1000;
constexpr TextRange kRange = {{1, 2}, {3, 4}};
constexpr Highlight kHighlight = {5, 6};

// Answers each question with the next result and stores the forms as they were shown.
struct Asked {
  std::vector<ConfirmResult> answers;
  std::vector<ConfirmReplaceForm> forms;

  ConfirmReplaceDialog Show() {
    return [this](IHostApp&, ConfirmReplaceForm& form) {
      forms.push_back(form);
      if (forms.size() <= answers.size()) form.result = answers[forms.size() - 1];
    };
  }
};

class FindAndReplaceCallbackTest : public testing::Test {
 protected:
  FindAndReplaceCallback Callback(std::uint32_t flags = 0x20000001) { return {host_, flags, asked_.Show()}; }

  static ConfirmResult Ask(FindAndReplaceCallback& callback) {
    return callback.ConfirmReplace("a", TextFormat::Ansi, kRange, kHighlight, "b", 1);
  }

  FakeHost host_;
  Asked asked_;
};

// Errors.

TEST_F(FindAndReplaceCallbackTest, ErrorIsShownInABoxAndLogged) {
  BoxAnswers boxes{IDOK};
  Callback().ReportError("Text part not found", 87);
  const WString text = W(
      "[Find and Replace] Error\r\n==========================\r\nText part not found\r\n( ErrorCode : 87 )");
  ASSERT_EQ(boxes.Boxes().size(), 1u);
  EXPECT_EQ(boxes.Boxes()[0].title, W("Error"));
  EXPECT_EQ(boxes.Boxes()[0].text, text);
  EXPECT_THAT(boxes.Boxes()[0].buttons, ElementsAre(IDOK));
  EXPECT_TRUE(boxes.Boxes()[0].hasIcon);
  EXPECT_THAT(host_.recorder.CallsOf({"Log"}), ElementsAre("LogText(0, 30, " + Quoted(text.c_str()) + ")"));
}

TEST_F(FindAndReplaceCallbackTest, SilentRunLogsErrorsAndShowsNoBox) {
  BoxAnswers boxes;
  Callback(kSilent).ReportError(W("wide"), 4294967295u);
  const WString text =
      W("[Find and Replace] Error\r\n==========================\r\nwide\r\n( ErrorCode : 4294967295 )");
  EXPECT_THAT(boxes.Boxes(), IsEmpty());
  EXPECT_THAT(host_.recorder.CallsOf({"Log"}), ElementsAre("LogText(0, 30, " + Quoted(text.c_str()) + ")"));
}

TEST_F(FindAndReplaceCallbackTest, ErrorWithoutATextIsUnknown) {
  const WString text =
      W("[Find and Replace] Error\r\n==========================\r\n[Unknown]\r\n( ErrorCode : 0 )");
  const std::string call = "LogText(0, 30, " + Quoted(text.c_str()) + ")";
  FindAndReplaceCallback callback = Callback(kSilent);
  callback.ReportError(static_cast<const WCHAR*>(nullptr), 0);
  callback.ReportError(static_cast<const char*>(nullptr), 0);
  EXPECT_THAT(host_.recorder.CallsOf({"Log"}), ElementsAre(call, call));
}

TEST_F(FindAndReplaceCallbackTest, NarrowErrorTextIsInTheThreadsCodePage) {
  Callback(kSilent).ReportError("\x80 \xE4 %s %d", 5);
  const WString text =
      W("[Find and Replace] Error\r\n==========================\r\n\u20AC \u00E4 %s %d\r\n( ErrorCode : 5 )");
  EXPECT_THAT(host_.recorder.CallsOf({"Log"}), ElementsAre("LogText(0, 30, " + Quoted(text.c_str()) + ")"));
}

// Questions.

TEST_F(FindAndReplaceCallbackTest, WideTextsAreShownAsTheyAre) {
  FindAndReplaceCallback callback = Callback();
  callback.BeginFile(W("Z:\\a.txt"));
  asked_.answers = {ConfirmResult::Skip};
  EXPECT_EQ(callback.ConfirmReplace(W("one\r\ntwo \u20AC"), TextFormat::Utf16, kRange, kHighlight,
                                    W("replacement"), 7),
            ConfirmResult::Skip);
  ASSERT_EQ(asked_.forms.size(), 1u);
  const ConfirmReplaceForm& form = asked_.forms[0];
  EXPECT_EQ(form.path, W("Z:\\a.txt"));
  EXPECT_EQ(form.context, W("one\r\ntwo \u20AC"));
  EXPECT_EQ(form.replacement, W("replace"));
  EXPECT_EQ(form.format, TextFormat::Utf16);
  EXPECT_EQ(form.range.start.line, 1u);
  EXPECT_EQ(form.range.start.column, 2u);
  EXPECT_EQ(form.range.end.line, 3u);
  EXPECT_EQ(form.range.end.column, 4u);
  EXPECT_EQ(form.highlight.start, 5u);
  EXPECT_EQ(form.highlight.end, 6u);
  EXPECT_TRUE(form.rawShown);
}

TEST_F(FindAndReplaceCallbackTest, BytesOfAUtf8FileAreShownInTheThreadsCodePage) {
  FindAndReplaceCallback callback = Callback();
  callback.ConfirmReplace("\xC3\xA4", TextFormat::Utf8, kRange, kHighlight, "\xE2\x82\xAC", 3);
  ASSERT_EQ(asked_.forms.size(), 1u);
  EXPECT_EQ(asked_.forms[0].format, TextFormat::Utf8);
  EXPECT_EQ(asked_.forms[0].context, W("\u00C3\u00A4"));
  EXPECT_EQ(asked_.forms[0].replacement, W("\u00E2\u201A\u00AC"));
}

TEST_F(FindAndReplaceCallbackTest, ReplacementEndsAtItsLengthOrItsTerminator) {
  FindAndReplaceCallback callback = Callback();
  callback.ConfirmReplace("a", TextFormat::Ansi, kRange, kHighlight, "line\nmore", 4);
  callback.ConfirmReplace("a", TextFormat::Ansi, kRange, kHighlight, "line\nmore", 0);
  callback.ConfirmReplace("a", TextFormat::Ansi, kRange, kHighlight, "line\nmore", 0xFFFFFFFF);
  callback.ConfirmReplace(W("a"), TextFormat::Utf16, kRange, kHighlight, W("line\nmore"), 0);
  callback.ConfirmReplace(W("a"), TextFormat::Utf16, kRange, kHighlight, W("line\nmore"), 0xFFFFFFFF);
  std::vector<WString> shown;
  for (const ConfirmReplaceForm& form : asked_.forms) shown.push_back(form.replacement);
  EXPECT_THAT(shown, ElementsAre(W("line"), W(""), W("line\nmore"), W(""), W("line\nmore")));
}

TEST_F(FindAndReplaceCallbackTest, AnswerIsTheResultOfTheDialog) {
  asked_.answers = {ConfirmResult::Replace, ConfirmResult::ReplaceToo, ConfirmResult::Skip};
  FindAndReplaceCallback callback = Callback();
  for (const ConfirmResult answer : asked_.answers) EXPECT_EQ(Ask(callback), answer);
  EXPECT_FALSE(callback.IsCancelled());
  EXPECT_EQ(callback.Flags(), 0x20000001u);
}

TEST_F(FindAndReplaceCallbackTest, WithoutADialogTheMatchIsLeft) {
  FindAndReplaceCallback callback = Callback();
  EXPECT_EQ(Ask(callback), ConfirmResult::Skip);
  EXPECT_FALSE(callback.IsCancelled());
}

TEST_F(FindAndReplaceCallbackTest, CancelIsRemembered) {
  asked_.answers = {ConfirmResult::Cancel};
  FindAndReplaceCallback callback = Callback();
  EXPECT_FALSE(callback.IsCancelled());
  EXPECT_EQ(Ask(callback), ConfirmResult::Cancel);
  EXPECT_TRUE(callback.IsCancelled());
}

TEST_F(FindAndReplaceCallbackTest, AfterReplaceAllNothingIsAsked) {
  asked_.answers = {ConfirmResult::ReplaceAll};
  FindAndReplaceCallback callback = Callback();
  EXPECT_EQ(Ask(callback), ConfirmResult::ReplaceAll);
  EXPECT_EQ(callback.Flags(), 0x20000201u);
  EXPECT_EQ(Ask(callback), ConfirmResult::ReplaceAll);
  EXPECT_EQ(asked_.forms.size(), 1u);
}

TEST_F(FindAndReplaceCallbackTest, SilentRunsAndThoseThatReplaceAllAskNothingAndReplaceAllByDesign) {
  for (const std::uint32_t flags : {kReplaceAll, kSilent, kReplaceAll | kSilent}) {
    FindAndReplaceCallback callback = Callback(flags);
    EXPECT_EQ(Ask(callback), ConfirmResult::ReplaceAll) << flags;
    EXPECT_EQ(callback.ConfirmReplace(W("a"), TextFormat::Utf16, kRange, kHighlight, W("b"), 1),
              ConfirmResult::ReplaceAll)
        << flags;
    EXPECT_EQ(callback.Flags(), flags);
  }
  EXPECT_THAT(asked_.forms, IsEmpty());
  EXPECT_THAT(host_.recorder.Calls(), IsEmpty());
}

TEST_F(FindAndReplaceCallbackTest, FileWithoutAPathHasAnEmptyOne) {
  FindAndReplaceCallback callback = Callback();
  callback.BeginFile(W("Z:\\a.txt"));
  callback.BeginFile(nullptr);
  Ask(callback);
  EXPECT_EQ(asked_.forms.at(0).path, W(""));
}

TEST_F(FindAndReplaceCallbackTest, EndOfAFileChangesNothing) {
  asked_.answers = {ConfirmResult::Cancel};
  FindAndReplaceCallback callback = Callback();
  callback.BeginFile(W("Z:\\a.txt"));
  Ask(callback);
  callback.EndFile();
  EXPECT_TRUE(callback.IsCancelled());
  EXPECT_THAT(host_.recorder.Calls(), IsEmpty());
}

}  // namespace
}  // namespace QXFindAndReplace
