// When a walk uses the long form of a path, and the long form itself.
#include <gmock/gmock.h>

#include "frame/walk_helper.h"
#include "platform/posix/files/faults.h"

using namespace Platform;
using testing::ElementsAre;
using Walker = DirectoryWalker;

namespace {

// The paths that a walk of `path` examines in its first step if nothing exists.
struct FirstLook {
  std::vector<WString> searched;
  std::vector<WString> attributesRead;
};

FirstLook LookAt(const WString& path, bool longPathsAllowed, bool useLongPath) {
  const Faults::Scope faults;
  Faults::Watch("GetFileAttributesW");
  Faults::Fail("FindFirstFileExW", 1, ERROR_GEN_FAILURE);
  Walker walker;
  walker.longPathsAllowed = longPathsAllowed;
  walker.Reset(path);
  walker.pattern = W("*.txt");
  walker.useLongPath = useLongPath;
  EXPECT_EQ(walker.Next(), -150);
  return {Faults::Paths("FindFirstFileExW"), Faults::Paths("GetFileAttributesW")};
}

// one\a and top, walked with or without long paths allowed.
struct SmallTree {
  explicit SmallTree(bool longPathsAllowed) {
    scratch.MakeFolder(W("one"));
    scratch.Write(W("one\\a"), "x");
    scratch.Write(W("top"), "x");
    walker.longPathsAllowed = longPathsAllowed;
    Prepared(walker, scratch.Path());
  }
  ScratchFolder scratch;
  Walker walker;
  Faults::Scope faults;
};

}  // namespace

TEST(LongFormOfAWalk, IsThePrefixThePathABackslashAndTheMask) {
  const FirstLook look = LookAt(W("Z:\\no such\\folder"), true, true);
  EXPECT_THAT(look.searched, ElementsAre(W("\\\\?\\Z:\\no such\\folder\\*.txt")));
  EXPECT_THAT(look.attributesRead, ElementsAre(W("\\\\?\\Z:\\no such\\folder")));
}

TEST(LongFormOfAWalk, AddsNoSecondBackslash) {
  EXPECT_THAT(LookAt(W("Z:\\no such\\"), true, true).searched, ElementsAre(W("\\\\?\\Z:\\no such\\*.txt")));
  EXPECT_THAT(LookAt(W("Z:\\no such\\"), false, false).searched, ElementsAre(W("Z:\\no such\\*.txt")));
}

TEST(LongFormOfAWalk, HoldsTheWholeOfANetworkPath) {
  const FirstLook look = LookAt(W("\\\\server\\share\\folder"), true, true);
  EXPECT_THAT(look.searched, ElementsAre(W("\\\\?\\UNC\\\\\\server\\share\\folder\\*.txt")));
  EXPECT_THAT(look.attributesRead, ElementsAre(W("\\\\?\\UNC\\\\\\server\\share\\folder")));
}

TEST(LongFormOfAWalk, OneLeadingBackslashIsNoNetworkPath) {
  EXPECT_THAT(LookAt(W("\\folder"), true, true).searched, ElementsAre(W("\\\\?\\\\folder\\*.txt")));
}

TEST(LongFormOfAWalk, IsTakenOnlyWhereItIsAllowedAndInUse) {
  for (const auto& [allowed, used] :
       {std::pair(false, false), std::pair(false, true), std::pair(true, false)}) {
    const FirstLook look = LookAt(W("Z:\\no such"), allowed, used);
    EXPECT_THAT(look.searched, ElementsAre(W("Z:\\no such\\*.txt"))) << allowed << used;
    EXPECT_THAT(look.attributesRead, ElementsAre(W("Z:\\no such"))) << allowed << used;
  }
}

TEST(LongFormOfAWalk, IsSearchedWhereThePathItselfWasNotFound) {
  SmallTree tree(true);
  Faults::Watch("GetFileAttributesW");
  Faults::Fail("FindFirstFileExW", 1, ERROR_PATH_NOT_FOUND);
  tree.walker.flags &= ~std::uint32_t{Walker::kRecurse};
  EXPECT_EQ(tree.walker.NextWithRetry(), 101);
  const WString path = tree.scratch.Path();
  EXPECT_THAT(Faults::Paths("FindFirstFileExW"),
              ElementsAre(path + W("\\*"), W("\\\\?\\") + path + W("\\*")));
  EXPECT_THAT(Faults::Paths("GetFileAttributesW"), ElementsAre(path, W("\\\\?\\") + path));
}

