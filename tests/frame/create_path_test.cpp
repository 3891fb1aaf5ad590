// Creating folders with and without their parents.
#include "frame/services/create_path.h"

#include <gtest/gtest.h>

#include "support/scratch_folder.h"

TEST(CreatePath, MakesAFolderWhoseParentIsThere) {
  const ScratchFolder scratch;
  EXPECT_TRUE(CreatePath(scratch.Path(W("new")), false));
  EXPECT_TRUE(std::filesystem::is_directory(scratch.NativePath(W("new"))));
}

TEST(CreatePath, WithoutParentsAMissingParentIsNotMade) {
  const ScratchFolder scratch;
  EXPECT_FALSE(CreatePath(scratch.Path(W("a\\b")), false));
  EXPECT_FALSE(scratch.Exists(W("a")));
}

TEST(CreatePath, WithParentsAllMissingOnesAreMade) {
  const ScratchFolder scratch;
  EXPECT_TRUE(CreatePath(scratch.Path(W("a\\b\\c\\d")), true));
  EXPECT_TRUE(std::filesystem::is_directory(scratch.NativePath(W("a\\b\\c\\d"))));
}

TEST(CreatePath, ExistingFolderIsTrueAndStaysAsItIs) {
  const ScratchFolder scratch;
  scratch.MakeFolder(W("there"));
  scratch.Write(W("there\\file.txt"), "x");
  EXPECT_TRUE(CreatePath(scratch.Path(W("there")), false));
  EXPECT_TRUE(CreatePath(scratch.Path(W("there")), true));
  EXPECT_EQ(scratch.Names(W("there")), std::vector<WString>{W("file.txt")});
}

TEST(CreatePath, ExistingFileIsFalseAndMakesNothing) {
  const ScratchFolder scratch;
  const WString file = scratch.Write(W("file.txt"), "x");
  EXPECT_FALSE(CreatePath(file, false));
  EXPECT_FALSE(CreatePath(file, true));
  EXPECT_EQ(scratch.Read(W("file.txt")), "x");
  EXPECT_EQ(scratch.Names(), std::vector<WString>{W("file.txt")});
}

TEST(CreatePath, FileAmongTheParentsStopsIt) {
  const ScratchFolder scratch;
  scratch.Write(W("file.txt"), "x");
  EXPECT_FALSE(CreatePath(scratch.Path(W("file.txt\\a\\b")), true));
  EXPECT_EQ(scratch.Read(W("file.txt")), "x");
}

TEST(CreatePath, TrailingBackslashIsNoFurtherComponent) {
  const ScratchFolder scratch;
  EXPECT_TRUE(CreatePath(scratch.Path(W("a\\b\\")), true));
  EXPECT_TRUE(std::filesystem::is_directory(scratch.NativePath(W("a\\b"))));
}

TEST(CreatePath, RootOfADriveIsThere) { EXPECT_TRUE(CreatePath(ScratchFolder().Path().substr(0, 3), true)); }

// The long form starts like a network path, with "?" and the drive in the places of server and share: they
// cannot be created and must be skipped.
TEST(CreatePath, SkipsServerAndShareOfANetworkPath) {
  const ScratchFolder scratch;
  EXPECT_TRUE(CreatePath(W("\\\\?\\") + scratch.Path(W("a\\b\\c")), true));
  EXPECT_TRUE(std::filesystem::is_directory(scratch.NativePath(W("a\\b\\c"))));
}

TEST(CreatePath, UnreachablePathsAreFalse) {
  EXPECT_FALSE(CreatePath(W(""), false));
  EXPECT_FALSE(CreatePath(W(""), true));
  const ScratchFolder scratch;
  EXPECT_FALSE(CreatePath(scratch.Path(W("missing\\a")), false));
}

// None of these can be created, so the result is whether the system reports a folder.
TEST(CreatePath, ShortestPathsDoNotCrash) {
  for (const WCHAR* path : {W("\\"), W("\\\\"), W("\\\\a"), W("\\\\a\\"), W("\\\\a\\b")}) {
    const DWORD attributes = GetFileAttributesW(path);
    const bool isFolder =
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    EXPECT_EQ(CreatePath(path, true), isFolder) << ToUtf8(path);
  }
}

TEST(CreatePath, WorksOnDeepPaths) {
  const ScratchFolder scratch;
  WString path = scratch.Path();
  WString name;
  for (int level = 0; level < 6; ++level) name += (level ? W("\\") : W("")) + WString(100, W('d'));
  EXPECT_TRUE(CreatePath(W("\\\\?\\") + path + W("\\") + name, true));
  EXPECT_TRUE(std::filesystem::is_directory(scratch.NativePath(name)));
}
