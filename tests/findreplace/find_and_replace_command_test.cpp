// The menu command Find and Replace from the selection to the changed files. A function stands in for its
// dialog. Each file contains one match and the runs are silent; questions are tested elsewhere.
#include "findreplace/tool/find_and_replace_command.h"

#include <gmock/gmock.h>

#include "frame/host/host_types.h"
#include "frame/services/message_texts.h"
#include "support/fake_host.h"
#include "support/refusals.h"
#include "support/scratch_folder.h"

using namespace Velmora::SDK;

namespace QXFindAndReplace {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

FindAndReplaceDialog Ending(INT_PTR button) {
  return [button](IHostApp&, FindAndReplaceForm&) { return button; };
}

FindAndReplaceDialog MustNotBeShown() {
  return [](IHostApp&, FindAndReplaceForm&) -> INT_PTR {
    ADD_FAILURE() << "the dialog was shown";
    return IDCANCEL;
  };
}

// Returns a dialog that is closed with OK, for a silent run that replaces these texts.
FindAndReplaceDialog Replacing(const WString& find, const WString& replace) {
  return [=](IHostApp&, FindAndReplaceForm& form) -> INT_PTR {
    form.find = find;
    form.replace = replace;
    form.silent = true;
    return IDOK;
  };
}

FakeConfig::Place PlaceOf(const WCHAR* key) { return {W("FindReplace"), key}; }

class FindAndReplaceCommandTest : public testing::Test {
 protected:
  FindAndReplaceCommandTest() { host_.titles[kTextFindDlgNewFile] = W("_x"); }

  // Creates and selects a file.
  void Select(const WString& name, std::string_view bytes) {
    folder_.Write(name, bytes);
    items_.emplace_back(host_.recorder, folder_.Path() + W("\\"), name, FILE_ATTRIBUTE_ARCHIVE);
    host_.selection.push_back(&items_.back());
  }

  void Run(const FindAndReplaceDialog& show) {
    FindAndReplaceCommand(host_, show);
    ExpectAllReleased(host_);
  }

