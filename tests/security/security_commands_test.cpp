// Take ownership, reset access and add access from the selection to the files, the message boxes and the
// helper, for what both builds support.
#include "security/security_commands.h"

#include <gmock/gmock.h>

#include "frame/services/message_texts.h"
#include "security/current_user.h"
#include "support/box_answers.h"
#include "support/real_files.h"
#include "support/refusals.h"
#include "support/security_bytes.h"

using namespace Velmora::SDK;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr char kListRequest[] = "FileListRequest(21215, list1, 19, 0)";

class SecurityCommands : public testing::Test {
 protected:
  SecurityCommands() { host_.isElevated = true; }

  // Return the calls of the helper's channel with the values written to it, and the calls that refresh the
  // view.
  std::vector<std::string> HelperCalls() const { return host_.recorder.CallsOf({"helper", "writer"}); }
  std::vector<std::string> RefreshCalls() const {
    return host_.recorder.CallsOf({"GetService(3010", "refresh", "ReleaseService(refresh"});
  }
  std::vector<std::string> ClearedItems() const {
    std::vector<std::string> cleared;
    for (const std::string& call : host_.recorder.CallsOf({"item"})) {
      if (call.find("ClearStoredProperty") != std::string::npos) cleared.push_back(call);
    }
    return cleared;
  }
  void UseHelper(u32 reply) {
    host_.isElevated = false;
    host_.helper.exists = true;
    host_.helper.reply = reply;
  }
  std::string Quote(const WString& path) const { return "\"" + ToUtf8(path) + "\""; }

  // Runs the command. The dialog must open once; `answer` edits its form.
  void AddAccess(const std::function<INT_PTR(ChangeAccessForm&)>& answer) {
    int shown = 0;
    AddAccessCommand(host_, [&](IHostApp&, ChangeAccessForm& form) {
      ++shown;
      return answer(form);
    });
    EXPECT_EQ(shown, 1);
  }
  static INT_PTR ForEveryone(ChangeAccessForm& form) {
    form.userName = W("Everyone");
    form.accessMask = 0x1F01FF;
    return IDOK;
  }

  RealFiles files_;
  FakeHost& host_ = files_.host;
};

}  // namespace

TEST_F(SecurityCommands, WithNothingSelectedNothingHappensAndNothingIsAsked) {
  BoxAnswers boxes;
  TakeOwnershipCommand(host_);
  ResetAccessCommand(host_);
  AddAccessCommand(host_, [](IHostApp&, ChangeAccessForm&) -> INT_PTR {
    ADD_FAILURE() << "the dialog is shown";
    return IDOK;
  });
  EXPECT_THAT(boxes.Boxes(), IsEmpty());
  EXPECT_THAT(host_.recorder.CallsOf({"GetService", "helper"}), IsEmpty());
  ExpectAllReleased(host_);
}

// Take ownership.

TEST_F(SecurityCommands, TakingTakesEachAndClearsItsStoredOwnerAndRefreshesTheViewOfTheFirst) {
  files_.Select(W("a.txt"), "a");
  files_.Select(W("b.txt"), "b");
  BoxAnswers boxes;
  TakeOwnershipCommand(host_);
  EXPECT_THAT(boxes.Boxes(), IsEmpty());
  EXPECT_THAT(host_.recorder.CallsOf({"FileListRequest"}), ElementsAre(kListRequest));
  EXPECT_THAT(ClearedItems(),
              ElementsAre("item a.txt.ClearStoredProperty(1)", "item b.txt.ClearStoredProperty(1)"));
  EXPECT_THAT(RefreshCalls(),
              ElementsAre("GetService(3010, 0)", "refresh.AddFolder(" + Quote(files_.scratch.Path()) + ")",
                          "ReleaseService(refresh, 0)"));
  EXPECT_THAT(host_.recorder.Calls(), Contains("item a.txt.GetFolderPath(4096)"));
  ExpectAllReleased(host_);
}

