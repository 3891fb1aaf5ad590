// The panel and the worker: previews, Start, Undo, Reset File List, loaded undo sessions, and what happens
// when they meet. Runs under thread checks as well.
#include <gmock/gmock.h>

#include "multirename/bare_file_item.h"
#include "multirename/gate_properties.h"
#include "multirename/panel_window.h"
#include "multirename/undo_manager_form.h"
#include "support/semaphore.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ThrowingItem final : public BareFileItem {
 public:
  void GetTagText(WCHAR*, u32) override { throw std::runtime_error("the host fails"); }
};

// Stops the run in the host until it is let go.
class RunGate {
 public:
  explicit RunGate(PanelHost& host) {
    host.renames.atRun = [this] {
      inRun.Release();
      go.Acquire();
    };
  }
  Semaphore inRun;
  Semaphore go;
};

class PanelRuns : public PanelTest {
 protected:
  // Lets a run of the templates go through.
  void Run(const WString& nameTemplate) {
    Type(1034, nameTemplate);
    Settle();
    form.Press(1003);
    Settle();
  }

  // Plays a person who loads the session of a row in the undo manager.
  void LoadSessionOfRow(int row) {
    view.user = [row](DialogForm& dialogForm, DialogWindow&) {
      dialogForm.ClickRow(1053, row);
      dialogForm.Press(1);
    };
    form.Press(1049);
  }

  // A file of a session in the undo folder.
  void KeepSession(WORD day, const std::vector<MultiRenameUndoEntry>& entries) {
    MultiRenameUndo session;
    session.date = {2026, 3, 0, day, 12, 0, 0, 0};
    session.entries = entries;
    engine_->undoStore.Save(session);
  }

  bool IsClosed(int control) { return !view.IsEnabled(control); }
};

// Previews.

TEST_F(PanelRuns, ManyChangesArePreviewedToTheLast) {
  Open({W("a.t"), W("b.t")});
  for (int key = 0; key < 50; ++key) Type(1034, FromUtf8("k" + std::to_string(key) + "[C]"));
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("k4901.t"), W("k4902.t")));
}

TEST_F(PanelRuns, WithoutLivePreviewAChangeComputesNothing) {
  Open({W("a.t")});
  Check(1004, false);
  Type(1034, W("x"));
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("a.t")));
  Check(1004, true);
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("x.t")));
}

TEST_F(PanelRuns, ABadExpressionLeavesThePreviewAndShowsItsMessage) {
  Open({W("a.t")});
  Type(1034, W("x"));
  Settle();
  view[1020].text = W("(");
  form.Press(1119);
  Settle();
  EXPECT_EQ(frameView.panes[1], W(""));
  Type(1034, W("y"));
  Check(1039, true);
  EXPECT_NE(frameView.panes[1], W(""));
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("x.t")));
  Check(1039, false);
  EXPECT_EQ(frameView.panes[1], W(""));
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("y.t")));
}

TEST_F(PanelRuns, CountersFollowTheRowsOfTheScreenAtTheNextChange) {
  Open({W("a.t"), W("b.t")});
  Type(1034, W("[C]"));
  Settle();
  std::swap(list.rows[0], list.rows[1]);
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("02.t"), W("01.t")));  // moving alone previews nothing
  Type(1034, W("x[C]"));
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("x01.t"), W("x02.t")));
}

TEST_F(PanelRuns, ComputedRowsRefreshTheListAndAFinishedPreviewDoesNothing) {
  Open({W("a.t")});
  list.calls.clear();
  EXPECT_TRUE(form.OnMessage(33768, 0, 0));
  EXPECT_THAT(list.calls, ElementsAre("refresh"));
  frameView.panes.clear();
  view[1003].isEnabled = false;
  EXPECT_TRUE(form.OnMessage(33868, 1, 0));
  EXPECT_THAT(list.calls, ElementsAre("refresh"));
  EXPECT_TRUE(frameView.panes.empty());
  EXPECT_TRUE(IsClosed(1003));
  EXPECT_FALSE(form.UndoAvailable());
}

