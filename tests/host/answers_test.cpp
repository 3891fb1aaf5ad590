#include "host/services/answers.h"

#include <gtest/gtest.h>

#include "host/services/box_buttons.h"

namespace QxHost {
namespace {

TEST(Answers, WordsAndTextsAreUnderstood) {
  EXPECT_EQ(ParseAnswer("ok")->kind, Answer::kOk);
  EXPECT_EQ(ParseAnswer("yes")->kind, Answer::kYes);
  EXPECT_EQ(ParseAnswer("no")->kind, Answer::kNo);
  EXPECT_EQ(ParseAnswer("cancel")->kind, Answer::kCancel);
  EXPECT_EQ(ParseAnswer("text=a=b")->text, W("a=b"));
  EXPECT_EQ(ParseAnswer("text=")->text, W(""));
  EXPECT_EQ(ParseAnswer("text= \xC3\xA4 ")->text, W(" \u00E4 "));
  EXPECT_EQ(ParseAnswer("choice=4")->kind, Answer::kChoice);
  EXPECT_EQ(ParseAnswer("choice=4")->text, W("4"));
}

TEST(Answers, NothingElseIsAnAnswer) {
  for (const char* text : {"", "OK", "Ok", " ok", "ok ", "text", "choice", "Text=a", "=", "okay"}) {
    EXPECT_EQ(ParseAnswer(text), std::nullopt) << text;
  }
}

TEST(Answers, TheNearestWordIsProposedForAMistypedOne) {
  EXPECT_EQ(NearestAnswer("OK"), ". Did you mean ok?");
  EXPECT_EQ(NearestAnswer("okay"), ". Did you mean ok?");
  EXPECT_EQ(NearestAnswer("cancle"), ". Did you mean cancel?");
  EXPECT_EQ(NearestAnswer("text"), ". Did you mean text=?");
  EXPECT_EQ(NearestAnswer("txet=some=thing"), ". Did you mean text=?");
  EXPECT_EQ(NearestAnswer("choise=4"), ". Did you mean choice=?");
  EXPECT_EQ(NearestAnswer("y"), ". Did you mean yes?");
  EXPECT_EQ(NearestAnswer("n"), ". Did you mean no?");
  EXPECT_EQ(NearestAnswer("o"), ". Did you mean ok?");
  EXPECT_EQ(NearestAnswer("c"), "");  // ambiguous: cancel or choice=
  EXPECT_EQ(NearestAnswer("x"), "");
  EXPECT_EQ(NearestAnswer("overwrite"), "");
  EXPECT_EQ(NearestAnswer(""), "");
}

TEST(Answers, AreWrittenAsTheyAreRead) {
  for (const char* text : {"ok", "yes", "no", "cancel", "text=", "text=a b", "choice=x"}) {
    EXPECT_EQ(AnswerText(*ParseAnswer(text)), text);
  }
}

TEST(BoxButtons, EachStyleHasItsButtons) {
  EXPECT_EQ(ButtonNames(ButtonsOfStyle(0)), "ok");
  EXPECT_EQ(ButtonNames(ButtonsOfStyle(0x21)), "ok, cancel");
  EXPECT_EQ(ButtonNames(ButtonsOfStyle(2)), "abort, retry, ignore");
  EXPECT_EQ(ButtonNames(ButtonsOfStyle(0x123)), "yes, no, cancel");
  EXPECT_EQ(ButtonNames(ButtonsOfStyle(36)), "yes, no");
  EXPECT_EQ(ButtonNames(ButtonsOfStyle(5)), "retry, cancel");
  EXPECT_EQ(ButtonNames(ButtonsOfStyle(15)), "ok");
}

TEST(BoxButtons, TheStyleIsFoundByTheButtonsInAnyOrder) {
  EXPECT_EQ(StyleOfButtons(std::vector{1}), 0u);
  EXPECT_EQ(StyleOfButtons(std::vector{2, 1}), 1u);
  EXPECT_EQ(StyleOfButtons(std::vector{2, 7, 6}), 3u);
  EXPECT_EQ(StyleOfButtons(std::vector{7, 6}), 4u);
  EXPECT_EQ(StyleOfButtons(std::vector<int>{}), 0u);
}

TEST(BoxButtons, AnAnswerPressesAnExistingButton) {
  EXPECT_EQ(ButtonOfAnswer(ButtonsOfStyle(1), {Answer::kOk, {}})->number, 1);
  EXPECT_EQ(ButtonOfAnswer(ButtonsOfStyle(4), {Answer::kNo, {}})->number, 7);
  EXPECT_FALSE(ButtonOfAnswer(ButtonsOfStyle(4), {Answer::kOk, {}}));
  EXPECT_FALSE(ButtonOfAnswer(ButtonsOfStyle(1), {Answer::kText, W("ok")}));
}

TEST(BoxButtons, TheHarmlessButtonIsCancelElseNoElseTheOnlyOne) {
  EXPECT_EQ(HarmlessButton(ButtonsOfStyle(1)).number, 2);
  EXPECT_EQ(HarmlessButton(ButtonsOfStyle(3)).number, 2);
  EXPECT_EQ(HarmlessButton(ButtonsOfStyle(4)).number, 7);
  EXPECT_EQ(HarmlessButton(ButtonsOfStyle(0)).number, 1);
  EXPECT_EQ(HarmlessButton(ButtonsOfStyle(2)).number, 5);
}

}  // namespace
}  // namespace QxHost
