// Sorting one file: the output, the handling of targets and backups, and each failure with its number and
// text.
#include "linesorter/engine/sort_file.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <new>

#include "linesorter/loaded_lines.h"
#include "linesorter/sort_file_helper.h"
#include "platform/outcome.h"

using namespace WQLineSorter;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

namespace {

// Returns the bytes of the target after sorting a file with these bytes.
std::string Sorted(const std::string& bytes, const SortLinesOptions& options) {
  const ScratchFolder scratch;
  EXPECT_EQ(RunSort(scratch.Write(W("in"), bytes), scratch.Path(W("out")), options), kSorted);
  EXPECT_EQ(scratch.Read(W("in")), bytes);
  EXPECT_THAT(scratch.Names(), ElementsAre(W("in"), W("out")));
  return scratch.Read(W("out"));
}

std::string SortedText(const std::string& bytes, std::uint32_t more = 0) {
  return Sorted(bytes, SortOptions(SaveAsNewFile | more));
}

SortLinesOptions Keeping(std::uint32_t top, std::uint32_t bottom, std::uint32_t more = 0) {
  SortLinesOptions options = SortOptions(SaveAsNewFile | more);
  options.keepLinesTop = top;
  options.keepLinesBottom = bottom;
  return options;
}

}  // namespace

TEST(SortFile, EmptyFileSortsToAnEmptyTarget) { EXPECT_EQ(SortedText(""), ""); }

TEST(SortFile, LastLineWithoutAnEndingGetsOne) {
  EXPECT_EQ(SortedText("b\nc\na"), "a\nb\nc\n");
  EXPECT_EQ(SortedText("a\nb\nc"), "a\nb\nc\n");
  EXPECT_EQ(SortedText("a"), "a");
}

TEST(SortFile, MixedEndingsMoveWithTheirLines) {
  EXPECT_EQ(SortedText("c\nb\r\na\n"), "a\nb\r\nc\n");
  // The first ending in sorted order is that of b.
  EXPECT_EQ(SortedText("c\nb\r\na"), "a\r\nb\r\nc\n");
  EXPECT_EQ(SortedText("c\r\nb\na"), "a\nb\nc\r\n");
}

TEST(SortFile, LoneCrsBecomeTheDefaultEnding) {
  EXPECT_EQ(SortedText("c\rb\ra\n"), "a\nb\nc\n");
  EXPECT_EQ(SortedText("c\rb\r\na\r"), "a\r\nb\r\nc\r\n");
}

TEST(SortFile, FileOfLoneCrsIsJoinedByDesign) { EXPECT_EQ(SortedText("b\rc\ra\r"), "abc"); }

TEST(SortFile, EmptyLinesSortFirst) { EXPECT_EQ(SortedText("b\n\na\n\n"), "\n\na\nb\n"); }

TEST(SortFile, BytesSortAsUnsignedNumbers) {
  EXPECT_EQ(SortedText("\xC0\nz\n~\nA\n"), "A\nz\n~\n\xC0\n");
  EXPECT_EQ(SortedText("b\nB\na\nA\n"), "A\nB\na\nb\n");
  EXPECT_EQ(SortedText("b\nB\na\nA\n", SortIgnoreCase), "a\nA\nb\nB\n");
}

TEST(SortFile, KeptLinesStay) {
  const std::string file = "d\nc\nb\na\n";
  EXPECT_EQ(Sorted(file, Keeping(1, 0)), "d\na\nb\nc\n");
  EXPECT_EQ(Sorted(file, Keeping(0, 1)), "b\nc\nd\na\n");
  EXPECT_EQ(Sorted(file, Keeping(1, 1)), "d\nb\nc\na\n");
}

TEST(SortFile, NothingMovesWhenAllLinesOrMoreAreKept) {
  const std::string file = "\nd\nc\n\n";
  const std::uint32_t most = 0xFFFFFFFF;
  for (const auto& [top, bottom] : std::initializer_list<std::pair<std::uint32_t, std::uint32_t>>{
           {4, 0}, {0, 4}, {2, 2}, {3, 3}, {5, 0}, {0, 5}, {most, 0}, {0, most}, {most, most}, {1, most}}) {
    for (const std::uint32_t more : {0u, std::uint32_t{SortReverse}, std::uint32_t{SortRemoveBlank},
                                     std::uint32_t{SortReverse | SortRemoveBlank}}) {
      EXPECT_EQ(Sorted(file, Keeping(top, bottom, more)), file) << top << " " << bottom << " " << more;
    }
  }
}

