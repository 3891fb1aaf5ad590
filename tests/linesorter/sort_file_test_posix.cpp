// Sorting one file when the system fails in the middle: the reported number and text, and where the user's
// data is afterwards.
#include "linesorter/engine/sort_file.h"

#include <gmock/gmock.h>

#include <functional>
#include <new>

#include "linesorter/sort_file_helper.h"
#include "platform/outcome.h"
#include "platform/posix/files/faults.h"
#include "platform/windows_api.h"
#include "support/memory_limit.h"
#include "support/taken_backup_names.h"

using namespace Platform;
using namespace WQLineSorter;
using testing::ElementsAre;

namespace {

constexpr char kFile[] = "b\nc\na\n";
constexpr char kSortedFile[] = "a\nb\nc\n";

constexpr std::uint32_t kBackups[] = {SaveKeepBackup, SaveDeleteBackup};

const SortOutcome kNotOpened{ERROR_FILE_EXISTS, "Unable to open file for writing"};

// A file `a.txt` in a new folder, sorted in place.
struct OneFile {
  explicit OneFile(const std::string& bytes = kFile) : path(folder.Write(W("a.txt"), bytes)) {}

  SortOutcome Sort(std::uint32_t more) const { return RunSort(path, path, SortOptions(more)); }
  std::string Bytes() const { return folder.Read(W("a.txt")); }
  std::string BackupBytes() const { return folder.Read(W("a.txt.bak")); }

  // Checks the contents, and that the folder contains nothing else.
  void ExpectBytes(const char* expected) const {
    EXPECT_EQ(Bytes(), expected);
    EXPECT_THAT(folder.Names(), ElementsAre(W("a.txt")));
  }

  const ScratchFolder folder;
  const WString path;
};

}  // namespace

