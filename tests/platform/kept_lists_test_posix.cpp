// Stored access lists in the native build: when there is no space to store one, when the owner may not read
// the file, and with several processes at once.

#include <gmock/gmock.h>

#include <sys/stat.h>
#include <sys/xattr.h>

#include <atomic>
#include <thread>

#include "platform/outcome.h"
#include "support/as_user_posix.h"
#include "support/other_process_posix.h"
#include "support/random_cases.h"
#include "support/scratch_folder.h"
#include "support/security_bytes.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

namespace {

constexpr DWORD kReadRights = 0x120089;
constexpr DWORD kWriteRights = 0x120116;
constexpr DWORD kExecuteRights = 0x1200A0;

class KeptLists : public testing::Test {
 protected:
  KeptLists() { chmod(scratch_.NativePath(W("")).c_str(), 0755); }

  std::string Native() const { return scratch_.NativePath(W("a.txt")).string(); }
  struct stat Status() const {
    struct stat status;
    EXPECT_EQ(stat(Native().c_str(), &status), 0);
    return status;
  }
  mode_t Mode() const { return Status().st_mode & 07777; }
  bool IsKept() const { return getxattr(Native().c_str(), "user.qxutils.access", nullptr, 0) >= 0; }
  void GiveFileToNobody() const {
    if (IsSuperuser()) {
      ASSERT_EQ(chown(Native().c_str(), kNobody, kNobody), 0);
    }
  }
  std::string OwnerSid() const { return "S-1-22-1-" + std::to_string(Status().st_uid); }
  std::string GroupSid() const { return "S-1-22-2-" + std::to_string(Status().st_gid); }
  // Sets an inheritable list that grants the rights to everyone except the owner. Returns 0 or an error.
  DWORD DenyOwner(DWORD rights) const {
    const BYTE inherited = 3;
    BuiltList list;
    list.Add(1, inherited, rights, UserSidBytes(Status().st_uid)).Add(0, inherited, rights, EveryoneSid());
    return SetEntries(file_, list.Get());
  }
  // The entries of that list as it was set, and as derived from the resulting mode.
  std::vector<ShownEntry> SetEntriesOf(DWORD rights) const {
    return {{1, 3, rights, OwnerSid()}, {0, 3, rights, "S-1-1-0"}};
  }
  std::vector<ShownEntry> ModeEntriesOf(DWORD rights) const {
    return {{1, 0, rights, OwnerSid()}, {0, 0, rights, GroupSid()}, {0, 0, rights, "S-1-1-0"}};
  }
  // Fills the space for extended attributes with smaller and smaller ones. Returns false if there is no
  // limit.
  bool FillRoomForAttributes() const {
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
    return isFull && number < 100;
  }

  const ScratchFolder scratch_;
  const WString file_ = scratch_.Write(W("a.txt"), "abc");
};

}  // namespace

// No file system stores an attribute of more than 65536 bytes.
TEST_F(KeptLists, OneThatIsTooLongToBeKeptIsAnErrorAndTheOldOneNoLongerCounts) {
  BuiltList old;
  old.Add(0, 3, kReadRights, EveryoneSid());
  ASSERT_EQ(SetEntries(file_, old.Get()), 0u);
  ASSERT_THAT(EntriesOfFile(file_), Optional(ElementsAre(ShownEntry{0, 3, kReadRights, "S-1-1-0"})));
  std::vector<BYTE> memory = FilledList(65528, kReadRights);
  EXPECT_EQ(SetEntries(file_, reinterpret_cast<ACL*>(memory.data())), 112u);
  // The mode is also that of the old list, which would still be valid if its attribute had remained.
  EXPECT_EQ(Mode(), 0444u);
  EXPECT_FALSE(IsKept());
  EXPECT_THAT(EntriesOfFile(file_), Optional(testing::SizeIs(3)));
}

TEST_F(KeptLists, OneForWhichTheFileHasNoMoreRoomIsAnErrorAndTheOldOneNoLongerCounts) {
  BuiltList old;
  old.Add(0, 3, kReadRights, EveryoneSid());
  ASSERT_EQ(SetEntries(file_, old.Get()), 0u);
  if (!FillRoomForAttributes()) return SUCCEED();  // the file system does not limit attributes
  std::vector<BYTE> memory = FilledList(1000, kReadRights);
  EXPECT_EQ(SetEntries(file_, reinterpret_cast<ACL*>(memory.data())), 112u);
  EXPECT_EQ(Mode(), 0444u);
  EXPECT_FALSE(IsKept());
  EXPECT_THAT(EntriesOfFile(file_), Optional(testing::SizeIs(3)));
}

