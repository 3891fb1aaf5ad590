// The life cycle of MultiRename's window: its start, and its end by the user and by the host in either order,
// while the worker is idle, previews or runs. Runs under the thread sanitizer too.
#include <gmock/gmock.h>

#include "frame/host/command_numbers.h"
#include "multirename/form/frame_form.h"
#include "multirename/form/panel_controls.h"
#include "multirename/form/rename_texts.h"
#include "multirename/window_test.h"
#include "platform/posix/files/faults.h"
#include "platform/posix/user_interface.h"
#include "platform/windows_api.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Blocks the window's thread inside the host's question for a text, until `answer` is released.
class QuestionGate {
 public:
  // Calls `then` before the question returns.
  explicit QuestionGate(
      WindowHost& host, std::function<void()> then = [] {}) {
    host.atAskText = [this, then] {
      inQuestion.Release();
      answer.Acquire();
      then();
    };
  }
  Semaphore inQuestion;
  Semaphore answer;
};

// Calls `choose` for each menu, on the window's thread.
class MenuUser final : public UndrawnUser {
 public:
  explicit MenuUser(std::function<int(const MenuLines&)> choose) : choose_(std::move(choose)) {
    InstallUndrawnUser(this);
  }
  ~MenuUser() override { InstallUndrawnUser(nullptr); }
  int ChooseLine(const MenuLines& lines) override { return choose_(lines); }
  void UseDialog(int, DialogForm&, UndrawnDialog&) override {}

 private:
  std::function<int(const MenuLines&)> choose_;
};

class WindowLife : public WindowTest {
 protected:
  // Closes the window as its user; the host follows.
  void CloseByUser() {
    Do([](UndrawnParts& parts) { parts.Press(kCloseButton); });
    window_->WaitForClose();
    Serve(kCommandShutdown);
  }

  // Opens a window whose worker waits at the gate in the middle of a preview.
  void OpenInPreview(GateProperties& gate, const std::vector<WString>& names) {
    host_.manager = &gate;
    Open(names);
    Do([](UndrawnParts& parts) { parts.Type(kNameTemplate, W("x[?p]")); });
    gate.entered.Acquire();
  }

  // Starts a run that waits at the gate.
  void StartRun(RunGate& gate) {
    Do([](UndrawnParts& parts) { parts.Type(kNameTemplate, W("x[C]")); });
    Settle();
    Do([](UndrawnParts& parts) { parts.Press(kStartButton); });
    gate.inRun.Acquire();
  }

  // Opens the question for the name of a new profile, and returns when the host asks it.
  void OpenQuestion(Semaphore& inQuestion) {
    window_->Post([](UndrawnParts& parts) { parts.Choose(kProfileBox, 1); });
    inQuestion.Acquire();
  }
};

TEST_F(WindowLife, TheCommandOpensAWindowWithTheSelectedRows) {
  Open({W("a.t"), W("b.t")});
  EXPECT_THAT(Shown(), ElementsAre(W("a.t"), W("b.t")));
  Do([](UndrawnParts& parts) {
    EXPECT_EQ(parts.title, W("T000A0063"));
    EXPECT_EQ(parts.context.imageSet, 5u);
    EXPECT_EQ(parts.panes.count(0), 1u);
  });
  const PaintedContainer& container = host_.controls.at(0);
  EXPECT_NE(container.docked, nullptr);
  EXPECT_THAT(container.list.headings, ElementsAre(W("T00960064"), W("T00970064")));
  EXPECT_EQ(container.list.rowHeight, 16u);
}

TEST_F(WindowLife, AnEmptySelectionOpensAWindowAsWell) {
  Open({});
  EXPECT_EQ(RowCount(), 0u);
}

TEST_F(WindowLife, AWindowHasALivePreview) {
  Open({W("a.t"), W("b.t")});
  Do([](UndrawnParts& parts) { parts.Type(kNameTemplate, W("x[C]")); });
  Settle();
  EXPECT_THAT(Shown(), ElementsAre(W("x01.t"), W("x02.t")));
}

TEST_F(WindowLife, ThereIsNeverASecondWindow) {
  Open({W("a.t")});
  EXPECT_EQ(Plugin().OnCommand(kCommandMultiRename, 0, 0), 1);
  EXPECT_EQ(host_.containers, 1);
  EXPECT_EQ(UndrawnWindow::Current(), window_);
}

