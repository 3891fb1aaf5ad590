// The owner window of the module's dialogs.
#pragma once

#include "frame/host/host_app.h"

namespace Velmora::SDK {

// Returns the active window of the calling thread or, if the thread has no active window, the host's main
// window, which the dialog then disables. Returns null if there is neither.
HWND DialogOwner(IHostApp& host);

}  // namespace Velmora::SDK
