// The worker: previews, runs and restores, how they are stopped, and which messages they post.
#include "multirename/engine/rename_worker.h"

#include <gmock/gmock.h>

#include <thread>

#include "multirename/engine/multi_rename_item.h"
#include "multirename/gate_properties.h"
#include "multirename/rename_host.h"
#include "multirename/silent_item.h"
#include "platform/message_window.h"
#include "platform/windows_api.h"
#include "support/scratch_folder.h"
#include "support/semaphore.h"
#include "support/wait_limit.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RenameWorkerTest : public testing::Test {
 protected:
  RenameWorkerTest() { host_.configFolder = scratch_.Path() + W("\\"); }

  void Begin(const std::vector<WString>& names, const WString& filenameTemplate = W("x[C]")) {
    rows_ = RowsOf(host_, names);
    Compile(filenameTemplate);
    engine_->notifyWindow = window_.Handle();
    ASSERT_TRUE(engine_->worker.Start());
  }

  void Compile(const WString& filenameTemplate) {
    RuleInput rules = DefaultRules(rows_);
    rules.filenameTemplate = filenameTemplate;
    ASSERT_TRUE(CompileRules(*engine_, std::move(rules)));
  }

  void Preview() {
    engine_->worker.WantPreview();
    engine_->worker.Wake();
  }

  // Returns the next message, such as "33868(1,0)", or "none" if none comes.
  std::string Next(DWORD milliseconds = kWaitLimit) {
    PostedMessage message;
    if (!window_.Take(message, milliseconds)) return "none";
    return std::to_string(message.message) + "(" + std::to_string(message.first) + "," +
           std::to_string(message.second) + ")";
  }

  std::vector<WString> Names() const {
    std::vector<WString> names;
    for (const MultiRenameItem& row : *rows_) names.push_back(row.newName);
    return names;
  }

  std::vector<u32> States() const {
    std::vector<u32> states;
    for (const MultiRenameItem& row : *rows_) states.push_back(row.state);
    return states;
  }

  std::vector<WString> UndoFiles() const { return scratch_.Names(W("Undo")); }

  const ScratchFolder scratch_;
  RenameHost host_;
  MessageWindow window_;
  SharedItems rows_;
  GateProperties gate_;
  std::unique_ptr<MultiRenameEngine> engine_ = [this] {
    host_.configFolder = scratch_.Path() + W("\\");
    return std::make_unique<MultiRenameEngine>(&host_);
  }();
};

TEST_F(RenameWorkerTest, APreviewComputesAllRowsAndPostsItsTwoMessages) {
  Begin({W("a.t"), W("b.t"), W("c?.t")});
  Preview();
  EXPECT_EQ(Next(), "33768(0,0)");
  EXPECT_EQ(Next(), "33868(1,0)");
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_THAT(Names(), ElementsAre(W("x01.t"), W("x02.t"), W("x03.t")));
  EXPECT_THAT(States(), ElementsAre(StateReady, StateReady, StateReady));
  EXPECT_FALSE(engine_->worker.WasPreviewCut());
  EXPECT_FALSE(engine_->busy);
  EXPECT_EQ(Next(0), "none");
}

TEST_F(RenameWorkerTest, APreviewOfNoRowsPostsItsMessagesToo) {
  Begin({});
  Preview();
  EXPECT_EQ(Next(), "33768(0,0)");
  EXPECT_EQ(Next(), "33868(1,0)");
}

TEST_F(RenameWorkerTest, WithoutAWindowNothingIsPosted) {
  Begin({W("a")});
  engine_->notifyWindow = nullptr;
  Preview();
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_THAT(Names(), ElementsAre(W("x01")));
  EXPECT_EQ(Next(0), "none");
}

TEST_F(RenameWorkerTest, AStoppedPreviewEndsAtItsRowAndPostsNothing) {
  engine_->propertyManager = &gate_;
  Begin({W("a"), W("b"), W("c")}, W("x[?p][C]"));
  Preview();
  gate_.entered.Acquire();  // inside the first row
  EXPECT_TRUE(engine_->busy);
  std::thread stopper([this] { EXPECT_TRUE(engine_->worker.StopCurrent()); });
  while (!engine_->worker.IsStopping()) std::this_thread::yield();
  gate_.gate.Release();
  stopper.join();
  EXPECT_EQ(gate_.requests, 1);
  EXPECT_THAT(Names(), ElementsAre(W("x01"), W("b"), W("c")));
  EXPECT_TRUE(engine_->worker.WasPreviewCut());
  EXPECT_FALSE(engine_->busy);
  EXPECT_EQ(Next(0), "none");
}

