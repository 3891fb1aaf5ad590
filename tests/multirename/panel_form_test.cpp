// The rule panel: its fields and their defaults, what each control does and posts, and which controls are
// enabled when.
#include "multirename/form/panel_form.h"

#include <gmock/gmock.h>

#include "multirename/engine/rename_worker.h"
#include "multirename/form/find_replace_dialog_form.h"
#include "multirename/form/tag_dialog_form.h"
#include "multirename/form/undo_manager_form.h"
#include "multirename/panel_window.h"
#include "platform/windows_api.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class Panel : public PanelTest {
 protected:
  // Opens the window and clears the calls and messages of the opening.
  void OpenPanel(const std::vector<WString>& names = {W("a.t"), W("b.t")}) {
    Open(names);
    host_.recorder.ClearCalls();
  }

  std::vector<std::vector<WString>> PairCells() { return view[kPairList].rows; }

  // Returns those of these controls that are enabled.
  std::vector<int> EnabledOf(const std::vector<int>& controls) {
    std::vector<int> enabled;
    for (const int control : controls) {
      if (view.IsEnabled(control)) enabled.push_back(control);
    }
    return enabled;
  }

  // The controls that the user can operate, in the order of the panel.
  const std::vector<int> all_ = {
      kNameTemplate,  kNameTags,    kExtensionTemplate, kExtensionTags, kCaseBox,          kStartAt,
      kStepBy,        kDigits,      kPairList,          kPairFind,      kPairReplace,      kPairAdd,
      kPairDialog,    kPartsBox,    kRegexBox,          kReplaceAllBox, kCaseSensitiveBox, kProfileBox,
      kDeleteProfile, kSaveUndoBox, kLivePreviewBox,    kResetButton,   kUndoButton,       kUndoManagerButton,
      kStartButton,   kCloseButton};
};

TEST_F(Panel, ControlsHaveTheirTexts) {
  OpenPanel();
  const std::map<int, WString> texts = {
      {kNameTemplateLabel, W("T00650064")}, {kExtensionTemplateLabel, W("T00660064")},
      {kCaseBoxLabel, W("T00670064")},      {kCounterGroup, W("T006E0064")},
      {kStartAtLabel, W("T006A0064")},      {kStepByLabel, W("T006B0064")},
      {kDigitsLabel, W("T006C0064")},       {kSearchGroup, W("T006F0064")},
      {kPartsName, W("T006F0064")},         {kRegexBox, W("T00740064")},
      {kReplaceAllBox, W("T00730064")},     {kCaseSensitiveBox, W("T00720064")},
      {kProfileGroup, W("T006D0064")},      {kSaveUndoBox, W("T00700064")},
      {kLivePreviewBox, W("T00710064")},    {kResetButton, W("T00820064")},
      {kUndoButton, W("T00770064")},        {kStartButton, W("T00750064")},
      {kCloseButton, W("T00760064")},       {kPairAdd, W("M0:00150067")}};
  for (const auto& [control, text] : texts) EXPECT_EQ(view[control].text, text) << control;
  // These controls have their texts in the resource.
  for (const int control : {kNameTags, kExtensionTags, kPairDialog, kDeleteProfile, kUndoManagerButton})
    EXPECT_EQ(view[control].text, W("")) << control;
  EXPECT_EQ(frameView.title, W("T000A0063"));
}

TEST_F(Panel, TheNameOfThePartsBoxIsTheTextOfItsGroupWithoutTheAccessKey) {
  host_.texts[kRenameTextSearch] = W("Searc&h and Replace");
  OpenPanel();
  EXPECT_EQ(view[kSearchGroup].text, W("Searc&h and Replace"));
  EXPECT_EQ(view[kPartsName].text, W("Search and Replace"));
}

