// The control panel branch: its table, its menu, and the numbers that start nothing.
#include "filetools/control_panel.h"

#include <gmock/gmock.h>

#include "filetools/control_panel_expected.h"
#include "filetools/control_panel_items.h"
#include "frame/qx_utils.h"
#include "support/box_answers.h"
#include "support/fake_host.h"

using namespace Velmora::SDK;
using testing::Contains;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

using Calls = std::vector<std::string>;

// Returns the calls of the branch, without the rest of OnRegister.
Calls BranchCalls(const FakeHost& host) {
  const int begin = host.recorder.PositionOf("FindModuleByGuid");
  const int end = host.recorder.PositionOf("GetCustomCommandSet");
  if (begin < 0 || end < begin) return {};
  Calls calls;
  for (int i = begin; i < end; ++i) {
    const std::string& call = host.recorder.Calls()[static_cast<std::size_t>(i)];
    // When the branch requests the builder and the factory is not specified.
    if (call != "GetMenuBuilder()" && call != "GetCommandFactory()") calls.push_back(call);
  }
  return calls;
}

Calls ExpectedOpening() {
  return {"FindModuleByGuid(a4c2985d9c7e4035a3221cfd600171d0)",
          "GetModuleLanguageString(22136, 0x00C8006D)",
          "menu.AddSubMenuText(root, \"M22136:00C8006D\", 0)",
          "menu.AddSubMenuUnder(menu \"M22136:00C8006D\", 0x0A28006D, 1)",
          "IsOsClassA()",
          "IsOsClassB()"};
}

Calls ExpectedBranch(bool onlyFlagA, u32 leftOutCategory = 0) {
  Calls calls = ExpectedOpening();
  for (const ExpectedPanelCategory& category : kExpectedPanelCategories) {
    calls.push_back("menu.AddCategoryMenu(menu 0x0A28006D, " + Hex(category.textId) + ", 1)");
    if (category.number == leftOutCategory) continue;
    for (const ExpectedPanelItem& item : kExpectedPanelItems) {
      if (item.category != category.number || (onlyFlagA && !item.flagA)) continue;
      const std::string number = std::to_string(6100 + item.rowId);
      calls.push_back("factory.CreateCommand(" + number + ", 0x00000801, " + Hex(item.textId) +
                      ", 0x00000000, 0x00400000, 0)");
      calls.push_back("menu.AddCommand(menu " + Hex(category.textId) + ", command " + number + ", 1, 0)");
    }
  }
  return calls;
}

struct Registered {
  Registered() { host.moduleNumber = 0x12345678; }  // whose low word, 0x5678, is 22136
  void Run() {
    CQXUtils extension;
    EXPECT_EQ(extension.OnRegister(&host), 1);
  }
  FakeHost host;
};

}  // namespace

TEST(ControlPanelTable, Holds62RowsInOrder) {
  const auto items = ControlPanelItems();
  ASSERT_EQ(items.size(), 62u);
  ASSERT_EQ(std::size(kExpectedPanelItems), 62u);
  for (std::size_t i = 0; i < items.size(); ++i) {
    const ExpectedPanelItem& expected = kExpectedPanelItems[i];
    EXPECT_EQ(WString(items[i].name), expected.name) << i;
    EXPECT_EQ(WString(items[i].canonicalName), expected.canonicalName) << i;
    EXPECT_EQ(items[i].rowId, expected.rowId) << i;
    EXPECT_EQ(items[i].category, expected.category) << i;
    EXPECT_EQ(items[i].textId, expected.textId) << i;
    EXPECT_EQ(items[i].flagA, expected.flagA) << i;
    EXPECT_EQ(items[i].flagC, expected.flagC) << i;
    EXPECT_TRUE(items[i].usePrefix) << i;
    EXPECT_FALSE(items[i].reserved) << i;
    EXPECT_TRUE(items[i].flagB) << i;
    EXPECT_FALSE(items[i].noLaunch) << i;
  }
}

TEST(ControlPanelTable, HoldsNineCategoriesWithTheFirstLast) {
  const auto categories = ControlPanelCategories();
  ASSERT_EQ(categories.size(), 9u);
  for (std::size_t i = 0; i < categories.size(); ++i) {
    EXPECT_EQ(categories[i].number, kExpectedPanelCategories[i].number) << i;
    EXPECT_EQ(categories[i].textId, kExpectedPanelCategories[i].textId) << i;
  }
}

TEST(ControlPanelTable, EachRowIdFrom1To62OccursOnce) {
  std::vector<int> seen(63, 0);
  for (const ControlPanelItem& item : ControlPanelItems()) {
    ASSERT_LE(item.rowId, 62u);
    ++seen[item.rowId];
  }
  EXPECT_EQ(seen[0], 0);
  for (std::size_t id = 1; id <= 62; ++id) EXPECT_EQ(seen[id], 1) << id;
}

