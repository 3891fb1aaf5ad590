// The window of the Create Link dialog: what it shows for each kind of link, the keyboard, and how its fields
// are read when it closes.
#include "filetools/create_links_dlg.h"

#include <gmock/gmock.h>

#include "frame/services/message_texts.h"
#include "support/fake_host.h"
#include "window/dialog_controls.h"
#include "window/english_texts.h"
#include "window/layout_checks.h"
#include "window/modal_driver.h"
#include "window/screenshot.h"

using namespace Velmora::SDK;

namespace {

using testing::ElementsAre;

// The ids of the dialog's controls.
enum Control : int {
  kKindGroup = 1011,
  kLink = 1015,
  kTarget = 1016,
  kStatus = 1017,
  kTargetLabel = 1018,
  kLinkLabel = 1019,
  kKind = 1028,
  kDescription = 1029,
  kDescriptionGroup = 1069,
};

// Rows of the list.
constexpr int kHardRow = 0;
constexpr int kJunctionRow = 1;
constexpr int kSymbolicRow = 2;
constexpr int kShortcutRow = 3;

class CreateLinksDlgWindow : public testing::Test {
 protected:
  CreateLinksDlgWindow() { Start(1); }

  // Starts with one file, and this kind as the last one used.
  void Start(int lastKind) {
    form_ = {};
    form_.linkName = W("C:\\links\\a.txt");
    form_.targetName = W("C:\\view\\a.txt");
    form_.linkKind = lastKind;
    StartForm(form_);
  }

  void StartWithFilesAndFolders(int lastKind) {
    form_ = {};
    form_.linkName = W("C:\\links\\*");
    form_.targetName = W("C:\\view\\*");
    form_.multiple = form_.anyFile = form_.anyFolder = true;
    form_.linkKind = lastKind;
    StartForm(form_);
  }

  INT_PTR Show(const Steps& steps) {
    return RunModal([this] { return ShowCreateLinksDlg(host_, form_); }, steps);
  }

  OwnerWindow owner_{640, 480};
  FakeHost host_;
  CreateLinksForm form_;
};

// Texts.

TEST_F(CreateLinksDlgWindow, EveryTextComesFromTheHostByItsId) {
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, kTitle), W("T012C0064"));
    EXPECT_EQ(TextOf(dialog, kKindGroup), W("T012E0064"));
    EXPECT_THAT(RowsOf(dialog, kKind),
                ElementsAre(W("T012F0064"), W("T01300064"), W("T01310064"), W("T01350064")));
    EXPECT_EQ(TextOf(dialog, kLinkLabel), W("T01320064"));
    EXPECT_EQ(TextOf(dialog, kTargetLabel), W("T01330064"));
    EXPECT_EQ(TextOf(dialog, IDOK), W("T01340064"));
    EXPECT_EQ(TextOf(dialog, IDCANCEL), W("M0:00030067"));
    EXPECT_EQ(TextOf(dialog, kDescriptionGroup), W("M0:00A50064"));
    EXPECT_EQ(TextOf(dialog, kDescription), W("T01390064"));
    EXPECT_EQ(TextOf(dialog, kStatus), W(""));
  });
}

TEST_F(CreateLinksDlgWindow, WithoutTextsOfTheHostItIsStillThereAndEmpty) {
  host_.recorder.Refuse("GetLanguageString");
  host_.recorder.Refuse("GetModuleLanguageString");
  Show([](HWND dialog) {
    for (const int control : {kTitle, +kKindGroup, +kLinkLabel, +kTargetLabel, IDOK, IDCANCEL,
                              +kDescriptionGroup, +kDescription, +kStatus}) {
      EXPECT_EQ(TextOf(dialog, control), W("")) << control;
    }
    EXPECT_THAT(RowsOf(dialog, kKind), ElementsAre(W(""), W(""), W(""), W("")));
    EXPECT_EQ(TextOf(dialog, kLink), W("C:\\links\\a.txt"));
  });
}

