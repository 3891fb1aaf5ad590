// Maps the numbers of script commands to the tools that run them.
#pragma once

#include "frame/host/host_app.h"

// Runs the call of a script command and returns the result of the tool: 1 for success, 0 for failure. Returns
// 0 for an unknown command number. Exceptions that a tool throws for a parameter that is not a number
// propagate to the host (C-009).
Velmora::SDK::s32 DispatchScriptCommand(Velmora::SDK::IHostApp& host, Velmora::SDK::IHostCommandCall& call);
