// Access control lists byte by byte: lists and entries that are truncated, of other types, or with invalid
// SIDs.

#include <gmock/gmock.h>

#include "platform/outcome.h"
#include "support/as_user_posix.h"
#include "support/security_bytes.h"

using testing::ElementsAre;
using testing::SizeIs;

namespace {

constexpr DWORD kInvalidParameter = 87;
constexpr DWORD kInvalidAcl = 1336;

// The rights of the current user, or the error.
struct Rights {
  DWORD error;
  ACCESS_MASK mask;
  friend bool operator==(const Rights&, const Rights&) = default;
};

Rights RightsIn(ACL* list) {
  WCHAR name[] = u"CURRENT_USER";
  TRUSTEE_W trustee;
  BuildTrusteeWithNameW(&trustee, name);
  Rights rights{0, 0};
  rights.error = GetEffectiveRightsFromAclW(list, &trustee, &rights.mask);
  return rights;
}

PSID Sid(const std::vector<BYTE>& sid) { return const_cast<BYTE*>(sid.data()); }

std::vector<BYTE> Changed(std::vector<BYTE> sid, std::size_t index, BYTE byte) {
  sid[index] = byte;
  return sid;
}

// Returns an access-allowed entry. Without `size` its size field is correct for the SID.
std::vector<BYTE> EntryBytes(const std::vector<BYTE>& sid, std::size_t size = 0) {
  const auto total = static_cast<WORD>(size != 0 ? size : 8 + sid.size());
  std::vector<BYTE> bytes = {0, 0, static_cast<BYTE>(total), static_cast<BYTE>(total >> 8), 1, 0, 0, 0};
  bytes.insert(bytes.end(), sid.begin(), sid.end());
  return bytes;
}

}  // namespace

TEST(AccessListBytesTest, RevisionsTwoToFourAreRead) {
  BuiltList list;
  list.Add(0, 0, 1, EveryoneSid());
  for (const BYTE revision : {BYTE{2}, BYTE{3}, BYTE{4}}) {
    list.Get()->AclRevision = revision;
    EXPECT_EQ(RightsIn(list.Get()), (Rights{0, 1})) << int{revision};
  }
  for (const BYTE revision : {BYTE{0}, BYTE{1}, BYTE{5}, BYTE{255}}) {
    list.Get()->AclRevision = revision;
    EXPECT_EQ(RightsIn(list.Get()).error, kInvalidAcl) << int{revision};
  }
  EXPECT_EQ(RightsIn(nullptr).error, kInvalidAcl);
}

TEST(AccessListBytesTest, AListHoldsItsHeaderAndItsEntriesWhole) {
  BuiltList list;
  list.Add(0, 0, 1, EveryoneSid()).Add(0, 0, 2, EveryoneSid());
  list.Get()->AclSize = 8 + 20 + 20;
  EXPECT_EQ(RightsIn(list.Get()), (Rights{0, 3}));
  for (const WORD size : {WORD{0}, WORD{7}, WORD{8}, WORD{27}, WORD{28}, WORD{31}, WORD{32}, WORD{47}}) {
    list.Get()->AclSize = size;
    EXPECT_EQ(RightsIn(list.Get()).error, kInvalidAcl) << size;
  }
  list.Get()->AclSize = 8;
  list.Get()->AceCount = 0;
  EXPECT_EQ(RightsIn(list.Get()), (Rights{0, 0}));
}

TEST(AccessListBytesTest, AnEntryIsNoSmallerThanItsHeader) {
  BuiltList list;
  list.Add(0, 0, 1, EveryoneSid());
  auto* const bytes = reinterpret_cast<BYTE*>(list.Get());
  for (const BYTE size : {BYTE{0}, BYTE{3}}) {
    bytes[8 + 2] = size;
    EXPECT_EQ(RightsIn(list.Get()).error, kInvalidAcl) << int{size};
  }
  // Without space for the mask or the SID, the entry applies to nobody.
  for (const BYTE size : {BYTE{4}, BYTE{7}, BYTE{8}, BYTE{15}, BYTE{19}}) {
    bytes[8 + 2] = size;
    EXPECT_EQ(RightsIn(list.Get()), (Rights{0, 0})) << int{size};
  }
}

