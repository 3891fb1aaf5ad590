// Links when the system fails, and the kinds that not every system supports: junctions and symbolic links.
#include <gmock/gmock.h>

#include <unistd.h>

#include <filesystem>

#include "filetools/create_link_script.h"
#include "filetools/junction.h"
#include "filetools/link_calls.h"
#include "filetools/links.h"
#include "frame/host/command_numbers.h"
#include "platform/posix/files/faults.h"
#include "platform/windows_api.h"
#include "support/fake_host.h"
#include "support/scratch_folder.h"

using namespace Velmora::SDK;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

namespace {

namespace Faults = Platform::Faults;

class NativeLinksTest : public testing::Test {
 protected:
  DWORD Create(LinkKind kind, bool isFolder) {
    return CreateLinkOfKind(&host_, kind, link_, target_, isFolder);
  }

  bool IsJunction() { return GetFileAttributesW(link_.c_str()) == 0x410; }

  std::string TextOfLink() { return std::filesystem::read_symlink(scratch_.NativePath(W("link"))).native(); }

  Faults::Scope faults_;
  ScratchFolder scratch_;
  WString target_ = scratch_.MakeFolder(W("target"));
  WString link_ = scratch_.Path(W("link"));
  FakeHost host_;
};

TEST_F(NativeLinksTest, AJunctionIsMadeWhereNothingWas) {
  scratch_.Write(W("target\\inner"), "abc");
  EXPECT_EQ(Create(kJunction, true), 0u);
  EXPECT_TRUE(IsJunction());
  EXPECT_EQ(scratch_.Read(W("link\\inner")), "abc");
  EXPECT_THAT(host_.recorder.Calls(), ElementsAre(LinkCreated("Junction", link_, target_)));
}

TEST_F(NativeLinksTest, AnEmptyFolderBecomesTheJunction) {
  scratch_.MakeFolder(W("link"));
  EXPECT_EQ(CreateJunction(link_, target_), 0u);
  EXPECT_TRUE(IsJunction());
}

TEST_F(NativeLinksTest, AFolderThatHoldsSomethingStays) {
  scratch_.MakeFolder(W("link"));
  scratch_.Write(W("link\\inner"), "abc");
  EXPECT_EQ(Create(kJunction, true), ERROR_INVALID_DATA);
  EXPECT_EQ(scratch_.Read(W("link\\inner")), "abc");
  EXPECT_THAT(host_.recorder.Calls(), ElementsAre(LinkFailed("Junction", 13, link_, target_)));
}

TEST_F(NativeLinksTest, AJunctionNeedsATargetThatIsThere) {
  for (const WString& target :
       {scratch_.Path(W("nosuch")), WString(), WString(W("Z:\\") + WString(1022, W('x')))}) {
    EXPECT_EQ(CreateJunction(link_, target), ERROR_INVALID_DATA);
    EXPECT_THAT(scratch_.Names(), ElementsAre(W("target")));
  }
}

TEST_F(NativeLinksTest, AFailureLeavesAFolderThatWasThere) {
  scratch_.MakeFolder(W("link"));
  EXPECT_EQ(CreateJunction(link_, scratch_.Path(W("nosuch"))), ERROR_INVALID_DATA);
  EXPECT_EQ(GetFileAttributesW(link_.c_str()), 0x10u);
}

TEST_F(NativeLinksTest, AJunctionIsNotMadeInAFolderThatIsNotThere) {
  EXPECT_EQ(CreateJunction(scratch_.Path(W("nosuch\\link")), target_), ERROR_INVALID_DATA);
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("target")));
}

TEST_F(NativeLinksTest, ARelativeTargetOfAJunctionBeginsAtTheCurrentFolder) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(scratch_.NativePath(W("")));
  const DWORD error = CreateJunction(link_, W("x\\..\\target"));
  std::filesystem::current_path(before);
  EXPECT_EQ(error, 0u);
  EXPECT_EQ(TextOfLink(), scratch_.NativePath(W("target")).native() + "/");
}

TEST_F(NativeLinksTest, ATargetOfTheSystemsFormIsTakenUnchangedAndNotLookedUp) {
  scratch_.MakeFolder(W("link"));
  EXPECT_TRUE(SetJunctionTarget(link_, W("\\??\\Z:\\nowhere\\at all")));
  EXPECT_EQ(TextOfLink(), "/nowhere/at all/");
}

