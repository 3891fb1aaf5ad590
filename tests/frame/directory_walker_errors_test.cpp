// Walks over folders that cannot be searched: the walk reports an error, continues and ends.
#include <gmock/gmock.h>

#include "frame/walk_helper.h"

using Walker = DirectoryWalker;

TEST(DirectoryWalker, MissingFolderIsAnInvalidSearchAndThenTheEnd) {
  const ScratchFolder scratch;
  Walker walker;
  walker.Reset(scratch.Path(W("missing")));
  walker.pattern = W("*");
  EXPECT_EQ(walker.NextWithRetry(), -150);
  EXPECT_EQ(walker.NextWithRetry(), 200);
}

TEST(DirectoryWalker, MissingFolderAsksForTheLongFormFirstWhereThatIsAllowed) {
  const ScratchFolder scratch;
  Walker walker;
  walker.longPathsAllowed = true;
  walker.Reset(scratch.Path(W("missing\\below")));
  walker.pattern = W("*");
  EXPECT_EQ(walker.Next(), -600);
  walker.useLongPath = true;
  EXPECT_EQ(walker.Next(), -150);
}

TEST(DirectoryWalker, MissingFolderIsRetriedOnceAndThenEnds) {
  const ScratchFolder scratch;
  Walker walker;
  walker.longPathsAllowed = true;
  walker.Reset(scratch.Path(W("missing\\below")));
  walker.pattern = W("*");
  EXPECT_EQ(walker.NextWithRetry(), -150);
  EXPECT_TRUE(walker.useLongPath);
  EXPECT_EQ(walker.NextWithRetry(), 200);
}

TEST(DirectoryWalker, MaskWithoutAMatchIsAnInvalidSearchAndThenTheEnd) {
  const ScratchFolder scratch;
  scratch.Write(W("file.txt"), "x");
  Walker walker;
  walker.Reset(scratch.Path());
  EXPECT_EQ(walker.NextWithRetry(), -150);
  EXPECT_EQ(walker.NextWithRetry(), 200);
}

TEST(DirectoryWalker, FolderBelowWithoutAMatchIsLeftAndTheWalkGoesOn) {
  const ScratchFolder scratch;
  for (const WCHAR* folder : {W("a.dat"), W("b.dat"), W("c.dat")}) scratch.MakeFolder(folder);
  scratch.Write(W("a.dat\\in.dat"), "x");
  scratch.Write(W("b.dat\\other.txt"), "x");
  scratch.Write(W("c.dat\\in.dat"), "x");
  scratch.Write(W("top.dat"), "x");
  const Walk walk = WalkFolder(scratch.Path(), W("*.dat"), kAllFiles);
  EXPECT_EQ(walk.Of(101), Names({W("a.dat\\in.dat"), W("c.dat\\in.dat"), W("top.dat")}));
  EXPECT_EQ(walk.Count(-150), 1);
  EXPECT_TRUE(walk.Ended());
}

TEST(DirectoryWalker, FileAsStartFolderEnds) {
  const ScratchFolder scratch;
  const WString file = scratch.Write(W("file.txt"), "x");
  const Walk walk = WalkFolder(file, W("*"), kAllFiles);
  EXPECT_TRUE(walk.Ended());
  EXPECT_EQ(walk.Count(101), 0);
  EXPECT_LE(walk.steps.size(), 2u);
}

TEST(DirectoryWalker, EmptyPathDoesNotCrash) {
  Walker walker;
  walker.Reset({});
  walker.pattern = W("no such name *.zzz");
  int steps = 0;
  while (walker.NextWithRetry() != Walker::kEnd && steps < kTooManySteps) ++steps;
  EXPECT_LE(steps, 1);
}

TEST(DirectoryWalker, SearchTextBeyondTheLimitIsAnInvalidSearch) {
  // 4096 characters with separator and mask exceed the limit, both for the path and for the mask.
  for (const std::size_t length : {4094u, 4095u, 4096u, 5000u}) {
    for (const bool allowed : {false, true}) {
      Walker walker;
      walker.longPathsAllowed = allowed;
      walker.Reset(W("Z:\\") + WString(length - 3, W('p')));
      walker.pattern = W("*");
      EXPECT_EQ(walker.NextWithRetry(), -150) << length;
      EXPECT_EQ(walker.NextWithRetry(), 200) << length;
    }
  }
  const ScratchFolder scratch;
  Walker walker;
  walker.Reset(scratch.Path());
  walker.pattern = WString(5000, W('m'));
  EXPECT_EQ(walker.NextWithRetry(), -150);
  EXPECT_EQ(walker.NextWithRetry(), 200);
}

