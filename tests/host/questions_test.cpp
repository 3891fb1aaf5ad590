// Who answers a question, and what is reported about it.
#include "host/services/questions.h"

#include <gmock/gmock.h>

#include "recorded_output.h"

using testing::HasSubstr;

namespace QxHost {
namespace {

class QuestionsTest : public testing::Test {
 protected:
  Questions& Ask(std::vector<std::string> answers, std::vector<FormValue> form = {}) {
    Answers parsed;
    for (const std::string& answer : answers) parsed.push_back(*ParseAnswer(answer));
    return questions_.emplace(*reporter_, recorded_.output, parsed, std::move(form), nullptr);
  }

  // Asks at a terminal on which the user types these lines.
  Questions& AskPerson(std::vector<std::string> lines) {
    const auto readLine = [lines, next = std::size_t{0}]() mutable -> std::optional<std::string> {
      if (next == lines.size()) return std::nullopt;
      return lines[next++];
    };
    return questions_.emplace(*reporter_, recorded_.output, Answers(), std::vector<FormValue>(), readLine);
  }

  // A form with a free field and a field that accepts digits only.
  std::vector<DialogField> Fields() {
    return {{"text", [this] { return text_; },
             [this](const WString& value) {
               text_ = value;
               return true;
             }},
            {"digit", [this] { return digit_; },
             [this](const WString& value) {
               if (value.size() != 1 || value[0] < W('0') || value[0] > W('9')) return false;
               digit_ = value;
               return true;
             }}};
  }

