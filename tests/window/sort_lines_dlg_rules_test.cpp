// The window of the Sort Lines dialog: the effects of a change, and the list of date formats.
#include <gmock/gmock.h>

#include "window/opened_menu.h"
#include "window/sort_lines_dlg_window.h"

namespace {

using namespace SortLinesWindow;
using namespace WQLineSorter;
using testing::ElementsAre;

// Which fields are enabled.

TEST_F(SortLinesDlgWindow, EntireLineHasNeitherSubstringNorItem) {
  Show([](HWND dialog) {
    EXPECT_THAT(SubstringState(dialog), ElementsAre(false, false, false));
    EXPECT_THAT(ItemState(dialog), ElementsAre(false, false));
    ClickButton(dialog, kByItem);
    ClickButton(dialog, kByLine);
    EXPECT_THAT(SubstringState(dialog), ElementsAre(false, false, false));
    EXPECT_THAT(ItemState(dialog), ElementsAre(false, false));
  });
}

TEST_F(SortLinesDlgWindow, LineItemHasItsFieldsAlone) {
  Show([](HWND dialog) {
    ClickButton(dialog, kByItem);
    EXPECT_TRUE(IsChecked(dialog, kByItem));
    EXPECT_FALSE(IsChecked(dialog, kByLine));
    EXPECT_THAT(SubstringState(dialog), ElementsAre(false, false, false));
    EXPECT_THAT(ItemState(dialog), ElementsAre(true, true));
  });
}

TEST_F(SortLinesDlgWindow, FromItemToSubstringSeparatorAndItemStayEnabledByDesign) {
  Show([](HWND dialog) {
    ClickButton(dialog, kBySubstring);
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, true, true));
    EXPECT_THAT(ItemState(dialog), ElementsAre(false, false));
    ClickButton(dialog, kByItem);
    ClickButton(dialog, kBySubstring);
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, true, true));
    EXPECT_THAT(ItemState(dialog), ElementsAre(true, true));
  });
}

TEST_F(SortLinesDlgWindow, SubstringFieldsExcludeOneAnother) {
  Show([](HWND dialog) {
    ClickButton(dialog, kBySubstring);
    EnterText(dialog, kLength, W("4"));
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, false, false));
    EnterText(dialog, kLength, W(""));
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, true, true));
    EnterText(dialog, kEndCharacter, W(";"));
    EXPECT_THAT(SubstringState(dialog), ElementsAre(false, true, false));
    EnterText(dialog, kEndCharacter, W(""));
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, true, true));
    ClickButton(dialog, kEndAtSpace);
    EXPECT_THAT(SubstringState(dialog), ElementsAre(false, false, true));
    ClickButton(dialog, kEndAtSpace);
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, true, true));
  });
}

TEST_F(SortLinesDlgWindow, WithLengthAndEndCharacterFilledNothingChangesByDesign) {
  Start(0x400012, [](SortLinesOptions& options) { options.matchChar = u';'; });
  Show([](HWND dialog) {
    EnterText(dialog, kLength, W("12"));
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, true, true));
    ClickButton(dialog, kEndAtSpace);
    ClickButton(dialog, kEndAtSpace);
    EXPECT_THAT(SubstringState(dialog), ElementsAre(false, false, true));
  });
}

TEST_F(SortLinesDlgWindow, SecondEndCharacterTypedInFrontTakesThePlaceOfTheFirst) {
  Show([](HWND dialog) {
    ClickButton(dialog, kBySubstring);
    Focus(dialog, kEndCharacter);
    TypeText(dialog, W("ab"));
    EXPECT_EQ(TextOf(dialog, kEndCharacter), W("a"));
    DWORD from = 9;
    DWORD to = 9;
    SendDlgItemMessageW(dialog, kEndCharacter, EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                        reinterpret_cast<LPARAM>(&to));
    EXPECT_EQ(from, 0u);
    EXPECT_EQ(to, 0u);
    TypeText(dialog, W("c"));
    EXPECT_EQ(TextOf(dialog, kEndCharacter), W("c"));
  });
}

TEST_F(SortLinesDlgWindow, DateFieldsAndTheirHintAreForDatesOnly) {
  Show([](HWND dialog) {
    EXPECT_FALSE(IsEnabled(dialog, kDateFormat));
    EXPECT_FALSE(IsEnabled(dialog, kDatePresets));
    EXPECT_EQ(CueBannerOf(dialog, kDateFormat), W(""));
    ChooseRow(dialog, kMethod, kDateRow);
    EXPECT_TRUE(IsEnabled(dialog, kDateFormat));
    EXPECT_TRUE(IsEnabled(dialog, kDatePresets));
    EXPECT_EQ(CueBannerOf(dialog, kDateFormat), W("T01B40064"));
    ChooseRow(dialog, kMethod, kNumberRow);
    EXPECT_FALSE(IsEnabled(dialog, kDateFormat));
    EXPECT_FALSE(IsEnabled(dialog, kDatePresets));
    EXPECT_EQ(CueBannerOf(dialog, kDateFormat), W(""));
  });
}

TEST_F(SortLinesDlgWindow, StartedWithDatesTheHintIsThere) {
  Start(0x201);
  Show([](HWND dialog) {
    EXPECT_TRUE(IsEnabled(dialog, kDateFormat));
    EXPECT_EQ(CueBannerOf(dialog, kDateFormat), W("T01B40064"));
  });
}

