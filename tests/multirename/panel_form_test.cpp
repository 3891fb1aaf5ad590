// The rule panel: its fields and their defaults, what each control does and posts, and which controls are
// enabled when.
#include "multirename/form/panel_form.h"

#include <gmock/gmock.h>

#include "multirename/form/undo_manager_form.h"
#include "multirename/panel_window.h"

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

  std::vector<std::vector<WString>> PairCells() { return view[1118].rows; }

  // Returns those of these controls that are enabled.
  std::vector<int> EnabledOf(const std::vector<int>& controls) {
    std::vector<int> enabled;
    for (const int control : controls) {
      if (view.IsEnabled(control)) enabled.push_back(control);
    }
    return enabled;
  }

  // The controls that the user can operate, in the order of the panel.
  const std::vector<int> all_ = {1034, 1046, 1035, 1047, 1036, 1031, 1032, 1033, 1118,
                                 1020, 1001, 1119, 1117, 1070, 1039, 1038, 1037, 1045,
                                 1044, 1043, 1004, 1071, 1040, 1049, 1003, 1041};
};

TEST_F(Panel, ControlsHaveTheirTexts) {
  OpenPanel();
  const std::map<int, WString> texts = {
      {1058, W("T00650064")}, {1059, W("T00660064")}, {1060, W("T00670064")}, {1062, W("T006E0064")},
      {1066, W("T006A0064")}, {1067, W("T006B0064")}, {1068, W("T006C0064")}, {1063, W("T006F0064")},
      {1072, W("T006F0064")}, {1039, W("T00740064")}, {1038, W("T00730064")}, {1037, W("T00720064")},
      {1061, W("T006D0064")}, {1043, W("T00700064")}, {1004, W("T00710064")}, {1071, W("T00820064")},
      {1040, W("T00770064")}, {1003, W("T00750064")}, {1041, W("T00760064")}, {1119, W("M0:00150067")}};
  for (const auto& [control, text] : texts) EXPECT_EQ(view[control].text, text) << control;
  // These controls have their texts in the resource.
  for (const int control : {1046, 1047, 1117, 1044, 1049}) EXPECT_EQ(view[control].text, W("")) << control;
  EXPECT_EQ(frameView.title, W("T000A0063"));
}

TEST_F(Panel, TheNameOfThePartsBoxIsTheTextOfItsGroupWithoutTheAccessKey) {
  host_.texts[kRenameTextSearch] = W("Searc&h and Replace");
  OpenPanel();
  EXPECT_EQ(view[1063].text, W("Searc&h and Replace"));
  EXPECT_EQ(view[1072].text, W("Search and Replace"));
}

TEST_F(Panel, ControlsHaveTheirDefaults) {
  OpenPanel();
  EXPECT_EQ(view[1034].text, W("[N]"));
  EXPECT_EQ(view[1035].text, W("[E]"));
  EXPECT_EQ(view[1031].text, W("1"));
  EXPECT_EQ(view[1032].text, W("1"));
  EXPECT_EQ(view[1033].text, W("2"));
  for (const int box : {1036, 1070, 1045}) EXPECT_EQ(view[box].selectedLine, 0) << box;
  EXPECT_THAT(PairCells(), IsEmpty());
  EXPECT_EQ(view[1020].text, W(""));
  EXPECT_EQ(view[1001].text, W(""));
  const std::map<int, bool> checks = {{1039, false}, {1038, true}, {1037, false}, {1043, true}, {1004, true}};
  for (const auto& [control, isChecked] : checks) EXPECT_EQ(view[control].isChecked, isChecked) << control;
}

TEST_F(Panel, BoxesHaveTheirLinesAndThePairsTheirColumns) {
  OpenPanel();
  EXPECT_THAT(view[1036].lines,
              ElementsAre(W("T00C90064"), W("T00CA0064"), W("T00CB0064"), W("T00CC0064"), W("T00CD0064"),
                          W("T00CE0064"), W("T00CF0064"), W("T00D00064"), W("T00D10064")));
  EXPECT_THAT(view[1070].lines, ElementsAre(W("T00DC0064"), W("T00DD0064"), W("T00DE0064")));
  EXPECT_THAT(view[1045].lines, ElementsAre(W("T00FA0064"), W("T00FB0064")));
  EXPECT_THAT(view.Columns(1118), ElementsAre(Pair(W("T00680064"), 130), Pair(W("T00690064"), 130)));
}

