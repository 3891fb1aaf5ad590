// Every system call of every operation fails once. Each operation runs with all functions watched, so every
// call must have a row that states the outcome of its failure.
#include <gmock/gmock.h>

#include <sys/stat.h>
#include <sys/xattr.h>

#include <functional>

#include "platform/posix/files/faults.h"
#include "security/alternate_streams.h"
#include "security/current_user.h"
#include "security/ntfs_tools.h"
#include "security/server_cache.h"
#include "support/as_user_posix.h"
#include "support/scratch_folder.h"
#include "support/security_bytes.h"

namespace {

namespace Faults = Platform::Faults;

// An error that none of the functions sets by itself.
constexpr DWORD kWalkedError = 4711;

// All functions of file security that can fail.
constexpr const char* kWatchedFunctions[] = {
    "GetFileSecurityW",
    "GetSecurityDescriptorOwner",
    "GetSecurityDescriptorDacl",
    "GetNamedSecurityInfoW",
    "SetNamedSecurityInfoW",
    "GetLengthSid",
    "InitializeAcl",
    "GetAclInformation",
    "GetAce",
    "AddAce",
    "AddAccessAllowedAceEx",
    "DeleteAce",
    "GetEffectiveRightsFromAclW",
    "LookupAccountSidW",
    "LookupAccountNameW",
    "GetUserNameW",
    "GetUserNameExW",
    "WNetGetUniversalNameW",
    "OpenProcessToken",
    "LookupPrivilegeValueW",
    "AdjustTokenPrivileges",
    "HeapAlloc",
    "NtQueryInformationFile",
    "GetFileAttributesW",
    "CreateFileW",
    "CloseHandle",
    "GetModuleHandleW",
    "GetProcAddress",
};

// The outcome of the operation if one of these calls of the function, from `first` to `last`, fails.
struct FailedCalls {
  const char* function;
  int first;
  int last;
  std::string outcome;
};

class NtfsFaultWalk : public testing::Test {
 protected:
  NtfsFaultWalk() { StartOver(); }
  ~NtfsFaultWalk() override {
    ServerCache::Instance().Clear();
    ResolveStreamQuery();
  }

  // Sets up the initial state of each operation: a file and a folder with two additional streams and an
  // access list of two entries each.
  void StartOver() {
    Faults::Clear();
    ServerCache::Instance().Clear();
    ResolveStreamQuery();
    BuiltList list;
    list.Add(0, 0, 0x12019F, UserSidBytes(geteuid())).Add(0, 0, 0x120089, EveryoneSid());
    for (const WString& path : {file_, folder_}) ASSERT_EQ(SetEntries(path, list.Get()), 0u);
    for (const WCHAR* name : {W("a.txt"), W("sub")}) {
      for (const char* stream : {"user.one", "user.two"}) {
        ASSERT_EQ(setxattr(scratch_.NativePath(name).c_str(), stream, "x", 1, 0), 0);
      }
    }
  }

  using Text = std::function<std::string()>;

  // Runs `operation`, which returns its outcome as text, without faults and then once for each call that
  // fails. `before` prepares the file; `after` adds to the outcome when no function is watched any more.
  void Walk(
      const std::string& undisturbed, const std::vector<FailedCalls>& rows, const Text& operation,
      const Text& after = [] { return std::string(); }, const std::function<void()>& before = [] {}) {
    StartOver();
    before();
    for (const char* function : kWatchedFunctions) Faults::Watch(function);
    const std::string outcome = operation();
    for (const char* function : kWatchedFunctions) {
      int calls = 0;
      for (const FailedCalls& row : rows) {
        if (row.function == std::string_view(function)) calls += row.last - row.first + 1;
      }
      EXPECT_EQ(Faults::CallCount(function), calls) << function;
    }
    Faults::Clear();
    EXPECT_EQ(outcome + after(), undisturbed);
    for (const FailedCalls& row : rows) {
      for (int nth = row.first; nth <= row.last; ++nth) {
        StartOver();
        before();
        Faults::Fail(row.function, nth, kWalkedError);
        const std::string failed = operation();
        Faults::Clear();
        EXPECT_EQ(failed + after(), row.outcome) << row.function << " " << nth;
      }
    }
    StartOver();
  }

