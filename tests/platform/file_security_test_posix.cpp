// Security descriptors of files in the native build: how they are derived, and what setting them stores.

#include <gmock/gmock.h>

#include <acl/libacl.h>
#include <fcntl.h>
#include <sys/acl.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <algorithm>
#include <set>

#include "platform/outcome.h"
#include "support/as_user_posix.h"
#include "support/random_cases.h"
#include "support/scratch_folder.h"
#include "support/security_bytes.h"

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

namespace {

constexpr unsigned kRead = 0x120089;
constexpr unsigned kWrite = 0x120116;
constexpr unsigned kExecute = 0x1200A0;
constexpr unsigned kAll = kRead | kWrite | kExecute;
constexpr const char* kAttribute = "user.qxutils.access";  // stores the access list that was set

class NativeRecords : public testing::Test {
 protected:
  NativeRecords() {
    // The test's user creates the files; an ordinary user must be able to reach them.
    chmod(scratch_.NativePath(W("")).c_str(), 0755);
    struct stat status;
    stat(Native().c_str(), &status);
    owner_ = "S-1-22-1-" + std::to_string(status.st_uid);
    group_ = "S-1-22-2-" + std::to_string(status.st_gid);
  }

  std::string Native() const { return scratch_.NativePath(W("a.txt")).string(); }
  void SetMode(mode_t mode) { ASSERT_EQ(chmod(Native().c_str(), mode), 0); }
  void SetPosixList(const char* text) {
    const acl_t list = acl_from_text(text);
    ASSERT_NE(list, nullptr) << text;
    EXPECT_EQ(acl_set_file(Native().c_str(), ACL_TYPE_ACCESS, list), 0) << text;
    acl_free(list);
  }
  std::string PosixList() {
    const acl_t list = acl_get_file(Native().c_str(), ACL_TYPE_ACCESS);
    char* const text = acl_to_any_text(list, nullptr, ',', TEXT_ABBREVIATE | TEXT_NUMERIC_IDS);
    const std::string result = text;
    acl_free(text);
    acl_free(list);
    return result;
  }
  mode_t Mode() const {
    struct stat status;
    EXPECT_EQ(stat(Native().c_str(), &status), 0);
    return status.st_mode & 07777;
  }
  std::vector<BYTE> KeptBytes() const {
    std::vector<BYTE> kept(65536);
    const ssize_t size = getxattr(Native().c_str(), kAttribute, kept.data(), kept.size());
    EXPECT_GT(size, 0);
    kept.resize(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    return kept;
  }
  void Plant(const std::vector<BYTE>& kept) const {
    EXPECT_EQ(setxattr(Native().c_str(), kAttribute, kept.data(), kept.size(), 0), 0);
  }
  // Replaces the stored list by another one, of any size.
  void PlantList(BuiltList& list) {
    if (kept_.empty()) kept_ = KeptBytes();
    std::uint32_t posixBytes = 0;
    std::memcpy(&posixBytes, &kept_[24], sizeof posixBytes);
    std::vector<BYTE> planted(kept_.begin(), kept_.begin() + 28 + posixBytes);
    ACL_SIZE_INFORMATION size = {};
    EXPECT_TRUE(GetAclInformation(list.Get(), &size, sizeof size, AclSizeInformation));
    list.Get()->AclSize = static_cast<WORD>(size.AclBytesInUse);
    const auto* const begin = reinterpret_cast<const BYTE*>(list.Get());
    planted.insert(planted.end(), begin, begin + size.AclBytesInUse);
    Plant(planted);
  }
  std::vector<ShownEntry> Entries() { return EntriesOfFile(file_).value_or(std::vector<ShownEntry>()); }

  // Returns whether the system grants the current user all of these rights (R_OK and others).
  bool SystemGrants(int rights) const {
    return faccessat(AT_FDCWD, Native().c_str(), rights, AT_EACCESS) == 0;
  }

  // Returns the rights that the file's list grants to the current user.
  ACCESS_MASK Effective() {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    PACL list = nullptr;
    EXPECT_EQ(GetNamedSecurityInfoW(file_.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                                    nullptr, &list, nullptr, &descriptor),
              0u);
    WCHAR name[] = u"CURRENT_USER";
    TRUSTEE_W trustee;
    BuildTrusteeWithNameW(&trustee, name);
    ACCESS_MASK mask = 0;
    EXPECT_EQ(GetEffectiveRightsFromAclW(list, &trustee, &mask), 0u);
    LocalFree(descriptor);
    return mask;
  }

  ScratchFolder scratch_;
  const WString file_ = scratch_.Write(W("a.txt"), "abc");
  std::string owner_;
  std::string group_;
  std::vector<BYTE> kept_;  // the attribute before another list was written into it
};

}  // namespace

TEST_F(NativeRecords, ClassesThatGrantLessAndLessNeedNoDenial) {
  SetMode(0754);
  EXPECT_THAT(Entries(),
              ElementsAre(ShownEntry{0, 0, kAll, owner_}, ShownEntry{0, 0, kRead | kExecute, group_},
                          ShownEntry{0, 0, kRead, "S-1-1-0"}));
}

TEST_F(NativeRecords, ALaterClassThatGrantsMoreIsDeniedBefore) {
  SetMode(0467);
  EXPECT_THAT(Entries(), ElementsAre(ShownEntry{0, 0, kRead, owner_}, ShownEntry{1, 0, kAll & ~kRead, owner_},
                                     ShownEntry{0, 0, kRead | kWrite, group_},
                                     ShownEntry{1, 0, kAll & ~(kRead | kWrite), group_},
                                     ShownEntry{0, 0, kAll, "S-1-1-0"}));
}

TEST_F(NativeRecords, NoRightsAtAllAreAnEmptyList) {
  SetMode(0);
  EXPECT_THAT(Entries(), IsEmpty());
  EXPECT_EQ(Effective(), 0u);
}

TEST_F(NativeRecords, NamedUsersAndGroupsAreInTheListWithinItsMask) {
  SetPosixList("u::rw-,u:4001:rwx,u:4002:---,g::r--,g:4003:rw-,m::rw-,o::r--");
  EXPECT_THAT(
      Entries(),
      ElementsAre(ShownEntry{0, 0, kRead | kWrite, owner_}, ShownEntry{0, 0, kRead | kWrite, "S-1-22-1-4001"},
                  ShownEntry{1, 0, kRead | kWrite, "S-1-22-1-4002"}, ShownEntry{0, 0, kRead, group_},
                  ShownEntry{0, 0, kRead | kWrite, "S-1-22-2-4003"}, ShownEntry{0, 0, kRead, "S-1-1-0"}));
}

TEST_F(NativeRecords, AllGroupsGrantBeforeOneDenies) {
  SetPosixList("u::rwx,g::r--,g:4003:-w-,m::rwx,o::--x");
  EXPECT_THAT(Entries(), ElementsAre(ShownEntry{0, 0, kAll, owner_}, ShownEntry{0, 0, kRead, group_},
                                     ShownEntry{0, 0, kWrite, "S-1-22-2-4003"},
                                     ShownEntry{1, 0, kExecute & ~kRead, group_},
                                     ShownEntry{1, 0, kExecute & ~kWrite, "S-1-22-2-4003"},
                                     ShownEntry{0, 0, kExecute, "S-1-1-0"}));
}

// The entries must grant exactly what the system does: for every mode, to the owner, a member of the group
// and all others.
TEST_F(NativeRecords, TheEntriesGrantWhatTheSystemGrantsForEveryMode) {
  if (IsSuperuser()) {
    ASSERT_EQ(chown(Native().c_str(), kNobody, kNobody), 0);
  }
  const AsOrdinaryUser nobody;
  for (mode_t mode = 0; mode < 01000; ++mode) {
    // The owner can always change the mode.
    ASSERT_EQ(chmod(Native().c_str(), mode), 0);
    const ACCESS_MASK mask = Effective();
    EXPECT_EQ((mask & 0x1) != 0, SystemGrants(R_OK)) << std::oct << mode;
    EXPECT_EQ((mask & 0x2) != 0, SystemGrants(W_OK)) << std::oct << mode;
    EXPECT_EQ((mask & 0x20) != 0, SystemGrants(X_OK)) << std::oct << mode;
  }
}

TEST_F(NativeRecords, TheEntriesGrantWhatTheSystemGrantsToGroupsAndOthers) {
  if (!IsSuperuser()) return SUCCEED();  // an ordinary user cannot give the file away
  for (const gid_t group : {kNobody, uid_t{4003}}) {
    ASSERT_EQ(chown(Native().c_str(), 4001, group), 0);
    for (mode_t mode = 0; mode < 01000; ++mode) {
      ASSERT_EQ(chmod(Native().c_str(), mode), 0);
      const AsOrdinaryUser nobody;
      const ACCESS_MASK mask = Effective();
      EXPECT_EQ((mask & 0x1) != 0, SystemGrants(R_OK)) << std::oct << mode;
      EXPECT_EQ((mask & 0x2) != 0, SystemGrants(W_OK)) << std::oct << mode;
      EXPECT_EQ((mask & 0x20) != 0, SystemGrants(X_OK)) << std::oct << mode;
    }
  }
}

// Each single right, for a member of several groups that the list names.
TEST_F(NativeRecords, TheEntriesGrantWhatTheSystemGrantsToAMemberOfSeveralGroups) {
  if (!IsSuperuser()) return SUCCEED();  // an ordinary user cannot change the process's groups
  const std::vector<gid_t> groups = {4003, 4004};
  const auto bits = [](unsigned value) {
    return std::string(value & 4 ? "r" : "-") + (value & 2 ? "w" : "-") + (value & 1 ? "x" : "-");
  };
  int differences = 0;
  for (const gid_t group : {gid_t{4002}, gid_t{4004}, gid_t{kNobody}}) {
    ASSERT_EQ(chown(Native().c_str(), 4001, group), 0);
    // For the file's group, two named groups and all others: every combination of three bits each. Under
    // sanitizers, which take many times as long, every eleventh combination.
    constexpr unsigned kStep = kUnderSanitizers ? 11 : 1;
    for (unsigned choice = 0; choice < 8 * 8 * 8 * 8; choice += kStep) {
      const std::string list = "u::---,g::" + bits(choice) + ",g:4003:" + bits(choice >> 3) +
                               ",g:4004:" + bits(choice >> 6) + ",g:4005:rwx,m::rwx,o::" + bits(choice >> 9);
      SetPosixList(list.c_str());
      const AsOrdinaryUser nobody(groups);
      const ACCESS_MASK mask = Effective();
      for (const auto& [right, mode] : {std::pair<ACCESS_MASK, int>{0x1, R_OK}, {0x2, W_OK}, {0x20, X_OK}}) {
        if (((mask & right) != 0) == SystemGrants(mode)) continue;
        ++differences;
        ADD_FAILURE() << list << " of " << group << ", right " << right;
      }
      ASSERT_LT(differences, 10);
    }
  }
}

// One open is granted the rights of one of the groups, never those of two combined; a list cannot express
// that.
TEST_F(NativeRecords, RightsOfSeveralGroupsAreShownTogetherThoughOneOpenGetsThoseOfOneAlone) {
  if (!IsSuperuser()) return SUCCEED();  // an ordinary user cannot change the process's groups
  ASSERT_EQ(chown(Native().c_str(), 4001, 4002), 0);
  SetPosixList("u::---,g::---,g:4003:r--,g:4004:-w-,m::rw-,o::---");
  const AsOrdinaryUser nobody({4003, 4004});
  EXPECT_EQ(Effective(), kRead | kWrite);
  EXPECT_TRUE(SystemGrants(R_OK));
  EXPECT_TRUE(SystemGrants(W_OK));
  EXPECT_FALSE(SystemGrants(R_OK | W_OK));
}

TEST_F(NativeRecords, TheSuperuserHasNoMoreThanTheListSays) {
  SetMode(0400);
  EXPECT_EQ(Effective(), kRead);
  SetMode(0044);
  EXPECT_EQ(Effective(), 0u);
}

TEST_F(NativeRecords, AListThatIsSetIsGivenBackEntryByEntryWithItsFlags) {
  BuiltList list;
  list.Add(0, 3, 0x1F01FF, UserSidBytes(4001))
      .Add(1, 0, 0x2, GroupSidBytes(4003))
      .Add(0, 16, 0x81, EveryoneSid());
  ASSERT_EQ(SetEntries(file_, list.Get()), 0u);
  EXPECT_THAT(Entries(),
              ElementsAre(ShownEntry{0, 3, 0x1F01FF, "S-1-22-1-4001"}, ShownEntry{1, 0, 0x2, "S-1-22-2-4003"},
                          ShownEntry{0, 16, 0x81, "S-1-1-0"}));
}

// The system sorts the entries of a POSIX access list.
TEST_F(NativeRecords, AListThatNamesUsersAndGroupsInAnyOrderIsGivenBackInIts) {
  for (const bool isGroup : {false, true}) {
    const auto sid = [isGroup](std::uint32_t id) { return isGroup ? GroupSidBytes(id) : UserSidBytes(id); };
    const std::string kind = isGroup ? "S-1-22-2-" : "S-1-22-1-";
    BuiltList list;
    list.Add(0, 3, kRead, sid(4003)).Add(0, 3, kWrite, sid(4001)).Add(0, 3, kExecute, sid(4002));
    ASSERT_EQ(SetEntries(file_, list.Get()), 0u);
    EXPECT_THAT(Entries(),
                ElementsAre(ShownEntry{0, 3, kRead, kind + "4003"}, ShownEntry{0, 3, kWrite, kind + "4001"},
                            ShownEntry{0, 3, kExecute, kind + "4002"}));
  }
}

TEST_F(NativeRecords, AListIsGivenBackUntilTheFileIsNoLongerAsItLeftIt) {
  BuiltList list;
  list.Add(0, 3, kRead, EveryoneSid());
  ASSERT_EQ(SetEntries(file_, list.Get()), 0u);
  EXPECT_EQ(Mode(), 0444u);
  EXPECT_THAT(Entries(), ElementsAre(ShownEntry{0, 3, kRead, "S-1-1-0"}));
  SetMode(0644);
  EXPECT_THAT(Entries(), ElementsAre(ShownEntry{0, 0, kRead | kWrite, owner_},
                                     ShownEntry{0, 0, kRead, group_}, ShownEntry{0, 0, kRead, "S-1-1-0"}));
  SetMode(0444);
  EXPECT_THAT(Entries(), ElementsAre(ShownEntry{0, 3, kRead, "S-1-1-0"}));
  SetPosixList("u::r--,u:4001:r--,g::r--,m::r--,o::r--");
  EXPECT_EQ(Entries().size(), 4u);
}

TEST_F(NativeRecords, ModeAndPosixListFollowAListThatIsSet) {
  BuiltList list;
  list.Add(0, 0, kRead | kExecute, UserSidBytes(4001)).Add(0, 0, kRead | kWrite, GroupSidBytes(4003));
  list.Add(0, 0, kRead, EveryoneSid());
  ASSERT_EQ(SetEntries(file_, list.Get()), 0u);
  EXPECT_EQ(PosixList(), "u::r--,u:4001:r-x,g::r--,g:4003:rw-,m::rwx,o::r--");
}

TEST_F(NativeRecords, AnEntryThatIsOnlyInheritedGrantsNothing) {
  BuiltList list;
  list.Add(0, 8, kAll, EveryoneSid()).Add(0, 0, kRead, EveryoneSid());
  ASSERT_EQ(SetEntries(file_, list.Get()), 0u);
  EXPECT_EQ(Mode(), 0444u);
  EXPECT_EQ(Effective(), kRead);
}

TEST_F(NativeRecords, GeneralRightsAreThoseOfFiles) {
  BuiltList list;
  list.Add(0, 0, 0x10000000, EveryoneSid());
  ASSERT_EQ(SetEntries(file_, list.Get()), 0u);
  EXPECT_EQ(Mode(), 0777u);
  EXPECT_EQ(Effective(), 0x1F01FFu);
}

TEST_F(NativeRecords, AMissingListGrantsEverythingAndAnEmptyOneNothing) {
  ASSERT_EQ(SetEntries(file_, nullptr), 0u);
  EXPECT_EQ(EntriesOfFile(file_), std::nullopt);
  EXPECT_EQ(Mode(), 0777u);
  ASSERT_EQ(SetEntries(file_, BuiltList().Get()), 0u);
  EXPECT_THAT(EntriesOfFile(file_), Optional(IsEmpty()));
  EXPECT_EQ(Mode(), 0u);
}

TEST_F(NativeRecords, TheOwnerKeepsTheListOfAFileThatNobodyMayWrite) {
  if (IsSuperuser()) {
    ASSERT_EQ(chown(Native().c_str(), kNobody, kNobody), 0);
  }
  const AsOrdinaryUser nobody;
  BuiltList list;
  list.Add(0, 3, kRead, EveryoneSid());
  ASSERT_EQ(SetEntries(file_, list.Get()), 0u);
  ASSERT_EQ(SetEntries(file_, list.Get()), 0u);
  EXPECT_EQ(Mode(), 0444u);
  EXPECT_THAT(Entries(), ElementsAre(ShownEntry{0, 3, kRead, "S-1-1-0"}));
}

TEST_F(NativeRecords, SettingAnOwnerIsItsChown) {
  std::vector<BYTE> sid = UserSidBytes(kNobody);
  WString name = file_;
  const auto set = [&](std::vector<BYTE>& owner) {
    return SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION, owner.data(),
                                 nullptr, nullptr, nullptr);
  };
  EXPECT_EQ(set(sid), IsSuperuser() || geteuid() == kNobody ? 0u : 5u);
  std::vector<BYTE> other = UserSidBytes(4001);
  {
    const AsOrdinaryUser ordinary;
    EXPECT_EQ(set(other), 5u);
  }
  std::vector<BYTE> group = GroupSidBytes(0);
  EXPECT_EQ(set(group), 1307u);
  std::vector<BYTE> none = {2, 0, 0, 0, 0, 0, 0, 1};
  EXPECT_EQ(set(none), 1337u);
}

