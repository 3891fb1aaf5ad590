// What the native build guarantees beyond Wine: read-only files for the superuser, device files, permissions.

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/fsuid.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <limits>
#include <map>

#include "platform/handles.h"
#include "platform/outcome.h"
#include "support/scratch_folder.h"

namespace {

// If this thread runs as the superuser, gives its file accesses the rights of an ordinary user.
class OrdinaryUser {
 public:
  OrdinaryUser() : before_(setfsuid(geteuid() == 0 ? 65534 : geteuid())) {}
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;
  ~OrdinaryUser() { setfsuid(static_cast<uid_t>(before_)); }

 private:
  int before_;
};

class NativeFilesTest : public testing::Test {
 protected:
  mode_t ModeOf(WStringView name) {
    struct stat status = {};
    EXPECT_EQ(lstat(scratch_.NativePath(name).c_str(), &status), 0);
    return status.st_mode & static_cast<mode_t>(07777);
  }

  ScratchFolder scratch_;
};

TEST_F(NativeFilesTest, AReadOnlyFileIsNotOpenedForWritingEvenByTheSuperuser) {
  const WString path = scratch_.Write(W("a.txt"), "abc");
  ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_WRITE, OPEN_EXISTING)), 5u);
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_WRITE, OPEN_ALWAYS)), 5u);
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_WRITE, CREATE_ALWAYS)), 5u);
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_READ, CREATE_ALWAYS)), 5u);
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_WRITE, TRUNCATE_EXISTING)), 5u);
  EXPECT_EQ(scratch_.Read(W("a.txt")), "abc");
}

TEST_F(NativeFilesTest, ReadOnlyIsTheOwnersWritePermission) {
  const WString path = scratch_.Write(W("a.txt"), "abc");
  const std::string native = scratch_.NativePath(W("a.txt")).string();
  ASSERT_EQ(chmod(native.c_str(), 0466), 0);
  EXPECT_EQ(GetFileAttributesW(path.c_str()), 0x21u);
  ASSERT_EQ(chmod(native.c_str(), 0640), 0);
  EXPECT_EQ(GetFileAttributesW(path.c_str()), 0x20u);
}

TEST_F(NativeFilesTest, TakingReadOnlyOffGivesNobodyElseMore) {
  const WString path = scratch_.Write(W("a.txt"), "abc");
  ASSERT_EQ(chmod(scratch_.NativePath(W("a.txt")).c_str(), 0664), 0);
  EXPECT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL));
  EXPECT_EQ(ModeOf(W("a.txt")), 0664u);
  EXPECT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_EQ(ModeOf(W("a.txt")), 0444u);
  EXPECT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL));
  EXPECT_EQ(ModeOf(W("a.txt")), 0644u);
}

TEST_F(NativeFilesTest, AFolderIsNeverReadOnly) {
  const WString path = scratch_.MakeFolder(W("sub"));
  ASSERT_EQ(chmod(scratch_.NativePath(W("sub")).c_str(), 0555), 0);
  EXPECT_EQ(GetFileAttributesW(path.c_str()), 0x10u);
  EXPECT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_EQ(ModeOf(W("sub")), 0555u);
}

TEST_F(NativeFilesTest, AFolderWithoutPermissionsIsDenied) {
  const WString folder = scratch_.MakeFolder(W("sub"));
  const WString file = scratch_.Write(W("sub\\a.txt"), "abc");
  ASSERT_EQ(chmod(scratch_.NativePath(W("sub")).c_str(), 0), 0);
  const OrdinaryUser user;
  WIN32_FIND_DATAW data;
  EXPECT_EQ(FailureOfSearch(FindFirstFileExW((folder + W("\\*")).c_str(), FindExInfoBasic, &data,
                                             FindExSearchNameMatch, nullptr, 0)),
            5u);
  EXPECT_EQ(FailureOfValue(GetFileAttributesW(file.c_str())), 5u);
  EXPECT_EQ(FailureOfOpen(OpenFor(file.c_str(), GENERIC_READ, OPEN_EXISTING)), 5u);
  EXPECT_EQ(FailureOf(DeleteFileW(file.c_str())), 5u);
  EXPECT_EQ(FailureOf(CreateDirectoryW((folder + W("\\new")).c_str(), nullptr)), 5u);
  EXPECT_EQ(FailureOf(MoveFileW(file.c_str(), (folder + W("\\b")).c_str())), 5u);
}

