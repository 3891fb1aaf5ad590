// The keyboard in the rule panel of MultiRename's window: keys that change nothing, and keys that do
// something.
#include <gmock/gmock.h>

#include "multirename/form/panel_controls.h"
#include "multirename/form/undo_manager_form.h"
#include "window/list_rows.h"
#include "window/modal_driver.h"
#include "window/rename_frame_window.h"

// windows.h must be included first.
#include <commctrl.h>

namespace {

using namespace Velmora::SDK;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class RulePanelKeys : public RenameFrameWindow {
 protected:
  WString Text(int control) const { return TextOf(Panel(), control); }
  bool IsDropped(int control) const {
    return SendDlgItemMessageW(Panel(), control, CB_GETDROPPEDSTATE, 0, 0) != 0;
  }
  void AddPair(const WString& find, const WString& replace) {
    Type(kPairFind, find);
    Type(kPairReplace, replace);
    Press(kPairAdd);
  }
  // Opens the list of a combo box, moves to another line with the arrow keys, and closes the list with
  // Escape.
  void MarkAndEscape(int control, const std::vector<WORD>& arrows) {
    SetFocus(GetDlgItem(Panel(), control));
    PressFrameKey(VK_F4);
    ASSERT_TRUE(IsDropped(control));
    for (const WORD arrow : arrows) PressFrameKey(arrow);
    PressFrameKey(VK_ESCAPE);
    ASSERT_FALSE(IsDropped(control));
  }
};

// Escape in an open list of a combo box.

TEST_F(RulePanelKeys, EscapeInAnOpenListOfProfilesKeepsTheRulesAndAsksNothing) {
  Open({W("aXa")});
  Type(kNameTemplate, W("[N]_new"));
  AddPair(W("X"), W("-"));
  MarkAndEscape(kProfileBox, {VK_DOWN});
  EXPECT_EQ(host_.recorder.CallsOf({"AskText"}).size(), 0u);
  EXPECT_EQ(SelectedRow(Panel(), kProfileBox), 0);
  EXPECT_EQ(Text(kNameTemplate), W("[N]_new"));
  EXPECT_THAT(TableRowsOf(Panel(), kPairList), SizeIs(1));
  EXPECT_THAT(NewNames(), ElementsAre(W("a-a_new")));
}

TEST_F(RulePanelKeys, EscapeInAnOpenListOfProfilesKeepsWhatWasEditedSinceTheProfileWasLoaded) {
  auto profile = std::make_unique<MultiRenameProfile>();
  profile->name = W("one");
  profile->filenameRule = W("p[N]");
  profile->extensionRule = W("[E]");
  profiles_.Add(std::move(profile));
  Open({W("a")});
  ChooseRow(Panel(), kProfileBox, 2);
  Settle();
  ASSERT_EQ(Text(kNameTemplate), W("p[N]"));
  Type(kNameTemplate, W("edited"));
  AddPair(W("e"), W("E"));
  for (const std::vector<WORD>& arrows : {std::vector<WORD>{VK_UP}, {VK_UP, VK_UP}, {VK_UP, VK_DOWN}}) {
    MarkAndEscape(kProfileBox, arrows);
    EXPECT_EQ(SelectedRow(Panel(), kProfileBox), 2);
    EXPECT_EQ(Text(kNameTemplate), W("edited"));
    EXPECT_THAT(TableRowsOf(Panel(), kPairList), ElementsAre(ElementsAre(W("e"), W("E"))));
  }
  EXPECT_EQ(TitleOfFrame(), W("MultiRename - Profile: one"));
}

TEST_F(RulePanelKeys, EscapeInAnOpenListOfCasesOrPartsKeepsTheLine) {
  Open({W("aX.X")});
  AddPair(W("X"), W("y"));
  ASSERT_THAT(NewNames(), ElementsAre(W("ay.y")));
  MarkAndEscape(kCaseBox, {VK_DOWN, VK_DOWN});
  EXPECT_EQ(SelectedRow(Panel(), kCaseBox), 0);
  MarkAndEscape(kPartsBox, {VK_DOWN});
  EXPECT_EQ(SelectedRow(Panel(), kPartsBox), 0);
  // The next change does not apply it either.
  Type(kNameTemplate, W("[N]b"));
  EXPECT_THAT(NewNames(), ElementsAre(W("ayb.y")));
}

TEST_F(RulePanelKeys, EnterAfterAnEscapeInTheSameListChooses) {
  Open({W("Ab")});
  MarkAndEscape(kCaseBox, {VK_DOWN});
  PressFrameKey(VK_F4);
  PressFrameKey(VK_DOWN);
  PressFrameKey(VK_RETURN);
  EXPECT_EQ(SelectedRow(Panel(), kCaseBox), 1);
  EXPECT_THAT(NewNames(), ElementsAre(W("ab")));
}

TEST_F(RulePanelKeys, EscapeInAnOpenListOfTemplatesLeavesNamesThatAreThoseOfTheTextThatShows) {
  host_.config.histories[W("RuleFilename")] = {W("one"), W("two")};
  Open({W("a")});
  MarkAndEscape(kNameTemplate, {VK_DOWN});
  EXPECT_THAT(NewNames(),
              ElementsAre(Text(kNameTemplate) == W("[N]") ? WString(W("a")) : Text(kNameTemplate)));
}

// Enter.

TEST_F(RulePanelKeys, EnterInTheListIsStart) {
  Open({W("a.txt")});
  Type(kNameTemplate, W("z"));
  SetFocus(List());
  PressFrameKey(VK_RETURN);
  ASSERT_THAT(host_.renames.itemRenames, SizeIs(1));
  EXPECT_EQ(host_.renames.itemRenames[0].to, W("z.txt"));
}

TEST_F(RulePanelKeys, EnterInTheFieldsOfThePairIsAddAndTheFindFieldWaitsForTheNext) {
  Open({W("aXbY")});
  Type(kPairFind, W("X"));
  PressFrameKey(VK_TAB);
  ASSERT_EQ(FocusedControl(Panel()), kPairReplace);
  PostMessageW(GetFocus(), WM_CHAR, W('-'), 1);
  PressFrameKey(VK_RETURN);
  EXPECT_EQ(FocusedControl(Panel()), kPairFind);
  Type(kPairFind, W("Y"));
  PressFrameKey(VK_RETURN);
  EXPECT_THAT(TableRowsOf(Panel(), kPairList), SizeIs(2));
  EXPECT_THAT(NewNames(), ElementsAre(W("a-b")));
  EXPECT_THAT(host_.renames.itemRenames, IsEmpty());
}

TEST_F(RulePanelKeys, WithNothingToFindEnterIsStartInTheFieldsOfThePairToo) {
  Open({W("a")});
  Type(kNameTemplate, W("z"));
  Type(kPairFind, W("x"));
  Type(kPairFind, W(""));
  PressFrameKey(VK_RETURN);
  EXPECT_THAT(TableRowsOf(Panel(), kPairList), IsEmpty());
  EXPECT_THAT(host_.renames.itemRenames, SizeIs(1));
}

TEST_F(RulePanelKeys, TheButtonThatEnterPressesIsShownAsTheDefaultOne) {
  Open({W("a")});
  const auto isDefault = [this](int button) {
    return (SendDlgItemMessageW(Panel(), button, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0;
  };
  EXPECT_TRUE(isDefault(kStartButton));
  Type(kPairFind, W("x"));
  EXPECT_TRUE(isDefault(kPairAdd));
  EXPECT_FALSE(isDefault(kStartButton));
  Focus(Panel(), kNameTemplate);
  EXPECT_TRUE(isDefault(kStartButton));
  EXPECT_FALSE(isDefault(kPairAdd));
  Focus(Panel(), kCloseButton);
  EXPECT_TRUE(isDefault(kCloseButton));
  PressFrameKey(VK_TAB);
  ASSERT_EQ(GetFocus(), List());
  EXPECT_TRUE(isDefault(kStartButton));
  EXPECT_FALSE(isDefault(kCloseButton));
}

TEST_F(RulePanelKeys, EnterDuringARunStartsNoOther) {
  Open({W("a")});
  Type(kNameTemplate, W("b"));
  host_.renames.atRun = [this] {
    PostMessageW(List(), WM_KEYDOWN, VK_RETURN, 1);
    PostMessageW(GetDlgItem(Panel(), kPairFind), WM_KEYDOWN, VK_RETURN, 1);
  };
  SetFocus(GetDlgItem(Panel(), kStartButton));
  PressFrameKey(VK_RETURN);
  EXPECT_THAT(host_.renames.itemRenames, SizeIs(1));
}

TEST_F(RulePanelKeys, EnterWithALoadedSessionStartsNothing) {
  Open({W("a")});
  Type(kNameTemplate, W("b"));
  PressFrameKey(VK_RETURN);
  ASSERT_THAT(host_.renames.itemRenames, SizeIs(1));
  PostMessageW(GetDlgItem(Panel(), kUndoManagerButton), BM_CLICK, 0, 0);
  RunModal(
      [this] {
        Settle();
        return 0;
      },
      [](HWND dialog) {
        ClickCell(dialog, kUndoSessions, 0);
        ClickButton(dialog, 1);
      });
  for (const HWND focus : {List(), GetDlgItem(Panel(), kPairFind)}) {
    SetFocus(focus);
    PressFrameKey(VK_RETURN);
  }
  EXPECT_THAT(host_.renames.itemRenames, SizeIs(1));
  EXPECT_THAT(host_.renames.pathRenames, IsEmpty());
}

}  // namespace
