// The questions of a run of find and replace, about targets and about matches.
#include "findreplace/list_run.h"

using namespace QXFindAndReplace;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(FindAndReplaceQuestions, AsksBeforeAnExistingTargetIsReplacedAndYesReplacesIt) {
  ListRun run;
  run.Add(W("a.txt"), "two\n");
  run.scratch.Write(W("a.out"), "old");
  run.host.boxAnswers = {IDYES, IDOK};
  run.Run(kNew, W("*.out"));
  EXPECT_EQ(run.scratch.Read(W("a.out")), "2\n");
  EXPECT_THAT(run.Boxes(), ElementsAre(kQuestion, Summary("1 changes")));
}

TEST(FindAndReplaceQuestions, TargetThatIsTheSourceIsAskedForAndYesOverwritesIt) {
  ListRun run;
  run.Add(W("a.txt"), "two\n");
  run.host.boxAnswers = {IDYES, IDOK};
  run.Run(kNew, W("*.*"));
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "2\n");
  EXPECT_THAT(run.scratch.Names(), SizeIs(1));
  EXPECT_THAT(run.Boxes(), ElementsAre(kQuestion, Summary("1 changes")));
}

TEST(FindAndReplaceQuestions, YesAppliesToLaterTargetsButEachIsStillAskedForByDesign) {
  ListRun run;
  for (const WCHAR* name : {W("a"), W("b"), W("c")}) {
    run.Add(WString(name) + W(".txt"), "two\n");
    run.scratch.Write(WString(name) + W(".out"), "old");
  }
  run.host.boxAnswers = {IDYES, IDNO, IDYES, IDOK};
  run.Run(kNew, W("*.out"));
  EXPECT_EQ(run.scratch.Read(W("a.out")), "2\n");
  EXPECT_EQ(run.scratch.Read(W("b.out")), "old");
  EXPECT_EQ(run.scratch.Read(W("c.out")), "2\n");
  EXPECT_THAT(run.Boxes(), ElementsAre(kQuestion, kQuestion, kQuestion, Summary("2 changes in 2 files")));
}

TEST(FindAndReplaceQuestions, YesHoldsForATargetThatComesUpOnlyAfterItsCheck) {
  // Without the Yes the second target would be refused: it is created while its source is being processed.
  for (const bool isFirstQuestion : {false, true}) {
    ListRun run;
    run.Add(W("a.txt"), "two\n");
    run.Add(W("b.txt"), "two\n");
    if (isFirstQuestion) run.scratch.Write(W("a.out"), "old");
    run.host.boxAnswers.clear();
    if (isFirstQuestion) run.host.boxAnswers.push_back(IDYES);
    run.host.boxAnswers.push_back(IDOK);
    auto* const list = static_cast<FakeFileList*>(run.host.CreateFileList());
    for (FakeFileItem* item : run.items) list->Append(item);
    const ConfirmReplaceDialog confirm = [&run](IHostApp&, ConfirmReplaceForm& form) {
      form.result = ConfirmResult::Replace;
      if (form.path.ends_with(W("b.txt"))) run.scratch.Write(W("b.out"), "came up");
    };
    const BoxAnswers answers{IDOK, IDOK};
    FindAndReplaceRun(run.host, list, run.Options(SaveAsNew), W("*.out"), true, confirm).Run();
    EXPECT_EQ(run.scratch.Read(W("b.out")), isFirstQuestion ? "2\n" : "came up");
    EXPECT_EQ(answers.Boxes().size(), isFirstQuestion ? 0u : 1u);
    ExpectAllReleased(run.host);
  }
}

TEST(FindAndReplaceQuestions, NoSkipsTheFileWhichCountsAsFailed) {
  ListRun run;
  run.Add(W("a.txt"), "two\n");
  run.Add(W("b.txt"), "two two\n");
  run.scratch.Write(W("a.out"), "old");
  run.host.boxAnswers = {IDNO, IDOK};
  run.Run(kNew, W("*.out"));
  EXPECT_EQ(run.scratch.Read(W("a.out")), "old");
  EXPECT_THAT(run.Log(),
              ElementsAre("10: [Find and Replace] - File already exists. Do not overwrite : ~\\a.out",
                          "10: [Find and Replace] - 2 changes made to file : ~\\b.txt"));
  EXPECT_THAT(run.Result(0), ElementsAre("~\\b.txt"));
  EXPECT_THAT(run.Result(1), ElementsAre("~\\a.txt"));
  // The skipped file does not reduce the sum.
  EXPECT_THAT(run.Boxes(), ElementsAre(kQuestion, Summary("2 changes")));
}

