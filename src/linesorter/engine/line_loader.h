// From a reader's bytes to sorted line records.
//
// CharT is char for the byte path and WCHAR for the 16-bit path, where a byte order mark is the first
// character of the first line (C-102) and an odd last byte gets a zero byte (C-103). All functions throw what
// the reader throws, and std::bad_alloc.
#pragma once

#include <memory>
#include <optional>

#include "data/data_reader.h"
#include "linesorter/engine/line_order.h"
#include "linesorter/engine/sort_lines_options.h"
#include "linesorter/engine/sortable_lines.h"

namespace WQLineSorter {

// Reads all lines, in file order, keys still 0. A line that fills a block and is longer
// throws std::bad_alloc at once. A lone CR ends a line and is lost.
template <typename CharT>
std::shared_ptr<SortableLinesData> ReadLines(WQDR::DataReader& reader);

// Reads all lines, computes the keys, sorts the range that may move and removes blank lines as asked.
template <typename CharT>
std::shared_ptr<SortableLinesData> LoadLines(WQDR::DataReader& reader, const SortLinesOptions& options);

// Lines as they are to be written.
struct OrderedLines {
  std::shared_ptr<SortableLinesData> data;
  std::optional<LineOrder> order;  // none: in the order of the records
};

// The same as LoadLines for a writer, without moving the records where that can be helped.
template <typename CharT>
OrderedLines LoadOrderedLines(WQDR::DataReader& reader, const SortLinesOptions& options);

}  // namespace WQLineSorter
