// Maps command numbers to the tools that run them.
#pragma once

#include "frame/host/host_app.h"

// Runs the command with this number. Returns false if no command has the number; otherwise true, even if the
// tool fails (C-005).
bool DispatchCommand(Velmora::SDK::IHostApp& host, Velmora::SDK::s32 number);
