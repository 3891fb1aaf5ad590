// The code page 1252, Western European, byte by byte.
#pragma once

#include <optional>

namespace Platform {

char16_t DecodeByte1252(unsigned char byte);

// Nothing for a character that the code page lacks. With `bestFit` some of those become one that looks like
// them, as on Windows.
std::optional<unsigned char> EncodeByte1252(char16_t unit, bool bestFit);

}  // namespace Platform
