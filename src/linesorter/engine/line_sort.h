// Sorts lines by their keys.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "linesorter/engine/line_order.h"
#include "linesorter/engine/sort_lines_options.h"
#include "linesorter/engine/sortable_lines.h"

namespace WQLineSorter {

// The lines that may move: [first, last). Empty if as many lines are kept as there are, or more.
struct LineRange {
  std::size_t first;
  std::size_t last;
};
LineRange MovableRange(const std::vector<SortLine>& lines, const SortLinesOptions& options);

// Sorts the range like std::stable_sort by the rule that the options choose: by numericKey, or by the keys
// with a comparator. The comparison of bytes is not transitive, since a key is equal to its prefixes; even
// then the order is exactly that of std::stable_sort. In that case the order depends on the library: both
// builds use libstdc++, whose merge sort starts with runs of up to seven lines.
//
// Uses a fast path if there is one and memory suffices. With SortReverse then reverses the range, including
// lines with equal keys (C-124). Does nothing if the range is empty (C-135). CharT is char or WCHAR.
template <typename CharT>
void SortLineRange(std::vector<SortLine>& lines, LineRange range, const SortLinesOptions& options);

// The same without a fast path: std::stable_sort of the records, then the reversal. Tests compare the fast
// paths with it.
template <typename CharT>
void SortLineRangeReference(std::vector<SortLine>& lines, LineRange range, const SortLinesOptions& options);

// Returns the order of all lines after SortLineRange, without moving the lines: writing them in this order
// costs less than moving them. Returns std::nullopt if there is no fast path or not enough memory for it; the
// caller must then use SortLineRange.
template <typename CharT>
std::optional<LineOrder> FindLineOrder(const std::vector<SortLine>& lines, LineRange range,
                                       const SortLinesOptions& options);

// Removes the lines of the range that have no text, whatever their ending; a blank counts as text (C-126).
// Keeps the order of the others.
void RemoveBlankLines(std::vector<SortLine>& lines, LineRange range);

// Same for an order of the lines.
void RemoveBlankLines(LineOrder& order, const std::vector<SortLine>& lines, LineRange range);

}  // namespace WQLineSorter
