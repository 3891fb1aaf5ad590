// The selected files of a command that works on paths.
#pragma once

#include <vector>

#include "frame/host/host_app.h"

namespace Velmora::SDK {

// The full paths of the selected files, in their order, each of up to 2047 characters; an item without a path
// gives an empty text. No paths where the host has no list or refuses the request.
std::vector<WString> SelectedPaths(IHostApp& host);

}  // namespace Velmora::SDK