TEST(AccessListBytesTest, AnEntryOfNobodyGrantsNothing) {
  for (const std::vector<BYTE>& sid :
       {Changed(EveryoneSid(), 0, 0), Changed(EveryoneSid(), 0, 2), Changed(EveryoneSid(), 1, 16),
        Changed(EveryoneSid(), 1, 2), Changed(EveryoneSid(), 2, 1), Changed(EveryoneSid(), 6, 1),
        Changed(EveryoneSid(), 7, 2), Changed(EveryoneSid(), 8, 1)}) {
    BuiltList list;
    list.Add(0, 0, 1, sid).Add(0, 0, 2, EveryoneSid());
    EXPECT_EQ(RightsIn(list.Get()), (Rights{0, 2})) << testing::PrintToString(sid);
  }
}

TEST(AccessListBytesTest, EntriesOfOtherTypesGrantNothing) {
  for (const BYTE type : {BYTE{2}, BYTE{5}, BYTE{9}, BYTE{255}}) {
    BuiltList list;
    list.Add(type, 0, 1, EveryoneSid()).Add(0, 0, 2, EveryoneSid());
    EXPECT_EQ(RightsIn(list.Get()), (Rights{0, 2})) << int{type};
  }
}

// For each right, the first entry that names it decides.
TEST(AccessListBytesTest, ADenialTakesWhatIsNotYetGranted) {
  BuiltList list;
  list.Add(0, 0, 0x3, EveryoneSid()).Add(1, 0, 0x6, EveryoneSid()).Add(0, 0, 0xC, EveryoneSid());
  EXPECT_EQ(RightsIn(list.Get()), (Rights{0, 0x3 | 0x8}));
}

TEST(AccessListBytesTest, GeneralRightsAreThoseOfFilesWithTheOthers) {
  const std::pair<DWORD, ACCESS_MASK> rows[] = {
      {0x80000000, 0x120089}, {0x40000000, 0x120116}, {0x20000000, 0x1200A0},
      {0x10000000, 0x1F01FF}, {0x80000040, 0x1200C9}, {0xC0000000, 0x12019F},
  };
  for (const auto& [general, rights] : rows) {
    BuiltList list;
    list.Add(0, 0, general, EveryoneSid());
    EXPECT_EQ(RightsIn(list.Get()), (Rights{0, rights})) << std::hex << general;
  }
}

TEST(AccessListBytesTest, AUserWithoutGroupsOfItsOwnIsInNoOther) {
  if (!IsSuperuser()) return;  // only the superuser can become another user
  BuiltList list;
  list.Add(0, 0, 1, GroupSidBytes(0)).Add(0, 0, 2, UserSidBytes(0)).Add(0, 0, 4, GroupSidBytes(kNobody));
  list.Add(0, 0, 8, UserSidBytes(kNobody)).Add(0, 0, 16, EveryoneSid());
  const AsOrdinaryUser user;
  EXPECT_EQ(RightsIn(list.Get()), (Rights{0, 4 | 8 | 16}));
}

TEST(AccessListBytesTest, OnlyTheCurrentUserIsMapped) {
  BuiltList list;
  WCHAR name[] = u"CURRENT_USE";
  TRUSTEE_W trustee;
  BuildTrusteeWithNameW(&trustee, name);
  ACCESS_MASK mask = 0;
  EXPECT_EQ(GetEffectiveRightsFromAclW(list.Get(), &trustee, &mask), 1332u);
  BuildTrusteeWithNameW(&trustee, nullptr);
  EXPECT_EQ(GetEffectiveRightsFromAclW(list.Get(), &trustee, &mask), 1332u);
  EXPECT_EQ(GetEffectiveRightsFromAclW(list.Get(), nullptr, &mask), kInvalidParameter);
  EXPECT_EQ(GetEffectiveRightsFromAclW(list.Get(), &trustee, nullptr), kInvalidParameter);
  WCHAR current[] = u"CURRENT_USER";
  BuildTrusteeWithNameW(&trustee, current);
  trustee.TrusteeForm = TRUSTEE_IS_SID;
  EXPECT_EQ(GetEffectiveRightsFromAclW(list.Get(), &trustee, &mask), 1332u);
}

