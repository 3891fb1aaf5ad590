// Renames of which the names do not show later whether they were done.
#include "host/rename/colliding_names.h"

#include <gmock/gmock.h>

#include <random>

#include "support/random_cases.h"

using testing::ElementsAre;
using testing::IsEmpty;
using Velmora::SDK::MultiRenameUndoEntry;

namespace QxHost {
namespace {

using Entries = std::vector<MultiRenameUndoEntry>;

TEST(CollidingNamesTest, AChainAndACycleCollideAndOthersDoNot) {
  const WString f = W("Z:\\f");
  EXPECT_THAT(FindCollidingNames(Entries{{f, W("x"), W("a")}, {f, W("y"), W("b")}}), IsEmpty());
  EXPECT_THAT(FindCollidingNames(Entries{{f, W("b"), W("a")}, {f, W("c"), W("b")}, {f, W("z"), W("y")}}),
              ElementsAre(true, true, false));
  EXPECT_THAT(FindCollidingNames(Entries{{f, W("b"), W("a")}, {f, W("a"), W("b")}}), ElementsAre(true, true));
  // The same names in another folder are different names.
  EXPECT_THAT(FindCollidingNames(Entries{{f, W("b"), W("a")}, {W("Z:\\g"), W("c"), W("b")}}), IsEmpty());
}

TEST(CollidingNamesTest, LetterCaseAndASeparatorAtTheEndMakeNoDifference) {
  EXPECT_THAT(FindCollidingNames(Entries{{W("Z:\\f"), W("B"), W("a")}, {W("Z:\\F\\"), W("c"), W("b")}}),
              ElementsAre(true, true));
}

TEST(CollidingNamesTest, AnotherLetterCaseOfItsOwnNameCollidesOnlyWithOthers) {
  const WString f = W("Z:\\f");
  EXPECT_THAT(FindCollidingNames(Entries{{f, W("A"), W("a")}, {f, W("B"), W("b")}}), IsEmpty());
  EXPECT_THAT(FindCollidingNames(Entries{{f, W("A"), W("a")}, {f, W("a"), W("A")}}), ElementsAre(true, true));
  EXPECT_THAT(FindCollidingNames(Entries{{f, W("A"), W("a")}, {f, W("a"), W("x")}}), ElementsAre(true, true));
}

TEST(CollidingNamesTest, AFolderOfOthersMakesAllCollide) {
  EXPECT_THAT(FindCollidingNames(Entries{{W("Z:\\"), W("g"), W("f")},
                                         {W("Z:\\f\\deep\\er"), W("b"), W("a")},
                                         {W("Z:\\other"), W("b"), W("a")}}),
              ElementsAre(true, true, true));
  EXPECT_THAT(FindCollidingNames(Entries{{W("Z:\\"), W("g"), W("f")}, {W("Z:\\ff"), W("b"), W("a")}}),
              IsEmpty());
}

TEST(CollidingNamesTest, AnEndThatIsCutIsNoPartOfTheName) {
  const WString f = W("Z:\\f");
  EXPECT_THAT(FindCollidingNames(Entries{{f, W("b. "), W("a")}, {f, W("c"), W("b")}}),
              ElementsAre(true, true));
}

// The reference rule: compares every pair of paths.
std::vector<bool> CollidingByPairs(const Entries& entries) {
  const auto isSame = [](const WString& left, const WString& right) {
    return CompareStringOrdinal(left.c_str(), -1, right.c_str(), -1, TRUE) == CSTR_EQUAL;
  };
  std::vector<bool> colliding(entries.size(), false);
  for (std::size_t row = 0; row < entries.size(); ++row) {
    const MultiRenameUndoEntry& entry = entries[row];
    const WString path = entry.folder.Text() + W('\\') + entry.oldName;
    for (std::size_t other = 0; other < entries.size(); ++other) {
      const MultiRenameUndoEntry& beside = entries[other];
      const WString folder = WString(beside.folder) + W('\\');
      if (folder.size() > path.size() && isSame(folder.substr(0, path.size() + 1), path + W('\\')))
        return std::vector<bool>(entries.size(), true);
      if (other == row || !isSame(entry.folder, beside.folder)) continue;
      if (isSame(entry.newName, beside.oldName) || isSame(entry.oldName, beside.newName))
        colliding[row] = true;
    }
  }
  const bool isAny = std::find(colliding.begin(), colliding.end(), true) != colliding.end();
  return isAny ? colliding : std::vector<bool>();
}

TEST(CollidingNamesTest, NamesCollideAsByThePlainRule) {
  std::mt19937 random(99);
  const auto below = [&random](std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
  };
  const std::vector<WString> folders = {W("Z:\\f"), W("Z:\\F"), W("Z:\\f\\a"), W("Z:\\g"), W("Z:\\g\\b\\c")};
  int collidingCases = 0;
  const int cases = RandomCases(20000);
  for (int number = 0; number < cases; ++number) {
    Entries entries;
    const std::size_t count = 1 + below(6);
    while (entries.size() < count) {
      const auto name = [&] {
        return WString(1, static_cast<WCHAR>((below(2) ? W('a') : W('A')) + below(9)));
      };
      const WString oldName = name();
      const WString newName = name();
      if (oldName != newName) entries.push_back({folders[below(below(3) ? 1 : 5)], newName, oldName});
    }
    const std::vector<bool> expected = CollidingByPairs(entries);
    const std::vector<bool> found = FindCollidingNames(entries);
    // An entry that differs from another one in case only may be marked too; that costs one more check.
    for (std::size_t row = 0; row < expected.size(); ++row) {
      ASSERT_TRUE(!expected[row] || (row < found.size() && found[row])) << number;
    }
    if (expected.empty()) {
      for (std::size_t row = 0; row < found.size(); ++row) ASSERT_FALSE(found[row]) << number;
    }
    collidingCases += !expected.empty();
  }
  EXPECT_GT(collidingCases, cases / 10);
  EXPECT_LT(collidingCases, cases);
}

}  // namespace
}  // namespace QxHost
