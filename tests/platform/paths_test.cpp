// How paths are interpreted: forms, names, lengths.

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/outcome.h"
#include "support/scratch_folder.h"

namespace {

class PathsTest : public testing::Test {
 protected:
  static DWORD AttributesOf(const WString& path) { return GetFileAttributesW(path.c_str()); }
  static DWORD FailureAt(const WString& path) { return FailureOfValue(GetFileAttributesW(path.c_str())); }

  ScratchFolder scratch_;
};

TEST_F(PathsTest, ADriveLetterIsTakenInEitherCase) {
  WString path = scratch_.Write(W("a.txt"), "x");
  path[0] = static_cast<WCHAR>(path[0] | 0x20);
  EXPECT_EQ(AttributesOf(path), 0x20u);
  path[0] = static_cast<WCHAR>(path[0] & ~0x20);
  EXPECT_EQ(AttributesOf(path), 0x20u);
}

TEST_F(PathsTest, SlashesAndBackslashesPartNamesAlike) {
  scratch_.MakeFolder(W("sub"));
  scratch_.Write(W("sub\\a.txt"), "x");
  EXPECT_EQ(AttributesOf(scratch_.Path() + W("/sub/a.txt")), 0x20u);
  EXPECT_EQ(AttributesOf(scratch_.Path() + W("/sub\\a.txt")), 0x20u);
  EXPECT_EQ(AttributesOf(scratch_.Path() + W("\\\\sub//a.txt")), 0x20u);
}

TEST_F(PathsTest, APathOfTheSystemBelowIsTakenUnchanged) {
  scratch_.Write(W("a.txt"), "x");
  WString path = scratch_.Path(W("a.txt")).substr(2);
  EXPECT_EQ(AttributesOf(path), 0x20u);
  for (WCHAR& unit : path) {
    if (unit == W('\\')) unit = W('/');
  }
  EXPECT_EQ(AttributesOf(path), 0x20u);
}

TEST_F(PathsTest, TheLongFormReachesTheSameFile) {
  scratch_.Write(W("a.txt"), "x");
  EXPECT_EQ(AttributesOf(W("\\\\?\\") + scratch_.Path(W("a.txt"))), 0x20u);
  EXPECT_EQ(FailureAt(W("\\\\?\\") + scratch_.Path(W("b.txt"))), 2u);
}

TEST_F(PathsTest, TheLongFormKnowsNoDotNames) {
  scratch_.Write(W("a.txt"), "x");
  scratch_.MakeFolder(W("sub"));
  EXPECT_EQ(FailureAt(W("\\\\?\\") + scratch_.Path(W("sub\\..\\a.txt"))), 123u);
  EXPECT_EQ(FailureAt(W("\\\\?\\") + scratch_.Path(W("a.txt."))), 2u);
}

TEST_F(PathsTest, DotNamesAreWorkedInBeforeTheFileSystemIsAsked) {
  scratch_.Write(W("a.txt"), "x");
  EXPECT_EQ(AttributesOf(scratch_.Path(W("nosuch\\..\\a.txt"))), 0x20u);
  EXPECT_EQ(AttributesOf(scratch_.Path(W(".\\a.txt"))), 0x20u);
}

TEST_F(PathsTest, DotsAndSpacesAtTheEndOfANameAreDropped) {
  scratch_.Write(W("a.txt"), "x");
  EXPECT_EQ(AttributesOf(scratch_.Path(W("a.txt."))), 0x20u);
  EXPECT_EQ(AttributesOf(scratch_.Path(W("a.txt . ."))), 0x20u);
}

TEST_F(PathsTest, ARelativePathBeginsAtTheCurrentFolder) {
  scratch_.Write(W("a.txt"), "x");
  scratch_.MakeFolder(W("sub"));
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(scratch_.NativePath(W("sub")));
  const DWORD inFolder = AttributesOf(W("..\\a.txt"));
  const DWORD missing = FailureAt(W("a.txt"));
  const DWORD onDrive = AttributesOf(scratch_.Path().substr(0, 2) + W("..\\a.txt"));
  std::filesystem::current_path(before);
  EXPECT_EQ(inFolder, 0x20u);
  EXPECT_EQ(missing, 2u);
  EXPECT_EQ(onDrive, 0x20u);
}

TEST_F(PathsTest, AnEmptyOrMissingPathIsNotFound) {
  EXPECT_EQ(FailureAt(W("")), 3u);
  EXPECT_EQ(FailureOfValue(GetFileAttributesW(nullptr)), 3u);
  EXPECT_EQ(FailureOfOpen(OpenFor(W(""), GENERIC_READ, OPEN_EXISTING)), 3u);
  EXPECT_EQ(FailureOfOpen(OpenFor(nullptr, GENERIC_READ, OPEN_EXISTING)), 3u);
  EXPECT_EQ(FailureOf(DeleteFileW(W(""))), 3u);
  EXPECT_EQ(FailureOf(DeleteFileW(nullptr)), 3u);
  EXPECT_EQ(FailureOf(CreateDirectoryW(W(""), nullptr)), 3u);
  EXPECT_EQ(FailureOf(MoveFileW(W(""), scratch_.Path(W("b")).c_str())), 3u);
  const WString file = scratch_.Write(W("a.txt"), "x");
  EXPECT_EQ(FailureOf(MoveFileW(file.c_str(), W(""))), 3u);
  WIN32_FIND_DATAW data;
  EXPECT_EQ(
      FailureOfSearch(FindFirstFileExW(W(""), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr, 0)),
      3u);
}

TEST_F(PathsTest, CharactersThatWindowsForbidsMakeAnInvalidName) {
  for (const WCHAR unit : {W('<'), W('>'), W('"'), W('|'), W('?'), W('*'), WCHAR(1), WCHAR(31)}) {
    const WString path = scratch_.Path(WString(W("a")) + unit + W("b"));
    EXPECT_EQ(FailureAt(path), 123u) << int{unit};
    EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_WRITE, CREATE_ALWAYS)), 123u) << int{unit};
    EXPECT_EQ(FailureOf(CreateDirectoryW(path.c_str(), nullptr)), 123u) << int{unit};
    EXPECT_EQ(FailureAt(path + W("\\c")), 123u) << int{unit};
  }
  const WString file = scratch_.Write(W("a.txt"), "x");
  EXPECT_EQ(FailureOf(MoveFileW(file.c_str(), scratch_.Path(W("a?b")).c_str())), 123u);
  EXPECT_EQ(scratch_.Names(), std::vector<WString>{W("a.txt")});
}

