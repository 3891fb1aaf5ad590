// The quick rename commands from the selection to the rename batch.
#include "filetools/quick_rename.h"

#include <gmock/gmock.h>

#include "frame/host/command_numbers.h"
#include "frame/host/host_types.h"
#include "frame/services/message_texts.h"
#include "support/box_answers.h"
#include "support/fake_host.h"
#include "support/refusals.h"

using namespace Velmora::SDK;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

namespace {

constexpr TextId kQuestion = kTextRenameQuestion;

// Returns the calls of the command, except those that read items, counts and texts.
std::vector<std::string> Steps(const FakeHost& host) {
  std::vector<std::string> steps;
  for (const std::string& call : host.recorder.CallsExcept({"item ", "GetLanguageString", "GetMainWindow"})) {
    if (call.find(".GetCount()") == std::string::npos) steps.push_back(call);
  }
  return steps;
}

}  // namespace

TEST(QuickRename, TakesTheSelectionAndHandsTheNewNamesToOneBatch) {
  FakeHost host;
  host.SelectFiles({W("a.txt"), W("b.txt")});
  BoxAnswers boxes{IDOK};
  QuickRenameCommand(host, kCommandUpperCase);
  EXPECT_THAT(Steps(host),
              ElementsAre("CreateFileList()", "FileListRequest(21215, list1, 16, 0)", "list1.GetItem(0)",
                          "list1.GetItem(1)", "list1.Release()", "GetService(3000, 0)",
                          "file operation.CreateRenameBatch()", "batch1.AddByItem(a.txt, \"A.TXT\", 0)",
                          "batch1.AddByItem(b.txt, \"B.TXT\", 0)", "file operation.RunBatch(batch1, 0)",
                          "file operation.ReleaseRenameBatch(batch1)", "ReleaseService(file operation, 0)"));
  ExpectAllReleased(host);
}

TEST(QuickRename, ReleasesTheListBeforeItReadsTheItems) {
  FakeHost host;
  host.SelectFiles({W("a.txt")});
  BoxAnswers boxes{IDOK};
  QuickRenameCommand(host, kCommandUpperCase);
  ASSERT_GE(host.recorder.PositionOf("list1.Release()"), 0);
  EXPECT_LT(host.recorder.PositionOf("list1.Release()"), host.recorder.PositionOf("item a.txt."));
}

TEST(QuickRename, AsksWithTheNumberOfItemsBeforeItRenames) {
  FakeHost host;
  host.texts[kQuestion] = W("Rename %d items?");
  host.SelectFiles({W("a.txt"), W("b.txt"), W("c.txt")});
  BoxAnswers boxes{IDOK};
  QuickRenameCommand(host, kCommandUpperCase);
  ASSERT_THAT(boxes.Boxes(), SizeIs(1));
  EXPECT_EQ(boxes.Boxes()[0].text, W("Rename 3 items?"));
  EXPECT_EQ(boxes.Boxes()[0].title, W("T000A0063"));
  EXPECT_THAT(boxes.Boxes()[0].buttons, ElementsAre(IDOK, IDCANCEL));
  EXPECT_TRUE(boxes.Boxes()[0].hasIcon);
  EXPECT_THAT(host.recorder.Calls(), Contains("GetMainWindow()"));
  EXPECT_EQ(host.fileOperation.Runs(), 1);
}

TEST(QuickRename, CancelRenamesNothingAndCallsNoService) {
  FakeHost host;
  host.SelectFiles({W("a.txt")});
  BoxAnswers boxes{IDCANCEL};
  QuickRenameCommand(host, kCommandUpperCase);
  EXPECT_THAT(boxes.Boxes(), SizeIs(1));
  EXPECT_EQ(host.fileOperation.Runs(), 0);
  EXPECT_THAT(host.recorder.CallsOf({"GetService", "file operation."}), IsEmpty());
  ExpectAllReleased(host);
}

TEST(QuickRename, EntriesWhoseNameStaysLeaveAndTheOrderIsKept) {
  FakeHost host;
  host.texts[kQuestion] = W("%d");
  host.SelectFiles({W("STAYS.A"), W("z.txt"), W("STAYS.B"), W("STAYS.C"), W("a.txt"), W("m.txt"), W("S")});
  BoxAnswers boxes{IDOK};
  QuickRenameCommand(host, kCommandUpperCase);
  EXPECT_THAT(host.fileOperation.RunRenames(),
              ElementsAre(QueuedRename{W("z.txt"), W("Z.TXT")}, QueuedRename{W("a.txt"), W("A.TXT")},
                          QueuedRename{W("m.txt"), W("M.TXT")}));
  ASSERT_THAT(boxes.Boxes(), SizeIs(1));
  EXPECT_EQ(boxes.Boxes()[0].text, W("3"));
}

