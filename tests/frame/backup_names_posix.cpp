// Backups: a move that fails, and paths beyond the buffer.
#include <gtest/gtest.h>

#include "frame/services/backup_names.h"
#include "platform/posix/faults.h"
#include "support/scratch_folder.h"

using namespace Platform;

TEST(MoveToBackup, FailedMoveIsFalseAndTheNameIsThereAllTheSame) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "bytes");
  WCHAR backup[kBackupPathSize];
  const Faults::Scope faults;
  Faults::Fail("MoveFileW", 1, ERROR_SHARING_VIOLATION);
  EXPECT_FALSE(MoveToBackup(path.c_str(), backup));
  EXPECT_EQ(WString(backup), scratch.Path(W("a.txt.bak")));
  EXPECT_EQ(scratch.Read(W("a.txt")), "bytes");
}

TEST(MoveToBackup, BackupPathIsCutAt260CharactersAndTheMoveIsNot) {
  const ScratchFolder scratch;
  const WString name = WString(200, W('f')) + W("\\") + WString(200, W('n'));
  scratch.MakeFolder(WString(200, W('f')));
  const WString path = scratch.Write(name, "bytes");
  ASSERT_GT(path.size(), 260u);
  WCHAR backup[kBackupPathSize];
  EXPECT_TRUE(MoveToBackup(path.c_str(), backup));
  EXPECT_EQ(WString(backup), path.substr(0, 260));
  EXPECT_EQ(scratch.Read(name + W(".bak")), "bytes");
}

TEST(MakeUniqueFileName, LooksAtThePathAndThenAtEachCandidateOnce) {
  const ScratchFolder scratch;
  WString path = scratch.Write(W("a.txt"), "");
  const Faults::Scope faults;
  Faults::Watch("GetFileAttributesW");
  EXPECT_TRUE(MakeUniqueFileName(path, W(".bak")));
  // The path itself and the first candidate.
  EXPECT_EQ(Faults::CallCount("GetFileAttributesW"), 2);
}
