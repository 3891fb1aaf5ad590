// Circles of renames are looked for in a quick way, which finds what the walk over all paths finds.
#include "host/rename/rename_circles.h"

#include <gmock/gmock.h>

#include <random>

using testing::IsEmpty;
using testing::UnorderedElementsAre;
using Velmora::SDK::MultiRenameUndoEntry;

namespace QxHost {
namespace {

TEST(RenameCirclesTest, NamesThatMeetNoOtherAreNoCircle) {
  const std::vector<MultiRenameUndoEntry> entries = {{W("Z:\\a"), W("x1"), W("x2")},
                                                     {W("Z:\\a"), W("x3"), W("x4")}};
  EXPECT_THAT(FindRenameCircles(entries), IsEmpty());
}

TEST(RenameCirclesTest, AChainIsNoCircle) {
  const std::vector<MultiRenameUndoEntry> entries = {{W("Z:\\a"), W("2"), W("1")},
                                                     {W("Z:\\a"), W("3"), W("2")}};
  EXPECT_THAT(FindRenameCircles(entries), IsEmpty());
}

TEST(RenameCirclesTest, ACircleIsFoundAmongOthersWhateverTheEndsOfItsFolders) {
  const std::vector<MultiRenameUndoEntry> entries = {{W("Z:\\a"), W("2"), W("1")},
                                                     {W("Z:\\b"), W("1"), W("2")},
                                                     {W("Z:\\a\\"), W("3"), W("2")},
                                                     {W("Z:\\a"), W("1. "), W("3")}};
  EXPECT_THAT(FindRenameCircles(entries), UnorderedElementsAre(0u, 2u, 3u));
}

TEST(RenameCirclesTest, TheQuickWayFindsWhatTheWalkFinds) {
  std::mt19937 random(7);
  std::size_t circles = 0;
  for (int round = 0; round < 3000; ++round) {
    // Few names, so that they meet; each old one is of one file.
    const unsigned names = 2 + random() % 12;
    std::vector<MultiRenameUndoEntry> entries;
    for (unsigned folder = 0; folder < 2; ++folder) {
      for (unsigned name = 0; name < names; ++name) {
        if (random() % 3 == 0) continue;
        const WCHAR newName[] = {
            static_cast<WCHAR>((random() % 5 == 0 ? W('A') : W('a')) + random() % (2 * names)), WCHAR()};
        const WCHAR oldName[] = {static_cast<WCHAR>(W('a') + name), WCHAR()};
        entries.push_back({folder == 0 ? W("Z:\\one") : W("Z:\\two\\"), newName, oldName});
      }
    }
    const std::vector<std::size_t> expected = FindRenameCirclesByWalk(entries);
    EXPECT_EQ(FindRenameCircles(entries), expected) << "round " << round;
    if (!expected.empty()) ++circles;
  }
  EXPECT_GT(circles, 100u);
}

}  // namespace
}  // namespace QxHost