TEST_F(Panel, ControlsHaveTheirDefaults) {
  OpenPanel();
  EXPECT_EQ(view[kNameTemplate].text, W("[N]"));
  EXPECT_EQ(view[kExtensionTemplate].text, W("[E]"));
  EXPECT_EQ(view[kStartAt].text, W("1"));
  EXPECT_EQ(view[kStepBy].text, W("1"));
  EXPECT_EQ(view[kDigits].text, W("2"));
  for (const int box : {kCaseBox, kPartsBox, kProfileBox}) EXPECT_EQ(view[box].selectedLine, 0) << box;
  EXPECT_THAT(PairCells(), IsEmpty());
  EXPECT_EQ(view[kPairFind].text, W(""));
  EXPECT_EQ(view[kPairReplace].text, W(""));
  const std::map<int, bool> checks = {{kRegexBox, false},
                                      {kReplaceAllBox, true},
                                      {kCaseSensitiveBox, false},
                                      {kSaveUndoBox, true},
                                      {kLivePreviewBox, true}};
  for (const auto& [control, isChecked] : checks) EXPECT_EQ(view[control].isChecked, isChecked) << control;
}

TEST_F(Panel, BoxesHaveTheirLinesAndThePairsTheirColumns) {
  OpenPanel();
  EXPECT_THAT(view[kCaseBox].lines,
              ElementsAre(W("T00C90064"), W("T00CA0064"), W("T00CB0064"), W("T00CC0064"), W("T00CD0064"),
                          W("T00CE0064"), W("T00CF0064"), W("T00D00064"), W("T00D10064")));
  EXPECT_THAT(view[kPartsBox].lines, ElementsAre(W("T00DC0064"), W("T00DD0064"), W("T00DE0064")));
  EXPECT_THAT(view[kProfileBox].lines, ElementsAre(W("T00FA0064"), W("T00FB0064")));
  EXPECT_THAT(view.Columns(kPairList), ElementsAre(Pair(W("T00680064"), 130), Pair(W("T00690064"), 130)));
}

TEST_F(Panel, ControlsHaveTheirToolTips) {
  OpenPanel();
  const std::map<int, WString> tips = {
      {kStartButton, W("L00750064")},      {kCloseButton, W("L00760064")},
      {kUndoButton, W("L00770064")},       {kUndoManagerButton, W("L00780064")},
      {kResetButton, W("L00820064")},      {kStartAt, W("L006A0064")},
      {kStepBy, W("L006B0064")},           {kDigits, W("L006C0064")},
      {kCaseSensitiveBox, W("L00720064")}, {kRegexBox, W("L00740064")},
      {kReplaceAllBox, W("L00730064")},    {kSaveUndoBox, W("L00700064")},
      {kLivePreviewBox, W("L00710064")},   {kDeleteProfile, W("L00790064")},
      {kProfileBox, W("L006D0064")},       {kCaseBox, W("L00670064")},
      {kNameTags, W("L007A0064")},         {kExtensionTags, W("L007A0064")},
      {kNameTemplate, W("L00650064")},     {kExtensionTemplate, W("L00660064")}};
  EXPECT_EQ(view.tips, tips);
  EXPECT_EQ(kTipDelay, 1000u);
  EXPECT_EQ(kTipDuration, 10000u);
  EXPECT_EQ(kTipDelayBetween, 500u);
}

TEST_F(Panel, TheOpenedWindowPreviewsItsRows) {
  Open({W("a.t")});
  EXPECT_THAT(NewNames(), ElementsAre(W("a.t")));
  EXPECT_EQ(engine_->items.size(), 1u);
  EXPECT_EQ(engine_->notifyWindow, view.Window());
}

TEST_F(Panel, AChangeOfARulePostsOneUpdate) {
  OpenPanel();
  for (const int control :
       {kNameTemplate, kExtensionTemplate, kStartAt, kStepBy, kDigits, kCaseBox, kPartsBox}) {
    form.Change(control);
    EXPECT_THAT(Waiting(), ElementsAre(MRM_UPDATE_PREVIEW)) << control;
  }
}

