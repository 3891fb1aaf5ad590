// From a command number to the tool that does it.
#pragma once

#include "frame/host/host_app.h"

// Runs the command of that number. False if there is none; a tool that fails was run all the same.
bool DispatchCommand(Velmora::SDK::IHostApp& host, Velmora::SDK::s32 number);
