// Orders of lines, and moving the line records into an order.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "linesorter/engine/sortable_lines.h"

namespace WQLineSorter {

// For each position in the order, the index of the line that belongs there.
using LineOrder = std::vector<std::uint32_t>;

// Moves the line at order[i] to position i, for all i. `order` must contain each index once. Works in place,
// because a copy of the records would be nearly as large as the text. Throws std::bad_alloc, with the lines
// unchanged.
void ApplyOrder(std::span<SortLine> lines, std::span<const std::uint32_t> order);

// The first step of ApplyOrder, which moves each line into the part that contains its destination. A part has
// 2^partBits positions, so the second step moves lines only within memory that a cache can hold. `places`
// contains the destination of each line and is permuted with the lines.
void MoveToParts(std::span<SortLine> lines, std::span<std::uint32_t> places, unsigned partBits);

}  // namespace WQLineSorter