TEST_F(SecurityCommands, AnErrorOfTakingEndsTheWalkAndIsShownWithItsNumber) {
  files_.Select(W("a.txt"), "a");
  host_.selection.push_back(host_.AddFileIn(files_.scratch.Path() + W("\\"), W("nosuch")));
  files_.Select(W("c.txt"), "c");
  host_.texts[kTextTakeOwnershipFailed] = W("no owner: %d!");
  BoxAnswers boxes{IDOK};
  TakeOwnershipCommand(host_);
  ASSERT_EQ(boxes.Boxes().size(), 1u);
  EXPECT_EQ(boxes.Boxes()[0].title, W("T000B0065"));
  EXPECT_EQ(boxes.Boxes()[0].text, W("no owner: 2!"));
  EXPECT_EQ(boxes.Boxes()[0].owner, nullptr);
  EXPECT_TRUE(boxes.Boxes()[0].hasIcon);
  EXPECT_THAT(ClearedItems(), ElementsAre("item a.txt.ClearStoredProperty(1)"));
  EXPECT_THAT(RefreshCalls(), IsEmpty());
  ExpectAllReleased(host_);
}

TEST_F(SecurityCommands, TheHelperTakesWhereTheHostIsNotElevated) {
  const WString first = files_.Select(W("a.txt"), "a");
  const WString second = files_.Select(W("b.txt"), "b");
  UseHelper(0);
  BoxAnswers boxes;
  TakeOwnershipCommand(host_);
  EXPECT_THAT(boxes.Boxes(), IsEmpty());
  EXPECT_THAT(HelperCalls(), ElementsAre("helper.Connect()", "helper.CreateWriter()", "writer.WriteU32(2)",
                                         "writer.WriteString(" + Quote(first) + ")",
                                         "writer.WriteString(" + Quote(second) + ")", "helper.Send(5000, 3)",
                                         "helper.Disconnect()", "writer.Release()"));
  EXPECT_EQ(ClearedItems().size(), 2u);
  EXPECT_EQ(RefreshCalls().size(), 3u);
  ExpectAllReleased(host_);
}

TEST_F(SecurityCommands, AnErrorOfTheHelperIsShownAndNothingIsCleared) {
  files_.Select(W("a.txt"), "a");
  UseHelper(5);
  BoxAnswers boxes{IDOK};
  TakeOwnershipCommand(host_);
  ASSERT_EQ(boxes.Boxes().size(), 1u);
  EXPECT_EQ(boxes.Boxes()[0].title, W("T000A0065"));
  EXPECT_EQ(boxes.Boxes()[0].text, W("T00640065"));
  EXPECT_THAT(ClearedItems(), IsEmpty());
  EXPECT_THAT(RefreshCalls(), IsEmpty());
}

TEST_F(SecurityCommands, WithoutAChannelTheCommandGoesOnInThisProcess) {
  files_.Select(W("a.txt"), "a");
  UseHelper(5);
  for (const char* refused : {"CreateWriter", "Connect"}) {
    host_.recorder.Refuse(refused);
    BoxAnswers boxes;
    TakeOwnershipCommand(host_);
    EXPECT_THAT(boxes.Boxes(), IsEmpty()) << refused;
  }
  EXPECT_EQ(ClearedItems().size(), 2u);
  host_.helper.exists = false;
  TakeOwnershipCommand(host_);
  EXPECT_EQ(ClearedItems().size(), 3u);
  ExpectAllReleased(host_);
}

TEST_F(SecurityCommands, AnElevatedHostAndAnOlderSystemUseNoHelper) {
  files_.Select(W("a.txt"), "a");
  UseHelper(5);
  host_.isElevated = true;
  TakeOwnershipCommand(host_);
  host_.isElevated = false;
  host_.isVista = false;
  TakeOwnershipCommand(host_);
  EXPECT_THAT(HelperCalls(), IsEmpty());
  EXPECT_EQ(ClearedItems().size(), 2u);
}

TEST_F(SecurityCommands, ItemsWithoutAPathAndCutOnesArePassedOver) {
  host_.selection.push_back(host_.AddFileIn(W(""), W("")));
  host_.selection.push_back(host_.AddFileIn(files_.scratch.Path() + W("\\"), WString(5000, W('n'))));
  const WString path = files_.Select(W("a.txt"), "a");
  BoxAnswers boxes;
  TakeOwnershipCommand(host_);
  EXPECT_THAT(ClearedItems(), ElementsAre("item a.txt.ClearStoredProperty(1)"));
  UseHelper(0);
  TakeOwnershipCommand(host_);
  EXPECT_THAT(host_.recorder.CallsOf({"writer.Write"}),
              ElementsAre("writer.WriteU32(1)", "writer.WriteString(" + Quote(path) + ")"));
  EXPECT_THAT(boxes.Boxes(), IsEmpty());
}