TEST_F(WindowLife, ASecondCommandEmptiesTheListAndAddsNoRowsUntilReset) {
  Open({W("a.t")});
  Select({W("c.t"), W("d.t")});
  EXPECT_EQ(Plugin().OnCommand(kCommandMultiRename, 0, 0), 1);
  Settle();
  EXPECT_EQ(RowCount(), 0u);
  window_->Post([](UndrawnParts& parts) { parts.Press(kResetButton); });
  Serve(kCommandReadSelection);
  Settle();
  EXPECT_THAT(Shown(), ElementsAre(W("c.t"), W("d.t")));
}

TEST_F(WindowLife, ItemsLiveUntilTheListIsEmptyAndTheWorkerIsThroughWithThem) {
  GateProperties gate;
  OpenInPreview(gate, {W("a.t"), W("b.t"), W("c.t")});
  for (int round = 0; round < 3; ++round) EXPECT_EQ(Plugin().OnCommand(kCommandMultiRename, 0, 0), 1);
  gate.isOpen = true;
  gate.gate.Release();
  Settle();
  EXPECT_EQ(RowCount(), 0u);
}

TEST_F(WindowLife, Command32000ReadsTheSelectionAndSetsItsEventWithAWindowAndWithout) {
  const FileHandle event(CreateEventW(nullptr, FALSE, FALSE, nullptr));
  const auto number = reinterpret_cast<std::intptr_t>(event.Get());
  EXPECT_EQ(Plugin().OnCommand(kCommandReadSelection, 0, number), 1);
  EXPECT_EQ(WaitForSingleObject(event.Get(), 0), WAIT_OBJECT_0);
  Open({W("a.t")});
  Select({W("c.t")});
  EXPECT_EQ(Plugin().OnCommand(kCommandReadSelection, 0, number), 1);
  EXPECT_EQ(WaitForSingleObject(event.Get(), 0), WAIT_OBJECT_0);
  Do([](UndrawnParts& parts) { EXPECT_EQ(parts.context.rows.Get()->front().oldName, W("c.t")); });
}

TEST_F(WindowLife, UnknownCommandsAnd20500DoNothingWithAWindow) {
  Open({W("a.t")});
  for (const s32 number : {0, 1, 20500, 30000, 30999, 31001, 32001, -1})
    EXPECT_EQ(Plugin().OnCommand(number, 0, 0), 0) << number;
  EXPECT_EQ(RowCount(), 1u);
}

// Events of the host.

TEST_F(WindowLife, AnEventOnAnotherThreadChangesNothing) {
  Open({W("a.t"), W("b.t")});
  Do([this](UndrawnParts& parts) {
    parts.panes[0] = W("as it was");
    host_.controls[0].list.selected = {0};
  });
  EXPECT_FALSE(Plugin().OnHostEvent(77, kEventSelectionChanged));
  EXPECT_FALSE(Plugin().OnHostEvent(0, 1));
  std::thread([this] { EXPECT_FALSE(Plugin().OnHostEvent(77, kEventSelectionChanged)); }).join();
  Do([](UndrawnParts& parts) { EXPECT_EQ(parts.panes[0], W("as it was")); });
}

TEST_F(WindowLife, AChangeOfTheSelectionShowsTheCounts) {
  host_.texts[kRenameTextSelectedRows] = W("%d of which %d");
  Open({W("a.t"), W("b.t")});
  Do([this](UndrawnParts& parts) {
    host_.controls[0].list.selected = {0};
    EXPECT_TRUE(Plugin().OnHostEvent(78, kEventSelectionChanged));  // another list
    EXPECT_NE(parts.panes[0], W("2 of which 1"));
    EXPECT_TRUE(Plugin().OnHostEvent(77, kEventSelectionChanged));
    EXPECT_EQ(parts.panes[0], W("2 of which 1"));
    EXPECT_TRUE(Plugin().OnHostEvent(77, 4711));
  });
}

