// Formats of log lines: which conversions are replaced, and that everything else is unchanged.
#include "host/output/wide_format.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>

using QxHost::FormatWide;

namespace {

WString Format(const WCHAR* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const WString text = FormatWide(format, arguments);
  va_end(arguments);
  return text;
}

TEST(WideFormat, ATextWithoutConversionsIsCopied) {
  EXPECT_EQ(Format(W("")), W(""));
  EXPECT_EQ(Format(nullptr), W(""));
  EXPECT_EQ(Format(W("[SortLines] - done")), W("[SortLines] - done"));
}

TEST(WideFormat, WideAndNarrowTextsAreFilledIn) {
  EXPECT_EQ(Format(W("file : %s (Saved as : %s)"), W("Z:\\a"), W("b")), W("file : Z:\\a (Saved as : b)"));
  EXPECT_EQ(Format(W("%ls|%S"), W("wide"), "narrow"), W("wide|narrow"));
}

TEST(WideFormat, NarrowTextsAreOfTheAnsiCodePage) { EXPECT_EQ(Format(W("%S"), "\xE4"), W("\u00E4")); }

TEST(WideFormat, AMissingTextIsNamed) {
  EXPECT_EQ(Format(W("%s|%S"), static_cast<WCHAR*>(nullptr), static_cast<char*>(nullptr)),
            W("(null)|(null)"));
}

TEST(WideFormat, WidthPrecisionAndSideOfATextCount) {
  EXPECT_EQ(Format(W("[%5s][%-5s][%.2s][%5.1s]"), W("abc"), W("abc"), W("abc"), W("abc")),
            W("[  abc][abc  ][ab][    a]"));
}

TEST(WideFormat, NothingIsReadBeyondThePrecisionOfAText) {
  const WCHAR unterminated[] = {W('a'), W('b')};
  EXPECT_EQ(Format(W("%.2s"), unterminated), W("ab"));
}

TEST(WideFormat, NumbersAreFilledIn) {
  EXPECT_EQ(Format(W("%d %i %u %x %X"), -5, 7, 4000000000u, 0xBEEF, 0xBEEF), W("-5 7 4000000000 beef BEEF"));
  EXPECT_EQ(Format(W("%d %d %u"), INT_MIN, INT_MAX, UINT_MAX), W("-2147483648 2147483647 4294967295"));
  EXPECT_EQ(Format(W("%d"), 0), W("0"));
}

TEST(WideFormat, FlagsOfNumbersCount) {
  EXPECT_EQ(Format(W("[%+d][% d][%05d][%-5d][%5d][%.3d][%#x][%#X][%#x]"), 5, 5, -42, 42, 42, 7, 255, 255, 0),
            W("[+5][ 5][-0042][42   ][   42][007][0xff][0XFF][0]"));
  EXPECT_EQ(Format(W("[%08.3d][%-05d][%.0d]"), 7, 7, 0), W("[     007][7    ][]"));
}

TEST(WideFormat, LengthsChooseBetween32And64Bits) {
  EXPECT_EQ(Format(W("%ld %lu %lx"), -1, 4294967295u, 0xFFFFFFFFu), W("-1 4294967295 ffffffff"));
  const std::int64_t lowest = INT64_MIN;
  const std::uint64_t highest = UINT64_MAX;
  EXPECT_EQ(Format(W("%lld %I64u %llX"), lowest, highest, highest),
            W("-9223372036854775808 18446744073709551615 FFFFFFFFFFFFFFFF"));
}

TEST(WideFormat, ACharacterAndAPercentSign) {
  EXPECT_EQ(Format(W("%c%%%3c|"), 'x', 0x65E5), W("x%  \u65E5|"));
}

TEST(WideFormat, WhatIsUnknownEndsTheFillingAndIsCopied) {
  EXPECT_EQ(Format(W("%d %n %d"), 1, 2, 3), W("1 %n %d"));
  EXPECT_EQ(Format(W("%p %s"), nullptr, nullptr), W("%p %s"));
  EXPECT_EQ(Format(W("%f"), 1.0), W("%f"));
  EXPECT_EQ(Format(W("%*d"), 5, 5), W("%*d"));
  EXPECT_EQ(Format(W("100%")), W("100%"));
  EXPECT_EQ(Format(W("%5")), W("%5"));
  EXPECT_EQ(Format(W("%.")), W("%."));
  EXPECT_EQ(Format(W("%I6")), W("%I6"));
}

TEST(WideFormat, AnExcessiveWidthIsNotFilled) {
  EXPECT_EQ(Format(W("%999999999999d"), 1), W("%999999999999d"));
  EXPECT_EQ(Format(W("%.99999999999999999999s"), W("a")), W("%.99999999999999999999s"));
  EXPECT_EQ(Format(W("%1024d"), 1).size(), 1024u);
  EXPECT_EQ(Format(W("%1025d"), 1), W("%1025d"));
}

}  // namespace
