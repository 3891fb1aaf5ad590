// CompareStringA, CompareStringW, CompareStringEx and CompareStringOrdinal: results that hold in every
// language in Latin script, and argument checks.

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "platform/outcome.h"
#include "platform/text.h"

namespace {

constexpr DWORD kCaseless = NORM_LINGUISTIC_CASING | LINGUISTIC_IGNORECASE;
constexpr DWORD kNatural = kCaseless | SORT_DIGITSASNUMBERS;

int Reversed(int order) { return CSTR_LESS_THAN + CSTR_GREATER_THAN - order; }

std::string BytesOf(WStringView text) {
  std::string bytes;
  for (const WCHAR unit : text) bytes += static_cast<char>(unit);  // Latin-1 is part of the code page
  return bytes;
}

int CompareEx(const WString& lhs, const WString& rhs, DWORD flags) {
  return CompareStringEx(nullptr, flags, lhs.data(), static_cast<int>(lhs.size()), rhs.data(),
                         static_cast<int>(rhs.size()), nullptr, nullptr, 0);
}

// Compares with all three functions, in both directions.
void ExpectOrder(const WString& lhs, const WString& rhs, DWORD flags, int order) {
  const int lhsCount = static_cast<int>(lhs.size());
  const int rhsCount = static_cast<int>(rhs.size());
  const std::string left = BytesOf(lhs);
  const std::string right = BytesOf(rhs);
  SCOPED_TRACE(left + " and " + right);
  EXPECT_EQ(CompareEx(lhs, rhs, flags), order);
  EXPECT_EQ(CompareEx(rhs, lhs, flags), Reversed(order));
  EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, flags, lhs.data(), lhsCount, rhs.data(), rhsCount), order);
  EXPECT_EQ(CompareStringA(LOCALE_USER_DEFAULT, flags, left.data(), lhsCount, right.data(), rhsCount), order);
  EXPECT_EQ(CompareStringA(LOCALE_USER_DEFAULT, flags, right.data(), rhsCount, left.data(), lhsCount),
            Reversed(order));
}

void ExpectAllInOrder(const std::vector<WString>& texts, DWORD flags) {
  for (std::size_t i = 0; i < texts.size(); ++i) {
    ExpectOrder(texts[i], texts[i], flags, CSTR_EQUAL);
    for (std::size_t k = i + 1; k < texts.size(); ++k) ExpectOrder(texts[i], texts[k], flags, CSTR_LESS_THAN);
  }
}

TEST(CompareStringTest, CaseIsIgnoredWhenItIsToBe) {
  ExpectOrder(W("abc"), W("ABC"), kCaseless, CSTR_EQUAL);
  ExpectOrder(W("Zebra"), W("zEBRA"), kCaseless, CSTR_EQUAL);
  ExpectOrder(W("\u00E9t\u00E9"), W("\u00C9T\u00C9"), kCaseless, CSTR_EQUAL);
}

TEST(CompareStringTest, CaseDecidesLastWhenItIsNotIgnored) {
  ExpectOrder(W("abc"), W("ABC"), NORM_LINGUISTIC_CASING, CSTR_LESS_THAN);
  ExpectOrder(W("ABC"), W("abd"), NORM_LINGUISTIC_CASING, CSTR_LESS_THAN);
  ExpectOrder(W("abc"), W("ABC"), 0, CSTR_LESS_THAN);
}

TEST(CompareStringTest, SymbolsComeBeforeDigitsAndDigitsBeforeLetters) {
  ExpectAllInOrder({W(""), W("(x"), W("1"), W("10"), W("2"), W("9x"), W("a"), W("A 1"), W("ab"), W("abc"),
                    W("B"), W("cab"), W("x"), W("X1"), W("x1a"), W("x2"), W("Xa"), W("y")},
                   kCaseless);
  for (const WCHAR symbol : WStringView(W(" !\"#%&()*,./:;?@[\\]_{}~\u00A7"))) {
    ExpectOrder(WString{symbol}, W("0"), kCaseless, CSTR_LESS_THAN);
    ExpectOrder(WString{W('a'), symbol, W('z')}, W("a0"), kCaseless, CSTR_LESS_THAN);
  }
}

TEST(CompareStringTest, AnAccentDecidesOnlyWhereTheLettersDoNot) {
  ExpectAllInOrder({W("resume"), W("R\u00C9SUM\u00C9"), W("resumea"), W("r\u00E9sum\u00E9s"), W("rf")},
                   kCaseless);
}

TEST(CompareStringTest, DigitsAreCharactersUnlessTheyAreToBeNumbers) {
  ExpectOrder(W("a10"), W("a9"), kCaseless, CSTR_LESS_THAN);
  ExpectOrder(W("a100b"), W("a20a"), kCaseless, CSTR_LESS_THAN);
}

