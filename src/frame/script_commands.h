// The script command set "QX.Utils" as tables, and its registration.
#pragma once

#include <span>

#include "frame/host/host_app.h"

// Bits of the flags of a parameter.
enum ScriptParameterFlag : Velmora::SDK::u32 {
  kScriptSwitch = 0x10,  // present or absent, without a value
  kScriptText = 0x20,
  kScriptNumber = 0x40,  // the module reads it as text too
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

// Returns the commands in the order of registration.
std::span<const ScriptCommand> ScriptCommands();

// Declares the commands to the host. Does nothing if the host does not have the set or the set already
// contains its commands.
void RegisterScriptCommands(Velmora::SDK::IHostApp& host);
