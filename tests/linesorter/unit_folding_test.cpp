// How 16-bit units are folded when case is ignored.
#include "linesorter/engine/unit_folding.h"

#include <gtest/gtest.h>

#include "platform/text.h"

namespace WQLineSorter {
namespace {

// Both systems compare units by their upper case when case is ignored, which allows the fast path of the
// sort.
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