TEST_F(SecurityCommands, EveryRefusalOfTheHostEndsTakingQuietly) {
  ScratchFolder scratch;
  scratch.Write(W("a.txt"), "a");
  for (const bool isElevated : {false, true}) {
    ExpectEveryRefusalEndsQuietly(
        [&](FakeHost& host) {
          host.isElevated = isElevated;
          host.helper.exists = true;
          host.selection.push_back(host.AddFileIn(scratch.Path() + W("\\"), W("a.txt")));
        },
        [](FakeHost& host) {
          BoxAnswers boxes{IDYES, IDOK};
          TakeOwnershipCommand(host);
        });
  }
}

// Reset access.

TEST_F(SecurityCommands, ResettingAsksFirstAndNoIsNothing) {
  files_.Select(W("a.txt"), "a");
  UseHelper(0);
  BoxAnswers boxes{IDNO};
  ResetAccessCommand(host_);
  ASSERT_EQ(boxes.Boxes().size(), 1u);
  EXPECT_EQ(boxes.Boxes()[0].title, W("T00FA0064"));
  EXPECT_EQ(boxes.Boxes()[0].text, W("T00FB0064"));
  EXPECT_THAT(boxes.Boxes()[0].buttons, ElementsAre(IDYES, IDNO));
  EXPECT_TRUE(boxes.Boxes()[0].hasIcon);
  EXPECT_THAT(HelperCalls(), IsEmpty());
  ExpectAllReleased(host_);
}

TEST_F(SecurityCommands, YesResetsEachWithoutFurtherBoxes) {
  const WString first = files_.Select(W("a.txt"), "a");
  const WString second = files_.Select(W("b.txt"), "b");
  for (const WString& path : {first, second})
    ASSERT_EQ(SetEntries(path, BuiltList().Add(0, 0, 0x1F01FF, EveryoneSid()).Get()), 0u);
  ASSERT_EQ(FullEntriesOfEveryone(first), 1);
  BoxAnswers boxes{IDYES};
  ResetAccessCommand(host_);
  EXPECT_EQ(boxes.Boxes().size(), 1u);
  EXPECT_EQ(FullEntriesOfEveryone(first), 0);
  EXPECT_EQ(FullEntriesOfEveryone(second), 0);
  EXPECT_THAT(ClearedItems(), IsEmpty());
  EXPECT_THAT(RefreshCalls(), IsEmpty());
}

TEST_F(SecurityCommands, ResettingStopsAtTheFirstErrorAndShowsIt) {
  host_.selection.push_back(host_.AddFileIn(files_.scratch.Path() + W("\\"), W("nosuch")));
  const WString second = files_.Select(W("b.txt"), "b");
  ASSERT_EQ(SetEntries(second, BuiltList().Add(0, 0, 0x1F01FF, EveryoneSid()).Get()), 0u);
  host_.texts[kTextResetAccessFailed] = W("%d no reset");
  BoxAnswers boxes{IDYES, IDOK};
  ResetAccessCommand(host_);
  ASSERT_EQ(boxes.Boxes().size(), 2u);
  EXPECT_EQ(boxes.Boxes()[1].title, W("T000B0065"));
  EXPECT_EQ(boxes.Boxes()[1].text, W("2 no reset"));
  EXPECT_EQ(FullEntriesOfEveryone(second), 1);
}

TEST_F(SecurityCommands, TheHelperResetsAndItsErrorIsShown) {
  const WString path = files_.Select(W("a.txt"), "a");
  host_.texts[kTextResetAccessFailed] = W("%d no reset");
  UseHelper(0);
  BoxAnswers boxes{IDYES, IDYES, IDOK};
  ResetAccessCommand(host_);
  EXPECT_THAT(HelperCalls(), ElementsAre("helper.Connect()", "helper.CreateWriter()", "writer.WriteU32(1)",
                                         "writer.WriteString(" + Quote(path) + ")", "helper.Send(5003, 2)",
                                         "helper.Disconnect()", "writer.Release()"));
  EXPECT_EQ(boxes.Boxes().size(), 1u);
  host_.helper.reply = 1300;
  ResetAccessCommand(host_);
  ASSERT_EQ(boxes.Boxes().size(), 3u);
  EXPECT_EQ(boxes.Boxes()[2].text, W("1300 no reset"));
}

