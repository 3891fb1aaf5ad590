// The output of a sort when the disk fails, and the number of writes.
#include "linesorter/engine/sorted_lines_writer.h"

#include <gtest/gtest.h>

#include "data/data_exception.h"
#include "data/thrown.h"
#include "linesorter/made_lines.h"
#include "platform/outcome.h"
#include "platform/posix/files/faults.h"
#include "support/scratch_folder.h"

using namespace Platform;
using WQLineSorter::WriteSortedLines;

namespace {

// 32 of these lines fill a buffer except for 768 bytes, which are too few for another.
MadeLines ThousandByteLines(int count) {
  MadeLines made;
  for (int i = 0; i < count; ++i) made.Lf(std::string(999, static_cast<char>('a' + i % 26)));
  return made;
}

std::string ThousandByteText(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += std::string(999, static_cast<char>('a' + i % 26)) + "\n";
  return text;
}

Thrown WriteFailure(const WString& target, const MadeLines& made, bool replace) {
  return ThrownBy<WQDR::WQDataReaderException>([&] { WriteSortedLines(target, made.lines, replace); });
}

}  // namespace

// Under Wine the superuser can write read-only files.
TEST(SortedLinesWriter, ReadOnlyFileIsNotReplaced) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("out"), "old");
  ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_EQ(WriteFailure(path, MadeLines().Lf("new"), true),
            (Thrown{ERROR_ACCESS_DENIED, "Unable to open file for writing"}));
  EXPECT_EQ(scratch.Read(W("out")), "old");
}

TEST(SortedLinesWriterFaults, CreateFails) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("out"), "old");
  for (const DWORD error : {ERROR_ACCESS_DENIED, ERROR_DISK_FULL, ERROR_WRITE_PROTECT}) {
    const Faults::Scope faults;
    Faults::Fail("CreateFileW", 1, error);
    Faults::Watch("WriteFile");
    EXPECT_EQ(WriteFailure(path, ThousandByteLines(3), true),
              (Thrown{error, "Unable to open file for writing"}));
    EXPECT_EQ(Faults::CallCount("WriteFile"), 0);
    EXPECT_EQ(scratch.Read(W("out")), "old");
  }
}

TEST(SortedLinesWriterFaults, EachWriteThatFailsLeavesWhatWasWrittenBefore) {
  for (int nth = 1; nth <= 4; ++nth) {
    const ScratchFolder scratch;
    const WString path = scratch.Write(W("out"), "old");
    const Faults::Scope faults;
    Faults::Fail("WriteFile", nth, ERROR_DISK_FULL);
    EXPECT_EQ(WriteFailure(path, ThousandByteLines(100), true),
              (Thrown{ERROR_DISK_FULL, "Failed to write data to file"}));
    EXPECT_EQ(Faults::CallCount("WriteFile"), nth);
    EXPECT_EQ(scratch.Read(W("out")), ThousandByteText(32 * (nth - 1))) << nth;
    // The handle is closed after this failure too.
    EXPECT_EQ(FailureOf(DeleteFileW(path.c_str())), kNoFailure) << nth;
  }
}

TEST(SortedLinesWriterFaults, LinesGoOutInAsFewWritesAsTheBufferAllows) {
  const struct {
    int lines;
    int writes;
  } rows[] = {{1, 1}, {32, 1}, {33, 2}, {64, 2}, {65, 3}, {100, 4}};
  for (const auto& row : rows) {
    const ScratchFolder scratch;
    const Faults::Scope faults;
    Faults::Watch("WriteFile");
    WriteSortedLines(scratch.Path(W("out")), ThousandByteLines(row.lines).lines, false);
    EXPECT_EQ(Faults::CallCount("WriteFile"), row.writes) << row.lines;
    EXPECT_EQ(scratch.Read(W("out")), ThousandByteText(row.lines)) << row.lines;
  }
}

TEST(SortedLinesWriterFaults, BufferIsFilledToItsLastByte) {
  const std::string filling(16383, 'a');
  const struct {
    int lines;  // two of them fill a buffer
    int writes;
  } rows[] = {{2, 1}, {3, 2}, {4, 2}, {5, 3}};
  for (const auto& row : rows) {
    const ScratchFolder scratch;
    MadeLines made;
    for (int i = 0; i < row.lines; ++i) made.Lf(filling);
    const Faults::Scope faults;
    Faults::Watch("WriteFile");
    WriteSortedLines(scratch.Path(W("out")), made.lines, false);
    EXPECT_EQ(Faults::CallCount("WriteFile"), row.writes) << row.lines;
  }
}

TEST(SortedLinesWriterFaults, LinesOfTheGreatestLengthTakeAWriteEach) {
  const ScratchFolder scratch;
  const std::string longest(32767, 'a');
  const Faults::Scope faults;
  Faults::Watch("WriteFile");
  WriteSortedLines(scratch.Path(W("out")), MadeLines().Lf(longest).Lf(longest).Lf(longest).lines, false);
  EXPECT_EQ(Faults::CallCount("WriteFile"), 3);
}

TEST(SortedLinesWriterFaults, DefaultEndingNeverTakesAWriteOfItsOwn) {
  const ScratchFolder scratch;
  const std::string text(32765, 'a');
  const Faults::Scope faults;
  Faults::Watch("WriteFile");
  WriteSortedLines(scratch.Path(W("out")), MadeLines().Lf("x").None(text).lines, false);
  EXPECT_EQ(Faults::CallCount("WriteFile"), 1);
  EXPECT_EQ(scratch.Read(W("out")), "x\n" + text);
}

TEST(SortedLinesWriterFaults, WriteThatFallsShortIsNotTakenForAWholeOne) {
  const ScratchFolder scratch;
  const WString path = scratch.Path(W("out"));
  const Faults::Scope faults;
  Faults::WriteShort(1, 100);
  const Thrown thrown = WriteFailure(path, ThousandByteLines(10), false);
  // Either the rest is written, or the failure is reported.
  if (thrown.errorCode == 0) {
    EXPECT_EQ(scratch.Read(W("out")), ThousandByteText(10));
  } else {
    EXPECT_EQ(thrown.text, "Failed to write data to file");
  }
}