TEST_F(CreateLinksDlgWindow, RowsHoldOneToFourAndTheLastKindIsSelected) {
  for (const int kind : {1, 2, 3, 4}) {
    Start(kind);
    Show([kind](HWND dialog) {
      EXPECT_THAT(RowDataOf(dialog, kKind), ElementsAre(1, 2, 3, 4));
      EXPECT_EQ(SelectedRow(dialog, kKind), kind - 1);
    });
  }
}

TEST_F(CreateLinksDlgWindow, WhereNoKindWasUsedYetTheJunctionIsSelected) {
  Start(0);
  Show([](HWND dialog) { EXPECT_EQ(SelectedRow(dialog, kKind), kJunctionRow); });
}

TEST_F(CreateLinksDlgWindow, ALastKindThatIsNoneSelectsNoRowAndOkEndsWithNone) {
  Start(7);
  EXPECT_EQ(Show([](HWND dialog) {
              EXPECT_EQ(SelectedRow(dialog, kKind), CB_ERR);
              EXPECT_EQ(TextOf(dialog, kDescription), W(""));
              EXPECT_EQ(TextOf(dialog, kStatus), W(""));
              ClickButton(dialog, IDOK);
            }),
            IDOK);
  EXPECT_EQ(form_.linkKind, -1);
}

TEST_F(CreateLinksDlgWindow, KindsAreChosenAndNotTyped) {
  Show([](HWND dialog) {
    EXPECT_EQ(GetWindowLongW(GetDlgItem(dialog, kKind), GWL_STYLE) & 3, CBS_DROPDOWNLIST);
  });
}

// What changes with the kind.

TEST_F(CreateLinksDlgWindow, DescriptionFollowsTheKind) {
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, kDescription), W("T01390064"));
    ChooseRow(dialog, kKind, kJunctionRow);
    EXPECT_EQ(TextOf(dialog, kDescription), W("T013A0064"));
    ChooseRow(dialog, kKind, kSymbolicRow);
    EXPECT_EQ(TextOf(dialog, kDescription), W("T013B0064"));
    ChooseRow(dialog, kKind, kShortcutRow);
    EXPECT_EQ(TextOf(dialog, kDescription), W(""));
    ChooseRow(dialog, kKind, kHardRow);
    EXPECT_EQ(TextOf(dialog, kDescription), W("T01390064"));
  });
}

TEST_F(CreateLinksDlgWindow, AnImpossibleKindIsReportedAndOkIsDisabled) {
  Show([](HWND dialog) {
    EXPECT_TRUE(IsEnabled(dialog, IDOK));
    ChooseRow(dialog, kKind, kJunctionRow);
    EXPECT_EQ(TextOf(dialog, kStatus), W("T00CB0065"));
    EXPECT_FALSE(IsEnabled(dialog, IDOK));
    ChooseRow(dialog, kKind, kSymbolicRow);
    EXPECT_EQ(TextOf(dialog, kStatus), W(""));
    EXPECT_TRUE(IsEnabled(dialog, IDOK));
  });
}

TEST_F(CreateLinksDlgWindow, OpensWithTheStatusOfItsKind) {
  StartWithFilesAndFolders(1);
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, kStatus), W("T00C80065"));
    EXPECT_FALSE(IsEnabled(dialog, IDOK));
    ChooseRow(dialog, kKind, kJunctionRow);
    EXPECT_EQ(TextOf(dialog, kStatus), W("T00CA0065"));
    EXPECT_FALSE(IsEnabled(dialog, IDOK));
  });
}

TEST_F(CreateLinksDlgWindow, EnterDoesNotEndItWhileOkIsGrey) {
  Start(2);
  EXPECT_EQ(Show([](HWND dialog) {
              PressKey(dialog, VK_RETURN);
              EXPECT_TRUE(IsWindowVisible(dialog));
              SendMessageW(dialog, WM_COMMAND, IDOK, 0);
              EXPECT_TRUE(IsWindowVisible(dialog));
              ClickButton(dialog, IDCANCEL);
            }),
            IDCANCEL);
}

