// Find and replace in one file: how its text is read and written, where it is saved, and what is reported.
#include "findreplace/tool/apply_to_file.h"

#include <gmock/gmock.h>

#include <regex>

#include "findreplace/recording_callback.h"
#include "support/scratch_folder.h"

using namespace QXFindAndReplace;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

FindAndReplaceOptions Options(std::uint32_t flags, const WString& find, const WString& replace,
                              IFindAndReplaceCallback* callback = nullptr) {
  FindAndReplaceOptions options;
  options.flags = flags;
  options.find = find;
  options.replace = replace;
  options.callback = callback;
  return options;
}

// Returns 16-bit little-endian text with a byte order mark.
std::string Utf16(WStringView text) {
  std::string bytes = "\xFF\xFE";
  for (const WCHAR character : text) {
    bytes += static_cast<char>(character & 0xFF);
    bytes += static_cast<char>(character >> 8);
  }
  return bytes;
}

// One run over a file of a scratch folder; by default in the mode One, with the target "out".
struct FileRun {
  std::int64_t Run(std::uint32_t flags, const WString& find, const WString& replace,
                   const WString& target = W("out")) {
    options = Options(flags, find, replace, &callback);
    return ApplyToFile(scratch.Path(W("a.txt")), scratch.Path(target), options);
  }
  std::int64_t RunOn(std::string_view bytes, std::uint32_t flags, const WString& find, const WString& replace,
                     const WString& target = W("out")) {
    scratch.Write(W("a.txt"), bytes);
    return Run(flags, find, replace, target);
  }
  std::string Begin() const { return "begin " + ToUtf8(scratch.Path(W("a.txt"))); }

  ScratchFolder scratch;
  RecordingCallback callback;
  FindAndReplaceOptions options;
};

constexpr std::uint32_t kNew = ModeOne | SaveAsNew;
constexpr std::uint32_t kBackup = ModeOne | KeepBackup;
constexpr std::uint32_t kReplace = ModeOne | ReplaceFile;
const WString kSameName = W("a.txt");

}  // namespace

TEST(ApplyToFile, ReplacesInAnAnsiFileAndReturnsTheNumberOfReplacements) {
  FileRun run;
  EXPECT_EQ(run.RunOn("one two\r\ntwo gr\xFCn\r\n", kNew, W("two"), W("2")), 2);
  EXPECT_EQ(run.scratch.Read(W("out")), "one 2\r\n2 gr\xFCn\r\n");
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "one two\r\ntwo gr\xFCn\r\n");
  EXPECT_THAT(run.callback.calls, ElementsAre(run.Begin(), "ask 1", "ask 1", "end"));
}

TEST(ApplyToFile, TextsAreTakenIntoTheFilesOwnBytes) {
  // 'ü' in the ANSI code page, in UTF-8 with a byte order mark, and in UTF-16.
  const WString find = W("\u00FC");
  const WString replace = W("\u00E4\u00FC");
  FileRun run;
  EXPECT_EQ(run.RunOn("plain text \xFC.\n", kNew, find, replace, W("1")), 1);
  EXPECT_EQ(run.scratch.Read(W("1")), "plain text \xE4\xFC.\n");
  EXPECT_EQ(run.RunOn("\xEF\xBB\xBF\xC3\xBC.\n", kNew, find, replace, W("2")), 1);
  EXPECT_EQ(run.scratch.Read(W("2")), "\xEF\xBB\xBF\xC3\xA4\xC3\xBC.\n");
  EXPECT_EQ(run.RunOn(Utf16(W("\u00FC.\n")), kNew, find, replace, W("3")), 1);
  EXPECT_EQ(run.scratch.Read(W("3")), Utf16(W("\u00E4\u00FC.\n")));
  EXPECT_THAT(run.callback.calls, ElementsAre(run.Begin(), "ask 1", "end", run.Begin(), "ask 3", "end",
                                              run.Begin(), "ask 2", "end"));
}

