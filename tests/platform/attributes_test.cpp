// GetFileAttributesW and SetFileAttributesW.

#include <gtest/gtest.h>

#include "platform/outcome.h"
#include "support/scratch_folder.h"

namespace {

class AttributesTest : public testing::Test {
 protected:
  DWORD Get(WStringView name) { return GetFileAttributesW(scratch_.Path(name).c_str()); }
  DWORD GetFailure(WStringView name) { return FailureOfValue(Get(name)); }
  DWORD Set(WStringView name, DWORD attributes) {
    return FailureOf(SetFileAttributesW(scratch_.Path(name).c_str(), attributes));
  }

  ScratchFolder scratch_;
};

TEST_F(AttributesTest, FilesFoldersAndDotFilesAreDistinguished) {
  scratch_.Write(W("a.txt"), "abc");
  scratch_.MakeFolder(W("sub"));
  scratch_.Write(W(".hidden"), "abc");
  scratch_.MakeFolder(W(".folder"));
  EXPECT_EQ(Get(W("a.txt")), 0x20u);
  EXPECT_EQ(Get(W("sub")), 0x10u);
  EXPECT_EQ(Get(W("sub\\")), 0x10u);
  EXPECT_EQ(Get(W(".hidden")), 0x22u);
  EXPECT_EQ(Get(W(".folder")), 0x12u);
}

TEST_F(AttributesTest, AMissingFileIs2AndAMissingFolderIs3) {
  scratch_.Write(W("a.txt"), "abc");
  EXPECT_EQ(GetFailure(W("nosuch")), 2u);
  EXPECT_EQ(GetFailure(W("nosuch\\")), 2u);
  EXPECT_EQ(GetFailure(W("nosuch\\a")), 3u);
  EXPECT_EQ(GetFailure(W("a.txt\\a")), 3u);
  EXPECT_EQ(GetFailure(W("a.txt\\")), 3u);
  EXPECT_EQ(Set(W("nosuch"), FILE_ATTRIBUTE_NORMAL), 2u);
  EXPECT_EQ(Set(W("nosuch\\a"), FILE_ATTRIBUTE_NORMAL), 3u);
}

TEST_F(AttributesTest, ReadOnlyIsSetAndTakenOff) {
  scratch_.Write(W("a.txt"), "abc");
  EXPECT_EQ(Set(W("a.txt"), FILE_ATTRIBUTE_READONLY), kNoFailure);
  EXPECT_EQ(Get(W("a.txt")), 0x21u);
  EXPECT_EQ(Set(W("a.txt"), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE), kNoFailure);
  EXPECT_EQ(Get(W("a.txt")), 0x21u);
  EXPECT_EQ(Set(W("a.txt"), FILE_ATTRIBUTE_NORMAL), kNoFailure);
  EXPECT_EQ(Get(W("a.txt")), 0x20u);
  EXPECT_EQ(Set(W("a.txt"), FILE_ATTRIBUTE_READONLY), kNoFailure);
  EXPECT_EQ(Set(W("a.txt"), 0), kNoFailure);
  EXPECT_EQ(Get(W("a.txt")), 0x20u);
}

TEST_F(AttributesTest, ReadOnlyKeepsNobodyFromAFolder) {
  scratch_.MakeFolder(W("sub"));
  EXPECT_EQ(Set(W("sub"), FILE_ATTRIBUTE_READONLY), kNoFailure);
  const HANDLE file = OpenFor(scratch_.Path(W("sub\\a.txt")).c_str(), GENERIC_WRITE, CREATE_NEW);
  EXPECT_EQ(FailureOfOpen(file), kNoFailure);
}

TEST_F(AttributesTest, WhatIsAFolderStaysOne) {
  scratch_.MakeFolder(W("sub"));
  scratch_.Write(W("a.txt"), "abc");
  EXPECT_EQ(Set(W("sub"), FILE_ATTRIBUTE_NORMAL), kNoFailure);
  EXPECT_EQ(Get(W("sub")), 0x10u);
  EXPECT_EQ(Set(W("a.txt"), FILE_ATTRIBUTE_DIRECTORY), kNoFailure);
  EXPECT_EQ(Get(W("a.txt")), 0x20u);
}

TEST_F(AttributesTest, AnOpenFileIsStillExaminedAndChanged) {
  const WString path = scratch_.Write(W("a.txt"), "abc");
  const HANDLE file = OpenFor(path.c_str(), GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING, 0);
  EXPECT_EQ(Get(W("a.txt")), 0x20u);
  EXPECT_EQ(Set(W("a.txt"), FILE_ATTRIBUTE_READONLY), kNoFailure);
  EXPECT_EQ(Get(W("a.txt")), 0x21u);
  EXPECT_TRUE(CloseHandle(file));
}

}  // namespace
