// Waits for other runs of the host that write the same files.
#pragma once

#include "host/output/output.h"
#include "host/rename/undo_lock.h"

namespace QxHost {

// Acquires the lock as soon as no other process holds it; reports that it waits if that takes long. Returns
// 0, or an error number if the lock file cannot be created.
DWORD LockInTurn(UndoLock& lock, const WString& fullPath, Output& output);

}  // namespace QxHost
