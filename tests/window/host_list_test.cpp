// The host's list as a real list view, from the view of its user and of MultiRename's window.
#include "window/hosted_list.h"

// windows.h must be included first.
#include <commctrl.h>
#include <gmock/gmock.h>

#include <functional>
#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <thread>

#include "host/controls/controls.h"
#include "window/cell_pixels.h"
#include "window/held_key.h"
#include "window/screenshot.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using namespace Velmora::SDK;

class HostListWindow : public HostedList {
 protected:
  WString CellText(int place, int subItem) const {
    WString text(5000, WCHAR());
    LVITEMW item = {};
    item.iSubItem = subItem;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    text.resize(static_cast<std::size_t>(
        Send(LVM_GETITEMTEXTW, static_cast<WPARAM>(place), reinterpret_cast<LPARAM>(&item))));
    return text;
  }

  int PixelsOf(int place, int subItem, COLORREF color) const {
    return PixelsOfCell(window_, place, subItem, color);
  }

  // Returns the number of pixels of a cell that differ from the background colour.
  int InkOf(int place, int subItem) const {
    const RECT area = AreaOfCell(window_, place, subItem);
    const int all = static_cast<int>((area.right - area.left) * (area.bottom - area.top));
    return all - PixelsOf(place, subItem, GetSysColor(COLOR_WINDOW));
  }

  void Click(int place, WPARAM keys = 0, UINT down = WM_LBUTTONDOWN, UINT up = WM_LBUTTONUP) {
    const RECT area = RowArea(place);
    const LPARAM point = MAKELPARAM(area.left + 40, (area.top + area.bottom) / 2);
    PostMessageW(window_, down, keys | MK_LBUTTON, point);
    PostMessageW(window_, up, keys, point);
    TakeMessages();
  }

