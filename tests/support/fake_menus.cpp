#include "support/fake_menus.h"

using namespace Velmora::SDK;

void* FakeCommandFactory::Reserved() {
  recorder_.Problem("the command factory's first operation was called");
  return nullptr;
}

CommandHandle FakeCommandFactory::CreateCommand(u32 number, u32 flags, TextId text, TextId tip,
                                                u32 displayWord, u32 zero) {
  const bool allowed = recorder_.Allow("factory.CreateCommand(" + std::to_string(number) + ", " + Hex(flags) +
                                       ", " + Hex(text) + ", " + Hex(tip) + ", " + Hex(displayWord) + ", " +
                                       std::to_string(zero) + ")");
  return allowed ? handles_.Make<CommandHandle>("command " + std::to_string(number)) : nullptr;
}

void FakeMenuBuilder::CheckMenu(MenuHandle menu, const char* operation) {
  if (!menu) recorder_.Problem(std::string(operation) + " was given no menu");
}

MenuHandle FakeMenuBuilder::Make(const std::string& call, TextId text, const std::string& name) {
  const bool allowed = recorder_.Allow("menu." + call);
  if (!allowed || (text != 0 && text == refusedText)) return nullptr;
  return handles_.Make<MenuHandle>(name);
}

MenuHandle FakeMenuBuilder::AddSubMenuText(MenuHandle parent, const WCHAR* text, u32 zero) {
  CheckMenu(parent, "AddSubMenuText");
  return Make("AddSubMenuText(" + FakeHandles::NameOf(parent) + ", " + Quoted(text) + ", " +
                  std::to_string(zero) + ")",
              0, "menu " + Quoted(text));
}

MenuHandle FakeMenuBuilder::AddSubMenu(MenuHandle parent, TextId text, u32 one, u32 alsoOne) {
  CheckMenu(parent, "AddSubMenu");
  return Make("AddSubMenu(" + FakeHandles::NameOf(parent) + ", " + Hex(text) + ", " + std::to_string(one) +
                  ", " + std::to_string(alsoOne) + ")",
              text, "menu " + Hex(text));
}

MenuHandle FakeMenuBuilder::CreateRootMenu(TextId text, u32 one, u32 zero) {
  return Make("CreateRootMenu(" + Hex(text) + ", " + std::to_string(one) + ", " + std::to_string(zero) + ")",
              text, "root");
}

MenuHandle FakeMenuBuilder::AddCategoryMenu(MenuHandle parent, TextId text, u32 one) {
  CheckMenu(parent, "AddCategoryMenu");
  return Make(
      "AddCategoryMenu(" + FakeHandles::NameOf(parent) + ", " + Hex(text) + ", " + std::to_string(one) + ")",
      text, "menu " + Hex(text));
}

MenuHandle FakeMenuBuilder::AddSubMenuUnder(MenuHandle parent, TextId text, u32 one) {
  CheckMenu(parent, "AddSubMenuUnder");
  return Make(
      "AddSubMenuUnder(" + FakeHandles::NameOf(parent) + ", " + Hex(text) + ", " + std::to_string(one) + ")",
      text, "menu " + Hex(text));
}

void FakeMenuBuilder::AddCommand(MenuHandle menu, CommandHandle command, u32 one, u32 zero) {
  CheckMenu(menu, "AddCommand");
  recorder_.Record("menu.AddCommand(" + FakeHandles::NameOf(menu) + ", " + FakeHandles::NameOf(command) +
                   ", " + std::to_string(one) + ", " + std::to_string(zero) + ")");
}

void FakeMenuBuilder::AddSeparator(MenuHandle menu, u32 zero) {
  CheckMenu(menu, "AddSeparator");
  recorder_.Record("menu.AddSeparator(" + FakeHandles::NameOf(menu) + ", " + std::to_string(zero) + ")");
}
