#include "host/controls/row_order.h"

#include <algorithm>

namespace QxHost {
namespace {

// Returns the index of a row after the row at `from` has moved to `to` and those between have shifted.
std::size_t PlaceAfterShift(std::size_t place, std::size_t from, std::size_t to) {
  if (place == from) return to;
  if (from < to) return place > from && place <= to ? place - 1 : place;
  return place >= to && place < from ? place + 1 : place;
}

}  // namespace

// Frees the memory as well, which clear() would not.
void RowOrder::Clear() { std::vector<void*>().swap(rows_); }

RowRanges RowOrder::Move(RowMove move, const RowRanges& selected, std::size_t& followed) {
  const bool isByOne = move == RowMove::kUp || move == RowMove::kDown;
  const bool isUpward = move == RowMove::kUp || move == RowMove::kTop;
  return isByOne ? MoveByOne(selected, isUpward, followed) : MoveToEnd(selected, isUpward, followed);
}

// A range moves by one if the row before it, or after it, moves to its other end. That row is not selected:
// there is at least one such row between two ranges, and the range on its other side has already moved or
// stays.
RowRanges RowOrder::MoveByOne(const RowRanges& selected, bool up, std::size_t& followed) {
  std::vector<RowRange> ranges = selected.All();
  const auto moveRange = [&](RowRange& range) {
    const auto begin = rows_.begin() + static_cast<std::ptrdiff_t>(range.begin);
    const auto end = rows_.begin() + static_cast<std::ptrdiff_t>(range.end);
    if (up && range.begin > 0) {
      std::rotate(begin - 1, begin, end);
      followed = PlaceAfterShift(followed, range.begin - 1, range.end - 1);
      range = {range.begin - 1, range.end - 1};
    } else if (!up && range.end < rows_.size()) {
      std::rotate(begin, end, end + 1);
      followed = PlaceAfterShift(followed, range.end, range.begin);
      range = {range.begin + 1, range.end + 1};
    }
  };
  if (up) {
    std::for_each(ranges.begin(), ranges.end(), moveRange);
  } else {
    std::for_each(ranges.rbegin(), ranges.rend(), moveRange);
  }
  RowRanges moved;
  for (const RowRange& range : ranges) moved.Append(range);
  return moved;
}

RowRanges RowOrder::MoveToEnd(const RowRanges& selected, bool top, std::size_t& followed) {
  const std::size_t count = selected.Count();
  const std::size_t others = rows_.size() - count;
  std::vector<void*> picked;
  std::vector<void*> rest;
  picked.reserve(count);
  rest.reserve(others);
  std::size_t at = 0;
  for (const RowRange& range : selected.All()) {
    rest.insert(rest.end(), rows_.begin() + static_cast<std::ptrdiff_t>(at),
                rows_.begin() + static_cast<std::ptrdiff_t>(range.begin));
    picked.insert(picked.end(), rows_.begin() + static_cast<std::ptrdiff_t>(range.begin),
                  rows_.begin() + static_cast<std::ptrdiff_t>(range.end));
    at = range.end;
  }
  rest.insert(rest.end(), rows_.begin() + static_cast<std::ptrdiff_t>(at), rows_.end());

  const std::size_t pickedBefore = selected.CountBefore(followed);
  if (selected.Contains(followed)) {
    followed = (top ? 0 : others) + pickedBefore;
  } else {
    followed = (top ? count : 0) + followed - pickedBefore;
  }
  const std::vector<void*>& first = top ? picked : rest;
  const std::vector<void*>& last = top ? rest : picked;
  std::copy(last.begin(), last.end(), std::copy(first.begin(), first.end(), rows_.begin()));
  return top ? RowRanges{{0, count}} : RowRanges{{others, rows_.size()}};
}

}  // namespace QxHost