TEST_F(WindowLife, NoEventIsTakenOnceTheWindowHasClosed) {
  Open({W("a.t")});
  Do([this](UndrawnParts& parts) {
    parts.Press(kCloseButton);
    EXPECT_TRUE(Plugin().OnHostEvent(77, kEventSelectionChanged));
  });
  window_->WaitForClose();
  Serve(kCommandShutdown);
  EXPECT_FALSE(Plugin().OnHostEvent(77, kEventSelectionChanged));
}

// Messages of the thread.

TEST_F(WindowLife, AThreadMessage32810IsACommandWithItsSecondArgument) {
  Open({W("a.t")});
  const FileHandle event(CreateEventW(nullptr, FALSE, FALSE, nullptr));
  Do([&](UndrawnParts&) {
    PostThreadMessageW(GetCurrentThreadId(), 32810, kCommandReadSelection,
                       reinterpret_cast<LPARAM>(event.Get()));
  });
  EXPECT_EQ(WaitForSingleObject(event.Get(), kWaitLimit), WAIT_OBJECT_0);
}

TEST_F(WindowLife, AShutdownOnTheWindowsOwnThreadReturnsAtOnceAndClosesNothing) {
  Open({W("a.t")});
  Do([this](UndrawnParts&) { EXPECT_EQ(Plugin().OnCommand(kCommandShutdown, 0, 0), 0); });
  EXPECT_EQ(host_.closed, 0);
  EXPECT_EQ(RowCount(), 1u);
}

TEST_F(WindowLife, ATimerOfTheThreadIsDroppedAndAnyOtherMessageIsDispatched) {
  Open({W("a.t")});
  const Platform::Faults::Scope faults;
  const auto dispatched = [this](UINT message) {
    Do([message](UndrawnParts&) {
      PostThreadMessageW(GetCurrentThreadId(), message, 0, 0);
      Platform::Faults::Watch("DispatchMessageW");
    });
    int count = 0;
    Do([&](UndrawnParts&) { count = Platform::Faults::CallCount("DispatchMessageW"); });
    Platform::Faults::Clear();
    return count - 1;  // without the message that reads the count
  };
  EXPECT_EQ(dispatched(WM_TIMER), 0);
  EXPECT_EQ(dispatched(WM_TIMER + 1), 1);
}

TEST_F(WindowLife, ACommandOfTheThreadThatFailsInTheHostIsPassedOver) {
  Open({W("a.t")});
  host_.throwsAtSelection = true;
  Do([](UndrawnParts&) { PostThreadMessageW(GetCurrentThreadId(), 32810, kCommandReadSelection, 0); });
  Do([](UndrawnParts&) {});
  host_.throwsAtSelection = false;
  EXPECT_EQ(RowCount(), 1u);
}

TEST_F(WindowLife, AnExceptionOfTheListInTheLoopClosesTheWindowInOrder) {
  Open({W("a.t")});
  Do([this](UndrawnParts& parts) {
    host_.controls[0].list.atMessage = [] { throw std::runtime_error("the host fails"); };
    PostMessageW(parts.controls.Window(), WM_APP, 0, 0);
  });
  window_->WaitForClose();
  EXPECT_EQ(host_.controlsOut, 0);
  Serve(kCommandShutdown);
  EXPECT_EQ(host_.closed, 1);
}

TEST_F(WindowLife, TheListSeesTheMessagesOfTheLoop) {
  Open({W("a.t")});
  const int before = host_.controls[0].list.filtered;
  Do([](UndrawnParts& parts) { PostMessageW(parts.controls.Window(), WM_APP, 0, 0); });
  Do([](UndrawnParts&) {});
  Do([&](UndrawnParts&) { EXPECT_GT(host_.controls[0].list.filtered, before); });
}

TEST_F(WindowLife, TheContextMenuOfTheListMovesRows) {
  MenuUser user([](const MenuLines& lines) {
    EXPECT_EQ(lines.size(), 4u);
    return 13;
  });
  Open({W("a.t")});
  Do([this](UndrawnParts&) {
    ListContextMenu place{nullptr, 1, 2};
    IEventCallback& callback = *host_.controls[0].list.contextMenu;
    EXPECT_EQ(callback.OnEvent(2, &place), 0);
    EXPECT_EQ(callback.OnEvent(1, &place), 1);
  });
  Do([this](UndrawnParts&) { EXPECT_THAT(host_.controls[0].list.moves, ElementsAre("bottom")); });
}

