// The window of the Add File Access dialog: its texts, its levels, the account picker of its Find button, and
// how it closes.
#include "security/change_access_dlg.h"

#include <gmock/gmock.h>

#include <objbase.h>

#include "support/fake_host.h"
#include "window/dialog_controls.h"
#include "window/english_texts.h"
#include "window/layout_checks.h"
#include "window/modal_driver.h"
#include "window/screenshot.h"

namespace {

using testing::ElementsAre;

// The ids of the dialog's controls.
enum Control : int {
  kIntroduction = 1201,
  kUserLabel = 1202,
  kUser = 1203,
  kFind = 1204,
  kLevelLabel = 1205,
  kLevel = 1206,
};

class ChangeAccessDlgWindow : public testing::Test {
 protected:
  ChangeAccessDlgWindow() { form_.userName = W("DOMAIN\\me"); }

  INT_PTR Show(const Steps& steps) {
    return RunModal(
        [this] {
          return ShowChangeAccessDlg(host_, form_, [this](HWND owner) {
            pickerOwner_ = owner;
            return picked_;
          });
        },
        steps);
  }

  OwnerWindow owner_{640, 480};
  FakeHost host_;
  ChangeAccessForm form_;
  std::optional<WString> picked_;
  HWND pickerOwner_ = nullptr;
};

TEST_F(ChangeAccessDlgWindow, EveryTextComesFromTheHostByItsId) {
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, kTitle), W("T00C80064"));
    EXPECT_EQ(TextOf(dialog, kIntroduction), W("T00C90064"));
    EXPECT_EQ(TextOf(dialog, kUserLabel), W("T00CA0064"));
    EXPECT_EQ(TextOf(dialog, kLevelLabel), W("T00CB0064"));
    EXPECT_EQ(TextOf(dialog, kFind), W("T00CC0064"));
    EXPECT_EQ(TextOf(dialog, IDOK), W("T00CD0064"));
    EXPECT_EQ(TextOf(dialog, IDCANCEL), W("T00CE0064"));
    EXPECT_THAT(RowsOf(dialog, kLevel),
                ElementsAre(W("T00D20064"), W("T00D30064"), W("T00D40064"), W("T00D50064")));
  });
}

TEST_F(ChangeAccessDlgWindow, WithoutTextsOfTheHostItHasItsOwnWords) {
  host_.recorder.Refuse("GetLanguageString");
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, kTitle), W("Add File Access"));
    EXPECT_EQ(TextOf(dialog, kUserLabel), W("User / Group"));
    EXPECT_EQ(TextOf(dialog, kLevelLabel), W("File Access"));
    EXPECT_EQ(TextOf(dialog, kFind), W("Find"));
    EXPECT_EQ(TextOf(dialog, IDOK), W("Grant Permissions"));
    EXPECT_EQ(TextOf(dialog, IDCANCEL), W("Cancel"));
  });
}

TEST_F(ChangeAccessDlgWindow, BeginsWithTheUserAndTheFirstOfTheFourLevels) {
  Show([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, kUser), W("DOMAIN\\me"));
    EXPECT_THAT(RowDataOf(dialog, kLevel), ElementsAre(0x1200A9, 0x1201BF, 0x1301BF, 0x1F01FF));
    EXPECT_EQ(SelectedRow(dialog, kLevel), 0);
    EXPECT_EQ(GetWindowLongW(GetDlgItem(dialog, kLevel), GWL_STYLE) & 3, CBS_DROPDOWNLIST);
  });
}

TEST_F(ChangeAccessDlgWindow, OkTakesTheUserAndTheMaskOfTheLevel) {
  const int masks[] = {0x1200A9, 0x1201BF, 0x1301BF, 0x1F01FF};
  for (int row = 0; row < 4; ++row) {
    form_ = {};
    EXPECT_EQ(Show([row](HWND dialog) {
                EnterText(dialog, kUser, W("somebody"));
                ChooseRow(dialog, kLevel, row);
                ClickButton(dialog, IDOK);
              }),
              1);
    EXPECT_EQ(form_.userName, W("somebody"));
    EXPECT_EQ(form_.accessMask, masks[row]);
  }
}

