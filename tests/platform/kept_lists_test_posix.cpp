// Access lists that were set, natively: where there is no room to keep one, and where the owner of the file
// may not read it.

#include <gmock/gmock.h>

#include <sys/stat.h>
#include <sys/xattr.h>

#include <atomic>
#include <thread>

#include "platform/outcome.h"
#include "support/as_user_posix.h"
#include "support/scratch_folder.h"
#include "support/security_bytes.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

namespace {

constexpr DWORD kReadRights = 0x120089;
constexpr DWORD kWriteRights = 0x120116;

class KeptLists : public testing::Test {
 protected:
  KeptLists() { chmod(scratch_.NativePath(W("")).c_str(), 0755); }

  std::string Native() const { return scratch_.NativePath(W("a.txt")).string(); }
  mode_t Mode() const {
    struct stat status;
    EXPECT_EQ(stat(Native().c_str(), &status), 0);
    return status.st_mode & 07777;
  }
  bool IsKept() const { return getxattr(Native().c_str(), "user.qxutils.access", nullptr, 0) >= 0; }
  void GiveFileToNobody() const {
    if (IsSuperuser()) {
      ASSERT_EQ(chown(Native().c_str(), kNobody, kNobody), 0);
    }
  }
  // Sets a list that lets everyone read but the owner, and is to be inherited.
  void SetUnreadableList() const {
    const BYTE inherited = 3;
    BuiltList list;
    list.Add(1, inherited, kReadRights, UserSidBytes(geteuid()))
        .Add(0, inherited, kReadRights, EveryoneSid());
    ASSERT_EQ(SetEntries(file_, list.Get()), 0u);
    ASSERT_EQ(Mode() & 0777, 0044u);
  }
  static std::vector<ShownEntry> UnreadableEntries() {
    return {{1, 3, kReadRights, "S-1-22-1-" + std::to_string(geteuid())}, {0, 3, kReadRights, "S-1-1-0"}};
  }

  const ScratchFolder scratch_;
  const WString file_ = scratch_.Write(W("a.txt"), "abc");
};

// A list of that many equal entries, which let everyone read.
std::vector<BYTE> LongList(std::size_t bytes) {
  std::vector<BYTE> memory(bytes);
  auto* const list = reinterpret_cast<ACL*>(memory.data());
  EXPECT_TRUE(InitializeAcl(list, static_cast<DWORD>(memory.size()), ACL_REVISION));
  std::vector<BYTE> sid = EveryoneSid();
  while (AddAccessAllowedAceEx(list, ACL_REVISION, 0, kReadRights, sid.data())) {
  }
  return memory;
}

}  // namespace

// No file system has room for an attribute of more than 65536 bytes.
TEST_F(KeptLists, OneThatIsTooLongToBeKeptIsAnErrorAndTheOldOneNoLongerCounts) {
  BuiltList old;
  old.Add(0, 3, kReadRights, EveryoneSid());
  ASSERT_EQ(SetEntries(file_, old.Get()), 0u);
  ASSERT_THAT(EntriesOfFile(file_), Optional(ElementsAre(ShownEntry{0, 3, kReadRights, "S-1-1-0"})));
  std::vector<BYTE> memory = LongList(65528);
  EXPECT_EQ(SetEntries(file_, reinterpret_cast<ACL*>(memory.data())), 112u);
  // Its mode is that of the old one too, which would count still.
  EXPECT_EQ(Mode(), 0444u);
  EXPECT_FALSE(IsKept());
  EXPECT_THAT(EntriesOfFile(file_), Optional(testing::SizeIs(3)));
}

TEST_F(KeptLists, OneForWhichTheFileHasNoMoreRoomIsAnErrorAndTheOldOneNoLongerCounts) {
  BuiltList old;
  old.Add(0, 3, kReadRights, EveryoneSid());
  ASSERT_EQ(SetEntries(file_, old.Get()), 0u);
  // Fill what room there is for attributes, with ever smaller ones.
  bool isFull = false;
  int number = 0;
  for (std::size_t size = 60000; size > 0 && number < 100; size /= 2) {
    const std::string value(size, 'x');
    for (; number < 100; ++number) {
      const std::string name = "user.fill" + std::to_string(number);
      if (setxattr(Native().c_str(), name.c_str(), value.data(), size, 0) == 0) continue;
      isFull = true;
      break;
    }
  }
  if (!isFull || number == 100) return SUCCEED();  // the file system has room for any number of attributes
  std::vector<BYTE> memory = LongList(1000);
  EXPECT_EQ(SetEntries(file_, reinterpret_cast<ACL*>(memory.data())), 112u);
  EXPECT_EQ(Mode(), 0444u);
  EXPECT_FALSE(IsKept());
  EXPECT_THAT(EntriesOfFile(file_), Optional(testing::SizeIs(3)));
}