TEST(SortFile, EqualKeysKeepTheirOrder) {
  const SortLinesOptions options = EqualKeyOptions(SaveAsNewFile);
  EXPECT_EQ(Sorted("c\na\ne\nb\nd\n", options), "c\na\ne\nb\nd\n");
}

TEST(SortFile, EqualKeysUnderReverseComeInTheReverseOfTheirOrder) {
  const SortLinesOptions options = EqualKeyOptions(SaveAsNewFile | SortReverse);
  EXPECT_EQ(Sorted("c\na\ne\nb\nd\n", options), "d\nb\ne\na\nc\n");
}

TEST(SortFile, ReverseTurnsTheMovableLinesRound) {
  EXPECT_EQ(SortedText("b\nc\na\n", SortReverse), "c\nb\na\n");
  EXPECT_EQ(Sorted("x\nb\nc\na\ny\n", Keeping(1, 1, SortReverse)), "x\nc\nb\na\ny\n");
}

TEST(SortFile, BlankLinesAreRemovedFromTheMovableLinesAlone) {
  EXPECT_EQ(SortedText("b\n\r\n\na\n", SortRemoveBlank), "a\nb\n");
  EXPECT_EQ(Sorted("\nb\n\na\n\n", Keeping(1, 1, SortRemoveBlank)), "\na\nb\n\n");
  EXPECT_EQ(SortedText("b\n \n\n\t\na\n", SortRemoveBlank), "\t\n \na\nb\n");
  EXPECT_EQ(SortedText("\n\n", SortRemoveBlank), "");
}

TEST(SortFile, ManyLinesAreSortedKeptReversedAndFreedOfBlankOnesAsFewAre) {
  std::string blanks;
  std::string file;
  std::string ascending;
  std::string descending;
  for (int i = 0; i < 100; ++i) {
    const std::string line = {static_cast<char>('a' + i / 10), static_cast<char>('0' + i % 10), '\n'};
    blanks += "\n";
    file = (i % 3 == 0 ? line + "\n" + file : file + line);
    ascending += line;
    descending = line + descending;
  }
  EXPECT_EQ(Sorted("z\n" + file + "\ny\n", Keeping(1, 2, SortRemoveBlank)), "z\n" + ascending + "\ny\n");
  EXPECT_EQ(Sorted("z\n" + file + "\ny\n", Keeping(1, 2, SortRemoveBlank | SortReverse)),
            "z\n" + descending + "\ny\n");
  EXPECT_EQ(SortedText(file), blanks.substr(0, 34) + ascending);
  EXPECT_EQ(SortedText(file, SortReverse), descending + blanks.substr(0, 34));
  EXPECT_EQ(SortedText(blanks, SortRemoveBlank), "");
  EXPECT_EQ(Sorted(blanks, Keeping(1, 1, SortRemoveBlank)), "\n\n");
}

TEST(SortFile, DuplicatesAreKeptWithAndWithoutTheirOptionByDesign) {
  EXPECT_EQ(SortedText("b\na\nb\na\n", SortRemoveDuplicates), "a\na\nb\nb\n");
}

TEST(SortFile, NumbersSortByValue) {
  SortLinesOptions options;
  options.options = SortBySubstring | SortAsNumber | SaveAsNewFile;
  EXPECT_EQ(Sorted("12abc\n-3\nx\n9\n", options), "-3\nx\n9\n12abc\n");
}

TEST(SortFile, SixteenBitTextSortsInUnits) {
  EXPECT_EQ(SortedText(WideBytes(W("\uFEFFc\nb\r\na\nd\n"))), WideBytes(W("a\nb\r\nd\n\uFEFFc\n")));
  // Without a byte order mark, UTF-16 is detected by the first five units.
  EXPECT_EQ(SortedText(WideBytes(W("cc\nbb\naa"))), WideBytes(W("aa\nbb\ncc\n")));
  EXPECT_EQ(SortedText(WideBytes(W("cc\r\nbb\raa"))), WideBytes(W("aa\r\nbb\r\ncc\r\n")));
}

