// Rights, streams and changes of real files in the native build.
#include "security/ntfs_tools.h"

#include <gmock/gmock.h>

#include <sys/stat.h>
#include <sys/xattr.h>

#include "platform/posix/files/faults.h"
#include "platform/windows_api.h"
#include "security/alternate_streams.h"
#include "security/current_user.h"
#include "security/server_cache.h"
#include "support/as_user_posix.h"
#include "support/scratch_folder.h"
#include "support/security_bytes.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

namespace {

namespace Faults = Platform::Faults;

// An error that none of the functions sets by itself.
constexpr DWORD kError = 4711;

class NtfsToolsNative : public testing::Test {
 protected:
  NtfsToolsNative() {
    chmod(scratch_.NativePath(W("")).c_str(), 0755);
    ServerCache::Instance().Clear();
    ResolveStreamQuery();
  }
  ~NtfsToolsNative() override { ServerCache::Instance().Clear(); }

  std::string Native() const { return scratch_.NativePath(W("a.txt")).string(); }
  void SetMode(mode_t mode) const { ASSERT_EQ(chmod(Native().c_str(), mode), 0); }
  mode_t Mode() const {
    struct stat status;
    EXPECT_EQ(stat(Native().c_str(), &status), 0);
    return status.st_mode & 0777;
  }
  uid_t Owner() const {
    struct stat status;
    EXPECT_EQ(stat(Native().c_str(), &status), 0);
    return status.st_uid;
  }
  // Adds a stream with that many bytes.
  void AddStream(const WCHAR* file, const char* name, std::size_t size) const {
    const std::string value(size, 'x');
    ASSERT_EQ(setxattr(scratch_.NativePath(file).c_str(), name, value.data(), size, 0), 0);
  }

  Faults::Scope scope_;
  NTFSTools tools_;
  ScratchFolder scratch_;
  const WString file_ = scratch_.Write(W("a.txt"), "abc");
};

}  // namespace

// Owner.

TEST_F(NtfsToolsNative, AnOwnerWithoutADomainIsItsNameAlone) {
  WString owner;
  ASSERT_TRUE(tools_.GetOwnerName(W("/etc/passwd"), owner, false));
  EXPECT_EQ(owner, W("root"));
}

TEST_F(NtfsToolsNative, AnOwnerWithoutANameIsItsNumber) {
  if (!IsSuperuser()) return SUCCEED();  // an ordinary user cannot give the file away
  ASSERT_EQ(chown(Native().c_str(), 3999999, 0), 0);
  WString owner;
  ASSERT_TRUE(tools_.GetOwnerName(file_.c_str(), owner, false));
  EXPECT_EQ(owner, W("3999999"));
}

TEST_F(NtfsToolsNative, AnErrorOtherThanASizeGoesOnWithoutAnOwner) {
  Faults::Watch("LookupAccountSidW");
  Faults::Fail("GetFileSecurityW", 1, ERROR_ACCESS_DENIED);
  WString owner;
  EXPECT_FALSE(tools_.GetOwnerName(file_.c_str(), owner, false));
  EXPECT_EQ(Faults::CallCount("GetFileSecurityW"), 1);
  EXPECT_EQ(Faults::CallCount("LookupAccountSidW"), 2);
}

TEST_F(NtfsToolsNative, ARemoteOwnerIsAskedOfTheServerOfTheDrive) {
  Faults::NameNetwork(W("\\\\nosuchserver\\share\\a"));
  Faults::Watch("LookupAccountSidW");
  WString owner;
  EXPECT_FALSE(tools_.GetOwnerName(file_.c_str(), owner, true));
  EXPECT_THAT(Faults::Paths("LookupAccountSidW"), ElementsAre(W("nosuchserver"), W("nosuchserver")));
  EXPECT_TRUE(tools_.GetOwnerName(file_.c_str(), owner, false));
}

TEST_F(NtfsToolsNative, ARemoteOwnerIsAskedOfTheServerInThePath) {
  Faults::Watch("LookupAccountSidW");
  Faults::Watch("WNetGetUniversalNameW");
  WString owner;
  EXPECT_FALSE(tools_.GetOwnerName(W("\\\\srv\\share\\a"), owner, true));
  EXPECT_FALSE(tools_.GetOwnerName(W("\\\\srv"), owner, true));
  EXPECT_THAT(Faults::Paths("LookupAccountSidW"), ElementsAre(W("srv"), W("srv"), W(""), W("")));
  EXPECT_EQ(Faults::CallCount("WNetGetUniversalNameW"), 0);
}

