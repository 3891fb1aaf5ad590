#include "frame/services/script_values.h"

#include <algorithm>

namespace Velmora::SDK {

std::optional<WString> ScriptValue(IHostCommandCall& call, const char* name) {
  const WCHAR* const value = call.GetValue(name);
  if (!value) return std::nullopt;
  return WString(value);
}

std::uint32_t ReadScriptSwitches(IHostCommandCall& call, std::span<const ScriptSwitch> switches) {
  std::uint32_t options = 0;
  for (const ScriptSwitch& row : switches) {
    if (call.HasFlag(row.name)) options |= row.option;
  }
  return options;
}

std::uint32_t FirstScriptSwitch(IHostCommandCall& call, std::span<const ScriptSwitch> switches,
                                std::uint32_t none) {
  const auto given =
      std::ranges::find_if(switches, [&call](const ScriptSwitch& row) { return call.HasFlag(row.name); });
  return given != switches.end() ? given->option : none;
}

}  // namespace Velmora::SDK
