// The keys that leave things as they are, and those that do something, in the rule panel of MultiRename's
// window.
#include <gmock/gmock.h>

#include "multirename/form/panel_controls.h"
#include "window/list_rows.h"
#include "window/modal_driver.h"
#include "window/rename_frame_window.h"

// Needs windows.h before it.
#include <commctrl.h>

namespace {

using namespace Velmora::SDK;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr int kName = 1034;
constexpr int kCase = 1036;
constexpr int kPairs = 1118;
constexpr int kFind = 1020;
constexpr int kReplace = 1001;
constexpr int kAdd = 1119;
constexpr int kParts = 1070;
constexpr int kProfiles = 1045;

class RulePanelKeys : public RenameFrameWindow {
 protected:
  WString Text(int control) const { return TextOf(Panel(), control); }
  bool IsDropped(int control) const {
    return SendDlgItemMessageW(Panel(), control, CB_GETDROPPEDSTATE, 0, 0) != 0;
  }
  void AddPair(const WString& find, const WString& replace) {
    Type(kFind, find);
    Type(kReplace, replace);
    Press(kAdd);
  }
  // Opens the list of a box, marks another line with the arrow keys, and leaves it with Escape.
  void MarkAndEscape(int control, const std::vector<WORD>& arrows) {
    SetFocus(GetDlgItem(Panel(), control));
    PressFrameKey(VK_F4);
    ASSERT_TRUE(IsDropped(control));
    for (const WORD arrow : arrows) PressFrameKey(arrow);
    PressFrameKey(VK_ESCAPE);
    ASSERT_FALSE(IsDropped(control));
  }
};

// Escape in an open list.

TEST_F(RulePanelKeys, EscapeInAnOpenListOfProfilesKeepsTheRulesAndAsksNothing) {
  Open({W("aXa")});
  Type(kName, W("[N]_new"));
  AddPair(W("X"), W("-"));
  MarkAndEscape(kProfiles, {VK_DOWN});
  EXPECT_EQ(host_.recorder.CallsOf({"AskText"}).size(), 0u);
  EXPECT_EQ(SelectedRow(Panel(), kProfiles), 0);
  EXPECT_EQ(Text(kName), W("[N]_new"));
  EXPECT_THAT(TableRowsOf(Panel(), kPairs), SizeIs(1));
  EXPECT_THAT(NewNames(), ElementsAre(W("a-a_new")));
}

TEST_F(RulePanelKeys, EscapeInAnOpenListOfProfilesKeepsWhatWasEditedSinceTheProfileWasLoaded) {
  auto profile = std::make_unique<MultiRenameProfile>();
  profile->name = W("one");
  profile->filenameRule = W("p[N]");
  profile->extensionRule = W("[E]");
  profiles_.Add(std::move(profile));
  Open({W("a")});
  ChooseRow(Panel(), kProfiles, 2);
  Settle();
  ASSERT_EQ(Text(kName), W("p[N]"));
  Type(kName, W("edited"));
  AddPair(W("e"), W("E"));
  for (const std::vector<WORD>& arrows : {std::vector<WORD>{VK_UP}, {VK_UP, VK_UP}, {VK_UP, VK_DOWN}}) {
    MarkAndEscape(kProfiles, arrows);
    EXPECT_EQ(SelectedRow(Panel(), kProfiles), 2);
    EXPECT_EQ(Text(kName), W("edited"));
    EXPECT_THAT(TableRowsOf(Panel(), kPairs), ElementsAre(ElementsAre(W("e"), W("E"))));
  }
  EXPECT_EQ(TitleOfFrame(), W("MultiRename - Profile: one"));
}

TEST_F(RulePanelKeys, EscapeInAnOpenListOfCasesOrPartsKeepsTheLine) {
  Open({W("aX.X")});
  AddPair(W("X"), W("y"));
  ASSERT_THAT(NewNames(), ElementsAre(W("ay.y")));
  MarkAndEscape(kCase, {VK_DOWN, VK_DOWN});
  EXPECT_EQ(SelectedRow(Panel(), kCase), 0);
  MarkAndEscape(kParts, {VK_DOWN});
  EXPECT_EQ(SelectedRow(Panel(), kParts), 0);
  // With the next change as well.
  Type(kName, W("[N]b"));
  EXPECT_THAT(NewNames(), ElementsAre(W("ayb.y")));
}

TEST_F(RulePanelKeys, EnterAfterAnEscapeInTheSameListChooses) {
  Open({W("Ab")});
  MarkAndEscape(kCase, {VK_DOWN});
  PressFrameKey(VK_F4);
  PressFrameKey(VK_DOWN);
  PressFrameKey(VK_RETURN);
  EXPECT_EQ(SelectedRow(Panel(), kCase), 1);
  EXPECT_THAT(NewNames(), ElementsAre(W("ab")));
}

TEST_F(RulePanelKeys, EscapeInAnOpenListOfTemplatesLeavesNamesThatAreThoseOfTheTextThatShows) {
  host_.config.histories[W("RuleFilename")] = {W("one"), W("two")};
  Open({W("a")});
  MarkAndEscape(kName, {VK_DOWN});
  EXPECT_THAT(NewNames(), ElementsAre(Text(kName) == W("[N]") ? WString(W("a")) : Text(kName)));
}

}  // namespace
