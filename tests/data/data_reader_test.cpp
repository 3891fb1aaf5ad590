// Readers of files and of memory: the bytes that they return, and the exceptions for files that cannot be
// read.
#include "data/data_reader.h"

#include <gtest/gtest.h>

#include <cstring>
#include <optional>
#include <type_traits>

#include "data/thrown.h"
#include "platform/outcome.h"
#include "platform/windows_api.h"
#include "support/scratch_folder.h"

using WQDR::DataReader;
using WQDR::FileDataReader;
using WQDR::MemoryDataReader;
using WQDR::WQDataReaderException;

namespace {

constexpr std::uint32_t kUnset = 0xDDDDDDDD;

// Reads up to `toRead` bytes, and checks that the buffer is unchanged after the returned ones.
std::string ReadSome(DataReader& reader, std::uint32_t toRead) {
  char buffer[64];
  std::memset(buffer, '?', sizeof buffer);
  std::uint32_t bytesRead = kUnset;
  reader.Read(buffer, toRead, &bytesRead);
  if (bytesRead > toRead || bytesRead > sizeof buffer) {
    ADD_FAILURE() << bytesRead << " bytes of " << toRead;
    return {};
  }
  for (std::size_t i = bytesRead; i < sizeof buffer; ++i) EXPECT_EQ(buffer[i], '?') << i;
  return {buffer, bytesRead};
}

Thrown OpenFailure(const WString& path) {
  return ThrownBy<WQDataReaderException>([&] { const FileDataReader reader(path); });
}

// Returns the message of a failed open, for a path of ASCII characters.
std::string OpenMessage(const WString& path) { return "Unable to open file : " + ToUtf8(path); }

}  // namespace

// Readers are local variables of the loading functions; they are never deleted through the base class.
static_assert(!std::has_virtual_destructor_v<DataReader>);

TEST(MemoryDataReader, DeliversTheBlockInPortions) {
  MemoryDataReader reader("abcdefg", 7);
  EXPECT_EQ(reader.size, 7u);
  EXPECT_EQ(ReadSome(reader, 3), "abc");
  EXPECT_EQ(ReadSome(reader, 0), "");
  EXPECT_EQ(ReadSome(reader, 1), "d");
  EXPECT_EQ(ReadSome(reader, 3), "efg");
  EXPECT_EQ(reader.size, 7u);
}

TEST(MemoryDataReader, DeliversOnlyWhatIsLeftAndThenNothing) {
  MemoryDataReader reader("abcdefg", 5);
  EXPECT_EQ(ReadSome(reader, 4), "abcd");
  EXPECT_EQ(ReadSome(reader, 4), "e");
  EXPECT_EQ(ReadSome(reader, 4), "");
  EXPECT_EQ(ReadSome(reader, 1), "");
}

TEST(MemoryDataReader, GreatestRequestAfterTheStartReturnsOnlyTheRest) {
  for (const std::uint32_t toRead : {0xFFFFFFFFu, 0xFFFFFFFDu, 0xFFFFFFFEu, 0x80000000u}) {
    MemoryDataReader reader("abcdefg", 7);
    EXPECT_EQ(ReadSome(reader, 3), "abc");
    char buffer[8] = "???????";
    std::uint32_t bytesRead = kUnset;
    reader.Read(buffer, toRead, &bytesRead);
    EXPECT_EQ(bytesRead, 4u) << toRead;
    EXPECT_EQ(std::string(buffer), "defg???") << toRead;
  }
}

TEST(MemoryDataReader, EmptyBlockDeliversNothing) {
  MemoryDataReader reader("", 0);
  EXPECT_EQ(reader.size, 0u);
  EXPECT_EQ(ReadSome(reader, 10), "");
  MemoryDataReader noBlock(nullptr, 0);
  EXPECT_EQ(ReadSome(noBlock, 10), "");
}

TEST(MemoryDataReader, CloseChangesNothing) {
  MemoryDataReader reader("abcd", 4);
  EXPECT_EQ(ReadSome(reader, 2), "ab");
  reader.Close();
  reader.Close();
  EXPECT_EQ(ReadSome(reader, 2), "cd");
}

