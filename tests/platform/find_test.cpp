// FindFirstFileExW, FindNextFileW, FindClose.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "platform/handles.h"
#include "platform/outcome.h"
#include "support/scratch_folder.h"

namespace {

using Names = std::vector<WString>;

class FindTest : public testing::Test {
 protected:
  HANDLE Begin(const WString& mask, WIN32_FIND_DATAW& data, FINDEX_INFO_LEVELS level = FindExInfoBasic) {
    return FindFirstFileExW(scratch_.Path(mask).c_str(), level, &data, FindExSearchNameMatch, nullptr,
                            FIND_FIRST_EX_LARGE_FETCH);
  }

  DWORD FailureAt(const WString& mask) {
    WIN32_FIND_DATAW data;
    return FailureOfSearch(Begin(mask, data));
  }

  // Returns the entries that match the mask, in the order of the search.
  std::vector<WIN32_FIND_DATAW> FindAll(const WString& mask) {
    std::vector<WIN32_FIND_DATAW> found;
    WIN32_FIND_DATAW data;
    const FindHandle search(Begin(mask, data));
    if (!search.IsOpen()) return found;
    do {
      found.push_back(data);
    } while (FindNextFileW(search.Get(), &data));
    EXPECT_EQ(GetLastError(), 18u);
    return found;
  }

  // Returns their names, sorted.
  Names Find(const WString& mask) {
    Names names;
    for (const WIN32_FIND_DATAW& data : FindAll(mask)) names.emplace_back(data.cFileName);
    std::sort(names.begin(), names.end());
    return names;
  }

  void WriteFiles(std::initializer_list<const WCHAR*> names) {
    for (const WCHAR* name : names) scratch_.Write(name, "abc");
  }

