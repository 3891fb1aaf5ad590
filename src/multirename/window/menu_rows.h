// Converts the lines of the forms' menus for popup menus. Windows build only.
#pragma once

#include "multirename/form/menu_line.h"
#include "ui/popup_menu.h"

namespace Velmora::SDK {

inline std::vector<Ui::MenuRow> MenuRowsOf(const MenuLines& lines) {
  std::vector<Ui::MenuRow> rows;
  for (const MenuLine& line : lines) rows.push_back({line.number, line.text});
  return rows;
}

}  // namespace Velmora::SDK
