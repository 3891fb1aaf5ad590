// The style of the question about an existing target, which a real box does not show.
#include <gmock/gmock.h>

#include "filetools/base64_file.h"
#include "support/box_answers.h"
#include "support/real_files.h"

TEST(Base64Question, IsYesAndNoWithAQuestionMark) {
  RealFiles files;
  files.Select(W("a.b64"), "foo");
  BoxAnswers boxes{IDNO};
  ConvertBase64Command(files.host, true);
  ASSERT_THAT(boxes.Boxes(), testing::SizeIs(1));
  EXPECT_EQ(boxes.Boxes()[0].style, 36u);
}
