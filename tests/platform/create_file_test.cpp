// CreateFileW and CloseHandle: what they open, create and refuse.

#include <gtest/gtest.h>

#include "platform/handles.h"
#include "platform/outcome.h"
#include "support/scratch_folder.h"

namespace {

class CreateFileTest : public testing::Test {
 protected:
  ScratchFolder scratch_;
};

TEST_F(CreateFileTest, CreateNewMakesAnEmptyFileAndRefusesOneThatIsThere) {
  const WString path = scratch_.Path(W("a.txt"));
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_WRITE, CREATE_NEW)), kNoFailure);
  EXPECT_EQ(scratch_.Read(W("a.txt")), "");
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_WRITE, CREATE_NEW)), 80u);
}

TEST_F(CreateFileTest, CreateAlwaysEmptiesAFileAndReportsThatItExisted) {
  const WString path = scratch_.Write(W("a.txt"), "old text");
  SetLastError(7);
  const FileHandle existing(OpenFor(path.c_str(), GENERIC_WRITE, CREATE_ALWAYS));
  EXPECT_EQ(GetLastError(), 183u);
  EXPECT_TRUE(existing.IsOpen());
  EXPECT_EQ(scratch_.Read(W("a.txt")), "");
  SetLastError(7);
  const FileHandle fresh(OpenFor(scratch_.Path(W("b.txt")).c_str(), GENERIC_WRITE, CREATE_ALWAYS));
  EXPECT_EQ(GetLastError(), 0u);
  EXPECT_TRUE(fresh.IsOpen());
}

TEST_F(CreateFileTest, CreateAlwaysEmptiesAFileThatIsOpenedForReading) {
  const WString path = scratch_.Write(W("a.txt"), "old text");
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_READ, CREATE_ALWAYS)), kNoFailure);
  EXPECT_EQ(scratch_.Read(W("a.txt")), "");
}

TEST_F(CreateFileTest, OpenAlwaysKeepsAFileAndReportsThatItExisted) {
  const WString path = scratch_.Write(W("a.txt"), "old text");
  SetLastError(7);
  const FileHandle existing(OpenFor(path.c_str(), GENERIC_WRITE, OPEN_ALWAYS));
  EXPECT_EQ(GetLastError(), 183u);
  EXPECT_TRUE(existing.IsOpen());
  EXPECT_EQ(scratch_.Read(W("a.txt")), "old text");
  SetLastError(7);
  const FileHandle fresh(OpenFor(scratch_.Path(W("b.txt")).c_str(), GENERIC_WRITE, OPEN_ALWAYS));
  EXPECT_EQ(GetLastError(), 0u);
  EXPECT_TRUE(fresh.IsOpen());
}

TEST_F(CreateFileTest, OpenExistingLeavesTheLastErrorAtZero) {
  const WString path = scratch_.Write(W("a.txt"), "text");
  SetLastError(7);
  const FileHandle file(OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING));
  EXPECT_EQ(GetLastError(), 0u);
  EXPECT_TRUE(file.IsOpen());
}

TEST_F(CreateFileTest, TruncateExistingEmptiesAFileAndMakesNone) {
  const WString path = scratch_.Write(W("a.txt"), "old text");
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_WRITE, TRUNCATE_EXISTING)), kNoFailure);
  EXPECT_EQ(scratch_.Read(W("a.txt")), "");
  const WString missing = scratch_.Path(W("b.txt"));
  EXPECT_EQ(FailureOfOpen(OpenFor(missing.c_str(), GENERIC_WRITE, TRUNCATE_EXISTING)), 2u);
  EXPECT_FALSE(scratch_.Exists(W("b.txt")));
}

TEST_F(CreateFileTest, AMissingFileIs2AndAMissingFolderIs3) {
  scratch_.Write(W("a.txt"), "x");
  EXPECT_EQ(FailureOfOpen(OpenFor(scratch_.Path(W("b")).c_str(), GENERIC_READ, OPEN_EXISTING)), 2u);
  EXPECT_EQ(FailureOfOpen(OpenFor(scratch_.Path(W("b\\c")).c_str(), GENERIC_READ, OPEN_EXISTING)), 3u);
  EXPECT_EQ(FailureOfOpen(OpenFor(scratch_.Path(W("a.txt\\c")).c_str(), GENERIC_READ, OPEN_EXISTING)), 3u);
  for (const DWORD creation : {CREATE_NEW, CREATE_ALWAYS, OPEN_ALWAYS}) {
    EXPECT_EQ(FailureOfOpen(OpenFor(scratch_.Path(W("b\\c")).c_str(), GENERIC_WRITE, DWORD(creation))), 3u);
  }
}