  void PressListKey(WORD key) {
    Send(WM_KEYDOWN, key, 1);
    Send(WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    TakeMessages();
  }

  // Offers a key press to the list from the message loop, with or without Control. Returns whether the list
  // took it.
  bool OfferKey(WPARAM key, bool withControl) {
    std::optional<HeldKey> control;
    if (withControl) control.emplace(VK_CONTROL);
    MSG message = {};
    message.hwnd = window_;
    message.message = WM_KEYDOWN;
    message.wParam = key;
    return list_->FilterMessage(&message);
  }

  void AddMany(int count) {
    void* const item = rows_.Add(W("row"));
    for (int row = 0; row < count; ++row) list_->AddRow(list_->CreateRow(item));
    list_->Refresh();
  }

  // An upper limit for the requested texts: two columns of each visible row, one more row and the focused
  // row, each several times.
  int MaxRequests() const { return (static_cast<int>(Send(LVM_GETCOUNTPERPAGE)) + 2) * 2 * 4; }
};

TEST_F(HostListWindow, RowsAreAskedForWhenTheyArePaintedAndNotBefore) {
  AddRows({W("one"), W("two")});
  EXPECT_EQ(rows_.texts, 0);
  Paint();
  EXPECT_GE(rows_.texts, 4);
  EXPECT_EQ(Send(LVM_GETITEMCOUNT), 2);
}

TEST_F(HostListWindow, ShowsTheTextsOfItsColumnsByTheirNumbers) {
  AddRows({W("one"), W("two")});
  EXPECT_EQ(CellText(0, 0), W("one"));
  EXPECT_EQ(CellText(1, 1), W("owt"));
}

TEST_F(HostListWindow, AddedRowsShowWithoutARefreshOnceTheLoopRuns) {
  list_->AddRow(list_->CreateRow(rows_.Add(W("one"))));
  TakeMessages();
  EXPECT_EQ(Send(LVM_GETITEMCOUNT), 1);
  EXPECT_EQ(CellText(0, 0), W("one"));
}

TEST_F(HostListWindow, AMillionRowsAreAskedForPageByPage) {
  AddMany(1000000);
  EXPECT_EQ(Send(LVM_GETITEMCOUNT), 1000000);
  Paint();
  EXPECT_GT(rows_.texts, 0);
  EXPECT_LE(rows_.texts, MaxRequests());
  rows_.texts = 0;
  Send(LVM_ENSUREVISIBLE, 999999, FALSE);
  Paint();
  EXPECT_GT(rows_.texts, 0);
  EXPECT_LE(rows_.texts, 2 * MaxRequests());
  EXPECT_THAT(Counts(), Pair(1000000u, 0u));
}

TEST_F(HostListWindow, AMillionSelectedRowsStayWhereTheyAreAndOneOfThemMoves) {
  AddMany(1000000);
  EXPECT_TRUE(OfferKey('A', true));
  TakeMessages();
  EXPECT_THAT(Counts(), Pair(1000000u, 1000000u));
  EXPECT_EQ(events_.size(), 1u);
  list_->MoveRowUp();
  EXPECT_THAT(Counts(), Pair(1000000u, 1000000u));
  list_->Clear();
  AddMany(1000000);
  Select(500000);
  list_->MoveRowTop();
  EXPECT_THAT(Counts(), Pair(1000000u, 1u));
  EXPECT_NE(Send(LVM_GETITEMSTATE, 0, LVIS_SELECTED), 0);
  EXPECT_LE(rows_.texts, 4 * MaxRequests());
}

TEST_F(HostListWindow, AClickWithAMillionSelectedRowsSelectsOneAndNothingElseMoves) {
  AddMany(1000000);
  OfferKey('A', true);
  Send(LVM_ENSUREVISIBLE, 500000, FALSE);
  TakeMessages();
  events_.clear();
  const LRESULT top = Send(LVM_GETTOPINDEX);
  Click(499998);
  EXPECT_THAT(Counts(), Pair(1000000u, 1u));
  EXPECT_NE(Send(LVM_GETITEMSTATE, 499998, LVIS_SELECTED), 0);
  EXPECT_EQ(FocusedPlace(), 499998);
  EXPECT_EQ(Send(LVM_GETTOPINDEX), top);
  EXPECT_EQ(events_.size(), 1u);
}

// The outcome of an action in a list in which all rows are selected. Positions and counts above one half are
// reduced by the number of rows, so that lists of different lengths can be compared.
struct ActOutcome {
  int firstSelected;
  int lastSelected;
  int selectedCount;
  int focused;
  int top;
  std::size_t events;
  bool operator==(const ActOutcome&) const = default;
};

void PrintTo(const ActOutcome& outcome, std::ostream* out) {
  *out << "selected " << outcome.firstSelected << " to " << outcome.lastSelected << ", "
       << outcome.selectedCount << " rows; focused " << outcome.focused << ", top " << outcome.top << ", "
       << outcome.events << " events";
}

class HostListSelection : public HostListWindow {
 protected:
  using Act = std::function<void()>;

  // A negative `focused` counts from the end.
  ActOutcome OutcomeOf(int count, int focused, const Act& act) {
    if (focused < 0) focused += count;
    list_->Clear();
    AddMany(count);
    OfferKey('A', true);
    Focus(focused);
    Send(LVM_SETSELECTIONMARK, 0, focused);
    Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(focused), FALSE);
    TakeMessages();
    events_.clear();
    act();
    TakeMessages();
    const auto fromEnd = [count](int number) { return number > count / 2 ? number - count : number; };
    const std::vector<int> selected = SelectedPlaces();
    return {selected.empty() ? 0 : fromEnd(selected.front()), selected.empty() ? 0 : fromEnd(selected.back()),
            fromEnd(static_cast<int>(selected.size())),       fromEnd(FocusedPlace()),
            fromEnd(static_cast<int>(Send(LVM_GETTOPINDEX))), events_.size()};
  }

