// A set of row indices, stored as ranges, so that it is small even for many rows.
#pragma once

#include <cstddef>
#include <vector>

namespace QxHost {

struct RowRange {
  std::size_t begin;
  std::size_t end;  // one past the last
  friend bool operator==(const RowRange&, const RowRange&) = default;
};

class RowRanges {
 public:
  RowRanges() = default;
  // The ranges must be in order; see Append.
  RowRanges(std::initializer_list<RowRange> ranges);

  // Appends a range, which must not begin before the end of the last one. Joins adjacent ranges; ignores an
  // empty one.
  void Append(RowRange range);

  // Returns the ranges in order. There is at least one row between two ranges.
  const std::vector<RowRange>& All() const { return ranges_; }

  bool IsEmpty() const { return ranges_.empty(); }
  std::size_t Count() const;
  bool Contains(std::size_t row) const;
  // Returns how many rows of the set are before `row`.
  std::size_t CountBefore(std::size_t row) const;

  // Returns the rows of this set that are not in the other.
  RowRanges Without(const RowRanges& other) const;

  friend bool operator==(const RowRanges&, const RowRanges&) = default;

 private:
  std::vector<RowRange> ranges_;
};

}  // namespace QxHost
