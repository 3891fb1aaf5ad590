// Maps command numbers to the tools that run them.
#pragma once

#include "frame/host/host_app.h"

// Runs the command of that number. Returns false if there is none, and true whatever the outcome of the tool
// is (C-005).
bool DispatchCommand(Velmora::SDK::IHostApp& host, Velmora::SDK::s32 number);
