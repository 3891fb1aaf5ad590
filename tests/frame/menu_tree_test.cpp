// The menu of File Utils, as the calls to the host build it.
#include "frame/menu_tree.h"

#include <gmock/gmock.h>

#include "frame/qx_utils.h"
#include "support/fake_host.h"

using namespace Velmora::SDK;
using testing::Contains;
using testing::ElementsAreArray;
using testing::Not;
using testing::StartsWith;

namespace {

enum RowKind { kMenu, kCommand, kSeparator };

struct Row {
  RowKind kind;
  u32 number;
  TextId text;
  u32 displayWord;
};

const Row kRows[] = {
    {kMenu, 0, 0x07D1006D, 0},  // Rename
    {kCommand, 30000, 0x0834006D, 0x49004A},
    {kCommand, 30030, 0x0852006D, 0x400000},
    {kCommand, 30031, 0x0853006D, 0x400000},
    {kSeparator, 0, 0, 0},
    {kCommand, 30001, 0x0835006D, 0x4D004A},
    {kCommand, 30040, 0x085C006D, 0x400000},
    {kCommand, 30041, 0x085D006D, 0x400000},
    {kSeparator, 0, 0, 0},
    {kCommand, 30002, 0x0836006D, 0x400000},
    {kSeparator, 0, 0, 0},
    {kCommand, 30003, 0x0837006D, 0x400000},
    {kCommand, 30008, 0x083C006D, 0x400000},
    {kCommand, 30011, 0x083F006D, 0x400000},
    {kCommand, 30005, 0x0839006D, 0x400000},
    {kCommand, 30006, 0x083A006D, 0x400000},
    {kCommand, 30012, 0x0840006D, 0x400000},
    {kCommand, 30004, 0x0838006D, 0x400000},
    {kCommand, 30007, 0x083B006D, 0x400000},
    {kSeparator, 0, 0, 0},
    {kCommand, 30050, 0x0866006D, 0x400000},
    {kSeparator, 0, 0, 0},
    {kCommand, 30010, 0x083E006D, 0x400000},
    {kCommand, 30020, 0x0848006D, 0x400000},
    {kCommand, 30060, 0x0870006D, 0x400000},
    {kMenu, 0, 0x07D2006D, 0},  // Text and XML
    {kCommand, 30101, 0x0899006D, 0x400000},
    {kCommand, 30102, 0x089A006D, 0x49004B},
    {kCommand, 30103, 0x089B006D, 0x400000},
    {kCommand, 30110, 0x089C006D, 0x400000},
    {kCommand, 30200, 0x08A2006D, 0x400000},
    {kCommand, 30201, 0x08A3006D, 0x400000},
    {kCommand, 30150, 0x08AC006D, 0x400000},
    {kCommand, 30151, 0x08AD006D, 0x400000},
    {kMenu, 0, 0x07D3006D, 0},  // Base64
    {kCommand, 30210, 0x08C0006D, 0x400000},
    {kCommand, 30211, 0x08C1006D, 0x400000},
    {kMenu, 0, 0x08FC006D, 0},  // File security
    {kCommand, 30300, 0x08FD006D, 0x400000},
    {kCommand, 30310, 0x0906006D, 0x400000},
    {kCommand, 30311, 0x0907006D, 0x400000},
    {kMenu, 0, 0x0960006D, 0},  // Links
    {kCommand, 30350, 0x0961006D, 0x400000},
};

// Returns the calls that add these rows to the menu.
std::vector<std::string> CallsOfRows() {
  std::vector<std::string> calls;
  std::string menu;
  for (const Row& row : kRows) {
    switch (row.kind) {
      case kMenu:
        menu = "menu " + Hex(row.text);
        calls.push_back("menu.AddSubMenu(root, " + Hex(row.text) + ", 1, 1)");
        break;
      case kCommand:
        calls.push_back("factory.CreateCommand(" + std::to_string(row.number) + ", 0x10000801, " +
                        Hex(row.text) + ", " + Hex(row.text) + ", " + Hex(row.displayWord) + ", 0)");
        calls.push_back("menu.AddCommand(" + menu + ", command " + std::to_string(row.number) + ", 1, 0)");
        break;
      case kSeparator:
        calls.push_back("menu.AddSeparator(" + menu + ", 0)");
        break;
    }
  }
  return calls;
}

// Makes the host refuse the control panel branch and the script commands.
void KeepOnlyTheMenu(FakeHost& host) {
  host.isVista = false;
  host.recorder.Refuse("GetCustomCommandSet");
}

}  // namespace

TEST(MenuTree, IsBuiltCallByCallInOrder) {
  FakeHost host;
  KeepOnlyTheMenu(host);
  CQXUtils extension;
  EXPECT_EQ(extension.OnRegister(&host), 1);
  std::vector<std::string> expected = {"GetMenuBuilder()", "menu.CreateRootMenu(0x07D4006D, 1, 0)",
                                       "GetCommandFactory()"};
  const std::vector<std::string> rows = CallsOfRows();
  expected.insert(expected.end(), rows.begin(), rows.end());
  expected.push_back("IsVistaOrNewer()");
  expected.push_back("GetCustomCommandSet(QX.Utils)");
  EXPECT_THAT(host.recorder.Calls(), ElementsAreArray(expected));
}