TEST_F(NativeFilesTest, EntriesThatMayBeListedButNotLookedAtAreStillListed) {
  scratch_.MakeFolder(W("sub\\inner"));
  scratch_.Write(W("sub\\a.txt"), "abc");
  ASSERT_EQ(symlink("a.txt", scratch_.NativePath(W("sub\\link")).c_str()), 0);
  ASSERT_EQ(chmod(scratch_.NativePath(W("sub")).c_str(), 0444), 0);
  const OrdinaryUser user;
  std::map<WString, DWORD> found;
  WIN32_FIND_DATAW data;
  const FindHandle search(FindFirstFileExW(scratch_.Path(W("sub\\*n*")).c_str(), FindExInfoBasic, &data,
                                           FindExSearchNameMatch, nullptr, 0));
  ASSERT_TRUE(search.IsOpen());
  do {
    found[data.cFileName] = data.dwFileAttributes;
  } while (FindNextFileW(search.Get(), &data));
  EXPECT_EQ(found, (std::map<WString, DWORD>{{W("inner"), 0x10u}, {W("link"), 0x400u}}));
  const FindHandle files(FindFirstFileExW(scratch_.Path(W("sub\\*.txt")).c_str(), FindExInfoBasic, &data,
                                          FindExSearchNameMatch, nullptr, 0));
  ASSERT_TRUE(files.IsOpen());
  EXPECT_EQ(WString(data.cFileName), W("a.txt"));
  EXPECT_EQ(data.dwFileAttributes, 0x20u);
}

TEST_F(NativeFilesTest, TheAttributesOfAnothersFileAreNotChanged) {
  // Owned by root, whoever runs the test.
  const OrdinaryUser user;
  EXPECT_EQ(FailureOf(SetFileAttributesW(W("Z:\\etc\\passwd"), FILE_ATTRIBUTE_READONLY)), 5u);
}

TEST_F(NativeFilesTest, AReadErrorOfTheDeviceIs1117) {
  const FileHandle memory(OpenFor(W("Z:\\proc\\self\\mem"), GENERIC_READ, OPEN_EXISTING));
  ASSERT_TRUE(memory.IsOpen());
  char byte = 0;
  DWORD done = 77;
  EXPECT_EQ(FailureOf(ReadFile(memory.Get(), &byte, 1, &done, nullptr)), 1117u);
  EXPECT_EQ(done, 0u);
}

TEST_F(NativeFilesTest, AFullDiskIs112) {
  const FileHandle full(OpenFor(W("Z:\\dev\\full"), GENERIC_WRITE, OPEN_EXISTING));
  ASSERT_TRUE(full.IsOpen());
  DWORD done = 77;
  EXPECT_EQ(FailureOf(WriteFile(full.Get(), "abc", 3, &done, nullptr)), 112u);
  EXPECT_EQ(done, 0u);
}

TEST_F(NativeFilesTest, APipeIsNotWaitedFor) {
  ASSERT_EQ(mkfifo(scratch_.NativePath(W("pipe")).c_str(), 0644), 0);
  const WString path = scratch_.Path(W("pipe"));
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING)), 5u);
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_WRITE, OPEN_ALWAYS)), 5u);
  EXPECT_TRUE(DeleteFileW(path.c_str()));
}

TEST_F(NativeFilesTest, APipeIsLookedAtWithoutBecomingItsReader) {
  const std::string native = scratch_.NativePath(W("pipe")).string();
  ASSERT_EQ(mkfifo(native.c_str(), 0644), 0);
  const FileHandle pipe(OpenFor(scratch_.Path(W("pipe")).c_str(), 0, OPEN_EXISTING));
  ASSERT_TRUE(pipe.IsOpen());
  BY_HANDLE_FILE_INFORMATION information;
  EXPECT_TRUE(GetFileInformationByHandle(pipe.Get(), &information));
  // The system refuses to open a pipe for writing if it has no reader.
  EXPECT_EQ(open(native.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC), -1);
  EXPECT_EQ(errno, ENXIO);
}

// Opening a device may have effects.
TEST_F(NativeFilesTest, AHandleWithoutAccessDoesNotOpenTheFile) {
  const WString path = scratch_.Write(W("a.txt"), "abc");
  const int watch = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  ASSERT_GE(inotify_add_watch(watch, scratch_.NativePath(W("a.txt")).c_str(), IN_OPEN), 0);
  const auto wasOpened = [watch] {
    alignas(inotify_event) char events[4096];
    return read(watch, events, sizeof events) > 0;
  };
  for (const DWORD creation : {OPEN_EXISTING, OPEN_ALWAYS}) {
    EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), 0, creation)), kNoFailure);
    EXPECT_FALSE(wasOpened()) << creation;
    EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_READ, creation)), kNoFailure);
    EXPECT_TRUE(wasOpened()) << creation;
  }
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), 0, CREATE_ALWAYS)), kNoFailure);
  EXPECT_TRUE(wasOpened());
  EXPECT_EQ(scratch_.Read(W("a.txt")), "");
  close(watch);
}

TEST_F(NativeFilesTest, AHandleIsNeverGivenTwice) {
  const WString path = scratch_.Write(W("a.txt"), "abc");
  const HANDLE first = OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING);
  EXPECT_TRUE(CloseHandle(first));
  const FileHandle second(OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING));
  EXPECT_NE(second.Get(), first);
  char byte;
  EXPECT_EQ(FailureOf(ReadFile(first, &byte, 1, nullptr, nullptr)), 6u);
}

