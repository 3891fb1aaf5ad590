// The texts of Windows error numbers.
#pragma once

#include "platform/text.h"

// Returns the system's message for `error`, including its line ending (FormatMessageW), or "Unknown error."
// if there is no message.
WString GetSystemErrorText(DWORD error);
