// The English texts of Windows' error numbers.
#pragma once

#include <string_view>

#include "platform/posix/windows_types.h"

namespace Platform {

// Without a line ending; empty for a number that has no text here.
std::u16string_view ErrorText(DWORD error);

}  // namespace Platform
