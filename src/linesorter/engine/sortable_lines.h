// A text file in memory for sorting: its bytes in blocks, and small records that point into the blocks.
// Sorting moves only the records, never the text.
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

// One line. Lengths are in bytes, positions and lengths of keys in characters: bytes on the byte path, 16-bit
// units on the 16-bit path.
struct SortLine {
  const char* text;         // the first byte of the line, in a block; the ending follows at text + length
  std::uint32_t length;     // in bytes, without the ending
  std::uint8_t endingSize;  // in bytes: 0, 1, 2 or 4
  LineEnding endingKind;
  std::uint32_t keyOffset;  // in characters from `text`; may be beyond the end of the line
  std::uint32_t keyLength;  // in characters; 0 if the key extends to the end of the line
  std::int64_t numericKey;  // the number or time to sort by
};

// The size of a block in bytes, on both paths. A line never spans two blocks, so a longer line cannot be
// loaded.
constexpr std::uint32_t kBlockSize = 32768;

struct SortableLinesData {
  std::vector<TextBlock> blocks;
  std::vector<SortLine> lines;
  std::uint32_t reserved = 0;
};

}  // namespace WQLineSorter
