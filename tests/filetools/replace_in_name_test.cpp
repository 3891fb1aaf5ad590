// Replace X with Y in one name.
#include <gtest/gtest.h>

#include <optional>

#include "filetools/replace_form.h"
#include "filetools/transform_check.h"

using namespace Velmora::SDK;

namespace {

std::optional<WString> Replaced(const WString& name, const WString& find, const WString& replace, int part,
                                bool folder = false) {
  FakeHost host;
  FileItemEntry entry;
  entry.item = folder ? host.AddFolder(name) : host.AddFile(name);
  entry.newName = W("left from before");
  if (ReplaceInName(entry, find, replace, part)) return entry.newName;
  EXPECT_EQ(entry.newName, W("")) << "a name that stays must leave no new name";
  return std::nullopt;
}

std::optional<WString> ReplacedInFolder(const WString& name, const WString& find, const WString& replace,
                                        int part) {
  return Replaced(name, find, replace, part, true);
}

}  // namespace

TEST(ReplaceInName, PartOneWorksBeforeTheLastDot) {
  EXPECT_EQ(Replaced(W("txt.a.txt"), W("txt"), W("T"), 1), Name(W("T.a.txt")));
  EXPECT_EQ(Replaced(W("a.b.c"), W("."), W("-"), 1), Name(W("a-b.c")));
  EXPECT_EQ(Replaced(W("abc.txt"), W("txt"), W("T"), 1), std::nullopt);
}

TEST(ReplaceInName, PartTwoWorksFromTheLastDotOn) {
  EXPECT_EQ(Replaced(W("txt.a.txt"), W("txt"), W("T"), 2), Name(W("txt.a.T")));
  EXPECT_EQ(Replaced(W("a.txt"), W(".txt"), W(".bak"), 2), Name(W("a.bak")));
  EXPECT_EQ(Replaced(W("a.b.c"), W("."), W("-"), 2), Name(W("a.b-c")));
  EXPECT_EQ(Replaced(W("abc.txt"), W("abc"), W("T"), 2), std::nullopt);
}

TEST(ReplaceInName, PartThreeWorksAcrossTheDot) {
  EXPECT_EQ(Replaced(W("ab.cd"), W("b.c"), W("-"), 3), Name(W("a-d")));
  EXPECT_EQ(Replaced(W("txt.a.txt"), W("txt"), W("T"), 3), Name(W("T.a.T")));
  EXPECT_EQ(Replaced(W("a.b.c"), W("."), W("-"), 3), Name(W("a-b-c")));
}

TEST(ReplaceInName, TextAcrossTheDotIsFoundByPartThreeAlone) {
  EXPECT_EQ(Replaced(W("ab.cd"), W("b.c"), W("-"), 1), std::nullopt);
  EXPECT_EQ(Replaced(W("ab.cd"), W("b.c"), W("-"), 2), std::nullopt);
}

TEST(ReplaceInName, WithoutAPartAFileKeepsItsName) {
  EXPECT_EQ(Replaced(W("aaa.aaa"), W("a"), W("b"), ReplaceForm::kNoPart), std::nullopt);
  EXPECT_EQ(Replaced(W("aaa.aaa"), W("a"), W("b"), -1), std::nullopt);
  EXPECT_EQ(Replaced(W("aaa.aaa"), W("a"), W("b"), 0), std::nullopt);
  EXPECT_EQ(Replaced(W("aaa.aaa"), W("a"), W("b"), 4), std::nullopt);
}

TEST(ReplaceInName, FolderIsSearchedWholeWhateverThePart) {
  for (const int part : {1, 2, 3, -1, 0, 4}) {
    EXPECT_EQ(ReplacedInFolder(W("aa.b.aa"), W("aa"), W("c"), part), Name(W("c.b.c"))) << part;
    EXPECT_EQ(ReplacedInFolder(W("ab.cd"), W("b.c"), W("-"), part), Name(W("a-d"))) << part;
  }
}

TEST(ReplaceInName, FileWithoutADotIsAllBase) {
  EXPECT_EQ(Replaced(W("abc"), W("b"), W("X"), 1), Name(W("aXc")));
  EXPECT_EQ(Replaced(W("abc"), W("b"), W("X"), 2), std::nullopt);
  EXPECT_EQ(Replaced(W("abc"), W("b"), W("X"), 3), Name(W("aXc")));
}