TEST_F(WindowLife, ACloseDuringTheListsMenuDestroysTheListAfterItsCallbackHasReturned) {
  MenuUser user([](const MenuLines&) {
    EXPECT_TRUE(UndrawnWindow::TakeMessages());
    return 0;
  });
  Open({W("a.t")});
  bool wasThere = false;
  Do([&](UndrawnParts& parts) {
    host_.controls[0].list.atMessage = [&] {
      ListContextMenu place{nullptr, 1, 2};
      host_.controls[0].list.contextMenu->OnEvent(1, &place);
      wasThere = !host_.controls[0].list.wasReleased;
    };
    PostMessageW(parts.controls.Window(), WM_APP, 0, 0);
    parts.frame.PostClose();
  });
  window_->WaitForClose();
  EXPECT_TRUE(wasThere);
  Serve(kCommandShutdown);
}

// Closed by the user.

TEST_F(WindowLife, CloseNotifiesTheHostWhichFollowsWith20002) {
  Open({W("a.t")});
  Do([](UndrawnParts& parts) { parts.Press(kCloseButton); });
  window_->WaitForClose();
  EXPECT_EQ(UndrawnWindow::Current(), nullptr);
  EXPECT_EQ(host_.closed, 0);
  Serve(kCommandShutdown);
  EXPECT_EQ(host_.closed, 1);
  EXPECT_EQ(host_.controlsOut, 0);
  EXPECT_TRUE(host_.controls[0].list.wasReleased);
  EXPECT_THAT(host_.WaitingCommands(), IsEmpty());
  Delete();
}

TEST_F(WindowLife, EscAsksAndYesCloses) {
  struct Answers final : Platform::UserInterface {
    int MessageBox(const WCHAR* text, const WCHAR*, UINT) override {
      EXPECT_EQ(WString(text), W("T000A0064"));
      return answer;
    }
    INT_PTR Dialog(Platform::FormRequest&) override { return IDCANCEL; }
    INT_PTR ShellExecute(const WCHAR*, const WCHAR*, const WCHAR*, int) override { return 0; }
    std::atomic<int> answer{IDNO};
  } answers;
  Platform::UserInterface* const before = Platform::InstallUserInterface(&answers);
  Open({W("a.t")});
  Do([](UndrawnParts& parts) { parts.frame.PressEscape(); });
  Settle();
  EXPECT_EQ(RowCount(), 1u);
  answers.answer = IDYES;
  window_->Post([](UndrawnParts& parts) { parts.frame.PressEscape(); });
  window_->WaitForClose();
  Serve(kCommandShutdown);
  EXPECT_EQ(host_.closed, 1);
  Platform::InstallUserInterface(before);
}

// Previews are computed only in a window that the host has opened on a new object.
TEST_F(WindowLife, AWindowThatIsReopenedOnTheSameObjectShowsItsRowsAndHasNoPreviewAndNoRuns) {
  Open({W("a.t")});
  CloseByUser();
  Select({W("c.t"), W("d.t")});
  ASSERT_EQ(Plugin().OnCommand(kCommandMultiRename, 0, 0), 1);
  window_ = UndrawnWindow::Current();
  ASSERT_NE(window_, nullptr);
  Do([](UndrawnParts& parts) {
    EXPECT_TRUE(parts.context.engine.worker.WaitForEnd(kWaitLimit));
    parts.Type(kNameTemplate, W("x[C]"));
    UndrawnWindow::TakeMessages();
    parts.Press(kStartButton);
    UndrawnWindow::TakeMessages();
    parts.frame.List().Refresh();
    EXPECT_TRUE(parts.controls[kStartButton].isEnabled);
  });
  EXPECT_THAT(Shown(), ElementsAre(W("c.t"), W("d.t")));
  EXPECT_THAT(host_.renames.itemRenames, IsEmpty());
  CloseByUser();
  EXPECT_EQ(host_.closed, 2);
}

TEST_F(WindowLife, ANewObjectHasAPreviewAgain) {
  Open({W("a.t")});
  CloseAll();
  extension_ = std::make_unique<QXMultiRename>();
  Plugin().OnStart(&host_);
  Open({W("c.t")});
  Do([](UndrawnParts& parts) { parts.Type(kNameTemplate, W("x")); });
  Settle();
  EXPECT_THAT(Shown(), ElementsAre(W("x.t")));
}

