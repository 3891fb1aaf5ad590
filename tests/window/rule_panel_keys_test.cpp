// The keyboard in the rule panel of MultiRename's window: keys that change nothing, and keys that do
// something.
#include <gmock/gmock.h>

#include "multirename/form/panel_controls.h"
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

constexpr int kName = 1034;
constexpr int kCase = 1036;
constexpr int kPairs = 1118;
constexpr int kFind = 1020;
constexpr int kReplace = 1001;
constexpr int kAdd = 1119;
constexpr int kParts = 1070;
constexpr int kProfiles = 1045;
constexpr int kUndoDots = 1049;
constexpr int kStart = 1003;
constexpr int kClose = 1041;

class RulePanelKeys : public RenameFrameWindow {
 protected:
  WString Text(int control) const { return TextOf(Panel(), control); }
  bool IsDropped(int control) const {
    return SendDlgItemMessageW(Panel(), control, CB_GETDROPPEDSTATE, 0, 0) != 0;
  }
  void AddPair(const WString& find, const WString& replace) {
    Type(kFind, find);
    Type(kReplace, replace);
    Press(kAdd);
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
  Type(kName, W("[N]_new"));
  AddPair(W("X"), W("-"));
  MarkAndEscape(kProfiles, {VK_DOWN});
  EXPECT_EQ(host_.recorder.CallsOf({"AskText"}).size(), 0u);
  EXPECT_EQ(SelectedRow(Panel(), kProfiles), 0);
  EXPECT_EQ(Text(kName), W("[N]_new"));
  EXPECT_THAT(TableRowsOf(Panel(), kPairs), SizeIs(1));
  EXPECT_THAT(NewNames(), ElementsAre(W("a-a_new")));
}

TEST_F(RulePanelKeys, EscapeInAnOpenListOfProfilesKeepsWhatWasEditedSinceTheProfileWasLoaded) {
  auto profile = std::make_unique<MultiRenameProfile>();
  profile->name = W("one");
  profile->filenameRule = W("p[N]");
  profile->extensionRule = W("[E]");
  profiles_.Add(std::move(profile));
  Open({W("a")});
  ChooseRow(Panel(), kProfiles, 2);
  Settle();
  ASSERT_EQ(Text(kName), W("p[N]"));
  Type(kName, W("edited"));
  AddPair(W("e"), W("E"));
  for (const std::vector<WORD>& arrows : {std::vector<WORD>{VK_UP}, {VK_UP, VK_UP}, {VK_UP, VK_DOWN}}) {
    MarkAndEscape(kProfiles, arrows);
    EXPECT_EQ(SelectedRow(Panel(), kProfiles), 2);
    EXPECT_EQ(Text(kName), W("edited"));
    EXPECT_THAT(TableRowsOf(Panel(), kPairs), ElementsAre(ElementsAre(W("e"), W("E"))));
  }
  EXPECT_EQ(TitleOfFrame(), W("MultiRename - Profile: one"));
}

TEST_F(RulePanelKeys, EscapeInAnOpenListOfCasesOrPartsKeepsTheLine) {
  Open({W("aX.X")});
  AddPair(W("X"), W("y"));
  ASSERT_THAT(NewNames(), ElementsAre(W("ay.y")));
  MarkAndEscape(kCase, {VK_DOWN, VK_DOWN});
  EXPECT_EQ(SelectedRow(Panel(), kCase), 0);
  MarkAndEscape(kParts, {VK_DOWN});
  EXPECT_EQ(SelectedRow(Panel(), kParts), 0);
  // The next change does not apply it either.
  Type(kName, W("[N]b"));
  EXPECT_THAT(NewNames(), ElementsAre(W("ayb.y")));
}

TEST_F(RulePanelKeys, EnterAfterAnEscapeInTheSameListChooses) {
  Open({W("Ab")});
  MarkAndEscape(kCase, {VK_DOWN});
  PressFrameKey(VK_F4);
  PressFrameKey(VK_DOWN);
  PressFrameKey(VK_RETURN);
  EXPECT_EQ(SelectedRow(Panel(), kCase), 1);
  EXPECT_THAT(NewNames(), ElementsAre(W("ab")));
}

TEST_F(RulePanelKeys, EscapeInAnOpenListOfTemplatesLeavesNamesThatAreThoseOfTheTextThatShows) {
  host_.config.histories[W("RuleFilename")] = {W("one"), W("two")};
  Open({W("a")});
  MarkAndEscape(kName, {VK_DOWN});
  EXPECT_THAT(NewNames(), ElementsAre(Text(kName) == W("[N]") ? WString(W("a")) : Text(kName)));
}

// Enter.

TEST_F(RulePanelKeys, EnterInTheListIsStart) {
  Open({W("a.txt")});
  Type(kName, W("z"));
  SetFocus(List());
  PressFrameKey(VK_RETURN);
  ASSERT_THAT(host_.renames.itemRenames, SizeIs(1));
  EXPECT_EQ(host_.renames.itemRenames[0].to, W("z.txt"));
}

TEST_F(RulePanelKeys, EnterInTheFieldsOfThePairIsAddAndTheFindFieldWaitsForTheNext) {
  Open({W("aXbY")});
  Type(kFind, W("X"));
  PressFrameKey(VK_TAB);
  ASSERT_EQ(FocusedControl(Panel()), kReplace);
  PostMessageW(GetFocus(), WM_CHAR, W('-'), 1);
  PressFrameKey(VK_RETURN);
  EXPECT_EQ(FocusedControl(Panel()), kFind);
  Type(kFind, W("Y"));
  PressFrameKey(VK_RETURN);
  EXPECT_THAT(TableRowsOf(Panel(), kPairs), SizeIs(2));
  EXPECT_THAT(NewNames(), ElementsAre(W("a-b")));
  EXPECT_THAT(host_.renames.itemRenames, IsEmpty());
}

TEST_F(RulePanelKeys, WithNothingToFindEnterIsStartInTheFieldsOfThePairToo) {
  Open({W("a")});
  Type(kName, W("z"));
  Type(kFind, W("x"));
  Type(kFind, W(""));
  PressFrameKey(VK_RETURN);
  EXPECT_THAT(TableRowsOf(Panel(), kPairs), IsEmpty());
  EXPECT_THAT(host_.renames.itemRenames, SizeIs(1));
}

TEST_F(RulePanelKeys, TheButtonThatEnterPressesIsShownAsTheDefaultOne) {
  Open({W("a")});
  const auto isDefault = [this](int button) {
    return (SendDlgItemMessageW(Panel(), button, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0;
  };
  EXPECT_TRUE(isDefault(kStart));
  Type(kFind, W("x"));
  EXPECT_TRUE(isDefault(kAdd));
  EXPECT_FALSE(isDefault(kStart));
  Focus(Panel(), kName);
  EXPECT_TRUE(isDefault(kStart));
  EXPECT_FALSE(isDefault(kAdd));
  Focus(Panel(), kClose);
  EXPECT_TRUE(isDefault(kClose));
  PressFrameKey(VK_TAB);
  ASSERT_EQ(GetFocus(), List());
  EXPECT_TRUE(isDefault(kStart));
  EXPECT_FALSE(isDefault(kClose));
}

TEST_F(RulePanelKeys, EnterDuringARunStartsNoOther) {
  Open({W("a")});
  Type(kName, W("b"));
  host_.renames.atRun = [this] {
    PostMessageW(List(), WM_KEYDOWN, VK_RETURN, 1);
    PostMessageW(GetDlgItem(Panel(), kFind), WM_KEYDOWN, VK_RETURN, 1);
  };
  SetFocus(GetDlgItem(Panel(), kStart));
  PressFrameKey(VK_RETURN);
  EXPECT_THAT(host_.renames.itemRenames, SizeIs(1));
}

TEST_F(RulePanelKeys, EnterWithALoadedSessionStartsNothing) {
  Open({W("a")});
  Type(kName, W("b"));
  PressFrameKey(VK_RETURN);
  ASSERT_THAT(host_.renames.itemRenames, SizeIs(1));
  PostMessageW(GetDlgItem(Panel(), kUndoDots), BM_CLICK, 0, 0);
  RunModal(
      [this] {
        Settle();
        return 0;
      },
      [](HWND dialog) {
        ClickCell(dialog, 1053, 0);
        ClickButton(dialog, 1);
      });
  for (const HWND focus : {List(), GetDlgItem(Panel(), kFind)}) {
    SetFocus(focus);
    PressFrameKey(VK_RETURN);
  }
  EXPECT_THAT(host_.renames.itemRenames, SizeIs(1));
  EXPECT_THAT(host_.renames.pathRenames, IsEmpty());
}

}  // namespace
