// How dialogs behave that need more height than the screen has.
#include "window/tall_dialog.h"

#include <gmock/gmock.h>

#include <functional>
#include <string>

#include "filetools/create_links_dlg.h"
#include "filetools/replace_dlg.h"
#include "findreplace/tool/confirm_replace_dlg.h"
#include "findreplace/tool/find_and_replace_dlg.h"
#include "linesorter/tool/sort_lines_dlg.h"
#include "support/fake_host.h"
#include "window/dialog_controls.h"
#include "window/english_texts.h"
#include "window/layout_checks.h"
#include "window/modal_driver.h"
#include "window/screenshot.h"

namespace {

struct AnyDialog {
  const char* name;
  std::function<void(FakeHost&)> show;
};

void PrintTo(const AnyDialog& dialog, std::ostream* out) { *out << dialog.name; }

const AnyDialog kDialogs[] = {
    {"Replace",
     [](FakeHost& host) {
       ReplaceForm form;
       ShowReplaceDlg(host, form);
     }},
    {"SortLines",
     [](FakeHost& host) {
       WQLineSorter::SortLinesForm form;
       form.fileCount = 1;
       form.firstName = W("a.txt");
       WQLineSorter::StartForm(form);
       ShowSortLinesDlg(host, form);
     }},
    {"CreateLinks",
     [](FakeHost& host) {
       CreateLinksForm form;
       form.linkName = W("C:\\links\\a.txt");
       form.targetName = W("C:\\view\\a.txt");
       form.linkKind = 1;
       StartForm(form);
       ShowCreateLinksDlg(host, form);
     }},
    {"FindAndReplace",
     [](FakeHost& host) {
       QXFindAndReplace::FindAndReplaceForm form;
       form.fileCount = 1;
       form.startName = W("a.txt");
       StartForm(form);
       ShowFindAndReplaceDlg(host, form);
     }},
    {"ConfirmReplace",
     [](FakeHost& host) {
       QXFindAndReplace::ConfirmReplaceForm form;
       form.context = W("a match");
       ShowConfirmReplaceDlg(host, form);
     }},
};

// More than the height of the tests' display, so that the dialog needs a long scroll bar.
constexpr int kTooMuch = 1500;

class TallDialog : public testing::TestWithParam<AnyDialog> {
 protected:
  TallDialog() { SpeakEnglish(host_); }

  void Show(const Steps& steps) {
    RunModal(
        [this] {
          GetParam().show(host_);
          return INT_PTR{0};
        },
        steps);
  }