TEST(MemoryDataReader, FreesItsOwnBlockAndNoOther) {
  // The sanitizers detect a leak and a double delete.
  auto* const block = new unsigned char[3]{'a', 'b', 'c'};
  {
    MemoryDataReader borrowing(block, 3);
    EXPECT_EQ(ReadSome(borrowing, 3), "abc");
  }
  MemoryDataReader owning(block, 3, true);
  EXPECT_EQ(ReadSome(owning, 3), "abc");
}

TEST(MemoryDataReader, WideTextIsDeliveredAsItsBytes) {
  const WString text = W("a\u20AC");
  MemoryDataReader reader(text.data(), text.size() * 2);
  EXPECT_EQ(reader.size, 4u);
  EXPECT_EQ(ReadSome(reader, 10), std::string("a\0\xAC\x20", 4));
}

TEST(DataReaderException, KeepsACopyOfItsTextAndIsCopied) {
  std::string text = "Failed to read file";
  const WQDataReaderException first(1117, text.c_str());
  text = "something else entirely";
  const WQDataReaderException second = first;
  for (const WQDataReaderException* exception : {&first, &second}) {
    EXPECT_EQ(exception->errorCode, DWORD{ERROR_IO_DEVICE});
    EXPECT_STREQ(exception->what(), "Failed to read file");
  }
  EXPECT_NE(first.what(), second.what());
  static_assert(std::is_base_of_v<std::exception, WQDataReaderException>);
}

TEST(FileDataReader, DeliversTheFileInPortions) {
  const ScratchFolder scratch;
  FileDataReader reader(scratch.Write(W("a.txt"), std::string_view("ab\0\r\n\xFF", 6)));
  EXPECT_EQ(reader.size, 6u);
  EXPECT_EQ(ReadSome(reader, 2), "ab");
  EXPECT_EQ(ReadSome(reader, 0), "");
  EXPECT_EQ(ReadSome(reader, 10), std::string("\0\r\n\xFF", 4));
  EXPECT_EQ(ReadSome(reader, 10), "");
  EXPECT_EQ(reader.size, 6u);
}

TEST(FileDataReader, EmptyFileHasNoSizeAndDeliversNothing) {
  const ScratchFolder scratch;
  FileDataReader reader(scratch.Write(W("a.txt"), ""));
  EXPECT_EQ(reader.size, 0u);
  EXPECT_EQ(ReadSome(reader, 10), "");
}

TEST(FileDataReader, SizeIsFixedWhenTheFileIsOpened) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "abc");
  FileDataReader reader(path);
  const HANDLE writer = OpenFor(path.c_str(), GENERIC_WRITE, OPEN_EXISTING);
  ASSERT_NE(writer, INVALID_HANDLE_VALUE);
  DWORD written = 0;
  EXPECT_TRUE(WriteFile(writer, "abcdef", 6, &written, nullptr));
  CloseHandle(writer);
  EXPECT_EQ(reader.size, 3u);
}

TEST(FileDataReader, FileThatShrankDeliversLessAndThatIsNoError) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "abcdef");
  FileDataReader reader(path);
  const HANDLE writer = OpenFor(path.c_str(), GENERIC_WRITE, CREATE_ALWAYS);
  ASSERT_NE(writer, INVALID_HANDLE_VALUE);
  DWORD written = 0;
  EXPECT_TRUE(WriteFile(writer, "xy", 2, &written, nullptr));
  CloseHandle(writer);
  EXPECT_EQ(reader.size, 6u);
  EXPECT_EQ(ReadSome(reader, 6), "xy");
  EXPECT_EQ(ReadSome(reader, 6), "");
}

TEST(FileDataReader, FileThatIsOpenForWritingElsewhereIsRead) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "abc");
  const HANDLE writer = OpenFor(path.c_str(), GENERIC_WRITE, OPEN_EXISTING);
  ASSERT_NE(writer, INVALID_HANDLE_VALUE);
  FileDataReader reader(path);
  EXPECT_EQ(ReadSome(reader, 10), "abc");
  CloseHandle(writer);
}

