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
const std::set<int> kWithoutName = {1020, 1001, 1070};

// Controls whose texts are symbols, the same in all languages, or are not shown.
const std::set<int> kWithoutKey = {1046, 1047, 1117, 1044, 1049, 1072};

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
  const HWND name = GetWindow(GetDlgItem(Panel(), 1070), GW_HWNDPREV);
  WCHAR windowClass[16] = {};
  GetClassNameW(name, windowClass, 16);
  EXPECT_EQ(WStringView(windowClass), L"Static");
  EXPECT_EQ(Ui::GetText(name), L"Search and Replace");
  EXPECT_FALSE(IsWindowVisible(name));
  // The access key of the group still leads to the list of the pairs.
  PressFrameAccessKey(W('h'));
  EXPECT_EQ(GetFocus(), GetDlgItem(Panel(), 1118));
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
    const DialogInScale panel(104, percent, parent.Get());
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
  RECT before = AreaOf(Panel(), 1034);
  const LONG searchBefore = AreaOf(Panel(), 1063).right - AreaOf(Panel(), 1063).left;
  RECT client = {};
  GetClientRect(Panel(), &client);
  const LONG margin = client.right - AreaOf(Panel(), 1041).right;
  Resize(855 + 400, 700);
  const RECT after = AreaOf(Panel(), 1034);
  EXPECT_GT(after.right - after.left, before.right - before.left);
  EXPECT_GT(AreaOf(Panel(), 1063).right - AreaOf(Panel(), 1063).left, searchBefore + 250);
  GetClientRect(Panel(), &client);
  EXPECT_NEAR(client.right - AreaOf(Panel(), 1041).right, margin, 1);
  ExpectLayoutHolds(Panel(), kWithoutName);
  EXPECT_TRUE(SaveScreenshot(Frame(), W("rename_window_wide")));
  Resize(855, 410);
  EXPECT_EQ(AreaOf(Panel(), 1034).right, before.right);
}

TEST_F(RulePanelLayout, ATemplateKeepsItsSelectionWhenTheWindowGrows) {
  Open({W("a")});
  Type(1034, W("abcdef"));
  const HWND field = FindWindowExW(GetDlgItem(Panel(), 1034), nullptr, L"Edit", nullptr);
  SendMessageW(field, EM_SETSEL, 2, 3);
  Resize(1200, 600);
  EXPECT_EQ(SendMessageW(field, EM_GETSEL, 0, 0), MAKELRESULT(2, 3));
}

TEST_F(RulePanelLayout, GroupsAndFieldsAreOnOneGrid) {
  Open({W("a")});
  ExpectAligned({1058, 1034, 1059, 1035, 1060, 1036, 1004, 1043}, &RECT::left);
  ExpectAligned({1062, 1061}, &RECT::left);
  ExpectAligned({1062, 1061}, &RECT::right);
  ExpectAligned({1062, 1063}, &RECT::top);
  ExpectAligned({1061, 1063}, &RECT::bottom);
  ExpectAligned({1031, 1032, 1033}, &RECT::left);
  ExpectAligned({1118, 1020, 1070, 1038}, &RECT::left);
  ExpectAligned({1118, 1117}, &RECT::right);
  ExpectAligned({1063, 1041}, &RECT::right);
  ExpectAligned({1119, 1039}, &RECT::left);
  ExpectAligned({1071, 1040, 1049, 1003, 1041}, &RECT::top);
  for (const auto& [button, box] : {std::pair(1046, 1034), {1047, 1035}, {1044, 1045}}) {
    ExpectAligned({button, box}, &RECT::top);
    ExpectAligned({button, box}, &RECT::bottom);
  }
  for (const auto& [label, field] : {std::pair(1066, 1031), {1067, 1032}, {1068, 1033}}) {
    const LONG gap = AreaOf(Panel(), field).left - AreaOf(Panel(), label).right;
    EXPECT_GE(gap, 0) << label;
    EXPECT_LE(gap, 6) << label;
  }
}

TEST_F(RulePanelLayout, ScreenshotsOfTheWindow) {
  Open({W("Beach 1.jpg"), W("Beach 2.jpg"), W("Beach 3.jpg"), W("100 % & more.txt"), W("notes.txt")});
  Type(1020, W("Beach"));
  Type(1001, W("Sea"));
  Press(1119);
  Type(1034, W("[N]_[C]"));
  EXPECT_TRUE(SaveScreenshot(Frame(), W("rename_window")));
  Type(1034, W("same"));
  EXPECT_TRUE(SaveScreenshot(Frame(), W("rename_window_conflicts")));
  Resize(850, 400);
  EXPECT_TRUE(SaveScreenshot(Frame(), W("rename_window_least")));
}

}  // namespace
