// From a script command's number to the tool that does it.
#pragma once

#include "frame/host/host_app.h"

// Runs the call of a script command and answers as the tool does: 1 for success, 0 for failure. 0 for a
// number that is none. What a tool throws at a number that is no number passes through, to the host.
Velmora::SDK::s32 DispatchScriptCommand(Velmora::SDK::IHostApp& host, Velmora::SDK::IHostCommandCall& call);
