// The extension object of MultiRename: its menu and its commands, with a host that provides no controls for a
// window.
#include <gmock/gmock.h>

#include "frame/host/command_numbers.h"
#include "multirename/form/frame_form.h"
#include "multirename/rename_host.h"
#include "multirename/window/qx_multi_rename.h"
#include "platform/handles.h"
#include "support/scratch_folder.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MultiRenameExtension : public testing::Test {
 protected:
  MultiRenameExtension() { host_.configFolder = scratch_.Path() + W("\\"); }

  const ScratchFolder scratch_;
  RenameHost host_;
  QXMultiRename extension_;
  IPluginInterface& plugin_ = extension_;
};

TEST_F(MultiRenameExtension, DeclaresAMenuWithAnEmptyEntryAndTheCommandOfTheWindow) {
  EXPECT_EQ(plugin_.OnRegister(&host_), 1);
  EXPECT_THAT(host_.recorder.CallsOf({"menu.", "factory."}),
              ElementsAre("menu.CreateRootMenu(0x07D6006D, 1, 0)", "menu.AddCommand(root, null, 1, 0)",
                          "factory.CreateCommand(31000, 0x10000201, 0x000A0063, 0x000A0063, 0x00400000, 0)",
                          "menu.AddCommand(root, command 31000, 1, 0)"));
  ExpectAllReleased(host_);
}

TEST_F(MultiRenameExtension, DeclaresNothingMoreWhereTheHostRefuses) {
  for (const char* const refused : {"GetMenuBuilder", "GetCommandFactory", "CreateRootMenu"}) {
    RenameHost host;
    host.recorder.Refuse(refused);
    EXPECT_EQ(plugin_.OnRegister(&host), 1);
    EXPECT_THAT(host.recorder.CallsOf({"menu.AddCommand"}), IsEmpty()) << refused;
    ExpectAllReleased(host);
  }
}

TEST_F(MultiRenameExtension, WithoutAHostNoCommandDoesAnything) {
  EXPECT_EQ(plugin_.OnRegister(nullptr), 1);
  EXPECT_EQ(plugin_.OnCommand(kCommandMultiRename, 0, 0), 0);
  const FileHandle event(CreateEventW(nullptr, FALSE, FALSE, nullptr));
  EXPECT_EQ(plugin_.OnCommand(kCommandReadSelection, 0, reinterpret_cast<std::intptr_t>(event.Get())), 1);
  EXPECT_EQ(WaitForSingleObject(event.Get(), 0), WAIT_OBJECT_0);
  EXPECT_EQ(plugin_.OnCommand(kCommandShutdown, 0, 0), 0);
}

TEST_F(MultiRenameExtension, AHostWithoutControlsGetsNoWindowAndMayAskAgain) {
  plugin_.OnStart(&host_);
  host_.recorder.ClearCalls();
  for (int time = 0; time < 3; ++time) EXPECT_EQ(plugin_.OnCommand(kCommandMultiRename, 0, 0), 0);
  EXPECT_FALSE(plugin_.OnHostEvent(1, kEventSelectionChanged));
  EXPECT_THAT(host_.recorder.CallsOf({"PostCommand", "ExtensionClosed"}), IsEmpty());
  EXPECT_EQ(plugin_.OnCommand(kCommandShutdown, 0, 0), 0);
  EXPECT_THAT(host_.recorder.CallsOf({"PostCommand", "ExtensionClosed"}), ElementsAre("ExtensionClosed()"));
}

TEST_F(MultiRenameExtension, CommandsReadTheSelectionOfTheView) {
  plugin_.OnStart(&host_);
  for (const s32 command : {kCommandMultiRename, kCommandReadSelection}) {
    host_.recorder.ClearCalls();
    plugin_.OnCommand(command, 0, 0);
    const std::vector<std::string> requests = host_.recorder.CallsOf({"FileListRequest"});
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_TRUE(requests[0].starts_with("FileListRequest(21215, list")) << requests[0];
    EXPECT_TRUE(requests[0].ends_with(", 16, 0)")) << requests[0];
  }
}

TEST_F(MultiRenameExtension, UnknownCommandsReturn0) {
  plugin_.OnStart(&host_);
  for (const s32 number : {0, 1, 20500, 30000, 30999, 31001, 31999, 32001, 32810, -1})
    EXPECT_EQ(plugin_.OnCommand(number, 0, 0), 0) << number;
}

TEST_F(MultiRenameExtension, WaitsAsLongAsStated) {
  EXPECT_EQ(extension_.waits.start, 1000u);
  EXPECT_EQ(extension_.waits.shutdown, 5000u);
  EXPECT_EQ(MultiRenameCloser().timeout, 4000u);
}

}  // namespace
}  // namespace Velmora::SDK