  // Compares a list whose rows the list view deselects by itself with a longer one.
  void ExpectSameWithMany(const std::string& name, std::initializer_list<int> focusedRows, const Act& act) {
    for (const int focused : focusedRows) {
      EXPECT_EQ(OutcomeOf(320, focused, act), OutcomeOf(290, focused, act)) << name << " at " << focused;
    }
  }

  void PressButton(UINT down, UINT up, WPARAM keys, int x, bool isRowSelected) {
    const int row = static_cast<int>(Send(LVM_GETTOPINDEX)) + 2;
    Select(row, isRowSelected);
    TakeMessages();
    events_.clear();
    std::optional<HeldKey> held;
    if (keys != 0) held.emplace(keys == MK_SHIFT ? VK_SHIFT : VK_CONTROL);
    const RECT area = RowArea(row);
    const LPARAM point = MAKELPARAM(x, (area.top + area.bottom) / 2);
    PostMessageW(window_, down, keys, point);
    PostMessageW(window_, up, keys, point);
    TakeMessages();
  }
};

TEST_F(HostListSelection, KeysDoTheSameWithManySelectedRowsAsWithFew) {
  SetFocus(window_);
  for (const int key : {VK_UP, VK_DOWN, VK_PRIOR, VK_NEXT, VK_HOME, VK_END}) {
    for (const int held : {0, VK_CONTROL, VK_SHIFT}) {
      ExpectSameWithMany("key " + std::to_string(key) + " with " + std::to_string(held), {0, 30, -1}, [&] {
        std::optional<HeldKey> keyHeld;
        if (held != 0) keyHeld.emplace(held);
        PressListKey(static_cast<WORD>(key));
      });
    }
  }
}

TEST_F(HostListSelection, ClicksDoTheSameWithManySelectedRowsAsWithFew) {
  constexpr std::pair<UINT, UINT> kButtons[] = {{WM_LBUTTONDOWN, WM_LBUTTONUP},
                                                {WM_RBUTTONDOWN, WM_RBUTTONUP}};
  constexpr int kInRow = 40;
  constexpr int kOutsideRow = 700;
  for (const auto& button : kButtons) {
    for (const int keys : {0, MK_CONTROL, MK_SHIFT}) {
      for (const int x : {kInRow, kOutsideRow}) {
        for (const bool isRowSelected : {true, false}) {
          const std::string name = "button " + std::to_string(button.first) + " with " +
                                   std::to_string(keys) + " at " + std::to_string(x) +
                                   (isRowSelected ? ", selected" : "");
          ExpectSameWithMany(name, {30}, [&] {
            PressButton(button.first, button.second, static_cast<WPARAM>(keys), x, isRowSelected);
          });
        }
      }
    }
  }
}

TEST_F(HostListWindow, AColourIsThatOfItsCellAlone) {
  AddRows({W("rMMMMMM"), W("xMMMMMM")});
  Paint();
  EXPECT_GT(PixelsOf(0, 1, ColoredRows::kRed), 10);
  EXPECT_EQ(PixelsOf(1, 1, ColoredRows::kRed), 0);
  EXPECT_GT(PixelsOf(1, 1, GetSysColor(COLOR_WINDOWTEXT)), 10);
}

TEST_F(HostListWindow, AMarkedCellIsBoldAndItsRowIsNot) {
  AddRows({W("mnmnmn"), W("nmnmnm")});
  Paint();
  EXPECT_GT(InkOf(0, 1), InkOf(1, 1));
  EXPECT_NEAR(InkOf(0, 0), InkOf(1, 0), 12);
}

TEST_F(HostListWindow, AClickIsOneEventAndCountsTheRow) {
  AddRows({W("a"), W("b"), W("c")});
  Click(1);
  EXPECT_THAT(events_,
              ElementsAre(Pair(static_cast<std::intptr_t>(list_->GetId()), QxHost::kSelectionChanged)));
  EXPECT_THAT(Counts(), Pair(3u, 1u));
  Click(2);
  EXPECT_EQ(events_.size(), 2u);
  EXPECT_THAT(SelectedPlaces(), ElementsAre(2));
}

