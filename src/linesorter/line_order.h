// Moving line records into an order that was found for them.
#pragma once

#include <cstdint>
#include <span>

#include "linesorter/sortable_lines.h"

namespace WQLineSorter {

// Puts at each place the line that stands at order[place] before; `order` holds each place once. In place:
// the records are nearly as large as the text, so there is no second copy of them. Throws std::bad_alloc,
// with the lines as they were.
void ApplyOrder(std::span<SortLine> lines, std::span<const std::uint32_t> order);

}  // namespace WQLineSorter
