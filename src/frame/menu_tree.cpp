#include "frame/menu_tree.h"

using namespace Velmora::SDK;

namespace {

constexpr u32 kCommandFlags = 0x10000801;

constexpr MenuEntry kSeparator = {0, 0, 0};
constexpr u32 kPlain = 0x400000;  // the display word of most entries

// clang-format off
constexpr MenuEntry kRenameMenu[] = {
  {30000, 0x0834006D, 0x49004A},
  {30030, 0x0852006D, kPlain},
  {30031, 0x0853006D, kPlain},
  kSeparator,
  {30001, 0x0835006D, 0x4D004A},
  {30040, 0x085C006D, kPlain},
  {30041, 0x085D006D, kPlain},
  kSeparator,
  {30002, 0x0836006D, kPlain},
  kSeparator,
  {30003, 0x0837006D, kPlain},
  {30008, 0x083C006D, kPlain},
  {30011, 0x083F006D, kPlain},
  {30005, 0x0839006D, kPlain},
  {30006, 0x083A006D, kPlain},
  {30012, 0x0840006D, kPlain},
  {30004, 0x0838006D, kPlain},
  {30007, 0x083B006D, kPlain},
  kSeparator,
  {30050, 0x0866006D, kPlain},
  kSeparator,
  {30010, 0x083E006D, kPlain},
  {30020, 0x0848006D, kPlain},
  {30060, 0x0870006D, kPlain},
};

constexpr MenuEntry kTextAndXmlMenu[] = {
  {30101, 0x0899006D, kPlain},
  {30102, 0x089A006D, 0x49004B},
  {30103, 0x089B006D, kPlain},
  {30110, 0x089C006D, kPlain},
  {30200, 0x08A2006D, kPlain},
  {30201, 0x08A3006D, kPlain},
  {30150, 0x08AC006D, kPlain},
  {30151, 0x08AD006D, kPlain},
};

constexpr MenuEntry kBase64Menu[] = {
  {30210, 0x08C0006D, kPlain},
  {30211, 0x08C1006D, kPlain},
};

constexpr MenuEntry kFileSecurityMenu[] = {
  {30300, 0x08FD006D, kPlain},
  {30310, 0x0906006D, kPlain},
  {30311, 0x0907006D, kPlain},
};

constexpr MenuEntry kLinksMenu[] = {
  {30350, 0x0961006D, kPlain},
};

constexpr SubMenu kSubMenus[] = {
  {0x07D1006D, kRenameMenu},
  {0x07D2006D, kTextAndXmlMenu},
  {0x07D3006D, kBase64Menu},
  {0x08FC006D, kFileSecurityMenu},
  {0x0960006D, kLinksMenu},
};
// clang-format on

}  // namespace

std::span<const SubMenu> FileUtilsSubMenus() { return kSubMenus; }

void BuildFileUtilsMenu(IHostMenuBuilder& builder, IHostCommandFactory& factory, MenuHandle root) {
  for (const SubMenu& subMenu : kSubMenus) {
    const MenuHandle menu = builder.AddSubMenu(root, subMenu.textId, 1, 1);
    if (!menu) continue;
    for (const MenuEntry& entry : subMenu.entries) {
      if (entry.command == 0) {
        builder.AddSeparator(menu, 0);
        continue;
      }
      const CommandHandle command = factory.CreateCommand(entry.command, kCommandFlags, entry.textId,
                                                          entry.textId, entry.displayWord, 0);
      builder.AddCommand(menu, command, 1, 0);
    }
  }
}