TEST_F(HostListWindow, ClickWithControlAndWithShiftSelectSeveral) {
  AddRows({W("a"), W("b"), W("c"), W("d"), W("e")});
  Click(0);
  {
    const HeldKey control(VK_CONTROL);
    Click(2, MK_CONTROL);
  }
  EXPECT_THAT(SelectedPlaces(), ElementsAre(0, 2));
  {
    const HeldKey shift(VK_SHIFT);
    Click(4, MK_SHIFT);
  }
  EXPECT_THAT(SelectedPlaces(), ElementsAre(2, 3, 4));
  EXPECT_THAT(Counts(), Pair(5u, 3u));
}

TEST_F(HostListWindow, ArrowKeysSelectAndAreEvents) {
  AddRows({W("a"), W("b")});
  SetFocus(window_);
  Focus(0);
  TakeMessages();
  events_.clear();
  PressListKey(VK_DOWN);
  EXPECT_THAT(SelectedPlaces(), ElementsAre(1));
  EXPECT_EQ(events_.size(), 1u);
}

TEST_F(HostListWindow, ControlAndASelectsAllRowsInOneEvent) {
  AddRows({W("a"), W("b"), W("c")});
  EXPECT_TRUE(OfferKey('A', true));
  EXPECT_FALSE(OfferKey('B', true));
  EXPECT_FALSE(OfferKey('A', false));
  TakeMessages();
  EXPECT_THAT(Counts(), Pair(3u, 3u));
  EXPECT_EQ(events_.size(), 1u);
}

TEST_F(HostListWindow, KeysOfOtherWindowsAreLeftAlone) {
  AddRows({W("a")});
  const HeldKey control(VK_CONTROL);
  MSG message = {};
  message.hwnd = frame_.Get();
  message.message = WM_KEYDOWN;
  message.wParam = 'A';
  EXPECT_FALSE(list_->FilterMessage(&message));
  EXPECT_FALSE(list_->FilterMessage(nullptr));
  EXPECT_THAT(SelectedPlaces(), IsEmpty());
}

TEST_F(HostListWindow, F2BeginsNoEditing) {
  AddRows({W("a")});
  SetFocus(window_);
  Select(0);
  Focus(0);
  PressListKey(VK_F2);
  EXPECT_EQ(Send(LVM_GETEDITCONTROL), 0);
}

TEST_F(HostListWindow, ATypedLetterLeadsToTheNextRowThatBeginsSo) {
  AddRows({W("alpha"), W("beta"), W("Bravo"), W("gamma")});
  SetFocus(window_);
  Focus(0);
  Send(WM_CHAR, 'g', 1);
  EXPECT_EQ(FocusedPlace(), 3);
}

TEST_F(HostListWindow, SeveralRowsMoveAtOnceAndStaySelected) {
  AddRows({W("a"), W("b"), W("c"), W("d"), W("e")});
  Select(1);
  Select(3);
  Focus(3);
  TakeMessages();
  events_.clear();
  list_->MoveRowUp();
  EXPECT_THAT(Names(), ElementsAre(W("b"), W("a"), W("d"), W("c"), W("e")));
  EXPECT_THAT(SelectedPlaces(), ElementsAre(0, 2));
  EXPECT_EQ(FocusedPlace(), 2);
  list_->MoveRowBottom();
  EXPECT_THAT(Names(), ElementsAre(W("a"), W("c"), W("e"), W("b"), W("d")));
  EXPECT_THAT(SelectedPlaces(), ElementsAre(3, 4));
  list_->MoveRowTop();
  EXPECT_THAT(Names(), ElementsAre(W("b"), W("d"), W("a"), W("c"), W("e")));
  list_->MoveRowDown();
  EXPECT_THAT(Names(), ElementsAre(W("a"), W("b"), W("d"), W("c"), W("e")));
  EXPECT_THAT(SelectedPlaces(), ElementsAre(1, 2));
  EXPECT_EQ(CellText(2, 0), W("d"));
  TakeMessages();
  EXPECT_THAT(events_, IsEmpty());
}

