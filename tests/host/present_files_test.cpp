// Finding the files of an undo file, whatever the run and earlier undos have done.
#include "host/rename/present_files.h"

#include <gmock/gmock.h>

#include <random>

#include "host/rename/move_item.h"
#include "host/rename/rename_plan.h"
#include "host/rename/undo_steps.h"
#include "host/services/file_item.h"
#include "host/system/paths.h"
#include "random_batches.h"
#include "support/random_cases.h"
#include "support/scratch_folder.h"

using testing::ElementsAre;
using Velmora::SDK::MultiRenameUndo;

namespace QxHost {
namespace {

class PresentFilesTest : public testing::Test {
 protected:
  // Creates a file with the old name and adds its rename to the session.
  void Plan(WStringView oldName, WStringView newName) {
    scratch_.Write(oldName, ToUtf8(oldName));
    session_.entries.push_back({scratch_.Path(), WString(newName), WString(oldName)});
  }

  void NoteAll() { notes_.files = NoteOldFiles(session_.entries); }

  void Move(WStringView from, WStringView to) const {
    std::filesystem::rename(scratch_.NativePath(from), scratch_.NativePath(to));
  }

  // Saves like a program that writes a new file and renames it over the old one.
  void SaveAgain(WStringView name) const {
    scratch_.Write(W("new file"), "new");
    Move(W("new file"), name);
  }

  std::vector<PresentFile> Find() const { return FindPresentFiles(session_, notes_, W("Z:\\none")); }

  std::vector<Presence> Presences() const {
    std::vector<Presence> presences;
    for (const PresentFile& file : Find()) presences.push_back(file.presence);
    return presences;
  }

