// The window of the Sort Lines dialog: its owner, its position and its appearance.
#include <gtest/gtest.h>

#include "frame/services/message_texts.h"
#include "window/english_texts.h"
#include "window/layout_checks.h"
#include "window/opened_menu.h"
#include "window/screenshot.h"
#include "window/sort_lines_dlg_window.h"

using namespace Velmora::SDK;

namespace {

using namespace SortLinesWindow;

TEST_F(SortLinesDlgWindow, IsCenteredOnTheActiveWindow) {
  Show([this](HWND dialog) {
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), owner_.Get());
    ExpectCenteredOver(dialog, owner_.Get());
  });
}

TEST_F(SortLinesDlgWindow, WithoutAnActiveWindowItIsCenteredOnTheHostsWindow) {
  host_.mainWindow = owner_.Get();
  SetActiveWindow(nullptr);
  ASSERT_EQ(GetActiveWindow(), nullptr);
  Show([this](HWND dialog) { ExpectOwnedBy(dialog, owner_.Get()); });
}

TEST_F(SortLinesDlgWindow, ActiveWindowIsItsOwnerBeforeTheHosts) {
  const OwnerWindow active(300, 200);
  host_.mainWindow = owner_.Get();
  Show([&](HWND dialog) { EXPECT_EQ(GetWindow(dialog, GW_OWNER), active.Get()); });
}

TEST_F(SortLinesDlgWindow, EnglishTextsFitAndControlsDoNotOverlap) {
  host_.texts = EnglishTexts();
  Start(0x100011);
  form_.firstName = W("purchases.csv");
  form_.newFileSuffix = host_.texts[kTextSortDlgSuffix];
  form_.sample.clear();
  for (const WCHAR* line : {W("2014-11-21;apples;12.50"), W("2014-09-02;pears;3.20"), W("2013-01-30;plums;7"),
                            W("2015-06-11;cherries;18.75"), W("2014-03-08;grapes;4.10")}) {
    form_.sample += line;
    form_.sample += W("\r\n");
  }
  WQLineSorter::StartForm(form_);
  Show([](HWND dialog) {
    ExpectLayoutHolds(dialog);
    EXPECT_EQ(TextOf(dialog, kCount), W("1 Files will be sorted"));
    EXPECT_EQ(TextOf(dialog, kName), W("purchases_sorted.csv"));
    ClickButton(dialog, kBySubstring);
    ChooseRow(dialog, kMethod, kDateRow);
    PressKeysInMenuOf(dialog, kDatePresets, {VK_DOWN, VK_RETURN});
    EnterText(dialog, kLength, W("10"));
    ExpectLayoutHolds(dialog);
    EXPECT_TRUE(SaveScreenshot(dialog, W("sort_lines_dialog")));
  });
}

TEST_F(SortLinesDlgWindow, TextsOfTwiceTheLengthAndLongSentencesFitToo) {
  host_.texts = LongTexts();
  Start(0x100201);
  Show([](HWND dialog) {
    ExpectNoTextCutOff(dialog);
    EXPECT_TRUE(SaveScreenshot(dialog, W("sort_lines_dialog_long_texts")));
  });
}

TEST_F(SortLinesDlgWindow, MarginsAreEvenAndColumnsAligned) {
  host_.texts = EnglishTexts();
  Show([](HWND dialog) {
    RECT client = {};
    GetClientRect(dialog, &client);
    RECT margin = {7, 7, 7, 7};
    MapDialogRect(dialog, &margin);
    for (const int left :
         {kHeading, kCount, kSaveAsLabel, kSaveAs, kTopLabel, kByGroup, kSampleLabel, kRuler, kSample}) {
      EXPECT_EQ(AreaOf(dialog, left).left, margin.left) << left;
    }
    for (const int right :
         std::initializer_list<int>{kHeading, kName, kMethodGroup, kRuler, kSample, IDCANCEL}) {
      EXPECT_NEAR(client.right - AreaOf(dialog, right).right, margin.left, 1) << right;
    }
    for (const int number : {kBottom, kPosition, kLength, kEndCharacter, kSeparator, kItem}) {
      EXPECT_EQ(AreaOf(dialog, number).left, AreaOf(dialog, kTop).left) << number;
      EXPECT_EQ(AreaOf(dialog, number).right, AreaOf(dialog, kTop).right) << number;
    }
    EXPECT_NEAR(client.bottom - AreaOf(dialog, IDCANCEL).bottom, margin.top, 1);
    EXPECT_EQ(AreaOf(dialog, kByGroup).bottom, AreaOf(dialog, kMethodGroup).bottom);
  });
}

}  // namespace
