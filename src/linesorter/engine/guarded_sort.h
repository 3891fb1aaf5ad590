// A stable sort that tolerates an inconsistent comparison.
#pragma once

#include <algorithm>
#include <iterator>
#include <utility>

namespace WQLineSorter {

// Like std::stable_sort, for comparisons made by the system. If such a comparison fails once and then works
// again, it contradicts itself, and std::stable_sort could run past the end of the range. Here the number of
// steps is bounded: with an inconsistent comparison the order is unspecified, with a strict weak order it is
// the same as that of std::stable_sort.
template <typename Iterator, typename Less>
void GuardedStableSort(Iterator first, Iterator last, Less& less) {
  constexpr auto kMaxInsertionSort = 12;
  if (last - first > kMaxInsertionSort) {
    const Iterator middle = first + (last - first) / 2;
    GuardedStableSort(first, middle, less);
    GuardedStableSort(middle, last, less);
    std::inplace_merge(first, middle, last, less);
    return;
  }
  for (Iterator sorted = first; sorted != last; ++sorted) {
    auto value = std::move(*sorted);
    Iterator place = sorted;
    for (; place != first && less(value, *std::prev(place)); --place) *place = std::move(*std::prev(place));
    *place = std::move(value);
  }
}

}  // namespace WQLineSorter
