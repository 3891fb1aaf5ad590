// The rule panel of MultiRename's window from the view of its user: the initial state and the effect of each
// control.
#include <gmock/gmock.h>

#include <stdexcept>

#include "multirename/engine/rename_worker.h"
#include "multirename/form/find_replace_dialog_form.h"
#include "multirename/form/panel_controls.h"
#include "multirename/form/tag_dialog_form.h"
#include "multirename/form/undo_manager_form.h"
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

// The controls that are disabled during a run.
constexpr int kRuleNumbers[] = {
    kNameTemplate,     kNameTags,   kExtensionTemplate, kExtensionTags, kCaseBox,        kStartAt,
    kStepBy,           kDigits,     kPairList,          kPartsBox,      kRegexBox,       kReplaceAllBox,
    kCaseSensitiveBox, kProfileBox, kDeleteProfile,     kSaveUndoBox,   kLivePreviewBox, kResetButton,
    kStartButton};
constexpr int kPairNumbers[] = {kPairFind, kPairReplace, kPairAdd, kPairDialog};

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
    if (control == kNameTemplate || control == kExtensionTemplate)
      tipped = FindWindowExW(tipped, nullptr, WC_EDITW, nullptr);
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
    // The name of the parts box is for screen readers alone.
    EXPECT_EQ(IsWindowVisible(control) != FALSE, row.number != kPartsName) << row.number;
  }
}

TEST_F(RulePanelWindow, TheBoxesOfferTheirLines) {
  Open();
  EXPECT_EQ(RowsOf(Panel(), kCaseBox).size(), 9u);
  EXPECT_THAT(RowsOf(Panel(), kPartsBox), ElementsAre(W("Name and extension"), W("Name"), W("Extension")));
  EXPECT_THAT(RowsOf(Panel(), kProfileBox), ElementsAre(W("(no profile)"), W("Save as...")));
  EXPECT_THAT(ColumnsOf(Panel(), kPairList), ElementsAre(Pair(W("Find"), 130), Pair(W("Replace with"), 130)));
}

TEST_F(RulePanelWindow, ThePairListShowsLinesBetweenItsCellsAndSelectsFullRows) {
  Open();
  const LRESULT style = SendDlgItemMessageW(Panel(), kPairList, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0);
  EXPECT_NE(style & LVS_EX_GRIDLINES, 0);
  EXPECT_NE(style & LVS_EX_FULLROWSELECT, 0);
}

TEST_F(RulePanelWindow, TheEmptyPairFieldsSayWhatGoesThere) {
  Open();
  EXPECT_EQ(CueBannerOf(Panel(), kPairFind), W("Find"));
  EXPECT_EQ(CueBannerOf(Panel(), kPairReplace), W("Replace with"));
}

TEST_F(RulePanelWindow, TemplatesOfEarlierRunsAreOffered) {
  host_.config.histories[W("RuleFilename")] = {W("[N]_[C]"), W("a & b %s")};
  host_.config.histories[W("RuleFileextension")] = {W("bak")};
  Open();
  EXPECT_THAT(RowsOf(Panel(), kNameTemplate), ElementsAre(W("[N]_[C]"), W("a & b %s")));
  EXPECT_THAT(RowsOf(Panel(), kExtensionTemplate), ElementsAre(W("bak")));
  EXPECT_EQ(Text(kNameTemplate), W("[N]"));
}

TEST_F(RulePanelWindow, TypingATemplateChangesTheNamesThatShow) {
  Open({W("a.txt"), W("b.txt")});
  Type(kNameTemplate, W("x[C]"));
  EXPECT_THAT(NewNames(), ElementsAre(W("x01.txt"), W("x02.txt")));
  Type(kExtensionTemplate, W("bak"));
  EXPECT_THAT(NewNames(), ElementsAre(W("x01.bak"), W("x02.bak")));
}

TEST_F(RulePanelWindow, ChoosingAnOfferedTemplateChangesTheNames) {
  host_.config.histories[W("RuleFilename")] = {W("[N]_new")};
  Open({W("a.txt")});
  ChooseRow(Panel(), kNameTemplate, 0);
  Settle();
  EXPECT_EQ(Text(kNameTemplate), W("[N]_new"));
  EXPECT_THAT(NewNames(), ElementsAre(W("a_new.txt")));
}

