// Converting account names to SIDs and back.

#include <gtest/gtest.h>

#include "platform/outcome.h"
#include "support/security_bytes.h"

namespace {

struct FoundSid {
  BOOL found;
  DWORD error;
  std::vector<BYTE> sid;
  WString domain;
};

FoundSid FindSid(const WCHAR* system, const WCHAR* name, DWORD sidRoom = 256, DWORD domainRoom = 256) {
  FoundSid result{FALSE, 0, std::vector<BYTE>(256), WString(256, WCHAR())};
  SID_NAME_USE use;
  result.found =
      LookupAccountNameW(system, name, result.sid.data(), &sidRoom, result.domain.data(), &domainRoom, &use);
  result.error = GetLastError();
  result.domain = WString(result.domain.c_str());
  if (result.found) result.sid.resize(GetLengthSid(result.sid.data()));
  return result;
}

// "DOMAIN\name", and the sizes after the call.
struct FoundName {
  BOOL found;
  DWORD error;
  WString name;
  WString domain;
  DWORD nameSize;
  DWORD domainSize;
};

FoundName FindName(const WCHAR* system, PSID sid) {
  WCHAR name[300] = {};
  WCHAR domain[300] = {};
  FoundName result{FALSE, 0, {}, {}, 300, 300};
  SID_NAME_USE use;
  result.found = LookupAccountSidW(system, sid, name, &result.nameSize, domain, &result.domainSize, &use);
  result.error = GetLastError();
  result.name = name;
  result.domain = domain;
  return result;
}

WString OwnName() {
  WCHAR name[300] = {};
  DWORD size = 300;
  EXPECT_TRUE(GetUserNameW(name, &size));
  EXPECT_EQ(size, WString(name).size() + 1);
  return name;
}

}  // namespace

TEST(Accounts, TheOwnNameLeadsToASidAndBack) {
  const WString own = OwnName();
  const FoundSid sid = FindSid(nullptr, own.c_str());
  ASSERT_TRUE(sid.found);
  std::vector<BYTE> bytes = sid.sid;
  const FoundName name = FindName(nullptr, bytes.data());
  ASSERT_TRUE(name.found);
  EXPECT_EQ(name.name, own);
  EXPECT_EQ(name.domain, sid.domain);
  EXPECT_EQ(name.nameSize, name.name.size());
  EXPECT_EQ(name.domainSize, name.domain.size());
}

TEST(Accounts, TheNameWithItsDomainLeadsToTheSameSid) {
  WCHAR name[300] = {};
  ULONG size = 300;
  ASSERT_TRUE(GetUserNameExW(NameSamCompatible, name, &size));
  EXPECT_EQ(size, WString(name).size());
  EXPECT_EQ(FindSid(nullptr, name).sid, FindSid(nullptr, OwnName().c_str()).sid);
}

TEST(Accounts, WithoutBuffersTheNeededSizesAreReturned) {
  const WString own = OwnName();
  FoundSid sid = FindSid(nullptr, own.c_str());
  ASSERT_TRUE(sid.found);
  DWORD nameSize = 1;
  DWORD domainSize = 1;
  SID_NAME_USE use;
  EXPECT_FALSE(LookupAccountSidW(nullptr, sid.sid.data(), nullptr, &nameSize, nullptr, &domainSize, &use));
  EXPECT_EQ(GetLastError(), 122u);
  // Wine does not count the terminators.
  EXPECT_TRUE(nameSize == own.size() + 1 || nameSize == own.size()) << nameSize;
  EXPECT_TRUE(domainSize == sid.domain.size() + 1 || domainSize == sid.domain.size()) << domainSize;
}

TEST(Accounts, ASidThatHasNoRoomIsTooLarge) {
  const FoundSid sid = FindSid(nullptr, OwnName().c_str(), 4);
  EXPECT_FALSE(sid.found);
  EXPECT_EQ(sid.error, 122u);
}

TEST(Accounts, AnUnknownNameIsNotMapped) {
  const FoundSid sid = FindSid(nullptr, W("nosuchuser"));
  EXPECT_FALSE(sid.found);
  EXPECT_EQ(sid.error, 1332u);
}

TEST(Accounts, AnotherMachineCannotBeReached) {
  std::vector<BYTE> everyone = EveryoneSid();
  const FoundName name = FindName(W("nosuchserver"), everyone.data());
  EXPECT_FALSE(name.found);
  EXPECT_EQ(name.error, 1722u);
}

TEST(Accounts, EveryoneIsTheSidOfTheWorld) {
  std::vector<BYTE> everyone = EveryoneSid();
  EXPECT_EQ(FindName(nullptr, everyone.data()).name, W("Everyone"));
  const FoundSid sid = FindSid(nullptr, W("Everyone"));
  ASSERT_TRUE(sid.found);
  EXPECT_EQ(sid.sid, everyone);
  EXPECT_EQ(sid.domain, W(""));
}

TEST(Accounts, NoDriveHasANetworkName) {
  BYTE buffer[1024];
  DWORD size = sizeof buffer;
  EXPECT_EQ(WNetGetUniversalNameW(W("Z:\\a"), UNIVERSAL_NAME_INFO_LEVEL, buffer, &size), 2250u);
}

TEST(Accounts, PrivilegesOfTheProductAreKnownAndOthersAreNot) {
  LUID value;
  for (const WCHAR* name :
       {W("SeTakeOwnershipPrivilege"), W("SeSecurityPrivilege"), W("SeBackupPrivilege")}) {
    EXPECT_TRUE(LookupPrivilegeValueW(nullptr, name, &value)) << ToUtf8(name);
  }
  EXPECT_FALSE(LookupPrivilegeValueW(nullptr, W("SeNoSuchPrivilege"), &value));
  EXPECT_EQ(GetLastError(), 1313u);
}
