// MoveFileW.

#include <gtest/gtest.h>

#include "platform/outcome.h"
#include "support/scratch_folder.h"

namespace {

class MoveFileTest : public testing::Test {
 protected:
  DWORD Move(WStringView from, WStringView to) {
    return FailureOf(MoveFileW(scratch_.Path(from).c_str(), scratch_.Path(to).c_str()));
  }

  ScratchFolder scratch_;
};

TEST_F(MoveFileTest, AFileTakesItsNewName) {
  scratch_.Write(W("a.txt"), "abc");
  EXPECT_EQ(Move(W("a.txt"), W("b.txt")), kNoFailure);
  EXPECT_EQ(scratch_.Names(), std::vector<WString>{W("b.txt")});
  EXPECT_EQ(scratch_.Read(W("b.txt")), "abc");
}

TEST_F(MoveFileTest, AFileGoesToAnotherFolder) {
  scratch_.Write(W("a.txt"), "abc");
  scratch_.MakeFolder(W("sub"));
  EXPECT_EQ(Move(W("a.txt"), W("sub\\a.txt")), kNoFailure);
  EXPECT_EQ(scratch_.Read(W("sub\\a.txt")), "abc");
  EXPECT_FALSE(scratch_.Exists(W("a.txt")));
}

TEST_F(MoveFileTest, ATargetThatIsThereStays) {
  scratch_.Write(W("a.txt"), "a");
  scratch_.Write(W("b.txt"), "b");
  scratch_.MakeFolder(W("sub"));
  scratch_.MakeFolder(W("empty"));
  EXPECT_EQ(Move(W("a.txt"), W("b.txt")), 183u);
  EXPECT_EQ(Move(W("a.txt"), W("sub")), 183u);
  EXPECT_EQ(Move(W("sub"), W("a.txt")), 183u);
  EXPECT_EQ(Move(W("sub"), W("empty")), 183u);
  EXPECT_EQ(scratch_.Read(W("a.txt")), "a");
  EXPECT_EQ(scratch_.Read(W("b.txt")), "b");
  EXPECT_TRUE(scratch_.Exists(W("sub")));
}

TEST_F(MoveFileTest, AFileMovesToItself) {
  scratch_.Write(W("a.txt"), "abc");
  EXPECT_EQ(Move(W("a.txt"), W("a.txt")), kNoFailure);
  EXPECT_EQ(scratch_.Read(W("a.txt")), "abc");
}

// Wine returns success without changing the name; move_file_test_posix.cpp tests that it changes.
TEST_F(MoveFileTest, TheCaseOfLettersCanChange) {
  scratch_.Write(W("a.txt"), "abc");
  scratch_.MakeFolder(W("sub"));
  EXPECT_EQ(Move(W("a.txt"), W("A.TXT")), kNoFailure);
  EXPECT_EQ(Move(W("sub"), W("Sub")), kNoFailure);
  EXPECT_EQ(GetFileAttributesW(scratch_.Path(W("A.TXT")).c_str()), 0x20u);
  EXPECT_EQ(GetFileAttributesW(scratch_.Path(W("Sub")).c_str()), 0x10u);
}

TEST_F(MoveFileTest, AFolderTakesItsContentsAlong) {
  scratch_.MakeFolder(W("sub\\inner"));
  scratch_.Write(W("sub\\inner\\a.txt"), "abc");
  EXPECT_EQ(Move(W("sub"), W("other")), kNoFailure);
  EXPECT_EQ(scratch_.Read(W("other\\inner\\a.txt")), "abc");
  EXPECT_FALSE(scratch_.Exists(W("sub")));
  EXPECT_EQ(Move(W("other\\"), W("back\\")), kNoFailure);
  EXPECT_EQ(scratch_.Read(W("back\\inner\\a.txt")), "abc");
}

TEST_F(MoveFileTest, AFolderDoesNotGoIntoItself) {
  scratch_.MakeFolder(W("sub"));
  EXPECT_EQ(Move(W("sub"), W("sub\\inner")), 87u);
  EXPECT_TRUE(scratch_.Exists(W("sub")));
}

TEST_F(MoveFileTest, AMissingSourceIs2AndAMissingFolderIs3) {
  scratch_.Write(W("a.txt"), "abc");
  scratch_.Write(W("b.txt"), "abc");
  EXPECT_EQ(Move(W("nosuch"), W("x")), 2u);
  EXPECT_EQ(Move(W("nosuch\\a"), W("x")), 3u);
  EXPECT_EQ(Move(W("a.txt\\a"), W("x")), 3u);
  EXPECT_EQ(Move(W("a.txt"), W("nosuch\\x")), 3u);
  EXPECT_EQ(Move(W("a.txt"), W("b.txt\\x")), 3u);
  EXPECT_EQ(Move(W("a.txt"), W("a.txt\\x")), 3u);
  EXPECT_EQ(Move(W("nosuch"), W("a.txt")), 2u);
  EXPECT_EQ(Move(W("nosuch"), W("nosuch2\\x")), 2u);
  EXPECT_EQ(scratch_.Names(), (std::vector<WString>{W("a.txt"), W("b.txt")}));
}

TEST_F(MoveFileTest, ABackslashAtTheEndNamesNoFile) {
  scratch_.Write(W("a.txt"), "abc");
  scratch_.MakeFolder(W("sub"));
  EXPECT_EQ(Move(W("a.txt\\"), W("b.txt")), 123u);
  EXPECT_EQ(Move(W("a.txt"), W("b.txt\\")), 267u);
  EXPECT_EQ(Move(W("a.txt"), W("sub\\")), 183u);
  EXPECT_EQ(scratch_.Read(W("a.txt")), "abc");
}

TEST_F(MoveFileTest, AReadOnlyFileMovesAndStaysReadOnly) {
  const WString path = scratch_.Write(W("a.txt"), "abc");
  ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_EQ(Move(W("a.txt"), W("b.txt")), kNoFailure);
  EXPECT_EQ(GetFileAttributesW(scratch_.Path(W("b.txt")).c_str()), 0x21u);
}

TEST_F(MoveFileTest, AFolderWithAReadOnlyFileMoves) {
  scratch_.MakeFolder(W("sub"));
  const WString path = scratch_.Write(W("sub\\a.txt"), "abc");
  ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
  ASSERT_TRUE(SetFileAttributesW(scratch_.Path(W("sub")).c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_EQ(Move(W("sub"), W("other")), kNoFailure);
  EXPECT_EQ(scratch_.Read(W("other\\a.txt")), "abc");
}

TEST_F(MoveFileTest, AFolderWithAnOpenFileMoves) {
  scratch_.MakeFolder(W("sub"));
  const WString path = scratch_.Write(W("sub\\a.txt"), "abc");
  const HANDLE file = OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING, 0);
  EXPECT_EQ(Move(W("sub"), W("other")), kNoFailure);
  EXPECT_TRUE(CloseHandle(file));
}

}  // namespace
