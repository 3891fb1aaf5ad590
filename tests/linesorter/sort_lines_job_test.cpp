// A run over a list of files: its questions, log lines, result lists and closing message.
#include "linesorter/tool/sort_lines_job.h"

#include <gmock/gmock.h>

#include "support/fake_host.h"
#include "support/refusals.h"
#include "support/scratch_folder.h"

using namespace Velmora::SDK;
using namespace WQLineSorter;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

// Title and text of the question, and its style: buttons Yes, No and Cancel, and a question mark.
constexpr char kQuestion[] = "MessageBox(\"T023B0064\", \"T023F0064\", 0x00000023)";

constexpr TextId kFailedFormat = 38076516;
constexpr TextId kSortedFormat = 37552228;

// A run over files of a scratch folder.
struct JobRun {
  JobRun() {
    host.texts[kFailedFormat] = W("%d failed");
    host.texts[kSortedFormat] = W("%s sorted");
  }

  // Creates a file and adds it to the list.
  FakeFileItem* Add(WStringView name, std::string_view bytes) {
    scratch.Write(name, bytes);
    return AddMissing(name);
  }
  FakeFileItem* AddMissing(WStringView name) {
    FakeFileItem* const item = host.AddFileIn(scratch.Path() + W("\\"), WString(name));
    items.push_back(item);
    return item;
  }

  void Run(std::uint32_t more, const WString& pattern, bool ownsFiles = true) {
    auto* const list = static_cast<FakeFileList*>(host.CreateFileList());
    for (FakeFileItem* item : items) list->Append(item);
    host.recorder.ClearCalls();
    SortLinesOptions options;
    options.options = SortByLine | SortAsText | more;
    SortLinesJob job{host, list, options, pattern, ownsFiles};
    RunSortLinesJob(job);
    optionsAfter = job.options.options;
    listIsOpen = host.recorder.IsTaken(list->Name());
    if (listIsOpen) list->Release();
    ExpectAllReleased(host);
  }

  // Returns the log lines as "level: text", from both log operations, with the folder replaced by "~".
  std::vector<std::string> Log() const {
    std::vector<std::string> lines;
    for (const std::string& call : host.recorder.CallsOf({"LogMessage(", "LogText("})) {
      const std::size_t level = call.find(", ") + 2;
      const std::size_t text = call.find(", \"", level) + 3;
      EXPECT_TRUE(call.find("(0, ") != std::string::npos || call.find("(1, ") != std::string::npos) << call;
      const std::string number = call.substr(level, text - 3 - level);
      lines.push_back(number + ": " + Short(call.substr(text, call.size() - text - 2)));
    }
    return lines;
  }

  // Returns the message boxes, as recorded.
  std::vector<std::string> Boxes() const { return host.recorder.CallsOf({"MessageBox("}); }

  // Returns the names in the list that was handed back with this mode.
  std::vector<std::string> Result(u32 mode) const {
    std::vector<std::string> names;
    int lists = 0;
    for (const ResultList& list : host.resultLists) {
      if (list.mode != mode) continue;
      ++lists;
      for (const WString& path : list.paths) names.push_back(Short(ToUtf8(path)));
    }
    EXPECT_EQ(lists, 1) << mode;
    return names;
  }

  // Returns the steps of the run in order, in words.
  std::vector<std::string> Steps() const {
    std::vector<std::string> steps;
    for (const std::string& call : host.recorder.Calls()) {
      if (call.starts_with("Log"))
        steps.push_back(call.find("Sorted lines") != std::string::npos ? "log sorted" : "log not sorted");
      if (call.starts_with("MessageBox("))
        steps.push_back(call == kQuestion ? "question" : "closing message");
      if (call.starts_with("FileListRequest(21120, ")) {
        steps.push_back(call.ends_with(", 0, 0)")   ? "hand back sorted"
                        : call.ends_with(", 1, 0)") ? "hand back failed"
                                                    : call);
      }
      if (call.ends_with(".Release()"))
        steps.push_back(call.starts_with("list1.") ? "release files" : "release result");
    }
    return steps;
  }

  ScratchFolder scratch;
  FakeHost host;
  std::vector<FakeFileItem*> items;
  std::uint32_t optionsAfter = 0;
  bool listIsOpen = false;  // whether the list of files is in use after the run