TEST_F(NtfsToolsNative, ARemoteOwnerWithAnUnknownServerIsLookedUpLocally) {
  Faults::NameNetwork(W("\\\\nosuchserver\\share\\a"));
  Faults::Watch("LookupAccountSidW");
  Faults::Fail("WNetGetUniversalNameW", 1, kError);
  WString owner;
  EXPECT_TRUE(tools_.GetOwnerName(file_.c_str(), owner, true));
  EXPECT_EQ(owner, CurrentAccountName());
  EXPECT_THAT(Faults::Paths("WNetGetUniversalNameW"), ElementsAre(file_));
  EXPECT_THAT(Faults::Paths("LookupAccountSidW"), ElementsAre(W(""), W("")));
}

TEST_F(NtfsToolsNative, ADrivesServerIsAskedForOnceUntilTheCacheIsCleared) {
  Faults::NameNetwork(W("\\\\server\\share"));
  Faults::Watch("WNetGetUniversalNameW");
  WString server;
  EXPECT_TRUE(tools_.GetServerOfDrive(server, W("Z:\\a")));
  EXPECT_EQ(server, W("server"));
  server.clear();
  EXPECT_TRUE(tools_.GetServerOfDrive(server, W("Z:\\b\\c")));
  EXPECT_EQ(server, W("server"));
  EXPECT_EQ(Faults::CallCount("WNetGetUniversalNameW"), 1);
  EXPECT_TRUE(tools_.GetServerOfDrive(server, W("z:\\a")));
  EXPECT_EQ(Faults::CallCount("WNetGetUniversalNameW"), 2);
  ServerCache::Instance().Clear();
  EXPECT_TRUE(tools_.GetServerOfDrive(server, W("Z:\\a")));
  EXPECT_EQ(Faults::CallCount("WNetGetUniversalNameW"), 3);
}

TEST_F(NtfsToolsNative, ADriveWithAnUnknownServerIsLookedUpAgain) {
  WString server = W("before");
  for (const WCHAR* name : {W(""), W("\\\\\\"), W("X:\\share"), W("\\\\server")}) {
    Faults::NameNetwork(name);
    EXPECT_FALSE(tools_.GetServerOfDrive(server, W("Z:\\a"))) << ToUtf8(name);
  }
  // Longer than the buffer of 1024 bytes.
  Faults::NameNetwork(W("\\\\server\\") + WString(600, W('x')));
  EXPECT_FALSE(tools_.GetServerOfDrive(server, W("Z:\\a")));
  Faults::NameNetwork(W("\\\\server\\share"));
  Faults::Fail("WNetGetUniversalNameW", 1, kError);
  EXPECT_FALSE(tools_.GetServerOfDrive(server, W("Z:\\a")));
  EXPECT_EQ(server, W("before"));
  EXPECT_TRUE(tools_.GetServerOfDrive(server, W("Z:\\a")));
}

// Access.

TEST_F(NtfsToolsNative, AccessIsWhatTheListGivesTheCurrentUser) {
  if (IsSuperuser()) {
    ASSERT_EQ(chown(Native().c_str(), kNobody, kNobody), 0);
  }
  const AsOrdinaryUser ordinary;
  for (const auto& [mode, text] : {std::pair<mode_t, const WCHAR*>{0700, W("RWX")},
                                   {0400, W("R  ")},
                                   {0500, W("R X")},
                                   {0600, W("RW ")},
                                   {0200, W(" W ")},
                                   {0100, W("   ")},
                                   {0000, W("   ")},
                                   {0077, W("   ")}}) {
    SetMode(mode);
    EXPECT_EQ(tools_.GetAccessString(file_), text) << std::oct << mode;
  }
}

TEST_F(NtfsToolsNative, AFileWithoutAListShowsNoAccess) {
  ASSERT_EQ(SetEntries(file_, nullptr), 0u);
  EXPECT_EQ(tools_.GetAccessString(file_), W("   "));
}

