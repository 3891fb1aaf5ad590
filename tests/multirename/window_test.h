// The extension object with a window that is not drawn. The test is the host's main thread; it does with the
// window what a user does, on the window's thread.
#pragma once

#include <gmock/gmock.h>

#include "frame/host/command_numbers.h"
#include "multirename/gate_properties.h"
#include "multirename/panel_run_test.h"
#include "multirename/window/qx_multi_rename.h"
#include "multirename/window/undrawn_window.h"
#include "multirename/window_host.h"
#include "platform/handles.h"

namespace Velmora::SDK {

class WindowTest : public testing::Test {
 protected:
  WindowTest() {
    host_.configFolder = scratch_.Path() + W("\\");
    extension_->waits = {kMissed, kMissed};
    EXPECT_EQ(Plugin().OnRegister(&host_), 1);
    EXPECT_EQ(Plugin().OnStart(&host_), 1);
  }
  ~WindowTest() override {
    CloseAll();
    EXPECT_EQ(host_.controlsOut, 0);
    EXPECT_THAT(host_.recorder.Problems(), testing::IsEmpty());
  }
  // Shuts down and deletes, as a host does at its end.
  void CloseAll() {
    if (!extension_) return;
    Plugin().OnShutdown(0);
    Delete();
  }
  void Delete() { MultiRenameCloser{kMissed}(extension_.release()); }

  IPluginInterface& Plugin() { return *extension_; }

  void Select(const std::vector<WString>& names) {
    host_.selection.clear();
    for (const WString& name : names) host_.selection.push_back(host_.AddFile(name));
  }

  // Command 31000, which must open a window, with files of these names selected, and the first preview.
  void Open(const std::vector<WString>& names) {
    Select(names);
    ASSERT_EQ(Plugin().OnCommand(kCommandMultiRename, 0, 0), 1);
    window_ = UndrawnWindow::Current();
    ASSERT_NE(window_, nullptr);
    Settle();
  }

  // Lets everything through that is posted to the window and that its worker is asked to do.
  void Settle() {
    Do([](UndrawnParts& parts) {
      for (int round = 0; round < 2; ++round) {
        UndrawnWindow::TakeMessages();
        EXPECT_TRUE(parts.context.engine.worker.WaitUntilIdle());
      }
      UndrawnWindow::TakeMessages();
    });
  }

  // Runs the next command that waits for the main thread.
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

  static constexpr DWORD kMissed = 60000;  // milliseconds that nothing here takes

  const ScratchFolder scratch_;
  WindowHost host_;
  std::unique_ptr<QXMultiRename> extension_ = std::make_unique<QXMultiRename>();
  std::shared_ptr<UndrawnWindow> window_;
};

}  // namespace Velmora::SDK
