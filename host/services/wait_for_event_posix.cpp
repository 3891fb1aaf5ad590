#include "host/services/wait_for_event.h"

namespace QxHost {

bool WaitForEvent(HANDLE event) { return WaitForSingleObject(event, INFINITE) == WAIT_OBJECT_0; }

}  // namespace QxHost