TEST(ControlPanelMenu, HasAllRowsByCategoryWhereClassAIsFalse) {
  Registered run;
  run.Run();
  EXPECT_THAT(BranchCalls(run.host), ElementsAreArray(ExpectedBranch(false)));
}

TEST(ControlPanelMenu, LeavesOutTheRowsWithoutFlagAWhereClassAIsTrue) {
  Registered run;
  run.host.isClassA = true;
  run.Run();
  EXPECT_THAT(BranchCalls(run.host), ElementsAreArray(ExpectedBranch(true)));
  // File History, Location Settings, Windows SideShow and Language.
  for (const char* number : {"6161", "6160", "6158", "6162"}) {
    EXPECT_THAT(run.host.recorder.Calls(), Not(Contains(HasSubstr(number)))) << number;
  }
}

TEST(ControlPanelMenu, KeepsAllRowsWhereClassBIsTrue) {
  Registered run;
  run.host.isClassB = true;
  run.Run();
  EXPECT_THAT(BranchCalls(run.host), ElementsAreArray(ExpectedBranch(false)));
}

TEST(ControlPanelMenu, BothClassesFilterByFlagAAlone) {
  Registered run;
  run.host.isClassA = true;
  run.host.isClassB = true;
  run.Run();
  EXPECT_THAT(BranchCalls(run.host), ElementsAreArray(ExpectedBranch(true)));
}

TEST(ControlPanelMenu, FollowsTheSubMenusUnderTheSameRoot) {
  Registered run;
  run.Run();
  EXPECT_GT(run.host.recorder.PositionOf("FindModuleByGuid"),
            run.host.recorder.PositionOf("menu.AddCommand(menu 0x0960006D, command 30350, 1, 0)"));
  EXPECT_THAT(run.host.recorder.CallsOf({"menu.CreateRootMenu"}), testing::SizeIs(1));
}

TEST(ControlPanelMenu, IsNotBuiltBeforeVista) {
  Registered run;
  run.host.isVista = false;
  run.Run();
  EXPECT_THAT(run.host.recorder.CallsOf({"FindModuleByGuid", "GetModuleLanguageString", "IsOsClass",
                                         "menu.AddSubMenuText", "menu.AddSubMenuUnder",
                                         "menu.AddCategoryMenu", "factory.CreateCommand(61"}),
              IsEmpty());
}

TEST(ControlPanelMenu, RefusedBranchIsLeftOutAndTheRestIsKept) {
  Registered run;
  run.host.recorder.Refuse("AddSubMenuUnder");
  run.Run();
  const Calls calls = run.host.recorder.Calls();
  EXPECT_THAT(calls, Contains("menu.AddSubMenuUnder(menu \"M22136:00C8006D\", 0x0A28006D, 1)"));
  EXPECT_THAT(run.host.recorder.CallsOf({"menu.AddCategoryMenu", "factory.CreateCommand(61"}), IsEmpty());
  EXPECT_THAT(calls, Contains("set.Commit(1)"));
}

TEST(ControlPanelMenu, RefusedCategoryIsSkippedAndTheOthersAreKept) {
  Registered run;
  run.host.menus.refusedText = 0x0A2B006D;
  run.Run();
  EXPECT_THAT(BranchCalls(run.host), ElementsAreArray(ExpectedBranch(false, 4)));
}

TEST(ControlPanelMenu, MissingTextOfTheOtherModuleDoesNotCrash) {
  Registered run;
  run.host.recorder.Refuse("GetModuleLanguageString");
  run.Run();
  EXPECT_THAT(run.host.recorder.Calls(), Contains("set.Commit(1)"));
}

TEST(ControlPanelLauncher, NumbersWithoutARowAreHandledAndStartNothing) {
  BoxAnswers boxes;
  FakeHost host;
  CQXUtils extension;
  extension.OnStart(&host);
  EXPECT_EQ(extension.OnCommand(6100, 0, 0), 1);
  for (s32 number = 6163; number <= 7100; ++number) EXPECT_EQ(extension.OnCommand(number, 0, 0), 1);
  for (const u32 rowId : {0u, 63u, 1000u, 0xFFFFFFFFu}) LaunchControlPanelItem(rowId);
  EXPECT_THAT(boxes.Starts(), IsEmpty());
  EXPECT_THAT(boxes.Boxes(), IsEmpty());
  EXPECT_THAT(host.recorder.Calls(), IsEmpty());
}

TEST(ControlPanelLauncher, NumbersOutsideTheRangeAreNotHandled) {
  FakeHost host;
  CQXUtils extension;
  extension.OnStart(&host);
  EXPECT_EQ(extension.OnCommand(6099, 0, 0), 0);
  EXPECT_EQ(extension.OnCommand(7101, 0, 0), 0);
}
