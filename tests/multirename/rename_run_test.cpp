// Runs and restores over a host, without the worker's thread: their counts, the states of the rows, and the
// session that remains.
#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>

#include "multirename/engine/multi_rename_item.h"
#include "multirename/moments.h"
#include "multirename/rename_host.h"
#include "platform/windows_api.h"
#include "support/scratch_folder.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class RenameRunTest : public testing::Test {
 protected:
  // Makes rows with these names, whose new names are "new " followed by the old ones.
  void Rows(const std::vector<WString>& names) {
    rows_ = RowsOf(host_, names);
    RuleInput rules = DefaultRules(rows_);
    rules.filenameTemplate = W("new [N]");
    ASSERT_TRUE(CompileRules(*engine_, std::move(rules)));
    for (MultiRenameItem* const row : engine_->items) ComputeName(*engine_, *row);
  }

  std::vector<u32> States() const {
    std::vector<u32> states;
    for (const MultiRenameItem& row : *rows_) states.push_back(row.state);
    return states;
  }

  std::vector<WString> UndoFiles() const { return scratch_.Names(W("Undo")); }

  // Returns "old name>new name" for each entry.
  static std::vector<std::string> Entries(const MultiRenameUndo& session) {
    std::vector<std::string> shown;
    for (const MultiRenameUndoEntry& entry : session.entries) {
      shown.push_back(ToUtf8(entry.oldName) + ">" + ToUtf8(entry.newName));
    }
    return shown;
  }

  const ScratchFolder scratch_;
  RenameHost host_;
  SharedItems rows_;
  std::unique_ptr<MultiRenameEngine> engine_ = [this] {
    host_.configFolder = scratch_.Path() + W("\\");
    return std::make_unique<MultiRenameEngine>(&host_);
  }();
};

TEST_F(RenameRunTest, ARunForgetsTheCountsAndTheErrorOfBefore) {
  Rows({W("a"), W("b")});
  engine_->status.BeginRun(kRestoreRun);
  for (const u32 code : {0u, 10u, 5u, 5u}) engine_->status.CountResult(code);
  engine_->status.SetError(W("bad"));
  RunRenames(*engine_, false);
  EXPECT_EQ(StatusText(engine_->status), W("2 Renamed"));
}

TEST_F(RenameRunTest, ARestoreForgetsTheCountsAndTheErrorOfBefore) {
  Rows({W("a"), W("b"), W("c")});
  host_.renames.codes = {{W("new a"), ERROR_ACCESS_DENIED}, {W("new b"), 10}};
  RunRenames(*engine_, false);
  EXPECT_EQ(StatusText(engine_->status), W("1 Renamed, 1 Ignored, 1 Failed"));
  engine_->status.SetError(W("bad"));
  MultiRenameUndo session;
  session.entries = {{W("C:\\view"), W("new c"), W("c")}};
  RunRestore(*engine_, session);
  EXPECT_EQ(StatusText(engine_->status), W("1 Restored"));
}

TEST_F(RenameRunTest, EachResultSetsTheStateOfItsOwnRow) {
  Rows({W("a"), W("b"), W("c"), W("d"), W("e")});
  host_.renames.codes = {{W("new a"), 1}, {W("new b"), 9}, {W("new c"), 11}, {W("new d"), 0xFFFFFFFF}};
  for (MultiRenameItem& row : *rows_) row.state = StateRenamed;
  RunRenames(*engine_, true);
  EXPECT_THAT(States(), ElementsAre(StateFailed, StateFailed, StateFailed, StateFailed, StateRenamed));
  EXPECT_EQ(StatusText(engine_->status), W("1 Renamed, 4 Failed"));
}

TEST_F(RenameRunTest, NoRowsAreARunOfNothing) {
  Rows({});
  engine_->undoStore.Load();
  RunRenames(*engine_, true);
  EXPECT_EQ(engine_->status.runKind, 2u);
  EXPECT_EQ(StatusText(engine_->status), W(""));
  EXPECT_THAT(engine_->undoStore.sessions, IsEmpty());
  EXPECT_THAT(UndoFiles(), IsEmpty());
}