TEST_F(NativeLinksTest, ATargetOfTheSystemsFormThatTheRecordHasNoRoomForIsRefused) {
  scratch_.MakeFolder(W("link"));
  EXPECT_FALSE(SetJunctionTarget(link_, W("\\??\\Z:\\") + WString(32000, W('x'))));
  EXPECT_EQ(GetFileAttributesW(link_.c_str()), 0x10u);
}

TEST_F(NativeLinksTest, ATargetIsNotSetWithoutPaths) {
  EXPECT_FALSE(SetJunctionTarget(W(""), target_));
  EXPECT_FALSE(SetJunctionTarget(target_, W("")));
  EXPECT_FALSE(SetJunctionTarget(link_, target_));
}

TEST_F(NativeLinksTest, EachStepOfAJunctionMayFail) {
  for (const char* function : {"CreateDirectoryW", "GetFullPathNameW", "CreateFileW", "DeviceIoControl"}) {
    Faults::Fail(function, 1, 5, true);
    EXPECT_EQ(CreateJunction(link_, target_), ERROR_INVALID_DATA) << function;
    EXPECT_GE(Faults::CallCount(function), 1) << function;
    Faults::Clear();
    EXPECT_THAT(scratch_.Names(), ElementsAre(W("target"))) << function;
  }
}

// If the check whether link and target are the same folder fails, the junction is created nevertheless.
TEST_F(NativeLinksTest, AJunctionFailsWhereTheOpeningOfItsFolderAloneFails) {
  constexpr int kNever = 1000;
  Faults::Fail("CreateFileW", kNever, ERROR_ACCESS_DENIED);
  ASSERT_EQ(CreateJunction(link_, target_), ERROR_SUCCESS);
  const int opening = Faults::CallCount("CreateFileW");
  Faults::Clear();
  ASSERT_GT(opening, 1);
  for (int nth = 1; nth <= opening; ++nth) {
    ASSERT_TRUE(RemoveDirectoryW(link_.c_str()));
    Faults::Fail("CreateFileW", nth, ERROR_ACCESS_DENIED);
    EXPECT_EQ(CreateJunction(link_, target_), nth == opening ? ERROR_INVALID_DATA : ERROR_SUCCESS) << nth;
    Faults::Clear();
  }
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("target")));
}

TEST_F(NativeLinksTest, EachStepOfAJunctionMayFailOnAFolderThatWasThere) {
  scratch_.MakeFolder(W("link"));
  for (const char* function :
       {"PathIsDirectoryEmptyW", "GetFullPathNameW", "CreateFileW", "DeviceIoControl"}) {
    Faults::Fail(function, 1, 5, true);
    EXPECT_EQ(CreateJunction(link_, target_), ERROR_INVALID_DATA) << function;
    EXPECT_GE(Faults::CallCount(function), 1) << function;
    Faults::Clear();
    EXPECT_EQ(GetFileAttributesW(link_.c_str()), 0x10u) << function;
  }
}

TEST_F(NativeLinksTest, ATargetThatVanishesBeforeItIsUsedMakesNoJunction) {
  Faults::Fail("GetFileAttributesW", 2, ERROR_FILE_NOT_FOUND);  // the first call examines the link
  EXPECT_EQ(CreateJunction(link_, target_), ERROR_INVALID_DATA);
  Faults::Clear();
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("target")));
}

TEST_F(NativeLinksTest, AJunctionOfAFolderToItselfIsRefusedUnderEachOfItsNames) {
  scratch_.MakeFolder(W("link"));
  std::filesystem::create_directory_symlink(scratch_.NativePath(W("link")),
                                            scratch_.NativePath(W("other name")));
  for (const WString& target : {link_, link_ + W("\\"), scratch_.Path(W("target\\..\\link")),
                                W("\\??\\") + link_, W("\\\\?\\") + link_, scratch_.Path(W("other name"))}) {
    host_.recorder.ClearCalls();
    target_ = target;
    EXPECT_EQ(Create(kJunction, true), ERROR_INVALID_DATA) << ToUtf8(target);
    EXPECT_EQ(GetFileAttributesW(link_.c_str()), 0x10u) << ToUtf8(target);
    EXPECT_THAT(host_.recorder.Calls(), ElementsAre(LinkFailed("Junction", 13, link_, target)));
  }
}

TEST_F(NativeLinksTest, AJunctionToItselfThatWasNotThereLeavesNothing) {
  EXPECT_EQ(CreateJunction(link_, link_), ERROR_INVALID_DATA);
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("target")));
}