TEST(MenuTree, FirstCallsAreWrittenOut) {
  FakeHost host;
  KeepOnlyTheMenu(host);
  CQXUtils extension;
  extension.OnRegister(&host);
  ASSERT_GE(host.recorder.Calls().size(), 12u);
  const std::vector<std::string> first(host.recorder.Calls().begin(), host.recorder.Calls().begin() + 12);
  EXPECT_THAT(first, testing::ElementsAre(
                         "GetMenuBuilder()", "menu.CreateRootMenu(0x07D4006D, 1, 0)", "GetCommandFactory()",
                         "menu.AddSubMenu(root, 0x07D1006D, 1, 1)",
                         "factory.CreateCommand(30000, 0x10000801, 0x0834006D, 0x0834006D, 0x0049004A, 0)",
                         "menu.AddCommand(menu 0x07D1006D, command 30000, 1, 0)",
                         "factory.CreateCommand(30030, 0x10000801, 0x0852006D, 0x0852006D, 0x00400000, 0)",
                         "menu.AddCommand(menu 0x07D1006D, command 30030, 1, 0)",
                         "factory.CreateCommand(30031, 0x10000801, 0x0853006D, 0x0853006D, 0x00400000, 0)",
                         "menu.AddCommand(menu 0x07D1006D, command 30031, 1, 0)",
                         "menu.AddSeparator(menu 0x07D1006D, 0)",
                         "factory.CreateCommand(30001, 0x10000801, 0x0835006D, 0x0835006D, 0x004D004A, 0)"));
}

TEST(MenuTree, TableHoldsTheSameRowsInTheSameOrder) {
  std::size_t at = 0;
  for (const SubMenu& menu : FileUtilsSubMenus()) {
    ASSERT_LT(at, std::size(kRows));
    EXPECT_EQ(kRows[at].kind, kMenu) << "row " << at;
    EXPECT_EQ(menu.textId, kRows[at].text) << "row " << at;
    ++at;
    for (const MenuEntry& entry : menu.entries) {
      ASSERT_LT(at, std::size(kRows));
      EXPECT_EQ(kRows[at].kind, entry.command ? kCommand : kSeparator) << "row " << at;
      EXPECT_EQ(entry.command, kRows[at].number) << "row " << at;
      if (entry.command) {
        EXPECT_EQ(entry.textId, kRows[at].text) << "row " << at;
        EXPECT_EQ(entry.displayWord, kRows[at].displayWord) << "row " << at;
      }
      ++at;
    }
  }
  EXPECT_EQ(at, std::size(kRows));
}

TEST(MenuTree, NoMenuTextIsFetched) {
  FakeHost host;
  KeepOnlyTheMenu(host);
  CQXUtils extension;
  extension.OnRegister(&host);
  EXPECT_THAT(host.recorder.Calls(), Not(Contains(StartsWith("GetLanguage"))));
}

TEST(MenuTree, HostWithoutAMenuBuilderGetsNoMenuAndRegisteringSucceeds) {
  FakeHost host;
  host.recorder.Refuse("GetMenuBuilder");
  CQXUtils extension;
  EXPECT_EQ(extension.OnRegister(&host), 1);
  EXPECT_THAT(host.recorder.CallsOf({"menu."}), testing::IsEmpty());
  ExpectAllReleased(host);
}

TEST(MenuTree, HostWithoutACommandFactoryDoesNotCrash) {
  FakeHost host;
  host.recorder.Refuse("GetCommandFactory");
  CQXUtils extension;
  EXPECT_EQ(extension.OnRegister(&host), 1);
  EXPECT_THAT(host.recorder.CallsOf({"factory."}), testing::IsEmpty());
}

TEST(MenuTree, CommandThatTheHostRefusesLeavesAllOthers) {
  FakeHost host;
  KeepOnlyTheMenu(host);
  // Before it, these calls can be refused: the builder, the root menu, the factory and the submenu.
  host.recorder.RefuseCall(5, false);
  CQXUtils extension;
  EXPECT_EQ(extension.OnRegister(&host), 1);
  const auto added = host.recorder.CallsOf({"menu.AddCommand("});
  EXPECT_THAT(added, Not(Contains("menu.AddCommand(menu 0x07D1006D, command 30000, 1, 0)")));
  EXPECT_THAT(added, Contains("menu.AddCommand(menu 0x07D1006D, command 30030, 1, 0)"));
  EXPECT_THAT(added, Contains("menu.AddCommand(menu 0x0960006D, command 30350, 1, 0)"));
}

TEST(MenuTree, NothingHangsUnderAMenuThatTheHostDidNotMake) {
  for (const char* operation :
       {"CreateRootMenu", "AddSubMenu", "AddSubMenuText", "AddSubMenuUnder", "AddCategoryMenu"}) {
    FakeHost host;
    host.recorder.Refuse(operation);
    CQXUtils extension;
    EXPECT_EQ(extension.OnRegister(&host), 1) << operation;
    EXPECT_THAT(host.recorder.CallsOf({std::string("menu.") + operation + "("}), Not(testing::IsEmpty()));
    EXPECT_THAT(host.recorder.Calls(), testing::Each(Not(testing::HasSubstr("(null")))) << operation;
    ExpectAllReleased(host);
  }
}

TEST(MenuTree, AHostThatRefusesToMakeItsSubMenusGetsNoCommandOfThem) {
  FakeHost host;
  KeepOnlyTheMenu(host);
  host.recorder.Refuse("AddSubMenu");
  CQXUtils extension;
  extension.OnRegister(&host);
  EXPECT_THAT(host.recorder.CallsOf({"menu.AddSubMenu("}), testing::SizeIs(5));
  EXPECT_THAT(host.recorder.CallsOf({"menu.AddCommand(", "menu.AddSeparator("}), testing::IsEmpty());
}
