#include "linesorter/engine/line_sort.h"

#include <algorithm>
#include <limits>
#include <new>
#include <numeric>
#include <span>
#include <utility>

#include "linesorter/engine/guarded_sort.h"
#include "linesorter/engine/key_ranks.h"
#include "linesorter/engine/line_comparators.h"
#include "linesorter/engine/line_order.h"
#include "linesorter/engine/number_sort.h"
#include "linesorter/engine/sort_keys.h"
#include "linesorter/engine/unit_folding.h"

namespace WQLineSorter {

namespace {

// With NORM_LINGUISTIC_CASING, case is ignored by the rules of the user's language.
constexpr DWORD kLanguageFlags = NORM_LINGUISTIC_CASING | LINGUISTIC_IGNORECASE;
constexpr DWORD kNaturalFlags = kLanguageFlags | SORT_DIGITSASNUMBERS;

bool Has(const SortLinesOptions& options, std::uint32_t bits) { return (options.options & bits) == bits; }

bool SortsByValue(const SortLinesOptions& options) {
  return (options.options & (SortAsNumber | SortAsDate)) != 0;
}

// Calls `use` with the comparator that the options choose, by its own type. The comparator exists until `use`
// returns.
template <typename CharT, typename Use>
void WithComparator(const SortLinesOptions& options, Use use) {
  const bool natural = Has(options, SortLanguageAware | SortNaturalNumbers);
  const DWORD flags = natural ? kNaturalFlags : kLanguageFlags;
  const auto with = [&](auto&& comparator) {
    comparator.ignoreCase = Has(options, SortIgnoreCase);
    comparator.compareFlags = Has(options, SortLanguageAware) ? flags : 0;
    use(comparator);
  };
  if constexpr (sizeof(CharT) == 1) {
    if (natural) return with(LineCompare_LanguageAware_WFallback());
    if (Has(options, SortLanguageAware)) return with(LineCompare_LanguageAware_StringCompareA());
    with(LineCompare_OrdinalA());
  } else {
    if (Has(options, SortLanguageAware)) {
      return with(LineCompare_LanguageAware_StringCompareEx<CharT>(!Has(options, SortNoCompareStringEx)));
    }
    with(LineCompare_OrdinalW());
  }
}

template <typename CharT, typename Comparator>
bool LessByKey(Comparator& comparator, const SortLine& a, const SortLine& b) {
  const auto left = KeyOf<CharT>(a);
  const auto right = KeyOf<CharT>(b);
  return comparator.Compare(left.text, left.length, right.text, right.length);
}

// LineCompare_OrdinalA is consistent, and the required order is that of std::stable_sort.
template <typename Iterator, typename Less>
void StableSortBy(const LineCompare_OrdinalA&, Iterator first, Iterator last, Less less) {
  std::stable_sort(first, last, less);
}

template <typename Iterator, typename Less>
void StableSortBy(const LineCompare_OrdinalW& comparator, Iterator first, Iterator last, Less less) {
  if (comparator.HasSystemFunction()) {
    GuardedStableSort(first, last, less);
  } else {
    std::stable_sort(first, last, less);
  }
}

template <typename Comparator, typename Iterator, typename Less>
void StableSortBy(const Comparator&, Iterator first, Iterator last, Less less) {
  GuardedStableSort(first, last, less);
}

bool LessByValue(const SortLine& a, const SortLine& b) { return a.numericKey < b.numericKey; }

LineOrder OrderOf(const KeyRecords& records) {
  LineOrder order(records.size());
  std::ranges::transform(records, order.begin(), &KeyRecord::index);
  return order;
}

LineOrder OrderByValue(std::span<const SortLine> lines) {
  constexpr std::uint64_t kSign = std::uint64_t{1} << 63;
  KeyRecords records(lines.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    records[i].SetNumber(static_cast<std::uint64_t>(lines[i].numericKey) ^ kSign);
    records[i].index = static_cast<std::uint32_t>(i);
  }
  NumberSort(records.size()).Sort(records);
  OrderEqualsByIndex(records);
  return OrderOf(records);
}

// Sorts ranked records back into the order of the file.
void RestoreFileOrder(KeyRecords& records) {
  std::vector<std::uint32_t> byLine(records.size());
  for (const auto rank : {&KeyRecord::high, &KeyRecord::low}) {
    for (const KeyRecord& record : records) byLine[record.index] = record.*rank;
    for (std::size_t i = 0; i < records.size(); ++i) records[i].*rank = byLine[i];
  }
  for (std::size_t i = 0; i < records.size(); ++i) records[i].index = static_cast<std::uint32_t>(i);
}

template <typename Keys>
LineOrder OrderByRank(std::span<const SortLine> lines, const FoldRule& rule) {
  bool hasPrefixes = false;
  KeyRecords records = RankKeys<Keys>(lines, rule, hasPrefixes);
  if (hasPrefixes) {
    RestoreFileOrder(records);
    std::ranges::stable_sort(records,
                             [](const KeyRecord& a, const KeyRecord& b) { return b.First() > a.Last(); });
  } else {
    OrderEqualsByIndex(records);
  }
  return OrderOf(records);
}

template <typename CharT, typename Comparator>
LineOrder OrderByComparator(std::span<const SortLine> lines, Comparator& comparator) {
  LineOrder order(lines.size());
  std::iota(order.begin(), order.end(), 0U);
  StableSortBy(comparator, order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
    return LessByKey<CharT>(comparator, lines[a], lines[b]);
  });
  return order;
}

// Only ordinal comparators can be replaced by ranks; all others are called for each pair of keys.
template <typename CharT, typename Comparator>
LineOrder OrderByKey(std::span<const SortLine> lines, Comparator& comparator) {
  return OrderByComparator<CharT>(lines, comparator);
}

template <typename CharT>
LineOrder OrderByKey(std::span<const SortLine> lines, LineCompare_OrdinalA& comparator) {
  return OrderByRank<ByteKeys>(lines, {comparator.ignoreCase, nullptr});
}

template <typename CharT>
LineOrder OrderByKey(std::span<const SortLine> lines, LineCompare_OrdinalW& comparator) {
  const FoldRule rule = {comparator.ignoreCase, comparator.ignoreCase ? UnitFolding() : nullptr};
  if (!comparator.HasSystemFunction() || (rule.ignoreCase && !rule.foldedUnits)) {
    return OrderByComparator<CharT>(lines, comparator);
  }
  return OrderByRank<UnitKeys>(lines, rule);
}

template <typename CharT>
LineOrder FindOrder(std::span<const SortLine> lines, const SortLinesOptions& options) {
  if (SortsByValue(options)) return OrderByValue(lines);
  LineOrder order;
  WithComparator<CharT>(options, [&](auto& comparator) { order = OrderByKey<CharT>(lines, comparator); });
  return order;
}

template <typename CharT>
void StableSort(std::span<SortLine> lines, const SortLinesOptions& options) {
  if (SortsByValue(options)) {
    std::stable_sort(lines.begin(), lines.end(), LessByValue);
    return;
  }
  WithComparator<CharT>(options, [&](auto& comparator) {
    StableSortBy(comparator, lines.begin(), lines.end(),
                 [&](const SortLine& a, const SortLine& b) { return LessByKey<CharT>(comparator, a, b); });
  });
}

template <typename Lines>
auto LinesIn(Lines& lines, LineRange range) {
  return std::span(lines).subspan(range.first, range.last - range.first);
}

// The minimum number of lines for which the preparations of the fast paths pay off.
constexpr std::size_t kMinLines = 64;

bool HasFastPath(std::size_t count) {
  return count >= kMinLines && count <= std::numeric_limits<std::uint32_t>::max();
}

// Returns the order of all `count` lines, given the order of the range with indices that count from its first
// line.
LineOrder Surround(LineOrder order, LineRange range, std::size_t count) {
  if (range.first == 0 && range.last == count) return order;
  LineOrder whole(count);
  std::iota(whole.begin(), whole.end(), 0U);
  std::ranges::transform(
      order, whole.begin() + static_cast<std::ptrdiff_t>(range.first),
      [&](std::uint32_t place) { return static_cast<std::uint32_t>(place + range.first); });
  return whole;
}

}  // namespace

