// Splitting paths and changing extensions.
#include "frame/services/path_parts.h"

#include <gtest/gtest.h>

namespace {

void ExpectSplit(const WString& path, const WString& folder, const WString& fileName) {
  PathParts parts = {W("left"), W("over")};
  SplitPath(parts, path);
  EXPECT_EQ(parts.folder, folder) << ToUtf8(path);
  EXPECT_EQ(parts.fileName, fileName) << ToUtf8(path);
}

}  // namespace

TEST(SplitPath, CutsAfterTheLastBackslash) {
  ExpectSplit(W("C:\\a\\b.txt"), W("C:\\a\\"), W("b.txt"));
  ExpectSplit(W("C:\\b.txt"), W("C:\\"), W("b.txt"));
  ExpectSplit(W("\\\\server\\share\\x"), W("\\\\server\\share\\"), W("x"));
}

TEST(SplitPath, BareFileNameHasAnEmptyFolder) {
  ExpectSplit(W("b.txt"), W(""), W("b.txt"));
  ExpectSplit(W(""), W(""), W(""));
}

TEST(SplitPath, PathThatEndsInABackslashHasAnEmptyFileName) {
  ExpectSplit(W("C:\\a\\"), W("C:\\a\\"), W(""));
  ExpectSplit(W("\\"), W("\\"), W(""));
}

TEST(SplitPath, SlashesAndColonsDoNotSeparate) { ExpectSplit(W("C:a/b.txt"), W(""), W("C:a/b.txt")); }

TEST(SplitPath, KeepsAtMost1024CharactersOfTheFolder) {
  const WString exact = WString(1023, W('f')) + W("\\");
  ExpectSplit(exact + W("name"), exact, W("name"));
  ExpectSplit(WString(3000, W('f')) + W("\\name.txt"), WString(1024, W('f')), W("name.txt"));
}

TEST(SplitPath, LongFileNameIsKeptWhole) {
  ExpectSplit(W("C:\\") + WString(5000, W('n')), W("C:\\"), WString(5000, W('n')));
}

TEST(ChangeExtension, ReplacesWhatFollowsTheLastDot) {
  EXPECT_EQ(ChangeExtension({W("C:\\a\\"), W("b.txt")}, W(".bak")), W("C:\\a\\b.bak"));
  EXPECT_EQ(ChangeExtension({W(""), W("a.b.c")}, W(".x")), W("a.b.x"));
}

TEST(ChangeExtension, EmptyExtensionRemovesTheLastOne) {
  EXPECT_EQ(ChangeExtension({W("C:\\"), W("b.txt")}, W("")), W("C:\\b"));
  EXPECT_EQ(ChangeExtension({W(""), W("a.b.c")}, W("")), W("a.b"));
}

TEST(ChangeExtension, NameWithoutADotIsTakenWhole) {
  EXPECT_EQ(ChangeExtension({W("C:\\"), W("name")}, W(".x")), W("C:\\name.x"));
  EXPECT_EQ(ChangeExtension({W("C:\\"), W("name")}, W("")), W("C:\\name"));
}

TEST(ChangeExtension, NullExtensionKeepsTheName) {
  EXPECT_EQ(ChangeExtension({W("C:\\"), W("a.b.c")}, nullptr), W("C:\\a.b.c"));
  EXPECT_EQ(ChangeExtension({W("C:\\"), W("name")}, nullptr), W("C:\\name"));
}

TEST(ChangeExtension, DotsOfTheFolderDoNotCount) {
  EXPECT_EQ(ChangeExtension({W("C:\\a.b\\"), W("name")}, W(".x")), W("C:\\a.b\\name.x"));
}

TEST(ChangeExtension, ExtensionIsTakenUnchanged) {
  EXPECT_EQ(ChangeExtension({W(""), W("a.txt")}, W("x")), W("ax"));
  EXPECT_EQ(ChangeExtension({W(""), W("a.")}, W(".x")), W("a.x"));
  EXPECT_EQ(ChangeExtension({W(""), W(".profile")}, W(".x")), W(".x"));
  EXPECT_EQ(ChangeExtension({W(""), W("")}, W(".x")), W(".x"));
}
