// The layout of MultiRename's window: space for texts, alignment, access keys, sizes and scales.
#include <gmock/gmock.h>

#include "multirename/form/panel_controls.h"
#include "ui/controls.h"
#include "window/dialog_template.h"
#include "window/layout_checks.h"
#include "window/modal_driver.h"
#include "window/rename_frame_window.h"
#include "window/screenshot.h"

namespace {

using namespace Velmora::SDK;

// Fields that have a hint or a hidden name in place of a label.
const std::set<int> kWithoutName = {kPairFind, kPairReplace, kPartsBox};

// Controls whose texts are symbols, the same in all languages, or are not shown.
const std::set<int> kWithoutKey = {kNameTags,      kExtensionTags,     kPairDialog,
                                   kDeleteProfile, kUndoManagerButton, kPartsName};

class RulePanelLayout : public RenameFrameWindow {
 protected:
  void Resize(int width, int height) const {
    SetWindowPos(Frame(), nullptr, 0, 0, width, height, SWP_NOZORDER);
  }
  // Sets the texts that the window would show.
  void SetTextsOf(HWND panel) {
    for (const auto& [control, text] : kPanelTexts)
      Ui::SetText(GetDlgItem(panel, control), host_.texts[text]);
    for (const auto& [control, text] : kPanelCommonTexts)
      Ui::SetText(GetDlgItem(panel, control), host_.commonTexts[text]);
  }
  void ExpectAligned(const std::vector<int>& controls, LONG RECT::*edge) const {
    for (const int control : controls)
      EXPECT_EQ(AreaOf(Panel(), control).*edge, AreaOf(Panel(), controls.front()).*edge) << control;
  }
};

TEST_F(RulePanelLayout, EnglishTextsFitAndControlsDoNotOverlap) {
  Open({W("a")});
  ExpectLayoutHolds(Panel(), kWithoutName);
  ExpectEachLabelHasAnAccessKey(Panel(), kWithoutKey);
}

// A screen reader reads the text of the static control that precedes a field, visible or not.
TEST_F(RulePanelLayout, ThePartsBoxHasAHiddenNameForScreenReaders) {
  Open({W("a")});
  const HWND name = GetWindow(GetDlgItem(Panel(), kPartsBox), GW_HWNDPREV);
  WCHAR windowClass[16] = {};
  GetClassNameW(name, windowClass, 16);
  EXPECT_EQ(WStringView(windowClass), L"Static");
  EXPECT_EQ(Ui::GetText(name), L"Search and Replace");
  EXPECT_FALSE(IsWindowVisible(name));
  // The access key of the group still leads to the list of the pairs.
  PressFrameAccessKey(W('h'));
  EXPECT_EQ(GetFocus(), GetDlgItem(Panel(), kPairList));
}

TEST_F(RulePanelLayout, ItHoldsAtTheLeastSizeToo) {
  Open({W("a")});
  Resize(850, 400);
  ExpectLayoutHolds(Panel(), kWithoutName);
  EXPECT_GE(SendMessageW(List(), 0x1028 /* LVM_GETCOUNTPERPAGE */, 0, 0), 5);
}

TEST_F(RulePanelLayout, LongTranslationsHaveRoom) {
  SpeakRenameAtLength(host_);
  Open({W("a")});
  Resize(850, 400);
  ExpectControlsInsideClientArea(Panel());
  ExpectNoControlsOverlap(Panel());
  ExpectLabelsAndButtonsFit(Panel());
  EXPECT_TRUE(SaveScreenshot(Frame(), W("rename_window_long_texts")));
}

TEST_F(RulePanelLayout, LongTranslationsHaveRoomAtLargerScales) {
  SpeakRenameAtLength(host_);
  const OwnerWindow parent(1300, 900);
  for (const int percent : {150, 200}) {
    const DialogInScale panel(kRulePanel, percent, parent.Get());
    ASSERT_NE(panel.Get(), nullptr);
    SetTextsOf(panel.Get());
    ExpectControlsInsideClientArea(panel.Get());
    ExpectNoControlsOverlap(panel.Get());
    ExpectLabelsAndButtonsFit(panel.Get());
    RECT client = {};
    GetClientRect(panel.Get(), &client);
    // The client width of the frame at its minimum size, at this scale.
    EXPECT_LE(client.right, MulDiv(850, percent, 100) - 2 * MulDiv(8, percent, 100));
  }
}

TEST_F(RulePanelLayout, AWiderWindowGivesItsRoomToTheTemplatesAndTheSearch) {
  Open({W("a")});
  RECT before = AreaOf(Panel(), kNameTemplate);
  const LONG searchBefore = AreaOf(Panel(), kSearchGroup).right - AreaOf(Panel(), kSearchGroup).left;
  RECT client = {};
  GetClientRect(Panel(), &client);
  const LONG margin = client.right - AreaOf(Panel(), kCloseButton).right;
  Resize(855 + 400, 700);
  const RECT after = AreaOf(Panel(), kNameTemplate);
  EXPECT_GT(after.right - after.left, before.right - before.left);
  EXPECT_GT(AreaOf(Panel(), kSearchGroup).right - AreaOf(Panel(), kSearchGroup).left, searchBefore + 250);
  GetClientRect(Panel(), &client);
  EXPECT_NEAR(client.right - AreaOf(Panel(), kCloseButton).right, margin, 1);
  ExpectLayoutHolds(Panel(), kWithoutName);
  EXPECT_TRUE(SaveScreenshot(Frame(), W("rename_window_wide")));
  Resize(855, 410);
  EXPECT_EQ(AreaOf(Panel(), kNameTemplate).right, before.right);
}

TEST_F(RulePanelLayout, ATemplateKeepsItsSelectionWhenTheWindowGrows) {
  Open({W("a")});
  Type(kNameTemplate, W("abcdef"));
  const HWND field = FindWindowExW(GetDlgItem(Panel(), kNameTemplate), nullptr, L"Edit", nullptr);
  SendMessageW(field, EM_SETSEL, 2, 3);
  Resize(1200, 600);
  EXPECT_EQ(SendMessageW(field, EM_GETSEL, 0, 0), MAKELRESULT(2, 3));
}

TEST_F(RulePanelLayout, GroupsAndFieldsAreOnOneGrid) {
  Open({W("a")});
  ExpectAligned({kNameTemplateLabel, kNameTemplate, kExtensionTemplateLabel, kExtensionTemplate,
                 kCaseBoxLabel, kCaseBox, kLivePreviewBox, kSaveUndoBox},
                &RECT::left);
  ExpectAligned({kCounterGroup, kProfileGroup}, &RECT::left);
  ExpectAligned({kCounterGroup, kProfileGroup}, &RECT::right);
  ExpectAligned({kCounterGroup, kSearchGroup}, &RECT::top);
  ExpectAligned({kProfileGroup, kSearchGroup}, &RECT::bottom);
  ExpectAligned({kStartAt, kStepBy, kDigits}, &RECT::left);
  ExpectAligned({kPairList, kPairFind, kPartsBox, kReplaceAllBox}, &RECT::left);
  ExpectAligned({kPairList, kPairDialog}, &RECT::right);
  ExpectAligned({kSearchGroup, kCloseButton}, &RECT::right);
  ExpectAligned({kPairAdd, kRegexBox}, &RECT::left);
  ExpectAligned({kResetButton, kUndoButton, kUndoManagerButton, kStartButton, kCloseButton}, &RECT::top);
  for (const auto& [button, box] : {std::pair(kNameTags, kNameTemplate),
                                    {kExtensionTags, kExtensionTemplate},
                                    {kDeleteProfile, kProfileBox}}) {
    ExpectAligned({button, box}, &RECT::top);
    ExpectAligned({button, box}, &RECT::bottom);
  }
  for (const auto& [label, field] :
       {std::pair(kStartAtLabel, kStartAt), {kStepByLabel, kStepBy}, {kDigitsLabel, kDigits}}) {
    const LONG gap = AreaOf(Panel(), field).left - AreaOf(Panel(), label).right;
    EXPECT_GE(gap, 0) << label;
    EXPECT_LE(gap, 6) << label;
  }
}

TEST_F(RulePanelLayout, ScreenshotsOfTheWindow) {
  Open({W("Beach 1.jpg"), W("Beach 2.jpg"), W("Beach 3.jpg"), W("100 % & more.txt"), W("notes.txt")});
  Type(kPairFind, W("Beach"));
  Type(kPairReplace, W("Sea"));
  Press(kPairAdd);
  Type(kNameTemplate, W("[N]_[C]"));
  EXPECT_TRUE(SaveScreenshot(Frame(), W("rename_window")));
  Type(kNameTemplate, W("same"));
  EXPECT_TRUE(SaveScreenshot(Frame(), W("rename_window_conflicts")));
  Resize(850, 400);
  EXPECT_TRUE(SaveScreenshot(Frame(), W("rename_window_least")));
}

}  // namespace