TEST_F(RenameRunTest, WithoutAHostNothingIsRenamedAndNothingFails) {
  FakeHost other;
  MultiRenameEngine engine(nullptr);
  ASSERT_TRUE(CompileRules(engine, DefaultRules(RowsOf(other, {W("a")}))));
  engine.items.front()->state = StateRenamed;
  engine.undoStore.loaded = true;
  RunRenames(engine, true);
  EXPECT_EQ(engine.status.runKind, 2u);
  EXPECT_THAT(engine.undoStore.sessions, IsEmpty());
  RunRestore(engine, {});
  EXPECT_EQ(engine.status.runKind, 3u);
}

TEST_F(RenameRunTest, ARowOfASessionIsNotHandedToTheHost) {
  MultiRenameUndo session;
  session.entries = {{W("C:\\x"), W("new"), W("old")}};
  ASSERT_TRUE(CompileRules(*engine_, DefaultRules(LoadSession(session))));
  RunRenames(*engine_, false);
  EXPECT_THAT(host_.renames.itemRenames, IsEmpty());
  EXPECT_EQ(StatusText(engine_->status), W(""));
}

TEST_F(RenameRunTest, ANewNameIsHandedOverAsItIsWhateverItHolds) {
  Rows({W("a"), W("b")});
  (*rows_)[0].newName = W("x|?\\y");
  (*rows_)[1].newName.clear();
  RunRenames(*engine_, false);
  ASSERT_THAT(host_.renames.itemRenames, SizeIs(2));
  EXPECT_EQ(host_.renames.itemRenames[0].to, W("x|?\\y"));
  EXPECT_EQ(host_.renames.itemRenames[1].to, W(""));
}

TEST_F(RenameRunTest, TheDateOfASessionIsTheLocalTimeAfterItsRenamesAndItsFileIsNamedAfterIt) {
  engine_->undoStore.Load();
  Rows({W("a")});
  SYSTEMTIME inRun{};
  host_.renames.atRun = [&inRun] { GetLocalTime(&inRun); };
  RunRenames(*engine_, true);
  SYSTEMTIME after{};
  GetLocalTime(&after);
  ASSERT_THAT(engine_->undoStore.sessions, SizeIs(1));
  const SYSTEMTIME& date = engine_->undoStore.sessions[0]->date;
  EXPECT_GE(MomentText(date), MomentText(inRun));
  EXPECT_LE(MomentText(date), MomentText(after));
  const std::string moment = MomentText(date);
  EXPECT_THAT(UndoFiles(),
              ElementsAre(FromUtf8("MultiRenameUndoData-" + moment.substr(0, 4) + "-" + moment.substr(4, 2) +
                                   "-" + moment.substr(6, 2) + "-" + moment.substr(9, 6) + ".dat")));
}

// The file name contains the time to the second, so a later run in that second replaces the file of the
// earlier one.
TEST_F(RenameRunTest, OfTwoRunsInOneSecondTheLaterHasTheFileAndEachSessionInMemoryKeepsItsOwnEntries) {
  constexpr int kTries = 100;
  engine_->undoStore.Load();
  const auto& sessions = engine_->undoStore.sessions;
  for (int attempt = 0; attempt < kTries; ++attempt) {
    Rows({W("a"), W("b")});
    RunRenames(*engine_, true);
    Rows({W("c")});
    RunRenames(*engine_, true);
    if (sessions.back()->fileName == (*(sessions.end() - 2))->fileName) break;
  }
  ASSERT_GE(sessions.size(), 2u);
  MultiRenameUndo& earlier = **(sessions.end() - 2);
  MultiRenameUndo& later = *sessions.back();
  ASSERT_EQ(earlier.GetFileName(), later.GetFileName());
  EXPECT_THAT(Entries(earlier), ElementsAre("a>new a", "b>new b"));
  EXPECT_THAT(Entries(later), ElementsAre("c>new c"));
  MultiRenameUndoStore store(&host_);
  store.Load();
  ASSERT_FALSE(store.sessions.empty());
  for (const auto& session : store.sessions) {
    if (session->fileName == later.fileName) {
      EXPECT_THAT(Entries(*session), ElementsAre("c>new c"));
    }
  }
  EXPECT_EQ(std::ranges::count(UndoFiles(), later.fileName), 1);
}

