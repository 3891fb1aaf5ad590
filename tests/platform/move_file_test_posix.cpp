// MoveFileW between file systems and between names that differ in case.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <map>
#include <random>
#include <thread>

#include "platform/handles.h"
#include "platform/outcome.h"
#include "support/scratch_folder.h"
#include "support/scratch_paths.h"

namespace {

namespace fs = std::filesystem;

class NativeMoveTest : public testing::Test {
 protected:
  DWORD Move(WStringView from, WStringView to) {
    return FailureOf(MoveFileW(scratch_.Path(from).c_str(), scratch_.Path(to).c_str()));
  }

  ScratchFolder scratch_;
};

TEST_F(NativeMoveTest, TheCaseOfLettersChangesOnDisk) {
  scratch_.Write(W("a.txt"), "abc");
  scratch_.MakeFolder(W("sub"));
  EXPECT_EQ(Move(W("a.txt"), W("A.TXT")), kNoFailure);
  EXPECT_EQ(Move(W("sub"), W("Sub")), kNoFailure);
  EXPECT_EQ(scratch_.Names(), (std::vector<WString>{W("A.TXT"), W("Sub")}));
}

TEST_F(NativeMoveTest, ASecondHardLinkIsATargetThatIsThere) {
  scratch_.Write(W("a.txt"), "abc");
  ASSERT_EQ(link(scratch_.NativePath(W("a.txt")).c_str(), scratch_.NativePath(W("A.txt")).c_str()), 0);
  EXPECT_EQ(Move(W("a.txt"), W("A.txt")), 183u);
  EXPECT_EQ(scratch_.Names(), (std::vector<WString>{W("A.txt"), W("a.txt")}));
}

// Runs `work` on a new thread for which the kernel does not support a rename that refuses an existing target,
// as on some file systems.
template <typename Work>
void RunWithoutRefusingRename(Work work) {
  std::thread([&work] {
    sock_filter program[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_renameat2, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EINVAL),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog filter{static_cast<unsigned short>(std::size(program)), program};
    ASSERT_EQ(prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0), 0);
    ASSERT_EQ(prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter), 0);
    work();
  }).join();
}

TEST_F(NativeMoveTest, WithoutTheKernelsHelpNothingIsReplacedEither) {
  scratch_.Write(W("a.txt"), "a");
  scratch_.Write(W("b.txt"), "b");
  scratch_.MakeFolder(W("sub"));
  scratch_.MakeFolder(W("empty"));
  ASSERT_EQ(symlink("a.txt", scratch_.NativePath(W("link")).c_str()), 0);
  RunWithoutRefusingRename([this] {
    EXPECT_EQ(Move(W("a.txt"), W("b.txt")), 183u);
    EXPECT_EQ(Move(W("a.txt"), W("empty")), 183u);
    EXPECT_EQ(Move(W("sub"), W("empty")), 183u);
    EXPECT_EQ(Move(W("sub"), W("a.txt")), 183u);
    EXPECT_EQ(Move(W("link"), W("b.txt")), 183u);
    EXPECT_EQ(Move(W("a.txt"), W("nosuch\\c.txt")), 3u);
    EXPECT_EQ(Move(W("a.txt"), W("c.txt")), kNoFailure);
    EXPECT_EQ(Move(W("sub"), W("other")), kNoFailure);
    EXPECT_EQ(Move(W("link"), W("link2")), kNoFailure);
  });
  EXPECT_EQ(scratch_.Names(),
            (std::vector<WString>{W("b.txt"), W("c.txt"), W("empty"), W("link2"), W("other")}));
  EXPECT_EQ(scratch_.Read(W("b.txt")), "b");
  EXPECT_EQ(scratch_.Read(W("c.txt")), "a");
}

ino_t InodeOf(const fs::path& path) {
  struct stat status = {};
  stat(path.c_str(), &status);
  return status.st_ino;
}

