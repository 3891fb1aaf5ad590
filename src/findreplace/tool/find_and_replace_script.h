// Find and Replace, the script command 30353.
#pragma once

#include "findreplace/engine/find_and_replace_options.h"
#include "frame/host/host_app.h"

// Returns the options that the parameters of the call specify; `\n` in both texts is a line feed. IGNORECASE
// and OVERWRITE are declared but have no effect (C-242).
QXFindAndReplace::FindAndReplaceOptions ReadFindAndReplaceParameters(Velmora::SDK::IHostCommandCall& call);

// Runs the call. Returns 1 after the run, even if nothing was replaced or the file failed (C-008), and 0 if
// FILE, FIND, REPLACEWITH or TARGET is missing, FIND or REPLACEWITH is empty, or FILE does not exist.
Velmora::SDK::s32 FindAndReplaceScript(Velmora::SDK::IHostApp& host, Velmora::SDK::IHostCommandCall& call);
