// A walk when memory runs out: it says so with a code of its own, leaves the folder and goes on.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "frame/walk_helper.h"

using Walker = DirectoryWalker;

namespace {

// Allocations of this thread that still succeed; below 0 for no limit.
thread_local int allocationsLeft = -1;

bool MayAllocate() {
  if (allocationsLeft < 0) return true;
  if (allocationsLeft == 0) return false;
  --allocationsLeft;
  return true;
}

// Lets `count` allocations of this thread succeed and no more, until the end of the scope.
struct MemoryLimit {
  explicit MemoryLimit(int count) { allocationsLeft = count; }
  ~MemoryLimit() { allocationsLeft = -1; }
  MemoryLimit(const MemoryLimit&) = delete;
  MemoryLimit& operator=(const MemoryLimit&) = delete;
};

// More than a step takes.
constexpr int kManyAllocations = 1000;

// The code of one step that gets so many allocations.
Walker::Code StepWithin(Walker& walker, int allocations) {
  const MemoryLimit limit(allocations);
  return walker.NextWithRetry();
}

constexpr std::uint32_t kAllFiles = Walker::kPassDotEntries | Walker::kNoFolders | Walker::kRecurse;

}  // namespace

// All of the program's memory comes through here; checkers of memory see the calls below.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return MayAllocate() ? std::malloc(size == 0 ? 1 : size) : nullptr;
}
void* operator new(std::size_t size) {
  if (void* memory = operator new(size, std::nothrow)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }

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
    walker.Reset(scratch.Path());
    walker.pattern = W("*");
    walker.flags = Walker::kPassDotEntries | Walker::kRecurse;
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
  walker.Reset(scratch.Path());
  walker.pattern = W("*");
  walker.flags = kAllFiles;
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
    walker.path = WString();  // nothing to write into
    walker.path.shrink_to_fit();
    const MemoryLimit limit(0);
    EXPECT_NO_THROW(walker.Reset(path));
  }
  EXPECT_EQ(walker.pattern, W("*.dat"));
  EXPECT_EQ(walker.flags, 8209u);
  EXPECT_EQ(walker.NextWithRetry(), -300);
  EXPECT_EQ(walker.NextWithRetry(), 200);
  // The next Reset makes it good again.
  walker.Reset(scratch.Path());
  EXPECT_EQ(walker.NextWithRetry(), 101);
}