 private:
  std::string Short(std::string text) const {
    const std::string folder = ToUtf8(scratch.Path());
    for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder, at + 1)) {
      text.replace(at, folder.size(), "~");
    }
    return text;
  }
};

std::string ClosingOfSorted(const std::string& count) {
  return "MessageBox(\"T023B0064\", \"" + count + " sorted\", 0x00000040)";
}
std::string ClosingOfFailed(const std::string& count) {
  return "MessageBox(\"T023B0064\", \"" + count + " failed\", 0x00000010)";
}

constexpr std::uint32_t kNew = SaveAsNewFile;
constexpr std::uint32_t kSilent = SortSilent;

}  // namespace

TEST(SortLinesJob, SortsAllFilesInTheOrderOfTheList) {
  JobRun run;
  run.Add(W("b.txt"), "2\n1\n");
  run.Add(W("a.txt"), "4\n3\n");
  run.Run(kNew, W("*.out"));
  EXPECT_EQ(run.scratch.Read(W("b.out")), "1\n2\n");
  EXPECT_EQ(run.scratch.Read(W("a.out")), "3\n4\n");
  EXPECT_EQ(run.scratch.Read(W("b.txt")), "2\n1\n");
  EXPECT_THAT(run.Log(),
              ElementsAre("10: [SortLines] - Sorted lines in file : ~\\b.txt (Saved as : ~\\b.out)",
                          "10: [SortLines] - Sorted lines in file : ~\\a.txt (Saved as : ~\\a.out)"));
  EXPECT_THAT(run.Boxes(), ElementsAre(ClosingOfSorted("2")));
  EXPECT_THAT(run.Result(0), ElementsAre("~\\b.txt", "~\\a.txt"));
  EXPECT_THAT(run.Result(1), IsEmpty());
}

TEST(SortLinesJob, ReportsBothListsThenReleasesThemAndThenShowsTheResult) {
  JobRun run;
  run.Add(W("a.txt"), "2\n1\n");
  run.AddMissing(W("none.txt"));
  run.Run(kNew, W("*.out"));
  EXPECT_THAT(run.Steps(),
              ElementsAre("log sorted", "log not sorted", "hand back sorted", "hand back failed",
                          "release result", "release result", "release files", "closing message"));
}

TEST(SortLinesJob, ListsAreHandedBackAlsoWhenEmpty) {
  JobRun run;
  run.Run(kNew, W("*.out"));
  EXPECT_THAT(run.Result(0), IsEmpty());
  EXPECT_THAT(run.Result(1), IsEmpty());
  EXPECT_THAT(run.Log(), IsEmpty());
  EXPECT_THAT(run.Boxes(), ElementsAre(ClosingOfSorted("0")));
}

TEST(SortLinesJob, ListOfFilesIsReleasedOnlyWhereTheJobOwnsIt) {
  for (const bool owns : {false, true}) {
    for (const std::uint32_t silent : {0u, kSilent}) {
      JobRun run;
      run.Add(W("a.txt"), "2\n1\n");
      run.Run(kNew | silent, W("*.out"), owns);
      EXPECT_EQ(run.listIsOpen, !owns);
    }
  }
}

TEST(SortLinesJob, FailedFileIsLoggedAndTheNextOneRuns) {
  JobRun run;
  run.Add(W("binary.dat"), std::string(10, '\x01'));
  run.AddMissing(W("none.txt"));
  run.Add(W("a.txt"), "2\n1\n");
  run.Run(kNew, W("*.out"));
  EXPECT_THAT(run.Log(),
              ElementsAre("30: [SortLines] - Failed to sortline in file : ~\\binary.dat",
                          "30: [SortLines] - Failed to sortline in file : ~\\none.txt",
                          "10: [SortLines] - Sorted lines in file : ~\\a.txt (Saved as : ~\\a.out)"));
  EXPECT_THAT(run.Boxes(), ElementsAre(ClosingOfFailed("2")));
  EXPECT_THAT(run.Result(0), ElementsAre("~\\a.txt"));
  EXPECT_THAT(run.Result(1), ElementsAre("~\\binary.dat", "~\\none.txt"));
  EXPECT_EQ(run.scratch.Read(W("a.out")), "1\n2\n");
  EXPECT_FALSE(run.scratch.Exists(W("binary.out")));
}