TEST(ApplyToFile, CharactersThatTheCodePageLacksBecomeQuestionMarks) {
  FileRun run;
  EXPECT_EQ(run.RunOn("plain text.\n", kNew, W("text"), W("\u4E2D"), W("1")), 1);
  EXPECT_EQ(run.scratch.Read(W("1")), "plain ?.\n");
  // Therefore, searching for a character outside the code page finds question marks.
  EXPECT_EQ(run.RunOn("plain ?.\n", kNew, W("\u4E2D"), W("x"), W("2")), 1);
  EXPECT_EQ(run.scratch.Read(W("2")), "plain x.\n");
  // UTF-8 can represent all characters.
  EXPECT_EQ(run.RunOn("\xEF\xBB\xBFtext.\n", kNew, W("text"), W("\u4E2D"), W("3")), 1);
  EXPECT_EQ(run.scratch.Read(W("3")), "\xEF\xBB\xBF\xE4\xB8\xAD.\n");
}

TEST(ApplyToFile, OneSetOfOptionsServesFilesOfAllEncodings) {
  const ScratchFolder scratch;
  FindAndReplaceOptions options = Options(ModeMany | KeepBackup, W("\u00FC\na"), W("\u00E4\nc"));
  const std::pair<std::string, std::string> files[] = {
      {"plain text \xFC\n", "plcin text \xE4\n"},
      {Utf16(W("\u00FC a\n")), Utf16(W("\u00E4 c\n"))},
      {"\xEF\xBB\xBF\xC3\xBC a\n", "\xEF\xBB\xBF\xC3\xA4 c\n"},
      {"text plain \xFC\n", "text plcin \xE4\n"},
  };
  for (const auto& [before, after] : files) {
    const WString path = scratch.Write(W("a.txt"), before);
    EXPECT_EQ(ApplyToFile(path, path, options), 2);
    EXPECT_EQ(scratch.Read(W("a.txt")), after);
  }
}

TEST(ApplyToFile, ForceUtf8TakesAPlainFileForUtf8) {
  FileRun run;
  EXPECT_EQ(run.RunOn("\xC3\xBC.\n", kNew, W("\u00FC"), W("\u00E4")), 0);
  EXPECT_EQ(run.RunOn("\xC3\xBC.\n", kNew | ForceUtf8, W("\u00FC"), W("\u00E4")), 1);
  EXPECT_EQ(run.scratch.Read(W("out")), "\xC3\xA4.\n");
  EXPECT_THAT(run.callback.calls, ElementsAre(run.Begin(), "end", run.Begin(), "ask 3", "end"));
}

TEST(ApplyToFile, ForceUtf8DoesNotTouchTheReadingOfAUtf16File) {
  FileRun run;
  EXPECT_EQ(run.RunOn(Utf16(W("\u00FC.\n")), kNew | ForceUtf8, W("\u00FC"), W("x")), 1);
  EXPECT_EQ(run.scratch.Read(W("out")), Utf16(W("x.\n")));
}

TEST(ApplyToFile, BinaryFileIsReportedAndCountsAsDoneWithoutAChange) {
  for (const std::uint32_t mode : {kNew | OverwriteTarget, kBackup, kReplace, kNew | ForceUtf8}) {
    FileRun run;
    const std::string bytes("two\0\x01\x02\x03 two\xFF", 13);
    EXPECT_EQ(run.RunOn(bytes, mode, W("two"), W("2"), kSameName), 0);
    EXPECT_THAT(
        run.callback.calls,
        ElementsAre(run.Begin(),
                    "wide error File is not detected as a text file. Unsupported file format (11)", "end"));
    EXPECT_EQ(run.scratch.Read(W("a.txt")), bytes);
    EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt")));
  }
}

TEST(ApplyToFile, MissingFileIsReportedAndFails) {
  FileRun run;
  EXPECT_EQ(run.Run(kNew, W("two"), W("2")), -1);
  EXPECT_THAT(run.callback.calls, ElementsAre(run.Begin(), "error File not found (2)", "end"));
  EXPECT_THAT(run.scratch.Names(), IsEmpty());
}

