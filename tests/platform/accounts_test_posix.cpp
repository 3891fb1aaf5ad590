// SIDs byte by byte, and calls that Wine ends with a page fault.

#include <gtest/gtest.h>

#include <span>

#include "platform/outcome.h"
#include "platform/posix/account.h"
#include "support/security_bytes.h"

using Platform::Account;
using Platform::AccountOfName;
using Platform::AccountOfSid;

namespace {

// The size of the SID, which both functions must find.
std::size_t SizeOfSid(const std::vector<BYTE>& sid) {
  const std::size_t size = Platform::SidSize(sid);
  EXPECT_EQ(Platform::SidSize(static_cast<const void*>(sid.data())), size);
  return size;
}

std::vector<BYTE> SidOfNumbers(std::size_t count) {
  return SidBytes(22, std::vector<std::uint32_t>(count, 7));
}

std::vector<BYTE> WithByte(std::vector<BYTE> sid, std::size_t index, BYTE byte) {
  sid[index] = byte;
  return sid;
}

}  // namespace

TEST(SidBytesTest, ASidHasUpToFifteenNumbers) {
  EXPECT_EQ(SizeOfSid(SidOfNumbers(0)), 8u);
  EXPECT_EQ(SizeOfSid(SidOfNumbers(1)), 12u);
  EXPECT_EQ(SizeOfSid(SidOfNumbers(14)), 64u);
  EXPECT_EQ(SizeOfSid(SidOfNumbers(15)), 68u);
  EXPECT_EQ(SizeOfSid(SidOfNumbers(16)), 0u);
}

TEST(SidBytesTest, ASidOfAnotherRevisionIsNone) {
  EXPECT_EQ(SizeOfSid(WithByte(EveryoneSid(), 0, 0)), 0u);
  EXPECT_EQ(SizeOfSid(WithByte(EveryoneSid(), 0, 2)), 0u);
}

TEST(SidBytesTest, ASidThatIsCutIsNone) {
  const std::vector<BYTE> sid = SidBytes(22, {1, 7});
  const std::span<const BYTE> bytes(sid);
  EXPECT_EQ(Platform::SidSize(bytes), 16u);
  for (std::size_t size = 0; size < 16; ++size) EXPECT_EQ(Platform::SidSize(bytes.first(size)), 0u) << size;
  EXPECT_EQ(Platform::SidSize(static_cast<const void*>(nullptr)), 0u);
}

TEST(SidBytesTest, WhatFollowsASidIsNotOfIt) {
  std::vector<BYTE> bytes = UserSidBytes(7);
  bytes.push_back(1);
  EXPECT_EQ(Platform::SidSize(bytes), 16u);
  EXPECT_EQ(AccountOfSid(bytes), Platform::UserAccount(7));
}

TEST(SidBytesTest, AreThoseOfTheThreeKinds) {
  EXPECT_EQ(AccountOfSid(EveryoneSid()), Platform::kEveryoneAccount);
  EXPECT_EQ(AccountOfSid(UserSidBytes(0x01020304)), Platform::UserAccount(0x01020304));
  EXPECT_EQ(AccountOfSid(GroupSidBytes(9)), Platform::GroupAccount(9));
  EXPECT_EQ(Platform::SidOf(Platform::kEveryoneAccount), EveryoneSid());
  EXPECT_EQ(Platform::SidOf(Platform::UserAccount(0x01020304)), UserSidBytes(0x01020304));
  EXPECT_EQ(Platform::SidOf(Platform::GroupAccount(9)), GroupSidBytes(9));
}

