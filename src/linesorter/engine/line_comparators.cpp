#include "linesorter/engine/line_comparators.h"

#include <algorithm>
#include <cstring>

#include "platform/ascii_case.h"

namespace WQLineSorter {

namespace {

// The result of the rule for empty keys, which applies before any comparison of texts. If neither key is
// empty, `decided` is false.
struct EmptyKeys {
  bool decided;
  bool less;
};

EmptyKeys CompareEmpty(std::uint32_t lhsLength, std::uint32_t rhsLength) {
  return {lhsLength == 0 || rhsLength == 0, lhsLength == 0 && rhsLength != 0};
}

// Returns a character, for wide keys also from an odd address.
template <typename CharT>
std::uint32_t CharacterAt(const CharT* text, std::uint32_t index) {
  if constexpr (sizeof(CharT) == 1) {
    return static_cast<unsigned char>(text[index]);
  } else {
    std::uint16_t unit;
    std::memcpy(&unit, reinterpret_cast<const char*>(text) + std::size_t{index} * sizeof unit, sizeof unit);
    return unit;
  }
}

// Compares like strncmp, strnicmp and their wide forms over the shorter length, by unsigned characters and
// folding only A to Z, so that the result is the same on every system.
template <typename CharT>
bool IsPrefixLess(const CharT* lhs, std::uint32_t lhsLength, const CharT* rhs, std::uint32_t rhsLength,
                  bool ignoreCase) {
  const std::uint32_t length = std::min(lhsLength, rhsLength);
  for (std::uint32_t i = 0; i < length; ++i) {
    std::uint32_t left = CharacterAt(lhs, i);
    std::uint32_t right = CharacterAt(rhs, i);
    if (ignoreCase) {
      left = AsciiLower(left);
      right = AsciiLower(right);
    }
    if (left != right) return left < right;
    if (left == 0) return false;
  }
  return false;
}

// Interprets a result of the system's compare functions. 0, which means failure, counts as less (C-108).
bool IsLessResult(int result) { return result < CSTR_EQUAL; }

constexpr const WCHAR* kSystemLibrary = W("kernel32.dll");

}  // namespace

bool LineCompare_OrdinalA::Compare(const char* lhs, std::uint32_t lhsLength, const char* rhs,
                                   std::uint32_t rhsLength) {
  const EmptyKeys empty = CompareEmpty(lhsLength, rhsLength);
  if (empty.decided) return empty.less;
  return IsPrefixLess(lhs, lhsLength, rhs, rhsLength, ignoreCase);
}

LineCompare_OrdinalW::LineCompare_OrdinalW()
    : library(kSystemLibrary),
      compareStringOrdinal(library.Find<decltype(compareStringOrdinal)>("CompareStringOrdinal")) {}

bool LineCompare_OrdinalW::Compare(const WCHAR* lhs, std::uint32_t lhsLength, const WCHAR* rhs,
                                   std::uint32_t rhsLength) {
  const EmptyKeys empty = CompareEmpty(lhsLength, rhsLength);
  if (empty.decided) return empty.less;
  if (!compareStringOrdinal) return IsPrefixLess(lhs, lhsLength, rhs, rhsLength, ignoreCase);
  return IsLessResult(compareStringOrdinal(lhs, static_cast<int>(lhsLength), rhs, static_cast<int>(rhsLength),
                                           ignoreCase ? TRUE : FALSE));
}

bool LineCompare_LanguageAware_StringCompareA::Compare(const char* lhs, std::uint32_t lhsLength,
                                                       const char* rhs, std::uint32_t rhsLength) {
  const EmptyKeys empty = CompareEmpty(lhsLength, rhsLength);
  if (empty.decided) return empty.less;
  return IsLessResult(CompareStringA(locale, compareFlags, lhs, static_cast<int>(lhsLength), rhs,
                                     static_cast<int>(rhsLength)));
}

LanguageOrder::LanguageOrder(bool lookUp)
    : library(lookUp ? kSystemLibrary : nullptr),
      compareStringEx(library.Find<decltype(compareStringEx)>("CompareStringEx")) {}

bool LanguageOrder::IsLess(DWORD flags, const WCHAR* lhs, std::uint32_t lhsLength, const WCHAR* rhs,
                           std::uint32_t rhsLength) const {
  const auto left = static_cast<int>(lhsLength);
  const auto right = static_cast<int>(rhsLength);
  return IsLessResult(
      compareStringEx ? compareStringEx(localeNamePointer, flags, lhs, left, rhs, right, nullptr, nullptr, 0)
                      : CompareStringW(locale, flags, lhs, left, rhs, right));
}

bool LineCompare_LanguageAware_StringCompareEx<WCHAR>::Compare(const WCHAR* lhs, std::uint32_t lhsLength,
                                                               const WCHAR* rhs, std::uint32_t rhsLength) {
  const EmptyKeys empty = CompareEmpty(lhsLength, rhsLength);
  if (empty.decided) return empty.less;
  return order.IsLess(compareFlags, lhs, lhsLength, rhs, rhsLength);
}

namespace {

// Converts a key to wide characters in its buffer. The key is not zero-terminated: its block continues after
// it, up to a zero at the end of the block or earlier, and the conversion stops when the buffer has `length`
// units. Passes no more bytes than `length` units can come from, so that the time does not depend on the size
// of the block.
void WidenKey(const char* key, std::uint32_t length, std::unique_ptr<WCHAR[]>& buffer,
              std::uint32_t& capacity) {
  constexpr std::uint32_t kSmallest = 128;
  constexpr std::size_t kMaxBytesOfUnit = 4;
  if (length > capacity) {
    const std::uint32_t room = std::max(length + 2, kSmallest);
    buffer = std::make_unique<WCHAR[]>(room);
    capacity = room;
  }
  if (length == 0) return;
  // The units that the conversion does not write must be zero, not those of an earlier key.
  std::fill_n(buffer.get(), length, WCHAR());
  const std::size_t most = kMaxBytesOfUnit * length;
  const void* const zero = std::memchr(key, 0, most);
  const std::size_t bytes = zero ? static_cast<std::size_t>(static_cast<const char*>(zero) - key) + 1 : most;
  MultiByteToWideChar(CP_ACP, 0, key, static_cast<int>(bytes), buffer.get(), static_cast<int>(length));
}

}  // namespace

bool LineCompare_LanguageAware_WFallback::Compare(const char* lhs, std::uint32_t lhsLength, const char* rhs,
                                                  std::uint32_t rhsLength) {
  WidenKey(lhs, lhsLength, wide1, capacity1);
  WidenKey(rhs, rhsLength, wide2, capacity2);
  const EmptyKeys empty = CompareEmpty(lhsLength, rhsLength);
  if (empty.decided) return empty.less;
  return order.IsLess(compareFlags, wide1.get(), lhsLength, wide2.get(), rhsLength);
}

}  // namespace WQLineSorter