TEST_F(PathsTest, NamesOutsideTheCodePageAreOrdinaryNames) {
  const WString names[] = {W("\u0416\u4E2D.txt"), W("\U0001F600 smile"), W("e\u0301"), W("\u00E9")};
  for (const WString& name : names) {
    const WString path = scratch_.Path(name);
    EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_WRITE, CREATE_NEW)), kNoFailure);
    EXPECT_EQ(AttributesOf(path), 0x20u);
    EXPECT_TRUE(scratch_.Exists(name));
    EXPECT_TRUE(DeleteFileW(path.c_str()));
    EXPECT_FALSE(scratch_.Exists(name));
  }
}

TEST_F(PathsTest, ANameLongerThanTheDiskTakesFails) {
  const WString path = scratch_.Path(WString(300, W('a')));
  EXPECT_NE(FailureAt(path), kNoFailure);
  EXPECT_NE(FailureOfOpen(OpenFor(path.c_str(), GENERIC_WRITE, CREATE_ALWAYS)), kNoFailure);
  EXPECT_NE(FailureOf(CreateDirectoryW(path.c_str(), nullptr)), kNoFailure);
  const WString file = scratch_.Write(W("a.txt"), "x");
  EXPECT_NE(FailureOf(MoveFileW(file.c_str(), path.c_str())), kNoFailure);
  EXPECT_EQ(scratch_.Read(W("a.txt")), "x");
}

TEST_F(PathsTest, APathOf32000CharactersFailsEverywhere) {
  const WString file = scratch_.Write(W("a.txt"), "x");
  const std::size_t room = 32000 - scratch_.Path().size();
  WString manyNames;
  while (manyNames.size() < room) manyNames += W("\\abcdefg");
  for (const WString& tail : {WString(room, W('a')), manyNames}) {
    const WString path = scratch_.Path(tail);
    EXPECT_NE(FailureAt(path), kNoFailure);
    EXPECT_NE(FailureOf(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL)), kNoFailure);
    EXPECT_NE(FailureOfOpen(OpenFor(path.c_str(), GENERIC_WRITE, CREATE_ALWAYS)), kNoFailure);
    EXPECT_NE(FailureOf(CreateDirectoryW(path.c_str(), nullptr)), kNoFailure);
    EXPECT_NE(FailureOf(RemoveDirectoryW(path.c_str())), kNoFailure);
    EXPECT_NE(FailureOf(DeleteFileW(path.c_str())), kNoFailure);
    EXPECT_NE(FailureOf(MoveFileW(file.c_str(), path.c_str())), kNoFailure);
    EXPECT_NE(FailureOf(MoveFileW(path.c_str(), file.c_str())), kNoFailure);
    WIN32_FIND_DATAW data;
    EXPECT_NE(FailureOfSearch(
                  FindFirstFileExW(path.c_str(), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr, 0)),
              kNoFailure);
  }
  EXPECT_EQ(scratch_.Names(), std::vector<WString>{W("a.txt")});
}

TEST_F(PathsTest, APathBeyond260CharactersWorksInItsLongForm) {
  const WString name(60, W('n'));
  WString folder = W("\\\\?\\") + scratch_.Path();
  for (int depth = 0; depth < 10; ++depth) {
    folder += W('\\') + name;
    ASSERT_TRUE(CreateDirectoryW(folder.c_str(), nullptr));
  }
  const WString file = folder + W("\\a.txt");
  EXPECT_GT(file.size(), 600u);
  EXPECT_EQ(FailureOfOpen(OpenFor(file.c_str(), GENERIC_WRITE, CREATE_NEW)), kNoFailure);
  EXPECT_EQ(AttributesOf(file), 0x20u);
  EXPECT_TRUE(MoveFileW(file.c_str(), (folder + W("\\b.txt")).c_str()));
  WIN32_FIND_DATAW data;
  const HANDLE search = FindFirstFileExW((folder + W("\\*.txt")).c_str(), FindExInfoBasic, &data,
                                         FindExSearchNameMatch, nullptr, 0);
  ASSERT_NE(search, INVALID_HANDLE_VALUE);
  EXPECT_EQ(WString(data.cFileName), W("b.txt"));
  EXPECT_TRUE(FindClose(search));
  EXPECT_TRUE(DeleteFileW((folder + W("\\b.txt")).c_str()));
  EXPECT_TRUE(RemoveDirectoryW(folder.c_str()));
}

}  // namespace
