// Text order that only the native build guarantees: ICU's order, the fast path for ASCII, and the language.

#include <gtest/gtest.h>

#include <random>

#include "platform/outcome.h"
#include "platform/posix/text/collation.h"
#include "platform/text.h"
#include "support/in_environment_posix.h"

namespace {

using Platform::Collation;
using Text = Platform::UnalignedText<WCHAR>;

constexpr DWORD kCaseless = NORM_LINGUISTIC_CASING | LINGUISTIC_IGNORECASE;
constexpr DWORD kNatural = kCaseless | SORT_DIGITSASNUMBERS;

int CompareW(const WString& lhs, const WString& rhs, DWORD flags) {
  return CompareStringW(LOCALE_USER_DEFAULT, flags, lhs.data(), static_cast<int>(lhs.size()), rhs.data(),
                        static_cast<int>(rhs.size()));
}

TEST(NativeCompareStringTest, HyphensAndApostrophesAreSymbolsLikeAll) {
  EXPECT_EQ(CompareW(W("co-op"), W("coop"), kCaseless), CSTR_LESS_THAN);
  EXPECT_EQ(CompareW(W("a'b"), W("ab"), kCaseless), CSTR_LESS_THAN);
  EXPECT_EQ(CompareW(W("a b"), W("ab"), kCaseless), CSTR_LESS_THAN);
}

TEST(NativeCompareStringTest, ControlCharactersCountForNothing) {
  EXPECT_EQ(CompareW(W("a\u0001b"), W("ab"), kCaseless), CSTR_EQUAL);
  EXPECT_EQ(CompareW(WString(W("ab\0"), 3), W("ab"), kCaseless), CSTR_EQUAL);
  EXPECT_EQ(CompareStringA(LOCALE_USER_DEFAULT, kCaseless, "a\x7F", 2, "A", 1), CSTR_EQUAL);
}

TEST(NativeCompareStringTest, ZerosInFrontOfANumberCountForNothing) {
  EXPECT_EQ(CompareW(W("x007"), W("x7"), kNatural), CSTR_EQUAL);
  EXPECT_EQ(CompareW(W("x007a"), W("x7b"), kNatural), CSTR_LESS_THAN);
  EXPECT_EQ(CompareW(W("x007"), W("x8"), kNatural), CSTR_LESS_THAN);
  EXPECT_EQ(CompareW(W("x0"), W("x00"), kNatural), CSTR_EQUAL);
  EXPECT_EQ(CompareStringA(LOCALE_USER_DEFAULT, kNatural, "a10", 3, "a9", 2), CSTR_GREATER_THAN);
}

TEST(NativeCompareStringTest, BytesAreOfTheCodePage) {
  EXPECT_EQ(CompareStringA(LOCALE_USER_DEFAULT, kCaseless, "\x9A", 1, "\x8A", 1),
            CSTR_EQUAL);  // s with caron
  EXPECT_EQ(CompareStringA(LOCALE_USER_DEFAULT, kCaseless, "\xE9", 1, "f", 1), CSTR_LESS_THAN);
  EXPECT_EQ(CompareStringA(LOCALE_USER_DEFAULT, kCaseless, "\x80", 1, "1", 1), CSTR_LESS_THAN);  // Euro
}

TEST(NativeCompareStringTest, WhatTheProductDoesNotAskForIsRefused) {
  constexpr LCID kInvariant = LOCALE_INVARIANT;
  EXPECT_EQ(FailureOf(CompareStringW(kInvariant, 0, W("a"), 1, W("a"), 1)), 87u);
  EXPECT_EQ(FailureOf(CompareStringA(kInvariant, 0, "a", 1, "a", 1)), 87u);
  EXPECT_EQ(FailureOf(CompareStringEx(W("de-DE"), 0, W("a"), 1, W("a"), 1, nullptr, nullptr, 0)), 87u);
  EXPECT_EQ(FailureOf(CompareStringEx(nullptr, 0, W("a"), 1, W("a"), 1, nullptr, nullptr, 1)), 87u);
}

// Wine treats any negative count as a zero-terminated text.
TEST(NativeCompareStringOrdinalTest, ACountBelowMinusOneIsRefused) {
  EXPECT_EQ(FailureOf(CompareStringOrdinal(W("a"), -2, W("a"), 1, FALSE)), 87u);
  EXPECT_EQ(FailureOf(CompareStringOrdinal(W("a"), 1, W("a"), -2, FALSE)), 87u);
}

// Texts of few different characters, so that they often share a prefix. Among them are joiners, combining
// characters, characters that are ignored, and characters with several encodings.
WString RandomText(std::mt19937& random) {
  constexpr WStringView kUnits =
      W("aaaAAabbBcChHlLjJiInNssSzZ00011129 "
        "-'_.~\u0001\u0301\u030A\u0308\u00E9\u00DF\u0131\uFF11\u0661\u00B2\u00B7\u200D\u0E40\u0E01");
  WString text;
  const std::size_t size = random() % 9;
  while (text.size() < size) text += kUnits[random() % kUnits.size()];
  return text;
}

TEST(CollationTest, TheShortCutForAsciiOrdersAsTheWholeCollationDoes) {
  std::mt19937 random(20);
  for (const char* locale : {"en_US", "de_DE@collation=phonebook", "da_DK", "sv_SE", "cs_CZ", "ca_ES",
                             "sk_SK", "hu_HU", "cy_GB", "es_ES@collation=traditional", "tr_TR", "lt_LT",
                             "et_EE", "fr_CA", "th_TH", "ja_JP", "zh_CN", "ar_EG", "en_US_POSIX"}) {
    for (const bool natural : {false, true}) {
      const Collation collation(locale, {.ignoresCase = true, .digitsAsNumbers = natural});
      ASSERT_TRUE(collation.IsOpen()) << locale;
      for (int round = 0; round < 10000; ++round) {
        const WString common = RandomText(random);
        const WString lhs = common + RandomText(random);
        const WString rhs = common + RandomText(random);
        const Text left(lhs.data(), lhs.size());
        const Text right(rhs.data(), rhs.size());
        const std::optional<int> order = collation.CompareAscii(left, right);
        if (!order) continue;
        ASSERT_EQ(*order, collation.Compare(left, right))
            << locale << ": " << ToUtf8(lhs) << " and " << ToUtf8(rhs);
      }
    }
  }
}

TEST(CollationTest, EnglishTextsTakeTheShortCut) {
  const Collation collation("en_US", {.ignoresCase = true, .digitsAsNumbers = true});
  const auto compare = [&](const WString& lhs, const WString& rhs) {
    return collation.CompareAscii(Text(lhs.data(), lhs.size()), Text(rhs.data(), rhs.size()));
  };
  EXPECT_EQ(compare(W("file 10.txt"), W("File 9.txt")), 1);
  EXPECT_EQ(compare(W("abc"), W("ABC")), 0);
  EXPECT_EQ(compare(W("abc"), W("ABCd")), -1);
  EXPECT_EQ(compare(W("abc\u0301"), W("ABCd")), std::nullopt);
}

TEST(NativeCompareStringDeathTest, TheLanguageIsThatOfTheEnvironment) {
  InEnvironment("LC_ALL", "da_DK.UTF-8", [] {
    EXPECT_EQ(CompareW(W("aa"), W("z"), kCaseless), CSTR_GREATER_THAN);
    EXPECT_EQ(CompareStringA(LOCALE_USER_DEFAULT, kCaseless, "\xE5", 1, "z", 1), CSTR_GREATER_THAN);
  });
}

TEST(NativeCompareStringDeathTest, NoLanguageIsEnglish) {
  InEnvironment("LC_ALL", "C", [] {
    EXPECT_EQ(CompareW(W("abc"), W("ABC"), kCaseless), CSTR_EQUAL);
    EXPECT_EQ(CompareW(W("B"), W("a"), 0), CSTR_GREATER_THAN);
    EXPECT_EQ(CompareW(W("aa"), W("z"), kCaseless), CSTR_LESS_THAN);
  });
}

}  // namespace
