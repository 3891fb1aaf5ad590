// Alternative names for existing targets, and moving a target out of the way.
#include "frame/services/backup_names.h"

#include <gmock/gmock.h>

#include "support/scratch_folder.h"
#include "support/taken_backup_names.h"

namespace {

// A buffer filled with other characters, to detect what is written.
struct BackupPath {
  BackupPath() { std::fill(std::begin(text), std::end(text), W('?')); }
  WCHAR text[kBackupPathSize];
};

// Creates "a.txt" and its backup names up to the given number.
void TakeNames(const ScratchFolder& scratch, int last) {
  scratch.Write(W("a.txt"), "a");
  TakeBackupNames(scratch, last);
}

}  // namespace

TEST(MakeUniqueFileName, FreePathStaysAsItIs) {
  const ScratchFolder scratch;
  WString path = scratch.Path(W("a.txt"));
  EXPECT_TRUE(MakeUniqueFileName(path, W(".bak")));
  EXPECT_EQ(path, scratch.Path(W("a.txt")));
}

TEST(MakeUniqueFileName, ExistingPathGetsTheSuffixAfterTheWholeName) {
  const ScratchFolder scratch;
  WString path = scratch.Write(W("a.txt"), "");
  EXPECT_TRUE(MakeUniqueFileName(path, W(".bak")));
  EXPECT_EQ(path, scratch.Path(W("a.txt.bak")));
}

TEST(MakeUniqueFileName, TakenSuffixGetsTheNumberTwoBeforeIt) {
  const ScratchFolder scratch;
  TakeNames(scratch, 1);
  WString path = scratch.Path(W("a.txt"));
  EXPECT_TRUE(MakeUniqueFileName(path, W(".bak")));
  EXPECT_EQ(path, scratch.Path(W("a.txt_(0002).bak")));
}

TEST(MakeUniqueFileName, NumbersGoOnToTheFirstFreeOne) {
  const ScratchFolder scratch;
  TakeNames(scratch, 4);
  scratch.Write(W("a.txt_(0006).bak"), "");
  WString path = scratch.Path(W("a.txt"));
  EXPECT_TRUE(MakeUniqueFileName(path, W(".bak")));
  EXPECT_EQ(path, scratch.Path(W("a.txt_(0005).bak")));
}

TEST(MakeUniqueFileName, FoldersTakeNamesToo) {
  const ScratchFolder scratch;
  WString path = scratch.MakeFolder(W("a"));
  scratch.MakeFolder(W("a.bak"));
  EXPECT_TRUE(MakeUniqueFileName(path, W(".bak")));
  EXPECT_EQ(path, scratch.Path(W("a_(0002).bak")));
}

TEST(MakeUniqueFileName, EmptySuffixGoesStraightToTheNumbers) {
  const ScratchFolder scratch;
  WString path = scratch.Write(W("a.txt"), "");
  EXPECT_TRUE(MakeUniqueFileName(path, W("")));
  EXPECT_EQ(path, scratch.Path(W("a.txt_(0002)")));
}

TEST(MakeUniqueFileName, Number9999IsTheLast) {
  const ScratchFolder scratch;
  TakeNames(scratch, 9998);
  WString path = scratch.Path(W("a.txt"));
  EXPECT_TRUE(MakeUniqueFileName(path, W(".bak")));
  EXPECT_EQ(path, scratch.Path(W("a.txt_(9999).bak")));

  scratch.Write(W("a.txt_(9999).bak"), "");
  path = scratch.Path(W("a.txt"));
  EXPECT_FALSE(MakeUniqueFileName(path, W(".bak")));
  EXPECT_EQ(path, scratch.Path(W("a.txt")));

  BackupPath backup;
  EXPECT_FALSE(MoveToBackup(scratch.Path(W("a.txt")).c_str(), backup.text));
  EXPECT_EQ(WString(backup.text), W(""));
  EXPECT_EQ(scratch.Read(W("a.txt")), "a");
}

TEST(MoveToBackup, MovesTheFileToItsBackupName) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "bytes");
  BackupPath backup;
  EXPECT_TRUE(MoveToBackup(path.c_str(), backup.text));
  EXPECT_EQ(WString(backup.text), scratch.Path(W("a.txt.bak")));
  EXPECT_EQ(scratch.Read(W("a.txt.bak")), "bytes");
  EXPECT_FALSE(scratch.Exists(W("a.txt")));
}

TEST(MoveToBackup, SecondBackupIsNumberedAndTheFirstStays) {
  const ScratchFolder scratch;
  BackupPath backup;
  EXPECT_TRUE(MoveToBackup(scratch.Write(W("a.txt"), "one").c_str(), backup.text));
  EXPECT_TRUE(MoveToBackup(scratch.Write(W("a.txt"), "two").c_str(), backup.text));
  EXPECT_EQ(WString(backup.text), scratch.Path(W("a.txt_(0002).bak")));
  EXPECT_EQ(scratch.Read(W("a.txt.bak")), "one");
  EXPECT_EQ(scratch.Read(W("a.txt_(0002).bak")), "two");
}

TEST(MoveToBackup, TargetThatDoesNotExistIsItsOwnBackupName) {
  const ScratchFolder scratch;
  BackupPath backup;
  EXPECT_FALSE(MoveToBackup(scratch.Path(W("none.txt")).c_str(), backup.text));
  EXPECT_EQ(WString(backup.text), scratch.Path(W("none.txt")));
  EXPECT_THAT(scratch.Names(), testing::IsEmpty());
}

TEST(DeleteBackup, DeletesTheFileUnderTheNameOfTheMove) {
  const ScratchFolder scratch;
  scratch.Write(W("b.txt"), "");
  BackupPath backup;
  EXPECT_TRUE(MoveToBackup(scratch.Write(W("a.txt"), "bytes").c_str(), backup.text));
  DeleteBackup(backup.text);
  EXPECT_THAT(scratch.Names(), testing::ElementsAre(W("b.txt")));
}

TEST(DeleteBackup, TakesOffTheAttributesThatKeepAFile) {
  const ScratchFolder scratch;
  for (const DWORD attributes :
       {FILE_ATTRIBUTE_READONLY, FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM}) {
    const WString path = scratch.Write(W("a.txt"), "bytes");
    ASSERT_TRUE(SetFileAttributesW(path.c_str(), attributes));
    BackupPath backup;
    EXPECT_TRUE(MoveToBackup(path.c_str(), backup.text));
    DeleteBackup(backup.text);
    EXPECT_THAT(scratch.Names(), testing::IsEmpty());
  }
}

TEST(DeleteBackup, EmptyNameAndANameThatIsNotThereAreNoFailure) {
  const ScratchFolder scratch;
  scratch.Write(W("b.txt"), "bytes");
  BackupPath backup;
  backup.text[0] = 0;
  DeleteBackup(backup.text);
  EXPECT_FALSE(MoveToBackup(scratch.Path(W("none.txt")).c_str(), backup.text));
  DeleteBackup(backup.text);
  EXPECT_THAT(scratch.Names(), testing::ElementsAre(W("b.txt")));
}
