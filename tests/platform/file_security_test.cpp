// Security descriptors of files: owner and access list.

#include <gtest/gtest.h>

#include "platform/handles.h"
#include "platform/outcome.h"
#include "support/scratch_folder.h"
#include "support/security_bytes.h"

namespace {

class FileSecurity : public testing::Test {
 protected:
  // Returns the security descriptor, read as the product does.
  std::vector<BYTE> Record(SECURITY_INFORMATION information) {
    DWORD needed = 0;
    EXPECT_FALSE(GetFileSecurityW(file_.c_str(), information, nullptr, 0, &needed));
    EXPECT_EQ(GetLastError(), 122u);
    std::vector<BYTE> record(needed);
    EXPECT_TRUE(GetFileSecurityW(file_.c_str(), information, record.data(), needed, &needed));
    return record;
  }

  ScratchFolder scratch_;
  const WString file_ = scratch_.Write(W("a.txt"), "abc");
};

}  // namespace

TEST_F(FileSecurity, TheOwnerOfAFileThatOneHasMadeIsOneself) {
  std::vector<BYTE> record = Record(OWNER_SECURITY_INFORMATION);
  PSID owner = nullptr;
  BOOL isDefaulted = FALSE;
  ASSERT_TRUE(GetSecurityDescriptorOwner(record.data(), &owner, &isDefaulted));
  WCHAR own[300];
  DWORD size = 300;
  ASSERT_TRUE(GetUserNameW(own, &size));
  WCHAR name[300];
  WCHAR domain[300];
  DWORD nameSize = 300;
  DWORD domainSize = 300;
  SID_NAME_USE use;
  ASSERT_TRUE(LookupAccountSidW(nullptr, owner, name, &nameSize, domain, &domainSize, &use));
  EXPECT_EQ(WString(name), WString(own));
}

TEST_F(FileSecurity, ARecordHasAListAndSoHasTheNamedOne) {
  std::vector<BYTE> record = Record(DACL_SECURITY_INFORMATION);
  BOOL isPresent = FALSE;
  BOOL isDefaulted = FALSE;
  PACL list = nullptr;
  ASSERT_TRUE(GetSecurityDescriptorDacl(record.data(), &isPresent, &list, &isDefaulted));
  EXPECT_TRUE(isPresent);
  ASSERT_NE(list, nullptr);
  const auto named = EntriesOfFile(file_);
  ASSERT_TRUE(named.has_value());
  EXPECT_EQ(EntriesOf(list), *named);
  EXPECT_FALSE(named->empty());
}

TEST_F(FileSecurity, ABufferThatIsTooSmallIsLeftAlone) {
  const std::vector<BYTE> record = Record(OWNER_SECURITY_INFORMATION);
  std::vector<BYTE> small(record.size() - 1, 0xAA);
  DWORD needed = 0;
  EXPECT_FALSE(GetFileSecurityW(file_.c_str(), OWNER_SECURITY_INFORMATION, small.data(),
                                static_cast<DWORD>(small.size()), &needed));
  EXPECT_EQ(GetLastError(), 122u);
  EXPECT_EQ(needed, record.size());
}

TEST_F(FileSecurity, AMissingFileHasNoRecord) {
  const WString missing = scratch_.Path(W("nosuch"));
  DWORD needed = 0;
  EXPECT_EQ(FailureOf(GetFileSecurityW(missing.c_str(), OWNER_SECURITY_INFORMATION, nullptr, 0, &needed)),
            2u);
  EXPECT_EQ(needed, 0u);
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  PACL list = nullptr;
  EXPECT_EQ(GetNamedSecurityInfoW(missing.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                                  nullptr, &list, nullptr, &descriptor),
            2u);
  EXPECT_EQ(SetEntries(missing, BuiltList().Get()), 2u);
}

TEST_F(FileSecurity, OneselfBecomesTheOwnerOfOnesOwnFile) {
  std::vector<BYTE> record = Record(OWNER_SECURITY_INFORMATION);
  PSID owner = nullptr;
  BOOL isDefaulted = FALSE;
  ASSERT_TRUE(GetSecurityDescriptorOwner(record.data(), &owner, &isDefaulted));
  WString name = file_;
  EXPECT_EQ(SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION, owner, nullptr,
                                  nullptr, nullptr),
            0u);
}

TEST_F(FileSecurity, AServerPathOfAnotherTypeIsRefused) {
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  PACL list = nullptr;
  EXPECT_NE(GetNamedSecurityInfoW(W("\\\\nosuchserver\\share\\a"), static_cast<SE_OBJECT_TYPE>(4),
                                  DACL_SECURITY_INFORMATION, nullptr, nullptr, &list, nullptr, &descriptor),
            0u);
}

TEST_F(FileSecurity, APrivilegeIsAdjustedThroughTheTokenOfTheProcess) {
  HANDLE token = nullptr;
  ASSERT_TRUE(OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, &token));
  TOKEN_PRIVILEGES privileges = {};
  privileges.PrivilegeCount = 1;
  privileges.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
  ASSERT_TRUE(LookupPrivilegeValueW(nullptr, W("SeBackupPrivilege"), &privileges.Privileges[0].Luid));
  EXPECT_TRUE(AdjustTokenPrivileges(token, FALSE, &privileges, 0, nullptr, nullptr));
  const DWORD error = GetLastError();
  EXPECT_TRUE(error == 0 || error == 1300) << error;
  EXPECT_TRUE(CloseHandle(token));
}

TEST_F(FileSecurity, TheStreamQueryIsInTheProcessAndAsksOpenFiles) {
  const HMODULE ntdll = GetModuleHandleW(W("ntdll.dll"));
  ASSERT_NE(ntdll, nullptr);
  ASSERT_NE(GetProcAddress(ntdll, "NtQueryInformationFile"), nullptr);
  EXPECT_EQ(GetModuleHandleW(W("nosuch.dll")), nullptr);
  EXPECT_EQ(GetLastError(), 126u);
  // This requires neither access to the file nor the right to read it.
  const FileHandle file(OpenFor(file_.c_str(), 0, OPEN_EXISTING));
  EXPECT_TRUE(file.IsOpen());
}
