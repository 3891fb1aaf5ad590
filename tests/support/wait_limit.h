// The time limit of waits in tests.
#pragma once

#include "platform/text.h"

// Not reached unless the tested code fails to do what is waited for.
inline constexpr DWORD kWaitLimit = 60000;  // milliseconds
