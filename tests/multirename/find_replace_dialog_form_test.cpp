// The dialog of search pairs and its numbered lists.
#include "multirename/form/find_replace_dialog_form.h"

#include <gmock/gmock.h>

#include "multirename/panel_window.h"
#include "platform/windows_api.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class FindReplaceDialog : public testing::Test {
 protected:
  FindReplaceDialog() { host_.configFolder = W("C:\\config\\"); }

  void Open(SearchAndReplaceItems pairs = {}) {
    form_.emplace(host_, std::move(pairs));
    form_->Open(dialog_);
    host_.recorder.ClearCalls();
  }

  // Adds a list with this number to the file.
  void Keep(const WString& number, const WString& find, const WString& replace) {
    if (!root_) root_ = &host_.files.Make(W("C:\\config\\FindReplace.xml"));
    root_->Add(W("FindReplace"))
        .With(W("id"), number)
        .Add(W("item"))
        .With(W("find"), find)
        .With(W("replace"), replace);
  }

  std::vector<std::string> Notes() { return host_.recorder.CallsOf({"ShowTimedNote"}); }

  PanelHost host_;
  MemoryXmlNode* root_ = nullptr;
  DialogWindow dialog_;
  std::optional<FindReplaceDialogForm> form_;
};

TEST_F(FindReplaceDialog, HasItsTextsAndFourLinesOfHelp) {
  Open();
  EXPECT_EQ(dialog_[0].text, W("T000A0063"));
  EXPECT_EQ(dialog_[IDOK].text, W("M0:00080067"));
  EXPECT_EQ(dialog_[IDCANCEL].text, W("M0:00030067"));
  EXPECT_EQ(dialog_[kPairsLabel].text, W("T01A40064"));
  EXPECT_EQ(dialog_[kPairsHelp].text, W("T01A50064\r\nT01A60064\r\nT01A80064\r\nT01A90064"));
  EXPECT_EQ(dialog_.focus, kPairsText);
}

TEST_F(FindReplaceDialog, ShowsThePairsWithTheirQuotes) {
  Open({{W("a"), W("b")}, {W("\" c\""), W("")}});
  EXPECT_EQ(dialog_[kPairsText].text, W("a|b\r\n\" c\"|"));
}

TEST_F(FindReplaceDialog, OkTakesTheLinesAsPairs) {
  Open({{W("old"), W("pair")}});
  dialog_[kPairsText].text = W("a|b|c\r\n|nothing\r\nall find\r\n\"\t d \"|\" e\"");
  form_->Press(IDOK);
  EXPECT_EQ(dialog_.result, IDOK);
  EXPECT_THAT(form_->Pairs(),
              ElementsAre(Pair(W("a"), W("b|c")), Pair(W("all find"), W("")), Pair(W(" d "), W(" e"))));
}

TEST_F(FindReplaceDialog, CancelChangesNothing) {
  Open({{W("a"), W("b")}});
  dialog_[kPairsText].text = W("x|y");
  form_->Press(IDCANCEL);
  EXPECT_EQ(dialog_.result, IDCANCEL);
  EXPECT_THAT(form_->Pairs(), ElementsAre(Pair(W("a"), W("b"))));
}

TEST_F(FindReplaceDialog, AFunctionKeyLoadsItsListWithANotice) {
  Keep(W("3"), W("x"), W("y"));
  Open({{W("a"), W("b")}});
  form_->PressFunctionKey(kPairsText, 3, false);
  EXPECT_EQ(dialog_[kPairsText].text, W("x|y"));
  EXPECT_THAT(Notes(), ElementsAre("ShowTimedNote(\"T01AF00643\", 1500, 2)"));
}

TEST_F(FindReplaceDialog, NoticesBelongToTheDialog) {
  const MessageWindow window;
  dialog_.window = window.Handle();
  Keep(W("3"), W("x"), W("y"));
  Open();
  form_->PressFunctionKey(kPairsText, 3, false);
  form_->PressFunctionKey(kPairsText, 3, true);
  ASSERT_TRUE(dialog_.window);
  EXPECT_THAT(host_.noteWindows, ElementsAre(dialog_.window, dialog_.window));
}

