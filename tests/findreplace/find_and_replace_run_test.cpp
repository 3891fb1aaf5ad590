// A run of find and replace over a list of files: its log lines, result lists and summary.
#include "findreplace/tool/find_and_replace_run.h"

#include "findreplace/list_run.h"
#include "support/refusals.h"

using namespace QXFindAndReplace;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(FindAndReplaceRun, ReplacesInAllFilesInTheOrderOfTheList) {
  ListRun run;
  run.Add(W("b.txt"), "two two\n");
  run.Add(W("a.txt"), "one\n");
  run.Add(W("c.txt"), "two\n");
  run.Run(kNew, W("*.out"));
  EXPECT_EQ(run.scratch.Read(W("b.out")), "2 2\n");
  EXPECT_EQ(run.scratch.Read(W("c.out")), "2\n");
  EXPECT_FALSE(run.scratch.Exists(W("a.out")));
  EXPECT_THAT(run.Log(), ElementsAre("10: [Find and Replace] - 2 changes made to file : ~\\b.txt",
                                     "10: [Find and Replace] - 0 changes made to file : ~\\a.txt",
                                     "10: [Find and Replace] - 1 changes made to file : ~\\c.txt"));
  EXPECT_THAT(run.Boxes(), ElementsAre(Summary("3 changes in 3 files")));
  EXPECT_THAT(run.Result(0), ElementsAre("~\\b.txt", "~\\a.txt", "~\\c.txt"));
  EXPECT_THAT(run.host.resultLists, SizeIs(1));
}

TEST(FindAndReplaceRun, ReportsBothListsThenReleasesThemAndThenShowsTheResult) {
  ListRun run;
  run.Add(W("a.txt"), "two\n");
  run.AddMissing(W("none.txt"));
  run.errorBoxes = 1;
  run.Run(kNew, W("*.out"));
  EXPECT_THAT(run.Steps(),
              ElementsAre("log done", "log error", "log not done", "hand back done", "hand back failed",
                          "release result", "release result", "release files", "summary"));
}

TEST(FindAndReplaceRun, DoneFilesAreHandedBackAlsoWhenThereAreNone) {
  ListRun run;
  run.AddMissing(W("none.txt"));
  run.Run(kNew | Silent, W("*.out"));
  ASSERT_THAT(run.host.resultLists, SizeIs(2));
  EXPECT_THAT(run.Result(0), IsEmpty());
  EXPECT_THAT(run.Result(1), ElementsAre("~\\none.txt"));
}

TEST(FindAndReplaceRun, EmptyListDoesNothingAndIsReleasedWhereOwned) {
  for (const bool owns : {false, true}) {
    ListRun run;
    run.Run(kNew, W("*.out"), owns);
    EXPECT_EQ(run.listIsOpen, !owns);
    EXPECT_THAT(run.Boxes(), IsEmpty());
    EXPECT_THAT(run.Log(), IsEmpty());
    EXPECT_THAT(run.host.resultLists, IsEmpty());

    FakeHost host;
    auto* const list = static_cast<FakeFileList*>(host.CreateFileList());
    StartFindAndReplace(host, list, FindAndReplaceOptions(), W("*.out"), owns);
    EXPECT_EQ(host.recorder.IsTaken(list->Name()), !owns);
    EXPECT_THAT(host.recorder.CallsOf({"CreateFileList"}), SizeIs(1));
    if (!owns) list->Release();
    ExpectAllReleased(host);
  }
  FakeHost host;
  StartFindAndReplace(host, nullptr, FindAndReplaceOptions(), W("*.out"), true);
  EXPECT_THAT(host.recorder.Calls(), IsEmpty());
}

TEST(FindAndReplaceRun, ListOfFilesIsReleasedOnlyWhereTheRunOwnsIt) {
  for (const bool owns : {false, true}) {
    for (const std::uint32_t silent : {std::uint32_t{0}, std::uint32_t{Silent}}) {
      ListRun run;
      run.Add(W("a.txt"), "two\n");
      run.Run(kNew | silent, W("*.out"), owns);
      EXPECT_EQ(run.listIsOpen, !owns);
    }
  }
}

TEST(FindAndReplaceRun, StartRunsTheList) {
  ListRun run;
  FakeFileItem* const item = run.Add(W("a.txt"), "two\n");
  auto* const list = static_cast<FakeFileList*>(run.host.CreateFileList());
  list->Append(item);
  StartFindAndReplace(run.host, list, run.Options(kNew), W("*.out"), true);
  ExpectAllReleased(run.host);
  EXPECT_EQ(run.scratch.Read(W("a.out")), "2\n");
  EXPECT_THAT(run.Boxes(), ElementsAre(Summary("1 changes")));
}