  ScratchFolder scratch_;
  MultiRenameUndo session_;
  UndoNotes notes_;
};

TEST_F(PresentFilesTest, AFileIsBackOrUnderItsNewNameOrUnderATemporaryOneOfEither) {
  Plan(W("a"), W("b"));
  Plan(W("b"), W("a"));
  NoteAll();
  EXPECT_THAT(Presences(), ElementsAre(Presence::kBack, Presence::kBack));
  for (const WCHAR* aside : {W("a.qxhost-tmp"), W("b.qxhost-tmp"), W("a.qxhost-tmp2"), W("b.qxhost-tmp16")}) {
    Move(W("a"), aside);
    EXPECT_THAT(Presences(), ElementsAre(Presence::kThere, Presence::kBack));
    EXPECT_EQ(Find()[0].name, aside);
    Move(aside, W("a"));
  }
  Move(W("a"), W("t"));
  Move(W("b"), W("a"));
  Move(W("t"), W("b"));
  EXPECT_THAT(Presences(), ElementsAre(Presence::kThere, Presence::kThere));
  EXPECT_EQ(Find()[0].name, W("b"));
  EXPECT_EQ(Find()[1].name, W("a"));
}

TEST_F(PresentFilesTest, AFileThatWasSavedAnewGoesByItsNameAndIsNoted) {
  Plan(W("a"), W("b"));
  Plan(W("b"), W("c"));
  NoteAll();
  Move(W("b"), W("c"));
  Move(W("a"), W("b"));
  SaveAgain(W("b"));
  const std::vector<PresentFile> found = Find();
  EXPECT_EQ(found[0].presence, Presence::kByName);
  EXPECT_EQ(found[1].presence, Presence::kThere);
  EXPECT_TRUE(NoteFound(found, notes_.files));
  EXPECT_EQ(notes_.files[0], FileIndexes().Of(scratch_.Path(), W("b")));
  EXPECT_EQ(Find()[0].presence, Presence::kThere);
  EXPECT_FALSE(NoteFound(Find(), notes_.files));
}

TEST_F(PresentFilesTest, AFileThatIsGoneIsNotTakenForAnotherOfTheRun) {
  Plan(W("a"), W("b"));
  Plan(W("b"), W("a"));
  NoteAll();
  std::filesystem::remove(scratch_.NativePath(W("a")));
  EXPECT_THAT(Presences(), ElementsAre(Presence::kTaken, Presence::kBack));
}

// A plan does not tell whether the run was done: if both files are new, they are left alone.
TEST_F(PresentFilesTest, AnExchangeOfWhichBothFilesAreOthersIsLeftAloneUnlessTheRunWasDone) {
  Plan(W("a"), W("b"));
  Plan(W("b"), W("a"));
  NoteAll();
  SaveAgain(W("a"));
  SaveAgain(W("b"));
  // The new files may have been given the file numbers of the old ones.
  constexpr FileIndex kOther = 1;
  notes_.files = {kOther, kOther + 1};
  notes_.isPlan = true;
  EXPECT_THAT(Presences(), ElementsAre(Presence::kTaken, Presence::kTaken));
  notes_.isPlan = false;
  EXPECT_THAT(Presences(), ElementsAre(Presence::kByName, Presence::kByName));
  session_.haveRestored = true;
  EXPECT_THAT(Presences(), ElementsAre(Presence::kBack, Presence::kBack));
}

TEST_F(PresentFilesTest, WithoutNotesAnExchangeIsTakenBackOnceAndNoted) {
  Plan(W("a"), W("b"));
  Plan(W("b"), W("a"));
  EXPECT_THAT(Presences(), ElementsAre(Presence::kByName, Presence::kByName));
  EXPECT_TRUE(NoteFound(Find(), notes_.files));
  EXPECT_THAT(Presences(), ElementsAre(Presence::kThere, Presence::kThere));
  notes_.files.clear();
  session_.haveRestored = true;
  EXPECT_THAT(Presences(), ElementsAre(Presence::kBack, Presence::kBack));
  session_.haveRestored = false;
  notes_.isPlan = true;
  EXPECT_THAT(Presences(), ElementsAre(Presence::kTaken, Presence::kTaken));
}

TEST_F(PresentFilesTest, NamesAreEnoughForAPlanWithoutCollisions) {
  Plan(W("a"), W("x"));
  Plan(W("b"), W("y"));
  NoteAll();
  EXPECT_TRUE(notes_.files.empty());
  Move(W("a"), W("x"));
  EXPECT_THAT(Presences(), ElementsAre(Presence::kByName, Presence::kByName));
  notes_.isPlan = true;
  EXPECT_THAT(Presences(), ElementsAre(Presence::kByName, Presence::kBack));
}

TEST_F(PresentFilesTest, FilesAreFoundInFoldersThatHaveExchangedTheirNames) {
  for (const WCHAR* folder : {W("f"), W("g")}) {
    scratch_.MakeFolder(folder);
    session_.entries.push_back({scratch_.Path(), folder == WString(W("f")) ? W("g") : W("f"), folder});
  }
  for (const WCHAR* folder : {W("f"), W("g")}) {
    scratch_.Write(WString(folder) + W("\\a"), "");
    session_.entries.push_back({scratch_.Path(folder), W("b"), W("a")});
  }
  NoteAll();
  Move(W("f\\a"), W("f\\b"));
  Move(W("f"), W("g.qxhost-tmp"));
  Move(W("g"), W("f"));
  EXPECT_THAT(Presences(),
              ElementsAre(Presence::kThere, Presence::kThere, Presence::kThere, Presence::kBack));
  EXPECT_EQ(Find()[0].name, W("g.qxhost-tmp"));
}

TEST_F(PresentFilesTest, WhatIsInAFolderThatIsGoneIsNotLookedForInAnother) {
  scratch_.MakeFolder(W("f"));
  scratch_.MakeFolder(W("g"));
  scratch_.Write(W("f\\a"), "");
  session_.entries = {{scratch_.Path(), W("g"), W("f")},
                      {scratch_.Path(), W("f"), W("g")},
                      {scratch_.Path(W("f")), W("b"), W("a")}};
  NoteAll();
  std::filesystem::remove_all(scratch_.NativePath(W("f")));
  Move(W("g"), W("f"));
  scratch_.Write(W("f\\b"), "another");
  const std::vector<Presence> presences = Presences();
  EXPECT_EQ(presences[1], Presence::kThere);
  EXPECT_EQ(presences[2], Presence::kTaken);
}

TEST_F(PresentFilesTest, WhatIsInAFolderThatCannotBeRenamedIsHeld) {
  scratch_.MakeFolder(W("f"));
  scratch_.Write(W("f\\a"), "");
  session_.entries = {{scratch_.Path(), W("g"), W("f")}, {scratch_.Path(W("f")), W("b"), W("a")}};
  NoteAll();
  Move(W("f\\a"), W("f\\b"));
  Move(W("f"), W("g"));
  const auto found = FindPresentFiles(session_, notes_, scratch_.Path(W("g\\sub")));
  EXPECT_EQ(found[0].presence, Presence::kThere);
  EXPECT_EQ(found[1].presence, Presence::kHeld);
}

TEST_F(PresentFilesTest, AnotherLetterCaseOfAFileIsTakenBackByTheNameOnTheDisk) {
  Plan(W("a"), W("A"));
  scratch_.MakeFolder(W("sub"));
  scratch_.Write(W("sub\\f"), "");
  session_.entries.push_back({scratch_.Path(), W("Sub2"), W("sub")});
  session_.entries.push_back({scratch_.Path(W("sub")), W("g"), W("f")});
  NoteAll();
  EXPECT_EQ(Find()[0].presence, Presence::kBack);
  Move(W("a"), W("between"));
  Move(W("between"), W("A"));
  EXPECT_EQ(Find()[0].presence, Presence::kThere);
}

// A batch of renames that stops after the given number of steps, like a killed process.
class CutRun {
 public:
  CutRun(const MultiRenameUndo& session, bool isByPath, int steps) : steps_(steps) {
    WantedRenames wanted;
    std::vector<WString> newNames;
    for (const auto& entry : session.entries) {
      wanted.folders.push_back(PathInFolder(entry.folder, W("")));
      newNames.emplace_back(isByPath ? entry.oldName : entry.newName);
    }
    for (std::uint32_t row = 0; row < session.entries.size(); ++row) {
      const auto& entry = session.entries[row];
      const WStringView name = isByPath ? entry.newName : entry.oldName;
      const DWORD refusal = name == newNames[row] ? DWORD{Velmora::SDK::kRenameIgnored} : 0;
      wanted.rows.push_back({row, name, newNames[row], isByPath, refusal});
    }
    DiskView disk;
    const RenamePlan plan = PlanRenames(wanted, disk);
    FileItemTree tree;
    std::vector<FileItem*> items(newNames.size());
    for (const std::uint32_t row : plan.order) {
      const std::uint32_t folder = plan.folders[row];
      const WString& path = folder < wanted.folders.size()
                                ? wanted.folders[folder]
                                : plan.otherFolders[folder - wanted.folders.size()];
      items[row] = &tree.Follow(path + WString(wanted.rows[row].name));
    }
    std::vector<bool> isDone(newNames.size(), false);
    for (const RenameChain& chain : plan.chains) {
      if (chain.waitsFor != kNoRow && !isDone[chain.waitsFor]) continue;
      const std::span rows(plan.order.data() + chain.first, chain.count);
      if (chain.temporaryName != kNoRow)
        Step(tree, *items[rows.back()], plan.temporaryNames[chain.temporaryName]);
      for (const std::uint32_t row : rows) isDone[row] = Step(tree, *items[row], newNames[row]);
    }
  }

