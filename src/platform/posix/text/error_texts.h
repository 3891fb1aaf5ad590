// The English texts of Windows' error numbers.
#pragma once

#include <string_view>

#include "platform/posix/windows_types.h"

namespace Platform {

// Returns the text of an error number, without a line ending; empty if the number has no text here.
std::u16string_view ErrorText(DWORD error);

}  // namespace Platform
