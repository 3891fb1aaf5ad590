// The output of a sort: endings, the default ending, the buffer, and targets that cannot be replaced.
#include "linesorter/engine/sorted_lines_writer.h"

#include <gtest/gtest.h>

#include "data/data_exception.h"
#include "data/thrown.h"
#include "linesorter/made_lines.h"
#include "platform/outcome.h"
#include "support/scratch_folder.h"

using WQLineSorter::WriteSortedLines;

namespace {

// Returns the bytes that are written for the lines.
std::string Written(const MadeLines& made) {
  const ScratchFolder scratch;
  WriteSortedLines(scratch.Path(W("out")), made.lines, false);
  return scratch.Read(W("out"));
}

std::string A(std::size_t count) { return std::string(count, 'a'); }

template <std::size_t kSize>
std::string Bytes(const char (&literal)[kSize]) {
  return {literal, kSize - 1};
}

Thrown WriteFailure(const WString& target, bool replace) {
  return ThrownBy<WQDR::WQDataReaderException>(
      [&] { WriteSortedLines(target, MadeLines().Lf("new").lines, replace); });
}

}  // namespace

TEST(SortedLinesWriter, NoLinesAreAnEmptyFile) { EXPECT_EQ(Written(MadeLines()), ""); }

TEST(SortedLinesWriter, LinesKeepTheirOwnEndings) {
  EXPECT_EQ(Written(MadeLines().CrLf("c").Lf("a").CrLf("").Lf("").Lf("b")), "c\r\na\n\r\n\nb\n");
}

TEST(SortedLinesWriter, LineWithoutAnEndingGetsTheFirstOneInTheirOrder) {
  EXPECT_EQ(Written(MadeLines().None("a").CrLf("b").Lf("c")), "a\r\nb\r\nc\n");
  EXPECT_EQ(Written(MadeLines().Lf("c").None("a").CrLf("b")), "c\na\nb\r\n");
  EXPECT_EQ(Written(MadeLines().None("a").None("b").Lf("c").None("d")), "a\nb\nc\nd\n");
  EXPECT_EQ(Written(MadeLines().None("").CrLf("a")), "\r\na\r\n");
}

TEST(SortedLinesWriter, WritesInAnOrderOfTheLinesAndThoseAlone) {
  const ScratchFolder scratch;
  MadeLines made;
  made.Lf("c").None("a").CrLf("b").Lf("d");
  const auto written = [&](const std::vector<std::uint32_t>& order) {
    WriteSortedLines(scratch.Path(W("out")), made.lines, order, true);
    return scratch.Read(W("out"));
  };
  EXPECT_EQ(written({1, 2, 0, 3}), "a\r\nb\r\nc\nd\n");
  EXPECT_EQ(written({3, 1}), "d\na\n");
  EXPECT_EQ(written({1}), "a");
  EXPECT_EQ(written({}), "");
}

TEST(SortedLinesWriter, WithoutAnyEndingLinesAreJoined) {
  EXPECT_EQ(Written(MadeLines().None("a").None("b").None("c")), "abc");
  EXPECT_EQ(Written(MadeLines().None("a")), "a");
  EXPECT_EQ(Written(MadeLines().None("").None("")), "");
}

TEST(SortedLinesWriter, BytesAreWrittenAsTheyAre) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  EXPECT_EQ(Written(MadeLines().Lf(all).None(all)), all + "\n" + all + "\n");
}

TEST(SortedLinesWriter, DefaultEndingOfWideTextIsWide) {
  EXPECT_EQ(Written(MadeLines().None(Bytes("a\0")).WideLf(Bytes("b\0"))), Bytes("a\0\n\0b\0\n\0"));
  EXPECT_EQ(Written(MadeLines().None(Bytes("a\0")).WideCrLf(Bytes("b\0"))), Bytes("a\0\r\0\n\0b\0\r\0\n\0"));
}

// The check for free space is strict: an ending that would exactly fill the buffer is left out (C-128).
TEST(SortedLinesWriter, DefaultEndingThatJustFitsIsLeftOutByDesign) {
  const struct {
    std::size_t free;  // bytes after the line without an ending
    bool appended;
  } rows[] = {{0, false}, {1, false}, {2, true}, {3, true}};
  for (const auto& row : rows) {
    const std::string text = A(32768 - 2 - row.free);
    EXPECT_EQ(Written(MadeLines().Lf("x").None(text).Lf("b")),
              "x\n" + text + (row.appended ? "\n" : "") + "b\n")
        << row.free;
  }
}

TEST(SortedLinesWriter, DefaultCrLfThatJustFitsIsLeftOutByDesign) {
  const struct {
    std::size_t free;
    bool appended;
  } rows[] = {{0, false}, {1, false}, {2, false}, {3, true}, {4, true}};
  for (const auto& row : rows) {
    const std::string text = A(32768 - 3 - row.free);
    EXPECT_EQ(Written(MadeLines().CrLf("x").None(text).Lf("b")),
              "x\r\n" + text + (row.appended ? "\r\n" : "") + "b\n")
        << row.free;
  }
}

TEST(SortedLinesWriter, DefaultWideEndingThatJustFitsIsLeftOutByDesign) {
  for (const std::size_t free : {0u, 2u, 4u, 6u}) {
    const std::string lf = A(32768 - 4 - free);
    EXPECT_EQ(Written(MadeLines().WideLf(Bytes("x\0")).None(lf).WideLf(Bytes("b\0"))),
              Bytes("x\0\n\0") + lf + (free > 2 ? Bytes("\n\0") : "") + Bytes("b\0\n\0"))
        << free;
    const std::string crLf = A(32768 - 6 - free);
    EXPECT_EQ(Written(MadeLines().WideCrLf(Bytes("x\0")).None(crLf).WideLf(Bytes("b\0"))),
              Bytes("x\0\r\0\n\0") + crLf + (free > 4 ? Bytes("\r\0\n\0") : "") + Bytes("b\0\n\0"))
        << free;
  }
}

