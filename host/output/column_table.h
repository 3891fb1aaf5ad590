// Writes rows as a table with aligned columns.
//
// Rows are written in blocks. The columns of a block are as wide as the widest cells of this block and the
// blocks before it, so that a table of any length can be written while it is produced, without storing it.
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
  bool isNumber = false;  // aligned to the right
};

struct ColumnRow {
  WString item;                               // full path
  std::vector<std::optional<WString>> cells;  // one for each column; std::nullopt for no value
};

class ColumnTable {
 public:
  using Line = std::function<void(const std::string&)>;

  // Writes a block of rows, with the headings before the first block. The item is the last column.
  void Write(const std::vector<ColumnHead>& heads, const std::vector<ColumnRow>& rows, const Line& line);

 private:
  std::vector<std::size_t> widths_;  // the widths of the columns in characters
};

// Returns the number of characters (code points) of a UTF-8 text.
std::size_t CharactersOf(std::string_view text);

}  // namespace QxHost