ino_t InodeOf(int descriptor) {
  struct stat status = {};
  fstat(descriptor, &status);
  return status.st_ino;
}

// Replaces extended attributes in this thread's moves during its lifetime, because the file systems of the
// tests may not store any.
struct AttributesInPlay {
  AttributesInPlay() { current = this; }
  ~AttributesInPlay() { current = nullptr; }
  AttributesInPlay(const AttributesInPlay&) = delete;
  AttributesInPlay& operator=(const AttributesInPlay&) = delete;

  std::map<std::string, std::string> ofSource;
  std::map<std::string, std::string> ofTarget;
  bool targetKeepsNone = false;
  int refused = 0;
  ino_t sourceInode = 0;
  ino_t targetInode = 0;

  static thread_local AttributesInPlay* current;
};

thread_local AttributesInPlay* AttributesInPlay::current = nullptr;

// Behaves like the system's call: returns the size, and copies the bytes if the buffer is large enough.
ssize_t Give(const std::string& text, void* buffer, std::size_t size) {
  if (size == 0) return static_cast<ssize_t>(text.size());
  if (text.size() > size) {
    errno = ERANGE;
    return -1;
  }
  std::memcpy(buffer, text.data(), text.size());
  return static_cast<ssize_t>(text.size());
}

// A scratch folder, and a folder in memory, which is on another file system; if the scratch folder is in
// memory too, a folder on disk instead.
class MoveAcrossTest : public NativeMoveTest {
 protected:
  MoveAcrossTest() {
    for (const fs::path& parent : {fs::path("/dev/shm"), fs::path("/var/tmp"), fs::current_path()}) {
      std::error_code error;
      other_ = parent / ("qx-test-" + std::to_string(std::random_device()()));
      if (fs::create_directory(other_, error) && DeviceOf(other_) != DeviceOf(scratch_.NativePath({})))
        return;
      fs::remove(other_, error);
      other_.clear();
    }
  }

  ~MoveAcrossTest() override {
    if (!other_.empty()) {
      EXPECT_TRUE(RemoveTree(other_));
    }
  }

  void SetUp() override { ASSERT_FALSE(other_.empty()) << "this machine has one file system only"; }

  static dev_t DeviceOf(const fs::path& path) {
    struct stat status = {};
    stat(path.c_str(), &status);
    return status.st_dev;
  }

  WString Other(const char* name) const { return WindowsForm(other_ / name); }

  DWORD MoveOut(WStringView from, const char* to) {
    return FailureOf(MoveFileW(scratch_.Path(from).c_str(), Other(to).c_str()));
  }
  DWORD MoveIn(const char* from, WStringView to) {
    return FailureOf(MoveFileW(Other(from).c_str(), scratch_.Path(to).c_str()));
  }

  fs::path other_;
};

