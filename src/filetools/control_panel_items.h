// The items of the Windows control panel that the menu offers.
#pragma once

#include <span>

#include "frame/host/host_types.h"

// One item and its place in the menu.
struct ControlPanelItem {
  const WCHAR* name;           // the English name, for readers of the table
  const WCHAR* canonicalName;  // without its prefix
  bool usePrefix;              // the canonical name has the prefix "Microsoft."
  bool reserved;
  bool flagC;
  bool flagA;               // offered on systems of class A
  bool flagB;               // offered on systems of class B
  bool noLaunch;            // the launcher ignores this row
  Velmora::SDK::u32 rowId;  // 1 to 62; the command number is 6100 more
  Velmora::SDK::u32 category;
  Velmora::SDK::TextId textId;
};

// One category, which is a sub menu of the branch.
struct ControlPanelCategory {
  Velmora::SDK::u32 number;
  Velmora::SDK::TextId textId;
};

// Return the items and the categories in the order of the menu. Category 1, for items that fit no other
// category, is the last.
std::span<const ControlPanelItem> ControlPanelItems();
std::span<const ControlPanelCategory> ControlPanelCategories();
