#include "host/controls/row_ranges.h"

#include <gmock/gmock.h>

#include <random>
#include <set>

using testing::ElementsAre;
using testing::IsEmpty;

namespace QxHost {
namespace {

RowRanges RangesOfRows(const std::set<std::size_t>& rows) {
  RowRanges ranges;
  for (const std::size_t row : rows) ranges.Append({row, row + 1});
  return ranges;
}

std::set<std::size_t> RowsOfRanges(const RowRanges& ranges) {
  std::set<std::size_t> rows;
  for (const RowRange& range : ranges.All()) {
    for (std::size_t row = range.begin; row < range.end; ++row) rows.insert(row);
  }
  return rows;
}

TEST(RowRangesTest, RangesThatTouchBecomeOneAndEmptyOnesAreNone) {
  const RowRanges ranges{{0, 0}, {1, 2}, {2, 4}, {4, 4}, {6, 7}};
  EXPECT_THAT(ranges.All(), ElementsAre(RowRange{1, 4}, RowRange{6, 7}));
  EXPECT_EQ(ranges.Count(), 4u);
}

TEST(RowRangesTest, WithoutRowsThereIsNothing) {
  const RowRanges ranges;
  EXPECT_TRUE(ranges.IsEmpty());
  EXPECT_EQ(ranges.Count(), 0u);
  EXPECT_FALSE(ranges.Contains(0));
  EXPECT_EQ(ranges.CountBefore(5), 0u);
  EXPECT_THAT(ranges.Without({{1, 9}}).All(), IsEmpty());
}

TEST(RowRangesTest, AMillionRowsInOneRangeAreOneRange) {
  const RowRanges ranges{{0, 1000000}};
  EXPECT_EQ(ranges.Count(), 1000000u);
  EXPECT_TRUE(ranges.Contains(999999));
  EXPECT_FALSE(ranges.Contains(1000000));
  EXPECT_THAT(ranges.Without({{500, 501}}).All(), ElementsAre(RowRange{0, 500}, RowRange{501, 1000000}));
}

TEST(RowRangesTest, AgreesWithASetOfRowsWhateverTheRows) {
  std::mt19937 random(7);
  for (int round = 0; round < 3000; ++round) {
    std::set<std::size_t> rows[2];
    for (std::set<std::size_t>& some : rows) {
      const unsigned density = random() % 5;
      for (std::size_t row = 0; row < 24; ++row) {
        if (random() % 5 <= density) some.insert(row);
      }
    }
    const RowRanges ranges = RangesOfRows(rows[0]);
    std::set<std::size_t> rest = rows[0];
    for (const std::size_t row : rows[1]) rest.erase(row);
    ASSERT_EQ(RowsOfRanges(ranges.Without(RangesOfRows(rows[1]))), rest) << "round " << round;
    ASSERT_EQ(ranges.Count(), rows[0].size());
    for (std::size_t row = 0; row < 26; ++row) {
      ASSERT_EQ(ranges.Contains(row), rows[0].contains(row)) << "round " << round << ", row " << row;
      const auto before = std::distance(rows[0].begin(), rows[0].lower_bound(row));
      ASSERT_EQ(ranges.CountBefore(row), static_cast<std::size_t>(before));
    }
    for (std::size_t at = 1; at < ranges.All().size(); ++at) {
      ASSERT_LT(ranges.All()[at - 1].end, ranges.All()[at].begin);
    }
  }
}

}  // namespace
}  // namespace QxHost
