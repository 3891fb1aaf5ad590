// Owners, rights and streams of real files that both builds support.
#include "security/ntfs_tools.h"

#include <gtest/gtest.h>

#include "platform/windows_api.h"
#include "security/alternate_streams.h"
#include "security/cacl_info.h"
#include "security/current_user.h"
#include "support/scratch_folder.h"
#include "support/security_bytes.h"

namespace {

class NtfsToolsFile : public testing::Test {
 protected:
  NTFSTools tools_;
  ScratchFolder scratch_;
  const WString file_ = scratch_.Write(W("a.txt"), "abc");
};

}  // namespace

TEST_F(NtfsToolsFile, TheOwnerOfAFileThatOneHasMadeIsOneself) {
  WString owner;
  ASSERT_TRUE(tools_.GetOwnerName(file_.c_str(), owner, false));
  EXPECT_EQ(owner, CurrentAccountName());
}

TEST_F(NtfsToolsFile, AMissingFileHasNoOwner) {
  WString owner = W("before");
  for (const bool remote : {false, true}) {
    EXPECT_FALSE(tools_.GetOwnerName(scratch_.Path(W("nosuch")).c_str(), owner, remote));
    EXPECT_FALSE(tools_.GetOwnerName(W(""), owner, remote));
    EXPECT_FALSE(tools_.GetOwnerName(W("\\\\"), owner, remote));
    EXPECT_FALSE(tools_.GetOwnerName(W("\\\\nosuchserver\\share\\a"), owner, remote));
  }
  EXPECT_FALSE(tools_.GetOwnerName(nullptr, owner, false));
  EXPECT_EQ(owner, W("before"));
}

TEST_F(NtfsToolsFile, ADriveWithoutAServerIsAskedHere) {
  WString owner;
  ASSERT_TRUE(tools_.GetOwnerName(file_.c_str(), owner, true));
  EXPECT_EQ(owner, CurrentAccountName());
  WString server;
  EXPECT_FALSE(tools_.GetServerOfDrive(server, file_.c_str()));
  EXPECT_FALSE(tools_.GetServerOfDrive(server, W("")));
  EXPECT_FALSE(tools_.GetServerOfDrive(server, nullptr));
}

TEST_F(NtfsToolsFile, WhatIsNotThereHasNoStreamsAndNoAccess) {
  ResolveStreamQuery();
  const WString missing = scratch_.Path(W("nosuch"));
  EXPECT_EQ(tools_.GetAlternateStreamCount(missing.c_str()), 0u);
  EXPECT_EQ(tools_.GetAlternateStreamSize(missing.c_str()), 0u);
  EXPECT_EQ(tools_.GetAccessString(missing), W("   "));
  EXPECT_EQ(tools_.GetAccessString(W("")), W("   "));
}

TEST_F(NtfsToolsFile, AFileAndAFolderWithoutStreamsHaveNone) {
  ResolveStreamQuery();
  EXPECT_EQ(tools_.GetAlternateStreamCount(file_.c_str()), 0u);
  EXPECT_EQ(tools_.GetAlternateStreamSize(file_.c_str()), 0u);
  EXPECT_EQ(tools_.GetAlternateStreamCount(scratch_.Path().c_str()), 0u);
  EXPECT_EQ(tools_.GetAlternateStreamSize(scratch_.Path().c_str()), 0u);
}

TEST_F(NtfsToolsFile, EmptyPathsAndUsersAreBadParameters) {
  const WString user = CurrentUserName();
  ASSERT_NE(user, W(""));
  EXPECT_EQ(tools_.TakeOwnership(W(""), user), DWORD{ERROR_INVALID_PARAMETER});
  EXPECT_EQ(tools_.TakeOwnership(file_, W("")), DWORD{ERROR_INVALID_PARAMETER});
  EXPECT_EQ(tools_.AddAccess(W(""), user, 1), DWORD{ERROR_INVALID_PARAMETER});
  EXPECT_EQ(tools_.AddAccess(file_, W(""), 1), DWORD{ERROR_INVALID_PARAMETER});
  EXPECT_EQ(tools_.AddAccess(file_, user, 0), DWORD{ERROR_INVALID_PARAMETER});
  EXPECT_EQ(tools_.ResetAccess(W("")), DWORD{ERROR_INVALID_PARAMETER});
}