// Closed by the host.

TEST_F(WindowLife, AShutdownClosesTheWindowAndTheHostIsNotAskedASecondTime) {
  Open({W("a.t")});
  EXPECT_EQ(Plugin().OnShutdown(0), 0);
  EXPECT_EQ(UndrawnWindow::Current(), nullptr);
  EXPECT_EQ(host_.closed, 1);
  EXPECT_THAT(host_.WaitingCommands(), IsEmpty());
  EXPECT_EQ(host_.controlsOut, 0);
  Delete();
}

TEST_F(WindowLife, AShutdownWithoutAWindowOnlyNotifiesTheHost) {
  EXPECT_EQ(Plugin().OnCommand(kCommandShutdown, 0, 5), 0);
  EXPECT_EQ(host_.closed, 1);
}

TEST_F(WindowLife, AShutdownAndThe20002OfACloseMayCoincide) {
  for (int round = 0; round < 20; ++round) {
    Open({W("a.t")});
    window_->Post([](UndrawnParts& parts) { parts.Press(kCloseButton); });
    EXPECT_EQ(Plugin().OnShutdown(0), 0);
    EXPECT_EQ(UndrawnWindow::Current(), nullptr);
    // If the window closed first, the host is sent another shutdown command.
    while (!host_.WaitingCommands().empty()) Serve(kCommandShutdown);
  }
}

TEST_F(WindowLife, AWindowAfterAShutdownNotifiesTheHostOfItsClose) {
  Open({W("a.t")});
  Plugin().OnShutdown(0);
  Open({W("c.t")});
  CloseByUser();
  EXPECT_EQ(host_.closed, 2);
}

TEST_F(WindowLife, ADeleteWithoutAShutdownClosesTheWindow) {
  Open({W("a.t")});
  Delete();
  EXPECT_EQ(UndrawnWindow::Current(), nullptr);
  EXPECT_EQ(host_.closed, 0);
}

// Closed during an operation.

TEST_F(WindowLife, AResetEndsWhenTheHostShutsDownMeanwhile) {
  Open({W("a.t")});
  window_->Post([](UndrawnParts& parts) { parts.Press(kResetButton); });
  const std::optional<WindowHost::Command> reset = host_.TakeCommand();
  ASSERT_TRUE(reset.has_value());
  EXPECT_EQ(reset->number, kCommandReadSelection);
  EXPECT_EQ(Plugin().OnShutdown(0), 0);
  EXPECT_EQ(UndrawnWindow::Current(), nullptr);
  // The event is left to the host, which may run the command late.
  EXPECT_EQ(Plugin().OnCommand(kCommandReadSelection, 0, reset->b), 1);
  EXPECT_EQ(WaitForSingleObject(reinterpret_cast<HANDLE>(reset->b), 0), WAIT_OBJECT_0);
  CloseHandle(reinterpret_cast<HANDLE>(reset->b));
}

TEST_F(WindowLife, ACloseInAPreviewStopsIt) {
  GateProperties gate;
  OpenInPreview(gate, {W("a.t"), W("b.t")});
  const RenameWorker* worker = nullptr;
  Do([&](UndrawnParts& parts) {
    worker = &parts.context.engine.worker;
    parts.Press(kCloseButton);
  });
  while (!worker->IsStopping()) std::this_thread::yield();
  gate.isOpen = true;
  gate.gate.Release();
  window_->WaitForClose();
  EXPECT_EQ(gate.requests, 1);
  Serve(kCommandShutdown);
}

TEST_F(WindowLife, ACloseInARunWaitsForItsEnd) {
  RunGate gate(host_);
  Open({W("a.t"), W("b.t")});
  StartRun(gate);
  Do([](UndrawnParts& parts) {
    EXPECT_FALSE(parts.controls[kCloseButton].isEnabled);
    parts.frame.PostClose();
  });
  EXPECT_EQ(host_.controlsOut, 2);
  gate.go.Release();
  window_->WaitForClose();
  EXPECT_EQ(host_.renames.itemRenames.size(), 2u);
  Serve(kCommandShutdown);
  EXPECT_EQ(scratch_.Names(W("Undo")).size(), 1u);
}