TEST(LongFormOfAWalk, IsSearchedWhereAFolderBelowWasNotFound) {
  SmallTree tree(true);
  Faults::Watch("GetFileAttributesW");
  Faults::Fail("FindFirstFileExW", 2, ERROR_PATH_NOT_FOUND);
  EXPECT_EQ(RunWalk(tree.walker, tree.scratch.Path()).Of(101), Names({W("one\\a"), W("top")}));
  const WString path = tree.scratch.Path();
  const WString below = tree.scratch.Path(W("one"));
  EXPECT_THAT(Faults::Paths("FindFirstFileExW"),
              ElementsAre(path + W("\\*"), below + W("\\*"), W("\\\\?\\") + below + W("\\*")));
  EXPECT_THAT(Faults::Paths("GetFileAttributesW"), ElementsAre(path, below, W("\\\\?\\") + below));
}

TEST(LongFormOfAWalk, FolderBelowThatIsNotFoundInItEitherIsInvalid) {
  SmallTree tree(true);
  Faults::Fail("FindFirstFileExW", 2, ERROR_PATH_NOT_FOUND, true);
  const Walk walk = RunWalk(tree.walker, tree.scratch.Path());
  EXPECT_EQ(walk.Count(-150), 1);
  EXPECT_EQ(walk.Count(-600), 0);
  EXPECT_EQ(walk.Of(101), Names({W("top")}));
  EXPECT_TRUE(walk.Ended());
  EXPECT_EQ(Faults::CallCount("FindFirstFileExW"), 3);
}

TEST(LongFormOfAWalk, IsDroppedOnTheWayDown) {
  SmallTree tree(true);
  Faults::Fail("FindFirstFileExW", 1, ERROR_PATH_NOT_FOUND);
  EXPECT_TRUE(RunWalk(tree.walker, tree.scratch.Path()).Ended());
  const WString path = tree.scratch.Path();
  EXPECT_THAT(Faults::Paths("FindFirstFileExW"),
              ElementsAre(path + W("\\*"), W("\\\\?\\") + path + W("\\*"), path + W("\\one\\*")));
}

TEST(LongFormOfAWalk, IsNotAskedForWhereItIsNotAllowed) {
  for (const char* function : {"GetFileAttributesW", "FindFirstFileExW"}) {
    SmallTree tree(false);
    Faults::Watch("FindFirstFileExW");
    Faults::Fail(function, 1, ERROR_PATH_NOT_FOUND);
    // If the attributes cannot be read, the search takes place nevertheless and reports the error, if any.
    EXPECT_EQ(tree.walker.Next(), function == std::string("FindFirstFileExW") ? -150 : 101) << function;
    EXPECT_GT(Faults::CallCount("FindFirstFileExW"), 0) << function;
    for (const WString& path : Faults::Paths("FindFirstFileExW")) {
      EXPECT_TRUE(path.starts_with(tree.scratch.Path())) << function;
    }
  }
}

TEST(LongFormOfAWalk, IsNotAskedForASecondTime) {
  SmallTree tree(true);
  tree.walker.useLongPath = true;
  Faults::Fail("FindFirstFileExW", 1, ERROR_PATH_NOT_FOUND);
  EXPECT_EQ(tree.walker.Next(), -150);
}

TEST(LongFormOfAWalk, OtherErrorsDoNotAskForIt) {
  for (const DWORD error : {ERROR_FILE_NOT_FOUND, ERROR_ACCESS_DENIED, ERROR_GEN_FAILURE}) {
    SmallTree tree(true);
    Faults::Fail("GetFileAttributesW", 1, error);
    EXPECT_EQ(tree.walker.Next(), 101) << error;
    EXPECT_FALSE(tree.walker.useLongPath) << error;
  }
  for (const DWORD error : {ERROR_FILE_NOT_FOUND, ERROR_GEN_FAILURE}) {
    SmallTree tree(true);
    Faults::Fail("FindFirstFileExW", 1, error);
    EXPECT_EQ(tree.walker.Next(), -150) << error;
  }
}
