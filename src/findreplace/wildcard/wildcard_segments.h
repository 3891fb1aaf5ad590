// Matches patterns of ?, * and characters with exact counts: literals, which have a fixed length, with runs
// of any characters between them.
//
// A match starts at the first occurrence of the first literal, since a later start leaves less room for the
// others. As each run is as long as possible, earlier runs first, the last literal is at its last occurrence,
// the one before it at its last occurrence before that, and so on. So a search takes one pass over the line
// for each literal and no memory. This is valid only if * takes all characters of the runs: see SearchResult.
//
// An example: `ab*c?*d` has the literals "ab", "c?" and "d".
//
//   columns       01234567890
//   line          xabcdabcedx
//   "ab" first     ab            at 1: the match starts there
//   "d" last               d     at 9: the match ends at 10
//   "c?" last            ce      at 7, the last occurrence that ends before "d"
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
  // kUnknown: the match would include a line terminator, which ? and * do not take, so there may be another
  // match or none.
  enum class SearchResult { kNone, kFound, kUnknown };

  // Returns true if this class can match the elements: characters with exact counts, and any characters
  // without an upper bound.
  static bool Supports(const std::vector<WildcardElement<CharT>>& elements);

  WildcardSegments(const std::vector<WildcardElement<CharT>>& elements, bool ignoreCase);

  SearchResult Search(const CharT* line, std::uint32_t length, std::uint32_t column,
                      WildcardMatch& match) const;

 private:
  std::vector<WildcardLiteral<CharT>> segments_;  // one more than there are runs; literals may be empty
  bool hasAny_ = false;
};

}  // namespace QXFindAndReplace
