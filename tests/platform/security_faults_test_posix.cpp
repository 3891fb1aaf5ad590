// Faults on demand in the functions of file security.

#include <gtest/gtest.h>

#include "platform/faults_on_demand.h"
#include "platform/outcome.h"
#include "platform/posix/files/faults.h"
#include "support/scratch_folder.h"
#include "support/security_bytes.h"

namespace {

namespace Faults = Platform::Faults;

class SecurityFaults : public FaultsOnDemand {
 protected:
  ScratchFolder scratch_;
  const WString file_ = scratch_.Write(W("a.txt"), "abc");
};

}  // namespace

TEST_F(SecurityFaults, EveryFunctionOfRecordsFailsOnDemand) {
  BYTE record[4096];
  DWORD needed = 0;
  PSID owner = nullptr;
  BOOL flag = FALSE;
  PACL list = nullptr;
  ExpectSecondCallFails("GetFileSecurityW", [&] {
    return FailureOf(GetFileSecurityW(file_.c_str(), 5, record, sizeof record, &needed));
  });
  ASSERT_TRUE(GetFileSecurityW(file_.c_str(), 5, record, sizeof record, &needed));
  ExpectSecondCallFails("GetSecurityDescriptorOwner",
                        [&] { return FailureOf(GetSecurityDescriptorOwner(record, &owner, &flag)); });
  ExpectSecondCallFails("GetSecurityDescriptorDacl",
                        [&] { return FailureOf(GetSecurityDescriptorDacl(record, &flag, &list, &flag)); });
  ExpectSecondCallFails("GetNamedSecurityInfoW", [&] {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    const DWORD error = GetNamedSecurityInfoW(file_.c_str(), SE_FILE_OBJECT, 4, nullptr, nullptr, &list,
                                              nullptr, &descriptor);
    if (error == 0) LocalFree(descriptor);
    return error;
  });
  ExpectSecondCallFails("SetNamedSecurityInfoW", [&] { return SetEntries(file_, BuiltList().Get()); });
}

TEST_F(SecurityFaults, EveryFunctionOfListsFailsOnDemand) {
  BuiltList list;
  std::vector<BYTE> sid = EveryoneSid();
  list.Add(0, 0, 1, sid).Add(0, 0, 2, sid).Add(0, 0, 3, sid).Add(0, 0, 4, sid);
  void* entry = nullptr;
  ACL_SIZE_INFORMATION size;
  ExpectSecondCallFails("GetLengthSid", [&] { return FailureOf(GetLengthSid(sid.data()) != 0); });
  ExpectSecondCallFails("GetAclInformation", [&] {
    return FailureOf(GetAclInformation(list.Get(), &size, sizeof size, AclSizeInformation));
  });
  ExpectSecondCallFails("GetAce", [&] { return FailureOf(GetAce(list.Get(), 0, &entry)); });
  ExpectSecondCallFails("AddAce", [&] {
    std::vector<BYTE> copy(20);
    std::memcpy(copy.data(), entry, copy.size());
    return FailureOf(AddAce(list.Get(), ACL_REVISION, 0, copy.data(), 20));
  });
  ExpectSecondCallFails("AddAccessAllowedAceEx", [&] {
    return FailureOf(AddAccessAllowedAceEx(list.Get(), ACL_REVISION, 0, 1, sid.data()));
  });
  ExpectSecondCallFails("DeleteAce", [&] { return FailureOf(DeleteAce(list.Get(), 0)); });
  ExpectSecondCallFails("GetEffectiveRightsFromAclW", [&] {
    WCHAR name[] = u"CURRENT_USER";
    TRUSTEE_W trustee;
    BuildTrusteeWithNameW(&trustee, name);
    ACCESS_MASK mask;
    return GetEffectiveRightsFromAclW(list.Get(), &trustee, &mask);
  });
  ExpectSecondCallFails("InitializeAcl",
                        [&] { return FailureOf(InitializeAcl(list.Get(), 100, ACL_REVISION)); });
}

