// Writes the output of a sort.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "linesorter/engine/sortable_lines.h"
#include "platform/text.h"

namespace WQLineSorter {

// Writes the lines to `target`, each with its own ending. A line without an ending gets that of the first
// written line that has one (C-127), unless it would just fill the buffer (C-128). Writes at most 32768 bytes
// at a time (CreateFileW, WriteFile). If `replace` is false and the target exists, the creation fails. Throws
// WQDR::WQDataReaderException with the error of the failed call and "Unable to open file for writing" or
// "Failed to write data to file". A partly written target remains.
void WriteSortedLines(const WString& target, const std::vector<SortLine>& lines, bool replace);

// Same in the order given by `order`, which contains indices into `lines`. Lines that are not in `order` are
// not written.
void WriteSortedLines(const WString& target, const std::vector<SortLine>& lines,
                      std::span<const std::uint32_t> order, bool replace);

}  // namespace WQLineSorter
