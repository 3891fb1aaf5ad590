// Sets the calling thread's last error, and maps errno values to Windows error numbers.
#pragma once

#include "platform/posix/windows_types.h"

namespace Platform {

// Sets the calling thread's last error and returns FALSE, for `return FailWith(...)`.
BOOL FailWith(DWORD error);

// Returns the Windows error number for `error`, an errno value; ERROR_GEN_FAILURE if there is no equivalent.
DWORD ErrorOfErrno(int error);

}  // namespace Platform
