// The window of the Find and Replace dialog: its contents, the effects of a change, the keyboard, and how its
// fields are read when it closes.
#include "findreplace/tool/find_and_replace_dlg.h"

#include <gmock/gmock.h>

#include <functional>

#include "frame/services/message_texts.h"
#include "support/fake_host.h"
#include "ui/controls.h"
#include "window/dialog_controls.h"
#include "window/english_texts.h"
#include "window/layout_checks.h"
#include "window/modal_driver.h"
#include "window/screenshot.h"

using namespace Velmora::SDK;

namespace QXFindAndReplace {
namespace {

using testing::ElementsAre;

// The ids of the dialog's controls.
enum Control : int {
  kFind = 1020,
  kName = 1034,
  kIgnoreCase = 1042,
  kRegExp = 1043,
  kWildcard = 1044,
  kReplace = 1050,
  kCount = 1096,
  kSaveMode = 1098,
  kMode = 1102,
  kOptions = 1103,
  kFindLabel = 1104,
  kReplaceLabel = 1105,
  kSaveModeLabel = 1106,
  kNameLabel = 1107,
  kExplanation = 1108,
  kHeading = 1109,
  kForceUtf8 = 1111,
  kSilent = 1114,
  kReplaceAll = 1115,
  kModeLabel = 1116,
};

// Rows of the save modes.
constexpr int kNewFileRow = 0;
constexpr int kKeepBackupRow = 1;
constexpr int kNoBackupRow = 2;

class FindAndReplaceDlgWindow : public testing::Test {
 protected:
  FindAndReplaceDlgWindow() { Start(0x20000101); }

  // Starts with these stored flags, for one file `a.txt` or for several files.
  void Start(std::uint32_t flags, std::uint32_t fileCount = 1) {
    form_ = {};
    form_.options.flags = flags;
    form_.options.find = W("one\r\ntwo");
    form_.options.replace = W("three");
    form_.fileCount = fileCount;
    form_.startName = fileCount == 1 ? W("a.txt") : W("*.*");
    form_.suffix = W("_x");
    StartForm(form_);
  }

  INT_PTR Show(const Steps& steps) {
    return RunModal([this] { return ShowFindAndReplaceDlg(host_, form_); }, steps);
  }