// Add access.

TEST_F(SecurityCommands, TheDialogBeginsWithTheCurrentUserAndTheFirstLevel) {
  files_.Select(W("a.txt"), "a");
  AddAccess([](ChangeAccessForm& form) {
    EXPECT_EQ(form.userName, CurrentAccountName());
    EXPECT_EQ(form.accessMask, 0x1200A9);
    return INT_PTR{IDCANCEL};
  });
  EXPECT_THAT(host_.recorder.CallsOf({"FileListRequest"}), ElementsAre(kListRequest));
}

TEST_F(SecurityCommands, AnythingButOkAddsNothing) {
  const WString path = files_.Select(W("a.txt"), "a");
  UseHelper(0);
  for (const INT_PTR answer : {IDCANCEL, 0, -1, IDYES}) {
    AddAccess([answer](ChangeAccessForm& form) {
      ForEveryone(form);
      return answer;
    });
  }
  EXPECT_EQ(FullEntriesOfEveryone(path), 0);
  EXPECT_THAT(HelperCalls(), IsEmpty());
}

TEST_F(SecurityCommands, OkAddsTheEntryToEach) {
  const WString first = files_.Select(W("a.txt"), "a");
  const WString second = files_.Select(W("b.txt"), "b");
  BoxAnswers boxes;
  AddAccess(ForEveryone);
  EXPECT_THAT(boxes.Boxes(), IsEmpty());
  EXPECT_EQ(FullEntriesOfEveryone(first), 1);
  EXPECT_EQ(FullEntriesOfEveryone(second), 1);
  EXPECT_THAT(ClearedItems(), IsEmpty());
  EXPECT_THAT(RefreshCalls(), IsEmpty());
}

TEST_F(SecurityCommands, AnEmptyUserIsTheNumberedErrorOfABadParameter) {
  const WString path = files_.Select(W("a.txt"), "a");
  host_.texts[kTextAddAccessFailed] = W("not added: %u");
  BoxAnswers boxes{IDOK};
  AddAccess([](ChangeAccessForm& form) {
    form.userName.clear();
    return INT_PTR{IDOK};
  });
  ASSERT_EQ(boxes.Boxes().size(), 1u);
  EXPECT_EQ(boxes.Boxes()[0].title, W("T000B0065"));
  EXPECT_EQ(boxes.Boxes()[0].text, W("not added: 87"));
}

TEST_F(SecurityCommands, AddingStopsAtTheFirstError) {
  host_.selection.push_back(host_.AddFileIn(files_.scratch.Path() + W("\\"), W("nosuch")));
  const WString second = files_.Select(W("b.txt"), "b");
  BoxAnswers boxes{IDOK};
  AddAccess(ForEveryone);
  EXPECT_EQ(boxes.Boxes().size(), 1u);
  EXPECT_EQ(FullEntriesOfEveryone(second), 0);
}

TEST_F(SecurityCommands, TheHelperAddsAndItsErrorIsShown) {
  const WString path = files_.Select(W("a.txt"), "a");
  host_.texts[kTextAddAccessFailed] = W("not added: %d");
  UseHelper(1332);
  BoxAnswers boxes{IDOK};
  AddAccess(ForEveryone);
  EXPECT_THAT(HelperCalls(), ElementsAre("helper.Connect()", "helper.CreateWriter()",
                                         "writer.WriteU32(2032127)", "writer.WriteString(\"Everyone\")",
                                         "writer.WriteU32(1)", "writer.WriteString(" + Quote(path) + ")",
                                         "helper.Send(5001, 4)", "helper.Disconnect()", "writer.Release()"));
  ASSERT_EQ(boxes.Boxes().size(), 1u);
  EXPECT_EQ(boxes.Boxes()[0].text, W("not added: 1332"));
}

TEST(AccessLevels, AreTheFourMasksInTheirOrder) {
  ASSERT_EQ(std::size(kAccessLevels), 4u);
  EXPECT_EQ(kAccessLevels[0].mask, 0x1200A9);
  EXPECT_EQ(kAccessLevels[1].mask, 0x1201BF);
  EXPECT_EQ(kAccessLevels[2].mask, 0x1301BF);
  EXPECT_EQ(kAccessLevels[3].mask, 0x1F01FF);
}