TEST_F(NtfsToolsNative, AFileWithoutARecordIsAskedForItOnce) {
  Faults::Watch("GetFileSecurityW");
  EXPECT_EQ(tools_.GetAccessString(scratch_.Path(W("nosuch"))), W("   "));
  EXPECT_EQ(Faults::CallCount("GetFileSecurityW"), 1);
}

// Streams.

TEST_F(NtfsToolsNative, TwoStreamsOfTenAndTwentyBytesAreTwoOfThirty) {
  AddStream(W("a.txt"), "user.one", 10);
  AddStream(W("a.txt"), "user.two", 20);
  EXPECT_EQ(tools_.GetAlternateStreamCount(file_.c_str()), 2u);
  EXPECT_EQ(tools_.GetAlternateStreamSize(file_.c_str()), 30u);
}

TEST_F(NtfsToolsNative, TheFirstStreamOfAFolderIsTakenForItsUnnamedOne) {
  const WString folder = scratch_.MakeFolder(W("sub"));
  AddStream(W("sub"), "user.one", 10);
  EXPECT_EQ(tools_.GetAlternateStreamCount(folder.c_str()), 0u);
  EXPECT_EQ(tools_.GetAlternateStreamSize(folder.c_str()), 0u);
  AddStream(W("sub"), "user.two", 10);
  EXPECT_EQ(tools_.GetAlternateStreamCount(folder.c_str()), 1u);
  EXPECT_EQ(tools_.GetAlternateStreamSize(folder.c_str()), 10u);
}

TEST_F(NtfsToolsNative, TheQueryWorksWithoutTheRightToReadButForTheSizes) {
  AddStream(W("a.txt"), "user.one", 10);
  SetMode(0);
  const AsOrdinaryUser ordinary;
  EXPECT_EQ(tools_.GetAlternateStreamCount(file_.c_str()), 1u);
  EXPECT_EQ(tools_.GetAlternateStreamSize(file_.c_str()), 0u);
}

TEST_F(NtfsToolsNative, APipeHasNoStreamsAndIsNotOpenedForThem) {
  const std::string native = scratch_.NativePath(W("pipe")).string();
  ASSERT_EQ(mkfifo(native.c_str(), 0644), 0);
  EXPECT_EQ(tools_.GetAlternateStreamCount(scratch_.Path(W("pipe")).c_str()), 0u);
}

TEST_F(NtfsToolsNative, ThePrivilegeIsEnabledForAFolderBeforeTheQueryIsMissedAndForAFileNever) {
  const WString folder = scratch_.MakeFolder(W("sub"));
  ForgetStreamQuery();
  for (const WString& path : {folder, file_}) {
    for (const char* function : {"LookupPrivilegeValueW", "AdjustTokenPrivileges", "CreateFileW"})
      Faults::Watch(function);
    EXPECT_EQ(tools_.GetAlternateStreamCount(path.c_str()), 0u);
    EXPECT_EQ(Faults::CallCount("AdjustTokenPrivileges"), path == folder ? 1 : 0);
    EXPECT_EQ(Faults::Paths("LookupPrivilegeValueW"),
              path == folder ? std::vector<WString>{W("SeBackupPrivilege")} : std::vector<WString>());
    EXPECT_EQ(Faults::CallCount("CreateFileW"), 0);
    Faults::Clear();
  }
}

TEST_F(NtfsToolsNative, WithoutTheQueryNothingIsOpened) {
  AddStream(W("a.txt"), "user.one", 10);
  for (const char* function : {"GetModuleHandleW", "GetProcAddress"}) {
    ForgetStreamQuery();
    Faults::Fail(function, 1, kError);
    Faults::Watch("CreateFileW");
    ResolveStreamQuery();
    EXPECT_EQ(tools_.GetAlternateStreamCount(file_.c_str()), 0u) << function;
    EXPECT_EQ(Faults::CallCount("CreateFileW"), 0) << function;
    Faults::Clear();
  }
  ResolveStreamQuery();
  EXPECT_EQ(tools_.GetAlternateStreamCount(file_.c_str()), 1u);
}

