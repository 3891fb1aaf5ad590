#include "findreplace/wildcard/wildcard_segments.h"

#include <algorithm>
#include <cstddef>

namespace QXFindAndReplace {

namespace {

template <typename CharT>
bool HasLineTerminator(const CharT* p, const CharT* end) {
#if QX_SSE2
  constexpr int kLanes = sizeof(__m128i) / sizeof(CharT);
  for (; end - p >= kLanes; p += kLanes) {
    const __m128i text = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    __m128i hits;
    if constexpr (sizeof(CharT) == 1) {
      hits =
          _mm_or_si128(_mm_cmpeq_epi8(text, _mm_set1_epi8('\n')), _mm_cmpeq_epi8(text, _mm_set1_epi8('\r')));
    } else {
      hits = _mm_or_si128(_mm_cmpeq_epi16(text, _mm_set1_epi16('\n')),
                          _mm_cmpeq_epi16(text, _mm_set1_epi16('\r')));
      const __m128i odd = _mm_or_si128(text, _mm_set1_epi16(1));
      hits = _mm_or_si128(hits, _mm_cmpeq_epi16(odd, _mm_set1_epi16(0x2029)));
    }
    if (_mm_movemask_epi8(hits) != 0) return true;
  }
#endif
  return std::any_of(p, end, IsLineTerminator<CharT>);
}

}  // namespace

template <typename CharT>
bool WildcardSegments<CharT>::Supports(const std::vector<WildcardElement<CharT>>& elements) {
  for (const WildcardElement<CharT>& element : elements) {
    const bool isRun = element.isAny && element.repeat.maximum == kNoMaximum;
    if (!element.outerRepeats.empty() || (!isRun && !element.repeat.IsExact())) return false;
  }
  return true;
}

template <typename CharT>
WildcardSegments<CharT>::WildcardSegments(const std::vector<WildcardElement<CharT>>& elements,
                                          bool ignoreCase)
    : segments_(1) {
  for (const WildcardElement<CharT>& element : elements) {
    hasAny_ = hasAny_ || element.isAny;
    const auto place = WildcardPlace<CharT>::Of(element, ignoreCase);
    for (std::uint32_t count = 0; count < element.repeat.minimum; ++count) segments_.back().Append(place);
    // Adjacent runs are the same as one.
    const bool isNewRun = segments_.size() == 1 || segments_.back().Length() != 0;
    if (!element.repeat.IsExact() && isNewRun) segments_.emplace_back();
  }
}

template <typename CharT>
typename WildcardSegments<CharT>::SearchResult WildcardSegments<CharT>::Search(const CharT* line,
                                                                               std::uint32_t length,
                                                                               std::uint32_t column,
                                                                               WildcardMatch& match) const {
  const CharT* end = line + length;
  const CharT* const start = segments_.front().FindFirst(line + column, end);
  if (start == nullptr) return SearchResult::kNone;
  const CharT* const least = start + segments_.front().Length();
  const CharT* matchEnd = least;
  for (std::size_t segment = segments_.size() - 1; segment > 0; --segment) {
    const CharT* const found = segments_[segment].FindLast(least, end);
    if (found == nullptr) return SearchResult::kNone;
    if (segment == segments_.size() - 1) matchEnd = found + segments_[segment].Length();
    end = found;
  }
  if (hasAny_ && HasLineTerminator(start, matchEnd)) return SearchResult::kUnknown;
  match = {static_cast<std::uint32_t>(start - line), static_cast<std::uint32_t>(matchEnd - start)};
  return SearchResult::kFound;
}

template class WildcardSegments<char>;
template class WildcardSegments<WCHAR>;

}  // namespace QXFindAndReplace
