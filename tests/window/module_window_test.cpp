// A user of MultiRename's window of the built module, in the real host, over real files: runs that fail in
// part, sessions undone later, profiles and numbered lists that are stored across windows, moved rows.
#include "window/module_window.h"

#include "frame/host/command_numbers.h"
#include "window/cell_pixels.h"
#include "window/dialog_controls.h"
#include "window/list_rows.h"
#include "window/screenshot.h"

using namespace Velmora::SDK;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr COLORREF kDuplicateTextColor = 0x1621BB;
constexpr COLORREF kFailedTextColor = 0x0B1699;

// Control ids of the panel.
enum : int {
  kName = 1034,
  kProfiles = 1045,
  kProfileX = 1044,
  kPairRows = 1118,
  kPairDots = 1117,
  kPairFind = 1020,
  kPairAdd = 1119,
  kReset = 1071,
  kUndo = 1040,
  kUndoDots = 1049,
  kStart = 1003,
};
// Control ids of the dialogs.
enum : int { kPairLines = 1110, kSessionRows = 1053, kSessionFiles = 1052, kBoxText = 0xFFFF };

class ModuleWindowUse : public ModuleWindow {
 protected:
  static void WaitForNames(WindowUser& user, const std::vector<WString>& names) {
    user.WaitUntil("the new names", [&] { return user.NewNames() == names; });
  }
  static void WaitForStatus(WindowUser& user, const WString& status) {
    user.WaitUntil(ToUtf8(status), [&] { return user.Pane(1) == status; });
  }
  // Takes the screenshot on the window's own thread.
  static void Photograph(WindowUser& user, const WString& name) {
    user.Do([&] { EXPECT_TRUE(SaveScreenshot(user.Frame(), name)); });
  }
  static int RedPixels(WindowUser& user, int row, COLORREF color) {
    int pixels = 0;
    user.Do([&] {
      UpdateWindow(user.List());
      pixels = PixelsOfCell(user.List(), row, 1, color);
    });
    return pixels;
  }
  static SIZE SizeOfFrame(WindowUser& user) {
    RECT area = {};
    GetWindowRect(user.Frame(), &area);
    return {area.right - area.left, area.bottom - area.top};
  }
};

TEST_F(ModuleWindowUse, AltWithArrowsMovesAllSelectedRowsAndTheRunCountsThemInTheNewOrder) {
  StartWith({W("a.t"), W("b.t"), W("c.t"), W("d.t"), W("e.t")});
  Use([](WindowUser& user) {
    user.SelectRows({1, 3});
    user.PressKey(VK_UP, {VK_MENU});
    EXPECT_THAT(user.OldNames(), ElementsAre(W("b.t"), W("a.t"), W("d.t"), W("c.t"), W("e.t")));
    EXPECT_THAT(user.SelectedRows(), ElementsAre(0, 2));
    EXPECT_EQ(user.Pane(0), W("Items: 5, selected: 2"));
    user.PressKey(VK_END, {VK_MENU});
    EXPECT_THAT(user.OldNames(), ElementsAre(W("a.t"), W("c.t"), W("e.t"), W("b.t"), W("d.t")));
    user.PressKey(VK_HOME, {VK_MENU});
    user.PressKey(VK_DOWN, {VK_MENU});
    EXPECT_THAT(user.OldNames(), ElementsAre(W("a.t"), W("b.t"), W("d.t"), W("c.t"), W("e.t")));
    EXPECT_THAT(user.SelectedRows(), ElementsAre(1, 2));
    user.Type(kName, W("[C]"));
    WaitForNames(user, {W("01.t"), W("02.t"), W("03.t"), W("04.t"), W("05.t")});
    user.Press(kStart);
    WaitForStatus(user, W("5 Renamed"));
    user.Close();
  });
  EXPECT_EQ(ContentOf(W("02.t")), "b.t");
  EXPECT_EQ(ContentOf(W("03.t")), "d.t");
  EXPECT_EQ(ContentOf(W("04.t")), "c.t");
}

