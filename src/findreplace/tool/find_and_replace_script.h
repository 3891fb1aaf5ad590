// Find and Replace, the script command 30353.
#pragma once

#include "findreplace/engine/find_and_replace_options.h"
#include "frame/host/host_app.h"

// The options that the parameters of a call ask for; `\n` in both texts is a line break. IGNORECASE and
// OVERWRITE are declared and have no effect (C-242).
QXFindAndReplace::FindAndReplaceOptions ReadFindAndReplaceParameters(Velmora::SDK::IHostCommandCall& call);

// Runs the call. Returns 1 once the run has ended, whatever became of the file (C-008), and 0 if FILE, FIND,
// REPLACEWITH or TARGET is missing, FIND or REPLACEWITH is empty, or FILE is not found.
Velmora::SDK::s32 FindAndReplaceScript(Velmora::SDK::IHostApp& host, Velmora::SDK::IHostCommandCall& call);
