// The window of the dialog of property tags.
#include <gmock/gmock.h>

#include "multirename/form/tag_dialog_form.h"
#include "window/dialog_template.h"
#include "window/layout_checks.h"
#include "window/list_rows.h"
#include "window/rename_dialog_window.h"
#include "window/screenshot.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Velmora::SDK::PropertyName;
using Velmora::SDK::TagDialogForm;

// The resource ids of the dialog and its controls.
constexpr int kDialog = 105;
enum Control : int {
  kStart = 1002,
  kLength = 1003,
  kComplete = 1012,
  kSubString = 1013,
  kProperties = 1048,
  kTag = 1049,
  kChosen = 1050,
  kChosenLabel = 1051,
  kPropertiesLabel = 1120,
  kStartLabel = 1121,
  kLengthLabel = 1122,
};

class AddTagDlgWindow : public RenameDialogWindow {
 protected:
  INT_PTR Show(const Steps& steps) {
    form_.emplace(host_, names_);
    return ShowDialog(kDialog, *form_, {steps});
  }

  std::vector<PropertyName> names_ = {
      {W("size"), W("Size of the file")}, {W("modified"), W("Changed on")}, {W("author"), W("Author")}};
  std::optional<TagDialogForm> form_;
};

// Texts and lines.

TEST_F(AddTagDlgWindow, EveryTextComesFromTheHostByItsId) {
  Show([](HWND dialog) {
    const std::map<int, WString> texts = {{kTitle, W("T028A0064")},       {kPropertiesLabel, W("T028E0064")},
                                          {kChosenLabel, W("T028F0064")}, {kStartLabel, W("T02920064")},
                                          {kLengthLabel, W("T02930064")}, {kComplete, W("T02900064")},
                                          {kSubString, W("T02910064")},   {IDOK, W("T02940064")},
                                          {IDCANCEL, W("M0:00030067")}};
    for (const auto& [control, text] : texts) EXPECT_EQ(TextOf(dialog, control), text) << control;
  });
}

TEST_F(AddTagDlgWindow, OffersThePropertiesInTheirOrderAndNoneIsChosen) {
  Show([](HWND dialog) {
    EXPECT_THAT(ListLinesOf(dialog, kProperties),
                ElementsAre(W("Size of the file"), W("Changed on"), W("Author")));
    EXPECT_EQ(SendDlgItemMessageW(dialog, kProperties, LB_GETCURSEL, 0, 0), LB_ERR);
    EXPECT_EQ(TextOf(dialog, kChosen), W(""));
    EXPECT_EQ(TextOf(dialog, kTag), W("[?]"));
  });
}

TEST_F(AddTagDlgWindow, TheChosenNameIsShownAndCannotBeTyped) {
  Show([](HWND dialog) {
    EXPECT_TRUE(GetWindowLongW(GetDlgItem(dialog, kChosen), GWL_STYLE) & ES_READONLY);
    ClickLine(dialog, kProperties, 1);
    Focus(dialog, kChosen);
    TypeText(dialog, W("x"));
    EXPECT_EQ(TextOf(dialog, kChosen), W("Changed on"));
  });
}

// The generated tag.

TEST_F(AddTagDlgWindow, AClickOnALineMakesItsTag) {
  Show([](HWND dialog) {
    ClickLine(dialog, kProperties, 2);
    EXPECT_EQ(TextOf(dialog, kChosen), W("Author"));
    EXPECT_EQ(TextOf(dialog, kTag), W("[?author]"));
    ClickLine(dialog, kProperties, 0);
    EXPECT_EQ(TextOf(dialog, kChosen), W("Size of the file"));
    EXPECT_EQ(TextOf(dialog, kTag), W("[?size]"));
  });
}

TEST_F(AddTagDlgWindow, KeysInTheListMakeTheTagToo) {
  Show([](HWND dialog) {
    Focus(dialog, kProperties);
    // The first key selects the line that has the focus.
    PressKey(dialog, VK_DOWN);
    EXPECT_EQ(TextOf(dialog, kTag), W("[?size]"));
    PressKey(dialog, VK_END);
    EXPECT_EQ(TextOf(dialog, kTag), W("[?author]"));
    PressKey(dialog, VK_UP);
    EXPECT_EQ(TextOf(dialog, kTag), W("[?modified]"));
  });
}

TEST_F(AddTagDlgWindow, CompleteIsMarkedAtFirstAndTheNumbersAreGrey) {
  Show([](HWND dialog) {
    EXPECT_TRUE(IsChecked(dialog, kComplete));
    EXPECT_FALSE(IsChecked(dialog, kSubString));
    EXPECT_FALSE(IsEnabled(dialog, kStart));
    EXPECT_FALSE(IsEnabled(dialog, kLength));
  });
}