TEST(SortLinesJob, PatternOfTheSameNameSortsFilesInPlace) {
  JobRun run;
  run.Add(W("a.txt"), "2\n1\n");
  run.Add(W("b"), "4\n3\n");
  run.Run(SaveOverwrite, W("*.*"));
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "1\n2\n");
  EXPECT_EQ(run.scratch.Read(W("b")), "3\n4\n");
  EXPECT_THAT(run.scratch.Names(), SizeIs(2));
  EXPECT_THAT(run.Log(),
              ElementsAre("10: [SortLines] - Sorted lines in file : ~\\a.txt (Saved as : ~\\a.txt)",
                          "10: [SortLines] - Sorted lines in file : ~\\b (Saved as : ~\\b)"));
}

TEST(SortLinesJob, PatternWithoutAnAsteriskIsTheNameForEveryFile) {
  JobRun run;
  run.Add(W("a.txt"), "2\n1\n");
  run.Add(W("b.txt"), "4\n3\n");
  run.Run(kNew | SaveOverwrite | kSilent, W("all.txt"));
  EXPECT_EQ(run.scratch.Read(W("all.txt")), "3\n4\n");
  EXPECT_THAT(run.Log(),
              ElementsAre("10: [SortLines] - Sorted lines in file : ~\\a.txt (Saved as : ~\\all.txt)",
                          "10: [SortLines] - Sorted lines in file : ~\\b.txt (Saved as : ~\\all.txt)"));
}

TEST(SortLinesJob, TargetIsInTheFolderOfItsFile) {
  JobRun run;
  run.scratch.MakeFolder(W("one"));
  run.scratch.MakeFolder(W("two"));
  for (const WCHAR* folder : {W("one"), W("two")}) {
    run.scratch.Write(WString(folder) + W("\\a.txt"), "2\n1\n");
    run.items.push_back(run.host.AddFileIn(run.scratch.Path(folder) + W("\\"), W("a.txt")));
  }
  run.Run(kNew, W("new_*"));
  EXPECT_EQ(run.scratch.Read(W("one\\new_a.txt")), "1\n2\n");
  EXPECT_EQ(run.scratch.Read(W("two\\new_a.txt")), "1\n2\n");
}

TEST(SortLinesJob, FolderWithoutASeparatorGetsOne) {
  JobRun run;
  run.scratch.Write(W("a.txt"), "2\n1\n");
  // The item's path is the same, but its folder has no trailing backslash.
  run.items.push_back(run.host.AddFileIn(run.scratch.Path(), W("\\a.txt")));
  run.Run(kNew, W("out"));
  EXPECT_EQ(run.scratch.Read(W("out")), "1\n2\n");
  EXPECT_THAT(run.Log(),
              ElementsAre("10: [SortLines] - Sorted lines in file : ~\\a.txt (Saved as : ~\\out)"));
}

TEST(SortLinesJob, AsksBeforeAnExistingTargetIsReplacedAndYesReplacesIt) {
  JobRun run;
  run.Add(W("a.txt"), "2\n1\n");
  run.scratch.Write(W("a.out"), "old");
  run.host.boxAnswers = {IDYES, IDOK};
  run.Run(kNew, W("*.out"));
  EXPECT_EQ(run.scratch.Read(W("a.out")), "1\n2\n");
  EXPECT_THAT(run.Boxes(), ElementsAre(kQuestion, ClosingOfSorted("1")));
  EXPECT_THAT(run.Steps(),
              ElementsAre("question", "log sorted", "hand back sorted", "hand back failed", "release result",
                          "release result", "release files", "closing message"));
  EXPECT_EQ(run.optionsAfter & SaveOverwrite, std::uint32_t{SaveOverwrite});
}