TEST_F(NativeFilesTest, FilesAndSearchesHaveHandlesOfTheirOwn) {
  const WString path = scratch_.Write(W("a.txt"), "abc");
  WIN32_FIND_DATAW data;
  const FileHandle file(OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING));
  const FindHandle search(
      FindFirstFileExW(path.c_str(), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr, 0));
  EXPECT_EQ(FailureOf(FindClose(file.Get())), 6u);
  EXPECT_EQ(FailureOf(FindNextFileW(file.Get(), &data)), 6u);
  EXPECT_EQ(FailureOf(CloseHandle(search.Get())), 6u);
  char byte;
  EXPECT_EQ(FailureOf(ReadFile(search.Get(), &byte, 1, nullptr, nullptr)), 6u);
}

TEST_F(NativeFilesTest, MissingBuffersAreRefused) {
  const WString path = scratch_.Write(W("a.txt"), "abc");
  const FileHandle file(OpenFor(path.c_str(), GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING));
  EXPECT_EQ(FailureOf(ReadFile(file.Get(), nullptr, 1, nullptr, nullptr)), 998u);
  EXPECT_EQ(FailureOf(WriteFile(file.Get(), nullptr, 1, nullptr, nullptr)), 998u);
  EXPECT_TRUE(ReadFile(file.Get(), nullptr, 0, nullptr, nullptr));
  EXPECT_EQ(FailureOf(GetFileSizeEx(file.Get(), nullptr)), 87u);
  WIN32_FIND_DATAW data;
  const FindHandle search(
      FindFirstFileExW(path.c_str(), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr, 0));
  EXPECT_EQ(FailureOf(FindNextFileW(search.Get(), nullptr)), 87u);
  EXPECT_EQ(FailureOfSearch(
                FindFirstFileExW(path.c_str(), FindExInfoBasic, nullptr, FindExSearchNameMatch, nullptr, 0)),
            87u);
}

TEST_F(NativeFilesTest, APositionThatTheResultCannotHoldIsRefused) {
  const WString path = scratch_.Write(W("a.txt"), "abc");
  const FileHandle file(OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING));
  LONG high = 1;
  EXPECT_EQ(SetFilePointer(file.Get(), 5, &high, FILE_BEGIN), 5u);
  EXPECT_EQ(FailureOfValue(SetFilePointer(file.Get(), 0, nullptr, FILE_CURRENT)), 87u);
  high = std::numeric_limits<LONG>::max();
  EXPECT_EQ(FailureOfValue(SetFilePointer(file.Get(), -1, &high, FILE_CURRENT)), 87u);
  high = 0;
  EXPECT_EQ(SetFilePointer(file.Get(), 0, &high, FILE_CURRENT), 5u);
  EXPECT_EQ(high, 1);
}

TEST_F(NativeFilesTest, AFileLargerThan4GigabytesReportsItsSize) {
  const WString path = scratch_.Write(W("a.txt"), "");
  ASSERT_EQ(truncate(scratch_.NativePath(W("a.txt")).c_str(), 0x180000005), 0);
  const FileHandle file(OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING));
  LARGE_INTEGER size;
  EXPECT_TRUE(GetFileSizeEx(file.Get(), &size));
  EXPECT_EQ(size.QuadPart, 0x180000005);
  WIN32_FIND_DATAW data;
  const FindHandle search(
      FindFirstFileExW(path.c_str(), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr, 0));
  EXPECT_EQ(data.nFileSizeHigh, 1u);
  EXPECT_EQ(data.nFileSizeLow, 0x80000005u);
}

TEST_F(NativeFilesTest, TruncatingAsksForWriteAccessAndForItsSharing) {
  const WString path = scratch_.Write(W("a.txt"), "abc");
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_READ, TRUNCATE_EXISTING)), 87u);
  const FileHandle file(OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING, FILE_SHARE_READ));
  EXPECT_EQ(FailureOfOpen(OpenFor(path.c_str(), GENERIC_READ, CREATE_ALWAYS)), 32u);
  EXPECT_EQ(scratch_.Read(W("a.txt")), "abc");
}

TEST_F(NativeFilesTest, TwoHardLinksOfAFileShareItsModes) {
  const WString path = scratch_.Write(W("a.txt"), "abc");
  ASSERT_EQ(link(scratch_.NativePath(W("a.txt")).c_str(), scratch_.NativePath(W("b.txt")).c_str()), 0);
  const FileHandle file(OpenFor(path.c_str(), GENERIC_READ, OPEN_EXISTING, 0));
  EXPECT_EQ(FailureOfOpen(OpenFor(scratch_.Path(W("b.txt")).c_str(), GENERIC_READ, OPEN_EXISTING)), 32u);
}

}  // namespace