TEST(DirectoryWalker, StackSlotInUseIsReportedAndNothingIsOverwritten) {
  const ScratchFolder scratch;
  scratch.MakeFolder(W("a\\b\\c"));
  Walker walker;
  Prepared(walker, scratch.Path(), Walker::kPassDotEntries | Walker::kRecurse);
  ASSERT_EQ(walker.NextWithRetry(), Walker::kFolder);
  walker.descendNext = true;
  ASSERT_EQ(walker.NextWithRetry(), Walker::kFolder);
  walker.depth = 0;  // the slot of level 0 contains the way back
  walker.descendNext = true;
  EXPECT_EQ(walker.NextWithRetry(), -160);
  walker.depth = 1;  // restored, so that the search in that slot is closed
}

TEST(DirectoryWalker, LevelBeyondTheStackHasNoSlot) {
  const ScratchFolder scratch;
  scratch.MakeFolder(W("a"));
  Walker walker;
  Prepared(walker, scratch.Path());
  walker.depth = static_cast<std::int32_t>(Walker::kStackSize);
  EXPECT_EQ(walker.NextWithRetry(), -160);
  walker.depth = 0;
}

TEST(DirectoryWalker, PathOfAFolderHas4096CharactersAtMost) {
  for (const std::size_t size : {4096u, 4097u}) {
    const ScratchFolder scratch;
    scratch.MakeFolder(W("a"));
    Walker walker;
    Prepared(walker, scratch.Path(), Walker::kPassDotEntries | Walker::kRecurse);
    ASSERT_EQ(walker.NextWithRetry(), Walker::kFolder);
    walker.path = WString(size - 2, W('x'));  // a backslash and the name follow
    walker.descendNext = true;
    const Walker::Code code = walker.NextWithRetry();
    EXPECT_EQ(walker.depth, size == 4096 ? 1 : 0);
    if (size > 4096) {
      EXPECT_EQ(code, Walker::kInvalidSearch);
    }
  }
}

// Levels of 110 characters: the path exceeds 260 characters at the third and 520 at the fifth.
TEST(DirectoryWalker, DeepPathsAreWalkedToTheirEnd) {
  const ScratchFolder scratch;
  const WString level(110, W('d'));
  WString below;
  std::vector<WString> expected;
  for (int i = 0; i < 7; ++i) {
    below += (i ? W("\\") : W("")) + level;
    scratch.MakeFolder(below);
    expected.push_back(below + W("\\file.txt"));
    scratch.Write(expected.back(), "x");
  }
  ASSERT_GT(expected.back().size(), 700u);
  std::sort(expected.begin(), expected.end());
  Walker walker;
  walker.longPathsAllowed = true;
  const Walk walk =
      RunWalk(Prepared(walker, scratch.Path(), kAllFiles | Walker::kReportFolderEnd), scratch.Path());
  EXPECT_EQ(walk.Of(101), expected);
  EXPECT_EQ(walk.Count(120), 7);
  EXPECT_EQ(walker.maxDepthSeen, 7);
  EXPECT_EQ(walker.depth, 0);
  EXPECT_EQ(walker.path, scratch.Path());
}

TEST(DirectoryWalker, ReturnsFromADeepFolderToTheRestOfTheOneAbove) {
  const ScratchFolder scratch;
  const WString deep = WString(200, W('d')) + W("\\") + WString(200, W('e')) + W("\\") + WString(200, W('f'));
  scratch.MakeFolder(deep);
  for (int i = 0; i < 20; ++i) scratch.Write(FromUtf8("file" + std::to_string(i)), "x");
  scratch.Write(deep + W("\\inside"), "x");
  DirectoryWalker walker;
  walker.longPathsAllowed = true;
  Prepared(walker, scratch.Path());
  EXPECT_EQ(RunWalk(walker, scratch.Path()).Count(101), 21);
}
