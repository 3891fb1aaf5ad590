// The quick rename commands. They read the selection, compute the new names, ask for confirmation, and let
// the host rename. Unless documented otherwise they do not write to the log, and do nothing if no name would
// change.
#pragma once

#include "frame/host/host_app.h"

// Runs the command `number`, which must have a transform; see FindNameTransform.
void QuickRenameCommand(Velmora::SDK::IHostApp& host, Velmora::SDK::s32 number);
