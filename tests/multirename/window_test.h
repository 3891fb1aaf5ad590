// The extension object with a window that is not drawn. The test's thread is the host's main thread; the
// user's actions run on the window's thread.
#pragma once

#include <gmock/gmock.h>

#include "frame/host/command_numbers.h"
#include "multirename/gate_properties.h"
#include "multirename/panel_run_test.h"
#include "multirename/window/qx_multi_rename.h"
#include "multirename/window/undrawn_window.h"
#include "multirename/window_host.h"
#include "platform/handles.h"
#include "support/wait_limit.h"

namespace Velmora::SDK {

class WindowTest : public testing::Test {
 protected:
  WindowTest() {
    host_.configFolder = scratch_.Path() + W("\\");
    extension_->waits = {kWaitLimit, kWaitLimit};
    EXPECT_EQ(Plugin().OnRegister(&host_), 1);
    EXPECT_EQ(Plugin().OnStart(&host_), 1);
  }
  ~WindowTest() override {
    CloseAll();
    EXPECT_EQ(host_.controlsOut, 0);
    EXPECT_THAT(host_.recorder.Problems(), testing::IsEmpty());
  }
  // Shuts the extension down and deletes it, as a host does when it exits.
  void CloseAll() {
    if (!extension_) return;
    Plugin().OnShutdown(0);
    Delete();
  }
  void Delete() { MultiRenameCloser{kWaitLimit}(extension_.release()); }

  IPluginInterface& Plugin() { return *extension_; }

  void Select(const std::vector<WString>& names) {
    host_.selection.clear();
    for (const WString& name : names) host_.selection.push_back(host_.AddFile(name));
  }

  // Runs command 31000 with files of these names selected, which must open a window, and waits for the first
  // preview.
  void Open(const std::vector<WString>& names) {
    Select(names);
    ASSERT_EQ(Plugin().OnCommand(kCommandMultiRename, 0, 0), 1);
    window_ = UndrawnWindow::Current();
    ASSERT_NE(window_, nullptr);
    Settle();
  }

  // Processes all posted messages of the window and all work of its worker.
  void Settle() {
    Do([](UndrawnParts& parts) {
      for (int round = 0; round < 2; ++round) {
        UndrawnWindow::TakeMessages();
        EXPECT_TRUE(parts.context.engine.worker.WaitUntilIdle());
      }
      UndrawnWindow::TakeMessages();
    });
  }

  // Waits for the next command for the main thread, which must have this number, and runs it.
  void Serve(u32 number) {
    const std::optional<WindowHost::Command> command = host_.TakeCommand();
    ASSERT_TRUE(command.has_value()) << number;
    EXPECT_EQ(command->number, number);
    EXPECT_EQ(command->a, 0);
    Plugin().OnCommand(static_cast<s32>(command->number), command->a, command->b);
  }

  template <typename Action>
  void Do(Action action) {
    ASSERT_TRUE(window_->Do(action));
  }

  std::vector<WString> Shown() {
    std::vector<WString> shown;
    Do([&](UndrawnParts&) { shown = host_.controls.back().list.shown; });
    return shown;
  }
  u32 RowCount() {
    u32 rows = 0;
    u32 selected = 0;
    Do([&](UndrawnParts& parts) { parts.list.GetCounts(&rows, &selected); });
    return rows;
  }

  const ScratchFolder scratch_;
  WindowHost host_;
  std::unique_ptr<QXMultiRename> extension_ = std::make_unique<QXMultiRename>();
  std::shared_ptr<UndrawnWindow> window_;
};

}  // namespace Velmora::SDK
