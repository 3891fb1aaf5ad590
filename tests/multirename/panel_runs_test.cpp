// The panel and the worker: previews and Start, and changed rules, current runs and the closing of the window
// at the same time. Runs under the thread sanitizer too.
#include <gmock/gmock.h>

#include "multirename/bare_file_item.h"
#include "multirename/engine/multi_rename_item.h"
#include "multirename/engine/rename_worker.h"
#include "multirename/form/panel_controls.h"
#include "multirename/gate_properties.h"
#include "multirename/panel_run_test.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ThrowingItem final : public BareFileItem {
 public:
  void GetTagText(WCHAR*, u32) override { throw std::runtime_error("the host fails"); }
};

class SlowProperties final : public IHostPropertyManager {
 public:
  u32 GetValue(WCHAR*, u32, const WCHAR*, void*, const WCHAR*) override {
    Sleep(50);
    return 0;
  }
  void ListProperties(IHostPropertyList*, u32) override {}
};

class PanelRuns : public PanelRunTest {};

TEST_F(PanelRuns, ManyChangesArePreviewedToTheLast) {
  Open({W("a.t"), W("b.t")});
  for (int key = 0; key < 50; ++key) Type(kNameTemplate, FromUtf8("k" + std::to_string(key) + "[C]"));
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("k4901.t"), W("k4902.t")));
}

TEST_F(PanelRuns, WithoutLivePreviewAChangeComputesNothing) {
  Open({W("a.t")});
  Check(kLivePreviewBox, false);
  Type(kNameTemplate, W("x"));
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("a.t")));
  Check(kLivePreviewBox, true);
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("x.t")));
}

TEST_F(PanelRuns, ABadExpressionLeavesThePreviewAndShowsItsMessage) {
  Open({W("a.t")});
  Type(kNameTemplate, W("x"));
  Settle();
  view[kPairFind].text = W("(");
  form.Press(kPairAdd);
  Settle();
  EXPECT_EQ(frameView.panes[1], W(""));
  Type(kNameTemplate, W("y"));
  Check(kRegexBox, true);
  EXPECT_NE(frameView.panes[1], W(""));
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("x.t")));
  Check(kRegexBox, false);
  EXPECT_EQ(frameView.panes[1], W(""));
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("y.t")));
}

TEST_F(PanelRuns, CountersFollowTheRowsOfTheScreenAtTheNextChange) {
  Open({W("a.t"), W("b.t")});
  Type(kNameTemplate, W("[C]"));
  Settle();
  std::swap(list.rows[0], list.rows[1]);
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("02.t"), W("01.t")));  // moving rows alone starts no preview
  Type(kNameTemplate, W("x[C]"));
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("x01.t"), W("x02.t")));
}

TEST_F(PanelRuns, ChangesTakeTheRowsOverInTurnsInTheMemoryOfTwoVectors) {
  Open({W("a.t"), W("b.t")});
  Type(kNameTemplate, W("x[C]"));
  Settle();
  const MultiRenameItem* const* const first = engine_->items.data();
  Type(kNameTemplate, W("y[C]"));
  Settle();
  const MultiRenameItem* const* const second = engine_->items.data();
  EXPECT_NE(first, second);
  std::swap(list.rows[0], list.rows[1]);
  for (const MultiRenameItem* const* const place : {first, second, first}) {
    Type(kNameTemplate, W("z[C]"));
    Settle();
    EXPECT_EQ(engine_->items.data(), place);
    EXPECT_THAT(NewNames(), ElementsAre(W("z01.t"), W("z02.t")));
  }
}

TEST_F(PanelRuns, ComputedRowsRefreshTheListAndAFinishedPreviewDoesNothing) {
  Open({W("a.t")});
  list.calls.clear();
  EXPECT_TRUE(form.OnMessage(MRM_ROWS_CHANGED, 0, 0));
  EXPECT_THAT(list.calls, ElementsAre("refresh"));
  frameView.panes.clear();
  view[kStartButton].isEnabled = false;
  EXPECT_TRUE(form.OnMessage(MRM_RUN_FINISHED, kPreviewFinished, 0));
  EXPECT_THAT(list.calls, ElementsAre("refresh"));
  EXPECT_TRUE(frameView.panes.empty());
  EXPECT_TRUE(IsClosed(kStartButton));
  EXPECT_FALSE(form.UndoAvailable());
}

