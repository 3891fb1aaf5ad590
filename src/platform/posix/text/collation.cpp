#include "platform/posix/text/collation.h"

#include <unicode/ucol.h>
#include <unicode/uset.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <string_view>

#include "platform/posix/text/user_locale.h"

namespace Platform {

namespace {

constexpr unsigned kDigitZero = '0';
constexpr unsigned kDigitNine = '9';

bool IsDigit(unsigned unit) { return unit >= kDigitZero && unit <= kDigitNine; }

template <typename Number>
int Sign(Number lhs, Number rhs) {
  return lhs < rhs ? -1 : (lhs > rhs ? 1 : 0);
}

// Returns whether the collator has no contractions of neighbouring ASCII characters and no expansions of
// single ones.
bool AreSortedSeparately(const UCollator* collator) {
  const std::unique_ptr<USet, decltype(&uset_close)> set(uset_openEmpty(), uset_close);
  UErrorCode status = U_ZERO_ERROR;
  ucol_getContractionsAndExpansions(collator, set.get(), set.get(), true, &status);
  if (U_FAILURE(status)) return false;
  for (int32_t item = 0; item < uset_getItemCount(set.get()); ++item) {
    UChar32 first = 0;
    UChar32 last = 0;
    UChar text[32];
    status = U_ZERO_ERROR;
    const int32_t size = uset_getItem(set.get(), item, &first, &last, text, 32, &status);
    if (U_FAILURE(status)) return false;
    // An item of size 0 is a range of characters; otherwise it is a string.
    const auto isAscii = [](UChar unit) { return unit < 128; };
    const bool together =
        size == 0 ? first < 128 : std::adjacent_find(text, text + size, [&](UChar unit, UChar next) {
                                    return isAscii(unit) && isAscii(next);
                                  }) != text + size;
    if (together) return false;
  }
  return true;
}

// The bounds of a run of digits without its leading zeros.
struct Number {
  std::size_t begin;
  std::size_t end;
};

template <typename CharT>
Number NumberAt(const UnalignedText<CharT>& text, std::size_t begin) {
  while (begin < text.Size() && text[begin] == kDigitZero) ++begin;
  Number number{begin, begin};
  while (number.end < text.Size() && IsDigit(text[number.end])) ++number.end;
  return number;
}

}  // namespace

Collation::Collation(const char* locale, const CollationRules& rules)
    : digitsAsNumbers_(rules.digitsAsNumbers) {
  UErrorCode status = U_ZERO_ERROR;
  collator_ = ucol_open(locale, &status);
  ucol_setAttribute(collator_, UCOL_STRENGTH, rules.ignoresCase ? UCOL_SECONDARY : UCOL_TERTIARY, &status);
  ucol_setAttribute(collator_, UCOL_NUMERIC_COLLATION, rules.digitsAsNumbers ? UCOL_ON : UCOL_OFF, &status);
  ucol_setAttribute(collator_, UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE, &status);
  if (U_FAILURE(status)) {
    ucol_close(collator_);
    collator_ = nullptr;
    return;
  }
  if (rules.ignoresCase && AreSortedSeparately(collator_)) PlaceAscii();
}

Collation::~Collation() { ucol_close(collator_); }

void Collation::PlaceAscii() {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UCollator, decltype(&ucol_close)> primary(ucol_clone(collator_, &status), ucol_close);
  ucol_setAttribute(primary.get(), UCOL_STRENGTH, UCOL_PRIMARY, &status);
  if (U_FAILURE(status)) return;
  const auto compare = [](const UCollator* collator, char16_t lhs, char16_t rhs) {
    return ucol_strcoll(collator, &lhs, 1, &rhs, 1);
  };

  std::array<char16_t, kAscii> units;
  std::iota(units.begin(), units.end(), char16_t{0});
  std::stable_sort(units.begin(), units.end(),
                   [&](char16_t lhs, char16_t rhs) { return compare(primary.get(), lhs, rhs) == UCOL_LESS; });
  std::array<std::uint8_t, kAscii> places{};
  std::uint8_t place = 0;
  for (std::size_t i = 1; i < units.size(); ++i) {
    const char16_t before = units[i - 1];
    const bool differs = compare(primary.get(), before, units[i]) != UCOL_EQUAL;
    // Characters that differ only on a lower level cannot be compared by places. The table then stays empty,
    // and ICU compares all texts that are not identical.
    if (!differs && compare(collator_, before, units[i]) != UCOL_EQUAL) return;
    if (differs) ++place;
    places[units[i]] = place;
  }
  places_ = places;
}

// If the first characters with different places are between ASCII characters that have places, these two
// places decide: no neighbour can combine with them, and the text before them compares equal.
template <typename CharT>
std::optional<int> Collation::CompareAscii(const UnalignedText<CharT>& lhs,
                                           const UnalignedText<CharT>& rhs) const {
  using Text = UnalignedText<CharT>;
  const auto placeAt = [this](const Text& text, std::size_t index) -> unsigned {
    const unsigned unit = text[index];
    return unit < kAscii ? places_[unit] : 0;
  };
  // True at the end of the text and for a character that cannot combine with its neighbours.
  const auto isBorder = [&](const Text& text, std::size_t index) {
    return index >= text.Size() || placeAt(text, index) != 0;
  };
  const auto begins = [&](const Text& text, std::size_t index) {
    return index == 0 || isBorder(text, index - 1);
  };
  const auto isDigitAt = [](const Text& text, std::size_t index) {
    return index < text.Size() && IsDigit(text[index]);
  };

  const std::size_t shared = std::min(lhs.Size(), rhs.Size());
  for (std::size_t at = 0;; ++at) {
    at = lhs.FirstDifference(rhs, at, shared);
    if (at == shared && lhs.Size() == rhs.Size()) return 0;
    if (!isBorder(lhs, at) || !isBorder(rhs, at) || !begins(lhs, at) || !begins(rhs, at)) return std::nullopt;
    if (at < shared) {
      if (!isBorder(lhs, at + 1) || !isBorder(rhs, at + 1)) return std::nullopt;
      if (placeAt(lhs, at) == placeAt(rhs, at)) continue;
    }
    if (digitsAsNumbers_ && (isDigitAt(lhs, at) || isDigitAt(rhs, at))) {
      std::size_t begin = at;
      while (begin > 0 && IsDigit(lhs[begin - 1])) --begin;
      if (begin < at || (isDigitAt(lhs, at) && isDigitAt(rhs, at))) {
        return begins(lhs, begin) && begins(rhs, begin) ? CompareNumbers(lhs, rhs, begin) : std::nullopt;
      }
    }
    if (at == shared) return Sign(lhs.Size(), rhs.Size());
    return Sign(placeAt(lhs, at), placeAt(rhs, at));
  }
}

template <typename CharT>
std::optional<int> Collation::CompareNumbers(const UnalignedText<CharT>& lhs, const UnalignedText<CharT>& rhs,
                                             std::size_t begin) const {
  // ICU splits longer runs of digits.
  constexpr std::size_t kLongestNumber = 254;
  const auto endsInAscii = [this](const UnalignedText<CharT>& text, std::size_t end) {
    return end == text.Size() || (text[end] < kAscii && places_[text[end]] != 0);
  };
  const Number left = NumberAt(lhs, begin);
  const Number right = NumberAt(rhs, begin);
  if (std::max(left.end, right.end) - begin > kLongestNumber) return std::nullopt;
  if (!endsInAscii(lhs, left.end) || !endsInAscii(rhs, right.end)) return std::nullopt;
  const std::size_t size = left.end - left.begin;
  const int longer = Sign(size, right.end - right.begin);
  if (longer != 0) return longer;
  for (std::size_t i = 0; i < size; ++i) {
    const int order = Sign(lhs[left.begin + i], rhs[right.begin + i]);
    if (order != 0) return order;
  }
  return std::nullopt;  // equal values; the numbers of leading zeros may differ
}

template std::optional<int> Collation::CompareAscii(const UnalignedText<char>& lhs,
                                                    const UnalignedText<char>& rhs) const;
template std::optional<int> Collation::CompareAscii(const UnalignedText<WCHAR>& lhs,
                                                    const UnalignedText<WCHAR>& rhs) const;

int Collation::Compare(const UnalignedText<WCHAR>& lhs, const UnalignedText<WCHAR>& rhs) const {
  return ucol_strcoll(collator_, lhs.Data(), static_cast<int32_t>(lhs.Size()), rhs.Data(),
                      static_cast<int32_t>(rhs.Size()));
}

const Collation* UserCollation(const CollationRules& rules) {
  // Indexed by digitsAsNumbers * 2 + ignoresCase. Never destroyed.
  static const Collation* const collations = [] {
    const char* const locale = UserLocale();
    return std::unique_ptr<Collation[]>(new Collation[4]{{locale, {false, false}},
                                                         {locale, {true, false}},
                                                         {locale, {false, true}},
                                                         {locale, {true, true}}})
        .release();
  }();
  const Collation& collation = collations[(rules.digitsAsNumbers ? 2 : 0) + (rules.ignoresCase ? 1 : 0)];
  return collation.IsOpen() ? &collation : nullptr;
}

}  // namespace Platform
