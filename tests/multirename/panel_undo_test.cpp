// The panel's Undo, and undo sessions that are loaded from the manager. Runs under the thread sanitizer too.
#include <gmock/gmock.h>

#include "multirename/engine/multi_rename_item.h"
#include "multirename/engine/rename_worker.h"
#include "multirename/form/panel_controls.h"
#include "multirename/panel_run_test.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PanelUndo : public PanelRunTest {};

TEST_F(PanelUndo, UndoGivesTheRowsTheirOldNames) {
  Open({W("a.t"), W("b.t")});
  Run(W("x[C]"));
  RunGate gate(host_);
  form.Press(kUndoButton);
  gate.inRun.Acquire();
  EXPECT_TRUE(IsClosed(kStartButton));
  EXPECT_TRUE(IsClosed(kUndoButton));
  gate.go.Release();
  Settle();
  ASSERT_EQ(host_.renames.pathRenames.size(), 2u);
  EXPECT_EQ(host_.renames.pathRenames[0].from, W("C:\\view\\x01.t"));
  EXPECT_EQ(host_.renames.pathRenames[0].to, W("a.t"));
  EXPECT_EQ(frameView.panes[1], W("2 Restored"));
  EXPECT_FALSE(IsClosed(kStartButton));
  EXPECT_FALSE(IsClosed(kUndoButton));
  EXPECT_THAT(States(),
              ElementsAre(StateRenamed, StateRenamed));  // a restore does not change the rows' states
}

TEST_F(PanelUndo, UndoTakesAllRowsInTheOrderOfTheScreenAlsoTheFailedOnes) {
  Open({W("a.t"), W("b.t")});
  host_.renames.codes = {{W("x01.t"), ERROR_ACCESS_DENIED}, {W("a.t"), ERROR_FILE_NOT_FOUND}};
  Run(W("x[C]"));
  std::swap(list.rows[0], list.rows[1]);
  form.Press(kUndoButton);
  Settle();
  ASSERT_EQ(host_.renames.pathRenames.size(), 2u);
  EXPECT_EQ(host_.renames.pathRenames[0].to, W("b.t"));
  EXPECT_EQ(host_.renames.pathRenames[1].to, W("a.t"));
  EXPECT_EQ(frameView.panes[1], W("1 Restored, 1 Failed"));
}

// The user can undo such a run with the undo manager.
TEST_F(PanelUndo, UndoAfterAChangeOfARuleAsksForTheNamesThatShowNowAndTheHostRefusesThem) {
  Open({W("a.t")});
  Run(W("x"));
  Type(kNameTemplate, W("y"));
  Settle();
  host_.renames.codes = {{W("a.t"), ERROR_FILE_NOT_FOUND}};  // y.t does not exist
  form.Press(kUndoButton);
  Settle();
  ASSERT_EQ(host_.renames.pathRenames.size(), 1u);
  EXPECT_EQ(host_.renames.pathRenames[0].from, W("C:\\view\\y.t"));
  EXPECT_EQ(frameView.panes[1], W("1 Failed"));
  host_.renames.codes.clear();
  LoadSessionOfRow(0);
  form.Press(kUndoButton);
  Settle();
  ASSERT_EQ(host_.renames.pathRenames.size(), 2u);
  EXPECT_EQ(host_.renames.pathRenames[1].from, W("C:\\view\\x.t"));
  EXPECT_EQ(frameView.panes[1], W("1 Restored"));
}

TEST_F(PanelUndo, UndoOfAnEmptyListDoesNothingAndReportsNoError) {
  Open();
  view[kUndoButton].isEnabled = true;
  form.Press(kUndoButton);
  Settle();
  EXPECT_THAT(host_.renames.calls, IsEmpty());
  EXPECT_THAT(view.boxes.shown, IsEmpty());
  EXPECT_FALSE(IsClosed(kStartButton));
}

TEST_F(PanelUndo, ARestoreOfNothingStillEnablesTheControls) {
  Open();
  form.EnableControls(false);
  EXPECT_TRUE(form.OnMessage(MRM_RUN_FINISHED, kRestoreFinished, 1));
  EXPECT_FALSE(IsClosed(kStartButton));
}

