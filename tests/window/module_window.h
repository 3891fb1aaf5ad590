// MultiRename's window as its users have it: the built module in the reference host over real files. The
// test's thread is the host's main thread, the window is on the module's, the user acts on a third.
#pragma once

#include <functional>

#include "frame/host/command_numbers.h"
#include "host/hosted_files.h"
#include "window/window_user.h"

// The built module's exports; its MultiRename also keeps the host that it is given.
QxHost::ModuleExports ExportsOfBuiltModule();

// The host of MultiRename, after it was started.
Velmora::SDK::IHostApp& HostOfBuiltModule();

class ModuleWindow : public testing::Test {
 protected:
  ModuleWindow() : hosted_(ExportsOfBuiltModule(), [this] { return answers_(); }) {}

  void StartWith(const std::vector<WString>& names) {
    for (const WString& name : names) hosted_.Add(name);
    hosted_.Start();
  }
  // Opens the window and serves it until it has closed, while the user acts. A window that the user leaves
  // open is a failure, and is closed.
  void Use(const std::function<void(WindowUser&)>& user);
  // The next window is of a new object of the module.
  void Renew() { hosted_.extensions->Renew(Velmora::SDK::kCommandMultiRename); }

  // Posts a command to the module on the host's main thread.
  static void Post(Velmora::SDK::u32 command) { HostOfBuiltModule().PostCommand(command, 0, 0); }

  std::vector<WString> Names() const { return hosted_.scratch.Names(W("files")); }
  std::string ContentOf(WStringView name) const { return hosted_.scratch.Read(W("files\\") + WString(name)); }

  // What the user types where the host asks for a text.
  std::function<std::optional<std::string>()> answers_ = [] { return std::optional<std::string>(); };
  QxHost::HostedFiles hosted_;
};