  bool WasCut() const { return steps_ < 0; }

 private:
  bool Step(FileItemTree& tree, FileItem& item, const WString& newName) {
    if (steps_ < 0 || steps_-- == 0) return false;
    if (MoveItem(item.FullPath(), item.FolderPath() + newName) != ERROR_SUCCESS) return false;
    tree.Rename(item, newName);
    return true;
  }

  int steps_;  // the steps left
};

// Does what one undo does, up to the given number of steps. Returns whether it was cut.
bool CutUndo(MultiRenameUndo& session, UndoNotes& notes, int steps) {
  const std::vector<PresentFile> found = FindPresentFiles(session, notes, W("Z:\\none"));
  NoteFound(found, notes.files);
  const UndoSteps undo = StepsOf(session, found);
  EXPECT_TRUE(undo.left.empty());
  return CutRun(undo.session, true, steps).WasCut();
}

TEST(PresentFilesRandomTest, RunsThatAreCutComeBackByUndosThatAreCut) {
  constexpr int kCases = RandomCases(2000);
  constexpr int kNoEnd = 1000;
  RandomBatches batches(20);
  int cutRuns = 0;
  int cutUndos = 0;
  for (int number = 0; number < kCases; ++number) {
    const PlainTree before = batches.MakeTree();
    const std::vector<PlainRename> batch = batches.MakeBatch(before);
    const PlainOutcome outcome = batches.Model(before, batch);
    MultiRenameUndo session;
    for (std::size_t row = 0; row < batch.size(); ++row) {
      if (outcome.results[row] != 0) continue;
      const WString path = batches.PathOf(batch[row].path);
      const std::size_t nameAt = path.rfind(W('\\')) + 1;
      session.entries.push_back({path.substr(0, nameAt), batch[row].newName, path.substr(nameAt)});
    }
    UndoNotes notes{true, NoteOldFiles(session.entries)};
    const bool isCut =
        CutRun(session, false, static_cast<int>(batches.Below(session.entries.size() + 4))).WasCut();
    notes.isPlan = isCut || batches.Below(2) == 0;
    cutRuns += isCut;
    for (std::size_t undos = batches.Below(3); undos > 0; --undos)
      cutUndos += CutUndo(session, notes, static_cast<int>(batches.Below(session.entries.size() + 2)));
    CutUndo(session, notes, kNoEnd);
    ASSERT_EQ(batches.ReadTree(), before) << "case " << number;
    session.haveRestored = batches.Below(2) == 0;
    CutUndo(session, notes, kNoEnd);
    ASSERT_EQ(batches.ReadTree(), before) << "again, case " << number;
  }
  EXPECT_GT(cutRuns, kCases / 4);
  EXPECT_GT(cutUndos, kCases / 8);
}

}  // namespace
}  // namespace QxHost
