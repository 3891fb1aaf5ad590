// Creating one link of each kind: the log line, the use of the helper, and the message box of an error.
#include "filetools/links.h"

#include <gmock/gmock.h>

#include "filetools/link_calls.h"
#include "frame/services/system_error_text.h"
#include "platform/windows_api.h"
#include "support/fake_host.h"
#include "support/read_shell_link.h"
#include "support/refusals.h"
#include "support/scratch_folder.h"

using namespace Velmora::SDK;
using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// Returns the message box of an error, with the system's text for it.
std::string LinkErrorBox(DWORD error) {
  return "MessageBox(\"T000B0065\", \"" + ToUtf8(GetSystemErrorText(error)) + "\", 0x00000010)";
}

class LinksTest : public testing::Test {
 protected:
  DWORD Create(int kind, bool isFolder = false) {
    return CreateLinkOfKind(&host_, static_cast<LinkKind>(kind), link_, target_, isFolder);
  }
  DWORD CreateWithRetry(int kind) {
    return CreateLinkWithRetry(host_, static_cast<LinkKind>(kind), link_, target_, false);
  }
  DWORD CreateElevated(int kind, bool isFolder) {
    return CreateLinkElevated(host_, static_cast<LinkKind>(kind), link_, target_, isFolder);
  }

  ScratchFolder scratch_;
  ShellObjects shell_;
  WString target_ = scratch_.Write(W("a.txt"), "abc");
  WString link_ = scratch_.Path(W("link"));
  FakeHost host_;
};

TEST_F(LinksTest, AHardLinkIsASecondName) {
  EXPECT_EQ(Create(kHardLink), 0u);
  scratch_.Write(W("a.txt"), "changed");
  EXPECT_EQ(scratch_.Read(W("link")), "changed");
  EXPECT_THAT(host_.recorder.Calls(), ElementsAre(LinkCreated("Hardlink", link_, target_)));
}

TEST_F(LinksTest, AHardLinkThatCannotBeGivesTheSystemsError) {
  link_ = target_;
  EXPECT_EQ(Create(kHardLink), DWORD{ERROR_ALREADY_EXISTS});
  EXPECT_THAT(host_.recorder.Calls(), ElementsAre(LinkFailed("Hardlink", 183, link_, target_)));
}

TEST_F(LinksTest, AShortcutToAFileStartsInItsFolderAndIsUnknownInTheLogByDesign) {
  link_ += W(".lnk");
  EXPECT_EQ(Create(kShortcut), 0u);
  const ShellLink shortcut = ReadShellLink(link_);
  EXPECT_EQ(shortcut.target, target_);
  EXPECT_EQ(shortcut.workingFolder, scratch_.Path() + W("\\"));
  EXPECT_EQ(shortcut.description, W("Link created by Velmora"));
  EXPECT_THAT(host_.recorder.Calls(), ElementsAre(LinkCreated("Unknown", link_, target_)));
}

TEST_F(LinksTest, AShortcutThatCannotBeSavedIsError3) {
  link_ = scratch_.Path(W("nosuch\\link.lnk"));
  EXPECT_EQ(Create(kShortcut), DWORD{ERROR_PATH_NOT_FOUND});
  EXPECT_THAT(host_.recorder.Calls(), ElementsAre(LinkFailed("Unknown", 3, link_, target_)));
}

TEST_F(LinksTest, AShortcutOverAFileThatIsNoShortcutIsError3InTheLogAndInABox) {
  link_ = scratch_.Write(W("kept.lnk"), "not a shortcut");
  EXPECT_EQ(CreateWithRetry(kShortcut), DWORD{ERROR_PATH_NOT_FOUND});
  EXPECT_EQ(scratch_.Read(W("kept.lnk")), "not a shortcut");
  EXPECT_THAT(host_.recorder.CallsOf({"LogMessage", "MessageBox"}),
              ElementsAre(LinkFailed("Unknown", 3, link_, target_), LinkErrorBox(3)));
}

TEST_F(LinksTest, AJunctionOfAFolderToItselfIsError13InTheLogAndInABox) {
  link_ = target_ = scratch_.MakeFolder(W("sub"));
  EXPECT_EQ(CreateWithRetry(kJunction), DWORD{ERROR_INVALID_DATA});
  EXPECT_EQ(GetFileAttributesW(link_.c_str()), 0x10u);
  EXPECT_THAT(host_.recorder.CallsOf({"LogMessage", "MessageBox"}),
              ElementsAre(LinkFailed("Junction", 13, link_, target_), LinkErrorBox(13)));
}

