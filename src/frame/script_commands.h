// The script command set "QX.Utils" as tables, and its registration.
#pragma once

#include <span>

#include "frame/host/host_app.h"

// Bits of a parameter's flags word.
enum ScriptParameterFlag : Velmora::SDK::u32 {
  kScriptSwitch = 0x10,  // there or not, without a value
  kScriptText = 0x20,
  kScriptNumber = 0x40,  // read as text all the same
  kScriptRequired = 0x1000,
};

struct ScriptParameter {
  const char* name;
  Velmora::SDK::u32 flags;
  Velmora::SDK::TextId description;
};

struct ScriptCommand {
  const char* name;
  Velmora::SDK::u32 number;
  Velmora::SDK::TextId description;
  std::span<const ScriptParameter> parameters;
};

// In the order of registration.
std::span<const ScriptCommand> ScriptCommands();

// Declares the set to the host, unless the host has no such set or the set already holds its commands.
void RegisterScriptCommands(Velmora::SDK::IHostApp& host);