TEST_F(AddTagDlgWindow, NumbersBelongToTheSubStringAlone) {
  Show([](HWND dialog) {
    ClickLine(dialog, kProperties, 0);
    ClickButton(dialog, kSubString);
    EXPECT_TRUE(IsEnabled(dialog, kStart));
    EXPECT_TRUE(IsEnabled(dialog, kLength));
    EXPECT_EQ(TextOf(dialog, kTag), W("[?size]"));
    EnterText(dialog, kStart, W("3"));
    EXPECT_EQ(TextOf(dialog, kTag), W("[?size,3]"));
    EnterText(dialog, kLength, W("12"));
    EXPECT_EQ(TextOf(dialog, kTag), W("[?size,3,12]"));
    EnterText(dialog, kStart, W(""));
    EXPECT_EQ(TextOf(dialog, kTag), W("[?size,12]"));
    ClickButton(dialog, kComplete);
    EXPECT_FALSE(IsEnabled(dialog, kStart));
    EXPECT_FALSE(IsEnabled(dialog, kLength));
    EXPECT_EQ(TextOf(dialog, kTag), W("[?size]"));
    ClickButton(dialog, kSubString);
    EXPECT_EQ(TextOf(dialog, kTag), W("[?size,12]"));
  });
}

TEST_F(AddTagDlgWindow, NumbersAreTakenAsTextAndNotChecked) {
  Show([](HWND dialog) {
    ClickButton(dialog, kSubString);
    EnterText(dialog, kStart, W("-100"));
    EnterText(dialog, kLength, W("x]"));
    EXPECT_EQ(TextOf(dialog, kTag), W("[?,-100,x]]"));
  });
}

TEST_F(AddTagDlgWindow, TheFocusAloneLeavesAnEditedTag) {
  Show([](HWND dialog) {
    ClickLine(dialog, kProperties, 0);
    EnterText(dialog, kTag, W("[?size,9]"));
    for (const int control : {kProperties, kChosen, kComplete, kTag}) Focus(dialog, control);
    EXPECT_EQ(TextOf(dialog, kTag), W("[?size,9]"));
  });
}

// Closing the dialog.

TEST_F(AddTagDlgWindow, InsertGivesTheTag) {
  EXPECT_EQ(Show([](HWND dialog) {
              ClickLine(dialog, kProperties, 1);
              ClickButton(dialog, IDOK);
            }),
            1);
  EXPECT_EQ(form_->Tag(), W("[?modified]"));
}

TEST_F(AddTagDlgWindow, InsertGivesTheTagAsItWasEditedWithoutBlanksAround) {
  EXPECT_EQ(Show([](HWND dialog) {
              ClickLine(dialog, kProperties, 1);
              EnterText(dialog, kTag, W("  [?size] [N] "));
              PressKey(dialog, VK_RETURN);
            }),
            1);
  EXPECT_EQ(form_->Tag(), W("[?size] [N]"));
}

TEST_F(AddTagDlgWindow, InsertReadsAThousandAndTwentyFourCharacters) {
  EXPECT_EQ(Show([](HWND dialog) {
              SendText(dialog, kTag, WString(1024, W('a')) + W("b"));
              ClickButton(dialog, IDOK);
            }),
            1);
  EXPECT_EQ(form_->Tag(), WString(1024, W('a')));
}

TEST_F(AddTagDlgWindow, InsertWithoutAPropertyGivesATagWithoutAName) {
  EXPECT_EQ(Show([](HWND dialog) { ClickButton(dialog, IDOK); }), 1);
  EXPECT_EQ(form_->Tag(), W("[?]"));
}

TEST_F(AddTagDlgWindow, CancelEscapeAndTheCloseButtonGiveNoTag) {
  const Steps ends[] = {
      [](HWND dialog) { ClickButton(dialog, IDCANCEL); },
      [](HWND dialog) { PressKey(dialog, VK_ESCAPE); },
      [](HWND dialog) { PressCloseButton(dialog); },
  };
  for (const Steps& end : ends) {
    EXPECT_EQ(Show([&](HWND dialog) {
                ClickLine(dialog, kProperties, 1);
                end(dialog);
              }),
              2);
    EXPECT_EQ(form_->Tag(), W(""));
  }
}

// Keys.

TEST_F(AddTagDlgWindow, TabWalksAsOneReadsAndPassesWhatIsGrey) {
  Show([](HWND dialog) {
    EXPECT_THAT(WalkByTab(dialog), ElementsAre(kProperties, kChosen, kComplete, kTag, IDOK, IDCANCEL));
    ClickButton(dialog, kSubString);
    Focus(dialog, kProperties);
    EXPECT_THAT(WalkByTab(dialog),
                ElementsAre(kProperties, kChosen, kSubString, kStart, kLength, kTag, IDOK, IDCANCEL));
  });
}

TEST_F(AddTagDlgWindow, ArrowsMoveTheMarkBetweenThePair) {
  Show([](HWND dialog) {
    Focus(dialog, kComplete);
    PressKey(dialog, VK_DOWN);
    EXPECT_TRUE(IsChecked(dialog, kSubString));
    EXPECT_TRUE(IsEnabled(dialog, kStart));
    PressKey(dialog, VK_DOWN);
    EXPECT_TRUE(IsChecked(dialog, kComplete));
    EXPECT_FALSE(IsEnabled(dialog, kStart));
  });
}

