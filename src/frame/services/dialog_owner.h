// The window that a dialog of the module stands over.
#pragma once

#include "frame/host/host_app.h"

namespace Velmora::SDK {

// The active window of this thread; where none is active, the host's main window, so that the host cannot be
// used behind the dialog. Null if there is neither.
HWND DialogOwner(IHostApp& host);

}  // namespace Velmora::SDK
