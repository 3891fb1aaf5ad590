// The quick rename command that gives one extension to several files.
#pragma once

#include "frame/host/host_app.h"

// kCommandSetExtension: one extension for all selected files, without one leading dot of the answer (C-308).
// Asks for it, and not again before it renames (C-307). If nothing is selected, logs that.
void SetExtensionCommand(Velmora::SDK::IHostApp& host);
