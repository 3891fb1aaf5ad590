// Starts of MultiRename's window that fail, are slow, or are overtaken by other commands. Runs under the
// thread sanitizer too.
#include <gmock/gmock.h>

#include "frame/host/command_numbers.h"
#include "multirename/form/frame_form.h"
#include "multirename/form/panel_controls.h"
#include "multirename/window/message_loops.h"
#include "multirename/window_test.h"
#include "platform/posix/files/faults.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class WindowStart : public WindowTest {
 protected:
  // Runs a command that must fail without leaving anything, and then one that must open a window.
  void ExpectAFailureAndThenAWindow(int containers) {
    Select({W("a.t")});
    EXPECT_EQ(Plugin().OnCommand(kCommandMultiRename, 0, 0), 0);
    EXPECT_EQ(UndrawnWindow::Current(), nullptr);
    EXPECT_EQ(host_.containers, containers);
    EXPECT_EQ(host_.controlsOut, 0);
    EXPECT_EQ(host_.closed, 0);
    EXPECT_THAT(host_.WaitingCommands(), IsEmpty());
    Platform::Faults::Clear();
    host_.hasContainers = host_.hasLists = true;
    Open({W("b.t")});
    EXPECT_THAT(Shown(), ElementsAre(W("b.t")));
    Do([](UndrawnParts& parts) { parts.Type(kNameTemplate, W("x")); });
    Settle();
    EXPECT_THAT(Shown(), ElementsAre(W("x.t")));
  }

  const Platform::Faults::Scope faults_;
};

TEST_F(WindowStart, WithoutAContainerThereIsNoHalfWindowAndTheNextCommandTriesAgain) {
  host_.hasContainers = false;
  ExpectAFailureAndThenAWindow(1);
}

TEST_F(WindowStart, WithoutAListThereIsNoHalfWindowAndTheNextCommandTriesAgain) {
  host_.hasLists = false;
  ExpectAFailureAndThenAWindow(1);
}

TEST_F(WindowStart, WithoutAThreadForTheWorkerThereIsNoWindowAndTheNextCommandTriesAgain) {
  Platform::Faults::Fail("CreateThread", 1, ERROR_NOT_ENOUGH_MEMORY);
  ExpectAFailureAndThenAWindow(0);
}

TEST_F(WindowStart, WithoutAThreadForTheWindowThereIsNoWindowAndTheNextCommandTriesAgain) {
  Platform::Faults::Fail("CreateThread", 2, ERROR_NOT_ENOUGH_MEMORY);
  ExpectAFailureAndThenAWindow(0);
}

TEST_F(WindowStart, WithoutEventsForTheWorkerThereIsNoWindowAndTheNextCommandTriesAgain) {
  Platform::Faults::Fail("CreateEventW", 1, ERROR_NOT_ENOUGH_MEMORY);
  ExpectAFailureAndThenAWindow(0);
}

TEST_F(WindowStart, AnExceptionOfTheHostLeavesNoHalfWindow) {
  host_.beforeContainer = [] { throw std::bad_alloc(); };
  Select({W("a.t")});
  EXPECT_EQ(Plugin().OnCommand(kCommandMultiRename, 0, 0), 0);
  host_.beforeContainer = nullptr;
  Open({W("b.t")});
}

TEST_F(WindowStart, AFailureThatNobodyWaitsForAnyMoreHasTheHostShutDown) {
  extension_->waits.start = 20;
  Semaphore made;
  host_.hasContainers = false;
  host_.beforeContainer = [&] { made.Acquire(); };
  Select({W("a.t")});
  EXPECT_EQ(Plugin().OnCommand(kCommandMultiRename, 0, 0), 1);
  made.Release();
  Serve(kCommandShutdown);
  EXPECT_EQ(host_.closed, 1);
  host_.hasContainers = true;
  host_.beforeContainer = nullptr;
  extension_->waits.start = kWaitLimit;
  Open({W("b.t")});
}

TEST_F(WindowStart, AWindowThatComesLateIsAWindow) {
  extension_->waits.start = 20;
  Semaphore asked;
  Semaphore made;
  host_.beforeContainer = [&] {
    asked.Release();
    made.Acquire();
  };
  Select({W("a.t")});
  EXPECT_EQ(Plugin().OnCommand(kCommandMultiRename, 0, 0), 1);
  EXPECT_EQ(UndrawnWindow::Current(), nullptr);
  EXPECT_FALSE(Plugin().OnHostEvent(77, kEventSelectionChanged));
  asked.Acquire();
  // The window shows the rows of a selection that arrives in the meantime.
  Select({W("b.t"), W("c.t")});
  EXPECT_EQ(Plugin().OnCommand(kCommandMultiRename, 0, 0), 1);
  made.Release();
  while (!(window_ = UndrawnWindow::Current())) Sleep(1);
  Settle();
  EXPECT_THAT(Shown(), ElementsAre(W("b.t"), W("c.t")));
  EXPECT_EQ(host_.containers, 1);
}

