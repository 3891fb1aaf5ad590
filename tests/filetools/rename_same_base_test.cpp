// A new base name for all files that have the same base name as the focused item.
#include <gmock/gmock.h>

#include "filetools/rename_same_base.h"
#include "frame/host/host_types.h"
#include "support/box_answers.h"
#include "support/fake_host.h"
#include "support/refusals.h"

using namespace Velmora::SDK;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr char kQuestion[] = "AskTextSimple(\"T000C0063\", \"T000D0063\", 0, 0, buffer, 1024)";

// Sets up a view with a focused file, which is also an item of the view, as in a real host.
void Focus(FakeHost& host, const WString& name, const std::vector<WString>& others) {
  host.focused = host.AddFile(name);
  host.view.push_back(host.focused);
  for (const WString& other : others) host.view.push_back(host.AddFile(other));
}

// Runs the command with this input.
void RenameTo(FakeHost& host, const WString& entered) {
  host.textAnswers = {{true, entered}};
  RenameSameBaseCommand(host);
}

}  // namespace

TEST(RenameSameBase, GivesAllFilesOfTheBaseTheEnteredOneAndKeepsExtensions) {
  FakeHost host;
  Focus(host, W("song.mp3"),
        {W("song.txt"), W("other.txt"), W("song.tar.gz"), W("song.jpg"), W("songs.mp3")});
  RenameTo(host, W("new"));
  EXPECT_THAT(host.fileOperation.RunRenames(), ElementsAre(QueuedRename{W("song.mp3"), W("new.mp3")},
                                                           QueuedRename{W("song.txt"), W("new.txt")},
                                                           QueuedRename{W("song.jpg"), W("new.jpg")}));
  ExpectAllReleased(host);
}

TEST(RenameSameBase, RequestsTheFocusedItemThenAllItemsOnTheSameList) {
  FakeHost host;
  Focus(host, W("song.mp3"), {W("song.txt")});
  RenameTo(host, W("new"));
  std::vector<std::string> steps;
  for (const std::string& call : host.recorder.CallsExcept({"item ", "GetLanguageString"})) {
    if (call.find(".GetCount()") == std::string::npos && call.find(".GetItem(") == std::string::npos) {
      steps.push_back(call);
    }
  }
  EXPECT_THAT(
      steps,
      ElementsAre("CreateFileList()", "FileListRequest(21111, list1, 0, 0)",
                  "FileListRequest(21110, list1, 0, 0)", "list1.Release()", kQuestion, "GetService(3000, 0)",
                  "file operation.CreateRenameBatch()", "batch1.AddByItem(song.mp3, \"new.mp3\", 0)",
                  "batch1.AddByItem(song.txt, \"new.txt\", 0)", "file operation.RunBatch(batch1, 0)",
                  "file operation.ReleaseRenameBatch(batch1)", "ReleaseService(file operation, 0)"));
}

TEST(RenameSameBase, FirstItemOfTheListAloneGetsNoEntry) {
  FakeHost host;
  host.focused = host.AddFile(W("song.mp3"));
  host.view = {host.AddFile(W("song.txt"))};
  RenameTo(host, W("new"));
  EXPECT_THAT(host.fileOperation.RunRenames(), ElementsAre(QueuedRename{W("song.txt"), W("new.txt")}));
}

TEST(RenameSameBase, CaseCounts) {
  FakeHost host;
  Focus(host, W("Song.mp3"), {W("song.txt"), W("SONG.txt"), W("Song.TXT")});
  RenameTo(host, W("n"));
  EXPECT_THAT(host.fileOperation.RunRenames(),
              ElementsAre(QueuedRename{W("Song.mp3"), W("n.mp3")}, QueuedRename{W("Song.TXT"), W("n.TXT")}));
}

TEST(RenameSameBase, FoldersOfTheBaseAreLeftAlone) {
  FakeHost host;
  Focus(host, W("song.mp3"), {W("song.txt")});
  host.view.push_back(host.AddFolder(W("song")));
  host.view.push_back(host.AddFolder(W("song.d")));
  RenameTo(host, W("n"));
  EXPECT_THAT(host.fileOperation.RunRenames(),
              ElementsAre(QueuedRename{W("song.mp3"), W("n.mp3")}, QueuedRename{W("song.txt"), W("n.txt")}));
}

