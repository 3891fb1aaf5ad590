// A walk when memory runs out: it reports a specific code, leaves the folder and continues.
#include <gtest/gtest.h>

#include "frame/walk_helper.h"
#include "support/memory_limit.h"

using Walker = DirectoryWalker;

namespace {

// More than a step needs.
constexpr int kManyAllocations = 1000;

// Returns the code of one step with at most this many allocations.
Walker::Code StepWithin(Walker& walker, int allocations) {
  const Memory::Limit limit(allocations);
  return walker.NextWithRetry();
}

constexpr std::uint32_t kFilesAndLinks = Walker::kPassDotEntries | Walker::kNoFolders | Walker::kRecurse;

}  // namespace

TEST(WalkWithoutMemory, StartFolderThatCannotBeOpenedIsLeft) {
  const ScratchFolder scratch;
  scratch.Write(W("a.dat"), "x");
  int failures = 0;
  for (int allocations = 0;; ++allocations) {
    ASSERT_LT(allocations, kManyAllocations);
    Walker walker;
    walker.Reset(scratch.Path());
    const Walker::Code code = StepWithin(walker, allocations);
    if (code == 101) break;
    ASSERT_EQ(code, -300) << allocations;
    ++failures;
    EXPECT_EQ(walker.NextWithRetry(), 200) << allocations;
    EXPECT_EQ(walker.NextWithRetry(), 200) << allocations;
  }
  EXPECT_GT(failures, 0);
}

TEST(WalkWithoutMemory, FolderBelowThatCannotBeEnteredOrOpenedIsLeftAndTheRestIsWalked) {
  const ScratchFolder scratch;
  scratch.MakeFolder(W("below"));
  scratch.Write(W("below\\inside"), "x");
  int notEntered = 0;
  int notOpened = 0;
  for (int allocations = 0;; ++allocations) {
    ASSERT_LT(allocations, kManyAllocations);
    Walker walker;
    Prepared(walker, scratch.Path(), Walker::kPassDotEntries | Walker::kRecurse);
    ASSERT_EQ(walker.NextWithRetry(), 102);
    walker.descendNext = true;
    const Walker::Code code = StepWithin(walker, allocations);
    if (code == 101) break;
    ASSERT_EQ(code, -300) << allocations;
    ++(walker.depth == 0 ? notEntered : notOpened);
    EXPECT_EQ(walker.NextWithRetry(), 200) << allocations;
    EXPECT_EQ(walker.depth, 0) << allocations;
    EXPECT_EQ(walker.path, scratch.Path()) << allocations;
    EXPECT_EQ(walker.fileCount, 0) << allocations;
  }
  EXPECT_GT(notEntered, 0);
  EXPECT_GT(notOpened, 0);
}

TEST(WalkWithoutMemory, AWalkThatLosesOneFolderFindsAllOthers) {
  const ScratchFolder scratch;
  for (const WCHAR* folder : {W("one"), W("two"), W("three")}) {
    scratch.MakeFolder(folder);
    scratch.Write(WString(folder) + W("\\inside"), "x");
  }
  Walker walker;
  Prepared(walker, scratch.Path(), kFilesAndLinks);
  ASSERT_EQ(walker.NextWithRetry(), 101);
  ASSERT_EQ(StepWithin(walker, 0), -300);
  const Walk rest = RunWalk(walker, scratch.Path());
  EXPECT_EQ(rest.Count(101), 1);
  EXPECT_TRUE(rest.Ended());
}

TEST(WalkWithoutMemory, ResetThatCannotKeepThePathSaysSoInTheNextStep) {
  const ScratchFolder scratch;
  scratch.Write(W("a.dat"), "x");
  Walker walker;
  {
    const WString path = scratch.Path();
    walker.path = WString();  // no buffer that could be reused
    walker.path.shrink_to_fit();
    const Memory::Limit limit(0);
    EXPECT_NO_THROW(walker.Reset(path));
  }
  EXPECT_EQ(walker.pattern, W("*.dat"));
  EXPECT_EQ(walker.flags, 8209u);
  EXPECT_EQ(walker.NextWithRetry(), -300);
  EXPECT_EQ(walker.NextWithRetry(), 200);
  // After the next Reset the walk works again.
  walker.Reset(scratch.Path());
  EXPECT_EQ(walker.NextWithRetry(), 101);
}
