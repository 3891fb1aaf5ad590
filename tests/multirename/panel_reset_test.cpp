// The panel's Reset File List, and a new selection while the window is open. Runs under the thread sanitizer
// too.
#include <gmock/gmock.h>

#include "frame/host/command_numbers.h"
#include "multirename/engine/multi_rename_item.h"
#include "multirename/engine/rename_worker.h"
#include "multirename/form/panel_controls.h"
#include "multirename/gate_properties.h"
#include "multirename/panel_run_test.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PanelReset : public PanelRunTest {};

TEST_F(PanelReset, ResetReadsTheSelectionOfNow) {
  Open({W("a.t")});
  Run(W("x[C]"));
  EXPECT_TRUE(form.UndoAvailable());
  Select({W("c.t"), W("d.t")});
  form.Press(kResetButton);
  EXPECT_THAT(host_.posted, ElementsAre(kCommandReadSelection));
  EXPECT_FALSE(form.UndoAvailable());
  EXPECT_TRUE(IsClosed(kUndoButton));
  EXPECT_FALSE(IsClosed(kStartButton));
  EXPECT_EQ(frameView.title, W("T000A0063"));
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_THAT(NewNames(), ElementsAre(W("x01.t"), W("x02.t")));
  EXPECT_EQ(Row(0).oldName, W("c.t"));
  for (const UINT message : Waiting())
    EXPECT_NE(message, MRM_UPDATE_PREVIEW);  // updated at once, not by a message
}

TEST_F(PanelReset, ResetEndsALoadedSession) {
  KeepSession(5, {{W("C:\\f"), W("n.t"), W("o.t")}});
  Open({W("a.t")});
  LoadSessionOfRow(0);
  view[kResetButton].isEnabled = true;  // which the user cannot do
  form.Press(kResetButton);
  EXPECT_FALSE(form.SessionLoaded());
  EXPECT_EQ(form.LoadedSession(), nullptr);
  EXPECT_EQ(frameView.title, W("T000A0063"));
  EXPECT_FALSE(IsClosed(kStartButton));
  EXPECT_TRUE(IsClosed(kUndoButton));
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("a.t")));
}

TEST_F(PanelReset, TheListIsEmptyWhileTheSelectionIsRead) {
  Open({W("a.t")});
  std::size_t rows = 99;
  host_.beforeReading = [&] { rows = list.rows.size(); };
  form.Press(kResetButton);
  EXPECT_EQ(rows, 0u);
  EXPECT_EQ(list.rows.size(), 1u);
}

TEST_F(PanelReset, ResetInTheMiddleOfAPreviewStopsItFirst) {
  GateProperties gate;
  Open({W("a.t"), W("b.t")});
  PreviewIntoGate(gate);
  bool isBusy = true;
  host_.beforeReading = [&] { isBusy = engine_->busy; };
  Select({W("c.t")});
  WhileHeld(gate.gate, [this] { form.Press(kResetButton); });
  EXPECT_FALSE(isBusy);
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("x01.t")));
}

TEST_F(PanelReset, AnUpdateInTheMiddleOfAResetCompilesNothing) {
  Open({W("a.t")});
  view[kPairFind].text = W("(");
  form.Press(kPairAdd);
  Settle();
  view[kRegexBox].isChecked = true;  // not yet reported to the form; now the rules do not compile
  int updates = 0;
  list.atClear = [&] {
    EXPECT_TRUE(form.OnMessage(MRM_UPDATE_PREVIEW, 0, 0));
    EXPECT_EQ(frameView.panes[1], W(""));
    ++updates;
  };
  form.Press(kResetButton);
  EXPECT_GT(updates, 0);
  EXPECT_NE(frameView.panes[1], W(""));  // after the reset
}

TEST_F(PanelReset, ResetEndsItsWaitWhenTheHostIsClosing) {
  Open({W("a.t")});
  host_.runsCommand = false;
  std::thread closing([this] { context_.hostClosing = true; });
  form.Press(kResetButton);
  closing.join();
  EXPECT_THAT(list.rows, IsEmpty());
  // The event is left to the host, which may still set it.
  ASSERT_TRUE(SetEvent(reinterpret_cast<HANDLE>(host_.event)));
  CloseHandle(reinterpret_cast<HANDLE>(host_.event));
}

