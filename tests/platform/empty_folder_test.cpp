// PathIsDirectoryEmptyW.

#include <gtest/gtest.h>

#include "platform/outcome.h"
#include "support/scratch_folder.h"

namespace {

bool IsEmpty(const WString& path) { return PathIsDirectoryEmptyW(path.c_str()) != FALSE; }

TEST(EmptyFolderTest, OneWithoutEntriesIsEmpty) {
  const ScratchFolder scratch;
  EXPECT_TRUE(IsEmpty(scratch.Path()));
  EXPECT_TRUE(IsEmpty(scratch.MakeFolder(W("sub\\inner"))));
  EXPECT_FALSE(IsEmpty(scratch.Path(W("sub"))));
}

TEST(EmptyFolderTest, AnyEntryFillsIt) {
  const ScratchFolder scratch;
  const WString folder = scratch.MakeFolder(W("sub"));
  scratch.Write(W("sub\\.hidden"), "");
  EXPECT_FALSE(IsEmpty(folder));
}

TEST(EmptyFolderTest, WhatIsNoFolderIsNone) {
  const ScratchFolder scratch;
  EXPECT_FALSE(IsEmpty(scratch.Write(W("a.txt"), "")));
  EXPECT_FALSE(IsEmpty(scratch.Path(W("nosuch"))));
  EXPECT_FALSE(IsEmpty(W("")));
  EXPECT_FALSE(PathIsDirectoryEmptyW(nullptr));
}

TEST(EmptyFolderTest, ALongPathIsNotLookedAt) {
  const ScratchFolder scratch;
  WString path = W("\\\\?\\") + scratch.Path();
  while (path.size() <= 260) {
    path += W("\\") + WString(50, W('x'));
    ASSERT_TRUE(CreateDirectoryW(path.c_str(), nullptr));
  }
  EXPECT_FALSE(IsEmpty(path));
  EXPECT_FALSE(IsEmpty(scratch.Path(WString(32000, W('x')))));
}

}  // namespace