TEST(SortFile, MarkMovesWithTheFirstLineByDesign) {
  EXPECT_EQ(SortedText("\xFF\xFE" + WideBytes(W("b\na\n"))),
            WideBytes(W("a\n")) + "\xFF\xFE" + WideBytes(W("b\n")));
  EXPECT_EQ(Sorted("\xFF\xFE" + WideBytes(W("b\nd\nc\n")), Keeping(1, 0)),
            "\xFF\xFE" + WideBytes(W("b\nc\nd\n")));
  EXPECT_EQ(SortedText("\xFF\xFE"), "\xFF\xFE");
}

TEST(SortFile, OddSixteenBitFileBecomesOneByteLongerByDesign) {
  EXPECT_EQ(SortedText(WideBytes(W("bbbb\naaaa\n")) + "0"), WideBytes(W("0\naaaa\nbbbb\n")));
  EXPECT_EQ(SortedText("\xFF\xFEz"), Bytes("\xFF\xFEz\0"));
}

TEST(SortFile, ManyBlocksOfLinesAreSorted) {
  // 7919 and 20000 are coprime, so each number occurs once.
  std::string file;
  std::string expected;
  for (int i = 0; i < 20000; ++i) {
    const auto line = [](int number) {
      return std::to_string(100000 + number) + std::string(static_cast<std::size_t>(number % 50), 'x') + "\n";
    };
    file += line(i * 7919 % 20000);
    expected += line(i);
  }
  EXPECT_TRUE(SortedText(file) == expected);
}

TEST(SortFile, SourceThatIsOpenForWritingElsewhereIsSorted) {
  const ScratchFolder scratch;
  const WString source = scratch.Write(W("in"), "b\na\n");
  const HANDLE writer = OpenFor(source.c_str(), GENERIC_WRITE, OPEN_EXISTING);
  ASSERT_NE(writer, INVALID_HANDLE_VALUE);
  EXPECT_EQ(RunSort(source, scratch.Path(W("out")), SortOptions(SaveAsNewFile)), kSorted);
  CloseHandle(writer);
  EXPECT_EQ(scratch.Read(W("out")), "a\nb\n");
}

TEST(SortFile, SourceIsItsOwnTargetUnderOverwrite) {
  for (const std::uint32_t asNewFile : {0u, std::uint32_t{SaveAsNewFile}}) {
    const ScratchFolder scratch;
    const WString path = scratch.Write(W("a.txt"), "b\nc\na\n");
    EXPECT_EQ(RunSort(path, path, SortOptions(asNewFile | SaveOverwrite)), kSorted);
    EXPECT_EQ(scratch.Read(W("a.txt")), "a\nb\nc\n");
    EXPECT_THAT(scratch.Names(), ElementsAre(W("a.txt")));
  }
}

TEST(SortFile, OverwriteReplacesAnotherTarget) {
  for (const std::uint32_t asNewFile : {0u, std::uint32_t{SaveAsNewFile}}) {
    const ScratchFolder scratch;
    const WString source = scratch.Write(W("in"), "b\na\n");
    const WString target = scratch.Write(W("out"), "a text that is longer than the new one");
    EXPECT_EQ(RunSort(source, target, SortOptions(asNewFile | SaveOverwrite)), kSorted);
    EXPECT_EQ(scratch.Read(W("out")), "a\nb\n");
    EXPECT_EQ(scratch.Read(W("in")), "b\na\n");
  }
}

TEST(SortFile, TargetThatIsNotThereIsMadeWithoutOverwrite) {
  const ScratchFolder scratch;
  EXPECT_EQ(RunSort(scratch.Write(W("in"), "b\na\n"), scratch.Path(W("out")), SortOptions(0)), kSorted);
  EXPECT_EQ(scratch.Read(W("out")), "a\nb\n");
}

TEST(SortFile, ExistingTargetOfANewFileStaysWithoutOverwrite) {
  for (const std::uint32_t backup : {0u, std::uint32_t{SaveKeepBackup}, std::uint32_t{SaveDeleteBackup}}) {
    const ScratchFolder scratch;
    const WString source = scratch.Write(W("in"), "b\na\n");
    const WString target = scratch.Write(W("out"), "old");
    EXPECT_EQ(RunSort(source, target, SortOptions(SaveAsNewFile | backup)),
              (SortOutcome{80, "Target file already exists"}));
    EXPECT_EQ(scratch.Read(W("out")), "old");
    EXPECT_EQ(scratch.Read(W("in")), "b\na\n");
    EXPECT_THAT(scratch.Names(), ElementsAre(W("in"), W("out")));
  }
}