  OwnerWindow owner_{640, 480};
  FakeHost host_;
};

INSTANTIATE_TEST_SUITE_P(All, TallDialog, testing::ValuesIn(kDialogs),
                         [](const auto& given) { return std::string(given.param.name); });

RECT WorkArea() {
  RECT work = {};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  return work;
}

RECT AreaOnScreen(HWND window) {
  RECT area = {};
  GetWindowRect(window, &area);
  return area;
}

bool HasBar(HWND dialog) { return (GetWindowLongW(dialog, GWL_STYLE) & WS_VSCROLL) != 0; }

// Returns whether the full height of a control is visible.
bool Shows(HWND dialog, int control) {
  RECT client = {};
  GetClientRect(dialog, &client);
  const RECT area = AreaOf(dialog, control);
  return area.top >= 0 && area.bottom <= client.bottom;
}

SCROLLINFO BarOf(HWND dialog) {
  SCROLLINFO info = {};
  info.cbSize = sizeof(info);
  info.fMask = SIF_ALL;
  EXPECT_TRUE(GetScrollInfo(dialog, SB_VERT, &info));
  return info;
}

void Scroll(HWND dialog, WORD action) {
  SendMessageW(dialog, WM_VSCROLL, MAKEWPARAM(action, 0), 0);
  Pump(dialog);
}

TEST_P(TallDialog, DialogThatFitsHasNoScrollBar) {
  Show([](HWND dialog) {
    EXPECT_FALSE(HasBar(dialog));
    EXPECT_TRUE(Shows(dialog, IDOK));
    EXPECT_TRUE(Shows(dialog, IDCANCEL));
  });
}

TEST_P(TallDialog, FillsTheScreenWithAScrollBarAndIsNoNarrowerInside) {
  RECT plain = {};
  Show([&](HWND dialog) { GetClientRect(dialog, &plain); });
  const TallDialogs tall(kTooMuch);
  Show([&](HWND dialog) {
    const RECT area = AreaOnScreen(dialog);
    EXPECT_TRUE(HasBar(dialog));
    EXPECT_EQ(area.top, WorkArea().top);
    EXPECT_EQ(area.bottom, WorkArea().bottom);
    RECT client = {};
    GetClientRect(dialog, &client);
    EXPECT_EQ(client.right, plain.right);
    EXPECT_TRUE(Shows(dialog, FocusedControl(dialog)));
    const SCROLLINFO bar = BarOf(dialog);
    EXPECT_EQ(bar.nMin, 0);
    EXPECT_NEAR(bar.nMax, plain.bottom + kTooMuch, 3);
    EXPECT_EQ(bar.nPage, static_cast<UINT>(client.bottom));
    Scroll(dialog, SB_TOP);
    EXPECT_TRUE(SaveScreenshot(dialog, W("tall_dialog_") + FromUtf8(GetParam().name)));
    EXPECT_EQ(BarOf(dialog).nPos, 0);
    EXPECT_FALSE(Shows(dialog, IDCANCEL));
  });
}

TEST_P(TallDialog, ScrollBarReachesTheButtonsAndComesBack) {
  const TallDialogs tall(kTooMuch);
  Show([&](HWND dialog) {
    Scroll(dialog, SB_TOP);
    const LONG before = AreaOf(dialog, IDCANCEL).top;
    Scroll(dialog, SB_BOTTOM);
    EXPECT_TRUE(Shows(dialog, IDOK));
    EXPECT_TRUE(Shows(dialog, IDCANCEL));
    EXPECT_EQ(BarOf(dialog).nPos, before - AreaOf(dialog, IDCANCEL).top);
    EXPECT_EQ(BarOf(dialog).nPos, BarOf(dialog).nMax + 1 - static_cast<int>(BarOf(dialog).nPage));
    Scroll(dialog, SB_LINEDOWN);  // scrolls no further
    EXPECT_TRUE(Shows(dialog, IDCANCEL));
    for (int step = 0; step < 20; ++step) Scroll(dialog, SB_PAGEUP);
    EXPECT_EQ(AreaOf(dialog, IDCANCEL).top, before);
    EXPECT_EQ(BarOf(dialog).nPos, 0);
    Scroll(dialog, SB_PAGEDOWN);
    EXPECT_LT(AreaOf(dialog, IDCANCEL).top, before);
    Scroll(dialog, SB_TOP);
    Scroll(dialog, SB_LINEUP);
    EXPECT_EQ(AreaOf(dialog, IDCANCEL).top, before);
  });
}

TEST_P(TallDialog, TabKeyScrollsToTheControlThatItReaches) {
  const TallDialogs tall(kTooMuch);
  Show([&](HWND dialog) {
    const int first = FocusedControl(dialog);
    EXPECT_TRUE(Shows(dialog, first));
    bool wasAtTheEnd = false;
    for (int step = 0; step < 60; ++step) {
      PressKey(dialog, VK_TAB);
      EXPECT_TRUE(Shows(dialog, FocusedControl(dialog))) << FocusedControl(dialog);
      wasAtTheEnd = wasAtTheEnd || FocusedControl(dialog) == IDCANCEL;
      if (FocusedControl(dialog) == first) break;
    }
    EXPECT_TRUE(wasAtTheEnd);
    EXPECT_EQ(FocusedControl(dialog), first);
  });
}

TEST_P(TallDialog, WhatIsClickedDoesNotMoveAwayFromUnderTheMouse) {
  const TallDialogs tall(kTooMuch);
  Show([&](HWND dialog) {
    Scroll(dialog, SB_TOP);
    BYTE keys[256] = {};
    keys[VK_LBUTTON] = 0x80;
    SetKeyboardState(keys);
    Focus(dialog, IDCANCEL);
    EXPECT_EQ(FocusedControl(dialog), IDCANCEL);
    EXPECT_EQ(BarOf(dialog).nPos, 0);
    keys[VK_LBUTTON] = 0;
    SetKeyboardState(keys);
    Focus(dialog, IDOK);
    EXPECT_GT(BarOf(dialog).nPos, 0);
  });
}

TEST_P(TallDialog, WheelScrolls) {
  const TallDialogs tall(kTooMuch);
  Show([&](HWND dialog) {
    const auto turn = [dialog](int amount) {
      SendMessageW(dialog, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(amount)), 0);
      Pump(dialog);
      return BarOf(dialog).nPos;
    };
    Scroll(dialog, SB_TOP);
    const int notch = turn(-WHEEL_DELTA);
    EXPECT_GT(notch, 10);
    EXPECT_EQ(turn(-WHEEL_DELTA), 2 * notch);
    EXPECT_EQ(turn(WHEEL_DELTA), notch);
    // A high-resolution wheel reports fractions of a notch.
    for (int tenth = 0; tenth < 10; ++tenth) turn(-WHEEL_DELTA / 10);
    EXPECT_NEAR(BarOf(dialog).nPos, 2 * notch, 1);
  });
}

TEST_P(TallDialog, OnAScreenThatHasRoomTheBarGoes) {
  RECT plain = {};
  Show([&](HWND dialog) { plain = AreaOnScreen(dialog); });
  const TallDialogs tall(kTooMuch);
  Show([&](HWND dialog) {
    Scroll(dialog, SB_PAGEDOWN);
    // Lowers the layout in place of enlarging the screen, which has the same effect and leaves the display of
    // the tests unchanged.
    Scroll(dialog, SB_TOP);
    for (const int button : {IDOK, IDCANCEL}) {
      const RECT area = AreaOf(dialog, button);
      SetWindowPos(GetDlgItem(dialog, button), nullptr, area.left, area.top - kTooMuch, 0, 0,
                   SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    SendMessageW(dialog, WM_DISPLAYCHANGE, 32, MAKELPARAM(1280, 1024));
    Pump(dialog);
    EXPECT_FALSE(HasBar(dialog));
    const RECT area = AreaOnScreen(dialog);
    EXPECT_EQ(area.right - area.left, plain.right - plain.left);
    EXPECT_NEAR(area.bottom - area.top, plain.bottom - plain.top, 3);
    EXPECT_TRUE(Shows(dialog, IDCANCEL));
  });
}

}  // namespace