TEST_F(NativeRecords, AListStaysWhenTheOwnerChangesAndTheModeFollows) {
  if (!IsSuperuser()) return SUCCEED();  // an ordinary user cannot give the file away
  BuiltList list;
  list.Add(0, 3, kAll, UserSidBytes(4001)).Add(0, 0, kRead, EveryoneSid());
  ASSERT_EQ(SetEntries(file_, list.Get()), 0u);
  EXPECT_EQ(PosixList(), "u::r--,u:4001:rwx,g::r--,m::rwx,o::r--");
  std::vector<BYTE> sid = UserSidBytes(4001);
  WString name = file_;
  ASSERT_EQ(SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION, sid.data(),
                                  nullptr, nullptr, nullptr),
            0u);
  EXPECT_THAT(Entries(),
              ElementsAre(ShownEntry{0, 3, kAll, "S-1-22-1-4001"}, ShownEntry{0, 0, kRead, "S-1-1-0"}));
  EXPECT_EQ(PosixList(), "u::rwx,g::r--,o::r--");
}

// Every byte is significant, except for those that mode and POSIX access list do not determine.
TEST_F(NativeRecords, AnAttributeThatIsCutOrChangedIsNotBelievedWhereItNoLongerSaysWhatTheModeSays) {
  SetMode(0666);
  const std::vector<ShownEntry> ofMode = Entries();
  BuiltList list;
  list.Add(0, 3, kRead | kWrite, EveryoneSid());
  ASSERT_EQ(SetEntries(file_, list.Get()), 0u);
  ASSERT_EQ(Mode(), 0666u);
  const std::vector<BYTE> kept = KeptBytes();
  // A header, and a list with one entry: 8 bytes and 20.
  ASSERT_EQ(kept.size(), 28u + 28u);
  const std::size_t begin = 28;
  // Reserved bytes of the list, and rights that are not needed to read or write.
  const std::set<std::size_t> unsaid = {begin + 1, begin + 6, begin + 7, begin + 13, begin + 14};
  for (std::size_t index = 0; index < kept.size(); ++index) {
    Plant({kept.begin(), kept.begin() + static_cast<std::ptrdiff_t>(index)});
    EXPECT_EQ(Entries(), ofMode) << index;
    std::vector<BYTE> changed = kept;
    changed[index] = static_cast<BYTE>(changed[index] ^ 0xFF);
    Plant(changed);
    EXPECT_EQ(Entries() != ofMode, unsaid.contains(index)) << index;
  }
  Plant(kept);
  EXPECT_THAT(Entries(), ElementsAre(ShownEntry{0, 3, kRead | kWrite, "S-1-1-0"}));
}

