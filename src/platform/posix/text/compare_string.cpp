// CompareStringA, CompareStringW and CompareStringEx.

#include <algorithm>
#include <limits>
#include <new>
#include <vector>

#include "platform/posix/files/fault_gate.h"
#include "platform/posix/last_error.h"
#include "platform/posix/text/code_page_1252.h"
#include "platform/posix/text/collation.h"
#include "platform/posix/windows_functions.h"

namespace {

using Platform::Collation;
using Platform::FailWith;
using Platform::UnalignedText;

constexpr DWORD kFlags = NORM_LINGUISTIC_CASING | LINGUISTIC_IGNORECASE | SORT_DIGITSASNUMBERS;
constexpr std::size_t kLongest = std::numeric_limits<int>::max();

// Converts `text` to UTF-16 in `buffer`, which grows to the longest text and is reused. The result refers to
// the buffer.
UnalignedText<WCHAR> Widen(const UnalignedText<char>& text, std::vector<WCHAR>& buffer) {
  buffer.resize(std::max(buffer.size(), text.Size()));
  Platform::Decode1252(text.Data(), text.Size(), buffer.data());
  return {buffer.data(), text.Size()};
}

int CompareWith(const Collation& collation, const UnalignedText<WCHAR>& lhs,
                const UnalignedText<WCHAR>& rhs) {
  return collation.Compare(lhs, rhs);
}

int CompareWith(const Collation& collation, const UnalignedText<char>& lhs, const UnalignedText<char>& rhs) {
  static thread_local std::vector<WCHAR> left;
  static thread_local std::vector<WCHAR> right;
  return collation.Compare(Widen(lhs, left), Widen(rhs, right));
}

template <typename CharT>
int Compare(DWORD flags, const CharT* lhs, int lhsCount, const CharT* rhs, int rhsCount) try {
  if (!lhs || !rhs) return FailWith(ERROR_INVALID_PARAMETER);
  if ((flags & ~kFlags) != 0) return FailWith(ERROR_INVALID_FLAGS);
  const auto left = UnalignedText<CharT>::Counted(lhs, lhsCount);
  const auto right = UnalignedText<CharT>::Counted(rhs, rhsCount);
  if (std::max(left.Size(), right.Size()) > kLongest) return FailWith(ERROR_INVALID_PARAMETER);

  const Collation* const collation =
      Platform::UserCollation({.ignoresCase = (flags & LINGUISTIC_IGNORECASE) != 0,
                               .digitsAsNumbers = (flags & SORT_DIGITSASNUMBERS) != 0});
  if (!collation) return FailWith(ERROR_GEN_FAILURE);
  const std::optional<int> ascii = collation->CompareAscii(left, right);
  return CSTR_EQUAL + (ascii ? *ascii : CompareWith(*collation, left, right));
} catch (const std::bad_alloc&) {
  return FailWith(ERROR_OUTOFMEMORY);
}

}  // namespace

int CompareStringA(LCID locale, DWORD flags, const char* lhs, int lhsCount, const char* rhs, int rhsCount) {
  if (Platform::FaultFires("CompareStringA", flags)) return 0;
  if (locale != LOCALE_USER_DEFAULT) return FailWith(ERROR_INVALID_PARAMETER);
  return Compare(flags, lhs, lhsCount, rhs, rhsCount);
}

int CompareStringW(LCID locale, DWORD flags, const WCHAR* lhs, int lhsCount, const WCHAR* rhs, int rhsCount) {
  if (Platform::FaultFires("CompareStringW", flags)) return 0;
  if (locale != LOCALE_USER_DEFAULT) return FailWith(ERROR_INVALID_PARAMETER);
  return Compare(flags, lhs, lhsCount, rhs, rhsCount);
}

int CompareStringEx(const WCHAR* localeName, DWORD flags, const WCHAR* lhs, int lhsCount, const WCHAR* rhs,
                    int rhsCount, NLSVERSIONINFO* version, LPVOID reserved, LPARAM parameter) {
  if (Platform::FaultFires("CompareStringEx", flags)) return 0;
  if (localeName || version || reserved || parameter != 0) return FailWith(ERROR_INVALID_PARAMETER);
  return Compare(flags, lhs, lhsCount, rhs, rhsCount);
}
