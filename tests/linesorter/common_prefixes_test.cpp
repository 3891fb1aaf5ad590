// The parts into which common prefixes divide the range of numbers.
#include "linesorter/engine/common_prefixes.h"

#include <gtest/gtest.h>

#include <set>

namespace WQLineSorter {
namespace {

constexpr std::uint64_t DigitNumber(std::uint64_t digit, std::uint64_t rest) { return digit << 56 | rest; }

constexpr std::uint64_t kCommons[] = {DigitNumber(0x00, 7),   DigitNumber(0x61, 5), DigitNumber(0x61, 6),
                                      DigitNumber(0x61, 9),   DigitNumber(0x62, 5), DigitNumber(0xFE, 1),
                                      DigitNumber(0xFF, 1000)};

NumberParts PartsOfCommons() {
  std::vector<CommonPrefix> commons;
  for (const std::uint64_t number : kCommons) commons.push_back({number, {}, 0});
  return NumberParts(commons);
}

TEST(NumberPartsTest, WithoutCommonPrefixesEachHighestDigitHasAPart) {
  const NumberParts parts({});
  EXPECT_EQ(parts.Count(), 256u);
  for (std::uint64_t digit = 0; digit < 256; ++digit) {
    EXPECT_EQ(parts.PartOf(DigitNumber(digit, 0)), digit);
    EXPECT_EQ(parts.PartOf(DigitNumber(digit, 0xFFFFFFFFFFFFFF)), digit);
    EXPECT_EQ(parts.CommonOf(digit), NumberParts::kNone);
  }
}

TEST(NumberPartsTest, ACommonPrefixHasAPartOfItsOwn) {
  const NumberParts parts = PartsOfCommons();
  std::set<std::size_t> used;
  for (std::size_t i = 0; i < std::size(kCommons); ++i) {
    const std::size_t part = parts.PartOf(kCommons[i]);
    ASSERT_LT(part, parts.Count());
    EXPECT_EQ(parts.CommonOf(part), i);
    EXPECT_TRUE(used.insert(part).second);
  }
  std::size_t others = 0;
  for (std::size_t part = 0; part < parts.Count(); ++part) {
    others += parts.CommonOf(part) == NumberParts::kNone ? 1 : 0;
  }
  EXPECT_EQ(others, parts.Count() - std::size(kCommons));
}

// Each beginning adds two parts: its own, and one for the numbers between it and the next.
TEST(NumberPartsTest, NoPartIsMissingAndNoneTooMany) {
  EXPECT_EQ(PartsOfCommons().Count(), 256 + 2 * std::size(kCommons));
}

TEST(NumberPartsTest, PartsFollowTheOrderOfTheNumbers) {
  const NumberParts parts = PartsOfCommons();
  std::size_t last = 0;
  for (std::uint64_t digit = 0; digit < 256; ++digit) {
    for (const unsigned rest : {0u, 1u, 2u, 4u, 5u, 6u, 7u, 8u, 9u, 10u, 999u, 1000u, 1001u}) {
      const std::size_t part = parts.PartOf(DigitNumber(digit, rest));
      ASSERT_LT(part, parts.Count());
      EXPECT_GE(part, last) << digit << " " << rest;
      last = part;
    }
  }
}

TEST(NumberPartsTest, NumbersBetweenPrefixesHavePartsOfTheirOwn) {
  const NumberParts parts = PartsOfCommons();
  for (std::uint64_t digit = 0; digit < 256; ++digit) {
    for (const unsigned rest : {0u, 1u, 4u, 5u, 6u, 7u, 8u, 9u, 10u, 999u, 1000u, 1001u}) {
      const std::uint64_t number = DigitNumber(digit, rest);
      const bool isCommon = std::ranges::find(kCommons, number) != std::end(kCommons);
      EXPECT_EQ(parts.CommonOf(parts.PartOf(number)) != NumberParts::kNone, isCommon) << digit << " " << rest;
    }
  }
  EXPECT_NE(parts.PartOf(DigitNumber(0x61, 4)), parts.PartOf(DigitNumber(0x61, 7)));
  EXPECT_NE(parts.PartOf(DigitNumber(0x61, 7)), parts.PartOf(DigitNumber(0x61, 10)));
  EXPECT_NE(parts.PartOf(DigitNumber(0x61, 10)), parts.PartOf(DigitNumber(0x62, 0)));
  EXPECT_EQ(parts.PartOf(DigitNumber(0x61, 7)), parts.PartOf(DigitNumber(0x61, 8)));
}

}  // namespace
}  // namespace WQLineSorter
