// Case mapping calls that fail with an error here and crash under Wine.

#include <gtest/gtest.h>

#include "platform/outcome.h"
#include "platform/text.h"

namespace {

TEST(LCMapStringTest, ATargetWithRoomMustExist) {
  EXPECT_EQ(FailureOf(LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, W("abc"), 3, nullptr, 3)), 87u);
  EXPECT_EQ(FailureOf(LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, W("a"), 1, nullptr, 1)), 87u);
}

}  // namespace
