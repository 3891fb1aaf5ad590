// The paths of the selected files, for commands that work on paths.
#pragma once

#include <vector>

#include "frame/host/host_app.h"

namespace Velmora::SDK {

// Returns the full paths of the selected files, in their order, each of at most 2047 characters; the empty
// text for an item without a path. Returns no paths if the host provides no list or refuses the request.
std::vector<WString> SelectedPaths(IHostApp& host);

}  // namespace Velmora::SDK
