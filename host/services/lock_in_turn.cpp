#include "host/services/lock_in_turn.h"

#include "platform/windows_api.h"

namespace QxHost {

DWORD LockInTurn(UndoLock& lock, const WString& fullPath, Output& output) {
  constexpr DWORD kWait = 20;  // milliseconds
  constexpr int kSecond = 1000 / kWait;
  for (int wait = 0;; ++wait) {
    const DWORD error = lock.Take(fullPath);
    // While a lock file is being deleted, opening it fails with access denied.
    const bool isInUse = error == ERROR_SHARING_VIOLATION || (error == ERROR_ACCESS_DENIED && wait < kSecond);
    if (!isInUse) return error;
    if (wait == 2 * kSecond) output.Problem("note: waiting for the end of another run");
    Sleep(kWait);
  }
}

}  // namespace QxHost