TEST_F(SecurityFaults, EveryFunctionOfAccountsFailsOnDemand) {
  WCHAR name[300];
  WCHAR domain[300];
  BYTE sid[256];
  SID_NAME_USE use;
  std::vector<BYTE> everyone = EveryoneSid();
  ExpectSecondCallFails("LookupAccountSidW", [&] {
    DWORD size = 300;
    DWORD domainSize = 300;
    return FailureOf(LookupAccountSidW(nullptr, everyone.data(), name, &size, domain, &domainSize, &use));
  });
  ExpectSecondCallFails("LookupAccountNameW", [&] {
    DWORD size = 256;
    DWORD domainSize = 300;
    return FailureOf(LookupAccountNameW(nullptr, u"Everyone", sid, &size, domain, &domainSize, &use));
  });
  ExpectSecondCallFails("GetUserNameW", [&] {
    DWORD size = 300;
    return FailureOf(GetUserNameW(name, &size));
  });
  ExpectSecondCallFails("GetUserNameExW", [&] {
    ULONG size = 300;
    return FailureOf(GetUserNameExW(NameSamCompatible, name, &size));
  });
  Faults::NameNetwork(u"\\\\server\\share");
  EXPECT_EQ(Faults::CallCount("WNetGetUniversalNameW"), 0);
  BYTE buffer[100];
  DWORD size = 100;
  EXPECT_EQ(WNetGetUniversalNameW(u"Z:\\a", UNIVERSAL_NAME_INFO_LEVEL, buffer, &size), 0u);
  UNIVERSAL_NAME_INFOW info;
  std::memcpy(&info, buffer, sizeof info);
  EXPECT_EQ(std::u16string(info.lpUniversalName), u"\\\\server\\share");
  size = 20;
  EXPECT_EQ(WNetGetUniversalNameW(u"Z:\\a", UNIVERSAL_NAME_INFO_LEVEL, buffer, &size), 234u);
  Faults::Fail("WNetGetUniversalNameW", 1, kFaultError);
  EXPECT_EQ(WNetGetUniversalNameW(u"Z:\\a", UNIVERSAL_NAME_INFO_LEVEL, buffer, &size), kFaultError);
}

TEST_F(SecurityFaults, EveryFunctionOfTheProcessFailsOnDemand) {
  HANDLE token = nullptr;
  ASSERT_TRUE(OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES, &token));
  LUID value;
  TOKEN_PRIVILEGES privileges = {};
  privileges.PrivilegeCount = 1;
  ExpectSecondCallFails("OpenProcessToken", [&] {
    HANDLE opened = nullptr;
    const DWORD failure = FailureOf(OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened));
    if (opened) CloseHandle(opened);
    return failure;
  });
  ExpectSecondCallFails("LookupPrivilegeValueW", [&] {
    return FailureOf(LookupPrivilegeValueW(nullptr, u"SeBackupPrivilege", &value));
  });
  ExpectSecondCallFails("AdjustTokenPrivileges", [&] {
    return FailureOf(AdjustTokenPrivileges(token, FALSE, &privileges, 0, nullptr, nullptr));
  });
  ExpectSecondCallFails("HeapAlloc", [&] {
    void* const memory = HeapAlloc(GetProcessHeap(), 0, 8);
    const DWORD failure = FailureOf(memory != nullptr);
    HeapFree(GetProcessHeap(), 0, memory);
    return failure;
  });
  ExpectSecondCallFails("GetModuleHandleW",
                        [&] { return FailureOf(GetModuleHandleW(u"ntdll.dll") != nullptr); });
  EXPECT_TRUE(CloseHandle(token));
  Faults::Fail("NtQueryInformationFile", 1, kFaultError);
  EXPECT_EQ(static_cast<unsigned>(NtQueryInformationFile(nullptr, nullptr, nullptr, 0, 22)), 0xC0000001u);
}
