// Opening files when memory runs out: a file is emptied only once nothing can fail any more.

#include <gtest/gtest.h>

#include <new>

#include "platform/outcome.h"
#include "support/memory_limit.h"
#include "support/scratch_folder.h"

namespace {

// More than an open takes.
constexpr int kManyAllocations = 1000;

class CreateFileWithoutMemory : public testing::TestWithParam<DWORD> {};

// The handle, or INVALID_HANDLE_VALUE also where there was no memory to say so.
HANDLE OpenWithin(int allocations, const WCHAR* path, DWORD creation) {
  const Memory::Limit limit(allocations);
  try {
    return OpenFor(path, GENERIC_WRITE, creation, 0);
  } catch (const std::bad_alloc&) {
    return INVALID_HANDLE_VALUE;
  }
}

TEST_P(CreateFileWithoutMemory, OpensTheFileOrLeavesItsBytes) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "abc");
  for (int allocations = 0;; ++allocations) {
    ASSERT_LT(allocations, kManyAllocations);
    const HANDLE handle = OpenWithin(allocations, path.c_str(), GetParam());
    if (handle != INVALID_HANDLE_VALUE) {
      EXPECT_GT(allocations, 0);
      EXPECT_TRUE(CloseHandle(handle));
      EXPECT_EQ(scratch.Read(W("a.txt")), "");
      break;
    }
    EXPECT_EQ(scratch.Read(W("a.txt")), "abc") << allocations;
    // Nothing of the attempt is left that would stand in the way of another.
    EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING, 0)),
              kNoFailure)
        << allocations;
  }
}

INSTANTIATE_TEST_SUITE_P(BothWays, CreateFileWithoutMemory,
                         testing::Values(CREATE_ALWAYS, TRUNCATE_EXISTING));

TEST(NativeCreateFileTest, RightsThatTheProductDoesNotAskForAreRefused) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "abc");
  for (const DWORD access : {1u, 2u, 0x10000u, 0x20000000u, GENERIC_READ | 0x80u}) {
    EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), access, OPEN_EXISTING)), 87u) << access;
  }
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), 0, OPEN_EXISTING)), kNoFailure);
}

}  // namespace