TEST_F(AddTagDlgWindow, EnglishAccessKeysLeadToTheFieldsAndPressTheButtons) {
  SpeakRenameEnglish(host_);
  EXPECT_EQ(Show([](HWND dialog) {
              PressAltKey(dialog, W('s'));
              EXPECT_TRUE(IsChecked(dialog, kSubString));
              const std::pair<WCHAR, int> keys[] = {
                  {W('r'), kChosen}, {W('t'), kStart}, {W('l'), kLength}, {W('p'), kProperties}};
              for (const auto& [key, control] : keys) {
                PressAltKey(dialog, key);
                EXPECT_EQ(FocusedControl(dialog), control) << static_cast<char>(key);
              }
              PressAltKey(dialog, W('m'));
              EXPECT_TRUE(IsChecked(dialog, kComplete));
              PressAltKey(dialog, W('i'));
            }),
            1);
  EXPECT_EQ(Show([](HWND dialog) { PressAltKey(dialog, W('c')); }), 2);
}

// Position and layout.

TEST_F(AddTagDlgWindow, IsCenteredOnTheFrameAndDisablesIt) {
  Show([this](HWND dialog) {
    ExpectOwnedBy(dialog, owner_.Get());
    ExpectCenteredOver(dialog, owner_.Get());
  });
  EXPECT_TRUE(IsWindowEnabled(owner_.Get()));
}

// The field of the tag has no label.
TEST_F(AddTagDlgWindow, EnglishTextsFitAndControlsDoNotOverlap) {
  SpeakRenameEnglish(host_);
  names_ = {
      {W("size"), W("Size")},        {W("modified"), W("Date modified")}, {W("created"), W("Date created")},
      {W("width"), W("Width")},      {W("height"), W("Height")},          {W("camera"), W("Camera model")},
      {W("taken"), W("Date taken")}, {W("artist"), W("Artist & band")}};
  Show([](HWND dialog) {
    ClickButton(dialog, kSubString);
    ClickLine(dialog, kProperties, 6);
    EnterText(dialog, kStart, W("1"));
    EnterText(dialog, kLength, W("4"));
    ExpectLayoutHolds(dialog, {kTag});
    ExpectEachLabelHasAnAccessKey(dialog, {});
    EXPECT_TRUE(SaveScreenshot(dialog, W("add_tag_dialog")));
  });
}

TEST_F(AddTagDlgWindow, TextsOfTwiceTheLengthAndLongSentencesFitToo) {
  SpeakRenameAtLength(host_);
  Show([](HWND dialog) {
    ExpectNoTextCutOff(dialog);
    EXPECT_TRUE(SaveScreenshot(dialog, W("add_tag_dialog_long_texts")));
  });
}

TEST_F(AddTagDlgWindow, LabelsEndWhereFieldsBeginAndMarginsAreEven) {
  Show([](HWND dialog) {
    RECT client = {};
    GetClientRect(dialog, &client);
    RECT margin = {7, 7, 7, 7};
    RECT gap = {0, 0, 3, 3};
    MapDialogRect(dialog, &margin);
    MapDialogRect(dialog, &gap);
    for (const auto& [label, field] : {std::pair{kChosenLabel, kChosen}, std::pair{kStartLabel, kStart},
                                       std::pair{kLengthLabel, kLength}}) {
      EXPECT_EQ(AreaOf(dialog, field).left, AreaOf(dialog, kChosen).left) << field;
      const LONG between = AreaOf(dialog, field).left - AreaOf(dialog, label).right;
      EXPECT_TRUE(between > 0 && between <= gap.right) << label;
    }
    EXPECT_EQ(AreaOf(dialog, kPropertiesLabel).left, margin.left);
    EXPECT_EQ(AreaOf(dialog, kProperties).left, margin.left);
    for (const int left : {kChosenLabel, kComplete, kSubString, kTag})
      EXPECT_EQ(AreaOf(dialog, left).left, AreaOf(dialog, kChosenLabel).left) << left;
    for (const int right : {int{kChosen}, int{kTag}, IDCANCEL})
      EXPECT_NEAR(client.right - AreaOf(dialog, right).right, margin.left, 1) << right;
    EXPECT_EQ(AreaOf(dialog, kProperties).top, AreaOf(dialog, kChosen).top);
    EXPECT_NEAR(AreaOf(dialog, kProperties).bottom, AreaOf(dialog, kTag).bottom, 1);
    EXPECT_NEAR(client.bottom - AreaOf(dialog, IDCANCEL).bottom, margin.top, 1);
  });
}

TEST(AddTagDlgTemplate, ControlsDoNotOverlapAtEachScale) {
  for (const int percent : {100, 150, 200}) {
    const DialogInScale dialog(kDialog, percent);
    ASSERT_NE(dialog.Get(), nullptr);
    ExpectControlsInsideClientArea(dialog.Get());
    ExpectNoControlsOverlap(dialog.Get());
    ExpectNoTextCutOff(dialog.Get());
  }
}

}  // namespace