TEST(SortLinesJob, YesStaysInTheOptionsAndTheNextExistingTargetIsStillAskedForByDesign) {
  JobRun run;
  for (const WCHAR* name : {W("a"), W("b"), W("c")}) {
    run.Add(WString(name) + W(".txt"), "2\n1\n");
    run.scratch.Write(WString(name) + W(".out"), "old");
  }
  run.host.boxAnswers = {IDYES, IDNO, IDYES, IDOK};
  run.Run(kNew, W("*.out"));
  EXPECT_EQ(run.scratch.Read(W("a.out")), "1\n2\n");
  EXPECT_EQ(run.scratch.Read(W("b.out")), "old");
  EXPECT_EQ(run.scratch.Read(W("c.out")), "1\n2\n");
  EXPECT_THAT(run.Boxes(), ElementsAre(kQuestion, kQuestion, kQuestion, ClosingOfFailed("1")));
  // A later No does not clear it.
  EXPECT_EQ(run.optionsAfter & SaveOverwrite, std::uint32_t{SaveOverwrite});
}

TEST(SortLinesJob, NoSkipsTheFileAndTheNextOneIsAskedForAgain) {
  JobRun run;
  run.Add(W("a.txt"), "2\n1\n");
  run.Add(W("b.txt"), "4\n3\n");
  run.Add(W("c.txt"), "6\n5\n");
  run.scratch.Write(W("a.out"), "old a");
  run.scratch.Write(W("b.out"), "old b");
  run.host.boxAnswers = {IDNO, IDNO, IDOK};
  run.Run(kNew, W("*.out"));
  EXPECT_EQ(run.scratch.Read(W("a.out")), "old a");
  EXPECT_EQ(run.scratch.Read(W("b.out")), "old b");
  EXPECT_EQ(run.scratch.Read(W("c.out")), "5\n6\n");
  EXPECT_THAT(run.Log(),
              ElementsAre("10: [SortLines] - Skipped to sortline in file : ~\\a.txt",
                          "10: [SortLines] - Skipped to sortline in file : ~\\b.txt",
                          "10: [SortLines] - Sorted lines in file : ~\\c.txt (Saved as : ~\\c.out)"));
  EXPECT_THAT(run.Boxes(), ElementsAre(kQuestion, kQuestion, ClosingOfFailed("2")));
  // A skipped file is in neither list.
  EXPECT_THAT(run.Result(0), ElementsAre("~\\c.txt"));
  EXPECT_THAT(run.Result(1), IsEmpty());
  EXPECT_EQ(run.optionsAfter & SaveOverwrite, 0u);
}

TEST(SortLinesJob, CancelEndsTheRunWithoutListsAndWithoutAMessage) {
  for (const bool owns : {false, true}) {
    JobRun run;
    run.Add(W("a.txt"), "2\n1\n");
    run.Add(W("b.txt"), "4\n3\n");
    run.Add(W("c.txt"), "6\n5\n");
    run.scratch.Write(W("b.out"), "old b");
    run.host.boxAnswers = {IDCANCEL};
    run.Run(kNew, W("*.out"), owns);
    // The files that were done before remain.
    EXPECT_EQ(run.scratch.Read(W("a.out")), "1\n2\n");
    EXPECT_EQ(run.scratch.Read(W("b.out")), "old b");
    EXPECT_FALSE(run.scratch.Exists(W("c.out")));
    EXPECT_THAT(run.Log(),
                ElementsAre("10: [SortLines] - Sorted lines in file : ~\\a.txt (Saved as : ~\\a.out)"));
    EXPECT_THAT(run.Boxes(), ElementsAre(kQuestion));
    EXPECT_THAT(run.host.resultLists, IsEmpty());
    EXPECT_EQ(run.listIsOpen, !owns);
  }
}

TEST(SortLinesJob, CancelAfterAYesKeepsWhatWasDone) {
  JobRun run;
  run.Add(W("a.txt"), "2\n1\n");
  run.Add(W("b.txt"), "4\n3\n");
  run.scratch.Write(W("a.out"), "old");
  run.scratch.Write(W("b.out"), "old");
  run.host.boxAnswers = {IDYES, IDCANCEL};
  run.Run(kNew, W("*.out"));
  EXPECT_EQ(run.scratch.Read(W("a.out")), "1\n2\n");
  EXPECT_EQ(run.scratch.Read(W("b.out")), "old");
  EXPECT_THAT(run.host.resultLists, IsEmpty());
  EXPECT_THAT(run.Boxes(), ElementsAre(kQuestion, kQuestion));
}

