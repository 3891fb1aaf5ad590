// The menu command Sort Lines from the selection to the sorted files. A function stands in for its dialog.
#include "linesorter/tool/sort_lines_command.h"

#include <gmock/gmock.h>

#include <stdexcept>

#include "frame/host/host_types.h"
#include "frame/services/message_texts.h"
#include "support/fake_host.h"
#include "support/refusals.h"
#include "support/scratch_folder.h"

using namespace Velmora::SDK;

namespace WQLineSorter {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

SortLinesDialog Ending(INT_PTR button) {
  return [button](IHostApp&, SortLinesForm&) { return button; };
}

SortLinesDialog MustNotBeShown() {
  return [](IHostApp&, SortLinesForm&) -> INT_PTR {
    ADD_FAILURE() << "the dialog was shown";
    return IDCANCEL;
  };
}

FakeConfig::Place PlaceOf(const WCHAR* key) { return {W("SortLines"), key}; }

class SortLinesCommandTest : public testing::Test {
 protected:
  SortLinesCommandTest() { host_.texts[kTextSortDlgSuffix] = W("_s"); }

  // Creates and selects a file.
  void Select(const WString& name, std::string_view bytes) {
    folder_.Write(name, bytes);
    items_.emplace_back(host_.recorder, folder_.Path() + W("\\"), name, FILE_ATTRIBUTE_ARCHIVE);
    host_.selection.push_back(&items_.back());
  }

  // Runs the command and answers the closing message.
  void Run(const SortLinesDialog& show) {
    host_.boxAnswers = {IDOK};
    SortLinesCommand(host_, show);
    ExpectAllReleased(host_);
  }

