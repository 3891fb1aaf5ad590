// Waits on a thread that may have windows.
#pragma once

#include "platform/windows_api.h"

namespace QxHost {

// Waits until the event is set. On Windows handles the messages of the calling thread meanwhile. Returns
// false if waiting fails.
bool WaitForEvent(HANDLE event);

}  // namespace QxHost
