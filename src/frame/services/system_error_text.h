// Texts of Windows error numbers.
#pragma once

#include "platform/text.h"

// The system's message for `error` as it comes, with its line ending (FormatMessageW), or "Unknown error.".
WString GetSystemErrorText(DWORD error);
