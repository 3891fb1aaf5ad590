// Loads and stores the options of the Find and Replace dialog in the host's settings, section "FindReplace".
#pragma once

#include "findreplace/engine/find_and_replace_options.h"
#include "frame/host/host_app.h"

namespace QXFindAndReplace {

// Returns the stored options. Those that are not stored, or all if the host has no settings, have their
// defaults: the mode One, ignoring case, with a backup.
FindAndReplaceOptions LoadFindAndReplaceOptions(Velmora::SDK::IHostApp& host);
void StoreFindAndReplaceOptions(Velmora::SDK::IHostApp& host, const FindAndReplaceOptions& options);

}  // namespace QXFindAndReplace
