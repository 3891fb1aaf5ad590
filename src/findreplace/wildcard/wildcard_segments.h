// Patterns of ? and * alone: stretches of one length with any run of characters between them.
//
// A match starts where the first stretch stands first; a later start cannot help the others. As each run is
// as long as can be, the first before the second, the last stretch stands where it does last, the one before
// it where it does last in front of that, and so on. So a search takes one walk over the line for each
// stretch, and no memory. All this holds as long as * takes whatever stands there: see SearchResult.
#pragma once

#include <cstdint>
#include <vector>

#include "findreplace/wildcard/wildcard_elements.h"
#include "findreplace/wildcard/wildcard_literal.h"
#include "findreplace/wildcard/wildcard_match.h"

namespace QXFindAndReplace {

template <typename CharT>
class WildcardSegments {
 public:
  // kUnknown: a match would reach over a line terminator, which ? and * do not take, so that the match may be
  // another one or none.
  enum class SearchResult { kNone, kFound, kUnknown };

  // True if the elements are such a pattern: fixed numbers of characters, or any characters without end.
  static bool CanTake(const std::vector<WildcardElement<CharT>>& elements);

  WildcardSegments(const std::vector<WildcardElement<CharT>>& elements, bool ignoreCase);

  SearchResult Search(const CharT* line, std::uint32_t length, std::uint32_t column,
                      WildcardMatch& match) const;

 private:
  std::vector<WildcardLiteral<CharT>> segments_;  // one more than there are runs; may be empty
  bool hasAny_ = false;
};

}  // namespace QXFindAndReplace
