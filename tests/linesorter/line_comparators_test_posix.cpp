// Comparators whose system functions are missing or fail, and how often they call the system and allocate
// memory.
#include <gtest/gtest.h>

#include <functional>

#include "linesorter/engine/line_comparators.h"
#include "linesorter/widths.h"
#include "platform/posix/files/faults.h"
#include "support/memory_limit.h"

using namespace WQLineSorter;
using namespace Platform;

namespace {

constexpr DWORD kLinguistic = 0x8000010;
constexpr DWORD kLinguisticDigits = 0x8000018;

template <typename CharT>
bool Before(LineCompare_TextBase<CharT>& comparator, std::basic_string_view<CharT> lhs,
            std::basic_string_view<CharT> rhs) {
  const Exact<CharT> left(std::basic_string<CharT>(lhs) + CharT());
  const Exact<CharT> right(std::basic_string<CharT>(rhs) + CharT());
  return comparator.Compare(left.Begin(), left.Length() - 1, right.Begin(), right.Length() - 1);
}

template <typename CharT>
bool Equal(LineCompare_TextBase<CharT>& comparator, std::basic_string_view<CharT> lhs,
           std::basic_string_view<CharT> rhs) {
  return !Before(comparator, lhs, rhs) && !Before(comparator, rhs, lhs);
}

constexpr const char* kLookUps[] = {"LoadLibraryW", "GetProcAddress"};
constexpr const char* kCompareFunctions[] = {"CompareStringA", "CompareStringW", "CompareStringEx",
                                             "CompareStringOrdinal", "MultiByteToWideChar"};

void WatchAll() {
  for (const char* function : kLookUps) Faults::Watch(function);
  for (const char* function : kCompareFunctions) Faults::Watch(function);
  Faults::Watch("FreeLibrary");
}

// Runs `check`, which compares twice, once for each look-up that can fail. Expects that both comparisons use
// the older function.
void ExpectTheOlderFunction(const std::function<void()>& check) {
  for (const char* lookUp : kLookUps) {
    SCOPED_TRACE(lookUp);
    const Faults::Scope faults;
    Faults::Fail(lookUp, 1, ERROR_PROC_NOT_FOUND);
    Faults::Watch("CompareStringEx");
    Faults::Watch("CompareStringW");
    check();
    EXPECT_EQ(Faults::CallCount("CompareStringEx"), 0);
    EXPECT_EQ(Faults::CallCount("CompareStringW"), 2);
  }
}

// One of each comparator that calls the system, including the one with the older function.
struct AllComparators {
  void ExpectBefore(const char* left, const char* right, bool expected) {
    SCOPED_TRACE(std::string(left) + "|" + right);
    EXPECT_EQ(Before<char>(bytes, left, right), expected);
    EXPECT_EQ(Before<char>(widened, left, right), expected);
    EXPECT_EQ(Before<WCHAR>(ordinal, In<WCHAR>(left), In<WCHAR>(right)), expected);
    EXPECT_EQ(Before<WCHAR>(units, In<WCHAR>(left), In<WCHAR>(right)), expected);
    EXPECT_EQ(Before<WCHAR>(older, In<WCHAR>(left), In<WCHAR>(right)), expected);
  }

  LineCompare_OrdinalW ordinal;
  LineCompare_LanguageAware_StringCompareA bytes;
  LineCompare_LanguageAware_StringCompareEx<WCHAR> units;
  LineCompare_LanguageAware_StringCompareEx<WCHAR> older{false};
  LineCompare_LanguageAware_WFallback widened;
};

}  // namespace