TEST_F(PanelRuns, WithoutAListTheMessagesOfTheWorkerDoNothing) {
  frame.Close();
  EXPECT_TRUE(form.OnMessage(MRM_ROWS_CHANGED, 0, 0));
  EXPECT_TRUE(form.OnMessage(MRM_RUN_FINISHED, kRenameFinished, 0));
  EXPECT_THAT(list.calls, IsEmpty());
}

// Start.

TEST_F(PanelRuns, StartRenamesAndDisablesTheControlsUntilItsEnd) {
  Open({W("a.t"), W("b.t")});
  RunGate gate(host_);
  StartIntoGate(gate, W("x[C]"));
  for (const int control :
       {kStartButton, kNameTemplate, kCloseButton, kUndoManagerButton, kResetButton, kUndoButton})
    EXPECT_TRUE(IsClosed(control)) << control;
  gate.go.Release();
  Settle();
  EXPECT_THAT(States(), ElementsAre(StateRenamed, StateRenamed));
  EXPECT_TRUE(form.UndoAvailable());
  for (const int control :
       {kStartButton, kNameTemplate, kCloseButton, kUndoManagerButton, kResetButton, kUndoButton})
    EXPECT_FALSE(IsClosed(control)) << control;
  EXPECT_EQ(frameView.panes[1], W("2 Renamed"));
  EXPECT_EQ(list.calls.back(), "refresh");
  EXPECT_EQ(UndoFiles().size(), 1u);
}

TEST_F(PanelRuns, ControlsAreDisabledBeforeTheWorkerIsWoken) {
  Open({W("a.t")});
  std::atomic<bool> runs{false};
  host_.renames.atRun = [&] { runs = true; };
  bool ranAtFirst = false;
  view.afterDisabling = [&] {
    Sleep(100);  // if the worker had been woken, its run would have started by now
    ranAtFirst = runs;
    view.afterDisabling = nullptr;
  };
  form.Press(kStartButton);
  EXPECT_FALSE(ranAtFirst);
  EXPECT_FALSE(view.afterDisabling);
  Settle();
  EXPECT_TRUE(runs);
}

TEST_F(PanelRuns, TemplatesAreKeptBeforeTheRunBegins) {
  Open({W("a.t")});
  Type(kNameTemplate, W("x"));
  Settle();
  int lists = 0;
  host_.beforeStringList = [&] {
    ++lists;
    EXPECT_FALSE(IsClosed(kStartButton));  // the worker is woken later
  };
  form.Press(kStartButton);
  EXPECT_EQ(lists, 2);
  Settle();
  EXPECT_EQ(host_.renames.itemRenames.size(), 1u);
}

TEST_F(PanelRuns, AFinishedRenameAloneRefreshesTheList) {
  Open({W("a.t")});
  list.calls.clear();
  EXPECT_TRUE(form.OnMessage(MRM_RUN_FINISHED, kRenameFinished, 0));
  EXPECT_THAT(list.calls, ElementsAre("refresh"));
}

TEST_F(PanelRuns, SaveUndoInformationDecidesOfTheFile) {
  Open({W("a.t")});
  view[kSaveUndoBox].isChecked = false;
  Run(W("x"));
  EXPECT_THAT(UndoFiles(), IsEmpty());
  EXPECT_TRUE(form.UndoAvailable());
}

TEST_F(PanelRuns, StartWithoutLivePreviewPreviewsFirst) {
  Open({W("a.t")});
  Check(kLivePreviewBox, false);
  Run(W("x"));
  ASSERT_EQ(host_.renames.itemRenames.size(), 1u);
  EXPECT_EQ(host_.renames.itemRenames[0].to, W("x.t"));
}

TEST_F(PanelRuns, StartWithoutLivePreviewWaitsForTheEndOfItsPreview) {
  SlowProperties slow;
  Open({W("a.t"), W("b.t")});
  engine_->propertyManager = &slow;
  Check(kLivePreviewBox, false);
  Run(W("x[?p][C]"));
  ASSERT_EQ(host_.renames.itemRenames.size(), 2u);
  EXPECT_EQ(host_.renames.itemRenames[0].to, W("x01.t"));
  EXPECT_EQ(host_.renames.itemRenames[1].to, W("x02.t"));
}