TEST_F(ChangeAccessDlgWindow, CancelLeavesTheForm) {
  EXPECT_EQ(Show([](HWND dialog) {
              EnterText(dialog, kUser, W("somebody"));
              ChooseRow(dialog, kLevel, 3);
              ClickButton(dialog, IDCANCEL);
            }),
            2);
  EXPECT_EQ(form_.userName, W("DOMAIN\\me"));
  EXPECT_EQ(form_.accessMask, 0x1200A9);
}

TEST_F(ChangeAccessDlgWindow, FindPutsTheNameThatWasPickedInTheField) {
  picked_ = W("DOMAIN\\user");
  HWND shown = nullptr;
  EXPECT_EQ(Show([&](HWND dialog) {
              shown = dialog;
              ClickButton(dialog, kFind);
              EXPECT_EQ(TextOf(dialog, kUser), W("DOMAIN\\user"));
              ClickButton(dialog, IDOK);
            }),
            IDOK);
  EXPECT_EQ(pickerOwner_, shown);
  EXPECT_EQ(form_.userName, W("DOMAIN\\user"));
}

TEST_F(ChangeAccessDlgWindow, FindWithoutANameLeavesTheField) {
  Show([this](HWND dialog) {
    ClickButton(dialog, kFind);
    EXPECT_EQ(TextOf(dialog, kUser), W("DOMAIN\\me"));
    EXPECT_NE(pickerOwner_, nullptr);
  });
}

// Wine does not have this dialog: creating it fails.
TEST_F(ChangeAccessDlgWindow, ASystemWithoutThePickerGivesNoName) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  EXPECT_EQ(PickAccount(owner_.Get()), std::nullopt);
  CoUninitialize();
  EXPECT_EQ(PickAccount(owner_.Get()), std::nullopt);
}

TEST_F(ChangeAccessDlgWindow, KeysLeadToTheFieldsAndTheEnds) {
  SpeakEnglish(host_);
  EXPECT_EQ(Show([](HWND dialog) {
              PressAltKey(dialog, W('a'));
              EXPECT_EQ(FocusedControl(dialog), kLevel);
              PressAltKey(dialog, W('u'));
              EXPECT_EQ(FocusedControl(dialog), kUser);
              PressAltKey(dialog, W('g'));
            }),
            IDOK);
  EXPECT_EQ(Show([](HWND dialog) { PressAltKey(dialog, W('c')); }), IDCANCEL);
  EXPECT_EQ(Show([](HWND dialog) { PressKey(dialog, VK_ESCAPE); }), IDCANCEL);
}

TEST_F(ChangeAccessDlgWindow, IsCenteredOnTheActiveWindow) {
  Show([this](HWND dialog) {
    ExpectOwnedBy(dialog, owner_.Get());
    ExpectCenteredOver(dialog, owner_.Get());
    EXPECT_THAT(WalkByTab(dialog), ElementsAre(+kUser, +kFind, +kLevel, IDOK, IDCANCEL));
  });
}

TEST_F(ChangeAccessDlgWindow, EnglishTextsFitAndControlsDoNotOverlap) {
  SpeakEnglish(host_);
  Show([](HWND dialog) {
    ExpectLayoutHolds(dialog);
    EXPECT_TRUE(SaveScreenshot(dialog, W("change_access_dialog")));
  });
}

TEST_F(ChangeAccessDlgWindow, LongerTextsFitToo) {
  SpeakAtLength(host_);
  Show([](HWND dialog) {
    ExpectNoTextCutOff(dialog);
    EXPECT_TRUE(SaveScreenshot(dialog, W("change_access_dialog_long_texts")));
  });
}

}  // namespace