TEST(FileDataReader, OpenFileMayBeReadAndWrittenByOthersButNotDeletedOrMoved) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "abc");
  const FileDataReader reader(path);
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING)), kNoFailure);
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_WRITE, OPEN_EXISTING)), kNoFailure);
  EXPECT_EQ(FailureOf(DeleteFileW(path.c_str())), DWORD{ERROR_SHARING_VIOLATION});
  EXPECT_EQ(FailureOf(MoveFileW(path.c_str(), scratch.Path(W("b.txt")).c_str())),
            DWORD{ERROR_SHARING_VIOLATION});
}

TEST(FileDataReader, CloseReleasesTheFile) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "abc");
  FileDataReader reader(path);
  reader.Close();
  EXPECT_EQ(reader.size, 3u);
  EXPECT_EQ(FailureOf(DeleteFileW(path.c_str())), kNoFailure);
}

TEST(FileDataReader, DestructionReleasesTheFile) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "abc");
  { const FileDataReader reader(path); }
  EXPECT_EQ(FailureOf(DeleteFileW(path.c_str())), kNoFailure);
}

TEST(FileDataReader, SecondCloseAndDestructionLeaveOtherHandlesAlone) {
  const ScratchFolder scratch;
  std::optional<FileDataReader> reader(std::in_place, scratch.Write(W("a.txt"), "abc"));
  reader->Close();
  // Takes the value of the closed handle, if the system reuses it.
  FileDataReader other(scratch.Write(W("b.txt"), "def"));
  reader->Close();
  EXPECT_EQ(ReadSome(other, 1), "d");
  reader.reset();
  EXPECT_EQ(ReadSome(other, 2), "ef");
}

TEST(FileDataReader, ReadAfterCloseFails) {
  const ScratchFolder scratch;
  FileDataReader reader(scratch.Write(W("a.txt"), "abc"));
  reader.Close();
  EXPECT_EQ(ThrownBy<WQDataReaderException>([&] { ReadSome(reader, 1); }),
            (Thrown{ERROR_INVALID_HANDLE, "Failed to read file"}));
}

TEST(FileDataReader, FileThatIsNotThereCannotBeOpened) {
  const ScratchFolder scratch;
  const WString path = scratch.Path(W("none.txt"));
  EXPECT_EQ(OpenFailure(path), (Thrown{ERROR_FILE_NOT_FOUND, OpenMessage(path)}));
  const WString below = scratch.Path(W("none\\a.txt"));
  EXPECT_EQ(OpenFailure(below), (Thrown{ERROR_PATH_NOT_FOUND, OpenMessage(below)}));
}

TEST(FileDataReader, FolderCannotBeOpened) {
  const ScratchFolder scratch;
  const WString path = scratch.MakeFolder(W("folder"));
  EXPECT_EQ(OpenFailure(path), (Thrown{ERROR_ACCESS_DENIED, OpenMessage(path)}));
}

TEST(FileDataReader, FileThatAnotherKeepsForItselfCannotBeOpened) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "abc");
  const HANDLE holder = OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING, 0);
  ASSERT_NE(holder, INVALID_HANDLE_VALUE);
  EXPECT_EQ(OpenFailure(path), (Thrown{ERROR_SHARING_VIOLATION, OpenMessage(path)}));
  CloseHandle(holder);
}

TEST(FileDataReader, MessageHasThePathInTheCodePage) {
  const ScratchFolder scratch;
  const WString path = scratch.Path(W("\u00E9\u20AC.txt"));
  EXPECT_EQ(OpenFailure(path),
            (Thrown{ERROR_FILE_NOT_FOUND, OpenMessage(scratch.Path()) + "\\\xE9\x80.txt"}));
}

TEST(FileDataReader, MessageContainsTheWholePath) {
  const ScratchFolder scratch;
  const WString path = scratch.Path(WString(150, W('f')) + W("\\") + WString(150, W('n')));
  EXPECT_EQ(OpenFailure(path), (Thrown{ERROR_PATH_NOT_FOUND, OpenMessage(path)}));
}
