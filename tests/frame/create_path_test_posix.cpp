// Creating folders: failures in the middle, and which components are examined.
#include <gmock/gmock.h>

#include <algorithm>

#include "frame/services/create_path.h"
#include "platform/posix/files/faults.h"
#include "support/scratch_folder.h"

using namespace Platform;
using testing::ElementsAre;

namespace {

// Returns the paths that are examined for this path.
std::vector<WString> ExaminedPaths(const WString& path) {
  const Faults::Scope faults;
  Faults::Watch("GetFileAttributesW");
  CreatePath(path, true);
  return Faults::Paths("GetFileAttributesW");
}

}  // namespace

TEST(CreatePath, LeavesTheFoldersMadeBeforeAFailure) {
  const ScratchFolder scratch;
  const Faults::Scope faults;
  Faults::Fail("CreateDirectoryW", 3, ERROR_ACCESS_DENIED);
  EXPECT_FALSE(CreatePath(scratch.Path(W("a\\b\\c\\d")), true));
  EXPECT_TRUE(scratch.Exists(W("a\\b")));
  EXPECT_FALSE(scratch.Exists(W("a\\b\\c")));
  // It stops at the failure.
  EXPECT_EQ(Faults::CallCount("CreateDirectoryW"), 3);
}

TEST(CreatePath, ChecksEachComponentOnceButNotTheDrive) {
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

TEST(CreatePath, WithoutParentsChecksOnlyThePath) {
  const ScratchFolder scratch;
  const Faults::Scope faults;
  Faults::Watch("GetFileAttributesW");
  Faults::Watch("CreateDirectoryW");
  EXPECT_TRUE(CreatePath(scratch.Path(W("a")), false));
  EXPECT_EQ(Faults::CallCount("GetFileAttributesW"), 1);
  EXPECT_EQ(Faults::CallCount("CreateDirectoryW"), 1);
}

// None of these servers exists, so the first folder below the share fails.
TEST(CreatePath, BeginsAfterServerAndShareOfANetworkPath) {
  EXPECT_THAT(ExaminedPaths(W("\\\\server\\share\\a\\b")), ElementsAre(W("\\\\server\\share\\a")));
  EXPECT_THAT(ExaminedPaths(W("\\\\server\\share\\a")), ElementsAre(W("\\\\server\\share\\a")));
  EXPECT_THAT(ExaminedPaths(W("\\\\server\\share")), ElementsAre(W("\\\\server\\share")));
  EXPECT_THAT(ExaminedPaths(W("\\\\server")), ElementsAre(W("\\\\server")));
}

TEST(CreatePath, SearchesForTheEndOfTheServerFromTheFourthCharacterOn) {
  // A server name of one character ends there; a third backslash is part of the name.
  EXPECT_THAT(ExaminedPaths(W("\\\\s\\share\\a\\b")), ElementsAre(W("\\\\s\\share\\a")));
  EXPECT_THAT(ExaminedPaths(W("\\\\\\server\\share\\a\\b")), ElementsAre(W("\\\\\\server\\share\\a")));
}

TEST(CreatePath, NetworkPathHasThreeCharactersAtLeast) {
  EXPECT_THAT(ExaminedPaths(W("\\\\")), ElementsAre(W("\\"), W("\\\\")));
  EXPECT_THAT(ExaminedPaths(W("\\\\a")), ElementsAre(W("\\\\a")));
}

TEST(CreatePath, MakesTheMissingFoldersFromTheTopDown) {
  const ScratchFolder scratch;
  const Faults::Scope faults;
  Faults::Watch("CreateDirectoryW");
  EXPECT_TRUE(CreatePath(scratch.Path(W("a\\b\\c")), true));
  EXPECT_THAT(Faults::Paths("CreateDirectoryW"),
              ElementsAre(scratch.Path(W("a")), scratch.Path(W("a\\b")), scratch.Path(W("a\\b\\c"))));
}