TEST_F(CreateLinksDlgWindow, TargetCanBeChangedForASymbolicLinkAlone) {
  Show([](HWND dialog) {
    for (const int row : {kJunctionRow, kSymbolicRow, kShortcutRow, kSymbolicRow, kHardRow}) {
      ChooseRow(dialog, kKind, row);
      EXPECT_TRUE(IsEnabled(dialog, kLink)) << row;
      EXPECT_EQ(IsEnabled(dialog, kTarget), row == kSymbolicRow) << row;
    }
  });
}

TEST_F(CreateLinksDlgWindow, OfSeveralItemsTheNamesAreForTheEyeOnly) {
  StartWithFilesAndFolders(3);
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, kLink), W("C:\\links\\*"));
    EXPECT_EQ(TextOf(dialog, kTarget), W("C:\\view\\*"));
    for (const int row : {kShortcutRow, kSymbolicRow}) {
      ChooseRow(dialog, kKind, row);
      EXPECT_FALSE(IsEnabled(dialog, kLink)) << row;
      EXPECT_FALSE(IsEnabled(dialog, kTarget)) << row;
      EXPECT_TRUE(IsEnabled(dialog, IDOK)) << row;
    }
  });
}

TEST_F(CreateLinksDlgWindow, NameOfAShortcutComesAndGoesWithItsKind) {
  Show([](HWND dialog) {
    ChooseRow(dialog, kKind, kShortcutRow);
    EXPECT_EQ(TextOf(dialog, kLink), W("C:\\links\\a.lnk"));
    ChooseRow(dialog, kKind, kSymbolicRow);
    EXPECT_EQ(TextOf(dialog, kLink), W("C:\\links\\a.txt"));
  });
}

TEST_F(CreateLinksDlgWindow, NameThatWasTypedStaysBetweenKindsThatAreNoShortcut) {
  Show([](HWND dialog) {
    EnterText(dialog, kLink, W("C:\\links\\mine"));
    ChooseRow(dialog, kKind, kSymbolicRow);
    EXPECT_EQ(TextOf(dialog, kLink), W("C:\\links\\mine"));
  });
}

TEST_F(CreateLinksDlgWindow, DrivesAreThoseOfTheOpeningWhateverIsTypedByDesign) {
  Show([](HWND dialog) {
    EnterText(dialog, kLink, W("D:\\links\\a.txt"));
    ChooseRow(dialog, kKind, kSymbolicRow);
    ChooseRow(dialog, kKind, kHardRow);
    EXPECT_EQ(TextOf(dialog, kStatus), W(""));
    EXPECT_TRUE(IsEnabled(dialog, IDOK));
  });
}

TEST_F(CreateLinksDlgWindow, ArrowKeysWalkTheKinds) {
  Show([](HWND dialog) {
    Focus(dialog, kKind);
    PressKey(dialog, VK_DOWN);
    EXPECT_EQ(TextOf(dialog, kStatus), W("T00CB0065"));
    PressKey(dialog, VK_DOWN);
    PressKey(dialog, VK_DOWN);
    EXPECT_EQ(TextOf(dialog, kLink), W("C:\\links\\a.lnk"));
    EXPECT_EQ(TextOf(dialog, kStatus), W(""));
  });
}

// Closing the dialog.

TEST_F(CreateLinksDlgWindow, OkTakesBothFieldsAndTheKind) {
  EXPECT_EQ(Show([](HWND dialog) {
              ChooseRow(dialog, kKind, kSymbolicRow);
              EnterText(dialog, kLink, W("D:\\\u00E4 link"));
              EnterText(dialog, kTarget, W("..\\\u4E2D"));
              ClickButton(dialog, IDOK);
            }),
            IDOK);
  EXPECT_EQ(form_.linkKind, 3);
  EXPECT_EQ(form_.linkName, W("D:\\\u00E4 link"));
  EXPECT_EQ(form_.targetName, W("..\\\u4E2D"));
}

TEST_F(CreateLinksDlgWindow, EnterTakesTheKindAndTheNameOfTheShortcut) {
  EXPECT_EQ(Show([](HWND dialog) {
              Focus(dialog, kKind);
              PressKey(dialog, VK_END);
              PressKey(dialog, VK_RETURN);
            }),
            IDOK);
  EXPECT_EQ(form_.linkKind, 4);
  EXPECT_EQ(form_.linkName, W("C:\\links\\a.lnk"));
  EXPECT_EQ(form_.targetName, W("C:\\view\\a.txt"));
}

