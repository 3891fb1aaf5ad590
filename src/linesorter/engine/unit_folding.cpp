#include "linesorter/engine/unit_folding.h"

#include <array>
#include <optional>

#include "linesorter/engine/line_comparators.h"

namespace WQLineSorter {

namespace {

constexpr std::uint32_t kUnits = 0x10000;
using UnitTable = std::array<std::uint16_t, kUnits>;

void FillWithUpperCase(UnitTable& table) {
  for (std::uint32_t unit = 0; unit < kUnits; ++unit) {
    const auto from = static_cast<WCHAR>(unit);
    WCHAR to = from;
    if (LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, &from, 1, &to, 1) != 1) to = from;
    table[unit] = static_cast<std::uint16_t>(to);
  }
}

// Returns true if the system orders the units as the table does: each unit equal to the one that it folds to,
// and the units that fold to themselves by their numbers.
bool SystemAgrees(const UnitTable& table) {
  LineCompare_OrdinalW system;
  system.ignoreCase = true;
  if (!system.HasSystemFunction()) return false;
  const auto less = [&system](std::uint32_t a, std::uint32_t b) {
    const auto left = static_cast<WCHAR>(a);
    const auto right = static_cast<WCHAR>(b);
    return system.Compare(&left, 1, &right, 1);
  };
  std::optional<std::uint32_t> previous;
  for (std::uint32_t unit = 0; unit < kUnits; ++unit) {
    const std::uint16_t folded = table[unit];
    if (folded != unit) {
      if (table[folded] != folded || less(unit, folded) || less(folded, unit)) return false;
    } else {
      if (previous && (!less(*previous, unit) || less(unit, *previous))) return false;
      previous = unit;
    }
  }
  return true;
}

}  // namespace

const std::uint16_t* UnitFolding() {
  static UnitTable table;
  static const bool usable = [] {
    FillWithUpperCase(table);
    return SystemAgrees(table);
  }();
  return usable ? table.data() : nullptr;
}

}  // namespace WQLineSorter