TEST_F(RenameWorkerTest, OnlyTheLastOfManyPreviewsCompletesAndPosts) {
  engine_->propertyManager = &gate_;
  Begin({W("a"), W("b")}, W("[?p]0"));
  for (int key = 1; key <= 20; ++key) {
    Preview();
    gate_.entered.Acquire();  // inside the first row
    std::thread keyPress([this] { EXPECT_TRUE(engine_->worker.StopCurrent()); });
    while (!engine_->worker.IsStopping()) std::this_thread::yield();
    gate_.gate.Release();
    keyPress.join();
    Compile(W("[?p]") + FromUtf8(std::to_string(key)));
  }
  EXPECT_EQ(gate_.requests, 20);
  EXPECT_THAT(Names(), ElementsAre(W("19"), W("b")));
  gate_.isOpen = true;
  Preview();
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_EQ(Next(), "33768(0,0)");
  EXPECT_EQ(Next(), "33868(1,0)");
  EXPECT_EQ(Next(0), "none");
  EXPECT_THAT(Names(), ElementsAre(W("20"), W("20")));
  EXPECT_THAT(States(), ElementsAre(StateDuplicate, StateDuplicate));
}

TEST_F(RenameWorkerTest, AJobThatIsStoppedSkipsWhatWasAskedForMeanwhileUntilTheNextWake) {
  engine_->propertyManager = &gate_;
  Begin({W("a")}, W("[?p]x"));
  Preview();
  gate_.entered.Acquire();
  std::thread stopper([this] { EXPECT_TRUE(engine_->worker.StopCurrent()); });
  while (!engine_->worker.IsStopping()) std::this_thread::yield();
  engine_->worker.WantRename(false);
  gate_.gate.Release();
  stopper.join();
  EXPECT_THAT(host_.renames.calls, IsEmpty());
  EXPECT_EQ(Next(0), "none");
  engine_->worker.Wake();
  EXPECT_EQ(Next(), "33868(2,0)");
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_EQ(host_.renames.itemRenames.size(), 1u);
}

TEST_F(RenameWorkerTest, ACompilationWaitsForTheEndOfAPreview) {
  engine_->propertyManager = &gate_;
  Begin({W("a")}, W("[?p]x"));
  Preview();
  gate_.entered.Acquire();
  std::atomic<bool> compiled{false};
  std::thread window([this, &compiled] {
    Compile(W("y"));
    compiled = true;
  });
  // The compilation polls every 150 ms.
  Sleep(20);
  EXPECT_FALSE(compiled);
  gate_.gate.Release();
  window.join();
  EXPECT_THAT(Names(), ElementsAre(W("x")));
}

TEST_F(RenameWorkerTest, AWakeStopsTheCurrentPreviewItself) {
  engine_->propertyManager = &gate_;
  Begin({W("a"), W("b")}, W("[?p]x"));
  Preview();
  gate_.entered.Acquire();
  std::thread waker([this] { engine_->worker.Wake(); });
  while (!engine_->worker.IsStopping()) std::this_thread::yield();
  gate_.isOpen = true;
  gate_.gate.Release();
  waker.join();
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  // One row of the first preview, and both of the second.
  EXPECT_EQ(gate_.requests, 3);
  EXPECT_EQ(Next(), "33768(0,0)");
  EXPECT_EQ(Next(), "33868(1,0)");
  EXPECT_EQ(Next(0), "none");
}

TEST_F(RenameWorkerTest, EachRequestTakesThePlaceOfTheOneBefore) {
  Begin({W("a")});
  engine_->restoreSet = std::make_shared<MultiRenameUndo>();
  engine_->worker.WantRename(false);
  engine_->worker.WantRestore();
  engine_->worker.WantPreview();
  engine_->worker.Wake();
  EXPECT_EQ(Next(), "33768(0,0)");
  EXPECT_EQ(Next(), "33868(1,0)");
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  engine_->worker.WantPreview();
  engine_->worker.WantRename(false);
  engine_->worker.WantRestore();
  engine_->worker.Wake();
  EXPECT_EQ(Next(), "33868(3,0)");
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  engine_->worker.WantPreview();
  engine_->worker.WantRestore();
  engine_->worker.WantRename(false);
  engine_->worker.Wake();
  EXPECT_EQ(Next(), "33868(2,0)");
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_EQ(Next(0), "none");
}