TEST_F(WindowLife, AShutdownInARunNotifiesTheHostAfterItsWaitAndFreesNothingThatIsInUse) {
  RunGate gate(host_);
  Open({W("a.t"), W("b.t")});
  extension_->waits.shutdown = 20;
  StartRun(gate);
  EXPECT_EQ(Plugin().OnShutdown(0), 0);
  EXPECT_EQ(host_.closed, 1);
  MultiRenameCloser{20}(extension_.get());
  // The object still exists: the run finishes, then the window closes and the thread ends.
  gate.go.Release();
  window_->WaitForClose();
  EXPECT_EQ(host_.renames.itemRenames.size(), 2u);
  EXPECT_TRUE(extension_->WaitForWindow(kWaitLimit));
  EXPECT_THAT(host_.WaitingCommands(), IsEmpty());
}

TEST_F(WindowLife, ADeleteWhileTheThreadHangsInABoxOfTheHostFreesNothingThatIsInUseAndKeepsTheModule) {
  const Platform::Faults::Scope faults;
  Platform::Faults::Watch("GetModuleHandleExW");
  QuestionGate gate(host_);
  Open({W("a.t")});
  extension_->waits.shutdown = 20;
  OpenQuestion(gate.inQuestion);
  EXPECT_EQ(Plugin().OnShutdown(0), 0);
  EXPECT_EQ(host_.closed, 1);
  EXPECT_EQ(Platform::Faults::CallCount("GetModuleHandleExW"), 0);
  MultiRenameCloser{20}(extension_.get());
  EXPECT_EQ(Platform::Faults::CallCount("GetModuleHandleExW"), 1);
  gate.answer.Release();
  window_->WaitForClose();
  EXPECT_TRUE(extension_->WaitForWindow(kWaitLimit));
  EXPECT_THAT(host_.WaitingCommands(), IsEmpty());
}

TEST_F(WindowLife, ACommandAfterAShutdownThatDidNotEndTheThreadOpensAWindowOnceItHasEnded) {
  QuestionGate gate(host_);
  Open({W("a.t")});
  extension_->waits.shutdown = 20;
  OpenQuestion(gate.inQuestion);
  Plugin().OnShutdown(0);
  EXPECT_EQ(Plugin().OnCommand(kCommandMultiRename, 0, 0), 1);
  EXPECT_EQ(host_.containers, 1);
  gate.answer.Release();
  window_->WaitForClose();
  extension_->waits.shutdown = kWaitLimit;
  ASSERT_TRUE(extension_->WaitForWindow(kWaitLimit));
  Open({W("c.t")});
  EXPECT_EQ(host_.containers, 2);
  EXPECT_THAT(Shown(), ElementsAre(W("c.t")));
}

TEST_F(WindowLife, ACloseInABoxIsDoneOnceTheBoxHasReturned) {
  bool wasOpen = false;
  QuestionGate gate(host_, [&] {
    EXPECT_TRUE(UndrawnWindow::TakeMessages());
    wasOpen = UndrawnWindow::Current() != nullptr && host_.controlsOut == 2;
  });
  Open({W("a.t")});
  window_->Post([](UndrawnParts& parts) {
    parts.Choose(kProfileBox, 1);
    parts.controls[kNameTemplate].text += W(" ");  // the form still exists
  });
  gate.inQuestion.Acquire();
  window_->Post([](UndrawnParts& parts) { parts.frame.PostClose(); });
  gate.answer.Release();
  window_->WaitForClose();
  EXPECT_TRUE(wasOpen);
  Serve(kCommandShutdown);
}

TEST_F(WindowLife, AShutdownEndsABoxThatTakesMessages) {
  Semaphore inQuestion;
  host_.atAskText = [&] {
    inQuestion.Release();
    while (UndrawnWindow::TakeMessages()) Sleep(1);
  };
  Open({W("a.t")});
  OpenQuestion(inQuestion);
  EXPECT_EQ(Plugin().OnShutdown(0), 0);
  EXPECT_EQ(UndrawnWindow::Current(), nullptr);
  EXPECT_EQ(host_.controlsOut, 0);
}

}  // namespace
}  // namespace Velmora::SDK