TEST_F(NativeLinksTest, AJunctionToItselfIsRefusedThoughItLeadsElsewhere) {
  ASSERT_EQ(CreateJunction(link_, target_), 0u);
  EXPECT_EQ(CreateJunction(link_, link_), ERROR_INVALID_DATA);
  EXPECT_EQ(TextOfLink(), scratch_.NativePath(W("target")).native() + "/");
}

TEST_F(NativeLinksTest, AJunctionThatIsThereMayBeMadeAgain) {
  ASSERT_EQ(CreateJunction(link_, target_), 0u);
  EXPECT_EQ(CreateJunction(link_, target_), 0u);
  EXPECT_EQ(TextOfLink(), scratch_.NativePath(W("target")).native() + "/");
}

TEST_F(NativeLinksTest, AJunctionToItselfIsFoundByItsTextWhereTheFileSystemDoesNotShowIt) {
  scratch_.MakeFolder(W("link"));
  for (const WString& target : {link_, scratch_.Path(W("target\\..\\LINK"))}) {
    Faults::Fail("GetFileInformationByHandle", 1, 50, true);
    EXPECT_EQ(CreateJunction(link_, target), ERROR_INVALID_DATA) << ToUtf8(target);
    EXPECT_GE(Faults::CallCount("GetFileInformationByHandle"), 1);
    Faults::Clear();
    EXPECT_EQ(GetFileAttributesW(link_.c_str()), 0x10u) << ToUtf8(target);
  }
  Faults::Fail("GetFileInformationByHandle", 1, 50, true);
  EXPECT_EQ(CreateJunction(link_, target_), 0u);
}

TEST_F(NativeLinksTest, ASymbolicLinkLeadsToAFolderOrAFile) {
  EXPECT_EQ(Create(kSymbolicLink, true), 0u);
  EXPECT_EQ(GetFileAttributesW(link_.c_str()), 0x410u);
  EXPECT_EQ(TextOfLink(), scratch_.NativePath(W("target")).native());
  EXPECT_THAT(host_.recorder.Calls(), ElementsAre(LinkCreated("Symlink", link_, target_)));
}

TEST_F(NativeLinksTest, ASymbolicLinkNeedsPathsThatCanBe) {
  const WString longPath = scratch_.Path(WString(32000, W('x')));
  const std::pair<WString, WString> paths[] = {
      {W(""), target_}, {link_, W("")}, {W(""), W("")}, {longPath, target_}, {link_, longPath}};
  for (const auto& [link, target] : paths) {
    EXPECT_NE(CreateLinkOfKind(&host_, kSymbolicLink, link, target, false), 0u);
  }
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("target")));
}

TEST_F(NativeLinksTest, ASymbolicLinkSaysWhatItsTargetIs) {
  Faults::Watch("CreateSymbolicLinkW");
  EXPECT_EQ(Create(kSymbolicLink, true), 0u);
  EXPECT_EQ(Faults::LastFlags("CreateSymbolicLinkW"), 1u);
  EXPECT_EQ(Create(kSymbolicLink, false), ERROR_ALREADY_EXISTS);
  EXPECT_EQ(Faults::LastFlags("CreateSymbolicLinkW"), 0u);
  EXPECT_EQ(Faults::CallCount("CreateSymbolicLinkW"), 2);
}

TEST_F(NativeLinksTest, WithoutThePrivilegeItIsTriedAgainAsWhoeverHasNone) {
  Faults::Fail("CreateSymbolicLinkW", 1, ERROR_PRIVILEGE_NOT_HELD);
  EXPECT_EQ(Create(kSymbolicLink, true), 0u);
  EXPECT_EQ(Faults::CallCount("CreateSymbolicLinkW"), 2);
  EXPECT_EQ(Faults::LastFlags("CreateSymbolicLinkW"), 3u);
  EXPECT_EQ(TextOfLink(), scratch_.NativePath(W("target")).native());
}

TEST_F(NativeLinksTest, TheSecondResultCounts) {
  Faults::Fail("CreateSymbolicLinkW", 1, ERROR_PRIVILEGE_NOT_HELD, true);
  EXPECT_EQ(Create(kSymbolicLink, false), ERROR_PRIVILEGE_NOT_HELD);
  EXPECT_EQ(Faults::CallCount("CreateSymbolicLinkW"), 2);
  EXPECT_EQ(Faults::LastFlags("CreateSymbolicLinkW"), 2u);
}

TEST_F(NativeLinksTest, AnotherErrorIsNotTriedAgain) {
  Faults::Fail("CreateSymbolicLinkW", 1, ERROR_ACCESS_DENIED);
  EXPECT_EQ(Create(kSymbolicLink, false), ERROR_ACCESS_DENIED);
  EXPECT_EQ(Faults::CallCount("CreateSymbolicLinkW"), 1);
}

