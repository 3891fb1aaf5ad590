// Paths and names as they are on the native file system.

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/handles.h"
#include "platform/outcome.h"
#include "support/scratch_folder.h"

namespace {

class NativeNamesTest : public testing::Test {
 protected:
  // Creates a file whose name consists of these bytes.
  void WriteBytesName(const std::string& name) {
    const std::string path = scratch_.NativePath(W("x")).parent_path().string() + "/" + name;
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    ASSERT_GE(file, 0) << path;
    close(file);
  }

  bool HasBytesName(const std::string& name) {
    const std::string path = scratch_.NativePath(W("x")).parent_path().string() + "/" + name;
    struct stat status;
    return lstat(path.c_str(), &status) == 0;
  }

  // Returns the only entry that matches the mask.
  WString FindOne(const WCHAR* mask) {
    WIN32_FIND_DATAW data = {};
    const FindHandle search(FindFirstFileExW(scratch_.Path(mask).c_str(), FindExInfoBasic, &data,
                                             FindExSearchNameMatch, nullptr, 0));
    EXPECT_TRUE(search.IsOpen());
    EXPECT_EQ(FailureOf(FindNextFileW(search.Get(), &data)), 18u);
    return data.cFileName;
  }

  ScratchFolder scratch_;
};

TEST_F(NativeNamesTest, AFileWhoseNameHoldsABarIsFoundAndMovedAndNoneIsMade) {
  WriteBytesName("a|b");
  EXPECT_EQ(GetFileAttributesW(scratch_.Path(W("a|b")).c_str()), 0x20u);
  EXPECT_EQ(GetFileAttributesW(scratch_.Path(W("a|c")).c_str()), INVALID_FILE_ATTRIBUTES);
  EXPECT_EQ(GetLastError(), 123u);
  EXPECT_EQ(FailureOf(MoveFileW(scratch_.Path(W("a|b")).c_str(), scratch_.Path(W("a|c")).c_str())), 123u);
  EXPECT_EQ(FailureOf(CreateDirectoryW(scratch_.Path(W("d|e")).c_str(), nullptr)), 123u);
  EXPECT_TRUE(HasBytesName("a|b"));
  EXPECT_EQ(FailureOf(MoveFileW(scratch_.Path(W("a|b")).c_str(), scratch_.Path(W("a-b")).c_str())),
            kNoFailure);
  EXPECT_FALSE(HasBytesName("a|b"));
  EXPECT_TRUE(HasBytesName("a-b"));
}

TEST_F(NativeNamesTest, OtherDrivesAreNotFound) {
  WIN32_FIND_DATAW data;
  for (const WCHAR* path : {W("C:\\a"), W("q:\\a"), W("Q:"), W("Q:a"), W("\\\\?\\C:\\a"), W("\\\\?\\a")}) {
    EXPECT_EQ(FailureOfValue(GetFileAttributesW(path)), 3u) << testing::PrintToString(WString(path));
    EXPECT_EQ(FailureOfOpen(OpenFor(path, GENERIC_WRITE, CREATE_ALWAYS)), 3u);
    EXPECT_EQ(FailureOf(CreateDirectoryW(path, nullptr)), 3u);
    EXPECT_EQ(FailureOf(RemoveDirectoryW(path)), 3u);
    EXPECT_EQ(FailureOf(DeleteFileW(path)), 3u);
    EXPECT_EQ(FailureOf(SetFileAttributesW(path, 0)), 3u);
    EXPECT_EQ(FailureOf(MoveFileW(path, path)), 3u);
  }
  EXPECT_EQ(FailureOfSearch(
                FindFirstFileExW(W("C:\\*"), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr, 0)),
            3u);
}

TEST_F(NativeNamesTest, ServersAreNotReached) {
  WIN32_FIND_DATAW data;
  for (const WCHAR* path :
       {W("\\\\server\\share\\a"), W("//server/share/a"), W("\\\\?\\UNC\\server\\share\\a"),
        W("\\\\?\\unc\\server"), W("\\\\server"), W("\\\\")}) {
    EXPECT_EQ(FailureOfValue(GetFileAttributesW(path)), 53u) << testing::PrintToString(WString(path));
    EXPECT_EQ(FailureOfOpen(OpenFor(path, GENERIC_WRITE, CREATE_ALWAYS)), 53u);
    EXPECT_EQ(FailureOf(CreateDirectoryW(path, nullptr)), 53u);
    EXPECT_EQ(FailureOf(DeleteFileW(path)), 53u);
  }
  EXPECT_EQ(FailureOfSearch(FindFirstFileExW(W("\\\\server\\share\\*"), FindExInfoBasic, &data,
                                             FindExSearchNameMatch, nullptr, 0)),
            53u);
}

TEST_F(NativeNamesTest, AMissingPathIsNotFound) {
  EXPECT_EQ(FailureOf(RemoveDirectoryW(W(""))), 3u);
  const WString file = scratch_.Write(W("a.txt"), "abc");
  EXPECT_EQ(FailureOf(MoveFileW(file.c_str(), nullptr)), 3u);
  EXPECT_EQ(scratch_.Read(W("a.txt")), "abc");
}

TEST_F(NativeNamesTest, ALongFormMayHoldAPathOfTheSystemBelow) {
  scratch_.Write(W("a.txt"), "abc");
  const std::string native = scratch_.NativePath(W("a.txt")).string();
  EXPECT_EQ(GetFileAttributesW((W("\\\\?\\") + FromUtf8(native)).c_str()), 0x20u);
}

TEST_F(NativeNamesTest, NamesThatDifferInCaseAreDifferentFiles) {
  scratch_.Write(W("a.txt"), "lower");
  scratch_.Write(W("A.txt"), "upper");
  EXPECT_EQ(FailureOfValue(GetFileAttributesW(scratch_.Path(W("A.TXT")).c_str())), 2u);
  EXPECT_EQ(FailureOf(MoveFileW(scratch_.Path(W("a.txt")).c_str(), scratch_.Path(W("A.txt")).c_str())), 183u);
  EXPECT_EQ(FindOne(W("A.txt")), W("A.txt"));
  EXPECT_EQ(FindOne(W("a.txt")), W("a.txt"));
  EXPECT_EQ(scratch_.Read(W("A.txt")), "upper");
}

TEST_F(NativeNamesTest, ANameThatIsNoUtf8IsSeenAndReachedByItsBytes) {
  WriteBytesName("a\x80\xFFz\xE9.txt");
  const WString name = FindOne(W("a*.txt"));
  EXPECT_EQ(name, (WString{W('a'), 0xDC80, 0xDCFF, W('z'), 0xDCE9, W('.'), W('t'), W('x'), W('t')}));
  const WString path = scratch_.Path(name);
  EXPECT_EQ(GetFileAttributesW(path.c_str()), 0x20u);
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING)), kNoFailure);
  const WString moved = scratch_.Path(name + W("2"));
  EXPECT_TRUE(MoveFileW(path.c_str(), moved.c_str()));
  EXPECT_TRUE(HasBytesName("a\x80\xFFz\xE9.txt2"));
  EXPECT_TRUE(DeleteFileW(moved.c_str()));
  EXPECT_FALSE(HasBytesName("a\x80\xFFz\xE9.txt2"));
}

