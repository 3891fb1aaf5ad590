// Undo files that cannot be opened, read, written or deleted.
#include <gmock/gmock.h>

#include "multirename/saved/multi_rename_undo_store.h"
#include "platform/posix/files/faults.h"
#include "support/scratch_folder.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class MultiRenameUndoStoreFaults : public testing::Test {
 protected:
  MultiRenameUndoStoreFaults() : store_(nullptr) {
    store_.folder = scratch_.Path() + W('\\');
    for (const WORD second : {WORD{1}, WORD{2}}) {
      session_.fileName.clear();
      session_.date = {2026, 3, 0, 5, 14, 7, second, 0};
      session_.entries = {{W("C:\\Data"), W("b.txt"), W("a.txt")}};
      store_.Save(session_);
    }
  }

  const Platform::Faults::Scope faults_;
  const ScratchFolder scratch_;
  MultiRenameUndoStore store_;
  MultiRenameUndo session_;
};

TEST_F(MultiRenameUndoStoreFaults, AFileThatCannotBeOpenedIsSkippedAndTheOthersAreRead) {
  Platform::Faults::Fail("CreateFileW", 1, ERROR_SHARING_VIOLATION);
  store_.Load();
  EXPECT_THAT(store_.sessions, SizeIs(1));
}

TEST_F(MultiRenameUndoStoreFaults, AFileThatCannotBeReadIsSkippedAndTheOthersAreRead) {
  Platform::Faults::Fail("ReadFile", 1, ERROR_IO_DEVICE);
  store_.Load();
  EXPECT_THAT(store_.sessions, SizeIs(1));
}

TEST_F(MultiRenameUndoStoreFaults, AFolderThatCannotBeReadHasNoSessionsAndCountsAsRead) {
  Platform::Faults::Fail("FindFirstFileExW", 1, ERROR_ACCESS_DENIED);
  store_.Load();
  store_.Load();
  EXPECT_TRUE(store_.loaded);
  EXPECT_THAT(store_.sessions, IsEmpty());
}

TEST_F(MultiRenameUndoStoreFaults, AWriteThatFailsIsNotReportedAndLeavesNoHalfFile) {
  Platform::Faults::Fail("WriteFile", 1, ERROR_DISK_FULL, true);
  session_.fileName = W("full.dat");
  store_.Save(session_);
  Platform::Faults::Clear();
  EXPECT_THAT(scratch_.Names(), SizeIs(2));
}

TEST_F(MultiRenameUndoStoreFaults, ADiskThatIsFullHalfWayLeavesNoHalfFileEither) {
  for (int entry = 0; entry < 20000; ++entry)
    session_.entries.push_back({W("C:\\Data"), W("new.txt"), W("old.txt")});
  session_.fileName = W("full.dat");
  Platform::Faults::Fail("WriteFile", 2, ERROR_DISK_FULL);
  store_.Save(session_);
  Platform::Faults::Clear();
  EXPECT_THAT(scratch_.Names(), SizeIs(2));
}

TEST_F(MultiRenameUndoStoreFaults, ASessionThatIsWrittenAgainOnAFullDiskKeepsItsFile) {
  const std::string before = scratch_.Read(session_.fileName);
  session_.haveRestored = true;
  Platform::Faults::Fail("WriteFile", 1, ERROR_DISK_FULL, true);
  store_.Save(session_);
  Platform::Faults::Clear();
  EXPECT_THAT(scratch_.Names(), SizeIs(2));
  EXPECT_EQ(scratch_.Read(session_.fileName), before);
  store_.Save(session_);
  EXPECT_THAT(scratch_.Names(), SizeIs(2));
  EXPECT_NE(scratch_.Read(session_.fileName), before);
}

TEST_F(MultiRenameUndoStoreFaults, ASessionWhoseFileCannotBeOpenedAgainKeepsIt) {
  const std::string before = scratch_.Read(session_.fileName);
  session_.haveRestored = true;
  Platform::Faults::Fail("CreateFileW", 2, ERROR_SHARING_VIOLATION);
  store_.Save(session_);
  EXPECT_THAT(scratch_.Names(), SizeIs(2));
  EXPECT_EQ(scratch_.Read(session_.fileName), before);
}

TEST_F(MultiRenameUndoStoreFaults, ASessionWhoseFileCannotBeWrittenAgainToItsEndIsStillRecorded) {
  Platform::Faults::Watch("WriteFile");
  session_.haveRestored = true;
  store_.Save(session_);
  const int writes = Platform::Faults::CallCount("WriteFile") / 2;  // of one file
  ASSERT_GT(writes, 0);
  const std::string after = scratch_.Read(session_.fileName);
  const WString name = session_.fileName;
  for (const bool canMove : {true, false}) {
    Platform::Faults::Fail("WriteFile", writes + 1, ERROR_DISK_FULL, true);
    if (!canMove) Platform::Faults::Fail("MoveFileW", 1, ERROR_ACCESS_DENIED);
    store_.Save(session_);
    Platform::Faults::Clear();
    EXPECT_THAT(scratch_.Names(), SizeIs(2));
    EXPECT_EQ(session_.fileName == name, canMove);
    EXPECT_EQ(scratch_.Read(session_.fileName), after);
  }
}

TEST_F(MultiRenameUndoStoreFaults, AShortWriteOfAnUndoFileIsGoneOnWith) {
  session_.fileName = W("short.dat");
  Platform::Faults::WriteShort(1, 7);
  store_.Save(session_);
  Platform::Faults::Clear();
  store_.Load();
  EXPECT_THAT(store_.sessions, SizeIs(3));
}

TEST_F(MultiRenameUndoStoreFaults, ASessionWhoseFileCannotBeDeletedStaysAndDeleteAllGoesOn) {
  store_.Load();
  const MultiRenameUndo* const first = store_.sessions.front().get();
  Platform::Faults::Fail("DeleteFileW", 1, ERROR_ACCESS_DENIED);
  EXPECT_FALSE(store_.Delete(first));
  EXPECT_THAT(store_.sessions, SizeIs(2));
  Platform::Faults::Fail("DeleteFileW", 1, ERROR_ACCESS_DENIED);
  store_.DeleteAll();
  ASSERT_THAT(store_.sessions, SizeIs(1));
  EXPECT_EQ(store_.sessions.front().get(), first);
  EXPECT_THAT(scratch_.Names(), ElementsAre(first->fileName));
}

}  // namespace
}  // namespace Velmora::SDK
