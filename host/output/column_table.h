// Rows of columns as a table that lines up.
//
// Rows come in blocks, and each block is as wide as its widest cells and those before it: a table of any
// length is shown as it comes, without being kept.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/text.h"

namespace QxHost {

struct ColumnHead {
  WString name;
  WString heading;
  bool isNumber = false;  // stands at the right
};

struct ColumnRow {
  WString item;                               // full path
  std::vector<std::optional<WString>> cells;  // one for each column; nothing for no value
};

class ColumnTable {
 public:
  using Line = std::function<void(const std::string&)>;

  // The first block has the headings above it. The item stands last.
  void Write(const std::vector<ColumnHead>& heads, const std::vector<ColumnRow>& rows, const Line& line);

 private:
  std::vector<std::size_t> widths_;  // of the columns, in characters
};

// The number of characters of a text in UTF-8.
std::size_t CharactersOf(std::string_view text);

}  // namespace QxHost