TEST_F(RenameRunTest, ASessionThatWasRestoredIsPassedToTheHostASecondTimeToo) {
  Rows({W("a")});
  engine_->undoStore.Load();
  RunRenames(*engine_, true);
  MultiRenameUndo& session = *engine_->undoStore.sessions.front();
  session.haveRestored = true;
  RunRestore(*engine_, session);
  host_.renames.codes = {{W("a"), ERROR_FILE_NOT_FOUND}};
  RunRestore(*engine_, session);
  EXPECT_THAT(host_.renames.pathRenames, SizeIs(2));
  EXPECT_EQ(host_.renames.pathRenames[1].from, W("C:\\view\\new a"));
  EXPECT_EQ(host_.renames.pathRenames[1].to, W("a"));
  EXPECT_EQ(StatusText(engine_->status), W("1 Failed"));
}

TEST_F(RenameRunTest, ARestoreOfAllRowsPassesThoseOnThatFailedBefore) {
  Rows({W("a"), W("b"), W("c")});
  host_.renames.codes = {{W("new b"), ERROR_ACCESS_DENIED}, {W("new c"), 10}};
  RunRenames(*engine_, true);
  MultiRenameUndo all;
  all.FromRows(engine_->items, false);
  host_.renames.codes = {{W("b"), ERROR_FILE_NOT_FOUND}, {W("c"), ERROR_FILE_NOT_FOUND}};
  RunRestore(*engine_, all);
  ASSERT_THAT(host_.renames.pathRenames, SizeIs(3));
  EXPECT_EQ(host_.renames.pathRenames[1].from, W("C:\\view\\new b"));
  EXPECT_EQ(StatusText(engine_->status), W("1 Restored, 2 Failed"));
  // The results of a restore are not stored in the rows.
  EXPECT_THAT(States(), ElementsAre(StateRenamed, StateFailed, StateIgnored));
}

// Rows have such names if the rules were changed after the run. The path would be that of the folder itself,
// or of a file in another one.
TEST_F(RenameRunTest, ARestoreDoesNotAskTheHostForWhatIsNoNameOfAFile) {
  MultiRenameUndo session;
  for (const WCHAR* const name : {W(""), W("."), W(".."), W(" "), W(". ."), W("sub\\a"), W("sub/a"),
                                  W("..\\a"), W("a:b"), W(".a"), W("a.")})
    session.entries.push_back({W("C:\\view"), name, W("old")});
  RunRestore(*engine_, session);
  ASSERT_THAT(host_.renames.pathRenames, SizeIs(2));
  EXPECT_EQ(host_.renames.pathRenames[0].from, W("C:\\view\\.a"));
  EXPECT_EQ(host_.renames.pathRenames[1].from, W("C:\\view\\a."));
  EXPECT_EQ(StatusText(engine_->status), W("2 Restored, 9 Failed"));
}

TEST_F(RenameRunTest, AfterARunTheNextNamesAreComputedFromTheOldOnesAgain) {
  Rows({W("a.txt")});
  RunRenames(*engine_, false);
  EXPECT_EQ(rows_->front().oldName, W("a.txt"));
  EXPECT_EQ(rows_->front().newName, W("new a.txt"));
  const std::atomic<bool> never = false;
  ASSERT_TRUE(ComputeNames(*engine_, never));
  EXPECT_EQ(rows_->front().newName, W("new a.txt"));
  EXPECT_THAT(States(), ElementsAre(StateReady));
}

TEST_F(RenameRunTest, AStateOfAnEarlierRunBlocksUntilAPreviewResetsIt) {
  Rows({W("a"), W("b")});
  host_.renames.codes = {{W("new a"), ERROR_ACCESS_DENIED}, {W("new b"), 10}};
  RunRenames(*engine_, false);
  for (const MultiRenameItem& row : *rows_) EXPECT_TRUE(BlocksStart(row.state));
  const std::atomic<bool> never = false;
  ASSERT_TRUE(ComputeNames(*engine_, never));
  for (const MultiRenameItem& row : *rows_) EXPECT_FALSE(BlocksStart(row.state));
}

TEST_F(RenameRunTest, AnUndoFileThatCannotBeWrittenIsNotReportedAndTheSessionJoinsTheStore) {
  engine_->undoStore.Load();
  engine_->undoStore.folder = scratch_.Path(W("missing\\"));
  Rows({W("a")});
  RunRenames(*engine_, true);
  EXPECT_EQ(StatusText(engine_->status), W("1 Renamed"));
  EXPECT_THAT(engine_->undoStore.sessions, SizeIs(1));
  EXPECT_FALSE(scratch_.Exists(W("missing")));
}

}  // namespace
}  // namespace Velmora::SDK
