// The menu of File Utils as a table. Its text ids are listed only here and in menu_tree.cpp. The id of an
// entry is also that of its tool tip, which is the second text of the id in the language table.
#pragma once

#include <span>

#include "frame/host/host_app.h"

// One row of a sub menu. Command 0 is a separator. The display word tells the host how to show the command.
struct MenuEntry {
  Velmora::SDK::u32 command;
  Velmora::SDK::TextId textId;
  Velmora::SDK::u32 displayWord;
};

struct SubMenu {
  Velmora::SDK::TextId textId;
  std::span<const MenuEntry> entries;
};

constexpr Velmora::SDK::TextId kRootMenuText = 0x07D4006D;

// Returns the sub menus in the order in which they are added to the menu.
std::span<const SubMenu> FileUtilsSubMenus();

// Adds all sub menus and their entries to the extension's root menu.
void BuildFileUtilsMenu(Velmora::SDK::IHostMenuBuilder& builder, Velmora::SDK::IHostCommandFactory& factory,
                        Velmora::SDK::MenuHandle root);
