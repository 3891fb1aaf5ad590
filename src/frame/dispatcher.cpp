#include "frame/dispatcher.h"

#include <algorithm>
#include <iterator>

#include "filetools/base64_file.h"
#include "filetools/control_panel.h"
#include "filetools/create_links_command.h"
#include "filetools/quick_rename.h"
#include "filetools/rename_same_base.h"
#include "filetools/replace_xy.h"
#include "filetools/set_extension.h"
#include "filetools/text_conversion.h"
#include "filetools/xml_conversion.h"
#include "findreplace/tool/find_and_replace_command.h"
#include "frame/host/command_numbers.h"
#include "linesorter/tool/sort_lines_command.h"
#include "security/security_commands.h"

using namespace Velmora::SDK;

namespace {

void ReplaceXY(IHostApp& host, s32) { ReplaceXYCommand(host); }
void RenameSameBase(IHostApp& host, s32) { RenameSameBaseCommand(host); }
void SetExtension(IHostApp& host, s32) { SetExtensionCommand(host); }
void SortLines(IHostApp& host, s32) { SortLinesCommand(host); }
void FindAndReplace(IHostApp& host, s32) { FindAndReplaceCommand(host); }
void CreateLink(IHostApp& host, s32) { CreateLinkCommand(host); }
void ConvertXml(IHostApp& host, s32 number) { ConvertXmlCommand(host, number == kCommandFormatXml); }
void ConvertBase64(IHostApp& host, s32 number) { ConvertBase64Command(host, number == kCommandEncodeBase64); }
void TakeOwnership(IHostApp& host, s32) { TakeOwnershipCommand(host); }
void ResetAccess(IHostApp& host, s32) { ResetAccessCommand(host); }
void AddAccess(IHostApp& host, s32) { AddAccessCommand(host); }

// A command and the function that runs it.
struct CommandRow {
  s32 number;
  void (*run)(IHostApp& host, s32 number);
};

// In the order of the menu; nothing depends on the order.
// clang-format off
constexpr CommandRow kCommands[] = {
  {kCommandUpperCase, QuickRenameCommand},
  {kCommandUpperCaseBase, QuickRenameCommand},
  {kCommandUpperCaseExtension, QuickRenameCommand},
  {kCommandLowerCase, QuickRenameCommand},
  {kCommandLowerCaseBase, QuickRenameCommand},
  {kCommandLowerCaseExtension, QuickRenameCommand},
  {kCommandTitleCase, QuickRenameCommand},
  {kCommandUnderscoresToBlanks, QuickRenameCommand},
  {kCommandDotsToBlanks, QuickRenameCommand},
  {kCommandHyphensToBlanks, QuickRenameCommand},
  {kCommandBlanksToUnderscores, QuickRenameCommand},
  {kCommandBlanksToDots, QuickRenameCommand},
  {kCommandBlanksToHyphens, QuickRenameCommand},
  {kCommandUnderscoresToDots, QuickRenameCommand},
  {kCommandDotsToUnderscores, QuickRenameCommand},
  {kCommandTidyName, QuickRenameCommand},
  {kCommandReplaceXWithY, ReplaceXY},
  {kCommandRenameSameBaseName, RenameSameBase},
  {kCommandSetExtension, SetExtension},
  {kCommandLineEndsToLf, ConvertTextCommand},
  {kCommandLineEndsToCrLf, ConvertTextCommand},
  {kCommandLineEndsToCr, ConvertTextCommand},
  {kCommandTabsToBlanks, ConvertTextCommand},
  {kCommandFormatXml, ConvertXml},
  {kCommandCompactXml, ConvertXml},
  {kCommandSortLines, SortLines},
  {kCommandFindAndReplace, FindAndReplace},
  {kCommandEncodeBase64, ConvertBase64},
  {kCommandDecodeBase64, ConvertBase64},
  {kCommandTakeOwnership, TakeOwnership},
  {kCommandResetAccess, ResetAccess},
  {kCommandAddAccess, AddAccess},
  {kCommandCreateLink, CreateLink},
};
// clang-format on

bool IsOfControlPanel(s32 number) {
  return number >= kCommandFirstControlPanel && number <= kCommandLastControlPanel;
}

}  // namespace

bool DispatchCommand(IHostApp& host, s32 number) {
  if (IsOfControlPanel(number)) {
    LaunchControlPanelItem(static_cast<u32>(number - kCommandFirstControlPanel));
    return true;
  }
  const auto* const row = std::ranges::find(kCommands, number, &CommandRow::number);
  if (row == std::end(kCommands)) return false;
  row->run(host, number);
  return true;
}
