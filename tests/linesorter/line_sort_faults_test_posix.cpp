// The sort by the user's language when a single comparison of the system fails, so that the comparisons are
// inconsistent: the order is then unspecified, but every line remains exactly once. Also the arguments that
// are passed to the system.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "linesorter/engine/line_sort.h"
#include "linesorter/engine/sort_keys.h"
#include "linesorter/engine/unit_folding.h"
#include "linesorter/line_records.h"
#include "platform/posix/files/faults.h"
#include "support/memory_limit.h"

using namespace WQLineSorter;
using namespace Platform;

namespace {

constexpr const char* kCompareFunctions[] = {"CompareStringA", "CompareStringW", "CompareStringEx",
                                             "CompareStringOrdinal"};

// A way to sort by the user's language, and the system function that it uses.
struct Way {
  const char* function;
  std::uint32_t bits;
  bool withoutTheNewFunction;  // simulates a system without CompareStringEx
};

constexpr std::uint32_t kNatural = SortLanguageAware | SortNaturalNumbers;

template <typename CharT>
std::vector<Way> Ways() {
  if constexpr (sizeof(CharT) == 1) {
    return {{"CompareStringA", SortLanguageAware, false},
            {"CompareStringEx", kNatural, false},
            {"CompareStringW", kNatural, true},
            {"MultiByteToWideChar", kNatural, false}};
  } else {
    return {{"CompareStringEx", SortLanguageAware, false},
            {"CompareStringEx", kNatural, false},
            {"CompareStringW", SortLanguageAware | SortNoCompareStringEx, false},
            {"CompareStringW", kNatural, true}};
  }
}

std::string LineNumbered(std::size_t number) {
  return {static_cast<char>('a' + number / 26 % 26), static_cast<char>('a' + number % 26)};
}

// Line orders that lead to different code paths of the sort.
using Shape = std::string (*)(std::size_t index, std::size_t count);
constexpr Shape kShapes[] = {
    [](std::size_t index, std::size_t) { return LineNumbered(index * 7919 % 401); },
    [](std::size_t index, std::size_t) { return LineNumbered(index); },
    // The first line stays first, and each other line is moved back to just after it.
    [](std::size_t index, std::size_t count) { return LineNumbered(index == 0 ? 0 : count - index); },
    [](std::size_t, std::size_t) { return std::string("same"); },
    [](std::size_t index, std::size_t) { return "x" + std::to_string(index * 31 % 17); },
};

constexpr std::size_t kLong = 400;
constexpr std::size_t kCounts[] = {2, 10, 63, 64, kLong};

template <typename CharT>
class LineSortFaults : public testing::Test {
 protected:
  static LineRecords<CharT> Records(Shape shape, std::size_t count) {
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < count; ++i) texts.push_back(shape(i, count));
    return LinesOf<CharT>(texts);
  }

  static SortLinesOptions OptionsOf(const Way& way) {
    SortLinesOptions options;
    options.options = SortByLine | SortAsText | way.bits;
    return options;
  }

  // Sets the faults for one sort. A look-up that fails once affects only the sort that follows.
  static void Arm(const Way& way, int nth, bool repeat) {
    if (way.withoutTheNewFunction) Faults::Fail("GetProcAddress", 1, ERROR_PROC_NOT_FOUND);
    Faults::Fail(way.function, nth, ERROR_INVALID_PARAMETER, repeat);
  }

  // Returns the addresses of the lines' texts, sorted.
  static std::vector<const char*> PlacesOf(const std::vector<SortLine>& lines) {
    std::vector<const char*> places;
    for (const SortLine& line : lines) places.push_back(line.text);
    std::sort(places.begin(), places.end(), std::less<>());
    return places;
  }
};
TYPED_TEST_SUITE(LineSortFaults, BothWidths);

// Returns the calls that fail: the first ones, and some of those that merge longer runs. Fewer for a long
// sort.
std::vector<int> CallsToFail(std::size_t count) {
  std::vector<int> calls;
  for (int nth = 1; nth <= 60; nth += count < kLong ? 1 : 11) calls.push_back(nth);
  for (const int nth : {75, 100, 150, 250, 400, 1000, 2000, 2900}) calls.push_back(nth);
  return calls;
}

}  // namespace

TYPED_TEST(LineSortFaults, OneComparisonThatFailsLosesNoLineAndDoublesNone) {
  for (const Way& way : Ways<TypeParam>()) {
    for (const Shape shape : kShapes) {
      for (const std::size_t count : kCounts) {
        const LineRecords<TypeParam> records = this->Records(shape, count);
        for (const int nth : CallsToFail(count)) {
          const Faults::Scope faults;
          this->Arm(way, nth, false);
          std::vector<SortLine> lines = records.lines;
          SortLineRange<TypeParam>(lines, {0, lines.size()}, this->OptionsOf(way));
          ASSERT_EQ(this->PlacesOf(lines), this->PlacesOf(records.lines))
              << way.function << ", call " << nth << " of a sort of " << count;
          if (Faults::CallCount(way.function) < nth) break;
        }
      }
    }
  }
}