  ScratchFolder folder_;
  FakeHost host_;
  std::deque<FakeFileItem> items_;
};

TEST_F(SortLinesCommandTest, TakesTheSelectedFilesWithoutFolders) {
  Select(W("a.txt"), "b\na\n");
  Run(Ending(IDCANCEL));
  EXPECT_THAT(host_.recorder.CallsOf({"CreateFileList", "FileListRequest", "list1.Release"}),
              ElementsAre("CreateFileList()", "FileListRequest(21215, list1, 18, 0)", "list1.Release()"));
}

TEST_F(SortLinesCommandTest, WithNothingSelectedItSaysSoInABox) {
  SortLinesCommand(host_, MustNotBeShown());
  EXPECT_THAT(host_.recorder.CallsOf({"MessageBox"}),
              ElementsAre("MessageBox(\"T01900064\", \"T02440064\", 0x00000040)"));
  EXPECT_THAT(host_.recorder.CallsOf({"config.", "Log"}), IsEmpty());
  ExpectAllReleased(host_);
}

TEST_F(SortLinesCommandTest, ListOfARefusedRequestIsNotLookedAt) {
  Select(W("a.txt"), "b\na\n");
  host_.refusedRequest = kListSelectedItems;
  host_.fillsRefusedLists = true;
  SortLinesCommand(host_, MustNotBeShown());
  EXPECT_THAT(host_.recorder.CallsOf({"MessageBox", "item ", "config.", "list1.Get"}), IsEmpty());
  ExpectAllReleased(host_);
}

TEST_F(SortLinesCommandTest, WithoutAListNothingHappens) {
  host_.recorder.Refuse("CreateFileList");
  SortLinesCommand(host_, MustNotBeShown());
  EXPECT_THAT(host_.recorder.Calls(), ElementsAre("CreateFileList()"));
}

TEST_F(SortLinesCommandTest, FormBeginsWithTheFirstFileTheCountAndTheStoredOptions) {
  Select(W("one.txt"), "x\ny");
  Select(W("two.txt"), "z");
  host_.config.numbers = {{PlaceOf(W("KeepLinesTop")), 2}, {PlaceOf(W("Options")), 0x1104}};
  host_.config.texts = {{PlaceOf(W("CharMatch")), W(";")}};
  int shown = 0;
  Run([&](IHostApp& asked, SortLinesForm& form) -> INT_PTR {
    ++shown;
    EXPECT_EQ(&asked, &host_);
    EXPECT_EQ(form.fileCount, 2u);
    EXPECT_EQ(form.firstName, W("one.txt"));
    EXPECT_EQ(form.sample, W("x\r\ny"));
    EXPECT_EQ(form.targetName, W("*_s.*"));
    EXPECT_EQ(form.keepLinesTop, W("2"));
    EXPECT_EQ(form.sortBy, SortByItem);
    EXPECT_EQ(form.separator, W(";"));
    EXPECT_EQ(form.sortMethod, SortAsNumber);
    EXPECT_TRUE(form.reverse);
    EXPECT_TRUE(form.enabled.separator);
    EXPECT_FALSE(form.enabled.length);
    return IDCANCEL;
  });
  EXPECT_EQ(shown, 1);
}

TEST_F(SortLinesCommandTest, OneFileIsSuggestedUnderItsNameWithTheSuffix) {
  Select(W("one.txt"), "");
  Run([](IHostApp&, SortLinesForm& form) -> INT_PTR {
    EXPECT_EQ(form.targetName, W("one_s.txt"));
    EXPECT_EQ(form.newFileSuffix, W("_s"));
    return IDCANCEL;
  });
}

TEST_F(SortLinesCommandTest, WithAnEmptySuffixTextTheSourcesAreNotTheSuggestedTargets) {
  host_.texts[kTextSortDlgSuffix] = W("");
  Select(W("a.txt"), "b\na\n");
  Select(W("b.log"), "2\n1\n");
  host_.boxAnswers = {IDYES, IDYES, IDOK};
  SortLinesCommand(host_, Ending(IDOK));
  EXPECT_EQ(folder_.Read(W("a.txt")), "b\na\n");
  EXPECT_EQ(folder_.Read(W("a_sorted.txt")), "a\nb\n");
  EXPECT_EQ(folder_.Read(W("b.log")), "2\n1\n");
  EXPECT_EQ(folder_.Read(W("b_sorted.log")), "1\n2\n");
}

TEST_F(SortLinesCommandTest, WithoutTheSuffixTextTheSourceIsNotTheSuggestedTarget) {
  host_.recorder.Refuse("GetLanguageString");
  Select(W("a.txt"), "b\na\n");
  host_.boxAnswers = {IDYES, IDOK};
  SortLinesCommand(host_, Ending(IDOK));
  EXPECT_EQ(folder_.Read(W("a.txt")), "b\na\n");
  EXPECT_EQ(folder_.Read(W("a_sorted.txt")), "a\nb\n");
}

TEST_F(SortLinesCommandTest, AFirstFileThatIsGoneGivesAnEmptySample) {
  Select(W("one.txt"), "text");
  std::filesystem::remove(folder_.NativePath(W("one.txt")));
  Run([](IHostApp&, SortLinesForm& form) -> INT_PTR {
    EXPECT_EQ(form.sample, W(""));
    return IDCANCEL;
  });
}

TEST_F(SortLinesCommandTest, CancelStoresNothingAndSortsNothing) {
  Select(W("a.txt"), "b\na\n");
  SortLinesCommand(host_, [](IHostApp&, SortLinesForm& form) -> INT_PTR {
    form.reverse = true;
    form.targetName = W("other.txt");
    return IDCANCEL;
  });
  EXPECT_THAT(host_.config.numbers, IsEmpty());
  EXPECT_THAT(host_.config.texts, IsEmpty());
  EXPECT_THAT(host_.recorder.CallsOf({"Log", "MessageBox", "FileListRequest(21120"}), IsEmpty());
  EXPECT_THAT(folder_.Names(), ElementsAre(W("a.txt")));
  ExpectAllReleased(host_);
}

TEST_F(SortLinesCommandTest, OkSortsIntoTheSuggestedNewFile) {
  Select(W("a.txt"), "c\nb\na\n");
  Run(Ending(IDOK));
  EXPECT_EQ(folder_.Read(W("a.txt")), "c\nb\na\n");
  EXPECT_EQ(folder_.Read(W("a_s.txt")), "a\nb\nc\n");
  EXPECT_THAT(host_.recorder.CallsOf({"LogMessage"}),
              ElementsAre(StartsWith("LogMessage(0, 10, \"[SortLines] - Sorted lines in file : ")));
}

TEST_F(SortLinesCommandTest, OkSortsEachSelectedFileByThePattern) {
  Select(W("a.txt"), "c\nb\n");
  Select(W("b.log"), "2\n1\n");
  Run(Ending(IDOK));
  EXPECT_EQ(folder_.Read(W("a_s.txt")), "b\nc\n");
  EXPECT_EQ(folder_.Read(W("b_s.log")), "1\n2\n");
}

TEST_F(SortLinesCommandTest, WithABackupSeveralFilesAreEachSortedInPlace) {
  Select(W("a.txt"), "c\nb\n");
  Select(W("b.log"), "2\n1\n");
  Run([](IHostApp&, SortLinesForm& form) -> INT_PTR {
    const SortLinesForm before = form;
    form.saveAs = SaveKeepBackup;
    UpdateForChanges(form, before);
    return IDOK;
  });
  EXPECT_EQ(folder_.Read(W("a.txt")), "b\nc\n");
  EXPECT_EQ(folder_.Read(W("a.txt.bak")), "c\nb\n");
  EXPECT_EQ(folder_.Read(W("b.log")), "1\n2\n");
  EXPECT_EQ(folder_.Read(W("b.log.bak")), "2\n1\n");
}

TEST_F(SortLinesCommandTest, OkTakesWhatTheFormSays) {
  Select(W("a.txt"), "top\n1;10\n2;9\n3;100\n");
  Run([](IHostApp&, SortLinesForm& form) -> INT_PTR {
    form.keepLinesTop = W("1");
    form.sortBy = SortByItem;
    form.separator = W(";");
    form.item = W("2");
    form.sortMethod = SortAsNumber;
    form.reverse = true;
    form.targetName = W("sorted.txt");
    return IDOK;
  });
  EXPECT_EQ(folder_.Read(W("sorted.txt")), "top\n3;100\n1;10\n2;9\n");
}

TEST_F(SortLinesCommandTest, OkStoresAllEightKeysBeforeTheRun) {
  Select(W("a.txt"), "b\na\n");
  Run([](IHostApp&, SortLinesForm& form) -> INT_PTR {
    form.keepLinesTop = W("1");
    form.keepLinesBottom = W("2");
    form.startPosition = W("4");
    form.sortBy = SortByItem;
    form.separator = W("|");
    form.item = W("7");
    form.sortMethod = SortAsDate;
    form.dateFormat = W("%Y");
    return IDOK;
  });
  EXPECT_EQ(host_.config.numbers, (std::map<FakeConfig::Place, std::uint32_t>{
                                      {PlaceOf(W("KeepLinesTop")), 1},
                                      {PlaceOf(W("KeepLinesBottom")), 2},
                                      {PlaceOf(W("LineOffset")), 3},
                                      {PlaceOf(W("SubStringLen")), 0},
                                      {PlaceOf(W("LineItem")), 7},
                                      {PlaceOf(W("Options")), 0x1100204},
                                  }));
  EXPECT_EQ(host_.config.texts, (std::map<FakeConfig::Place, WString>{
                                    {PlaceOf(W("CharMatch")), W("|")},
                                    {PlaceOf(W("MatchFilter")), W("%Y")},
                                }));
  EXPECT_LT(host_.recorder.PositionOf("config.SetInt"), host_.recorder.PositionOf("LogMessage"));
}

TEST_F(SortLinesCommandTest, NextDialogBeginsWithWhatTheLastOneStored) {
  Select(W("a.txt"), "b\na\n");
  Run([](IHostApp&, SortLinesForm& form) -> INT_PTR {
    form.removeBlank = true;
    form.startPosition = W("3");
    return IDOK;
  });
  Run([](IHostApp&, SortLinesForm& form) -> INT_PTR {
    EXPECT_TRUE(form.removeBlank);
    EXPECT_EQ(form.startPosition, W("3"));
    return IDCANCEL;
  });
}

TEST_F(SortLinesCommandTest, LengthThatIsNoNumberLeavesTheCommandWithNothingStoredOrKept) {
  Select(W("a.txt"), "b\na\n");
  const auto show = [](IHostApp&, SortLinesForm& form) -> INT_PTR {
    form.sortBy = SortBySubstring;
    form.length = W("99999999999");
    return IDOK;
  };
  EXPECT_THROW(SortLinesCommand(host_, show), std::out_of_range);
  EXPECT_THAT(host_.config.numbers, IsEmpty());
  EXPECT_THAT(folder_.Names(), ElementsAre(W("a.txt")));
  ExpectAllReleased(host_);
}

TEST_F(SortLinesCommandTest, ListIsGivenBackOnceByTheRun) {
  Select(W("a.txt"), "b\na\n");
  Run(Ending(IDOK));
  EXPECT_THAT(host_.recorder.CallsOf({"list1.Release"}), ElementsAre("list1.Release()"));
  EXPECT_LT(host_.recorder.PositionOf("LogMessage"), host_.recorder.PositionOf("list1.Release"));
}

TEST(SortLinesRefusals, EveryRefusalOfTheHostEndsQuietly) {
  const ScratchFolder folder;
  std::deque<FakeFileItem> items;
  ExpectEveryRefusalEndsQuietly(
      [&](FakeHost& host) {
        folder.Write(W("a.txt"), "b\na\n");
        items.emplace_back(host.recorder, folder.Path() + W("\\"), W("a.txt"), FILE_ATTRIBUTE_ARCHIVE);
        host.selection = {&items.back()};
        host.boxAnswers = {IDYES, IDOK};
      },
      [&](FakeHost& host) {
        SortLinesCommand(host, Ending(IDOK));
        EXPECT_EQ(folder.Read(W("a.txt")), "b\na\n");
      });
}

}  // namespace
}  // namespace WQLineSorter