TEST_F(PanelRuns, WithoutAListTheMessagesOfTheWorkerDoNothing) {
  frame.Close();
  EXPECT_TRUE(form.OnMessage(33768, 0, 0));
  EXPECT_TRUE(form.OnMessage(33868, 2, 0));
  EXPECT_THAT(list.calls, IsEmpty());
}

// Start.

TEST_F(PanelRuns, StartRenamesAndDisablesTheControlsUntilItsEnd) {
  Open({W("a.t"), W("b.t")});
  Type(1034, W("x[C]"));
  Settle();
  RunGate gate(host_);
  form.Press(1003);
  gate.inRun.Acquire();
  for (const int control : {1003, 1034, 1041, 1049, 1071, 1040}) EXPECT_TRUE(IsClosed(control)) << control;
  gate.go.Release();
  Settle();
  EXPECT_THAT(States(), ElementsAre(6u, 6u));
  EXPECT_TRUE(form.UndoAvailable());
  for (const int control : {1003, 1034, 1041, 1049, 1071, 1040}) EXPECT_FALSE(IsClosed(control)) << control;
  EXPECT_EQ(frameView.panes[1], W("2 Renamed"));
  EXPECT_EQ(list.calls.back(), "refresh");
  EXPECT_EQ(UndoFiles().size(), 1u);
}

TEST_F(PanelRuns, SaveUndoInformationDecidesOfTheFile) {
  Open({W("a.t")});
  view[1043].isChecked = false;
  Run(W("x"));
  EXPECT_THAT(UndoFiles(), IsEmpty());
  EXPECT_TRUE(form.UndoAvailable());
}

TEST_F(PanelRuns, StartWithoutLivePreviewPreviewsFirst) {
  Open({W("a.t")});
  Check(1004, false);
  Run(W("x"));
  ASSERT_EQ(host_.renames.itemRenames.size(), 1u);
  EXPECT_EQ(host_.renames.itemRenames[0].to, W("x.t"));
}

TEST_F(PanelRuns, StartWithLivePreviewTakesTheNamesOfTheLastPreview) {
  Open({W("a.t")});
  view[1034].text = W("x");  // not yet reported
  form.Press(1003);
  Settle();
  ASSERT_EQ(host_.renames.itemRenames.size(), 1u);
  EXPECT_EQ(host_.renames.itemRenames[0].to, W("a.t"));
}

TEST_F(PanelRuns, StartInTheMiddleOfAPreviewEndsItFirstSoThatNoRowKeepsAnOlderName) {
  GateProperties gate;
  Open({W("a.t"), W("b.t")});
  engine_->propertyManager = &gate;
  Type(1034, W("x[?p][C]"));
  Deliver();
  gate.entered.Acquire();  // in the first row
  gate.isOpen = true;
  std::thread opener([&] {
    while (!engine_->worker.IsStopping()) std::this_thread::yield();
    gate.gate.Release();
  });
  form.Press(1003);
  opener.join();
  Settle();
  ASSERT_EQ(host_.renames.itemRenames.size(), 2u);
  EXPECT_EQ(host_.renames.itemRenames[0].to, W("x01.t"));
  EXPECT_EQ(host_.renames.itemRenames[1].to, W("x02.t"));
}

TEST_F(PanelRuns, APreviewThatFailsInTheHostKeepsTheStartFromRenaming) {
  Open({W("a.t"), W("b.t")});
  ThrowingItem item;
  Row(1).hostItem = &item;
  Type(1034, W("x[F]"));
  Settle();
  form.Press(1003);
  Settle();
  EXPECT_THAT(host_.renames.calls, IsEmpty());
  EXPECT_FALSE(IsClosed(1003));
}

