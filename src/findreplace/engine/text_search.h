// Comparisons of texts, and a search that ignores case.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/ascii_case.h"
#include "platform/text.h"
#include "platform/vector_instructions.h"

namespace QXFindAndReplace {

// Returns the position of the first CR or LF in a text, or npos if not found.
template <typename CharT>
std::size_t FindLineEndIn(std::basic_string_view<CharT> text) {
  static constexpr CharT kLineEnds[] = {'\r', '\n', 0};
  return text.find_first_of(kLineEnds);
}

template <typename CharT>
bool EqualText(const CharT* a, const CharT* b, std::size_t length) {
  return std::char_traits<CharT>::compare(a, b, length) == 0;
}
// Compares without regard to the case of A to Z only (C-204).
template <typename CharT>
bool EqualIgnoringCase(const CharT* a, const CharT* b, std::size_t length) {
  for (std::size_t i = 0; i < length; ++i) {
    if (AsciiUpper(a[i]) != AsciiUpper(b[i])) return false;
  }
  return true;
}

// Returns the first occurrence of a character in either case, or `end`. Reads whole vectors, so up to 15
// bytes after `end`, where the block has guard bytes.
template <typename CharT>
const CharT* FindCharIgnoringCase(const CharT* p, const CharT* end, CharT c) {
#if QX_SSE2
  constexpr int kStep = sizeof(__m128i) / sizeof(CharT);
  const auto filled = [](CharT value) {
    return sizeof(CharT) == 1 ? _mm_set1_epi8(static_cast<char>(value))
                              : _mm_set1_epi16(static_cast<short>(value));
  };
  const auto equal = [](__m128i a, __m128i b) {
    return sizeof(CharT) == 1 ? _mm_cmpeq_epi8(a, b) : _mm_cmpeq_epi16(a, b);
  };
  const __m128i lower = filled(AsciiLower(c));
  const __m128i upper = filled(AsciiUpper(c));
  for (; p < end; p += kStep) {
    const __m128i text = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    const auto mask =
        static_cast<unsigned>(_mm_movemask_epi8(_mm_or_si128(equal(text, lower), equal(text, upper))));
    if (mask == 0) continue;
    const CharT* const place = p + static_cast<unsigned>(std::countr_zero(mask)) / sizeof(CharT);
    return place < end ? place : end;
  }
#else
  for (; p < end; ++p) {
    if (AsciiUpper(*p) == AsciiUpper(c)) return p;
  }
#endif
  return end;
}

// Searches for a text ignoring case and returns the match or null. After a failed comparison continues after
// the character that differed, not after the start of the comparison, so it does not find "aab" in "aaab"
// (C-202). `text` must not be empty.
template <typename CharT>
const CharT* ScanIgnoringCase(const CharT* p, const CharT* end, const CharT* text, std::size_t length) {
  for (;;) {
    p = FindCharIgnoringCase(p, end, text[0]);
    if (length > static_cast<std::size_t>(end - p)) return nullptr;
    std::size_t same = 1;
    while (same < length && AsciiUpper(p[same]) == AsciiUpper(text[same])) ++same;
    if (same == length) return p;
    p += same + 1;
  }
}

}  // namespace QXFindAndReplace