TEST_F(RulePanelWindow, TheNumberFieldsCount) {
  Open({W("a"), W("b")});
  Type(kNameTemplate, W("[C]"));
  Type(kStartAt, W("5"));
  Type(kStepBy, W("10"));
  Type(kDigits, W("4"));
  EXPECT_THAT(NewNames(), ElementsAre(W("0005"), W("0015")));
}

TEST_F(RulePanelWindow, TheNumberFieldsTakeDigitsAlone) {
  Open({W("a")});
  Type(kStartAt, W("1x2"));
  EXPECT_EQ(Text(kStartAt), W("12"));
}

TEST_F(RulePanelWindow, TheCaseBoxChangesTheNames) {
  Open({W("Ab.Txt")});
  Choose(kCaseBox, 2);
  EXPECT_THAT(NewNames(), ElementsAre(W("AB.TXT")));
  Choose(kCaseBox, 1);
  EXPECT_THAT(NewNames(), ElementsAre(W("ab.txt")));
}

TEST_F(RulePanelWindow, ALineOfAnOpenListIsChosenWhenTheListCloses) {
  Open({W("Ab.Txt")});
  ChooseRow(Panel(), kCaseBox, 1);
  Settle();
  EXPECT_THAT(NewNames(), ElementsAre(W("ab.txt")));
}

TEST_F(RulePanelWindow, AddPutsThePairIntoTheListAndTheNamesFollow) {
  Open({W("aXaX.txt")});
  Type(kPairFind, W("X"));
  Type(kPairReplace, W("-"));
  Press(kPairAdd);
  EXPECT_THAT(TableRowsOf(Panel(), kPairList), ElementsAre(ElementsAre(W("X"), W("-"))));
  EXPECT_THAT(NewNames(), ElementsAre(W("a-a-.t-t")));
  Press(kReplaceAllBox);
  EXPECT_THAT(NewNames(), ElementsAre(W("a-aX.t-t")));
}

TEST_F(RulePanelWindow, TheChecksOfTheSearchCount) {
  Open({W("abc1.txt")});
  Type(kPairFind, W("[A-C]+"));
  Type(kPairReplace, W("z"));
  Press(kPairAdd);
  EXPECT_THAT(NewNames(), ElementsAre(W("abc1.txt")));
  Press(kRegexBox);
  EXPECT_THAT(NewNames(), ElementsAre(W("z1.txt")));
  Press(kCaseSensitiveBox);
  EXPECT_THAT(NewNames(), ElementsAre(W("abc1.txt")));
}

TEST_F(RulePanelWindow, ThePartsBoxLimitsTheSearch) {
  Open({W("tt.txt")});
  Type(kPairFind, W("t"));
  Type(kPairReplace, W("u"));
  Press(kPairAdd);
  EXPECT_THAT(NewNames(), ElementsAre(W("uu.uxu")));
  Choose(kPartsBox, 1);
  EXPECT_THAT(NewNames(), ElementsAre(W("uu.txt")));
  Choose(kPartsBox, 2);
  EXPECT_THAT(NewNames(), ElementsAre(W("tt.uxu")));
}

TEST_F(RulePanelWindow, WithoutLivePreviewNoNameChangesUntilItIsOnAgain) {
  Open({W("a")});
  Press(kLivePreviewBox);
  Type(kNameTemplate, W("b"));
  EXPECT_THAT(NewNames(), ElementsAre(W("a")));
  Press(kLivePreviewBox);
  EXPECT_THAT(NewNames(), ElementsAre(W("b")));
}

TEST_F(RulePanelWindow, ARuleThatCannotBeReadShowsInTheStatusBar) {
  Open({W("a")});
  Press(kRegexBox);
  Type(kPairFind, W("("));
  Type(kPairReplace, W("x"));
  Press(kPairAdd);
  EXPECT_NE(Pane(1), W(""));
  Press(kRegexBox);
  EXPECT_EQ(Pane(1), W(""));
}