TEST_F(PanelRuns, ARowInTheWayBlocksTheStart) {
  Open({W("a.t"), W("b.t")});
  Type(1034, W("same"));
  Settle();
  EXPECT_THAT(States(), ElementsAre(1u, 1u));
  view.boxes.answers = {IDOK};
  form.Press(1003);
  EXPECT_THAT(view.boxes.shown,
              ElementsAre(RecordedBox{W("T000A0063"), W("T02580064"), MB_OK | MB_ICONERROR}));
  Settle();
  EXPECT_THAT(host_.renames.calls, IsEmpty());
  EXPECT_THAT(States(), ElementsAre(1u, 1u));
  EXPECT_FALSE(IsClosed(1003));
}

TEST_F(PanelRuns, EachOfTheStates1To4BlocksAndNoOther) {
  Open({W("a.t")});
  for (const u32 state : {1u, 2u, 3u, 4u}) {
    Row(0).state = state;
    view.boxes.answers = {IDOK};
    form.Press(1003);
    EXPECT_EQ(view.boxes.answers.size(), 0u) << state;
  }
  EXPECT_EQ(view.boxes.shown.size(), 4u);
  for (const u32 state : {0u, 5u, 6u}) {
    Row(0).state = state;
    form.Press(1003);
    Settle();
  }
  EXPECT_EQ(host_.renames.itemRenames.size(), 3u);
}

TEST_F(PanelRuns, AFailedRowBlocksTheNextStartUntilAPreviewHasResetIt) {
  Open({W("a.t"), W("b.t")});
  host_.renames.codes = {{W("x01.t"), 5}};
  Run(W("x[C]"));
  EXPECT_THAT(States(), ElementsAre(3u, 6u));
  EXPECT_EQ(frameView.panes[1], W("1 Renamed, 1 Failed"));
  view.boxes.answers = {IDOK};
  form.Press(1003);
  EXPECT_EQ(view.boxes.shown.size(), 1u);
  EXPECT_EQ(host_.renames.itemRenames.size(), 2u);
  Run(W("y[C]"));
  EXPECT_EQ(host_.renames.itemRenames.size(), 4u);
}

TEST_F(PanelRuns, WithoutLivePreviewStartResetsAFailedRow) {
  Open({W("a.t")});
  Check(1004, false);
  host_.renames.codes = {{W("x.t"), 5}};
  Run(W("x"));
  EXPECT_THAT(States(), ElementsAre(3u));
  form.Press(1003);
  Settle();
  EXPECT_EQ(host_.renames.itemRenames.size(), 2u);
}

TEST_F(PanelRuns, ABlockedStartTakesUndoAwayAndLeavesItsButton) {
  Open({W("a.t")});
  Run(W("x"));
  Type(1034, W("?"));
  Settle();
  view.boxes.answers = {IDOK};
  form.Press(1003);
  EXPECT_FALSE(form.UndoAvailable());
  EXPECT_FALSE(IsClosed(1040));
}

TEST_F(PanelRuns, ABadExpressionAtStartRenamesNothingAndLeavesThePreview) {
  Open({W("a.t")});
  Type(1034, W("x"));
  view[1020].text = W("(");
  form.Press(1119);
  Settle();
  view[1039].isChecked = true;  // not yet reported
  form.Press(1003);
  EXPECT_NE(frameView.panes[1], W(""));
  Settle();
  EXPECT_THAT(host_.renames.calls, IsEmpty());
  EXPECT_THAT(NewNames(), ElementsAre(W("x.t")));
  EXPECT_FALSE(IsClosed(1003));
}

TEST_F(PanelRuns, AnEmptyListIsRenamedWithoutAnErrorAndFinishes) {
  Open();
  form.Press(1003);
  Settle();
  EXPECT_THAT(view.boxes.shown, IsEmpty());
  EXPECT_FALSE(IsClosed(1003));
  EXPECT_THAT(UndoFiles(), IsEmpty());
}

TEST_F(PanelRuns, WhenAllRenamesFailUndoIsAvailableAllTheSame) {
  Open({W("a.t")});
  host_.renames.codes = {{W("x.t"), 5}};
  Run(W("x"));
  EXPECT_TRUE(form.UndoAvailable());
  EXPECT_THAT(UndoFiles(), IsEmpty());
  EXPECT_EQ(frameView.panes[1], W("1 Failed"));
}

