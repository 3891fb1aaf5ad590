#include "linesorter/engine/line_order.h"

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

namespace WQLineSorter {

namespace {

// Lines move in two steps, so that no step jumps about in more memory than the caches hold: first into their
// part of so many places, then to their place.
constexpr unsigned kPartBits = 13;

// Brings each line to its place.
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
  std::vector<std::size_t> next;  // the first place of each part that may hold a line of another
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