TEST_F(RulePanelWindow, StartRenamesAndTheStatusBarAndUndoFollow) {
  Open({W("a.txt"), W("b.txt")});
  Type(kNameTemplate, W("[N]x"));
  Press(kStartButton);
  ASSERT_EQ(host_.renames.itemRenames.size(), 2u);
  EXPECT_EQ(host_.renames.itemRenames[0].to, W("ax.txt"));
  EXPECT_EQ(Pane(1), W("2 Renamed"));
  EXPECT_TRUE(IsOn(kUndoButton));
  Press(kUndoButton);
  EXPECT_EQ(Pane(1), W("2 Restored"));
  EXPECT_EQ(host_.renames.pathRenames.size(), 2u);
}

TEST_F(RulePanelWindow, EnterIsStart) {
  Open({W("a.txt")});
  Type(kNameTemplate, W("z"));
  PressFrameKey(VK_RETURN);
  ASSERT_EQ(host_.renames.itemRenames.size(), 1u);
  EXPECT_EQ(host_.renames.itemRenames[0].to, W("z.txt"));
  EXPECT_EQ(LOWORD(SendMessageW(Panel(), DM_GETDEFID, 0, 0)), kStartButton);
}

TEST_F(RulePanelWindow, EnterInAnOpenListChoosesTheLineAndStartsNothing) {
  Open({W("Ab")});
  SetFocus(GetDlgItem(Panel(), kCaseBox));
  PressFrameKey(VK_F4);
  PressFrameKey(VK_DOWN);
  PressFrameKey(VK_RETURN);
  EXPECT_THAT(NewNames(), ElementsAre(W("ab")));
  EXPECT_THAT(host_.renames.itemRenames, IsEmpty());
}

TEST_F(RulePanelWindow, ARunDisablesTheRulesAndItsEndEnablesThem) {
  Open({W("a.txt")});
  Type(kNameTemplate, W("b"));
  std::vector<int> stillOn;
  std::vector<int> pairsOff;
  bool closeOn = true;
  bool managerOn = true;
  host_.renames.atRun = [&] {
    for (const int number : kRuleNumbers)
      if (IsWindowEnabled(GetDlgItem(Panel(), number))) stillOn.push_back(number);
    for (const int number : kPairNumbers)
      if (!IsWindowEnabled(GetDlgItem(Panel(), number))) pairsOff.push_back(number);
    closeOn = IsWindowEnabled(GetDlgItem(Panel(), kCloseButton)) != FALSE;
    managerOn = IsWindowEnabled(GetDlgItem(Panel(), kUndoManagerButton)) != FALSE;
  };
  Press(kStartButton);
  EXPECT_THAT(stillOn, IsEmpty());
  EXPECT_THAT(pairsOff, IsEmpty()) << "the fields of the search pair stay enabled";
  EXPECT_FALSE(closeOn);
  EXPECT_FALSE(managerOn);
  for (const int number : kRuleNumbers) EXPECT_TRUE(IsOn(number)) << number;
  EXPECT_TRUE(IsOn(kCloseButton));
  EXPECT_TRUE(IsOn(kUndoManagerButton));
}

TEST_F(RulePanelWindow, DuringARunTheFocusIsOnAControlThatIsEnabled) {
  Open({W("a.txt")});
  Type(kNameTemplate, W("b"));
  HWND focus = nullptr;
  bool isEnabled = false;
  host_.renames.atRun = [&] {
    GUITHREADINFO thread = {};
    thread.cbSize = sizeof(thread);
    GetGUIThreadInfo(GetWindowThreadProcessId(Frame(), nullptr), &thread);
    focus = thread.hwndFocus;
    isEnabled = IsWindowEnabled(focus) != FALSE;
  };
  for (const int focused : {kStartButton, kNameTemplate, kStartAt}) {
    SetFocus(GetDlgItem(Panel(), focused));
    focus = nullptr;
    PressFrameKey(VK_RETURN);
    EXPECT_NE(focus, nullptr) << focused;
    EXPECT_TRUE(isEnabled) << focused;
  }
}

