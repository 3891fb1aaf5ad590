// Starting control panel items: the arguments passed to the system. Only in the native build, where nothing
// is started.
#include <gmock/gmock.h>

#include "filetools/control_panel.h"
#include "filetools/control_panel_expected.h"
#include "frame/qx_utils.h"
#include "platform/posix/user_interface.h"
#include "support/box_answers.h"
#include "support/fake_host.h"

using namespace Velmora::SDK;

TEST(ControlPanelLauncher, EachNumberStartsItsItemByCanonicalName) {
  FakeHost host;
  CQXUtils extension;
  extension.OnStart(&host);
  for (const ExpectedPanelItem& item : kExpectedPanelItems) {
    BoxAnswers system;
    EXPECT_EQ(extension.OnCommand(static_cast<s32>(6100 + item.rowId), 0, 0), 1) << item.rowId;
    ASSERT_EQ(system.Starts().size(), 1u) << item.rowId;
    const ShellStart& start = system.Starts()[0];
    EXPECT_EQ(start.verb, W("Open"));
    EXPECT_EQ(start.file, W("Control.exe"));
    EXPECT_EQ(start.arguments, WString(W("/name Microsoft.")) + item.canonicalName);
    EXPECT_EQ(start.show, 5);
  }
  EXPECT_THAT(host.recorder.Calls(), testing::IsEmpty());
}

TEST(ControlPanelLauncher, Command6161StartsFileHistory) {
  BoxAnswers system;
  FakeHost host;
  host.isClassA = true;  // only the menu omits this row; the launcher does not check
  CQXUtils extension;
  extension.OnStart(&host);
  EXPECT_EQ(extension.OnCommand(6161, 0, 0), 1);
  ASSERT_EQ(system.Starts().size(), 1u);
  EXPECT_EQ(system.Starts()[0].arguments, W("/name Microsoft.FileHistory"));
}

TEST(ControlPanelLauncher, StartsItemsBeforeVistaToo) {
  BoxAnswers system;
  FakeHost host;
  host.isVista = false;
  CQXUtils extension;
  extension.OnStart(&host);
  EXPECT_EQ(extension.OnCommand(6110, 0, 0), 1);
  ASSERT_EQ(system.Starts().size(), 1u);
  EXPECT_EQ(system.Starts()[0].arguments, W("/name Microsoft.DefaultLocation"));
}

TEST(ControlPanelLauncher, FailedStartIsNotReported) {
  Platform::UserInterface* const before = Platform::InstallUserInterface(nullptr);
  FakeHost host;
  CQXUtils extension;
  extension.OnStart(&host);
  EXPECT_EQ(extension.OnCommand(6101, 0, 0), 1);
  EXPECT_THAT(host.recorder.Calls(), testing::IsEmpty());
  Platform::InstallUserInterface(before);
}