// The overwrite bit of the options answers the question only in a silent run.
TEST(SortLinesJob, OverwriteStillAsks) {
  JobRun run;
  run.Add(W("a.txt"), "2\n1\n");
  run.scratch.Write(W("a.out"), "old");
  run.host.boxAnswers = {IDNO, IDOK};
  run.Run(kNew | SaveOverwrite, W("*.out"));
  EXPECT_EQ(run.scratch.Read(W("a.out")), "old");
  EXPECT_THAT(run.Boxes(), ElementsAre(kQuestion, ClosingOfFailed("1")));
}

TEST(SortLinesJob, TargetThatAnEarlierFileMadeIsAskedFor) {
  JobRun run;
  run.Add(W("a.txt"), "2\n1\n");
  run.Add(W("b.txt"), "4\n3\n");
  run.host.boxAnswers = {IDNO, IDOK};
  run.Run(kNew, W("all.txt"));
  EXPECT_EQ(run.scratch.Read(W("all.txt")), "1\n2\n");
  EXPECT_THAT(run.Boxes(), ElementsAre(kQuestion, ClosingOfFailed("1")));
}

TEST(SortLinesJob, WithoutANewFileNothingIsAsked) {
  JobRun run;
  run.Add(W("a.txt"), "2\n1\n");
  run.Add(W("b.txt"), "4\n3\n");
  run.Run(SaveKeepBackup, W("*.*"));
  EXPECT_THAT(run.Boxes(), ElementsAre(ClosingOfSorted("2")));
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "1\n2\n");
  EXPECT_EQ(run.scratch.Read(W("a.txt.bak")), "2\n1\n");
  EXPECT_EQ(run.scratch.Read(W("b.txt.bak")), "4\n3\n");
}

TEST(SortLinesJob, ExistingTargetWithoutANewFileFailsWithoutAQuestion) {
  JobRun run;
  run.Add(W("a.txt"), "2\n1\n");
  run.Run(0, W("*.*"));
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "2\n1\n");
  EXPECT_THAT(run.Log(), ElementsAre("30: [SortLines] - Failed to sortline in file : ~\\a.txt"));
  EXPECT_THAT(run.Boxes(), ElementsAre(ClosingOfFailed("1")));
}

TEST(SortLinesJob, SilentRunSkipsExistingTargets) {
  JobRun run;
  run.Add(W("a.txt"), "2\n1\n");
  run.Add(W("b.txt"), "4\n3\n");
  run.scratch.Write(W("a.out"), "old");
  run.Run(kNew | kSilent, W("*.out"));
  EXPECT_EQ(run.scratch.Read(W("a.out")), "old");
  EXPECT_EQ(run.scratch.Read(W("b.out")), "3\n4\n");
  EXPECT_THAT(run.Log(),
              ElementsAre("10: [SortLines] - Skipped to sortline in file : ~\\a.txt",
                          "10: [SortLines] - Sorted lines in file : ~\\b.txt (Saved as : ~\\b.out)"));
  EXPECT_THAT(run.Boxes(), IsEmpty());
  EXPECT_THAT(run.Result(0), ElementsAre("~\\b.txt"));
  EXPECT_THAT(run.Result(1), IsEmpty());
}

TEST(SortLinesJob, SilentRunReplacesExistingTargetsUnderOverwrite) {
  JobRun run;
  run.Add(W("a.txt"), "2\n1\n");
  run.scratch.Write(W("a.out"), "old");
  run.Run(kNew | SaveOverwrite | kSilent, W("*.out"));
  EXPECT_EQ(run.scratch.Read(W("a.out")), "1\n2\n");
  EXPECT_THAT(run.Boxes(), IsEmpty());
  EXPECT_THAT(run.Result(0), ElementsAre("~\\a.txt"));
}

TEST(SortLinesJob, SilentRunShowsNothingAboutFailures) {
  JobRun run;
  run.AddMissing(W("none.txt"));
  run.Run(kNew | kSilent, W("*.out"));
  EXPECT_THAT(run.Boxes(), IsEmpty());
  EXPECT_THAT(run.Log(), ElementsAre("30: [SortLines] - Failed to sortline in file : ~\\none.txt"));
  EXPECT_THAT(run.Result(1), ElementsAre("~\\none.txt"));
}