  OwnerWindow owner_{800, 600};
  FakeHost host_;
  FindAndReplaceForm form_;
};

// Texts.

TEST_F(FindAndReplaceDlgWindow, EveryTextComesFromTheHostByItsId) {
  const std::pair<int, const WCHAR*> expected[] = {
      {kTitle, W("T01F40064")},         {kHeading, W("T01F50064")},     {kCount, W("T01F60064")},
      {kSaveModeLabel, W("T01AA0064")}, {kNameLabel, W("T01AE0064")},   {kFindLabel, W("T01F80064")},
      {kReplaceLabel, W("T01F90064")},  {kOptions, W("T02080064")},     {kRegExp, W("T020C0064")},
      {kWildcard, W("T020D0064")},      {kIgnoreCase, W("T01C20064")},  {kForceUtf8, W("T02090064")},
      {kSilent, W("T020A0064")},        {kReplaceAll, W("T020B0064")},  {IDOK, W("T01CC0064")},
      {IDCANCEL, W("M0:00030067")},     {kExplanation, W("L01FF0064")}, {kModeLabel, W("T02030064")},
  };
  Show([&](HWND dialog) {
    for (const auto& [control, text] : expected) EXPECT_EQ(TextOf(dialog, control), text) << control;
    EXPECT_THAT(RowsOf(dialog, kMode),
                ElementsAre(W("T01FF0064"), W("T02000064"), W("T02010064"), W("T02020064")));
    EXPECT_THAT(RowsOf(dialog, kSaveMode), ElementsAre(W("T01FC0064"), W("T01AC0064"), W("T01AD0064")));
  });
}

TEST_F(FindAndReplaceDlgWindow, WhereTheHostHasNoTextsItsOwnOnesShow) {
  host_.recorder.Refuse("GetLanguageString");
  host_.recorder.Refuse("GetLanguageTitle");
  host_.recorder.Refuse("GetModuleLanguageString");
  const std::pair<int, const WCHAR*> expected[] = {
      {kTitle, W("Find and Replace in file(s)")},
      {kHeading, W("Replace word/phraes/lines in files.")},
      {kCount, W("# Files to Find and Replace text in.")},
      {kSaveModeLabel, W("Save as")},
      {kNameLabel, W("File name")},
      {kFindLabel, W("Text to find")},
      {kModeLabel, W("Find mode")},
      {kReplaceLabel, W("Text to replace with")},
      {kOptions, W("Options")},
      {kRegExp, W("Find match using RegExp")},
      {kWildcard, W("Find match using Wildcard ( ?* )")},
      {kIgnoreCase, W("Ignore case")},
      {kForceUtf8, W("Force UTF8 for plain text")},
      {kSilent, W("Silent - Show no Confirm/Error dialogs")},
      {kReplaceAll, W("Do not ask - Replace All")},
      {IDOK, W("Start")},
      {IDCANCEL, W("Cancel")},
  };
  Show([&](HWND dialog) {
    for (const auto& [control, text] : expected) EXPECT_EQ(TextOf(dialog, control), text) << control;
    EXPECT_THAT(RowDataOf(dialog, kMode), ElementsAre(1, 2, 4, 8));
  });
}

TEST_F(FindAndReplaceDlgWindow, ShowsTheNumberOfFiles) {
  host_.texts[kTextFindDlgCount] = W("in %d of 100%%");
  Start(0x20000101, 12);
  Show([](HWND dialog) { EXPECT_EQ(TextOf(dialog, kCount), W("in 12 of 100%")); });
}

// Contents of the fields.

TEST_F(FindAndReplaceDlgWindow, RowsOfTheListsHoldTheFlags) {
  Show([](HWND dialog) {
    EXPECT_THAT(RowDataOf(dialog, kMode), ElementsAre(1, 2, 4, 8));
    EXPECT_THAT(RowDataOf(dialog, kSaveMode), ElementsAre(0x10000000, 0x20000000, 0x40000000));
  });
}

TEST_F(FindAndReplaceDlgWindow, ShowsTheDefaults) {
  Show([](HWND dialog) {
    EXPECT_EQ(SelectedRow(dialog, kMode), 0);
    EXPECT_EQ(SelectedRow(dialog, kSaveMode), kKeepBackupRow);
    EXPECT_EQ(TextOf(dialog, kName), W("a.txt"));
    EXPECT_FALSE(IsEnabled(dialog, kName));
    EXPECT_EQ(TextOf(dialog, kFind), W("one\r\ntwo"));
    EXPECT_EQ(TextOf(dialog, kReplace), W("three"));
    EXPECT_TRUE(IsChecked(dialog, kIgnoreCase));
    for (const int box : {kRegExp, kWildcard, kForceUtf8, kSilent, kReplaceAll}) {
      EXPECT_FALSE(IsChecked(dialog, box)) << box;
    }
  });
}

TEST_F(FindAndReplaceDlgWindow, ShowsFlagsThatAreSet) {
  Start(0x40003E08);
  Show([](HWND dialog) {
    EXPECT_EQ(SelectedRow(dialog, kMode), 3);
    EXPECT_EQ(SelectedRow(dialog, kSaveMode), kNoBackupRow);
    for (const int box : {kRegExp, kWildcard, kForceUtf8, kSilent, kReplaceAll}) {
      EXPECT_TRUE(IsChecked(dialog, box)) << box;
    }
    EXPECT_FALSE(IsChecked(dialog, kIgnoreCase));
  });
}

TEST_F(FindAndReplaceDlgWindow, BoxForRegularExpressionsIsGreyAndKeepsItsMark) {
  Start(0x20000501);
  EXPECT_EQ(Show([](HWND dialog) {
              EXPECT_FALSE(IsEnabled(dialog, kRegExp));
              EXPECT_TRUE(IsWindowVisible(GetDlgItem(dialog, kRegExp)));
              ChooseRow(dialog, kMode, 2);
              ChooseRow(dialog, kSaveMode, kNewFileRow);
              EXPECT_FALSE(IsEnabled(dialog, kRegExp));
              ClickButton(dialog, IDOK);
            }),
            IDOK);
  EXPECT_EQ(ReadOptions(form_).flags, 0x10000504u);
}

TEST_F(FindAndReplaceDlgWindow, BoxThatReplacesAllIsHiddenAndGreyAndKeepsItsMark) {
  Start(0x20000301);
  EXPECT_EQ(Show([](HWND dialog) {
              EXPECT_FALSE(IsWindowVisible(GetDlgItem(dialog, kReplaceAll)));
              EXPECT_FALSE(IsEnabled(dialog, kReplaceAll));
              ClickButton(dialog, IDOK);
            }),
            IDOK);
  EXPECT_EQ(ReadOptions(form_).flags, 0x20000301u);
}

// Effects of a change.

TEST_F(FindAndReplaceDlgWindow, EachModeIsExplained) {
  const WCHAR* const explanations[] = {W("L01FF0064"), W("L02000064"), W("L02010064"), W("L02020064")};
  for (const int row : {0, 1, 2, 3}) {
    Start(0x20000000u | 1u << row);
    Show([&](HWND dialog) { EXPECT_EQ(TextOf(dialog, kExplanation), explanations[row]); });
  }
  Show([&](HWND dialog) {
    for (const int row : {2, 0, 3, 1}) {
      ChooseRow(dialog, kMode, row);
      EXPECT_EQ(TextOf(dialog, kExplanation), explanations[row]);
    }
  });
}

TEST_F(FindAndReplaceDlgWindow, NewFileOfOneIsNamedWithTheSuffix) {
  Show([](HWND dialog) {
    ChooseRow(dialog, kSaveMode, kNewFileRow);
    EXPECT_TRUE(IsEnabled(dialog, kName));
    EXPECT_EQ(TextOf(dialog, kName), W("a_x.txt"));
    for (const int row : {kKeepBackupRow, kNoBackupRow}) {
      ChooseRow(dialog, kSaveMode, row);
      EXPECT_FALSE(IsEnabled(dialog, kName));
      EXPECT_EQ(TextOf(dialog, kName), W("a.txt"));
    }
  });
}

TEST_F(FindAndReplaceDlgWindow, NewFilesOfThreeAreNamedByAPattern) {
  Start(0x10000101, 3);
  Show([](HWND dialog) {
    EXPECT_TRUE(IsEnabled(dialog, kName));
    EXPECT_EQ(TextOf(dialog, kName), W("*_x.*"));
    ChooseRow(dialog, kSaveMode, kKeepBackupRow);
    EXPECT_FALSE(IsEnabled(dialog, kName));
    EXPECT_EQ(TextOf(dialog, kName), W("*.*"));
    ChooseRow(dialog, kSaveMode, kNewFileRow);
    EXPECT_EQ(TextOf(dialog, kName), W("*_x.*"));
  });
}

TEST_F(FindAndReplaceDlgWindow, NameThatWasEnteredStaysWhileTheSaveModeDoes) {
  Start(0x10000101);
  Show([](HWND dialog) {
    EnterText(dialog, kName, W("mine.txt"));
    ChooseRow(dialog, kMode, 1);
    ClickButton(dialog, kWildcard);
    EXPECT_EQ(TextOf(dialog, kName), W("mine.txt"));
  });
}

// Keys.

TEST_F(FindAndReplaceDlgWindow, FocusStartsInTheTextToFindAndTypingReplacesIt) {
  for (const std::uint32_t flags : {0x10000101U, 0x20000101U}) {
    Start(flags);
    Show([](HWND dialog) {
      EXPECT_EQ(FocusedControl(dialog), kFind);
      TypeText(dialog, W("x"));
      EXPECT_EQ(TextOf(dialog, kFind), W("x"));
    });
  }
}

TEST_F(FindAndReplaceDlgWindow, TabWalksFieldsInTheirOrderAndComesBack) {
  Start(0x10000101);
  Show([](HWND dialog) {
    EXPECT_THAT(WalkByTab(dialog), ElementsAre(kFind, kMode, kReplace, kWildcard, kIgnoreCase, kForceUtf8,
                                               kSilent, IDOK, IDCANCEL, kSaveMode, kName));
  });
}

TEST_F(FindAndReplaceDlgWindow, EnterInTheTextsMakesALine) {
  EXPECT_EQ(Show([](HWND dialog) {
              for (const int text : {kFind, kReplace}) {
                EnterText(dialog, text, W("a"));
                PressKey(dialog, VK_RETURN);
                TypeText(dialog, W("b"));
                EXPECT_EQ(TextOf(dialog, text), W("a\r\nb")) << text;
              }
              ClickButton(dialog, IDOK);
            }),
            IDOK);
  EXPECT_EQ(form_.find, W("a\r\nb"));
  EXPECT_EQ(form_.replace, W("a\r\nb"));
}

TEST_F(FindAndReplaceDlgWindow, EnterElsewhereStarts) {
  EXPECT_EQ(Show([](HWND dialog) {
              Focus(dialog, kMode);
              PressKey(dialog, VK_RETURN);
            }),
            IDOK);
}

TEST_F(FindAndReplaceDlgWindow, AccessKeysLeadToTheTexts) {
  SpeakEnglish(host_);
  Show([](HWND dialog) {
    PressAltKey(dialog, W('f'));
    EXPECT_EQ(FocusedControl(dialog), kFind);
    PressAltKey(dialog, W('r'));
    EXPECT_EQ(FocusedControl(dialog), kReplace);
    PressAltKey(dialog, W('v'));
    EXPECT_EQ(FocusedControl(dialog), kSaveMode);
    PressAltKey(dialog, W('m'));
    EXPECT_EQ(FocusedControl(dialog), kMode);
  });
}

// Closing the dialog.

TEST_F(FindAndReplaceDlgWindow, OkTakesAllFieldsAndNoneOfTheOldFlags) {
  Start(0xB0000905);
  EXPECT_EQ(Show([](HWND dialog) {
              EnterText(dialog, kFind, W("x"));
              EnterText(dialog, kReplace, W("y"));
              EnterText(dialog, kName, W("mine.txt"));
              ChooseRow(dialog, kMode, 1);
              ClickButton(dialog, kIgnoreCase);
              ClickButton(dialog, kForceUtf8);
              ClickButton(dialog, kWildcard);
              ClickButton(dialog, kSilent);
              ClickButton(dialog, IDOK);
            }),
            IDOK);
  const FindAndReplaceOptions options = ReadOptions(form_);
  EXPECT_EQ(options.flags, 0x10003002u);
  EXPECT_EQ(options.find, W("x"));
  EXPECT_EQ(options.replace, W("y"));
  EXPECT_EQ(ReadTargetName(form_), W("mine.txt"));
}

TEST_F(FindAndReplaceDlgWindow, OkTakesEachBoxByItself) {
  const std::pair<int, std::uint32_t> boxes[] = {
      {kIgnoreCase, 0x100}, {kForceUtf8, 0x800}, {kSilent, 0x1000}, {kWildcard, 0x2000}};
  for (const auto& [box, flag] : boxes) {
    Start(0x20000001);
    Show([number = box](HWND dialog) {
      ClickButton(dialog, number);
      ClickButton(dialog, IDOK);
    });
    EXPECT_EQ(ReadOptions(form_).flags, 0x20000001 | flag);
  }
}

TEST_F(FindAndReplaceDlgWindow, LongTextsAreAcceptedAndTruncatedWithoutAMessageByDesign) {
  Start(0x10000001);
  EXPECT_EQ(Show([](HWND dialog) {
              PasteText(dialog, kFind, WString(1023, W('f')) + W("!"));
              PasteText(dialog, kReplace, WString(1023, W('r')) + W("!!"));
              PasteText(dialog, kName, WString(1023, W('n')) + W("!!!"));
              EXPECT_EQ(TextOf(dialog, kFind).size(), 1024u);
              ClickButton(dialog, IDOK);
            }),
            IDOK);
  EXPECT_EQ(ReadOptions(form_).find, WString(1023, W('f')));
  EXPECT_EQ(ReadOptions(form_).replace, WString(1023, W('r')));
  EXPECT_EQ(ReadTargetName(form_), WString(1023, W('n')));
}

TEST_F(FindAndReplaceDlgWindow, OkPressedAtOnceTakesWhatWasChangedLast) {
  Start(0x10000001);
  EXPECT_EQ(Show([](HWND dialog) {
              SendText(dialog, kFind, W("late"));
              PressAtOnce(dialog, IDOK);
            }),
            IDOK);
  EXPECT_EQ(form_.find, W("late"));
}

TEST_F(FindAndReplaceDlgWindow, CancelEscapeAndTheCloseButtonCancel) {
  EXPECT_EQ(Show([](HWND dialog) { ClickButton(dialog, IDCANCEL); }), IDCANCEL);
  EXPECT_EQ(Show([](HWND dialog) { PressKey(dialog, VK_ESCAPE); }), IDCANCEL);
  EXPECT_EQ(Show([](HWND dialog) { PressCloseButton(dialog); }), IDCANCEL);
  EXPECT_EQ(Show([](HWND dialog) {
              Focus(dialog, kFind);
              PressKey(dialog, VK_ESCAPE);
            }),
            IDCANCEL);
}

// Appearance.

TEST_F(FindAndReplaceDlgWindow, IsCenteredOnTheActiveWindow) {
  Show([this](HWND dialog) {
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), owner_.Get());
    ExpectCenteredOver(dialog, owner_.Get());
  });
}

