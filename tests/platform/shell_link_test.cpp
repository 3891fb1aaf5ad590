// Shortcut files.

#include "platform/shell_link.h"

#include <gtest/gtest.h>

#include "support/read_shell_link.h"
#include "support/scratch_folder.h"

namespace {

class ShellLinkTest : public testing::Test {
 protected:
  ScratchFolder scratch_;
  ShellObjects shell_;
};

TEST_F(ShellLinkTest, WhatWasSavedIsReadBack) {
  const WString target = scratch_.Write(W("a \u00E4.txt"), "abc");
  const WString path = scratch_.Path(W("link.lnk"));
  ASSERT_TRUE(SaveShellLink({target, scratch_.Path() + W("\\"), W("What it is")}, path));
  const ShellLink read = ReadShellLink(path);
  EXPECT_EQ(read.target, target);
  EXPECT_EQ(read.workingFolder, scratch_.Path() + W("\\"));
  EXPECT_EQ(read.description, W("What it is"));
}

TEST_F(ShellLinkTest, ItMayLeadToAFolderAndHaveNoWorkingFolder) {
  const WString target = scratch_.MakeFolder(W("sub"));
  const WString path = scratch_.Path(W("link"));
  ASSERT_TRUE(SaveShellLink({target, W(""), W("")}, path));
  const ShellLink read = ReadShellLink(path);
  EXPECT_EQ(read.target, target);
  EXPECT_EQ(read.workingFolder, W(""));
  EXPECT_EQ(read.description, W(""));
}

TEST_F(ShellLinkTest, AnOlderOneIsReplaced) {
  const WString path = scratch_.Path(W("link.lnk"));
  const WString first = scratch_.Write(W("first-and-longer.txt"), "");
  const WString second = scratch_.Write(W("second"), "");
  ASSERT_TRUE(SaveShellLink({first, W(""), W("A long description")}, path));
  ASSERT_TRUE(SaveShellLink({second, W(""), W("b")}, path));
  EXPECT_EQ(ReadShellLink(path).target, second);
  EXPECT_EQ(ReadShellLink(path).description, W("b"));
}

TEST_F(ShellLinkTest, OtherFilesAndFoldersAreNotTakenForOne) {
  const WString target = scratch_.Write(W("a.txt"), "abc");
  const WString path = scratch_.Path(W("link"));
  ASSERT_TRUE(SaveShellLink({target, W(""), W("")}, path));
  EXPECT_TRUE(IsShellLink(path));
  EXPECT_FALSE(IsShellLink(target));
  EXPECT_FALSE(IsShellLink(scratch_.Write(W("empty.lnk"), "")));
  EXPECT_FALSE(IsShellLink(scratch_.Write(W("cut.lnk"), scratch_.Read(W("link")).substr(0, 10))));
  EXPECT_FALSE(IsShellLink(scratch_.Write(W("after.lnk"), " " + scratch_.Read(W("link")))));
  EXPECT_FALSE(IsShellLink(scratch_.MakeFolder(W("sub"))));
  EXPECT_FALSE(IsShellLink(scratch_.Path(W("nosuch"))));
}

TEST_F(ShellLinkTest, ItIsNotSavedWhereNoFileCanBe) {
  const WString target = scratch_.Write(W("a.txt"), "abc");
  const WString folder = scratch_.MakeFolder(W("sub"));
  EXPECT_FALSE(SaveShellLink({target, W(""), W("")}, scratch_.Path(W("nosuch\\link.lnk"))));
  EXPECT_FALSE(SaveShellLink({target, W(""), W("")}, folder));
  EXPECT_FALSE(SaveShellLink({target, W(""), W("")}, scratch_.Path(WString(32000, W('x')))));
  EXPECT_EQ(scratch_.Names(), (std::vector<WString>{W("a.txt"), W("sub")}));
}

}  // namespace
