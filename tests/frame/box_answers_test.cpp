// BoxAnswers, which answers the message boxes in tests: every box is recorded, and nothing else.
#include "support/box_answers.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(BoxAnswers, BoxesGetTheirAnswersInOrder) {
  BoxAnswers boxes{IDYES, IDNO};
  EXPECT_EQ(MessageBoxW(nullptr, W("first"), W("title"), MB_YESNO), IDYES);
  EXPECT_EQ(MessageBoxW(nullptr, W("second"), W("title"), MB_YESNO), IDNO);
  EXPECT_THAT(boxes.Boxes(),
              ElementsAre(Field(&ShownBox::text, W("first")), Field(&ShownBox::text, W("second"))));
  EXPECT_THAT(boxes.UnexpectedBoxes(), IsEmpty());
  EXPECT_EQ(boxes.Unused(), 0);
}

TEST(BoxAnswers, OneBoxTooManyIsCancelledAndUnexpected) {
  BoxAnswers boxes{IDOK};
  EXPECT_EQ(MessageBoxW(nullptr, W("asked"), W("title"), MB_OKCANCEL), IDOK);
  EXPECT_EQ(MessageBoxW(nullptr, W("too many"), W("title"), MB_OKCANCEL), IDCANCEL);
  EXPECT_THAT(boxes.UnexpectedBoxes(), ElementsAre(Field(&ShownBox::text, W("too many"))));
  EXPECT_EQ(boxes.Boxes().size(), 2u);
}

TEST(BoxAnswers, SameBoxAskedAgainIsCountedAgain) {
  BoxAnswers boxes;
  for (int round = 0; round < 20; ++round) {
    EXPECT_EQ(MessageBoxW(nullptr, W("text"), W("title"), MB_OKCANCEL), IDCANCEL);
  }
  EXPECT_EQ(boxes.Boxes().size(), 20u);
  EXPECT_EQ(boxes.UnexpectedBoxes().size(), 20u);
}

TEST(BoxAnswers, AnswerWithoutABoxIsUnused) {
  BoxAnswers boxes{IDOK, IDOK};
  MessageBoxW(nullptr, W("asked"), W("title"), MB_OKCANCEL);
  EXPECT_EQ(boxes.Unused(), 1);
}

TEST(BoxAnswers, FailedExpectationShowsTitleTextAndButtons) {
  BoxAnswers boxes;
  MessageBoxW(nullptr, W("what it \u00E4sks"), W("its title"), MB_OKCANCEL);
  EXPECT_THAT(testing::PrintToString(boxes.UnexpectedBoxes()),
              HasSubstr("the box \"its title\": \"what it \xC3\xA4sks\", buttons 1 2"));
}
