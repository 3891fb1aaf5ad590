// A find or replace text, split into its lines.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "data/data_reader.h"
#include "data/line_ending.h"
#include "data/line_reader.h"

namespace QXFindAndReplace {

using WQDR::LineEnding;

// One line. The text is not terminated: its ending comes after it, and zeros after the last one.
struct LineItem {
  const char* text;      // in a block of the Lines
  std::uint32_t length;  // bytes, without the ending
  LineEnding ending;
  std::uint8_t endingSize;  // bytes
};

// Split like the lines of a document: a line end at the end of the text begins no further line, an empty text
// has no lines, a lone CR separates lines.
class Lines {
 public:
  // CharT is char or WCHAR. Throws what the reader throws, and std::bad_alloc for a line that fills a block
  // and is longer.
  template <typename CharT>
  static std::shared_ptr<Lines> Load(WQDR::DataReader& reader);

  std::vector<WQDR::TextBlock> blocks;
  std::vector<LineItem> items;
};

// The text of an item in characters.
template <typename CharT>
const CharT* TextOf(const LineItem& item) {
  return reinterpret_cast<const CharT*>(item.text);
}
template <typename CharT>
std::uint32_t LengthOf(const LineItem& item) {
  return item.length / static_cast<std::uint32_t>(sizeof(CharT));
}

}  // namespace QXFindAndReplace