TEST(SortFile, FolderInTheTargetsPlaceCountsAsExisting) {
  const ScratchFolder scratch;
  const WString source = scratch.Write(W("in"), "b\na\n");
  const WString target = scratch.MakeFolder(W("out"));
  EXPECT_EQ(RunSort(source, target, SortOptions(SaveAsNewFile)),
            (SortOutcome{80, "Target file already exists"}));
  EXPECT_EQ(RunSort(source, target, SortOptions(SaveAsNewFile | SaveOverwrite)),
            (SortOutcome{ERROR_ACCESS_DENIED, "Unable to open file for writing"}));
  EXPECT_EQ(scratch.Read(W("in")), "b\na\n");
}

TEST(SortFile, ExistingTargetFailsTheCreateWithoutOverwriteAndWithoutANewFile) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "b\na\n");
  EXPECT_EQ(RunSort(path, path, SortOptions(0)),
            (SortOutcome{ERROR_FILE_EXISTS, "Unable to open file for writing"}));
  EXPECT_EQ(scratch.Read(W("a.txt")), "b\na\n");
}

TEST(SortFile, TargetInAFolderThatIsNotThereFails) {
  for (const std::uint32_t more : {0u, std::uint32_t{SaveAsNewFile}, std::uint32_t{SaveOverwrite},
                                   std::uint32_t{SaveKeepBackup}, std::uint32_t{SaveDeleteBackup}}) {
    const ScratchFolder scratch;
    EXPECT_EQ(RunSort(scratch.Write(W("in"), "b\na\n"), scratch.Path(W("none\\out")), SortOptions(more)),
              (SortOutcome{ERROR_PATH_NOT_FOUND, "Unable to open file for writing"}));
    EXPECT_EQ(scratch.Read(W("in")), "b\na\n");
  }
}

TEST(SortFile, KeptBackupContainsThePreviousTarget) {
  // The backup moves the target away, so the overwrite bit has no effect.
  for (const std::uint32_t overwrite : {0u, std::uint32_t{SaveOverwrite}}) {
    const ScratchFolder scratch;
    const WString path = scratch.Write(W("a.txt"), "b\na\n");
    EXPECT_EQ(RunSort(path, path, SortOptions(SaveKeepBackup | overwrite)), kSorted);
    EXPECT_EQ(scratch.Read(W("a.txt")), "a\nb\n");
    EXPECT_EQ(scratch.Read(W("a.txt.bak")), "b\na\n");
    EXPECT_THAT(scratch.Names(), ElementsAre(W("a.txt"), W("a.txt.bak")));
  }
}

TEST(SortFile, KeptBackupOfAnotherTarget) {
  const ScratchFolder scratch;
  const WString source = scratch.Write(W("in"), "b\na\n");
  const WString target = scratch.Write(W("out"), "old");
  EXPECT_EQ(RunSort(source, target, SortOptions(SaveAsNewFile | SaveOverwrite | SaveKeepBackup)), kSorted);
  EXPECT_EQ(scratch.Read(W("in")), "b\na\n");
  EXPECT_EQ(scratch.Read(W("out")), "a\nb\n");
  EXPECT_EQ(scratch.Read(W("out.bak")), "old");
}

TEST(SortFile, KeptBackupsAreNumberedWhenTheirNamesAreTaken) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "b\na\n");
  scratch.Write(W("a.txt.bak"), "first");
  EXPECT_EQ(RunSort(path, path, SortOptions(SaveKeepBackup)), kSorted);
  EXPECT_EQ(scratch.Read(W("a.txt.bak")), "first");
  EXPECT_EQ(scratch.Read(W("a.txt_(0002).bak")), "b\na\n");
  EXPECT_EQ(RunSort(path, path, SortOptions(SaveKeepBackup)), kSorted);
  EXPECT_EQ(scratch.Read(W("a.txt_(0003).bak")), "a\nb\n");
  EXPECT_EQ(scratch.Read(W("a.txt")), "a\nb\n");
  EXPECT_THAT(scratch.Names(),
              UnorderedElementsAre(W("a.txt"), W("a.txt.bak"), W("a.txt_(0002).bak"), W("a.txt_(0003).bak")));
}

