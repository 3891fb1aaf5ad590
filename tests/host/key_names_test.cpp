#include "host/services/key_names.h"

#include <gtest/gtest.h>

namespace QxHost {
namespace {

TEST(KeyNamesTest, ArrowsAndTheEndsHaveNames) {
  EXPECT_EQ(KeyName(0x26), W("Up"));
  EXPECT_EQ(KeyName(0x28), W("Down"));
  EXPECT_EQ(KeyName(0x24), W("Home"));
  EXPECT_EQ(KeyName(0x23), W("End"));
}

TEST(KeyNamesTest, AKeyHeldWithAltSaysSo) {
  EXPECT_EQ(KeyName(0x26, 16), W("Alt+Up"));
  EXPECT_EQ(KeyName(0x23, 16), W("Alt+End"));
  EXPECT_EQ(KeyName('A', 16), W("Alt+A"));
}

TEST(KeyNamesTest, AKeyWithoutANameHasNoneWithAltEither) {
  EXPECT_EQ(KeyName(0x07), W(""));
  EXPECT_EQ(KeyName(0x07, 16), W(""));
}

TEST(KeyNamesTest, LettersDigitsAndFunctionKeysAreTheirOwnNames) {
  EXPECT_EQ(KeyName('7'), W("7"));
  EXPECT_EQ(KeyName(0x70), W("F1"));
  EXPECT_EQ(KeyName(0x7B), W("F12"));
}

}  // namespace
}  // namespace QxHost