LineRange MovableRange(const std::vector<SortLine>& lines, const SortLinesOptions& options) {
  const std::uint64_t kept = std::uint64_t{options.keepLinesTop} + options.keepLinesBottom;
  if (kept >= lines.size()) return {0, 0};
  return {options.keepLinesTop, lines.size() - options.keepLinesBottom};
}

template <typename CharT>
void SortLineRangeReference(std::vector<SortLine>& lines, LineRange range, const SortLinesOptions& options) {
  const std::span<SortLine> moving = LinesIn(lines, range);
  StableSort<CharT>(moving, options);
  if (Has(options, SortReverse)) std::ranges::reverse(moving);
}

template <typename CharT>
void SortLineRange(std::vector<SortLine>& lines, LineRange range, const SortLinesOptions& options) {
  const std::span<SortLine> moving = LinesIn(lines, range);
  if (!HasFastPath(moving.size())) {
    SortLineRangeReference<CharT>(lines, range, options);
    return;
  }
  try {
    ApplyOrder(moving, FindOrder<CharT>(moving, options));
  } catch (const std::bad_alloc&) {
    // The fast paths need memory; the plain sort does not.
    SortLineRangeReference<CharT>(lines, range, options);
    return;
  }
  if (Has(options, SortReverse)) std::ranges::reverse(moving);
}