TEST_F(PanelReset, ResetWaitsForAHostThatIsSlow) {
  Open({W("a.t")});
  host_.beforeReading = [] { Sleep(400); };  // longer than one of its waits
  Select({W("c.t"), W("d.t")});
  form.Press(kResetButton);
  EXPECT_EQ(list.rows.size(), 2u);
}

// A new selection.

TEST_F(PanelReset, ANewSelectionEmptiesTheListUntilReset) {
  Open({W("a.t")});
  Select({W("c.t")});
  context_.rows.Set(ReadSelection(host_));
  ASSERT_TRUE(PostMessageW(view.Window(), MRM_NEW_SELECTION, 0, 0));
  EXPECT_EQ(list.rows.size(), 1u);
  Deliver();
  EXPECT_THAT(list.rows, IsEmpty());
  Type(kNameTemplate, W("x"));
  Settle();
  EXPECT_THAT(list.rows, IsEmpty());
  form.Press(kResetButton);
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("x.t")));
}

TEST_F(PanelReset, ANewSelectionInTheMiddleOfAPreviewStopsItBeforeTheRowsGo) {
  GateProperties gate;
  Open({W("a.t"), W("b.t")});
  PreviewIntoGate(gate);
  bool isBusy = true;
  list.atClear = [&] { isBusy = engine_->busy; };
  context_.rows.Set(ReadSelection(host_));
  WhileHeld(gate.gate, [this] { EXPECT_TRUE(form.OnMessage(MRM_NEW_SELECTION, 0, 0)); });
  EXPECT_FALSE(isBusy);
  EXPECT_THAT(list.rows, IsEmpty());
  EXPECT_EQ(gate.requests, 1);  // the second row was not started
}

TEST_F(PanelReset, ANewSelectionInTheMiddleOfARunWaitsForItsEndBeforeTheRowsGo) {
  Open({W("a.t"), W("b.t")});
  RunGate gate(host_);
  StartIntoGate(gate, W("x[C]"));
  bool isBusy = true;
  std::vector<u32> states;
  list.atClear = [&] {
    isBusy = engine_->busy;
    states = States();
  };
  context_.rows.Set(ReadSelection(host_));
  EXPECT_TRUE(form.OnMessage(MRM_NEW_SELECTION, 0, 0));
  EXPECT_EQ(list.rows.size(), 2u);
  gate.go.Release();
  Settle();
  EXPECT_FALSE(isBusy);
  EXPECT_THAT(states, ElementsAre(StateRenamed, StateRenamed));
  EXPECT_THAT(list.rows, IsEmpty());
  EXPECT_FALSE(IsClosed(kStartButton));
  EXPECT_EQ(UndoFiles().size(), 1u);
}

TEST_F(PanelReset, ANewSelectionEmptiesTheListOfALoadedSessionAndUndoHasNothingToTakeBack) {
  KeepSession(5, {{W("C:\\f"), W("n.t"), W("o.t")}});
  Open({W("a.t")});
  LoadSessionOfRow(0);
  EXPECT_EQ(context_.rows.Get(), frame.List().Items());
  context_.rows.Set(ReadSelection(host_));
  EXPECT_TRUE(form.OnMessage(MRM_NEW_SELECTION, 0, 0));
  EXPECT_THAT(list.rows, IsEmpty());
  form.Press(kUndoButton);
  Settle();
  EXPECT_THAT(host_.renames.calls, IsEmpty());
}

TEST_F(PanelReset, ANewSelectionThatAResetHasShownIsPassedOver) {
  Open({W("a.t")});
  Select({W("c.t")});
  context_.rows.Set(ReadSelection(host_));
  ASSERT_TRUE(PostMessageW(view.Window(), MRM_NEW_SELECTION, 0, 0));
  form.Press(kResetButton);
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("c.t")));
}

TEST_F(PanelReset, ANewSelectionThatTheFirstFillHasShownIsPassedOver) {
  GateProperties gate;
  Open({W("a.t"), W("b.t")});
  Select({W("c.t"), W("d.t")});
  context_.rows.Set(ReadSelection(host_));
  frame.FillList();
  PreviewIntoGate(gate);
  WhileHeld(gate.gate,
            [this] { EXPECT_TRUE(form.OnMessage(MRM_NEW_SELECTION, 0, 0)); });  // does not stop a preview
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("x01.t"), W("x02.t")));
}

}  // namespace
}  // namespace Velmora::SDK
