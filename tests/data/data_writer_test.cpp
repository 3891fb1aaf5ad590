// Writers to files and to memory: what they store, and the exceptions for files that cannot be created.
#include "data/data_writer.h"

#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>

#include "data/thrown.h"
#include "platform/outcome.h"
#include "support/scratch_folder.h"

using WQDR::DataWriter;
using WQDR::FileDataWriter;
using WQDR::MemoryDataWriter;
using WQDR::WQDataReaderException;

namespace {

constexpr std::uint32_t kUnwritten = 0xDDDDDDDD;

// Stores what is written, at most two bytes for each write.
class TwoByteWriter final : public DataWriter {
 public:
  void Write(const void* data, std::uint32_t size, std::uint32_t* written) override {
    const std::uint32_t count = size < 2 ? size : 2;
    text.append(static_cast<const char*>(data), count);
    ++calls;
    if (written) *written = count;
  }
  std::string text;
  int calls = 0;
};

// Sets the line ending of a writer to these bytes, followed by a zero.
void SetEnding(DataWriter& writer, std::string_view bytes) {
  writer.lineEnding = std::make_unique<unsigned char[]>(bytes.size() + 1);
  std::memcpy(writer.lineEnding.get(), bytes.data(), bytes.size());
  writer.lineEndingLength = bytes.size();
}

template <typename CharT>
std::string TextOf(const MemoryDataWriter<CharT>& writer) {
  const auto* const begin = reinterpret_cast<const char*>(writer.buffer.get());
  return {begin, reinterpret_cast<const char*>(writer.writePosition)};
}

Thrown OpenWriterFailure(FileDataWriter& writer, const WString& path, bool replace) {
  return ThrownBy<WQDataReaderException>([&] { writer.Open(path, replace); });
}

void WriteText(DataWriter& writer, std::string_view text) {
  EXPECT_EQ(writer.WriteBlock(text.data(), static_cast<std::uint32_t>(text.size())), text.size());
}

}  // namespace

// A writer may be deleted through its base class; a reader may not.
static_assert(std::has_virtual_destructor_v<DataWriter>);

TEST(DataWriter, ReservedOperationsDoNothingAndReturn0) {
  TwoByteWriter writer;
  EXPECT_EQ(writer.Reserved1(), 0u);
  EXPECT_EQ(writer.Reserved2(), 0u);
  EXPECT_EQ(writer.calls, 0);
}

TEST(DataWriter, WithoutAnEndingWriteLineEndingWritesNothing) {
  TwoByteWriter writer;
  EXPECT_EQ(writer.WriteLineEnding(), 0u);
  EXPECT_EQ(writer.calls, 0);
}

TEST(DataWriter, EndingIsWrittenWithoutItsZeroAndReturnsTheBytesWritten) {
  for (const std::string_view ending :
       {std::string_view("\n"), std::string_view("\r\n"), std::string_view("\n\0", 2)}) {
    TwoByteWriter writer;
    SetEnding(writer, ending);
    EXPECT_EQ(writer.WriteLineEnding(), ending.size());
    EXPECT_EQ(writer.WriteLineEnding(), ending.size());
    EXPECT_EQ(writer.text, std::string(ending) + std::string(ending));
    EXPECT_EQ(writer.calls, 2);
  }
  TwoByteWriter shortWriter;
  SetEnding(shortWriter, std::string_view("\r\0\n\0", 4));
  EXPECT_EQ(shortWriter.WriteLineEnding(), 2u);
}

TEST(DataWriter, BlockOfNoBytesMakesNoCallToWrite) {
  TwoByteWriter writer;
  EXPECT_EQ(writer.WriteBlock("abc", 0), 0u);
  EXPECT_EQ(writer.WriteBlock(nullptr, 0), 0u);
  EXPECT_EQ(writer.calls, 0);
}

TEST(DataWriter, WriteBlockIsOneWriteAndReturnsTheBytesWritten) {
  TwoByteWriter writer;
  EXPECT_EQ(writer.WriteBlock("abc", 3), 2u);
  EXPECT_EQ(writer.WriteBlock("d", 1), 1u);
  EXPECT_EQ(writer.text, "abd");
  EXPECT_EQ(writer.calls, 2);
}

TEST(DataWriter, IsDeletedThroughItsBaseWithItsEnding) {
  // The sanitizers detect a leak.
  std::unique_ptr<DataWriter> writer = std::make_unique<TwoByteWriter>();
  SetEnding(*writer, "\r\n");
  std::unique_ptr<DataWriter> memory = std::make_unique<MemoryDataWriter<char>>(10);
  SetEnding(*memory, "\n");
}

