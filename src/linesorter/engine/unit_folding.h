// What each 16-bit unit counts as when CompareStringOrdinal ignores case.
#pragma once

#include <cstdint>

namespace WQLineSorter {

// The upper case of each of the 65,536 units, made once for the process and held against what
// CompareStringOrdinal itself says of every unit; null where they differ or the function is not there. Any
// thread.
const std::uint16_t* UnitFolding();

}  // namespace WQLineSorter
