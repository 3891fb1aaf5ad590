// Numbers as std::stoi reads them.
#include "linesorter/engine/stoi.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "data/thrown.h"

namespace WQLineSorter {
namespace {

TEST(Stoi, ReadsDigitsAfterSpaceAndSignUpToTheNextCharacter) {
  EXPECT_EQ(Stoi(W("0")), 0);
  EXPECT_EQ(Stoi(W("42")), 42);
  EXPECT_EQ(Stoi(W(" \t\r\n+7x8")), 7);
  EXPECT_EQ(Stoi(W("-15")), -15);
  EXPECT_EQ(Stoi(W("007")), 7);
}

TEST(Stoi, GoesToTheEndsOfThirtyTwoBits) {
  EXPECT_EQ(Stoi(W("2147483647")), 2147483647);
  EXPECT_EQ(Stoi(W("-2147483648")), -2147483647 - 1);
}

TEST(Stoi, WithoutADigitTheArgumentIsInvalid) {
  for (const WCHAR* text : {W(""), W(" "), W("-"), W("+ 1"), W("x1"), W("--1")}) {
    EXPECT_EQ(TextThrownBy<std::invalid_argument>([text] { Stoi(text); }), "invalid stoi argument")
        << ToUtf8(text);
  }
}

TEST(Stoi, BeyondThirtyTwoBitsTheArgumentIsOutOfRange) {
  for (const WCHAR* text : {W("2147483648"), W("-2147483649"), W("4294967295"), W("9223372036854775808"),
                            W("99999999999999999999999999"), W("-99999999999999999999999999")}) {
    EXPECT_EQ(TextThrownBy<std::out_of_range>([text] { Stoi(text); }), "stoi argument out of range")
        << ToUtf8(text);
  }
}

}  // namespace
}  // namespace WQLineSorter
