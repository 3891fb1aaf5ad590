#include "linesorter/engine/line_order.h"

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

namespace WQLineSorter {

namespace {

// Lines are moved in two steps, first into the right part and then to their positions, so that neither step
// accesses more memory at random than the caches can hold. This is the size of a part, as a power of two.
constexpr unsigned kPartBits = 13;

// Moves each line to its destination.
void MoveToPlaces(std::span<SortLine> lines, std::span<std::uint32_t> places) {
  for (std::size_t i = 0; i < lines.size(); ++i) {
    while (places[i] != i) {
      const std::size_t there = places[i];
      std::swap(lines[i], lines[there]);
      std::swap(places[i], places[there]);
    }
  }
}

}  // namespace

void MoveToParts(std::span<SortLine> lines, std::span<std::uint32_t> places, unsigned partBits) {
  std::vector<std::size_t> next;  // for each part, the first position that may hold a line of another part
  for (std::size_t begin{}; begin < lines.size(); begin = next.size() << partBits) next.push_back(begin);
  for (std::size_t part{}; part < next.size(); ++part) {
    const std::size_t end = std::min((part + 1) << partBits, lines.size());
    for (; next[part] < end; ++next[part]) {
      std::size_t here = next[part];
      for (std::size_t own = places[here] >> partBits; own != part; own = places[here] >> partBits) {
        const std::size_t there = next[own]++;
        std::swap(lines[here], lines[there]);
        std::swap(places[here], places[there]);
      }
    }
  }
}

void ApplyOrder(std::span<SortLine> lines, std::span<const std::uint32_t> order) {
  std::vector<std::uint32_t> places(order.size());
  for (std::size_t i = 0; i < order.size(); ++i) places[order[i]] = static_cast<std::uint32_t>(i);
  MoveToParts(lines, places, kPartBits);
  MoveToPlaces(lines, places);
}

}  // namespace WQLineSorter