TEST_F(RenameWorkerTest, ARestoreIsDoneOnceAndAPreviewAtEveryWake) {
  Begin({W("a")});
  engine_->restoreSet = std::make_shared<MultiRenameUndo>();
  engine_->worker.WantRestore();
  engine_->worker.Wake();
  EXPECT_EQ(Next(), "33868(3,0)");
  engine_->worker.Wake();
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_EQ(Next(0), "none");
  for (int wake = 0; wake < 2; ++wake) {
    wake == 0 ? Preview() : engine_->worker.Wake();
    EXPECT_EQ(Next(), "33768(0,0)");
    EXPECT_EQ(Next(), "33868(1,0)");
    ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  }
}

TEST_F(RenameWorkerTest, ARestoreMarksTheEngineBusyAndAHostThatThrowsEndsIt) {
  Begin({W("a")});
  engine_->restoreSet = std::make_shared<MultiRenameUndo>();
  bool isBusy = false;
  host_.renames.atRun = [this, &isBusy] {
    isBusy = engine_->busy;
    throw std::runtime_error("no");
  };
  engine_->worker.WantRestore();
  engine_->worker.Wake();
  EXPECT_EQ(Next(), "33868(3,0)");
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_TRUE(isBusy);
  EXPECT_FALSE(engine_->busy);
  EXPECT_EQ(host_.servicesOut, 0);
}

TEST_F(RenameWorkerTest, ARunRenamesAllRowsWhateverTheirStatesAndKeepsTheResults) {
  Begin({W("a"), W("b"), W("c"), W("d")});
  Preview();
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  (*rows_)[1].state = StateDuplicate;
  host_.renames.codes = {{W("x02"), ERROR_ALREADY_EXISTS}, {W("x03"), 10}};
  engine_->worker.WantRename(true);
  engine_->worker.Wake();
  EXPECT_EQ(Next(), "33768(0,0)");
  EXPECT_EQ(Next(), "33868(1,0)");
  EXPECT_EQ(Next(), "33868(2,0)");
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_THAT(States(), ElementsAre(StateRenamed, StateFailed, StateIgnored, StateRenamed));
  EXPECT_EQ(StatusText(engine_->status), W("2 Renamed, 1 Ignored, 1 Failed"));
  EXPECT_THAT(host_.renames.calls, ElementsAre("create", "run", "release", "release service"));
  EXPECT_EQ(host_.servicesOut, 0);
  ASSERT_EQ(host_.renames.itemRenames.size(), 4u);
  EXPECT_EQ(host_.renames.itemRenames[1].from, W("b"));
  EXPECT_EQ(host_.renames.itemRenames[1].to, W("x02"));
  EXPECT_EQ(host_.renames.itemRenames[1].data, &(*rows_)[1]);
  EXPECT_EQ((*rows_)[0].oldName, W("a"));
  // The undo file contains the two renamed files.
  EXPECT_THAT(engine_->undoStore.sessions, IsEmpty());
  MultiRenameUndoStore store(&host_);
  store.Load();
  ASSERT_EQ(store.sessions.size(), 1u);
  ASSERT_EQ(store.sessions[0]->entries.size(), 2u);
  EXPECT_EQ(store.sessions[0]->entries[1].folder, W("C:\\view"));
  EXPECT_EQ(store.sessions[0]->entries[1].oldName, W("d"));
  EXPECT_EQ(store.sessions[0]->entries[1].newName, W("x04"));
}

TEST_F(RenameWorkerTest, ASecondWakeWithoutARequestRenamesNothing) {
  Begin({W("a")});
  engine_->worker.WantRename(false);
  engine_->worker.Wake();
  EXPECT_EQ(Next(), "33868(2,0)");
  engine_->worker.Wake();
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_EQ(host_.renames.itemRenames.size(), 1u);
}

TEST_F(RenameWorkerTest, WithoutSavingTheSessionStillJoinsAStoreThatWasRead) {
  engine_->undoStore.Load();
  Begin({W("a")});
  engine_->worker.WantRename(false);
  engine_->worker.Wake();
  EXPECT_EQ(Next(), "33868(2,0)");
  EXPECT_THAT(UndoFiles(), IsEmpty());
  ASSERT_EQ(engine_->undoStore.sessions.size(), 1u);
  EXPECT_EQ(engine_->undoStore.sessions[0]->entries.size(), 1u);
}