TEST_F(Panel, OtherChangesPostNothing) {
  OpenPanel();
  for (const int control : std::initializer_list<int>{kPairFind, kPairReplace, kPairList, kProfileGroup, 0})
    form.Change(control);
  for (const int control : std::initializer_list<int>{kSaveUndoBox, kPairList, kCaseBox, 0, 9999})
    form.Press(control);
  EXPECT_THAT(Waiting(), IsEmpty());
}

TEST_F(Panel, AClickOnLivePreviewPostsTheUpdate) {
  OpenPanel();
  Check(kLivePreviewBox, false);
  EXPECT_THAT(Waiting(), ElementsAre(MRM_UPDATE_PREVIEW));
}

TEST_F(Panel, TheSearchBoxesUpdateAtOnceAndPostNothingOfTheirOwn) {
  OpenPanel({W("Aa.t")});
  view[kPairFind].text = W("a");
  view[kPairReplace].text = W("x");
  form.Press(kPairAdd);
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("xx.t")));
  Check(kCaseSensitiveBox, true);
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_THAT(NewNames(), ElementsAre(W("Ax.t")));
  EXPECT_THAT(Waiting(), ElementsAre(MRM_ROWS_CHANGED, MRM_RUN_FINISHED));
  Check(kCaseSensitiveBox, false);
  Check(kReplaceAllBox, false);
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_THAT(NewNames(), ElementsAre(W("xa.t")));
  Check(kRegexBox, true);  // replaces every match, regardless of "Replace all"
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_THAT(NewNames(), ElementsAre(W("xx.t")));
  for (const UINT message : Waiting()) EXPECT_NE(message, MRM_UPDATE_PREVIEW);
}

TEST_F(Panel, TheRulesOfAllControlsReachTheNames) {
  OpenPanel({W("Pic.JPG"), W("Two.JPG")});
  Type(kNameTemplate, W("[N]_[C]"));
  Type(kExtensionTemplate, W("[E]x"));
  Type(kStartAt, W("7"));
  Type(kStepBy, W("3"));
  Type(kDigits, W("3"));
  Choose(kCaseBox, 1);  // lower case
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("pic_007.jpgx"), W("two_010.jpgx")));
  view[kPairFind].text = W("p");
  view[kPairReplace].text = W("Q");
  form.Press(kPairAdd);
  Choose(kPartsBox, 1);
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("Qic_007.jpgx"), W("two_010.jpgx")));
  Choose(kPartsBox, 2);
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("pic_007.jQgx"), W("two_010.jQgx")));
}

TEST_F(Panel, EachLineOfTheCaseBoxHasItsRule) {
  OpenPanel({W("aB cD.eF")});
  const std::vector<WString> names = {W("aB cD.eF"), W("ab cd.ef"), W("AB CD.EF"),
                                      W("ab cd.eF"), W("AB CD.eF"), W("aB cD.ef"),
                                      W("aB cD.EF"), W("Ab Cd.eF"), W("Ab cd.eF")};
  for (int line = 0; line < 9; ++line) {
    Choose(kCaseBox, line);
    Settle();
    EXPECT_THAT(NewNames(), ElementsAre(names[static_cast<std::size_t>(line)])) << line;
  }
}

// The search pairs.

TEST_F(Panel, AddAppendsARowEmptiesTheFieldsAndPosts) {
  OpenPanel();
  view[kPairFind].text = W("a");
  view[kPairReplace].text = W("b");
  form.Press(kPairAdd);
  EXPECT_THAT(PairCells(), ElementsAre(ElementsAre(W("a"), W("b"))));
  EXPECT_EQ(view[kPairFind].text, W(""));
  EXPECT_EQ(view[kPairReplace].text, W(""));
  EXPECT_THAT(Waiting(), ElementsAre(MRM_UPDATE_PREVIEW));
  view[kPairFind].text = W("c");
  form.Press(kPairAdd);
  EXPECT_THAT(PairCells(), ElementsAre(ElementsAre(W("a"), W("b")), ElementsAre(W("c"), W(""))));
}

