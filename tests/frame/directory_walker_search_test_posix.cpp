// How a walk calls the system's search: the level of information, the maximum length, and the number of
// calls.
#include <gmock/gmock.h>

#include <filesystem>

#include "frame/walk_helper.h"
#include "platform/posix/files/faults.h"

using namespace Platform;
using testing::ElementsAre;
using testing::IsEmpty;
using Walker = DirectoryWalker;

namespace {

constexpr char kSearch[] = "FindFirstFileExW";

// Returns the paths that the first step of a walk with this mask searches. The path need not exist.
std::vector<WString> SearchesOf(const WString& path, const WString& pattern, bool longForm = false) {
  const Faults::Scope faults;
  Faults::Watch(kSearch);
  Walker walker;
  walker.longPathsAllowed = longForm;
  walker.Reset(path);
  walker.pattern = pattern;
  walker.useLongPath = longForm;
  EXPECT_EQ(walker.Next(), -150) << path.size();
  EXPECT_EQ(walker.Next(), 200) << path.size();
  return Faults::Paths(kSearch);
}

// Returns a path of this length; its folder names are valid on every file system.
WString PathOf(std::size_t size) {
  WString path = W("Z:");
  while (path.size() < size) path += path.size() % 100 == 2 && path.size() + 1 < size ? W('\\') : W('p');
  return path;
}

}  // namespace

TEST(SearchOfAWalk, RequestsTheStandardInformationByDefault) {
  const ScratchFolder scratch;
  scratch.Write(W("a.dat"), "x");
  const Faults::Scope faults;
  Faults::Watch(kSearch);
  Walker walker;
  walker.Reset(scratch.Path());
  EXPECT_EQ(walker.Next(), 101);
  EXPECT_EQ(Faults::LastInfoLevel(), FindExInfoStandard);
  EXPECT_EQ(Faults::LastFlags(kSearch), 0u);
}

TEST(SearchOfAWalk, TakesTheBasicInformationAndLargeFetchesOnRequest) {
  const ScratchFolder scratch;
  scratch.Write(W("a.dat"), "x");
  const Faults::Scope faults;
  Faults::Watch(kSearch);
  Walker walker;
  walker.Reset(scratch.Path());
  walker.useBasicInfo = true;
  EXPECT_EQ(walker.Next(), 101);
  EXPECT_EQ(Faults::CallCount(kSearch), 1);
  EXPECT_EQ(Faults::LastInfoLevel(), FindExInfoBasic);
  EXPECT_EQ(Faults::LastFlags(kSearch), 2u);  // FIND_FIRST_EX_LARGE_FETCH
  EXPECT_TRUE(walker.useBasicInfo);
}

TEST(SearchOfAWalk, AFirstEntryWithoutANameIsSearchedAgainWithTheStandardInformation) {
  const ScratchFolder scratch;
  scratch.Write(W("a.dat"), "x");
  scratch.Write(W("b.dat"), "x");
  const Faults::Scope faults;
  Faults::Watch(kSearch);
  Faults::Watch("FindClose");
  Faults::ReturnNoName(1);
  Walker walker;
  walker.Reset(scratch.Path());
  walker.useBasicInfo = true;
  const Walk walk = RunWalk(walker, scratch.Path());
  EXPECT_EQ(walk.Of(101), Names({W("a.dat"), W("b.dat")}));
  EXPECT_EQ(walk.steps.size(), 3u);
  EXPECT_FALSE(walker.useBasicInfo);
  EXPECT_EQ(Faults::CallCount(kSearch), 2);
  EXPECT_EQ(Faults::LastInfoLevel(), FindExInfoStandard);
  EXPECT_EQ(Faults::LastFlags(kSearch), 0u);
  EXPECT_EQ(Faults::CallCount("FindClose"), 1);  // of the first search; the second is still open
  walker.Close();
  EXPECT_EQ(Faults::CallCount("FindClose"), 2);
}

