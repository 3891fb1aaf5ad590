// Walking folders: flags, codes, counters, limits.
#include "frame/services/directory_walker.h"

#include <gmock/gmock.h>

#include "frame/walk_helper.h"

using testing::IsEmpty;
using Walker = DirectoryWalker;

namespace {

constexpr std::uint32_t kOneFolder = Walker::kPassDotEntries | Walker::kNoReparsePoints;

// top.txt (3 bytes), top.dat (5), empty\, one\a.txt (7), one\deep\b.txt (11), one\deep\deeper\c.txt (13).
class Tree : public ScratchFolder {
 public:
  Tree() {
    MakeFolder(W("empty"));
    MakeFolder(W("one\\deep\\deeper"));
    Write(W("top.txt"), std::string(3, 'x'));
    Write(W("top.dat"), std::string(5, 'x'));
    Write(W("one\\a.txt"), std::string(7, 'x'));
    Write(W("one\\deep\\b.txt"), std::string(11, 'x'));
    Write(W("one\\deep\\deeper\\c.txt"), std::string(13, 'x'));
  }
};

}  // namespace

TEST(DirectoryWalker, ResetSetsTheMaskTheFlagsAndClearsTheRest) {
  Walker walker;
  walker.Reset(W("Z:\\first"));
  walker.pattern = W("*");
  walker.flags = 0;
  walker.maxDepth = 3;
  walker.depth = walker.fileCount = walker.folderCount = walker.maxDepthSeen = 9;
  walker.totalSize = 9;
  walker.descendNext = walker.useBasicInfo = walker.useLongPath = true;
  walker.depth = 0;
  walker.Reset(W("Z:\\second"));
  EXPECT_EQ(walker.path, W("Z:\\second"));
  EXPECT_EQ(walker.pattern, W("*.dat"));
  EXPECT_EQ(walker.flags, 8209u);
  EXPECT_EQ(walker.depth, 0);
  EXPECT_EQ(walker.fileCount, 0);
  EXPECT_EQ(walker.folderCount, 0);
  EXPECT_EQ(walker.maxDepthSeen, 0);
  EXPECT_EQ(walker.totalSize, 0);
  EXPECT_EQ(walker.maxDepth, 0u);
  EXPECT_EQ(walker.findHandle, nullptr);
  EXPECT_FALSE(walker.descendNext);
  EXPECT_FALSE(walker.useBasicInfo);
  EXPECT_FALSE(walker.useLongPath);
}

TEST(DirectoryWalker, PermissionForLongPathsAloneSurvivesReset) {
  Walker walker;
  walker.longPathsAllowed = true;
  walker.Reset(W("Z:\\a"));
  EXPECT_TRUE(walker.longPathsAllowed);
  EXPECT_FALSE(walker.useLongPath);
}

TEST(DirectoryWalker, PathOfMoreThan4096CharactersIsCutAndWantsTheLongForm) {
  Walker walker;
  walker.Reset(WString(5000, W('p')));
  EXPECT_EQ(walker.path, WString(4096, W('p')));
  EXPECT_FALSE(walker.useLongPath);
  walker.longPathsAllowed = true;
  walker.Reset(WString(5000, W('p')));
  EXPECT_EQ(walker.path, WString(4096, W('p')));
  EXPECT_TRUE(walker.useLongPath);
}

TEST(DirectoryWalker, DefaultFlagsReturnAllThatFitsTheMaskAsFilesAndDoNotGoDown) {
  const Tree scratch;
  scratch.MakeFolder(W("folder.dat"));
  scratch.Write(W("folder.dat\\inside.dat"), "x");
  Walker walker;
  walker.Reset(scratch.Path());
  const Walk walk = RunWalk(walker, scratch.Path());
  EXPECT_EQ(walk.Of(101), Names({W("top.dat"), W("folder.dat")}));
  EXPECT_EQ(walk.steps.size(), 3u);
  EXPECT_TRUE(walk.Ended());
  EXPECT_EQ(walker.fileCount, 2);
  EXPECT_EQ(walker.folderCount, 0);
  EXPECT_EQ(walker.maxDepthSeen, 0);
}

