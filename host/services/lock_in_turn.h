// Waiting for other runs of the host that write the same files.
#pragma once

#include "host/output/output.h"
#include "host/rename/undo_lock.h"

namespace QxHost {

// Takes the lock as soon as no other process has it, and says so if that takes long. 0, or an error number if
// no file can be made there.
DWORD LockInTurn(UndoLock& lock, const WString& fullPath, Output& output);

}  // namespace QxHost