TEST(FindAndReplaceQuestions, CancelAtATargetEndsTheRunWithoutListsAndWithoutASummary) {
  for (const bool owns : {false, true}) {
    ListRun run;
    run.Add(W("a.txt"), "two\n");
    run.Add(W("b.txt"), "two\n");
    run.Add(W("c.txt"), "two\n");
    run.scratch.Write(W("b.out"), "old");
    run.host.boxAnswers = {IDCANCEL};
    run.Run(kNew, W("*.out"), owns);
    // The file that was done before remains.
    EXPECT_EQ(run.scratch.Read(W("a.out")), "2\n");
    EXPECT_EQ(run.scratch.Read(W("b.out")), "old");
    EXPECT_FALSE(run.scratch.Exists(W("c.out")));
    EXPECT_THAT(run.Log(), ElementsAre("10: [Find and Replace] - 1 changes made to file : ~\\a.txt",
                                       "10: [Find and Replace] - Operation cancelled"));
    EXPECT_THAT(run.Boxes(), ElementsAre(kQuestion));
    EXPECT_THAT(run.host.resultLists, IsEmpty());
    EXPECT_EQ(run.listIsOpen, !owns);
  }
}

TEST(FindAndReplaceQuestions, CancelAtAMatchEndsTheRunWithItsTwoLines) {
  ListRun run;
  run.Add(W("a.txt"), "two two\n");
  run.Add(W("b.txt"), "two two\n");
  run.Add(W("c.txt"), "two two\n");
  run.confirmations = {ConfirmResult::Replace, ConfirmResult::Skip, ConfirmResult::Replace,
                       ConfirmResult::Cancel};
  run.Run(KeepBackup, W("*.*"));
  EXPECT_THAT(run.paths, ElementsAre("~\\a.txt", "~\\a.txt", "~\\b.txt", "~\\b.txt"));
  EXPECT_THAT(run.Steps(), ElementsAre("log done", "log not done", "log cancelled", "release result",
                                       "release result", "release files"));
  EXPECT_THAT(run.Log(), ElementsAre("10: [Find and Replace] - 1 changes made to file : ~\\a.txt",
                                     "10: [Find and Replace] - Failed to Find/Replace text in : ~\\b.txt",
                                     "10: [Find and Replace] - Operation cancelled"));
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "2 two\n");
  EXPECT_EQ(run.scratch.Read(W("b.txt")), "two two\n");
  EXPECT_EQ(run.scratch.Read(W("c.txt")), "two two\n");
  EXPECT_THAT(run.host.resultLists, IsEmpty());
  EXPECT_THAT(run.Boxes(), IsEmpty());
}

TEST(FindAndReplaceQuestions, CancelInMultilineCountsAsOneChangeAndTheRunContinuesByDesign) {
  ListRun run;
  run.Add(W("a.txt"), "two\ntwo\n");
  run.Add(W("b.txt"), "two\ntwo\n");
  run.confirmations = {ConfirmResult::Replace, ConfirmResult::Cancel};
  run.Run(ModeMultiline | KeepBackup, W("*.*"));
  EXPECT_THAT(run.Log(), ElementsAre("10: [Find and Replace] - 1 changes made to file : ~\\a.txt",
                                     "10: [Find and Replace] - 2 changes made to file : ~\\b.txt"));
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "two\ntwo\n");
  EXPECT_EQ(run.scratch.Read(W("b.txt")), "2\n2\n");
  EXPECT_FALSE(run.scratch.Exists(W("a.txt.bak")));
  EXPECT_THAT(run.Boxes(), ElementsAre(Summary("3 changes in 2 files")));
  EXPECT_THAT(run.Result(0), ElementsAre("~\\a.txt", "~\\b.txt"));
}

TEST(FindAndReplaceQuestions, ReplaceAllHoldsForTheRestOfTheFileAndForAllLaterFiles) {
  ListRun run;
  run.Add(W("a.txt"), "two two two\n");
  run.Add(W("b.txt"), "two two\n");
  run.Add(W("c.txt"), "two\n");
  run.confirmations = {ConfirmResult::Skip, ConfirmResult::ReplaceAll};
  run.Run(KeepBackup, W("*.*"));
  EXPECT_THAT(run.paths, ElementsAre("~\\a.txt", "~\\a.txt"));
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "two 2 2\n");
  EXPECT_EQ(run.scratch.Read(W("b.txt")), "2 2\n");
  EXPECT_EQ(run.scratch.Read(W("c.txt")), "2\n");
  EXPECT_THAT(run.Boxes(), ElementsAre(Summary("5 changes in 3 files")));
}