// The mode represents an empty list completely.
TEST_F(KeptLists, AnEmptyOneNeedsNoRoomAndTheOldOneNoLongerCounts) {
  BuiltList old;
  old.Add(1, 3, kReadRights, EveryoneSid());  // which results in mode 0 too
  ASSERT_EQ(SetEntries(file_, old.Get()), 0u);
  ASSERT_TRUE(IsKept());
  FillRoomForAttributes();
  EXPECT_EQ(SetEntries(file_, BuiltList().Get()), 0u);
  EXPECT_FALSE(IsKept());
  EXPECT_EQ(Mode(), 0u);
  EXPECT_THAT(EntriesOfFile(file_), Optional(IsEmpty()));
}

TEST_F(KeptLists, AnEmptyOneThatIsProtectedIsKept) {
  ASSERT_EQ(SetEntries(file_, BuiltList().Get(), PROTECTED_DACL_SECURITY_INFORMATION), 0u);
  EXPECT_TRUE(IsKept());
}

TEST_F(KeptLists, TheOwnerEmptiesHisThoughHeMayNotWriteTheFile) {
  GiveFileToNobody();
  const AsOrdinaryUser nobody;
  ASSERT_EQ(DenyOwner(kReadRights), 0u);
  ASSERT_EQ(SetEntries(file_, BuiltList().Get()), 0u);
  EXPECT_EQ(Mode(), 0u);
  EXPECT_THAT(EntriesOfFile(file_), Optional(IsEmpty()));
  ASSERT_EQ(chmod(Native().c_str(), 0600), 0);
  EXPECT_FALSE(IsKept());
}

TEST_F(KeptLists, AnOwnerWhoMayNotReadTheFileIsShownTheListOfItsMode) {
  GiveFileToNobody();
  {
    const AsOrdinaryUser nobody;
    ASSERT_EQ(DenyOwner(kReadRights), 0u);
    ASSERT_EQ(Mode(), 0044u);
    EXPECT_EQ(EntriesOfFile(file_), ModeEntriesOf(kReadRights));
    BYTE record[1000];
    DWORD needed = 0;
    PACL list = nullptr;
    BOOL flag = FALSE;
    ASSERT_TRUE(GetFileSecurityW(file_.c_str(), DACL_SECURITY_INFORMATION, record, sizeof record, &needed));
    ASSERT_TRUE(GetSecurityDescriptorDacl(record, &flag, &list, &flag));
    EXPECT_EQ(EntriesOf(list), ModeEntriesOf(kReadRights));
  }
  // A user who may read the file gets the list that was set.
  if (IsSuperuser()) {
    EXPECT_EQ(EntriesOfFile(file_), SetEntriesOf(kReadRights));
  }
}

TEST_F(KeptLists, AnOwnerWhoMayNotReadHisFolderIsShownTheListOfItsMode) {
  const WString folder = scratch_.MakeFolder(W("sub"));
  const std::string native = scratch_.NativePath(W("sub")).string();
  if (IsSuperuser()) {
    ASSERT_EQ(chown(native.c_str(), kNobody, kNobody), 0);
  }
  struct stat status;
  {
    const AsOrdinaryUser nobody;
    BuiltList list;
    list.Add(0, 3, kWriteRights, EveryoneSid());
    ASSERT_EQ(SetEntries(folder, list.Get()), 0u);
    ASSERT_EQ(stat(native.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0222u);
    EXPECT_THAT(
        EntriesOfFile(folder),
        Optional(ElementsAre(ShownEntry{0, 0, kWriteRights, "S-1-22-1-" + std::to_string(status.st_uid)},
                             ShownEntry{0, 0, kWriteRights, "S-1-22-2-" + std::to_string(status.st_gid)},
                             ShownEntry{0, 0, kWriteRights, "S-1-1-0"})));
  }
  if (IsSuperuser()) {
    EXPECT_THAT(EntriesOfFile(folder), Optional(ElementsAre(ShownEntry{0, 3, kWriteRights, "S-1-1-0"})));
  }
  chmod(native.c_str(), 0700);  // so that the folder can be removed
}

TEST_F(KeptLists, AnUnreadableOneStaysWhenItsOwnerIsSetAgain) {
  GiveFileToNobody();
  {
    const AsOrdinaryUser nobody;
    ASSERT_EQ(DenyOwner(kReadRights), 0u);
    std::vector<BYTE> sid = UserSidBytes(geteuid());
    WString name = file_;
    EXPECT_EQ(SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION, sid.data(),
                                    nullptr, nullptr, nullptr),
              0u);
    EXPECT_EQ(Mode(), 0044u);
  }
  if (IsSuperuser()) {
    EXPECT_EQ(EntriesOfFile(file_), SetEntriesOf(kReadRights));
  }
}

