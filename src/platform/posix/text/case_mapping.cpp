// LCMapStringW for upper and lower case in the invariant locale.

#include <unicode/uchar.h>

#include <array>
#include <string_view>

#include "platform/posix/files/fault_gate.h"
#include "platform/posix/last_error.h"
#include "platform/posix/text/upper_case.h"
#include "platform/posix/windows_functions.h"

namespace {

constexpr std::size_t kUnits = 0x10000;
using CaseTable = std::array<WCHAR, kUnits>;

struct CaseTables {
  CaseTable upper;
  CaseTable lower;
};

WCHAR UnitOr(UChar32 mapped, WCHAR fallback) {
  return mapped < static_cast<UChar32>(kUnits) ? static_cast<WCHAR>(mapped) : fallback;
}

// Windows maps a character only if the result maps back to it: the dotless i, the long s, the Kelvin sign,
// the title case digraphs and the variant forms of Greek letters do not change. Neither do surrogates,
// because the mapping works unit by unit.
const CaseTables& Tables() {
  static const CaseTables tables = [] {
    CaseTables made;
    for (std::size_t i = 0; i < kUnits; ++i) {
      const WCHAR unit = static_cast<WCHAR>(i);
      const WCHAR upper = UnitOr(u_toupper(unit), unit);
      const WCHAR lower = UnitOr(u_tolower(unit), unit);
      made.upper[i] = u_tolower(upper) == static_cast<UChar32>(unit) ? upper : unit;
      made.lower[i] = u_toupper(lower) == static_cast<UChar32>(unit) ? lower : unit;
    }
    return made;
  }();
  return tables;
}

}  // namespace

char16_t Platform::UpperCase(char16_t unit) { return Tables().upper[unit]; }

const char16_t* Platform::UpperCaseTable() { return Tables().upper.data(); }

int LCMapStringW(LCID, DWORD flags, const WCHAR* source, int sourceSize, WCHAR* target, int targetSize) {
  if (Platform::FaultFires("LCMapStringW", flags)) return 0;
  if (!source || targetSize < 0 || (targetSize > 0 && !target)) {
    return Platform::FailWith(ERROR_INVALID_PARAMETER);
  }
  std::size_t count = static_cast<std::size_t>(sourceSize);
  if (sourceSize < 0) count = std::u16string_view(source).size() + 1;
  if (count == 0) return Platform::FailWith(ERROR_INVALID_PARAMETER);
  if (flags != LCMAP_UPPERCASE && flags != LCMAP_LOWERCASE) return Platform::FailWith(ERROR_INVALID_FLAGS);

  if (targetSize == 0) return static_cast<int>(count);

  const CaseTable& table = flags == LCMAP_UPPERCASE ? Tables().upper : Tables().lower;
  const std::size_t room = static_cast<std::size_t>(targetSize);
  for (std::size_t i = 0; i < count && i < room; ++i) target[i] = table[source[i]];
  return count > room ? Platform::FailWith(ERROR_INSUFFICIENT_BUFFER) : static_cast<int>(count);
}
