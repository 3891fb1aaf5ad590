// Texts of the language table for controls.
#include "multirename/form/dialog_texts.h"

#include <gtest/gtest.h>

namespace Velmora::SDK {

TEST(WithoutAccessKey, DropsSingleAmpersandsAndKeepsDoubledOnes) {
  EXPECT_EQ(WithoutAccessKey(W("")), W(""));
  EXPECT_EQ(WithoutAccessKey(W("Name")), W("Name"));
  EXPECT_EQ(WithoutAccessKey(W("&Name")), W("Name"));
  EXPECT_EQ(WithoutAccessKey(W("Searc&h and Replace")), W("Search and Replace"));
  EXPECT_EQ(WithoutAccessKey(W("&Find && Replace")), W("Find && Replace"));
  EXPECT_EQ(WithoutAccessKey(W("A &&&b")), W("A &&b"));
  EXPECT_EQ(WithoutAccessKey(W("&")), W(""));
  EXPECT_EQ(WithoutAccessKey(W("&&")), W("&&"));
}

}  // namespace Velmora::SDK
