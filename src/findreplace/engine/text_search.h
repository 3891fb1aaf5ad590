// Searches for a text in one stretch of characters, with vector instructions.
//
// They load whole vectors, and up to 15 bytes behind the stretch are read as well: they belong to its block.
// CharT is char or WCHAR.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/text.h"

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>

#include <bit>
#endif

namespace QXFindAndReplace {

// Both cases of a letter of A to Z count as one character; all others are different ones (C-204).
template <typename CharT>
constexpr CharT FoldCase(CharT c) {
  return c >= 'a' && c <= 'z' ? static_cast<CharT>(c - 'a' + 'A') : c;
}
template <typename CharT>
constexpr CharT OtherCase(CharT c) {
  if (c >= 'a' && c <= 'z') return static_cast<CharT>(c - 'a' + 'A');
  return c >= 'A' && c <= 'Z' ? static_cast<CharT>(c - 'A' + 'a') : c;
}

// Where the first CR or LF of a text stands; npos if it has none.
template <typename CharT>
std::size_t FindLineEndIn(std::basic_string_view<CharT> text) {
  static constexpr CharT kLineEnds[] = {'\r', '\n', 0};
  return text.find_first_of(kLineEnds);
}

template <typename CharT>
bool EqualText(const CharT* a, const CharT* b, std::size_t length) {
  return std::char_traits<CharT>::compare(a, b, length) == 0;
}
template <typename CharT>
bool EqualIgnoringCase(const CharT* a, const CharT* b, std::size_t length) {
  for (std::size_t i = 0; i < length; ++i) {
    if (FoldCase(a[i]) != FoldCase(b[i])) return false;
  }
  return true;
}

namespace search_detail {

#if defined(__SSE2__) || defined(_M_X64)

template <typename CharT>
class CharMask {
 public:
  static constexpr int kStep = sizeof(__m128i) / sizeof(CharT);

  // Matches `c`, and with `bothCases` the letter's other case.
  CharMask(CharT c, bool bothCases) : one_(Fill(c)), other_(Fill(bothCases ? OtherCase(c) : c)) {}

  // Which of the 16 bytes from `p` on belong to a character that matches.
  __m128i At(const CharT* p) const {
    const __m128i text = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    return _mm_or_si128(Equal(text, one_), Equal(text, other_));
  }

 private:
  static __m128i Fill(CharT c) {
    if constexpr (sizeof(CharT) == 1) return _mm_set1_epi8(static_cast<char>(c));
    return _mm_set1_epi16(static_cast<short>(c));
  }
  static __m128i Equal(__m128i a, __m128i b) {
    return sizeof(CharT) == 1 ? _mm_cmpeq_epi8(a, b) : _mm_cmpeq_epi16(a, b);
  }

  __m128i one_;
  __m128i other_;
};

// The lowest character that a mask of bytes names, and the mask without it.
template <typename CharT>
std::size_t TakeLowest(unsigned& mask) {
  const auto byte = static_cast<unsigned>(std::countr_zero(mask));
  mask &= ~((sizeof(CharT) == 1 ? 1U : 3U) << byte);
  return byte / sizeof(CharT);
}

#endif

}  // namespace search_detail

// The first place of `text` (of at least one character) that lies whole in [p, end), or null. Places are
// sought by the first and the last character at once, which leaves few to compare.
template <typename CharT, bool kIgnoreCase>
const CharT* FindText(const CharT* p, const CharT* end, const CharT* text, std::size_t length) {
  if (length > static_cast<std::size_t>(end - p)) return nullptr;
  const auto equal = [text, length](const CharT* at) {
    return kIgnoreCase ? EqualIgnoringCase(at, text, length) : EqualText(at, text, length);
  };
  const CharT* const behindLast = end - length + 1;
#if defined(__SSE2__) || defined(_M_X64)
  using search_detail::CharMask;
  const CharMask<CharT> first(text[0], kIgnoreCase);
  const CharMask<CharT> last(text[length - 1], kIgnoreCase);
  for (; p < behindLast; p += CharMask<CharT>::kStep) {
    auto mask = static_cast<unsigned>(_mm_movemask_epi8(_mm_and_si128(first.At(p), last.At(p + length - 1))));
    while (mask != 0) {
      const CharT* const place = p + search_detail::TakeLowest<CharT>(mask);
      if (place >= behindLast) return nullptr;
      if (equal(place)) return place;
    }
  }
#else
  for (; p < behindLast; ++p) {
    if (equal(p)) return p;
  }
#endif
  return nullptr;
}

// The first place of a character, in either case, or `end`.
template <typename CharT>
const CharT* FindCharIgnoringCase(const CharT* p, const CharT* end, CharT c) {
#if defined(__SSE2__) || defined(_M_X64)
  using search_detail::CharMask;
  const CharMask<CharT> either(c, true);
  for (; p < end; p += CharMask<CharT>::kStep) {
    auto mask = static_cast<unsigned>(_mm_movemask_epi8(either.At(p)));
    if (mask == 0) continue;
    const CharT* const place = p + search_detail::TakeLowest<CharT>(mask);
    return place < end ? place : end;
  }
#else
  for (; p < end; ++p) {
    if (FoldCase(*p) == FoldCase(c)) return p;
  }
#endif
  return end;
}

// The scan that ignores case. After a failed comparison it goes on after the character that failed, and not
// after the start of the comparison, so "aab" is not found in "aaab" (C-202). `text` has at least one
// character.
template <typename CharT>
const CharT* ScanIgnoringCase(const CharT* p, const CharT* end, const CharT* text, std::size_t length) {
  for (;;) {
    p = FindCharIgnoringCase(p, end, text[0]);
    if (length > static_cast<std::size_t>(end - p)) return nullptr;
    std::size_t same = 1;
    while (same < length && FoldCase(p[same]) == FoldCase(text[same])) ++same;
    if (same == length) return p;
    p += same + 1;
  }
}

}  // namespace QXFindAndReplace
