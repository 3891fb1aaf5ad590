// Parses numbers like std::stoi, with the texts of its exceptions on Windows.
#pragma once

#include <cstdint>

#include "platform/text.h"

namespace WQLineSorter {

// Skips leading white space and ignores what follows the digits. Throws std::invalid_argument ("invalid stoi
// argument") if there is no digit, and std::out_of_range ("stoi argument out of range") if the number does
// not fit into 32 bits.
std::int32_t Stoi(const WString& text);

}  // namespace WQLineSorter
