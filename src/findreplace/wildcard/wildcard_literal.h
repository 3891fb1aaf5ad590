// A literal is a part of a pattern with a fixed length: characters, and places for any one character. A plain
// text is a literal without such places. The search for a literal is the inner loop of the case-sensitive
// search and of all wildcard searches. It looks for the first and the last character at the same time, so few
// positions have to be compared in full.
//
// A place matches a character c of a line if (c | mask) == value. For a letter in both cases, the value is
// the lower case and the mask is 0x20; for any character, both have all bits set; for other characters, the
// mask is 0. So literals of any kind are compared a vector at a time. For places for any character, the
// callers check that the match contains no line terminators, which are rare.
//
// CharT is char or WCHAR. Nothing outside [from, end) is read.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "findreplace/wildcard/wildcard_elements.h"
#include "platform/ascii_case.h"
#include "platform/text.h"
#include "platform/vector_instructions.h"

namespace QXFindAndReplace {

// Returns true for the characters that the library's `.` does not match, although not all of them end a line
// of a file (C-207).
template <typename CharT>
constexpr bool IsLineTerminator(CharT c) {
  if (c == CharT('\n') || c == CharT('\r')) return true;
  if constexpr (sizeof(CharT) == 1)
    return false;
  else
    return c == CharT(0x2028) || c == CharT(0x2029);
}

template <typename CharT>
struct WildcardPlace {
  CharT value;
  CharT mask;

  static WildcardPlace Any() { return {static_cast<CharT>(-1), static_cast<CharT>(-1)}; }
  // Only the letters A to Z have a case.
  static WildcardPlace Of(CharT c, bool ignoreCase) {
    if (ignoreCase && IsAsciiLetter(c)) return {AsciiLower(c), CharT(0x20)};
    return {c, CharT()};
  }

  static WildcardPlace Of(const WildcardElement<CharT>& element, bool ignoreCase) {
    return element.isAny ? Any() : Of(element.character, ignoreCase);
  }

  bool IsAny() const { return mask == static_cast<CharT>(-1); }
  bool Fits(CharT c) const { return static_cast<CharT>(c | mask) == value; }
  // Same, but a place for any character does not take line terminators.
  bool Matches(CharT c) const { return Fits(c) && !(IsAny() && IsLineTerminator(c)); }
};

template <typename CharT>
class WildcardLiteral {
 public:
  WildcardLiteral() = default;
  WildcardLiteral(std::basic_string_view<CharT> text, bool ignoreCase) {
    for (const CharT c : text) Append(WildcardPlace<CharT>::Of(c, ignoreCase));
  }

  void Append(WildcardPlace<CharT> place) {
    if (!place.IsAny()) {
      last_ = values_.size();
      if (!hasCharacter_) first_ = last_;
      hasCharacter_ = true;
    }
    values_ += place.value;
    masks_ += place.mask;
  }

  std::size_t Length() const { return values_.size(); }

  // Return the first or the last match in [from, end), or null. Places for any character match line
  // terminators too.
  const CharT* FindFirst(const CharT* from, const CharT* end) const;
  const CharT* FindLast(const CharT* from, const CharT* end) const;
  // Returns true if all places take their characters at `p`.
  bool IsTakenAt(const CharT* p) const {
    for (std::size_t place = 0; place < Length(); ++place) {
      if (!At(place).Matches(p[place])) return false;
    }
    return true;
  }

 private:
  WildcardPlace<CharT> At(std::size_t place) const { return {values_[place], masks_[place]}; }
  bool MatchesAt(const CharT* p) const;
  bool HasEndsAt(const CharT* p) const { return At(first_).Fits(p[first_]) && At(last_).Fits(p[last_]); }

