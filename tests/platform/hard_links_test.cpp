// CreateHardLinkW.

#include <gtest/gtest.h>

#include "platform/outcome.h"
#include "support/scratch_folder.h"

namespace {

class HardLinksTest : public testing::Test {
 protected:
  DWORD Link(WStringView link, WStringView target) {
    return FailureOf(CreateHardLinkW(scratch_.Path(link).c_str(), scratch_.Path(target).c_str(), nullptr));
  }

  ScratchFolder scratch_;
};

TEST_F(HardLinksTest, TheFileHasTwoNames) {
  scratch_.Write(W("a.txt"), "abc");
  EXPECT_EQ(Link(W("b.txt"), W("a.txt")), kNoFailure);
  EXPECT_EQ(scratch_.Read(W("b.txt")), "abc");
  scratch_.Write(W("a.txt"), "changed");
  EXPECT_EQ(scratch_.Read(W("b.txt")), "changed");
  EXPECT_EQ(GetFileAttributesW(scratch_.Path(W("b.txt")).c_str()), 0x20u);
  EXPECT_TRUE(DeleteFileW(scratch_.Path(W("a.txt")).c_str()));
  EXPECT_EQ(scratch_.Read(W("b.txt")), "changed");
}

TEST_F(HardLinksTest, WhatIsInTheWayStays) {
  scratch_.Write(W("a.txt"), "abc");
  scratch_.Write(W("b.txt"), "old");
  scratch_.MakeFolder(W("sub"));
  EXPECT_EQ(Link(W("b.txt"), W("a.txt")), 183u);
  EXPECT_EQ(Link(W("a.txt"), W("a.txt")), 183u);
  EXPECT_NE(Link(W("sub"), W("a.txt")), kNoFailure);
  EXPECT_EQ(scratch_.Read(W("b.txt")), "old");
  EXPECT_EQ(scratch_.Read(W("a.txt")), "abc");
}

TEST_F(HardLinksTest, AFolderGetsNone) {
  scratch_.MakeFolder(W("sub"));
  EXPECT_EQ(Link(W("link"), W("sub")), 5u);
  EXPECT_FALSE(scratch_.Exists(W("link")));
}

TEST_F(HardLinksTest, AMissingFileIsDistinguishedFromAMissingFolder) {
  scratch_.Write(W("a.txt"), "abc");
  EXPECT_EQ(Link(W("link"), W("nosuch")), 2u);
  EXPECT_EQ(Link(W("link"), W("nosuch\\a")), 3u);
  EXPECT_EQ(Link(W("nosuch\\link"), W("a.txt")), 3u);
  EXPECT_EQ(scratch_.Names(), std::vector<WString>{W("a.txt")});
}

TEST_F(HardLinksTest, NoPathAtAllIsRefused) {
  const WString path = scratch_.Write(W("a.txt"), "abc");
  EXPECT_EQ(FailureOf(CreateHardLinkW(W(""), path.c_str(), nullptr)), 3u);
  EXPECT_EQ(FailureOf(CreateHardLinkW(path.c_str(), W(""), nullptr)), 3u);
  EXPECT_EQ(scratch_.Names(), std::vector<WString>{W("a.txt")});
}

TEST_F(HardLinksTest, AVeryLongPathIsRefused) {
  const WString path = scratch_.Write(W("a.txt"), "abc");
  const WString longPath = scratch_.Path(WString(32000, W('x')));
  EXPECT_NE(FailureOf(CreateHardLinkW(longPath.c_str(), path.c_str(), nullptr)), kNoFailure);
  EXPECT_NE(FailureOf(CreateHardLinkW(path.c_str(), longPath.c_str(), nullptr)), kNoFailure);
  EXPECT_EQ(scratch_.Names(), std::vector<WString>{W("a.txt")});
}

}  // namespace