TEST_F(MoveAcrossTest, AFileTakesItsBytesTimesAndPermissionsAlong) {
  std::string bytes;
  for (int i = 0; i < 1000000; ++i) bytes += static_cast<char>(i * 31 / 7);
  scratch_.Write(W("a.bin"), bytes);
  const fs::path source = scratch_.NativePath(W("a.bin"));
  ASSERT_EQ(chmod(source.c_str(), 0440), 0);
  const timespec times[] = {{1000000000, 0}, {1234567890, 123456789}};
  ASSERT_EQ(utimensat(AT_FDCWD, source.c_str(), times, 0), 0);
  EXPECT_EQ(MoveOut(W("a.bin"), "b.bin"), kNoFailure);
  EXPECT_FALSE(scratch_.Exists(W("a.bin")));
  struct stat status;
  ASSERT_EQ(stat((other_ / "b.bin").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & static_cast<mode_t>(07777), 0440u);
  EXPECT_EQ(status.st_mtim.tv_sec, 1234567890);
  EXPECT_EQ(status.st_mtim.tv_nsec, 123456789);
  EXPECT_EQ(MoveIn("b.bin", W("c.bin")), kNoFailure);
  EXPECT_EQ(scratch_.Read(W("c.bin")), bytes);
  EXPECT_EQ(GetFileAttributesW(scratch_.Path(W("c.bin")).c_str()), 0x21u);
  EXPECT_TRUE(fs::is_empty(other_));
}

TEST_F(MoveAcrossTest, FilesOfNoByteAndOfOneMoveWhole) {
  for (const char* bytes : {"", "x"}) {
    scratch_.Write(W("a.txt"), bytes);
    EXPECT_EQ(MoveOut(W("a.txt"), "b.txt"), kNoFailure);
    EXPECT_FALSE(scratch_.Exists(W("a.txt")));
    EXPECT_EQ(MoveIn("b.txt", W("c.txt")), kNoFailure);
    EXPECT_EQ(scratch_.Read(W("c.txt")), bytes);
    ASSERT_TRUE(fs::remove(scratch_.NativePath(W("c.txt"))));
  }
}

TEST_F(MoveAcrossTest, ExtendedAttributesGoAlong) {
  scratch_.Write(W("a.txt"), "abc");
  const ino_t source = InodeOf(scratch_.NativePath(W("a.txt")));
  AttributesInPlay play;
  play.ofSource = {{"user.first", "one"}, {"user.second", std::string("t\0wo", 4)}, {"user.empty", ""}};
  ASSERT_EQ(MoveOut(W("a.txt"), "a.txt"), kNoFailure);
  EXPECT_EQ(play.ofTarget, play.ofSource);
  EXPECT_EQ(play.sourceInode, source);
  EXPECT_EQ(play.targetInode, InodeOf(other_ / "a.txt"));
}

TEST_F(MoveAcrossTest, AttributesThatTheTargetHasNoPlaceForAreLostAndTheFileMoves) {
  scratch_.Write(W("a.txt"), "abc");
  AttributesInPlay play;
  play.ofSource = {{"user.first", "one"}, {"user.second", "two"}};
  play.targetKeepsNone = true;
  ASSERT_EQ(MoveOut(W("a.txt"), "a.txt"), kNoFailure);
  EXPECT_TRUE(play.ofTarget.empty());
  EXPECT_EQ(play.refused, 2);
  ASSERT_EQ(MoveIn("a.txt", W("back.txt")), kNoFailure);
  EXPECT_EQ(scratch_.Read(W("back.txt")), "abc");
}

TEST_F(MoveAcrossTest, ATargetThatIsThereStaysAndSoDoesTheSource) {
  scratch_.Write(W("a.txt"), "source");
  scratch_.Write(W("b.txt"), "target");
  ASSERT_EQ(MoveOut(W("b.txt"), "b.txt"), kNoFailure);
  EXPECT_EQ(MoveOut(W("a.txt"), "b.txt"), 183u);
  EXPECT_EQ(scratch_.Read(W("a.txt")), "source");
  ASSERT_EQ(MoveIn("b.txt", W("back.txt")), kNoFailure);
  EXPECT_EQ(scratch_.Read(W("back.txt")), "target");
}

TEST_F(MoveAcrossTest, AMissingFolderIs3AndTheSourceStays) {
  scratch_.Write(W("a.txt"), "source");
  EXPECT_EQ(MoveOut(W("a.txt"), "nosuch/b.txt"), 3u);
  EXPECT_EQ(scratch_.Read(W("a.txt")), "source");
}

TEST_F(MoveAcrossTest, AFolderStaysWhereItIs) {
  scratch_.MakeFolder(W("sub"));
  scratch_.Write(W("sub\\a.txt"), "abc");
  EXPECT_EQ(MoveOut(W("sub"), "sub"), 17u);
  EXPECT_EQ(scratch_.Read(W("sub\\a.txt")), "abc");
  EXPECT_TRUE(fs::is_empty(other_));
}

TEST_F(MoveAcrossTest, APipeStaysWhereItIs) {
  ASSERT_EQ(mkfifo(scratch_.NativePath(W("pipe")).c_str(), 0644), 0);
  EXPECT_EQ(MoveOut(W("pipe"), "pipe"), 17u);
  EXPECT_TRUE(scratch_.Exists(W("pipe")));
  EXPECT_TRUE(fs::is_empty(other_));
}

TEST_F(MoveAcrossTest, ALinkMovesAsALink) {
  scratch_.Write(W("target"), "abc");
  ASSERT_EQ(symlink("target", scratch_.NativePath(W("link")).c_str()), 0);
  EXPECT_EQ(MoveOut(W("link"), "link"), kNoFailure);
  EXPECT_FALSE(scratch_.Exists(W("link")));
  EXPECT_EQ(fs::read_symlink(other_ / "link"), "target");
  EXPECT_EQ(scratch_.Read(W("target")), "abc");
}

TEST_F(MoveAcrossTest, AFileThatIsOpenMovesOnlyIfThatIsShared) {
  scratch_.Write(W("a.txt"), "abc");
  const auto open = [this](DWORD access, DWORD share) {
    return FileHandle(OpenFor(scratch_.Path(W("a.txt")).c_str(), access, OPEN_EXISTING, share));
  };
  {
    const FileHandle file = open(GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
    EXPECT_EQ(MoveOut(W("a.txt"), "b.txt"), 32u);
  }
  {
    // Data that is still being written would be lost.
    const FileHandle file = open(GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE);
    EXPECT_EQ(MoveOut(W("a.txt"), "b.txt"), 32u);
  }
  {
    const FileHandle file = open(GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE);
    EXPECT_EQ(MoveOut(W("a.txt"), "b.txt"), kNoFailure);
  }
  EXPECT_TRUE(fs::exists(other_ / "b.txt"));
}

TEST_F(MoveAcrossTest, AFailureToDeleteTheSourceTakesTheCopyBack) {
  // A file that can be read, but not deleted, not even by the superuser.
  EXPECT_NE(FailureOf(MoveFileW(W("Z:\\proc\\version"), Other("version").c_str())), kNoFailure);
  EXPECT_TRUE(fs::is_empty(other_));
  EXPECT_TRUE(fs::exists("/proc/version"));
}

}  // namespace

// Replace the system's functions in this program.
extern "C" {

__attribute__((visibility("default"))) ssize_t flistxattr(int descriptor, char* list,
                                                          std::size_t size) noexcept {
  AttributesInPlay* const play = AttributesInPlay::current;
  if (!play) return syscall(SYS_flistxattr, descriptor, list, size);
  play->sourceInode = InodeOf(descriptor);
  std::string names;
  for (const auto& [name, value] : play->ofSource) names += name + '\0';
  return Give(names, list, size);
}

__attribute__((visibility("default"))) ssize_t fgetxattr(int descriptor, const char* name, void* value,
                                                         std::size_t size) noexcept {
  AttributesInPlay* const play = AttributesInPlay::current;
  if (!play) return syscall(SYS_fgetxattr, descriptor, name, value, size);
  const auto found = play->ofSource.find(name);
  if (found != play->ofSource.end()) return Give(found->second, value, size);
  errno = ENODATA;
  return -1;
}

__attribute__((visibility("default"))) int fsetxattr(int descriptor, const char* name, const void* value,
                                                     std::size_t size, int flags) noexcept {
  AttributesInPlay* const play = AttributesInPlay::current;
  if (!play) return static_cast<int>(syscall(SYS_fsetxattr, descriptor, name, value, size, flags));
  if (play->targetKeepsNone) {
    ++play->refused;
    errno = ENOTSUP;
    return -1;
  }
  play->targetInode = InodeOf(descriptor);
  play->ofTarget[name] = std::string(static_cast<const char*>(value), size);
  return 0;
}

}  // extern "C"