TEST(RenameSameBase, AFolderIsWhatItsAttributesSay) {
  FakeHost host;
  Focus(host, W("song.mp3"), {W("song.txt")});
  host.view.back()->isFolder = true;
  host.view.push_back(host.AddFolder(W("song.d")));
  host.view.back()->isFolder = false;
  RenameTo(host, W("n"));
  EXPECT_THAT(host.fileOperation.RunRenames(),
              ElementsAre(QueuedRename{W("song.mp3"), W("n.mp3")}, QueuedRename{W("song.txt"), W("n.txt")}));
}

TEST(RenameSameBase, FocusedFolderGivesTheBaseAndOnlyFilesMatch) {
  FakeHost host;
  host.focused = host.AddFolder(W("song.d"));
  host.view = {host.focused, host.AddFile(W("song.mp3")), host.AddFile(W("song.d.mp3"))};
  RenameTo(host, W("n"));
  EXPECT_THAT(host.fileOperation.RunRenames(), ElementsAre(QueuedRename{W("song.mp3"), W("n.mp3")}));
}

TEST(RenameSameBase, FocusedNameWithoutADotIsTheBaseAsAWhole) {
  FakeHost host;
  Focus(host, W("song"), {W("song.txt"), W("song.tar.gz")});
  RenameTo(host, W("n"));
  EXPECT_THAT(host.fileOperation.RunRenames(), Contains(QueuedRename{W("song.txt"), W("n.txt")}));
}

TEST(RenameSameBase, EntryWithoutADotGoesIntoTheBatchWithAnEmptyName) {
  FakeHost host;
  Focus(host, W("song.mp3"), {W("song")});
  RenameTo(host, W("n"));
  EXPECT_THAT(host.fileOperation.RunRenames(),
              ElementsAre(QueuedRename{W("song.mp3"), W("n.mp3")}, QueuedRename{W("song"), W("")}));
}

TEST(RenameSameBase, EmptyEntryLeavesTheExtensionsAsNames) {
  FakeHost host;
  Focus(host, W("song.mp3"), {});
  RenameTo(host, W(""));
  EXPECT_THAT(host.fileOperation.RunRenames(), ElementsAre(QueuedRename{W("song.mp3"), W(".mp3")}));
}

TEST(RenameSameBase, DoesNotAskASecondTime) {
  FakeHost host;
  Focus(host, W("song.mp3"), {});
  BoxAnswers boxes;
  RenameTo(host, W("n"));
  EXPECT_THAT(boxes.Boxes(), IsEmpty());
  EXPECT_THAT(host.recorder.CallsOf({"MessageBox", "Log"}), IsEmpty());
  EXPECT_EQ(host.fileOperation.Runs(), 1);
}

TEST(RenameSameBase, RefusedQuestionEndsTheCommand) {
  FakeHost host;
  Focus(host, W("song.mp3"), {W("song.txt")});
  host.textAnswers = {{false, {}}};
  RenameSameBaseCommand(host);
  EXPECT_THAT(host.recorder.Calls(), Contains(kQuestion));
  EXPECT_THAT(host.recorder.CallsOf({"GetService"}), IsEmpty());
  ExpectAllReleased(host);
}

TEST(RenameSameBase, WithoutAFocusedItemItAsksAndRunsABatchWithNoEntries) {
  FakeHost host;
  host.view = {host.AddFile(W("song.mp3"))};
  RenameTo(host, W("n"));
  EXPECT_THAT(host.recorder.CallsOf({"FileListRequest"}), ElementsAre("FileListRequest(21111, list1, 0, 0)"));
  EXPECT_THAT(host.recorder.Calls(), Contains(kQuestion));
  EXPECT_EQ(host.fileOperation.Runs(), 1);
  EXPECT_THAT(host.fileOperation.RunRenames(), IsEmpty());
  ExpectAllReleased(host);
}