TEST_F(FindReplaceDialog, AMissingListDoesAndShowsNothing) {
  Keep(W("3"), W("x"), W("y"));
  Open({{W("a"), W("b")}});
  form_->PressFunctionKey(kPairsText, 4, false);
  EXPECT_EQ(dialog_[kPairsText].text, W("a|b"));
  EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(FindReplaceDialog, ShiftSavesTheLinesAsAListAtOnce) {
  Keep(W("3"), W("x"), W("y"));
  Open();
  dialog_[kPairsText].text = W("m|n");
  form_->PressFunctionKey(kPairsText, 24, true);
  EXPECT_THAT(Notes(), ElementsAre("ShowTimedNote(\"T01B0006424\", 1500, 2)"));
  EXPECT_EQ(host_.files.saved[W("C:\\config\\FindReplace.xml")],
            "<MultiRename><FindReplace id='3'><item find='x' replace='y'/></FindReplace>"
            "<FindReplace id='24'><item find='m' replace='n'/></FindReplace></MultiRename>");
  dialog_[kPairsText].text = W("");
  form_->PressFunctionKey(kPairsText, 24, false);
  EXPECT_EQ(dialog_[kPairsText].text, W("m|n"));
}

TEST_F(FindReplaceDialog, AnEmptyFieldIsSavedAsAnEmptyListThatIsNotLoaded) {
  Open();
  form_->PressFunctionKey(kPairsText, 1, true);
  EXPECT_EQ(host_.files.saved[W("C:\\config\\FindReplace.xml")],
            "<MultiRename><FindReplace id='1'/></MultiRename>");
  host_.recorder.ClearCalls();
  dialog_[kPairsText].text = W("kept");
  form_->PressFunctionKey(kPairsText, 1, false);
  EXPECT_EQ(dialog_[kPairsText].text, W("kept"));
  EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(FindReplaceDialog, KeysBeyondF24AndOfOtherFieldsDoNothing) {
  Keep(W("25"), W("x"), W("y"));
  Keep(W("1"), W("x"), W("y"));
  Open();
  form_->PressFunctionKey(kPairsText, 25, false);
  form_->PressFunctionKey(kPairsText, 0, true);
  form_->PressFunctionKey(kPairsLabel, 1, false);
  EXPECT_EQ(dialog_[kPairsText].text, W(""));
  EXPECT_THAT(Notes(), IsEmpty());
  EXPECT_TRUE(host_.files.saved.empty());
}

TEST_F(FindReplaceDialog, EachOpeningReadsTheFileAnew) {
  Open();
  Keep(W("2"), W("later"), W(""));
  form_->PressFunctionKey(kPairsText, 2, false);
  EXPECT_EQ(dialog_[kPairsText].text, W(""));
  Open();
  form_->PressFunctionKey(kPairsText, 2, false);
  EXPECT_EQ(dialog_[kPairsText].text, W("later|"));
}

TEST_F(FindReplaceDialog, ADroppedFileReplacesTheText) {
  Open({{W("a"), W("b")}});
  host_.fileText = W("x|y\r\nz");
  form_->DropFile(kPairsText, W("C:\\pairs.txt"));
  EXPECT_EQ(dialog_[kPairsText].text, W("x|y\r\nz"));
  EXPECT_THAT(host_.readFiles, ElementsAre(Pair(W("C:\\pairs.txt"), 8192u)));
}

TEST_F(FindReplaceDialog, AFileThatCannotBeReadLeavesTheTextWithoutAMessage) {
  Open({{W("a"), W("b")}});
  form_->DropFile(kPairsText, W("C:\\missing.txt"));
  EXPECT_EQ(dialog_[kPairsText].text, W("a|b"));
  EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(FindReplaceDialog, ADropOutsideTheFieldIsLeftToOthers) {
  Open();
  form_->DropFile(kPairsLabel, W("C:\\pairs.txt"));
  EXPECT_THAT(host_.readFiles, IsEmpty());
}

TEST_F(FindReplaceDialog, TheTextOfAFileAndItsPathAreCut) {
  Open();
  host_.fileText = WString(9000, W('t'));
  form_->DropFile(kPairsText, WString(300, W('p')));
  EXPECT_EQ(dialog_[kPairsText].text, WString(8191, W('t')));
  EXPECT_EQ(host_.readFiles[0].first, WString(260, W('p')));
}

TEST_F(FindReplaceDialog, ATextWithoutAnEndIsCutAtItsBuffer) {
  Open();
  host_.fillsBuffers = true;
  form_->DropFile(kPairsText, W("C:\\pairs.txt"));
  EXPECT_EQ(dialog_[kPairsText].text, WString(8191, W('n')));
}

TEST(FunctionKeys, AreCountedFromF1ToF24) {
  EXPECT_EQ(FunctionKeyNumber(0x6F), 0);
  EXPECT_EQ(FunctionKeyNumber(0x70), 1);
  EXPECT_EQ(FunctionKeyNumber(0x79), 10);
  EXPECT_EQ(FunctionKeyNumber(0x87), 24);
  EXPECT_EQ(FunctionKeyNumber(0x88), 0);
  EXPECT_EQ(FunctionKeyNumber(0), 0);
}

}  // namespace
}  // namespace Velmora::SDK
