#include "frame/menu_tree.h"

#include "frame/host/command_numbers.h"
#include "frame/services/message_texts.h"

using namespace Velmora::SDK;

namespace {

// The host defines the bits of the flags and the display words; this module only passes them to the host. All
// commands of File Utils have the same flags. The items of the control panel (control_panel.cpp) and the
// command of MultiRename (qx_multi_rename.cpp) have different ones.
constexpr u32 kMenuCommandFlags = 0x10000801;

// The display word of most entries, and the three other ones.
constexpr u32 kPlain = 0x400000;
constexpr u32 kUpperCaseDisplay = 0x49004A;
constexpr u32 kLowerCaseDisplay = 0x4D004A;
constexpr u32 kCrLfDisplay = 0x49004B;

constexpr MenuEntry kSeparator = {0, 0, 0};

// clang-format off
constexpr MenuEntry kRenameMenu[] = {
  {kCommandUpperCase, 0x0834006D, kUpperCaseDisplay},
  {kCommandUpperCaseBase, 0x0852006D, kPlain},
  {kCommandUpperCaseExtension, 0x0853006D, kPlain},
  kSeparator,
  {kCommandLowerCase, 0x0835006D, kLowerCaseDisplay},
  {kCommandLowerCaseBase, 0x085C006D, kPlain},
  {kCommandLowerCaseExtension, 0x085D006D, kPlain},
  kSeparator,
  {kCommandTitleCase, 0x0836006D, kPlain},
  kSeparator,
  {kCommandUnderscoresToBlanks, 0x0837006D, kPlain},
  {kCommandDotsToBlanks, 0x083C006D, kPlain},
  {kCommandHyphensToBlanks, 0x083F006D, kPlain},
  {kCommandBlanksToUnderscores, 0x0839006D, kPlain},
  {kCommandBlanksToDots, 0x083A006D, kPlain},
  {kCommandBlanksToHyphens, 0x0840006D, kPlain},
  {kCommandUnderscoresToDots, 0x0838006D, kPlain},
  {kCommandDotsToUnderscores, 0x083B006D, kPlain},
  kSeparator,
  {kCommandTidyName, 0x0866006D, kPlain},
  kSeparator,
  {kCommandReplaceXWithY, 0x083E006D, kPlain},
  {kCommandRenameSameBaseName, 0x0848006D, kPlain},
  {kCommandSetExtension, 0x0870006D, kPlain},
};

constexpr MenuEntry kTextAndXmlMenu[] = {
  {kCommandLineEndsToLf, 0x0899006D, kPlain},
  {kCommandLineEndsToCrLf, 0x089A006D, kCrLfDisplay},
  {kCommandLineEndsToCr, 0x089B006D, kPlain},
  {kCommandTabsToBlanks, 0x089C006D, kPlain},
  {kCommandFormatXml, 0x08A2006D, kPlain},
  {kCommandCompactXml, 0x08A3006D, kPlain},
  {kCommandSortLines, 0x08AC006D, kPlain},
  {kCommandFindAndReplace, 0x08AD006D, kPlain},
};

constexpr MenuEntry kBase64Menu[] = {
  {kCommandEncodeBase64, kTextBase64Encode, kPlain},
  {kCommandDecodeBase64, kTextBase64Decode, kPlain},
};

constexpr MenuEntry kFileSecurityMenu[] = {
  {kCommandTakeOwnership, 0x08FD006D, kPlain},
  {kCommandResetAccess, 0x0906006D, kPlain},
  {kCommandAddAccess, 0x0907006D, kPlain},
};

constexpr MenuEntry kLinksMenu[] = {
  {kCommandCreateLink, 0x0961006D, kPlain},
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
      const CommandHandle command = factory.CreateCommand(entry.command, kMenuCommandFlags, entry.textId,
                                                          entry.textId, entry.displayWord, 0);
      builder.AddCommand(menu, command, 1, 0);
    }
  }
}