TEST(DirectoryWalker, FoldersAreReturnedWith102AndNotEnteredByDefault) {
  const Tree scratch;
  for (const std::uint32_t flags : {kOneFolder, kOneFolder | Walker::kRecurse}) {
    Walker walker;
    const Walk walk = RunWalk(Prepared(walker, scratch.Path(), flags), scratch.Path());
    EXPECT_EQ(walk.Of(101), Names({W("top.txt"), W("top.dat")}));
    EXPECT_EQ(walk.Of(102), Names({W("empty"), W("one")}));
    EXPECT_TRUE(walk.Ended());
    EXPECT_EQ(walker.fileCount, 2);
    EXPECT_EQ(walker.folderCount, 2);
    EXPECT_EQ(walker.totalSize, 8);
    EXPECT_EQ(walker.maxDepthSeen, 0);
  }
}

TEST(DirectoryWalker, FolderIsEnteredWhenTheCallerAsks) {
  const Tree scratch;
  const Walk walk = WalkFolder(scratch.Path(), W("*"), kOneFolder | Walker::kRecurse, true);
  EXPECT_EQ(walk.Of(101), Names({W("top.txt"), W("top.dat"), W("one\\a.txt"), W("one\\deep\\b.txt"),
                                 W("one\\deep\\deeper\\c.txt")}));
  EXPECT_EQ(walk.Of(102), Names({W("empty"), W("one"), W("one\\deep"), W("one\\deep\\deeper")}));
  EXPECT_TRUE(walk.Ended());
}

TEST(DirectoryWalker, RecursionWithoutFoldersReturnsTheFilesOfTheWholeTree) {
  const Tree scratch;
  Walker walker;
  const Walk walk = RunWalk(Prepared(walker, scratch.Path()), scratch.Path());
  EXPECT_EQ(walk.Of(101), Names({W("top.txt"), W("top.dat"), W("one\\a.txt"), W("one\\deep\\b.txt"),
                                 W("one\\deep\\deeper\\c.txt")}));
  EXPECT_EQ(walk.steps.size(), 6u);
  EXPECT_EQ(walker.fileCount, 5);
  EXPECT_EQ(walker.folderCount, 0);
  EXPECT_EQ(walker.totalSize, 3 + 5 + 7 + 11 + 13);
  EXPECT_EQ(walker.maxDepthSeen, 3);
  EXPECT_EQ(walker.depth, 0);
  EXPECT_EQ(walker.path, scratch.Path());
}

TEST(DirectoryWalker, DepthAndPathAreThoseOfTheCurrentFolder) {
  const Tree scratch;
  Walker walker;
  Prepared(walker, scratch.Path());
  int seen = 0;
  while (walker.NextWithRetry() == Walker::kFile && ++seen < 100) {
    const WString name = walker.findData.cFileName;
    if (name == W("c.txt")) {
      EXPECT_EQ(walker.depth, 3);
      EXPECT_EQ(walker.path, scratch.Path(W("one\\deep\\deeper")));
    }
    if (name == W("top.txt")) {
      EXPECT_EQ(walker.depth, 0);
    }
  }
  EXPECT_EQ(seen, 5);
}

TEST(DirectoryWalker, FilesArePassedOverWhereOnlyFoldersAreWanted) {
  const Tree scratch;
  const Walk walk =
      WalkFolder(scratch.Path(), W("*"), kOneFolder | Walker::kPassFiles | Walker::kRecurse, true);
  EXPECT_THAT(walk.Of(101), IsEmpty());
  EXPECT_EQ(walk.Of(102), Names({W("empty"), W("one"), W("one\\deep"), W("one\\deep\\deeper")}));
  EXPECT_TRUE(walk.Ended());
}

