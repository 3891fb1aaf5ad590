// Moving line records into a given order.
#include "linesorter/engine/line_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

namespace WQLineSorter {
namespace {

// Returns lines whose keys are their original positions.
std::vector<SortLine> NumberedLines(std::size_t count) {
  std::vector<SortLine> lines(count);
  for (std::size_t i = 0; i < count; ++i) lines[i].numericKey = static_cast<std::int64_t>(i);
  return lines;
}

LineOrder RandomOrder(std::size_t count, std::mt19937& random) {
  LineOrder order(count);
  std::iota(order.begin(), order.end(), 0U);
  std::ranges::shuffle(order, random);
  return order;
}

TEST(LineOrderTest, EachPlaceGetsTheLineThatTheOrderNames) {
  std::mt19937 random(4);
  for (const std::size_t count : {0u, 1u, 2u, 3u, 100u, 8191u, 8192u, 8193u, 16384u, 30000u}) {
    const LineOrder order = RandomOrder(count, random);
    std::vector<SortLine> lines = NumberedLines(count);
    ApplyOrder(lines, order);
    for (std::size_t i = 0; i < count; ++i) ASSERT_EQ(lines[i].numericKey, order[i]) << count << " " << i;
  }
}

TEST(LineOrderTest, TheFirstStepBringsEachLineIntoItsPartWithItsPlace) {
  std::mt19937 random(5);
  constexpr unsigned kBits = 3;
  for (const std::size_t count : {0u, 1u, 7u, 8u, 9u, 15u, 16u, 17u, 100u, 1001u}) {
    const LineOrder places = RandomOrder(count, random);
    std::vector<SortLine> lines = NumberedLines(count);
    LineOrder moved = places;
    MoveToParts(lines, moved, kBits);
    for (std::size_t i = 0; i < count; ++i) {
      ASSERT_EQ(moved[i] / 8, i / 8) << count << " " << i;
      ASSERT_EQ(moved[i], places[static_cast<std::size_t>(lines[i].numericKey)]) << count << " " << i;
    }
  }
}

TEST(LineOrderTest, TheFirstStepLeavesALineThatIsInItsPart) {
  LineOrder places(40);
  std::iota(places.begin(), places.end(), 0U);
  std::ranges::reverse(places.begin() + 8, places.begin() + 16);
  std::vector<SortLine> lines = NumberedLines(40);
  const LineOrder before = places;
  MoveToParts(lines, places, 3);
  EXPECT_EQ(places, before);
  for (std::size_t i = 0; i < 40; ++i) EXPECT_EQ(lines[i].numericKey, static_cast<std::int64_t>(i));
}

}  // namespace
}  // namespace WQLineSorter
