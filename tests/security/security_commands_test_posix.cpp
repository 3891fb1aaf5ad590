// The commands of File Security in the native build: owners and modes before and after, as the superuser and
// as an ordinary user, system functions that fail, and the form of the dialog.
#include "security/security_commands.h"

#include <gmock/gmock.h>

#include <pthread.h>
#include <sys/stat.h>

#include "frame/qx_utils.h"
#include "frame/services/message_texts.h"
#include "platform/posix/files/faults.h"
#include "security/ntfs_prop.h"
#include "security/server_cache.h"
#include "support/as_user_posix.h"
#include "support/box_answers.h"
#include "support/dialog_answer.h"
#include "support/fake_helper_message.h"
#include "support/random_cases.h"
#include "support/real_files.h"
#include "support/security_bytes.h"

using namespace Velmora::SDK;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

namespace {

namespace Faults = Platform::Faults;

class SecurityCommandsNative : public testing::Test {
 protected:
  SecurityCommandsNative() {
    host_.isElevated = true;
    chmod(files_.scratch.NativePath(W("")).c_str(), 0755);
  }

  struct stat StatusOf(const WCHAR* name) const {
    struct stat status;
    EXPECT_EQ(stat(files_.scratch.NativePath(name).c_str(), &status), 0);
    return status;
  }
  void GiveToNobody(const WCHAR* name) const {
    ASSERT_EQ(chown(files_.scratch.NativePath(name).c_str(), kNobody, kNobody), 0);
  }

  Faults::Scope scope_;
  RealFiles files_;
  FakeHost& host_ = files_.host;
};

}  // namespace

TEST_F(SecurityCommandsNative, TheSuperuserTakesTheFilesOfOthers) {
  if (!IsSuperuser()) return SUCCEED();  // an ordinary user cannot give the file away
  files_.Select(W("a.txt"), "a");
  GiveToNobody(W("a.txt"));
  TakeOwnershipCommand(host_);
  EXPECT_EQ(StatusOf(W("a.txt")).st_uid, 0u);
}

TEST_F(SecurityCommandsNative, AnOrdinaryUserIsDeniedWithOneBoxWithoutANumber) {
  host_.selection.push_back(host_.AddFileIn(W("Z:\\etc\\"), W("passwd")));
  host_.selection.push_back(host_.AddFileIn(W("Z:\\etc\\"), W("group")));
  BoxAnswers boxes{IDOK, IDYES, IDOK, IDOK};
  const AsOrdinaryUser ordinary;
  TakeOwnershipCommand(host_);
  ResetAccessCommand(host_);
  ASSERT_EQ(boxes.Boxes().size(), 3u);
  EXPECT_EQ(boxes.Boxes()[0].title, W("T000A0065"));
  EXPECT_EQ(boxes.Boxes()[0].text, W("T00640065"));
  EXPECT_EQ(boxes.Boxes()[0].style, 0x10u);
  EXPECT_EQ(boxes.Boxes()[1].style, 0x44u);
  EXPECT_EQ(boxes.Boxes()[2].title, W("T000A0065"));
}

TEST_F(SecurityCommandsNative, AddedAndResetAccessShowInModeAndList) {
  const WString path = files_.Select(W("a.txt"), "a");
  const std::string native = files_.scratch.NativePath(W("a.txt")).string();
  ASSERT_EQ(chmod(native.c_str(), 0600), 0);
  AddAccessCommand(host_, [](IHostApp&, ChangeAccessForm& form) {
    form.userName = W("Everyone");
    form.accessMask = 0x1200A9;
    return INT_PTR{IDOK};
  });
  EXPECT_EQ(StatusOf(W("a.txt")).st_mode & 0777, 0755u);
  BoxAnswers boxes{IDYES};
  ResetAccessCommand(host_);
  EXPECT_EQ(StatusOf(W("a.txt")).st_mode & 0777, 0u);
  EXPECT_THAT(EntriesOfFile(path), Optional(IsEmpty()));
}

TEST_F(SecurityCommandsNative, ThePrivilegeIsEnabledOnceAndItsFailureDoesNotEndTheCommand) {
  files_.Select(W("a.txt"), "a");
  files_.Select(W("b.txt"), "b");
  for (const char* function : {"OpenProcessToken", "LookupPrivilegeValueW", "AdjustTokenPrivileges"}) {
    Faults::Fail(function, 1, 4711);
    BoxAnswers boxes;
    TakeOwnershipCommand(host_);
    EXPECT_THAT(boxes.Boxes(), IsEmpty()) << function;
    Faults::Clear();
  }
  Faults::Watch("AdjustTokenPrivileges");
  TakeOwnershipCommand(host_);
  EXPECT_EQ(Faults::CallCount("AdjustTokenPrivileges"), 1);
}