TEST_F(CreateLinksDlgWindow, NamesLongerThanTheFieldsAreTakenWhole) {
  const WString name = W("C:\\") + WString(20000, W('x')) + W("end");
  Show([&](HWND dialog) {
    SendText(dialog, kLink, name);
    PressAtOnce(dialog, IDOK);
  });
  EXPECT_EQ(form_.linkName, name);
}

TEST_F(CreateLinksDlgWindow, CancelEscapeAndTheCloseButtonLeaveBothNames) {
  const Steps ends[] = {
      [](HWND dialog) { ClickButton(dialog, IDCANCEL); },
      [](HWND dialog) { PressKey(dialog, VK_ESCAPE); },
      [](HWND dialog) { PressCloseButton(dialog); },
  };
  for (const Steps& end : ends) {
    Start(1);
    EXPECT_EQ(Show([&](HWND dialog) {
                EnterText(dialog, kLink, W("C:\\typed"));
                end(dialog);
              }),
              IDCANCEL);
    EXPECT_EQ(form_.linkName, W("C:\\links\\a.txt"));
    EXPECT_EQ(form_.targetName, W("C:\\view\\a.txt"));
  }
}

// Keys.

TEST_F(CreateLinksDlgWindow, FocusStartsInTheListOfKinds) {
  Show([](HWND dialog) { EXPECT_EQ(FocusedControl(dialog), kKind); });
}

TEST_F(CreateLinksDlgWindow, TabWalksFromTheKindToTheButtonsAndPassesWhatIsGrey) {
  Start(3);
  Show([](HWND dialog) {
    EXPECT_THAT(WalkByTab(dialog), ElementsAre(kKind, kLink, kTarget, IDOK, IDCANCEL));
    ChooseRow(dialog, kKind, kJunctionRow);
    Focus(dialog, kKind);
    EXPECT_THAT(WalkByTab(dialog), ElementsAre(kKind, kLink, IDCANCEL));
  });
}

TEST_F(CreateLinksDlgWindow, AccessKeyOfALabelLeadsToItsField) {
  host_.texts = {{kTextLinkKinds, W("&1")}, {kTextLinkLabel, W("&2")}, {kTextLinkTargetLabel, W("&3")}};
  Start(3);
  Show([](HWND dialog) {
    PressAltKey(dialog, W('2'));
    EXPECT_EQ(FocusedControl(dialog), kLink);
    PressAltKey(dialog, W('3'));
    EXPECT_EQ(FocusedControl(dialog), kTarget);
    PressAltKey(dialog, W('1'));
    EXPECT_EQ(FocusedControl(dialog), kKind);
  });
}

TEST_F(CreateLinksDlgWindow, EnglishAccessKeysLeadToTheFieldsAndPressTheButtons) {
  SpeakEnglish(host_);
  Start(3);
  EXPECT_EQ(Show([](HWND dialog) {
              PressAltKey(dialog, W('l'));
              EXPECT_EQ(FocusedControl(dialog), kLink);
              PressAltKey(dialog, W('t'));
              EXPECT_EQ(FocusedControl(dialog), kTarget);
              PressAltKey(dialog, W('k'));
              EXPECT_EQ(FocusedControl(dialog), kKind);
              PressAltKey(dialog, W('r'));
            }),
            IDOK);
  Start(3);
  EXPECT_EQ(Show([](HWND dialog) { PressAltKey(dialog, W('c')); }), IDCANCEL);
}

// Position and layout.

TEST_F(CreateLinksDlgWindow, IsCenteredOnTheActiveWindowAndDisablesIt) {
  Show([this](HWND dialog) {
    ExpectOwnedBy(dialog, owner_.Get());
    ExpectCenteredOver(dialog, owner_.Get());
  });
  EXPECT_TRUE(IsWindowEnabled(owner_.Get()));
}