TEST(FindAndReplaceRun, FailedFileIsReportedAndLoggedAndTheNextOneRuns) {
  ListRun run;
  run.AddMissing(W("none.txt"));
  run.Add(W("long.txt"), std::string(40000, 'x'));
  run.Add(W("a.txt"), "two\n");
  run.errorBoxes = 2;
  run.Run(kNew, W("*.out"));
  EXPECT_THAT(run.Log(), ElementsAre(ErrorLine("File not found", 2),
                                     "10: [Find and Replace] - Failed to Find/Replace text in : ~\\none.txt",
                                     ErrorLine(std::bad_alloc().what(), 14),
                                     "10: [Find and Replace] - Failed to Find/Replace text in : ~\\long.txt",
                                     "10: [Find and Replace] - 1 changes made to file : ~\\a.txt"));
  EXPECT_EQ(run.scratch.Read(W("a.out")), "2\n");
  EXPECT_THAT(run.Result(0), ElementsAre("~\\a.txt"));
  EXPECT_THAT(run.Result(1), ElementsAre("~\\none.txt", "~\\long.txt"));
}

TEST(FindAndReplaceRun, EachFailedFileLowersTheSumByOneByDesign) {
  ListRun run;
  run.Add(W("a.txt"), "two two two\n");
  run.AddMissing(W("none.txt"));
  run.Add(W("b.txt"), "two\n");
  run.errorBoxes = 1;
  run.Run(kNew, W("*.out"));
  EXPECT_THAT(run.Boxes(), ElementsAre(Summary("3 changes in 2 files")));

  ListRun failing;
  failing.AddMissing(W("none.txt"));
  failing.AddMissing(W("nowhere.txt"));
  failing.errorBoxes = 2;
  failing.Run(kNew, W("*.out"));
  EXPECT_THAT(failing.Boxes(), ElementsAre(Summary("-2 changes in 0 files")));
}

TEST(FindAndReplaceRun, OneDoneFileHasTheShortSummaryWhateverFailed) {
  ListRun run;
  run.AddMissing(W("none.txt"));
  run.Add(W("a.txt"), "two two\n");
  run.errorBoxes = 1;
  run.Run(kNew, W("*.out"));
  EXPECT_THAT(run.Boxes(), ElementsAre(Summary("1 changes")));
}

TEST(FindAndReplaceRun, SummaryTakesItsNumbersAsTextOrAsNumbers) {
  for (const WCHAR* format : {W("%s changes in %s files"), W("%d changes in %u files")}) {
    ListRun run;
    run.host.texts[kChangesInFormat] = format;
    run.Add(W("a.txt"), "two two\n");
    run.Add(W("b.txt"), "one\n");
    run.Run(kNew, W("*.out"));
    EXPECT_THAT(run.Boxes(), ElementsAre(Summary("2 changes in 2 files")));
  }
  ListRun hostile;
  hostile.host.texts[kChangesFormat] = W("%n%s%s%s%p");
  hostile.Add(W("a.txt"), "two two\n");
  hostile.Run(kNew, W("*.out"));
  EXPECT_THAT(hostile.Boxes(), ElementsAre(Summary("%n2%s%s%p")));
}

TEST(FindAndReplaceRun, BinaryFileIsReportedAndCountsAsDone) {
  ListRun run;
  run.Add(W("binary.dat"), std::string(10, '\x01'));
  run.errorBoxes = 1;
  run.Run(kBackup, W("*.*"));
  EXPECT_THAT(run.Log(),
              ElementsAre(ErrorLine("File is not detected as a text file. Unsupported file format", 11),
                          "10: [Find and Replace] - 0 changes made to file : ~\\binary.dat"));
  EXPECT_THAT(run.Result(0), ElementsAre("~\\binary.dat"));
  EXPECT_THAT(run.Boxes(), ElementsAre(Summary("0 changes")));
  EXPECT_THAT(run.scratch.Names(), ElementsAre(W("binary.dat")));
}

TEST(FindAndReplaceRun, SilentRunShowsNothingAndAsksNothingButLogsItAll) {
  ListRun run;
  run.host.boxAnswers.clear();
  run.AddMissing(W("none.txt"));
  run.Add(W("binary.dat"), std::string(10, '\x01'));
  run.Add(W("a.txt"), "two two\n");
  run.Run(SaveAsNew | Silent, W("*.out"));
  EXPECT_THAT(run.Boxes(), IsEmpty());
  EXPECT_THAT(run.paths, IsEmpty());
  EXPECT_THAT(run.Log(),
              ElementsAre(ErrorLine("File not found", 2),
                          "10: [Find and Replace] - Failed to Find/Replace text in : ~\\none.txt",
                          ErrorLine("File is not detected as a text file. Unsupported file format", 11),
                          "10: [Find and Replace] - 0 changes made to file : ~\\binary.dat",
                          "10: [Find and Replace] - 2 changes made to file : ~\\a.txt"));
  EXPECT_EQ(run.scratch.Read(W("a.out")), "2 2\n");
}

