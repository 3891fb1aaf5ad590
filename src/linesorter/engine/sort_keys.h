// Computes the keys of all lines, once, before the sort.
#pragma once

#include <algorithm>
#include <vector>

#include "linesorter/engine/sort_lines_options.h"
#include "linesorter/engine/sortable_lines.h"

namespace WQLineSorter {

// Sets keyOffset, keyLength and numericKey of all lines, including those that stay in place. Throws the
// exceptions of ParseDate. CharT is char or WCHAR.
template <typename CharT>
void ComputeSortKeys(std::vector<SortLine>& lines, const SortLinesOptions& options);

// A key in the form that the comparators take: a pointer and a length in characters.
template <typename CharT>
struct KeyText {
  const CharT* text;  // on the 16-bit path the address may be odd
  std::uint32_t length;
};

// Returns the key of a line. On the byte path it begins at text + keyOffset and has keyLength characters or,
// if that is 0, extends to the end of the line (C-110). On the 16-bit path keyOffset is used as a number of
// bytes, although it counts characters, and the length (keyLength, or the bytes to the end of the line) is
// halved (C-104). If the offset is beyond the end of the line, the key is empty.
template <typename CharT>
KeyText<CharT> KeyOf(const SortLine& line) {
  const char* const start = line.text + std::min(line.keyOffset, line.length);
  const std::uint32_t left = line.keyOffset < line.length ? line.length - line.keyOffset : 0;
  const std::uint32_t length = line.keyLength != 0 ? line.keyLength : left;
  return {reinterpret_cast<const CharT*>(start), sizeof(CharT) == 1 ? length : length >> 1};
}

}  // namespace WQLineSorter
