// SIDs byte by byte, calls that crash under Wine, and names from the system's user database.

#include <gtest/gtest.h>

#include "platform/outcome.h"
#include "support/security_bytes.h"

namespace {

struct FoundAccount {
  WString name;
  int use;
  friend bool operator==(const FoundAccount&, const FoundAccount&) = default;
};

// Returns nothing if the SID is not mapped.
std::optional<FoundAccount> AccountOf(std::vector<BYTE> sid) {
  WCHAR name[40];
  WCHAR domain[40];
  DWORD nameSize = 40;
  DWORD domainSize = 40;
  SID_NAME_USE use;
  if (LookupAccountSidW(nullptr, sid.data(), name, &nameSize, domain, &domainSize, &use)) {
    return FoundAccount{name, use};
  }
  EXPECT_EQ(GetLastError(), 1332u);
  return std::nullopt;
}

// Returns nothing if the name is not mapped.
std::optional<std::vector<BYTE>> SidBytesOfName(const WString& name) {
  std::vector<BYTE> sid(68);
  WCHAR domain[40];
  DWORD sidSize = 68;
  DWORD domainSize = 40;
  SID_NAME_USE use;
  if (LookupAccountNameW(nullptr, name.c_str(), sid.data(), &sidSize, domain, &domainSize, &use)) {
    sid.resize(sidSize);
    return sid;
  }
  EXPECT_EQ(GetLastError(), 1332u);
  return std::nullopt;
}

DWORD LengthOf(std::vector<BYTE> sid) { return GetLengthSid(sid.data()); }

std::vector<BYTE> SidOfNumbers(std::size_t count) {
  return SidBytes(22, std::vector<std::uint32_t>(count, 7));
}

std::vector<BYTE> WithByte(std::vector<BYTE> sid, std::size_t index, BYTE byte) {
  sid[index] = byte;
  return sid;
}

}  // namespace

TEST(SidBytesTest, ASidHasUpToFifteenNumbers) {
  EXPECT_EQ(LengthOf(SidOfNumbers(0)), 8u);
  EXPECT_EQ(LengthOf(SidOfNumbers(1)), 12u);
  EXPECT_EQ(LengthOf(SidOfNumbers(14)), 64u);
  EXPECT_EQ(LengthOf(SidOfNumbers(15)), 68u);
  EXPECT_EQ(LengthOf(SidOfNumbers(16)), 0u);
  EXPECT_EQ(GetLengthSid(nullptr), 0u);
}

TEST(SidBytesTest, ASidOfAnotherRevisionIsNone) {
  EXPECT_EQ(LengthOf(WithByte(EveryoneSid(), 0, 0)), 0u);
  EXPECT_EQ(LengthOf(WithByte(EveryoneSid(), 0, 2)), 0u);
}

TEST(SidBytesTest, AreThoseOfTheThreeKinds) {
  EXPECT_EQ(AccountOf(EveryoneSid()), (FoundAccount{W("Everyone"), SidTypeWellKnownGroup}));
  EXPECT_EQ(AccountOf(UserSidBytes(0xFEDCBA98)), (FoundAccount{W("4275878552"), SidTypeUser}));
  EXPECT_EQ(AccountOf(GroupSidBytes(0xFEDCBA98)), (FoundAccount{W("4275878552"), SidTypeAlias}));
}

TEST(SidBytesTest, AnyOtherSidIsOfNoAccount) {
  const std::vector<BYTE> rows[] = {
      SidBytes(1, {1}),     SidBytes(1, {0, 0}),  SidBytes(1, {}),      SidBytes(0, {0}),
      SidBytes(2, {0}),     SidBytes(5, {18}),    SidBytes(22, {1}),    SidBytes(22, {1, 7, 7}),
      SidBytes(22, {0, 7}), SidBytes(22, {3, 7}), SidBytes(21, {1, 7}), SidBytes(23, {1, 7}),
      SidBytes(22, {}),
  };
  for (const std::vector<BYTE>& sid : rows) EXPECT_EQ(AccountOf(sid), std::nullopt) << SidText(sid.data());
  // The authority is a six-byte number.
  for (std::size_t index = 2; index < 7; ++index) {
    EXPECT_EQ(AccountOf(WithByte(EveryoneSid(), index, 1)), std::nullopt) << index;
    EXPECT_EQ(AccountOf(WithByte(UserSidBytes(7), index, 1)), std::nullopt) << index;
  }
}