TEST(RenameSameBase, FocusedItemOfARefusedRequestCountsAsNone) {
  FakeHost host;
  Focus(host, W("song.mp3"), {W("song.txt")});
  host.refusedRequest = kListFocusedItem;
  host.fillsRefusedLists = true;
  RenameTo(host, W("n"));
  EXPECT_THAT(host.recorder.CallsOf({"FileListRequest"}), ElementsAre("FileListRequest(21111, list1, 0, 0)"));
  EXPECT_THAT(host.recorder.Calls(), Contains(kQuestion));
  EXPECT_EQ(host.fileOperation.Runs(), 1);
  EXPECT_THAT(host.fileOperation.RunRenames(), IsEmpty());
}

TEST(RenameSameBase, ViewThatTheHostRefusesEndsItWithoutAQuestion) {
  for (const bool fills : {false, true}) {
    FakeHost host;
    Focus(host, W("song.mp3"), {W("song.txt")});
    host.refusedRequest = kListAllItems;
    host.fillsRefusedLists = fills;
    BoxAnswers boxes;
    RenameSameBaseCommand(host);
    EXPECT_THAT(host.recorder.Calls(), Contains("FileListRequest(21110, list1, 0, 0)"));
    EXPECT_THAT(host.recorder.CallsOf({"AskText", "GetService", "file operation.", "Log"}), IsEmpty());
    EXPECT_THAT(boxes.Boxes(), IsEmpty());
    ExpectAllReleased(host);
  }
}

TEST(RenameSameBase, FirstItemThatTheHostDoesNotGiveMatchesNothing) {
  FakeHost host;
  Focus(host, W("song.mp3"), {W("song.txt"), W(""), W(".txt")});
  host.textAnswers = {{true, W("n")}};
  // The calls before it are the creation of the list and its two requests.
  host.recorder.RefuseCall(4, false);
  RenameSameBaseCommand(host);
  EXPECT_THAT(host.recorder.CallsOf({"list1.GetItem("}), testing::Contains("list1.GetItem(0)"));
  EXPECT_THAT(host.recorder.Calls(), Contains(kQuestion));
  EXPECT_EQ(host.fileOperation.Runs(), 1);
  EXPECT_THAT(host.fileOperation.RunRenames(), IsEmpty());
  ExpectAllReleased(host);
}

TEST(RenameSameBase, WithoutAMatchItStillAsks) {
  FakeHost host;
  host.focused = host.AddFolder(W("song"));
  host.view = {host.focused, host.AddFile(W("other.mp3"))};
  host.textAnswers = {{false, {}}};
  RenameSameBaseCommand(host);
  EXPECT_THAT(host.recorder.Calls(), Contains(kQuestion));
  EXPECT_EQ(host.unexpectedQuestions, 0);
}

TEST(RenameSameBase, LongAndEmptyNamesDoNotCrash) {
  for (const std::size_t length : {0u, 1023u, 1024u, 1025u, 4095u, 4096u, 5000u}) {
    FakeHost host;
    const WString base(length, W('s'));
    Focus(host, base + W(".mp3"), {base, base + W(".txt"), W("")});
    host.textAnswers = {{true, WString(1023, W('n'))}};
    RenameSameBaseCommand(host);
    EXPECT_EQ(host.fileOperation.Runs(), 1) << length;
    ExpectAllReleased(host);
  }
}

TEST(RenameSameBase, EveryRefusalOfTheHostEndsItQuietly) {
  ExpectEveryRefusalEndsQuietly(
      [](FakeHost& host) {
        Focus(host, W("song.mp3"), {W("song.txt"), W("other")});
        host.textAnswers = {{true, W("n")}};
      },
      [](FakeHost& host) {
        BoxAnswers boxes;
        RenameSameBaseCommand(host);
        EXPECT_THAT(boxes.UnexpectedBoxes(), IsEmpty());
        EXPECT_THAT(host.recorder.CallsOf({"Log"}), IsEmpty());
      });
}