TEST(ApplyToFile, WithoutACallbackThereAreNoQuestionsAndNoMessages) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "two two\n");
  FindAndReplaceOptions options = Options(kNew, W("two"), W("2"));
  EXPECT_EQ(ApplyToFile(path, scratch.Path(W("out")), options), 2);
  EXPECT_EQ(scratch.Read(W("out")), "2 2\n");
  EXPECT_EQ(ApplyToFile(path, scratch.Path(W("out")), options), -1);
  EXPECT_EQ(ApplyToFile(scratch.Path(W("none")), scratch.Path(W("out")), options), -1);
  EXPECT_EQ(ApplyToFile(scratch.Write(W("bin"), std::string(10, '\x01')), path, options), 0);
}

TEST(ApplyToFile, WithoutAChangeNothingIsTouchedAndNoBackupIsMade) {
  for (const std::uint32_t mode : {kNew, kNew | OverwriteTarget, kBackup, kReplace}) {
    for (const std::string_view bytes : {"one\n", ""}) {
      FileRun run;
      run.scratch.Write(W("out"), "old");
      EXPECT_EQ(run.RunOn(bytes, mode, W("two"), W("2")), 0);
      EXPECT_EQ(run.Run(mode, W("two"), W("2"), kSameName), 0);
      EXPECT_EQ(run.scratch.Read(W("a.txt")), bytes);
      EXPECT_EQ(run.scratch.Read(W("out")), "old");
      EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt"), W("out")));
      EXPECT_THAT(run.callback.calls, ElementsAre(run.Begin(), "end", run.Begin(), "end"));
    }
  }
}

TEST(ApplyToFile, UnchangedFileKeepsItsDate) {
  for (const std::uint32_t mode : {kNew | OverwriteTarget, kBackup, kReplace}) {
    FileRun run;
    run.scratch.Write(W("a.txt"), "one\n");
    const std::filesystem::path path = run.scratch.NativePath(W("a.txt"));
    const auto date = std::filesystem::last_write_time(path) - std::chrono::hours(24);
    std::filesystem::last_write_time(path, date);
    const auto before = std::filesystem::last_write_time(path);
    EXPECT_EQ(run.Run(mode, W("two"), W("2"), kSameName), 0);
    EXPECT_EQ(std::filesystem::last_write_time(path), before);
    EXPECT_EQ(run.Run(mode, W("one"), W("1"), kSameName), 1);
    EXPECT_GT(std::filesystem::last_write_time(path), before);
  }
}

TEST(ApplyToFile, NewFileThatIsThereAlreadyIsRefused) {
  FileRun run;
  run.scratch.Write(W("out"), "old");
  EXPECT_EQ(run.RunOn("two\n", kNew, W("two"), W("2")), -1);
  EXPECT_EQ(run.Run(kNew, W("two"), W("2"), kSameName), -1);
  EXPECT_THAT(run.callback.calls,
              ElementsAre(run.Begin(), "ask 1", "error Target file already exists (80)", "end", run.Begin(),
                          "ask 1", "error Target file already exists (80)", "end"));
  EXPECT_EQ(run.scratch.Read(W("out")), "old");
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "two\n");
  EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt"), W("out")));
}

TEST(ApplyToFile, NewFileMayOverwriteWhereAllowed) {
  FileRun run;
  run.scratch.Write(W("out"), "an old text that is longer");
  EXPECT_EQ(run.RunOn("two\n", kNew | OverwriteTarget, W("two"), W("2")), 1);
  EXPECT_EQ(run.scratch.Read(W("out")), "2\n");
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "two\n");
  EXPECT_EQ(run.Run(kNew | OverwriteTarget, W("two"), W("2"), W("fresh")), 1);
  EXPECT_EQ(run.scratch.Read(W("fresh")), "2\n");
}

TEST(ApplyToFile, SourceItselfMayBeOverwrittenSinceItIsClosedBefore) {
  FileRun run;
  EXPECT_EQ(run.RunOn("two and more\n", kNew | OverwriteTarget, W("two"), W("2"), kSameName), 1);
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "2 and more\n");
  EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt")));
}

