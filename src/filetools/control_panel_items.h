// The items of the Windows control panel that the menu offers.
#pragma once

#include <span>

#include "frame/host/host_types.h"

struct ControlPanelItem {
  const WCHAR* name;           // English; for the reader of the table
  const WCHAR* canonicalName;  // without its prefix
  bool usePrefix;              // "Microsoft." stands in front of the canonical name
  bool reserved;
  bool flagC;
  bool flagA;               // offered on systems of class A
  bool flagB;               // offered on systems of class B
  bool noLaunch;            // the launcher passes this row over
  Velmora::SDK::u32 rowId;  // 1 to 62; the command number is 6100 more
  Velmora::SDK::u32 category;
  Velmora::SDK::TextId textId;
};

struct ControlPanelCategory {
  Velmora::SDK::u32 number;
  Velmora::SDK::TextId textId;
};

// Both in the order of the menu. Category 1, what fits no other group, comes last.
std::span<const ControlPanelItem> ControlPanelItems();
std::span<const ControlPanelCategory> ControlPanelCategories();