TEST(SortFile, KeptBackupOfATargetThatIsNotThereIsNone) {
  const ScratchFolder scratch;
  EXPECT_EQ(RunSort(scratch.Write(W("in"), "b\na\n"), scratch.Path(W("out")),
                    SortOptions(SaveAsNewFile | SaveKeepBackup)),
            kSorted);
  EXPECT_THAT(scratch.Names(), ElementsAre(W("in"), W("out")));
  EXPECT_EQ(scratch.Read(W("out")), "a\nb\n");
}

TEST(SortFile, DeletedBackupIsGoneAfterSuccess) {
  for (const std::uint32_t more : {0u, std::uint32_t{SaveOverwrite}, std::uint32_t{SaveKeepBackup},
                                   std::uint32_t{SaveAsNewFile | SaveOverwrite}}) {
    const ScratchFolder scratch;
    const WString path = scratch.Write(W("a.txt"), "b\na\n");
    EXPECT_EQ(RunSort(path, path, SortOptions(SaveDeleteBackup | more)), kSorted);
    EXPECT_EQ(scratch.Read(W("a.txt")), "a\nb\n");
    EXPECT_THAT(scratch.Names(), ElementsAre(W("a.txt")));
  }
}

TEST(SortFile, DeletedBackupLeavesOlderBackupsAlone) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "b\na\n");
  scratch.Write(W("a.txt.bak"), "first");
  EXPECT_EQ(RunSort(path, path, SortOptions(SaveDeleteBackup)), kSorted);
  EXPECT_EQ(scratch.Read(W("a.txt")), "a\nb\n");
  EXPECT_EQ(scratch.Read(W("a.txt.bak")), "first");
  EXPECT_THAT(scratch.Names(), ElementsAre(W("a.txt"), W("a.txt.bak")));
}

TEST(SortFile, DeletedBackupMayBeReadOnlyHiddenAndOfTheSystem) {
  for (const DWORD attributes :
       {DWORD{FILE_ATTRIBUTE_READONLY}, DWORD{FILE_ATTRIBUTE_HIDDEN}, DWORD{FILE_ATTRIBUTE_SYSTEM},
        DWORD{FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM}}) {
    const ScratchFolder scratch;
    const WString path = scratch.Write(W("a.txt"), "b\na\n");
    ASSERT_TRUE(SetFileAttributesW(path.c_str(), attributes));
    EXPECT_EQ(RunSort(path, path, SortOptions(SaveDeleteBackup)), kSorted);
    EXPECT_EQ(scratch.Read(W("a.txt")), "a\nb\n");
    EXPECT_THAT(scratch.Names(), ElementsAre(W("a.txt"))) << attributes;
  }
}

TEST(SortFile, OutputHasTheAttributesOfANewFile) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "b\na\n");
  ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_EQ(RunSort(path, path, SortOptions(SaveKeepBackup)), kSorted);
  EXPECT_EQ(GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_READONLY, 0u);
  EXPECT_NE(GetFileAttributesW(scratch.Path(W("a.txt.bak")).c_str()) & FILE_ATTRIBUTE_READONLY, 0u);
  EXPECT_EQ(scratch.Read(W("a.txt.bak")), "b\na\n");
}

// In this case the backup's path is the target itself, which is deleted after the write like any backup.
TEST(SortFile, DeletedBackupOfAMissingTargetDeletesTheTargetJustWrittenByDesign) {
  const ScratchFolder scratch;
  EXPECT_EQ(RunSort(scratch.Write(W("in"), "b\na\n"), scratch.Path(W("out")),
                    SortOptions(SaveAsNewFile | SaveDeleteBackup)),
            kSorted);
  EXPECT_THAT(scratch.Names(), ElementsAre(W("in")));
  EXPECT_EQ(scratch.Read(W("in")), "b\na\n");
}

