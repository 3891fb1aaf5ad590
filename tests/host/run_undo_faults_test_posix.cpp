// The undo file of a run when the disk is full before the run, or after it.
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <algorithm>
#include <map>

#include "host/rename/run_undo.h"
#include "host/rename/undo_file.h"
#include "platform/posix/files/faults.h"
#include "recorded_output.h"
#include "support/scratch_folder.h"

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using Velmora::SDK::MultiRenameUndo;
using Velmora::SDK::MultiRenameUndoStore;

namespace QxHost {
namespace {

class RunUndoFaults : public testing::Test {
 protected:
  RunUndoFaults() : store_(nullptr) {
    store_.folder = scratch_.Path() + W("\\Undo\\");
    CreateDirectoryW(store_.folder.c_str(), nullptr);
    session_.entries = {{W("Z:\\a"), W("new"), W("old")}};
  }

  // Returns the only undo file.
  UndoFile TheFile() {
    UndoFile found;
    store_.ForEachSession([&](const std::unique_ptr<MultiRenameUndo>& session) {
      EXPECT_EQ(found.session, nullptr);
      found = ReadUndoFile(store_.folder + session->fileName);
    });
    return found;
  }

  const Platform::Faults::Scope faults_;
  ScratchFolder scratch_;
  RecordedOutput recorded_;
  MultiRenameUndoStore store_;
  MultiRenameUndo session_;
};

TEST_F(RunUndoFaults, APlanThatCannotBeWrittenLetsNoRunBegin) {
  RunUndo undo(recorded_.output, store_);
  Platform::Faults::Fail("WriteFile", 1, ERROR_DISK_FULL, true);
  EXPECT_FALSE(undo.Begin(session_));
  Platform::Faults::Clear();
  EXPECT_THAT(recorded_.problems, HasSubstr("no undo file can be written"));
  EXPECT_EQ(TheFile().session, nullptr);
  EXPECT_THAT(scratch_.Names(), SizeIs(1));  // only the folder
}

TEST_F(RunUndoFaults, IfWhatWasDoneCannotBeWrittenThePlanStays) {
  RunUndo undo(recorded_.output, store_);
  session_.entries.push_back({W("Z:\\a"), W("new2"), W("old2")});
  ASSERT_TRUE(undo.Begin(session_));
  session_.entries.pop_back();
  Platform::Faults::Fail("WriteFile", 1, ERROR_DISK_FULL, true);
  EXPECT_FALSE(undo.End(&session_));
  Platform::Faults::Clear();
  EXPECT_THAT(recorded_.problems, HasSubstr("The one from before the run remains"));
  const UndoFile file = TheFile();
  ASSERT_NE(file.session, nullptr);
  EXPECT_THAT(file.session->entries, SizeIs(2));
  EXPECT_TRUE(file.notes.isPlan);
}

// Each file gets the name of the next, so all are noted. The renames are reported in another order.
TEST_F(RunUndoFaults, EachFileKeepsItsNoteInAnyOrder) {
  constexpr std::size_t kFiles = 2500;
  std::map<WString, FileIndex> numbers;
  std::vector<WString> names;
  for (std::size_t file = 0; file < kFiles; ++file) {
    const std::string name = "f" + std::to_string(file);
    names.emplace_back(name.begin(), name.end());
    scratch_.Write(names.back(), "");
    struct stat status {};
    ASSERT_EQ(lstat(scratch_.NativePath(names.back()).c_str(), &status), 0);
    numbers[names.back()] = status.st_ino;
  }
  session_.entries.clear();
  for (std::size_t file = 0; file < kFiles; ++file) {
    session_.entries.push_back({scratch_.Path(), names[file], names[(file + 1) % kFiles]});
  }
  RunUndo undo(recorded_.output, store_);
  ASSERT_TRUE(undo.Begin(session_));
  std::ranges::reverse(session_.entries);
  ASSERT_TRUE(undo.End(&session_));
  const UndoFile file = TheFile();
  ASSERT_NE(file.session, nullptr);
  ASSERT_THAT(file.session->entries, SizeIs(kFiles));
  ASSERT_THAT(file.notes.files, SizeIs(kFiles));
  for (std::size_t entry = 0; entry < kFiles; ++entry) {
    ASSERT_EQ(file.notes.files[entry], numbers[file.session->entries[entry].oldName]) << entry;
  }
}

TEST_F(RunUndoFaults, WhatWasDoneTakesThePlaceOfThePlan) {
  {
    RunUndo undo(recorded_.output, store_);
    session_.entries.push_back({W("Z:\\a"), W("new2"), W("old2")});
    ASSERT_TRUE(undo.Begin(session_));
    session_.entries.pop_back();
    EXPECT_TRUE(undo.End(&session_));
  }
  const UndoFile file = TheFile();
  ASSERT_NE(file.session, nullptr);
  EXPECT_THAT(file.session->entries, SizeIs(1));
  EXPECT_FALSE(file.notes.isPlan);
  EXPECT_TRUE(file.isWhole);
}

TEST_F(RunUndoFaults, ARunThatRenamedNothingLeavesNoFile) {
  RunUndo undo(recorded_.output, store_);
  ASSERT_TRUE(undo.Begin(session_));
  EXPECT_TRUE(undo.End(nullptr));
  EXPECT_EQ(TheFile().session, nullptr);
  EXPECT_THAT(recorded_.problems, IsEmpty());
}

}  // namespace
}  // namespace QxHost