TEST_F(PanelUndo, UndoInTheMiddleOfAPreviewStopsItBeforeItTakesTheRows) {
  GateProperties gate;
  Open({W("a.t"), W("b.t")});
  Run(W("y[C]"));
  PreviewIntoGate(gate);
  WhileHeld(gate.gate, [this] { form.Press(kUndoButton); });
  Settle();
  ASSERT_EQ(host_.renames.pathRenames.size(), 2u);
  // The preview stopped after its first row.
  EXPECT_EQ(host_.renames.pathRenames[0].from, W("C:\\view\\x01.t"));
  EXPECT_EQ(host_.renames.pathRenames[1].from, W("C:\\view\\y02.t"));
}

TEST_F(PanelUndo, UndoHasItsMessagesPostedToThePanel) {
  Open({W("a.t")});
  Run(W("x"));
  engine_->notifyWindow = nullptr;
  form.Press(kUndoButton);
  EXPECT_TRUE(IsClosed(kStartButton));
  Settle();
  EXPECT_FALSE(IsClosed(kStartButton));
}

TEST_F(PanelUndo, UndoOfAnEmptyListLeavesAnEmptySetToRestore) {
  Open({W("a.t")});
  Run(W("x"));
  form.Press(kUndoButton);
  Settle();
  ASSERT_TRUE(engine_->restoreSet);
  EXPECT_EQ(engine_->restoreSet->entries.size(), 1u);
  frame.List().Empty();
  form.Press(kUndoButton);
  ASSERT_TRUE(engine_->restoreSet);
  EXPECT_THAT(engine_->restoreSet->entries, IsEmpty());
  EXPECT_EQ(host_.renames.pathRenames.size(), 1u);
}

// Undo sessions.

TEST_F(PanelUndo, ALoadedSessionIsInTheListAndOnlyUndoManagerAndCloseCanBeUsed) {
  KeepSession(5, {{W("C:\\f"), W("n.t"), W("o.t")}, {W("C:\\g"), W("m.t"), W("p.t")}});
  Open({W("a.t")});
  LoadSessionOfRow(0);
  EXPECT_THAT(view.dialogs, ElementsAre(kUndoManagerDialog));
  ASSERT_EQ(list.rows.size(), 2u);
  EXPECT_EQ(Row(0).folderPath, W("C:\\f"));
  EXPECT_EQ(Row(0).oldName, W("o.t"));
  EXPECT_THAT(NewNames(), ElementsAre(W("n.t"), W("m.t")));
  EXPECT_THAT(States(), ElementsAre(StateRenamed, StateRenamed));
  EXPECT_TRUE(form.UndoAvailable());
  EXPECT_TRUE(form.SessionLoaded());
  ASSERT_TRUE(form.LoadedSession());
  EXPECT_EQ(frameView.title, W("T000A0063 - T00140064") + DateText(*form.LoadedSession()));
  for (const int control :
       {kNameTemplate, kExtensionTemplate, kNameTags, kExtensionTags, kCaseBox, kProfileBox, kDeleteProfile,
        kStartAt, kStepBy, kDigits, kPairList, kStartButton, kSaveUndoBox, kLivePreviewBox, kCaseSensitiveBox,
        kReplaceAllBox, kPartsBox, kRegexBox, kResetButton}) {
    EXPECT_TRUE(IsClosed(control)) << control;
  }
  for (const int control :
       {kUndoButton, kUndoManagerButton, kCloseButton, kPairFind, kPairReplace, kPairAdd, kPairDialog})
    EXPECT_FALSE(IsClosed(control)) << control;
}

TEST_F(PanelUndo, ARestoredSessionIsMarkedAndWrittenUnderTheSameName) {
  KeepSession(5, {{W("C:\\f"), W("n.t"), W("o.t")}});
  const std::vector<WString> files = UndoFiles();
  Open();
  LoadSessionOfRow(0);
  form.Press(kUndoButton);
  Settle();
  EXPECT_TRUE(form.LoadedSession()->haveRestored);
  EXPECT_EQ(UndoFiles(), files);
  ASSERT_EQ(host_.renames.pathRenames.size(), 1u);
  EXPECT_EQ(host_.renames.pathRenames[0].from, W("C:\\f\\n.t"));
  MultiRenameUndoStore store(&host_);
  store.Load();
  ASSERT_EQ(store.sessions.size(), 1u);
  EXPECT_TRUE(store.sessions[0]->haveRestored);
  EXPECT_FALSE(IsClosed(kUndoButton));
  EXPECT_TRUE(IsClosed(kStartButton));
}

