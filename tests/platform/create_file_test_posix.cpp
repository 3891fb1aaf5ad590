// Opening files when memory runs out: a file is truncated only after everything that can fail has succeeded.

#include <gtest/gtest.h>

#include <new>

#include "platform/outcome.h"
#include "support/memory_limit.h"
#include "support/scratch_folder.h"

namespace {

// More than an open needs.
constexpr int kManyAllocations = 1000;

class CreateFileWithoutMemory : public testing::TestWithParam<DWORD> {};

// Returns the handle, or INVALID_HANDLE_VALUE, also if even the error could not be stored for lack of memory.
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
    // The failed attempt has left nothing that prevents another open.
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
