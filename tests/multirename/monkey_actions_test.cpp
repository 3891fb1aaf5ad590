// The random actions of the monkey tests of MultiRename's window.
#include "support/monkey_actions.h"

#include <gtest/gtest.h>

#include <set>

namespace {

std::vector<std::string> ActionsOf(std::uint32_t seed, int count) {
  ActionGenerator generator(seed);
  std::vector<std::string> shown;
  for (int index = 0; index < count; ++index) shown.push_back(generator.Next().Shown());
  return shown;
}

TEST(MonkeyActions, AreTheSameForTheSameSeedAndOthersForAnother) {
  EXPECT_EQ(ActionsOf(5, 200), ActionsOf(5, 200));
  EXPECT_NE(ActionsOf(5, 200), ActionsOf(6, 200));
}

TEST(MonkeyActions, HoldEveryDeed) {
  ActionGenerator generator(1);
  std::set<MonkeyDeed> deeds;
  for (int index = 0; index < 5000; ++index) deeds.insert(generator.Next().deed);
  EXPECT_EQ(deeds.size(), 13u);
}

}  // namespace