TEST_F(Panel, ControlsHaveTheirToolTips) {
  OpenPanel();
  const std::map<int, WString> tips = {
      {1003, W("L00750064")}, {1041, W("L00760064")}, {1040, W("L00770064")}, {1049, W("L00780064")},
      {1071, W("L00820064")}, {1031, W("L006A0064")}, {1032, W("L006B0064")}, {1033, W("L006C0064")},
      {1037, W("L00720064")}, {1039, W("L00740064")}, {1038, W("L00730064")}, {1043, W("L00700064")},
      {1004, W("L00710064")}, {1044, W("L00790064")}, {1045, W("L006D0064")}, {1036, W("L00670064")},
      {1046, W("L007A0064")}, {1047, W("L007A0064")}, {1034, W("L00650064")}, {1035, W("L00660064")}};
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
  for (const int control : {1034, 1035, 1031, 1032, 1033, 1036, 1070}) {
    form.Change(control);
    EXPECT_THAT(Waiting(), ElementsAre(33268u)) << control;
  }
}

TEST_F(Panel, OtherChangesPostNothing) {
  OpenPanel();
  for (const int control : {1020, 1001, 1118, 1061, 0}) form.Change(control);
  for (const int control : {1043, 1118, 1036, 0, 9999}) form.Press(control);
  EXPECT_THAT(Waiting(), IsEmpty());
}

TEST_F(Panel, AClickOnLivePreviewPostsTheUpdate) {
  OpenPanel();
  Check(1004, false);
  EXPECT_THAT(Waiting(), ElementsAre(33268u));
}

TEST_F(Panel, TheSearchBoxesUpdateAtOnceAndPostNothingOfTheirOwn) {
  OpenPanel({W("Aa.t")});
  view[1020].text = W("a");
  view[1001].text = W("x");
  form.Press(1119);
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("xx.t")));
  Check(1037, true);
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_THAT(NewNames(), ElementsAre(W("Ax.t")));
  EXPECT_THAT(Waiting(), ElementsAre(33768u, 33868u));
  Check(1037, false);
  Check(1038, false);
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_THAT(NewNames(), ElementsAre(W("xa.t")));
  Check(1039, true);  // replaces every match, regardless of "Replace all"
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_THAT(NewNames(), ElementsAre(W("xx.t")));
  for (const UINT message : Waiting()) EXPECT_NE(message, 33268u);
}

TEST_F(Panel, TheRulesOfAllControlsReachTheNames) {
  OpenPanel({W("Pic.JPG"), W("Two.JPG")});
  Type(1034, W("[N]_[C]"));
  Type(1035, W("[E]x"));
  Type(1031, W("7"));
  Type(1032, W("3"));
  Type(1033, W("3"));
  Choose(1036, 1);  // lower case
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("pic_007.jpgx"), W("two_010.jpgx")));
  view[1020].text = W("p");
  view[1001].text = W("Q");
  form.Press(1119);
  Choose(1070, 1);
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("Qic_007.jpgx"), W("two_010.jpgx")));
  Choose(1070, 2);
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("pic_007.jQgx"), W("two_010.jQgx")));
}

TEST_F(Panel, EachLineOfTheCaseBoxHasItsRule) {
  OpenPanel({W("aB cD.eF")});
  const std::vector<WString> names = {W("aB cD.eF"), W("ab cd.ef"), W("AB CD.EF"),
                                      W("ab cd.eF"), W("AB CD.eF"), W("aB cD.ef"),
                                      W("aB cD.EF"), W("Ab Cd.eF"), W("Ab cd.eF")};
  for (int line = 0; line < 9; ++line) {
    Choose(1036, line);
    Settle();
    EXPECT_THAT(NewNames(), ElementsAre(names[static_cast<std::size_t>(line)])) << line;
  }
}

// The search pairs.