TEST_F(Panel, AddWithoutAFindTextDoesNothing) {
  OpenPanel();
  view[kPairReplace].text = W("b");
  form.Press(kPairAdd);
  EXPECT_THAT(PairCells(), IsEmpty());
  EXPECT_EQ(view[kPairReplace].text, W("b"));
  EXPECT_THAT(Waiting(), IsEmpty());
}

TEST_F(Panel, AddPutsQuotesAroundBlanksAtTheEnds) {
  OpenPanel({W("a b.t")});
  view[kPairFind].text = W(" b");
  view[kPairReplace].text = W("c ");
  form.Press(kPairAdd);
  EXPECT_THAT(PairCells(), ElementsAre(ElementsAre(W("\" b\""), W("\"c \""))));
  // The search pair is used without the quotes.
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("ac .t")));
}

TEST_F(Panel, AddReads255CharactersOfAField) {
  OpenPanel();
  view[kPairFind].text = WString(255, W('a')) + W("b");
  view[kPairReplace].text = WString(256, W('c'));
  form.Press(kPairAdd);
  EXPECT_EQ(PairCells()[0][0], WString(255, W('a')));
  EXPECT_EQ(PairCells()[0][1], WString(255, W('c')));
}

TEST_F(Panel, TheSearchDialogReplacesThePairsAndPosts) {
  OpenPanel();
  view[kPairFind].text = W(" a");
  form.Press(kPairAdd);
  Settle();
  view.user = [](DialogForm& dialogForm, DialogWindow& dialog) {
    EXPECT_EQ(dialog[kPairsText].text, W("\" a\"|"));
    dialog[kPairsText].text = W(" x|y\r\nz");
    dialogForm.Press(IDOK);
  };
  form.Press(kPairDialog);
  EXPECT_THAT(view.dialogs, ElementsAre(kFindReplaceDialog));
  EXPECT_THAT(PairCells(), ElementsAre(ElementsAre(W("\" x\""), W("y")), ElementsAre(W("z"), W(""))));
  EXPECT_THAT(Waiting(), ElementsAre(MRM_UPDATE_PREVIEW));
}

TEST_F(Panel, TheSearchDialogsCancelChangesNothing) {
  OpenPanel();
  view[kPairFind].text = W("a");
  form.Press(kPairAdd);
  Settle();
  view.user = [](DialogForm& dialogForm, DialogWindow& dialog) {
    dialog[kPairsText].text = W("x|y");
    dialogForm.Press(IDCANCEL);
  };
  form.Press(kPairDialog);
  EXPECT_THAT(PairCells(), ElementsAre(ElementsAre(W("a"), W(""))));
  EXPECT_THAT(Waiting(), IsEmpty());
}

TEST_F(Panel, ADoubleClickOnThePairsOpensTheSearchDialog) {
  OpenPanel();
  view.user = [](DialogForm& dialogForm, DialogWindow&) { dialogForm.Press(IDCANCEL); };
  form.DoubleClick(kPairList);
  EXPECT_THAT(view.dialogs, ElementsAre(kFindReplaceDialog));
  form.DoubleClick(kNameTemplate);
  EXPECT_EQ(view.dialogs.size(), 1u);
}

// The tag menu.

