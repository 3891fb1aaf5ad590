// Extensions with a window: what the host serves while it is open, and the events of its controls.
#include "host/extensions_test.h"

#include <thread>

#include "frame/host/command_numbers.h"
#include "host/controls/controls.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace QxHost {
namespace {

using namespace Velmora::SDK;

// Stands in for a window: a thread that does what a test sets, while the host's main thread serves it.
class OtherThread {
 public:
  void Run(std::function<void()> work) { thread_ = std::thread(std::move(work)); }
  ~OtherThread() {
    if (thread_.joinable()) thread_.join();
  }

 private:
  std::thread thread_;
};

TEST_F(ExtensionsTest, AWindowIsServedWhatItPostsUntilItsExtensionIsClosed) {
  OtherThread window;
  onCommand = [&](IHostApp& host, s32 number) {
    if (number == kCommandMultiRename) {
      window.Run([&host] {
        for (int post = 0; post < 100; ++post) host.PostCommand(kCommandReadSelection, post, 7);
        host.PostCommand(32001, 0, 0);
      });
    }
    if (number == 32001) host.ExtensionClosed();
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  calls.clear();
  EXPECT_EQ(extensions.RunWindow(kCommandMultiRename), 1);
  ASSERT_EQ(calls.size(), 102u);
  EXPECT_EQ(calls.front(), "command 2 31000 0 0");
  for (std::size_t post = 0; post < 100; ++post) {
    EXPECT_EQ(calls[post + 1], "command 2 32000 " + std::to_string(post) + " 7");
  }
  EXPECT_EQ(calls.back(), "command 2 32001 0 0");
}

TEST_F(ExtensionsTest, APostedCommandRunsOnTheThreadThatServesTheWindow) {
  OtherThread window;
  std::thread::id served;
  onCommand = [&](IHostApp& host, s32 number) {
    if (number == kCommandMultiRename) window.Run([&host] { host.PostCommand(kCommandReadSelection, 0, 0); });
    if (number == kCommandReadSelection) {
      served = std::this_thread::get_id();
      host.ExtensionClosed();
    }
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  extensions.RunWindow(kCommandMultiRename);
  EXPECT_EQ(served, std::this_thread::get_id());
}

// The window closes while the host is already shutting it down.
TEST_F(ExtensionsTest, AShutdownThatWasPostedForAnObjectNeverReachesTheNext) {
  IHostApp* hostOfWindow = nullptr;
  onCommand = [&](IHostApp& host, s32) {
    hostOfWindow = &host;
    host.ExtensionClosed();
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  extensions.RunWindow(kCommandMultiRename);
  hostOfWindow->PostCommand(kCommandShutdown, 0, 0);
  calls.clear();
  extensions.Renew(kCommandMultiRename);
  extensions.RunWindow(kCommandMultiRename);
  EXPECT_THAT(calls, ElementsAre("delete 2", "create 2", "register 2", "start 2", "command 2 31000 0 0"));
}

TEST_F(ExtensionsTest, AWindowThatClosesWhileItsCommandRunsIsNotWaitedFor) {
  onCommand = [](IHostApp& host, s32) {
    host.ExtensionClosed();
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  EXPECT_EQ(extensions.RunWindow(kCommandMultiRename), 1);
  EXPECT_EQ(extensions.RunWindow(kCommandMultiRename), 1);
}

TEST_F(ExtensionsTest, AWindowThatIsNotOpenedIsNotWaitedFor) {
  onCommand = [](IHostApp&, s32) { return 0; };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  EXPECT_EQ(extensions.RunWindow(kCommandMultiRename), 0);
}

TEST_F(ExtensionsTest, AnExtensionThatClosedBeforeItsWindowOpensIsStillWaitedFor) {
  OtherThread window;
  bool isServed = false;
  onCommand = [&](IHostApp& host, s32 number) {
    if (number == 31001) host.ExtensionClosed();
    if (number == kCommandMultiRename) window.Run([&host] { host.PostCommand(kCommandReadSelection, 0, 0); });
    if (number == kCommandReadSelection) {
      isServed = true;
      host.ExtensionClosed();
    }
    return 1;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  extensions.RunCommand(31001);
  extensions.RunWindow(kCommandMultiRename);
  EXPECT_TRUE(isServed);
}

TEST_F(ExtensionsTest, AClosedExtensionIsDeletedAndMadeAnewWithoutAnotherShutDown) {
  Extensions extensions(shared_, exports_);
  extensions.Start();
  calls.clear();
  extensions.Renew(kCommandMultiRename);
  extensions.RunCommand(kCommandMultiRename);
  extensions.Stop();
  EXPECT_THAT(calls, ElementsAre("delete 2", "create 2", "register 2", "start 2", "command 2 31000 0 0",
                                 "command 0 20002 0 0", "delete 0", "detach", "delete 1",
                                 "command 2 20002 0 0", "delete 2"));
}

TEST_F(ExtensionsTest, AnEventOfAControlGoesToItsExtensionWhileThatLives) {
  HostApp* host = nullptr;
  onCommand = [&](IHostApp& hostOfCommand, s32 number) {
    if (number == kCommandMultiRename) host = static_cast<HostApp*>(&hostOfCommand);
    return 0;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  extensions.RunCommand(kCommandMultiRename);
  ASSERT_NE(host, nullptr);
  calls.clear();
  host->SendEvent(17, kSelectionChanged);
  EXPECT_THAT(calls, ElementsAre("event 2 17 52300"));
  extensions.Stop();
  calls.clear();
  host->SendEvent(17, kSelectionChanged);
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(ExtensionsTest, ExceptionOfTheModuleInAnEventIsReportedAndCaught) {
  HostApp* host = nullptr;
  onCommand = [&](IHostApp& hostOfCommand, s32) {
    host = static_cast<HostApp*>(&hostOfCommand);
    return 0;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  extensions.RunCommand(kCommandMultiRename);
  host->SendEvent(17, -1);
  EXPECT_EQ(recorded_.problems, "qxhost: the module threw out of OnHostEvent: bad event\n");
}

TEST_F(ExtensionsTest, WhatAWindowPostsAfterItsExtensionIsDeletedGoesNowhere) {
  IHostApp* host = nullptr;
  onCommand = [&](IHostApp& hostOfCommand, s32 number) {
    if (number == kCommandMultiRename) host = &hostOfCommand;
    return 0;
  };
  Extensions extensions(shared_, exports_);
  extensions.Start();
  extensions.RunCommand(kCommandMultiRename);
  extensions.Stop();
  calls.clear();
  ASSERT_NE(host, nullptr);
  host->PostCommand(kCommandReadSelection, 0, 0);
  extensions.RunCommand(kCommandMultiRename);
  EXPECT_THAT(calls, IsEmpty());
}

}  // namespace
}  // namespace QxHost
