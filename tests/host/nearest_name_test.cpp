// Which name is suggested for a mistyped one.
#include "host/output/nearest_name.h"

#include <gtest/gtest.h>

namespace QxHost {
namespace {

constexpr std::string_view kVerbNames[] = {"info", "menu", "command", "script"};

std::string_view NearestOf(std::string_view typed, std::initializer_list<std::string_view> names) {
  return NearestName(typed, std::span(names.begin(), names.size()));
}

TEST(NearestName, OneMistakeOfEachKindIsForgiven) {
  EXPECT_EQ(NearestName("comand", kVerbNames), "command");
  EXPECT_EQ(NearestName("commmand", kVerbNames), "command");
  EXPECT_EQ(NearestName("conmand", kVerbNames), "command");
  EXPECT_EQ(NearestName("cmomand", kVerbNames), "command");
  EXPECT_EQ(NearestName("ommand", kVerbNames), "command");
  EXPECT_EQ(NearestName("xcommand", kVerbNames), "command");
  EXPECT_EQ(NearestName("commandx", kVerbNames), "command");
  EXPECT_EQ(NearestName("mneu", kVerbNames), "menu");
}

TEST(NearestName, LetterCaseIsNoMistake) {
  EXPECT_EQ(NearestName("SCRIPT", kVerbNames), "script");
  EXPECT_EQ(NearestName("sCIRPT", kVerbNames), "script");
  EXPECT_EQ(NearestOf("target", {"FILE", "TARGET"}), "TARGET");
}

TEST(NearestName, ThereIsOneMistakeForEachThreeTypedCharacters) {
  EXPECT_EQ(NearestOf("abx", {"abc"}), "abc");
  EXPECT_EQ(NearestOf("axx", {"abc"}), "");
  EXPECT_EQ(NearestOf("abxx", {"abcd"}), "abcd");
  EXPECT_EQ(NearestOf("axxx", {"abcd"}), "");
  EXPECT_EQ(NearestOf("abcdefxx", {"abcdefgh"}), "abcdefgh");
  EXPECT_EQ(NearestOf("abcdexxx", {"abcdefgh"}), "abcdefgh");
  EXPECT_EQ(NearestOf("abcdxxxx", {"abcdefgh"}), "");
}

TEST(NearestName, AnExchangeIsOneMistakeWhereTwoWouldBeTooMany) {
  EXPECT_EQ(NearestOf("on", {"no"}), "no");
  EXPECT_EQ(NearestOf("onx", {"no"}), "");
  EXPECT_EQ(NearestOf("bca", {"abc"}), "");
}

TEST(NearestName, TheOneWithTheFewestMistakesIsTakenAndTheFirstOfSeveral) {
  EXPECT_EQ(NearestOf("sort", {"sxxt", "sort-by", "port"}), "sort-by");
  EXPECT_EQ(NearestOf("sorx", {"port", "sorn", "sort"}), "sorn");
  EXPECT_EQ(NearestOf("sort", {"port", "SORT"}), "SORT");
}

TEST(NearestName, APrefixOfTwoCharactersIsNear) {
  EXPECT_EQ(NearestName("co", kVerbNames), "command");
  EXPECT_EQ(NearestName("c", kVerbNames), "");
  EXPECT_EQ(NearestOf("--dry", {"--dry-run"}), "--dry-run");
  EXPECT_EQ(NearestOf("run", {"--dry-run"}), "");
}

TEST(NearestName, NothingIsNearToAnEmptyTextOrALongOne) {
  EXPECT_EQ(NearestName("", kVerbNames), "");
  EXPECT_EQ(NearestOf("", {"", "a"}), "");
  EXPECT_EQ(NearestOf("abc", {}), "");
  EXPECT_EQ(NearestName(std::string(1000000, 'm'), kVerbNames), "");
  EXPECT_EQ(NearestName("frobnicate", kVerbNames), "");
}

TEST(NearestName, AMessageEndsInTheProposal) {
  EXPECT_EQ(DidYouMean("inof", kVerbNames), ". Did you mean info?");
  EXPECT_EQ(DidYouMean("frobnicate", kVerbNames), "");
}

}  // namespace
}  // namespace QxHost
