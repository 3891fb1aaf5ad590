// GetFullPathNameW.

#include <gtest/gtest.h>

#include <filesystem>

#include "support/scratch_folder.h"

namespace {

struct FullPathRow {
  const WCHAR* path;
  const WCHAR* full;
  const WCHAR* filePart;  // null without one
};

// Absolute paths.
const FullPathRow kRows[] = {
    {W("Z:\\a\\b"), W("Z:\\a\\b"), W("b")},
    {W("z:\\a"), W("z:\\a"), W("a")},
    {W("Z:/a/b"), W("Z:\\a\\b"), W("b")},
    {W("Z:\\a\\..\\b"), W("Z:\\b"), W("b")},
    {W("Z:\\a\\.\\b\\"), W("Z:\\a\\b\\"), nullptr},
    {W("Z:\\a\\b\\.."), W("Z:\\a"), W("a")},
    {W("Z:\\a\\b\\."), W("Z:\\a\\b"), W("b")},
    {W("Z:\\.."), W("Z:\\"), nullptr},
    {W("Z:\\..\\..\\a"), W("Z:\\a"), W("a")},
    {W("Z:\\a\\\\\\b"), W("Z:\\a\\b"), W("b")},
    {W("Z:\\a. "), W("Z:\\a"), W("a")},
    {W("Z:\\a.\\b"), W("Z:\\a\\b"), W("b")},
    {W("Z:\\a \\b"), W("Z:\\a \\b"), W("b")},
    {W("Z:\\ a"), W("Z:\\ a"), W(" a")},
    {W("Z:\\a\\..."), W("Z:\\a\\"), nullptr},
    {W("Z:\\a\\ "), W("Z:\\a\\"), nullptr},
    {W("Q:\\x\\..\\y"), W("Q:\\y"), W("y")},
    {W("\\\\server\\share\\a\\..\\b"), W("\\\\server\\share\\b"), W("b")},
    {W("\\\\server\\share\\..\\b"), W("\\\\server\\share\\b"), W("b")},
    {W("//server/share/a"), W("\\\\server\\share\\a"), W("a")},
    {W("\\\\?\\Z:\\a\\..\\b"), W("\\\\?\\Z:\\b"), W("b")},
    {W("\\\\?\\Z:\\a\\b"), W("\\\\?\\Z:\\a\\b"), W("b")},
};

TEST(GetFullPathNameTest, TextsAreMadeFullByTheRules) {
  for (const FullPathRow& row : kRows) {
    WCHAR buffer[100];
    WCHAR* filePart = buffer;
    const DWORD size = GetFullPathNameW(row.path, 100, buffer, &filePart);
    ASSERT_EQ(size, WString(row.full).size()) << testing::PrintToString(WString(row.path));
    EXPECT_EQ(WString(buffer), row.full);
    if (row.filePart) {
      ASSERT_NE(filePart, nullptr) << testing::PrintToString(WString(row.path));
      EXPECT_EQ(WString(filePart), row.filePart);
    } else {
      EXPECT_EQ(filePart, nullptr) << testing::PrintToString(WString(row.path));
    }
  }
}

TEST(GetFullPathNameTest, ARelativePathBeginsAtTheCurrentFolder) {
  const ScratchFolder scratch;
  scratch.MakeFolder(W("sub"));
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(scratch.NativePath(W("sub")));
  WCHAR name[2000];
  WCHAR parent[2000];
  WCHAR here[2000];
  WCHAR rooted[2000];
  EXPECT_GT(GetFullPathNameW(W("a\\b"), 2000, name, nullptr), 0u);
  EXPECT_GT(GetFullPathNameW(W("..\\c"), 2000, parent, nullptr), 0u);
  EXPECT_GT(GetFullPathNameW(W("."), 2000, here, nullptr), 0u);
  EXPECT_GT(GetFullPathNameW(W("/a/b"), 2000, rooted, nullptr), 0u);
  std::filesystem::current_path(before);
  EXPECT_EQ(WString(name), scratch.Path(W("sub\\a\\b")));
  EXPECT_EQ(WString(parent), scratch.Path(W("c")));
  EXPECT_EQ(WString(here), scratch.Path(W("sub")));
  EXPECT_EQ(WString(rooted), scratch.Path().substr(0, 2) + W("\\a\\b"));
}

TEST(GetFullPathNameTest, ASmallBufferIsUnchangedAndTheNeededSizeReturned) {
  WCHAR buffer[10] = {W('x'), 0};
  EXPECT_EQ(GetFullPathNameW(W("Z:\\abc"), 6, buffer, nullptr), 7u);
  EXPECT_EQ(WString(buffer), W("x"));
  EXPECT_EQ(GetFullPathNameW(W("Z:\\abc"), 0, nullptr, nullptr), 7u);
  EXPECT_EQ(GetFullPathNameW(W("Z:\\abc"), 7, buffer, nullptr), 6u);
  EXPECT_EQ(WString(buffer), W("Z:\\abc"));
}

TEST(GetFullPathNameTest, AnEmptyPathHasNoFullPath) {
  WCHAR buffer[10];
  EXPECT_EQ(GetFullPathNameW(W(""), 10, buffer, nullptr), 0u);
  EXPECT_EQ(GetFullPathNameW(W("  "), 10, buffer, nullptr), 0u);
  EXPECT_EQ(GetFullPathNameW(nullptr, 10, buffer, nullptr), 0u);
}

TEST(GetFullPathNameTest, ALongPathIsMadeFullWhole) {
  const WString path = W("Z:\\x\\..\\") + WString(20000, W('a'));
  std::vector<WCHAR> buffer(20010);
  EXPECT_EQ(GetFullPathNameW(path.c_str(), 100, buffer.data(), nullptr), 20004u);
  EXPECT_EQ(GetFullPathNameW(path.c_str(), 20010, buffer.data(), nullptr), 20003u);
  EXPECT_EQ(WString(buffer.data()), W("Z:\\") + WString(20000, W('a')));
}

TEST(GetFullPathNameTest, EachLetterIsADrive) {
  for (WCHAR unit = W('A'); unit <= W('Z'); ++unit) {
    for (const WCHAR letter : {unit, static_cast<WCHAR>(unit | 0x20)}) {
      const WString drive = {letter, W(':')};
      WCHAR buffer[100];
      const DWORD size = GetFullPathNameW((drive + W("\\a\\..\\b")).c_str(), 100, buffer, nullptr);
      EXPECT_EQ(WString(buffer, size), drive + W("\\b"));
    }
  }
}

}  // namespace
