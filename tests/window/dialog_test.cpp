// What the window toolkit provides for all dialogs, tested with a dialog made from the template of the
// replace dialog and two more check boxes.
#include "ui/dialog.h"

#include <commctrl.h>
#include <gmock/gmock.h>

#include <stdexcept>

#include "filetools/replace_dlg_ids.h"
#include "ui/form_binding.h"
#include "ui/module_instance.h"
#include "ui/resource_ids.h"
#include "window/dialog_controls.h"
#include "window/modal_driver.h"

namespace {

using testing::ElementsAre;

constexpr int kCheckA = 201;
constexpr int kCheckB = 202;

struct SampleForm {
  WString text;
  bool a = false;
  bool b = false;
  int row = 30;
};

constexpr Ui::Field<SampleForm> kFields[] = {
    {QX_REPLACE_FIND, &SampleForm::text},
    {QX_REPLACE_PART, &SampleForm::row},
    {kCheckA, &SampleForm::a},
    {kCheckB, &SampleForm::b},
};

constexpr Ui::EnableRule<SampleForm> kRules[] = {
    {kCheckB, [](const SampleForm& form) { return form.a; }},
    {QX_REPLACE_FIND, [](const SampleForm& form) { return form.row != 20; }},
    {IDOK, [](const SampleForm& form) { return !form.text.empty(); }},
};

constexpr Ui::ComboRow kRows[] = {{10, 1}, {20, 2}, {30, 3}};

class SampleDialog : public Ui::Dialog {
 public:
  explicit SampleDialog(SampleForm& form) : Dialog(QX_DIALOG_REPLACE), form_(form) {}

  std::vector<int> buttons;
  int changes = 0;
  WString textAtLastChange;
  const char* failInInit = nullptr;
  const char* failInChange = nullptr;

 protected:
  void OnInit() override {
    if (failInInit) throw std::runtime_error(failInInit);
    AddCheckBox(kCheckA);
    AddCheckBox(kCheckB);
    Ui::FillComboBox(Control(QX_REPLACE_PART), kRows, [](std::uint32_t id) {
      static constexpr const WCHAR* kTexts[] = {nullptr, W("ten"), W("twenty"), W("thirty")};
      return kTexts[id];
    });
    Ui::FillHistory(Control(QX_REPLACE_FIND), {W("first"), W("second")});
    Ui::LoadFields(Window(), kFields, form_);
  }
  void OnChange() override {
    if (failInChange && ++changes > 1) throw std::runtime_error(failInChange);
    if (!failInChange) ++changes;
    SampleForm now = form_;
    Ui::ReadFields(Window(), kFields, now);
    textAtLastChange = now.text;
    Ui::ApplyRules(Window(), kRules, now);
  }
  void OnButton(int control) override { buttons.push_back(control); }
  void OnOk() override {
    Ui::ReadFields(Window(), kFields, form_);
    Close(IDOK);
  }

 private:
  void AddCheckBox(int control) {
    CreateWindowExW(0, L"BUTTON", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_AUTOCHECKBOX,
                    10 * (control - 200), 0, 10, 10, Window(),
                    reinterpret_cast<HMENU>(static_cast<INT_PTR>(control)), Ui::ModuleInstance(), nullptr);
  }

  SampleForm& form_;
};

class DialogWindow : public testing::Test {
 protected:
  INT_PTR Show(const Steps& steps) {
    return RunModal([this] { return dialog_.ShowModal(owner_.Get()); }, steps);
  }