TEST(DirectoryWalker, FilesPassedOverUnderTheDefaultFlagsLeaveTheFoldersAsFiles) {
  const Tree scratch;
  Walker walker;
  walker.Reset(scratch.Path());
  walker.pattern = W("*");
  walker.flags |= Walker::kPassFiles;
  const Walk walk = RunWalk(walker, scratch.Path());
  EXPECT_EQ(walk.Of(101), Names({W("empty"), W("one")}));
  EXPECT_EQ(walk.steps.size(), 3u);
  EXPECT_EQ(walker.fileCount, 2);
  EXPECT_EQ(walker.folderCount, 0);
}

TEST(DirectoryWalker, StepsAfterTheEndReturnTheEnd) {
  const Tree scratch;
  Walker walker;
  Prepared(walker, scratch.Path());
  EXPECT_EQ(RunWalk(walker, scratch.Path()).Count(101), 5);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(walker.NextWithRetry(), 200);
}

TEST(DirectoryWalker, EndOfEachFolderThatWasEnteredIsReportedOnRequest) {
  const Tree scratch;
  const Walk walk = WalkFolder(scratch.Path(), W("*"), kAllFiles | Walker::kReportFolderEnd);
  EXPECT_EQ(walk.Count(101), 5);
  EXPECT_EQ(walk.Count(120), 4);  // empty, one, deep, deeper
  EXPECT_TRUE(walk.Ended());
}

TEST(DirectoryWalker, FolderEndComesAfterTheFolderAndBeforeTheNextEntry) {
  const ScratchFolder scratch;
  scratch.MakeFolder(W("only"));
  scratch.Write(W("only\\file.txt"), "x");
  const Walk walk = WalkFolder(scratch.Path(), W("*"), kAllFiles | Walker::kReportFolderEnd);
  ASSERT_EQ(walk.steps.size(), 3u);
  EXPECT_EQ(walk.steps[0].code, 101);
  EXPECT_EQ(walk.steps[0].path, W("only\\file.txt"));
  EXPECT_EQ(walk.steps[1].code, 120);
  EXPECT_EQ(walk.steps[2].code, 200);
}

TEST(DirectoryWalker, WithoutTheRequestNoFolderEndIsReported) {
  const Tree scratch;
  EXPECT_EQ(WalkFolder(scratch.Path(), W("*"), kAllFiles).Count(120), 0);
}

TEST(DirectoryWalker, MaxDepthKeepsTheWalkAboveIt) {
  const Tree scratch;
  Walker walker;
  Prepared(walker, scratch.Path());
  walker.maxDepth = 1;
  EXPECT_EQ(RunWalk(walker, scratch.Path()).Of(101), Names({W("top.txt"), W("top.dat"), W("one\\a.txt")}));
  EXPECT_EQ(walker.maxDepthSeen, 1);
  Prepared(walker, scratch.Path());
  walker.maxDepth = 2;
  EXPECT_EQ(RunWalk(walker, scratch.Path()).Of(101),
            Names({W("top.txt"), W("top.dat"), W("one\\a.txt"), W("one\\deep\\b.txt")}));
}

TEST(DirectoryWalker, DotEntriesAreReturnedOnlyWhereTheyAreWanted) {
  const ScratchFolder scratch;
  scratch.Write(W("file.txt"), "x");
  EXPECT_EQ(WalkFolder(scratch.Path(), W("*"), 0).Of(102), Names({W("."), W("..")}));
  EXPECT_EQ(WalkFolder(scratch.Path(), W("*"), Walker::kNoFolders).Of(101),
            Names({W("."), W(".."), W("file.txt")}));
  EXPECT_EQ(WalkFolder(scratch.Path(), W("*"), Walker::kPassDotEntries).Of(102), Names({}));
}