TEST_F(SortLinesDlgWindow, NaturalOrderIsForLanguageAwareAndIgnoreCaseForTheOther) {
  Show([](HWND dialog) {
    EXPECT_TRUE(IsEnabled(dialog, kIgnoreCase));
    EXPECT_FALSE(IsEnabled(dialog, kNatural));
    ClickButton(dialog, kLanguageAware);
    EXPECT_FALSE(IsEnabled(dialog, kIgnoreCase));
    EXPECT_TRUE(IsEnabled(dialog, kNatural));
    ClickButton(dialog, kLanguageAware);
    EXPECT_TRUE(IsEnabled(dialog, kIgnoreCase));
    EXPECT_FALSE(IsEnabled(dialog, kNatural));
  });
}

TEST_F(SortLinesDlgWindow, DuplicatesBoxIsAlwaysDisabled) {
  Start(0x20011);
  Show([](HWND dialog) {
    EXPECT_FALSE(IsEnabled(dialog, kDuplicates));
    EXPECT_TRUE(IsChecked(dialog, kDuplicates));
    ClickButton(dialog, kReverse);
    EXPECT_FALSE(IsEnabled(dialog, kDuplicates));
    EXPECT_TRUE(IsChecked(dialog, kDuplicates));
  });
}

TEST_F(SortLinesDlgWindow, WayToSaveSuggestsTheName) {
  Show([](HWND dialog) {
    EnterText(dialog, kName, W("mine.txt"));
    ChooseRow(dialog, kSaveAs, kKeepBackupRow);
    EXPECT_EQ(TextOf(dialog, kName), W("a.txt"));
    EXPECT_FALSE(IsEnabled(dialog, kName));
    ChooseRow(dialog, kSaveAs, kDeleteBackupRow);
    EXPECT_EQ(TextOf(dialog, kName), W("a.txt"));
    EXPECT_FALSE(IsEnabled(dialog, kName));
    ChooseRow(dialog, kSaveAs, kNewFileRow);
    EXPECT_EQ(TextOf(dialog, kName), W("a_s.txt"));
    EXPECT_TRUE(IsEnabled(dialog, kName));
  });
}

TEST_F(SortLinesDlgWindow, RulerFollowsPositionLengthAndKey) {
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, kRuler).size(), 90u);
    EXPECT_EQ(TextOf(dialog, kRuler).substr(0, 12), W("*---+----1--"));
    EnterText(dialog, kPosition, W("3"));
    EXPECT_EQ(TextOf(dialog, kRuler).substr(0, 12), W("--*-+----1--"));
    ClickButton(dialog, kBySubstring);
    EnterText(dialog, kLength, W("4"));
    EXPECT_EQ(TextOf(dialog, kRuler).substr(0, 12), W("--****---1--"));
    ClickButton(dialog, kByItem);
    EXPECT_EQ(TextOf(dialog, kRuler).substr(0, 12), W("--*-+----1--"));
    EnterText(dialog, kPosition, W(""));
    EXPECT_EQ(TextOf(dialog, kRuler).substr(0, 12), W("----+----1--"));
    EnterText(dialog, kPosition, W("91"));
    EXPECT_EQ(TextOf(dialog, kRuler).find(W('*')), WString::npos);
  });
}

// The list of date formats.

TEST_F(SortLinesDlgWindow, DateFormatsOpenAsAMenuAtTheMouse) {
  Start(0x201);
  Show([](HWND dialog) {
    OpenedMenu menu;
    RECT area = {};
    GetWindowRect(GetDlgItem(dialog, kDatePresets), &area);
    SetCursorPos(area.left + 5, area.top + 6);
    PressKeysInMenuOf(dialog, kDatePresets, {VK_DOWN, VK_DOWN, VK_RETURN});
    EXPECT_EQ(menu.opened, 1);
    EXPECT_THAT(menu.texts, ElementsAre(W("2014-11-21"), W("2014-11-21 13:44:48"), W("23/11/14"),
                                        W("23/11/2014"), W("23/11/2014 1:44:48 pm"), W("23 Nov 2014"),
                                        W("Nov 11 13:44:48 2014"), W("11 Nov 2014 13:44:48")));
    EXPECT_EQ(menu.area.left, area.left + 5);
    EXPECT_EQ(menu.area.top, area.top + 6);
    EXPECT_EQ(TextOf(dialog, kDateFormat), W("%Y-%m-%d %H:%M:%S"));
  });
  EXPECT_EQ(form_.dateFormat, W("%Y-%m-%d %H:%M:%S"));
}

TEST_F(SortLinesDlgWindow, LastDateFormatCanBeChosenToo) {
  Start(0x201);
  Show([](HWND dialog) {
    EnterText(dialog, kDateFormat, W("old"));
    PressKeysInMenuOf(dialog, kDatePresets, {VK_UP, VK_RETURN});
    EXPECT_EQ(TextOf(dialog, kDateFormat), W("%d %b %Y %H:%M:%S"));
  });
}

TEST_F(SortLinesDlgWindow, DateMenuThatIsLeftChangesNothing) {
  Start(0x201);
  EXPECT_EQ(Show([](HWND dialog) {
              OpenedMenu menu;
              EnterText(dialog, kDateFormat, W("%Y"));
              PressKeysInMenuOf(dialog, kDatePresets, {VK_DOWN, VK_ESCAPE});
              EXPECT_EQ(menu.opened, 1);
              EXPECT_EQ(TextOf(dialog, kDateFormat), W("%Y"));
              EXPECT_TRUE(IsWindowVisible(dialog));
              ClickButton(dialog, IDOK);
            }),
            IDOK);
}

}  // namespace