  OwnerWindow owner_{640, 480};
  SampleForm form_;
  SampleDialog dialog_{form_};
};

TEST_F(DialogWindow, FieldsShowTheFormAndGoBackToIt) {
  form_ = {W("before"), true, false, 20};
  EXPECT_EQ(Show([](HWND dialog) {
              EXPECT_EQ(TextOf(dialog, QX_REPLACE_FIND), W("before"));
              EXPECT_TRUE(IsChecked(dialog, kCheckA));
              EXPECT_FALSE(IsChecked(dialog, kCheckB));
              EXPECT_EQ(TextOf(dialog, QX_REPLACE_PART), W("twenty"));
              ClickButton(dialog, kCheckB);
              ChooseRow(dialog, QX_REPLACE_PART, 0);
              ClickButton(dialog, IDOK);
            }),
            IDOK);
  EXPECT_EQ(form_.text, W("before"));
  EXPECT_TRUE(form_.a);
  EXPECT_TRUE(form_.b);
  EXPECT_EQ(form_.row, 10);
}

TEST_F(DialogWindow, ItemDataWithoutARowSelectsNone) {
  form_ = {W("x"), false, false, 77};
  Show([](HWND dialog) {
    EXPECT_EQ(SelectedRow(dialog, QX_REPLACE_PART), CB_ERR);
    ClickButton(dialog, IDOK);
  });
  EXPECT_EQ(form_.row, -1);
}

TEST_F(DialogWindow, RulesHoldAtTheStartAndAfterEachChange) {
  Show([](HWND dialog) {
    EXPECT_FALSE(IsEnabled(dialog, kCheckB));
    EXPECT_FALSE(IsEnabled(dialog, IDOK));
    ClickButton(dialog, kCheckA);
    EXPECT_TRUE(IsEnabled(dialog, kCheckB));
    ClickButton(dialog, kCheckA);
    EXPECT_FALSE(IsEnabled(dialog, kCheckB));
    Focus(dialog, QX_REPLACE_FIND);
    TypeText(dialog, W("x"));
    EXPECT_TRUE(IsEnabled(dialog, IDOK));
    PressKey(dialog, VK_BACK);
    EXPECT_FALSE(IsEnabled(dialog, IDOK));
  });
}

TEST_F(DialogWindow, EnterDoesNothingWhileOkIsGrey) {
  EXPECT_EQ(Show([](HWND dialog) {
              ASSERT_FALSE(IsEnabled(dialog, IDOK));
              PressKey(dialog, VK_RETURN);
            }),
            kLeftOpen);
}

TEST_F(DialogWindow, FocusLeavesAControlThatBecomesGrey) {
  form_.row = 20;
  Show([](HWND dialog) {
    EXPECT_FALSE(IsEnabled(dialog, QX_REPLACE_FIND));
    EXPECT_NE(FocusedControl(dialog), QX_REPLACE_FIND);
    ChooseRow(dialog, QX_REPLACE_PART, 0);
    ASSERT_TRUE(IsEnabled(dialog, QX_REPLACE_FIND));
    Focus(dialog, QX_REPLACE_FIND);
    ASSERT_EQ(FocusedControl(dialog), QX_REPLACE_FIND);
    Ui::EnableControl(dialog, QX_REPLACE_FIND, false);
    EXPECT_EQ(FocusedControl(dialog), QX_REPLACE_WITH);
  });
}

TEST_F(DialogWindow, ChangeIsReportedWithTheTextOfTheChosenRow) {
  Show([this](HWND dialog) {
    ChooseRow(dialog, QX_REPLACE_FIND, 1);
    EXPECT_EQ(dialog_.textAtLastChange, W("second"));
  });
}

TEST_F(DialogWindow, SeveralChangesInARowAreReportedOnce) {
  Show([this](HWND dialog) {
    Pump(dialog);
    const int before = dialog_.changes;
    for (int round = 0; round < 5; ++round) SendMessageW(GetDlgItem(dialog, kCheckA), BM_CLICK, 0, 0);
    Pump(dialog);
    EXPECT_EQ(dialog_.changes, before + 1);
    EXPECT_EQ(dialog_.buttons.size(), 5u);
  });
}

TEST_F(DialogWindow, ButtonsAreReportedByTheirNumber) {
  form_.a = true;
  Show([](HWND dialog) {
    ClickButton(dialog, kCheckB);
    ClickButton(dialog, kCheckA);
  });
  EXPECT_THAT(dialog_.buttons, ElementsAre(kCheckB, kCheckA));
}

TEST_F(DialogWindow, ExceptionWhileItIsMadeLeavesThroughTheCall) {
  dialog_.failInInit = "made";
  try {
    dialog_.ShowModal(owner_.Get());
    FAIL() << "nothing was thrown";
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "made");
  }
  EXPECT_TRUE(IsWindowEnabled(owner_.Get()));
}

