// Each comparator, applied to pairs of keys.
#include "linesorter/engine/line_comparators.h"

#include <gtest/gtest.h>

#include "linesorter/widths.h"

using namespace WQLineSorter;

namespace {

constexpr DWORD kLinguistic = 0x8000010;
constexpr DWORD kLinguisticDigits = 0x8000018;

enum class Order { kLess, kEqual, kGreater, kEachLess };

void PrintTo(Order order, std::ostream* out) {
  constexpr const char* kNames[] = {"less", "equal", "greater", "each less than the other"};
  *out << kNames[static_cast<int>(order)];
}

using enum Order;

// Returns the order of two keys, from comparisons in both directions. Each key is followed by text that must
// be ignored, and by a zero.
template <typename CharT>
Order OrderOf(LineCompare_TextBase<CharT>& comparator, std::basic_string_view<CharT> lhs,
              std::basic_string_view<CharT> rhs) {
  const std::basic_string<CharT> after(1, static_cast<CharT>('!'));
  const Exact<CharT> left(std::basic_string<CharT>(lhs) + after + CharT());
  const Exact<CharT> right(std::basic_string<CharT>(rhs) + after + after + CharT());
  const auto leftLength = static_cast<std::uint32_t>(lhs.size());
  const auto rightLength = static_cast<std::uint32_t>(rhs.size());
  const bool isLess = comparator.Compare(left.Begin(), leftLength, right.Begin(), rightLength);
  const bool isGreater = comparator.Compare(right.Begin(), rightLength, left.Begin(), leftLength);
  if (isLess) return isGreater ? kEachLess : kLess;
  return isGreater ? kGreater : kEqual;
}

template <typename CharT>
Order OrderIn(LineCompare_TextBase<CharT>& comparator, std::string_view lhs, std::string_view rhs) {
  return OrderOf<CharT>(comparator, In<CharT>(lhs), In<CharT>(rhs));
}

Order ByteOrder(std::string_view lhs, std::string_view rhs, bool ignoreCase = false) {
  LineCompare_OrdinalA comparator;
  comparator.ignoreCase = ignoreCase;
  return OrderOf<char>(comparator, lhs, rhs);
}
Order BytesIgnoringCase(std::string_view lhs, std::string_view rhs) { return ByteOrder(lhs, rhs, true); }

Order Units(WStringView lhs, WStringView rhs, bool ignoreCase = false) {
  LineCompare_OrdinalW comparator;
  comparator.ignoreCase = ignoreCase;
  return OrderOf<WCHAR>(comparator, lhs, rhs);
}
Order UnitsIgnoringCase(WStringView lhs, WStringView rhs) { return Units(lhs, rhs, true); }

// Comparators of the language order with their character widths, so that one list of pairs tests them all.
class WideWithoutLookUp final : public LineCompare_TextBase<WCHAR> {
 public:
  bool Compare(const WCHAR* lhs, std::uint32_t lhsLength, const WCHAR* rhs,
               std::uint32_t rhsLength) override {
    inner.compareFlags = compareFlags;
    return inner.Compare(lhs, lhsLength, rhs, rhsLength);
  }

 private:
  LineCompare_LanguageAware_StringCompareEx<WCHAR> inner{false};
};
template <typename Comparator>
class CompareByUsersLanguage : public testing::Test {
 protected:
  Order In(std::string_view lhs, std::string_view rhs, DWORD flags = kLinguistic, bool ignoreCase = false) {
    Comparator comparator;
    comparator.compareFlags = flags;
    comparator.ignoreCase = ignoreCase;
    return OrderIn(comparator, lhs, rhs);
  }
};
using LanguageComparators =
    testing::Types<LineCompare_LanguageAware_StringCompareA, LineCompare_LanguageAware_WFallback,
                   LineCompare_LanguageAware_StringCompareEx<WCHAR>, WideWithoutLookUp>;
TYPED_TEST_SUITE(CompareByUsersLanguage, LanguageComparators);

// CompareStringA is never used to compare digit runs by value.
template <typename Comparator>
class CompareDigitsByUsersLanguage : public CompareByUsersLanguage<Comparator> {};
using DigitComparators = testing::Types<LineCompare_LanguageAware_WFallback,
                                        LineCompare_LanguageAware_StringCompareEx<WCHAR>, WideWithoutLookUp>;
TYPED_TEST_SUITE(CompareDigitsByUsersLanguage, DigitComparators);

template <typename Comparator>
class EveryComparator : public testing::Test {};
using AllComparators =
    testing::Types<LineCompare_OrdinalA, LineCompare_OrdinalW, LineCompare_LanguageAware_StringCompareA,
                   LineCompare_LanguageAware_WFallback, LineCompare_LanguageAware_StringCompareEx<WCHAR>,
                   WideWithoutLookUp>;
TYPED_TEST_SUITE(EveryComparator, AllComparators);

}  // namespace

