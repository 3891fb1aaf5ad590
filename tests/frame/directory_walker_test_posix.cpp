// Walks with faults, links and very deep trees, which only the native build can create.
#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "frame/walk_helper.h"
#include "platform/posix/files/faults.h"

using namespace Platform;
using Walker = DirectoryWalker;

namespace {

// one\a, two\b, top.
class NativeTree : public ScratchFolder {
 public:
  NativeTree() {
    MakeFolder(W("one"));
    MakeFolder(W("two"));
    Write(W("one\\a"), "x");
    Write(W("two\\b"), "x");
    Write(W("top"), "x");
  }
};

}  // namespace

TEST(DirectoryWalker, StartFolderWithoutAccessCountsAsEmpty) {
  const NativeTree scratch;
  const Faults::Scope faults;
  Faults::Fail("FindFirstFileExW", 1, ERROR_ACCESS_DENIED);
  Walker walker;
  EXPECT_EQ(Prepared(walker, scratch.Path()).NextWithRetry(), 200);
}

TEST(DirectoryWalker, FolderBelowWithoutAccessCountsAsEmptyAndIsLeft) {
  const NativeTree scratch;
  const Faults::Scope faults;
  Faults::Fail("FindFirstFileExW", 2, ERROR_ACCESS_DENIED);
  Walker walker;
  const Walk walk =
      RunWalk(Prepared(walker, scratch.Path(), kAllFiles | Walker::kReportFolderEnd), scratch.Path());
  EXPECT_EQ(walk.Count(101), 2);  // top and the file in the other folder
  EXPECT_EQ(walk.Count(120), 2);
  EXPECT_EQ(walk.Count(-150), 0);
  EXPECT_TRUE(walk.Ended());
}

TEST(DirectoryWalker, OtherFailureOfASearchIsInvalidAndTheWalkGoesOn) {
  const NativeTree scratch;
  const Faults::Scope faults;
  Faults::Fail("FindFirstFileExW", 2, ERROR_GEN_FAILURE);
  Walker walker;
  const Walk walk = RunWalk(Prepared(walker, scratch.Path()), scratch.Path());
  EXPECT_EQ(walk.Count(-150), 1);
  EXPECT_EQ(walk.Count(101), 2);
  EXPECT_TRUE(walk.Ended());
}

TEST(DirectoryWalker, PathNotFoundIsTriedAgainInItsLongForm) {
  const NativeTree scratch;
  const Faults::Scope faults;
  Faults::Fail("FindFirstFileExW", 1, ERROR_PATH_NOT_FOUND);
  Walker walker;
  walker.longPathsAllowed = true;
  Prepared(walker, scratch.Path(), kAllFiles & ~std::uint32_t{Walker::kRecurse});
  EXPECT_EQ(walker.NextWithRetry(), 101);
  EXPECT_TRUE(walker.useLongPath);
  EXPECT_EQ(Faults::CallCount("FindFirstFileExW"), 2);
}

TEST(DirectoryWalker, PlainStepLeavesTheLongFormToTheCaller) {
  const NativeTree scratch;
  const Faults::Scope faults;
  Faults::Fail("FindFirstFileExW", 1, ERROR_PATH_NOT_FOUND);
  Walker walker;
  walker.longPathsAllowed = true;
  Prepared(walker, scratch.Path());
  EXPECT_EQ(walker.Next(), -600);
  EXPECT_FALSE(walker.useLongPath);
}

TEST(DirectoryWalker, AttributesNotFoundAskForTheLongFormToo) {
  const NativeTree scratch;
  const Faults::Scope faults;
  Faults::Fail("GetFileAttributesW", 1, ERROR_PATH_NOT_FOUND);
  Faults::Watch("FindFirstFileExW");
  Walker walker;
  walker.longPathsAllowed = true;
  Prepared(walker, scratch.Path());
  EXPECT_EQ(walker.Next(), -600);
  EXPECT_EQ(Faults::CallCount("FindFirstFileExW"), 0);
}

TEST(DirectoryWalker, AttributesAreReadOnlyWhereReparsePointsAreLeftOut) {
  const NativeTree scratch;
  const Faults::Scope faults;
  Faults::Watch("GetFileAttributesW");
  Walker walker;
  RunWalk(Prepared(walker, scratch.Path(), kAllFiles & ~std::uint32_t{Walker::kNoReparsePoints}),
          scratch.Path());
  EXPECT_EQ(Faults::CallCount("GetFileAttributesW"), 0);
  RunWalk(Prepared(walker, scratch.Path()), scratch.Path());
  EXPECT_EQ(Faults::CallCount("GetFileAttributesW"), 3);
}

TEST(DirectoryWalker, LongFormIsDroppedOnTheWayDown) {
  const ScratchFolder scratch;
  scratch.MakeFolder(W("one"));
  scratch.Write(W("one\\a"), "x");
  const Faults::Scope faults;
  Faults::Fail("FindFirstFileExW", 1, ERROR_PATH_NOT_FOUND);
  Walker walker;
  walker.longPathsAllowed = true;
  Prepared(walker, scratch.Path());
  EXPECT_EQ(walker.NextWithRetry(), 101);
  EXPECT_EQ(walker.depth, 1);
  EXPECT_FALSE(walker.useLongPath);
}

