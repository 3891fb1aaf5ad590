// Loads the lines of a reader as sorted records.
//
// CharT is char for the byte path and WCHAR for the 16-bit path. In 16-bit text a byte order mark is the
// first character of the first line (C-102), and a zero byte is appended to an odd last byte (C-103). All
// functions throw the exceptions of the reader, and std::bad_alloc.
#pragma once

#include <memory>
#include <optional>

#include "data/data_reader.h"
#include "linesorter/engine/line_order.h"
#include "linesorter/engine/sort_lines_options.h"
#include "linesorter/engine/sortable_lines.h"

namespace WQLineSorter {

// Reads all lines in the order of the file; their keys are 0. Throws std::bad_alloc for a line that does not
// fit into a block. A lone CR ends a line and is not stored (C-036).
template <typename CharT>
std::shared_ptr<SortableLinesData> ReadLines(WQDR::DataReader& reader);

// Reads all lines, computes their keys, sorts the movable range and, with SortRemoveBlank, removes its blank
// lines.
template <typename CharT>
std::shared_ptr<SortableLinesData> LoadLines(WQDR::DataReader& reader, const SortLinesOptions& options);

// Lines in the order in which they are to be written.
struct OrderedLines {
  std::shared_ptr<SortableLinesData> data;
  std::optional<LineOrder> order;  // if absent, the order of the records
};

// Like LoadLines, but does not move the records if the order can be found without that.
template <typename CharT>
OrderedLines LoadOrderedLines(WQDR::DataReader& reader, const SortLinesOptions& options);

}  // namespace WQLineSorter