TEST_F(HostListWindow, WhateverMovesTheSameRowsStaySelectedAndFocused) {
  std::mt19937 random(3);
  using Move = void (IHostList::*)();
  constexpr Move kMoves[] = {&IHostList::MoveRowUp, &IHostList::MoveRowDown, &IHostList::MoveRowTop,
                             &IHostList::MoveRowBottom};
  AddRows({W("a"), W("b"), W("c"), W("d"), W("e"), W("f"), W("g"), W("h"), W("i")});
  for (int round = 0; round < 300; ++round) {
    const unsigned density = random() % 5;
    for (int place = 0; place < 9; ++place) Select(place, random() % 5 <= density);
    Focus(static_cast<int>(random() % 9));
    const auto namesAt = [this](const std::vector<int>& places) {
      const std::vector<WString> names = Names();
      std::vector<WString> some;
      for (const int place : places) some.push_back(names[static_cast<std::size_t>(place)]);
      return some;
    };
    const std::vector<WString> selected = namesAt(SelectedPlaces());
    const std::vector<WString> focused = namesAt({FocusedPlace()});
    (list_->*kMoves[random() % 4])();
    ASSERT_EQ(namesAt(SelectedPlaces()), selected) << "round " << round;
    if (!selected.empty()) {
      ASSERT_EQ(namesAt({FocusedPlace()}), focused) << "round " << round;
    }
  }
}

TEST_F(HostListWindow, ClearTakesRowsAndSelectionOutBeforeItReturns) {
  AddRows({W("a"), W("b"), W("c")});
  Select(1);
  Focus(1);
  TakeMessages();
  events_.clear();
  list_->Clear();
  EXPECT_EQ(Send(LVM_GETITEMCOUNT), 0);
  EXPECT_THAT(Counts(), Pair(0u, 0u));
  TakeMessages();
  EXPECT_EQ(events_.size(), 1u);
  AddRows({W("d"), W("e"), W("f")});
  EXPECT_THAT(SelectedPlaces(), IsEmpty());
  EXPECT_EQ(CellText(1, 0), W("e"));
}

TEST_F(HostListWindow, ClearOnAnotherThreadTakesTheRowsOutAtOnceAndTheScreenFollows) {
  AddRows({W("a"), W("b")});
  Select(0);
  std::thread([this] {
    list_->Clear();
    list_->SetRowProvider(nullptr);
  }).join();
  EXPECT_EQ(list_->GetRows(nullptr, 0), 0u);
  Paint();
  EXPECT_EQ(CellText(0, 0), W(""));
  list_->SetRowProvider(&rows_);
  AddRows({W("c"), W("d")});
  TakeMessages();
  EXPECT_THAT(SelectedPlaces(), IsEmpty());
  EXPECT_EQ(CellText(0, 0), W("c"));
}

TEST_F(HostListWindow, TextsWithPercentsAmpersandsAndLineBreaksAreShownAsTheyAre) {
  AddRows({W("100 %s %n %d.txt"), W("a & b && &c.txt"), W("line\r\nbreak\ttab"), WString(40000, W('m')),
           W(""), W("plain")});
  EXPECT_EQ(CellText(0, 0), W("100 %s %n %d.txt"));
  EXPECT_EQ(CellText(1, 0), W("a & b && &c.txt"));
  EXPECT_EQ(CellText(2, 0), W("line\r\nbreak\ttab"));
  const WString cut = CellText(3, 0);
  EXPECT_GT(cut.size(), 200u);
  EXPECT_EQ(cut, WString(cut.size(), W('m')));
  EXPECT_EQ(CellText(4, 0), W(""));
  Paint();
  const LONG height = RowArea(5).bottom - RowArea(5).top;
  for (int place = 0; place < 5; ++place) {
    EXPECT_EQ(RowArea(place).bottom - RowArea(place).top, height) << place;
    EXPECT_EQ(RowArea(place).top, RowArea(0).top + place * height) << place;
  }
  EXPECT_TRUE(SaveScreenshot(frame_.Get(), W("host_list_hostile_texts")));
}