TEST_F(RulePanelWindow, TheFocusIsBackInItsFieldAfterARun) {
  Open({W("a.txt")});
  Type(kNameTemplate, W("b"));
  PressFrameKey(VK_RETURN);
  ASSERT_EQ(host_.renames.itemRenames.size(), 1u);
  EXPECT_EQ(FocusedControl(Panel()), kNameTemplate);
}

TEST_F(RulePanelWindow, TheFocusIsBackOnStartAfterARun) {
  Open({W("a.txt")});
  Type(kNameTemplate, W("b"));
  SetFocus(GetDlgItem(Panel(), kStartButton));
  Press(kStartButton);
  ASSERT_EQ(host_.renames.itemRenames.size(), 1u);
  EXPECT_EQ(FocusedControl(Panel()), kStartButton);
}

TEST_F(RulePanelWindow, AFocusThatTheUserMovesDuringARunStays) {
  Open({W("a.txt")});
  Type(kNameTemplate, W("b"));
  host_.renames.atRun = [this] {
    PostMessageW(Panel(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(Panel(), kPairReplace)), TRUE);
  };
  PressFrameKey(VK_RETURN);
  EXPECT_EQ(FocusedControl(Panel()), kPairReplace);
}

TEST_F(RulePanelWindow, RowsInTheWayKeepTheRunFromStarting) {
  Open({W("a"), W("b")});
  Type(kNameTemplate, W("same"));
  EXPECT_THAT(NewNames(), Each(W("Same name as another row")));
  WString text;
  PostPress(kStartButton);
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
  Press(kResetButton);
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
  Press(kResetButton);
  EXPECT_THAT(OldNames(), ElementsAre(W("x")));
}

TEST_F(RulePanelWindow, CloseClosesTheFrameWithoutAQuestion) {
  Open({W("a")});
  Press(kCloseButton);
  EXPECT_EQ(Frame(), nullptr);
  EXPECT_EQ(closed_, 1);
}

TEST_F(RulePanelWindow, SaveAsAsksForANameAndTheProfileIsOfferedAndInTheTitle) {
  Open({W("a")});
  Type(kNameTemplate, W("p[N]"));
  host_.textAnswers = {{true, W("50 % & more")}};
  Choose(kProfileBox, 1);
  EXPECT_THAT(RowsOf(Panel(), kProfileBox),
              ElementsAre(W("(no profile)"), W("Save as..."), W("50 % & more")));
  Choose(kProfileBox, 0);
  EXPECT_EQ(Text(kNameTemplate), W("[N]"));
  ChooseRow(Panel(), kProfileBox, 2);
  Settle();
  EXPECT_EQ(Text(kNameTemplate), W("p[N]"));
  EXPECT_EQ(TitleOfFrame(), W("MultiRename - Profile: 50 % & more"));
  EXPECT_THAT(NewNames(), ElementsAre(W("pa")));
}

TEST_F(RulePanelWindow, TheXAsksAndDeletesTheProfile) {
  Open({W("a")});
  host_.textAnswers = {{true, W("one")}};
  Choose(kProfileBox, 1);
  ASSERT_EQ(RowsOf(Panel(), kProfileBox).size(), 3u);
  if (SelectedRow(Panel(), kProfileBox) != 2) {
    ChooseRow(Panel(), kProfileBox, 2);
    Settle();
  }
  WString text;
  PostPress(kDeleteProfile);
  SettleWith({[&](HWND box) {
    text = TextOf(box, 0xFFFF);
    PostMessageW(box, WM_COMMAND, IDYES, 0);
  }});
  EXPECT_EQ(text, W("Delete the profile \"one\"?"));
  EXPECT_THAT(RowsOf(Panel(), kProfileBox), ElementsAre(W("(no profile)"), W("Save as...")));
}