TEST_F(Panel, AddAppendsARowEmptiesTheFieldsAndPosts) {
  OpenPanel();
  view[1020].text = W("a");
  view[1001].text = W("b");
  form.Press(1119);
  EXPECT_THAT(PairCells(), ElementsAre(ElementsAre(W("a"), W("b"))));
  EXPECT_EQ(view[1020].text, W(""));
  EXPECT_EQ(view[1001].text, W(""));
  EXPECT_THAT(Waiting(), ElementsAre(33268u));
  view[1020].text = W("c");
  form.Press(1119);
  EXPECT_THAT(PairCells(), ElementsAre(ElementsAre(W("a"), W("b")), ElementsAre(W("c"), W(""))));
}

TEST_F(Panel, AddWithoutAFindTextDoesNothing) {
  OpenPanel();
  view[1001].text = W("b");
  form.Press(1119);
  EXPECT_THAT(PairCells(), IsEmpty());
  EXPECT_EQ(view[1001].text, W("b"));
  EXPECT_THAT(Waiting(), IsEmpty());
}

TEST_F(Panel, AddPutsQuotesAroundBlanksAtTheEnds) {
  OpenPanel({W("a b.t")});
  view[1020].text = W(" b");
  view[1001].text = W("c ");
  form.Press(1119);
  EXPECT_THAT(PairCells(), ElementsAre(ElementsAre(W("\" b\""), W("\"c \""))));
  // The search pair is used without the quotes.
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("ac .t")));
}

TEST_F(Panel, AddReads255CharactersOfAField) {
  OpenPanel();
  view[1020].text = WString(255, W('a')) + W("b");
  view[1001].text = WString(256, W('c'));
  form.Press(1119);
  EXPECT_EQ(PairCells()[0][0], WString(255, W('a')));
  EXPECT_EQ(PairCells()[0][1], WString(255, W('c')));
}

TEST_F(Panel, TheSearchDialogReplacesThePairsAndPosts) {
  OpenPanel();
  view[1020].text = W(" a");
  form.Press(1119);
  Settle();
  view.user = [](DialogForm& dialogForm, DialogWindow& dialog) {
    EXPECT_EQ(dialog[1110].text, W("\" a\"|"));
    dialog[1110].text = W(" x|y\r\nz");
    dialogForm.Press(1);
  };
  form.Press(1117);
  EXPECT_THAT(view.dialogs, ElementsAre(112));
  EXPECT_THAT(PairCells(), ElementsAre(ElementsAre(W("\" x\""), W("y")), ElementsAre(W("z"), W(""))));
  EXPECT_THAT(Waiting(), ElementsAre(33268u));
}

TEST_F(Panel, TheSearchDialogsCancelChangesNothing) {
  OpenPanel();
  view[1020].text = W("a");
  form.Press(1119);
  Settle();
  view.user = [](DialogForm& dialogForm, DialogWindow& dialog) {
    dialog[1110].text = W("x|y");
    dialogForm.Press(2);
  };
  form.Press(1117);
  EXPECT_THAT(PairCells(), ElementsAre(ElementsAre(W("a"), W(""))));
  EXPECT_THAT(Waiting(), IsEmpty());
}

TEST_F(Panel, ADoubleClickOnThePairsOpensTheSearchDialog) {
  OpenPanel();
  view.user = [](DialogForm& dialogForm, DialogWindow&) { dialogForm.Press(2); };
  form.DoubleClick(1118);
  EXPECT_THAT(view.dialogs, ElementsAre(112));
  form.DoubleClick(1034);
  EXPECT_EQ(view.dialogs.size(), 1u);
}

// The tag menu.

TEST_F(Panel, TheTagMenuHasItsLines) {
  OpenPanel();
  form.Press(1046);
  ASSERT_EQ(view.menus.size(), 1u);
  EXPECT_EQ(view.menus[0].first, 1046);
  std::vector<std::pair<int, WString>> lines;
  for (const MenuLine& line : view.menus[0].second) lines.emplace_back(line.number, line.text);
  EXPECT_THAT(lines, ElementsAre(Pair(1, W("T012D0064")), Pair(2, W("T012E0064")), Pair(3, W("T012F0064")),
                                 Pair(11, W("T01360064")), Pair(0, W("")), Pair(4, W("T01300064")),
                                 Pair(5, W("T01310064")), Pair(6, W("T01320064")), Pair(0, W("")),
                                 Pair(7, W("T01330064")), Pair(8, W("T01340064")), Pair(9, W("T01350064")),
                                 Pair(0, W("")), Pair(10, W("T01400064"))));
  form.Press(1047);
  EXPECT_EQ(view.menus[1].first, 1047);
}

