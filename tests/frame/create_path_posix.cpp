// Making folders: failures half way, and which components are looked at.
#include <gtest/gtest.h>

#include <algorithm>

#include "frame/services/create_path.h"
#include "platform/posix/faults.h"
#include "support/scratch_folder.h"

using namespace Platform;

TEST(CreatePath, LeavesTheFoldersMadeBeforeAFailure) {
  const ScratchFolder scratch;
  const Faults::Scope faults;
  Faults::Fail("CreateDirectoryW", 3, ERROR_ACCESS_DENIED);
  EXPECT_FALSE(CreatePath(scratch.Path(W("a\\b\\c\\d")), true));
  EXPECT_TRUE(scratch.Exists(W("a\\b")));
  EXPECT_FALSE(scratch.Exists(W("a\\b\\c")));
  // It stops there.
  EXPECT_EQ(Faults::CallCount("CreateDirectoryW"), 3);
}

TEST(CreatePath, LooksAtEachComponentOnceButNotAtTheDrive) {
  const ScratchFolder scratch;
  const WString path = scratch.MakeFolder(W("a\\b"));
  const auto components = static_cast<int>(std::count(path.begin(), path.end(), W('\\')));
  const Faults::Scope faults;
  Faults::Watch("GetFileAttributesW");
  Faults::Watch("CreateDirectoryW");
  EXPECT_TRUE(CreatePath(path, true));
  EXPECT_EQ(Faults::CallCount("GetFileAttributesW"), components);
  EXPECT_EQ(Faults::CallCount("CreateDirectoryW"), 0);
}

TEST(CreatePath, FirstComponentOfAPathWithoutADriveCounts) {
  const ScratchFolder scratch;
  const WString path = scratch.MakeFolder(W("a")).substr(2);
  ASSERT_EQ(path[0], W('\\'));
  const auto components = static_cast<int>(std::count(path.begin(), path.end(), W('\\')));
  const Faults::Scope faults;
  Faults::Watch("GetFileAttributesW");
  EXPECT_TRUE(CreatePath(path, true));
  EXPECT_EQ(Faults::CallCount("GetFileAttributesW"), components);
}

TEST(CreatePath, WithoutParentsLooksAtThePathAlone) {
  const ScratchFolder scratch;
  const Faults::Scope faults;
  Faults::Watch("GetFileAttributesW");
  Faults::Watch("CreateDirectoryW");
  EXPECT_TRUE(CreatePath(scratch.Path(W("a")), false));
  EXPECT_EQ(Faults::CallCount("GetFileAttributesW"), 1);
  EXPECT_EQ(Faults::CallCount("CreateDirectoryW"), 1);
}
