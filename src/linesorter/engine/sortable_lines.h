// A text file while it is sorted: its bytes in blocks, and small records that point into them. Sorting moves
// the records; the text never moves.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "data/line_ending.h"
#include "data/line_reader.h"

namespace WQLineSorter {

using WQDR::kBlockGuard;
using WQDR::LineEnding;
using WQDR::TextBlock;

// One line. Lengths are in bytes and keys in characters, which are bytes on the byte path and 16-bit units on
// the 16-bit path.
struct SortLine {
  const char* text;         // first byte of the line, in a block; its ending is at text + length
  std::uint32_t length;     // bytes, without the ending
  std::uint8_t endingSize;  // bytes of the ending: 0, 1, 2 or 4
  LineEnding endingKind;
  std::uint32_t keyOffset;  // where the key starts, in characters from text; may be past the line's end
  std::uint32_t keyLength;  // characters; 0: to the end of the line
  std::int64_t numericKey;  // the number or time that the line sorts by
};

// Bytes of a block, on both paths. A line never spans two blocks, so a longer line than that cannot be
// loaded.
constexpr std::uint32_t kBlockSize = 32768;

struct SortableLinesData {
  std::vector<TextBlock> blocks;
  std::vector<SortLine> lines;
  std::uint32_t unused = 0;
};

}  // namespace WQLineSorter