// Under Wine the superuser can write read-only files.
TEST(SortFile, ReadOnlyTargetIsNotOverwritten) {
  const OneFile file("b\na\n");
  ASSERT_TRUE(SetFileAttributesW(file.path.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_EQ(file.Sort(SaveOverwrite), (SortOutcome{ERROR_ACCESS_DENIED, "Unable to open file for writing"}));
  EXPECT_EQ(file.Bytes(), "b\na\n");
}

TEST(SortFileFaults, LoadFailsAndNothingIsTouched) {
  const OneFile file;
  const std::string name = ToUtf8(file.path);
  const struct {
    const char* function;
    int nth;
    DWORD error;
    SortOutcome outcome;
  } rows[] = {
      {"GetFileAttributesW", 1, ERROR_ACCESS_DENIED, {2, "File not found"}},
      {"CreateFileW", 1, ERROR_ACCESS_DENIED, {ERROR_ACCESS_DENIED, "Unable to open file"}},
      {"ReadFile", 1, ERROR_IO_DEVICE, {ERROR_IO_DEVICE, "Unable to read file content"}},
      // The file disappears after its format was detected.
      {"CreateFileW", 2, ERROR_FILE_NOT_FOUND, {ERROR_FILE_NOT_FOUND, "Unable to open file : " + name}},
      {"GetFileSizeEx", 1, ERROR_IO_DEVICE, {ERROR_IO_DEVICE, "Failed to get filesize : " + name}},
      {"ReadFile", 2, ERROR_IO_DEVICE, {ERROR_IO_DEVICE, "Failed to read file"}},
  };
  for (const auto& row : rows) {
    for (const std::uint32_t more : {std::uint32_t{SaveOverwrite}, std::uint32_t{SaveKeepBackup},
                                     std::uint32_t{SaveDeleteBackup | SaveOverwrite}}) {
      const Faults::Scope faults;
      Faults::Fail(row.function, row.nth, row.error);
      EXPECT_EQ(file.Sort(more), row.outcome) << row.function << row.nth;
      file.ExpectBytes(kFile);
    }
  }
  // Every handle was closed, so the file can be moved.
  EXPECT_EQ(FailureOf(MoveFileW(file.path.c_str(), file.folder.Path(W("b.txt")).c_str())), kNoFailure);
}

TEST(SortFileFaults, CreateFailsAndTheDataIsInTheBackup) {
  for (const std::uint32_t backup : kBackups) {
    const OneFile file;
    const Faults::Scope faults;
    Faults::Fail("CreateFileW", 3, ERROR_DISK_FULL);
    EXPECT_EQ(file.Sort(backup), (SortOutcome{ERROR_DISK_FULL, "Unable to open file for writing"}));
    EXPECT_THAT(file.folder.Names(), ElementsAre(W("a.txt.bak")));
    EXPECT_EQ(file.BackupBytes(), kFile);
  }
}

TEST(SortFileFaults, CreateFailsWithoutABackupAndTheDataIsUnchanged) {
  const OneFile file;
  const Faults::Scope faults;
  Faults::Fail("CreateFileW", 3, ERROR_ACCESS_DENIED);
  EXPECT_EQ(file.Sort(SaveOverwrite), (SortOutcome{ERROR_ACCESS_DENIED, "Unable to open file for writing"}));
  file.ExpectBytes(kFile);
}

TEST(SortFileFaults, WriteFailsAndPartialTargetAndBackupStayAsTheyAre) {
  // More than two buffers.
  std::string bytes;
  for (int i = 0; i < 70; ++i) bytes += std::string(999, static_cast<char>('a' + i / 3)) + "\n";
  for (const std::uint32_t backup : kBackups) {
    for (int nth = 1; nth <= 3; ++nth) {
      const OneFile file(bytes);
      const Faults::Scope faults;
      Faults::Fail("WriteFile", nth, ERROR_DISK_FULL);
      Faults::Watch("DeleteFileW");
      EXPECT_EQ(file.Sort(backup), (SortOutcome{ERROR_DISK_FULL, "Failed to write data to file"}));
      EXPECT_EQ(Faults::CallCount("DeleteFileW"), 0);
      EXPECT_THAT(file.folder.Names(), ElementsAre(W("a.txt"), W("a.txt.bak")));
      EXPECT_TRUE(file.BackupBytes() == bytes);
      EXPECT_TRUE(file.Bytes() == bytes.substr(0, 32000 * static_cast<std::size_t>(nth - 1)));
    }
  }
}

TEST(SortFileFaults, WriteFailsIntoAnotherTargetAndTheSourceIsUnchanged) {
  const ScratchFolder scratch;
  const WString source = scratch.Write(W("in"), kFile);
  const Faults::Scope faults;
  Faults::Fail("WriteFile", 1, ERROR_DISK_FULL);
  EXPECT_EQ(RunSort(source, scratch.Path(W("out")), SortOptions(SaveAsNewFile | SaveOverwrite)),
            (SortOutcome{ERROR_DISK_FULL, "Failed to write data to file"}));
  EXPECT_EQ(scratch.Read(W("in")), kFile);
  EXPECT_EQ(scratch.Read(W("out")), "");
}

TEST(SortFileFaults, BackupThatCannotBeMadeIsTheFailureOfTheCreate) {
  for (const std::uint32_t backup : kBackups) {
    const OneFile file;
    const Faults::Scope faults;
    Faults::Fail("MoveFileW", 1, ERROR_SHARING_VIOLATION);
    EXPECT_EQ(file.Sort(backup), kNotOpened);
    file.ExpectBytes(kFile);
  }
}

TEST(SortFileFaults, FailedBackupDoesNotStopAnOverwriteByDesign) {
  for (const std::uint32_t backup : kBackups) {
    const OneFile file;
    const Faults::Scope faults;
    Faults::Fail("MoveFileW", 1, ERROR_SHARING_VIOLATION);
    EXPECT_EQ(file.Sort(backup | SaveOverwrite), kSorted);
    file.ExpectBytes(kSortedFile);
  }
}

TEST(SortFileFaults, ADriveThatIsGoneForAMomentNeverTakesTheLinesWithIt) {
  for (const std::uint32_t more : {SaveDeleteBackup | SaveOverwrite, +SaveDeleteBackup,
                                   SaveDeleteBackup | SaveKeepBackup | SaveOverwrite,
                                   SaveKeepBackup | SaveOverwrite, +SaveKeepBackup, +SaveOverwrite}) {
    for (const bool repeat : {false, true}) {
      for (int nth = 1;; ++nth) {
        ASSERT_LT(nth, 100);
        const OneFile file;
        int calls = 0;
        {
          const Faults::Scope faults;
          Faults::Fail("GetFileAttributesW", nth, ERROR_BAD_NETPATH, repeat);
          file.Sort(more);
          calls = Faults::CallCount("GetFileAttributesW");
        }
        bool isThere = false;
        for (const WString& name : file.folder.Names()) {
          const std::string bytes = file.folder.Read(name);
          isThere = isThere || bytes == kFile || bytes == kSortedFile;
        }
        EXPECT_TRUE(isThere) << "call " << nth << (repeat ? " and all later ones" : "") << " with " << more;
        if (calls < nth) break;
      }
    }
  }
}

TEST(SortFileFaults, ACallThatFailsWithoutANumberIsStillAFailure) {
  const OneFile file;
  const std::string name = ToUtf8(file.path);
  const struct {
    const char* function;
    int nth;
    std::string text;
  } rows[] = {
      {"CreateFileW", 1, "Unable to open file"},
      {"ReadFile", 1, "Unable to read file content"},
      {"CreateFileW", 2, "Unable to open file : " + name},
      {"GetFileSizeEx", 1, "Failed to get filesize : " + name},
      {"ReadFile", 2, "Failed to read file"},
      {"CreateFileW", 3, "Unable to open file for writing"},
      {"WriteFile", 1, "Failed to write data to file"},
  };
  for (const auto& row : rows) {
    file.folder.Write(W("a.txt"), kFile);
    const Faults::Scope faults;
    Faults::Fail(row.function, row.nth, ERROR_SUCCESS);
    EXPECT_EQ(file.Sort(SaveOverwrite), (SortOutcome{ERROR_GEN_FAILURE, row.text}))
        << row.function << row.nth;
  }
}

TEST(SortFileFaults, WithoutAFreeBackupNameTheTargetStaysAndNothingIsDeleted) {
  const OneFile file;
  TakeBackupNames(file.folder, kLastBackupNumber);
  for (const std::uint32_t backup : kBackups) {
    EXPECT_EQ(file.Sort(backup), kNotOpened);
    EXPECT_EQ(file.Bytes(), kFile);
  }
  const Faults::Scope faults;
  Faults::Watch("DeleteFileW");
  Faults::Watch("MoveFileW");
  EXPECT_EQ(file.Sort(SaveDeleteBackup | SaveOverwrite), kSorted);
  EXPECT_EQ(file.Bytes(), kSortedFile);
  EXPECT_EQ(Faults::CallCount("DeleteFileW"), 0);
  EXPECT_EQ(Faults::CallCount("MoveFileW"), 0);
  EXPECT_EQ(file.folder.Names().size(), 10000u);
}

TEST(SortFileFaults, BackupThatCannotBeDeletedStaysAndTheRunIsASuccess) {
  for (const char* function : {"DeleteFileW", "GetFileAttributesW", "SetFileAttributesW"}) {
    const OneFile file;
    ASSERT_TRUE(SetFileAttributesW(file.path.c_str(), FILE_ATTRIBUTE_READONLY));
    const Faults::Scope faults;
    // The first three calls examine the source, the target and the backup's name; the fourth reads the
    // backup's attributes.
    Faults::Fail(function, function == std::string("GetFileAttributesW") ? 4 : 1, ERROR_ACCESS_DENIED);
    EXPECT_EQ(file.Sort(SaveDeleteBackup), kSorted) << function;
    EXPECT_EQ(file.Bytes(), kSortedFile) << function;
    EXPECT_EQ(file.BackupBytes(), kFile) << function;
  }
}

TEST(SortFileFaults, AttributesOfABackupAreSetOnlyWhereTheyPreventIt) {
  const struct {
    DWORD attributes;
    int calls;
  } rows[] = {{FILE_ATTRIBUTE_NORMAL, 0}, {FILE_ATTRIBUTE_READONLY, 1}};
  for (const auto& row : rows) {
    const OneFile file;
    ASSERT_TRUE(SetFileAttributesW(file.path.c_str(), row.attributes));
    const Faults::Scope faults;
    Faults::Watch("SetFileAttributesW");
    Faults::Watch("DeleteFileW");
    EXPECT_EQ(file.Sort(SaveDeleteBackup), kSorted);
    EXPECT_EQ(Faults::CallCount("SetFileAttributesW"), row.calls);
    EXPECT_EQ(Faults::CallCount("DeleteFileW"), 1);
  }
}

TEST(SortFileFaults, KeptBackupIsNotAskedForAfterTheWrite) {
  const OneFile file;
  const Faults::Scope faults;
  Faults::Watch("SetFileAttributesW");
  Faults::Watch("DeleteFileW");
  EXPECT_EQ(file.Sort(SaveKeepBackup), kSorted);
  EXPECT_EQ(Faults::CallCount("SetFileAttributesW"), 0);
  EXPECT_EQ(Faults::CallCount("DeleteFileW"), 0);
}

TEST(SortFileFaults, OnlyTheHeadAndOnePassOverTheFileAreRead) {
  const OneFile file;
  const Faults::Scope faults;
  for (const char* function : {"CreateFileW", "ReadFile", "WriteFile", "CloseHandle"})
    Faults::Watch(function);
  EXPECT_EQ(file.Sort(SaveOverwrite), kSorted);
  EXPECT_EQ(Faults::CallCount("CreateFileW"), 3);
  EXPECT_EQ(Faults::CallCount("ReadFile"), 2);
  EXPECT_EQ(Faults::CallCount("WriteFile"), 1);
  EXPECT_EQ(Faults::CallCount("CloseHandle"), 3);
}

namespace {

// Sorts with at most this many allocations.
SortResult SortWithin(int allocations, const WString& source, const WString& target, std::uint32_t more) {
  const SortLinesOptions options = SortOptions(more);
  SortResult result;
  DWORD code = 0;
  {
    const Memory::Limit limit(allocations);
    code = SortFile(result, source, target, options);
  }
  EXPECT_EQ(code, result.errorCode) << allocations;
  return result;
}

// Repeats a sort with one more allowed allocation each time until it succeeds. Each failure must have number
// 14 and its text; `sort` checks where the user's data is.
void UntilMemorySuffices(const std::function<SortResult(int allocations)>& sort) {
  for (int allocations = 0;; ++allocations) {
    ASSERT_LT(allocations, 1000);
    const SortResult result = sort(allocations);
    if (result.errorCode == 0) {
      EXPECT_GT(allocations, 0) << "nothing failed";
      return;
    }
    EXPECT_EQ(result.errorCode, ERROR_OUTOFMEMORY) << allocations;
    EXPECT_EQ(result.message, std::bad_alloc().what()) << allocations;
  }
}

// The data is in the file or, after that was moved, in its backup.
void ExpectNothingIsLostInPlace(std::uint32_t more, bool keepsBackup) {
  UntilMemorySuffices([&](int allocations) {
    const OneFile file;
    const SortResult result = SortWithin(allocations, file.path, file.path, more);
    const bool isBackedUp = file.folder.Exists(W("a.txt.bak"));
    if (result.errorCode == 0) {
      EXPECT_EQ(file.Bytes(), kSortedFile) << allocations;
      EXPECT_EQ(isBackedUp, keepsBackup) << allocations;
    } else {
      EXPECT_EQ(isBackedUp ? file.BackupBytes() : file.Bytes(), kFile) << allocations;
    }
    return result;
  });
}

}  // namespace

TEST(SortFileWithoutMemory, EachAllocationThatFailsIsNumber14AndTheBackupHoldsTheData) {
  ExpectNothingIsLostInPlace(SaveKeepBackup, true);
}

TEST(SortFileWithoutMemory, FileWithoutABackupIsNotTouchedBeforeAllMemoryIsThere) {
  ExpectNothingIsLostInPlace(SaveOverwrite, false);
}

TEST(SortFileWithoutMemory, SixteenBitTextIsHandledInTheSameWay) {
  const std::string bytes(
      "\xFF\xFE"
      "b\0\n\0a\0\n\0",
      10);
  const OneFile file(bytes);
  UntilMemorySuffices([&](int allocations) {
    const SortResult result =
        SortWithin(allocations, file.path, file.folder.Path(W("out")), SaveAsNewFile | SaveOverwrite);
    EXPECT_EQ(file.Bytes(), bytes) << allocations;
    return result;
  });
}