TEST_F(Panel, TheTagMenuHasItsLines) {
  OpenPanel();
  form.Press(kNameTags);
  ASSERT_EQ(view.menus.size(), 1u);
  EXPECT_EQ(view.menus[0].first, kNameTags);
  std::vector<std::pair<int, WString>> lines;
  for (const MenuLine& line : view.menus[0].second) lines.emplace_back(line.number, line.text);
  EXPECT_THAT(lines, ElementsAre(Pair(1, W("T012D0064")), Pair(2, W("T012E0064")), Pair(3, W("T012F0064")),
                                 Pair(11, W("T01360064")), Pair(0, W("")), Pair(4, W("T01300064")),
                                 Pair(5, W("T01310064")), Pair(6, W("T01320064")), Pair(0, W("")),
                                 Pair(7, W("T01330064")), Pair(8, W("T01340064")), Pair(9, W("T01350064")),
                                 Pair(0, W("")), Pair(10, W("T01400064"))));
  form.Press(kExtensionTags);
  EXPECT_EQ(view.menus[1].first, kExtensionTags);
}

TEST_F(Panel, AChosenTagIsAppendedWhereverTheCaretIsAndPreviewedAtOnce) {
  OpenPanel({W("a.t")});
  const std::vector<std::pair<int, WString>> tags = {
      {1, W("[N]")}, {2, W("[E]")}, {3, W("[C]")}, {11, W("[F]")}, {4, W("[Y]")},
      {5, W("[M]")}, {6, W("[D]")}, {7, W("[h]")}, {8, W("[m]")},  {9, W("[s]")}};
  for (const auto& [line, tag] : tags) {
    view[kNameTemplate].text = W("x");
    view.menuAnswer = line;
    form.Press(kNameTags);
    EXPECT_EQ(view[kNameTemplate].text, W("x") + tag);
    EXPECT_TRUE(view[kNameTemplate].caretAtEnd);
  }
  Settle();
  view[kNameTemplate].text = W("x");
  view.menuAnswer = 3;
  form.Press(kNameTags);
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_THAT(NewNames(), ElementsAre(W("x01.t")));
  EXPECT_THAT(Waiting(), ElementsAre(MRM_ROWS_CHANGED,
                                     MRM_RUN_FINISHED));  // of the preview; no update message was posted
}

TEST_F(Panel, TheOtherTagButtonIsThatOfTheExtension) {
  OpenPanel();
  view.menuAnswer = 3;
  form.Press(kExtensionTags);
  EXPECT_EQ(view[kNameTemplate].text, W("[N]"));
  EXPECT_EQ(view[kExtensionTemplate].text, W("[E][C]"));
}

TEST_F(Panel, ACancelledTagMenuChangesNothing) {
  OpenPanel();
  view.menuAnswer = 0;
  form.Press(kNameTags);
  EXPECT_EQ(view[kNameTemplate].text, W("[N]"));
  EXPECT_FALSE(view[kNameTemplate].caretAtEnd);
  EXPECT_THAT(Waiting(), IsEmpty());
}

TEST_F(Panel, TheTagDialogAddsItsTag) {
  host_.properties.properties = {
      {W("size"), W("Size")}, {W("none"), W("None"), false}, {W("date"), W("Date")}};
  OpenPanel();
  ASSERT_EQ(form.PropertyNames().size(), 2u);
  view.menuAnswer = 10;
  view.user = [](DialogForm& dialogForm, DialogWindow& dialog) {
    EXPECT_THAT(dialog[kTagProperties].lines, ElementsAre(W("Size"), W("Date")));
    dialog[kTagProperties].selectedLine = 1;
    dialogForm.Change(kTagProperties);
    dialogForm.Press(IDOK);
  };
  form.Press(kExtensionTags);
  EXPECT_THAT(view.dialogs, ElementsAre(kAddTagDialog));
  EXPECT_EQ(view[kExtensionTemplate].text, W("[E][?date]"));
  EXPECT_TRUE(view[kExtensionTemplate].caretAtEnd);
  EXPECT_EQ(host_.properties.releases, 1);
}

TEST_F(Panel, ACancelledTagDialogChangesNothing) {
  OpenPanel();
  view.menuAnswer = 10;
  view.user = [](DialogForm& dialogForm, DialogWindow&) { dialogForm.Press(IDCANCEL); };
  form.Press(kNameTags);
  EXPECT_EQ(view[kNameTemplate].text, W("[N]"));
  EXPECT_THAT(Waiting(), IsEmpty());
}