TEST(QuickRename, WhereNoNameChangesNoBoxIsShownAndNoServiceCalled) {
  FakeHost host;
  host.SelectFiles({W("ABC.TXT"), W("DEF")});
  BoxAnswers boxes;
  QuickRenameCommand(host, kCommandUpperCase);
  EXPECT_THAT(boxes.Boxes(), IsEmpty());
  EXPECT_THAT(host.recorder.CallsOf({"GetService", "file operation."}), IsEmpty());
  ExpectAllReleased(host);
}

TEST(QuickRename, EmptySelectionEndsSilentlyWithItsListReleased) {
  FakeHost host;
  BoxAnswers boxes;
  QuickRenameCommand(host, kCommandUpperCase);
  EXPECT_THAT(Steps(host),
              ElementsAre("CreateFileList()", "FileListRequest(21215, list1, 16, 0)", "list1.Release()"));
  EXPECT_THAT(boxes.Boxes(), IsEmpty());
  ExpectAllReleased(host);
}

TEST(QuickRename, ListOfARefusedRequestIsNotLookedAt) {
  FakeHost host;
  host.SelectFiles({W("a.txt")});
  host.refusedRequest = kListSelectedItems;
  host.fillsRefusedLists = true;
  BoxAnswers boxes;
  QuickRenameCommand(host, kCommandUpperCase);
  EXPECT_THAT(Steps(host),
              ElementsAre("CreateFileList()", "FileListRequest(21215, list1, 16, 0)", "list1.Release()"));
  EXPECT_THAT(host.recorder.CallsOf({"item "}), IsEmpty());
  EXPECT_THAT(boxes.Boxes(), IsEmpty());
  ExpectAllReleased(host);
}

TEST(QuickRename, WritesNothingToTheLog) {
  FakeHost host;
  host.SelectFiles({W("a.txt")});
  BoxAnswers boxes{IDOK};
  QuickRenameCommand(host, kCommandUpperCase);
  EXPECT_THAT(host.recorder.CallsOf({"Log"}), IsEmpty());
}

TEST(QuickRename, FoldersAreRenamedWithTheFiles) {
  FakeHost host;
  host.selection = {host.AddFolder(W("a b.c d")), host.AddFile(W("a b.c d"))};
  BoxAnswers boxes{IDOK};
  QuickRenameCommand(host, kCommandBlanksToUnderscores);
  EXPECT_THAT(host.fileOperation.RunRenames(), ElementsAre(QueuedRename{W("a b.c d"), W("a_b.c_d")},
                                                           QueuedRename{W("a b.c d"), W("a_b.c d")}));
}

TEST(QuickRename, HostileQuestionIsShownAndNotObeyed) {
  FakeHost host;
  host.texts[kQuestion] = W("%s%n 100% %d");
  host.SelectFiles({W("a.txt")});
  BoxAnswers boxes{IDOK};
  QuickRenameCommand(host, kCommandUpperCase);
  ASSERT_THAT(boxes.Boxes(), SizeIs(1));
  EXPECT_THAT(ToUtf8(boxes.Boxes()[0].text), StartsWith("%s%n 100"));
}

TEST(QuickRename, QuestionIsCutAt1023Characters) {
  FakeHost host;
  host.texts[kQuestion] = WString(3000, W('q'));
  host.SelectFiles({W("a.txt")});
  BoxAnswers boxes{IDOK};
  QuickRenameCommand(host, kCommandUpperCase);
  ASSERT_THAT(boxes.Boxes(), SizeIs(1));
  EXPECT_EQ(boxes.Boxes()[0].text, WString(1023, W('q')));
}

TEST(QuickRename, MissingTextsDoNotKeepTheQuestionBack) {
  FakeHost host;
  host.recorder.Refuse("GetLanguageString");
  host.SelectFiles({W("a.txt")});
  BoxAnswers boxes{IDCANCEL};
  QuickRenameCommand(host, kCommandUpperCase);
  EXPECT_THAT(boxes.Boxes(), SizeIs(1));
  EXPECT_EQ(host.fileOperation.Runs(), 0);
}

TEST(QuickRename, NumberWithoutATransformRenamesNothing) {
  FakeHost host;
  host.SelectFiles({W("a_b c-d.e.txt")});
  BoxAnswers boxes{IDOK};
  QuickRenameCommand(host, 30009);
  EXPECT_EQ(host.fileOperation.Runs(), 0);
  EXPECT_THAT(boxes.Boxes(), IsEmpty());
  ExpectAllReleased(host);
}

TEST(QuickRename, EveryRefusalOfTheHostEndsItQuietly) {
  ExpectEveryRefusalEndsQuietly(
      [](FakeHost& host) {
        host.SelectFiles({W("a.txt"), W("b.txt"), W("c.txt")});
      },
      [](FakeHost& host) {
        BoxAnswers boxes{IDOK};
        QuickRenameCommand(host, kCommandUpperCase);
        EXPECT_THAT(boxes.UnexpectedBoxes(), IsEmpty());
        EXPECT_THAT(host.recorder.CallsOf({"Log"}), IsEmpty());
      });
}