  std::basic_string<CharT> values_;
  std::basic_string<CharT> masks_;
  // The first and the last place that is for a certain character.
  bool hasCharacter_ = false;
  std::size_t first_ = 0;
  std::size_t last_ = 0;

#if QX_SSE2
  static constexpr std::ptrdiff_t kLanes = 16 / sizeof(CharT);
  static __m128i Load(const CharT* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
  static __m128i Filled(CharT c) {
    return sizeof(CharT) == 1 ? _mm_set1_epi8(static_cast<char>(c)) : _mm_set1_epi16(static_cast<short>(c));
  }
  static __m128i Fitting(__m128i text, __m128i value, __m128i mask) {
    const __m128i masked = _mm_or_si128(text, mask);
    return sizeof(CharT) == 1 ? _mm_cmpeq_epi8(masked, value) : _mm_cmpeq_epi16(masked, value);
  }
  bool FitsVector(const CharT* p, std::size_t place) const {
    const __m128i fitting =
        Fitting(Load(p + place), Load(values_.data() + place), Load(masks_.data() + place));
    return _mm_movemask_epi8(fitting) == 0xFFFF;
  }

  // Finds the starts, among kLanes adjacent ones, at which the first and the last character match.
  class EndsFinder {
   public:
    explicit EndsFinder(const WildcardLiteral& literal)
        : first_(literal.first_),
          last_(literal.last_),
          firstValue_(Filled(literal.values_[first_])),
          firstMask_(Filled(literal.masks_[first_])),
          lastValue_(Filled(literal.values_[last_])),
          lastMask_(Filled(literal.masks_[last_])) {}

    // Returns sizeof(CharT) bits for each start.
    unsigned At(const CharT* p) const {
      const __m128i ends = _mm_and_si128(Fitting(Load(p + first_), firstValue_, firstMask_),
                                         Fitting(Load(p + last_), lastValue_, lastMask_));
      return static_cast<unsigned>(_mm_movemask_epi8(ends));
    }

   private:
    std::size_t first_, last_;
    __m128i firstValue_, firstMask_, lastValue_, lastMask_;
  };
#endif
};

template <typename CharT>
bool WildcardLiteral<CharT>::MatchesAt(const CharT* p) const {
  const std::size_t length = Length();
  std::size_t place = 0;
#if QX_SSE2
  constexpr auto kStep = static_cast<std::size_t>(kLanes);
  for (; place + kStep <= length; place += kStep) {
    if (!FitsVector(p, place)) return false;
  }
  if (length >= kStep) return place == length || FitsVector(p, length - kStep);
#endif
  for (; place < length; ++place) {
    if (!At(place).Fits(p[place])) return false;
  }
  return true;
}

template <typename CharT>
const CharT* WildcardLiteral<CharT>::FindFirst(const CharT* from, const CharT* end) const {
  if (end - from < static_cast<std::ptrdiff_t>(Length())) return nullptr;
  if (!hasCharacter_) return from;
  const CharT* const starts = end - Length() + 1;  // one after the last start
  const CharT* p = from;
#if QX_SSE2
  if (starts - from >= kLanes) {
    const EndsFinder finder(*this);
    const auto findAt = [&](const CharT* base) -> const CharT* {
      unsigned hits = finder.At(base);
      while (hits != 0) {
        const unsigned lane = static_cast<unsigned>(std::countr_zero(hits)) / sizeof(CharT);
        if (MatchesAt(base + lane)) return base + lane;
        hits &= ~0u << (lane + 1) * sizeof(CharT);
      }
      return nullptr;
    };
    const CharT* const lastBase = starts - kLanes;
    for (; p < lastBase; p += kLanes) {
      if (const CharT* const found = findAt(p)) return found;
    }
    // The last step begins so that it ends at the last start. The starts that it checks again have not
    // matched.
    return findAt(lastBase);
  }
#endif
  for (; p < starts; ++p) {
    if (HasEndsAt(p) && MatchesAt(p)) return p;
  }
  return nullptr;
}

template <typename CharT>
const CharT* WildcardLiteral<CharT>::FindLast(const CharT* from, const CharT* end) const {
  if (end - from < static_cast<std::ptrdiff_t>(Length())) return nullptr;
  const CharT* p = end - Length() + 1;  // one after the last start that has not been checked
  if (!hasCharacter_) return p - 1;
#if QX_SSE2
  if (p - from >= kLanes) {
    const EndsFinder finder(*this);
    while (p > from) {
      // The last step begins at the first start and ignores the starts that have been checked.
      const CharT* const base = p - from < kLanes ? from : p - kLanes;
      unsigned hits = finder.At(base) & ((1u << static_cast<unsigned>(p - base) * sizeof(CharT)) - 1);
      while (hits != 0) {
        const unsigned lane = static_cast<unsigned>(std::bit_width(hits) - 1) / sizeof(CharT);
        if (MatchesAt(base + lane)) return base + lane;
        hits &= (1u << lane * sizeof(CharT)) - 1;
      }
      p = base;
    }
    return nullptr;
  }
#endif
  while (p > from) {
    --p;
    if (HasEndsAt(p) && MatchesAt(p)) return p;
  }
  return nullptr;
}

}  // namespace QXFindAndReplace
