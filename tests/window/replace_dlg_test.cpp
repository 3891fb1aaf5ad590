// The window of the Replace X with Y dialog from the view of its user.
#include "filetools/replace_dlg.h"

#include <commctrl.h>
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
constexpr int kTop = 1003;
constexpr int kFindLabel = 1004;
constexpr int kWithLabel = 1005;
constexpr int kPartLabel = 1006;
constexpr int kPart = 1030;
constexpr int kFind = 1123;
constexpr int kWith = 1124;

class ReplaceDlgWindow : public testing::Test {
 protected:
  ReplaceDlgWindow() {
    form_.findHistory = {W("newest find"), W("older find"), W("oldest find")};
    form_.replaceHistory = {W("newest with"), W("oldest with")};
  }

  INT_PTR Show(const Steps& steps) {
    return RunModal([this] { return ShowReplaceDlg(host_, form_); }, steps);
  }

  OwnerWindow owner_{640, 480};
  FakeHost host_;
  ReplaceForm form_;
};

TEST_F(ReplaceDlgWindow, EveryTextComesFromTheHostByItsId) {
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, kTitle), W("T00640064"));
    EXPECT_EQ(TextOf(dialog, IDOK), W("T00650064"));
    EXPECT_EQ(TextOf(dialog, IDCANCEL), W("T00660064"));
    EXPECT_EQ(TextOf(dialog, kTop), W("T00670064"));
    EXPECT_EQ(TextOf(dialog, kFindLabel), W("T00680064"));
    EXPECT_EQ(TextOf(dialog, kWithLabel), W("T00690064"));
    EXPECT_EQ(TextOf(dialog, kPartLabel), W("T006A0064"));
    EXPECT_EQ(CueBannerOf(dialog, kFind), W("T006B0064"));
    EXPECT_EQ(CueBannerOf(dialog, kWith), W("T006C0064"));
    EXPECT_THAT(RowsOf(dialog, kPart), ElementsAre(W("T006E0064"), W("T006F0064"), W("T00700064")));
  });
}

TEST_F(ReplaceDlgWindow, WithoutTextsOfTheHostItIsStillThereAndEmpty) {
  host_.recorder.Refuse("GetLanguageString");
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, kTitle), W(""));
    EXPECT_EQ(TextOf(dialog, kFindLabel), W(""));
    EXPECT_EQ(CueBannerOf(dialog, kFind), W(""));
    EXPECT_THAT(RowsOf(dialog, kPart), ElementsAre(W(""), W(""), W("")));
  });
}

TEST_F(ReplaceDlgWindow, HintsAreSetAsThoseOfComboBoxes) {
  const SentMessages sent(CB_SETCUEBANNER);
  Show([](HWND) {});
  EXPECT_THAT(sent.Controls(), ElementsAre(kFind, kWith));
}

TEST_F(ReplaceDlgWindow, HistoriesAreNewestFirstAndFieldsEmpty) {
  Show([](HWND dialog) {
    EXPECT_THAT(RowsOf(dialog, kFind), ElementsAre(W("newest find"), W("older find"), W("oldest find")));
    EXPECT_THAT(RowsOf(dialog, kWith), ElementsAre(W("newest with"), W("oldest with")));
    for (const int control : {kFind, kWith}) {
      EXPECT_EQ(SelectedRow(dialog, control), CB_ERR);
      EXPECT_EQ(TextOf(dialog, control), W(""));
    }
  });
}

TEST_F(ReplaceDlgWindow, PartListHoldsOneToThreeAndStartsAtTheFirst) {
  Show([](HWND dialog) {
    EXPECT_THAT(RowDataOf(dialog, kPart), ElementsAre(1, 2, 3));
    EXPECT_EQ(SelectedRow(dialog, kPart), 0);
    EXPECT_EQ(TextOf(dialog, kPart), W("T006E0064"));
  });
}

