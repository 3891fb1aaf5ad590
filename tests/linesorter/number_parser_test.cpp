// Parsing decimal numbers, in both character widths and both number sizes.
#include "linesorter/engine/number_parser.h"

#include <gtest/gtest.h>

#include "linesorter/widths.h"

using namespace WQLineSorter;

namespace {

template <typename Number>
struct Parsed {
  Number value;
  std::ptrdiff_t consumed;
  bool operator==(const Parsed&) const = default;
  friend void PrintTo(const Parsed& parsed, std::ostream* out) {
    *out << parsed.value << " after " << parsed.consumed;
  }
};

template <typename Number, typename CharT>
Parsed<Number> Parse(std::string_view text) {
  const Exact<CharT> copy(In<CharT>(text) + CharT());
  const CharT* end = nullptr;
  const Number value = ParseNumber<Number>(copy.Begin(), &end);
  return {value, end - copy.Begin()};
}

using P32 = Parsed<std::int32_t>;
using P64 = Parsed<std::int64_t>;

template <typename CharT>
class NumberParser : public testing::Test {
 protected:
  static P64 Parse64(std::string_view text) { return Parse<std::int64_t, CharT>(text); }
  static P32 Parse32(std::string_view text) { return Parse<std::int32_t, CharT>(text); }
};
TYPED_TEST_SUITE(NumberParser, BothWidths);

}  // namespace

TYPED_TEST(NumberParser, TakesDigitsUpToTheFirstOtherCharacter) {
  EXPECT_EQ(this->Parse64("0"), (P64{0, 1}));
  EXPECT_EQ(this->Parse64("7"), (P64{7, 1}));
  EXPECT_EQ(this->Parse64("0123456789"), (P64{123456789, 10}));
  EXPECT_EQ(this->Parse64("12abc"), (P64{12, 2}));
  EXPECT_EQ(this->Parse64("12/3"), (P64{12, 2}));
  EXPECT_EQ(this->Parse64("12:3"), (P64{12, 2}));
  EXPECT_EQ(this->Parse64("12 3"), (P64{12, 2}));
  EXPECT_EQ(this->Parse64("1,000"), (P64{1, 1}));
  EXPECT_EQ(this->Parse64("1.5"), (P64{1, 1}));
  EXPECT_EQ(this->Parse64("0x1F"), (P64{0, 1}));
  EXPECT_EQ(this->Parse32("12abc"), (P32{12, 2}));
}

TYPED_TEST(NumberParser, TakesOneSign) {
  EXPECT_EQ(this->Parse64("-3"), (P64{-3, 2}));
  EXPECT_EQ(this->Parse64("+3"), (P64{3, 2}));
  EXPECT_EQ(this->Parse64("-0"), (P64{0, 2}));
  EXPECT_EQ(this->Parse64("3-4"), (P64{3, 1}));
  EXPECT_EQ(this->Parse32("-11"), (P32{-11, 3}));
  EXPECT_EQ(this->Parse32("+11"), (P32{11, 3}));
}

TYPED_TEST(NumberParser, SkipsWhiteSpaceInFrontOfTheSign) {
  EXPECT_EQ(this->Parse64(" \t\n\v\f\r42"), (P64{42, 8}));
  EXPECT_EQ(this->Parse64("  -42 "), (P64{-42, 5}));
  EXPECT_EQ(this->Parse32("\r\n+42x"), (P32{42, 5}));
}

TYPED_TEST(NumberParser, WithoutADigitIsZeroAndConsumesNothing) {
  for (const std::string_view text :
       {"", " ", "  \t\r\n", "x", "x1", "-", "+", " -", "- 5", "+ 5", "--5", "+-5", "-x", ".5", "$5"}) {
    EXPECT_EQ(this->Parse64(text), (P64{0, 0})) << text;
    EXPECT_EQ(this->Parse32(text), (P32{0, 0})) << text;
  }
}

TYPED_TEST(NumberParser, EndsAtAZeroCharacter) {
  EXPECT_EQ(this->Parse64(std::string_view("12\0"
                                           "34",
                                           5)),
            (P64{12, 2}));
  EXPECT_EQ(this->Parse64(std::string_view("\0"
                                           "34",
                                           3)),
            (P64{0, 0}));
  EXPECT_EQ(this->Parse64(std::string_view(" \0"
                                           "34",
                                           4)),
            (P64{0, 0}));
  EXPECT_EQ(this->Parse64(std::string_view("-\0"
                                           "34",
                                           4)),
            (P64{0, 0}));
}

TYPED_TEST(NumberParser, ReadsUpToTheLimitsOf64Bits) {
  EXPECT_EQ(this->Parse64("9223372036854775806"), (P64{9223372036854775806, 19}));
  EXPECT_EQ(this->Parse64("9223372036854775807"), (P64{INT64_MAX, 19}));
  EXPECT_EQ(this->Parse64("-9223372036854775807"), (P64{-9223372036854775807, 20}));
  EXPECT_EQ(this->Parse64("-9223372036854775808"), (P64{INT64_MIN, 20}));
}