TEST_F(NativeRecords, APlantedListIsNotBelievedWhereItGrantsMoreOrLessThanTheMode) {
  BuiltList list;
  list.Add(0, 3, kRead | kWrite, EveryoneSid()).Add(0, 3, kRead, UserSidBytes(4001));
  ASSERT_EQ(SetEntries(file_, list.Get()), 0u);
  // Writes what another user might have written: another list after the same header.
  const auto plantedIsShown = [this](const std::vector<ShownEntry>& entries) {
    BuiltList planted;
    for (const ShownEntry& entry : entries) {
      planted.Add(static_cast<BYTE>(entry.type), static_cast<BYTE>(entry.flags), entry.mask,
                  entry.sid == "everyone" ? EveryoneSid()
                  : entry.sid == "owner"  ? UserSidBytes(geteuid())
                  : entry.sid == "group"  ? GroupSidBytes(4003)
                                          : UserSidBytes(4001));
    }
    PlantList(planted);
    const std::vector<ShownEntry> shown = Entries();
    return shown.size() == entries.size() && shown.front().flags == entries.front().flags;
  };
  const ShownEntry everyone{0, 3, kRead | kWrite, "everyone"};
  const ShownEntry user{0, 3, kRead, "user"};
  // The order and rights of other accounts cannot be verified: the mode does not contain them.
  EXPECT_TRUE(plantedIsShown({everyone, user}));
  EXPECT_TRUE(plantedIsShown({user, everyone}));
  EXPECT_TRUE(plantedIsShown({{1, 3, 0x10000, "owner"}, everyone, user}));
  for (const std::vector<ShownEntry>& entries :
       std::vector<std::vector<ShownEntry>>{{{0, 3, kAll, "everyone"}, user},
                                            {{0, 3, kRead, "everyone"}, user},
                                            {everyone, {0, 3, kAll, "user"}},
                                            {{1, 3, kWrite, "user"}, everyone},
                                            {{1, 3, kRead, "owner"}, everyone, user},
                                            {everyone, user, {0, 3, kRead, "group"}},
                                            {everyone},
                                            {user},
                                            {{0, 11, kRead | kWrite, "everyone"}, user}}) {
    EXPECT_FALSE(plantedIsShown(entries)) << testing::PrintToString(entries);
  }
}

