// The pass that gives each line its key, once, before the sort.
#pragma once

#include <algorithm>
#include <vector>

#include "linesorter/engine/sort_lines_options.h"
#include "linesorter/engine/sortable_lines.h"

namespace WQLineSorter {

// Sets keyOffset, keyLength and numericKey of all lines, also of those that stay in place. Throws
// QXLineSorterException as ParseDate. CharT is char or WCHAR.
template <typename CharT>
void ComputeSortKeys(std::vector<SortLine>& lines, const SortLinesOptions& options);

// A key as the comparators are given it: a pointer and a length in characters.
template <typename CharT>
struct KeyText {
  const CharT* text;  // on the 16-bit path it may be odd, so it is read by bytes
  std::uint32_t length;
};

// On the byte path the key begins at text + keyOffset and has keyLength characters or, if that is 0, goes to
// the line's end (C-110). On the 16-bit path the offset counts bytes and not characters, and the length
// (characters, or bytes to the line's end) is halved (C-104). An offset past the line's end gives an empty
// key.
template <typename CharT>
KeyText<CharT> KeyOf(const SortLine& line) {
  const char* const start = line.text + std::min(line.keyOffset, line.length);
  const std::uint32_t left = line.keyOffset < line.length ? line.length - line.keyOffset : 0;
  const std::uint32_t length = line.keyLength != 0 ? line.keyLength : left;
  return {reinterpret_cast<const CharT*>(start), sizeof(CharT) == 1 ? length : length >> 1};
}

}  // namespace WQLineSorter