TEST_F(NativeNamesTest, ABrokenSequenceBetweenLettersKeepsEveryByte) {
  WriteBytesName("\xE2\x82-\xC3\xA9\xF0\x9F\x98");
  const WString name = FindOne(W("*-*"));
  EXPECT_EQ(name, (WString{0xDCE2, 0xDC82, W('-'), 0x00E9, 0xDCF0, 0xDC9F, 0xDC98}));
  EXPECT_EQ(GetFileAttributesW(scratch_.Path(name).c_str()), 0x20u);
}

TEST_F(NativeNamesTest, ABackslashInANameDoesNotPartIt) {
  WriteBytesName("a\\b");
  scratch_.MakeFolder(W("a"));
  scratch_.Write(W("a\\b"), "other");
  const WString name = FindOne(W("a?b"));
  EXPECT_EQ(name, (WString{W('a'), 0xDC5C, W('b')}));
  EXPECT_TRUE(DeleteFileW(scratch_.Path(name).c_str()));
  EXPECT_FALSE(HasBytesName("a\\b"));
  EXPECT_EQ(scratch_.Read(W("a\\b")), "other");
}

TEST_F(NativeNamesTest, AnUnassignedSurrogateMakesAnInvalidName) {
  for (const WCHAR unit : {WCHAR(0xD800), WCHAR(0xDC00), WCHAR(0xDC2F), WCHAR(0xDC7F), WCHAR(0xDD00)}) {
    const WString path = scratch_.Path(WString(1, unit));
    EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_WRITE, CREATE_NEW)), 123u) << std::hex << int{unit};
  }
  EXPECT_EQ(scratch_.Names(), std::vector<WString>{});
}

TEST_F(NativeNamesTest, AColonIsALetterOfAName) {
  const WString path = scratch_.Path(W("a:b"));
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_WRITE, CREATE_NEW)), kNoFailure);
  EXPECT_TRUE(HasBytesName("a:b"));
}

// Dropping trailing dots, as Windows does, must not lead out of the folder.
TEST_F(NativeNamesTest, ANameOfThreeDotsLeadsNowhere) {
  scratch_.MakeFolder(W("sub"));
  scratch_.Write(W("a.txt"), "abc");
  EXPECT_EQ(FailureOfValue(GetFileAttributesW(scratch_.Path(W("sub\\...\\a.txt")).c_str())), 123u);
}

TEST_F(NativeNamesTest, PathsTooLongForTheSystemFailWith206) {
  const WString name = scratch_.Path(WString(300, W('a')));
  EXPECT_EQ(FailureOfValue(GetFileAttributesW(name.c_str())), 206u);
  EXPECT_EQ(FailureOfOpen(OpenFor(name.c_str(), GENERIC_WRITE, CREATE_ALWAYS)), 206u);
  WString deep = scratch_.Path();
  while (deep.size() < 5000) deep += W("\\abcdefg");
  EXPECT_EQ(FailureOf(CreateDirectoryW(deep.c_str(), nullptr)), 206u);
}

TEST_F(NativeNamesTest, SearchingAFileAsAFolderFailsWith267) {
  scratch_.Write(W("a.txt"), "abc");
  WIN32_FIND_DATAW data;
  EXPECT_EQ(FailureOfSearch(FindFirstFileExW(scratch_.Path(W("a.txt\\*")).c_str(), FindExInfoBasic, &data,
                                             FindExSearchNameMatch, nullptr, 0)),
            267u);
}

// Device paths do not reach even an existing file.
TEST_F(NativeNamesTest, DevicesAreNotThere) {
  const WString path = scratch_.Write(W("a"), "x");
  EXPECT_EQ(FailureOf(DeleteFileW((W("\\\\.\\") + path).c_str())), 2u);
  EXPECT_EQ(FailureOf(DeleteFileW((W("//./") + path).c_str())), 2u);
  EXPECT_TRUE(scratch_.Exists(W("a")));
  EXPECT_TRUE(DeleteFileW((W("\\\\?\\") + path).c_str()));
}

}  // namespace
