// An order of lines, and moving the line records into it.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "linesorter/engine/sortable_lines.h"

namespace WQLineSorter {

// The places of the lines: of the one that comes first, of the second, and so on.
using LineOrder = std::vector<std::uint32_t>;

// Puts at each place the line that was at order[place]; `order` holds each place once. In place:
// the records are nearly as large as the text, so there is no second copy of them. Throws std::bad_alloc,
// with the lines as they were.
void ApplyOrder(std::span<SortLine> lines, std::span<const std::uint32_t> order);

// The first step of ApplyOrder: brings each line into its part, which is a power of two of places, so that
// the second moves lines only within what a cache holds. `places` are those of the lines and move along.
void MoveToParts(std::span<SortLine> lines, std::span<std::uint32_t> places, unsigned partBits);

}  // namespace WQLineSorter