TEST(MemoryDataWriter, KeepsWhatIsWrittenWithZerosAfterIt) {
  MemoryDataWriter<char> writer(6);
  WriteText(writer, "ab");
  std::uint32_t written = kUnwritten;
  writer.Write("\0c", 2, &written);
  EXPECT_EQ(written, 2u);
  EXPECT_EQ(TextOf(writer), std::string("ab\0c", 4));
  EXPECT_EQ(std::string(writer.buffer.get(), 6), std::string("ab\0c\0\0", 6));
  EXPECT_EQ(writer.bufferEnd - writer.writePosition, 2);
}

TEST(MemoryDataWriter, WriteBeyondTheRoomIsCutWithoutAnError) {
  MemoryDataWriter<char> writer(3);
  std::uint32_t written = kUnwritten;
  writer.Write("abcde", 5, &written);
  EXPECT_EQ(written, 3u);
  EXPECT_EQ(TextOf(writer), "abc");
  EXPECT_EQ(writer.writePosition, writer.bufferEnd);
  writer.Write("f", 1, &written);
  EXPECT_EQ(written, 0u);
  EXPECT_EQ(writer.WriteBlock("gh", 2), 0u);
  EXPECT_EQ(TextOf(writer), "abc");
}

TEST(MemoryDataWriter, GreatestSizeIsCutAtTheRoomThatIsLeft) {
  MemoryDataWriter<char> writer(4);
  WriteText(writer, "a");
  std::uint32_t written = kUnwritten;
  writer.Write("bcd", 0xFFFFFFFF, &written);
  EXPECT_EQ(written, 3u);
  EXPECT_EQ(TextOf(writer), "abcd");
}

TEST(MemoryDataWriter, CountOfBytesWrittenIsOptional) {
  MemoryDataWriter<char> writer(3);
  writer.Write("ab", 2, nullptr);
  writer.Write("cde", 3, nullptr);
  EXPECT_EQ(TextOf(writer), "abc");
}

TEST(MemoryDataWriter, WriterWithoutRoomTakesNothing) {
  MemoryDataWriter<char> writer(0);
  std::uint32_t written = kUnwritten;
  writer.Write("ab", 2, &written);
  EXPECT_EQ(written, 0u);
  EXPECT_EQ(writer.writePosition, writer.bufferEnd);
}

TEST(MemoryDataWriter, LineEndingCountsALineAlsoWhenItIsEmpty) {
  MemoryDataWriter<char> writer(10);
  writer.column = 7;
  EXPECT_EQ(writer.WriteLineEnding(), 0u);
  EXPECT_EQ(writer.lineCount, 1u);
  EXPECT_EQ(writer.column, 0u);
  EXPECT_EQ(TextOf(writer), "");
  SetEnding(writer, "\r\n");
  writer.column = 3;
  EXPECT_EQ(writer.WriteLineEnding(), 2u);
  EXPECT_EQ(writer.lineCount, 2u);
  EXPECT_EQ(writer.column, 0u);
  EXPECT_EQ(TextOf(writer), "\r\n");
}

TEST(MemoryDataWriter, LineEndingWithoutRoomStillCountsTheLine) {
  MemoryDataWriter<char> writer(1);
  SetEnding(writer, "\r\n");
  EXPECT_EQ(writer.WriteLineEnding(), 1u);
  EXPECT_EQ(writer.WriteLineEnding(), 0u);
  EXPECT_EQ(writer.lineCount, 2u);
  EXPECT_EQ(TextOf(writer), "\r");
}

TEST(MemoryDataWriter, WideTextIsKeptAsItsBytesAndItsRoomIsInBytes) {
  MemoryDataWriter<WCHAR> writer(6);
  SetEnding(writer, std::string_view("\n\0", 2));
  const WString text = W("a\u20AC");
  EXPECT_EQ(writer.WriteBlock(text.data(), 4), 4u);
  EXPECT_EQ(writer.WriteLineEnding(), 2u);
  EXPECT_EQ(writer.WriteBlock(text.data(), 4), 0u);
  EXPECT_EQ(WString(writer.buffer.get(), 3), W("a\u20AC\n"));
}

TEST(MemoryDataWriter, WideWriterOfAnOddSizeKeepsToItsBytes) {
  MemoryDataWriter<WCHAR> writer(3);
  EXPECT_EQ(writer.WriteBlock("abcd", 4), 3u);
  EXPECT_EQ(TextOf(writer), "abc");
}

TEST(FileDataWriter, WritesBlocksAndEndingsIntoANewFile) {
  const ScratchFolder scratch;
  {
    FileDataWriter writer;
    SetEnding(writer, "\r\n");
    writer.Open(scratch.Path(W("a.txt")), false);
    WriteText(writer, "one");
    EXPECT_EQ(writer.WriteLineEnding(), 2u);
    EXPECT_EQ(writer.WriteBlock("", 0), 0u);
    std::uint32_t written = kUnwritten;
    writer.Write("\0t", 2, &written);
    EXPECT_EQ(written, 2u);
    writer.Write("wo", 2, nullptr);
    writer.Write("", 0, &written);
    EXPECT_EQ(written, 0u);
  }
  EXPECT_EQ(scratch.Read(W("a.txt")), std::string("one\r\n\0two", 9));
}