TEST_F(PanelRuns, AWorkerThatHasEndedLeavesTheControlsEnabled) {
  Open({W("a.t")});
  engine_->worker.Quit();
  ASSERT_TRUE(engine_->worker.WaitForEnd(INFINITE));
  form.Press(1003);
  form.Press(1040);
  Settle();
  EXPECT_FALSE(IsClosed(1003));
  EXPECT_FALSE(IsClosed(1041));
  EXPECT_THAT(host_.renames.calls, IsEmpty());
}

// Undo.

TEST_F(PanelRuns, UndoGivesTheRowsTheirOldNames) {
  Open({W("a.t"), W("b.t")});
  Run(W("x[C]"));
  RunGate gate(host_);
  form.Press(1040);
  gate.inRun.Acquire();
  EXPECT_TRUE(IsClosed(1003));
  EXPECT_TRUE(IsClosed(1040));
  gate.go.Release();
  Settle();
  ASSERT_EQ(host_.renames.pathRenames.size(), 2u);
  EXPECT_EQ(host_.renames.pathRenames[0].from, W("C:\\view\\x01.t"));
  EXPECT_EQ(host_.renames.pathRenames[0].to, W("a.t"));
  EXPECT_EQ(frameView.panes[1], W("2 Restored"));
  EXPECT_FALSE(IsClosed(1003));
  EXPECT_FALSE(IsClosed(1040));
  EXPECT_THAT(States(), ElementsAre(6u, 6u));  // a restore changes no row
}

TEST_F(PanelRuns, UndoTakesAllRowsInTheOrderOfTheScreenAlsoTheFailedOnes) {
  Open({W("a.t"), W("b.t")});
  host_.renames.codes = {{W("x01.t"), 5}, {W("a.t"), 2}};
  Run(W("x[C]"));
  std::swap(list.rows[0], list.rows[1]);
  form.Press(1040);
  Settle();
  ASSERT_EQ(host_.renames.pathRenames.size(), 2u);
  EXPECT_EQ(host_.renames.pathRenames[0].to, W("b.t"));
  EXPECT_EQ(host_.renames.pathRenames[1].to, W("a.t"));
  EXPECT_EQ(frameView.panes[1], W("1 Restored, 1 Failed"));
}

TEST_F(PanelRuns, UndoOfAnEmptyListDoesNothingAndReportsNoError) {
  Open();
  form.Press(1040);
  Settle();
  EXPECT_THAT(host_.renames.calls, IsEmpty());
  EXPECT_THAT(view.boxes.shown, IsEmpty());
  EXPECT_FALSE(IsClosed(1003));
}

TEST_F(PanelRuns, ARestoreOfNothingStillEnablesTheControls) {
  Open();
  form.EnableControls(false);
  EXPECT_TRUE(form.OnMessage(33868, 3, 1));
  EXPECT_FALSE(IsClosed(1003));
}

// Undo sessions.

TEST_F(PanelRuns, ALoadedSessionIsInTheListAndOnlyUndoManagerAndCloseCanBeUsed) {
  KeepSession(5, {{W("C:\\f"), W("n.t"), W("o.t")}, {W("C:\\g"), W("m.t"), W("p.t")}});
  Open({W("a.t")});
  LoadSessionOfRow(0);
  EXPECT_THAT(view.dialogs, ElementsAre(106));
  ASSERT_EQ(list.rows.size(), 2u);
  EXPECT_EQ(Row(0).folderPath, W("C:\\f"));
  EXPECT_EQ(Row(0).oldName, W("o.t"));
  EXPECT_THAT(NewNames(), ElementsAre(W("n.t"), W("m.t")));
  EXPECT_THAT(States(), ElementsAre(6u, 6u));
  EXPECT_TRUE(form.UndoAvailable());
  EXPECT_TRUE(form.SessionLoaded());
  ASSERT_TRUE(form.LoadedSession());
  EXPECT_EQ(frameView.title, W("T000A0063 - T00140064") + DateText(*form.LoadedSession()));
  for (const int control : {1034, 1035, 1046, 1047, 1036, 1045, 1044, 1031, 1032, 1033, 1118, 1003, 1043,
                            1004, 1037, 1038, 1070, 1039, 1071}) {
    EXPECT_TRUE(IsClosed(control)) << control;
  }
  for (const int control : {1040, 1049, 1041, 1020, 1001, 1119, 1117})
    EXPECT_FALSE(IsClosed(control)) << control;
}

