// ReadFile, WriteFile, SetFilePointer, GetFileSizeEx, GetFileInformationByHandle.

#include <gtest/gtest.h>

#include <array>

#include "platform/handles.h"
#include "platform/outcome.h"
#include "support/scratch_folder.h"

namespace {

class FileIoTest : public testing::Test {
 protected:
  FileHandle Open(DWORD access) {
    return FileHandle(OpenFor(scratch_.Path(W("a.txt")).c_str(), access, OPEN_ALWAYS));
  }

  // Returns the bytes that ReadFile stores for a request of `count` bytes.
  static std::string Read(const FileHandle& file, DWORD count) {
    std::string bytes(count, '\0');
    DWORD done = 77;
    EXPECT_TRUE(ReadFile(file.Get(), bytes.data(), count, &done, nullptr));
    bytes.resize(done);
    return bytes;
  }

  ScratchFolder scratch_;
};

TEST_F(FileIoTest, ReadingGoesOnWhereItStoppedAndEndsWithNoBytes) {
  scratch_.Write(W("a.txt"), "abcdefg");
  const FileHandle file = Open(GENERIC_READ);
  EXPECT_EQ(Read(file, 3), "abc");
  EXPECT_EQ(Read(file, 0), "");
  EXPECT_EQ(Read(file, 100), "defg");
  EXPECT_EQ(Read(file, 100), "");
}

TEST_F(FileIoTest, WritingGoesOnWhereItStoppedAndOverwrites) {
  scratch_.Write(W("a.txt"), "abcdefg");
  const FileHandle file = Open(GENERIC_WRITE);
  DWORD done = 77;
  EXPECT_TRUE(WriteFile(file.Get(), "XY", 2, &done, nullptr));
  EXPECT_EQ(done, 2u);
  EXPECT_TRUE(WriteFile(file.Get(), "", 0, &done, nullptr));
  EXPECT_EQ(done, 0u);
  EXPECT_TRUE(WriteFile(file.Get(), "Z", 1, &done, nullptr));
  EXPECT_EQ(scratch_.Read(W("a.txt")), "XYZdefg");
}

TEST_F(FileIoTest, TheCountDoneNeedNotBeAskedFor) {
  const FileHandle file = Open(GENERIC_READ | GENERIC_WRITE);
  EXPECT_TRUE(WriteFile(file.Get(), "abc", 3, nullptr, nullptr));
  EXPECT_EQ(SetFilePointer(file.Get(), 0, nullptr, FILE_BEGIN), 0u);
  char bytes[3] = {};
  EXPECT_TRUE(ReadFile(file.Get(), bytes, 3, nullptr, nullptr));
  EXPECT_EQ(std::string(bytes, 3), "abc");
}

TEST_F(FileIoTest, BytesAreTakenAsTheyAre) {
  std::string all;
  for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
  const FileHandle file = Open(GENERIC_READ | GENERIC_WRITE);
  EXPECT_TRUE(WriteFile(file.Get(), all.data(), 256, nullptr, nullptr));
  EXPECT_EQ(scratch_.Read(W("a.txt")), all);
  SetFilePointer(file.Get(), 0, nullptr, FILE_BEGIN);
  EXPECT_EQ(Read(file, 300), all);
}

TEST_F(FileIoTest, AHandleWithoutTheAccessIsRefused) {
  scratch_.Write(W("a.txt"), "abc");
  char byte = 0;
  DWORD done = 77;
  const FileHandle writer = Open(GENERIC_WRITE);
  EXPECT_EQ(FailureOf(ReadFile(writer.Get(), &byte, 1, &done, nullptr)), 5u);
  EXPECT_EQ(done, 0u);
  EXPECT_EQ(FailureOf(ReadFile(writer.Get(), &byte, 0, &done, nullptr)), 5u);
  const FileHandle reader = Open(GENERIC_READ);
  done = 77;
  EXPECT_EQ(FailureOf(WriteFile(reader.Get(), "x", 1, &done, nullptr)), 5u);
  EXPECT_EQ(done, 0u);
  EXPECT_EQ(FailureOf(WriteFile(reader.Get(), "x", 0, &done, nullptr)), 5u);
  const FileHandle neither = Open(0);
  EXPECT_EQ(FailureOf(ReadFile(neither.Get(), &byte, 1, &done, nullptr)), 5u);
  EXPECT_EQ(FailureOf(WriteFile(neither.Get(), "x", 1, &done, nullptr)), 5u);
  LARGE_INTEGER size;
  EXPECT_TRUE(GetFileSizeEx(neither.Get(), &size));
  EXPECT_EQ(size.QuadPart, 3);
  EXPECT_EQ(scratch_.Read(W("a.txt")), "abc");
}

TEST_F(FileIoTest, WhatIsNoHandleIsRefused) {
  char byte = 0;
  DWORD done = 0;
  LARGE_INTEGER size;
  BY_HANDLE_FILE_INFORMATION information;
  for (const HANDLE handle : {static_cast<HANDLE>(nullptr), INVALID_HANDLE_VALUE}) {
    EXPECT_EQ(FailureOf(ReadFile(handle, &byte, 1, &done, nullptr)), 6u);
    EXPECT_EQ(FailureOf(WriteFile(handle, &byte, 1, &done, nullptr)), 6u);
    EXPECT_EQ(FailureOf(GetFileSizeEx(handle, &size)), 6u);
    EXPECT_EQ(FailureOf(GetFileInformationByHandle(handle, &information)), 6u);
    EXPECT_EQ(FailureOfValue(SetFilePointer(handle, 0, nullptr, FILE_BEGIN)), 6u);
  }
  HANDLE closed = Open(GENERIC_READ).Get();
  EXPECT_EQ(FailureOf(ReadFile(closed, &byte, 1, &done, nullptr)), 6u);
}

TEST_F(FileIoTest, TheIndexIsThatOfTheFileUnderEachOfItsNames) {
  const WString first = scratch_.Write(W("a.txt"), "abc");
  const WString second = scratch_.Path(W("b.txt"));
  ASSERT_TRUE(CreateHardLinkW(second.c_str(), first.c_str(), nullptr));
  const WString copy = scratch_.Write(W("c.txt"), "abc");
  const WString folder = scratch_.MakeFolder(W("folder"));
  const auto indexOf = [](const WString& path) {
    const FileHandle file(
        CreateFileW(path.c_str(), 0, 7, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION information = {};
    EXPECT_TRUE(GetFileInformationByHandle(file.Get(), &information)) << ToUtf8(path);
    return std::array{information.dwVolumeSerialNumber, information.nFileIndexHigh,
                      information.nFileIndexLow};
  };
  EXPECT_EQ(indexOf(first), indexOf(second));
  EXPECT_NE(indexOf(first), indexOf(copy));
  EXPECT_NE(indexOf(first), indexOf(folder));
  EXPECT_EQ(indexOf(folder), indexOf(folder + W("\\.")));
  EXPECT_EQ(indexOf(first)[0], indexOf(folder)[0]) << "both are on one volume";
}

TEST_F(FileIoTest, TheSizeIsThatOfTheFileNow) {
  const FileHandle file = Open(GENERIC_WRITE);
  LARGE_INTEGER size;
  EXPECT_TRUE(GetFileSizeEx(file.Get(), &size));
  EXPECT_EQ(size.QuadPart, 0);
  WriteFile(file.Get(), "abc", 3, nullptr, nullptr);
  EXPECT_TRUE(GetFileSizeEx(file.Get(), &size));
  EXPECT_EQ(size.QuadPart, 3);
}

TEST_F(FileIoTest, ThePointerMovesFromTheBeginningTheCurrentPlaceAndTheEnd) {
  scratch_.Write(W("a.txt"), "abcdefg");
  const FileHandle file = Open(GENERIC_READ);
  EXPECT_EQ(SetFilePointer(file.Get(), 2, nullptr, FILE_BEGIN), 2u);
  EXPECT_EQ(Read(file, 1), "c");
  EXPECT_EQ(SetFilePointer(file.Get(), -2, nullptr, FILE_CURRENT), 1u);
  EXPECT_EQ(Read(file, 1), "b");
  EXPECT_EQ(SetFilePointer(file.Get(), -1, nullptr, FILE_END), 6u);
  EXPECT_EQ(Read(file, 9), "g");
  EXPECT_EQ(SetFilePointer(file.Get(), 0, nullptr, FILE_CURRENT), 7u);
}

TEST_F(FileIoTest, ThePointerMayBeBeyondTheEndAndWritingFillsWithZeros) {
  const FileHandle file = Open(GENERIC_WRITE);
  EXPECT_EQ(SetFilePointer(file.Get(), 3, nullptr, FILE_BEGIN), 3u);
  EXPECT_TRUE(WriteFile(file.Get(), "x", 1, nullptr, nullptr));
  EXPECT_EQ(scratch_.Read(W("a.txt")), std::string("\0\0\0x", 4));
}

TEST_F(FileIoTest, ThePointerCannotMoveBeforeTheBeginning) {
  scratch_.Write(W("a.txt"), "abcdefg");
  const FileHandle file = Open(GENERIC_READ);
  SetFilePointer(file.Get(), 4, nullptr, FILE_BEGIN);
  EXPECT_EQ(FailureOfValue(SetFilePointer(file.Get(), -1, nullptr, FILE_BEGIN)), 131u);
  EXPECT_EQ(FailureOfValue(SetFilePointer(file.Get(), -5, nullptr, FILE_CURRENT)), 131u);
  EXPECT_EQ(FailureOfValue(SetFilePointer(file.Get(), -8, nullptr, FILE_END)), 131u);
  LONG high = -1;
  EXPECT_EQ(FailureOfValue(SetFilePointer(file.Get(), -1, &high, FILE_BEGIN)), 131u);
  EXPECT_EQ(SetFilePointer(file.Get(), 0, nullptr, FILE_CURRENT), 4u);
}

TEST_F(FileIoTest, ThePointerHas64Bits) {
  const FileHandle file = Open(GENERIC_READ);
  LONG high = 1;
  EXPECT_EQ(SetFilePointer(file.Get(), 5, &high, FILE_BEGIN), 5u);
  EXPECT_EQ(high, 1);
  high = 0;
  EXPECT_EQ(SetFilePointer(file.Get(), 0, &high, FILE_CURRENT), 5u);
  EXPECT_EQ(high, 1);
  high = 0;
  EXPECT_EQ(SetFilePointer(file.Get(), -2, &high, FILE_BEGIN), 0xFFFFFFFEu);
  EXPECT_EQ(high, 0);
}

TEST_F(FileIoTest, ALowHalfOfAllOnesIsDistinguishedFromAFailureByTheLastError) {
  const FileHandle file = Open(GENERIC_READ);
  SetLastError(7);
  LONG high = 0;
  EXPECT_EQ(SetFilePointer(file.Get(), -1, &high, FILE_BEGIN), 0xFFFFFFFFu);
  EXPECT_EQ(GetLastError(), 0u);
}

TEST_F(FileIoTest, AnUnknownMethodIsRefused) {
  const FileHandle file = Open(GENERIC_READ);
  EXPECT_EQ(FailureOfValue(SetFilePointer(file.Get(), 0, nullptr, 3)), 87u);
}

TEST_F(FileIoTest, TwoHandlesOfOneFileHaveTwoPointers) {
  scratch_.Write(W("a.txt"), "abcdefg");
  const FileHandle first = Open(GENERIC_READ);
  const FileHandle second = Open(GENERIC_READ);
  EXPECT_EQ(Read(first, 3), "abc");
  EXPECT_EQ(Read(second, 2), "ab");
  EXPECT_EQ(Read(first, 1), "d");
}

}  // namespace
