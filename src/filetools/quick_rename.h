// The family of quick rename commands: they take the selection, compute new names, ask, and let the host
// rename. Nothing is written to the log unless documented, and nothing is shown if no name would change.
#pragma once

#include "frame/host/host_app.h"

// One-step transforms; `number` is the command's, see FindNameTransform.
void QuickRenameCommand(Velmora::SDK::IHostApp& host, Velmora::SDK::s32 number);