TEST(AccessListCallsTest, ANewListNeedsItsRevisionAndASizeThatItsHeaderHolds) {
  std::vector<BYTE> memory(0x10000);
  auto* const list = reinterpret_cast<ACL*>(memory.data());
  EXPECT_EQ(FailureOf(InitializeAcl(nullptr, 100, 2)), kInvalidParameter);
  EXPECT_EQ(FailureOf(InitializeAcl(list, 100, 1)), kInvalidParameter);
  EXPECT_EQ(FailureOf(InitializeAcl(list, 100, 3)), kInvalidParameter);
  EXPECT_EQ(FailureOf(InitializeAcl(list, 0x10000, 2)), kInvalidParameter);
  EXPECT_TRUE(InitializeAcl(list, 0xFFFF, 2));
  EXPECT_EQ(list->AclSize, 0xFFFFu);
  EXPECT_TRUE(InitializeAcl(list, 8, 2));
  EXPECT_EQ(list->AclRevision, 2);
  EXPECT_EQ(list->AceCount, 0);
  EXPECT_EQ(list->Sbz1, 0);
  EXPECT_EQ(list->Sbz2, 0);
}

TEST(AccessListCallsTest, SizesNeedAListABufferAndItsSize) {
  BuiltList list;
  ACL_SIZE_INFORMATION size = {};
  EXPECT_EQ(FailureOf(GetAclInformation(nullptr, &size, 12, AclSizeInformation)), kInvalidParameter);
  EXPECT_EQ(FailureOf(GetAclInformation(list.Get(), nullptr, 12, AclSizeInformation)), kInvalidParameter);
  EXPECT_EQ(FailureOf(GetAclInformation(list.Get(), &size, 12, AclRevisionInformation)), kInvalidParameter);
  EXPECT_EQ(FailureOf(GetAclInformation(list.Get(), &size, 11, AclSizeInformation)), 122u);
  EXPECT_TRUE(GetAclInformation(list.Get(), &size, 12, AclSizeInformation));
}

TEST(AccessListCallsTest, AnEntryIsReadByItsIndex) {
  BuiltList list;
  list.Add(0, 0, 1, EveryoneSid()).Add(0, 0, 2, EveryoneSid());
  void* entry = nullptr;
  EXPECT_TRUE(GetAce(list.Get(), 1, &entry));
  EXPECT_EQ(static_cast<BYTE*>(entry) - reinterpret_cast<BYTE*>(list.Get()), 8 + 20);
  EXPECT_EQ(FailureOf(GetAce(list.Get(), 2, &entry)), kInvalidParameter);
  EXPECT_EQ(FailureOf(GetAce(list.Get(), 0, nullptr)), kInvalidParameter);
  EXPECT_EQ(FailureOf(GetAce(nullptr, 0, &entry)), kInvalidParameter);
}

TEST(AccessListCallsTest, EntriesAreAddedBeforeTheOneOfAnIndexOrAtTheEnd) {
  BuiltList list;
  list.Add(0, 0, 1, EveryoneSid()).Add(0, 0, 2, EveryoneSid());
  std::vector<BYTE> two = EntryBytes(UserSidBytes(7));
  const std::vector<BYTE> second = EntryBytes(GroupSidBytes(8));
  two.insert(two.end(), second.begin(), second.end());
  EXPECT_TRUE(AddAce(list.Get(), 2, 1, two.data(), 48));
  EXPECT_TRUE(AddAce(list.Get(), 2, 0, two.data(), 24));
  EXPECT_TRUE(AddAce(list.Get(), 2, 5, two.data() + 24, 24));
  EXPECT_THAT(EntriesOf(list.Get()),
              ElementsAre(ShownEntry{0, 0, 1, "S-1-22-1-7"}, ShownEntry{0, 0, 1, "S-1-1-0"},
                          ShownEntry{0, 0, 1, "S-1-22-1-7"}, ShownEntry{0, 0, 1, "S-1-22-2-8"},
                          ShownEntry{0, 0, 2, "S-1-1-0"}, ShownEntry{0, 0, 1, "S-1-22-2-8"}));
}

