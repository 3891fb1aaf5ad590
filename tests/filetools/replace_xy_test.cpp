// Replace X with Y: the form of the dialog, the histories, the renames.
#include <gmock/gmock.h>

#include "filetools/replace_xy.h"
#include "frame/host/host_types.h"
#include "frame/services/message_texts.h"
#include "support/box_answers.h"
#include "support/fake_host.h"
#include "support/refusals.h"

using namespace Velmora::SDK;
using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

namespace {

const WString kFindHistory = W("ReplaceXY_Replace");
const WString kWithHistory = W("ReplaceXY_With");

// Returns a dialog that enters these values and is closed with the given button.
ReplaceDialog Entering(const WString& find, const WString& replace, int part = 1, INT_PTR button = IDOK) {
  return [=](IHostApp&, ReplaceForm& form) {
    form.find = find;
    form.replace = replace;
    form.part = part;
    return button;
  };
}

ReplaceDialog MustNotBeShown() {
  return [](IHostApp&, ReplaceForm&) -> INT_PTR {
    ADD_FAILURE() << "the dialog was shown";
    return IDCANCEL;
  };
}

// Returns the calls for settings and histories, except requests for counts.
std::vector<std::string> HistoryCalls(const FakeHost& host) {
  std::vector<std::string> calls =
      host.recorder.CallsOf({"GetConfig", "CreateStringList", "config.", "strings"});
  std::erase(calls, "strings1.GetCount()");
  return calls;
}

std::vector<WString> Numbered(int count) {
  std::vector<WString> strings;
  for (int i = 1; i <= count; ++i) strings.push_back(FromUtf8("old " + std::to_string(i)));
  return strings;
}

}  // namespace

TEST(ReplaceXY, ReplacesInTheSelectedNamesAfterTheQuestion) {
  FakeHost host;
  host.texts[kTextRenameQuestion] = W("%d items");
  host.SelectFiles({W("a_b.txt"), W("none.txt"), W("_c_.txt")});
  BoxAnswers boxes{IDOK};
  ReplaceXYCommand(host, Entering(W("_"), W("-")));
  EXPECT_THAT(host.fileOperation.RunRenames(), ElementsAre(QueuedRename{W("a_b.txt"), W("a-b.txt")},
                                                           QueuedRename{W("_c_.txt"), W("-c-.txt")}));
  ASSERT_THAT(boxes.Boxes(), SizeIs(1));
  EXPECT_EQ(boxes.Boxes()[0].text, W("2 items"));
  EXPECT_EQ(boxes.Boxes()[0].title, W("T000A0063"));
  EXPECT_THAT(host.recorder.CallsOf({"Log"}), IsEmpty());
  ExpectAllReleased(host);
}

TEST(ReplaceXY, ListOfARefusedRequestIsNotLookedAt) {
  FakeHost host;
  host.SelectFiles({W("a_b.txt")});
  host.refusedRequest = kListSelectedItems;
  host.fillsRefusedLists = true;
  BoxAnswers boxes;
  ReplaceXYCommand(host, MustNotBeShown());
  EXPECT_THAT(host.recorder.CallsOf({"item ", "GetService", "config."}), IsEmpty());
  EXPECT_THAT(boxes.Boxes(), IsEmpty());
  ExpectAllReleased(host);
}

TEST(ReplaceXY, PartOfTheFormSaysWhereToReplace) {
  const std::pair<int, const WCHAR*> expected[] = {{1, W("X.X.txt")}, {2, W("txt.txt.X")}, {3, W("X.X.X")}};
  for (const auto& [part, newName] : expected) {
    FakeHost host;
    host.SelectFiles({W("txt.txt.txt")});
    BoxAnswers boxes{IDOK};
    ReplaceXYCommand(host, Entering(W("txt"), W("X"), part));
    EXPECT_THAT(host.fileOperation.RunRenames(), ElementsAre(QueuedRename{W("txt.txt.txt"), newName}))
        << part;
  }
}

TEST(ReplaceXY, WithoutAPartOnlyFoldersAreRenamed) {
  FakeHost host;
  host.selection = {host.AddFile(W("a.a")), host.AddFolder(W("a.a"))};
  BoxAnswers boxes{IDOK};
  ReplaceXYCommand(host, Entering(W("a"), W("b"), -1));
  EXPECT_THAT(host.fileOperation.RunRenames(), ElementsAre(QueuedRename{W("a.a"), W("b.b")}));
}