TEST(AccountNamesTest, ANumberIsTheUserOfThatIdButTheHighestIsNone) {
  EXPECT_EQ(SidBytesOfName(W("4294967294")), UserSidBytes(4294967294));
  EXPECT_EQ(SidBytesOfName(W("4294967295")), std::nullopt);
  EXPECT_EQ(SidBytesOfName(W("4294967296")), std::nullopt);
  EXPECT_EQ(SidBytesOfName(W("7x")), std::nullopt);
  EXPECT_EQ(SidBytesOfName(W("-7")), std::nullopt);
  EXPECT_EQ(SidBytesOfName(W("")), std::nullopt);
}

TEST(AccountNamesTest, EveryoneIsNamedInAnyCaseAndWhole) {
  EXPECT_EQ(SidBytesOfName(W("EVERYONE")), EveryoneSid());
  EXPECT_EQ(SidBytesOfName(W("everyone")), EveryoneSid());
  EXPECT_EQ(SidBytesOfName(W("Everyon")), std::nullopt);
  EXPECT_EQ(SidBytesOfName(W("Everyones")), std::nullopt);
}

TEST(AccountNamesTest, TheSuperuserAndItsGroupAreTheFirst) {
  EXPECT_EQ(SidBytesOfName(W("root")), UserSidBytes(0));
  EXPECT_EQ(AccountOf(UserSidBytes(0)), (FoundAccount{W("root"), SidTypeUser}));
  EXPECT_EQ(AccountOf(GroupSidBytes(0)), (FoundAccount{W("root"), SidTypeAlias}));
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
  nameSize = domainSize = 20;
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

namespace {

std::string SidOfName(const WCHAR* name) {
  BYTE sid[256];
  WCHAR domain[256];
  DWORD size = 256;
  DWORD domainSize = 256;
  SID_NAME_USE use;
  if (!LookupAccountNameW(nullptr, name, sid, &size, domain, &domainSize, &use)) return "none";
  EXPECT_EQ(domainSize, 0u);
  return SidText(sid) + " " + std::to_string(use);
}

WString NameOfSid(std::vector<BYTE> sid) {
  WCHAR name[256];
  WCHAR domain[256];
  DWORD size = 256;
  DWORD domainSize = 256;
  SID_NAME_USE use;
  return LookupAccountSidW(nullptr, sid.data(), name, &size, domain, &domainSize, &use) ? name : u"";
}

}  // namespace

TEST(NativeAccounts, NamesComeFromTheDatabaseOfAccounts) {
  EXPECT_EQ(SidOfName(u"root"), "S-1-22-1-0 1");
  EXPECT_EQ(SidOfName(u"nobody"), "S-1-22-1-65534 1");
  EXPECT_EQ(SidOfName(u"nogroup"), "S-1-22-2-65534 4");
  EXPECT_EQ(SidOfName(u"EVERYONE"), "S-1-1-0 5");
  EXPECT_EQ(SidOfName(u""), "none");
  EXPECT_EQ(SidOfName(u"nosuchuser"), "none");
  EXPECT_EQ(SidOfName(u"DOMAIN\\root"), "none");
  EXPECT_EQ(NameOfSid(UserSidBytes(65534)), u"nobody");
  EXPECT_EQ(NameOfSid(GroupSidBytes(65534)), u"nogroup");
}

TEST(NativeAccounts, AnIdWithoutANameIsItsNumber) {
  EXPECT_EQ(NameOfSid(UserSidBytes(3999999)), u"3999999");
  EXPECT_EQ(NameOfSid(GroupSidBytes(3999998)), u"3999998");
  EXPECT_EQ(SidOfName(u"3999999"), "S-1-22-1-3999999 1");
  EXPECT_EQ(SidOfName(u"4294967295"), "none");
  EXPECT_EQ(SidOfName(u"-1"), "none");
}

TEST(NativeAccounts, SidsOfOtherKindsAreNotMapped) {
  EXPECT_EQ(NameOfSid(SidBytes(5, {18})), u"");
  EXPECT_EQ(GetLastError(), 1332u);
  EXPECT_EQ(NameOfSid(SidBytes(22, {3, 0})), u"");
  EXPECT_EQ(NameOfSid(SidBytes(1, {1})), u"");
}