TEST_F(NativeRecords, APlantedMissingListIsNotBelievedWhereTheModeDoesNotGrantEverything) {
  ASSERT_EQ(SetEntries(file_, nullptr), 0u);
  std::vector<BYTE> missing = KeptBytes();
  ASSERT_EQ(EntriesOfFile(file_), std::nullopt);
  BuiltList list;
  list.Add(0, 3, kRead, EveryoneSid());
  ASSERT_EQ(SetEntries(file_, list.Get()), 0u);
  // The header of the list that was set, except for the word that tells whether there is a list.
  const std::vector<BYTE> kept = KeptBytes();
  constexpr std::ptrdiff_t kHasListAt = 20;
  std::copy(kept.begin(), kept.begin() + kHasListAt, missing.begin());
  Plant(missing);
  EXPECT_THAT(EntriesOfFile(file_), Optional(testing::SizeIs(3)));
}

TEST_F(NativeRecords, AListOfAGroupOfTheOwnersIsGivenBackAndCountsForTheOwner) {
  if (!IsSuperuser()) return SUCCEED();  // an ordinary user cannot give the file away
  ASSERT_EQ(chown(Native().c_str(), kNobody, 4002), 0);
  BuiltList list;
  list.Add(0, 3, kRead, GroupSidBytes(kNobody));
  ASSERT_EQ(SetEntries(file_, list.Get()), 0u);
  EXPECT_EQ(PosixList(), "u::r--,g::---,g:65534:r--,m::r--,o::---");
  EXPECT_THAT(Entries(), ElementsAre(ShownEntry{0, 3, kRead, "S-1-22-2-65534"}));
}