template <typename CharT>
std::optional<LineOrder> FindLineOrder(const std::vector<SortLine>& lines, LineRange range,
                                       const SortLinesOptions& options) {
  const std::span<const SortLine> moving = LinesIn(lines, range);
  if (!HasFastPath(moving.size()) || !HasFastPath(lines.size())) return std::nullopt;
  try {
    LineOrder order = FindOrder<CharT>(moving, options);
    if (Has(options, SortReverse)) std::ranges::reverse(order);
    return Surround(std::move(order), range, lines.size());
  } catch (const std::bad_alloc&) {
    return std::nullopt;
  }
}

void RemoveBlankLines(std::vector<SortLine>& lines, LineRange range) {
  const auto first = lines.begin() + static_cast<std::ptrdiff_t>(range.first);
  const auto last = lines.begin() + static_cast<std::ptrdiff_t>(range.last);
  lines.erase(std::remove_if(first, last, [](const SortLine& line) { return line.length == 0; }), last);
}

void RemoveBlankLines(LineOrder& order, const std::vector<SortLine>& lines, LineRange range) {
  const auto first = order.begin() + static_cast<std::ptrdiff_t>(range.first);
  const auto last = order.begin() + static_cast<std::ptrdiff_t>(range.last);
  const auto isBlank = [&](std::uint32_t place) { return lines[place].length == 0; };
  order.erase(std::remove_if(first, last, isBlank), last);
}

template void SortLineRange<char>(std::vector<SortLine>&, LineRange, const SortLinesOptions&);
template void SortLineRange<WCHAR>(std::vector<SortLine>&, LineRange, const SortLinesOptions&);
template void SortLineRangeReference<char>(std::vector<SortLine>&, LineRange, const SortLinesOptions&);
template void SortLineRangeReference<WCHAR>(std::vector<SortLine>&, LineRange, const SortLinesOptions&);
template std::optional<LineOrder> FindLineOrder<char>(const std::vector<SortLine>&, LineRange,
                                                      const SortLinesOptions&);
template std::optional<LineOrder> FindLineOrder<WCHAR>(const std::vector<SortLine>&, LineRange,
                                                       const SortLinesOptions&);

}  // namespace WQLineSorter
