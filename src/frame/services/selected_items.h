// The items that are selected in the host.
#pragma once

#include <functional>

#include "frame/host/host_app.h"

namespace Velmora::SDK {

// Calls `use` for each selected item in their order, and then releases the list. Calls it for none if the
// host provides no list or refuses the request.
void ForEachSelectedItem(IHostApp& host, FileListMode mode, const std::function<void(IHostFileItem&)>& use);

}  // namespace Velmora::SDK
