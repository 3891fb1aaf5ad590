// The token of the process: the object of a handle that OpenProcessToken returns.
#pragma once

#include "platform/posix/files/handle_table.h"
#include "platform/posix/security/security_types.h"

namespace Platform {

struct ProcessToken {
  explicit ProcessToken(DWORD access) : canAdjust((access & TOKEN_ADJUST_PRIVILEGES) != 0) {}

  bool canAdjust;
};

using ProcessTokens = HandleTable<ProcessToken>;

}  // namespace Platform