TEST_F(Panel, WithoutAPropertyManagerTheTagDialogHasNoNames) {
  ASSERT_TRUE(engine_->worker.Start());
  frame.Open(&list);
  form.Open();
  EXPECT_THAT(form.PropertyNames(), IsEmpty());
}

// The history of the templates.

TEST_F(Panel, TheTemplateBoxesOfferTheirHistories) {
  host_.config.histories[W("RuleFilename")] = {W("n1"), W("n2")};
  host_.config.histories[W("RuleFileextension")] = {W("e1")};
  OpenPanel();
  EXPECT_THAT(view[kNameTemplate].lines, ElementsAre(W("n1"), W("n2")));
  EXPECT_THAT(view[kExtensionTemplate].lines, ElementsAre(W("e1")));
  EXPECT_EQ(view[kNameTemplate].text, W("[N]"));
  EXPECT_THAT(host_.recorder.Open(), IsEmpty());
}

TEST_F(Panel, StartKeepsTheTemplatesFirstAndEachOnce) {
  host_.config.histories[W("RuleFilename")] = {W("n1"), W("[N]"), W("new"), W("n2")};
  host_.config.histories[W("RuleFileextension")] = {W("e1"), W("[E]")};
  OpenPanel();
  Type(kNameTemplate, W("new"));
  Settle();
  frameView.boxes.answers = {};
  Type(kNameTemplate, W("new[C]"));
  Settle();
  form.Press(kStartButton);
  Settle();
  EXPECT_THAT(host_.config.histories[W("RuleFilename")],
              ElementsAre(W("new[C]"), W("n1"), W("new"), W("n2")));
  // The default is not stored, neither the current text nor a stored line.
  EXPECT_THAT(host_.config.histories[W("RuleFileextension")], ElementsAre(W("e1")));
  EXPECT_THAT(
      host_.recorder.CallsOf({"config.SaveStringList"}),
      ElementsAre(testing::AllOf(testing::HasSubstr("\"RuleFilename\""), testing::EndsWith(", 20)")),
                  testing::AllOf(testing::HasSubstr("\"RuleFileextension\""), testing::EndsWith(", 20)"))));
  EXPECT_EQ(host_.recorder.CallsOf({"strings3.Finish"}), std::vector<std::string>{"strings3.Finish(1)"});
  EXPECT_THAT(host_.recorder.Open(), IsEmpty());
}

TEST_F(Panel, AStartThatIsBlockedKeepsNoTemplates) {
  OpenPanel();
  Type(kNameTemplate, W("x?"));
  Settle();
  view.boxes.answers = {IDOK};
  form.Press(kStartButton);
  EXPECT_THAT(host_.recorder.CallsOf({"config.SaveStringList"}), IsEmpty());
}

TEST_F(Panel, WithoutSettingsThereAreNoHistoriesAndTheRunGoesOn) {
  host_.recorder.Refuse("GetConfig");
  OpenPanel();
  EXPECT_THAT(view[kNameTemplate].lines, IsEmpty());
  Type(kNameTemplate, W("y[C]"));
  Settle();
  form.Press(kStartButton);
  Settle();
  EXPECT_EQ(host_.renames.itemRenames.size(), 2u);
}

// What is enabled.

TEST_F(Panel, ADisabledControlThatIsPressedDoesNothing) {
  Open({W("a.t")});
  view[kPairFind].text = W("x");
  for (const int control :
       {kStartButton, kUndoButton, kCloseButton, kUndoManagerButton, kResetButton, kPairDialog, kPairAdd}) {
    view[control].isEnabled = false;
    form.Press(control);
  }
  Settle();
  EXPECT_TRUE(host_.renames.calls.empty());
  EXPECT_TRUE(host_.posted.empty());
  EXPECT_TRUE(view.dialogs.empty());
  EXPECT_TRUE(view[kPairList].rows.empty());
  EXPECT_EQ(frameView.closes, 0);
}