TYPED_TEST(EveryComparator, PutsAnEmptyKeyFirst) {
  for (const bool ignoreCase : {false, true}) {
    TypeParam comparator;
    comparator.ignoreCase = ignoreCase;
    comparator.compareFlags = kLinguistic;
    EXPECT_EQ(OrderIn(comparator, "", ""), kEqual);
    EXPECT_EQ(OrderIn(comparator, "", "a"), kLess);
    EXPECT_EQ(OrderIn(comparator, "a", ""), kGreater);
    EXPECT_EQ(OrderIn(comparator, "", std::string_view("\0", 1)), kLess);
    EXPECT_EQ(OrderIn(comparator, "", " "), kLess);
    EXPECT_EQ(OrderIn(comparator, "", "\x01"), kLess);
  }
}

TYPED_TEST(EveryComparator, FindsAKeyEqualToItself) {
  for (const bool ignoreCase : {false, true}) {
    TypeParam comparator;
    comparator.ignoreCase = ignoreCase;
    comparator.compareFlags = kLinguistic;
    for (const std::string& text : {std::string("a"), std::string("Line 10"), std::string(5000, 'x')}) {
      EXPECT_EQ(OrderIn(comparator, text, text), kEqual);
    }
  }
}

TYPED_TEST(EveryComparator, LooksNoFurtherThanTheLengths) {
  TypeParam comparator;
  comparator.compareFlags = kLinguistic;
  using CharT = std::conditional_t<std::is_base_of_v<LineCompare_TextBase<char>, TypeParam>, char, WCHAR>;
  const Exact<CharT> left(In<CharT>("abX") + CharT());
  const Exact<CharT> right(In<CharT>("abY") + CharT());
  EXPECT_FALSE(comparator.Compare(left.Begin(), 2, right.Begin(), 2));
  EXPECT_FALSE(comparator.Compare(right.Begin(), 2, left.Begin(), 2));
  EXPECT_TRUE(comparator.Compare(left.Begin(), 3, right.Begin(), 3));
  EXPECT_FALSE(comparator.Compare(right.Begin(), 3, left.Begin(), 3));
}

TEST(CompareBytes, GoesByTheFirstByteThatDiffers) {
  EXPECT_EQ(ByteOrder("a", "b"), kLess);
  EXPECT_EQ(ByteOrder("abc", "abd"), kLess);
  EXPECT_EQ(ByteOrder("abd", "abc"), kGreater);
  EXPECT_EQ(ByteOrder("b", "abc"), kGreater);
  EXPECT_EQ(ByteOrder("B", "a"), kLess);
  for (std::size_t at = 0; at < 40; ++at) {
    for (std::size_t after = 0; after < 10; ++after) {
      std::string left(at + 1 + after, 'm');
      std::string right = left;
      left[at] = 'l';
      right[at] = 'n';
      // The last byte differs the other way.
      if (after != 0) left.back() = 'z';
      EXPECT_EQ(ByteOrder(left, right), kLess) << at << " " << after;
      EXPECT_EQ(ByteOrder(right, left), kGreater) << at << " " << after;
      EXPECT_EQ(BytesIgnoringCase(left, right), kLess) << at << " " << after;
    }
  }
}

