#include "frame/script_dispatcher.h"

#include <algorithm>
#include <iterator>

#include "findreplace/find_and_replace_script.h"
#include "linesorter/sort_lines_script.h"

using namespace Velmora::SDK;

namespace {

struct ScriptRow {
  u32 number;
  s32 (*run)(IHostApp& host, IHostCommandCall& call);
};

// clang-format off
constexpr ScriptRow kScriptCommands[] = {
  {30352, SortLinesScript},
  {30353, FindAndReplaceScript},
};
// clang-format on

}  // namespace

s32 DispatchScriptCommand(IHostApp& host, IHostCommandCall& call) {
  const auto* const row = std::ranges::find(kScriptCommands, call.GetCommandId(), &ScriptRow::number);
  return row != std::end(kScriptCommands) ? row->run(host, call) : 0;
}
