#include "frame/script_dispatcher.h"

#include <algorithm>
#include <iterator>
#include <span>

#include "filetools/create_link_script.h"
#include "findreplace/tool/find_and_replace_script.h"
#include "frame/host/command_numbers.h"
#include "linesorter/tool/sort_lines_script.h"

using namespace Velmora::SDK;

namespace {

// In the order in which they are read.
constexpr const char* kCreateLinkParameters[] = {"LNKSRC", "LNKTRG", "LNKTYPE"};

struct ScriptRow {
  u32 number;
  s32 (*run)(IHostApp& host, IHostCommandCall& call);
  std::span<const char* const> required;  // parameters without which a call fails
};

// clang-format off
constexpr ScriptRow kScriptCommands[] = {
  {kScriptCreateLink, CreateLinkScript, kCreateLinkParameters},
  {kScriptSortLines, SortLinesScript, {}},
  {kScriptFindAndReplace, FindAndReplaceScript, {}},
};
// clang-format on

bool HasAll(IHostCommandCall& call, std::span<const char* const> parameters) {
  return std::ranges::all_of(parameters, [&call](const char* name) { return call.HasFlag(name); });
}

}  // namespace

s32 DispatchScriptCommand(IHostApp& host, IHostCommandCall& call) {
  const auto* const row = std::ranges::find(kScriptCommands, call.GetCommandId(), &ScriptRow::number);
  if (row == std::end(kScriptCommands) || !HasAll(call, row->required)) return 0;
  return row->run(host, call);
}