TEST_F(HostListWindow, TheWidthOfAColumnIsTheUsersInTheNextWindow) {
  EXPECT_EQ(Send(LVM_GETCOLUMNWIDTH, 0), 200);
  Send(LVM_SETCOLUMNWIDTH, 1, 345);
  ReleaseControls();
  DestroyWindow(containerWindow_);
  MakeControls();
  EXPECT_EQ(Send(LVM_GETCOLUMNWIDTH, 0), 200);
  EXPECT_EQ(Send(LVM_GETCOLUMNWIDTH, 1), 345);
}

TEST_F(HostListWindow, TheWidthIsKeptToIfTheWindowGoesBeforeItIsGivenBack) {
  Send(LVM_SETCOLUMNWIDTH, 0, 99);
  DestroyWindow(containerWindow_);
  EXPECT_THAT(Counts(), Pair(0u, 0u));
  list_->AddRow(rows_.Add(W("late")));
  list_->Refresh();
  list_->MoveRowUp();
  list_->Clear();
  ReleaseControls();
  MakeControls();
  EXPECT_EQ(Send(LVM_GETCOLUMNWIDTH, 0), 99);
}

TEST_F(HostListWindow, ADoubleClickOnADividerFitsTheColumnToTheRowsThatShow) {
  AddMany(1000000);
  NMHEADERW click = {};
  click.hdr.hwndFrom = reinterpret_cast<HWND>(Send(LVM_GETHEADER));
  click.hdr.code = HDN_DIVIDERDBLCLICKW;
  click.iItem = 0;
  Send(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&click));
  const LRESULT narrow = Send(LVM_GETCOLUMNWIDTH, 0);
  EXPECT_LT(narrow, 200);
  EXPECT_GT(narrow, Send(LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(W("row"))));
  EXPECT_LE(rows_.texts, MaxRequests());
  list_->Clear();
  AddRows({WString(60, W('m'))});
  Send(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&click));
  const WString wide(60, W('m'));
  EXPECT_GT(Send(LVM_GETCOLUMNWIDTH, 0),
            Send(LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(wide.c_str())));
}

TEST_F(HostListWindow, HigherRowsAreAsHighAsWantedAndLowerOnesAsTheirText) {
  AddRows({W("a")});
  const LONG natural = RowArea(0).bottom - RowArea(0).top;
  EXPECT_GE(natural, 16);
  list_->SetRowHeight(4);
  EXPECT_EQ(RowArea(0).bottom - RowArea(0).top, natural);
  list_->SetRowHeight(40);
  EXPECT_NEAR(RowArea(0).bottom - RowArea(0).top, 40, 4);
}

// The window has moved from a monitor with a large scale to one with a small scale.
TEST_F(HostListWindow, RowsThatWereHighAreLowAgain) {
  AddRows({W("a")});
  const LONG natural = RowArea(0).bottom - RowArea(0).top;
  list_->SetRowHeight(32);
  ASSERT_GT(RowArea(0).bottom - RowArea(0).top, natural);
  list_->SetRowHeight(16);
  EXPECT_EQ(RowArea(0).bottom - RowArea(0).top, natural);
  EXPECT_EQ(Send(LVM_GETIMAGELIST, LVSIL_STATE), 0);
}