TEST(CompareBytes, FindsAKeyAndItsPrefixEqualByDesign) {
  EXPECT_EQ(ByteOrder("abc", "abcd"), kEqual);
  EXPECT_EQ(ByteOrder("a", "abcdefghijklmnopqrstuvwxyz"), kEqual);
  EXPECT_EQ(BytesIgnoringCase("ABC", "abcd"), kEqual);
}

TEST(CompareBytes, TakesBytesAsUnsigned) {
  EXPECT_EQ(ByteOrder("\x7F", "\x80"), kLess);
  EXPECT_EQ(ByteOrder("z", "\xFF"), kLess);
  EXPECT_EQ(ByteOrder("\x01", "\xFF"), kLess);
  EXPECT_EQ(ByteOrder("\x80", "\xFF"), kLess);
  EXPECT_EQ(BytesIgnoringCase("z", "\x80"), kLess);
  EXPECT_EQ(BytesIgnoringCase("\x80", "\xFF"), kLess);
}

TEST(CompareBytes, EndsAtAZeroByte) {
  EXPECT_EQ(ByteOrder({"a\0b", 3}, {"a\0c", 3}), kEqual);
  EXPECT_EQ(ByteOrder({"\0b", 2}, {"\0c", 2}), kEqual);
  EXPECT_EQ(ByteOrder({"a\0z", 3}, "ab"), kLess);
  EXPECT_EQ(ByteOrder({"a\0z", 3}, "a\x01"), kLess);
  EXPECT_EQ(ByteOrder({"a\0z", 3}, "a"), kEqual);
  EXPECT_EQ(ByteOrder({"\0", 1}, "a"), kLess);
  EXPECT_EQ(BytesIgnoringCase({"A\0b", 3}, {"a\0c", 3}), kEqual);
  EXPECT_EQ(BytesIgnoringCase({"a\0z", 3}, "AB"), kLess);
}

TEST(CompareBytes, IgnoresTheCaseOfAToZAlone) {
  EXPECT_EQ(BytesIgnoringCase("abcxyz", "ABCXYZ"), kEqual);
  EXPECT_EQ(BytesIgnoringCase("a", "B"), kLess);
  EXPECT_EQ(BytesIgnoringCase("A", "b"), kLess);
  EXPECT_EQ(ByteOrder("abc", "ABC"), kGreater);
  EXPECT_EQ(BytesIgnoringCase("\xC4", "\xE4"), kLess);
  EXPECT_EQ(BytesIgnoringCase("@", "`"), kLess);
  EXPECT_EQ(BytesIgnoringCase("[", "{"), kLess);
}

TEST(CompareBytes, IgnoringCaseSortsLettersAsSmallOnes) {
  for (const char* sign : {"[", "\\", "]", "^", "_", "`", "@", "5"}) {
    EXPECT_EQ(BytesIgnoringCase(sign, "A"), kLess) << sign;
    EXPECT_EQ(BytesIgnoringCase(sign, "a"), kLess) << sign;
  }
  EXPECT_EQ(BytesIgnoringCase("{", "Z"), kGreater);
  EXPECT_EQ(BytesIgnoringCase("{", "z"), kGreater);
  EXPECT_EQ(ByteOrder("_", "A"), kGreater);
  EXPECT_EQ(ByteOrder("_", "a"), kLess);
}

TEST(CompareUnits, UsesTheSystemsFunction) { EXPECT_TRUE(LineCompare_OrdinalW().HasSystemFunction()); }

TEST(CompareUnits, GoesByTheFirstUnitThatDiffers) {
  EXPECT_EQ(Units(W("a"), W("b")), kLess);
  EXPECT_EQ(Units(W("abd"), W("abc")), kGreater);
  EXPECT_EQ(Units(W("B"), W("a")), kLess);
  EXPECT_EQ(Units(W("b"), W("abc")), kGreater);
  EXPECT_EQ(Units(W("\u0161"), W("\u0262")), kLess);
}

TEST(CompareUnits, SortsAKeyAfterItsPrefix) {
  EXPECT_EQ(Units(W("abc"), W("abcd")), kLess);
  EXPECT_EQ(Units(W("abcd"), W("abc")), kGreater);
  EXPECT_EQ(UnitsIgnoringCase(W("ABC"), W("abcd")), kLess);
  EXPECT_EQ(UnitsIgnoringCase(W("abcd"), W("ABC")), kGreater);
  EXPECT_EQ(Units(W("a"), {W("a\0"), 2}), kLess);
}