TEST_F(PanelRuns, ARestoredSessionIsMarkedAndWrittenUnderTheSameName) {
  KeepSession(5, {{W("C:\\f"), W("n.t"), W("o.t")}});
  const std::vector<WString> files = UndoFiles();
  Open();
  LoadSessionOfRow(0);
  form.Press(1040);
  Settle();
  EXPECT_TRUE(form.LoadedSession()->haveRestored);
  EXPECT_EQ(UndoFiles(), files);
  ASSERT_EQ(host_.renames.pathRenames.size(), 1u);
  EXPECT_EQ(host_.renames.pathRenames[0].from, W("C:\\f\\n.t"));
  MultiRenameUndoStore store(&host_);
  store.Load();
  ASSERT_EQ(store.sessions.size(), 1u);
  EXPECT_TRUE(store.sessions[0]->haveRestored);
  EXPECT_FALSE(IsClosed(1040));
  EXPECT_TRUE(IsClosed(1003));
}

TEST_F(PanelRuns, RestoringASessionTwicePassesTheRenamesASecondTime) {
  KeepSession(5, {{W("C:\\f"), W("n.t"), W("o.t")}});
  Open();
  LoadSessionOfRow(0);
  form.Press(1040);
  Settle();
  host_.renames.codes = {{W("o.t"), 2}};
  form.Press(1040);
  Settle();
  EXPECT_EQ(host_.renames.pathRenames.size(), 2u);
  EXPECT_EQ(frameView.panes[1], W("1 Failed"));
}

TEST_F(PanelRuns, ADeletedSessionIsNotWrittenAgainAfterItsRestore) {
  KeepSession(5, {{W("C:\\f"), W("n.t"), W("o.t")}});
  Open();
  LoadSessionOfRow(0);
  view.user = [](DialogForm& dialogForm, DialogWindow& dialog) {
    dialog.boxes.answers = {IDYES};
    dialogForm.Press(1047);
    dialogForm.Press(2);
  };
  form.Press(1049);
  EXPECT_EQ(form.LoadedSession(), nullptr);
  EXPECT_TRUE(form.SessionLoaded());
  form.Press(1040);
  Settle();
  EXPECT_EQ(host_.renames.pathRenames.size(), 1u);
  EXPECT_THAT(UndoFiles(), IsEmpty());
}

TEST_F(PanelRuns, TheManagerOpensWithTheLoadedSessionChosen) {
  KeepSession(5, {{W("C:\\f"), W("n.t"), W("o.t")}});
  KeepSession(9, {{W("C:\\g"), W("m.t"), W("p.t")}});
  Open();
  LoadSessionOfRow(1);
  int selected = -1;
  view.user = [&selected](DialogForm& dialogForm, DialogWindow& dialog) {
    selected = dialog[1053].selectedRow;
    dialogForm.Press(2);
  };
  form.Press(1049);
  EXPECT_EQ(selected, 1);
}

TEST_F(PanelRuns, CloseAndLoadWithoutAChosenSessionChangeNothing) {
  KeepSession(5, {{W("C:\\f"), W("n.t"), W("o.t")}});
  Open({W("a.t")});
  view.user = [](DialogForm& dialogForm, DialogWindow&) {
    dialogForm.ClickRow(1053, 0);
    dialogForm.Press(2);
  };
  form.Press(1049);
  view.user = [](DialogForm& dialogForm, DialogWindow&) { dialogForm.Press(1); };
  form.Press(1049);
  EXPECT_FALSE(form.SessionLoaded());
  EXPECT_FALSE(form.UndoAvailable());
  EXPECT_THAT(NewNames(), ElementsAre(W("a.t")));
  EXPECT_EQ(frameView.title, W("T000A0063"));
}