TEST(ApplyToFile, FolderAsTheTargetIsRefused) {
  FileRun run;
  EXPECT_EQ(run.RunOn("two\n", kNew, W("two"), W("2"), W("")), -1);
  EXPECT_THAT(run.callback.calls,
              ElementsAre(run.Begin(), "ask 1", "error Target file already exists (80)", "end"));
  EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt")));
}

TEST(ApplyToFile, TargetInAFolderThatIsNotThereCannotBeMade) {
  for (const std::uint32_t mode : {kNew, kNew | OverwriteTarget, kBackup, kReplace}) {
    FileRun run;
    EXPECT_EQ(run.RunOn("two\n", mode, W("two"), W("2"), W("none\\out")), -1);
    EXPECT_THAT(run.callback.calls, ElementsAre(run.Begin(), "ask 1",
                                                "error Unable to open file for writing : " +
                                                    ToUtf8(run.scratch.Path(W("none\\out"))) + " (3)",
                                                "end"));
    EXPECT_EQ(run.scratch.Read(W("a.txt")), "two\n");
    EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt")));
  }
}

TEST(ApplyToFile, KeepBackupTwiceNumbersTheSecondBackup) {
  FileRun run;
  EXPECT_EQ(run.RunOn("one\n", kBackup, W("one"), W("two"), kSameName), 1);
  EXPECT_EQ(run.Run(kBackup, W("two"), W("three"), kSameName), 1);
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "three\n");
  EXPECT_EQ(run.scratch.Read(W("a.txt.bak")), "one\n");
  EXPECT_EQ(run.scratch.Read(W("a.txt_(0002).bak")), "two\n");
  EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt"), W("a.txt.bak"), W("a.txt_(0002).bak")));
}

TEST(ApplyToFile, KeepBackupOfAnotherTargetKeepsThatTarget) {
  FileRun run;
  run.scratch.Write(W("out"), "old");
  EXPECT_EQ(run.RunOn("two\n", kBackup, W("two"), W("2")), 1);
  EXPECT_EQ(run.scratch.Read(W("out")), "2\n");
  EXPECT_EQ(run.scratch.Read(W("out.bak")), "old");
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "two\n");
}

TEST(ApplyToFile, ReplaceFileLeavesTheNewFileAlone) {
  FileRun run;
  run.scratch.Write(W("a.txt.bak"), "not ours");
  EXPECT_EQ(run.RunOn("two\n", kReplace, W("two"), W("2"), kSameName), 1);
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "2\n");
  EXPECT_EQ(run.scratch.Read(W("a.txt.bak")), "not ours");
  EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt"), W("a.txt.bak")));
}

TEST(ApplyToFile, ReplaceFileOfAnotherTargetLeavesTheSource) {
  FileRun run;
  run.scratch.Write(W("out"), "old");
  EXPECT_EQ(run.RunOn("two\n", kReplace, W("two"), W("2")), 1);
  EXPECT_EQ(run.scratch.Read(W("out")), "2\n");
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "two\n");
  EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt"), W("out")));
}

TEST(ApplyToFile, ReplaceFileOfATargetThatWasNotThereLeavesWhatItWrote) {
  FileRun run;
  EXPECT_EQ(run.RunOn("two\n", kReplace, W("two"), W("2")), 1);
  EXPECT_EQ(run.scratch.Read(W("out")), "2\n");
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "two\n");
  EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt"), W("out")));
}

TEST(ApplyToFile, ReplacedFileMayBeReadOnlyAndTheNewOneIsNot) {
  for (const std::uint32_t mode : {kReplace, kBackup}) {
    FileRun run;
    const WString path = run.scratch.Write(W("a.txt"), "two\n");
    ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(run.Run(mode, W("two"), W("2"), kSameName), 1);
    EXPECT_EQ(run.scratch.Read(W("a.txt")), "2\n");
    EXPECT_EQ(run.scratch.Exists(W("a.txt.bak")), mode == kBackup);
    // The new file does not inherit the attributes of the old one.
    EXPECT_EQ(GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_READONLY, 0u);
    if (mode != kBackup) continue;
    const WString backup = run.scratch.Path(W("a.txt.bak"));
    EXPECT_NE(GetFileAttributesW(backup.c_str()) & FILE_ATTRIBUTE_READONLY, 0u);
    SetFileAttributesW(backup.c_str(), FILE_ATTRIBUTE_NORMAL);
  }
}