TYPED_TEST(LineSortFaults, ComparisonsThatFailFromOneOnLoseNoLineAndDoubleNone) {
  for (const Way& way : Ways<TypeParam>()) {
    for (const Shape shape : kShapes) {
      for (const std::size_t count : kCounts) {
        const LineRecords<TypeParam> records = this->Records(shape, count);
        for (const int nth : {1, 2, 3, 5, 8, 13, 21, 34, 55, 200, 1500}) {
          const Faults::Scope faults;
          this->Arm(way, nth, true);
          std::vector<SortLine> lines = records.lines;
          SortLineRange<TypeParam>(lines, {0, lines.size()}, this->OptionsOf(way));
          ASSERT_EQ(this->PlacesOf(lines), this->PlacesOf(records.lines))
              << way.function << ", from call " << nth << " of a sort of " << count;
          if (Faults::CallCount(way.function) < nth) break;
        }
      }
    }
  }
}

TYPED_TEST(LineSortFaults, LinesOutsideTheRangeStayWhereTheyAre) {
  const Shape shape = kShapes[2];
  for (const Way& way : Ways<TypeParam>()) {
    for (const std::size_t count : {std::size_t{10}, std::size_t{69}, std::size_t{70}}) {
      const LineRecords<TypeParam> records = this->Records(shape, count);
      for (const int nth : CallsToFail(count)) {
        const Faults::Scope faults;
        this->Arm(way, nth, false);
        std::vector<SortLine> lines = records.lines;
        SortLineRange<TypeParam>(lines, {3, count - 3}, this->OptionsOf(way));
        for (const std::size_t kept :
             {std::size_t{0}, std::size_t{1}, std::size_t{2}, count - 3, count - 2, count - 1}) {
          ASSERT_EQ(lines[kept].text, records.lines[kept].text)
              << way.function << ", call " << nth << " of a sort of " << count << ", line " << kept;
        }
        ASSERT_EQ(this->PlacesOf(lines), this->PlacesOf(records.lines));
        if (Faults::CallCount(way.function) < nth) break;
      }
    }
  }
}

TYPED_TEST(LineSortFaults, OneComparisonThatFailsWithoutMemoryLosesNoLineAndDoublesNone) {
  const Shape shape = kShapes[2];
  for (const Way& way : Ways<TypeParam>()) {
    for (const std::size_t count : kCounts) {
      const LineRecords<TypeParam> records = this->Records(shape, count);
      const SortLinesOptions options = this->OptionsOf(way);
      for (const int nth : {2, 40, 100, 1500}) {
        if ((nth < 100) != (count < kLong)) continue;  // calls that such a sort makes; few for a long one
        const Faults::Scope faults;
        // The faults' record of calls must not allocate under the limit, so it grows here.
        Faults::Watch(way.function);
        if (way.withoutTheNewFunction) Faults::Fail("GetProcAddress", 1, ERROR_PROC_NOT_FOUND, true);
        for (int i = 0; i < 3; ++i) {
          std::vector<SortLine> lines = records.lines;
          SortLineRange<TypeParam>(lines, {0, lines.size()}, options);
        }
        for (int allocations = 0;; ++allocations) {
          ASSERT_LT(allocations, 1000);
          this->Arm(way, nth, false);
          std::vector<SortLine> lines = records.lines;
          bool isDone = false;
          long taken = 0;
          {
            const Memory::Limit limit(allocations);
            const long before = Memory::AllocationCount();
            try {
              SortLineRange<TypeParam>(lines, {0, lines.size()}, options);
              isDone = true;
            } catch (const std::bad_alloc&) {
            }
            taken = Memory::AllocationCount() - before;
          }
          // Bytes in natural order are widened, which needs memory; all other ways succeed without any.
          if (sizeof(TypeParam) == 2 || way.bits != kNatural) {
            EXPECT_TRUE(isDone) << way.function << " " << allocations;
          }
          if (isDone) {
            ASSERT_EQ(this->PlacesOf(lines), this->PlacesOf(records.lines))
                << way.function << ", call " << nth << " of a sort of " << count << ", " << allocations
                << " allocations";
          }
          if (taken <= allocations) break;  // all requested allocations succeeded
        }
      }
    }
  }
}