TEST(CompareUnitsWithoutTheSystem, IsDoneAsForBytes) {
  for (const char* lookUp : kLookUps) {
    const Faults::Scope faults;
    Faults::Fail(lookUp, 1, ERROR_PROC_NOT_FOUND);
    Faults::Watch("CompareStringOrdinal");
    LineCompare_OrdinalW comparator;
    EXPECT_FALSE(comparator.HasSystemFunction()) << lookUp;
    EXPECT_TRUE(Before<WCHAR>(comparator, W("a"), W("b")));
    EXPECT_FALSE(Before<WCHAR>(comparator, W("b"), W("a")));
    EXPECT_TRUE(Before<WCHAR>(comparator, W("B"), W("a")));
    EXPECT_TRUE(Before<WCHAR>(comparator, W("\u7FFF"), W("\u8000")));
    EXPECT_TRUE(Before<WCHAR>(comparator, W("\u0161"), W("\u0262")));
    // A key and its prefix, and keys with the same text before a zero.
    EXPECT_TRUE(Equal<WCHAR>(comparator, W("abc"), W("abcd")));
    EXPECT_TRUE(Equal<WCHAR>(comparator, {W("a\0b"), 3}, {W("a\0c"), 3}));
    EXPECT_TRUE(Before<WCHAR>(comparator, W(""), W("a")));
    EXPECT_FALSE(Before<WCHAR>(comparator, W("a"), W("")));
    EXPECT_FALSE(Before<WCHAR>(comparator, W(""), W("")));
    comparator.ignoreCase = true;
    EXPECT_TRUE(Equal<WCHAR>(comparator, W("abc"), W("ABCD")));
    EXPECT_TRUE(Before<WCHAR>(comparator, W("a"), W("B")));
    EXPECT_TRUE(Before<WCHAR>(comparator, W("_"), W("A")));
    EXPECT_EQ(Faults::CallCount("CompareStringOrdinal"), 0);
  }
}

TEST(CompareUnitsWithoutTheSystem, ReadsKeysAtOddPlaces) {
  const Faults::Scope faults;
  Faults::Fail("GetProcAddress", 1, ERROR_PROC_NOT_FOUND);
  const char bytes[] = "?a\0b\0c\0?a\0b\0d\0";
  LineCompare_OrdinalW comparator;
  const auto* const left = reinterpret_cast<const WCHAR*>(bytes + 1);
  const auto* const right = reinterpret_cast<const WCHAR*>(bytes + 8);
  for (const bool ignoreCase : {false, true}) {
    comparator.ignoreCase = ignoreCase;
    EXPECT_TRUE(comparator.Compare(left, 3, right, 3));
    EXPECT_FALSE(comparator.Compare(right, 3, left, 3));
  }
}

TEST(CompareByLanguageWithoutItsFunction, UsesTheOlderOneWithTheSameFlags) {
  ExpectTheOlderFunction([] {
    LineCompare_LanguageAware_StringCompareEx<WCHAR> comparator;
    comparator.compareFlags = kLinguisticDigits;
    EXPECT_TRUE(Before<WCHAR>(comparator, W("a9"), W("A10")));
    comparator.compareFlags = kLinguistic;
    EXPECT_TRUE(Before<WCHAR>(comparator, W("A10"), W("a9")));
  });
}

TEST(CompareByLanguageWithoutItsFunction, UsesTheOlderOneForWidenedBytesToo) {
  ExpectTheOlderFunction([] {
    LineCompare_LanguageAware_WFallback comparator;
    comparator.compareFlags = kLinguisticDigits;
    EXPECT_TRUE(Before<char>(comparator, "a9", "A10"));
    EXPECT_FALSE(Before<char>(comparator, "a10", "A9"));
  });
}

TEST(CompareByLanguageWithoutItsFunction, IsNotLookedUpIfNotWanted) {
  const Faults::Scope faults;
  WatchAll();
  LineCompare_LanguageAware_StringCompareEx<WCHAR> comparator(false);
  comparator.compareFlags = kLinguistic;
  EXPECT_TRUE(Before<WCHAR>(comparator, W("a"), W("B")));
  EXPECT_EQ(Faults::CallCount("GetProcAddress"), 0);
  EXPECT_EQ(Faults::CallCount("CompareStringEx"), 0);
  EXPECT_EQ(Faults::CallCount("CompareStringW"), 1);
}

