// The window of the Sort Lines dialog: the ruler above the sample, and the font of both.
#include <gtest/gtest.h>

#include "linesorter/tool/sort_lines_dlg_ids.h"
#include "ui/resource_ids.h"
#include "window/dialog_template.h"
#include "window/layout_checks.h"
#include "window/sort_lines_dlg_window.h"

namespace {

using namespace SortLinesWindow;

// Returns the distance of a character from the left edge of an edit control, in pixels.
int PlaceOf(HWND dialog, int control, WPARAM character) {
  const LRESULT place = SendDlgItemMessageW(dialog, control, EM_POSFROMCHAR, character, 0);
  return static_cast<short>(LOWORD(place));
}

HFONT FontOf(HWND dialog, int control) {
  return reinterpret_cast<HFONT>(SendDlgItemMessageW(dialog, control, WM_GETFONT, 0, 0));
}

LOGFONTW DescriptionOf(HFONT font) {
  LOGFONTW description = {};
  EXPECT_EQ(GetObjectW(font, sizeof(description), &description), static_cast<int>(sizeof(description)));
  return description;
}

// Checks that each visible character of the ruler is above the sample's character with the same index.
void ExpectRulerAboveSample(HWND dialog) {
  const WString ruler = TextOf(dialog, kRuler);
  ASSERT_LE(ruler.size(), 90u);
  const std::size_t first = 90 - ruler.size();
  for (std::size_t at = 0; at < ruler.size(); at += 7) {
    EXPECT_EQ(PlaceOf(dialog, kRuler, at), PlaceOf(dialog, kSample, first + at)) << first + at;
  }
}

// Returns whether the sample is scrolled to the right.
bool IsScrolled(HWND dialog) {
  RECT room = {};
  SendDlgItemMessageW(dialog, kSample, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&room));
  return PlaceOf(dialog, kSample, 0) < room.left;
}

// Sends what the system sends when the dialog moves to a monitor with another scale: the change of scale, and
// the dialog's font to each control.
void BringToScale(HWND dialog, int pixelsOfAnInch) {
  RECT place = {};
  GetWindowRect(dialog, &place);
  SendMessageW(dialog, WM_DPICHANGED, MAKEWPARAM(pixelsOfAnInch, pixelsOfAnInch),
               reinterpret_cast<LPARAM>(&place));
  const auto font = static_cast<WPARAM>(SendMessageW(dialog, WM_GETFONT, 0, 0));
  for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    SendMessageW(child, WM_SETFONT, font, TRUE);
  }
  Pump(dialog);
}

// The font.

TEST_F(SortLinesDlgWindow, SampleAndRulerAreReadOnlyAndInTheirFonts) {
  HFONT fonts[2] = {};
  Show([&](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, kSample), W("one\r\ntwo"));
    const int controls[] = {kRuler, kSample};
    for (int index = 0; index < 2; ++index) {
      EXPECT_TRUE(GetWindowLongW(GetDlgItem(dialog, controls[index]), GWL_STYLE) & ES_READONLY);
      fonts[index] = FontOf(dialog, controls[index]);
      const LOGFONTW font = DescriptionOf(fonts[index]);
      EXPECT_EQ(WString(font.lfFaceName), W("Courier New"));
      EXPECT_EQ(font.lfHeight, -12);  // 9 points at 96 pixels per inch
      EXPECT_EQ(font.lfWeight, 400);
      EXPECT_EQ(font.lfCharSet, DEFAULT_CHARSET);
      EXPECT_EQ(font.lfQuality, CLEARTYPE_QUALITY);
    }
  });
  EXPECT_NE(fonts[0], fonts[1]);
  for (const HFONT font : fonts) EXPECT_EQ(GetObjectType(font), 0u) << "a font outlived the dialog";
}

