// The folding of 16-bit units that CompareStringOrdinal uses to ignore case.
#pragma once

#include <cstdint>

namespace WQLineSorter {

// Returns a table with the upper case of each of the 65,536 units. The first call makes it and verifies it
// with CompareStringOrdinal for every unit. Returns null if they disagree or the system does not have that
// function. May be called on any thread.
const std::uint16_t* UnitFolding();

}  // namespace WQLineSorter
