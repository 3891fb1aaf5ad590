// One extension for all selected files.
#include <gmock/gmock.h>

#include "filetools/set_extension.h"
#include "frame/host/host_types.h"
#include "support/box_answers.h"
#include "support/fake_host.h"
#include "support/refusals.h"

using namespace Velmora::SDK;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

std::string Question(const std::string& defaultText) {
  return "AskText(\"T000A0063\", \"T00780063\", buffer, null, buffer \"" + defaultText + "\", 1024, 0, 0)";
}

// Returns the renames of these files for this answer.
std::vector<QueuedRename> RenamesOf(const std::vector<WString>& names, const WString& answer) {
  FakeHost host;
  host.SelectFiles(names);
  host.textAnswers = {{true, answer}};
  SetExtensionCommand(host);
  EXPECT_EQ(host.unexpectedQuestions, 0);
  ExpectAllReleased(host);
  return host.fileOperation.RunRenames();
}

}  // namespace

TEST(SetExtension, ReplacesOrAddsTheExtensionOfEachSelectedFile) {
  EXPECT_THAT(RenamesOf({W("a.txt"), W("b"), W("c.tar.gz")}, W("log")),
              ElementsAre(QueuedRename{W("a.txt"), W("a.log")}, QueuedRename{W("b"), W("b.log")},
                          QueuedRename{W("c.tar.gz"), W("c.tar.log")}));
}

TEST(SetExtension, RunsCallByCall) {
  FakeHost host;
  host.focused = host.AddFile(W("focus.doc"));
  host.SelectFiles({W("a.txt")});
  host.textAnswers = {{true, W("log")}};
  SetExtensionCommand(host);
  std::vector<std::string> steps;
  for (const std::string& call : host.recorder.CallsExcept({"item ", "GetLanguageString"})) {
    if (call.find(".GetCount()") == std::string::npos) steps.push_back(call);
  }
  EXPECT_THAT(steps,
              ElementsAre("CreateFileList()", "FileListRequest(21111, list1, 19, 0)", "list1.GetItem(0)",
                          "list1.Release()", "CreateFileList()", "FileListRequest(21215, list2, 18, 0)",
                          "list2.GetItem(0)", "list2.Release()", Question("doc"), "GetService(3000, 0)",
                          "file operation.CreateRenameBatch()", "batch1.AddByItem(a.txt, \"a.log\", 0)",
                          "file operation.RunBatch(batch1, 0)", "file operation.ReleaseRenameBatch(batch1)",
                          "ReleaseService(file operation, 0)"));
  EXPECT_THAT(host.recorder.Calls(), Contains("item focus.doc.GetExtension(1024, 1)"));
}

TEST(SetExtension, DefaultIsTheFocusedItemsExtensionWithoutItsDot) {
  const std::pair<const WCHAR*, const char*> expected[] = {
      {W("a.txt"), "txt"}, {W("a.tar.GZ"), "GZ"}, {W("a"), ""}, {W("a."), ""}, {W(".profile"), "profile"}};
  for (const auto& [name, defaultText] : expected) {
    FakeHost host;
    host.focused = host.AddFile(name);
    host.SelectFiles({W("b.txt")});
    host.textAnswers = {{false, {}}};
    SetExtensionCommand(host);
    EXPECT_THAT(host.recorder.Calls(), Contains(Question(defaultText)));
  }
}

TEST(SetExtension, WithoutAFocusedItemTheDefaultIsEmpty) {
  FakeHost host;
  host.SelectFiles({W("b.txt")});
  host.textAnswers = {{false, {}}};
  SetExtensionCommand(host);
  EXPECT_THAT(host.recorder.Calls(), Contains(Question("")));
  ExpectAllReleased(host);
}

