// A stable sort by a comparison that may not keep its word.
#pragma once

#include <algorithm>
#include <iterator>
#include <utility>

namespace WQLineSorter {

// As std::stable_sort, for comparisons that the system makes: one that fails once and then works again
// answers the same question in two ways, and std::stable_sort, which relies on its answers to stop, would run
// out of the range. Here every step is bounded. Any order is right then; with answers that agree it is the
// same order.
template <typename Iterator, typename Less>
void GuardedStableSort(Iterator first, Iterator last, Less& less) {
  constexpr auto kFew = 12;
  if (last - first > kFew) {
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