TEST(AccessListCallsTest, EntriesThatAreNotWholeAreNotAdded) {
  BuiltList list;
  std::vector<BYTE> entry = EntryBytes(EveryoneSid());
  EXPECT_EQ(FailureOf(AddAce(list.Get(), 2, 0, entry.data(), 0)), kInvalidParameter);
  EXPECT_EQ(FailureOf(AddAce(list.Get(), 2, 0, nullptr, 20)), kInvalidParameter);
  EXPECT_EQ(FailureOf(AddAce(list.Get(), 2, 0, entry.data(), 3)), kInvalidParameter);
  EXPECT_EQ(FailureOf(AddAce(list.Get(), 2, 0, entry.data(), 19)), kInvalidParameter);
  EXPECT_EQ(FailureOf(AddAce(list.Get(), 1, 0, entry.data(), 20)), kInvalidParameter);
  EXPECT_EQ(FailureOf(AddAce(nullptr, 2, 0, entry.data(), 20)), kInvalidParameter);
  entry = EntryBytes(EveryoneSid(), 3);
  EXPECT_EQ(FailureOf(AddAce(list.Get(), 2, 0, entry.data(), 20)), kInvalidParameter);
  entry = EntryBytes(EveryoneSid(), 19);  // followed by one byte of a second entry
  EXPECT_EQ(FailureOf(AddAce(list.Get(), 2, 0, entry.data(), 20)), kInvalidParameter);
  EXPECT_THAT(EntriesOf(list.Get()), SizeIs(0));
  entry = EntryBytes({}, 4);
  EXPECT_TRUE(AddAce(list.Get(), 2, 0, entry.data(), 4));
}

TEST(AccessListCallsTest, AListIsFilledToItsLastByte) {
  std::vector<BYTE> memory(8 + 20);
  auto* const list = reinterpret_cast<ACL*>(memory.data());
  ASSERT_TRUE(InitializeAcl(list, 8 + 19, 2));
  EXPECT_EQ(FailureOf(AddAccessAllowedAceEx(list, 2, 0, 1, Sid(EveryoneSid()))), 1344u);
  std::vector<BYTE> entry = EntryBytes(EveryoneSid());
  EXPECT_EQ(FailureOf(AddAce(list, 2, 0, entry.data(), 20)), 1344u);
  ASSERT_TRUE(InitializeAcl(list, 8 + 20, 2));
  const std::vector<BYTE> everyone = EveryoneSid();
  EXPECT_TRUE(AddAccessAllowedAceEx(list, 2, 0, 1, Sid(everyone)));
  EXPECT_EQ(FailureOf(AddAccessAllowedAceEx(list, 2, 0, 1, Sid(everyone))), 1344u);
}

TEST(AccessListCallsTest, AnAllowedEntryNeedsASidAListAndItsRevision) {
  BuiltList list;
  const std::vector<BYTE> everyone = EveryoneSid();
  EXPECT_EQ(FailureOf(AddAccessAllowedAceEx(list.Get(), 2, 0, 1, nullptr)), 1337u);
  EXPECT_EQ(FailureOf(AddAccessAllowedAceEx(nullptr, 2, 0, 1, Sid(everyone))), kInvalidAcl);
  EXPECT_EQ(FailureOf(AddAccessAllowedAceEx(list.Get(), 3, 0, 1, Sid(everyone))), kInvalidParameter);
}

TEST(AccessListCallsTest, AnEntryIsDeletedByItsIndex) {
  BuiltList list;
  list.Add(0, 0, 1, EveryoneSid()).Add(0, 0, 2, UserSidBytes(7)).Add(0, 0, 4, EveryoneSid());
  EXPECT_EQ(FailureOf(DeleteAce(list.Get(), 3)), kInvalidParameter);
  EXPECT_EQ(FailureOf(DeleteAce(nullptr, 0)), kInvalidParameter);
  EXPECT_TRUE(DeleteAce(list.Get(), 1));
  EXPECT_TRUE(DeleteAce(list.Get(), 1));
  EXPECT_THAT(EntriesOf(list.Get()), ElementsAre(ShownEntry{0, 0, 1, "S-1-1-0"}));
}
