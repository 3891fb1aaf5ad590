// Names of commands are unique and may be abbreviated.
#include "host/services/command_names.h"

#include <gmock/gmock.h>

#include <set>

#include "filetools/control_panel_items.h"
#include "frame/menu_tree.h"
#include "host/output/failures.h"

using testing::IsEmpty;

namespace QxHost {
namespace {

std::string RefusalOf(std::string_view text) {
  try {
    return "was taken for " + std::to_string(CommandOfText(text));
  } catch (const BadCall& refusal) {
    return refusal.what();
  }
}

TEST(CommandNames, AreSmallWordsWithHyphensAndNoNumbers) {
  for (const CommandName& row : CommandNames()) {
    const std::string name(row.name);
    EXPECT_FALSE(name.empty()) << row.number;
    EXPECT_EQ(name.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-"), std::string::npos) << name;
    EXPECT_TRUE(name.front() >= 'a' && name.front() <= 'z') << name;
    EXPECT_FALSE(name.ends_with('-')) << name;
    EXPECT_EQ(name.find("--"), std::string::npos) << name;
  }
}

TEST(CommandNames, NoNameAndNoNumberComesTwice) {
  std::set<std::int32_t> numbers;
  std::set<std::string_view> names;
  for (const CommandName& row : CommandNames()) {
    EXPECT_TRUE(numbers.insert(row.number).second) << row.number;
    EXPECT_TRUE(names.insert(row.name).second) << row.name;
  }
}

TEST(CommandNames, AWholeNameIsItsCommandEvenWhereAnotherNameBeginsWithIt) {
  for (const CommandName& row : CommandNames()) EXPECT_EQ(CommandOfText(row.name), row.number) << row.name;
  EXPECT_EQ(CommandOfText("upper-case"), 30000);
  EXPECT_EQ(CommandOfText("upper-case-base"), 30030);
  EXPECT_EQ(CommandOfText("line-ends-to-cr"), 30103);
  EXPECT_EQ(CommandOfText("line-ends-to-crlf"), 30102);
}

TEST(CommandNames, EveryCommandOfTheMenuHasOne) {
  std::set<std::int32_t> unnamed;
  std::set<std::int32_t> inMenu;
  for (const SubMenu& menu : FileUtilsSubMenus()) {
    for (const MenuEntry& entry : menu.entries) {
      if (entry.command != 0) inMenu.insert(static_cast<std::int32_t>(entry.command));
    }
  }
  for (const ControlPanelItem& item : ControlPanelItems()) {
    inMenu.insert(static_cast<std::int32_t>(6100 + item.rowId));
  }
  EXPECT_EQ(inMenu.size(), 33u + 62u);
  for (const std::int32_t number : inMenu) {
    if (NameOfCommand(number).empty()) unnamed.insert(number);
  }
  EXPECT_THAT(unnamed, IsEmpty());
  // The only other number is that of MultiRename's window, which has its own menu.
  for (const CommandName& row : CommandNames()) {
    EXPECT_TRUE(inMenu.contains(row.number) || row.number == 31000) << row.number;
  }
}

TEST(CommandNames, OfTheControlPanelAreTheTitlesOfTheItems) {
  for (const ControlPanelItem& item : ControlPanelItems()) {
    std::string expected = "control-";
    for (const char letter : ToUtf8(item.name)) {
      expected += letter == ' ' ? '-' : static_cast<char>(std::tolower(letter));
    }
    EXPECT_EQ(NameOfCommand(6100 + item.rowId), expected);
  }
}

TEST(CommandNames, ANumberWithoutANameHasNone) {
  for (const std::int64_t number : {0LL, -1LL, 6100LL, 6163LL, 7100LL, 30009LL, 32000LL, 4294997296LL}) {
    EXPECT_EQ(NameOfCommand(number), "") << number;
  }
}

TEST(CommandNames, EveryNumberIsTakenUnchanged) {
  EXPECT_EQ(CommandOfText("30150"), 30150);
  EXPECT_EQ(CommandOfText("-1"), -1);
  EXPECT_EQ(CommandOfText("0"), 0);
  EXPECT_EQ(CommandOfText("007"), 7);
  EXPECT_EQ(CommandOfText("2147483647"), 2147483647);
}

TEST(CommandNames, AUniquePrefixInAnyCaseIsEnough) {
  EXPECT_EQ(CommandOfText("sort-l"), 30150);
  EXPECT_EQ(CommandOfText("sort"), 30150);
  EXPECT_EQ(CommandOfText("SORT-Lines"), 30150);
  EXPECT_EQ(CommandOfText("Fi"), 30151);
  EXPECT_EQ(CommandOfText("line-ends-to-crl"), 30102);
  EXPECT_EQ(CommandOfText("control-file"), 6161);
}

TEST(CommandNames, AnAmbiguousPrefixListsItsNames) {
  EXPECT_EQ(RefusalOf("control-loc"),
            "more than one command begins with \"control-loc\": control-location-and-other-sensors, "
            "control-location-settings. Type more of its name");
  EXPECT_EQ(RefusalOf("UPPER"),
            "more than one command begins with \"UPPER\": upper-case, upper-case-base, upper-case-extension. "
            "Type more of its name");
}

TEST(CommandNames, WhatIsNoneIsRefusedWithTheNearestName) {
  constexpr char kIsNone[] = " is not a command: give its number or its name, as `qxhost menu` shows them";
  EXPECT_EQ(RefusalOf("sort-lnies"), std::string("\"sort-lnies\"") + kIsNone + ". Did you mean sort-lines?");
  EXPECT_EQ(RefusalOf("SortLines"), std::string("\"SortLines\"") + kIsNone + ". Did you mean sort-lines?");
  EXPECT_EQ(RefusalOf("sort-lines-now"),
            std::string("\"sort-lines-now\"") + kIsNone + ". Did you mean sort-lines?");
  for (const std::string text : {"", "x", "30000x", "99999999999", "0x7530", "+1", " 30000", "-"}) {
    EXPECT_EQ(RefusalOf(text), "\"" + text + "\"" + kIsNone);
  }
}

TEST(CommandNames, TheFewNamesThatContainTheTextAreProposedWhereNoneIsNear) {
  EXPECT_TRUE(RefusalOf("mous").ends_with(". Did you mean control-mouse?")) << RefusalOf("mous");
  EXPECT_TRUE(RefusalOf("Lines").ends_with(". Did you mean sort-lines?")) << RefusalOf("Lines");
  EXPECT_TRUE(RefusalOf("and").ends_with("shows them")) << RefusalOf("and");  // too many to list
}

TEST(CommandNames, AreFoundWholeOrByNumber) {
  EXPECT_EQ(FindCommand("Create-Link"), 30350);
  EXPECT_EQ(FindCommand("30350"), 30350);
  EXPECT_EQ(FindCommand("create"), std::nullopt);
  EXPECT_EQ(FindCommand(""), std::nullopt);
}

}  // namespace
}  // namespace QxHost
