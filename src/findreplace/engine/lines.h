// The lines of a find or replace text.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "data/data_reader.h"
#include "data/line_ending.h"
#include "data/line_reader.h"

namespace QXFindAndReplace {

using WQDR::LineEnding;

// One line. Its text is not zero-terminated: it is followed by its ending, and the last line by zeros.
struct LineItem {
  const char* text;      // in a block of the Lines
  std::uint32_t length;  // in bytes
  LineEnding ending;
  std::uint8_t endingSize;  // in bytes
};

// The text is split like a document: a line end at the end of the text does not begin another line, an empty
// text has no lines, and a lone CR separates lines.
class Lines {
 public:
  // Throws the exceptions of the reader, and std::bad_alloc for a line that does not fit into a block. CharT
  // is char or WCHAR.
  template <typename CharT>
  static std::shared_ptr<Lines> Load(WQDR::DataReader& reader);

  std::vector<WQDR::TextBlock> blocks;
  std::vector<LineItem> items;
};

// Return the text of an item and its length in characters.
template <typename CharT>
const CharT* TextOf(const LineItem& item) {
  return reinterpret_cast<const CharT*>(item.text);
}
template <typename CharT>
std::uint32_t LengthOf(const LineItem& item) {
  return item.length / static_cast<std::uint32_t>(sizeof(CharT));
}

}  // namespace QXFindAndReplace
