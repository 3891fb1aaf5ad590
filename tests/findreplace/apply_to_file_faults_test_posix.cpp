// Find and replace in one file when the system fails in the middle: what is reported, and where the user's
// text is afterwards.
#include <gmock/gmock.h>

#include <new>

#include "findreplace/recording_callback.h"
#include "findreplace/tool/apply_to_file.h"
#include "platform/outcome.h"
#include "platform/posix/files/faults.h"
#include "support/memory_limit.h"
#include "support/scratch_folder.h"
#include "support/taken_backup_names.h"

using namespace Platform;
using namespace QXFindAndReplace;
using testing::ElementsAre;

namespace {

constexpr char kBefore[] = "one two \xFC\nthree two\n";
constexpr char kAfter[] = "one 2 \xFC\nthree 2\n";
constexpr char kOldTarget[] = "an old target\n";

FindAndReplaceOptions Options(std::uint32_t saveMode, IFindAndReplaceCallback* callback) {
  FindAndReplaceOptions options;
  options.flags = ModeOne | saveMode;
  options.find = W("two");
  options.replace = W("2");
  options.callback = callback;
  return options;
}

// "a.txt" and its target: the file itself, or "out", which exists too.
struct FaultRun {
  explicit FaultRun(bool isInPlace) : target(isInPlace ? W("a.txt") : W("out")) {
    scratch.Write(W("a.txt"), kBefore);
    if (!isInPlace) scratch.Write(target, kOldTarget);
  }

  std::int64_t Run(std::uint32_t saveMode) {
    FindAndReplaceOptions options = Options(saveMode, &callback);
    return ApplyToFile(scratch.Path(W("a.txt")), scratch.Path(target), options);
  }
  // Returns an empty text if the file does not exist.
  std::string Bytes(const WString& name) const {
    return scratch.Exists(name) ? scratch.Read(name) : std::string();
  }

  ScratchFolder scratch;
  WString target;
  RecordingCallback callback;
};

struct SaveMode {
  const char* name;
  std::uint32_t flags;
};
constexpr SaveMode kSaveModes[] = {
    {"new", SaveAsNew},
    {"overwrite", SaveAsNew | OverwriteTarget},
    {"backup", KeepBackup},
    {"replace", ReplaceFile},
};

// All system functions that a run over a file calls.
constexpr const char* kFunctions[] = {
    "GetFileAttributesW", "CreateFileW", "GetFileSizeEx", "ReadFile",  "WriteFile",          "MoveFileW",
    "SetFileAttributesW", "DeleteFileW", "CloseHandle",   "FindClose", "WideCharToMultiByte"};

// Checks that the previous bytes of the target still exist where they must after the run.
void ExpectOldBytesAreKept(const FaultRun& run, const std::string& old, const SaveMode& mode,
                           std::int64_t result, bool isWrite) {
  const std::string target = run.Bytes(run.target);
  const std::string backup = run.Bytes(run.target + W(".bak"));
  const bool isWritten = result > 0 && target == kAfter;
  switch (mode.flags) {
    case SaveAsNew:
      EXPECT_EQ(target, old);
      break;
    case SaveAsNew | OverwriteTarget:
      // Only a failed write leaves part of the new text; if the target cannot be opened, it is unchanged.
      EXPECT_TRUE(isWritten || (result < 0 && (target == old || isWrite))) << target;
      break;
    case KeepBackup:
      EXPECT_TRUE(backup == old || (result <= 0 && target == old)) << target << backup;
      break;
    case ReplaceFile:
      EXPECT_TRUE(isWritten || backup == old || target == old) << target << backup;
      break;
  }
}

// Runs with one fault. Returns whether the call that fails was reached.
bool CheckFault(const SaveMode& mode, bool isInPlace, const char* function, int nth, bool repeat) {
  SCOPED_TRACE(std::string(mode.name) + (isInPlace ? " in place, " : " elsewhere, ") + function + " " +
               std::to_string(nth) + (repeat ? " and all later ones" : ""));
  FaultRun run(isInPlace);
  std::int64_t result = 0;
  bool isMet = false;
  {
    const Faults::Scope faults;
    Faults::Fail(function, nth, ERROR_IO_DEVICE, repeat);
    result = run.Run(mode.flags);
    isMet = Faults::CallCount(function) >= nth;
  }
  const bool isWrite = function == std::string("WriteFile");
  ExpectOldBytesAreKept(run, isInPlace ? kBefore : kOldTarget, mode, result, isWrite);
  if (!isInPlace) {
    EXPECT_EQ(run.Bytes(W("a.txt")), kBefore);
  }
  // A result of 2 means that all changes are in the target; any other result was reported as an error.
  EXPECT_TRUE(result == 2 || result == -1) << result;
  if (result == 2) {
    EXPECT_EQ(run.Bytes(run.target), kAfter);
  } else {
    EXPECT_GE(run.callback.calls.size(), 3u);
    EXPECT_TRUE(run.callback.calls.end()[-2].starts_with("error ")) << run.callback.calls.end()[-2];
  }
  EXPECT_EQ(run.callback.calls.back(), "end");
  return isMet;
}

}  // namespace