TEST_F(NativeLinksTest, WithoutTheLibraryOrTheFunctionThereIsNoSymbolicLink) {
  Faults::Fail("LoadLibraryW", 1, ERROR_NOT_ENOUGH_MEMORY);
  EXPECT_EQ(Create(kSymbolicLink, true), ERROR_NOT_ENOUGH_MEMORY);
  Faults::Fail("GetProcAddress", 1, ERROR_PROC_NOT_FOUND);
  Faults::Watch("FreeLibrary");
  EXPECT_EQ(Create(kSymbolicLink, true), ERROR_PROC_NOT_FOUND);
  EXPECT_EQ(Faults::CallCount("FreeLibrary"), 1);
  EXPECT_THAT(host_.recorder.Calls(), ElementsAre(LinkFailed("Symlink", 8, link_, target_),
                                                  LinkFailed("Symlink", 127, link_, target_)));
}

TEST_F(NativeLinksTest, TheRefusalOfASymbolicLinkGoesToTheHelperAfterBothAttempts) {
  host_.helper.exists = true;
  Faults::Fail("CreateSymbolicLinkW", 1, ERROR_PRIVILEGE_NOT_HELD, true);
  EXPECT_EQ(CreateLinkWithRetry(host_, kSymbolicLink, link_, target_, true), 0u);
  EXPECT_EQ(Faults::CallCount("CreateSymbolicLinkW"), 2);
  EXPECT_THAT(host_.recorder.CallsOf({"helper.Send", "LogMessage", "MessageBox"}),
              ElementsAre(LinkFailed("Symlink", 1314, link_, target_), "helper.Send(5004, 4)",
                          LinkCreated("Symlink", link_, target_)));
}

TEST_F(NativeLinksTest, TheBoxShowsTheSystemsTextAsItComesWithItsLineEnd) {
  Faults::Fail("CreateHardLinkW", 1, ERROR_NOT_SAME_DEVICE);
  EXPECT_EQ(CreateLinkWithRetry(host_, kHardLink, link_, target_, false), ERROR_NOT_SAME_DEVICE);
  EXPECT_THAT(host_.recorder.CallsOf({"MessageBox"}),
              ElementsAre("MessageBox(\"T000B0065\", \"The system cannot move the file to a different disk "
                          "drive.\r\n\", 0x00000010)"));
}

TEST_F(NativeLinksTest, AScriptGetsAccessDeniedWithoutThePrivilege) {
  Faults::Fail("CreateSymbolicLinkW", 1, ERROR_PRIVILEGE_NOT_HELD, true);
  FakeCommandCall call(kScriptCreateLink);
  call.values = {{"LNKTYPE", W("3")}, {"LNKSRC", link_}, {"LNKTRG", target_}};
  EXPECT_EQ(CreateLinkScript(host_, call), 0);
  EXPECT_THAT(call.resultCode, Optional(5u));
  EXPECT_THAT(call.resultText, Optional(WString(W("5"))));
  EXPECT_THAT(host_.recorder.Calls(), ElementsAre(LinkFailed("Symlink", 1314, link_, target_)));
}

TEST_F(NativeLinksTest, AHardLinkFailsAsTheSystemDoes) {
  Faults::Fail("CreateHardLinkW", 1, ERROR_NOT_SAME_DEVICE);
  EXPECT_EQ(Create(kHardLink, false), ERROR_NOT_SAME_DEVICE);
  EXPECT_THAT(host_.recorder.Calls(), ElementsAre(LinkFailed("Hardlink", 17, link_, target_)));
}

TEST_F(NativeLinksTest, AShortcutThatCannotBeMadeOrWrittenIsError3AndLeavesNothing) {
  const WString file = scratch_.Write(W("a.txt"), "abc");
  for (const char* function : {"SaveShellLink", "CreateFileW", "WriteFile"}) {
    Faults::Fail(function, 1, 112, true);
    EXPECT_EQ(CreateLinkOfKind(&host_, kShortcut, link_, file, false), ERROR_PATH_NOT_FOUND) << function;
    Faults::Clear();
    EXPECT_THAT(scratch_.Names(), ElementsAre(W("a.txt"), W("target"))) << function;
  }
  Faults::WriteShort(1, 5);
  EXPECT_EQ(CreateLinkOfKind(&host_, kShortcut, link_, file, false), ERROR_PATH_NOT_FOUND);
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("a.txt"), W("target")));
}

}  // namespace
