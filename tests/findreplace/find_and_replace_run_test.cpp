// A run of find and replace over a list of files: its questions, log lines, result lists and summary.
#include "findreplace/find_and_replace_run.h"

#include <gmock/gmock.h>

#include "support/box_answers.h"
#include "support/fake_host.h"
#include "support/refusals.h"
#include "support/scratch_folder.h"

using namespace Velmora::SDK;
using namespace QXFindAndReplace;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

// Title and text of the question, and its buttons and icon: yes, no, cancel and a question mark.
constexpr char kQuestion[] = "MessageBox(\"T023A0064\", \"T023F0064\", 0x00000023)";

constexpr TextId kChangesFormat = 0x02400064;
constexpr TextId kChangesInFormat = 0x02410064;

std::string Summary(const std::string& text) {
  return "MessageBox(\"T023A0064\", \"" + text + "\", 0x00000040)";
}

// One run over files of a scratch folder, which replaces "two" by "2".
struct ListRun {
  ListRun() {
    host.texts[kChangesFormat] = W("%s changes");
    host.texts[kChangesInFormat] = W("%s changes in %s files");
    host.boxAnswers = {IDOK};
  }

  // Makes a file and puts it into the list.
  FakeFileItem* Add(WStringView name, std::string_view bytes) {
    scratch.Write(name, bytes);
    return AddMissing(name);
  }
  FakeFileItem* AddMissing(WStringView name) {
    FakeFileItem* const item = host.AddFileIn(scratch.Path() + W("\\"), WString(name));
    items.push_back(item);
    return item;
  }

  FindAndReplaceOptions Options(std::uint32_t flags) const {
    FindAndReplaceOptions options;
    options.flags = flags | ((flags & 0xF) == 0 ? std::uint32_t{ModeOne} : 0);
    options.find = find;
    options.replace = W("2");
    return options;
  }

  void Run(std::uint32_t flags, const WString& pattern, bool ownsFiles = true) {
    auto* const list = static_cast<FakeFileList*>(host.CreateFileList());
    for (FakeFileItem* item : items) list->Append(item);
    host.recorder.ClearCalls();
    const ConfirmReplaceDialog confirm = [this](IHostApp&, ConfirmReplaceForm& form) {
      paths.push_back(Short(ToUtf8(form.path)));
      form.result = confirmations.empty() ? ConfirmResult::Replace : confirmations.front();
      if (!confirmations.empty()) confirmations.pop_front();
    };
    {
      const BoxAnswers answers{IDOK, IDOK, IDOK};
      FindAndReplaceRun(host, list, Options(flags), pattern, ownsFiles, confirm).Run();
      EXPECT_EQ(answers.Boxes().size(), errorBoxes);
      EXPECT_THAT(answers.UnexpectedBoxes(), IsEmpty());
    }
    listIsOpen = host.recorder.IsTaken(list->Name());
    if (listIsOpen) list->Release();
    ExpectAllGivenBack(host);
  }

  // Log lines as "level: text", from either operation of the log, with the folder as "~".
  std::vector<std::string> Log() const {
    std::vector<std::string> lines;
    for (const std::string& call : host.recorder.CallsOf({"LogMessage(", "LogText("})) {
      const std::size_t level = call.find(", ") + 2;
      const std::size_t text = call.find(", \"", level) + 3;
      EXPECT_NE(call.find("(0, "), std::string::npos) << call;
      const std::string number = call.substr(level, text - 3 - level);
      lines.push_back(number + ": " + Short(call.substr(text, call.size() - text - 2)));
    }
    return lines;
  }

  // The boxes of the host.
  std::vector<std::string> Boxes() const { return host.recorder.CallsOf({"MessageBox("}); }

  // The list handed back with this marker, as names; nothing if there was none.
  std::vector<std::string> Result(u32 mode) const {
    std::vector<std::string> names;
    int lists = 0;
    for (const ResultList& list : host.resultLists) {
      if (list.mode != mode) continue;
      ++lists;
      for (const WString& path : list.paths) names.push_back(Short(ToUtf8(path)));
    }
    EXPECT_LE(lists, 1) << mode;
    return names;
  }