TEST_F(PanelRuns, StartWithLivePreviewTakesTheNamesOfTheLastPreview) {
  Open({W("a.t")});
  view[kNameTemplate].text = W("x");  // not yet reported to the form
  form.Press(kStartButton);
  Settle();
  ASSERT_EQ(host_.renames.itemRenames.size(), 1u);
  EXPECT_EQ(host_.renames.itemRenames[0].to, W("a.t"));
}

TEST_F(PanelRuns, StartInTheMiddleOfAPreviewEndsItFirstSoThatNoRowKeepsAnOlderName) {
  GateProperties gate;
  Open({W("a.t"), W("b.t")});
  PreviewIntoGate(gate);
  WhileHeld(gate.gate, [&] { form.Press(kStartButton); });
  Settle();
  ASSERT_EQ(host_.renames.itemRenames.size(), 2u);
  EXPECT_EQ(host_.renames.itemRenames[0].to, W("x01.t"));
  EXPECT_EQ(host_.renames.itemRenames[1].to, W("x02.t"));
}

TEST_F(PanelRuns, APreviewThatFailsInTheHostKeepsTheStartFromRenamingAndShowsTheBoxOfRowsInTheWay) {
  for (const bool isLive : {true, false}) {
    Open({W("a.t"), W("b.t")});
    ThrowingItem item;
    Row(1).hostItem = &item;
    Check(kLivePreviewBox, isLive);
    Type(kNameTemplate, W("x[F]"));
    Settle();
    view.boxes.shown.clear();
    view.boxes.answers = {IDOK};
    form.Press(kStartButton);
    Settle();
    EXPECT_THAT(view.boxes.shown,
                ElementsAre(RecordedBox{W("T000A0063"), W("T02580064"), MB_OK | MB_ICONERROR}))
        << isLive;
    EXPECT_THAT(host_.renames.calls, IsEmpty());
    EXPECT_THAT(host_.recorder.CallsOf({"config.SaveStringList"}), IsEmpty());
    EXPECT_FALSE(IsClosed(kStartButton));
  }
}

TEST_F(PanelRuns, ARowInTheWayBlocksTheStart) {
  Open({W("a.t"), W("b.t")});
  Type(kNameTemplate, W("same"));
  Settle();
  EXPECT_THAT(States(), ElementsAre(StateDuplicate, StateDuplicate));
  view.boxes.answers = {IDOK};
  form.Press(kStartButton);
  EXPECT_THAT(view.boxes.shown,
              ElementsAre(RecordedBox{W("T000A0063"), W("T02580064"), MB_OK | MB_ICONERROR}));
  Settle();
  EXPECT_THAT(host_.renames.calls, IsEmpty());
  EXPECT_THAT(States(), ElementsAre(StateDuplicate, StateDuplicate));
  EXPECT_FALSE(IsClosed(kStartButton));
}

TEST_F(PanelRuns, EachOfTheStates1To4BlocksAndNoOther) {
  Open({W("a.t")});
  for (const u32 state : {1u, 2u, 3u, 4u}) {
    Row(0).state = state;
    view.boxes.answers = {IDOK};
    form.Press(kStartButton);
    EXPECT_EQ(view.boxes.answers.size(), 0u) << state;
  }
  EXPECT_EQ(view.boxes.shown.size(), 4u);
  for (const u32 state : {0u, 5u, 6u}) {
    Row(0).state = state;
    form.Press(kStartButton);
    Settle();
  }
  EXPECT_EQ(host_.renames.itemRenames.size(), 3u);
}

TEST_F(PanelRuns, AFailedRowBlocksTheNextStartUntilAPreviewHasResetIt) {
  Open({W("a.t"), W("b.t")});
  host_.renames.codes = {{W("x01.t"), ERROR_ACCESS_DENIED}};
  Run(W("x[C]"));
  EXPECT_THAT(States(), ElementsAre(StateFailed, StateRenamed));
  EXPECT_EQ(frameView.panes[1], W("1 Renamed, 1 Failed"));
  view.boxes.answers = {IDOK};
  form.Press(kStartButton);
  EXPECT_EQ(view.boxes.shown.size(), 1u);
  EXPECT_EQ(host_.renames.itemRenames.size(), 2u);
  Run(W("y[C]"));
  EXPECT_EQ(host_.renames.itemRenames.size(), 4u);
}