TEST(ReplaceXY, FormStartsEmptyWithPartOneAndBothHistories) {
  FakeHost host;
  host.SelectFiles({W("a.txt")});
  host.config.histories[kFindHistory] = {W("f1"), W("f2")};
  host.config.histories[kWithHistory] = {W("w1"), W("w2"), W("w3")};
  int shown = 0;
  ReplaceXYCommand(host, [&](IHostApp& asked, ReplaceForm& form) -> INT_PTR {
    ++shown;
    EXPECT_EQ(&asked, &host);
    EXPECT_EQ(form.find, W(""));
    EXPECT_EQ(form.replace, W(""));
    EXPECT_EQ(form.part, 1);
    EXPECT_THAT(form.findHistory, ElementsAre(WString(W("f1")), WString(W("f2"))));
    EXPECT_THAT(form.replaceHistory, ElementsAre(WString(W("w1")), WString(W("w2")), WString(W("w3"))));
    return IDCANCEL;
  });
  EXPECT_EQ(shown, 1);
}

TEST(ReplaceXY, ReadsAndWritesBothHistoriesCallByCall) {
  FakeHost host;
  host.SelectFiles({W("a.txt")});
  host.config.histories[kFindHistory] = {W("f1"), W("f2")};
  host.config.histories[kWithHistory] = {W("w1")};
  BoxAnswers boxes{IDOK};
  std::vector<std::string> before;
  ReplaceXYCommand(host, [&](IHostApp&, ReplaceForm& form) -> INT_PTR {
    before = HistoryCalls(host);
    host.recorder.ClearCalls();
    form.find = W("a");
    form.replace = W("b");
    return IDOK;
  });
  // Clearing the list before it is loaded is optional.
  std::erase(before, "strings1.Clear()");
  EXPECT_THAT(before, ElementsAre("GetConfig()", "CreateStringList()",
                                  "config.LoadStringList(\"ReplaceXY_Replace\", strings1)",
                                  "strings1.GetString(0, 256)", "strings1.GetString(1, 256)",
                                  "config.LoadStringList(\"ReplaceXY_With\", strings1)",
                                  "strings1.GetString(0, 256)"));
  EXPECT_THAT(
      HistoryCalls(host),
      ElementsAre("strings1.Clear()", "strings1.Add(\"a\")", "strings1.Add(\"f1\")", "strings1.Add(\"f2\")",
                  "strings1.Finish(1)", "config.SaveStringList(\"ReplaceXY_Replace\", strings1, 20)",
                  "strings1.Clear()", "strings1.Add(\"b\")", "strings1.Add(\"w1\")", "strings1.Finish(1)",
                  "config.SaveStringList(\"ReplaceXY_With\", strings1, 20)", "strings1.Release()"));
}

TEST(ReplaceXY, HistoriesHoldTwentyStringsNewestFirst) {
  FakeHost host;
  host.SelectFiles({W("a.txt")});
  host.config.histories[kFindHistory] = Numbered(20);
  host.config.histories[kWithHistory] = Numbered(20);
  BoxAnswers boxes{IDOK};
  ReplaceXYCommand(host, Entering(W("new find"), W("new text")));
  std::vector<WString> expected = Numbered(19);
  expected.insert(expected.begin(), W("new find"));
  EXPECT_THAT(host.config.histories[kFindHistory], ElementsAreArray(expected));
  expected.front() = W("new text");
  EXPECT_THAT(host.config.histories[kWithHistory], ElementsAreArray(expected));
}

TEST(ReplaceXY, HistoriesKeepTextsThatAreThereAlready) {
  FakeHost host;
  host.SelectFiles({W("a.txt")});
  host.config.histories[kFindHistory] = {W("a"), W("b")};
  BoxAnswers boxes{IDOK};
  ReplaceXYCommand(host, Entering(W("a"), W("")));
  EXPECT_THAT(host.config.histories[kFindHistory],
              ElementsAre(WString(W("a")), WString(W("a")), WString(W("b"))));
  EXPECT_THAT(host.config.histories[kWithHistory], ElementsAre(WString(W(""))));
}

TEST(ReplaceXY, StoredTextsAreReadUpTo255Characters) {
  FakeHost host;
  host.SelectFiles({W("a.txt")});
  host.config.histories[kFindHistory] = {WString(400, W('h'))};
  ReplaceXYCommand(host, [](IHostApp&, ReplaceForm& form) -> INT_PTR {
    EXPECT_THAT(form.findHistory, ElementsAre(WString(255, W('h'))));
    return IDCANCEL;
  });
}

TEST(ReplaceXY, HistoriesAreSavedThoughNoNameChanges) {
  FakeHost host;
  host.SelectFiles({W("a.txt")});
  BoxAnswers boxes;
  ReplaceXYCommand(host, Entering(W("zzz"), W("y")));
  EXPECT_THAT(host.config.histories[kFindHistory], ElementsAre(WString(W("zzz"))));
  EXPECT_THAT(host.config.histories[kWithHistory], ElementsAre(WString(W("y"))));
  EXPECT_THAT(boxes.Boxes(), IsEmpty());
  EXPECT_THAT(host.recorder.CallsOf({"GetService"}), IsEmpty());
  ExpectAllReleased(host);
}