TEST(ComparatorsLookUp, OncePerSortAndGiveTheLibraryBack) {
  const Faults::Scope faults;
  WatchAll();
  {
    LineCompare_OrdinalW comparator;
    EXPECT_EQ(Faults::CallCount("LoadLibraryW"), 1);
    EXPECT_EQ(Faults::CallCount("GetProcAddress"), 1);
    for (int i = 0; i < 5; ++i) EXPECT_TRUE(Before<WCHAR>(comparator, W("a"), W("b")));
    EXPECT_EQ(Faults::CallCount("CompareStringOrdinal"), 5);
    EXPECT_EQ(Faults::CallCount("FreeLibrary"), 0);
  }
  EXPECT_EQ(Faults::CallCount("FreeLibrary"), 1);
  {
    LineCompare_LanguageAware_StringCompareEx<WCHAR> comparator;
    comparator.compareFlags = kLinguistic;
    for (int i = 0; i < 5; ++i) EXPECT_TRUE(Before<WCHAR>(comparator, W("a"), W("b")));
    EXPECT_EQ(Faults::CallCount("CompareStringEx"), 5);
  }
  {
    LineCompare_LanguageAware_WFallback comparator;
    comparator.compareFlags = kLinguistic;
    for (int i = 0; i < 5; ++i) EXPECT_TRUE(Before<char>(comparator, "a", "b"));
    EXPECT_EQ(Faults::CallCount("CompareStringEx"), 10);
  }
  EXPECT_EQ(Faults::CallCount("LoadLibraryW"), 3);
  EXPECT_EQ(Faults::CallCount("GetProcAddress"), 3);
  EXPECT_EQ(Faults::CallCount("FreeLibrary"), 3);
  EXPECT_EQ(Faults::CallCount("CompareStringW"), 0);
}

TEST(ComparatorsLookUp, NothingForBytes) {
  const Faults::Scope faults;
  WatchAll();
  {
    LineCompare_OrdinalA ordinal;
    EXPECT_TRUE(Before<char>(ordinal, "a", "b"));
    for (const char* function : kCompareFunctions) EXPECT_EQ(Faults::CallCount(function), 0) << function;
    LineCompare_LanguageAware_StringCompareA language;
    language.compareFlags = kLinguistic;
    EXPECT_TRUE(Before<char>(language, "a", "b"));
    EXPECT_EQ(Faults::CallCount("CompareStringA"), 1);
  }
  EXPECT_EQ(Faults::CallCount("LoadLibraryW"), 0);
  EXPECT_EQ(Faults::CallCount("GetProcAddress"), 0);
  EXPECT_EQ(Faults::CallCount("FreeLibrary"), 0);
}

TEST(ComparatorsLookUp, ALibraryThatWasNotLoadedIsNotFreed) {
  const Faults::Scope faults;
  WatchAll();
  Faults::Fail("LoadLibraryW", 1, ERROR_MOD_NOT_FOUND, true);
  {
    const LineCompare_OrdinalW ordinal;
    const LineCompare_LanguageAware_StringCompareEx<WCHAR> language;
    const LineCompare_LanguageAware_WFallback widened;
  }
  EXPECT_EQ(Faults::CallCount("FreeLibrary"), 0);
}

TEST(ComparatorsThatFail, PutTheLeftKeyFirst) {
  const Faults::Scope faults;
  for (const char* function : kCompareFunctions) Faults::Fail(function, 1, ERROR_INVALID_FLAGS, true);
  AllComparators comparators;
  for (const auto& [left, right] : {std::pair{"a", "b"}, std::pair{"b", "a"}, std::pair{"a", "a"}}) {
    comparators.ExpectBefore(left, right, true);
  }
  EXPECT_EQ(Faults::CallCount("CompareStringA"), 3);
  EXPECT_EQ(Faults::CallCount("CompareStringW"), 3);
  EXPECT_EQ(Faults::CallCount("CompareStringEx"), 6);
  EXPECT_EQ(Faults::CallCount("CompareStringOrdinal"), 3);
}