TEST(ApplyToFileFaults, WithoutAFaultEachModeDoesItsWork) {
  for (const bool isInPlace : {true, false}) {
    FaultRun overwrite(isInPlace);
    EXPECT_EQ(overwrite.Run(SaveAsNew | OverwriteTarget), 2);
    EXPECT_EQ(overwrite.Bytes(overwrite.target), kAfter);
    FaultRun backup(isInPlace);
    EXPECT_EQ(backup.Run(KeepBackup), 2);
    EXPECT_EQ(backup.Bytes(backup.target), kAfter);
    FaultRun replace(isInPlace);
    EXPECT_EQ(replace.Run(ReplaceFile), 2);
    EXPECT_EQ(replace.Bytes(replace.target), kAfter);
  }
}

TEST(ApplyToFileFaults, NoFailingCallOfTheSystemLosesTheUsersText) {
  int met = 0;
  for (const SaveMode& mode : kSaveModes) {
    for (const bool isInPlace : {true, false}) {
      for (const char* function : kFunctions) {
        for (const bool repeat : {false, true}) {
          for (int nth = 1; CheckFault(mode, isInPlace, function, nth, repeat); ++nth) {
            ++met;
            ASSERT_LT(nth, 100);
          }
        }
      }
    }
  }
  EXPECT_GT(met, 100);
}

TEST(ApplyToFileFaults, ShortWriteIsAFullDiskAndLosesNothingThatHasABackup) {
  for (const SaveMode& mode : kSaveModes) {
    if (mode.flags == SaveAsNew) continue;
    for (const bool isInPlace : {true, false}) {
      for (const DWORD count : {0u, 1u, 5u}) {
        FaultRun run(isInPlace);
        const Faults::Scope faults;
        Faults::WriteShort(1, count);
        EXPECT_EQ(run.Run(mode.flags), -1);
        EXPECT_EQ(run.callback.calls.end()[-2], "error Failed to write data to file (112)");
        ExpectOldBytesAreKept(run, isInPlace ? kBefore : kOldTarget, mode, -1, true);
        // The part that was written remains.
        EXPECT_EQ(run.Bytes(run.target), std::string(kAfter).substr(0, count));
        if (!isInPlace) {
          EXPECT_EQ(run.Bytes(W("a.txt")), kBefore);
        }
      }
    }
  }
}

TEST(ApplyToFileFaults, WriteThatFailsLaterLeavesThePartAndTheBackupAndDeletesNothing) {
  std::string before;
  for (int line = 0; line < 20000; ++line) before += "a line with the word two in it\n";
  for (const std::uint32_t mode : {KeepBackup, ReplaceFile}) {
    FaultRun run(true);
    const WString path = run.scratch.Write(W("a.txt"), before);
    const Faults::Scope faults;
    Faults::Fail("WriteFile", 2, ERROR_DISK_FULL);
    Faults::Watch("DeleteFileW");
    run.callback.answers = {ConfirmResult::ReplaceAll};
    EXPECT_EQ(run.Run(mode), -1);
    EXPECT_EQ(run.callback.calls.end()[-2], "error Failed to write data to file (112)");
    EXPECT_EQ(Faults::CallCount("DeleteFileW"), 0);
    EXPECT_TRUE(run.Bytes(W("a.txt.bak")) == before);
    const std::string part = run.Bytes(W("a.txt"));
    EXPECT_GT(part.size(), 0u);
    EXPECT_TRUE(part.starts_with("a line with the word 2 in it\n"));
  }
}