TEST(DirectoryWalker, DotEntriesAreNeverEntered) {
  const Tree scratch;
  const Walk all = WalkFolder(scratch.Path(), W("*"), Walker::kRecurse | Walker::kNoFolders);
  EXPECT_TRUE(all.Ended());
  EXPECT_EQ(all.Count(101), 5 + 2 * 5);  // two in each of the five folders
  const Walk asked = WalkFolder(scratch.Path(), W("*"), Walker::kRecurse, true);
  EXPECT_TRUE(asked.Ended());
}

TEST(DirectoryWalker, AskingToEnterWhatIsNotEnteredDoesNotHoldTheWalkUp) {
  const Tree scratch;
  for (const std::uint32_t flags : {kOneFolder, kOneFolder | Walker::kNoFolders,
                                    kOneFolder | Walker::kRecurse, kAllFiles, std::uint32_t{0}}) {
    Walker walker;
    Prepared(walker, scratch.Path(), flags);
    walker.maxDepth = 1;
    int steps = 0;
    while (walker.NextWithRetry() != Walker::kEnd && steps < kTooManySteps) {
      walker.descendNext = true;  // regardless of the last code
      ++steps;
    }
    EXPECT_LT(steps, 100) << flags;
    EXPECT_LE(walker.maxDepthSeen, 1) << flags;
  }
}

TEST(DirectoryWalker, EmptyFolderEndsAtOnce) {
  const ScratchFolder scratch;
  const Walk walk = WalkFolder(scratch.Path(), W("*"), kAllFiles);
  ASSERT_EQ(walk.steps.size(), 1u);
  EXPECT_EQ(walk.steps[0].code, 200);
}

TEST(DirectoryWalker, BasicInfoGivesTheSameEntries) {
  const Tree scratch;
  Walker walker;
  Prepared(walker, scratch.Path());
  walker.useBasicInfo = true;
  EXPECT_EQ(RunWalk(walker, scratch.Path()).Of(101),
            Names({W("top.txt"), W("top.dat"), W("one\\a.txt"), W("one\\deep\\b.txt"),
                   W("one\\deep\\deeper\\c.txt")}));
}

TEST(DirectoryWalker, CurrentPathJoinsFolderAndNameWithOneBackslash) {
  const ScratchFolder scratch;
  scratch.Write(W("file.txt"), "x");
  for (const WString& start : {scratch.Path(), scratch.Path() + W("\\")}) {
    Walker walker;
    walker.Reset(start);
    walker.pattern = W("*.txt");
    ASSERT_EQ(walker.Next(), Walker::kFile);
    EXPECT_EQ(WString(walker.GetCurrentPath()), scratch.Path(W("file.txt")));
    EXPECT_EQ(WString(walker.GetCurrentPath()), scratch.Path(W("file.txt")));
  }
}

TEST(DirectoryWalker, ClosedWalkerHoldsNothingAndCanWalkAgain) {
  const Tree scratch;
  Walker walker;
  Prepared(walker, scratch.Path());
  while (walker.NextWithRetry() == Walker::kFile && walker.depth < 2) {
  }
  ASSERT_GE(walker.depth, 2);
  walker.Close();
  EXPECT_EQ(walker.findHandle, nullptr);
  walker.Close();
  Prepared(walker, scratch.Path());
  EXPECT_EQ(RunWalk(walker, scratch.Path()).Count(101), 5);
}

TEST(DirectoryWalker, ResetInTheMiddleOfAWalkStartsAfresh) {
  const Tree scratch;
  Walker walker;
  for (int i = 0; i < 3; ++i) {
    Prepared(walker, scratch.Path());
    EXPECT_EQ(walker.NextWithRetry(), Walker::kFile);
  }
  walker.Reset(scratch.Path(W("one\\deep\\deeper")));
  walker.pattern = W("*");
  EXPECT_EQ(RunWalk(walker, scratch.Path()).Of(101), Names({W("one\\deep\\deeper\\c.txt")}));
}