TEST_F(ReplaceDlgWindow, TextListsAreEditableAndThePartListIsNot) {
  Show([](HWND dialog) {
    EXPECT_EQ(GetWindowLongW(GetDlgItem(dialog, kFind), GWL_STYLE) & 3, CBS_DROPDOWN);
    EXPECT_EQ(GetWindowLongW(GetDlgItem(dialog, kWith), GWL_STYLE) & 3, CBS_DROPDOWN);
    EXPECT_EQ(GetWindowLongW(GetDlgItem(dialog, kPart), GWL_STYLE) & 3, CBS_DROPDOWNLIST);
    Focus(dialog, kPart);
    TypeText(dialog, W("zzz"));
    EXPECT_EQ(TextOf(dialog, kPart), W("T006E0064"));
  });
}

TEST_F(ReplaceDlgWindow, FocusStartsInTheFindField) {
  Show([](HWND dialog) { EXPECT_EQ(FocusedControl(dialog), kFind); });
}

TEST_F(ReplaceDlgWindow, TabWalksFieldsAndButtonsAndComesBack) {
  Show([](HWND dialog) {
    EXPECT_THAT(WalkByTab(dialog), ElementsAre(kFind, kWith, kPart, IDOK, IDCANCEL));
    EXPECT_EQ(FocusedControl(dialog), kFind);
  });
}

TEST_F(ReplaceDlgWindow, BackwardWalkIsTheReverse) {
  Show([](HWND dialog) {
    std::vector<int> walk;
    HWND at = GetDlgItem(dialog, kFind);
    for (int step = 0; step < 5; ++step) {
      walk.push_back(GetDlgCtrlID(at));
      at = GetNextDlgTabItem(dialog, at, TRUE);
    }
    EXPECT_THAT(walk, ElementsAre(kFind, IDCANCEL, IDOK, kPart, kWith));
  });
}

TEST_F(ReplaceDlgWindow, AccessKeyOfALabelLeadsToItsField) {
  host_.texts = {
      {kTextReplaceFindLabel, W("&1")}, {kTextReplaceWithLabel, W("&2")}, {kTextReplacePartLabel, W("&3")}};
  Show([](HWND dialog) {
    PressAltKey(dialog, W('2'));
    EXPECT_EQ(FocusedControl(dialog), kWith);
    PressAltKey(dialog, W('3'));
    EXPECT_EQ(FocusedControl(dialog), kPart);
    PressAltKey(dialog, W('1'));
    EXPECT_EQ(FocusedControl(dialog), kFind);
  });
}

TEST_F(ReplaceDlgWindow, EnterEndsItWithWhatWasTyped) {
  EXPECT_EQ(Show([](HWND dialog) {
              TypeText(dialog, W("a b"));
              PressKey(dialog, VK_TAB);
              TypeText(dialog, W("\u00E4\u4E2D"));
              PressKey(dialog, VK_RETURN);
            }),
            IDOK);
  EXPECT_EQ(form_.find, W("a b"));
  EXPECT_EQ(form_.replace, W("\u00E4\u4E2D"));
  EXPECT_EQ(form_.part, 1);
}

TEST_F(ReplaceDlgWindow, OkButtonTakesChosenRowsOfAllLists) {
  EXPECT_EQ(Show([](HWND dialog) {
              ChooseRow(dialog, kFind, 1);
              ChooseRow(dialog, kWith, 0);
              ChooseRow(dialog, kPart, 2);
              EXPECT_EQ(TextOf(dialog, kFind), W("older find"));
              ClickButton(dialog, IDOK);
            }),
            IDOK);
  EXPECT_EQ(form_.find, W("older find"));
  EXPECT_EQ(form_.replace, W("newest with"));
  EXPECT_EQ(form_.part, 3);
}