TEST(SetExtension, OneLeadingDotOfTheInputIsDropped) {
  EXPECT_THAT(RenamesOf({W("a.txt")}, W(".log")), ElementsAre(QueuedRename{W("a.txt"), W("a.log")}));
  EXPECT_THAT(RenamesOf({W("a.txt")}, W("..log")), ElementsAre(QueuedRename{W("a.txt"), W("a..log")}));
  EXPECT_THAT(RenamesOf({W("a.txt")}, W("..")), ElementsAre(QueuedRename{W("a.txt"), W("a..")}));
  EXPECT_THAT(RenamesOf({W("a.txt")}, W("tar.gz")), ElementsAre(QueuedRename{W("a.txt"), W("a.tar.gz")}));
  EXPECT_THAT(RenamesOf({W("a.txt")}, W("log.")), ElementsAre(QueuedRename{W("a.txt"), W("a.log.")}));
}

TEST(SetExtension, EmptyInputEndsTheCommand) {
  for (const WCHAR* answer : {W(""), W(".")}) {
    FakeHost host;
    host.SelectFiles({W("a.txt")});
    host.textAnswers = {{true, answer}};
    SetExtensionCommand(host);
    EXPECT_THAT(host.recorder.CallsOf({"GetService", "Log"}), IsEmpty());
    ExpectAllReleased(host);
  }
}

TEST(SetExtension, RefusedQuestionEndsTheCommand) {
  FakeHost host;
  host.focused = host.AddFile(W("f.txt"));
  host.SelectFiles({W("a.doc")});
  host.textAnswers = {{false, {}}};
  SetExtensionCommand(host);
  EXPECT_THAT(host.recorder.CallsOf({"GetService", "Log"}), IsEmpty());
  ExpectAllReleased(host);
}

TEST(SetExtension, FoldersStayAsTheyAre) {
  FakeHost host;
  host.selection = {host.AddFolder(W("dir.d")), host.AddFile(W("a.txt")), host.AddFolder(W("dir"))};
  host.textAnswers = {{true, W("log")}};
  SetExtensionCommand(host);
  EXPECT_THAT(host.fileOperation.RunRenames(), ElementsAre(QueuedRename{W("a.txt"), W("a.log")}));
}

TEST(SetExtension, AFolderIsWhatTheHostCallsOneWhateverItsAttributes) {
  FakeHost host;
  host.selection = {host.AddFile(W("a.zip")), host.AddFile(W("b.txt"))};
  host.selection.front()->isFolder = true;
  host.textAnswers = {{true, W("log")}};
  SetExtensionCommand(host);
  EXPECT_THAT(host.fileOperation.RunRenames(), ElementsAre(QueuedRename{W("b.txt"), W("b.log")}));
}

TEST(SetExtension, FilesThatHaveTheExtensionAreLeftOut) {
  EXPECT_THAT(RenamesOf({W("a.log"), W("b.LOG"), W("c.txt")}, W("log")),
              ElementsAre(QueuedRename{W("b.LOG"), W("b.log")}, QueuedRename{W("c.txt"), W("c.log")}));
}

TEST(SetExtension, WhereNoNameChangesNoServiceIsCalled) {
  FakeHost host;
  host.selection = {host.AddFile(W("a.log")), host.AddFolder(W("dir"))};
  host.textAnswers = {{true, W("log")}};
  SetExtensionCommand(host);
  EXPECT_THAT(host.recorder.CallsOf({"GetService", "file operation."}), IsEmpty());
  ExpectAllReleased(host);
}

TEST(SetExtension, NothingSelectedIsSaidInTheLogAndNotAsked) {
  FakeHost host;
  host.focused = host.AddFile(W("f.txt"));
  SetExtensionCommand(host);
  EXPECT_THAT(host.recorder.CallsOf({"Log"}),
              ElementsAre("LogText(0, 10, \"Command failed - No files selected\")"));
  EXPECT_THAT(host.recorder.CallsOf({"AskText", "GetService"}), IsEmpty());
  ExpectAllReleased(host);
}

