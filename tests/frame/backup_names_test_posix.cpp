// Backups: failed moves, and paths longer than the buffer.
#include <gtest/gtest.h>

#include "frame/services/backup_names.h"
#include "platform/posix/files/faults.h"
#include "support/scratch_folder.h"

using namespace Platform;

TEST(MoveToBackup, FailedMoveIsFalseAndTheNameStillExists) {
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

TEST(DeleteBackup, NameThatMayHaveBeenCutIsThatOfAnotherFileAndStays) {
  const ScratchFolder scratch;
  const WString folder = WString(200, W('f'));
  scratch.MakeFolder(folder);
  const std::size_t beforeName = scratch.Path(folder).size() + 1;
  ASSERT_LT(beforeName, 250u);
  // A complete path of 259 characters, and one of 260, which may be the cut path of another file.
  for (const std::size_t size : {259u, 260u}) {
    const WString name = folder + W("\\") + WString(size - beforeName, W('n'));
    const WString path = scratch.Write(name, "bytes");
    ASSERT_EQ(path.size(), size);
    WCHAR backup[kBackupPathSize];
    CopyTerminated(backup, kBackupPathSize, WStringView(path));
    DeleteBackup(backup);
    EXPECT_EQ(scratch.Exists(name), size == 260);
  }
}

TEST(DeleteBackup, AttributesAreSetOnlyWhereTheyPreventIt) {
  for (const DWORD attributes : {FILE_ATTRIBUTE_NORMAL, FILE_ATTRIBUTE_READONLY}) {
    const ScratchFolder scratch;
    const WString path = scratch.Write(W("a.txt"), "bytes");
    ASSERT_TRUE(SetFileAttributesW(path.c_str(), attributes));
    WCHAR backup[kBackupPathSize];
    ASSERT_TRUE(MoveToBackup(path.c_str(), backup));
    const Faults::Scope faults;
    Faults::Watch("SetFileAttributesW");
    DeleteBackup(backup);
    EXPECT_EQ(Faults::CallCount("SetFileAttributesW"), attributes == FILE_ATTRIBUTE_READONLY ? 1 : 0);
    EXPECT_FALSE(scratch.Exists(W("a.txt.bak")));
  }
}

TEST(MakeUniqueFileName, ChecksThePathAndThenEachCandidateOnce) {
  const ScratchFolder scratch;
  WString path = scratch.Write(W("a.txt"), "");
  const Faults::Scope faults;
  Faults::Watch("GetFileAttributesW");
  EXPECT_TRUE(MakeUniqueFileName(path, W(".bak")));
  // The path itself and the first candidate.
  EXPECT_EQ(Faults::CallCount("GetFileAttributesW"), 2);
}