TEST_F(FindAndReplaceDlgWindow, WithoutAnActiveWindowItIsCenteredOnTheHostsWindow) {
  host_.mainWindow = owner_.Get();
  SetActiveWindow(nullptr);
  ASSERT_EQ(GetActiveWindow(), nullptr);
  Show([this](HWND dialog) { ExpectOwnedBy(dialog, owner_.Get()); });
}

TEST_F(FindAndReplaceDlgWindow, EnglishTextsFitAndControlsDoNotOverlap) {
  SpeakEnglish(host_);
  Start(0x10000102, 3);
  form_.suffix = host_.titles[kTextFindDlgNewFile];
  StartForm(form_);
  form_.find = W("colour\r\ncentre\r\ngrey");
  form_.replace = W("color\r\ncenter\r\ngray");
  Show([](HWND dialog) {
    ExpectLayoutHolds(dialog);
    EXPECT_EQ(TextOf(dialog, kCount), W("3 Files to Find and Replace text in."));
    EXPECT_TRUE(SaveScreenshot(dialog, W("find_and_replace_dialog")));
    for (const int row : {0, 2, 3}) {
      ChooseRow(dialog, kMode, row);
      ExpectNoTextCutOff(dialog);
    }
  });
}

TEST_F(FindAndReplaceDlgWindow, TextsOfTwiceTheLengthAndLongSentencesFitToo) {
  SpeakAtLength(host_);
  Show([](HWND dialog) {
    for (const int row : {0, 1, 2, 3}) {
      ChooseRow(dialog, kMode, row);
      ExpectNoTextCutOff(dialog);
    }
    EXPECT_TRUE(SaveScreenshot(dialog, W("find_and_replace_dialog_long_texts")));
  });
}

TEST_F(FindAndReplaceDlgWindow, MarginsAreEvenAndColumnsAligned) {
  Show([](HWND dialog) {
    RECT client = {};
    GetClientRect(dialog, &client);
    RECT margin = {7, 7, 7, 7};
    MapDialogRect(dialog, &margin);
    for (const int left : {kHeading, kCount, kSaveMode, kFind, kMode, kReplace, kOptions}) {
      EXPECT_EQ(AreaOf(dialog, left).left, margin.left) << left;
    }
    for (const int right : std::initializer_list<int>{kName, kFind, kReplace, kOptions, IDCANCEL}) {
      EXPECT_NEAR(client.right - AreaOf(dialog, right).right, margin.left, 1) << right;
    }
    EXPECT_NEAR(client.bottom - AreaOf(dialog, IDCANCEL).bottom, margin.top, 1);
  });
}

}  // namespace
}  // namespace QXFindAndReplace
