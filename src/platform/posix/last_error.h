// The last error of a thread, and Windows' number for an errno.
#pragma once

#include "platform/posix/windows_types.h"

namespace Platform {

// Sets the thread's last error and answers FALSE, for `return FailWith(...)`.
BOOL FailWith(DWORD error);

// The Windows number that stands for `error`, an errno; ERROR_GEN_FAILURE for one that has none.
DWORD ErrorOfErrno(int error);

}  // namespace Platform
