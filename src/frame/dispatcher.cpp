#include "frame/dispatcher.h"

#include <algorithm>

#include "filetools/control_panel.h"
#include "filetools/quick_rename.h"
#include "linesorter/sort_lines_command.h"

using namespace Velmora::SDK;

namespace {

void LaunchControlPanel(IHostApp&, s32 number) {
  LaunchControlPanelItem(static_cast<u32>(number - kFirstControlPanelCommand));
}
void ReplaceXY(IHostApp& host, s32) { ReplaceXYCommand(host); }
void RenameSameBase(IHostApp& host, s32) { RenameSameBaseCommand(host); }
void SetExtension(IHostApp& host, s32) { SetExtensionCommand(host); }
void SortLines(IHostApp& host, s32) { SortLinesCommand(host); }

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
  {30150, 30150, SortLines},
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