TEST_F(RenameWorkerTest, WhenAllRenamesFailThereIsNoUndoFileAndNoSession) {
  engine_->undoStore.Load();
  Begin({W("a")});
  Preview();
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  host_.renames.codes = {{W("x01"), ERROR_ACCESS_DENIED}};
  engine_->worker.WantRename(true);
  engine_->worker.Wake();
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_THAT(States(), ElementsAre(StateFailed));
  EXPECT_THAT(UndoFiles(), IsEmpty());
  EXPECT_THAT(engine_->undoStore.sessions, IsEmpty());
}

TEST_F(RenameWorkerTest, AHostWithoutABatchRenamesNothingAndTheRunEnds) {
  host_.renames.givesBatches = false;
  Begin({W("a")});
  engine_->worker.WantRename(true);
  engine_->worker.Wake();
  EXPECT_EQ(Next(), "33868(2,0)");
  EXPECT_EQ(host_.servicesOut, 0);
  EXPECT_THAT(UndoFiles(), IsEmpty());
}

TEST_F(RenameWorkerTest, AHostThatThrowsEndsTheRunAndTheThreadGoesOn) {
  Begin({W("a")});
  host_.renames.atRun = [] { throw std::runtime_error("no"); };
  engine_->worker.WantRename(true);
  engine_->worker.Wake();
  EXPECT_EQ(Next(), "33868(2,0)");
  EXPECT_EQ(host_.servicesOut, 0);
  Preview();
  EXPECT_EQ(Next(), "33768(0,0)");
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_FALSE(engine_->busy);
}

TEST_F(RenameWorkerTest, ARestoreRenamesEachNewNameBackInItsOrderAndLeavesTheRows) {
  Begin({W("a")});
  auto session = std::make_shared<MultiRenameUndo>();
  session->entries = {{W("C:\\x"), W("n1"), W("o1")}, {W("C:\\y\\"), W("n2"), W("o2")}};
  engine_->restoreSet = session;
  host_.renames.codes = {{W("o2"), ERROR_FILE_NOT_FOUND}};
  engine_->worker.WantRestore();
  engine_->worker.Wake();
  EXPECT_EQ(Next(), "33868(3,0)");
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_THAT(host_.renames.calls, ElementsAre("create", "run paths", "release", "release service"));
  ASSERT_EQ(host_.renames.pathRenames.size(), 2u);
  EXPECT_EQ(host_.renames.pathRenames[0].from, W("C:\\x\\n1"));
  EXPECT_EQ(host_.renames.pathRenames[0].to, W("o1"));
  EXPECT_EQ(host_.renames.pathRenames[1].from, W("C:\\y\\n2"));
  EXPECT_EQ(host_.renames.pathRenames[1].data, &session->entries[1]);
  EXPECT_THAT(States(), ElementsAre(StateReady));
  EXPECT_EQ(StatusText(engine_->status), W("1 Restored, 1 Failed"));
}

TEST_F(RenameWorkerTest, WithNothingToRestoreTheMessageSaysSo) {
  Begin({W("a")});
  engine_->worker.WantRestore();
  engine_->worker.Wake();
  EXPECT_EQ(Next(), "33868(3,1)");
  EXPECT_THAT(host_.renames.calls, IsEmpty());
}

TEST_F(RenameWorkerTest, ARunIsNotStoppedByAStopButWaitedFor) {
  Begin({W("a")});
  Semaphore inRun;
  Semaphore go;
  host_.renames.atRun = [&] {
    inRun.Release();
    go.Acquire();
  };
  engine_->worker.WantRename(true);
  engine_->worker.Wake();
  inRun.Acquire();
  EXPECT_TRUE(engine_->busy);
  std::thread stopper([this] { EXPECT_TRUE(engine_->worker.StopCurrent()); });
  while (!engine_->worker.IsStopping()) std::this_thread::yield();
  go.Release();
  stopper.join();
  EXPECT_EQ(Next(), "33868(2,0)");
  EXPECT_THAT(States(), ElementsAre(StateRenamed));
}

TEST_F(RenameWorkerTest, ARunIsDoneEvenIfItIsStoppedBeforeItBegins) {
  Begin({W("a")});
  for (int run = 1; run <= 100; ++run) {
    engine_->worker.WantRename(false);
    engine_->worker.Wake();
    ASSERT_TRUE(engine_->worker.StopCurrent());
    ASSERT_EQ(Next(), "33868(2,0)") << run;
  }
}

