// The style of the rename question as passed to MessageBoxW, which a real box does not show.
#include <gmock/gmock.h>

#include "filetools/quick_rename.h"
#include "frame/host/command_numbers.h"
#include "platform/posix/user_interface.h"
#include "support/box_answers.h"
#include "support/fake_host.h"

using namespace Velmora::SDK;

TEST(RenameQuestion, IsOkAndCancelWithAQuestionMark) {
  FakeHost host;
  host.SelectFiles({W("a.txt")});
  BoxAnswers boxes{IDOK};
  QuickRenameCommand(host, kCommandUpperCase);
  ASSERT_THAT(boxes.Boxes(), testing::SizeIs(1));
  EXPECT_EQ(boxes.Boxes()[0].style, 33u);
}

TEST(RenameQuestion, WithoutAUserNothingIsRenamed) {
  Platform::UserInterface* const before = Platform::InstallUserInterface(nullptr);
  FakeHost host;
  host.SelectFiles({W("a.txt")});
  QuickRenameCommand(host, kCommandUpperCase);
  EXPECT_EQ(host.fileOperation.Runs(), 0);
  ExpectAllReleased(host);
  Platform::InstallUserInterface(before);
}
