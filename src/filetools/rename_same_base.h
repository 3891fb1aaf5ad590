// The quick rename command that gives several files one base name.
#pragma once

#include "frame/host/host_app.h"

// kCommandRenameSameBaseName: asks for a base name and gives it to all files of the view that have the base
// name of the focused item, without asking for confirmation (C-307).
void RenameSameBaseCommand(Velmora::SDK::IHostApp& host);
