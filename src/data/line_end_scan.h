// The search for the end of a line: the inner loop of the text loaders.
#pragma once

#include <bit>
#include <cstdint>

#include "platform/text.h"
#include "platform/vector_instructions.h"

namespace WQDR {

template <typename CharT>
constexpr bool IsLineEnd(CharT c) {
  return c == '\r' || c == '\n';
}

// Returns the first CR or LF at or after `p`, or `end` if not found. May read up to 15 bytes after `end`,
// which must be readable.
template <typename CharT>
const CharT* FindLineEnd(const CharT* p, const CharT* end) {
#if QX_SSE2
  constexpr int kStep = sizeof(__m128i) / sizeof(CharT);
  const auto equal = [](__m128i a, __m128i b) {
    return sizeof(CharT) == 1 ? _mm_cmpeq_epi8(a, b) : _mm_cmpeq_epi16(a, b);
  };
  const __m128i cr = sizeof(CharT) == 1 ? _mm_set1_epi8('\r') : _mm_set1_epi16('\r');
  const __m128i lf = sizeof(CharT) == 1 ? _mm_set1_epi8('\n') : _mm_set1_epi16('\n');
  for (; p < end; p += kStep) {
    const __m128i text = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    const auto hits =
        static_cast<unsigned>(_mm_movemask_epi8(_mm_or_si128(equal(text, cr), equal(text, lf))));
    if (hits == 0) continue;
    const CharT* const found = p + static_cast<unsigned>(std::countr_zero(hits)) / sizeof(CharT);
    return found < end ? found : end;
  }
  return end;
#else
  while (p < end && !IsLineEnd(*p)) ++p;
  return p;
#endif
}

}  // namespace WQDR