TEST_F(RulePanelWindow, TheTagMenuOpensBelowItsButtonWithAllTags) {
  Open({W("a.b")});
  OpenedMenu menu;
  ChooseTag(kNameTags, {VK_ESCAPE});
  EXPECT_EQ(menu.opened, 1);
  EXPECT_THAT(menu.texts,
              ElementsAre(W("[N]  Old name"), W("[E]  Old extension"), W("[C]  Counter"), W("[F]  Folder"),
                          W(""), W("[Y]  Year"), W("[M]  Month"), W("[D]  Day"), W(""), W("[h]  Hour"),
                          W("[m]  Minute"), W("[s]  Second"), W(""), W("[?]  Property of the file...")));
  RECT button = {};
  GetWindowRect(GetDlgItem(Panel(), kNameTags), &button);
  EXPECT_EQ(menu.area.left, button.left);
  EXPECT_TRUE(menu.area.top >= button.bottom - 1 || menu.area.bottom <= button.top + 1);
  EXPECT_EQ(Text(kNameTemplate), W("[N]")) << "a cancelled menu changes nothing";
}

TEST_F(RulePanelWindow, AChosenTagIsAppendedWhereverTheCaretIs) {
  Open({W("a.b")});
  Type(kNameTemplate, W("x"));
  const HWND field = FindWindowExW(GetDlgItem(Panel(), kNameTemplate), nullptr, WC_EDITW, nullptr);
  SendMessageW(field, EM_SETSEL, 0, 0);
  ChooseTag(kNameTags, {VK_DOWN, VK_RETURN});
  EXPECT_EQ(Text(kNameTemplate), W("x[N]"));
  EXPECT_EQ(SendMessageW(field, EM_GETSEL, 0, 0), MAKELRESULT(4, 4));
  EXPECT_THAT(NewNames(), ElementsAre(W("xa.b")));
  ChooseTag(kExtensionTags, {VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN});
  EXPECT_EQ(Text(kExtensionTemplate), W("[E][C]"));
}

TEST_F(RulePanelWindow, TheLastLineOfTheTagMenuOpensTheDialogOfProperties) {
  host_.properties.properties = {{W("exif.date"), W("Date taken")}};
  Open({W("a.b")});
  PostPress(kNameTags);
  for (const WPARAM key : {VK_UP, VK_RETURN}) PostMessageW(Panel(), WM_KEYDOWN, key, 1);
  SettleWith({[](HWND dialog) {
    ClickLine(dialog, kTagProperties, 0);
    ClickButton(dialog, IDOK);
  }});
  EXPECT_EQ(Text(kNameTemplate), W("[N][?exif.date]"));
}

TEST_F(RulePanelWindow, TheDotsOpenTheDialogOfPairs) {
  Open({W("ab")});
  PostPress(kPairDialog);
  SettleWith({[](HWND dialog) {
    EnterText(dialog, kPairsText, W("a|z"));
    ClickButton(dialog, IDOK);
  }});
  EXPECT_THAT(NewNames(), ElementsAre(W("zb")));
}

TEST_F(RulePanelWindow, ADoubleClickOnThePairListOpensTheDialogOfPairs) {
  Open({W("ab")});
  const HWND list = GetDlgItem(Panel(), kPairList);
  PostMessageW(list, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(20, 40));
  PostMessageW(list, WM_LBUTTONUP, 0, MAKELPARAM(20, 40));
  SettleWith({[](HWND dialog) { ClickButton(dialog, IDCANCEL); }});
  EXPECT_THAT(NewNames(), ElementsAre(W("ab")));
}

TEST_F(RulePanelWindow, TheDotsNextToUndoLoadASessionWhichLeavesUndoAndCloseAlone) {
  Open({W("a.txt")});
  Type(kNameTemplate, W("b"));
  Press(kStartButton);
  PostPress(kUndoManagerButton);
  SettleWith({[](HWND dialog) {
    ClickCell(dialog, kUndoSessions, 0);
    ClickButton(dialog, IDOK);
  }});
  EXPECT_THAT(TitleOfFrame(), testing::StartsWith(W("MultiRename - Renamed on ")));
  for (const int number : kRuleNumbers) EXPECT_FALSE(IsOn(number)) << number;
  for (const int number : {kUndoButton, kCloseButton, kUndoManagerButton})
    EXPECT_TRUE(IsOn(number)) << number;
  for (const int number : kPairNumbers) EXPECT_TRUE(IsOn(number)) << number;
}