TEST_F(KeptLists, TheOwnerReadsHisWithoutTheRightToReadTheFile) {
  GiveFileToNobody();
  const AsOrdinaryUser nobody;
  SetUnreadableList();
  EXPECT_EQ(EntriesOfFile(file_), UnreadableEntries());
  EXPECT_EQ(Mode(), 0044u);
  BYTE record[1000];
  DWORD needed = 0;
  PACL list = nullptr;
  BOOL flag = FALSE;
  ASSERT_TRUE(GetFileSecurityW(file_.c_str(), DACL_SECURITY_INFORMATION, record, sizeof record, &needed));
  ASSERT_TRUE(GetSecurityDescriptorDacl(record, &flag, &list, &flag));
  EXPECT_EQ(EntriesOf(list), UnreadableEntries());
  EXPECT_EQ(Mode(), 0044u);
}

TEST_F(KeptLists, TheOwnersFolderIsReadTheSameWay) {
  const WString folder = scratch_.MakeFolder(W("sub"));
  const std::string native = scratch_.NativePath(W("sub")).string();
  if (IsSuperuser()) {
    ASSERT_EQ(chown(native.c_str(), kNobody, kNobody), 0);
  }
  const AsOrdinaryUser nobody;
  BuiltList list;
  list.Add(0, 3, kWriteRights, EveryoneSid());
  ASSERT_EQ(SetEntries(folder, list.Get()), 0u);
  EXPECT_THAT(EntriesOfFile(folder), Optional(ElementsAre(ShownEntry{0, 3, kWriteRights, "S-1-1-0"})));
  struct stat status;
  ASSERT_EQ(stat(native.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0222u);
  chmod(native.c_str(), 0700);  // for whoever removes it
}

TEST_F(KeptLists, AnUnreadableOneStaysWhenItsOwnerIsSetAgain) {
  GiveFileToNobody();
  const AsOrdinaryUser nobody;
  SetUnreadableList();
  std::vector<BYTE> sid = UserSidBytes(geteuid());
  WString name = file_;
  EXPECT_EQ(SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION, sid.data(),
                                  nullptr, nullptr, nullptr),
            0u);
  EXPECT_EQ(EntriesOfFile(file_), UnreadableEntries());
  EXPECT_EQ(Mode(), 0044u);
}

TEST_F(KeptLists, OneOfAnotherOwnerThatMayNotBeReadIsDenied) {
  if (!IsSuperuser()) return SUCCEED();  // there is no other user to make one
  BuiltList list;
  list.Add(0, 3, kReadRights, UserSidBytes(4001));
  ASSERT_EQ(SetEntries(file_, list.Get()), 0u);
  const WString free = scratch_.Write(W("b.txt"), "abc");
  ASSERT_EQ(chmod(scratch_.NativePath(W("b.txt")).c_str(), 0), 0);
  const AsOrdinaryUser nobody;
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  EXPECT_EQ(GetNamedSecurityInfoW(file_.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                                  nullptr, nullptr, &descriptor),
            5u);
  DWORD needed = 0;
  EXPECT_FALSE(GetFileSecurityW(file_.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &needed));
  EXPECT_EQ(GetLastError(), 5u);
  // The owner is no secret, and where no list is kept there is none to deny.
  EXPECT_FALSE(GetFileSecurityW(file_.c_str(), OWNER_SECURITY_INFORMATION, nullptr, 0, &needed));
  EXPECT_EQ(GetLastError(), 122u);
  EXPECT_THAT(EntriesOfFile(free), Optional(IsEmpty()));
}

TEST_F(KeptLists, AnUnreadableOneIsReadOnSeveralThreadsAndLeavesTheModeAsItIs) {
  constexpr int kThreads = 4;
  constexpr int kRounds = 100;
  GiveFileToNobody();
  const AsOrdinaryUser nobody;
  SetUnreadableList();
  const std::optional<std::vector<ShownEntry>> expected = UnreadableEntries();
  std::atomic<int> right = 0;
  std::vector<std::thread> threads;
  for (int number = 0; number < kThreads; ++number) {
    threads.emplace_back([&] {
      for (int round = 0; round < kRounds; ++round) right += EntriesOfFile(file_) == expected ? 1 : 0;
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(right, kThreads * kRounds);
  EXPECT_EQ(Mode(), 0044u);
}
