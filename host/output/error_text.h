// Windows error numbers as a person reads them.
#pragma once

#include <string>

#include "platform/text.h"

namespace QxHost {

// "Access is denied. (5)": the system's text, without its line end, and the number.
std::string ErrorText(DWORD error);

}  // namespace QxHost