TEST_F(ModuleWindowUse, ARunWithAFailingRowShowsItInItsColourAndRenamesTheOthers) {
  StartWith({W("a.txt"), W("b.txt"), W("c.txt")});
  hosted_.scratch.Write(W("files\\new02.txt"), "in the way");
  Use([](WindowUser& user) {
    user.Type(kName, W("new[C]"));
    WaitForNames(user, {W("new01.txt"), W("new02.txt"), W("new03.txt")});
    EXPECT_EQ(RedPixels(user, 1, kFailedTextColor), 0);
    EXPECT_FALSE(user.IsEnabled(kUndo));
    user.Press(kStart);
    WaitForStatus(user, W("2 Renamed, 1 Failed"));
    EXPECT_THAT(user.NewNames(),
                ElementsAre(W("new01.txt"), W("new02.txt > was not renamed"), W("new03.txt")));
    EXPECT_EQ(RedPixels(user, 0, kFailedTextColor), 0);
    EXPECT_GT(RedPixels(user, 1, kFailedTextColor), 10);
    EXPECT_EQ(RedPixels(user, 2, kFailedTextColor), 0);
    EXPECT_TRUE(user.IsEnabled(kUndo));
    Photograph(user, W("rename_window_failed_row"));
    // The failed row blocks another run until there is a new preview.
    user.Press(kStart);
    const HWND box = user.WaitForPopup();
    EXPECT_EQ(TextOf(box, kBoxText),
              W("Rows in colour stand against the renames. Change the rules until no row is in the way."));
    user.Press(box, IDOK);
    user.WaitForNoPopup();
    EXPECT_EQ(user.Pane(1), W("2 Renamed, 1 Failed"));
    user.Close();
  });
  EXPECT_THAT(Names(), ElementsAre(W("b.txt"), W("new01.txt"), W("new02.txt"), W("new03.txt")));
  EXPECT_EQ(ContentOf(W("new02.txt")), "in the way");
}

TEST_F(ModuleWindowUse, RowsInTheWayOfEachOtherAreRedAndNothingIsRenamed) {
  const std::vector<WString> names = {W("Beach copy.jpg"), W("Beach.jpg"), W("Boat copy.jpg"),
                                      W("Dinner 100 % & more.jpg"), W("Sunset.jpg")};
  StartWith(names);
  Use([](WindowUser& user) {
    user.Type(kPairFind, W(" copy"));
    user.Press(kPairAdd);
    user.WaitUntil("the rows in the way", [&] { return RedPixels(user, 0, kDuplicateTextColor) > 10; });
    EXPECT_THAT(user.NewNames(), ElementsAre(W("Same name as another row"), W("Same name as another row"),
                                             W("Boat.jpg"), W("Dinner 100 % & more.jpg"), W("Sunset.jpg")));
    EXPECT_GT(RedPixels(user, 1, kDuplicateTextColor), 10);
    EXPECT_EQ(RedPixels(user, 2, kDuplicateTextColor), 0);
    Photograph(user, W("rename_window_rows_in_the_way"));
    user.Press(kStart);
    user.Press(user.WaitForPopup(), IDOK);
    user.WaitForNoPopup();
    user.Close();
  });
  EXPECT_EQ(Names(), names);
}

TEST_F(ModuleWindowUse, ASessionIsTakenBackFromTheManagerOfALaterWindow) {
  StartWith({W("100 % & more.txt"), W("b.txt")});
  Use([](WindowUser& user) {
    user.Type(kName, W("new[C]"));
    WaitForNames(user, {W("new01.txt"), W("new02.txt")});
    user.Press(kStart);
    WaitForStatus(user, W("2 Renamed"));
    user.Close();
  });
  EXPECT_THAT(Names(), ElementsAre(W("new01.txt"), W("new02.txt")));
  Renew();
  Use([](WindowUser& user) {
    EXPECT_FALSE(user.IsEnabled(kUndo));
    user.Press(kUndoDots);
    const HWND dialog = user.WaitForPopup();
    ASSERT_EQ(TableRowsOf(dialog, kSessionRows).size(), 1u);
    ClickCell(dialog, kSessionRows, 0, 0);
    user.WaitUntil("the session's files", [&] { return TableRowsOf(dialog, kSessionFiles).size() == 2; });
    EXPECT_THAT(TableRowsOf(dialog, kSessionFiles)[0], testing::Contains(W("100 % & more.txt")));
    user.Press(dialog, IDOK);
    user.WaitForNoPopup();
    EXPECT_TRUE(user.IsEnabled(kUndo));
    EXPECT_FALSE(user.IsEnabled(kStart));
    user.Press(kUndo);
    WaitForStatus(user, W("2 Restored"));
    user.Close();
  });
  EXPECT_THAT(Names(), ElementsAre(W("100 % & more.txt"), W("b.txt")));
  EXPECT_EQ(ContentOf(W("b.txt")), "b.txt");
}