TEST(CompareUnits, TakesUnitsAsUnsignedAndNotAsCharacters) {
  const WCHAR units[] = {0x0001, 0x00FF, 0x0100, 0x7FFF, 0x8000, 0xD83D, 0xE000, 0xFFFD, 0xFFFF};
  for (std::size_t i = 0; i < std::size(units); ++i) {
    for (std::size_t j = i + 1; j < std::size(units); ++j) {
      EXPECT_EQ(Units({&units[i], 1}, {&units[j], 1}), kLess) << i << " " << j;
    }
  }
}

TEST(CompareUnits, ContinuesAfterAZeroUnit) {
  EXPECT_EQ(Units({W("a\0b"), 3}, {W("a\0c"), 3}), kLess);
  EXPECT_EQ(UnitsIgnoringCase({W("a\0b"), 3}, {W("A\0C"), 3}), kLess);
}

TEST(CompareUnits, IgnoresTheCaseOfAllLetters) {
  EXPECT_EQ(UnitsIgnoringCase(W("abcxyz"), W("ABCXYZ")), kEqual);
  EXPECT_EQ(UnitsIgnoringCase(W("\u00E4\u0436"), W("\u00C4\u0416")), kEqual);
  EXPECT_EQ(UnitsIgnoringCase(W("a"), W("B")), kLess);
  EXPECT_EQ(UnitsIgnoringCase(W("B"), W("a")), kGreater);
  EXPECT_EQ(Units(W("\u00E4"), W("\u00C4")), kGreater);
}

TEST(CompareUnits, IgnoringCaseSortsLettersAsCapitals) {
  for (const WCHAR* sign : {W("["), W("\\"), W("]"), W("^"), W("_"), W("`")}) {
    EXPECT_EQ(UnitsIgnoringCase(sign, W("A")), kGreater);
    EXPECT_EQ(UnitsIgnoringCase(sign, W("z")), kGreater);
  }
  EXPECT_EQ(UnitsIgnoringCase(W("@"), W("a")), kLess);
}

TEST(CompareUnits, ReadsKeysAtOddPlaces) {
  const char bytes[] = "?a\0b\0c\0?a\0b\0d\0";
  LineCompare_OrdinalW comparator;
  const auto* const left = reinterpret_cast<const WCHAR*>(bytes + 1);
  const auto* const right = reinterpret_cast<const WCHAR*>(bytes + 8);
  for (const bool ignoreCase : {false, true}) {
    comparator.ignoreCase = ignoreCase;
    EXPECT_TRUE(comparator.Compare(left, 3, right, 3));
    EXPECT_FALSE(comparator.Compare(right, 3, left, 3));
    EXPECT_FALSE(comparator.Compare(left, 2, right, 2));
  }
}

TYPED_TEST(CompareByUsersLanguage, IgnoresCaseWhateverIsAskedFor) {
  for (const bool ignoreCase : {false, true}) {
    EXPECT_EQ(this->In("a", "B", kLinguistic, ignoreCase), kLess);
    EXPECT_EQ(this->In("B", "a", kLinguistic, ignoreCase), kGreater);
    EXPECT_EQ(this->In("A", "b", kLinguistic, ignoreCase), kLess);
    EXPECT_EQ(this->In("abc", "ABC", kLinguistic, ignoreCase), kEqual);
  }
}

TYPED_TEST(CompareByUsersLanguage, SortsAKeyAfterItsPrefix) {
  EXPECT_EQ(this->In("abc", "abcd"), kLess);
  EXPECT_EQ(this->In("abcd", "ABC"), kGreater);
}

TYPED_TEST(CompareByUsersLanguage, SortsLettersWithMarksNextToTheirLetters) {
  EXPECT_EQ(this->In("\xE4", "b"), kLess);
  EXPECT_EQ(this->In("a", "\xE4"), kLess);
  EXPECT_EQ(this->In("\xE9"
                     "a",
                     "f"),
            kLess);
  EXPECT_EQ(this->In("\xC4", "\xE4"), kEqual);
}

