// Numbers as std::stoi reads them, with the texts of its exceptions on Windows.
#pragma once

#include <cstdint>

#include "platform/text.h"

namespace WQLineSorter {

// White space in front and whatever follows the digits do not matter. Throws std::invalid_argument ("invalid
// stoi argument") without a digit and std::out_of_range ("stoi argument out of range") beyond 32 bits.
std::int32_t Stoi(const WString& text);

}  // namespace WQLineSorter
