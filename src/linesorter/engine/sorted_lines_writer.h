// The output of a sort.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "linesorter/engine/sortable_lines.h"
#include "platform/text.h"

namespace WQLineSorter {

// Writes the lines to `target`, each with its own ending; a line without one gets the default ending, which
// is that of the first line that has one, in the order of `lines` (C-127). Goes out in writes of at most
// 32768 bytes (CreateFileW, WriteFile). `replace`: an existing target is replaced, else the create fails on
// it. Throws WQDR::WQDataReaderException with the error of the call: "Unable to open file for writing",
// "Failed to write data to file". A partly written target stays.
void WriteSortedLines(const WString& target, const std::vector<SortLine>& lines, bool replace);

// The same in another order: the places of the lines to be written, each in `lines`.
void WriteSortedLines(const WString& target, const std::vector<SortLine>& lines,
                      std::span<const std::uint32_t> order, bool replace);

}  // namespace WQLineSorter
