// The owner of the rename question, which only a real box shows.
#include <gmock/gmock.h>

#include "filetools/quick_rename.h"
#include "frame/host/command_numbers.h"
#include "support/box_answers.h"
#include "support/fake_host.h"

using namespace Velmora::SDK;

TEST(RenameQuestion, IsOwnedByTheHostsMainWindow) {
  FakeHost host;
  host.mainWindow = CreateWindowExW(0, L"STATIC", L"main", WS_OVERLAPPEDWINDOW, 0, 0, 200, 100, nullptr,
                                    nullptr, nullptr, nullptr);
  ASSERT_NE(host.mainWindow, nullptr);
  host.SelectFiles({L"a.txt"});
  {
    BoxAnswers boxes{IDOK};
    QuickRenameCommand(host, kCommandUpperCase);
    ASSERT_THAT(boxes.Boxes(), testing::SizeIs(1));
    EXPECT_EQ(boxes.Boxes()[0].owner, host.mainWindow);
  }
  EXPECT_EQ(host.fileOperation.Runs(), 1);
  DestroyWindow(host.mainWindow);
}