TEST_F(PanelRuns, WithoutLivePreviewStartResetsAFailedRow) {
  Open({W("a.t")});
  Check(kLivePreviewBox, false);
  host_.renames.codes = {{W("x.t"), ERROR_ACCESS_DENIED}};
  Run(W("x"));
  EXPECT_THAT(States(), ElementsAre(StateFailed));
  form.Press(kStartButton);
  Settle();
  EXPECT_EQ(host_.renames.itemRenames.size(), 2u);
}

TEST_F(PanelRuns, ABlockedStartTakesUndoAwayAndLeavesItsButton) {
  Open({W("a.t")});
  Run(W("x"));
  Type(kNameTemplate, W("?"));
  Settle();
  view.boxes.answers = {IDOK};
  form.Press(kStartButton);
  EXPECT_FALSE(form.UndoAvailable());
  EXPECT_FALSE(IsClosed(kUndoButton));
}

TEST_F(PanelRuns, ABadExpressionAtStartRenamesNothingAndLeavesThePreview) {
  Open({W("a.t")});
  Type(kNameTemplate, W("x"));
  view[kPairFind].text = W("(");
  form.Press(kPairAdd);
  Settle();
  view[kRegexBox].isChecked = true;  // not yet reported to the form
  form.Press(kStartButton);
  EXPECT_NE(frameView.panes[1], W(""));
  Settle();
  EXPECT_THAT(host_.renames.calls, IsEmpty());
  EXPECT_THAT(NewNames(), ElementsAre(W("x.t")));
  EXPECT_FALSE(IsClosed(kStartButton));
}

TEST_F(PanelRuns, ABadExpressionAtStartStillRemovesUndo) {
  Open({W("a.t")});
  Run(W("x"));
  ASSERT_TRUE(form.UndoAvailable());
  view[kPairFind].text = W("(");
  form.Press(kPairAdd);
  Settle();
  view[kRegexBox].isChecked = true;  // not yet reported to the form
  form.Press(kStartButton);
  EXPECT_FALSE(form.UndoAvailable());
  EXPECT_EQ(host_.renames.itemRenames.size(), 1u);
}

TEST_F(PanelRuns, AnEmptyListIsRenamedWithoutAnErrorAndFinishes) {
  Open();
  form.Press(kStartButton);
  Settle();
  EXPECT_THAT(view.boxes.shown, IsEmpty());
  EXPECT_FALSE(IsClosed(kStartButton));
  EXPECT_THAT(UndoFiles(), IsEmpty());
}

TEST_F(PanelRuns, WhenAllRenamesFailUndoIsStillAvailable) {
  Open({W("a.t")});
  host_.renames.codes = {{W("x.t"), ERROR_ACCESS_DENIED}};
  Run(W("x"));
  EXPECT_TRUE(form.UndoAvailable());
  EXPECT_THAT(UndoFiles(), IsEmpty());
  EXPECT_EQ(frameView.panes[1], W("1 Failed"));
}

TEST_F(PanelRuns, AWorkerThatHasEndedLeavesTheControlsEnabled) {
  Open({W("a.t")});
  engine_->worker.Quit();
  ASSERT_TRUE(engine_->worker.WaitForEnd(INFINITE));
  form.Press(kStartButton);
  form.Press(kUndoButton);
  Settle();
  EXPECT_FALSE(IsClosed(kStartButton));
  EXPECT_FALSE(IsClosed(kCloseButton));
  EXPECT_THAT(host_.renames.calls, IsEmpty());
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
    Type(kNameTemplate, FromUtf8("round" + std::to_string(round) + "[N]"));
    Deliver();
    paint();
    if (round % 10 == 5) {
      form.Press(kResetButton);
      paint();
    }
    if (round % 7 == 3) Check(kRegexBox, round % 2 == 0);
  }
  Settle();
  paint();
  EXPECT_EQ(NewNames()[7], W("round29name7.t"));
}

TEST_F(PanelRuns, RunsAndUndosFollowOneAnotherWhileRulesChange) {
  Open({W("a.t"), W("b.t"), W("c.t")});
  for (int round = 0; round < 10; ++round) {
    Type(kNameTemplate, FromUtf8("r" + std::to_string(round) + "[C]"));
    Settle();
    form.Press(kStartButton);
    view[kPairFind].text = W("zzz");
    form.Press(kPairAdd);  // may be pressed during a run
    Settle();
    form.Press(kUndoButton);
    Settle();
  }
  EXPECT_EQ(host_.renames.itemRenames.size(), 30u);
  EXPECT_EQ(host_.renames.pathRenames.size(), 30u);
}

