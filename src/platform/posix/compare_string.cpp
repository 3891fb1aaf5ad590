// CompareStringA, CompareStringW and CompareStringEx.

#include <algorithm>
#include <array>
#include <limits>
#include <memory>
#include <new>

#include "platform/posix/code_page_1252.h"
#include "platform/posix/collation.h"
#include "platform/posix/fault_gate.h"
#include "platform/posix/last_error.h"
#include "platform/posix/windows_functions.h"

namespace {

using Platform::Collation;
using Platform::FailWith;
using Platform::UnalignedText;

constexpr DWORD kFlags = NORM_LINGUISTIC_CASING | LINGUISTIC_IGNORECASE | SORT_DIGITSASNUMBERS;
constexpr std::size_t kLongest = std::numeric_limits<int>::max();

// A text of bytes, widened: short ones on the stack, longer ones in a buffer that the next ones use as well.
class Widened {
 public:
  struct Buffer {
    std::unique_ptr<WCHAR[]> units;
    std::size_t size = 0;
  };

  Widened(const UnalignedText<char>& text, Buffer& buffer) : size_(text.Size()) {
    if (size_ > short_.size() && size_ > buffer.size) {
      buffer.size = 0;
      buffer.units.reset(new WCHAR[size_]);
      buffer.size = size_;
    }
    units_ = size_ > short_.size() ? buffer.units.get() : short_.data();
    Platform::Decode1252(text.Data(), size_, units_);
  }
  Widened(const Widened&) = delete;
  Widened& operator=(const Widened&) = delete;

  UnalignedText<WCHAR> Text() const { return {units_, size_}; }

 private:
  std::array<WCHAR, 256> short_;
  WCHAR* units_;
  std::size_t size_;
};

int CompareWith(const Collation& collation, const UnalignedText<WCHAR>& lhs,
                const UnalignedText<WCHAR>& rhs) {
  return collation.Compare(lhs, rhs);
}

int CompareWith(const Collation& collation, const UnalignedText<char>& lhs, const UnalignedText<char>& rhs) {
  static thread_local Widened::Buffer leftBuffer;
  static thread_local Widened::Buffer rightBuffer;
  const Widened left(lhs, leftBuffer);
  const Widened right(rhs, rightBuffer);
  return collation.Compare(left.Text(), right.Text());
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