TEST(SetExtension, SelectionThatTheHostRefusesEndsItWithoutAWord) {
  for (const bool fills : {false, true}) {
    FakeHost host;
    host.focused = host.AddFile(W("f.txt"));
    host.SelectFiles({W("a.txt")});
    host.refusedRequest = kListSelectedItems;
    host.fillsRefusedLists = fills;
    BoxAnswers boxes;
    SetExtensionCommand(host);
    EXPECT_THAT(host.recorder.Calls(), Contains("FileListRequest(21215, list2, 18, 0)"));
    EXPECT_THAT(host.recorder.CallsOf({"Log", "AskText", "GetService", "MessageBox"}), IsEmpty());
    EXPECT_THAT(boxes.Boxes(), IsEmpty());
    ExpectAllReleased(host);
  }
}

TEST(SetExtension, HostWithoutListsEndsItWithoutAWord) {
  FakeHost host;
  host.focused = host.AddFile(W("f.txt"));
  host.SelectFiles({W("a.txt")});
  host.recorder.Refuse("CreateFileList");
  BoxAnswers boxes;
  SetExtensionCommand(host);
  EXPECT_THAT(host.recorder.Calls(), Contains("CreateFileList()"));
  EXPECT_THAT(host.recorder.CallsOf({"Log", "AskText", "GetService", "MessageBox"}), IsEmpty());
  EXPECT_THAT(boxes.Boxes(), IsEmpty());
}

TEST(SetExtension, FocusedItemOfARefusedRequestGivesNoDefault) {
  FakeHost host;
  host.focused = host.AddFile(W("f.txt"));
  host.SelectFiles({W("a.doc")});
  host.refusedRequest = kListFocusedItem;
  host.fillsRefusedLists = true;
  host.textAnswers = {{false, {}}};
  SetExtensionCommand(host);
  EXPECT_THAT(host.recorder.Calls(), Contains(Question("")));
}

TEST(SetExtension, DoesNotAskASecondTimeAndLogsNothing) {
  FakeHost host;
  host.SelectFiles({W("a.txt")});
  host.textAnswers = {{true, W("log")}};
  BoxAnswers boxes;
  SetExtensionCommand(host);
  EXPECT_THAT(boxes.Boxes(), IsEmpty());
  EXPECT_THAT(host.recorder.CallsOf({"MessageBox", "Log"}), IsEmpty());
}

TEST(SetExtension, NameThatBeginsWithItsOnlyDotHasAnEmptyBase) {
  EXPECT_THAT(RenamesOf({W(".profile")}, W("log")), ElementsAre(QueuedRename{W(".profile"), W(".log")}));
}

TEST(SetExtension, LongAndEmptyNamesDoNotCrash) {
  FakeHost host;
  host.focused = host.AddFile(W("a.") + WString(5000, W('x')));
  host.SelectFiles({WString(5000, W('a')), W("b.") + WString(5000, W('x')), W(""), W("c.txt")});
  host.textAnswers = {{true, WString(2000, W('e'))}};
  SetExtensionCommand(host);
  EXPECT_THAT(host.fileOperation.RunRenames(),
              Contains(QueuedRename{W("c.txt"), W("c.") + WString(1023, W('e'))}));
  ExpectAllReleased(host);
}

TEST(SetExtension, EveryRefusalOfTheHostEndsItQuietly) {
  ExpectEveryRefusalEndsQuietly(
      [](FakeHost& host) {
        host.focused = host.AddFile(W("f.txt"));
        host.SelectFiles({W("a.doc"), W("b.doc")});
        host.textAnswers = {{true, W("log")}};
      },
      [](FakeHost& host) {
        BoxAnswers boxes;
        SetExtensionCommand(host);
        EXPECT_THAT(boxes.UnexpectedBoxes(), IsEmpty());
        EXPECT_THAT(host.recorder.CallsOf({"LogMessage"}), IsEmpty());
      });
}