TEST(ApplyToFileFaults, EachCallThatFailsHasItsNumberAndText) {
  const ScratchFolder scratch;
  const WString path = scratch.Path(W("a.txt"));
  const std::string name = ToUtf8(path);
  const struct {
    const char* function;
    int nth;
    DWORD error;
    std::string report;
  } rows[] = {
      {"GetFileAttributesW", 1, ERROR_ACCESS_DENIED, "error File not found (2)"},
      {"CreateFileW", 1, ERROR_ACCESS_DENIED, "error Unable to open file (5)"},
      {"ReadFile", 1, ERROR_IO_DEVICE, "error Unable to read file content (1117)"},
      // The file disappears after its format was detected.
      {"CreateFileW", 2, ERROR_FILE_NOT_FOUND, "error Unable to open file : " + name + " (2)"},
      {"GetFileSizeEx", 1, ERROR_IO_DEVICE, "error Failed to get filesize : " + name + " (1117)"},
      {"ReadFile", 2, ERROR_IO_DEVICE, "error Failed to read file (1117)"},
      {"CreateFileW", 3, ERROR_ACCESS_DENIED, "error Unable to open file for writing : " + name + " (5)"},
      {"WriteFile", 1, ERROR_DISK_FULL, "error Failed to write data to file (112)"},
  };
  for (const auto& row : rows) {
    scratch.Write(W("a.txt"), kBefore);
    RecordingCallback callback;
    FindAndReplaceOptions options = Options(SaveAsNew | OverwriteTarget, &callback);
    const Faults::Scope faults;
    Faults::Fail(row.function, row.nth, row.error);
    EXPECT_EQ(ApplyToFile(path, path, options), -1);
    ASSERT_GE(callback.calls.size(), 3u);
    EXPECT_EQ(callback.calls.end()[-2], row.report);
    EXPECT_EQ(callback.calls.back(), "end");
  }
}

TEST(ApplyToFileFaults, TextThatCannotBeConvertedIsNoEmptyText) {
  // An empty replacement would delete every match.
  for (int nth = 1; nth <= 4; ++nth) {
    FaultRun run(true);
    const Faults::Scope faults;
    run.callback.onBegin = [nth] { Faults::Fail("WideCharToMultiByte", nth, ERROR_NO_UNICODE_TRANSLATION); };
    EXPECT_EQ(run.Run(SaveAsNew | OverwriteTarget), -1);
    EXPECT_EQ(run.callback.calls.end()[-2], "error Failed to convert text (1113)");
    EXPECT_EQ(run.Bytes(W("a.txt")), kBefore);
  }
}

TEST(ApplyToFileFaults, BackupThatCannotBeMadeIsTheFailureOfTheCreate) {
  for (const std::uint32_t mode : {KeepBackup, ReplaceFile}) {
    FaultRun run(true);
    const Faults::Scope faults;
    Faults::Fail("MoveFileW", 1, ERROR_SHARING_VIOLATION);
    EXPECT_EQ(run.Run(mode), -1);
    EXPECT_EQ(run.callback.calls.end()[-2],
              "error Unable to open file for writing : " + ToUtf8(run.scratch.Path(W("a.txt"))) + " (80)");
    EXPECT_EQ(run.Bytes(W("a.txt")), kBefore);
    EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt")));
  }
}