TEST(ComparatorsThatFail, AreNotAskedForEmptyKeys) {
  const Faults::Scope faults;
  for (const char* function : kCompareFunctions) Faults::Fail(function, 1, ERROR_INVALID_FLAGS, true);
  AllComparators comparators;
  for (const auto& [left, right] : {std::pair{"", "a"}, std::pair{"a", ""}, std::pair{"", ""}}) {
    comparators.ExpectBefore(left, right, *left == '\0' && *right != '\0');
  }
  for (const char* function :
       {"CompareStringA", "CompareStringW", "CompareStringEx", "CompareStringOrdinal"}) {
    EXPECT_EQ(Faults::CallCount(function), 0) << function;
  }
}

TEST(ComparatorsThatFail, AConversionThatFailsLeavesAnEmptyTextInANewBuffer) {
  const Faults::Scope faults;
  LineCompare_LanguageAware_WFallback comparator;
  comparator.compareFlags = kLinguistic;
  Faults::Fail("MultiByteToWideChar", 1, ERROR_INVALID_PARAMETER, true);
  EXPECT_FALSE(Before<char>(comparator, "a", "b"));
  EXPECT_FALSE(Before<char>(comparator, "b", "a"));
}

TEST(ComparatorsAndMemory, ComparingTakesNone) {
  LineCompare_OrdinalA ordinalBytes;
  LineCompare_OrdinalW ordinalUnits;
  LineCompare_LanguageAware_StringCompareA bytes;
  LineCompare_LanguageAware_StringCompareEx<WCHAR> units;
  bytes.compareFlags = kLinguistic;
  units.compareFlags = kLinguisticDigits;
  const std::string left(300, 'x');
  const std::string right = left + "Y";
  const WString wideLeft = In<WCHAR>(left);
  const WString wideRight = In<WCHAR>(right);
  for (const bool steady : {false, true}) {
    const long before = Memory::AllocationCount();
    for (const bool ignoreCase : {false, true}) {
      ordinalBytes.ignoreCase = ordinalUnits.ignoreCase = ignoreCase;
      ordinalBytes.Compare(left.data(), 300, right.data(), 301);
      ordinalUnits.Compare(wideLeft.data(), 300, wideRight.data(), 301);
      bytes.Compare(left.data(), 300, right.data(), 301);
      units.Compare(wideLeft.data(), 300, wideRight.data(), 301);
    }
    if (steady) {
      EXPECT_EQ(Memory::AllocationCount(), before);
    }
  }
}

TEST(ComparatorsAndMemory, BuffersOfWidenedKeysGrowToTheLongestOneAndStay) {
  LineCompare_LanguageAware_WFallback comparator;
  comparator.compareFlags = kLinguistic;
  const std::string text(1000, 'x');
  const auto taken = [&](std::uint32_t left, std::uint32_t right) {
    const long before = Memory::AllocationCount();
    comparator.Compare(text.data(), left, text.data(), right);
    return Memory::AllocationCount() - before;
  };
  taken(1, 1);  // allocations that the system makes once
  // 128 units at first; then two more than the key that did not fit.
  EXPECT_EQ(taken(128, 128), 0);
  EXPECT_EQ(taken(129, 128), 1);
  EXPECT_EQ(taken(131, 128), 0);
  EXPECT_EQ(taken(131, 129), 1);
  EXPECT_EQ(taken(131, 131), 0);
  EXPECT_EQ(taken(132, 132), 2);
  EXPECT_EQ(taken(1000, 1), 1);
  EXPECT_EQ(taken(1, 1000), 1);
  EXPECT_EQ(taken(1000, 1000), 0);
  EXPECT_EQ(taken(1, 1), 0);
}