TEST(FindAndReplaceRun, TargetIsInTheFolderOfItsFile) {
  ListRun run;
  for (const WCHAR* folder : {W("one"), W("two")}) {
    run.scratch.MakeFolder(folder);
    run.scratch.Write(WString(folder) + W("\\a.txt"), "two\n");
    run.items.push_back(run.host.AddFileIn(run.scratch.Path(folder) + W("\\"), W("a.txt")));
  }
  run.Run(kNew, W("new_*"));
  EXPECT_EQ(run.scratch.Read(W("one\\new_a.txt")), "2\n");
  EXPECT_EQ(run.scratch.Read(W("two\\new_a.txt")), "2\n");
}

TEST(FindAndReplaceRun, FolderWithoutASeparatorGetsOne) {
  ListRun run;
  run.scratch.Write(W("a.txt"), "two\n");
  // The item's path is the same, but its folder has no trailing backslash.
  run.items.push_back(run.host.AddFileIn(run.scratch.Path(), W("\\a.txt")));
  run.Run(kNew, W("out"));
  EXPECT_EQ(run.scratch.Read(W("out")), "2\n");
}

TEST(FindAndReplaceRun, FolderIsTheOneForTargets) {
  ListRun run;
  run.Add(W("a.txt"), "two\n");
  run.Run(kNew, W("*.out"));
  const auto asked = [&run](const std::string& operation) {
    return std::ranges::any_of(run.host.recorder.Calls(), [&operation](const std::string& call) {
      return call.find(operation) != std::string::npos;
    });
  };
  EXPECT_TRUE(asked("GetParentPath("));
  EXPECT_FALSE(asked("GetFolderPath("));
}

TEST(FindAndReplaceRun, PatternOfAnotherExtensionGivesATargetNextToTheFile) {
  ListRun run;
  run.Add(W("a.log"), "two\n");
  run.Run(kNew, W("*.txt"));
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "2\n");
  EXPECT_EQ(run.scratch.Read(W("a.log")), "two\n");
}

TEST(FindAndReplaceRun, PathsOfFilesMayHoldPercentSigns) {
  ListRun run;
  run.Add(W("100%s%n.txt"), "two\n");
  run.Run(kNew, W("*.out"));
  EXPECT_THAT(run.Log(), ElementsAre("10: [Find and Replace] - 1 changes made to file : ~\\100%s%n.txt"));
}

TEST(FindAndReplaceRun, ItemsThatTheListDoesNotGiveCountAsFailed) {
  ListRun run;
  run.items = {nullptr, run.host.AddFileIn(run.scratch.Path() + W("\\"), W("a.txt")), nullptr};
  run.scratch.Write(W("a.txt"), "two two two\n");
  run.Run(kNew, W("*.out"));
  EXPECT_EQ(run.scratch.Read(W("a.out")), "2 2 2\n");
  EXPECT_THAT(run.Boxes(), ElementsAre(Summary("1 changes")));
  EXPECT_THAT(run.Result(0), ElementsAre("~\\a.txt"));
  EXPECT_THAT(run.Result(1), IsEmpty());
}

TEST(FindAndReplaceRun, EveryRefusalOfTheHostEndsQuietlyAndLosesNoData) {
  const ScratchFolder scratch;
  ExpectEveryRefusalEndsQuietly(
      [&](FakeHost& host) {
        scratch.Write(W("a.txt"), "two\n");
        scratch.Write(W("a.out"), "old");
        host.boxAnswers = {IDYES, IDOK};
      },
      [&](FakeHost& host) {
        IHostFileList* const list = host.CreateFileList();
        if (!list) return;
        static_cast<FakeFileList*>(list)->Append(host.AddFileIn(scratch.Path() + W("\\"), W("a.txt")));
        FindAndReplaceOptions options;
        options.flags = ModeOne | SaveAsNew | ReplaceAll;
        options.find = W("two");
        options.replace = W("2");
        StartFindAndReplace(host, list, options, W("*.out"), true);
        EXPECT_EQ(scratch.Read(W("a.txt")), "two\n");
      });
}
