#include "frame/dispatcher.h"

#include <algorithm>

#include "filetools/base64_file.h"
#include "filetools/control_panel.h"
#include "filetools/create_links_command.h"
#include "filetools/quick_rename.h"
#include "filetools/text_conversion.h"
#include "filetools/xml_conversion.h"
#include "findreplace/tool/find_and_replace_command.h"
#include "linesorter/tool/sort_lines_command.h"
#include "security/security_commands.h"

using namespace Velmora::SDK;

namespace {

void LaunchControlPanel(IHostApp&, s32 number) {
  LaunchControlPanelItem(static_cast<u32>(number - kFirstControlPanelCommand));
}
void ReplaceXY(IHostApp& host, s32) { ReplaceXYCommand(host); }
void RenameSameBase(IHostApp& host, s32) { RenameSameBaseCommand(host); }
void SetExtension(IHostApp& host, s32) { SetExtensionCommand(host); }
void SortLines(IHostApp& host, s32) { SortLinesCommand(host); }
void FindAndReplace(IHostApp& host, s32) { FindAndReplaceCommand(host); }
void CreateLink(IHostApp& host, s32) { CreateLinkCommand(host); }
void ConvertXml(IHostApp& host, s32 number) { ConvertXmlCommand(host, number == 30200); }
void ConvertBase64(IHostApp& host, s32 number) { ConvertBase64Command(host, number == 30210); }
void TakeOwnership(IHostApp& host, s32) { TakeOwnershipCommand(host); }
void ResetAccess(IHostApp& host, s32) { ResetAccessCommand(host); }
void AddAccess(IHostApp& host, s32) { AddAccessCommand(host); }

// A range of command numbers, both ends included, and what runs them.
struct CommandRow {
  s32 first;
  s32 last;
  void (*run)(IHostApp& host, s32 number);
};

// clang-format off
constexpr CommandRow kCommands[] = {
  {kFirstControlPanelCommand, kLastControlPanelCommand, LaunchControlPanel},
  {30000, 30008, QuickRenameCommand},
  {30010, 30010, ReplaceXY},
  {30011, 30012, QuickRenameCommand},
  {30020, 30020, RenameSameBase},
  {30030, 30031, QuickRenameCommand},
  {30040, 30041, QuickRenameCommand},
  {30050, 30050, QuickRenameCommand},
  {30060, 30060, SetExtension},
  {30101, 30103, ConvertTextCommand},
  {30110, 30110, ConvertTextCommand},
  {30150, 30150, SortLines},
  {30151, 30151, FindAndReplace},
  {30200, 30201, ConvertXml},
  {30210, 30211, ConvertBase64},
  {30300, 30300, TakeOwnership},
  {30310, 30310, ResetAccess},
  {30311, 30311, AddAccess},
  {30350, 30350, CreateLink},
};
// clang-format on

}  // namespace

bool DispatchCommand(IHostApp& host, s32 number) {
  const auto* const row = std::ranges::find_if(kCommands, [number](const CommandRow& candidate) {
    return number >= candidate.first && number <= candidate.last;
  });
  if (row == std::end(kCommands)) return false;
  row->run(host, number);
  return true;
}