TEST_F(HostListWindow, AListThatIsGivenBackAsksForNothingAnyMore) {
  AddRows({W("a"), W("b")});
  ReleaseControls();
  rows_.texts = 0;
  Paint();
  TakeMessages();
  EXPECT_EQ(rows_.texts, 0);
  EXPECT_EQ(Send(LVM_GETITEMCOUNT), 0);
}

TEST_F(HostListWindow, RowsHaveTheShellsImages) {
  AddRows({W("a"), W("rot"), W("marked")});
  const auto images = reinterpret_cast<HIMAGELIST>(Send(LVM_GETIMAGELIST, LVSIL_SMALL));
  ASSERT_NE(images, nullptr);
  EXPECT_GT(ImageList_GetImageCount(images), 0);
  Paint();
  RECT icon = {LVIR_ICON, 0, 0, 0};
  Send(LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&icon));
  EXPECT_GE(icon.right - icon.left, 16);
  EXPECT_TRUE(SaveScreenshot(frame_.Get(), W("host_list")));
}

// Records the events that the list sends to the module for its context menu.
class RecordedMenu final : public IEventCallback {
 public:
  void Destroy() override {}
  void Release() override { ++releases; }
  s32 OnEvent(u32 event, void* information) override {
    EXPECT_EQ(event, 1u);
    menus.push_back(*static_cast<const ListContextMenu*>(information));
    return 0;
  }

  std::vector<ListContextMenu> menus;
  int releases = 0;
};

TEST_F(HostListWindow, ARightClickIsTheContextMenuEventAtItsPlace) {
  RecordedMenu menu;
  list_->SetEventCallback(kListContextMenu, &menu);
  AddRows({W("a"), W("b")});
  const RECT area = RowArea(1);
  POINT point = {area.left + 30, (area.top + area.bottom) / 2};
  const LPARAM place = MAKELPARAM(point.x, point.y);
  PostMessageW(window_, WM_RBUTTONDOWN, MK_RBUTTON, place);
  PostMessageW(window_, WM_RBUTTONUP, 0, place);
  TakeMessages();
  ASSERT_EQ(menu.menus.size(), 1u);
  EXPECT_EQ(menu.menus[0].window, window_);
  EXPECT_THAT(SelectedPlaces(), ElementsAre(1));
  ReleaseControls();
  EXPECT_EQ(menu.releases, 1);
}

TEST_F(HostListWindow, AMenuBeyondTheLeftOfTheScreenKeepsItsPlace) {
  RecordedMenu menu;
  list_->SetEventCallback(kListContextMenu, &menu);
  Send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window_), MAKELPARAM(-300, 20));
  ASSERT_EQ(menu.menus.size(), 1u);
  EXPECT_EQ(menu.menus[0].x, -300);
  EXPECT_EQ(menu.menus[0].y, 20);
  ReleaseControls();
}

TEST_F(HostListWindow, AMenuAskedForByAKeyOpensBelowTheFocusedRow) {
  RecordedMenu menu;
  list_->SetEventCallback(kListContextMenu, &menu);
  AddRows({W("a"), W("b"), W("c")});
  Focus(2);
  Send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window_), -1);
  ASSERT_EQ(menu.menus.size(), 1u);
  POINT corner = {0, RowArea(2).bottom};
  ClientToScreen(window_, &corner);
  EXPECT_EQ(menu.menus[0].y, corner.y);
  EXPECT_GE(menu.menus[0].x, corner.x);
  ReleaseControls();
}

TEST_F(HostListWindow, TheMenuOfTheHeaderIsNoneOfTheRows) {
  RecordedMenu menu;
  list_->SetEventCallback(kListContextMenu, &menu);
  Send(WM_CONTEXTMENU, static_cast<WPARAM>(Send(LVM_GETHEADER)), MAKELPARAM(5, 5));
  EXPECT_THAT(menu.menus, IsEmpty());
  ReleaseControls();
}

}  // namespace
