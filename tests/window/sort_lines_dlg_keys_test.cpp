// The window of the Sort Lines dialog: the keyboard, and which input its fields accept.
#include <gmock/gmock.h>

#include "window/english_texts.h"
#include "window/layout_checks.h"
#include "window/sort_lines_dlg_window.h"

namespace {

using namespace SortLinesWindow;
using namespace WQLineSorter;
using testing::ElementsAre;

TEST_F(SortLinesDlgWindow, TabWalksFieldsInTheirOrderAndComesBack) {
  Start(0x201);
  Show([](HWND dialog) {
    ClickButton(dialog, kByItem);
    Focus(dialog, kSaveAs);
    EXPECT_THAT(WalkByTab(dialog),
                ElementsAre(kSaveAs, kName, kTop, kBottom, kPosition, kSkipSpace, kByItem, kSeparator, kItem,
                            kMethod, kDateFormat, kDatePresets, kLanguageAware, kIgnoreCase, kReverse, kBlank,
                            kSample, IDOK, IDCANCEL));
  });
}

TEST_F(SortLinesDlgWindow, FocusStartsInTheNameOfTheNewFile) {
  Show([](HWND dialog) {
    EXPECT_EQ(FocusedControl(dialog), kName);
    TypeText(dialog, W("x"));
    EXPECT_EQ(TextOf(dialog, kName), W("x"));
  });
}

TEST_F(SortLinesDlgWindow, WhereTheNameIsGreyFocusStartsInTheNextField) {
  for (const std::uint32_t bits : {0x2000011U, 0x4000011U}) {
    Start(bits);
    Show([](HWND dialog) {
      EXPECT_EQ(FocusedControl(dialog), kTop);
      TypeText(dialog, W("7"));
      EXPECT_EQ(TextOf(dialog, kTop), W("7"));
    });
  }
}

TEST_F(SortLinesDlgWindow, EachLabelHasAnAccessKeyOfItsOwn) {
  host_.texts = EnglishTexts();
  Show([](HWND dialog) {
    // Enter and Escape press the first two, and the third shows no letter.
    ExpectEachLabelHasAnAccessKey(dialog, {IDOK, IDCANCEL, kDatePresets});
    ExpectAccessKeysDiffer(dialog);
  });
}

TEST_F(SortLinesDlgWindow, AccessKeysLeadToTheFields) {
  host_.texts = EnglishTexts();
  Start(0x201);
  Show([](HWND dialog) {
    const std::pair<WCHAR, int> keys[] = {
        {W('v'), kSaveAs},   {W('n'), kName},   {W('s'), kTop},    {W('d'), kBottom},
        {W('a'), kPosition}, {W('m'), kMethod}, {W('x'), kSample}, {W('f'), kDateFormat},
    };
    for (const auto& [key, control] : keys) {
      PressAltKey(dialog, key);
      EXPECT_EQ(FocusedControl(dialog), control) << static_cast<char>(key);
    }
    PressAltKey(dialog, W('l'));
    EXPECT_TRUE(IsChecked(dialog, kByItem));
    PressAltKey(dialog, W('p'));
    EXPECT_EQ(FocusedControl(dialog), kSeparator);
    PressAltKey(dialog, W('t'));
    EXPECT_EQ(FocusedControl(dialog), kItem);
    PressAltKey(dialog, W('g'));
    EXPECT_TRUE(IsChecked(dialog, kBySubstring));
    PressAltKey(dialog, W('h'));
    EXPECT_EQ(FocusedControl(dialog), kLength);
    PressAltKey(dialog, W('c'));
    EXPECT_EQ(FocusedControl(dialog), kEndCharacter);
    const std::pair<WCHAR, int> boxes[] = {
        {W('k'), kSkipSpace}, {W('y'), kEndAtSpace}, {W('i'), kIgnoreCase}, {W('w'), kLanguageAware},
        {W('o'), kNatural},   {W('r'), kReverse},    {W('b'), kBlank},
    };
    for (const auto& [key, box] : boxes) {
      const bool before = IsChecked(dialog, box);
      PressAltKey(dialog, key);
      EXPECT_NE(IsChecked(dialog, box), before) << static_cast<char>(key);
    }
    PressAltKey(dialog, W('e'));
    EXPECT_TRUE(IsChecked(dialog, kByLine));
  });
}

TEST_F(SortLinesDlgWindow, ArrowKeysWalkTheKeysOfTheSort) {
  Show([](HWND dialog) {
    Focus(dialog, kByLine);
    PressKey(dialog, VK_DOWN);
    EXPECT_TRUE(IsChecked(dialog, kBySubstring));
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, true, true));
    PressKey(dialog, VK_DOWN);
    EXPECT_TRUE(IsChecked(dialog, kByItem));
    EXPECT_THAT(ItemState(dialog), ElementsAre(true, true));
    PressKey(dialog, VK_DOWN);
    EXPECT_TRUE(IsChecked(dialog, kByLine));
  });
}