  // Like Walk, for a change of the file: the outcome is the error and whether the list has changed.
  void WalkChange(const std::string& undisturbed, const std::vector<FailedCalls>& rows,
                  const std::function<DWORD()>& change) {
    Walk(
        undisturbed, rows, [&] { return std::to_string(change()); },
        [this] { return EntriesOfFile(file_) == ListAtFirst() ? ", as it was" : ", changed"; });
  }
  static std::optional<std::vector<ShownEntry>> ListAtFirst() {
    return std::vector<ShownEntry>{{0, 0, 0x12019F, "S-1-22-1-" + std::to_string(geteuid())},
                                   {0, 0, 0x120089, "S-1-1-0"}};
  }

  std::string OwnerText(bool remote) {
    WString owner = W("none");
    const bool isFound = tools_.GetOwnerName(file_.c_str(), owner, remote);
    EXPECT_EQ(isFound, owner != W("none"));
    return ToUtf8(owner);
  }

  NTFSTools tools_;
  const ScratchFolder scratch_;
  const WString file_ = scratch_.Write(W("a.txt"), "abc");
  const WString folder_ = scratch_.MakeFolder(W("sub"));
  const std::string me_ = ToUtf8(CurrentAccountName());
};

}  // namespace

TEST_F(NtfsFaultWalk, OfAnOwner) {
  Walk(me_,
       {{"GetFileSecurityW", 1, 2, "none"},
        {"GetSecurityDescriptorOwner", 1, 1, "none"},
        {"LookupAccountSidW", 1, 2, "none"}},
       [this] { return OwnerText(false); });
}

TEST_F(NtfsFaultWalk, OfARemoteOwner) {
  Walk(me_,
       {{"GetFileSecurityW", 1, 2, "none"},
        {"GetSecurityDescriptorOwner", 1, 1, "none"},
        {"WNetGetUniversalNameW", 1, 1, me_},
        {"LookupAccountSidW", 1, 2, "none"}},
       [this] { return OwnerText(true); });
}

TEST_F(NtfsFaultWalk, OfAccess) {
  Walk("RW ",
       {{"GetFileSecurityW", 1, 2, "   "},
        {"GetSecurityDescriptorDacl", 1, 1, "   "},
        {"GetEffectiveRightsFromAclW", 1, 1, "   "}},
       [this] { return ToUtf8(tools_.GetAccessString(file_)); });
}

TEST_F(NtfsFaultWalk, OfTheStreamsOfAFile) {
  const std::vector<FailedCalls> rows = {{"GetFileAttributesW", 1, 1, "0"},
                                         {"CreateFileW", 1, 1, "0"},
                                         {"NtQueryInformationFile", 1, 1, "0"},
                                         {"CloseHandle", 1, 1, "2"}};
  Walk("2", rows, [this] { return std::to_string(tools_.GetAlternateStreamCount(file_.c_str())); });
  Walk("2", rows, [this] { return std::to_string(tools_.GetAlternateStreamSize(file_.c_str())); });
}

TEST_F(NtfsFaultWalk, OfTheStreamsOfAFolder) {
  const std::vector<FailedCalls> rows = {{"GetFileAttributesW", 1, 1, "0"},
                                         {"OpenProcessToken", 1, 1, "1"},
                                         {"LookupPrivilegeValueW", 1, 1, "1"},
                                         {"AdjustTokenPrivileges", 1, 1, "1"},
                                         {"CreateFileW", 1, 1, "0"},
                                         {"NtQueryInformationFile", 1, 1, "0"},
                                         {"CloseHandle", 1, 2, "1"}};
  Walk("1", rows, [this] { return std::to_string(tools_.GetAlternateStreamCount(folder_.c_str())); });
  Walk("1", rows, [this] { return std::to_string(tools_.GetAlternateStreamSize(folder_.c_str())); });
}

TEST_F(NtfsFaultWalk, OfLookingUpTheQuery) {
  Walk("2",
       {{"GetModuleHandleW", 1, 1, "0"},
        {"GetProcAddress", 1, 1, "0"},
        {"GetFileAttributesW", 1, 1, "0"},
        {"CreateFileW", 1, 1, "0"},
        {"NtQueryInformationFile", 1, 1, "0"},
        {"CloseHandle", 1, 1, "2"}},
       [this] {
         ForgetStreamQuery();
         ResolveStreamQuery();
         return std::to_string(tools_.GetAlternateStreamCount(file_.c_str()));
       });
}

TEST_F(NtfsFaultWalk, OfTakingOwnership) {
  const WString user = CurrentUserName();
  WalkChange(
      "0, as it was",
      {{"LookupAccountNameW", 1, 1, "4711, as it was"}, {"SetNamedSecurityInfoW", 1, 1, "4711, as it was"}},
      [&] { return tools_.TakeOwnership(file_, user); });
}