TEST(SortFile, Utf8AndBinaryFilesAreRefusedAndNothingIsTouched) {
  const std::string refused[] = {
      "\xEF\xBB\xBF"
      "b\na\n",
      "<?xml encoding=\"UTF-8\"?>\n<a/>\n", std::string(10, '\x01'), "\xFE\xFF", "\xE4\xB8\xAD"};
  for (const std::string& bytes : refused) {
    for (const std::uint32_t more : {std::uint32_t{SaveOverwrite}, std::uint32_t{SaveKeepBackup},
                                     std::uint32_t{SaveDeleteBackup}, std::uint32_t{SaveAsNewFile}}) {
      const ScratchFolder scratch;
      const WString path = scratch.Write(W("a.txt"), bytes);
      EXPECT_EQ(RunSort(path, path, SortOptions(more)), (SortOutcome{1630, "Text format not supported"}));
      EXPECT_EQ(scratch.Read(W("a.txt")), bytes);
      EXPECT_THAT(scratch.Names(), ElementsAre(W("a.txt")));
      EXPECT_EQ(RunSort(path, scratch.Path(W("out")), SortOptions(more)),
                (SortOutcome{1630, "Text format not supported"}));
      EXPECT_FALSE(scratch.Exists(W("out")));
    }
  }
}

TEST(SortFile, SourceThatIsNotThereIsNotFound) {
  const ScratchFolder scratch;
  const WString target = scratch.Write(W("out"), "old");
  for (const WCHAR* name : {W("none"), W("none\\in")}) {
    EXPECT_EQ(RunSort(scratch.Path(name), target, SortOptions(SaveOverwrite | SaveKeepBackup)),
              (SortOutcome{2, "File not found"}));
  }
  EXPECT_EQ(scratch.Read(W("out")), "old");
  EXPECT_THAT(scratch.Names(), ElementsAre(W("out")));
}

TEST(SortFile, FolderOrFileThatAnotherKeepsForItselfCannotBeOpened) {
  const ScratchFolder scratch;
  const WString target = scratch.Path(W("out"));
  EXPECT_EQ(RunSort(scratch.MakeFolder(W("folder")), target, SortOptions(0)),
            (SortOutcome{ERROR_ACCESS_DENIED, "Unable to open file"}));
  const WString source = scratch.Write(W("in"), "b\na\n");
  const HANDLE holder = OpenFor(source.c_str(), GENERIC_READ, OPEN_EXISTING, 0);
  ASSERT_NE(holder, INVALID_HANDLE_VALUE);
  EXPECT_EQ(RunSort(source, target, SortOptions(0)),
            (SortOutcome{ERROR_SHARING_VIOLATION, "Unable to open file"}));
  CloseHandle(holder);
  EXPECT_FALSE(scratch.Exists(W("out")));
}

TEST(SortFile, LineThatIsTooLongIsOutOfMemoryAndNothingIsTouched) {
  const std::string tooLong[] = {std::string(32769, 'a'), "b\n" + std::string(32768, 'a') + "\n",
                                 WideBytes(WString(16385, W('a')))};
  for (const std::string& bytes : tooLong) {
    const ScratchFolder scratch;
    const WString path = scratch.Write(W("a.txt"), bytes);
    EXPECT_EQ(RunSort(path, path, SortOptions(SaveOverwrite | SaveKeepBackup)),
              (SortOutcome{14, std::bad_alloc().what()}));
    EXPECT_TRUE(scratch.Read(W("a.txt")) == bytes);
    EXPECT_THAT(scratch.Names(), ElementsAre(W("a.txt")));
  }
}

TEST(SortFile, DateFormatThatIsNotSupportedIsRefusedAndNothingIsTouched) {
  for (const char* format : {"%c", "%Z", "%Y%Z"}) {
    const ScratchFolder scratch;
    const WString path = scratch.Write(W("a.txt"), "2014x\n2013x\n");
    SortLinesOptions options;
    options.options = SortBySubstring | SortAsDate | SaveOverwrite | SaveKeepBackup;
    std::copy_n(format, std::char_traits<char>::length(format), options.dateFormat);
    EXPECT_EQ(RunSort(path, path, options), (SortOutcome{87, "Unsupported date format"})) << format;
    EXPECT_EQ(scratch.Read(W("a.txt")), "2014x\n2013x\n");
    EXPECT_THAT(scratch.Names(), ElementsAre(W("a.txt")));
  }
}