TEST(ApplyToFile, OverwriteWithoutANewFileOverwritesNothing) {
  FileRun run;
  run.scratch.Write(W("out"), "old");
  EXPECT_EQ(run.RunOn("two\n", ModeOne | OverwriteTarget, W("two"), W("2")), -1);
  EXPECT_EQ(run.scratch.Read(W("out")), "old");
  EXPECT_THAT(
      run.callback.calls,
      ElementsAre(run.Begin(), "ask 1",
                  "error Unable to open file for writing : " + ToUtf8(run.scratch.Path(W("out"))) + " (80)",
                  "end"));
}

TEST(ApplyToFile, TextThatBecomesEmptyMakesAnEmptyFile) {
  for (const std::uint32_t mode : {kNew, kBackup, kReplace}) {
    FileRun run;
    EXPECT_EQ(run.RunOn("two", mode, W("two"), W("")), 1);
    EXPECT_TRUE(run.scratch.Exists(W("out")));
    EXPECT_EQ(run.scratch.Read(W("out")), "");
  }
}

TEST(ApplyToFile, BadTextsFailAndTheFileStays) {
  const struct {
    std::uint32_t flags;
    const WCHAR* find;
    const WCHAR* replace;
    const char* report;
  } rows[] = {
      {ModeOne, W("\nb"), W("x"), "error Find match are too short. Atleast one character need (87)"},
      {ModeOne, W(""), W(""), "error Find match are too short. Atleast one character need (87)"},
      {ModeMany, W("a\nb\nc"), W("x\ny"), "error Find and Replace item do not match (87)"},
      {ModeManySame, W(""), W("x"), "error To few find items. Atleast one must be set (87)"},
      {ModeMultiline, W(""), W("x"), "error To few find items. Atleast one must be set (87)"},
      {ModeMany | ReplaceAll, W("two\nw"), W("x\ny"), "error Text part not found (87)"},
  };
  for (const auto& row : rows) {
    FileRun run;
    run.scratch.Write(W("a.txt"), "two\n");
    run.callback.answers = {ConfirmResult::ReplaceAll};
    EXPECT_EQ(run.Run(row.flags | KeepBackup, row.find, row.replace, kSameName), -1) << row.report;
    ASSERT_GE(run.callback.calls.size(), 2u);
    EXPECT_EQ(run.callback.calls.end()[-2], row.report);
    EXPECT_EQ(run.callback.calls.back(), "end");
    EXPECT_EQ(run.scratch.Read(W("a.txt")), "two\n");
    EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt")));
  }
}

TEST(ApplyToFile, PatternThatTheLibraryRefusesIsReportedWithItsTextAndNumber14) {
  std::string text;
  try {
    const std::regex pattern("two{");
  } catch (const std::regex_error& error) {
    text = error.what();
  }
  ASSERT_FALSE(text.empty());
  FileRun run;
  EXPECT_EQ(run.RunOn("two{\n", kBackup | Wildcard, W("two{"), W("x"), kSameName), -1);
  EXPECT_THAT(run.callback.calls, ElementsAre(run.Begin(), "error " + text + " (14)", "end"));
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "two{\n");
  EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt")));
}

TEST(ApplyToFile, MultilineWithoutAReplacementIsReportedAsNumber14) {
  FileRun run;
  run.scratch.Write(W("a.txt"), "two\n");
  EXPECT_EQ(run.Run(ModeMultiline | KeepBackup, W("two"), W(""), kSameName), -1);
  EXPECT_THAT(run.callback.calls,
              ElementsAre(run.Begin(), "ask 1", "error invalid vector<T> subscript (14)", "end"));
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "two\n");
}

TEST(ApplyToFile, LineTooLongToLoadIsNumber14) {
  FileRun run;
  const std::string bytes = std::string(40000, 'x') + "two\n";
  EXPECT_EQ(run.RunOn(bytes, kBackup, W("two"), W("2"), kSameName), -1);
  EXPECT_THAT(run.callback.calls,
              ElementsAre(run.Begin(), "error " + std::string(std::bad_alloc().what()) + " (14)", "end"));
  EXPECT_EQ(run.scratch.Read(W("a.txt")), bytes);
}