TEST(FindAndReplaceQuestions, ReplaceAllHoldsAlsoWhenItsFileFails) {
  ListRun run;
  run.Add(W("a.txt"), "two\n");
  run.Add(W("b.txt"), "two\n");
  run.confirmations = {ConfirmResult::ReplaceAll};
  run.errorBoxes = 2;
  run.Run(SaveAsNew, W("none\\*.*"));
  EXPECT_THAT(run.paths, ElementsAre("~\\a.txt"));
  EXPECT_THAT(run.Result(1), ElementsAre("~\\a.txt", "~\\b.txt"));
}

TEST(FindAndReplaceQuestions, WithoutANewFileNoTargetIsAskedFor) {
  for (const std::uint32_t mode : {kBackup, ReplaceFile | ReplaceAll}) {
    ListRun run;
    run.Add(W("a.txt"), "two\n");
    run.Run(mode, W("*.*"));
    EXPECT_THAT(run.Boxes(), ElementsAre(Summary("1 changes")));
    EXPECT_EQ(run.scratch.Read(W("a.txt")), "2\n");
    EXPECT_EQ(run.scratch.Exists(W("a.txt.bak")), mode == kBackup);
  }
}

TEST(FindAndReplaceQuestions, SilentRunSkipsExistingTargets) {
  ListRun run;
  run.Add(W("a.txt"), "two\n");
  run.Add(W("b.txt"), "two\n");
  run.scratch.Write(W("a.out"), "old");
  run.Run(SaveAsNew | Silent, W("*.out"));
  EXPECT_EQ(run.scratch.Read(W("a.out")), "old");
  EXPECT_EQ(run.scratch.Read(W("b.out")), "2\n");
  EXPECT_THAT(run.Log(),
              ElementsAre("10: [Find and Replace] - File already exists. Do not overwrite : ~\\a.out",
                          "10: [Find and Replace] - 1 changes made to file : ~\\b.txt"));
  EXPECT_THAT(run.Boxes(), IsEmpty());
  EXPECT_THAT(run.Result(0), ElementsAre("~\\b.txt"));
  EXPECT_THAT(run.Result(1), ElementsAre("~\\a.txt"));
}

TEST(FindAndReplaceQuestions, SilentRunReplacesExistingTargetsUnderOverwrite) {
  ListRun run;
  run.Add(W("a.txt"), "two\n");
  run.scratch.Write(W("a.out"), "old");
  run.Run(SaveAsNew | Silent | OverwriteTarget, W("*.out"));
  EXPECT_EQ(run.scratch.Read(W("a.out")), "2\n");
  EXPECT_THAT(run.Boxes(), IsEmpty());
}

// With an empty name the target is the folder itself, which exists.
TEST(FindAndReplaceQuestions, EmptyPatternIsSkippedByASilentRun) {
  ListRun run;
  run.Add(W("a.txt"), "two\n");
  run.Run(SaveAsNew | Silent, W(""));
  EXPECT_THAT(run.Log(), ElementsAre("10: [Find and Replace] - File already exists. Do not overwrite : ~\\"));
  EXPECT_THAT(run.Result(0), IsEmpty());
  EXPECT_THAT(run.Result(1), ElementsAre("~\\a.txt"));
  EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt")));
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "two\n");
}

TEST(FindAndReplaceQuestions, EmptyPatternWithABackupLosesNothing) {
  // The folder cannot be replaced by a file, and must not remain renamed.
  for (const std::uint32_t mode : {KeepBackup, ReplaceFile}) {
    ListRun run;
    run.scratch.MakeFolder(W("sub"));
    run.scratch.Write(W("sub\\a.txt"), "two\n");
    run.items.push_back(run.host.AddFileIn(run.scratch.Path(W("sub")) + W("\\"), W("a.txt")));
    run.Run(mode | Silent, W(""));
    int found = 0;
    for (const WString& name : run.scratch.Names()) {
      if (run.scratch.Exists(name + W("\\a.txt"))) {
        EXPECT_EQ(run.scratch.Read(name + W("\\a.txt")), "two\n");
        ++found;
      }
    }
    EXPECT_EQ(found, 1);
  }
}