// The function and flags of each way, by the character width and the options.
TEST(LineSortFlags, AreThoseOfTheUsersLanguage) {
  constexpr struct {
    bool isWide;
    std::uint32_t bits;
    const char* function;
    std::uint32_t flags;
  } kRows[] = {
      {false, 0, nullptr, 0},
      {false, SortNaturalNumbers, nullptr, 0},
      {false, SortIgnoreCase, nullptr, 0},
      {false, SortLanguageAware, "CompareStringA", 0x8000010},
      {false, SortLanguageAware | SortIgnoreCase, "CompareStringA", 0x8000010},
      {false, SortLanguageAware | SortNoCompareStringEx, "CompareStringA", 0x8000010},
      {false, kNatural, "CompareStringEx", 0x8000018},
      {false, kNatural | SortIgnoreCase, "CompareStringEx", 0x8000018},
      // This option has no effect on bytes.
      {false, kNatural | SortNoCompareStringEx, "CompareStringEx", 0x8000018},
      {true, SortLanguageAware, "CompareStringEx", 0x8000010},
      {true, SortLanguageAware | SortIgnoreCase, "CompareStringEx", 0x8000010},
      {true, kNatural, "CompareStringEx", 0x8000018},
      {true, kNatural | SortIgnoreCase, "CompareStringEx", 0x8000018},
      {true, SortLanguageAware | SortNoCompareStringEx, "CompareStringW", 0x8000010},
      {true, kNatural | SortNoCompareStringEx, "CompareStringW", 0x8000018},
  };
  for (const auto& row : kRows) {
    for (const std::size_t count : {std::size_t{10}, std::size_t{200}}) {
      SCOPED_TRACE(testing::Message() << (row.isWide ? "units, " : "bytes, ") << row.bits << ", " << count);
      const Faults::Scope faults;
      SortLinesOptions options;
      options.options = SortByLine | SortAsText | row.bits;
      std::vector<std::string> texts;
      for (std::size_t i = 0; i < count; ++i) texts.push_back(kShapes[0](i, count));
      LineRecords<char> bytes = LinesOf<char>(texts);
      LineRecords<WCHAR> units = LinesOf<WCHAR>(texts);
      for (const char* function : kCompareFunctions) Faults::Watch(function);
      if (row.isWide) {
        SortLineRange<WCHAR>(units.lines, {0, count}, options);
      } else {
        SortLineRange<char>(bytes.lines, {0, count}, options);
      }
      for (const char* function : kCompareFunctions) {
        const bool isTheOne = row.function && function == std::string_view(row.function);
        EXPECT_EQ(Faults::CallCount(function) > 0, isTheOne) << function;
        EXPECT_EQ(Faults::LastFlags(function), isTheOne ? row.flags : 0u) << function;
      }
    }
  }
}

TEST(LineSortFlags, AreTheSameForTheOlderFunction) {
  for (const auto& [bits, flags] :
       {std::pair{+SortLanguageAware, 0x8000010u}, std::pair{kNatural, 0x8000018u}}) {
    const Faults::Scope faults;
    SortLinesOptions options;
    options.options = SortByLine | SortAsText | bits;
    LineRecords<WCHAR> units = LinesOf<WCHAR>({"b", "c", "a"});
    Faults::Fail("GetProcAddress", 1, ERROR_PROC_NOT_FOUND);
    Faults::Watch("CompareStringW");
    SortLineRange<WCHAR>(units.lines, {0, 3}, options);
    EXPECT_EQ(TextsOf<WCHAR>(units.lines), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(Faults::LastFlags("CompareStringW"), flags);
  }
  const Faults::Scope faults;
  SortLinesOptions options;
  options.options = SortByLine | SortAsText | kNatural;
  LineRecords<char> bytes = LinesOf<char>({"a10", "a9"});
  Faults::Fail("LoadLibraryW", 1, ERROR_MOD_NOT_FOUND);
  Faults::Watch("CompareStringW");
  SortLineRange<char>(bytes.lines, {0, 2}, options);
  EXPECT_EQ(TextsOf<char>(bytes.lines), (std::vector<std::string>{"a9", "a10"}));
  EXPECT_EQ(Faults::LastFlags("CompareStringW"), 0x8000018u);
}

// Without the system function a key equals its own prefixes, however many lines there are.
TEST(LineSortWithoutTheSystem, UnitsThatArePrefixesOfOthersKeepTheirOrder) {
  // Created once for the process; later tests need it.
  ASSERT_NE(UnitFolding(), nullptr);
  for (const std::size_t count : {std::size_t{10}, std::size_t{200}}) {
    for (const std::uint32_t bits : {0u, +SortIgnoreCase}) {
      const Faults::Scope faults;
      Faults::Fail("GetProcAddress", 1, ERROR_PROC_NOT_FOUND, true);
      SortLinesOptions options;
      options.options = SortByLine | SortAsText | bits;
      std::vector<std::string> texts(1, "b");
      while (texts.size() < count) texts.push_back(texts.size() % 2 == 0 ? "a" : "ab");
      LineRecords<WCHAR> units = LinesOf<WCHAR>(texts);
      SortLineRange<WCHAR>(units.lines, {0, count}, options);
      std::rotate(texts.begin(), texts.begin() + 1, texts.end());
      EXPECT_EQ(TextsOf<WCHAR>(units.lines), texts) << count << " " << bits;
    }
  }
}