TEST_F(PanelRuns, ASessionOfThisWindowJoinsTheStoreThatWasRead) {
  Open({W("a.t")});
  view.user = [](DialogForm& dialogForm, DialogWindow&) { dialogForm.Press(2); };
  form.Press(1049);
  view[1043].isChecked = false;
  Run(W("x"));
  LoadSessionOfRow(0);
  EXPECT_THAT(NewNames(), ElementsAre(W("x.t")));
  EXPECT_TRUE(form.SessionLoaded());
}

TEST_F(PanelRuns, APairAddedToALoadedSessionLeavesTheNamesThatUndoNeeds) {
  KeepSession(5, {{W("C:\\f"), W("n.t"), W("o.t")}});
  Open();
  LoadSessionOfRow(0);
  view[1020].text = W("o");
  form.Press(1119);
  Settle();
  EXPECT_EQ(view[1118].rows.size(), 1u);
  EXPECT_THAT(NewNames(), ElementsAre(W("n.t")));
  EXPECT_THAT(States(), ElementsAre(6u));
}

// Reset File List.

TEST_F(PanelRuns, ResetReadsTheSelectionOfNow) {
  Open({W("a.t")});
  Run(W("x[C]"));
  EXPECT_TRUE(form.UndoAvailable());
  Select({W("c.t"), W("d.t")});
  form.Press(1071);
  EXPECT_THAT(host_.posted, ElementsAre(32000u));
  EXPECT_FALSE(form.UndoAvailable());
  EXPECT_TRUE(IsClosed(1040));
  EXPECT_FALSE(IsClosed(1003));
  EXPECT_EQ(frameView.title, W("T000A0063"));
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_THAT(NewNames(), ElementsAre(W("x01.t"), W("x02.t")));
  EXPECT_EQ(Row(0).oldName, W("c.t"));
  for (const UINT message : Waiting()) EXPECT_NE(message, 33268u);  // at once, not posted
}

TEST_F(PanelRuns, ResetEndsALoadedSession) {
  KeepSession(5, {{W("C:\\f"), W("n.t"), W("o.t")}});
  Open({W("a.t")});
  LoadSessionOfRow(0);
  form.Press(1071);
  EXPECT_FALSE(form.SessionLoaded());
  EXPECT_EQ(form.LoadedSession(), nullptr);
  EXPECT_EQ(frameView.title, W("T000A0063"));
  EXPECT_FALSE(IsClosed(1003));
  EXPECT_TRUE(IsClosed(1040));
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("a.t")));
}

TEST_F(PanelRuns, TheListIsEmptyWhileTheSelectionIsRead) {
  Open({W("a.t")});
  std::size_t rows = 99;
  host_.beforeReading = [&] { rows = list.rows.size(); };
  form.Press(1071);
  EXPECT_EQ(rows, 0u);
  EXPECT_EQ(list.rows.size(), 1u);
}

TEST_F(PanelRuns, ResetInTheMiddleOfAPreviewStopsItFirst) {
  GateProperties gate;
  Open({W("a.t"), W("b.t")});
  engine_->propertyManager = &gate;
  Type(1034, W("x[?p][C]"));
  Deliver();
  gate.entered.Acquire();
  gate.isOpen = true;
  std::thread opener([&] {
    while (!engine_->worker.IsStopping()) std::this_thread::yield();
    gate.gate.Release();
  });
  Select({W("c.t")});
  form.Press(1071);
  opener.join();
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("x01.t")));
}