TEST_F(NtfsToolsNative, TheQueryIsLookedUpOnce) {
  ForgetStreamQuery();
  Faults::Watch("GetProcAddress");
  ResolveStreamQuery();
  ResolveStreamQuery();
  EXPECT_EQ(Faults::CallCount("GetProcAddress"), 1);
}

// Take ownership.

TEST_F(NtfsToolsNative, AFileThatIsTakenIsTheUsers) {
  if (IsSuperuser()) {
    EXPECT_EQ(tools_.TakeOwnership(file_, W("nobody")), 0u);
    EXPECT_EQ(Owner(), kNobody);
  }
  const AsOrdinaryUser ordinary;
  EXPECT_EQ(tools_.TakeOwnership(file_, W("root")), ERROR_ACCESS_DENIED);
}

TEST_F(NtfsToolsNative, AFileWhosePathHasNoDriveIsRefusedAndStaysAsItIs) {
  const WString path = file_.substr(2);
  ASSERT_EQ(file_.substr(0, 3), W("Z:\\"));
  ASSERT_NE(GetFileAttributesW(path.c_str()), INVALID_FILE_ATTRIBUTES) << "it is a file all the same";
  const mode_t mode = Mode();
  EXPECT_NE(tools_.TakeOwnership(path, CurrentUserName()), 0u);
  EXPECT_NE(tools_.AddAccess(path, CurrentUserName(), 0x1F01FF), 0u);
  EXPECT_NE(tools_.ResetAccess(path), 0u);
  EXPECT_EQ(Mode(), mode);
  EXPECT_EQ(tools_.TakeOwnership(file_, CurrentUserName()), 0u);
}

// Add access.

TEST_F(NtfsToolsNative, AddingMakesDeniedEntriesAllowAndAllInheritable) {
  BuiltList list;
  list.Add(1, 0, 0x2, GroupSidBytes(4003)).Add(0, 16, 0x1, EveryoneSid());
  ASSERT_EQ(SetEntries(file_, list.Get()), 0u);
  ASSERT_EQ(tools_.AddAccess(file_, W("nobody"), 0x1301BF), 0u);
  EXPECT_THAT(EntriesOfFile(file_),
              Optional(ElementsAre(ShownEntry{0, 3, 0x2, "S-1-22-2-4003"}, ShownEntry{0, 3, 0x1, "S-1-1-0"},
                                   ShownEntry{0, 3, 0x1301BF, "S-1-22-1-65534"})));
}

TEST_F(NtfsToolsNative, AddingToAnEmptyListIsItsFirstEntry) {
  ASSERT_EQ(SetEntries(file_, BuiltList().Get()), 0u);
  ASSERT_EQ(tools_.AddAccess(file_, W("nogroup"), 0x1200A9), 0u);
  EXPECT_THAT(EntriesOfFile(file_), Optional(ElementsAre(ShownEntry{0, 3, 0x1200A9, "S-1-22-2-65534"})));
}

TEST_F(NtfsToolsNative, AddingToAFileWithoutAListIsABadParameter) {
  ASSERT_EQ(SetEntries(file_, nullptr), 0u);
  EXPECT_EQ(tools_.AddAccess(file_, W("nobody"), 0x1200A9), ERROR_INVALID_PARAMETER);
}

TEST_F(NtfsToolsNative, AListThatCannotBeSetIsNotReported) {
  const auto before = EntriesOfFile(file_);
  Faults::Fail("SetNamedSecurityInfoW", 1, ERROR_ACCESS_DENIED);
  EXPECT_EQ(tools_.AddAccess(file_, W("nobody"), 0x1200A9), 0u);
  Faults::Clear();
  EXPECT_EQ(EntriesOfFile(file_), before);
  if (IsSuperuser()) {
    const AsOrdinaryUser ordinary;
    EXPECT_EQ(tools_.AddAccess(file_, W("nobody"), 0x1200A9), 0u);
  }
  EXPECT_EQ(EntriesOfFile(file_), before);
}

TEST_F(NtfsToolsNative, AMaskOfAnyBitsIsAdded) {
  ASSERT_EQ(tools_.AddAccess(file_, W("nobody"), 0xFFFFFFFF), 0u);
  EXPECT_EQ(EntriesOfFile(file_)->back(), (ShownEntry{0, 3, 0xFFFFFFFF, "S-1-22-1-65534"}));
}

// Reset access.

