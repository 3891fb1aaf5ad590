// Rows of a list by their places, kept as ranges: small, however many rows they are.
#pragma once

#include <cstddef>
#include <vector>

namespace QxHost {

struct RowRange {
  std::size_t begin;
  std::size_t end;  // one after the last
  friend bool operator==(const RowRange&, const RowRange&) = default;
};

class RowRanges {
 public:
  RowRanges() = default;
  // In order; see Append.
  RowRanges(std::initializer_list<RowRange> ranges);

  // Adds rows after all others. Ranges that touch become one; an empty one adds nothing.
  void Append(RowRange range);

  // From the first on, with rows between them that are not in any.
  const std::vector<RowRange>& All() const { return ranges_; }

  bool IsEmpty() const { return ranges_.empty(); }
  std::size_t Count() const;
  bool Contains(std::size_t row) const;
  // How many of the rows before this one.
  std::size_t CountBefore(std::size_t row) const;

  // The rows of this that are not in the other.
  RowRanges Without(const RowRanges& other) const;

  friend bool operator==(const RowRanges&, const RowRanges&) = default;

 private:
  std::vector<RowRange> ranges_;
};

}  // namespace QxHost