TEST_F(SortLinesDlgWindow, OnAMonitorOfAnotherScaleRulerAndSampleKeepTheirFontInItsSize) {
  form_.sample = WString(90, W('W'));
  HFONT before[2] = {};
  HFONT after[2] = {};
  Show([&](HWND dialog) {
    before[0] = FontOf(dialog, kRuler);
    before[1] = FontOf(dialog, kSample);
    // 9 points at 144, 120, and again 96 pixels per inch.
    for (const auto& [scale, height] :
         std::initializer_list<std::pair<int, LONG>>{{144, -18}, {120, -15}, {96, -12}}) {
      BringToScale(dialog, scale);
      for (const int control : {kRuler, kSample}) {
        const LOGFONTW font = DescriptionOf(FontOf(dialog, control));
        EXPECT_EQ(WString(font.lfFaceName), W("Courier New")) << scale;
        EXPECT_EQ(font.lfHeight, height) << scale;
      }
      ExpectRulerAboveSample(dialog);
    }
    after[0] = FontOf(dialog, kRuler);
    after[1] = FontOf(dialog, kSample);
    EXPECT_EQ(FontOf(dialog, kTop), reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0)));
  });
  for (const HFONT font : before) EXPECT_EQ(GetObjectType(font), 0u) << "the font of the first scale is kept";
  for (const HFONT font : after) EXPECT_EQ(GetObjectType(font), 0u) << "a font outlived the dialog";
}

// The ruler's position.

// The system may substitute the font, but its characters have equal widths.
TEST_F(SortLinesDlgWindow, RulerIsCharacterForCharacterAboveTheSample) {
  form_.sample = WString(90, W('W'));
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, kRuler).size(), 90u);
    EXPECT_GT(PlaceOf(dialog, kRuler, 89), 89 * 5);
    ExpectRulerAboveSample(dialog);
    EXPECT_EQ(AreaOf(dialog, kRuler).left, AreaOf(dialog, kSample).left);
    EXPECT_EQ(AreaOf(dialog, kRuler).right, AreaOf(dialog, kSample).right);
  });
}

TEST_F(SortLinesDlgWindow, RulerFollowsTheScrollBarOfTheSample) {
  form_.sample = WString(400, W('W')) + W("\r\nshort");
  Show([](HWND dialog) {
    const WString whole = TextOf(dialog, kRuler);
    const auto scroll = [dialog](WORD action) {
      SendDlgItemMessageW(dialog, kSample, WM_HSCROLL, action, 0);
      Pump(dialog);
    };
    for (int step = 0; step < 5; ++step) scroll(SB_LINERIGHT);
    EXPECT_TRUE(IsScrolled(dialog));
    EXPECT_LT(TextOf(dialog, kRuler).size(), 90u);
    EXPECT_EQ(TextOf(dialog, kRuler), whole.substr(90 - TextOf(dialog, kRuler).size()));
    ExpectRulerAboveSample(dialog);
    scroll(SB_LINELEFT);
    ExpectRulerAboveSample(dialog);
    for (int step = 0; step < 5; ++step) scroll(SB_PAGERIGHT);
    EXPECT_EQ(TextOf(dialog, kRuler), W(""));
    scroll(SB_LEFT);
    EXPECT_FALSE(IsScrolled(dialog));
    EXPECT_EQ(TextOf(dialog, kRuler), whole);
    ExpectRulerAboveSample(dialog);
  });
}

TEST_F(SortLinesDlgWindow, RulerKeepsItsPlaceWhereTheSampleStopsBetweenTwoCharacters) {
  form_.sample = WString(400, W('W'));
  Show([](HWND dialog) {
    for (const int pixels : {3, 10, 25, 80, 1, 0}) {
      SendDlgItemMessageW(dialog, kSample, WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, pixels), 0);
      Pump(dialog);
      EXPECT_EQ(IsScrolled(dialog), pixels > 0) << pixels;
      ExpectRulerAboveSample(dialog);
    }
  });
}

// The system sends no notification during the drag.
TEST_F(SortLinesDlgWindow, RulerFollowsTheScrollBarWhileItIsBeingDragged) {
  form_.sample = WString(400, W('W'));
  Show([](HWND dialog) {
    for (const int pixels : {70, 35, 140}) {
      SendDlgItemMessageW(dialog, kSample, WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, pixels), 0);
      EXPECT_TRUE(IsScrolled(dialog)) << pixels;
      EXPECT_LT(TextOf(dialog, kRuler).size(), 90u) << pixels;
      ExpectRulerAboveSample(dialog);
    }
  });
}

