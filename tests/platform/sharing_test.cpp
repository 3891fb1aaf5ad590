// Share modes: which opens, moves and deletes of an open file succeed.

#include <gtest/gtest.h>

#include <string_view>

#include "platform/handles.h"
#include "platform/outcome.h"
#include "support/scratch_folder.h"

namespace {

constexpr DWORD kNone = 0;
constexpr DWORD kBoth = GENERIC_READ | GENERIC_WRITE;

// The accesses of the second handle. Each is tried with the eight share modes, from none (0) to read, write
// and delete (7).
constexpr DWORD kAccesses[] = {GENERIC_READ, GENERIC_WRITE, kBoth, kNone};

struct ShareRow {
  DWORD access;
  DWORD share;
  // One character for each share mode, 0 to 7, of the second handle: '1' if it opens.
  std::string_view read;
  std::string_view write;
  std::string_view both;
  std::string_view none;
};

constexpr ShareRow kShareRows[] = {
    {GENERIC_READ, 0, "00000000", "00000000", "00000000", "11111111"},
    {GENERIC_READ, 1, "01010101", "00000000", "00000000", "11111111"},
    {GENERIC_READ, 2, "00000000", "01010101", "00000000", "11111111"},
    {GENERIC_READ, 3, "01010101", "01010101", "01010101", "11111111"},
    {GENERIC_READ, 4, "00000000", "00000000", "00000000", "11111111"},
    {GENERIC_READ, 5, "01010101", "00000000", "00000000", "11111111"},
    {GENERIC_READ, 6, "00000000", "01010101", "00000000", "11111111"},
    {GENERIC_READ, 7, "01010101", "01010101", "01010101", "11111111"},
    {GENERIC_WRITE, 0, "00000000", "00000000", "00000000", "11111111"},
    {GENERIC_WRITE, 1, "00110011", "00000000", "00000000", "11111111"},
    {GENERIC_WRITE, 2, "00000000", "00110011", "00000000", "11111111"},
    {GENERIC_WRITE, 3, "00110011", "00110011", "00110011", "11111111"},
    {GENERIC_WRITE, 4, "00000000", "00000000", "00000000", "11111111"},
    {GENERIC_WRITE, 7, "00110011", "00110011", "00110011", "11111111"},
    {kBoth, 0, "00000000", "00000000", "00000000", "11111111"},
    {kBoth, 1, "00010001", "00000000", "00000000", "11111111"},
    {kBoth, 2, "00000000", "00010001", "00000000", "11111111"},
    {kBoth, 3, "00010001", "00010001", "00010001", "11111111"},
    {kBoth, 4, "00000000", "00000000", "00000000", "11111111"},
    {kBoth, 7, "00010001", "00010001", "00010001", "11111111"},
    {kNone, 0, "11111111", "11111111", "11111111", "11111111"},
    {kNone, 7, "11111111", "11111111", "11111111", "11111111"},
};

class SharingTest : public testing::Test {
 protected:
  SharingTest() : path_(scratch_.Write(W("a.txt"), "abc")) {}

  FileHandle Open(DWORD access, DWORD share, DWORD creation = OPEN_EXISTING) {
    return FileHandle(OpenFor(path_.c_str(), access, creation, share));
  }