TEST(ApplyToFile, FailureWithoutATextIsOutOfMemory) {
  struct Nameless : std::exception {
    explicit Nameless(const char* text) : text_(text) {}
    const char* what() const noexcept override { return text_; }
    const char* text_;
  };
  for (const char* text : {static_cast<const char*>(nullptr), ""}) {
    FileRun run;
    run.callback.onQuestion = [text] { throw Nameless(text); };
    EXPECT_EQ(run.RunOn("two\n", kBackup, W("two"), W("2"), kSameName), -1);
    EXPECT_THAT(run.callback.calls, ElementsAre(run.Begin(), "ask 1", "error Out of memory (14)", "end"));
    EXPECT_EQ(run.scratch.Read(W("a.txt")), "two\n");
  }
}

TEST(ApplyToFile, ReportThatFailsWithoutMemoryIsStillAFailure) {
  FileRun run;
  run.callback.onError = [] { throw std::bad_alloc(); };
  EXPECT_EQ(run.Run(kNew, W("two"), W("2")), -1);
}

TEST(ApplyToFile, CancelInLinesEndsTheFileWithoutAReportAndWithoutItsEnd) {
  for (const std::uint32_t mode : {kNew | OverwriteTarget, kBackup, kReplace, ModeMany | KeepBackup,
                                   ModeManySame | KeepBackup, kBackup | Wildcard}) {
    FileRun run;
    run.callback.answers = {ConfirmResult::Replace, ConfirmResult::Cancel};
    EXPECT_EQ(run.RunOn("two two two\n", mode, W("two"), W("2"), kSameName), -99);
    EXPECT_THAT(run.callback.calls, ElementsAre(run.Begin(), "ask 1", "ask 1"));
    EXPECT_EQ(run.scratch.Read(W("a.txt")), "two two two\n");
    EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt")));
  }
}

TEST(ApplyToFile, CancelInMultilineCountsAsOneChangeAndLeavesTheFileByDesign) {
  for (const std::size_t replacements : {0u, 1u, 2u}) {
    FileRun run;
    run.callback.answers.assign(replacements, ConfirmResult::Replace);
    run.callback.answers.push_back(ConfirmResult::Cancel);
    EXPECT_EQ(run.RunOn("two\ntwo\ntwo\n", ModeMultiline | KeepBackup, W("two"), W("2"), kSameName), 1);
    EXPECT_EQ(run.callback.calls.size(), replacements + 3);
    EXPECT_EQ(run.callback.calls.back(), "end");
    EXPECT_EQ(run.scratch.Read(W("a.txt")), "two\ntwo\ntwo\n");
    EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt")));
  }
}

TEST(ApplyToFile, SkippedMatchesAreNoChanges) {
  FileRun run;
  run.callback.answers = {ConfirmResult::Skip, ConfirmResult::Replace, ConfirmResult::Skip};
  EXPECT_EQ(run.RunOn("two two two\n", kBackup, W("two"), W("2"), kSameName), 1);
  EXPECT_EQ(run.scratch.Read(W("a.txt")), "two 2 two\n");
  run.callback.answers = {ConfirmResult::Skip, ConfirmResult::Skip};
  EXPECT_EQ(run.Run(kBackup, W("two"), W("2"), kSameName), 0);
  EXPECT_THAT(run.scratch.Names(), ElementsAre(W("a.txt"), W("a.txt.bak")));
}

TEST(ApplyToFile, LargeFileComesOutWhole) {
  std::string before;
  std::string after;
  for (int line = 0; line < 20000; ++line) {
    before += "line of two words and some more\r\n";
    after += "line of 2 words and some more\r\n";
  }
  FileRun run;
  run.callback.answers = {ConfirmResult::ReplaceAll};
  EXPECT_EQ(run.RunOn(before, kReplace, W("two"), W("2"), kSameName), 20000);
  EXPECT_TRUE(run.scratch.Read(W("a.txt")) == after);
}
