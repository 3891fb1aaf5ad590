// The menu that an extension declares, stored as a tree.
#pragma once

#include <deque>
#include <functional>
#include <vector>

#include "frame/host/host_menus.h"
#include "host/output/reporter.h"

namespace QxHost {

using Velmora::SDK::CommandHandle;
using Velmora::SDK::MenuHandle;
using Velmora::SDK::TextId;
using Velmora::SDK::u32;

class Menus final : public Velmora::SDK::IHostMenuBuilder, public Velmora::SDK::IHostCommandFactory {
 public:
  using TextOf = std::function<WString(TextId)>;
  using OnDeclared = std::function<void(u32 number)>;

  // `textOf` returns the text of an id; `onDeclared` is called with each command number.
  Menus(TextOf textOf, OnDeclared onDeclared)
      : textOf_(std::move(textOf)), onDeclared_(std::move(onDeclared)) {}

  void* Reserved() override { return nullptr; }
  CommandHandle CreateCommand(u32 number, u32 flags, TextId text, TextId tip, u32 displayWord,
                              u32 zero) override;

  MenuHandle CreateRootMenu(TextId text, u32 one, u32 zero) override;
  // Return null if `parent` is not a menu.
  MenuHandle AddSubMenuText(MenuHandle parent, const WCHAR* text, u32 zero) override;
  MenuHandle AddSubMenu(MenuHandle parent, TextId text, u32 one, u32 alsoOne) override;
  MenuHandle AddCategoryMenu(MenuHandle parent, TextId text, u32 one) override;
  MenuHandle AddSubMenuUnder(MenuHandle parent, TextId text, u32 one) override;
  void AddCommand(MenuHandle menu, CommandHandle command, u32 one, u32 zero) override;
  void AddSeparator(MenuHandle menu, u32 zero) override;

  // Reports the whole tree, in order.
  void Report(Reporter& reporter) const;

 private:
  struct Row {
    MenuEvent event;         // without its parent menus
    std::vector<Row*> rows;  // the rows of a sub menu
    bool isMenu() const { return event.kind == MenuEvent::kSubMenu; }
  };

  Row* MenuOf(MenuHandle handle);
  MenuHandle AddMenu(std::vector<Row*>& rows, TextId id, WString text);
  MenuHandle AddMenuUnder(MenuHandle parent, TextId id, WString text);
  void ReportRows(Reporter& reporter, const std::vector<Row*>& rows, std::vector<WString>& menus) const;

  TextOf textOf_;
  OnDeclared onDeclared_;
  std::deque<Row> all_;  // menus and commands; their addresses are the handles
  std::vector<Row*> roots_;
};

}  // namespace QxHost