// A host may need the window's thread while it renames.
TEST_F(PanelRuns, APairThatIsAddedDuringARunWaitsForNothingAndIsPreviewedAfterTheRun) {
  Open({W("aX.t")});
  RunGate gate(host_);
  StartIntoGate(gate, W("[N]1"));
  view[kPairFind].text = W("X");
  view[kPairReplace].text = W("-");
  std::atomic<bool> isDelivered{false};
  std::thread opener([&] {
    // Lets the run continue if the window waits for it.
    for (int look = 0; look < 400 && !isDelivered; ++look) Sleep(5);
    if (!isDelivered) gate.go.Release();
  });
  form.Press(kPairAdd);
  Deliver();
  const bool isInRun = engine_->busy;
  isDelivered = true;
  opener.join();
  ASSERT_TRUE(isInRun) << "the window was not alive during the run";
  EXPECT_THAT(view[kPairList].rows, testing::SizeIs(1));
  EXPECT_THAT(NewNames(), ElementsAre(W("aX1.t")));
  gate.go.Release();
  Settle();
  EXPECT_EQ(host_.renames.itemRenames.back().to, W("aX1.t"));
  EXPECT_THAT(NewNames(), ElementsAre(W("a-1.t")));
  EXPECT_EQ(frameView.panes[1], W("1 Renamed"));
}

TEST_F(PanelRuns, AnUpdateDuringARunIsDoneOnceAfterIt) {
  Open({W("a.t")});
  RunGate gate(host_);
  StartIntoGate(gate, W("x"));
  for (int round = 0; round < 3; ++round) EXPECT_TRUE(form.OnMessage(MRM_UPDATE_PREVIEW, 0, 0));
  gate.go.Release();
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_TRUE(form.OnMessage(MRM_RUN_FINISHED, kRenameFinished, 0));
  EXPECT_THAT(Waiting(), ElementsAre(MRM_RUN_FINISHED, MRM_UPDATE_PREVIEW));
  EXPECT_TRUE(form.OnMessage(MRM_RUN_FINISHED, kRenameFinished, 0));
  EXPECT_THAT(Waiting(), IsEmpty());
}

TEST_F(PanelRuns, CloseInTheMiddleOfAPreviewStopsItAndNothingIsPostedAnyMore) {
  GateProperties gate;
  Open({W("a.t"), W("b.t")});
  PreviewIntoGate(gate);
  WhileHeld(gate.gate, [this] { form.Close(); });
  EXPECT_EQ(engine_->notifyWindow, nullptr);
  EXPECT_FALSE(engine_->busy);
  EXPECT_EQ(gate.requests, 1);
  frame.Close();
  engine_->worker.WantPreview();
  engine_->worker.Wake();
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_THAT(Waiting(), IsEmpty());
}

TEST_F(PanelRuns, CloseInTheMiddleOfARunWaitsForItsEnd) {
  Open({W("a.t")});
  RunGate gate(host_);
  StartIntoGate(gate, W("x"));
  WhileHeld(gate.go, [this] { form.Close(); });
  EXPECT_EQ(engine_->notifyWindow, nullptr);
  EXPECT_FALSE(engine_->busy);
  EXPECT_EQ(UndoFiles().size(), 1u);
  frame.Close();
  EXPECT_THAT(list.rows, IsEmpty());
}

TEST_F(PanelRuns, CloseWithAWorkerThatHasEndedTakesTheWindowToo) {
  Open({W("a.t")});
  engine_->worker.Quit();
  ASSERT_TRUE(engine_->worker.WaitForEnd(INFINITE));
  form.Close();
  EXPECT_EQ(engine_->notifyWindow, nullptr);
}

TEST_F(PanelRuns, TheWindowClosesInTheMiddleOfARun) {
  Open({W("a.t")});
  RunGate gate(host_);
  StartIntoGate(gate, W("x"));
  engine_->worker.Quit();
  frame.Close();  // the engine still owns the rows
  context_.rows.Set(nullptr);
  gate.go.Release();
  EXPECT_TRUE(engine_->worker.WaitForEnd(INFINITE));
  EXPECT_EQ(UndoFiles().size(), 1u);
  EXPECT_EQ(engine_->items[0]->state, u32{StateRenamed});
}

}  // namespace
}  // namespace Velmora::SDK