  ScratchFolder scratch_;
  WString path_;
};

TEST_F(SharingTest, ASecondHandleOpensWhereEachSharesWhatTheOtherDoes) {
  for (const ShareRow& row : kShareRows) {
    const FileHandle first = Open(row.access, row.share);
    ASSERT_TRUE(first.IsOpen());
    const std::string_view expected[] = {row.read, row.write, row.both, row.none};
    for (std::size_t i = 0; i < 4; ++i) {
      for (DWORD share = 0; share < 8; ++share) {
        const DWORD failure = FailureOfOpen(OpenFor(path_.c_str(), kAccesses[i], OPEN_EXISTING, share));
        EXPECT_EQ(failure, expected[i][share] == '1' ? kNoFailure : 32u)
            << "open " << row.access << " shares " << row.share << ", then " << kAccesses[i] << " shares "
            << share;
      }
    }
  }
}

TEST_F(SharingTest, AllHandlesThatAreOpenCount) {
  FileHandle reader = Open(GENERIC_READ, FILE_SHARE_READ);
  const FileHandle other = Open(GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
  EXPECT_EQ(FailureOfOpen(OpenFor(path_.c_str(), GENERIC_WRITE, OPEN_EXISTING)), 32u);
  reader.Reset();
  EXPECT_EQ(FailureOfOpen(OpenFor(path_.c_str(), GENERIC_WRITE, OPEN_EXISTING)), kNoFailure);
}

TEST_F(SharingTest, ClosingFreesTheFile) {
  FileHandle file = Open(kBoth, 0);
  EXPECT_EQ(FailureOfOpen(OpenFor(path_.c_str(), GENERIC_READ, OPEN_EXISTING)), 32u);
  file.Reset();
  EXPECT_EQ(FailureOfOpen(OpenFor(path_.c_str(), GENERIC_READ, OPEN_EXISTING)), kNoFailure);
}

TEST_F(SharingTest, ARefusedOpenDoesNotEmptyTheFile) {
  const FileHandle file = Open(GENERIC_READ, FILE_SHARE_READ);
  EXPECT_EQ(FailureOfOpen(OpenFor(path_.c_str(), GENERIC_WRITE, CREATE_ALWAYS)), 32u);
  EXPECT_EQ(FailureOfOpen(OpenFor(path_.c_str(), GENERIC_WRITE, TRUNCATE_EXISTING)), 32u);
  EXPECT_EQ(scratch_.Read(W("a.txt")), "abc");
}

TEST_F(SharingTest, AFileThatIsOpenMovesAndGoesOnlyIfThatIsShared) {
  const WString target = scratch_.Path(W("b.txt"));
  for (const DWORD share : {0u, 1u, 2u, 3u}) {
    const FileHandle file = Open(GENERIC_READ, share);
    EXPECT_EQ(FailureOf(MoveFileW(path_.c_str(), target.c_str())), 32u) << share;
    EXPECT_EQ(FailureOf(DeleteFileW(path_.c_str())), 32u) << share;
  }
  EXPECT_EQ(scratch_.Read(W("a.txt")), "abc");
  {
    const FileHandle file = Open(GENERIC_READ, FILE_SHARE_DELETE);
    EXPECT_TRUE(MoveFileW(path_.c_str(), target.c_str()));
    EXPECT_TRUE(MoveFileW(target.c_str(), path_.c_str()));
    EXPECT_TRUE(DeleteFileW(path_.c_str()));
  }
  EXPECT_FALSE(scratch_.Exists(W("a.txt")));
}

TEST_F(SharingTest, AHandleWithoutAccessHindersNobody) {
  {
    const FileHandle file = Open(kNone, 0);
    EXPECT_TRUE(file.IsOpen());
    EXPECT_TRUE(MoveFileW(path_.c_str(), scratch_.Path(W("b.txt")).c_str()));
    EXPECT_TRUE(DeleteFileW(scratch_.Path(W("b.txt")).c_str()));
  }
  EXPECT_EQ(scratch_.Names(), std::vector<WString>{});
}

TEST_F(SharingTest, AMovedFileStaysWhatItIsToItsHandle) {
  const FileHandle file = Open(GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE);
  ASSERT_TRUE(MoveFileW(path_.c_str(), scratch_.Path(W("b.txt")).c_str()));
  EXPECT_EQ(FailureOfOpen(OpenFor(scratch_.Path(W("b.txt")).c_str(), GENERIC_WRITE, OPEN_EXISTING)), 32u);
  char bytes[3] = {};
  DWORD done = 0;
  EXPECT_TRUE(ReadFile(file.Get(), bytes, 3, &done, nullptr));
  EXPECT_EQ(std::string(bytes, done), "abc");
}

TEST_F(SharingTest, ATargetThatIsOpenIsStillInTheWay) {
  const FileHandle file = Open(GENERIC_READ, 0);
  const WString other = scratch_.Write(W("b.txt"), "other");
  EXPECT_EQ(FailureOf(MoveFileW(other.c_str(), path_.c_str())), 183u);
}

TEST_F(SharingTest, OtherFilesAreNotConcerned) {
  const FileHandle file = Open(kBoth, 0);
  const WString other = scratch_.Write(W("b.txt"), "other");
  EXPECT_EQ(FailureOfOpen(OpenFor(other.c_str(), kBoth, OPEN_EXISTING, 0)), kNoFailure);
  EXPECT_TRUE(DeleteFileW(other.c_str()));
}

}  // namespace