TEST_F(PanelRuns, ResetEndsItsWaitWhenTheHostIsClosing) {
  Open({W("a.t")});
  host_.answers = false;
  std::thread closing([this] { context_.hostClosing = true; });
  form.Press(1071);
  closing.join();
  EXPECT_THAT(list.rows, IsEmpty());
  // The event was left to the host, which may still set it.
  ASSERT_TRUE(SetEvent(reinterpret_cast<HANDLE>(host_.event)));
  CloseHandle(reinterpret_cast<HANDLE>(host_.event));
}

TEST_F(PanelRuns, ResetWaitsForAHostThatIsSlow) {
  Open({W("a.t")});
  host_.beforeReading = [] { Sleep(400); };  // longer than it waits at a time
  Select({W("c.t"), W("d.t")});
  form.Press(1071);
  EXPECT_EQ(list.rows.size(), 2u);
}

TEST_F(PanelRuns, ResetClosesItsEvent) {
  Open({W("a.t")});
  form.Press(1071);
  host_.Join();
  EXPECT_FALSE(SetEvent(reinterpret_cast<HANDLE>(host_.event)));
}

TEST_F(PanelRuns, ANewSelectionEmptiesTheListUntilReset) {
  Open({W("a.t")});
  Select({W("c.t")});
  form.OnNewSelection();
  context_.rows.Set(ReadSelection(host_));
  EXPECT_THAT(list.rows, IsEmpty());
  Type(1034, W("x"));
  Settle();
  EXPECT_THAT(list.rows, IsEmpty());
  form.Press(1071);
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("x.t")));
}

// Threads.

TEST_F(PanelRuns, RulesChangeAndRowsArePaintedWhileTheWorkerComputes) {
  std::vector<WString> names;
  for (int number = 0; number < 300; ++number)
    names.push_back(FromUtf8("name" + std::to_string(number) + ".t"));
  Open(names);
  const auto paint = [this] {
    WCHAR buffer[80];
    for (void* const row : list.rows) {
      list.provider->GetCellText(row, 3, buffer, 80);
      const s32 colour = list.provider->GetTextColor(row, 3);
      const u32 style = list.provider->GetCellStyle(row, 3);
      if ((colour != -1 && colour != 0x1621BB) || (style != 0x1000000 && style != 0x1300000)) ADD_FAILURE();
    }
  };
  for (int round = 0; round < 30; ++round) {
    Type(1034, FromUtf8("round" + std::to_string(round) + "[N]"));
    Deliver();
    paint();
    if (round % 10 == 5) {
      form.Press(1071);
      paint();
    }
    if (round % 7 == 3) Check(1039, round % 2 == 0);
  }
  Settle();
  paint();
  EXPECT_EQ(NewNames()[7], W("round29name7.t"));
}

TEST_F(PanelRuns, RunsAndUndosFollowOneAnotherWhileRulesChange) {
  Open({W("a.t"), W("b.t"), W("c.t")});
  for (int round = 0; round < 10; ++round) {
    Type(1034, FromUtf8("r" + std::to_string(round) + "[C]"));
    Settle();
    form.Press(1003);
    view[1020].text = W("zzz");
    form.Press(1119);  // can be pressed during a run
    Settle();
    form.Press(1040);
    Settle();
  }
  EXPECT_EQ(host_.renames.itemRenames.size(), 30u);
  EXPECT_EQ(host_.renames.pathRenames.size(), 30u);
}

TEST_F(PanelRuns, TheWindowClosesInTheMiddleOfARun) {
  Open({W("a.t")});
  Type(1034, W("x"));
  Settle();
  RunGate gate(host_);
  form.Press(1003);
  gate.inRun.Acquire();
  engine_->worker.Quit();
  frame.Close();  // rows stay alive in the engine
  context_.rows.Set(nullptr);
  gate.go.Release();
  EXPECT_TRUE(engine_->worker.WaitForEnd(INFINITE));
  EXPECT_EQ(UndoFiles().size(), 1u);
  EXPECT_EQ(engine_->items[0]->state, 6u);
}

}  // namespace
}  // namespace Velmora::SDK