TEST(CompareStringTest, NumbersAreOrderedByTheirValueWhereDigitsAreNumbers) {
  const WString texts[] = {W("a"),    W("a9"),   W("a9b"),         W("A10"),          W("a10b"),
                           W("a20a"), W("A100"), W("a9999999999"), W("a10000000000"), W("ab")};
  for (std::size_t i = 0; i < std::size(texts); ++i) {
    for (std::size_t k = i + 1; k < std::size(texts); ++k) {
      SCOPED_TRACE(ToUtf8(texts[i]) + " and " + ToUtf8(texts[k]));
      EXPECT_EQ(CompareEx(texts[i], texts[k], kNatural), CSTR_LESS_THAN);
      EXPECT_EQ(CompareEx(texts[k], texts[i], kNatural), CSTR_GREATER_THAN);
      EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, kNatural, texts[i].c_str(), -1, texts[k].c_str(), -1),
                CSTR_LESS_THAN);
    }
  }
}

TEST(CompareStringTest, CountsEndTheTexts) {
  EXPECT_EQ(CompareStringEx(nullptr, kCaseless, W("abX"), 2, W("abY"), 2, nullptr, nullptr, 0), CSTR_EQUAL);
  EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, kCaseless, W("abX"), 2, W("abY"), 2), CSTR_EQUAL);
  EXPECT_EQ(CompareStringA(LOCALE_USER_DEFAULT, kCaseless, "abX", 2, "abY", 2), CSTR_EQUAL);
  EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, kCaseless, W("abc"), 2, W("abc"), 3), CSTR_LESS_THAN);
  EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, kCaseless, W("x"), 0, W("y"), 0), CSTR_EQUAL);
  EXPECT_EQ(CompareStringA(LOCALE_USER_DEFAULT, kCaseless, "x", 0, "y", 1), CSTR_LESS_THAN);
}

TEST(CompareStringTest, ANegativeCountIsATextToItsZero) {
  EXPECT_EQ(CompareStringEx(nullptr, kCaseless, W("ab\0x"), -1, W("AB\0y"), -1, nullptr, nullptr, 0),
            CSTR_EQUAL);
  EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, kCaseless, W("b"), -1, W("abc"), 3), CSTR_GREATER_THAN);
  EXPECT_EQ(CompareStringA(LOCALE_USER_DEFAULT, kCaseless, "ab", 2, "ab", -1), CSTR_EQUAL);
  EXPECT_EQ(CompareStringA(LOCALE_USER_DEFAULT, kCaseless, "", -1, "a", -1), CSTR_LESS_THAN);
}

TEST(CompareStringTest, LongTextsAreComparedWhole) {
  for (const std::size_t size : {255u, 256u, 257u, 1000u, 100000u}) {
    const WString text(size, W('\u00E9'));
    EXPECT_EQ(CompareEx(text + W("a"), text + W("B"), kCaseless), CSTR_LESS_THAN) << size;
    const std::string bytes = BytesOf(text);
    EXPECT_EQ(
        CompareStringA(LOCALE_USER_DEFAULT, kCaseless, (bytes + "b").c_str(), -1, (bytes + "A").c_str(), -1),
        CSTR_GREATER_THAN)
        << size;
    EXPECT_EQ(
        CompareStringA(LOCALE_USER_DEFAULT, kCaseless, (bytes + "a").c_str(), -1, (bytes + "A").c_str(), -1),
        CSTR_EQUAL)
        << size;
  }
}

TEST(CompareStringTest, WrongArgumentsAreRefused) {
  constexpr DWORD kNoFlag = 0x800;
  const WCHAR* const null = nullptr;
  const char* const none = nullptr;
  const WCHAR* const a = W("a");
  EXPECT_EQ(FailureOf(CompareStringEx(nullptr, 0, null, 1, a, 1, nullptr, nullptr, 0)), 87u);
  EXPECT_EQ(FailureOf(CompareStringEx(nullptr, 0, a, 1, null, 1, nullptr, nullptr, 0)), 87u);
  EXPECT_EQ(FailureOf(CompareStringEx(nullptr, kNoFlag, a, 1, a, 1, nullptr, nullptr, 0)), 1004u);
  EXPECT_EQ(FailureOf(CompareStringW(LOCALE_USER_DEFAULT, 0, null, -1, a, 1)), 87u);
  EXPECT_EQ(FailureOf(CompareStringW(LOCALE_USER_DEFAULT, 0, a, 1, null, 0)), 87u);
  EXPECT_EQ(FailureOf(CompareStringW(LOCALE_USER_DEFAULT, kNoFlag, a, 1, a, 1)), 1004u);
  EXPECT_EQ(FailureOf(CompareStringA(LOCALE_USER_DEFAULT, 0, none, 1, "a", 1)), 87u);
  EXPECT_EQ(FailureOf(CompareStringA(LOCALE_USER_DEFAULT, 0, "a", 1, none, -1)), 87u);
  EXPECT_EQ(FailureOf(CompareStringA(LOCALE_USER_DEFAULT, kNoFlag, "a", 1, "a", 1)), 1004u);
}

struct OrdinalRow {
  WString lhs;
  WString rhs;
  int order;
  int orderIgnoringCase;
};

