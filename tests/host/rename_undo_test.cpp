// Writing an undo file reports what the file cannot store.
#include "host/rename/rename_undo.h"

#include <gmock/gmock.h>

#include "recorded_output.h"
#include "support/scratch_folder.h"

using testing::HasSubstr;
using testing::IsEmpty;
using Velmora::SDK::MultiRenameUndo;
using Velmora::SDK::MultiRenameUndoStore;

namespace QxHost {
namespace {

class CheckUndoFileTest : public testing::Test {
 protected:
  CheckUndoFileTest() : store_(nullptr) {
    store_.folder = scratch_.Path() + W('\\');
    session_.fileName = W("session.dat");
    session_.date.wYear = 2026;
    session_.date.wMonth = 3;
    session_.date.wDay = 5;
  }

  void Add(const WString& oldName, const WString& newName) {
    session_.entries.push_back({W("Z:\\a"), newName, oldName});
  }

  std::string Warnings() {
    store_.Save(session_);
    CheckUndoFile(recorded_.output, store_, session_);
    return recorded_.problems;
  }

  ScratchFolder scratch_;
  RecordedOutput recorded_;
  MultiRenameUndoStore store_;
  MultiRenameUndo session_;
};

TEST_F(CheckUndoFileTest, AFileThatKeepsAllIsNoReasonToWarn) {
  Add(W("a.txt"), W("b.txt"));
  Add(W("; c"), W("#d"));
  EXPECT_THAT(Warnings(), IsEmpty());
}

TEST_F(CheckUndoFileTest, ANameWithABarIsLostAndTheOthersAreKept) {
  Add(W("a.txt"), W("b.txt"));
  Add(W("c|d.txt"), W("e.txt"));
  EXPECT_THAT(Warnings(), HasSubstr("the undo of 1 rename of 2 cannot be kept, first of Z:\\a\\c|d.txt"));
}

TEST_F(CheckUndoFileTest, ANameWithALineEndThatLooksLikeAnotherRenameIsADanger) {
  Add(W("x\nZ:\\b|passwd"), W("e.txt"));
  const std::string warnings = Warnings();
  EXPECT_THAT(warnings, HasSubstr("the undo of 1 rename of 1 cannot be kept"));
  EXPECT_THAT(warnings, HasSubstr("look like renames of other files"));
}

TEST_F(CheckUndoFileTest, AnOldNameThatNoRestoreGivesIsLost) {
  for (const WCHAR character : WStringView(W("\\/:*?\"<>\t"))) {
    session_.entries.clear();
    recorded_.problems.clear();
    Add(W("a.txt"), W("b.txt"));
    Add(WString(W("c")) + character + W("d"), W("e.txt"));
    const std::string warnings = Warnings();
    EXPECT_THAT(warnings, HasSubstr("the undo of 1 rename of 2 cannot be kept, first of Z:\\a\\c"));
    EXPECT_THAT(warnings, HasSubstr("no file may have a name with one of"));
  }
}

TEST_F(CheckUndoFileTest, ItSaysWhetherAnythingIsKept) {
  Add(W("c:d"), W("e.txt"));
  store_.Save(session_);
  EXPECT_EQ(CheckUndoFile(recorded_.output, store_, session_), UndoCheck::kKeepsNone);
  Add(W("a.txt"), W("b.txt"));
  store_.Save(session_);
  EXPECT_EQ(CheckUndoFile(recorded_.output, store_, session_), UndoCheck::kKeeps);
  scratch_.Write(W("session.dat"), "half");
  EXPECT_EQ(CheckUndoFile(recorded_.output, store_, session_), UndoCheck::kNotWhole);
}

TEST_F(CheckUndoFileTest, WhatLiesBeyondTheReadableSizeIsLost) {
  const WString longName(200, W('n'));
  for (int entry = 0; entry < 13000; ++entry) {
    Add(longName + FromUtf8(std::to_string(entry)), W("new") + FromUtf8(std::to_string(entry)));
  }
  EXPECT_THAT(Warnings(), HasSubstr("an undo file has at most 5242880 bytes"));
}

// The limit falls inside a new name of three million characters, so the line is read with the first part of
// that name.
TEST_F(CheckUndoFileTest, ALineThatIsCutNamesAFileThatTheRunDidNotMake) {
  Add(W("a.txt"), W("b.txt"));
  Add(W("c.txt"), WString(3'000'000, W('n')));
  const std::string warnings = Warnings();
  EXPECT_THAT(warnings, HasSubstr("the undo of 1 rename of 2 cannot be kept, first of Z:\\a\\c.txt"));
  EXPECT_THAT(warnings, HasSubstr("is cut, and contains Z:\\a\\nnn"));
  EXPECT_THAT(warnings, Not(HasSubstr("look like renames of other files")));
}

TEST_F(CheckUndoFileTest, AFileThatIsNotThereOrNotWholeIsReported) {
  Add(W("a.txt"), W("b.txt"));
  CheckUndoFile(recorded_.output, store_, session_);
  EXPECT_THAT(recorded_.problems, HasSubstr("the undo file is incomplete"));
  recorded_.problems.clear();
  scratch_.Write(W("session.dat"), "half");
  CheckUndoFile(recorded_.output, store_, session_);
  EXPECT_THAT(recorded_.problems, HasSubstr("the undo file is incomplete"));
}

}  // namespace
}  // namespace QxHost