// With an empty name the target is the folder itself, which exists.
TEST(SortLinesJob, EmptyPatternIsSkippedByASilentRun) {
  JobRun run;
  run.Add(W("a.txt"), "2\n1\n");
  run.Run(kNew | kSilent, W(""));
  EXPECT_THAT(run.Log(), ElementsAre("10: [SortLines] - Skipped to sortline in file : ~\\a.txt"));
  EXPECT_THAT(run.Result(0), IsEmpty());
  EXPECT_THAT(run.Result(1), IsEmpty());
  EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt")));
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "2\n1\n");
}

TEST(SortLinesJob, EmptyPatternFailsUnderOverwrite) {
  JobRun run;
  run.Add(W("a.txt"), "2\n1\n");
  run.Run(kNew | SaveOverwrite | kSilent, W(""));
  EXPECT_THAT(run.Log(), ElementsAre("30: [SortLines] - Failed to sortline in file : ~\\a.txt"));
  EXPECT_THAT(run.Result(1), ElementsAre("~\\a.txt"));
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "2\n1\n");
}

TEST(SortLinesJob, PathsOfFilesMayHoldPercentSigns) {
  JobRun run;
  run.Add(W("100%s%n.txt"), "2\n1\n");
  run.Run(kNew, W("*.out"));
  EXPECT_THAT(run.Log(), ElementsAre("10: [SortLines] - Sorted lines in file : ~\\100%s%n.txt (Saved as : "
                                     "~\\100%s%n.out)"));
}

TEST(SortLinesJob, ClosingTextsTakeTheirNumbers) {
  for (const WCHAR* format : {W("%d sorted"), W("%s sorted"), W("%u sorted")}) {
    JobRun run;
    run.host.texts[kSortedFormat] = format;
    run.Add(W("a.txt"), "2\n1\n");
    run.Run(kNew, W("*.out"));
    EXPECT_THAT(run.Boxes(), ElementsAre(ClosingOfSorted("1")));
  }
  for (const WCHAR* format : {W("%d failed"), W("%u failed")}) {
    JobRun run;
    run.host.texts[kFailedFormat] = format;
    run.AddMissing(W("none.txt"));
    run.Run(kNew, W("*.out"));
    EXPECT_THAT(run.Boxes(), ElementsAre(ClosingOfFailed("1")));
  }
}

TEST(SortLinesJob, ItemsThatTheListDoesNotGiveCountAsNotSorted) {
  JobRun run;
  run.items = {nullptr, run.host.AddFileIn(run.scratch.Path() + W("\\"), W("a.txt")), nullptr};
  run.scratch.Write(W("a.txt"), "2\n1\n");
  run.Run(kNew, W("*.out"));
  EXPECT_EQ(run.scratch.Read(W("a.out")), "1\n2\n");
  EXPECT_THAT(run.Boxes(), ElementsAre(ClosingOfFailed("2")));
  EXPECT_THAT(run.Result(0), ElementsAre("~\\a.txt"));
  EXPECT_THAT(run.Result(1), IsEmpty());
}

TEST(SortLinesJob, EveryRefusalOfTheHostEndsQuietlyAndLosesNoData) {
  const ScratchFolder scratch;
  ExpectEveryRefusalEndsQuietly(
      [&](FakeHost& host) {
        scratch.Write(W("a.txt"), "2\n1\n");
        scratch.Write(W("a.out"), "old");
        host.boxAnswers = {IDYES, IDOK};
      },
      [&](FakeHost& host) {
        IHostFileList* const list = host.CreateFileList();
        if (!list) return;
        static_cast<FakeFileList*>(list)->Append(host.AddFileIn(scratch.Path() + W("\\"), W("a.txt")));
        SortLinesOptions options;
        options.options = SortByLine | SortAsText | SaveAsNewFile;
        SortLinesJob job{host, list, options, W("*.out"), true};
        RunSortLinesJob(job);
        EXPECT_EQ(scratch.Read(W("a.txt")), "2\n1\n");
      });
}