TEST_F(PanelUndo, ARestoreOfNothingMarksNoLoadedSession) {
  KeepSession(5, {{W("C:\\f"), W("n.t"), W("o.t")}});
  Open();
  LoadSessionOfRow(0);
  EXPECT_TRUE(form.OnMessage(MRM_RUN_FINISHED, kRestoreFinished, 1));
  EXPECT_FALSE(form.LoadedSession()->haveRestored);
  MultiRenameUndoStore store(&host_);
  store.Load();
  ASSERT_EQ(store.sessions.size(), 1u);
  EXPECT_FALSE(store.sessions[0]->haveRestored);
}

TEST_F(PanelUndo, RestoringASessionTwicePassesTheRenamesASecondTime) {
  KeepSession(5, {{W("C:\\f"), W("n.t"), W("o.t")}});
  Open();
  LoadSessionOfRow(0);
  form.Press(kUndoButton);
  Settle();
  host_.renames.codes = {{W("o.t"), ERROR_FILE_NOT_FOUND}};
  form.Press(kUndoButton);
  Settle();
  EXPECT_EQ(host_.renames.pathRenames.size(), 2u);
  EXPECT_EQ(frameView.panes[1], W("1 Failed"));
}

TEST_F(PanelUndo, ADeletedSessionIsNotWrittenAgainAfterItsRestore) {
  KeepSession(5, {{W("C:\\f"), W("n.t"), W("o.t")}});
  Open();
  LoadSessionOfRow(0);
  view.user = [](DialogForm& dialogForm, DialogWindow& dialog) {
    dialog.boxes.answers = {IDYES};
    dialogForm.Press(kUndoDeleteAll);
    dialogForm.Press(IDCANCEL);
  };
  form.Press(kUndoManagerButton);
  EXPECT_EQ(form.LoadedSession(), nullptr);
  EXPECT_TRUE(form.SessionLoaded());
  form.Press(kUndoButton);
  Settle();
  EXPECT_EQ(host_.renames.pathRenames.size(), 1u);
  EXPECT_THAT(UndoFiles(), IsEmpty());
}

TEST_F(PanelUndo, TheManagerOpensWithTheLoadedSessionChosen) {
  KeepSession(5, {{W("C:\\f"), W("n.t"), W("o.t")}});
  KeepSession(9, {{W("C:\\g"), W("m.t"), W("p.t")}});
  Open();
  LoadSessionOfRow(1);
  int selected = -1;
  view.user = [&selected](DialogForm& dialogForm, DialogWindow& dialog) {
    selected = dialog[kUndoSessions].selectedRow;
    dialogForm.Press(IDCANCEL);
  };
  form.Press(kUndoManagerButton);
  EXPECT_EQ(selected, 1);
}

TEST_F(PanelUndo, CloseAndLoadWithoutAChosenSessionChangeNothing) {
  KeepSession(5, {{W("C:\\f"), W("n.t"), W("o.t")}});
  Open({W("a.t")});
  view.user = [](DialogForm& dialogForm, DialogWindow&) {
    dialogForm.ClickRow(kUndoSessions, 0);
    dialogForm.Press(IDCANCEL);
  };
  form.Press(kUndoManagerButton);
  view.user = [](DialogForm& dialogForm, DialogWindow&) { dialogForm.Press(IDOK); };
  form.Press(kUndoManagerButton);
  EXPECT_FALSE(form.SessionLoaded());
  EXPECT_FALSE(form.UndoAvailable());
  EXPECT_THAT(NewNames(), ElementsAre(W("a.t")));
  EXPECT_EQ(frameView.title, W("T000A0063"));
}

TEST_F(PanelUndo, ASessionOfThisWindowJoinsTheStoreThatWasRead) {
  Open({W("a.t")});
  view.user = [](DialogForm& dialogForm, DialogWindow&) { dialogForm.Press(IDCANCEL); };
  form.Press(kUndoManagerButton);
  view[kSaveUndoBox].isChecked = false;
  Run(W("x"));
  LoadSessionOfRow(0);
  EXPECT_THAT(NewNames(), ElementsAre(W("x.t")));
  EXPECT_TRUE(form.SessionLoaded());
}

TEST_F(PanelUndo, APairAddedToALoadedSessionLeavesTheNamesThatUndoNeeds) {
  KeepSession(5, {{W("C:\\f"), W("n.t"), W("o.t")}});
  Open();
  LoadSessionOfRow(0);
  view[kPairFind].text = W("o");
  form.Press(kPairAdd);
  Settle();
  EXPECT_EQ(view[kPairList].rows.size(), 1u);
  EXPECT_THAT(NewNames(), ElementsAre(W("n.t")));
  EXPECT_THAT(States(), ElementsAre(StateRenamed));
}

}  // namespace
}  // namespace Velmora::SDK