TEST_F(Panel, AChosenTagIsAppendedWhereverTheCaretIsAndPreviewedAtOnce) {
  OpenPanel({W("a.t")});
  const std::vector<std::pair<int, WString>> tags = {
      {1, W("[N]")}, {2, W("[E]")}, {3, W("[C]")}, {11, W("[F]")}, {4, W("[Y]")},
      {5, W("[M]")}, {6, W("[D]")}, {7, W("[h]")}, {8, W("[m]")},  {9, W("[s]")}};
  for (const auto& [line, tag] : tags) {
    view[1034].text = W("x");
    view.menuAnswer = line;
    form.Press(1046);
    EXPECT_EQ(view[1034].text, W("x") + tag);
    EXPECT_TRUE(view[1034].caretAtEnd);
  }
  Settle();
  view[1034].text = W("x");
  view.menuAnswer = 3;
  form.Press(1046);
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_THAT(NewNames(), ElementsAre(W("x01.t")));
  EXPECT_THAT(Waiting(), ElementsAre(33768u, 33868u));  // of the preview; no update message was posted
}

TEST_F(Panel, TheOtherTagButtonIsThatOfTheExtension) {
  OpenPanel();
  view.menuAnswer = 3;
  form.Press(1047);
  EXPECT_EQ(view[1034].text, W("[N]"));
  EXPECT_EQ(view[1035].text, W("[E][C]"));
}

TEST_F(Panel, ACancelledTagMenuChangesNothing) {
  OpenPanel();
  view.menuAnswer = 0;
  form.Press(1046);
  EXPECT_EQ(view[1034].text, W("[N]"));
  EXPECT_FALSE(view[1034].caretAtEnd);
  EXPECT_THAT(Waiting(), IsEmpty());
}

TEST_F(Panel, TheTagDialogAddsItsTag) {
  host_.properties.properties = {
      {W("size"), W("Size")}, {W("none"), W("None"), false}, {W("date"), W("Date")}};
  OpenPanel();
  ASSERT_EQ(form.PropertyNames().size(), 2u);
  view.menuAnswer = 10;
  view.user = [](DialogForm& dialogForm, DialogWindow& dialog) {
    EXPECT_THAT(dialog[1048].lines, ElementsAre(W("Size"), W("Date")));
    dialog[1048].selectedLine = 1;
    dialogForm.Change(1048);
    dialogForm.Press(1);
  };
  form.Press(1047);
  EXPECT_THAT(view.dialogs, ElementsAre(105));
  EXPECT_EQ(view[1035].text, W("[E][?date]"));
  EXPECT_TRUE(view[1035].caretAtEnd);
  EXPECT_EQ(host_.properties.releases, 1);
}

TEST_F(Panel, ACancelledTagDialogChangesNothing) {
  OpenPanel();
  view.menuAnswer = 10;
  view.user = [](DialogForm& dialogForm, DialogWindow&) { dialogForm.Press(2); };
  form.Press(1046);
  EXPECT_EQ(view[1034].text, W("[N]"));
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
  EXPECT_THAT(view[1034].lines, ElementsAre(W("n1"), W("n2")));
  EXPECT_THAT(view[1035].lines, ElementsAre(W("e1")));
  EXPECT_EQ(view[1034].text, W("[N]"));
  EXPECT_THAT(host_.recorder.Open(), IsEmpty());
}

TEST_F(Panel, StartKeepsTheTemplatesFirstAndEachOnce) {
  host_.config.histories[W("RuleFilename")] = {W("n1"), W("[N]"), W("new"), W("n2")};
  host_.config.histories[W("RuleFileextension")] = {W("e1"), W("[E]")};
  OpenPanel();
  Type(1034, W("new"));
  Settle();
  frameView.boxes.answers = {};
  Type(1034, W("new[C]"));
  Settle();
  form.Press(1003);
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
  Type(1034, W("x?"));
  Settle();
  view.boxes.answers = {IDOK};
  form.Press(1003);
  EXPECT_THAT(host_.recorder.CallsOf({"config.SaveStringList"}), IsEmpty());
}