TEST(ReplaceXY, HistoriesAreSavedBeforeTheQuestion) {
  FakeHost host;
  host.SelectFiles({W("a.txt")});
  BoxAnswers boxes{IDCANCEL};
  ReplaceXYCommand(host, Entering(W("a"), W("b")));
  EXPECT_THAT(boxes.Boxes(), SizeIs(1));
  EXPECT_EQ(host.fileOperation.Runs(), 0);
  EXPECT_THAT(host.config.histories[kFindHistory], ElementsAre(WString(W("a"))));
}

TEST(ReplaceXY, AnythingButOkWritesAndRenamesNothing) {
  for (const INT_PTR button : {INT_PTR{IDCANCEL}, INT_PTR{0}, INT_PTR{-1}}) {
    FakeHost host;
    host.SelectFiles({W("a.txt")});
    host.config.histories[kFindHistory] = {W("f1")};
    BoxAnswers boxes;
    ReplaceXYCommand(host, Entering(W("a"), W("b"), 1, button));
    EXPECT_THAT(host.config.histories[kFindHistory], ElementsAre(WString(W("f1"))));
    EXPECT_THAT(host.recorder.CallsOf({"config.Save", "strings1.Add", "GetService"}), IsEmpty());
    EXPECT_THAT(boxes.Boxes(), IsEmpty());
    ExpectAllReleased(host);
  }
}

TEST(ReplaceXY, MissingConfigEndsTheCommandBeforeTheDialog) {
  FakeHost host;
  host.recorder.Refuse("GetConfig");
  host.SelectFiles({W("a.txt")});
  BoxAnswers boxes;
  ReplaceXYCommand(host, MustNotBeShown());
  EXPECT_THAT(boxes.Boxes(), IsEmpty());
  EXPECT_THAT(host.recorder.CallsOf({"GetService", "CreateStringList"}), IsEmpty());
  ExpectAllReleased(host);
}

TEST(ReplaceXY, NothingSelectedEndsTheCommandBeforeTheDialog) {
  FakeHost host;
  BoxAnswers boxes;
  ReplaceXYCommand(host, MustNotBeShown());
  EXPECT_THAT(boxes.Boxes(), IsEmpty());
  EXPECT_THAT(host.recorder.CallsOf({"config."}), IsEmpty());
  ExpectAllReleased(host);
}

TEST(ReplaceXY, RequestsTheSelectionAndReleasesItsListBeforeTheDialog) {
  FakeHost host;
  host.SelectFiles({W("a.txt")});
  BoxAnswers boxes{IDOK};
  bool releasedBefore = false;
  ReplaceXYCommand(host, [&](IHostApp&, ReplaceForm&) -> INT_PTR {
    releasedBefore = host.recorder.PositionOf("list1.Release()") >= 0;
    return IDCANCEL;
  });
  EXPECT_TRUE(releasedBefore);
  EXPECT_THAT(host.recorder.Calls(), Contains("FileListRequest(21215, list1, 16, 0)"));
}

TEST(ReplaceXY, VeryLongEntriesDoNotCrash) {
  FakeHost host;
  host.SelectFiles({WString(5000, W('a')) + W(".txt"), W("a.txt"), W("")});
  BoxAnswers boxes{IDOK};
  ReplaceXYCommand(host, Entering(W("a"), WString(5000, W('b')), 1));
  EXPECT_THAT(host.fileOperation.RunRenames(),
              Contains(QueuedRename{W("a.txt"), WString(5000, W('b')) + W(".txt")}));
  EXPECT_THAT(host.fileOperation.RunRenames(), Not(Contains(QueuedRename{W(""), W("")})));
  ExpectAllReleased(host);
}

TEST(ReplaceXY, EveryRefusalOfTheHostEndsItQuietly) {
  ExpectEveryRefusalEndsQuietly(
      [](FakeHost& host) {
        host.SelectFiles({W("a.txt"), W("b a.txt")});
        host.config.histories[kFindHistory] = {W("f1"), W("f2")};
        host.config.histories[kWithHistory] = {W("w1")};
      },
      [](FakeHost& host) {
        BoxAnswers boxes{IDOK};
        ReplaceXYCommand(host, Entering(W("a"), W("c")));
        EXPECT_THAT(boxes.UnexpectedBoxes(), IsEmpty());
        EXPECT_THAT(host.recorder.CallsOf({"Log"}), IsEmpty());
      });
}
