// The quick rename command that gives one base name to several files.
#pragma once

#include "frame/host/host_app.h"

// kCommandRenameSameBaseName: one new base name for all files of the view whose base name is the focused
// item's. Asks for the name, and not again before it renames (C-307).
void RenameSameBaseCommand(Velmora::SDK::IHostApp& host);
