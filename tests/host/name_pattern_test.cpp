// Items given by patterns.
#include "host/command_line/name_pattern.h"

#include <gmock/gmock.h>

#include "host/output/failures.h"
#include "support/scratch_folder.h"

using testing::ElementsAre;

namespace QxHost {
namespace {

TEST(NamePatternTest, AStarIsAnyTextAndAQuestionMarkOneCharacter) {
  const struct {
    const WCHAR* pattern;
    const WCHAR* name;
    bool matches;
  } kCases[] = {
      {W("*"), W("a"), true},           {W("*.jpg"), W("a.jpg"), true},   {W("*.jpg"), W("a.JPG"), true},
      {W("*.jpg"), W("a.jpgx"), false}, {W("*.jpg"), W("jpg"), false},    {W("?.jpg"), W("a.jpg"), true},
      {W("?.jpg"), W(".jpg"), false},   {W("?.jpg"), W("ab.jpg"), false}, {W("a*b*c"), W("aXbYbZc"), true},
      {W("a*b*c"), W("aXbYbZ"), false}, {W("a**"), W("a"), true},         {W("a?"), W("a"), false},
      {W("*aab"), W("aaab"), true},     {W("*.*"), W("no dot"), true},    {W("*.*"), W("a.b"), true},
      {W("x.*"), W("x"), false},
  };
  for (const auto& [pattern, name, matches] : kCases) {
    EXPECT_EQ(MatchesPattern(name, pattern), matches) << ToUtf8(pattern) << " " << ToUtf8(name);
  }
}

TEST(NamePatternTest, APatternBecomesTheNamesThatItFindsByTheAlphabetAndOtherItemsStay) {
  ScratchFolder scratch;
  for (const WCHAR* name : {W("b.txt"), W("A.txt"), W("c.txt"), W("d.md")}) scratch.Write(name, "");
  scratch.MakeFolder(W("e.txt"));
  const std::string folder = ToUtf8(scratch.Path()) + "\\";
  EXPECT_THAT(WithPatternsFound({"first", folder + "*.txt", folder + "d.md"}),
              ElementsAre("first", folder + "A.txt", folder + "b.txt", folder + "c.txt", folder + "e.txt",
                          folder + "d.md"));
  EXPECT_THAT(WithPatternsFound({folder + "?.m?"}), ElementsAre(folder + "d.md"));
}

TEST(NamePatternTest, APatternThatFindsNothingAndOneInAFolderNameAreRefused) {
  ScratchFolder scratch;
  scratch.Write(W("a.txt"), "");
  const std::string folder = ToUtf8(scratch.Path()) + "\\";
  for (const std::string& item : {folder + "*.jpg", folder + "missing\\*", folder + "*\\a.txt"}) {
    EXPECT_THROW(WithPatternsFound({item}), BadCall) << item;
  }
}

}  // namespace
}  // namespace QxHost
