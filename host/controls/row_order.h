// The rows of a list in the order of the screen, and the moves of the selected ones. Both builds of the list
// use it.
#pragma once

#include "host/controls/row_ranges.h"

namespace QxHost {

enum class RowMove { kUp, kDown, kTop, kBottom };

class RowOrder {
 public:
  void Add(void* row) { rows_.push_back(row); }
  void Clear();

  std::size_t Count() const { return rows_.size(); }
  const std::vector<void*>& Rows() const { return rows_; }
  // Null beyond the last.
  void* At(std::size_t place) const { return place < rows_.size() ? rows_[place] : nullptr; }

  // Moves the selected rows at once, by one place or to an end, and returns their new places. They keep their
  // order among themselves, and so do the others. A row that is at the end already, or follows such rows
  // without a gap, stays. `followed` is the place of a row, selected or not, and becomes its new one.
  RowRanges Move(RowMove move, const RowRanges& selected, std::size_t& followed);

 private:
  RowRanges MoveByOne(const RowRanges& selected, bool up, std::size_t& followed);
  RowRanges MoveToEnd(const RowRanges& selected, bool top, std::size_t& followed);

  std::vector<void*> rows_;
};

}  // namespace QxHost