TEST_F(NativeRecords, TypesThatAreNoFilesAreRefused) {
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  for (const int type : {0, 4}) {
    EXPECT_EQ(
        GetNamedSecurityInfoW(file_.c_str(), static_cast<SE_OBJECT_TYPE>(type), DACL_SECURITY_INFORMATION,
                              nullptr, nullptr, nullptr, nullptr, &descriptor),
        87u);
  }
}

TEST_F(NativeRecords, RightsOfOtherUsersAreNotReported) {
  BuiltList list;
  WCHAR name[] = u"root";
  TRUSTEE_W trustee;
  BuildTrusteeWithNameW(&trustee, name);
  ACCESS_MASK mask = 0;
  EXPECT_EQ(GetEffectiveRightsFromAclW(list.Get(), &trustee, &mask), 1332u);
  WCHAR own[] = u"CURRENT_USER";
  BuildTrusteeWithNameW(&trustee, own);
  EXPECT_EQ(GetEffectiveRightsFromAclW(nullptr, &trustee, &mask), 1336u);
}

TEST_F(NativeRecords, AnEntryIsAddedInItsPlace) {
  BuiltList from;
  from.Add(1, 5, 0x2, EveryoneSid());
  void* entry = nullptr;
  ASSERT_TRUE(GetAce(from.Get(), 0, &entry));
  BuiltList to;
  to.Add(0, 0, 0x1, UserSidBytes(7)).Add(0, 0, 0x1, UserSidBytes(8));
  EXPECT_TRUE(AddAce(to.Get(), ACL_REVISION, 1, entry, 20));
  EXPECT_THAT(EntriesOf(to.Get()),
              ElementsAre(ShownEntry{0, 0, 0x1, "S-1-22-1-7"}, ShownEntry{1, 5, 0x2, "S-1-1-0"},
                          ShownEntry{0, 0, 0x1, "S-1-22-1-8"}));
  EXPECT_FALSE(AddAce(to.Get(), ACL_REVISION, 0, entry, 19));
  EXPECT_EQ(GetLastError(), 87u);
}

