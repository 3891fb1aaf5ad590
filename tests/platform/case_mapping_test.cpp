// LCMapStringW: upper and lower case of the invariant locale, character by character.

#include <gtest/gtest.h>

#include "platform/outcome.h"
#include "platform/text.h"

namespace {

WCHAR Map(WCHAR unit, DWORD flags) {
  WCHAR mapped = 0;
  EXPECT_EQ(LCMapStringW(LOCALE_INVARIANT, flags, &unit, 1, &mapped, 1), 1);
  return mapped;
}

struct CaseRow {
  WCHAR unit;
  WCHAR upper;
  WCHAR lower;
};

constexpr CaseRow kPairs[] = {
    {u'a', u'A', u'a'},       {u'Z', u'Z', u'z'},       {u'1', u'1', u'1'},
    {0x00E9, 0x00C9, 0x00E9},  // e with acute
    {0x00FF, 0x0178, 0x00FF},  // y with diaeresis, whose upper case is outside Latin-1
    {0x0178, 0x0178, 0x00FF}, {0x00DF, 0x00DF, 0x00DF},  // sharp s
    {0x0105, 0x0104, 0x0105}, {0x0149, 0x0149, 0x0149},  // n with apostrophe
    {0x01C4, 0x01C4, 0x01C6}, {0x01C6, 0x01C4, 0x01C6},  // the digraph dz with caron
    {0x01F0, 0x01F0, 0x01F0},                            // j with caron
    {0x03B1, 0x0391, 0x03B1}, {0x03C3, 0x03A3, 0x03C3}, {0x0390, 0x0390, 0x0390},
    {0x03AC, 0x0386, 0x03AC}, {0x0436, 0x0416, 0x0436}, {0x0451, 0x0401, 0x0451},
    {0x0561, 0x0531, 0x0561}, {0x0587, 0x0587, 0x0587},  // Armenian ligature
    {0x10A0, 0x10A0, 0x2D00}, {0x2D00, 0x10A0, 0x2D00}, {0x10D0, 0x1C90, 0x10D0},
    {0x13A0, 0x13A0, 0xAB70}, {0xAB70, 0x13A0, 0xAB70}, {0x1E01, 0x1E00, 0x1E01},
    {0x1F80, 0x1F88, 0x1F80}, {0x1F88, 0x1F88, 0x1F80}, {0x1FB3, 0x1FBC, 0x1FB3},
    {0x2170, 0x2160, 0x2170}, {0x24D0, 0x24B6, 0x24D0}, {0x2C61, 0x2C60, 0x2C61},
    {0xA641, 0xA640, 0xA641}, {0xFF41, 0xFF21, 0xFF41}, {0xFB00, 0xFB00, 0xFB00},
    {0x4E2D, 0x4E2D, 0x4E2D}, {0x0000, 0x0000, 0x0000}, {0xFFFF, 0xFFFF, 0xFFFF},
};

TEST(LCMapStringTest, LettersHaveTheirUpperAndLowerCase) {
  for (const CaseRow& row : kPairs) {
    EXPECT_EQ(Map(row.unit, LCMAP_UPPERCASE), row.upper) << std::hex << int{row.unit};
    EXPECT_EQ(Map(row.unit, LCMAP_LOWERCASE), row.lower) << std::hex << int{row.unit};
  }
}

// Letters whose other case does not map back to them: dotless and dotted i, long s, micro sign, Kelvin,
// Angstrom and Ohm signs, the title case digraphs, variant forms of Greek and Cyrillic letters, capital sharp
// s.
TEST(LCMapStringTest, LettersThatNoMappingLeadsBackToStayAsTheyAre) {
  constexpr WCHAR kUnits[] = {0x0131, 0x0130, 0x017F, 0x00B5, 0x212A, 0x212B, 0x2126, 0x01C5, 0x01C8,
                              0x01CB, 0x01F2, 0x0345, 0x03C2, 0x03D0, 0x03D1, 0x03D5, 0x03D6, 0x03F0,
                              0x03F1, 0x03F4, 0x03F5, 0x1C80, 0x1C88, 0x1E9B, 0x1E9E, 0x1FBE};
  for (const WCHAR unit : kUnits) {
    EXPECT_EQ(Map(unit, LCMAP_UPPERCASE), unit) << std::hex << int{unit};
    EXPECT_EQ(Map(unit, LCMAP_LOWERCASE), unit) << std::hex << int{unit};
  }
}

TEST(LCMapStringTest, SurrogatesAloneStayAsTheyAre) {
  for (const WCHAR unit : {WCHAR(0xD800), WCHAR(0xD801), WCHAR(0xDC00), WCHAR(0xDC28), WCHAR(0xDFFF)}) {
    EXPECT_EQ(Map(unit, LCMAP_UPPERCASE), unit);
    EXPECT_EQ(Map(unit, LCMAP_LOWERCASE), unit);
  }
}

TEST(LCMapStringTest, ASourceWithoutSizeIsMappedWithItsTerminator) {
  WCHAR target[10] = {1, 1, 1, 1, 1};
  EXPECT_EQ(LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, W("aBc"), -1, target, 10), 4);
  EXPECT_EQ(WString(target), W("ABC"));
  EXPECT_EQ(LCMapStringW(LOCALE_INVARIANT, LCMAP_LOWERCASE, W("aBc"), -1, target, 4), 4);
  EXPECT_EQ(WString(target), W("abc"));
}

TEST(LCMapStringTest, ATargetOfNoSizeAsksForTheSize) {
  EXPECT_EQ(LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, W("abc"), 3, nullptr, 0), 3);
  EXPECT_EQ(LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, W("abc"), -1, nullptr, 0), 4);
}

TEST(LCMapStringTest, ATargetTooSmallFails) {
  WCHAR target[3] = {};
  EXPECT_EQ(FailureOf(LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, W("abc"), 3, target, 2)), 122u);
  EXPECT_EQ(FailureOf(LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, W("abc"), -1, target, 3)), 122u);
}

TEST(LCMapStringTest, ATextIsMappedInPlace) {
  WString text = W("Gr\u00F6\u00DFe");
  EXPECT_EQ(LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, text.data(), 5, text.data(), 5), 5);
  EXPECT_EQ(text, W("GR\u00D6\u00DFE"));
}

TEST(LCMapStringTest, WrongArgumentsAreRefused) {
  WCHAR target[4];
  EXPECT_EQ(FailureOf(LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, nullptr, 3, target, 4)), 87u);
  EXPECT_EQ(FailureOf(LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, W("abc"), 0, target, 4)), 87u);
  EXPECT_EQ(FailureOf(LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, W("abc"), 3, target, -1)), 87u);
  EXPECT_EQ(FailureOf(LCMapStringW(LOCALE_INVARIANT, 0, W("abc"), 3, target, 4)), 1004u);
  EXPECT_EQ(
      FailureOf(LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE | LCMAP_LOWERCASE, W("abc"), 3, target, 4)),
      1004u);
}

}  // namespace
