#include "linesorter/line_order.h"

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

namespace WQLineSorter {

namespace {

// Lines move in two steps, so that no step jumps about in more memory than the caches hold: first into their
// part of so many places, then to their place.
constexpr unsigned kPartBits = 13;
constexpr std::size_t kPartSize = std::size_t{1} << kPartBits;

// Brings each line into the part of its place. `places` moves along.
void MoveToParts(std::span<SortLine> lines, std::span<std::uint32_t> places) {
  const std::size_t parts = (lines.size() + kPartSize - 1) >> kPartBits;
  std::vector<std::size_t> next(parts);
  for (std::size_t part = 0; part < parts; ++part) next[part] = part << kPartBits;
  for (std::size_t part = 0; part < parts; ++part) {
    const std::size_t end = std::min((part + 1) << kPartBits, lines.size());
    for (; next[part] < end; ++next[part]) {
      std::size_t here = next[part];
      for (std::size_t own = places[here] >> kPartBits; own != part; own = places[here] >> kPartBits) {
        const std::size_t there = next[own]++;
        std::swap(lines[here], lines[there]);
        std::swap(places[here], places[there]);
      }
    }
  }
}

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

void ApplyOrder(std::span<SortLine> lines, std::span<const std::uint32_t> order) {
  std::vector<std::uint32_t> places(order.size());
  for (std::size_t i = 0; i < order.size(); ++i) places[order[i]] = static_cast<std::uint32_t>(i);
  MoveToParts(lines, places);
  MoveToPlaces(lines, places);
}

}  // namespace WQLineSorter
