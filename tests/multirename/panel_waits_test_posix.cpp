// If the panel's wait for its worker fails, nothing is changed that the worker may still use.
#include <gmock/gmock.h>

#include "multirename/engine/rename_worker.h"
#include "multirename/form/panel_controls.h"
#include "multirename/panel_run_test.h"
#include "platform/posix/files/faults.h"

namespace Velmora::SDK {
namespace {

using testing::IsEmpty;

class PanelWaits : public PanelRunTest {
 protected:
  void OpenWithAPreviewInTheGate() {
    Open({W("a.t"), W("b.t")});
    PreviewIntoGate(gate_);
  }

  // Performs an action whose wait for the worker fails; afterwards the preview finishes.
  template <typename Action>
  void WithoutAWait(Action action) {
    // The first call checks whether the thread exists.
    Platform::Faults::Fail("WaitForSingleObject", 2, ERROR_INVALID_HANDLE);
    std::atomic<bool> isDone{false};
    std::thread opener([&] {
      // A further call would wait for the preview; releasing it ends that wait.
      while (Platform::Faults::CallCount("WaitForSingleObject") <= 2 && !isDone) std::this_thread::yield();
      gate_.gate.Release();
    });
    action();
    EXPECT_EQ(Platform::Faults::CallCount("WaitForSingleObject"), 2);
    EXPECT_TRUE(engine_->busy);
    isDone = true;
    opener.join();
    Platform::Faults::Clear();
    ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  }

  GateProperties gate_;
  const Platform::Faults::Scope faults_;
};

TEST_F(PanelWaits, SavingOverAProfileRemovesNothing) {
  profiles_.filePath = W("C:\\config\\MultiRenameProfiles.xml");
  auto profile = std::make_unique<MultiRenameProfile>();
  profile->name = W("one");
  const MultiRenameProfile* const kept = profile.get();
  profiles_.Add(std::move(profile));
  OpenWithAPreviewInTheGate();
  host_.textAnswers.push_back({true, W("ONE")});
  view.boxes.answers = {IDYES};
  WithoutAWait([this] { Choose(kProfileBox, 1); });
  EXPECT_EQ(view.boxes.shown.size(), 1u);
  ASSERT_EQ(profiles_.profiles.size(), 1u);
  EXPECT_EQ(profiles_.profiles[0].get(), kept);
  EXPECT_TRUE(host_.files.saved.empty());
}

TEST_F(PanelWaits, ANewSelectionLeavesTheList) {
  OpenWithAPreviewInTheGate();
  context_.rows.Set(ReadSelection(host_));
  WithoutAWait([this] { EXPECT_TRUE(form.OnMessage(MRM_NEW_SELECTION, 0, 0)); });
  EXPECT_EQ(list.rows.size(), 2u);
}

TEST_F(PanelWaits, AResetReadsNothing) {
  OpenWithAPreviewInTheGate();
  WithoutAWait([this] { form.Press(kResetButton); });
  EXPECT_THAT(host_.posted, IsEmpty());
  EXPECT_EQ(list.rows.size(), 2u);
}

TEST_F(PanelWaits, StartRenamesNothing) {
  OpenWithAPreviewInTheGate();
  WithoutAWait([this] { form.Press(kStartButton); });
  EXPECT_FALSE(IsClosed(kStartButton));
  EXPECT_THAT(host_.renames.calls, IsEmpty());
}

TEST_F(PanelWaits, UndoMakesNoSetToRestore) {
  OpenWithAPreviewInTheGate();
  view[kUndoButton].isEnabled = true;
  WithoutAWait([this] { form.Press(kUndoButton); });
  EXPECT_EQ(engine_->restoreSet, nullptr);
  EXPECT_THAT(host_.renames.calls, IsEmpty());
}

TEST_F(PanelWaits, CloseLeavesTheWindowThatTheWorkerMayBeReading) {
  OpenWithAPreviewInTheGate();
  WithoutAWait([this] { form.Close(); });
  EXPECT_EQ(engine_->notifyWindow, view.Window());
}

// The native build does not reuse the value of a closed handle at once.
TEST_F(PanelWaits, AResetClosesItsEvent) {
  Open({W("a.t")});
  form.Press(kResetButton);
  host_.Join();
  EXPECT_FALSE(SetEvent(reinterpret_cast<HANDLE>(host_.event)));
}

}  // namespace
}  // namespace Velmora::SDK