  RecordedOutput recorded_;
  std::unique_ptr<Reporter> reporter_ = MakeJsonReporter(recorded_.output);
  std::optional<Questions> questions_;
  WString text_ = W("old");
  WString digit_ = W("1");
};

TEST_F(QuestionsTest, ABoxUsesTheNextAnswer) {
  Questions& questions = Ask({"ok", "cancel"});
  EXPECT_EQ(questions.AskBox(W("T"), W("text"), 33), 1);
  EXPECT_EQ(questions.AskBox(W("T"), W("text"), 33), 2);
  EXPECT_EQ(recorded_.Out(),
            R"({"event":"question","kind":"box","title":"T","text":"text","style":33,"answer":"ok"})"
            "\n"
            R"({"event":"question","kind":"box","title":"T","text":"text","style":33,"answer":"cancel"})"
            "\n");
}

TEST_F(QuestionsTest, WithoutAnswerAndTerminalTheHarmlessButtonIsPressed) {
  Questions& questions = Ask({});
  EXPECT_EQ(questions.AskBox(W(""), W(""), 1), 2);
  EXPECT_EQ(questions.AskBox(W(""), W(""), 4), 7);
  EXPECT_EQ(questions.AskBox(W(""), W(""), 0), 1);
  EXPECT_EQ(questions.AskText(W(""), W(""), W("default"), W("")), std::nullopt);
  EXPECT_EQ(questions.AskChoice(W(""), W(""), {W("1")}, 0), std::nullopt);
  EXPECT_FALSE(questions.AskDialog("D", W(""), W(""), Fields()));
  EXPECT_FALSE(questions.HasRefused());
}

TEST_F(QuestionsTest, AQuestionWithoutAnswerAndTerminalIsReported) {
  constexpr char kNote[] =
      "qxhost: note: question cancelled: there is no terminal; give --answer for \"T\": ";
  Ask({}).AskBox(W("T"), W(""), 0x23);
  EXPECT_EQ(recorded_.problems, std::string(kNote) + "yes, no, cancel\n");
  recorded_.problems.clear();
  Ask({}).AskText(W("T"), W(""), W(""), W(""));
  EXPECT_EQ(recorded_.problems, std::string(kNote) + "text=TEXT\n");
  recorded_.problems.clear();
  Ask({}).AskText(W("T"), W(""), W("txt"), W(""));
  EXPECT_EQ(recorded_.problems, std::string(kNote) + "text=TEXT, or ok for txt\n");
  recorded_.problems.clear();
  Ask({}).AskChoice(W("T"), W(""), {W("1"), W("2")}, 0);
  EXPECT_EQ(recorded_.problems, std::string(kNote) + "choice= and one of the rows\n  1\n  2\n");
  recorded_.problems.clear();
  Ask({}).AskDialog("D", W("T"), W(""), Fields());
  EXPECT_EQ(recorded_.problems,
            std::string(kNote) + "ok, with --form FIELD=VALUE for what is to be changed\n");
}

TEST_F(QuestionsTest, ThereIsNoSuchNoteWithAnAnswerOrWithoutAQuestion) {
  Ask({}).AskBox(W("T"), W("only OK"), 0);
  Ask({"cancel"}).AskBox(W("T"), W(""), 1);
  AskPerson({}).AskBox(W("T"), W(""), 1);
  AskPerson({}).AskText(W("T"), W(""), W(""), W(""));
  EXPECT_THAT(recorded_.problems, testing::Not(HasSubstr("there is no terminal")));
}

TEST_F(QuestionsTest, TheTerminalAcceptsAnyCaseAndAUniquePrefixOfAButton) {
  EXPECT_EQ(AskPerson({"OK"}).AskBox(W("T"), W(""), 1), 1);
  EXPECT_EQ(AskPerson({"C"}).AskBox(W("T"), W(""), 1), 2);
  EXPECT_EQ(AskPerson({"y"}).AskBox(W("T"), W(""), 3), 6);
  EXPECT_EQ(AskPerson({"No"}).AskBox(W("T"), W(""), 3), 7);
  EXPECT_EQ(AskPerson({"okay", "n"}).AskBox(W("T"), W(""), 3), 7);
  EXPECT_TRUE(AskPerson({"O"}).AskDialog("D", W("T"), W(""), Fields()));
  EXPECT_FALSE(AskPerson({"Cancel"}).AskDialog("D", W("T"), W(""), Fields()));
}

TEST_F(QuestionsTest, AnEmptyLinePressesTheOnlyButtonAndNoneOfSeveral) {
  recorded_.problems.clear();
  EXPECT_EQ(AskPerson({""}).AskBox(W("T"), W(""), 0), 1);
  EXPECT_THAT(recorded_.problems, testing::Not(HasSubstr("Please type")));
  EXPECT_EQ(AskPerson({"", "y"}).AskBox(W("T"), W(""), 4), 6);
  EXPECT_THAT(recorded_.problems, HasSubstr("Please type one of: yes, no"));
}

TEST_F(QuestionsTest, TheEndOfInputEndsThePromptsLine) {
  AskPerson({}).AskBox(W("T"), W("text"), 1);
  EXPECT_EQ(recorded_.problems, "T\ntext\n(ok, cancel) \n");
}

TEST_F(QuestionsTest, CancelOnABoxWithoutCancelDoesTheLeast) {
  Questions& questions = Ask({"cancel", "cancel"});
  EXPECT_EQ(questions.AskBox(W(""), W(""), 4), 7);
  EXPECT_EQ(questions.AskBox(W(""), W(""), 0), 1);
  EXPECT_FALSE(questions.HasRefused());
}

TEST_F(QuestionsTest, AnAnswerThatDoesNotFitCancelsAndRefusesTheCall) {
  EXPECT_EQ(Ask({"yes"}).AskBox(W("T"), W(""), 1), 2);
  EXPECT_TRUE(questions_->HasRefused());
  EXPECT_EQ(Ask({"no"}).AskText(W("T"), W(""), W("d"), W("")), std::nullopt);
  EXPECT_TRUE(questions_->HasRefused());
  EXPECT_EQ(Ask({"choice=5"}).AskChoice(W("T"), W(""), {W("1"), W("2")}, 0), std::nullopt);
  EXPECT_TRUE(questions_->HasRefused());
  EXPECT_FALSE(Ask({"yes"}).AskDialog("D", W(""), W(""), Fields()));
  EXPECT_TRUE(questions_->HasRefused());
}

TEST_F(QuestionsTest, ATextQuestionUsesItsAnswerOrTheDefault) {
  Questions& questions = Ask({"text=new", "ok", "text=", "cancel"});
  EXPECT_EQ(questions.AskText(W("T"), W("P"), W("old"), W("hint")), W("new"));
  EXPECT_EQ(questions.AskText(W("T"), W("P"), W("old"), W("")), W("old"));
  EXPECT_EQ(questions.AskText(W("T"), W("P"), W("old"), W("")), W(""));
  EXPECT_EQ(questions.AskText(W("T"), W("P"), W("old"), W("")), std::nullopt);
  EXPECT_THAT(recorded_.Out(),
              HasSubstr(R"({"event":"question","kind":"text","title":"T","text":"P","style":0,)"
                        R"("default":"old","hint":"hint","answer":"text=new"})"));
}

TEST_F(QuestionsTest, AChoiceIsARowByItsTextOrTheOneSelected) {
  const std::vector<WString> rows = {W("1"), W("2"), W("4")};
  Questions& questions = Ask({"choice=2", "ok", "cancel"});
  EXPECT_EQ(questions.AskChoice(W(""), W(""), rows, 2), 1u);
  EXPECT_EQ(questions.AskChoice(W(""), W(""), rows, 2), 2u);
  EXPECT_EQ(questions.AskChoice(W(""), W(""), rows, 2), std::nullopt);
}

TEST_F(QuestionsTest, OkWithoutASelectedRowIsNoChoice) {
  EXPECT_EQ(Ask({"ok"}).AskChoice(W(""), W(""), {W("1")}, -1), std::nullopt);
  EXPECT_EQ(Ask({"ok"}).AskChoice(W(""), W(""), {W("1")}, 7), std::nullopt);
  EXPECT_TRUE(questions_->HasRefused());
}

TEST_F(QuestionsTest, AFormIsFilledAndOkEndsIt) {
  EXPECT_TRUE(
      Ask({"ok"}, {{"text", W("new")}, {"digit", W("7")}}).AskDialog("D", W("T"), W("Top"), Fields()));
  EXPECT_EQ(text_, W("new"));
  EXPECT_EQ(digit_, W("7"));
}

TEST_F(QuestionsTest, AFormIsFilledOnce) {
  Questions& questions = Ask({"ok", "ok"}, {{"text", W("new")}});
  questions.AskDialog("D", W("T"), W("Top"), Fields());
  text_ = W("other");
  EXPECT_TRUE(questions.AskDialog("D", W("T"), W("Top"), Fields()));
  EXPECT_EQ(text_, W("other"));
}

TEST_F(QuestionsTest, AValueWithADialogsNameWaitsForThatDialog) {
  Questions& questions =
      Ask({"ok", "ok", "ok"}, {{"Later.text", W("later")}, {"digit", W("7")}, {"Never.digit", W("8")}});
  EXPECT_TRUE(questions.AskDialog("D", W("T"), W("Top"), Fields()));
  EXPECT_EQ(text_, W("old"));
  EXPECT_EQ(digit_, W("7"));
  EXPECT_TRUE(questions.AskDialog("Later", W("T"), W("Top"), Fields()));
  EXPECT_EQ(text_, W("later"));
  EXPECT_EQ(digit_, W("7"));
  EXPECT_EQ(questions.FormValuesLeft(), 1u);
}

TEST_F(QuestionsTest, AFieldThatComesAgainUnderADialogsNameIsForTheNextOne) {
  Questions& questions = Ask({"ok", "ok", "ok"}, {{"D.text", W("a")},
                                                  {"D.digit", W("2")},
                                                  {"D.text", W("b")},
                                                  {"D.digit", W("3")},
                                                  {"D.digit", W("4")}});
  std::vector<WString> seen;
  for (int round = 0; round < 3; ++round) {
    EXPECT_TRUE(questions.AskDialog("D", W("T"), W("Top"), Fields()));
    seen.push_back(text_ + digit_);
  }
  EXPECT_THAT(seen, testing::ElementsAre(W("a2"), W("b3"), W("b4")));
  EXPECT_EQ(questions.FormValuesLeft(), 0u);
}

TEST_F(QuestionsTest, AWrongFieldUnderADialogsNameCancelsThatDialog) {
  Questions& questions = Ask({"ok", "ok"}, {{"Later.texts", W("x")}});
  EXPECT_TRUE(questions.AskDialog("D", W("T"), W("Top"), Fields()));
  EXPECT_FALSE(questions.AskDialog("Later", W("T"), W("Top"), Fields()));
  EXPECT_TRUE(questions.HasRefused());
  EXPECT_THAT(recorded_.problems, HasSubstr("there is no field texts in the dialog Later"));
}

TEST_F(QuestionsTest, AWrongFieldOrValueCancelsTheDialogAndListsTheFields) {
  EXPECT_FALSE(Ask({"ok"}, {{"texts", W("x")}}).AskDialog("D", W("T"), W("Top"), Fields()));
  EXPECT_TRUE(questions_->HasRefused());
  EXPECT_THAT(recorded_.problems,
              HasSubstr("there is no field texts in the dialog D; its fields are text=old, digit=1"));
  EXPECT_FALSE(Ask({"ok"}, {{"digit", W("x")}}).AskDialog("D", W("T"), W("Top"), Fields()));
  EXPECT_TRUE(questions_->HasRefused());
  EXPECT_THAT(recorded_.problems, HasSubstr("the field digit cannot be x"));
}

TEST_F(QuestionsTest, TheNearestFieldIsProposedForAMistypedOne) {
  EXPECT_FALSE(Ask({"ok"}, {{"diigt", W("2")}}).AskDialog("D", W("T"), W("Top"), Fields()));
  EXPECT_EQ(recorded_.problems,
            "qxhost: there is no field diigt in the dialog D; its fields are text=old, digit=1. "
            "Did you mean digit?\n");
  recorded_.problems.clear();
  // "help", which lists the fields, resembles none of their names.
  EXPECT_FALSE(Ask({"ok"}, {{"help", W("")}}).AskDialog("D", W("T"), W("Top"), Fields()));
  EXPECT_THAT(recorded_.problems, testing::EndsWith("its fields are text=old, digit=1\n"));
  recorded_.problems.clear();
  EXPECT_TRUE(AskPerson({"Text=new", "ok"}).AskDialog("D", W("T"), W("Top"), Fields()));
  EXPECT_THAT(recorded_.problems, HasSubstr("there is no field Text. Did you mean text?\n"));
}

TEST_F(QuestionsTest, AWrongWordIsRefusedWithTheWordsThatTheFieldTakes) {
  std::vector<DialogField> fields = Fields();
  fields[1].words = {W("line"), W("substring"), W("item")};
  EXPECT_FALSE(Ask({"ok"}, {{"digit", W("itm")}}).AskDialog("D", W("T"), W("Top"), fields));
  EXPECT_EQ(
      recorded_.problems,
      "qxhost: the field digit cannot be itm in the dialog D: it takes line, substring, item; its fields "
      "are text=old, digit=1. Did you mean item?\n");
  EXPECT_TRUE(questions_->HasRefused());
  recorded_.problems.clear();
  EXPECT_TRUE(AskPerson({"digit=itm", "ok"}).AskDialog("D", W("T"), W("Top"), fields));
  EXPECT_THAT(
      recorded_.problems,
      HasSubstr("the field digit cannot be itm: it takes line, substring, item. Did you mean item?\n"));
}

TEST_F(QuestionsTest, ARefusedValueIsReportedWithWhatTheFieldAccepts) {
  std::vector<DialogField> fields = Fields();
  fields[1].takes = "a number from 0 to 9";
  EXPECT_FALSE(Ask({"ok"}, {{"digit", W("x")}}).AskDialog("D", W("T"), W("Top"), fields));
  EXPECT_EQ(
      recorded_.problems,
      "qxhost: the field digit cannot be x in the dialog D: it takes a number from 0 to 9; its fields are "
      "text=old, digit=1\n");
  EXPECT_TRUE(questions_->HasRefused());
  recorded_.problems.clear();
  EXPECT_TRUE(AskPerson({"digit=x", "ok"}).AskDialog("D", W("T"), W("Top"), fields));
  EXPECT_THAT(recorded_.problems, HasSubstr("the field digit cannot be x: it takes a number from 0 to 9\n"));
}

TEST_F(QuestionsTest, ATruncatedValueIsReportedWithWhatTheFieldAccepts) {
  std::vector<DialogField> fields = Fields();
  fields[0].takes = "1 character";
  fields[0].set = [this](const WString& text) {
    text_ = text.substr(0, 1);
    return true;
  };
  EXPECT_TRUE(Ask({"ok"}, {{"text", W("ab")}}).AskDialog("D", W("T"), W("Top"), fields));
  EXPECT_EQ(text_, W("a"));
  EXPECT_EQ(recorded_.problems, "qxhost: note: the field text is a and not ab: it takes 1 character\n");
  EXPECT_FALSE(questions_->HasRefused());
  recorded_.problems.clear();
  EXPECT_TRUE(Ask({"ok"}, {{"text", W("b")}}).AskDialog("D", W("T"), W("Top"), fields));
  EXPECT_EQ(recorded_.problems, "");
}

TEST_F(QuestionsTest, AFieldThatIsDisabledIsRefusedAsThat) {
  std::vector<DialogField> fields = Fields();
  fields[1].words = {W("1"), W("x")};
  fields[1].isEnabled = [] { return false; };
  EXPECT_FALSE(Ask({"ok"}, {{"digit", W("x")}}).AskDialog("D", W("T"), W("Top"), fields));
  EXPECT_EQ(recorded_.problems,
            "qxhost: the field digit cannot be x in the dialog D: it is disabled; its fields are text=old, "
            "digit=1\n");
  recorded_.problems.clear();
  EXPECT_TRUE(AskPerson({"digit=x", "ok"}).AskDialog("D", W("T"), W("Top"), fields));
  EXPECT_THAT(recorded_.problems, HasSubstr("the field digit cannot be x: it is disabled\n"));
}

TEST_F(QuestionsTest, AProposalFollowsAFullStopWithoutAnother) {
  text_ = W("It ends.");
  std::vector<DialogField> fields = Fields();
  std::swap(fields[0], fields[1]);
  EXPECT_FALSE(Ask({"ok"}, {{"diigt", W("2")}}).AskDialog("D", W("T"), W("Top"), fields));
  EXPECT_THAT(recorded_.problems, testing::EndsWith("text=It ends. Did you mean digit?\n"));
}

TEST_F(QuestionsTest, FieldsThatNoDialogHasTakenAreNamed) {
  Questions& questions = Ask({"ok"}, {{"text", W("a")}, {"E.text", W("b")}, {"E.digit", W("3")}});
  EXPECT_TRUE(questions.AskDialog("D", W("T"), W("Top"), Fields()));
  EXPECT_EQ(questions.FormFieldsLeft(), "E.text, E.digit");
  EXPECT_TRUE(Ask({"ok"}, {}).AskDialog("D", W("T"), W("Top"), Fields()));
  EXPECT_EQ(questions_->FormFieldsLeft(), "");
}

TEST_F(QuestionsTest, AMistypedDialogIsRefusedWithTheNearestOfThoseThatCame) {
  Questions& questions = Ask({"ok", "ok"}, {{"ConfirmReplaceDl.text", W("a")}});
  EXPECT_TRUE(questions.AskDialog("FindAndReplaceDlg", W("T"), W("Top"), Fields()));
  EXPECT_TRUE(questions.AskDialog("ConfirmReplaceDlg", W("T"), W("Top"), Fields()));
  questions.RefuseMistypedDialogs();
  EXPECT_TRUE(questions.HasRefused());
  EXPECT_EQ(recorded_.problems,
            "qxhost: --form ConfirmReplaceDl.text: no dialog ConfirmReplaceDl came. "
            "Did you mean ConfirmReplaceDlg.text?\n");
}

TEST_F(QuestionsTest, ADialogThatDidNotComeOrCameOnceTooFewIsNotMistyped) {
  Questions& questions = Ask({"ok"}, {{"ConfirmReplaceDlg.text", W("a")},
                                      {"FindAndReplaceDlg.text", W("b")},
                                      {"FindAndReplaceDlg.text", W("c")}});
  EXPECT_TRUE(questions.AskDialog("FindAndReplaceDlg", W("T"), W("Top"), Fields()));
  questions.RefuseMistypedDialogs();
  EXPECT_EQ(questions.FormValuesLeft(), 2u);
  EXPECT_FALSE(questions.HasRefused());
  EXPECT_EQ(recorded_.problems, "");
}

TEST_F(QuestionsTest, OkThatIsDisabledDoesNotFitAndIsReportedAsCancel) {
  const auto isOkEnabled = [this] { return digit_ == W("1"); };
  EXPECT_FALSE(Ask({"ok"}, {{"digit", W("2")}}).AskDialog("D", W("T"), W(""), Fields(), isOkEnabled));
  EXPECT_TRUE(questions_->HasRefused());
  EXPECT_THAT(recorded_.problems, HasSubstr("the dialog D cannot be answered with ok, which is disabled; its "
                                            "fields are text=old, digit=2"));
  EXPECT_EQ(recorded_.Out(),
            R"({"event":"question","kind":"dialog","title":"T","text":"","style":0,"answer":"cancel"})"
            "\n");
  digit_ = W("2");
  EXPECT_TRUE(Ask({"ok"}, {{"digit", W("1")}}).AskDialog("D", W("T"), W(""), Fields(), isOkEnabled));
  EXPECT_FALSE(questions_->HasRefused());
}

TEST_F(QuestionsTest, CancelFitsWhereOkIsDisabled) {
  EXPECT_FALSE(Ask({"cancel"}).AskDialog("D", W("T"), W(""), Fields(), [] { return false; }));
  EXPECT_FALSE(questions_->HasRefused());
}

TEST_F(QuestionsTest, APersonIsAskedAgainWhileOkIsDisabled) {
  const auto isOkEnabled = [this] { return digit_ == W("7"); };
  EXPECT_TRUE(AskPerson({"ok", "digit=7", "ok"}).AskDialog("D", W("T"), W(""), Fields(), isOkEnabled));
  EXPECT_THAT(recorded_.problems, HasSubstr("OK is disabled\n  text=old\n  digit=1\n"));
  digit_ = W("1");
  EXPECT_FALSE(AskPerson({"ok", "cancel"}).AskDialog("D", W("T"), W(""), Fields(), isOkEnabled));
  EXPECT_FALSE(questions_->HasRefused());
}

TEST_F(QuestionsTest, TheTerminalIsAskedUntilTheAnswerFits) {
  EXPECT_EQ(AskPerson({"what", "", "ok"}).AskBox(W("T"), W("text"), 1), 1);
  EXPECT_EQ(AskPerson({}).AskBox(W("T"), W("text"), 1), 2);
  EXPECT_EQ(AskPerson({"typed"}).AskText(W("T"), W(""), W("old"), W("")), W("typed"));
  EXPECT_EQ(AskPerson({""}).AskText(W("T"), W(""), W("old"), W("")), W("old"));
  EXPECT_EQ(AskPerson({""}).AskText(W("T"), W(""), W(""), W("")), std::nullopt);
  EXPECT_EQ(AskPerson({"3", "2"}).AskChoice(W("T"), W(""), {W("1"), W("2")}, 0), 1u);
  EXPECT_EQ(AskPerson({""}).AskChoice(W("T"), W(""), {W("1"), W("2")}, 0), 0u);
  EXPECT_TRUE(AskPerson({"digit=x", "nonsense", "digit=9", "ok"}).AskDialog("D", W("T"), W("Top"), Fields()));
  EXPECT_EQ(digit_, W("9"));
}

}  // namespace
}  // namespace QxHost