TEST(ReplaceInName, FileThatBeginsWithItsOnlyDotIsAllExtension) {
  EXPECT_EQ(Replaced(W(".abc"), W("b"), W("X"), 1), std::nullopt);
  EXPECT_EQ(Replaced(W(".abc"), W("b"), W("X"), 2), Name(W(".aXc")));
  EXPECT_EQ(Replaced(W(".abc"), W("."), W("X"), 2), Name(W("Xabc")));
}

TEST(ReplaceInName, EmptyFindReplacesNothing) {
  for (const int part : {1, 2, 3, -1}) {
    EXPECT_EQ(Replaced(W("a.txt"), W(""), W("X"), part), std::nullopt) << part;
    EXPECT_EQ(ReplacedInFolder(W("a.txt"), W(""), W("X"), part), std::nullopt) << part;
  }
}

TEST(ReplaceInName, IsCaseSensitive) {
  EXPECT_EQ(Replaced(W("ABC.txt"), W("abc"), W("x"), 3), std::nullopt);
  EXPECT_EQ(Replaced(W("aAa.txt"), W("A"), W("x"), 3), Name(W("axa.txt")));
}

TEST(ReplaceInName, OverlappingOccurrencesAreTakenFromTheLeft) {
  EXPECT_EQ(Replaced(W("aaa"), W("aa"), W("b"), 3), Name(W("ba")));
  EXPECT_EQ(Replaced(W("aaaa"), W("aa"), W("b"), 3), Name(W("bb")));
  EXPECT_EQ(Replaced(W("ababa"), W("aba"), W("-"), 3), Name(W("-ba")));
}

TEST(ReplaceInName, WhatWasPutInIsNotSearchedAgain) {
  EXPECT_EQ(Replaced(W("aXa"), W("a"), W("aa"), 3), Name(W("aaXaa")));
  EXPECT_EQ(Replaced(W("aabb"), W("ab"), W("a"), 3), Name(W("aab")));
  EXPECT_EQ(Replaced(W("abb"), W("ab"), W("a"), 3), Name(W("ab")));
}

TEST(ReplaceInName, NameMayGrowAndShrink) {
  EXPECT_EQ(Replaced(W("a_b_c.txt"), W("_"), W(" - "), 1), Name(W("a - b - c.txt")));
  EXPECT_EQ(Replaced(W("a - b - c.txt"), W(" - "), W("_"), 1), Name(W("a_b_c.txt")));
  EXPECT_EQ(Replaced(W("a_b_c.txt"), W("_"), W(""), 1), Name(W("abc.txt")));
  EXPECT_EQ(Replaced(W("abc.txt"), W("abc"), W(""), 1), Name(W(".txt")));
  EXPECT_EQ(Replaced(W("abc.txt"), W(".txt"), W(""), 2), Name(W("abc")));
}

TEST(ReplaceInName, ReplacementOfEqualTextChangesNothing) {
  EXPECT_EQ(Replaced(W("abc.txt"), W("b"), W("b"), 3), std::nullopt);
}

TEST(ReplaceInName, FindLongerThanTheNameFindsNothing) {
  EXPECT_EQ(Replaced(W("abc"), W("abcd"), W("x"), 3), std::nullopt);
  EXPECT_EQ(Replaced(W("abc"), WString(5000, W('a')), W("x"), 3), std::nullopt);
}

TEST(ReplaceInName, DifferenceCountsWithinTheFirst2048CharactersAlone) {
  const WString inside = WString(2047, W('x')) + W("a") + WString(100, W('x'));
  EXPECT_EQ(Replaced(inside, W("a"), W("b"), 3), WString(2047, W('x')) + W("b") + WString(100, W('x')));
  const WString outside = WString(2048, W('x')) + W("a") + WString(100, W('x'));
  EXPECT_EQ(Replaced(outside, W("a"), W("b"), 3), std::nullopt);
}

TEST(ReplaceInName, EmptyAndOverlongNamesDoNotCrash) {
  for (const int part : {1, 2, 3, -1}) {
    for (const bool folder : {false, true}) {
      EXPECT_EQ(Replaced(W(""), W("a"), W("b"), part, folder), std::nullopt);
      const auto grown = Replaced(WString(5000, W('a')), W("a"), WString(300, W('b')), part, folder);
      EXPECT_EQ(grown.value_or(W("")).find_first_not_of(W('b')), WString::npos);
    }
  }
}