TEST_F(CreateFileTest, AFolderIsNoFile) {
  const WString folder = scratch_.MakeFolder(W("sub"));
  EXPECT_EQ(FailureOfOpen(OpenFor(folder.c_str(), GENERIC_READ, OPEN_EXISTING)), 5u);
  EXPECT_EQ(FailureOfOpen(OpenFor(folder.c_str(), 0, OPEN_EXISTING)), 5u);
  EXPECT_EQ(FailureOfOpen(OpenFor(folder.c_str(), GENERIC_WRITE, CREATE_ALWAYS)), 5u);
  EXPECT_EQ(FailureOfOpen(OpenFor(folder.c_str(), GENERIC_WRITE, CREATE_NEW)), 80u);
  EXPECT_EQ(FailureOfOpen(OpenFor((folder + W("\\")).c_str(), GENERIC_READ, OPEN_EXISTING)), 5u);
}

TEST_F(CreateFileTest, ABackslashAtTheEndNamesNoFile) {
  const WString path = scratch_.Write(W("a.txt"), "x") + W("\\");
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING)), 123u);
  const WString fresh = scratch_.Path(W("b.txt\\"));
  EXPECT_EQ(FailureOfOpen(OpenFor(fresh.c_str(), GENERIC_WRITE, CREATE_NEW)), 123u);
  EXPECT_EQ(FailureOfOpen(OpenFor(fresh.c_str(), GENERIC_READ, OPEN_EXISTING)), 2u);
  EXPECT_EQ(scratch_.Names(), std::vector<WString>{W("a.txt")});
}

TEST_F(CreateFileTest, AnUnknownCreationIsRefused) {
  const WString path = scratch_.Write(W("a.txt"), "x");
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_READ, 0)), 87u);
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_READ, 6)), 87u);
}

TEST_F(CreateFileTest, AReadOnlyFileOpensForReadingAlone) {
  const WString path = scratch_.Write(W("a.txt"), "x");
  ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING)), kNoFailure);
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_WRITE, CREATE_NEW)), 80u);
}

TEST_F(CreateFileTest, AFileCanBeMadeReadOnlyAndIsStillWrittenByItsMaker) {
  const WString path = scratch_.Path(W("a.txt"));
  FileHandle file(
      CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_READONLY, nullptr));
  ASSERT_TRUE(file.IsOpen());
  DWORD done = 0;
  EXPECT_TRUE(WriteFile(file.Get(), "abc", 3, &done, nullptr));
  file.Reset();
  EXPECT_EQ(GetFileAttributesW(path.c_str()), 0x21u);
  EXPECT_EQ(scratch_.Read(W("a.txt")), "abc");
}

TEST_F(CreateFileTest, AHandleClosesOnce) {
  const WString path = scratch_.Write(W("a.txt"), "x");
  const HANDLE handle = OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING);
  ASSERT_NE(handle, INVALID_HANDLE_VALUE);
  EXPECT_TRUE(CloseHandle(handle));
  EXPECT_EQ(FailureOf(CloseHandle(handle)), 6u);
  EXPECT_EQ(FailureOf(CloseHandle(nullptr)), 6u);
}

TEST_F(CreateFileTest, AnOwnedHandleClosesAtTheEndOfItsScopeAndOnMoves) {
  const WString path = scratch_.Write(W("a.txt"), "x");
  const auto isFree = [&path] {
    return FailureOfOpen(CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr)) ==
           kNoFailure;
  };
  {
    FileHandle first(OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING));
    EXPECT_FALSE(isFree());
    FileHandle second(std::move(first));
    EXPECT_FALSE(first.IsOpen());
    EXPECT_TRUE(second.IsOpen());
    EXPECT_FALSE(isFree());
    second = FileHandle();
    EXPECT_TRUE(isFree());
    second.Reset(OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING));
    EXPECT_FALSE(isFree());
  }
  EXPECT_TRUE(isFree());
  FileHandle given(OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING));
  const HANDLE detached = given.Detach();
  given.Reset();
  EXPECT_FALSE(isFree());
  EXPECT_TRUE(CloseHandle(detached));
  EXPECT_TRUE(isFree());
}

}  // namespace
