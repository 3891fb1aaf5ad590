// Target names made from patterns.
#include "frame/services/target_name.h"

#include <gtest/gtest.h>

#include "support/fake_host.h"

namespace {

WString Target(const WString& name, const WString& pattern) {
  FakeHost host;
  return BuildTargetName(*host.AddFile(name), pattern);
}

}  // namespace

TEST(TargetName, EmptyPatternGivesAnEmptyName) { EXPECT_EQ(Target(W("a.txt"), W("")), W("")); }

TEST(TargetName, PatternWithoutAnAsteriskIsTheName) {
  for (const WCHAR* pattern : {W("fixed"), W("fixed.log"), W("."), W("a."), W("?.txt")}) {
    EXPECT_EQ(Target(W("a.txt"), pattern), pattern);
  }
}

TEST(TargetName, AsteriskDotAsteriskIsTheSameName) {
  EXPECT_EQ(Target(W("a.txt"), W("*.*")), W("a.txt"));
  EXPECT_EQ(Target(W("photo.one.jpg"), W("*.*")), W("photo.one.jpg"));
}

TEST(TargetName, ExtensionOfThePatternReplacesTheItems) {
  EXPECT_EQ(Target(W("photo.one.jpg"), W("*.bak")), W("photo.one.bak"));
}

TEST(TargetName, PatternWithoutADotKeepsTheExtension) {
  EXPECT_EQ(Target(W("photo.one.jpg"), W("new_*")), W("new_photo.one.jpg"));
  EXPECT_EQ(Target(W("photo.one.jpg"), W("*")), W("photo.one.jpg"));
  EXPECT_EQ(Target(W("photo.one.jpg"), W("*_new")), W("photo.one_new.jpg"));
}

TEST(TargetName, SuffixIsBeforeTheExtension) {
  EXPECT_EQ(Target(W("photo.one.jpg"), W("*_x.*")), W("photo.one_x.jpg"));
}

TEST(TargetName, FullNameReplacesAsteriskDotAsteriskInTheNamePart) {
  EXPECT_EQ(Target(W("photo.one.jpg"), W("*.*.bak")), W("photo.one.jpg.bak"));
  EXPECT_EQ(Target(W("photo.one.jpg"), W("copy *.* of.txt")), W("copy photo.one.jpg of.txt"));
  EXPECT_EQ(Target(W("photo.one.jpg"), W("x*.*y.bak")), W("xphoto.one.jpgy.bak"));
}

TEST(TargetName, OnlyTheFirstAsteriskOfEachPartIsReplacedAndTheOthersGo) {
  EXPECT_EQ(Target(W("a.txt"), W("**")), W("a.txt"));
  EXPECT_EQ(Target(W("a.txt"), W("*-*-*.b*c*")), W("a--.btxtc"));
  EXPECT_EQ(Target(W("a.txt"), W("*.*x*.*")), W("a.txtx.txt"));
}

TEST(TargetName, NamePartWithoutAnAsteriskStaysAsItIs) {
  EXPECT_EQ(Target(W("a.txt"), W("fixed.*")), W("fixed.txt"));
  EXPECT_EQ(Target(W("a.txt"), W(".*")), W(".txt"));
}

TEST(TargetName, DotAloneAtTheEndGoes) {
  EXPECT_EQ(Target(W("a.txt"), W("*.")), W("a"));
  EXPECT_EQ(Target(W("name"), W("*.*")), W("name"));
  EXPECT_EQ(Target(W("name."), W("*")), W("name"));
}

TEST(TargetName, ItemWithoutAnExtension) {
  EXPECT_EQ(Target(W("name"), W("*")), W("name"));
  EXPECT_EQ(Target(W("name"), W("*.bak")), W("name.bak"));
  EXPECT_EQ(Target(W("name"), W("*.x*")), W("name.x"));
}

TEST(TargetName, ItemThatBeginsWithItsOnlyDot) {
  EXPECT_EQ(Target(W(".profile"), W("*.bak")), W(".bak"));
  EXPECT_EQ(Target(W(".profile"), W("x*")), W("x.profile"));
}

TEST(TargetName, AsterisksOfTheItemGoToo) { EXPECT_EQ(Target(W("a*b.t*t"), W("*.*")), W("ab.tt")); }

TEST(TargetName, LongNamesAndPatternsDoNotCrash) {
  const WString target = Target(WString(5000, W('n')) + W(".txt"), W("x*.*"));
  EXPECT_EQ(target.substr(0, 1001), W("x") + WString(1000, W('n')));
  EXPECT_EQ(Target(W("a.txt"), WString(5000, W('*'))), W("a.txt"));
  EXPECT_EQ(Target(W("a.txt"), WString(5000, W('p')) + W(".*")), WString(5000, W('p')) + W(".txt"));
}