TEST_F(LinksTest, AJunctionIsRefusedWhereAFileIs) {
  link_ = target_;
  EXPECT_EQ(Create(kJunction, true), DWORD{ERROR_INVALID_DATA});
  EXPECT_EQ(scratch_.Read(W("a.txt")), "abc");
  EXPECT_THAT(host_.recorder.Calls(), ElementsAre(LinkFailed("Junction", 13, link_, target_)));
}

TEST_F(LinksTest, AnyOtherKindIsError13AndUnknown) {
  for (const int kind : {0, 5, -1, 1000000}) {
    host_.recorder.ClearCalls();
    EXPECT_EQ(Create(kind), DWORD{ERROR_INVALID_DATA});
    EXPECT_THAT(host_.recorder.Calls(), ElementsAre(LinkFailed("Unknown", 13, link_, target_)));
  }
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("a.txt")));
}

TEST_F(LinksTest, WithoutAHostNothingIsLogged) {
  EXPECT_EQ(CreateLinkOfKind(nullptr, kHardLink, link_, target_, false), 0u);
  EXPECT_EQ(CreateLinkOfKind(nullptr, kHardLink, link_, target_, false), DWORD{ERROR_ALREADY_EXISTS});
  EXPECT_EQ(scratch_.Read(W("link")), "abc");
}

TEST_F(LinksTest, NoPathsAndVeryLongOnesAreErrorsOfEachKind) {
  const WString longPath = scratch_.Path(WString(32000, W('x')));
  const std::pair<WString, WString> paths[] = {
      {W(""), target_}, {link_, W("")}, {W(""), W("")}, {longPath, target_}, {link_, longPath}};
  for (const LinkKind kind : {kHardLink, kJunction, kShortcut}) {
    for (std::size_t index = 0; index < std::size(paths); ++index) {
      const auto& [link, target] = paths[index];
      if (kind == kShortcut && target == longPath) continue;
      EXPECT_NE(CreateLinkOfKind(&host_, kind, link, target, false), 0u) << kind << " " << index;
    }
  }
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("a.txt")));
}

// Shells accept targets of different lengths.
TEST_F(LinksTest, AShortcutToAVeryLongPathIsMadeOrIsError3) {
  target_ = scratch_.Path(WString(32000, W('x')));
  EXPECT_THAT(Create(kShortcut), AnyOf(DWORD{ERROR_SUCCESS}, DWORD{ERROR_PATH_NOT_FOUND}));
  EXPECT_EQ(host_.recorder.CallsOf({"LogMessage"}).size(), 1u);
}

TEST_F(LinksTest, TheHelperGetsTheRequestAndItsReplyIsLogged) {
  host_.helper.exists = true;
  EXPECT_EQ(CreateElevated(kSymbolicLink, true), 0u);
  EXPECT_THAT(host_.recorder.Calls(),
              ElementsAre("GetService(3250, 0)", "helper.Connect()", "helper.CreateWriter()",
                          "writer.WriteU32(3)", "writer.WriteString(\"" + ToUtf8(link_) + "\")",
                          "writer.WriteString(\"" + ToUtf8(target_) + "\")", "writer.WriteU32(1)",
                          "helper.Send(5004, 4)", "helper.Disconnect()", "writer.Release()",
                          LinkCreated("Symlink", link_, target_)));
  ExpectAllReleased(host_);
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("a.txt")));
}

TEST_F(LinksTest, TheHelpersErrorIsReturned) {
  host_.helper.exists = true;
  host_.helper.reply = 1460;
  EXPECT_EQ(CreateElevated(kHardLink, false), DWORD{ERROR_TIMEOUT});
  EXPECT_THAT(
      host_.recorder.CallsOf({"writer.WriteU32", "LogMessage"}),
      ElementsAre("writer.WriteU32(1)", "writer.WriteU32(0)", LinkFailed("Hardlink", 1460, link_, target_)));
}

