// The rows of a list in display order, and the moves of the selected rows. Used by the lists of both builds.
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
  // Returns the row at an index; null past the last row.
  void* At(std::size_t place) const { return place < rows_.size() ? rows_[place] : nullptr; }

  // Moves the selected rows together, by one place or to an end, and returns their new places. Both the
  // selected and the other rows keep their order among themselves. Rows that are already at the end do not
  // move. `followed` is the index of any row and is set to its new index.
  RowRanges Move(RowMove move, const RowRanges& selected, std::size_t& followed);

 private:
  RowRanges MoveByOne(const RowRanges& selected, bool up, std::size_t& followed);
  RowRanges MoveToEnd(const RowRanges& selected, bool top, std::size_t& followed);

  std::vector<void*> rows_;
};

}  // namespace QxHost