TEST_F(SortLinesDlgWindow, FieldsTakeDigitsAndCharactersUpToTheirLimits) {
  Start(0x201);
  Show([](HWND dialog) {
    ClickButton(dialog, kBySubstring);
    for (const int number : {kTop, kBottom, kPosition, kLength, kItem}) {
      EXPECT_TRUE(GetWindowLongW(GetDlgItem(dialog, number), GWL_STYLE) & ES_NUMBER) << number;
    }
    EnterText(dialog, kLength, W("12345678901"));
    EXPECT_EQ(TextOf(dialog, kLength), W("123456789"));
    EnterText(dialog, kTop, W("12345678901"));
    EXPECT_EQ(TextOf(dialog, kTop), W("1234567890"));
    EXPECT_EQ(SendDlgItemMessageW(dialog, kDateFormat, EM_GETLIMITTEXT, 0, 0), 128);
    EXPECT_EQ(SendDlgItemMessageW(dialog, kName, EM_GETLIMITTEXT, 0, 0), 259);
  });
}

TEST_F(SortLinesDlgWindow, NumbersTakeTenDigits) {
  Show([](HWND dialog) {
    ClickButton(dialog, kByItem);
    for (const int number : {kTop, kBottom, kPosition, kItem}) {
      EnterText(dialog, number, W("12345678901"));
      EXPECT_EQ(TextOf(dialog, number), W("1234567890")) << number;
    }
  });
}

TEST_F(SortLinesDlgWindow, OfATextThatIsPutIntoANumberTheDigitsStay) {
  Show([](HWND dialog) {
    ClickButton(dialog, kByItem);
    ClickButton(dialog, kBySubstring);
    for (const int number : {kTop, kBottom, kPosition, kItem, kLength}) {
      PasteText(dialog, number, W("-5x"));
      Pump(dialog);
      EXPECT_EQ(TextOf(dialog, number), W("5")) << number;
    }
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, false, false));
    PasteText(dialog, kLength, W("x"));
    Pump(dialog);
    EXPECT_EQ(TextOf(dialog, kLength), W(""));
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, true, true));
  });
}

TEST_F(SortLinesDlgWindow, PastedLengthIsRightEvenIfOkIsPressedAtOnce) {
  for (const auto& [pasted, length] : std::initializer_list<std::pair<const WCHAR*, const WCHAR*>>{
           {W("x"), W("")}, {W("-7"), W("7")}, {W("1 000"), W("1000")}}) {
    Start(0x12);
    EXPECT_EQ(Show([text = pasted](HWND dialog) {
                PasteText(dialog, kLength, text);
                PressAtOnce(dialog, IDOK);
              }),
              IDOK);
    EXPECT_EQ(form_.length, length);
    EXPECT_NO_THROW(ReadOptions(form_));
  }
}

TEST_F(SortLinesDlgWindow, TextThatAProgramSetsIsCutToTheDigitsThatTheLengthTakes) {
  Start(0x12);
  Show([](HWND dialog) {
    SendText(dialog, kLength, W("99999999999"));
    Pump(dialog);
    EXPECT_EQ(TextOf(dialog, kLength), W("999999999"));
  });
}

TEST_F(SortLinesDlgWindow, StoredLengthOfTenDigitsIsLeftByOkWithoutAFailure) {
  Start(0x12, [](SortLinesOptions& options) { options.subStringLen = 4294967295; });
  EXPECT_EQ(Show([](HWND dialog) {
              EXPECT_EQ(TextOf(dialog, kLength), W("999999999"));
              ClickButton(dialog, IDOK);
            }),
            IDOK);
  EXPECT_EQ(ReadOptions(form_).subStringLen, 999999999u);
}

TEST_F(SortLinesDlgWindow, WithNoKeyMarkedTheTabKeyReachesTheFirst) {
  Start(0x10);
  Show([](HWND dialog) {
    EXPECT_TRUE(GetWindowLongW(GetDlgItem(dialog, kByLine), GWL_STYLE) & WS_TABSTOP);
    for (const int other : {kBySubstring, kByItem}) {
      EXPECT_FALSE(GetWindowLongW(GetDlgItem(dialog, other), GWL_STYLE) & WS_TABSTOP) << other;
    }
    Focus(dialog, kSkipSpace);
    PressKey(dialog, VK_TAB);
    EXPECT_EQ(FocusedControl(dialog), kByLine);
  });
}

TEST_F(SortLinesDlgWindow, KeyMarkedInTheGroupIsItsOnlyTabStop) {
  Start(0x14);
  Show([](HWND dialog) {
    EXPECT_TRUE(GetWindowLongW(GetDlgItem(dialog, kByItem), GWL_STYLE) & WS_TABSTOP);
    EXPECT_FALSE(GetWindowLongW(GetDlgItem(dialog, kByLine), GWL_STYLE) & WS_TABSTOP);
  });
}

TEST_F(SortLinesDlgWindow, FieldThatIsGreyedOutWhileItHasTheFocusPassesItOn) {
  Show([](HWND dialog) {
    ClickButton(dialog, kBySubstring);
    Focus(dialog, kLength);
    // As if both fields had been filled at once.
    SendText(dialog, kEndCharacter, W(";"));
    Pump(dialog);
    EXPECT_FALSE(IsEnabled(dialog, kLength));
    EXPECT_NE(FocusedControl(dialog), kLength);
    EXPECT_NE(FocusedControl(dialog), 0);
  });
}

}  // namespace
