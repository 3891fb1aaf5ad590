#include "host/controls/row_ranges.h"

#include <algorithm>

namespace QxHost {

RowRanges::RowRanges(std::initializer_list<RowRange> ranges) {
  for (const RowRange& range : ranges) Append(range);
}

void RowRanges::Append(RowRange range) {
  if (range.begin >= range.end) return;
  if (!ranges_.empty() && ranges_.back().end == range.begin) {
    ranges_.back().end = range.end;
  } else {
    ranges_.push_back(range);
  }
}

std::size_t RowRanges::Count() const {
  std::size_t count = 0;
  for (const RowRange& range : ranges_) count += range.end - range.begin;
  return count;
}

bool RowRanges::Contains(std::size_t row) const {
  const auto next = std::ranges::upper_bound(ranges_, row, {}, &RowRange::begin);
  return next != ranges_.begin() && row < (next - 1)->end;
}

std::size_t RowRanges::CountBefore(std::size_t row) const {
  std::size_t count = 0;
  for (const RowRange& range : ranges_) {
    if (range.begin >= row) break;
    count += std::min(range.end, row) - range.begin;
  }
  return count;
}

RowRanges RowRanges::Without(const RowRanges& other) const {
  RowRanges rest;
  auto taken = other.ranges_.begin();
  for (const RowRange& range : ranges_) {
    std::size_t at = range.begin;
    while (taken != other.ranges_.end() && taken->end <= at) ++taken;
    for (auto next = taken; next != other.ranges_.end() && next->begin < range.end; ++next) {
      rest.Append({at, next->begin});
      at = next->end;
    }
    rest.Append({at, range.end});
  }
  return rest;
}

}  // namespace QxHost
