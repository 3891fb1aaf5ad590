// The code page 1252, Western European, byte by byte.
#pragma once

#include <cstddef>
#include <optional>

namespace Platform {

// Writes `count` units; the source may hold zero bytes.
void Decode1252(const char* source, std::size_t count, char16_t* target);

// Nothing for a character that the code page lacks. With `bestFit` some of those become one that looks like
// them, as on Windows.
std::optional<unsigned char> EncodeByte1252(char16_t unit, bool bestFit);

}  // namespace Platform
