// Waiting on a thread that may have windows.
#pragma once

#include "platform/windows_api.h"

namespace QxHost {

// Waits until the event is set. On Windows the messages of this thread are handled meanwhile. False if the
// system cannot wait.
bool WaitForEvent(HANDLE event);

}  // namespace QxHost