  // The steps in their order, in words.
  std::vector<std::string> Steps() const {
    std::vector<std::string> steps;
    for (const std::string& call : host.recorder.Calls()) {
      if (call.starts_with("Log")) {
        steps.push_back(call.find("changes made") != std::string::npos ? "log done"
                        : call.starts_with("LogText")                  ? "log error"
                        : call.find("cancelled") != std::string::npos  ? "log cancelled"
                                                                       : "log not done");
      }
      if (call.starts_with("MessageBox(")) steps.push_back(call == kQuestion ? "question" : "summary");
      if (call.starts_with("FileListRequest(21120, ")) {
        steps.push_back(call.ends_with(", 0, 0)")   ? "hand back done"
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
  WString find = W("two");
  std::deque<ConfirmResult> confirmations;  // Replace without one left
  std::vector<std::string> paths;           // the files that matches were asked about
  std::size_t errorBoxes = 0;               // the module's own boxes that must come
  bool listIsOpen = false;                  // the list of files after the run

 private:
  std::string Short(std::string text) const {
    const std::string folder = ToUtf8(scratch.Path());
    for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder, at + 1)) {
      text.replace(at, folder.size(), "~");
    }
    return text;
  }
};

// As the log has an error, with the line breaks of its text.
std::string ErrorLine(const std::string& text, int code) {
  return "30: [Find and Replace] Error\r\n==========================\r\n" + text +
         "\r\n( ErrorCode : " + std::to_string(code) + " )";
}

constexpr std::uint32_t kNew = SaveAsNew | ReplaceAll;
constexpr std::uint32_t kBackup = KeepBackup | ReplaceAll;

}  // namespace

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

TEST(FindAndReplaceRun, HandsBackBothListsThenReleasesAndThenSpeaks) {
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
    ExpectAllGivenBack(host);
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
  ExpectAllGivenBack(run.host);
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

TEST(FindAndReplaceRun, EachFailedFileIsMeantToLowerTheSumByOne) {
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

TEST(FindAndReplaceRun, TargetStandsInTheFolderOfItsFile) {
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
  // The item's path is the same; its folder lacks the backslash at its end.
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

TEST(FindAndReplaceRun, PatternOfAnotherExtensionGivesATargetBesideTheFile) {
  ListRun run;
  run.Add(W("a.log"), "two\n");
  run.Run(kNew, W("*.txt"));
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "2\n");
  EXPECT_EQ(run.scratch.Read(W("a.log")), "two\n");
}

TEST(FindAndReplaceRun, AsksBeforeAnExistingTargetIsReplacedAndYesReplacesIt) {
  ListRun run;
  run.Add(W("a.txt"), "two\n");
  run.scratch.Write(W("a.out"), "old");
  run.host.boxAnswers = {IDYES, IDOK};
  run.Run(kNew, W("*.out"));
  EXPECT_EQ(run.scratch.Read(W("a.out")), "2\n");
  EXPECT_THAT(run.Boxes(), ElementsAre(kQuestion, Summary("1 changes")));
}

TEST(FindAndReplaceRun, TargetThatIsTheSourceIsAskedForAndYesOverwritesIt) {
  ListRun run;
  run.Add(W("a.txt"), "two\n");
  run.host.boxAnswers = {IDYES, IDOK};
  run.Run(kNew, W("*.*"));
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "2\n");
  EXPECT_THAT(run.scratch.Names(), SizeIs(1));
  EXPECT_THAT(run.Boxes(), ElementsAre(kQuestion, Summary("1 changes")));
}

TEST(FindAndReplaceRun, YesHoldsForLaterTargetsThoughEachIsMeantToBeAskedForAllTheSame) {
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

TEST(FindAndReplaceRun, YesHoldsForATargetThatComesUpOnlyAfterItsCheck) {
  // Without the yes, the second target would be refused: it is made while its own file is worked on.
  for (const bool isFirstAsked : {false, true}) {
    ListRun run;
    run.Add(W("a.txt"), "two\n");
    run.Add(W("b.txt"), "two\n");
    if (isFirstAsked) run.scratch.Write(W("a.out"), "old");
    run.host.boxAnswers.clear();
    if (isFirstAsked) run.host.boxAnswers.push_back(IDYES);
    run.host.boxAnswers.push_back(IDOK);
    auto* const list = static_cast<FakeFileList*>(run.host.CreateFileList());
    for (FakeFileItem* item : run.items) list->Append(item);
    const ConfirmReplaceDialog confirm = [&run](IHostApp&, ConfirmReplaceForm& form) {
      form.result = ConfirmResult::Replace;
      if (form.path.ends_with(W("b.txt"))) run.scratch.Write(W("b.out"), "came up");
    };
    const BoxAnswers answers{IDOK, IDOK};
    FindAndReplaceRun(run.host, list, run.Options(SaveAsNew), W("*.out"), true, confirm).Run();
    EXPECT_EQ(run.scratch.Read(W("b.out")), isFirstAsked ? "2\n" : "came up");
    EXPECT_EQ(answers.Boxes().size(), isFirstAsked ? 0u : 1u);
    ExpectAllGivenBack(run.host);
  }
}

TEST(FindAndReplaceRun, NoSkipsTheFileWhichCountsAsFailed) {
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
  // A skipped file does not lower the sum.
  EXPECT_THAT(run.Boxes(), ElementsAre(kQuestion, Summary("2 changes")));
}

TEST(FindAndReplaceRun, CancelAtATargetEndsTheRunWithoutListsAndWithoutASummary) {
  for (const bool owns : {false, true}) {
    ListRun run;
    run.Add(W("a.txt"), "two\n");
    run.Add(W("b.txt"), "two\n");
    run.Add(W("c.txt"), "two\n");
    run.scratch.Write(W("b.out"), "old");
    run.host.boxAnswers = {IDCANCEL};
    run.Run(kNew, W("*.out"), owns);
    // What was done before stays done.
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

TEST(FindAndReplaceRun, CancelAtAMatchEndsTheRunWithItsTwoLines) {
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

TEST(FindAndReplaceRun, CancelInMultilineIsMeantToCountAsOneChangeAndTheRunGoesOn) {
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

TEST(FindAndReplaceRun, ReplaceAllHoldsForTheRestOfTheFileAndForAllLaterFiles) {
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

TEST(FindAndReplaceRun, ReplaceAllHoldsAlsoWhenItsFileFails) {
  ListRun run;
  run.Add(W("a.txt"), "two\n");
  run.Add(W("b.txt"), "two\n");
  run.confirmations = {ConfirmResult::ReplaceAll};
  run.errorBoxes = 2;
  run.Run(SaveAsNew, W("none\\*.*"));
  EXPECT_THAT(run.paths, ElementsAre("~\\a.txt"));
  EXPECT_THAT(run.Result(1), ElementsAre("~\\a.txt", "~\\b.txt"));
}

TEST(FindAndReplaceRun, WithoutANewFileNoTargetIsAskedFor) {
  for (const std::uint32_t mode : {kBackup, ReplaceFile | ReplaceAll}) {
    ListRun run;
    run.Add(W("a.txt"), "two\n");
    run.Run(mode, W("*.*"));
    EXPECT_THAT(run.Boxes(), ElementsAre(Summary("1 changes")));
    EXPECT_EQ(run.scratch.Read(W("a.txt")), "2\n");
    EXPECT_EQ(run.scratch.Exists(W("a.txt.bak")), mode == kBackup);
  }
}

TEST(FindAndReplaceRun, SilentRunSkipsExistingTargets) {
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

TEST(FindAndReplaceRun, SilentRunReplacesExistingTargetsUnderOverwrite) {
  ListRun run;
  run.Add(W("a.txt"), "two\n");
  run.scratch.Write(W("a.out"), "old");
  run.Run(SaveAsNew | Silent | OverwriteTarget, W("*.out"));
  EXPECT_EQ(run.scratch.Read(W("a.out")), "2\n");
  EXPECT_THAT(run.Boxes(), IsEmpty());
}

// An empty name makes the folder itself the target, which exists.
TEST(FindAndReplaceRun, EmptyPatternIsSkippedByASilentRun) {
  ListRun run;
  run.Add(W("a.txt"), "two\n");
  run.Run(SaveAsNew | Silent, W(""));
  EXPECT_THAT(run.Log(), ElementsAre("10: [Find and Replace] - File already exists. Do not overwrite : ~\\"));
  EXPECT_THAT(run.Result(0), IsEmpty());
  EXPECT_THAT(run.Result(1), ElementsAre("~\\a.txt"));
  EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt")));
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "two\n");
}

TEST(FindAndReplaceRun, EmptyPatternWithABackupLosesNothing) {
  // The folder cannot be made a file, and is not to be moved away for good either.
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
