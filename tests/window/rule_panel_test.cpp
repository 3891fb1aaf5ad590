// The rule panel of MultiRename's window from the view of its user: the initial state and the effect of each
// control.
#include <gmock/gmock.h>

#include <stdexcept>

#include "multirename/form/panel_controls.h"
#include "window/list_rows.h"
#include "window/modal_driver.h"
#include "window/opened_menu.h"
#include "window/rename_frame_window.h"

// windows.h must be included first.
#include <commctrl.h>

namespace {

using namespace Velmora::SDK;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

// The initial state of a control.
struct PanelRow {
  int number;
  const WCHAR* windowClass;
  const WCHAR* text;  // null for any text
  bool isEnabled;
  bool isChecked;
};

constexpr PanelRow kPanelRows[] = {
    {1058, WC_STATICW, W("&Name:"), true, false},
    {1034, WC_COMBOBOXW, W("[N]"), true, false},
    {1046, WC_BUTTONW, W("<"), true, false},
    {1059, WC_STATICW, W("E&xtension:"), true, false},
    {1035, WC_COMBOBOXW, W("[E]"), true, false},
    {1047, WC_BUTTONW, W("<"), true, false},
    {1060, WC_STATICW, W("&Case:"), true, false},
    {1036, WC_COMBOBOXW, W("Letter case as it is"), true, false},
    {1062, WC_BUTTONW, W("Counter for [C] tag"), true, false},
    {1066, WC_STATICW, W("Start a&t:"), true, false},
    {1031, WC_EDITW, W("1"), true, false},
    {1067, WC_STATICW, W("Step &by:"), true, false},
    {1032, WC_EDITW, W("1"), true, false},
    {1068, WC_STATICW, W("&Digits:"), true, false},
    {1033, WC_EDITW, W("2"), true, false},
    {1063, WC_BUTTONW, W("Searc&h and Replace"), true, false},
    {1118, WC_LISTVIEWW, W(""), true, false},
    {1020, WC_EDITW, W(""), true, false},
    {1001, WC_EDITW, W(""), true, false},
    {1119, WC_BUTTONW, W("&Add"), true, false},
    {1117, WC_BUTTONW, W("..."), true, false},
    {1072, WC_STATICW, W("Search and Replace"), true, false},
    {1070, WC_COMBOBOXW, W("Name and extension"), true, false},
    {1039, WC_BUTTONW, W("Re&gEx"), true, false},
    {1038, WC_BUTTONW, W("Re&place all"), true, true},
    {1037, WC_BUTTONW, W("Case s&ensative"), true, false},
    {1061, WC_BUTTONW, W("&Load / Save"), true, false},
    {1045, WC_COMBOBOXW, W("(no profile)"), true, false},
    {1044, WC_BUTTONW, W("X"), true, false},
    {1043, WC_BUTTONW, W("Sa&ve Undo Information"), true, true},
    {1004, WC_BUTTONW, W("Live Previe&w"), true, true},
    {1071, WC_BUTTONW, W("&Reset File List"), true, false},
    {1040, WC_BUTTONW, W("&Undo"), false, false},
    {1049, WC_BUTTONW, W("..."), true, false},
    {1003, WC_BUTTONW, W("&Start"), true, false},
    {1041, WC_BUTTONW, W("Cl&ose"), true, false},
};

// The name of the parts box for screen readers, which the user does not see.
constexpr int kHiddenName = 1072;

// The controls that are disabled during a run.
constexpr int kRuleNumbers[] = {1034, 1046, 1035, 1047, 1036, 1031, 1032, 1033, 1118, 1070,
                                1039, 1038, 1037, 1045, 1044, 1043, 1004, 1071, 1003};
constexpr int kPairNumbers[] = {1020, 1001, 1119, 1117};

class RulePanelWindow : public RenameFrameWindow {
 protected:
  bool IsOn(int control) const { return IsEnabled(Panel(), control); }
  WString Text(int control) const { return TextOf(Panel(), control); }
  // Like Settle, with windows that open.
  void SettleWith(const std::vector<Steps>& steps) {
    RunModal(
        [this] {
          Settle();
          return 0;
        },
        steps);
  }
  void PostPress(int button) const {
    PostMessageW(GetDlgItem(Panel(), button), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    PostMessageW(GetDlgItem(Panel(), button), WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
  }
  // Opens the menu of a "<" button and presses keys in it.
  void ChooseTag(int button, const std::vector<WPARAM>& keys) {
    PostPress(button);
    for (const WPARAM key : keys) PostMessageW(Panel(), WM_KEYDOWN, key, 1);
    Settle();
  }
  WString TipOf(int control) const {
    HWND tips = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM found) -> BOOL {
          WCHAR name[64] = {};
          GetClassNameW(window, name, 64);
          if (WStringView(name) != TOOLTIPS_CLASSW ||
              SendMessageW(window, TTM_GETTOOLCOUNT, 0, 0) != std::size(kPanelTips)) {
            return TRUE;
          }
          *reinterpret_cast<HWND*>(found) = window;
          return FALSE;
        },
        reinterpret_cast<LPARAM>(&tips));
    tips_ = tips;
    HWND tipped = GetDlgItem(Panel(), control);
    if (control == 1034 || control == 1035) tipped = FindWindowExW(tipped, nullptr, WC_EDITW, nullptr);
    WCHAR text[512] = {};
    TOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.hwnd = Panel();
    tool.uId = reinterpret_cast<UINT_PTR>(tipped);
    tool.lpszText = text;
    SendMessageW(tips, TTM_GETTEXTW, 512, reinterpret_cast<LPARAM>(&tool));
    return text;
  }
  mutable HWND tips_ = nullptr;
};

TEST_F(RulePanelWindow, EachControlIsThereWithItsTextAndItsDefault) {
  Open();
  std::size_t count = 0;
  for (HWND child = GetWindow(Panel(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) ++count;
  EXPECT_EQ(count, std::size(kPanelRows));
  for (const PanelRow& row : kPanelRows) {
    const HWND control = GetDlgItem(Panel(), row.number);
    ASSERT_NE(control, nullptr) << row.number;
    WCHAR name[64] = {};
    GetClassNameW(control, name, 64);
    EXPECT_EQ(lstrcmpiW(name, row.windowClass), 0) << row.number;
    EXPECT_EQ(Text(row.number), row.text) << row.number;
    EXPECT_EQ(IsOn(row.number), row.isEnabled) << row.number;
    EXPECT_EQ(IsChecked(Panel(), row.number), row.isChecked) << row.number;
    EXPECT_EQ(IsWindowVisible(control) != FALSE, row.number != kHiddenName) << row.number;
  }
}

TEST_F(RulePanelWindow, TheBoxesOfferTheirLines) {
  Open();
  EXPECT_EQ(RowsOf(Panel(), 1036).size(), 9u);
  EXPECT_THAT(RowsOf(Panel(), 1070), ElementsAre(W("Name and extension"), W("Name"), W("Extension")));
  EXPECT_THAT(RowsOf(Panel(), 1045), ElementsAre(W("(no profile)"), W("Save as...")));
  EXPECT_THAT(ColumnsOf(Panel(), 1118), ElementsAre(Pair(W("Find"), 130), Pair(W("Replace with"), 130)));
}

TEST_F(RulePanelWindow, ThePairListShowsLinesBetweenItsCellsAndSelectsFullRows) {
  Open();
  const LRESULT style = SendDlgItemMessageW(Panel(), 1118, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0);
  EXPECT_NE(style & LVS_EX_GRIDLINES, 0);
  EXPECT_NE(style & LVS_EX_FULLROWSELECT, 0);
}

TEST_F(RulePanelWindow, TheEmptyPairFieldsSayWhatGoesThere) {
  Open();
  EXPECT_EQ(CueBannerOf(Panel(), 1020), W("Find"));
  EXPECT_EQ(CueBannerOf(Panel(), 1001), W("Replace with"));
}

TEST_F(RulePanelWindow, TemplatesOfEarlierRunsAreOffered) {
  host_.config.histories[W("RuleFilename")] = {W("[N]_[C]"), W("a & b %s")};
  host_.config.histories[W("RuleFileextension")] = {W("bak")};
  Open();
  EXPECT_THAT(RowsOf(Panel(), 1034), ElementsAre(W("[N]_[C]"), W("a & b %s")));
  EXPECT_THAT(RowsOf(Panel(), 1035), ElementsAre(W("bak")));
  EXPECT_EQ(Text(1034), W("[N]"));
}

TEST_F(RulePanelWindow, TypingATemplateChangesTheNamesThatShow) {
  Open({W("a.txt"), W("b.txt")});
  Type(1034, W("x[C]"));
  EXPECT_THAT(NewNames(), ElementsAre(W("x01.txt"), W("x02.txt")));
  Type(1035, W("bak"));
  EXPECT_THAT(NewNames(), ElementsAre(W("x01.bak"), W("x02.bak")));
}

TEST_F(RulePanelWindow, ChoosingAnOfferedTemplateChangesTheNames) {
  host_.config.histories[W("RuleFilename")] = {W("[N]_new")};
  Open({W("a.txt")});
  ChooseRow(Panel(), 1034, 0);
  Settle();
  EXPECT_EQ(Text(1034), W("[N]_new"));
  EXPECT_THAT(NewNames(), ElementsAre(W("a_new.txt")));
}

TEST_F(RulePanelWindow, TheNumberFieldsCount) {
  Open({W("a"), W("b")});
  Type(1034, W("[C]"));
  Type(1031, W("5"));
  Type(1032, W("10"));
  Type(1033, W("4"));
  EXPECT_THAT(NewNames(), ElementsAre(W("0005"), W("0015")));
}

TEST_F(RulePanelWindow, TheNumberFieldsTakeDigitsAlone) {
  Open({W("a")});
  Type(1031, W("1x2"));
  EXPECT_EQ(Text(1031), W("12"));
}

TEST_F(RulePanelWindow, TheCaseBoxChangesTheNames) {
  Open({W("Ab.Txt")});
  Choose(1036, 2);
  EXPECT_THAT(NewNames(), ElementsAre(W("AB.TXT")));
  Choose(1036, 1);
  EXPECT_THAT(NewNames(), ElementsAre(W("ab.txt")));
}

TEST_F(RulePanelWindow, ALineOfAnOpenListIsChosenWhenTheListCloses) {
  Open({W("Ab.Txt")});
  ChooseRow(Panel(), 1036, 1);
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("ab.txt")));
}

TEST_F(RulePanelWindow, AddPutsThePairIntoTheListAndTheNamesFollow) {
  Open({W("aXaX.txt")});
  Type(1020, W("X"));
  Type(1001, W("-"));
  Press(1119);
  EXPECT_THAT(TableRowsOf(Panel(), 1118), ElementsAre(ElementsAre(W("X"), W("-"))));
  EXPECT_THAT(NewNames(), ElementsAre(W("a-a-.t-t")));
  Press(1038);
  EXPECT_THAT(NewNames(), ElementsAre(W("a-aX.t-t")));
}

TEST_F(RulePanelWindow, TheChecksOfTheSearchCount) {
  Open({W("abc1.txt")});
  Type(1020, W("[A-C]+"));
  Type(1001, W("z"));
  Press(1119);
  EXPECT_THAT(NewNames(), ElementsAre(W("abc1.txt")));
  Press(1039);
  EXPECT_THAT(NewNames(), ElementsAre(W("z1.txt")));
  Press(1037);
  EXPECT_THAT(NewNames(), ElementsAre(W("abc1.txt")));
}

TEST_F(RulePanelWindow, ThePartsBoxLimitsTheSearch) {
  Open({W("tt.txt")});
  Type(1020, W("t"));
  Type(1001, W("u"));
  Press(1119);
  EXPECT_THAT(NewNames(), ElementsAre(W("uu.uxu")));
  Choose(1070, 1);
  EXPECT_THAT(NewNames(), ElementsAre(W("uu.txt")));
  Choose(1070, 2);
  EXPECT_THAT(NewNames(), ElementsAre(W("tt.uxu")));
}

TEST_F(RulePanelWindow, WithoutLivePreviewNoNameChangesUntilItIsOnAgain) {
  Open({W("a")});
  Press(1004);
  Type(1034, W("b"));
  EXPECT_THAT(NewNames(), ElementsAre(W("a")));
  Press(1004);
  EXPECT_THAT(NewNames(), ElementsAre(W("b")));
}

TEST_F(RulePanelWindow, ARuleThatCannotBeReadShowsInTheStatusBar) {
  Open({W("a")});
  Press(1039);
  Type(1020, W("("));
  Type(1001, W("x"));
  Press(1119);
  EXPECT_NE(Pane(1), W(""));
  Press(1039);
  EXPECT_EQ(Pane(1), W(""));
}

TEST_F(RulePanelWindow, StartRenamesAndTheStatusBarAndUndoFollow) {
  Open({W("a.txt"), W("b.txt")});
  Type(1034, W("[N]x"));
  Press(1003);
  ASSERT_EQ(host_.renames.itemRenames.size(), 2u);
  EXPECT_EQ(host_.renames.itemRenames[0].to, W("ax.txt"));
  EXPECT_EQ(Pane(1), W("2 Renamed"));
  EXPECT_TRUE(IsOn(1040));
  Press(1040);
  EXPECT_EQ(Pane(1), W("2 Restored"));
  EXPECT_EQ(host_.renames.pathRenames.size(), 2u);
}

TEST_F(RulePanelWindow, EnterIsStart) {
  Open({W("a.txt")});
  Type(1034, W("z"));
  PressFrameKey(VK_RETURN);
  ASSERT_EQ(host_.renames.itemRenames.size(), 1u);
  EXPECT_EQ(host_.renames.itemRenames[0].to, W("z.txt"));
  EXPECT_EQ(LOWORD(SendMessageW(Panel(), DM_GETDEFID, 0, 0)), 1003);
}

TEST_F(RulePanelWindow, EnterInAnOpenListChoosesTheLineAndStartsNothing) {
  Open({W("Ab")});
  SetFocus(GetDlgItem(Panel(), 1036));
  PressFrameKey(VK_F4);
  PressFrameKey(VK_DOWN);
  PressFrameKey(VK_RETURN);
  EXPECT_THAT(NewNames(), ElementsAre(W("ab")));
  EXPECT_THAT(host_.renames.itemRenames, IsEmpty());
}

TEST_F(RulePanelWindow, ARunDisablesTheRulesAndItsEndEnablesThem) {
  Open({W("a.txt")});
  Type(1034, W("b"));
  std::vector<int> stillOn;
  std::vector<int> pairsOff;
  bool closeOn = true;
  bool managerOn = true;
  host_.renames.atRun = [&] {
    for (const int number : kRuleNumbers)
      if (IsWindowEnabled(GetDlgItem(Panel(), number))) stillOn.push_back(number);
    for (const int number : kPairNumbers)
      if (!IsWindowEnabled(GetDlgItem(Panel(), number))) pairsOff.push_back(number);
    closeOn = IsWindowEnabled(GetDlgItem(Panel(), 1041)) != FALSE;
    managerOn = IsWindowEnabled(GetDlgItem(Panel(), 1049)) != FALSE;
  };
  Press(1003);
  EXPECT_THAT(stillOn, IsEmpty());
  EXPECT_THAT(pairsOff, IsEmpty()) << "the fields of the search pair stay enabled";
  EXPECT_FALSE(closeOn);
  EXPECT_FALSE(managerOn);
  for (const int number : kRuleNumbers) EXPECT_TRUE(IsOn(number)) << number;
  EXPECT_TRUE(IsOn(1041));
  EXPECT_TRUE(IsOn(1049));
}

TEST_F(RulePanelWindow, DuringARunTheFocusIsOnAControlThatIsEnabled) {
  Open({W("a.txt")});
  Type(1034, W("b"));
  HWND focus = nullptr;
  bool isEnabled = false;
  host_.renames.atRun = [&] {
    GUITHREADINFO thread = {};
    thread.cbSize = sizeof(thread);
    GetGUIThreadInfo(GetWindowThreadProcessId(Frame(), nullptr), &thread);
    focus = thread.hwndFocus;
    isEnabled = IsWindowEnabled(focus) != FALSE;
  };
  for (const int focused : {1003, 1034, 1031}) {
    SetFocus(GetDlgItem(Panel(), focused));
    focus = nullptr;
    PressFrameKey(VK_RETURN);
    EXPECT_NE(focus, nullptr) << focused;
    EXPECT_TRUE(isEnabled) << focused;
  }
}

TEST_F(RulePanelWindow, TheFocusIsBackInItsFieldAfterARun) {
  Open({W("a.txt")});
  Type(1034, W("b"));
  PressFrameKey(VK_RETURN);
  ASSERT_EQ(host_.renames.itemRenames.size(), 1u);
  EXPECT_EQ(FocusedControl(Panel()), 1034);
}

TEST_F(RulePanelWindow, TheFocusIsBackOnStartAfterARun) {
  Open({W("a.txt")});
  Type(1034, W("b"));
  SetFocus(GetDlgItem(Panel(), 1003));
  Press(1003);
  ASSERT_EQ(host_.renames.itemRenames.size(), 1u);
  EXPECT_EQ(FocusedControl(Panel()), 1003);
}

TEST_F(RulePanelWindow, AFocusThatTheUserMovesDuringARunStays) {
  Open({W("a.txt")});
  Type(1034, W("b"));
  host_.renames.atRun = [this] {
    PostMessageW(Panel(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(Panel(), 1001)), TRUE);
  };
  PressFrameKey(VK_RETURN);
  EXPECT_EQ(FocusedControl(Panel()), 1001);
}

TEST_F(RulePanelWindow, RowsInTheWayKeepTheRunFromStarting) {
  Open({W("a"), W("b")});
  Type(1034, W("same"));
  EXPECT_THAT(NewNames(), Each(W("Same name as another row")));
  WString text;
  PostPress(1003);
  SettleWith({[&](HWND box) {
    text = TextOf(box, 0xFFFF);
    PostMessageW(box, WM_COMMAND, IDOK, 0);
  }});
  EXPECT_THAT(text, testing::StartsWith(W("Rows in colour stand against the renames.")));
  EXPECT_THAT(host_.renames.itemRenames, IsEmpty());
}

TEST_F(RulePanelWindow, ResetReadsTheSelectionAgain) {
  Open({W("a")});
  Select({W("x"), W("y")});
  Press(1071);
  EXPECT_THAT(OldNames(), ElementsAre(W("x"), W("y")));
  EXPECT_EQ(Pane(0), W("Items: 2"));
}

TEST_F(RulePanelWindow, ANewSelectionEmptiesTheListUntilReset) {
  Open({W("a")});
  Select({W("x")});
  context_.rows.Set(ReadSelection(host_));
  PostMessageW(Panel(), MRM_NEW_SELECTION, 0, 0);
  Settle();
  EXPECT_THAT(OldNames(), IsEmpty());
  Press(1071);
  EXPECT_THAT(OldNames(), ElementsAre(W("x")));
}

TEST_F(RulePanelWindow, CloseClosesTheFrameWithoutAQuestion) {
  Open({W("a")});
  Press(1041);
  EXPECT_EQ(Frame(), nullptr);
  EXPECT_EQ(closed_, 1);
}

TEST_F(RulePanelWindow, SaveAsAsksForANameAndTheProfileIsOfferedAndInTheTitle) {
  Open({W("a")});
  Type(1034, W("p[N]"));
  host_.textAnswers = {{true, W("50 % & more")}};
  Choose(1045, 1);
  EXPECT_THAT(RowsOf(Panel(), 1045), ElementsAre(W("(no profile)"), W("Save as..."), W("50 % & more")));
  Choose(1045, 0);
  EXPECT_EQ(Text(1034), W("[N]"));
  ChooseRow(Panel(), 1045, 2);
  Settle();
  EXPECT_EQ(Text(1034), W("p[N]"));
  EXPECT_EQ(TitleOfFrame(), W("MultiRename - Profile: 50 % & more"));
  EXPECT_THAT(NewNames(), ElementsAre(W("pa")));
}

TEST_F(RulePanelWindow, TheXAsksAndDeletesTheProfile) {
  Open({W("a")});
  host_.textAnswers = {{true, W("one")}};
  Choose(1045, 1);
  ASSERT_EQ(RowsOf(Panel(), 1045).size(), 3u);
  if (SelectedRow(Panel(), 1045) != 2) {
    ChooseRow(Panel(), 1045, 2);
    Settle();
  }
  WString text;
  PostPress(1044);
  SettleWith({[&](HWND box) {
    text = TextOf(box, 0xFFFF);
    PostMessageW(box, WM_COMMAND, IDYES, 0);
  }});
  EXPECT_EQ(text, W("Delete the profile \"one\"?"));
  EXPECT_THAT(RowsOf(Panel(), 1045), ElementsAre(W("(no profile)"), W("Save as...")));
}

TEST_F(RulePanelWindow, TheTagMenuOpensBelowItsButtonWithAllTags) {
  Open({W("a.b")});
  OpenedMenu menu;
  ChooseTag(1046, {VK_ESCAPE});
  EXPECT_EQ(menu.opened, 1);
  EXPECT_THAT(menu.texts,
              ElementsAre(W("[N]  Old name"), W("[E]  Old extension"), W("[C]  Counter"), W("[F]  Folder"),
                          W(""), W("[Y]  Year"), W("[M]  Month"), W("[D]  Day"), W(""), W("[h]  Hour"),
                          W("[m]  Minute"), W("[s]  Second"), W(""), W("[?]  Property of the file...")));
  RECT button = {};
  GetWindowRect(GetDlgItem(Panel(), 1046), &button);
  EXPECT_EQ(menu.area.left, button.left);
  EXPECT_TRUE(menu.area.top >= button.bottom - 1 || menu.area.bottom <= button.top + 1);
  EXPECT_EQ(Text(1034), W("[N]")) << "a cancelled menu changes nothing";
}

TEST_F(RulePanelWindow, AChosenTagIsAppendedWhereverTheCaretIs) {
  Open({W("a.b")});
  Type(1034, W("x"));
  const HWND field = FindWindowExW(GetDlgItem(Panel(), 1034), nullptr, WC_EDITW, nullptr);
  SendMessageW(field, EM_SETSEL, 0, 0);
  ChooseTag(1046, {VK_DOWN, VK_RETURN});
  EXPECT_EQ(Text(1034), W("x[N]"));
  EXPECT_EQ(SendMessageW(field, EM_GETSEL, 0, 0), MAKELRESULT(4, 4));
  EXPECT_THAT(NewNames(), ElementsAre(W("xa.b")));
  ChooseTag(1047, {VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN});
  EXPECT_EQ(Text(1035), W("[E][C]"));
}

TEST_F(RulePanelWindow, TheLastLineOfTheTagMenuOpensTheDialogOfProperties) {
  host_.properties.properties = {{W("exif.date"), W("Date taken")}};
  Open({W("a.b")});
  PostPress(1046);
  for (const WPARAM key : {VK_UP, VK_RETURN}) PostMessageW(Panel(), WM_KEYDOWN, key, 1);
  SettleWith({[](HWND dialog) {
    ClickLine(dialog, 1048, 0);
    ClickButton(dialog, 1);
  }});
  EXPECT_EQ(Text(1034), W("[N][?exif.date]"));
}

TEST_F(RulePanelWindow, TheDotsOpenTheDialogOfPairs) {
  Open({W("ab")});
  PostPress(1117);
  SettleWith({[](HWND dialog) {
    EnterText(dialog, 1110, W("a|z"));
    ClickButton(dialog, 1);
  }});
  EXPECT_THAT(NewNames(), ElementsAre(W("zb")));
}

TEST_F(RulePanelWindow, ADoubleClickOnThePairListOpensTheDialogOfPairs) {
  Open({W("ab")});
  const HWND list = GetDlgItem(Panel(), 1118);
  PostMessageW(list, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(20, 40));
  PostMessageW(list, WM_LBUTTONUP, 0, MAKELPARAM(20, 40));
  SettleWith({[](HWND dialog) { ClickButton(dialog, 2); }});
  EXPECT_THAT(NewNames(), ElementsAre(W("ab")));
}

TEST_F(RulePanelWindow, TheDotsNextToUndoLoadASessionWhichLeavesUndoAndCloseAlone) {
  Open({W("a.txt")});
  Type(1034, W("b"));
  Press(1003);
  PostPress(1049);
  SettleWith({[](HWND dialog) {
    ClickCell(dialog, 1053, 0);
    ClickButton(dialog, 1);
  }});
  EXPECT_THAT(TitleOfFrame(), testing::StartsWith(W("MultiRename - Renamed on ")));
  for (const int number : kRuleNumbers) EXPECT_FALSE(IsOn(number)) << number;
  for (const int number : {1040, 1041, 1049}) EXPECT_TRUE(IsOn(number)) << number;
  for (const int number : kPairNumbers) EXPECT_TRUE(IsOn(number)) << number;
}

TEST_F(RulePanelWindow, EachToolHasItsTip) {
  Open();
  EXPECT_EQ(TipOf(1003), W("Renames the files"));
  EXPECT_EQ(TipOf(1041), W("Closes the window"));
  EXPECT_EQ(TipOf(1040), W("Gives the files of the list their old names back"));
  EXPECT_EQ(TipOf(1049), W("Shows the renames that can be undone"));
  EXPECT_EQ(TipOf(1071), W("Reads the files that are selected in the file manager now"));
  EXPECT_EQ(TipOf(1031), W("The number of the first row"));
  EXPECT_EQ(TipOf(1032), W("What is added from row to row"));
  EXPECT_EQ(TipOf(1033), W("The least number of digits; zeros fill it up"));
  EXPECT_EQ(TipOf(1037), W("Upper and lower case differ"));
  EXPECT_EQ(TipOf(1039), W("The texts to find are regular expressions. All matches are replaced"));
  EXPECT_EQ(TipOf(1038), W("Replaces every match, not the first of a name alone"));
  EXPECT_EQ(TipOf(1043), W("Writes a file by which the renames can be undone later"));
  EXPECT_EQ(TipOf(1004), W("Shows the new names while the rules change"));
  EXPECT_EQ(TipOf(1044), W("Deletes the rules that are chosen beside it"));
  EXPECT_EQ(TipOf(1045), W("Rules that were saved under a name, and the command to save these"));
  EXPECT_EQ(TipOf(1036), W("Changes the letter case of what the templates make"));
  EXPECT_EQ(TipOf(1046), W("Adds a tag to the template"));
  EXPECT_EQ(TipOf(1047), W("Adds a tag to the template"));
  EXPECT_THAT(TipOf(1034), testing::StartsWith(W("Template of the new name")));
  EXPECT_THAT(TipOf(1035), testing::StartsWith(W("Template of the new extension")));
  EXPECT_EQ(SendMessageW(tips_, TTM_GETDELAYTIME, TTDT_INITIAL, 0), 1000);
  EXPECT_EQ(SendMessageW(tips_, TTM_GETDELAYTIME, TTDT_AUTOPOP, 0), 10000);
  EXPECT_EQ(SendMessageW(tips_, TTM_GETDELAYTIME, TTDT_RESHOW, 0), 500);
  EXPECT_EQ(SendMessageW(tips_, TTM_GETMAXTIPWIDTH, 0, 0), -1);
}

TEST_F(RulePanelWindow, MouseMessagesOfThePanelAreShownToTheTips) {
  Open();
  const SentMessages relayed(TTM_RELAYEVENT);
  PostMessageW(GetDlgItem(Panel(), 1003), WM_MOUSEMOVE, 0, MAKELPARAM(3, 3));
  Settle();
  EXPECT_GE(relayed.Controls().size(), 1u);
}

TEST_F(RulePanelWindow, ACallThatFailsLeavesTheWindowAsItIs) {
  Open({W("a.txt")});
  Type(1034, W("b"));
  host_.beforeStringList = [] { throw std::runtime_error("the host fails"); };
  Press(1003);
  host_.beforeStringList = nullptr;
  EXPECT_NE(Frame(), nullptr);
  EXPECT_THAT(host_.renames.itemRenames, IsEmpty());
  Press(1003);
  EXPECT_EQ(host_.renames.itemRenames.size(), 1u);
}

TEST_F(RulePanelWindow, ATipWithAnAmpersandIsShownAsItIs) {
  host_.titles[kRenameTextStart] = W("R&ename %s && go");
  Open();
  EXPECT_EQ(TipOf(1003), W("R&ename %s && go"));
  EXPECT_NE(GetWindowLongW(tips_, GWL_STYLE) & TTS_NOPREFIX, 0);
}

}  // namespace