TEST_F(RenameWorkerTest, AThreadThatHasQuitIsNotStartedAgainAndNobodyWaitsForIt) {
  Begin({W("a")});
  EXPECT_TRUE(engine_->worker.IsRunning());
  engine_->worker.Quit();
  ASSERT_TRUE(engine_->worker.WaitForEnd(kWaitLimit));
  EXPECT_FALSE(engine_->worker.IsRunning());
  EXPECT_TRUE(engine_->worker.Start());
  EXPECT_FALSE(engine_->worker.IsRunning());
  Preview();
  EXPECT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_TRUE(engine_->worker.StopCurrent());
  EXPECT_THAT(Names(), ElementsAre(W("a")));
  EXPECT_EQ(Next(0), "none");
}

TEST_F(RenameWorkerTest, AWaitEndsWhenTheThreadQuitsInTheMiddleOfAPreview) {
  engine_->propertyManager = &gate_;
  Begin({W("a"), W("b")}, W("[?p]"));
  Preview();
  gate_.entered.Acquire();
  std::thread waiter([this] { EXPECT_TRUE(engine_->worker.WaitUntilIdle()); });
  engine_->worker.Quit();
  gate_.gate.Release();
  waiter.join();
  EXPECT_TRUE(engine_->worker.WaitForEnd(kWaitLimit));
}

TEST_F(RenameWorkerTest, AnEngineEndsItsThread) {
  Begin({W("a")});
  Preview();
  // Only the engine owns the rows, so they are freed with it.
  const std::weak_ptr<MultiRenameItems> rows = rows_;
  rows_.reset();
  OwnedEngine(engine_.release()).reset();
  EXPECT_TRUE(rows.expired());
  // All messages are posted before the thread ends.
  while (Next(0) != "none") continue;
  EXPECT_EQ(Next(100), "none");
}

TEST_F(RenameWorkerTest, BeforeItsStartAWorkerIsIdleAndWakesNobody) {
  EXPECT_TRUE(engine_->worker.StopCurrent());
  engine_->worker.Wake();
  EXPECT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_FALSE(engine_->worker.IsRunning());
}

TEST_F(RenameWorkerTest, RowsAreReadWhileTheyAreComputed) {
  std::vector<WString> names;
  for (int i = 0; i < 300; ++i) names.push_back(FromUtf8("name" + std::to_string(i)));
  Begin(names, W("a long new name that needs memory [N]"));
  std::atomic<bool> ends{false};
  std::thread painter([&] {
    WCHAR buffer[100];
    while (!ends) {
      for (const MultiRenameItem& row : *rows_) {
        row.CopyNewName(buffer, 100);
        if (WStringView(buffer).find(W("name")) == WStringView::npos || row.state > 6) ADD_FAILURE();
      }
    }
  });
  for (int round = 0; round < 20; ++round) {
    ASSERT_TRUE(engine_->worker.StopCurrent());
    Compile(round % 2 == 0 ? W("[N]") : W("another long name of name [N]"));
    Preview();
    ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  }
  ends = true;
  painter.join();
  EXPECT_EQ(Names()[7], W("another long name of name name7"));
}

TEST_F(RenameWorkerTest, ANewSelectionLeavesTheRowsOfARunningPreviewAlive) {
  engine_->propertyManager = &gate_;
  Begin({W("a"), W("b"), W("c")}, W("[?p][N]"));
  Preview();
  gate_.entered.Acquire();
  // The host's thread reads a new selection while the worker uses the old rows.
  rows_ = RowsOf(host_, {W("d")});
  gate_.isOpen = true;
  gate_.gate.Release();
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  Compile(W("y"));
  Preview();
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_THAT(Names(), ElementsAre(W("y")));
}

TEST_F(RenameWorkerTest, AHostThatThrowsInAPreviewEndsItAndTheThreadGoesOn) {
  Begin({W("a"), W("b")}, W("[F]x"));
  SilentItem thrower;
  thrower.throwsAtTagText = true;
  rows_->back().hostItem = &thrower;
  for (int pass = 0; pass < 2; ++pass) {
    Preview();
    EXPECT_EQ(Next(), "33768(0,0)");
    EXPECT_EQ(Next(), "33868(1,0)");
    ASSERT_TRUE(engine_->worker.WaitUntilIdle());
    EXPECT_FALSE(engine_->busy);
    EXPECT_EQ(engine_->currentItem, nullptr);
    EXPECT_EQ((*rows_)[1].newName, W("b"));
  }
}

}  // namespace
}  // namespace Velmora::SDK
