#include "host/services/menus.h"

#include <algorithm>

#include "host/services/command_names.h"

namespace QxHost {

CommandHandle Menus::CreateCommand(u32 number, u32, TextId text, TextId, u32 displayWord, u32) {
  onDeclared_(number);
  Row& row = all_.emplace_back();
  const std::string name(NameOfCommand(number));
  row.event = {MenuEvent::kCommand, {}, number, name, text, displayWord, textOf_(text)};
  return reinterpret_cast<CommandHandle>(&row);
}

// Returns the menu of a handle; null if the handle is invalid. Handles come from the module, so they are
// checked before they are used.
Menus::Row* Menus::MenuOf(MenuHandle handle) {
  const auto found = std::find_if(all_.begin(), all_.end(), [handle](const Row& row) {
    return reinterpret_cast<MenuHandle>(const_cast<Row*>(&row)) == handle;
  });
  return found != all_.end() && found->isMenu() ? &*found : nullptr;
}

MenuHandle Menus::AddMenu(std::vector<Row*>& rows, TextId id, WString text) {
  Row& row = all_.emplace_back();
  row.event = {MenuEvent::kSubMenu, {}, 0, {}, id, 0, std::move(text)};
  rows.push_back(&row);
  return reinterpret_cast<MenuHandle>(&row);
}

MenuHandle Menus::AddMenuUnder(MenuHandle parent, TextId id, WString text) {
  Row* const menu = MenuOf(parent);
  return menu ? AddMenu(menu->rows, id, std::move(text)) : nullptr;
}

MenuHandle Menus::CreateRootMenu(TextId text, u32, u32) { return AddMenu(roots_, text, textOf_(text)); }

MenuHandle Menus::AddSubMenuText(MenuHandle parent, const WCHAR* text, u32) {
  return AddMenuUnder(parent, 0, WString(ViewOf(text)));
}

MenuHandle Menus::AddSubMenu(MenuHandle parent, TextId text, u32, u32) {
  return AddMenuUnder(parent, text, textOf_(text));
}

MenuHandle Menus::AddCategoryMenu(MenuHandle parent, TextId text, u32) {
  return AddMenuUnder(parent, text, textOf_(text));
}

MenuHandle Menus::AddSubMenuUnder(MenuHandle parent, TextId text, u32) {
  return AddMenuUnder(parent, text, textOf_(text));
}

void Menus::AddCommand(MenuHandle menu, CommandHandle command, u32, u32) {
  Row* const target = MenuOf(menu);
  const auto row = std::find_if(all_.begin(), all_.end(), [command](const Row& candidate) {
    return reinterpret_cast<CommandHandle>(const_cast<Row*>(&candidate)) == command;
  });
  if (target && row != all_.end() && !row->isMenu()) target->rows.push_back(&*row);
}

void Menus::AddSeparator(MenuHandle menu, u32) {
  Row* const target = MenuOf(menu);
  if (!target) return;
  Row& row = all_.emplace_back();
  row.event.kind = MenuEvent::kSeparator;
  target->rows.push_back(&row);
}

void Menus::ReportRows(Reporter& reporter, const std::vector<Row*>& rows, std::vector<WString>& menus) const {
  for (const Row* row : rows) {
    MenuEvent event = row->event;
    event.menus = menus;
    reporter.Menu(event);
    menus.push_back(row->event.text);
    ReportRows(reporter, row->rows, menus);
    menus.pop_back();
  }
}

void Menus::Report(Reporter& reporter) const {
  std::vector<WString> menus;
  ReportRows(reporter, roots_, menus);
}

}  // namespace QxHost
