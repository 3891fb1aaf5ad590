// Access control lists, entry by entry.

#include <gmock/gmock.h>

#include "platform/outcome.h"
#include "support/security_bytes.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::vector<BYTE> kUser = UserSidBytes(7);
const std::vector<BYTE> kOther = GroupSidBytes(8);

PSID Pointer(const std::vector<BYTE>& sid) { return const_cast<BYTE*>(sid.data()); }

DWORD BytesInUse(ACL* list) {
  ACL_SIZE_INFORMATION size = {};
  EXPECT_TRUE(GetAclInformation(list, &size, sizeof size, AclSizeInformation));
  return size.AclBytesInUse;
}

}  // namespace

TEST(AccessLists, ANewListIsEmpty) {
  BuiltList list;
  ACL_SIZE_INFORMATION size = {};
  ASSERT_TRUE(GetAclInformation(list.Get(), &size, sizeof size, AclSizeInformation));
  EXPECT_EQ(size.AceCount, 0u);
  EXPECT_EQ(size.AclBytesInUse, 8u);
  EXPECT_EQ(size.AclBytesFree, 4088u);
  void* entry = nullptr;
  EXPECT_FALSE(GetAce(list.Get(), 0, &entry));
  EXPECT_EQ(GetLastError(), 87u);
}

TEST(AccessLists, AllowedEntriesGoToTheEnd) {
  BuiltList list;
  EXPECT_TRUE(AddAccessAllowedAceEx(list.Get(), ACL_REVISION, 3, 0x1F01FF, Pointer(kUser)));
  EXPECT_TRUE(AddAccessAllowedAceEx(list.Get(), ACL_REVISION, 0, 0x1200A9, Pointer(kOther)));
  EXPECT_THAT(EntriesOf(list.Get()), ElementsAre(ShownEntry{0, 3, 0x1F01FF, "S-1-22-1-7"},
                                                 ShownEntry{0, 0, 0x1200A9, "S-1-22-2-8"}));
  EXPECT_EQ(BytesInUse(list.Get()), 8u + 24u + 24u);
  EXPECT_EQ(GetLengthSid(Pointer(kUser)), 16u);
}

TEST(AccessLists, AnEntryIsCopiedToTheEnd) {
  BuiltList from;
  from.Add(1, 5, 0x2, kUser);
  void* entry = nullptr;
  ASSERT_TRUE(GetAce(from.Get(), 0, &entry));
  BuiltList to;
  to.Add(0, 0, 0x1, kOther);
  EXPECT_TRUE(AddAce(to.Get(), ACL_REVISION, MAXDWORD, entry, 24));
  EXPECT_THAT(EntriesOf(to.Get()),
              ElementsAre(ShownEntry{0, 0, 0x1, "S-1-22-2-8"}, ShownEntry{1, 5, 0x2, "S-1-22-1-7"}));
}

TEST(AccessLists, AnEntryThatHasNoRoomIsRefused) {
  std::vector<BYTE> memory(8 + 24 + 23);
  auto* const list = reinterpret_cast<ACL*>(memory.data());
  ASSERT_TRUE(InitializeAcl(list, static_cast<DWORD>(memory.size() / 4 * 4), ACL_REVISION));
  EXPECT_TRUE(AddAccessAllowedAceEx(list, ACL_REVISION, 0, 1, Pointer(kUser)));
  EXPECT_FALSE(AddAccessAllowedAceEx(list, ACL_REVISION, 0, 1, Pointer(kUser)));
  EXPECT_EQ(GetLastError(), 1344u);
  EXPECT_EQ(EntriesOf(list).size(), 1u);
}

TEST(AccessLists, DeletingClosesTheGap) {
  BuiltList list;
  list.Add(0, 0, 1, kUser).Add(1, 0, 2, kOther).Add(0, 0, 3, EveryoneSid());
  EXPECT_TRUE(DeleteAce(list.Get(), 1));
  EXPECT_THAT(EntriesOf(list.Get()),
              ElementsAre(ShownEntry{0, 0, 1, "S-1-22-1-7"}, ShownEntry{0, 0, 3, "S-1-1-0"}));
  EXPECT_TRUE(DeleteAce(list.Get(), 0));
  EXPECT_TRUE(DeleteAce(list.Get(), 0));
  EXPECT_THAT(EntriesOf(list.Get()), IsEmpty());
  EXPECT_FALSE(DeleteAce(list.Get(), 0));
  EXPECT_EQ(GetLastError(), 87u);
}

TEST(AccessLists, AListNeedsRoomForItsHeader) {
  ACL list;
  EXPECT_FALSE(InitializeAcl(&list, 7, ACL_REVISION));
  EXPECT_EQ(GetLastError(), 122u);
}