TEST_F(NtfsToolsFile, UnknownUsersAndMissingFilesAreErrorsOfTheSystem) {
  const WString user = CurrentUserName();
  const WString missing = scratch_.Path(W("nosuch"));
  EXPECT_EQ(tools_.TakeOwnership(file_, W("nosuchuser")), 1332u);
  EXPECT_EQ(tools_.AddAccess(file_, W("nosuchuser"), 1), 1332u);
  EXPECT_EQ(tools_.TakeOwnership(missing, user), DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_EQ(tools_.AddAccess(missing, user, 1), DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_EQ(tools_.ResetAccess(missing), DWORD{ERROR_FILE_NOT_FOUND});
}

TEST_F(NtfsToolsFile, APathOfAServerIsNoFileAndTheSystemRefusesIt) {
  const WString path = W("\\\\nosuchserver\\share\\a.txt");
  EXPECT_NE(tools_.TakeOwnership(path, CurrentUserName()), 0u);
  EXPECT_NE(tools_.AddAccess(path, CurrentUserName(), 1), 0u);
  EXPECT_NE(tools_.ResetAccess(path), 0u);
}

TEST_F(NtfsToolsFile, OneTakesOnesOwnFile) {
  EXPECT_EQ(tools_.TakeOwnership(file_, CurrentUserName()), 0u);
  WString owner;
  ASSERT_TRUE(tools_.GetOwnerName(file_.c_str(), owner, false));
  EXPECT_EQ(owner, CurrentAccountName());
}

TEST_F(NtfsToolsFile, AddedAccessIsInTheList) {
  ASSERT_EQ(tools_.AddAccess(file_, W("Everyone"), 0x1F01FF), 0u);
  EXPECT_EQ(FullEntriesOfEveryone(file_), 1);
}

TEST_F(NtfsToolsFile, ResettingRemovesWhatWasAdded) {
  ASSERT_EQ(tools_.AddAccess(file_, W("Everyone"), 0x1F01FF), 0u);
  EXPECT_EQ(tools_.ResetAccess(file_), 0u);
  EXPECT_EQ(FullEntriesOfEveryone(file_), 0);
}

TEST_F(NtfsToolsFile, PrivilegesAreListedIfTheListRemembers) {
  PrivilegeList remembering(true);
  PrivilegeList forgetful(false);
  const bool isEnabled = tools_.EnableTakeOwnership(remembering);
  EXPECT_EQ(tools_.EnableTakeOwnership(forgetful), isEnabled);
  EXPECT_EQ(remembering.names,
            isEnabled ? std::vector<WString>{W("SeTakeOwnershipPrivilege")} : std::vector<WString>());
  EXPECT_TRUE(forgetful.names.empty());
}

TEST(AccessText, HasALetterForEachRightThatIsWhole) {
  EXPECT_EQ(AccessTextOf(0x1F01FF), W("RWX"));
  EXPECT_EQ(AccessTextOf(0x120089), W("R  "));
  EXPECT_EQ(AccessTextOf(0x1200A9), W("R X"));
  EXPECT_EQ(AccessTextOf(0x120116), W(" W "));
  EXPECT_EQ(AccessTextOf(0), W("   "));
}

TEST(AccessText, ExecuteAloneIsNoX) {
  EXPECT_EQ(AccessTextOf(0x20), W("   "));
  EXPECT_EQ(AccessTextOf(0x21), W("  X"));
  EXPECT_EQ(AccessTextOf(0x1200A0), W("   "));
}

TEST(AccessText, EveryBitOfARightIsNeeded) {
  EXPECT_EQ(AccessTextOf(0x01), W("   "));
  EXPECT_EQ(AccessTextOf(0x81), W("R  "));
  EXPECT_EQ(AccessTextOf(0x116), W(" W "));
  for (const DWORD bit : {0x2u, 0x4u, 0x10u, 0x100u}) EXPECT_EQ(AccessTextOf(0x116 & ~bit), W("   ")) << bit;
}