const OrdinalRow kOrdinalRows[] = {
    {W(""), W(""), CSTR_EQUAL, CSTR_EQUAL},
    {W(""), W("a"), CSTR_LESS_THAN, CSTR_LESS_THAN},
    {W("abc"), W("abc"), CSTR_EQUAL, CSTR_EQUAL},
    {W("abc"), W("abcd"), CSTR_LESS_THAN, CSTR_LESS_THAN},
    {W("ABC"), W("abcd"), CSTR_LESS_THAN, CSTR_LESS_THAN},
    {W("B"), W("a"), CSTR_LESS_THAN, CSTR_GREATER_THAN},
    {W("abc"), W("aBc"), CSTR_GREATER_THAN, CSTR_EQUAL},
    // Comparisons use the upper case, which precedes the underscore.
    {W("_"), W("a"), CSTR_LESS_THAN, CSTR_GREATER_THAN},
    {W("a10"), W("a9"), CSTR_LESS_THAN, CSTR_LESS_THAN},
    {W("\u00E9"), W("\u00C9"), CSTR_GREATER_THAN, CSTR_EQUAL},
    {W("\u00FF"), W("\u0178"), CSTR_LESS_THAN, CSTR_EQUAL},
    {W("stra\u00DFe"), W("STRASSE"), CSTR_GREATER_THAN, CSTR_GREATER_THAN},
    {W("\u0131"), W("I"), CSTR_GREATER_THAN, CSTR_GREATER_THAN},
    // By code units, not by characters.
    {W("\U0001F600"), W("\uFF41"), CSTR_LESS_THAN, CSTR_LESS_THAN},
    {W("\U00010428"), W("\U00010400"), CSTR_GREATER_THAN, CSTR_GREATER_THAN},
    // A zero is a unit like any other.
    {WString(W("a\0b"), 3), WString(W("a\0c"), 3), CSTR_LESS_THAN, CSTR_LESS_THAN},
    {WString(W("a\0"), 2), W("a"), CSTR_GREATER_THAN, CSTR_GREATER_THAN},
};

int CompareOrdinal(const WString& lhs, const WString& rhs, BOOL ignoreCase) {
  return CompareStringOrdinal(lhs.data(), static_cast<int>(lhs.size()), rhs.data(),
                              static_cast<int>(rhs.size()), ignoreCase);
}

TEST(CompareStringOrdinalTest, UnitsDecideAndThenTheLength) {
  for (const OrdinalRow& row : kOrdinalRows) {
    SCOPED_TRACE(ToUtf8(row.lhs) + " and " + ToUtf8(row.rhs));
    EXPECT_EQ(CompareOrdinal(row.lhs, row.rhs, FALSE), row.order);
    EXPECT_EQ(CompareOrdinal(row.rhs, row.lhs, FALSE), Reversed(row.order));
    EXPECT_EQ(CompareOrdinal(row.lhs, row.rhs, TRUE), row.orderIgnoringCase);
    EXPECT_EQ(CompareOrdinal(row.rhs, row.lhs, TRUE), Reversed(row.orderIgnoringCase));
  }
}

TEST(CompareStringOrdinalTest, ACountOfMinusOneIsATextToItsZero) {
  EXPECT_EQ(CompareStringOrdinal(W("ab\0x"), -1, W("ab\0y"), -1, FALSE), CSTR_EQUAL);
  EXPECT_EQ(CompareStringOrdinal(W("ab"), -1, W("abc"), 2, FALSE), CSTR_EQUAL);
  EXPECT_EQ(CompareStringOrdinal(W("ab"), -1, W("abc"), 3, TRUE), CSTR_LESS_THAN);
}

TEST(CompareStringOrdinalTest, ANullIsRefused) {
  EXPECT_EQ(FailureOf(CompareStringOrdinal(nullptr, 1, W("a"), 1, FALSE)), 87u);
  EXPECT_EQ(FailureOf(CompareStringOrdinal(W("a"), -1, nullptr, -1, TRUE)), 87u);
}

// A key of 16-bit text may start at an odd address.
TEST(CompareStringTest, TextsMayBeAtOddAddresses) {
  const WString texts[] = {W("abc"), W("ABD"), W("ab\u00E9")};
  char store[3][16] = {};
  const WCHAR* odd[3];
  for (int i = 0; i < 3; ++i) {
    std::memcpy(store[i] + 1, texts[i].c_str(), (texts[i].size() + 1) * sizeof(WCHAR));
    odd[i] = reinterpret_cast<const WCHAR*>(store[i] + 1);
  }
  EXPECT_EQ(CompareStringEx(nullptr, kNatural, odd[0], 3, odd[1], 3, nullptr, nullptr, 0), CSTR_LESS_THAN);
  EXPECT_EQ(CompareStringEx(nullptr, kCaseless, odd[1], 3, odd[2], 3, nullptr, nullptr, 0), CSTR_LESS_THAN);
  EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, kCaseless, odd[2], -1, odd[0], -1), CSTR_GREATER_THAN);
  EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, kCaseless, odd[2], -1, texts[2].c_str(), -1), CSTR_EQUAL);
  EXPECT_EQ(CompareStringOrdinal(odd[0], 3, odd[1], -1, TRUE), CSTR_LESS_THAN);
  EXPECT_EQ(CompareStringOrdinal(odd[0], 3, odd[1], 3, FALSE), CSTR_GREATER_THAN);
}

}  // namespace