TEST_F(ReplaceDlgWindow, ChosenRowCanBeEditedFurther) {
  Show([](HWND dialog) {
    ChooseRow(dialog, kFind, 2);
    PressKey(dialog, VK_END);
    TypeText(dialog, W("!"));
    ClickButton(dialog, IDOK);
  });
  EXPECT_EQ(form_.find, W("oldest find!"));
}

TEST_F(ReplaceDlgWindow, ArrowKeysWalkTheHistoryOfAClosedList) {
  Show([](HWND dialog) {
    PressKey(dialog, VK_DOWN);
    EXPECT_EQ(TextOf(dialog, kFind), W("newest find"));
    PressKey(dialog, VK_DOWN);
    EXPECT_EQ(TextOf(dialog, kFind), W("older find"));
    PressKey(dialog, VK_RETURN);
  });
  EXPECT_EQ(form_.find, W("older find"));
}

TEST_F(ReplaceDlgWindow, SecondPartIsTheExtension) {
  Show([](HWND dialog) {
    ChooseRow(dialog, kPart, 1);
    ClickButton(dialog, IDOK);
  });
  EXPECT_EQ(form_.part, 2);
}

TEST_F(ReplaceDlgWindow, WithoutASelectedPartTheResultIsMinusOne) {
  EXPECT_EQ(Show([](HWND dialog) {
              SendMessageW(GetDlgItem(dialog, kPart), CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
              ClickButton(dialog, IDOK);
            }),
            IDOK);
  EXPECT_EQ(form_.part, -1);
}

TEST_F(ReplaceDlgWindow, CancelButtonReadsTheTextsAndNotThePart) {
  EXPECT_EQ(Show([](HWND dialog) {
              TypeText(dialog, W("typed"));
              Focus(dialog, kWith);
              TypeText(dialog, W("too"));
              ChooseRow(dialog, kPart, 2);
              ClickButton(dialog, IDCANCEL);
            }),
            IDCANCEL);
  EXPECT_EQ(form_.find, W("typed"));
  EXPECT_EQ(form_.replace, W("too"));
  EXPECT_EQ(form_.part, 1);
}

TEST_F(ReplaceDlgWindow, EscapeCancels) {
  EXPECT_EQ(Show([](HWND dialog) {
              TypeText(dialog, W("typed"));
              PressKey(dialog, VK_ESCAPE);
            }),
            IDCANCEL);
  EXPECT_EQ(form_.find, W("typed"));
}

TEST_F(ReplaceDlgWindow, CloseButtonOfTheWindowCancels) {
  EXPECT_EQ(Show([](HWND dialog) { PressCloseButton(dialog); }), IDCANCEL);
}

TEST_F(ReplaceDlgWindow, EscapeInAnOpenListClosesTheListAlone) {
  Show([](HWND dialog) {
    PressKey(dialog, VK_F4);
    ASSERT_TRUE(SendMessageW(GetDlgItem(dialog, kFind), CB_GETDROPPEDSTATE, 0, 0));
    PressKey(dialog, VK_ESCAPE);
    EXPECT_FALSE(SendMessageW(GetDlgItem(dialog, kFind), CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_TRUE(IsWindowVisible(dialog));
  });
}

TEST_F(ReplaceDlgWindow, TextLongerThanTheFieldIsReadWhole) {
  const WString text = WString(30000, W('x')) + W("end");
  Show([&](HWND dialog) {
    SendText(dialog, kFind, text);
    ClickButton(dialog, IDOK);
  });
  EXPECT_EQ(form_.find, text);
}

TEST_F(ReplaceDlgWindow, LongHistoryRowWidensTheOpenListWithinTheScreen) {
  form_.findHistory = {WString(2000, W('m'))};
  form_.replaceHistory = {WString(60, W('m'))};
  Show([](HWND dialog) {
    RECT field = {};
    GetWindowRect(GetDlgItem(dialog, kFind), &field);
    const LRESULT screen = GetSystemMetrics(SM_CXSCREEN);
    EXPECT_LE(SendMessageW(GetDlgItem(dialog, kFind), CB_GETDROPPEDWIDTH, 0, 0), screen);
    const LRESULT width = SendMessageW(GetDlgItem(dialog, kWith), CB_GETDROPPEDWIDTH, 0, 0);
    EXPECT_GT(width, field.right - field.left);
    EXPECT_LE(width, screen);
  });
}

TEST_F(ReplaceDlgWindow, IsCenteredOnTheActiveWindowAndDisablesIt) {
  Show([this](HWND dialog) {
    ExpectOwnedBy(dialog, owner_.Get());
    ExpectCenteredOver(dialog, owner_.Get());
  });
  EXPECT_TRUE(IsWindowEnabled(owner_.Get()));
}

TEST_F(ReplaceDlgWindow, WithoutAnActiveWindowItIsCenteredOnTheHostsWindow) {
  host_.mainWindow = owner_.Get();
  SetActiveWindow(nullptr);
  ASSERT_EQ(GetActiveWindow(), nullptr);
  Show([this](HWND dialog) { ExpectOwnedBy(dialog, owner_.Get()); });
}

TEST_F(ReplaceDlgWindow, IsAPopupWithCaptionAndSystemMenu) {
  Show([](HWND dialog) {
    const DWORD style = static_cast<DWORD>(GetWindowLongW(dialog, GWL_STYLE));
    constexpr DWORD kWanted = WS_POPUP | WS_CAPTION | WS_SYSMENU;
    EXPECT_EQ(style & kWanted, kWanted);
  });
}

TEST_F(ReplaceDlgWindow, FieldsAndLabelsShareOneLeftEdgeAndMarginsAreEven) {
  host_.texts = EnglishTexts();
  Show([](HWND dialog) {
    RECT margin = {7, 7, 7, 7};
    MapDialogRect(dialog, &margin);
    for (const int control : {kTop, kFindLabel, kFind, kWithLabel, kWith, kPartLabel, kPart}) {
      EXPECT_EQ(AreaOf(dialog, control).left, margin.left) << control;
      EXPECT_EQ(AreaOf(dialog, control).right, AreaOf(dialog, IDCANCEL).right) << control;
    }
    RECT client = {};
    GetClientRect(dialog, &client);
    EXPECT_NEAR(client.right - AreaOf(dialog, IDCANCEL).right, margin.left, 1);
    EXPECT_NEAR(client.bottom - AreaOf(dialog, IDCANCEL).bottom, margin.top, 1);
    EXPECT_EQ(AreaOf(dialog, IDOK).top, AreaOf(dialog, IDCANCEL).top);
  });
}

TEST_F(ReplaceDlgWindow, EnglishTextsFitAndControlsDoNotOverlap) {
  host_.texts = EnglishTexts();
  Show([](HWND dialog) {
    ExpectLayoutHolds(dialog);
    EXPECT_TRUE(SaveScreenshot(dialog, W("replace_dialog")));
  });
}

TEST_F(ReplaceDlgWindow, TextsOfTwiceTheLengthAndLongSentencesFitToo) {
  host_.texts = LongTexts();
  Show([](HWND dialog) {
    ExpectNoTextCutOff(dialog);
    EXPECT_TRUE(SaveScreenshot(dialog, W("replace_dialog_long_texts")));
  });
}

TEST_F(ReplaceDlgWindow, CanBeShownAgainAndStartsAnew) {
  for (int round = 0; round < 3; ++round) {
    ReplaceForm form;
    EXPECT_EQ(RunModal([&] { return ShowReplaceDlg(host_, form); },
                       [](HWND dialog) {
                         EXPECT_EQ(TextOf(dialog, kFind), W(""));
                         TypeText(dialog, W("x"));
                         PressKey(dialog, VK_RETURN);
                       }),
              IDOK);
    EXPECT_EQ(form.find, W("x"));
  }
}

}  // namespace