TYPED_TEST(CompareByUsersLanguage, TakesDigitsOneByOne) {
  EXPECT_EQ(this->In("a10", "a9"), kLess);
  EXPECT_EQ(this->In("2", "10"), kGreater);
}

TYPED_TEST(CompareDigitsByUsersLanguage, TakesDigitRunsByValue) {
  EXPECT_EQ(this->In("abc", "ABC", kLinguisticDigits), kEqual);
  EXPECT_EQ(this->In("a10", "a9", kLinguisticDigits), kGreater);
  EXPECT_EQ(this->In("a9", "a10", kLinguisticDigits), kLess);
  EXPECT_EQ(this->In("2", "10", kLinguisticDigits), kLess);
  EXPECT_EQ(this->In("a2b", "a10a", kLinguisticDigits), kLess);
  EXPECT_EQ(this->In("A99", "a100", kLinguisticDigits), kLess);
}

TEST(CompareByLanguage, ReadsUnitsAtOddPlaces) {
  const char bytes[] = "?a\0b\0c\0?A\0B\0d\0";
  const auto* const left = reinterpret_cast<const WCHAR*>(bytes + 1);
  const auto* const right = reinterpret_cast<const WCHAR*>(bytes + 8);
  for (const bool lookUp : {true, false}) {
    LineCompare_LanguageAware_StringCompareEx<WCHAR> comparator(lookUp);
    comparator.compareFlags = kLinguistic;
    EXPECT_TRUE(comparator.Compare(left, 3, right, 3));
    EXPECT_FALSE(comparator.Compare(right, 3, left, 3));
    EXPECT_FALSE(comparator.Compare(left, 2, right, 2));
  }
}

TEST(CompareByLanguage, TheBaseForBytesAlwaysReturnsFalse) {
  struct Base final : LineCompare_LanguageAware_StringCompareEx<char> {};
  Base comparator;
  comparator.compareFlags = kLinguistic;
  EXPECT_EQ(OrderOf<char>(comparator, "a", "b"), kEqual);
  EXPECT_EQ(OrderOf<char>(comparator, "", "b"), kEqual);
}

TEST(CompareByLanguageWidened, EndsAtAZeroByte) {
  LineCompare_LanguageAware_WFallback comparator;
  comparator.compareFlags = kLinguisticDigits;
  EXPECT_EQ(OrderOf<char>(comparator, {"a\0b", 3}, {"a\0c", 3}), kEqual);
}

TEST(CompareByLanguageWidened, KeysOfAnyLengthFollowEachOther) {
  LineCompare_LanguageAware_WFallback comparator;
  comparator.compareFlags = kLinguisticDigits;
  for (const std::size_t length :
       {1u, 2u, 125u, 126u, 127u, 128u, 129u, 130u, 131u, 300u, 5u, 20000u, 3u, 128u}) {
    const std::string same(length - 1, 'k');
    EXPECT_EQ(OrderOf<char>(comparator, same + "a", same + "b"), kLess) << length;
    EXPECT_EQ(OrderOf<char>(comparator, same + "b", same + "a"), kGreater) << length;
    EXPECT_EQ(OrderOf<char>(comparator, same + "a", same + "A"), kEqual) << length;
    EXPECT_EQ(OrderOf<char>(comparator, same + "a", "l"), kLess) << length;
    EXPECT_EQ(OrderOf<char>(comparator, "b", same + "z"), kLess) << length;
  }
}

TEST(CompareByLanguageWidened, BytesAreOfTheSystemsCodePage) {
  LineCompare_LanguageAware_WFallback comparator;
  comparator.compareFlags = kLinguistic;
  // The letter "ae" and a Z with caron at their places in code page 1252.
  EXPECT_EQ(OrderOf<char>(comparator, "\x9E", "z"), kGreater);
  EXPECT_EQ(OrderOf<char>(comparator, "\x9E", "\x8E"), kEqual);
  EXPECT_EQ(OrderOf<char>(comparator, "\x9E", "y"), kGreater);
  EXPECT_EQ(OrderOf<char>(comparator, "\xE6", "b"), kLess);
}