TEST(ApplyToFileFaults, WithoutAFreeBackupNameTheTargetStaysAndNothingIsDeleted) {
  FaultRun run(true);
  TakeBackupNames(run.scratch, kLastBackupNumber);
  const Faults::Scope faults;
  Faults::Watch("MoveFileW");
  Faults::Watch("DeleteFileW");
  for (const std::uint32_t mode : {KeepBackup, ReplaceFile}) {
    EXPECT_EQ(run.Run(mode), -1);
    EXPECT_EQ(run.callback.calls.end()[-2],
              "error Unable to open file for writing : " + ToUtf8(run.scratch.Path(W("a.txt"))) + " (80)");
    EXPECT_EQ(run.callback.calls.back(), "end");
    EXPECT_EQ(run.Bytes(W("a.txt")), kBefore);
  }
  // A target that may be overwritten needs no backup.
  EXPECT_EQ(run.Run(ReplaceFile | SaveAsNew | OverwriteTarget), 2);
  EXPECT_EQ(run.Bytes(W("a.txt")), kAfter);
  EXPECT_EQ(Faults::CallCount("MoveFileW"), 0);
  EXPECT_EQ(Faults::CallCount("DeleteFileW"), 0);
  EXPECT_EQ(run.scratch.Names().size(), 10000u);
}

TEST(ApplyToFileFaults, TargetThatCannotBeMadeLeavesTheBackup) {
  for (const std::uint32_t mode : {KeepBackup, ReplaceFile}) {
    FaultRun run(true);
    const Faults::Scope faults;
    Faults::Fail("CreateFileW", 3, ERROR_DISK_FULL);
    EXPECT_EQ(run.Run(mode), -1);
    EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt.bak")));
    EXPECT_EQ(run.Bytes(W("a.txt.bak")), kBefore);
  }
}

TEST(ApplyToFileFaults, BackupThatCannotBeDeletedStaysAndTheRunIsASuccess) {
  for (const char* function : {"DeleteFileW", "GetFileAttributesW", "SetFileAttributesW"}) {
    FaultRun run(true);
    ASSERT_TRUE(SetFileAttributesW(run.scratch.Path(W("a.txt")).c_str(), FILE_ATTRIBUTE_READONLY));
    const Faults::Scope faults;
    // The first three calls examine the source, the target and the backup's name; the fourth reads the
    // backup's attributes.
    Faults::Fail(function, function == std::string("GetFileAttributesW") ? 4 : 1, ERROR_ACCESS_DENIED);
    EXPECT_EQ(run.Run(ReplaceFile), 2) << function;
    EXPECT_EQ(run.Bytes(W("a.txt")), kAfter);
    EXPECT_EQ(run.Bytes(W("a.txt.bak")), kBefore);
  }
}

TEST(ApplyToFileFaults, EveryHandleIsClosedWhateverFails) {
  for (const SaveMode& mode : kSaveModes) {
    for (const char* function : {"ReadFile", "GetFileSizeEx", "CreateFileW", "WriteFile", "DeleteFileW"}) {
      for (int nth = 1; nth <= 3; ++nth) {
        FaultRun run(true);
        {
          const Faults::Scope faults;
          Faults::Fail(function, nth, ERROR_IO_DEVICE);
          run.Run(mode.flags);
        }
        for (const WString& name : run.scratch.Names()) {
          EXPECT_EQ(FailureOfOpen(OpenFor(run.scratch.Path(name).c_str(), GENERIC_READ, OPEN_EXISTING, 0)),
                    kNoFailure)
              << mode.name << function << nth;
        }
      }
    }
  }
}

TEST(ApplyToFileFaults, UnchangedFileIsOpenedForReadingAlone) {
  for (const SaveMode& mode : kSaveModes) {
    FaultRun run(true);
    run.scratch.Write(W("a.txt"), "nothing to find here\n");
    const Faults::Scope faults;
    for (const char* function :
         {"CreateFileW", "MoveFileW", "DeleteFileW", "SetFileAttributesW", "WriteFile"}) {
      Faults::Watch(function);
    }
    EXPECT_EQ(run.Run(mode.flags), 0);
    // Once to detect the format, and once for the text.
    EXPECT_EQ(Faults::CallCount("CreateFileW"), 2);
    for (const char* function : {"MoveFileW", "DeleteFileW", "SetFileAttributesW", "WriteFile"}) {
      EXPECT_EQ(Faults::CallCount(function), 0) << function;
    }
  }
}