TEST(SidBytesTest, AnyOtherSidIsOfNoAccount) {
  const std::vector<BYTE> rows[] = {
      SidBytes(1, {1}),     SidBytes(1, {0, 0}),  SidBytes(1, {}),      SidBytes(0, {0}),
      SidBytes(2, {0}),     SidBytes(5, {18}),    SidBytes(22, {1}),    SidBytes(22, {1, 7, 7}),
      SidBytes(22, {0, 7}), SidBytes(22, {3, 7}), SidBytes(21, {1, 7}), SidBytes(23, {1, 7}),
      SidBytes(22, {}),
  };
  for (const std::vector<BYTE>& sid : rows) {
    EXPECT_EQ(AccountOfSid(sid), std::nullopt) << SidText(sid.data());
  }
  // The authority is a number of six bytes.
  for (std::size_t index = 2; index < 7; ++index) {
    EXPECT_EQ(AccountOfSid(WithByte(EveryoneSid(), index, 1)), std::nullopt) << index;
    EXPECT_EQ(AccountOfSid(WithByte(UserSidBytes(7), index, 1)), std::nullopt) << index;
  }
}

TEST(AccountNamesTest, ANumberIsTheUserOfThatIdButTheHighestIsNone) {
  EXPECT_EQ(AccountOfName(u"4294967294"), Platform::UserAccount(4294967294));
  EXPECT_EQ(AccountOfName(u"4294967295"), std::nullopt);
  EXPECT_EQ(AccountOfName(u"4294967296"), std::nullopt);
  EXPECT_EQ(AccountOfName(u"7x"), std::nullopt);
  EXPECT_EQ(AccountOfName(u"-7"), std::nullopt);
  EXPECT_EQ(AccountOfName(u""), std::nullopt);
  EXPECT_EQ(AccountOfName(std::u16string_view(u"7\0", 2)), std::nullopt);
}

TEST(AccountNamesTest, EveryoneIsNamedInAnyCaseAndWhole) {
  EXPECT_EQ(AccountOfName(u"EVERYONE"), Platform::kEveryoneAccount);
  EXPECT_EQ(AccountOfName(u"everyone"), Platform::kEveryoneAccount);
  EXPECT_EQ(AccountOfName(u"Everyon"), std::nullopt);
  EXPECT_EQ(AccountOfName(u"Everyones"), std::nullopt);
  EXPECT_EQ(Platform::NameOf(Platform::kEveryoneAccount), u"Everyone");
}

TEST(AccountNamesTest, AnAccountWithoutANameIsItsNumber) {
  EXPECT_EQ(Platform::NameOf(Platform::UserAccount(4294967294)), u"4294967294");
  EXPECT_EQ(Platform::NameOf(Platform::GroupAccount(4294967293)), u"4294967293");
}

TEST(AccountNamesTest, AUserIsAMemberOfEveryoneLast) {
  EXPECT_EQ(Platform::WithMemberships(Platform::kEveryoneAccount),
            std::vector<Account>{Platform::kEveryoneAccount});
  EXPECT_EQ(Platform::WithMemberships(Platform::GroupAccount(9)),
            (std::vector<Account>{Platform::GroupAccount(9), Platform::kEveryoneAccount}));
  EXPECT_EQ(Platform::WithMemberships(Platform::UserAccount(4294967294)),
            (std::vector<Account>{Platform::UserAccount(4294967294), Platform::kEveryoneAccount}));
}

TEST(AccountLookupsTest, EachArgumentMustBeThere) {
  std::vector<BYTE> sid = EveryoneSid();
  WCHAR name[20];
  WCHAR domain[20];
  DWORD nameSize = 20;
  DWORD domainSize = 20;
  SID_NAME_USE use;
  EXPECT_EQ(FailureOf(LookupAccountSidW(nullptr, sid.data(), name, nullptr, domain, &domainSize, &use)), 87u);
  EXPECT_EQ(FailureOf(LookupAccountSidW(nullptr, sid.data(), name, &nameSize, domain, nullptr, &use)), 87u);
  EXPECT_EQ(FailureOf(LookupAccountSidW(nullptr, sid.data(), name, &nameSize, domain, &domainSize, nullptr)),
            87u);
  EXPECT_EQ(FailureOf(LookupAccountSidW(nullptr, nullptr, name, &nameSize, domain, &domainSize, &use)), 87u);
  BYTE found[68];
  DWORD sidSize = sizeof found;
  EXPECT_EQ(FailureOf(LookupAccountNameW(nullptr, W("Everyone"), found, nullptr, domain, &domainSize, &use)),
            87u);
  EXPECT_EQ(FailureOf(LookupAccountNameW(nullptr, W("Everyone"), found, &sidSize, domain, nullptr, &use)),
            87u);
  EXPECT_EQ(
      FailureOf(LookupAccountNameW(nullptr, W("Everyone"), found, &sidSize, domain, &domainSize, nullptr)),
      87u);
  EXPECT_EQ(FailureOf(LookupAccountNameW(nullptr, nullptr, found, &sidSize, domain, &domainSize, &use)),
            1332u);
  EXPECT_EQ(FailureOf(GetUserNameW(name, nullptr)), 87u);
}

