// Windows error numbers as readable text.
#pragma once

#include <string>

#include "platform/text.h"

namespace QxHost {

// Returns the system's text of an error, without its line end, and the number: "Access is denied. (5)".
std::string ErrorText(DWORD error);

}  // namespace QxHost