TEST_F(ModuleWindowUse, AProfileIsSavedOfferedInALaterWindowAndDeleted) {
  StartWith({W("a.txt")});
  answers_ = [] { return std::optional<std::string>("50 % & more"); };
  Use([](WindowUser& user) {
    user.Type(kName, W("p[N]"));
    user.Choose(kProfiles, 1);
    user.WaitUntil("the profile", [&] { return RowsOf(user.Panel(), kProfiles).size() == 3; });
    EXPECT_EQ(user.Title(), W("MultiRename - Profile: 50 % & more"));
    user.Close();
  });
  Renew();
  Use([](WindowUser& user) {
    EXPECT_THAT(RowsOf(user.Panel(), kProfiles),
                ElementsAre(W("(no profile)"), W("Save as..."), W("50 % & more")));
    WaitForNames(user, {W("a.txt")});
    EXPECT_EQ(user.Title(), W("MultiRename"));
    user.Do([&] { SendMessageW(GetDlgItem(user.Panel(), kProfiles), CB_SETCURSEL, 2, 0); });
    SendMessageW(user.Panel(), WM_COMMAND, MAKEWPARAM(kProfiles, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(GetDlgItem(user.Panel(), kProfiles)));
    WaitForNames(user, {W("pa.txt")});
    EXPECT_EQ(user.Title(), W("MultiRename - Profile: 50 % & more"));
    user.Press(kProfileX);
    const HWND box = user.WaitForPopup();
    EXPECT_EQ(TextOf(box, kBoxText), W("Delete the profile \"50 % & more\"?"));
    user.Press(box, IDYES);
    user.WaitForNoPopup();
    EXPECT_EQ(RowsOf(user.Panel(), kProfiles).size(), 2u);
    user.Close();
  });
  Renew();
  Use([](WindowUser& user) {
    EXPECT_EQ(RowsOf(user.Panel(), kProfiles).size(), 2u);
    user.Close();
  });
}

TEST_F(ModuleWindowUse, ListsOfF1ToF24AreSavedWithShiftAndLoadedInALaterWindow) {
  StartWith({W("24.txt")});
  Use([](WindowUser& user) {
    user.Press(kPairDots);
    const HWND dialog = user.WaitForPopup();
    for (int number = 1; number <= 24; ++number) {
      user.Type(dialog, kPairLines, FromUtf8(std::to_string(number) + "|list " + std::to_string(number)));
      user.PressKey(static_cast<WORD>(VK_F1 + number - 1), {VK_SHIFT});
    }
    user.Press(dialog, IDCANCEL);
    user.WaitForNoPopup();
    EXPECT_THAT(TableRowsOf(user.Panel(), kPairRows), IsEmpty());
    user.Close();
  });
  Renew();
  Use([](WindowUser& user) {
    user.Press(kPairDots);
    const HWND dialog = user.WaitForPopup();
    for (int number = 1; number <= 24; ++number) {
      user.PressKey(static_cast<WORD>(VK_F1 + number - 1));
      EXPECT_EQ(TextOf(dialog, kPairLines),
                FromUtf8(std::to_string(number) + "|list " + std::to_string(number)));
    }
    user.Press(dialog, IDOK);
    user.WaitForNoPopup();
    EXPECT_THAT(TableRowsOf(user.Panel(), kPairRows), ElementsAre(ElementsAre(W("24"), W("list 24"))));
    WaitForNames(user, {W("list 24.txt")});
    user.Close();
  });
}

TEST_F(ModuleWindowUse, ASecondCommandEmptiesTheListUntilReset) {
  StartWith({W("a.t"), W("b.t"), W("c.t")});
  Use([](WindowUser& user) {
    user.Type(kName, W("x[C]"));
    WaitForNames(user, {W("x01.t"), W("x02.t"), W("x03.t")});
    Post(kCommandMultiRename);
    user.WaitUntil("the empty list", [&] { return user.OldNames().empty(); });
    // The rows that left the list were not renamed: Reset reads their old names.
    user.Press(kReset);
    user.WaitUntil("the rows", [&] { return user.OldNames().size() == 3; });
    EXPECT_THAT(user.OldNames(), ElementsAre(W("a.t"), W("b.t"), W("c.t")));
    EXPECT_EQ(user.Pane(0), W("Items: 3"));
    user.Close();
  });
  EXPECT_THAT(Names(), ElementsAre(W("a.t"), W("b.t"), W("c.t")));
}

TEST_F(ModuleWindowUse, TheSizeIsKeptForTheNextWindowWhichIsInTheMiddle) {
  StartWith({W("a.t")});
  Use([](WindowUser& user) {
    SetWindowPos(user.Frame(), nullptr, 3, 5, 1000, 600, SWP_NOZORDER);
    user.Close();
  });
  Renew();
  Use([](WindowUser& user) {
    EXPECT_EQ(SizeOfFrame(user).cx, 1000);
    EXPECT_EQ(SizeOfFrame(user).cy, 600);
    RECT work = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    RECT area = {};
    GetWindowRect(user.Frame(), &area);
    EXPECT_LE(std::abs((area.left + area.right) - (work.left + work.right)), 1);
    EXPECT_LE(std::abs((area.top + area.bottom) - (work.top + work.bottom)), 1);
    user.Close();
  });
}

TEST_F(ModuleWindowUse, EscapeAsksNoAndCancelKeepYesCloses) {
  StartWith({W("a.t")});
  Use([](WindowUser& user) {
    for (const int button : {IDNO, IDCANCEL, IDYES}) {
      user.PressKey(VK_ESCAPE);
      const HWND box = user.WaitForPopup();
      EXPECT_EQ(TextOf(box, kTitle), W("Velmora - MultiRename"));
      EXPECT_FALSE(user.IsClosed());
      user.Press(box, button);
      if (button != IDYES) user.WaitForNoPopup();
    }
  });
}

struct OpenState {
  const char* name;
  void (*open)(WindowUser& user);
};

void WaitForMenu(WindowUser& user) {
  user.WaitUntil("the menu", [&] { return user.IsMenuOpen(); });
}

const OpenState kStates[] = {
    {"idle", [](WindowUser&) {}},
    {"question",
     [](WindowUser& user) {
       user.PressKey(VK_ESCAPE);
       user.WaitForPopup();
     }},
    {"tag menu",
     [](WindowUser& user) {
       user.Press(1046);
       WaitForMenu(user);
     }},
    {"list menu",
     [](WindowUser& user) {
       PostMessageW(user.List(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(user.List()), MAKELPARAM(300, 300));
       WaitForMenu(user);
     }},
    {"pairs",
     [](WindowUser& user) {
       user.Press(kPairDots);
       user.WaitForPopup();
     }},
    {"undo manager",
     [](WindowUser& user) {
       user.Press(kUndoDots);
       user.WaitForPopup();
     }},
    {"tag of a property",
     [](WindowUser& user) {
       user.Press(1046);
       WaitForMenu(user);
       user.PressKey(VK_UP);
       user.PressKey(VK_RETURN);
       user.WaitForPopup();
     }},
    {"rows in the way",
     [](WindowUser& user) {
       user.Type(kName, W("same"));
       user.WaitUntil("the rows", [&] { return user.NewNames()[0] != W("a.t"); });
       user.Press(kStart);
       user.WaitForPopup();
     }},
    {"open list of a box",
     [](WindowUser& user) { SendDlgItemMessageW(user.Panel(), 1036, CB_SHOWDROPDOWN, TRUE, 0); }},
};

TEST_F(ModuleWindowUse, WmCloseClosesInEachState) {
  StartWith({W("a.t"), W("b.t")});
  for (const OpenState& state : kStates) {
    SCOPED_TRACE(state.name);
    Use([&](WindowUser& user) {
      state.open(user);
      user.Close();
    });
    Renew();
  }
  EXPECT_THAT(Names(), ElementsAre(W("a.t"), W("b.t")));
}

TEST_F(ModuleWindowUse, TheHostsShutdownClosesInEachState) {
  StartWith({W("a.t"), W("b.t")});
  for (const OpenState& state : kStates) {
    SCOPED_TRACE(state.name);
    Use([&](WindowUser& user) {
      state.open(user);
      Post(kCommandShutdown);
    });
    Renew();
  }
  EXPECT_THAT(Names(), ElementsAre(W("a.t"), W("b.t")));
}

TEST_F(ModuleWindowUse, ACloseRightAfterStartLetsTheRunFinish) {
  StartWith({W("a.t"), W("b.t"), W("c.t")});
  Use([](WindowUser& user) {
    user.Type(kName, W("x[C]"));
    WaitForNames(user, {W("x01.t"), W("x02.t"), W("x03.t")});
    PostMessageW(GetDlgItem(user.Panel(), kStart), BM_CLICK, 0, 0);
    user.Close();
  });
  EXPECT_THAT(Names(), ElementsAre(W("x01.t"), W("x02.t"), W("x03.t")));
}

}  // namespace
