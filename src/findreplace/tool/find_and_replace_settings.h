// The options of the Find and Replace dialog in the host's settings, section "FindReplace".
#pragma once

#include "findreplace/engine/find_and_replace_options.h"
#include "frame/host/host_app.h"

namespace QXFindAndReplace {

// The stored options; what is absent has its default: one text, ignoring case, with a backup. A host without
// settings gives the defaults.
FindAndReplaceOptions LoadFindAndReplaceOptions(Velmora::SDK::IHostApp& host);
void StoreFindAndReplaceOptions(Velmora::SDK::IHostApp& host, const FindAndReplaceOptions& options);

}  // namespace QXFindAndReplace