TEST_F(RulePanelWindow, EachToolHasItsTip) {
  Open();
  EXPECT_EQ(TipOf(kStartButton), W("Renames the files"));
  EXPECT_EQ(TipOf(kCloseButton), W("Closes the window"));
  EXPECT_EQ(TipOf(kUndoButton), W("Gives the files of the list their old names back"));
  EXPECT_EQ(TipOf(kUndoManagerButton), W("Shows the renames that can be undone"));
  EXPECT_EQ(TipOf(kResetButton), W("Reads the files that are selected in the file manager now"));
  EXPECT_EQ(TipOf(kStartAt), W("The number of the first row"));
  EXPECT_EQ(TipOf(kStepBy), W("What is added from row to row"));
  EXPECT_EQ(TipOf(kDigits), W("The least number of digits; zeros fill it up"));
  EXPECT_EQ(TipOf(kCaseSensitiveBox), W("Upper and lower case differ"));
  EXPECT_EQ(TipOf(kRegexBox), W("The texts to find are regular expressions. All matches are replaced"));
  EXPECT_EQ(TipOf(kReplaceAllBox), W("Replaces every match, not the first of a name alone"));
  EXPECT_EQ(TipOf(kSaveUndoBox), W("Writes a file by which the renames can be undone later"));
  EXPECT_EQ(TipOf(kLivePreviewBox), W("Shows the new names while the rules change"));
  EXPECT_EQ(TipOf(kDeleteProfile), W("Deletes the rules that are chosen beside it"));
  EXPECT_EQ(TipOf(kProfileBox), W("Rules that were saved under a name, and the command to save these"));
  EXPECT_EQ(TipOf(kCaseBox), W("Changes the letter case of what the templates make"));
  EXPECT_EQ(TipOf(kNameTags), W("Adds a tag to the template"));
  EXPECT_EQ(TipOf(kExtensionTags), W("Adds a tag to the template"));
  EXPECT_THAT(TipOf(kNameTemplate), testing::StartsWith(W("Template of the new name")));
  EXPECT_THAT(TipOf(kExtensionTemplate), testing::StartsWith(W("Template of the new extension")));
  EXPECT_EQ(SendMessageW(tips_, TTM_GETDELAYTIME, TTDT_INITIAL, 0), 1000);
  EXPECT_EQ(SendMessageW(tips_, TTM_GETDELAYTIME, TTDT_AUTOPOP, 0), 10000);
  EXPECT_EQ(SendMessageW(tips_, TTM_GETDELAYTIME, TTDT_RESHOW, 0), 500);
  EXPECT_EQ(SendMessageW(tips_, TTM_GETMAXTIPWIDTH, 0, 0), -1);
}

TEST_F(RulePanelWindow, MouseMessagesOfThePanelAreShownToTheTips) {
  Open();
  const SentMessages relayed(TTM_RELAYEVENT);
  PostMessageW(GetDlgItem(Panel(), kStartButton), WM_MOUSEMOVE, 0, MAKELPARAM(3, 3));
  Settle();
  EXPECT_GE(relayed.Controls().size(), 1u);
}

TEST_F(RulePanelWindow, ACallThatFailsLeavesTheWindowAsItIs) {
  Open({W("a.txt")});
  Type(kNameTemplate, W("b"));
  host_.beforeStringList = [] { throw std::runtime_error("the host fails"); };
  Press(kStartButton);
  host_.beforeStringList = nullptr;
  EXPECT_NE(Frame(), nullptr);
  EXPECT_THAT(host_.renames.itemRenames, IsEmpty());
  Press(kStartButton);
  EXPECT_EQ(host_.renames.itemRenames.size(), 1u);
}

TEST_F(RulePanelWindow, ATipWithAnAmpersandIsShownAsItIs) {
  host_.titles[kRenameTextStart] = W("R&ename %s && go");
  Open();
  EXPECT_EQ(TipOf(kStartButton), W("R&ename %s && go"));
  EXPECT_NE(GetWindowLongW(tips_, GWL_STYLE) & TTS_NOPREFIX, 0);
}

}  // namespace
