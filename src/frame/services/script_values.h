// Reading the parameters of a script command's call.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "frame/host/host_script_commands.h"

namespace Velmora::SDK {

// A parameter's value, kept beyond the call's next operation; nothing for one that was not given.
std::optional<WString> ScriptValue(IHostCommandCall& call, const char* name);

struct ScriptSwitch {
  const char* name;
  std::uint32_t option;
};

// The options of all the switches that were given. They are asked for in the order of the rows.
std::uint32_t ReadScriptSwitches(IHostCommandCall& call, std::span<const ScriptSwitch> switches);

// The option of the first of the switches that was given, or else `none`.
std::uint32_t FirstScriptSwitch(IHostCommandCall& call, std::span<const ScriptSwitch> switches,
                                std::uint32_t none);

}  // namespace Velmora::SDK
