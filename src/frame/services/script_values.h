// Reads the parameters of a call of a script command.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "frame/host/host_script_commands.h"

namespace Velmora::SDK {

// Returns a copy of the value of a parameter; std::nullopt if it was not given.
std::optional<WString> ScriptValue(IHostCommandCall& call, const char* name);

// A parameter without a value, and the option bits that it stands for.
struct ScriptSwitch {
  const char* name;
  std::uint32_t option;
};

// Returns the combined options of all switches that were given. Reads them in the order of `switches`.
std::uint32_t ReadScriptSwitches(IHostCommandCall& call, std::span<const ScriptSwitch> switches);

// Returns the option of the first of `switches` that was given; `none` if none was given.
std::uint32_t FirstScriptSwitch(IHostCommandCall& call, std::span<const ScriptSwitch> switches,
                                std::uint32_t none);

}  // namespace Velmora::SDK
