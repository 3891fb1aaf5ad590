// What the 16-bit units count as where case is ignored.
#include "linesorter/engine/unit_folding.h"

#include <gtest/gtest.h>

#include "platform/text.h"

namespace WQLineSorter {
namespace {

// Both systems order units without regard to case as their upper case: the fast way of the sort is open.
TEST(UnitFoldingTest, EachUnitCountsAsItsUpperCase) {
  const std::uint16_t* const folded = UnitFolding();
  ASSERT_NE(folded, nullptr);
  EXPECT_EQ(folded[u'a'], 'A');
  EXPECT_EQ(folded[u'A'], 'A');
  EXPECT_EQ(folded[u'1'], '1');
  EXPECT_EQ(folded[0x00E9], 0x00C9);
  EXPECT_EQ(folded[0x0451], 0x0401);
  EXPECT_EQ(folded[0xFF41], 0xFF21);
  EXPECT_EQ(folded[0], 0);
  EXPECT_EQ(folded[0xFFFF], 0xFFFF);
}

}  // namespace
}  // namespace WQLineSorter
