#include "host/system/paths.h"

#include <gtest/gtest.h>

#include "support/scratch_folder.h"

namespace QxHost {
namespace {

void ExpectParts(WStringView name, bool isFolder, WStringView base, WStringView extension) {
  const NameParts parts = SplitName(name, isFolder);
  EXPECT_EQ(parts.base, base);
  EXPECT_EQ(parts.extension, extension);
}

TEST(SplitName, AFilesBaseNameEndsAtTheLastDot) {
  ExpectParts(W("a.txt"), false, W("a"), W(".txt"));
  ExpectParts(W("a.b.txt"), false, W("a.b"), W(".txt"));
  ExpectParts(W("a."), false, W("a"), W("."));
  ExpectParts(W(".profile"), false, W(""), W(".profile"));
}

TEST(SplitName, ANameWithoutADotHasNoExtension) { ExpectParts(W("README"), false, W("README"), W("")); }

TEST(SplitName, AFolderHasNoExtension) { ExpectParts(W("a.b.txt"), true, W("a.b.txt"), W("")); }

TEST(IsPossibleName, RefusesWhatIsKeptForPathsAndMasks) {
  for (const WCHAR* name : {W(""), W("."), W(".."), W("a\\b"), W("a/b"), W("a:b"), W("*"), W("a?"),
                            W("\"a\""), W("a<b"), W("a>b"), W("a|b"), W("a\tb"), W("a\nb"), W("\x1F")}) {
    EXPECT_FALSE(IsPossibleName(name)) << ToUtf8(name);
  }
}

TEST(IsPossibleName, TakesWhatLooksOddAndIsAName) {
  for (const WCHAR* name :
       {W("..."), W(" "), W("a "), W("a."), W("#"), W("%"), W("'"), W("\u65E5"), W("-")}) {
    EXPECT_TRUE(IsPossibleName(name)) << ToUtf8(name);
  }
}

TEST(FullPathOf, GivesTheFormOfWindows) {
  const ScratchFolder scratch;
  EXPECT_EQ(FullPathOf(scratch.Path()), scratch.Path());
  EXPECT_EQ(FullPathOf(scratch.Path() + W("\\")), scratch.Path());
  EXPECT_EQ(FullPathOf(scratch.Path() + W("/a/../b/./c")), scratch.Path(W("b\\c")));
  EXPECT_EQ(FullPathOf(W("\\\\?\\") + scratch.Path()), scratch.Path());
}

TEST(FullPathOf, LeavesTheRootOfADriveItsSeparator) {
  EXPECT_EQ(FullPathOf(W("Z:\\")), W("Z:\\"));
  EXPECT_EQ(FullPathOf(W("Z:\\a\\..")), W("Z:\\"));
}

TEST(FullPathOf, RefusesTheCurrentFolderOfADrive) {
  EXPECT_EQ(FullPathOf(W("Z:")), std::nullopt);
  EXPECT_EQ(FullPathOf(W("Z:a")), std::nullopt);
  EXPECT_EQ(FullPathOf(W("Z:.")), std::nullopt);
}

TEST(IsFullPath, ADriveWithItsSeparatorAServerAndASlashBeginAtARoot) {
  for (const WCHAR* path : {W("Z:\\"), W("Z:/a"), W("Z:\\a"), W("/a"), W("\\a"), W("\\\\server\\share")}) {
    EXPECT_TRUE(IsFullPath(path)) << ToUtf8(path);
  }
  for (const WCHAR* path : {W(""), W("Z:"), W("Z:a"), W("a"), W("."), W("..\\a"), W("/"), W("\\")}) {
    EXPECT_FALSE(IsFullPath(path)) << ToUtf8(path);
  }
}

TEST(FullPathOf, RefusesWhatIsNoPath) {
  EXPECT_EQ(FullPathOf(W("")), std::nullopt);
  EXPECT_EQ(FullPathOf(WString(W("a\0b"), 3)), std::nullopt);
}

TEST(FullPathOf, KeepsDotsAndBlanksAtTheEndOfNames) {
  EXPECT_EQ(FullPathOf(W("Z:\\d\\a.")), W("Z:\\d\\a."));
  EXPECT_EQ(FullPathOf(W("Z:\\d\\a ")), W("Z:\\d\\a "));
  EXPECT_EQ(FullPathOf(W("Z:\\d\\a.. ")), W("Z:\\d\\a.. "));
  EXPECT_EQ(FullPathOf(W("Z:/d/./a./../b./c\\")), W("Z:\\d\\b.\\c"));
  EXPECT_EQ(FullPathOf(W("Z:\\a.\\..")), W("Z:\\"));
  EXPECT_EQ(FullPathOf(W("Z:\\a.\\..\\..\\..\\b")), W("Z:\\b"));
  EXPECT_EQ(FullPathOf(W("a.")), *FullPathOf(W(".")) + W("\\a."));
  EXPECT_EQ(FullPathOf(W("sub/../a /b")), *FullPathOf(W(".")) + W("\\a \\b"));
}

TEST(FullPathOf, TheLongFormUsesItsNamesUnchanged) {
  EXPECT_EQ(FullPathOf(W("\\\\?\\Z:\\d\\z.")), W("Z:\\d\\z."));
  EXPECT_EQ(FullPathOf(W("\\\\?\\Z:\\d \\z\\")), W("Z:\\d \\z"));
  EXPECT_EQ(FullPathOf(W("\\\\?\\Z:\\")), W("Z:\\"));
  EXPECT_EQ(FullPathOf(W("\\\\?\\UNC\\server\\share\\a.")), W("\\\\server\\share\\a."));
  EXPECT_EQ(FullPathOf(W("\\\\?\\Z:a")), std::nullopt);
}

TEST(FullPathOf, ADriveHasItsLetterInUpperCase) {
  EXPECT_EQ(FullPathOf(W("z:\\x")), W("Z:\\x"));
  EXPECT_EQ(FullPathOf(W("z:\\")), W("Z:\\"));
  EXPECT_EQ(FullPathOf(W("\\\\?\\z:\\x.")), W("Z:\\x."));
}

TEST(FullPathOf, RefusesDevices) {
  EXPECT_EQ(FullPathOf(W("\\\\.\\Z:\\a")), std::nullopt);
  EXPECT_EQ(FullPathOf(W("//./Z:/a")), std::nullopt);
  EXPECT_EQ(FullPathOf(W("\\\\.\\Z:\\a.")), std::nullopt);
}

TEST(SystemPath, GivesNamesThatTheShortFormCutsTheLongForm) {
  EXPECT_EQ(SystemPath(W("Z:\\d\\a.")), W("\\\\?\\Z:\\d\\a."));
  EXPECT_EQ(SystemPath(W("Z:\\d\\a ")), W("\\\\?\\Z:\\d\\a "));
  EXPECT_EQ(SystemPath(W("Z:\\d.\\a")), W("\\\\?\\Z:\\d.\\a"));
  EXPECT_EQ(SystemPath(W("Z:\\d \\*")), W("\\\\?\\Z:\\d \\*"));
  EXPECT_EQ(SystemPath(W("\\\\s\\t\\a.")), W("\\\\?\\UNC\\s\\t\\a."));
  EXPECT_EQ(SystemPath(W("Z:\\.d\\ a.b")), W("Z:\\.d\\ a.b"));
  EXPECT_EQ(SystemPath(W("Z:\\")), W("Z:\\"));
}

TEST(NameToMake, HasNoDotsAndBlanksAtItsEnd) {
  EXPECT_EQ(NameToMake(W("a. . ")), W("a"));
  EXPECT_EQ(NameToMake(W(" .a.b")), W(" .a.b"));
  EXPECT_EQ(NameToMake(W(". .")), W(""));
  EXPECT_EQ(NameToMake(W("")), W(""));
}

TEST(SystemPath, GivesLongPathsTheirLongForm) {
  const WString shortPath = W("Z:\\") + WString(200, W('a'));
  EXPECT_EQ(SystemPath(shortPath), shortPath);
  const WString longPath = W("Z:\\") + WString(300, W('a'));
  EXPECT_EQ(SystemPath(longPath), W("\\\\?\\") + longPath);
  EXPECT_EQ(SystemPath(W("\\\\?\\") + longPath), W("\\\\?\\") + longPath);
  const WString onServer = W("\\\\server\\share\\") + WString(300, W('a'));
  EXPECT_EQ(SystemPath(onServer), W("\\\\?\\UNC\\server\\share\\") + WString(300, W('a')));
}

TEST(SplitRoot, ADriveOrAServerWithItsShareIsTheRoot) {
  EXPECT_EQ(SplitRoot(W("Z:\\a\\b")).root, W("Z:"));
  EXPECT_EQ(SplitRoot(W("Z:\\a\\b")).rest, W("a\\b"));
  EXPECT_EQ(SplitRoot(W("Z:\\")).rest, W(""));
  EXPECT_EQ(SplitRoot(W("\\\\server\\share\\a")).root, W("\\\\server\\share"));
  EXPECT_EQ(SplitRoot(W("\\\\server\\share\\a")).rest, W("a"));
  EXPECT_EQ(SplitRoot(W("\\\\server")).root, W("\\\\server"));
}

TEST(PathFromUtf8, KeepsBytesThatAreNoUtf8AsLowSurrogates) {
  EXPECT_EQ(PathFromUtf8("/a/\xC3\xA4"), W("/a/\u00E4"));
  EXPECT_EQ(PathFromUtf8("\xF0\x9F\x98\x80"), W("\U0001F600"));
  const WString stray = {W('a'), static_cast<WCHAR>(0xDCFF), W('b'), static_cast<WCHAR>(0xDCC3)};
  EXPECT_EQ(PathFromUtf8("a\xFF"
                         "b\xC3"),
            stray);
}

TEST(PathFromUtf8, TakesOverlongAndSurrogateSequencesByteForByte) {
  const WString overlong = {static_cast<WCHAR>(0xDCC0), static_cast<WCHAR>(0xDCAF)};
  EXPECT_EQ(PathFromUtf8("\xC0\xAF"), overlong);
  const WString surrogate = {static_cast<WCHAR>(0xDCED), static_cast<WCHAR>(0xDCA0),
                             static_cast<WCHAR>(0xDC80)};
  EXPECT_EQ(PathFromUtf8("\xED\xA0\x80"), surrogate);
}

TEST(MakeFolder, MakesAllThatAreMissingAndIsContentWithThoseThatAreThere) {
  const ScratchFolder scratch;
  EXPECT_EQ(MakeFolder(scratch.Path(W("a\\b\\c"))), 0u);
  EXPECT_TRUE(IsFolder(scratch.Path(W("a\\b\\c"))));
  EXPECT_EQ(MakeFolder(scratch.Path(W("a\\b\\c"))), 0u);
}

TEST(MakeFolder, FailsBelowAFile) {
  const ScratchFolder scratch;
  scratch.Write(W("file"), "x");
  EXPECT_NE(MakeFolder(scratch.Path(W("file\\sub"))), 0u);
  EXPECT_NE(MakeFolder(scratch.Path(W("file"))), 0u);
  EXPECT_EQ(scratch.Read(W("file")), "x");
}

}  // namespace
}  // namespace QxHost
