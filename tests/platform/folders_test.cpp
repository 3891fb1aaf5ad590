// CreateDirectoryW, RemoveDirectoryW, DeleteFileW.

#include <gtest/gtest.h>

#include "platform/outcome.h"
#include "support/scratch_folder.h"

namespace {

class FoldersTest : public testing::Test {
 protected:
  DWORD Make(WStringView name) { return FailureOf(CreateDirectoryW(scratch_.Path(name).c_str(), nullptr)); }
  DWORD Remove(WStringView name) { return FailureOf(RemoveDirectoryW(scratch_.Path(name).c_str())); }
  DWORD Delete(WStringView name) { return FailureOf(DeleteFileW(scratch_.Path(name).c_str())); }

  ScratchFolder scratch_;
};

TEST_F(FoldersTest, AFolderIsMadeAndRemoved) {
  EXPECT_EQ(Make(W("sub")), kNoFailure);
  EXPECT_EQ(GetFileAttributesW(scratch_.Path(W("sub")).c_str()), 0x10u);
  EXPECT_EQ(Make(W("sub\\inner\\")), kNoFailure);
  EXPECT_EQ(Remove(W("sub\\inner\\")), kNoFailure);
  EXPECT_EQ(Remove(W("sub")), kNoFailure);
  EXPECT_EQ(scratch_.Names(), std::vector<WString>{});
}

TEST_F(FoldersTest, AFolderIsNotMadeWhereSomethingIs) {
  scratch_.MakeFolder(W("sub"));
  scratch_.Write(W("a.txt"), "abc");
  EXPECT_EQ(Make(W("sub")), 183u);
  EXPECT_EQ(Make(W("sub\\")), 183u);
  EXPECT_EQ(Make(W("a.txt")), 183u);
  EXPECT_EQ(scratch_.Read(W("a.txt")), "abc");
}

TEST_F(FoldersTest, AFolderIsNotMadeWithoutTheOneAboveIt) {
  scratch_.Write(W("a.txt"), "abc");
  EXPECT_EQ(Make(W("nosuch\\sub")), 3u);
  EXPECT_EQ(Make(W("a.txt\\sub")), 3u);
  EXPECT_EQ(scratch_.Names(), std::vector<WString>{W("a.txt")});
}

TEST_F(FoldersTest, TheRootIsThereAndStays) {
  const WString root = scratch_.Path().substr(0, 3);
  EXPECT_EQ(FailureOf(CreateDirectoryW(root.c_str(), nullptr)), 183u);
  EXPECT_NE(FailureOf(RemoveDirectoryW(root.c_str())), kNoFailure);
}

TEST_F(FoldersTest, AFolderThatHoldsSomethingStays) {
  scratch_.MakeFolder(W("sub"));
  scratch_.Write(W("sub\\a.txt"), "abc");
  EXPECT_EQ(Remove(W("sub")), 145u);
  EXPECT_EQ(scratch_.Read(W("sub\\a.txt")), "abc");
}

TEST_F(FoldersTest, AFileIsNoFolder) {
  scratch_.Write(W("a.txt"), "abc");
  EXPECT_EQ(Remove(W("a.txt")), 267u);
  EXPECT_EQ(Remove(W("a.txt\\sub")), 3u);
  EXPECT_EQ(Remove(W("nosuch")), 2u);
  EXPECT_EQ(Remove(W("nosuch\\sub")), 3u);
  EXPECT_EQ(scratch_.Read(W("a.txt")), "abc");
}

TEST_F(FoldersTest, AFileIsDeleted) {
  scratch_.Write(W("a.txt"), "abc");
  EXPECT_EQ(Delete(W("a.txt")), kNoFailure);
  EXPECT_EQ(scratch_.Names(), std::vector<WString>{});
  EXPECT_EQ(Delete(W("a.txt")), 2u);
}

TEST_F(FoldersTest, DeletingDistinguishesAMissingFileFromAMissingFolder) {
  scratch_.Write(W("a.txt"), "abc");
  EXPECT_EQ(Delete(W("nosuch")), 2u);
  EXPECT_EQ(Delete(W("nosuch\\a")), 3u);
  EXPECT_EQ(Delete(W("a.txt\\a")), 3u);
}

TEST_F(FoldersTest, AFolderIsNotDeletedAsAFile) {
  scratch_.MakeFolder(W("sub"));
  EXPECT_EQ(Delete(W("sub")), 5u);
  EXPECT_TRUE(scratch_.Exists(W("sub")));
}

TEST_F(FoldersTest, AReadOnlyFileIsNotDeleted) {
  const WString path = scratch_.Write(W("a.txt"), "abc");
  ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_EQ(Delete(W("a.txt")), 5u);
  EXPECT_EQ(scratch_.Read(W("a.txt")), "abc");
  ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL));
  EXPECT_EQ(Delete(W("a.txt")), kNoFailure);
}

TEST_F(FoldersTest, ABackslashAtTheEndNamesNoFileToDelete) {
  scratch_.Write(W("a.txt"), "abc");
  EXPECT_EQ(Delete(W("a.txt\\")), 123u);
  EXPECT_EQ(scratch_.Read(W("a.txt")), "abc");
}

}  // namespace
