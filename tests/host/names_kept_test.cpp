// Names that the system would cut: how they are passed, what is restored, and what an undo file stores.
#include <gmock/gmock.h>

#include "host/rename/rename_batch.h"
#include "host/rename/rename_undo.h"
#include "host/rename/run_undo.h"
#include "recorded_output.h"
#include "support/scratch_folder.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace QxHost {
namespace {

class NamesKeptTest : public testing::Test {
 protected:
  NamesKeptTest() : store_(nullptr) {
    scratch_.MakeFolder(W("Undo"));
    store_.folder = scratch_.Path(W("Undo\\"));
    session_.fileName = W("session.dat");
  }

  // Returns the result of one rename, by item or by path.
  u32 Rename(const WCHAR* name, const WCHAR* newName, bool isByPath, bool isInOrder) {
    FileItemTree tree;
    FileOperation operation(tree, *reporter_, recorded_.output, false, isInOrder);
    RenameBatch batch;
    if (isByPath) {
      batch.AddByPath(scratch_.Path(name).c_str(), newName, nullptr);
    } else {
      batch.AddByItem(tree.Find(scratch_.Path(name)), newName, nullptr);
    }
    operation.RunBatch(&batch, nullptr);
    return batch.renames[0].result;
  }

  ScratchFolder scratch_;
  RecordedOutput recorded_;
  std::unique_ptr<Reporter> reporter_ = MakeJsonReporter(recorded_.output);
  Velmora::SDK::MultiRenameUndoStore store_;
  Velmora::SDK::MultiRenameUndo session_;
};

TEST_F(NamesKeptTest, AnItemGetsItsNameWithoutTheEndAndAPathAsItIsGiven) {
  for (const bool isInOrder : {false, true}) {
    scratch_.Write(W("a"), "content");
    EXPECT_EQ(Rename(W("a"), W("b. "), false, isInOrder), 0u);
    EXPECT_THAT(scratch_.Names(), ElementsAre(W("Undo"), W("b")));
    EXPECT_EQ(Rename(W("b"), W("c. "), true, isInOrder), 0u);
    EXPECT_THAT(scratch_.Names(), ElementsAre(W("Undo"), W("c. ")));
    EXPECT_EQ(Rename(W("c. "), W("c. "), false, isInOrder), 10u);
    EXPECT_EQ(Rename(W("c. "), W("c"), true, isInOrder), 0u);
    std::filesystem::remove(scratch_.NativePath(W("c")));
  }
}

TEST_F(NamesKeptTest, AnEndThatTheRunCutsIsNoLossOfTheUndoFile) {
  for (const WCHAR* newName : {W("b.txt "), W("b."), W("b. . ")}) {
    session_.entries = {{W("Z:\\a"), newName, W("a.txt")}};
    store_.Save(session_);
    EXPECT_EQ(CheckUndoFile(recorded_.output, store_, session_), UndoCheck::kKeeps);
    EXPECT_THAT(recorded_.problems, IsEmpty()) << ToUtf8(newName);
  }
}

TEST_F(NamesKeptTest, AnUndoFileThatIsNotWholeIsNone) {
  session_.entries = {{W("Z:\\a"), W("b"), W("a")}};
  EXPECT_EQ(CheckUndoFile(recorded_.output, store_, session_), UndoCheck::kNotWhole);
  scratch_.Write(W("Undo\\session.dat"), "half");
  EXPECT_EQ(CheckUndoFile(recorded_.output, store_, session_), UndoCheck::kNotWhole);
}

TEST_F(NamesKeptTest, AClaimNeedsAFolderThatTakesFilesAndLeavesNothingInIt) {
  {
    RunUndo undo(recorded_.output, store_);
    EXPECT_TRUE(undo.Begin({}));
  }
  EXPECT_THAT(scratch_.Names(W("Undo")), IsEmpty());
  EXPECT_THAT(recorded_.problems, IsEmpty());
  store_.folder = scratch_.Path(W("missing\\"));
  RunUndo undo(recorded_.output, store_);
  EXPECT_TRUE(undo.Begin({}));  // a run that renames nothing needs no undo file
  EXPECT_THAT(recorded_.problems, IsEmpty());
  session_.entries = {{W("Z:\\a"), W("b"), W("a")}};
  EXPECT_FALSE(undo.Begin(session_));
  EXPECT_THAT(recorded_.problems, HasSubstr(", of its lock qxhost.lock"));
  EXPECT_THAT(recorded_.problems, HasSubstr("Nothing was renamed; --no-undo renames without one"));
}

TEST_F(NamesKeptTest, RenamesBeyondTheReadableSizeAreCountedWithoutThoseThatStay) {
  // Each line has 1000 bytes; 5242 of them fit into the file.
  std::vector<Velmora::SDK::MultiRenameItem> rows(6000);
  std::vector<Velmora::SDK::MultiRenameItem*> pointers;
  for (Velmora::SDK::MultiRenameItem& row : rows) {
    row.folderPath = WString(394, W('f'));
    row.oldName = WString(51, W('o'));
    row.newName = WString(51, W('n'));
    pointers.push_back(&row);
  }
  EXPECT_EQ(RenamesBeyondUndo(pointers), 6000u - 5242u);
  for (std::size_t index = 0; index < 1000; ++index) rows[index].newName = rows[index].oldName;
  EXPECT_EQ(RenamesBeyondUndo(pointers), 0u);
}

}  // namespace
}  // namespace QxHost
