// Writers of files whose system calls fail.
#include <gtest/gtest.h>

#include "data/data_writer.h"
#include "data/thrown.h"
#include "platform/outcome.h"
#include "platform/posix/files/faults.h"
#include "support/scratch_folder.h"

using namespace Platform;
using WQDR::FileDataWriter;
using WQDR::WQDataReaderException;

namespace {

Thrown OpenFailure(FileDataWriter& writer, const WString& path, bool replace) {
  return ThrownBy<WQDataReaderException>([&] { writer.Open(path, replace); });
}

Thrown WriteFailure(FileDataWriter& writer, std::string_view text) {
  return ThrownBy<WQDataReaderException>(
      [&] { writer.WriteBlock(text.data(), static_cast<std::uint32_t>(text.size())); });
}

}  // namespace

TEST(FileDataWriterFaults, OpenFailsWithTheErrorOfTheCall) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "old");
  for (const DWORD error : {ERROR_ACCESS_DENIED, ERROR_DISK_FULL, ERROR_TOO_MANY_OPEN_FILES}) {
    for (const bool replace : {false, true}) {
      const Faults::Scope faults;
      Faults::Fail("CreateFileW", 1, error);
      FileDataWriter writer;
      EXPECT_EQ(OpenFailure(writer, path, replace),
                (Thrown{error, "Unable to open file for writing : " + ToUtf8(path)}));
      EXPECT_EQ(scratch.Read(W("a.txt")), "old");
    }
  }
}

TEST(FileDataWriterFaults, OpenThatFailsReportsItsErrorAlsoWhenTheOldFileCannotBeClosed) {
  const ScratchFolder scratch;
  FileDataWriter writer;
  writer.Open(scratch.Path(W("a.txt")), false);
  const WString second = scratch.Path(W("b.txt"));
  const Faults::Scope faults;
  Faults::Fail("CreateFileW", 1, ERROR_DISK_FULL);
  Faults::Fail("CloseHandle", 1, ERROR_INVALID_HANDLE);
  EXPECT_EQ(OpenFailure(writer, second, false),
            (Thrown{ERROR_DISK_FULL, "Unable to open file for writing : " + ToUtf8(second)}));
}

TEST(FileDataWriterFaults, PathThatCannotBeConvertedLeavesTheFixedWords) {
  const ScratchFolder scratch;
  const Faults::Scope faults;
  Faults::Fail("CreateFileW", 1, ERROR_DISK_FULL);
  Faults::Fail("WideCharToMultiByte", 1, ERROR_NO_UNICODE_TRANSLATION, true);
  FileDataWriter writer;
  EXPECT_EQ(OpenFailure(writer, scratch.Path(W("a.txt")), false),
            (Thrown{ERROR_DISK_FULL, "Unable to open file for writing : "}));
}

TEST(FileDataWriterFaults, WriteFailsAndWhatWasWrittenBeforeStays) {
  const ScratchFolder scratch;
  {
    FileDataWriter writer;
    writer.Open(scratch.Path(W("a.txt")), false);
    const Faults::Scope faults;
    Faults::Fail("WriteFile", 2, ERROR_DISK_FULL);
    EXPECT_EQ(writer.WriteBlock("one", 3), 3u);
    EXPECT_EQ(WriteFailure(writer, "two"), (Thrown{ERROR_DISK_FULL, "Failed to write data to file"}));
  }
  EXPECT_EQ(scratch.Read(W("a.txt")), "one");
}

TEST(FileDataWriterFaults, ShortWriteIsAFullDisk) {
  for (const DWORD count : {DWORD{0}, DWORD{1}, DWORD{2}}) {
    const ScratchFolder scratch;
    {
      FileDataWriter writer;
      writer.Open(scratch.Path(W("a.txt")), false);
      const Faults::Scope faults;
      Faults::WriteShort(1, count);
      EXPECT_EQ(WriteFailure(writer, "two"), (Thrown{ERROR_DISK_FULL, "Failed to write data to file"}));
    }
    EXPECT_EQ(scratch.Read(W("a.txt")), std::string("two").substr(0, count));
  }
}

TEST(FileDataWriterFaults, EachWriteIsOneCall) {
  const ScratchFolder scratch;
  FileDataWriter writer;
  writer.lineEnding = std::make_unique<unsigned char[]>(2);
  writer.lineEnding[0] = '\n';
  writer.lineEndingLength = 1;
  writer.Open(scratch.Path(W("a.txt")), false);
  const Faults::Scope faults;
  Faults::Watch("WriteFile");
  const std::string large(1 << 20, 'x');
  EXPECT_EQ(writer.WriteBlock(large.data(), 1 << 20), std::uint32_t{1 << 20});
  EXPECT_EQ(Faults::CallCount("WriteFile"), 1);
  EXPECT_EQ(writer.WriteBlock("a", 0), 0u);
  EXPECT_EQ(Faults::CallCount("WriteFile"), 1);
  EXPECT_EQ(writer.WriteLineEnding(), 1u);
  EXPECT_EQ(Faults::CallCount("WriteFile"), 2);
}

TEST(FileDataWriterFaults, HandleIsClosedOnce) {
  const ScratchFolder scratch;
  const Faults::Scope faults;
  Faults::Watch("CloseHandle");
  {
    FileDataWriter writer;
    writer.Open(scratch.Path(W("a.txt")), false);
    writer.Open(scratch.Path(W("b.txt")), false);
    EXPECT_EQ(Faults::CallCount("CloseHandle"), 1);
  }
  EXPECT_EQ(Faults::CallCount("CloseHandle"), 2);
  { const FileDataWriter neverOpened; }
  EXPECT_EQ(Faults::CallCount("CloseHandle"), 2);
}
