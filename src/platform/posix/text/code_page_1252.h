// Decodes and encodes the code page 1252 (Western European).
#pragma once

#include <cstddef>
#include <optional>

namespace Platform {

// Decodes `count` bytes and writes as many units to `target`. Zero bytes are decoded like all others.
void Decode1252(const char* source, std::size_t count, char16_t* target);

// Returns the byte of a character; std::nullopt if the code page lacks it. With `bestFit`, some of those
// characters map to a similar one instead, as on Windows.
std::optional<unsigned char> EncodeByte1252(char16_t unit, bool bestFit);

}  // namespace Platform