TEST_F(SortLinesDlgWindow, RulerFollowsTheCaretToTheEndOfALongLineAndBack) {
  form_.sample = WString(130, W('W'));
  Show([](HWND dialog) {
    Focus(dialog, kSample);
    PressKey(dialog, VK_END);
    EXPECT_TRUE(IsScrolled(dialog));
    EXPECT_LT(TextOf(dialog, kRuler).size(), 90u);
    ExpectRulerAboveSample(dialog);
    PressKey(dialog, VK_HOME);
    EXPECT_FALSE(IsScrolled(dialog));
    EXPECT_EQ(TextOf(dialog, kRuler).size(), 90u);
    ExpectRulerAboveSample(dialog);
  });
}

TEST_F(SortLinesDlgWindow, MarksOfTheRulerScrollWithIt) {
  form_.sample = WString(400, W('W'));
  Show([](HWND dialog) {
    for (int step = 0; step < 5; ++step) SendDlgItemMessageW(dialog, kSample, WM_HSCROLL, SB_LINERIGHT, 0);
    const std::size_t scrolledOut = 90 - TextOf(dialog, kRuler).size();
    ASSERT_GT(scrolledOut, 0u);
    ASSERT_LT(scrolledOut, 80u);
    EXPECT_EQ(TextOf(dialog, kRuler).find(W('*')), WString::npos);
    EnterText(dialog, kPosition, W("81"));
    EXPECT_EQ(TextOf(dialog, kRuler).size(), 90 - scrolledOut);
    EXPECT_EQ(TextOf(dialog, kRuler).find(W('*')), 80 - scrolledOut);
    ExpectRulerAboveSample(dialog);
  });
}

TEST_F(SortLinesDlgWindow, EmptySampleHasTheWholeRuler) {
  form_.sample.clear();
  Show([](HWND dialog) {
    SendDlgItemMessageW(dialog, kSample, WM_HSCROLL, SB_LINERIGHT, 0);
    EXPECT_EQ(TextOf(dialog, kRuler).size(), 90u);
  });
}

// What the ruler counts.

TEST_F(SortLinesDlgWindow, TabOfTheSampleIsAsWideAsAnyCharacterAndCountsAsOne) {
  form_.sample = W("a\tb\t\tc\td\r\n\t\te");
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, kSample), W("a\tb\t\tc\td\r\n\t\te"));
    for (const WPARAM at : {0, 1, 2, 3, 4, 5, 6, 7}) {
      EXPECT_EQ(PlaceOf(dialog, kSample, at), PlaceOf(dialog, kRuler, at)) << at;
    }
    EXPECT_EQ(PlaceOf(dialog, kSample, 12), PlaceOf(dialog, kRuler, 2));
  });
}

TEST_F(SortLinesDlgWindow, SampleShowsABlankForEachZeroCharacter) {
  form_.sample = WString(W("a\0b\0\0c"), 6);
  Show([](HWND dialog) { EXPECT_EQ(TextOf(dialog, kSample), W("a b  c")); });
}

// Size.

TEST(SortLinesDlgTemplate, RulerAndSampleHaveRoomForNinetyCharactersAtEachScale) {
  for (const int percent : {100, 125, 150, 175, 200}) {
    const DialogInScale dialog(QX_DIALOG_SORT_LINES, percent);
    ASSERT_NE(dialog.Get(), nullptr);
    const HFONT font = CreateFontW(-MulDiv(9, MulDiv(96, percent, 100), 72), 0, 0, 0, FW_NORMAL, FALSE, FALSE,
                                   FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                   CLEARTYPE_QUALITY, FIXED_PITCH | FF_MODERN, L"Courier New");
    const HDC dc = GetDC(dialog.Get());
    const HGDIOBJ before = SelectObject(dc, font);
    SIZE needed = {};
    const WString characters(90, W('0'));
    GetTextExtentPoint32W(dc, characters.c_str(), 90, &needed);
    SelectObject(dc, before);
    ReleaseDC(dialog.Get(), dc);
    // In this template the sample's scroll bar has its width at 100 %.
    const int widerBar = MulDiv(GetSystemMetrics(SM_CXVSCROLL), percent - 100, 100);
    for (const auto& [control, more] :
         std::initializer_list<std::pair<int, int>>{{QX_SORT_RULER, 0}, {QX_SORT_SAMPLE, widerBar}}) {
      SendDlgItemMessageW(dialog.Get(), control, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
      RECT room = {};
      SendDlgItemMessageW(dialog.Get(), control, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&room));
      EXPECT_GE(room.right - room.left, needed.cx + more) << control << " at " << percent;
    }
    DeleteObject(font);
  }
}

}  // namespace
