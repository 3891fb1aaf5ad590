#include "host/services/wait_for_event.h"

namespace QxHost {

bool WaitForEvent(HANDLE event) {
  for (;;) {
    const DWORD ended = MsgWaitForMultipleObjects(1, &event, FALSE, INFINITE, QS_ALLINPUT);
    if (ended == WAIT_OBJECT_0) return true;
    if (ended != WAIT_OBJECT_0 + 1) return false;
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
}

}  // namespace QxHost
