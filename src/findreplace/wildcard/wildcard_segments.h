// Patterns of ? and * alone: stretches of one length with any run of characters between them.
//
// A match starts at the first place of the first stretch; a later start cannot help the others. As each run
// is as long as possible, the first before the second, the last stretch is at its last place, the one before
// it at its last place before that, and so on. So a search takes one walk over the line for each stretch, and
// no memory. All this holds as long as * takes every character that it meets: see SearchResult.
//
// An example: `ab*c?*d` has the stretches "ab", "c?" and "d".
//
//   columns       01234567890
//   line          xabcdabcedx
//   "ab" first     ab            at 1: the match starts there
//   "d" last               d     at 9: the match ends at 10
//   "c?" last            ce      at 7, the last place that ends before "d"
//   match          abcdabced     columns 1 to 10
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
  // kUnknown: a match would reach over a line terminator, which ? and * do not take, so there may be another
  // match or none.
  enum class SearchResult { kNone, kFound, kUnknown };

  // True if the elements are such a pattern: characters with exact counts, and any characters without a
  // bound.
  static bool CanTake(const std::vector<WildcardElement<CharT>>& elements);

  WildcardSegments(const std::vector<WildcardElement<CharT>>& elements, bool ignoreCase);

  SearchResult Search(const CharT* line, std::uint32_t length, std::uint32_t column,
                      WildcardMatch& match) const;

 private:
  std::vector<WildcardLiteral<CharT>> segments_;  // one more than there are runs; may be empty
  bool hasAny_ = false;
};

}  // namespace QXFindAndReplace