TEST_F(NtfsToolsNative, ResettingLeavesNoEntry) {
  ASSERT_EQ(tools_.AddAccess(file_, W("nobody"), 0x1200A9), 0u);
  ASSERT_EQ(tools_.ResetAccess(file_), 0u);
  EXPECT_THAT(EntriesOfFile(file_), Optional(IsEmpty()));
  EXPECT_EQ(Mode(), 0u);
}

TEST_F(NtfsToolsNative, ResettingSetsAProtectedMissingListFirstWhereThePrivilegeIsHeld) {
  Faults::Watch("SetNamedSecurityInfoW");
  ASSERT_EQ(tools_.ResetAccess(file_), 0u);
  EXPECT_EQ(Faults::CallCount("SetNamedSecurityInfoW"), IsSuperuser() ? 2 : 1);
  EXPECT_EQ(Faults::LastFlags("SetNamedSecurityInfoW"), 4u);
  Faults::Fail("SetNamedSecurityInfoW", 2, kError);
  EXPECT_EQ(tools_.ResetAccess(file_), IsSuperuser() ? kError : 0u);
  if (IsSuperuser()) EXPECT_EQ(Mode(), 0777u);  // set by the first of the two calls
}

TEST_F(NtfsToolsNative, TheFirstOfTheTwoMayFail) {
  if (!IsSuperuser()) return SUCCEED();  // there is only one call
  Faults::Fail("SetNamedSecurityInfoW", 1, kError);
  EXPECT_EQ(tools_.ResetAccess(file_), 0u);
  EXPECT_EQ(Mode(), 0u);
}

TEST_F(NtfsToolsNative, AnOrdinaryUserResetsHisOwnFilesAlone) {
  if (IsSuperuser()) {
    ASSERT_EQ(chown(Native().c_str(), kNobody, kNobody), 0);
  }
  const AsOrdinaryUser ordinary;
  EXPECT_EQ(tools_.ResetAccess(file_), 0u);
  EXPECT_EQ(Mode(), 0u);
  EXPECT_EQ(tools_.ResetAccess(W("Z:\\etc\\passwd")), ERROR_ACCESS_DENIED);
}

TEST_F(NtfsToolsNative, ResettingNeedsNoRoomForAttributes) {
  for (int number = 0; number < 100; ++number) {
    const std::string name = "user.fill" + std::to_string(number);
    setxattr(Native().c_str(), name.c_str(), std::string(1000, 'x').data(), 1000, 0);
  }
  EXPECT_EQ(tools_.ResetAccess(file_), 0u);
  EXPECT_THAT(EntriesOfFile(file_), Optional(IsEmpty()));
}

TEST_F(NtfsToolsNative, AMissingListIsResetToAnEmptyOne) {
  ASSERT_EQ(SetEntries(file_, nullptr), 0u);
  EXPECT_EQ(tools_.ResetAccess(file_), 0u);
  EXPECT_THAT(EntriesOfFile(file_), Optional(IsEmpty()));
}

TEST_F(NtfsToolsNative, WithoutThePrivilegeTheProtectedListIsLeftOut) {
  for (const char* function : {"OpenProcessToken", "LookupPrivilegeValueW", "AdjustTokenPrivileges"}) {
    Faults::Fail(function, 1, kError);
    Faults::Watch("SetNamedSecurityInfoW");
    EXPECT_EQ(tools_.ResetAccess(file_), 0u) << function;
    EXPECT_EQ(Faults::CallCount("SetNamedSecurityInfoW"), 1) << function;
    Faults::Clear();
  }
}

// Privileges.

TEST_F(NtfsToolsNative, TheEndOfAListLooksItsNamesUpAndDisablesNothing) {
  Faults::Watch("LookupPrivilegeValueW");
  Faults::Watch("AdjustTokenPrivileges");
  {
    PrivilegeList list(true);
    list.names = {W("SeTakeOwnershipPrivilege"), W("SeBackupPrivilege")};
  }
  EXPECT_THAT(Faults::Paths("LookupPrivilegeValueW"),
              ElementsAre(W("SeTakeOwnershipPrivilege"), W("SeBackupPrivilege")));
  EXPECT_EQ(Faults::CallCount("AdjustTokenPrivileges"), 0);
}