TEST(FileDataWriter, OpenAloneMakesAnEmptyFile) {
  const ScratchFolder scratch;
  { FileDataWriter().Open(scratch.Path(W("a.txt")), false); }
  EXPECT_TRUE(scratch.Exists(W("a.txt")));
  EXPECT_EQ(scratch.Read(W("a.txt")), "");
}

TEST(FileDataWriter, OpenWithoutReplaceRefusesAnExistingFileAndLeavesItAlone) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "old");
  FileDataWriter writer;
  EXPECT_EQ(OpenWriterFailure(writer, path, false),
            (Thrown{ERROR_FILE_EXISTS, "Unable to open file for writing : " + ToUtf8(path)}));
  EXPECT_EQ(scratch.Read(W("a.txt")), "old");
}

TEST(FileDataWriter, OpenWithReplaceMakesTheFileAnew) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "a longer text");
  {
    FileDataWriter writer;
    writer.Open(path, true);
    EXPECT_EQ(scratch.Read(W("a.txt")), "");
    WriteText(writer, "new");
  }
  EXPECT_EQ(scratch.Read(W("a.txt")), "new");
  {
    FileDataWriter writer;
    writer.Open(scratch.Path(W("b.txt")), true);
    WriteText(writer, "made");
  }
  EXPECT_EQ(scratch.Read(W("b.txt")), "made");
}

TEST(FileDataWriter, FolderThatIsNotThereAndAFolderAreRefused) {
  const ScratchFolder scratch;
  FileDataWriter writer;
  const WString nowhere = scratch.Path(W("none\\a.txt"));
  for (const bool replace : {false, true}) {
    EXPECT_EQ(OpenWriterFailure(writer, nowhere, replace),
              (Thrown{ERROR_PATH_NOT_FOUND, "Unable to open file for writing : " + ToUtf8(nowhere)}));
  }
  EXPECT_EQ(OpenWriterFailure(writer, scratch.Path(), true),
            (Thrown{ERROR_ACCESS_DENIED, "Unable to open file for writing : " + ToUtf8(scratch.Path())}));
}

TEST(FileDataWriter, NewOpenClosesTheFileThatWasOpen) {
  const ScratchFolder scratch;
  const WString first = scratch.Path(W("a.txt"));
  FileDataWriter writer;
  writer.Open(first, false);
  WriteText(writer, "one");
  EXPECT_EQ(FailureOf(DeleteFileW(first.c_str())), DWORD{ERROR_SHARING_VIOLATION});
  writer.Open(scratch.Path(W("b.txt")), false);
  WriteText(writer, "two");
  EXPECT_EQ(FailureOf(DeleteFileW(first.c_str())), kNoFailure);
  EXPECT_EQ(scratch.Read(W("b.txt")), "two");
}

TEST(FileDataWriter, OpenThatFailsClosesTheFileThatWasOpenAndReportsItsOwnError) {
  const ScratchFolder scratch;
  const WString first = scratch.Path(W("a.txt"));
  const WString taken = scratch.Write(W("b.txt"), "old");
  FileDataWriter writer;
  writer.Open(first, false);
  WriteText(writer, "one");
  EXPECT_EQ(OpenWriterFailure(writer, taken, false),
            (Thrown{ERROR_FILE_EXISTS, "Unable to open file for writing : " + ToUtf8(taken)}));
  EXPECT_EQ(scratch.Read(W("a.txt")), "one");
  EXPECT_EQ(FailureOf(DeleteFileW(first.c_str())), kNoFailure);
}

TEST(FileDataWriter, OthersMayReadAndWriteAnOpenFileButNotDeleteOrMoveIt) {
  const ScratchFolder scratch;
  const WString path = scratch.Path(W("a.txt"));
  FileDataWriter writer;
  writer.Open(path, false);
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING)), kNoFailure);
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_WRITE, OPEN_EXISTING)), kNoFailure);
  EXPECT_EQ(FailureOf(DeleteFileW(path.c_str())), DWORD{ERROR_SHARING_VIOLATION});
  EXPECT_EQ(FailureOf(MoveFileW(path.c_str(), scratch.Path(W("b.txt")).c_str())),
            DWORD{ERROR_SHARING_VIOLATION});
}

TEST(FileDataWriter, WriteWithoutAnOpenFileThrows) {
  FileDataWriter writer;
  EXPECT_EQ(ThrownBy<WQDataReaderException>([&] { writer.WriteBlock("a", 1); }),
            (Thrown{ERROR_INVALID_HANDLE, "Failed to write data to file"}));
}
