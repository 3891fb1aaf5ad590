// If memory runs out, the sort is slower but gives the same order.
#include <gtest/gtest.h>

#include "linesorter/engine/line_sort.h"
#include "linesorter/engine/sort_keys.h"
#include "linesorter/line_records.h"
#include "support/memory_limit.h"

using namespace WQLineSorter;

namespace {

// More than a sort needs.
constexpr int kManyAllocations = 1000;

// Returns 300 lines of three letters in a mixed order, many of them equal.
std::vector<std::string> MixedLines() {
  std::vector<std::string> texts;
  for (unsigned i = 0; i < 300; ++i) {
    const unsigned mixed = i * 7919 % 101;
    texts.push_back({static_cast<char>('a' + mixed % 3), static_cast<char>('a' + mixed / 3 % 3),
                     static_cast<char>('a' + mixed / 9 % 3)});
  }
  return texts;
}

// Returns the expected order, found by searching for each combination of three letters in turn.
template <typename CharT>
std::vector<const char*> ExpectedOrder(const std::vector<SortLine>& lines) {
  const std::vector<std::string> texts = TextsOf<CharT>(lines);
  std::vector<const char*> order;
  for (char first = 'a'; first <= 'c'; ++first) {
    for (char second = 'a'; second <= 'c'; ++second) {
      for (char third = 'a'; third <= 'c'; ++third) {
        for (std::size_t i = 0; i < lines.size(); ++i) {
          if (texts[i] == std::string{first, second, third}) order.push_back(lines[i].text);
        }
      }
    }
  }
  return order;
}

// Sorts copies of the lines with one more allocation each time, until the sort gets all that it asks for.
// Calls `check` with the sorted lines and the number of allocations.
template <typename CharT, typename Check>
void SortWithEachLimit(const std::vector<SortLine>& unsorted, const SortLinesOptions& options, Check check) {
  for (int allocations = 0;; ++allocations) {
    ASSERT_LT(allocations, kManyAllocations);
    std::vector<SortLine> lines = unsorted;
    long taken = 0;
    {
      const Memory::Limit limit(allocations);
      const long before = Memory::AllocationCount();
      EXPECT_NO_THROW(SortLineRange<CharT>(lines, {0, lines.size()}, options)) << allocations;
      taken = Memory::AllocationCount() - before;
    }
    check(lines, allocations);
    if (taken <= allocations) break;
  }
}

template <typename CharT>
class LineSortWithoutMemory : public testing::Test {};
TYPED_TEST_SUITE(LineSortWithoutMemory, BothWidths);

}  // namespace

TYPED_TEST(LineSortWithoutMemory, GivesTheSameOrder) {
  for (const std::uint32_t bits : {0u, +SortIgnoreCase}) {
    LineRecords<TypeParam> records = LinesOf<TypeParam>(MixedLines());
    SortLinesOptions options;
    options.options = SortByLine | bits;
    ComputeSortKeys<TypeParam>(records.lines, options);
    const std::vector<const char*> expected = ExpectedOrder<TypeParam>(records.lines);
    ASSERT_EQ(expected.size(), records.lines.size());
    SortWithEachLimit<TypeParam>(records.lines, options,
                                 [&](const std::vector<SortLine>& lines, int allocations) {
                                   std::vector<const char*> order;
                                   for (const SortLine& line : lines) order.push_back(line.text);
                                   EXPECT_EQ(order, expected) << allocations;
                                 });
  }
}

TYPED_TEST(LineSortWithoutMemory, GivesTheSameOrderOfNumbers) {
  LineRecords<TypeParam> records = LinesOf<TypeParam>(MixedLines());
  SortLinesOptions options;
  options.options = SortBySubstring | SortAsNumber;
  for (std::size_t i = 0; i < records.lines.size(); ++i) {
    records.lines[i].numericKey = static_cast<std::int64_t>(i * 7919 % 300) - 150;
  }
  SortWithEachLimit<TypeParam>(
      records.lines, options, [&](const std::vector<SortLine>& lines, int allocations) {
        for (std::size_t i = 0; i < lines.size(); ++i) {
          ASSERT_EQ(lines[i].numericKey, static_cast<std::int64_t>(i) - 150) << allocations;
        }
      });
}
