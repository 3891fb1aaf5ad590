// Maps the numbers of script commands to the tools that run them.
#pragma once

#include "frame/host/host_app.h"

// Runs the call of a script command and returns what the tool returns: 1 for success, 0 for failure. Returns
// 0 for a number that is not a command's. Exceptions of the tool for a parameter that is not a number pass
// through to the host (C-009).
Velmora::SDK::s32 DispatchScriptCommand(Velmora::SDK::IHostApp& host, Velmora::SDK::IHostCommandCall& call);