TEST_F(CreateLinksDlgWindow, FieldsAndLabelsShareTheEdgesAndMarginsAreEven) {
  SpeakEnglish(host_);
  Show([](HWND dialog) {
    RECT margin = {7, 7, 7, 7};
    MapDialogRect(dialog, &margin);
    for (const int control : {kLinkLabel, kLink, kTargetLabel, kTarget, kStatus}) {
      EXPECT_EQ(AreaOf(dialog, control).left, margin.left) << control;
      EXPECT_EQ(AreaOf(dialog, control).right, AreaOf(dialog, IDCANCEL).right) << control;
    }
    EXPECT_EQ(AreaOf(dialog, kKindGroup).left, margin.left);
    EXPECT_EQ(AreaOf(dialog, kDescriptionGroup).right, AreaOf(dialog, IDCANCEL).right);
    EXPECT_EQ(AreaOf(dialog, kKindGroup).top, AreaOf(dialog, kDescriptionGroup).top);
    EXPECT_EQ(AreaOf(dialog, kKindGroup).bottom, AreaOf(dialog, kDescriptionGroup).bottom);
    EXPECT_EQ(AreaOf(dialog, IDOK).top, AreaOf(dialog, IDCANCEL).top);
    RECT client = {};
    GetClientRect(dialog, &client);
    EXPECT_NEAR(client.right - AreaOf(dialog, IDCANCEL).right, margin.left, 1);
    EXPECT_NEAR(client.bottom - AreaOf(dialog, IDCANCEL).bottom, margin.top, 1);
  });
}

// Calls `check` for each status and each description.
template <typename Check>
void WithEachStatus(FakeHost& host, const Check& check) {
  struct Case {
    bool multiple, folder, file;
    const WCHAR* target;
  };
  constexpr Case kCases[] = {{false, false, true, W("C:\\a")},
                             {false, false, true, W("D:\\a")},
                             {false, true, false, W("C:\\a")},
                             {true, true, true, W("C:\\a")}};
  for (const Case& given : kCases) {
    for (const int kind : {1, 2, 3, 4}) {
      CreateLinksForm form;
      form.linkName = W("C:\\links\\a");
      form.targetName = given.target;
      form.targetIsFolder = given.folder && !given.multiple;
      form.multiple = given.multiple;
      form.anyFolder = given.folder;
      form.anyFile = given.file;
      form.symlinksSupported = false;
      form.linkKind = kind;
      StartForm(form);
      RunModal([&] { return ShowCreateLinksDlg(host, form); }, check);
    }
  }
}

TEST_F(CreateLinksDlgWindow, EnglishTextsFitAndControlsDoNotOverlap) {
  SpeakEnglish(host_);
  WithEachStatus(host_, [](HWND dialog) { ExpectLayoutHolds(dialog); });
  Start(2);
  Show([](HWND dialog) { EXPECT_TRUE(SaveScreenshot(dialog, W("create_link_dialog_refused"))); });
  Start(3);
  form_.linkName = W("C:\\Users\\Anna\\Desktop\\report.pdf");
  form_.targetName = W("D:\\Archive\\2023\\report.pdf");
  StartForm(form_);
  Show([](HWND dialog) { EXPECT_TRUE(SaveScreenshot(dialog, W("create_link_dialog"))); });
}

TEST_F(CreateLinksDlgWindow, TextsOfTwiceTheLengthAndLongSentencesFitToo) {
  SpeakAtLength(host_);
  WithEachStatus(host_, [](HWND dialog) { ExpectNoTextCutOff(dialog); });
  Start(2);
  Show([](HWND dialog) { EXPECT_TRUE(SaveScreenshot(dialog, W("create_link_dialog_long_texts"))); });
}

TEST_F(CreateLinksDlgWindow, CanBeShownAgainAndStartsAnew) {
  for (int round = 0; round < 3; ++round) {
    Start(1);
    EXPECT_EQ(Show([](HWND dialog) {
                EXPECT_EQ(TextOf(dialog, kLink), W("C:\\links\\a.txt"));
                ChooseRow(dialog, kKind, kShortcutRow);
                ClickButton(dialog, IDOK);
              }),
              IDOK);
    EXPECT_EQ(form_.linkName, W("C:\\links\\a.lnk"));
  }
}

}  // namespace
