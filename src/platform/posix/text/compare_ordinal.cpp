// CompareStringOrdinal.

#include <algorithm>

#include "platform/posix/files/fault_gate.h"
#include "platform/posix/last_error.h"
#include "platform/posix/text/unaligned_text.h"
#include "platform/posix/text/upper_case.h"
#include "platform/posix/windows_functions.h"

namespace {

using Text = Platform::UnalignedText<WCHAR>;

template <typename Number>
int Order(Number lhs, Number rhs) {
  if (lhs == rhs) return CSTR_EQUAL;
  return lhs < rhs ? CSTR_LESS_THAN : CSTR_GREATER_THAN;
}

}  // namespace

int CompareStringOrdinal(const WCHAR* lhs, int lhsCount, const WCHAR* rhs, int rhsCount, BOOL ignoreCase) {
  if (Platform::FaultFires("CompareStringOrdinal")) return 0;
  if (!lhs || !rhs || lhsCount < -1 || rhsCount < -1) return Platform::FailWith(ERROR_INVALID_PARAMETER);
  const Text left = Text::Counted(lhs, lhsCount);
  const Text right = Text::Counted(rhs, rhsCount);
  const char16_t* const upper = ignoreCase ? Platform::UpperCaseTable() : nullptr;
  const std::size_t shared = std::min(left.Size(), right.Size());
  for (std::size_t i = 0; (i = left.FirstDifference(right, i, shared)) < shared; ++i) {
    if (!upper) return Order(left[i], right[i]);
    if (upper[left[i]] != upper[right[i]]) return Order(upper[left[i]], upper[right[i]]);
  }
  return Order(left.Size(), right.Size());
}
