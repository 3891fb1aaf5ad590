// MultiRename's window as its users have it: the built module in the reference host over real files. The
// test's thread is the host's main thread, the window runs on the module's thread, and the user acts on a
// third.
#pragma once

#include <functional>

#include "frame/host/command_numbers.h"
#include "host/hosted_files.h"
#include "window/window_user.h"

// Returns the exports of the built module; its MultiRename also stores the host that it gets.
QxHost::ModuleExports ExportsOfBuiltModule();

// Returns the host of MultiRename. Valid after the extension was started.
Velmora::SDK::IHostApp& HostOfBuiltModule();

class ModuleWindow : public testing::Test {
 protected:
  ModuleWindow() : hosted_(ExportsOfBuiltModule(), [this] { return answers_(); }) {}

  void StartWith(const std::vector<WString>& names) {
    for (const WString& name : names) hosted_.Add(name);
    hosted_.Start();
  }
  // Opens the window and serves it until it closes, while the user acts. If the user leaves it open, the
  // window is closed and the test fails.
  void Use(const std::function<void(WindowUser&)>& user);
  // The next window belongs to a new object of the module.
  void Renew() { hosted_.extensions->Renew(Velmora::SDK::kCommandMultiRename); }

  // Posts a command to the module on the host's main thread.
  static void Post(Velmora::SDK::u32 command) { HostOfBuiltModule().PostCommand(command, 0, 0); }

  std::vector<WString> Names() const { return hosted_.scratch.Names(W("files")); }
  std::string ContentOf(WStringView name) const { return hosted_.scratch.Read(W("files\\") + WString(name)); }

  // Returns the user's input when the host requests a text.
  std::function<std::optional<std::string>()> answers_ = [] { return std::optional<std::string>(); };
  QxHost::HostedFiles hosted_;
};
