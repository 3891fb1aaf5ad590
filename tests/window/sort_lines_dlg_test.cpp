// The window of the Sort Lines dialog: how it shows the options, and how its fields are read when it closes.
#include <gmock/gmock.h>

#include "frame/services/message_texts.h"
#include "ui/controls.h"
#include "window/layout_checks.h"
#include "window/sort_lines_dlg_window.h"

using namespace Velmora::SDK;

namespace {

using namespace SortLinesWindow;
using namespace WQLineSorter;
using testing::ElementsAre;

// Texts and contents of the fields.

TEST_F(SortLinesDlgWindow, EveryTextComesFromTheHostByItsId) {
  const std::pair<int, const WCHAR*> expected[] = {
      {kTitle, W("T01900064")},         {IDOK, W("T01910064")},
      {IDCANCEL, W("T01920064")},       {kHeading, W("T01930064")},
      {kSaveAsLabel, W("T01AA0064")},   {kNameLabel, W("T01AE0064")},
      {kTopLabel, W("T01970064")},      {kTopHint, W("T01980064")},
      {kBottomLabel, W("T01990064")},   {kBottomHint, W("T019A0064")},
      {kPositionLabel, W("T019B0064")}, {kSkipSpace, W("T019C0064")},
      {kByGroup, W("T019D0064")},       {kByLine, W("T019E0064")},
      {kBySubstring, W("T019F0064")},   {kByItem, W("T01A00064")},
      {kLengthLabel, W("T01A10064")},   {kEndCharacterLabel, W("T01A20064")},
      {kEndAtSpace, W("T01A30064")},    {kSeparatorLabel, W("T01A40064")},
      {kItemLabel, W("T01A50064")},     {kMethodGroup, W("T01A60064")},
      {kDatePresets, W("T01A70064")},   {kLanguageAware, W("T01A80064")},
      {kIgnoreCase, W("T01C20064")},    {kNatural, W("T01A90064")},
      {kReverse, W("T01AB0064")},       {kDuplicates, W("T01AF0064")},
      {kBlank, W("T01B00064")},         {kDateLabel, W("T01B60064")},
      {kSampleLabel, W("T01B70064")},
  };
  Show([&](HWND dialog) {
    for (const auto& [control, text] : expected) EXPECT_EQ(TextOf(dialog, control), text) << control;
    EXPECT_THAT(RowsOf(dialog, kSaveAs), ElementsAre(W("T01950064"), W("T01AC0064"), W("T01AD0064")));
    EXPECT_THAT(RowsOf(dialog, kMethod), ElementsAre(W("T01B10064"), W("T01B20064"), W("T01B30064")));
  });
}

TEST_F(SortLinesDlgWindow, ShowsTheNumberOfFiles) {
  host_.texts[kTextSortDlgCount] = W("sorts %d of 100%%");
  form_.fileCount = 12;
  Show([](HWND dialog) { EXPECT_EQ(TextOf(dialog, kCount), W("sorts 12 of 100%")); });
}

TEST_F(SortLinesDlgWindow, WhereTheHostHasNoTextsItsOwnOnesShow) {
  host_.recorder.Refuse("GetLanguageString");
  const std::pair<int, const WCHAR*> expected[] = {
      {kTitle, W("Sort Lines")},
      {kHeading, W("Sort lines in all the selected files.\r\n")
                     W("Only sort text files. Sorting binary files will destory them.")},
      {kCount, W("# Files will be sorted")},
      {kSaveAsLabel, W("Save as")},
      {kNameLabel, W("File name")},
      {kTopLabel, W("Start Line : ")},
      {kTopHint, W("# of lines at the top to keep.")},
      {kBottomLabel, W("End Line : ")},
      {kBottomHint, W("# of lines at the bottom the keep")},
      {kPositionLabel, W("Start at line position : ")},
      {kSkipSpace, W("Skip leading spaces")},
      {kByGroup, W("Sort Line by...")},
      {kByLine, W("Entire Line")},
      {kBySubstring, W("Substring at start postion...")},
      {kByItem, W("Line Item")},
      {kLengthLabel, W("Substring lenght : ")},
      {kEndCharacterLabel, W("End character : ")},
      {kEndAtSpace, W("End at any whitespace character")},
      {kSeparatorLabel, W("Item Separator : ")},
      {kItemLabel, W("Item : ")},
      {kMethodGroup, W("Sort Method")},
      {kDateLabel, W("Date format : ")},
      {kDatePresets, W("<")},
      {kLanguageAware, W("Language aware sort order")},
      {kIgnoreCase, W("Ignore case")},
      {kNatural, W("Sort numbers in natrual order")},
      {kReverse, W("Reverse sort order")},
      {kDuplicates, W("Remove duplicate lines")},
      {kBlank, W("Remove blank lines")},
      {kSampleLabel, W("Text of the first file : ")},
      {IDOK, W("OK")},
      {IDCANCEL, W("Cancel")},
  };
  Show([&](HWND dialog) {
    for (const auto& [control, text] : expected) EXPECT_EQ(TextOf(dialog, control), text) << control;
    EXPECT_EQ(TextOf(dialog, kName), W("a_s.txt"));
    EXPECT_THAT(RowDataOf(dialog, kMethod), ElementsAre(0x10, 0x100, 0x200));
    ExpectNoTextCutOff(dialog);
  });
}

TEST_F(SortLinesDlgWindow, RowsOfTheListsHoldTheOptionsBits) {
  Show([](HWND dialog) {
    EXPECT_THAT(RowDataOf(dialog, kSaveAs), ElementsAre(0x1000000, 0x2000000, 0x4000000));
    EXPECT_THAT(RowDataOf(dialog, kMethod), ElementsAre(0x10, 0x100, 0x200));
  });
}

TEST_F(SortLinesDlgWindow, ShowsTheDefaultOptions) {
  Show([](HWND dialog) {
    EXPECT_EQ(Ui::SelectedData(GetDlgItem(dialog, kSaveAs)), 0x1000000);
    EXPECT_EQ(Ui::SelectedData(GetDlgItem(dialog, kMethod)), 0x10);
    EXPECT_EQ(TextOf(dialog, kName), W("a_s.txt"));
    EXPECT_EQ(TextOf(dialog, kTop), W("0"));
    EXPECT_EQ(TextOf(dialog, kBottom), W("0"));
    EXPECT_EQ(TextOf(dialog, kPosition), W("1"));
    EXPECT_EQ(TextOf(dialog, kItem), W("0"));
    for (const int empty : {kLength, kEndCharacter, kSeparator, kDateFormat}) {
      EXPECT_EQ(TextOf(dialog, empty), W("")) << empty;
    }
    EXPECT_TRUE(IsChecked(dialog, kByLine));
    EXPECT_TRUE(IsChecked(dialog, kSkipSpace));
    for (const int clear : {kBySubstring, kByItem, kEndAtSpace, kLanguageAware, kIgnoreCase, kNatural,
                            kReverse, kDuplicates, kBlank}) {
      EXPECT_FALSE(IsChecked(dialog, clear)) << clear;
    }
  });
}

TEST_F(SortLinesDlgWindow, ShowsOptionsThatAreSet) {
  Start(0x406BA04, [](SortLinesOptions& options) {
    options.keepLinesTop = 3;
    options.keepLinesBottom = 4;
    options.lineOffset = 9;
    options.lineItem = 2;
    options.matchChar = u';';
    std::copy_n("%d.%m", 6, options.dateFormat);
  });
  Show([](HWND dialog) {
    EXPECT_EQ(Ui::SelectedData(GetDlgItem(dialog, kSaveAs)), 0x4000000);
    EXPECT_EQ(Ui::SelectedData(GetDlgItem(dialog, kMethod)), 0x200);
    EXPECT_EQ(TextOf(dialog, kName), W("a.txt"));
    EXPECT_EQ(TextOf(dialog, kTop), W("3"));
    EXPECT_EQ(TextOf(dialog, kBottom), W("4"));
    EXPECT_EQ(TextOf(dialog, kPosition), W("10"));
    EXPECT_EQ(TextOf(dialog, kSeparator), W(";"));
    EXPECT_EQ(TextOf(dialog, kItem), W("2"));
    EXPECT_EQ(TextOf(dialog, kDateFormat), W("%d.%m"));
    for (const int set : {kByItem, kLanguageAware, kIgnoreCase, kNatural, kReverse, kDuplicates, kBlank}) {
      EXPECT_TRUE(IsChecked(dialog, set)) << set;
    }
    EXPECT_FALSE(IsChecked(dialog, kSkipSpace));
  });
}

TEST_F(SortLinesDlgWindow, ShowsTheFieldsOfASubstring) {
  Start(0x400012, [](SortLinesOptions& options) {
    options.matchChar = u';';
    options.subStringLen = 5;
  });
  Show([](HWND dialog) {
    EXPECT_TRUE(IsChecked(dialog, kBySubstring));
    EXPECT_EQ(TextOf(dialog, kEndCharacter), W(";"));
    EXPECT_EQ(TextOf(dialog, kLength), W("5"));
    EXPECT_THAT(SubstringState(dialog), ElementsAre(true, true, true));
  });
}

// Closing the dialog.

TEST_F(SortLinesDlgWindow, OkButtonTakesAllFields) {
  EXPECT_EQ(Show([](HWND dialog) {
              EnterText(dialog, kName, W("sorted.txt"));
              EnterText(dialog, kTop, W("1"));
              EnterText(dialog, kBottom, W("2"));
              EnterText(dialog, kPosition, W("3"));
              ClickButton(dialog, kSkipSpace);
              ClickButton(dialog, kByItem);
              EnterText(dialog, kSeparator, W(";"));
              EnterText(dialog, kItem, W("5"));
              ChooseRow(dialog, kMethod, kDateRow);
              EnterText(dialog, kDateFormat, W("%d"));
              ClickButton(dialog, kIgnoreCase);
              ClickButton(dialog, kReverse);
              ClickButton(dialog, kBlank);
              ClickButton(dialog, IDOK);
            }),
            IDOK);
  EXPECT_EQ(form_.targetName, W("sorted.txt"));
  const SortLinesOptions options = ReadOptions(form_);
  EXPECT_EQ(options.options, 0x1043204u);
  EXPECT_EQ(options.keepLinesTop, 1u);
  EXPECT_EQ(options.keepLinesBottom, 2u);
  EXPECT_EQ(options.lineOffset, 2u);
  EXPECT_EQ(options.matchChar, u';');
  EXPECT_EQ(options.lineItem, 5u);
  EXPECT_STREQ(options.dateFormat, "%d");
}

TEST_F(SortLinesDlgWindow, EnterEndsItWithWhatWasTypedLast) {
  EXPECT_EQ(Show([](HWND dialog) {
              ClickButton(dialog, kBySubstring);
              Focus(dialog, kEndCharacter);
              // The dialog's own message loop does not run between the keys.
              SendDlgItemMessageW(dialog, kEndCharacter, WM_CHAR, W('x'), 1);
              SendDlgItemMessageW(dialog, kEndCharacter, WM_CHAR, W('y'), 1);
              PressAtOnce(dialog, IDOK);
            }),
            IDOK);
  EXPECT_EQ(form_.endCharacter, W("x"));
}

TEST_F(SortLinesDlgWindow, NaturalOrderCheckedThereIsNotStoredByDesign) {
  Show([](HWND dialog) {
    ClickButton(dialog, kLanguageAware);
    ClickButton(dialog, kNatural);
    EXPECT_TRUE(IsChecked(dialog, kNatural));
    ClickButton(dialog, IDOK);
  });
  EXPECT_EQ(ReadOptions(form_).options, 0x1100811u);
}

TEST_F(SortLinesDlgWindow, CancelEscapeAndTheCloseButtonCancel) {
  EXPECT_EQ(Show([](HWND dialog) { ClickButton(dialog, IDCANCEL); }), IDCANCEL);
  EXPECT_EQ(Show([](HWND dialog) { PressKey(dialog, VK_ESCAPE); }), IDCANCEL);
  EXPECT_EQ(Show([](HWND dialog) { PressCloseButton(dialog); }), IDCANCEL);
}

TEST_F(SortLinesDlgWindow, ReturnPressesOk) {
  EXPECT_EQ(Show([](HWND dialog) {
              EnterText(dialog, kTop, W("8"));
              PressKey(dialog, VK_RETURN);
            }),
            IDOK);
  EXPECT_EQ(form_.keepLinesTop, W("8"));
}

TEST_F(SortLinesDlgWindow, CanBeShownAgain) {
  for (int round = 0; round < 3; ++round) {
    Start(0x100011);
    EXPECT_EQ(Show([](HWND dialog) {
                EXPECT_EQ(TextOf(dialog, kTop), W("0"));
                EnterText(dialog, kTop, W("7"));
                PressKey(dialog, VK_RETURN);
              }),
              IDOK);
    EXPECT_EQ(form_.keepLinesTop, W("7"));
  }
}

}  // namespace
