// The order of lines by their keys.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "linesorter/engine/line_order.h"
#include "linesorter/engine/sort_lines_options.h"
#include "linesorter/engine/sortable_lines.h"

namespace WQLineSorter {

// The lines that may move: [first, last). Empty when more lines are kept than there are.
struct LineRange {
  std::size_t first;
  std::size_t last;
};
LineRange MovableRange(const std::vector<SortLine>& lines, const SortLinesOptions& options);

// Brings the range into the order that std::stable_sort makes of it with the rule that the options choose:
// numericKey, or a comparator over the keys. Where comparing bytes is not transitive (a key equals its own
// beginning) the order is still exactly the one that std::stable_sort makes. The standard leaves that order
// open: it is libstdc++'s, whose merges begin with runs of up to seven lines, and which both builds use.
// Takes the fast way if there is one and memory allows. Then reverses the range if that is asked for, lines
// with equal keys too (C-124). Does nothing to an empty range (C-135). CharT is char or WCHAR.
template <typename CharT>
void SortLineRange(std::vector<SortLine>& lines, LineRange range, const SortLinesOptions& options);

// The rule itself, without any fast way: std::stable_sort of the records, then the reversal. The fast ways
// are held against it.
template <typename CharT>
void SortLineRangePlainly(std::vector<SortLine>& lines, LineRange range, const SortLinesOptions& options);

// The order that SortLineRange brings all lines into, found by the fast way while the lines stay where they
// are: moving them costs more than looking for them once at the end. None where there is no fast way, or no
// memory for it; then SortLineRange is to be asked.
template <typename CharT>
std::optional<LineOrder> FindLineOrder(const std::vector<SortLine>& lines, LineRange range,
                                       const SortLinesOptions& options);

// Removes the records of the range that have no text, whatever their ending; a blank is text (C-126). The
// others keep their order.
void RemoveBlankLines(std::vector<SortLine>& lines, LineRange range);

// The same in an order of the lines.
void RemoveBlankLines(LineOrder& order, const std::vector<SortLine>& lines, LineRange range);

}  // namespace WQLineSorter