TEST_F(KeptLists, OneOfAnotherOwnerThatMayNotBeReadIsShownAsTheModeSaysIt) {
  if (!IsSuperuser()) return SUCCEED();  // only the superuser can create a file of another owner
  BuiltList list;
  list.Add(0, 3, kReadRights, UserSidBytes(4001));
  ASSERT_EQ(SetEntries(file_, list.Get()), 0u);
  const AsOrdinaryUser nobody;
  EXPECT_THAT(EntriesOfFile(file_), Optional(ElementsAre(ShownEntry{1, 0, kReadRights, "S-1-22-1-0"},
                                                         ShownEntry{0, 0, kReadRights, "S-1-22-1-4001"})));
}

TEST_F(KeptLists, AnUnreadableOneIsReadOnSeveralThreads) {
  constexpr int kThreads = 4;
  constexpr int kRounds = 100;
  GiveFileToNobody();
  const AsOrdinaryUser nobody;
  ASSERT_EQ(DenyOwner(kReadRights), 0u);
  const std::optional<std::vector<ShownEntry>> expected = ModeEntriesOf(kReadRights);
  std::atomic<int> right = 0;
  std::vector<std::thread> threads;
  for (int number = 0; number < kThreads; ++number) {
    threads.emplace_back([&] {
      for (int round = 0; round < kRounds; ++round) right += EntriesOfFile(file_) == expected ? 1 : 0;
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(right, kThreads * kRounds);
}

TEST_F(KeptLists, ReadingInTwoProcessesChangesNothingAboutTheFile) {
  GiveFileToNobody();
  const AsOrdinaryUser nobody;
  ASSERT_EQ(DenyOwner(kReadRights), 0u);
  const struct stat before = Status();
  const std::optional<std::vector<ShownEntry>> expected = ModeEntriesOf(kReadRights);
  const auto readOften = [&] {
    bool isRight = true;
    for (int round = 0; round < 100; ++round) isRight = EntriesOfFile(file_) == expected && isRight;
    return isRight;
  };
  OtherProcess other(readOften);
  other.Begin();
  EXPECT_TRUE(readOften());
  EXPECT_TRUE(other.Finish());
  const struct stat after = Status();
  EXPECT_EQ(after.st_mode, before.st_mode);
  EXPECT_EQ(after.st_ctim.tv_sec, before.st_ctim.tv_sec);
  EXPECT_EQ(after.st_ctim.tv_nsec, before.st_ctim.tv_nsec);
}

// Each of the two lists results in a mode by which the owner can neither read nor write the file.
TEST_F(KeptLists, OfTwoProcessesThatSetOneTheModeIsThatOfOneOfThemWithoutAdditionalRights) {
  constexpr int kRounds = RandomCases(10000);
  GiveFileToNobody();
  const auto set = [this](DWORD rights) {
    const AsOrdinaryUser nobody;
    return DenyOwner(rights) == 0;
  };
  OtherProcess other([&] { return set(kExecuteRights); });
  for (int round = 0; round < kRounds && !HasFailure(); ++round) {
    other.Begin();
    EXPECT_TRUE(set(kReadRights));
    EXPECT_TRUE(other.Finish());
    const mode_t mode = Mode();
    EXPECT_TRUE(mode == 0044 || mode == 0011) << std::oct << mode;
    const DWORD rights = mode == 0044 ? kReadRights : kExecuteRights;
    const auto entries = EntriesOfFile(file_);
    EXPECT_TRUE(entries == SetEntriesOf(rights) || entries == ModeEntriesOf(rights)) << round;
  }
}
