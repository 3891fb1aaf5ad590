// The style of the question before text files are converted, which a real box does not show.
#include <gmock/gmock.h>

#include "filetools/text_conversion.h"
#include "frame/host/command_numbers.h"
#include "support/box_answers.h"
#include "support/real_files.h"

using namespace Velmora::SDK;

TEST(ConvertTextQuestion, IsYesAndNoWithAQuestionMark) {
  RealFiles files;
  files.Select(W("a"), "x");
  BoxAnswers boxes{IDNO};
  ConvertTextCommand(files.host, kCommandLineEndsToLf);
  ASSERT_THAT(boxes.Boxes(), testing::SizeIs(1));
  EXPECT_EQ(boxes.Boxes()[0].style, 36u);
}