TEST_F(DialogWindow, ExceptionWhileItRunsLeavesThroughTheCallAndItCanBeShownAgain) {
  dialog_.failInChange = "run";
  EXPECT_THROW(Show([](HWND dialog) { ClickButton(dialog, kCheckA); }), std::runtime_error);
  EXPECT_TRUE(IsWindowEnabled(owner_.Get()));
  dialog_.failInChange = nullptr;
  EXPECT_EQ(Show([](HWND dialog) { PressKey(dialog, VK_ESCAPE); }), IDCANCEL);
}

TEST_F(DialogWindow, WithoutATemplateTheResultIsCancel) {
  class NoTemplate : public Ui::Dialog {
   public:
    NoTemplate() : Dialog(9999) {}

   protected:
    void OnInit() override {}
  };
  NoTemplate dialog;
  EXPECT_EQ(dialog.ShowModal(owner_.Get()), IDCANCEL);
}

TEST_F(DialogWindow, WithoutAnOwnerItIsCenteredOnTheScreen) {
  RunModal([this] { return dialog_.ShowModal(nullptr); },
           [](HWND dialog) {
             RECT work = {};
             RECT area = {};
             SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
             GetWindowRect(dialog, &area);
             EXPECT_NEAR(area.left + area.right, work.left + work.right, 1);
             EXPECT_NEAR(area.top + area.bottom, work.top + work.bottom, 1);
           });
}

TEST_F(DialogWindow, OverAnOwnerAtTheEdgeItStaysOnTheScreen) {
  SetWindowPos(owner_.Get(), nullptr, -500, -350, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  Show([](HWND dialog) {
    RECT work = {};
    RECT area = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    GetWindowRect(dialog, &area);
    EXPECT_EQ(area.left, work.left);
    EXPECT_EQ(area.top, work.top);
  });
}

TEST_F(DialogWindow, OnAnotherScreenItComesBackIntoTheWorkArea) {
  Show([](HWND dialog) {
    SetWindowPos(dialog, nullptr, 5000, 4000, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    SendMessageW(dialog, WM_DISPLAYCHANGE, 32, MAKELPARAM(1280, 1024));
    Pump(dialog);
    RECT work = {};
    RECT area = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    GetWindowRect(dialog, &area);
    EXPECT_EQ(area.right, work.right);
    EXPECT_EQ(area.bottom, work.bottom);
  });
}

TEST_F(DialogWindow, OnAnotherScaleItStaysWhereItIsBeingDraggedTo) {
  Show([](HWND dialog) {
    RECT place = {};
    GetWindowRect(dialog, &place);
    OffsetRect(&place, 3000, 0);
    SetWindowPos(dialog, nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    SendMessageW(dialog, WM_DPICHANGED, MAKEWPARAM(120, 120), reinterpret_cast<LPARAM>(&place));
    Pump(dialog);
    RECT area = {};
    GetWindowRect(dialog, &area);
    EXPECT_EQ(area.left, place.left);
    EXPECT_EQ(area.top, place.top);
  });
}

TEST_F(DialogWindow, TextOfALabelIsReadAndSetAtAnyLength) {
  Show([](HWND dialog) {
    const HWND label = GetDlgItem(dialog, QX_REPLACE_TOP);
    for (const std::size_t length : {0U, 1U, 255U, 256U, 70000U}) {
      Ui::SetText(label, WString(length, W('y')));
      EXPECT_EQ(Ui::GetText(label), WString(length, W('y')));
    }
    EXPECT_EQ(Ui::GetText(GetDlgItem(dialog, 4711)), W(""));
  });
}

}  // namespace