TEST_F(Panel, EnterIsStartAndInTheFieldsOfThePairAddOnceThereIsSomethingToFind) {
  Open();
  for (const int control :
       std::initializer_list<int>{0, kNameTemplate, kStartAt, kPairList, kPairFind, kPairReplace})
    EXPECT_EQ(form.DefaultButton(control), kStartButton);
  view[kPairReplace].text = W("y");
  EXPECT_EQ(form.DefaultButton(kPairReplace), kStartButton);
  view[kPairFind].text = W(" ");
  EXPECT_EQ(form.DefaultButton(kPairFind), kPairAdd);
  EXPECT_EQ(form.DefaultButton(kPairReplace), kPairAdd);
  for (const int control : std::initializer_list<int>{0, kNameTemplate, kPairAdd, kPairDialog})
    EXPECT_EQ(form.DefaultButton(control), kStartButton);
}

TEST_F(Panel, AfterAnAddedPairTheFindFieldHasTheFocusForTheNext) {
  Open();
  view.focus = kPairAdd;
  form.Press(kPairAdd);
  EXPECT_EQ(view.focus, kPairAdd) << "nothing was added";
  view[kPairFind].text = W("x");
  form.Press(kPairAdd);
  EXPECT_EQ(view.focus, kPairFind);
}

TEST_F(Panel, AtFirstAllButUndoIsEnabled) {
  OpenPanel();
  std::vector<int> expected = all_;
  std::erase(expected, kUndoButton);
  EXPECT_EQ(EnabledOf(all_), expected);
}

TEST_F(Panel, DuringARunOnlyTheFieldsAndButtonsOfTheSearchPairAreEnabled) {
  OpenPanel();
  form.EnableControls(false);
  EXPECT_THAT(EnabledOf(all_), ElementsAre(kPairFind, kPairReplace, kPairAdd, kPairDialog));
  form.EnableControls(true);
  std::vector<int> expected = all_;
  std::erase(expected, kUndoButton);
  EXPECT_EQ(EnabledOf(all_), expected);
}

TEST_F(Panel, AfterARunUndoIsEnabledToo) {
  OpenPanel();
  Type(kNameTemplate, W("x[C]"));
  Settle();
  form.Press(kStartButton);
  Settle();
  EXPECT_TRUE(form.UndoAvailable());
  EXPECT_EQ(EnabledOf(all_), all_);
  form.EnableControls(false);
  EXPECT_THAT(EnabledOf(all_), ElementsAre(kPairFind, kPairReplace, kPairAdd, kPairDialog));
}

TEST_F(Panel, CloseClosesTheFrame) {
  OpenPanel();
  form.Press(kCloseButton);
  EXPECT_EQ(frameView.closes, 1);
}

TEST_F(Panel, MessagesOfOthersAreLeftAlone) {
  OpenPanel();
  EXPECT_FALSE(form.OnMessage(MRM_CONFIRM_CLOSE, 0, 0));
  EXPECT_FALSE(form.OnMessage(WM_CLOSE, 0, 0));
}

TEST_F(Panel, WorksWithControlsThatReportWhatTheFormSets) {
  int echoes = 0;
  view.echo = [this, &echoes](int control) {
    ++echoes;
    form.Change(control);
  };
  OpenPanel({W("a.t")});
  EXPECT_GT(echoes, 5);
  EXPECT_THAT(Waiting(), IsEmpty());
  view.menuAnswer = 3;
  form.Press(kNameTags);
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_THAT(Waiting(), ElementsAre(MRM_ROWS_CHANGED, MRM_RUN_FINISHED));
  view[kPairFind].text = W("a");
  form.Press(kPairAdd);
  EXPECT_THAT(Waiting(), ElementsAre(MRM_UPDATE_PREVIEW));
}

}  // namespace
}  // namespace Velmora::SDK