TEST_F(NtfsFaultWalk, OfAddingAccess) {
  const std::string failed = "4711, as it was";
  WalkChange("0, changed",
             {{"LookupAccountNameW", 1, 1, failed},
              {"GetNamedSecurityInfoW", 1, 1, failed},
              {"GetAclInformation", 1, 1, failed},
              {"GetLengthSid", 1, 1, failed},
              {"HeapAlloc", 1, 1, failed},
              {"InitializeAcl", 1, 1, failed},
              {"GetAce", 1, 2, failed},
              {"AddAce", 1, 2, failed},
              {"AddAccessAllowedAceEx", 1, 1, failed},
              {"SetNamedSecurityInfoW", 1, 1, "0, as it was"}},
             [this] { return tools_.AddAccess(file_, W("nobody"), 0x1200A9); });
}

TEST_F(NtfsFaultWalk, OfResettingAccess) {
  const int sets = IsSuperuser() ? 2 : 1;  // without the privilege, the first call is omitted
  std::vector<FailedCalls> rows = {
      {"GetNamedSecurityInfoW", 1, 1, "4711, as it was"}, {"DeleteAce", 1, 2, "4711, as it was"},
      {"OpenProcessToken", 1, 1, "0, changed"},           {"LookupPrivilegeValueW", 1, 1, "0, changed"},
      {"AdjustTokenPrivileges", 1, 1, "0, changed"},      {"CloseHandle", 1, 1, "0, changed"}};
  if (sets == 2) rows.push_back({"SetNamedSecurityInfoW", 1, 1, "0, changed"});
  rows.push_back({"SetNamedSecurityInfoW", sets, sets, sets == 2 ? "4711, changed" : "4711, as it was"});
  WalkChange("0, changed", rows, [this] { return tools_.ResetAccess(file_); });
}

TEST_F(NtfsFaultWalk, OfResettingAMissingListWhichNoFailureLeavesEmpty) {
  const std::string failed = "4711, missing";
  const int sets = IsSuperuser() ? 2 : 1;  // without the privilege, the first call is omitted
  std::vector<FailedCalls> rows = {
      {"GetNamedSecurityInfoW", 1, 1, failed},       {"InitializeAcl", 1, 1, failed},
      {"OpenProcessToken", 1, 1, "0, empty"},        {"LookupPrivilegeValueW", 1, 1, "0, empty"},
      {"AdjustTokenPrivileges", 1, 1, "0, empty"},   {"CloseHandle", 1, 1, "0, empty"},
      {"SetNamedSecurityInfoW", sets, sets, failed},
  };
  if (sets == 2) rows.push_back({"SetNamedSecurityInfoW", 1, 1, "0, empty"});
  const auto setMissing = [this] { ASSERT_EQ(SetEntries(file_, nullptr), 0u); };
  Walk(
      "0, empty", rows, [this] { return std::to_string(tools_.ResetAccess(file_)); },
      [this] {
        const auto entries = EntriesOfFile(file_);
        return !entries ? ", missing" : entries->empty() ? ", empty" : ", others";
      },
      setMissing);
}

TEST_F(NtfsFaultWalk, OfAPrivilegeThatIsEnabledAndOfTheEndOfItsList) {
  const std::string enabled = IsSuperuser() ? "1" : "0";
  std::vector<FailedCalls> rows = {{"OpenProcessToken", 1, 1, "0"},
                                   {"LookupPrivilegeValueW", 1, 1, "0"},
                                   {"AdjustTokenPrivileges", 1, 1, "0"},
                                   {"CloseHandle", 1, 1, enabled}};
  if (IsSuperuser()) rows.push_back({"LookupPrivilegeValueW", 2, 2, enabled});
  Walk(enabled, rows, [this] {
    PrivilegeList list(true);
    const bool isEnabled = tools_.EnableTakeOwnership(list);
    EXPECT_EQ(list.names.size(), isEnabled ? 1u : 0u);
    return std::to_string(list.names.size());
  });
}

TEST_F(NtfsFaultWalk, OfTheNamesOfTheCurrentUser) {
  Walk(me_, {{"GetUserNameW", 1, 1, ""}}, [] { return ToUtf8(CurrentUserName()); });
  Walk(me_, {{"GetUserNameExW", 1, 1, ""}}, [] { return ToUtf8(CurrentAccountName()); });
}