TEST(SortedLinesWriter, RoomForTheDefaultEndingIsThatOfTheNewBufferAfterAWrite) {
  // The second line does not fit after the first and starts a new buffer, which has space for its ending.
  EXPECT_EQ(Written(MadeLines().Lf(A(32000)).None(A(32000)).Lf("b")), A(32000) + "\n" + A(32000) + "\nb\n");
  // Here the second line alone fills the new buffer except for its last byte.
  EXPECT_EQ(Written(MadeLines().Lf(A(32000)).None(A(32767)).Lf("b")), A(32000) + "\n" + A(32767) + "b\n");
  EXPECT_EQ(Written(MadeLines().Lf(A(32000)).None(A(32766)).Lf("b")), A(32000) + "\n" + A(32766) + "\nb\n");
}

TEST(SortedLinesWriter, AppendedEndingTakesRoomItself) {
  // The buffer contains 2 + 32763 bytes and one appended ending. Of the two free bytes "y" takes one, and the
  // last one is not enough for an ending.
  EXPECT_EQ(Written(MadeLines().Lf("x").None(A(32763)).None("y").Lf("z")), "x\n" + A(32763) + "\ny" + "z\n");
  EXPECT_EQ(Written(MadeLines().Lf("x").None(A(32762)).None("y").Lf("z")),
            "x\n" + A(32762) + "\ny\n" + "z\n");
}

TEST(SortedLinesWriter, LastLineOfAFullBufferGetsNoEnding) {
  EXPECT_EQ(Written(MadeLines().Lf("x").None(A(32766))), "x\n" + A(32766));
  EXPECT_EQ(Written(MadeLines().Lf("x").None(A(32765))), "x\n" + A(32765));
  EXPECT_EQ(Written(MadeLines().Lf("x").None(A(32764))), "x\n" + A(32764) + "\n");
}

TEST(SortedLinesWriter, LinesOfTheGreatestLengthAreWritten) {
  EXPECT_EQ(Written(MadeLines().Lf(A(32767)).CrLf(A(32766)).None(A(32768)).Lf("b")),
            A(32767) + "\n" + A(32766) + "\r\n" + A(32768) + "b\n");
}

TEST(SortedLinesWriter, ManyBuffersHoldAllLinesInTheirOrder) {
  MadeLines made;
  std::string expected;
  for (int i = 0; i < 20000; ++i) {
    const std::string text = std::to_string(i) + A(static_cast<std::size_t>(i % 97));
    (i % 3 == 0 ? made.CrLf(text) : made.Lf(text));
    expected += text + (i % 3 == 0 ? "\r\n" : "\n");
  }
  EXPECT_TRUE(Written(made) == expected);
}

TEST(SortedLinesWriter, ReplacesAnExistingTargetWholly) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("out"), A(100));
  WriteSortedLines(path, MadeLines().Lf("b").lines, true);
  EXPECT_EQ(scratch.Read(W("out")), "b\n");
  WriteSortedLines(path, {}, true);
  EXPECT_EQ(scratch.Read(W("out")), "");
}

TEST(SortedLinesWriter, ReplaceMakesATargetThatIsNotThere) {
  const ScratchFolder scratch;
  WriteSortedLines(scratch.Path(W("out")), MadeLines().Lf("b").lines, true);
  EXPECT_EQ(scratch.Read(W("out")), "b\n");
}

TEST(SortedLinesWriter, ExistingTargetThatMustNotBeReplacedStays) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("out"), "old");
  EXPECT_EQ(WriteFailure(path, false), (Thrown{ERROR_FILE_EXISTS, "Unable to open file for writing"}));
  EXPECT_EQ(scratch.Read(W("out")), "old");
}

TEST(SortedLinesWriter, TargetThatCannotBeMadeFails) {
  const ScratchFolder scratch;
  for (const bool replace : {false, true}) {
    EXPECT_EQ(WriteFailure(scratch.Path(W("none\\out")), replace),
              (Thrown{ERROR_PATH_NOT_FOUND, "Unable to open file for writing"}));
  }
}

TEST(SortedLinesWriter, FolderIsNotReplaced) {
  const ScratchFolder scratch;
  EXPECT_EQ(WriteFailure(scratch.MakeFolder(W("folder")), true),
            (Thrown{ERROR_ACCESS_DENIED, "Unable to open file for writing"}));
}

TEST(SortedLinesWriter, TargetThatAnotherKeepsForItselfStays) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("out"), "old");
  const HANDLE holder = OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING, FILE_SHARE_READ);
  ASSERT_NE(holder, INVALID_HANDLE_VALUE);
  EXPECT_EQ(WriteFailure(path, true), (Thrown{ERROR_SHARING_VIOLATION, "Unable to open file for writing"}));
  CloseHandle(holder);
  EXPECT_EQ(scratch.Read(W("out")), "old");
}

TEST(SortedLinesWriter, TargetIsLetGo) {
  const ScratchFolder scratch;
  const WString path = scratch.Path(W("out"));
  WriteSortedLines(path, MadeLines().Lf("b").lines, false);
  EXPECT_EQ(FailureOf(DeleteFileW(path.c_str())), kNoFailure);
}