TEST_F(Panel, WithoutSettingsThereAreNoHistoriesAndTheRunGoesOn) {
  host_.recorder.Refuse("GetConfig");
  OpenPanel();
  EXPECT_THAT(view[1034].lines, IsEmpty());
  Type(1034, W("y[C]"));
  Settle();
  form.Press(1003);
  Settle();
  EXPECT_EQ(host_.renames.itemRenames.size(), 2u);
}

// What is enabled.

TEST_F(Panel, ADisabledControlThatIsPressedDoesNothing) {
  Open({W("a.t")});
  view[1020].text = W("x");
  for (const int control : {1003, 1040, 1041, 1049, 1071, 1117, 1119}) {
    view[control].isEnabled = false;
    form.Press(control);
  }
  Settle();
  EXPECT_TRUE(host_.renames.calls.empty());
  EXPECT_TRUE(host_.posted.empty());
  EXPECT_TRUE(view.dialogs.empty());
  EXPECT_TRUE(view[1118].rows.empty());
  EXPECT_EQ(frameView.closes, 0);
}

TEST_F(Panel, EnterIsStartAndInTheFieldsOfThePairAddOnceThereIsSomethingToFind) {
  Open();
  for (const int control : {0, 1034, 1031, 1118, 1020, 1001}) EXPECT_EQ(form.DefaultButton(control), 1003);
  view[1001].text = W("y");
  EXPECT_EQ(form.DefaultButton(1001), 1003);
  view[1020].text = W(" ");
  EXPECT_EQ(form.DefaultButton(1020), 1119);
  EXPECT_EQ(form.DefaultButton(1001), 1119);
  for (const int control : {0, 1034, 1119, 1117}) EXPECT_EQ(form.DefaultButton(control), 1003);
}

TEST_F(Panel, AfterAnAddedPairTheFindFieldHasTheFocusForTheNext) {
  Open();
  view.focus = 1119;
  form.Press(1119);
  EXPECT_EQ(view.focus, 1119) << "nothing was added";
  view[1020].text = W("x");
  form.Press(1119);
  EXPECT_EQ(view.focus, 1020);
}

TEST_F(Panel, AtFirstAllButUndoIsEnabled) {
  OpenPanel();
  std::vector<int> expected = all_;
  std::erase(expected, 1040);
  EXPECT_EQ(EnabledOf(all_), expected);
}

TEST_F(Panel, DuringARunOnlyTheFieldsAndButtonsOfTheSearchPairAreEnabled) {
  OpenPanel();
  form.EnableControls(false);
  EXPECT_THAT(EnabledOf(all_), ElementsAre(1020, 1001, 1119, 1117));
  form.EnableControls(true);
  std::vector<int> expected = all_;
  std::erase(expected, 1040);
  EXPECT_EQ(EnabledOf(all_), expected);
}

TEST_F(Panel, AfterARunUndoIsEnabledToo) {
  OpenPanel();
  Type(1034, W("x[C]"));
  Settle();
  form.Press(1003);
  Settle();
  EXPECT_TRUE(form.UndoAvailable());
  EXPECT_EQ(EnabledOf(all_), all_);
  form.EnableControls(false);
  EXPECT_THAT(EnabledOf(all_), ElementsAre(1020, 1001, 1119, 1117));
}

TEST_F(Panel, CloseClosesTheFrame) {
  OpenPanel();
  form.Press(1041);
  EXPECT_EQ(frameView.closes, 1);
}

TEST_F(Panel, MessagesOfOthersAreLeftAlone) {
  OpenPanel();
  EXPECT_FALSE(form.OnMessage(33968, 0, 0));
  EXPECT_FALSE(form.OnMessage(16, 0, 0));
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
  form.Press(1046);
  ASSERT_TRUE(engine_->worker.WaitUntilIdle());
  EXPECT_THAT(Waiting(), ElementsAre(33768u, 33868u));
  view[1020].text = W("a");
  form.Press(1119);
  EXPECT_THAT(Waiting(), ElementsAre(33268u));
}

}  // namespace
}  // namespace Velmora::SDK