TEST(ApplyToFileFaults, BinaryFileIsReadNoFurtherThanItsHead) {
  FaultRun run(true);
  run.scratch.Write(W("a.txt"), std::string(5000, '\x01'));
  const Faults::Scope faults;
  for (const char* function : {"CreateFileW", "ReadFile"}) Faults::Watch(function);
  EXPECT_EQ(run.Run(KeepBackup), 0);
  EXPECT_EQ(Faults::CallCount("CreateFileW"), 1);
  EXPECT_EQ(Faults::CallCount("ReadFile"), 1);
}

TEST(ApplyToFileFaults, ErrorOfACancelledCallIsACancel) {
  FaultRun run(true);
  const Faults::Scope faults;
  Faults::Fail("CreateFileW", 2, ERROR_CANCELLED);
  EXPECT_EQ(run.Run(KeepBackup), -99);
  EXPECT_EQ(run.callback.calls.size(), 1u);
  // Without a callback there is no user who could have cancelled.
  FindAndReplaceOptions options = Options(KeepBackup, nullptr);
  Faults::Fail("CreateFileW", 2, ERROR_CANCELLED);
  const WString path = run.scratch.Path(W("a.txt"));
  EXPECT_EQ(ApplyToFile(path, path, options), -1);
}

namespace {

// Repeats a run in place with one more allowed allocation each time until it succeeds.
void ExpectNothingIsLostWithoutMemory(std::uint32_t mode, bool keepsBackup, const std::string& before,
                                      const std::string& after) {
  int failures = 0;
  for (int allocations = 0;; ++allocations) {
    ASSERT_LT(allocations, 1000);
    const ScratchFolder scratch;
    const WString path = scratch.Write(W("a.txt"), before);
    FindAndReplaceOptions options = Options(mode, nullptr);
    std::int64_t result = 0;
    {
      const Memory::Limit limit(allocations);
      result = ApplyToFile(path, path, options);
    }
    const bool isBackedUp = scratch.Exists(W("a.txt.bak"));
    if (result > 0) {
      EXPECT_EQ(scratch.Read(W("a.txt")), after) << allocations;
      EXPECT_EQ(isBackedUp, keepsBackup) << allocations;
      break;
    }
    ++failures;
    EXPECT_EQ(result, -1) << allocations;
    EXPECT_EQ(scratch.Read(isBackedUp ? W("a.txt.bak") : W("a.txt")), before) << allocations;
  }
  EXPECT_GT(failures, 0);
}

}  // namespace

TEST(ApplyToFileWithoutMemory, EachAllocationThatFailsLeavesTheTextInTheFileOrItsBackup) {
  ExpectNothingIsLostWithoutMemory(KeepBackup, true, kBefore, kAfter);
  ExpectNothingIsLostWithoutMemory(ReplaceFile, false, kBefore, kAfter);
}

TEST(ApplyToFileWithoutMemory, FileWithoutABackupIsNotTouchedBeforeAllMemoryIsThere) {
  ExpectNothingIsLostWithoutMemory(SaveAsNew | OverwriteTarget, false, kBefore, kAfter);
}

TEST(ApplyToFileWithoutMemory, SixteenBitTextIsHandledInTheSameWay) {
  const std::string before("\xFF\xFEt\0w\0o\0\n\0", 10);
  const std::string after("\xFF\xFE\x32\0\n\0", 6);
  ExpectNothingIsLostWithoutMemory(SaveAsNew | OverwriteTarget, false, before, after);
  ExpectNothingIsLostWithoutMemory(KeepBackup, true, before, after);
}

TEST(ApplyToFileWithoutMemory, IsReportedWithTheTextOfTheAllocatorAndNumber14) {
  FaultRun run(true);
  // When the question is asked, the record of calls has already allocated its memory.
  run.callback.onQuestion = [] { throw std::bad_alloc(); };
  EXPECT_EQ(run.Run(KeepBackup), -1);
  EXPECT_EQ(run.callback.calls.end()[-2], "error " + std::string(std::bad_alloc().what()) + " (14)");
}