TEST(DirectoryWalker, FolderBelowNotFoundIsRetriedInItsLongForm) {
  const NativeTree scratch;
  const Faults::Scope faults;
  Faults::Fail("FindFirstFileExW", 2, ERROR_PATH_NOT_FOUND);
  Walker walker;
  walker.longPathsAllowed = true;
  const Walk walk = RunWalk(Prepared(walker, scratch.Path()), scratch.Path());
  EXPECT_EQ(walk.Of(101), Names({W("one\\a"), W("two\\b"), W("top")}));
  EXPECT_EQ(walk.Count(-600), 0);
  EXPECT_EQ(walk.Count(-150), 0);
}

// If long paths are not allowed, the folder is not searched a second time.
TEST(DirectoryWalker, FolderThatVanishesBelowIsInvalidAndTheWalkGoesOn) {
  const NativeTree scratch;
  const Faults::Scope faults;
  Faults::Fail("FindFirstFileExW", 2, ERROR_PATH_NOT_FOUND);
  Walker walker;
  walker.longPathsAllowed = false;
  const Walk walk = RunWalk(Prepared(walker, scratch.Path()), scratch.Path());
  EXPECT_TRUE(walk.Ended());
  EXPECT_EQ(walk.Count(-150), 1);
  EXPECT_EQ(walk.Count(101), 2);  // top and the file in the other folder
  EXPECT_EQ(walk.Count(-600), 0);
  EXPECT_EQ(Faults::CallCount("FindFirstFileExW"), 3);
}

TEST(DirectoryWalker, EverySearchThatIsOpenedIsClosed) {
  const NativeTree scratch;
  const Faults::Scope faults;
  Faults::Watch("FindFirstFileExW");
  Faults::Watch("FindClose");
  {
    Walker walker;
    RunWalk(Prepared(walker, scratch.Path()), scratch.Path());
    Prepared(walker, scratch.Path());
    walker.NextWithRetry();
  }
  EXPECT_GE(Faults::CallCount("FindFirstFileExW"), 4);
  EXPECT_EQ(Faults::CallCount("FindClose"), Faults::CallCount("FindFirstFileExW"));
}

TEST(DirectoryWalker, FolderThatIsALinkIsNotSearchedUnderTheFlag) {
  const NativeTree scratch;
  std::filesystem::create_directory_symlink(scratch.NativePath(W("one")), scratch.NativePath(W("link")));
  EXPECT_EQ(WalkFolder(scratch.Path(), W("*"), kAllFiles).Of(101),
            Names({W("one\\a"), W("two\\b"), W("top")}));
  EXPECT_EQ(WalkFolder(scratch.Path(), W("*"), kAllFiles & ~std::uint32_t{Walker::kNoReparsePoints}).Of(101),
            Names({W("one\\a"), W("link\\a"), W("two\\b"), W("top")}));
}

TEST(DirectoryWalker, StartFolderThatIsALinkIsNotSearchedUnderTheFlag) {
  const NativeTree scratch;
  std::filesystem::create_directory_symlink(scratch.NativePath(W("one")), scratch.NativePath(W("link")));
  const Walk walk = WalkFolder(scratch.Path(W("link")), W("*"), kAllFiles);
  ASSERT_EQ(walk.steps.size(), 1u);
  EXPECT_EQ(walk.steps[0].code, 200);
  EXPECT_EQ(WalkFolder(scratch.Path(W("link")), W("*"), Walker::kPassDotEntries).Of(101), Names({W("a")}));
}

TEST(DirectoryWalker, LinkToItsOwnParentDoesNotKeepTheWalkGoingForever) {
  const NativeTree scratch;
  std::filesystem::create_directory_symlink(scratch.NativePath(W("one")), scratch.NativePath(W("one\\self")));
  const Walk walk =
      WalkFolder(scratch.Path(), W("*"), Walker::kPassDotEntries | Walker::kNoFolders | Walker::kRecurse);
  EXPECT_TRUE(walk.Ended());
}

// Created folder by folder, because no single path can reach the lowest one.
TEST(DirectoryWalker, TreeBeyond4096CharactersEndsWithInvalidSearches) {
  const ScratchFolder scratch;
  constexpr int kLevels = 25;
  const std::string level(200, 'd');
  int folder = open(scratch.NativePath(W("")).c_str(), O_RDONLY | O_DIRECTORY);
  ASSERT_GE(folder, 0);
  for (int i = 0; i < kLevels; ++i) {
    ASSERT_EQ(mkdirat(folder, level.c_str(), 0777), 0);
    const int next = openat(folder, level.c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_GE(next, 0);
    close(folder);
    folder = next;
    const int file = openat(folder, "file", O_CREAT | O_WRONLY, 0666);
    ASSERT_GE(file, 0);
    close(file);
  }
  close(folder);
  const Walk walk = WalkFolder(scratch.Path(), W("*"), kAllFiles);
  EXPECT_TRUE(walk.Ended());
  EXPECT_EQ(walk.Count(-150), 1);
  // 20 levels of 201 characters below the scratch folder's path; one more exceeds the limit.
  EXPECT_EQ(walk.Count(101), 20);
}
