// The quick rename command that gives several files one extension.
#pragma once

#include "frame/host/host_app.h"

// kCommandSetExtension: asks for an extension, removes one leading dot from it (C-308), and gives it to all
// selected files, without asking for confirmation (C-307). Logs a message if nothing is selected.
void SetExtensionCommand(Velmora::SDK::IHostApp& host);