TEST_F(WindowStart, AWindowThatIsStillBeingMadeAtTheShutdownClosesAsSoonAsItIsThere) {
  extension_->waits = {20, 20};
  Semaphore asked;
  Semaphore made;
  host_.beforeContainer = [&] {
    asked.Release();
    made.Acquire();
    UndrawnWindow::TakeMessages();  // like a host that takes messages while it creates controls
  };
  Select({W("a.t")});
  EXPECT_EQ(Plugin().OnCommand(kCommandMultiRename, 0, 0), 1);
  asked.Acquire();
  EXPECT_EQ(Plugin().OnShutdown(0), 0);
  EXPECT_EQ(host_.closed, 1);
  made.Release();
  EXPECT_TRUE(extension_->WaitForWindow(kWaitLimit));
  EXPECT_EQ(UndrawnWindow::Current(), nullptr);
  EXPECT_EQ(host_.controlsOut, 0);
  EXPECT_THAT(host_.WaitingCommands(), IsEmpty());
}

TEST_F(WindowStart, AShutdownBeforeTheThreadHasAQueueIsNotLost) {
  extension_->waits = {0, kWaitLimit};
  for (int round = 0; round < 50; ++round) {
    Select({W("a.t")});
    ASSERT_EQ(Plugin().OnCommand(kCommandMultiRename, 0, 0), 1);
    EXPECT_EQ(Plugin().OnShutdown(0), 0);
    EXPECT_EQ(UndrawnWindow::Current(), nullptr);
    EXPECT_EQ(host_.controlsOut, 0);
    EXPECT_THAT(host_.WaitingCommands(), IsEmpty());
  }
}

TEST_F(WindowStart, TheThreadGivesUpItsTimeOnceAndItsLoopIsInTheTable) {
  Platform::Faults::Watch("SwitchToThread");
  Open({W("a.t")});
  EXPECT_EQ(Platform::Faults::CallCount("SwitchToThread"), 1);
  DWORD thread = 0;
  Do([&](UndrawnParts&) { thread = GetCurrentThreadId(); });
  EXPECT_NE(MessageLoops::Instance().Find(thread), nullptr);
  CloseAll();
  EXPECT_EQ(MessageLoops::Instance().Find(thread), nullptr);
}

TEST_F(WindowStart, AFailureToGetAMessageIsPassedOver) {
  Open({W("a.t")});
  Platform::Faults::Fail("GetMessageW", 1, ERROR_INVALID_PARAMETER);
  Settle();
  Settle();
  EXPECT_GE(Platform::Faults::CallCount("GetMessageW"), 2);
  EXPECT_EQ(RowCount(), 1u);
}

// A full message queue loses the messages that close a window.
TEST_F(WindowStart, AShutdownWhoseCloseIsLostClosesTheWindowAfterItsLoop) {
  Open({W("a.t")});
  Platform::Faults::Fail("PostMessageW", 1, 1816, true);
  EXPECT_EQ(Plugin().OnShutdown(0), 0);
  EXPECT_EQ(UndrawnWindow::Current(), nullptr);
  EXPECT_EQ(host_.controlsOut, 0);
  EXPECT_TRUE(host_.controls[0].list.wasReleased);
}

TEST_F(WindowStart, AShutdownWhoseQuitIsLostEndsTheThreadWithItsWindow) {
  Open({W("a.t")});
  Platform::Faults::Fail("PostThreadMessageW", 1, 1816, true);
  EXPECT_EQ(Plugin().OnShutdown(0), 0);
  EXPECT_EQ(UndrawnWindow::Current(), nullptr);
  EXPECT_EQ(host_.closed, 1);
}

// The window continues to use the profiles of the first OnStart.
TEST_F(WindowStart, ASecondOnStartChangesNothing) {
  const auto saveAs = [this](const WString& name) {
    host_.textAnswers.push_back({true, name});
    Do([](UndrawnParts& parts) { parts.Choose(kProfileBox, 1); });
  };
  const auto lines = [this] {
    std::vector<WString> shown;
    Do([&](UndrawnParts& parts) { shown = parts.controls[kProfileBox].lines; });
    return shown;
  };
  Open({W("a.t")});
  const std::vector<WString> standard = lines();
  ASSERT_EQ(standard.size(), 2u);
  saveAs(W("one"));
  host_.files.saved.clear();  // so that loading again would find nothing
  EXPECT_EQ(Plugin().OnStart(&host_), 1);
  saveAs(W("two"));
  EXPECT_THAT(lines(), ElementsAre(standard[0], standard[1], W("one"), W("two")));
  Do([](UndrawnParts& parts) {
    EXPECT_EQ(parts.context.profiles.profiles.size(), 2u);
    parts.Choose(kProfileBox, 2);
    EXPECT_EQ(parts.panel.ProfileName(), W("one"));
  });
  EXPECT_EQ(Plugin().OnCommand(kCommandMultiRename, 0, 0), 1);
  Settle();
}

}  // namespace
}  // namespace Velmora::SDK