  ScratchFolder folder_;
  FakeHost host_;
  std::deque<FakeFileItem> items_;
};

TEST_F(FindAndReplaceCommandTest, TakesTheSelectedFilesWithoutFolders) {
  Select(W("a.txt"), "a");
  Run(Ending(IDCANCEL));
  EXPECT_THAT(host_.recorder.CallsOf({"CreateFileList", "FileListRequest", "list1.Release"}),
              ElementsAre("CreateFileList()", "FileListRequest(21215, list1, 18, 0)", "list1.Release()"));
}

TEST_F(FindAndReplaceCommandTest, WithNothingSelectedItSaysSoInABox) {
  Run(MustNotBeShown());
  EXPECT_THAT(host_.recorder.CallsOf({"MessageBox", "list1.Release"}),
              ElementsAre("list1.Release()", "MessageBox(\"T023A0064\", \"T02440064\", 0x00000040)"));
  EXPECT_THAT(host_.recorder.CallsOf({"config.", "Log"}), IsEmpty());
}

TEST_F(FindAndReplaceCommandTest, ListOfARefusedRequestIsNotLookedAt) {
  Select(W("a.txt"), "a");
  host_.refusedRequest = kListSelectedItems;
  host_.fillsRefusedLists = true;
  Run(MustNotBeShown());
  EXPECT_THAT(host_.recorder.CallsOf({"MessageBox", "item ", "config.", "list1.Get"}), IsEmpty());
}

TEST_F(FindAndReplaceCommandTest, WithoutAListNothingHappens) {
  host_.recorder.Refuse("CreateFileList");
  FindAndReplaceCommand(host_, MustNotBeShown());
  EXPECT_THAT(host_.recorder.Calls(), ElementsAre("CreateFileList()"));
}

TEST_F(FindAndReplaceCommandTest, FirstUseIsOneTextIgnoringCaseWithABackupOfTheFile) {
  Select(W("one.txt"), "a");
  int shown = 0;
  Run([&](IHostApp& asked, FindAndReplaceForm& form) -> INT_PTR {
    ++shown;
    EXPECT_EQ(&asked, &host_);
    EXPECT_EQ(form.fileCount, 1u);
    EXPECT_EQ(form.findMode, 1);
    EXPECT_EQ(form.saveMode, 0x20000000);
    EXPECT_TRUE(form.ignoreCase);
    EXPECT_EQ(form.targetName, W("one.txt"));
    EXPECT_FALSE(form.targetNameEnabled);
    EXPECT_EQ(form.find, W(""));
    EXPECT_EQ(form.suffix, W("_x"));
    return IDCANCEL;
  });
  EXPECT_EQ(shown, 1);
}

TEST_F(FindAndReplaceCommandTest, SeveralFilesBeginWithThePatternThatKeepsTheirNames) {
  Select(W("a.txt"), "a");
  Select(W("b.txt"), "a");
  Select(W("c.txt"), "a");
  Run([](IHostApp&, FindAndReplaceForm& form) -> INT_PTR {
    EXPECT_EQ(form.fileCount, 3u);
    EXPECT_EQ(form.startName, W("*.*"));
    EXPECT_EQ(form.targetName, W("*.*"));
    const FindAndReplaceForm before = form;
    form.saveMode = SaveAsNew;
    UpdateForChanges(form, before);
    EXPECT_EQ(form.targetName, W("*_x.*"));
    return IDCANCEL;
  });
}

TEST_F(FindAndReplaceCommandTest, StoredOptionsAreShownInTheForm) {
  Select(W("a.txt"), "a");
  host_.config.numbers = {{PlaceOf(W("Options")), 0x10002804}};
  host_.config.texts = {{PlaceOf(W("Find")), W("x\r\ny")}, {PlaceOf(W("ReplaceWith")), W("z")}};
  Run([](IHostApp&, FindAndReplaceForm& form) -> INT_PTR {
    EXPECT_EQ(form.findMode, 4);
    EXPECT_EQ(form.saveMode, 0x10000000);
    EXPECT_TRUE(form.wildcard && form.forceUtf8);
    EXPECT_FALSE(form.ignoreCase || form.silent);
    EXPECT_EQ(form.find, W("x\r\ny"));
    EXPECT_EQ(form.replace, W("z"));
    EXPECT_EQ(form.targetName, W("a_x.txt"));
    return IDCANCEL;
  });
}

TEST_F(FindAndReplaceCommandTest, CancelStoresNothingAndChangesNothing) {
  Select(W("a.txt"), "old");
  Run([](IHostApp&, FindAndReplaceForm& form) -> INT_PTR {
    form.find = W("old");
    form.silent = true;
    return IDCANCEL;
  });
  EXPECT_THAT(host_.config.numbers, IsEmpty());
  EXPECT_THAT(host_.config.texts, IsEmpty());
  EXPECT_THAT(host_.recorder.CallsOf({"Log", "MessageBox", "FileListRequest(21120"}), IsEmpty());
  EXPECT_EQ(folder_.Read(W("a.txt")), "old");
}

TEST_F(FindAndReplaceCommandTest, WithoutATextToFindABoxSaysSoAndNothingIsStored) {
  Select(W("a.txt"), "old");
  Run(Replacing(W(""), W("new")));
  EXPECT_THAT(host_.recorder.CallsOf({"MessageBox", "Log", "config.Set"}),
              ElementsAre("MessageBox(\"T023A0064\", \"T02420064\", 0x00000040)"));
  EXPECT_THAT(folder_.Names(), ElementsAre(W("a.txt")));
}

TEST_F(FindAndReplaceCommandTest, OkReplacesInTheFileAndKeepsABackup) {
  Select(W("a.txt"), "an OLD text\n");
  Run(Replacing(W("old"), W("new")));
  EXPECT_EQ(folder_.Read(W("a.txt")), "an new text\n");
  EXPECT_EQ(folder_.Read(W("a.txt.bak")), "an OLD text\n");
}

TEST_F(FindAndReplaceCommandTest, OkWritesTheNewFileOfTheName) {
  Select(W("a.txt"), "old\n");
  Run([](IHostApp& host, FindAndReplaceForm& form) -> INT_PTR {
    form.saveMode = SaveAsNew;
    form.targetName = W("mine.lst");
    return Replacing(W("old"), W("new"))(host, form);
  });
  EXPECT_EQ(folder_.Read(W("a.txt")), "old\n");
  EXPECT_EQ(folder_.Read(W("mine.lst")), "new\n");
}

TEST_F(FindAndReplaceCommandTest, OkWritesANewFileForEachByThePattern) {
  Select(W("a.txt"), "old\n");
  Select(W("b.log"), "old\n");
  Run([](IHostApp& host, FindAndReplaceForm& form) -> INT_PTR {
    const FindAndReplaceForm before = form;
    form.saveMode = SaveAsNew;
    UpdateForChanges(form, before);
    return Replacing(W("old"), W("new"))(host, form);
  });
  EXPECT_EQ(folder_.Read(W("a_x.txt")), "new\n");
  EXPECT_EQ(folder_.Read(W("b_x.log")), "new\n");
}

TEST_F(FindAndReplaceCommandTest, OkStoresAllThreeKeysBeforeTheRun) {
  Select(W("a.txt"), "old");
  host_.config.numbers = {{PlaceOf(W("Options")), 0xA0000101}};
  Run(Replacing(W("old"), W("new")));
  EXPECT_EQ(host_.config.numbers,
            (std::map<FakeConfig::Place, std::uint32_t>{{PlaceOf(W("Options")), 0x20001101}}));
  EXPECT_EQ(host_.config.texts, (std::map<FakeConfig::Place, WString>{
                                    {PlaceOf(W("Find")), W("old")},
                                    {PlaceOf(W("ReplaceWith")), W("new")},
                                }));
  EXPECT_LT(host_.recorder.PositionOf("config.SetInt"), host_.recorder.PositionOf("LogMessage"));
}

TEST_F(FindAndReplaceCommandTest, LongTextsAreStoredAndSearchedAsTheyWereCut) {
  Select(W("a.txt"), std::string(1023, 'f') + "!\n");
  Run(Replacing(WString(1023, W('f')) + W("?"), W("x")));
  EXPECT_EQ(host_.config.texts[PlaceOf(W("Find"))], WString(1023, W('f')));
  EXPECT_EQ(folder_.Read(W("a.txt")), "x!\n");
}

TEST_F(FindAndReplaceCommandTest, WithoutSettingsItStillRuns) {
  host_.recorder.Refuse("GetConfig");
  Select(W("a.txt"), "old");
  Run(Replacing(W("old"), W("new")));
  EXPECT_EQ(folder_.Read(W("a.txt")), "new");
}

TEST_F(FindAndReplaceCommandTest, ListIsGivenBackOnceByTheRun) {
  Select(W("a.txt"), "old");
  Run(Replacing(W("old"), W("new")));
  EXPECT_THAT(host_.recorder.CallsOf({"list1.Release"}), ElementsAre("list1.Release()"));
  EXPECT_LT(host_.recorder.PositionOf("LogMessage"), host_.recorder.PositionOf("list1.Release"));
}

TEST(FindAndReplaceRefusals, EveryRefusalOfTheHostEndsQuietlyAndLosesNoData) {
  const ScratchFolder folder;
  std::deque<FakeFileItem> items;
  ExpectEveryRefusalEndsQuietly(
      [&](FakeHost& host) {
        folder.Write(W("a.txt"), "old");
        std::filesystem::remove(folder.NativePath(W("a.txt.bak")));
        items.emplace_back(host.recorder, folder.Path() + W("\\"), W("a.txt"), FILE_ATTRIBUTE_ARCHIVE);
        host.selection = {&items.back()};
      },
      [&](FakeHost& host) {
        FindAndReplaceCommand(host, Replacing(W("old"), W("new")));
        const bool isReplaced = folder.Exists(W("a.txt.bak"));
        EXPECT_EQ(folder.Read(W("a.txt")), isReplaced ? "new" : "old");
      });
}

}  // namespace
}  // namespace QXFindAndReplace