  ScratchFolder scratch_;
};

TEST_F(FindTest, DotEntriesComeFirst) {
  WriteFiles({W("!"), W("a")});
  const std::vector<WIN32_FIND_DATAW> found = FindAll(W("*"));
  ASSERT_EQ(found.size(), 4u);
  EXPECT_EQ(WString(found[0].cFileName), W("."));
  EXPECT_EQ(WString(found[1].cFileName), W(".."));
  EXPECT_EQ(found[0].dwFileAttributes, 0x10u);
  EXPECT_EQ(found[1].dwFileAttributes, 0x10u);
}

TEST_F(FindTest, AnEmptyFolderHasTheDotEntriesAlone) {
  EXPECT_EQ(Find(W("*")), (Names{W("."), W("..")}));
  EXPECT_EQ(FailureAt(W("*.txt")), 2u);
}

TEST_F(FindTest, MasksAreBlindToCaseAndKnowStarAndQuestionMark) {
  WriteFiles({W("a"), W("a.txt"), W("ab.txt"), W("abc"), W("a.b.c"), W("Upper.TXT")});
  const struct {
    const WCHAR* mask;
    Names names;
  } rows[] = {
      {W("*.txt"), {W("Upper.TXT"), W("a.txt"), W("ab.txt")}},
      {W("*.TX?"), {W("Upper.TXT"), W("a.txt"), W("ab.txt")}},
      {W("a*"), {W("a"), W("a.b.c"), W("a.txt"), W("ab.txt"), W("abc")}},
      {W("A*"), {W("a"), W("a.b.c"), W("a.txt"), W("ab.txt"), W("abc")}},
      {W("a.*"), {W("a"), W("a.b.c"), W("a.txt")}},
      {W("a??"), {W("abc")}},
      {W("?.txt"), {W("a.txt")}},
      {W("a.???"), {W("a.b.c"), W("a.txt")}},
      {W("*.c"), {W("a.b.c")}},
      {W("*.b.c"), {W("a.b.c")}},
      {W("a*c"), {W("a.b.c"), W("abc")}},
      {W("*b*"), {W("a.b.c"), W("ab.txt"), W("abc")}},
      {W("*a"), {W("a")}},
      {W("*per*t"), {W("Upper.TXT")}},
  };
  for (const auto& row : rows)
    EXPECT_EQ(Find(row.mask), row.names) << testing::PrintToString(WString(row.mask));
  for (const WCHAR* mask : {W("a?"), W("a.?"), W("abc?"), W("b*"), W("*.tx"), W("nosuch*")}) {
    EXPECT_EQ(FailureAt(mask), 2u) << testing::PrintToString(WString(mask));
  }
}

TEST_F(FindTest, StarDotStarIsEverything) {
  WriteFiles({W("a"), W("a.b.c"), W(".x")});
  const Names all = {W("."), W(".."), W(".x"), W("a"), W("a.b.c")};
  EXPECT_EQ(Find(W("*.*")), all);
  EXPECT_EQ(Find(W("*")), all);
  EXPECT_EQ(Find(W("**")), all);
  EXPECT_EQ(Find(W("*.*.*")), all);
}

TEST_F(FindTest, LettersOutsideTheCodePageMatchInEitherCase) {
  WriteFiles({W("\u0416\u0443\u043A.txt")});
  EXPECT_EQ(Find(W("\u0436\u0423*.txt")), Names{W("\u0416\u0443\u043A.txt")});
}

TEST_F(FindTest, APlainNameFindsThatEntryAlone) {
  WriteFiles({W("a.txt"), W("ab.txt")});
  scratch_.MakeFolder(W("sub"));
  EXPECT_EQ(Find(W("a.txt")), Names{W("a.txt")});
  EXPECT_EQ(Find(W("A.TXT")), Names{W("a.txt")});
  EXPECT_EQ(Find(W("sub")), Names{W("sub")});
  EXPECT_EQ(Find(W("sub\\.")), Names{W("sub")});
  EXPECT_EQ(FailureAt(W("b.txt")), 2u);
}

TEST_F(FindTest, ARelativeMaskSearchesTheCurrentFolder) {
  WriteFiles({W("a.txt"), W("b.dat")});
  const WString onDrive = scratch_.Path().substr(0, 2) + W("*.dat");
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(scratch_.NativePath({}));
  std::vector<WString> found;
  for (const WCHAR* mask : {W("*.txt"), W("b.dat"), W(".\\*.dat"), onDrive.c_str()}) {
    WIN32_FIND_DATAW data = {};
    const FindHandle search(
        FindFirstFileExW(mask, FindExInfoBasic, &data, FindExSearchNameMatch, nullptr, 0));
    found.emplace_back(data.cFileName);
  }
  std::filesystem::current_path(before);
  EXPECT_EQ(found, (Names{W("a.txt"), W("b.dat"), W("b.dat"), W("b.dat")}));
}

TEST_F(FindTest, ABackslashAtTheEndFindsNothing) {
  WriteFiles({W("a.txt")});
  scratch_.MakeFolder(W("sub"));
  EXPECT_EQ(FailureAt(W("a.txt\\")), 2u);
  EXPECT_EQ(FailureAt(W("sub\\")), 2u);
}

TEST_F(FindTest, AMissingFolderIs3AndNoMatchIs2) {
  EXPECT_EQ(FailureAt(W("nosuch")), 2u);
  EXPECT_EQ(FailureAt(W("nosuch\\*")), 3u);
  EXPECT_EQ(FailureAt(W("nosuch\\a")), 3u);
  scratch_.MakeFolder(W("sub"));
  EXPECT_EQ(FailureAt(W("sub\\*.txt")), 2u);
}

TEST_F(FindTest, AWildcardIsForTheLastNameAlone) {
  scratch_.MakeFolder(W("sub"));
  EXPECT_EQ(FailureAt(W("su?\\*")), 123u);
  EXPECT_EQ(FailureAt(W("*\\a")), 123u);
}

TEST_F(FindTest, AnEntryHasItsSizeAttributesAndTimes) {
  scratch_.Write(W("a.txt"), std::string(70000, 'x'));
  scratch_.Write(W(".b"), "");
  const WString readOnly = scratch_.Write(W("c"), "abc");
  ASSERT_TRUE(SetFileAttributesW(readOnly.c_str(), FILE_ATTRIBUTE_READONLY));
  scratch_.MakeFolder(W("sub"));
  WIN32_FIND_DATAW data;
  for (const FINDEX_INFO_LEVELS level : {FindExInfoStandard, FindExInfoBasic}) {
    const FindHandle file(Begin(W("a.txt"), data, level));
    ASSERT_TRUE(file.IsOpen());
    EXPECT_EQ(data.dwFileAttributes, 0x20u);
    EXPECT_EQ(data.nFileSizeHigh, 0u);
    EXPECT_EQ(data.nFileSizeLow, 70000u);
  }
  // A unit of the high half of a time is about seven minutes: 0x01D00000 is in October 2014.
  EXPECT_GT(data.ftLastWriteTime.dwHighDateTime, 0x01D00000u);
  EXPECT_GT(data.ftCreationTime.dwHighDateTime, 0x01D00000u);
  EXPECT_GT(data.ftLastAccessTime.dwHighDateTime, 0x01D00000u);
  EXPECT_EQ(data.cAlternateFileName[0], 0);
  EXPECT_EQ(FindAll(W(".b")).at(0).dwFileAttributes, 0x22u);
  EXPECT_EQ(FindAll(W("c")).at(0).dwFileAttributes, 0x21u);
  const WIN32_FIND_DATAW folder = FindAll(W("sub")).at(0);
  EXPECT_EQ(folder.dwFileAttributes, 0x10u);
  EXPECT_EQ(folder.nFileSizeLow, 0u);
}

TEST_F(FindTest, ALargeFolderIsGivenWhole) {
  Names expected;
  for (int i = 1000; i < 1500; ++i) {
    const std::string number = std::to_string(i);
    expected.emplace_back(number.begin(), number.end());
    scratch_.Write(expected.back(), "");
  }
  EXPECT_EQ(Find(W("1*")), expected);
}

TEST_F(FindTest, TheLongestNamesAreFound) {
  const WString name(255, W('n'));
  scratch_.Write(name, "abc");
  EXPECT_EQ(Find(W("n*")), Names{name});
}

TEST_F(FindTest, UnknownLevelsAndSearchesAreRefused) {
  WIN32_FIND_DATAW data;
  const WString mask = scratch_.Path(W("*"));
  EXPECT_EQ(FailureOfSearch(FindFirstFileExW(mask.c_str(), FindExInfoMaxInfoLevel, &data,
                                             FindExSearchNameMatch, nullptr, 0)),
            87u);
  EXPECT_EQ(FailureOfSearch(
                FindFirstFileExW(mask.c_str(), FindExInfoBasic, &data, FindExSearchMaxSearchOp, nullptr, 0)),
            87u);
}

TEST_F(FindTest, WhatIsNoSearchIsRefused) {
  WIN32_FIND_DATAW data;
  EXPECT_EQ(FailureOf(FindClose(INVALID_HANDLE_VALUE)), 6u);
  EXPECT_EQ(FailureOf(FindClose(nullptr)), 6u);
  EXPECT_EQ(FailureOf(FindNextFileW(INVALID_HANDLE_VALUE, &data)), 6u);
  EXPECT_EQ(FailureOf(FindNextFileW(nullptr, &data)), 6u);
}

TEST_F(FindTest, TheEndIsReportedAgain) {
  WriteFiles({W("a.txt")});
  WIN32_FIND_DATAW data;
  const FindHandle search(Begin(W("a.txt"), data));
  ASSERT_TRUE(search.IsOpen());
  EXPECT_EQ(FailureOf(FindNextFileW(search.Get(), &data)), 18u);
  EXPECT_EQ(FailureOf(FindNextFileW(search.Get(), &data)), 18u);
}

}  // namespace