TEST_F(NativeRecords, PrivilegesAreTheSuperusers) {
  const auto adjust = [](const WCHAR* privilege, DWORD access) {
    HANDLE token = nullptr;
    EXPECT_TRUE(OpenProcessToken(GetCurrentProcess(), access, &token));
    TOKEN_PRIVILEGES privileges = {};
    privileges.PrivilegeCount = 1;
    EXPECT_TRUE(LookupPrivilegeValueW(nullptr, privilege, &privileges.Privileges[0].Luid));
    const BOOL done = AdjustTokenPrivileges(token, FALSE, &privileges, 0, nullptr, nullptr);
    const DWORD error = GetLastError();
    EXPECT_TRUE(CloseHandle(token));
    EXPECT_FALSE(CloseHandle(token));
    return std::pair(done, error);
  };
  for (const WCHAR* privilege : {u"SeTakeOwnershipPrivilege", u"SeSecurityPrivilege", u"SeBackupPrivilege"}) {
    EXPECT_EQ(adjust(privilege, TOKEN_ADJUST_PRIVILEGES), std::pair(TRUE, IsSuperuser() ? 0u : 1300u));
    EXPECT_EQ(adjust(privilege, TOKEN_QUERY), std::pair(FALSE, 5u));
    const AsOrdinaryUser ordinary;
    EXPECT_EQ(adjust(privilege, TOKEN_ADJUST_PRIVILEGES), std::pair(TRUE, 1300u));
  }
}