TEST(SearchOfAWalk, StopsBelow4096CharactersInAll) {
  const WString fits = PathOf(4093);
  EXPECT_THAT(SearchesOf(fits, W("*")), ElementsAre(fits + W("\\*")));  // 4095
  EXPECT_THAT(SearchesOf(PathOf(4094), W("*")), IsEmpty());
  EXPECT_THAT(SearchesOf(PathOf(4095), W("*")), IsEmpty());
  EXPECT_THAT(SearchesOf(PathOf(4096), W("*")), IsEmpty());
  EXPECT_THAT(SearchesOf(PathOf(4000), WString(94, W('m'))).size(), 1u);
  EXPECT_THAT(SearchesOf(PathOf(4000), WString(95, W('m'))), IsEmpty());
}

TEST(SearchOfAWalk, ThePrefixOfTheLongFormCountsToo) {
  const WString fits = PathOf(4089);
  EXPECT_THAT(SearchesOf(fits, W("*"), true), ElementsAre(W("\\\\?\\") + fits + W("\\*")));  // 4095
  EXPECT_THAT(SearchesOf(PathOf(4090), W("*"), true), IsEmpty());
}

TEST(SearchOfAWalk, CutsTheMaskAt260Characters) {
  const ScratchFolder scratch;
  for (const std::size_t size : {260u, 261u, 5000u}) {
    EXPECT_THAT(SearchesOf(scratch.Path(), WString(size, W('m'))),
                ElementsAre(scratch.Path() + W("\\") + WString(260, W('m'))));
  }
  EXPECT_THAT(SearchesOf(scratch.Path(), WString(259, W('m'))),
              ElementsAre(scratch.Path() + W("\\") + WString(259, W('m'))));
}

TEST(SearchOfAWalk, AnEmptyPathIsInvalidAndNothingIsSearched) {
  EXPECT_THAT(SearchesOf(W(""), W("*")), IsEmpty());
  EXPECT_THAT(SearchesOf(W(""), W("*"), true), IsEmpty());
}

TEST(SearchOfAWalk, AfterTheEndNothingIsSearchedAgain) {
  const ScratchFolder scratch;
  scratch.Write(W("a.dat"), "x");
  const Faults::Scope faults;
  Faults::Watch(kSearch);
  Walker walker;
  walker.Reset(scratch.Path());
  EXPECT_EQ(walker.Next(), 101);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(walker.NextWithRetry(), 200);
  EXPECT_EQ(Faults::CallCount(kSearch), 1);
}

TEST(SearchOfAWalk, AStartFolderWithoutAccessStaysAtItsEnd) {
  const ScratchFolder scratch;
  scratch.Write(W("a.dat"), "x");
  const Faults::Scope faults;
  Faults::Fail(kSearch, 1, ERROR_ACCESS_DENIED);
  Walker walker;
  walker.Reset(scratch.Path());
  for (int i = 0; i < 3; ++i) EXPECT_EQ(walker.NextWithRetry(), 200);
  EXPECT_EQ(Faults::CallCount(kSearch), 1);
}

TEST(SearchOfAWalk, AStartFolderThatIsALinkStaysAtItsEnd) {
  const ScratchFolder scratch;
  scratch.MakeFolder(W("folder"));
  scratch.Write(W("folder\\a.dat"), "x");
  std::filesystem::create_directory_symlink(scratch.NativePath(W("folder")), scratch.NativePath(W("link")));
  const Faults::Scope faults;
  Faults::Watch(kSearch);
  Walker walker;
  walker.Reset(scratch.Path(W("link")));
  for (int i = 0; i < 3; ++i) EXPECT_EQ(walker.NextWithRetry(), 200);
  EXPECT_EQ(Faults::CallCount(kSearch), 0);
}

TEST(SearchOfAWalk, AFileOfMoreThanFourGibibytesCountsInFull) {
  const ScratchFolder scratch;
  scratch.Write(W("large.dat"), "");
  scratch.Write(W("small.dat"), "123");
  constexpr std::int64_t kLarge = 5'000'000'001;
  std::filesystem::resize_file(scratch.NativePath(W("large.dat")), static_cast<std::uintmax_t>(kLarge));
  Walker walker;
  walker.Reset(scratch.Path());
  EXPECT_EQ(RunWalk(walker, scratch.Path()).Count(101), 2);
  EXPECT_EQ(walker.totalSize, kLarge + 3);
}
