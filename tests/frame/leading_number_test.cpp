// The number at the beginning of a text.
#include "frame/services/leading_number.h"

#include <gtest/gtest.h>

using Velmora::SDK::LeadingNumber;

namespace {

struct Case {
  const WCHAR* text;
  std::int32_t number;
};

}  // namespace

TEST(LeadingNumber, IsReadUpToWhatIsNoDigit) {
  constexpr Case kCases[] = {{W("4"), 4},     {W("0"), 0},   {W("007"), 7},          {W("12x3"), 12},
                             {W("12 3"), 12}, {W("1.5"), 1}, {W("1,000"), 1},        {W("-5"), -5},
                             {W("+5"), 5},    {W("  8"), 8}, {W("\t\n\r\v\f 9"), 9}, {W(" -3-"), -3}};
  for (const Case& c : kCases) EXPECT_EQ(LeadingNumber(c.text), c.number) << ToUtf8(c.text);
}

TEST(LeadingNumber, IsZeroForATextThatBeginsOtherwise) {
  for (const WCHAR* const text :
       {W(""), W(" "), W("x1"), W("-"), W("+"), W("--1"), W("+-1"), W("- 1"), W("\x0661"),
        W("\x00A0"
          "1")}) {
    EXPECT_EQ(LeadingNumber(text), 0) << ToUtf8(text);
  }
}

TEST(LeadingNumber, BecomesTheLargestOrTheSmallestWhereItDoesNotFit) {
  constexpr Case kCases[] = {{W("2147483647"), 2147483647},
                             {W("2147483648"), 2147483647},
                             {W("4294967296"), 2147483647},
                             {W("99999999999999999999999999999999"), 2147483647},
                             {W("-2147483648"), -2147483647 - 1},
                             {W("-2147483649"), -2147483647 - 1},
                             {W("-99999999999999999999999999999999"), -2147483647 - 1}};
  for (const Case& c : kCases) EXPECT_EQ(LeadingNumber(c.text), c.number) << ToUtf8(c.text);
}

TEST(LeadingNumber, StaysWithinTheText) { EXPECT_EQ(LeadingNumber(WStringView(W("1234"), 2)), 12); }