TEST(AccountLookupsTest, EachBufferNeedsRoomForTheTextAndItsZero) {
  std::vector<BYTE> sid = EveryoneSid();
  WCHAR name[20];
  WCHAR domain[20];
  SID_NAME_USE use;
  DWORD nameSize = 9;
  DWORD domainSize = 1;
  EXPECT_TRUE(LookupAccountSidW(nullptr, sid.data(), name, &nameSize, domain, &domainSize, &use));
  EXPECT_EQ(use, SidTypeWellKnownGroup);
  EXPECT_EQ(nameSize, 8u);
  EXPECT_EQ(domainSize, 0u);
  for (const auto& [nameRoom, domainRoom] : {std::pair<DWORD, DWORD>{8, 1}, {9, 0}, {8, 0}}) {
    nameSize = nameRoom;
    domainSize = domainRoom;
    EXPECT_EQ(FailureOf(LookupAccountSidW(nullptr, sid.data(), name, &nameSize, domain, &domainSize, &use)),
              122u);
    EXPECT_EQ(nameSize, 9u);
    EXPECT_EQ(domainSize, 1u);
  }
  BYTE found[68];
  DWORD sidSize = 12;
  domainSize = 1;
  EXPECT_TRUE(LookupAccountNameW(nullptr, W("Everyone"), found, &sidSize, domain, &domainSize, &use));
  EXPECT_EQ(sidSize, 12u);
  EXPECT_EQ(domainSize, 0u);
  EXPECT_EQ(use, SidTypeWellKnownGroup);
  for (const auto& [sidRoom, domainRoom] : {std::pair<DWORD, DWORD>{11, 1}, {12, 0}, {11, 0}}) {
    sidSize = sidRoom;
    domainSize = domainRoom;
    EXPECT_EQ(
        FailureOf(LookupAccountNameW(nullptr, W("Everyone"), found, &sidSize, domain, &domainSize, &use)),
        122u);
    EXPECT_EQ(sidSize, 12u);
    EXPECT_EQ(domainSize, 1u);
  }
}

TEST(AccountLookupsTest, ALocalSystemMayBeNamedByAnEmptyText) {
  std::vector<BYTE> sid = UserSidBytes(4294967294);
  WCHAR name[20];
  WCHAR domain[20];
  DWORD nameSize = 20;
  DWORD domainSize = 20;
  SID_NAME_USE use;
  EXPECT_TRUE(LookupAccountSidW(W(""), sid.data(), name, &nameSize, domain, &domainSize, &use));
  EXPECT_EQ(use, SidTypeUser);
  sid = GroupSidBytes(4294967293);
  EXPECT_TRUE(LookupAccountSidW(W(""), sid.data(), name, &nameSize, domain, &domainSize, &use));
  EXPECT_EQ(use, SidTypeAlias);
  DWORD sidSize = 0;
  EXPECT_EQ(
      FailureOf(LookupAccountNameW(W("s"), W("Everyone"), nullptr, &sidSize, domain, &domainSize, &use)),
      1722u);
  EXPECT_EQ(FailureOf(LookupAccountNameW(W(""), W("Everyone"), nullptr, &sidSize, domain, &domainSize, &use)),
            122u);
}
