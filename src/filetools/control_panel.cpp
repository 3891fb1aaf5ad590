#include "filetools/control_panel.h"

#include <algorithm>

#include "filetools/control_panel_items.h"
#include "frame/host/command_numbers.h"

using namespace Velmora::SDK;

namespace {

// The host module to whose menu entry the branch is added, and the text ids of that entry and of the branch.
constexpr const char* kParentModuleId = "a4c2985d9c7e4035a3221cfd600171d0";
constexpr TextId kParentText = 0x00C8006D;
constexpr TextId kBranchText = 0x0A28006D;

// Flags and display word, whose bits the host defines, as in menu_tree.cpp. The items have different flags
// from the rest of the menu.
constexpr u32 kItemFlags = 0x801;
constexpr u32 kItemDisplayWord = 0x400000;

// The classes of Windows versions that the rows distinguish.
struct OsClasses {
  bool isA;
  bool isB;
};

bool IsOffered(const ControlPanelItem& item, OsClasses os) {
  return (!os.isB || item.flagB) && (!os.isA || item.flagA);
}

void AddCategory(IHostMenuBuilder& builder, IHostCommandFactory& factory, MenuHandle menu, u32 category,
                 OsClasses os) {
  for (const ControlPanelItem& item : ControlPanelItems()) {
    if (item.category != category || !IsOffered(item, os)) continue;
    const auto number = static_cast<u32>(kCommandFirstControlPanel) + item.rowId;
    builder.AddCommand(menu, factory.CreateCommand(number, kItemFlags, item.textId, 0, kItemDisplayWord, 0),
                       1, 0);
  }
}

}  // namespace

void BuildControlPanelMenu(IHostApp& host, IHostMenuBuilder& builder, IHostCommandFactory& factory,
                           MenuHandle root) {
  const u32 parentModule = host.FindModuleByGuid(kParentModuleId) & 0xFFFF;
  const WString parentText(ViewOf(host.GetModuleLanguageString(parentModule, kParentText)));
  const MenuHandle parent = builder.AddSubMenuText(root, parentText.c_str(), 0);
  if (!parent) return;
  const MenuHandle branch = builder.AddSubMenuUnder(parent, kBranchText, 1);
  if (!branch) return;

  const OsClasses os = {host.IsOsClassA(), host.IsOsClassB()};
  for (const ControlPanelCategory& category : ControlPanelCategories()) {
    if (const MenuHandle menu = builder.AddCategoryMenu(branch, category.textId, 1)) {
      AddCategory(builder, factory, menu, category.number, os);
    }
  }
}

void LaunchControlPanelItem(u32 rowId) {
  const auto items = ControlPanelItems();
  const auto item = std::ranges::find_if(
      items, [rowId](const ControlPanelItem& row) { return row.rowId == rowId && !row.noLaunch; });
  if (item == items.end()) return;
  WString arguments = W("/name ");
  if (item->usePrefix) arguments += W("Microsoft.");
  arguments += item->canonicalName;
  ShellExecuteW(nullptr, W("Open"), W("Control.exe"), arguments.c_str(), nullptr, SW_SHOW);
}