TYPED_TEST(NumberParser, IsCutAtTheLimitsOf64BitsAndTakesAllDigits) {
  EXPECT_EQ(this->Parse64("9223372036854775808"), (P64{INT64_MAX, 19}));
  EXPECT_EQ(this->Parse64("9223372036854775810x"), (P64{INT64_MAX, 19}));
  EXPECT_EQ(this->Parse64("18446744073709551616"), (P64{INT64_MAX, 20}));
  EXPECT_EQ(this->Parse64("18446744073709551617"), (P64{INT64_MAX, 20}));
  EXPECT_EQ(this->Parse64("99999999999999999999999999"), (P64{INT64_MAX, 26}));
  EXPECT_EQ(this->Parse64("-9223372036854775809"), (P64{INT64_MIN, 20}));
  EXPECT_EQ(this->Parse64("-18446744073709551617"), (P64{INT64_MIN, 21}));
  EXPECT_EQ(this->Parse64("-99999999999999999999999999 "), (P64{INT64_MIN, 27}));
  EXPECT_EQ(this->Parse64(std::string(1000, '9')), (P64{INT64_MAX, 1000}));
}

TYPED_TEST(NumberParser, LeadingZerosAreDigitsLikeOthers) {
  EXPECT_EQ(this->Parse64(std::string(500, '0') + "8"), (P64{8, 501}));
  EXPECT_EQ(this->Parse32(std::string(500, '0') + "2147483647"), (P32{2147483647, 510}));
}

TYPED_TEST(NumberParser, ReadsUpToTheLimitsOf32Bits) {
  EXPECT_EQ(this->Parse32("2147483646"), (P32{2147483646, 10}));
  EXPECT_EQ(this->Parse32("2147483647"), (P32{INT32_MAX, 10}));
  EXPECT_EQ(this->Parse32("-2147483647"), (P32{-2147483647, 11}));
  EXPECT_EQ(this->Parse32("-2147483648"), (P32{INT32_MIN, 11}));
}

TYPED_TEST(NumberParser, IsCutAtTheLimitsOf32BitsAndTakesAllDigits) {
  EXPECT_EQ(this->Parse32("2147483648"), (P32{INT32_MAX, 10}));
  EXPECT_EQ(this->Parse32("4294967297"), (P32{INT32_MAX, 10}));
  EXPECT_EQ(this->Parse32("99999999999999999999x"), (P32{INT32_MAX, 20}));
  EXPECT_EQ(this->Parse32("-2147483649"), (P32{INT32_MIN, 11}));
  EXPECT_EQ(this->Parse32("-4294967297"), (P32{INT32_MIN, 11}));
  EXPECT_EQ(this->Parse32("-99999999999999999999"), (P32{INT32_MIN, 21}));
}

TYPED_TEST(NumberParser, SixAsciiCharactersAreWhiteSpace) {
  for (unsigned code = 0; code < 0x80; ++code) {
    const bool expected = code == 0x20 || (code >= 0x09 && code <= 0x0D);
    EXPECT_EQ(IsSpace(static_cast<TypeParam>(code)), expected) << code;
  }
}

TEST(NumberParserBytes, NoByteAboveAsciiIsWhiteSpace) {
  for (unsigned code = 0x80; code < 0x100; ++code) EXPECT_FALSE(IsSpace(static_cast<char>(code))) << code;
}

TEST(NumberParserUnits, TheWideBlanksOfWindowsAreWhiteSpace) {
  for (const WCHAR unit : {W('\u0085'), W('\u00A0'), W('\u1680'), W('\u2028'), W('\u2029'), W('\u202F'),
                           W('\u205F'), W('\u3000')}) {
    EXPECT_TRUE(IsSpace(unit)) << static_cast<unsigned>(unit);
  }
  for (WCHAR unit = W('\u2000'); unit <= W('\u200A'); ++unit) {
    EXPECT_TRUE(IsSpace(unit)) << static_cast<unsigned>(unit);
  }
  for (const unsigned unit : {0x00E9u, 0x0120u, 0x2010u, 0x2022u, 0x3001u, 0x2020u, 0x0920u, 0xFF20u}) {
    EXPECT_FALSE(IsSpace(static_cast<WCHAR>(unit))) << unit;
  }
}

TEST(NumberParserUnits, TheHighByteOfAUnitCounts) {
  // The low bytes of 0x0131 and 0x012D are "1" and "-".
  const WCHAR text[] = {0x31, 0x0131, 0};
  const WCHAR* end = nullptr;
  EXPECT_EQ(ParseNumber<std::int64_t>(text, &end), 1);
  EXPECT_EQ(end, text + 1);
  const WCHAR sign[] = {0x012D, 0x31, 0};
  EXPECT_EQ(ParseNumber<std::int64_t>(sign, &end), 0);
  EXPECT_EQ(end, sign);
}