TEST_F(LinksTest, WithoutTheServiceTheErrorIs5AndNothingIsLogged) {
  EXPECT_EQ(CreateElevated(kHardLink, false), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_THAT(host_.recorder.Calls(), ElementsAre("GetService(3250, 0)"));
}

TEST_F(LinksTest, AHelperThatCannotBeReachedIsError5AndNothingIsLogged) {
  host_.helper.exists = true;
  host_.recorder.Refuse("Connect");
  EXPECT_EQ(CreateElevated(kHardLink, false), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_THAT(host_.recorder.Calls(),
              ElementsAre("GetService(3250, 0)", "helper.Connect()", "helper.Disconnect()"));
  ExpectAllReleased(host_);
}

TEST_F(LinksTest, WithoutAWriterTheErrorIs5) {
  host_.helper.exists = true;
  host_.recorder.Refuse("CreateWriter");
  EXPECT_EQ(CreateElevated(kHardLink, false), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_THAT(host_.recorder.CallsOf({"helper", "LogMessage"}),
              ElementsAre("helper.Connect()", "helper.CreateWriter()", "helper.Disconnect()"));
  ExpectAllReleased(host_);
}

TEST_F(LinksTest, ALinkThatIsMadeShowsNoBox) {
  EXPECT_EQ(CreateWithRetry(kHardLink), 0u);
  EXPECT_THAT(host_.recorder.Calls(), ElementsAre(LinkCreated("Hardlink", link_, target_)));
}

TEST_F(LinksTest, AnErrorIsShownWithTheSystemsTextAsItComes) {
  EXPECT_EQ(CreateWithRetry(0), DWORD{ERROR_INVALID_DATA});
  EXPECT_THAT(host_.recorder.Calls(), ElementsAre(LinkFailed("Unknown", 13, link_, target_),
                                                  "GetLanguageString(0x000B0065)", LinkErrorBox(13)));
}

// A folder cannot have hard links: access is denied.
class RefusedLinksTest : public LinksTest {
 protected:
  RefusedLinksTest() {
    target_ = scratch_.MakeFolder(W("sub"));
    host_.helper.exists = true;
  }
};

TEST_F(RefusedLinksTest, ARefusalGoesToTheHelperAndLeavesTwoLogLines) {
  EXPECT_EQ(CreateWithRetry(kHardLink), 0u);
  EXPECT_THAT(
      host_.recorder.CallsOf({"LogMessage", "IsVista", "IsProcess", "MessageBox", "helper.Send"}),
      ElementsAre(LinkFailed("Hardlink", 5, link_, target_), "IsVistaOrNewer()", "IsProcessElevated()",
                  "helper.Send(5004, 4)", LinkCreated("Hardlink", link_, target_)));
  ExpectAllReleased(host_);
}

TEST_F(RefusedLinksTest, TheHelpersErrorIsShown) {
  host_.helper.reply = 13;
  EXPECT_EQ(CreateWithRetry(kHardLink), DWORD{ERROR_INVALID_DATA});
  EXPECT_THAT(host_.recorder.CallsOf({"LogMessage", "MessageBox"}),
              ElementsAre(LinkFailed("Hardlink", 5, link_, target_),
                          LinkFailed("Hardlink", 13, link_, target_), LinkErrorBox(13)));
}

TEST_F(RefusedLinksTest, AnElevatedProcessAsksNoHelper) {
  host_.isElevated = true;
  EXPECT_EQ(CreateWithRetry(kHardLink), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_THAT(host_.recorder.CallsOf({"GetService", "LogMessage", "MessageBox"}),
              ElementsAre(LinkFailed("Hardlink", 5, link_, target_), LinkErrorBox(5)));
}

TEST_F(RefusedLinksTest, AnOldSystemHasNoHelper) {
  host_.isVista = false;
  EXPECT_EQ(CreateWithRetry(kHardLink), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_THAT(host_.recorder.CallsOf({"GetService", "LogMessage", "MessageBox"}),
              ElementsAre(LinkFailed("Hardlink", 5, link_, target_), LinkErrorBox(5)));
}

TEST_F(RefusedLinksTest, AHelperThatIsNotThereLeavesOneLogLineAndABox) {
  host_.helper.exists = false;
  EXPECT_EQ(CreateWithRetry(kHardLink), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_THAT(host_.recorder.CallsOf({"LogMessage", "MessageBox"}),
              ElementsAre(LinkFailed("Hardlink", 5, link_, target_), LinkErrorBox(5)));
}

TEST_F(RefusedLinksTest, WhateverTheHostRefusesAllIsGivenBack) {
  ExpectEveryRefusalEndsQuietly(
      [](FakeHost& host) {
        host.helper.exists = true;
        host.helper.reply = 13;
      },
      [this](FakeHost& host) { EXPECT_NE(CreateLinkWithRetry(host, kHardLink, link_, target_, false), 0u); });
}

TEST_F(LinksTest, AnotherErrorIsNoRefusal) {
  host_.helper.exists = true;
  link_ = target_;
  EXPECT_EQ(CreateWithRetry(kHardLink), DWORD{ERROR_ALREADY_EXISTS});
  EXPECT_THAT(host_.recorder.CallsOf({"GetService", "IsVista", "IsProcess"}), IsEmpty());
}

}  // namespace
