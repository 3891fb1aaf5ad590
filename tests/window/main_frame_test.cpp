// The frame of MultiRename's window from the view of its user: title, status bar, list, keys, menus, size.
#include <gmock/gmock.h>

#include "multirename/form/frame_form.h"
#include "multirename/form/panel_controls.h"
#include "window/held_key.h"
#include "window/modal_driver.h"
#include "window/opened_menu.h"
#include "window/rename_frame_window.h"

// windows.h must be included first.
#include <commctrl.h>

namespace {

using namespace Velmora::SDK;
using testing::ElementsAre;
using testing::IsEmpty;

class MainFrameWindow : public RenameFrameWindow {
 protected:
  MINMAXINFO Limits() const {
    MINMAXINFO limits = {};
    SendMessageW(Frame(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    return limits;
  }
  RECT Area(HWND window) const {
    RECT area = {};
    GetWindowRect(window, &area);
    return area;
  }
  SIZE SizeOf(HWND window) const {
    const RECT area = Area(window);
    return {area.right - area.left, area.bottom - area.top};
  }
  int FocusedNumber() const { return FocusedControl(Panel()); }

  // Like Settle, with a message box that opens and is closed by a button.
  void SettleWithBox(int button, WString* text = nullptr, WString* title = nullptr) {
    RunModal(
        [this] {
          Settle();
          return 0;
        },
        [&](HWND box) {
          if (text) *text = TextOf(box, 0xFFFF);
          if (title) *title = TextOf(box, kTitle);
          EXPECT_EQ(GetWindow(box, GW_OWNER), Frame());
          PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
        });
  }
};

TEST_F(MainFrameWindow, TitleStatusAndRowsAreThereAfterTheStart) {
  Open({W("b.txt"), W("a.txt")});
  EXPECT_EQ(TitleOfFrame(), W("MultiRename"));
  EXPECT_EQ(Pane(0), W("Items: 2"));
  EXPECT_THAT(OldNames(), ElementsAre(W("b.txt"), W("a.txt")));
  EXPECT_THAT(NewNames(), ElementsAre(W("b.txt"), W("a.txt")));
  EXPECT_TRUE(IsWindowVisible(Frame()));
  EXPECT_TRUE(IsWindowVisible(Panel()));
  EXPECT_TRUE(IsWindowVisible(List()));
}

TEST_F(MainFrameWindow, TheListHasTwoColumnsOfTwoHundredPixels) {
  Open({W("a")});
  WCHAR heading[100] = {};
  LVCOLUMNW column = {};
  column.mask = LVCF_TEXT | LVCF_WIDTH;
  column.pszText = heading;
  column.cchTextMax = 100;
  const auto ask = [&](WPARAM index) {
    return SendMessageW(List(), LVM_GETCOLUMNW, index, reinterpret_cast<LPARAM>(&column));
  };
  ASSERT_TRUE(ask(0));
  EXPECT_EQ(WString(heading), W("Old name"));
  EXPECT_EQ(column.cx, 200);
  ASSERT_TRUE(ask(1));
  EXPECT_EQ(WString(heading), W("New name"));
  EXPECT_EQ(column.cx, 200);
  EXPECT_FALSE(ask(2));
}

TEST_F(MainFrameWindow, TheListsImageSetIsInTheContext) {
  Open({W("a")});
  EXPECT_EQ(context_.imageSet, 5u);
}

TEST_F(MainFrameWindow, SelectedRowsAreCounted) {
  Open({W("a"), W("b"), W("c")});
  SelectRows({0, 2});
  EXPECT_EQ(Pane(0), W("Items: 3, selected: 2"));
  SelectRows({});
  EXPECT_EQ(Pane(0), W("Items: 3"));
}

TEST_F(MainFrameWindow, TheStatusPaneIs650PixelsWideAndTheCountsHaveTheRest) {
  Open();
  int edges[3] = {};
  EXPECT_EQ(SendMessageW(StatusBar(), SB_GETPARTS, 3, reinterpret_cast<LPARAM>(edges)), 2);
  RECT client = {};
  GetClientRect(Frame(), &client);
  EXPECT_EQ(client.right - edges[0], 650);
  EXPECT_EQ(edges[1], -1);
}

TEST_F(MainFrameWindow, AStatusWithPercentsAmpersandsAndTabsIsShownAsItIs) {
  Open();
  engine_->status.SetError(W("100 %s & %n\tx"));
  window_->Form().OnHostEvent(reinterpret_cast<std::intptr_t>(Panel()), kEventStatusChanged);
  EXPECT_THAT(Pane(1), testing::HasSubstr(W("100 %s & %n\tx")));
}

TEST_F(MainFrameWindow, ItHasTheIconOfNumber128OfTheHostsProgramInBothSizes) {
  Open();
  const auto iconOfHost = [](int number, int width, int height) {
    return LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(number), IMAGE_ICON,
                      GetSystemMetrics(width), GetSystemMetrics(height), LR_SHARED);
  };
  const auto iconOfFrame = [this](WPARAM kind) {
    return reinterpret_cast<HANDLE>(SendMessageW(Frame(), WM_GETICON, kind, 0));
  };
  EXPECT_NE(iconOfFrame(ICON_BIG), nullptr);
  EXPECT_EQ(iconOfFrame(ICON_BIG), iconOfHost(128, SM_CXICON, SM_CYICON));
  EXPECT_NE(iconOfFrame(ICON_SMALL), nullptr);
  EXPECT_EQ(iconOfFrame(ICON_SMALL), iconOfHost(128, SM_CXSMICON, SM_CYSMICON));
}

TEST_F(MainFrameWindow, TheFirstSizeIs855By410) {
  Open();
  EXPECT_EQ(SizeOf(Frame()).cx, 855);
  EXPECT_EQ(SizeOf(Frame()).cy, 410);
}

TEST_F(MainFrameWindow, ItIsNeverSmallerThan850By400) {
  Open();
  EXPECT_EQ(Limits().ptMinTrackSize.x, 850);
  EXPECT_EQ(Limits().ptMinTrackSize.y, 400);
  SetWindowPos(Frame(), nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
  EXPECT_EQ(SizeOf(Frame()).cx, 850);
  EXPECT_EQ(SizeOf(Frame()).cy, 400);
}

TEST_F(MainFrameWindow, TheListTakesTheHeightThatTheWindowGains) {
  Open({W("a")});
  const SIZE list = SizeOf(List());
  const SIZE panel = SizeOf(Panel());
  SetWindowPos(Frame(), nullptr, 0, 0, 1055, 560, SWP_NOMOVE | SWP_NOZORDER);
  EXPECT_EQ(SizeOf(List()).cx, list.cx + 200);
  EXPECT_EQ(SizeOf(List()).cy, list.cy + 150);
  EXPECT_EQ(SizeOf(Panel()).cx, panel.cx + 200);
  EXPECT_EQ(SizeOf(Panel()).cy, panel.cy);
  EXPECT_EQ(Area(Panel()).top, Area(List()).bottom);
  EXPECT_EQ(Area(Panel()).bottom, Area(StatusBar()).top);
}

TEST_F(MainFrameWindow, AnotherScaleOfTheMonitorGrowsTheFrameItsLeastSizeAndThePanel) {
  Open({W("a")});
  const SIZE panel = SizeOf(Panel());
  RECT area = {10, 10, 10 + 1280, 10 + 700};  // windows are not wider than the screen
  SendMessageW(Frame(), 0x02E0, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&area));
  Settle();
  EXPECT_EQ(SizeOf(Frame()).cx, 1280);
  EXPECT_EQ(Limits().ptMinTrackSize.x, 1275);
  EXPECT_EQ(Limits().ptMinTrackSize.y, 600);
  EXPECT_EQ(SizeOf(Panel()).cy, MulDiv(panel.cy, 3, 2));
  RECT client = {};
  GetClientRect(Frame(), &client);
  int edges[2] = {};
  SendMessageW(StatusBar(), SB_GETPARTS, 2, reinterpret_cast<LPARAM>(edges));
  EXPECT_EQ(client.right - edges[0], 975);
}

TEST_F(MainFrameWindow, AltWithAnArrowHomeAndEndMovesAllSelectedRows) {
  Open({W("a"), W("b"), W("c"), W("d"), W("e")});
  SelectRows({1, 3});
  PressFrameKey(VK_UP, true);
  EXPECT_THAT(OldNames(), ElementsAre(W("b"), W("a"), W("d"), W("c"), W("e")));
  EXPECT_THAT(SelectedRowsOfList(), ElementsAre(0, 2));
  PressFrameKey(VK_END, true);
  EXPECT_THAT(OldNames(), ElementsAre(W("a"), W("c"), W("e"), W("b"), W("d")));
  PressFrameKey(VK_HOME, true);
  EXPECT_THAT(OldNames(), ElementsAre(W("b"), W("d"), W("a"), W("c"), W("e")));
  PressFrameKey(VK_DOWN, true);
  EXPECT_THAT(OldNames(), ElementsAre(W("a"), W("b"), W("d"), W("c"), W("e")));
  EXPECT_THAT(SelectedRowsOfList(), ElementsAre(1, 2));
}

TEST_F(MainFrameWindow, TheSameKeysWithoutAltAreTheFieldsOwn) {
  Open({W("a"), W("b")});
  SelectRows({1});
  PressFrameKey(VK_HOME);
  EXPECT_THAT(OldNames(), ElementsAre(W("a"), W("b")));
}

TEST_F(MainFrameWindow, AltDownInABoxMovesRowsAndOpensNoList) {
  Open({W("a"), W("b")});
  SelectRows({0});
  SetFocus(GetDlgItem(Panel(), kCaseBox));
  PressFrameKey(VK_DOWN, true);
  EXPECT_THAT(OldNames(), ElementsAre(W("b"), W("a")));
  EXPECT_FALSE(SendDlgItemMessageW(Panel(), kCaseBox, CB_GETDROPPEDSTATE, 0, 0));
}

TEST_F(MainFrameWindow, TheKeysOfRowsMoveThemFromTheListAsWell) {
  Open({W("a"), W("b")});
  SetFocus(List());
  SelectRows({1});
  PressFrameKey(VK_UP, true);
  EXPECT_THAT(OldNames(), ElementsAre(W("b"), W("a")));
}

TEST_F(MainFrameWindow, EscapeAsksAndYesCloses) {
  Open();
  WString text;
  WString title;
  PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1);
  SettleWithBox(IDYES, &text, &title);
  EXPECT_EQ(text, W("Close MultiRename?"));
  EXPECT_EQ(title, W("Velmora - MultiRename"));
  EXPECT_EQ(Frame(), nullptr);
  EXPECT_EQ(closed_, 1);
}

TEST_F(MainFrameWindow, EscapeAsksAndNoOrCancelKeeps) {
  Open();
  for (const int button : {IDNO, IDCANCEL}) {
    SetFocus(List());
    PostMessageW(List(), WM_KEYDOWN, VK_ESCAPE, 1);
    SettleWithBox(button);
    EXPECT_NE(Frame(), nullptr);
  }
  EXPECT_EQ(closed_, 0);
}

TEST_F(MainFrameWindow, EscapeInAnOpenListClosesTheListAlone) {
  Open();
  SetFocus(GetDlgItem(Panel(), kCaseBox));
  PressFrameKey(VK_F4);
  ASSERT_TRUE(SendDlgItemMessageW(Panel(), kCaseBox, CB_GETDROPPEDSTATE, 0, 0));
  PressFrameKey(VK_ESCAPE);
  EXPECT_FALSE(SendDlgItemMessageW(Panel(), kCaseBox, CB_GETDROPPEDSTATE, 0, 0));
  EXPECT_NE(Frame(), nullptr);
}

TEST_F(MainFrameWindow, ASecondEscapeMessageDuringTheQuestionAsksNothing) {
  Open();
  RunModal(
      [this] {
        PostMessageW(Frame(), MRM_CONFIRM_CLOSE, 0, 0);
        Settle();
        return 0;
      },
      [this](HWND box) {
        SendMessageW(Frame(), MRM_CONFIRM_CLOSE, 0, 0);
        PostMessageW(box, WM_COMMAND, IDNO, 0);
      });
  EXPECT_NE(Frame(), nullptr);
}

TEST_F(MainFrameWindow, TheTabKeyLeadsThroughThePanelToTheListAndAround) {
  Open({W("a")});
  EXPECT_EQ(FocusedNumber(), kNameTemplate);
  std::vector<int> walked;
  for (int step = 0; step < 60 && GetFocus() != List(); ++step) {
    walked.push_back(FocusedNumber());
    PressFrameKey(VK_TAB);
  }
  EXPECT_EQ(GetFocus(), List());
  EXPECT_THAT(walked, ElementsAre(kNameTemplate, kNameTags, kExtensionTemplate, kExtensionTags, kCaseBox,
                                  kLivePreviewBox, kStartAt, kStepBy, kDigits, kProfileBox, kDeleteProfile,
                                  kPairList, kPairFind, kPairReplace, kPairAdd, kPairDialog, kPartsBox,
                                  kRegexBox, kReplaceAllBox, kCaseSensitiveBox, kSaveUndoBox, kResetButton,
                                  kUndoManagerButton, kStartButton, kCloseButton));
  PressFrameKey(VK_TAB);
  EXPECT_EQ(FocusedNumber(), kNameTemplate);
  const HeldKey shift(VK_SHIFT);
  PressFrameKey(VK_TAB);
  EXPECT_EQ(GetFocus(), List());
  PressFrameKey(VK_TAB);
  EXPECT_EQ(FocusedNumber(), kCloseButton);
}

TEST_F(MainFrameWindow, AccessKeysLeadToTheirFieldsFromTheListToo) {
  Open({W("a")});
  SetFocus(List());
  PressFrameAccessKey(W('d'));
  EXPECT_EQ(FocusedNumber(), kDigits);
  PressFrameAccessKey(W('n'));
  EXPECT_EQ(FocusedNumber(), kNameTemplate);
  SetFocus(List());
  PressFrameAccessKey(W('w'));
  EXPECT_FALSE(IsChecked(Panel(), kLivePreviewBox));
}

TEST_F(MainFrameWindow, TheFrameGivesTheFocusBackToTheControlThatHadIt) {
  Open({W("a")});
  SetFocus(GetDlgItem(Panel(), kStepBy));
  {
    const OwnerWindow other(200, 100);
    ASSERT_NE(GetFocus(), GetDlgItem(Panel(), kStepBy));
  }
  SetActiveWindow(Frame());
  EXPECT_EQ(GetFocus(), GetDlgItem(Panel(), kStepBy));
}

TEST_F(MainFrameWindow, TheListsMenuShowsTheMovesWithTheirKeys) {
  host_.keyText = W("Alt+Key");
  Open({W("a"), W("b"), W("c")});
  SelectRows({1});
  OpenedMenu menu;
  POINT place = {Area(List()).left + 40, Area(List()).top + 60};
  PostMessageW(List(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(List()), MAKELPARAM(place.x, place.y));
  // Selects the third line, which moves the row to the top.
  for (const WPARAM key : {VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN}) PostMessageW(Frame(), WM_KEYDOWN, key, 1);
  Settle();
  EXPECT_EQ(menu.opened, 1);
  EXPECT_THAT(menu.texts, ElementsAre(W("Move Up\tAlt+Key"), W("Move Down\tAlt+Key"),
                                      W("Move to the Top\tAlt+Key"), W("Move to the Bottom\tAlt+Key")));
  EXPECT_EQ(menu.area.left, place.x);
  EXPECT_EQ(menu.area.top, place.y);
  EXPECT_THAT(OldNames(), ElementsAre(W("b"), W("a"), W("c")));
}

TEST_F(MainFrameWindow, TheListsMenuLeftWithEscapeMovesNothing) {
  Open({W("a"), W("b")});
  SelectRows({1});
  OpenedMenu menu;
  PostMessageW(List(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(List()), MAKELPARAM(300, 300));
  PostMessageW(Frame(), WM_KEYDOWN, VK_ESCAPE, 1);
  Settle();
  EXPECT_EQ(menu.opened, 1);
  EXPECT_THAT(OldNames(), ElementsAre(W("a"), W("b")));
}

TEST_F(MainFrameWindow, ControlAndASelectsAllRowsThroughTheLoop) {
  Open({W("a"), W("b"), W("c")});
  SetFocus(List());
  const HeldKey control(VK_CONTROL);
  PressFrameKey('A');
  EXPECT_EQ(Pane(0), W("Items: 3, selected: 3"));
}

TEST_F(MainFrameWindow, NamesWithPercentsAndAmpersandsAreShownAsTheyAre) {
  Open({W("100 %s & %d.txt"), W("&x && y.txt")});
  EXPECT_THAT(OldNames(), ElementsAre(W("100 %s & %d.txt"), W("&x && y.txt")));
  EXPECT_THAT(NewNames(), ElementsAre(W("100 %s & %d.txt"), W("&x && y.txt")));
}

TEST_F(MainFrameWindow, NamesWithLineBreaksAndTabsAreShownAsTheyAreAndNewOnesLosePairsOfCrAndLf) {
  Open({W("a\r\nb %n.txt"), W("a\nb.txt"), W("tab\tbed & more")});
  EXPECT_THAT(OldNames(), ElementsAre(W("a\r\nb %n.txt"), W("a\nb.txt"), W("tab\tbed & more")));
  EXPECT_THAT(NewNames(), ElementsAre(W("ab %n.txt"), W("a\nb.txt"), W("tab\tbed & more")));
}

TEST_F(MainFrameWindow, AnEmptySelectionStillOpensTheWindow) {
  Open();
  EXPECT_THAT(OldNames(), IsEmpty());
  EXPECT_EQ(Pane(0), W("Items: 0"));
}

}  // namespace