TEST_F(SecurityCommandsNative, AUserWithoutANameIsABadParameter) {
  files_.Select(W("a.txt"), "a");
  host_.texts[kTextTakeOwnershipFailed] = W("%d");
  Faults::Fail("GetUserNameW", 1, 4711);
  BoxAnswers boxes{IDOK};
  TakeOwnershipCommand(host_);
  ASSERT_EQ(boxes.Boxes().size(), 1u);
  EXPECT_EQ(boxes.Boxes()[0].text, W("87"));
  Faults::Fail("GetUserNameExW", 1, 4711);
  AddAccessCommand(host_, [](IHostApp&, ChangeAccessForm& form) {
    EXPECT_EQ(form.userName, W(""));
    return INT_PTR{IDCANCEL};
  });
  Faults::Fail("GetUserNameW", 1, 4711);
  FakeHelperMessage message({u32{1}, files_.scratch.Path(W("a.txt"))});
  CQXUtils extension;
  EXPECT_EQ(extension.OnHelperMessage(5000, &message), 1);
  EXPECT_EQ(message.recorder.Calls().back(), "SetReply(1, 87, 0, 0)");
}

// The form of the dialog.

TEST(ChangeAccessDlg, HasTheUserAndTheLevelByItsWord) {
  FakeHost host;
  ChangeAccessForm form;
  form.userName = W("DOMAIN\\me");
  const DialogAnswer answer([](Platform::FormRequest& request) {
    EXPECT_EQ(request.dialog, "ChangeAccessDlg");
    EXPECT_EQ(request.title, W("T00C80064"));
    EXPECT_EQ(request.text, W("T00C90064"));
    EXPECT_THAT(ValuesOf(request), ElementsAre("userName=DOMAIN\\me", "access=read"));
    EXPECT_TRUE(Set(request, "userName", W("nobody")));
    EXPECT_TRUE(Set(request, "access", W("modify")));
    EXPECT_FALSE(Set(request, "access", W("all")));
    return INT_PTR{IDOK};
  });
  EXPECT_EQ(ShowChangeAccessDlg(host, form), IDOK);
  EXPECT_EQ(form.userName, W("nobody"));
  EXPECT_EQ(form.accessMask, 0x1301BF);
}

TEST(ChangeAccessDlg, EachWordIsItsMaskAndCancelLeavesTheForm) {
  for (const auto& [word, mask] : {std::pair{W("read"), 0x1200A9},
                                   {W("write"), 0x1201BF},
                                   {W("modify"), 0x1301BF},
                                   {W("full"), 0x1F01FF}}) {
    for (const INT_PTR button : {IDOK, IDCANCEL}) {
      FakeHost host;
      ChangeAccessForm form;
      const DialogAnswer answer([&, chosen = WString(word)](Platform::FormRequest& request) {
        EXPECT_TRUE(Set(request, "access", chosen));
        return button;
      });
      EXPECT_EQ(ShowChangeAccessDlg(host, form), button);
      EXPECT_EQ(form.accessMask, button == IDOK ? mask : 0x1200A9);
    }
  }
}

// The host's threads for columns may have small stacks.

namespace {

struct CellRequest {
  NTFSProp* extension;
  FakeFileItem* item;
  int values = 0;
};

void* AskForCells(void* argument) {
  auto* const request = static_cast<CellRequest*>(argument);
  WCHAR cell[300];
  for (u16 property = 1; property < 5; ++property) {
    if (request->extension->GetPropertyValue(request->item, cell, 300, property)) ++request->values;
  }
  return nullptr;
}

}  // namespace

TEST_F(SecurityCommandsNative, CellsAreFilledOnAThreadOfSmallStack) {
  // Sanitizers use additional stack.
  constexpr std::size_t kStackBytes = kUnderSanitizers ? 1 << 20 : 96 << 10;
  ServerCache::Instance().Clear();
  files_.Select(W("a.txt"), "a");
  files_.scratch.MakeFolder(W("sub"));
  host_.selection.push_back(host_.AddFileIn(files_.scratch.Path() + W("\\"), W("sub")));
  NTFSProp extension;
  extension.Attach(1);
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, kStackBytes), 0);
  const auto valuesOf = [&](FakeFileItem* item) {
    CellRequest request{&extension, item};
    pthread_t thread;
    EXPECT_EQ(pthread_create(&thread, &attributes, AskForCells, &request), 0);
    pthread_join(thread, nullptr);
    return request.values;
  };
  for (FakeFileItem* const item : host_.selection) {
    EXPECT_EQ(valuesOf(item), 3);  // a stream size of 0 is shown as no value
    item->remoteLevel = 1;
    EXPECT_EQ(valuesOf(item), 3);
  }
  // If the server's name fills the buffer, there is no owner.
  Faults::NameNetwork(W("\\\\") + WString(480, W('s')) + W("\\share"));
  for (FakeFileItem* const item : host_.selection) EXPECT_EQ(valuesOf(item), 2);
  EXPECT_EQ(ServerCache::Instance().Find(W('Z')), WString(480, W('s')));
  ServerCache::Instance().Clear();
  pthread_attr_destroy(&attributes);
}
