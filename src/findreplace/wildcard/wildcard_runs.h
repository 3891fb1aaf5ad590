// Matches patterns of runs of one character with bounds (`x{1,3}`) and literals, which have a fixed length.
//
// Whether the rest of a pattern can match from a position does not depend on how that position was reached.
// So a table stores it in one bit for each part of the pattern and each position of a line. The table is made
// from the last part to the first, in one pass over the line for each part. A search then takes the leftmost
// start that can match, and extends each run as far as the rest can still match. All searches that continue
// in the line use the same table.
//
// An example: `a{1,3}ab` has the parts a{1,3}, a run, and "ab", a literal.
//
//   position    0 1 2 3 4 5
//   line        x a a a b
//   end         1 1 1 1 1 1    the pattern can end at every position
//   "ab"        0 0 0 1 0 0    "ab" is at 3, and the pattern can end at 5
//   a{1,3}      0 1 1 0 0 0    two letters from 1 and one letter from 2 lead to 3
//
// The leftmost start is 1. The longest run from there ends at 4; the last position up to 4 at which "ab" can
// match is 3, so the run is "aa". With "ab" the match is at 1 to 5.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "findreplace/wildcard/wildcard_elements.h"
#include "findreplace/wildcard/wildcard_literal.h"
#include "findreplace/wildcard/wildcard_match.h"

namespace QXFindAndReplace {

template <typename CharT>
class WildcardRuns {
 public:
  // The elements must not have outer repeats.
  WildcardRuns(const std::vector<WildcardElement<CharT>>& elements, bool ignoreCase);

  // Same as WildcardPattern::Search. Throws std::regex_error (error_complexity) if the table would be too
  // large.
  bool Search(const CharT* line, std::uint32_t length, std::uint32_t column, WildcardMatch& match);

  // Must be called if the next search is in another line or not after the last match.
  void ForgetLine() { hasTable_ = false; }
  bool IsKnownLine() const { return hasTable_; }

 private:
  // A literal, or a run.
  struct Part {
    WildcardLiteral<CharT> literal;
    bool isRun = false;
    WildcardPlace<CharT> place = {};
    WildcardRepeat repeat;
  };

  void MakeTable(const CharT* line, std::uint32_t length, std::uint32_t column);
  void MakeLiteralRow(std::size_t row, const CharT* line, std::uint32_t length, std::uint32_t column);
  void MakeRunRow(std::size_t row, const CharT* line, std::uint32_t length, std::uint32_t column);
  std::uint32_t EndOfRun(std::size_t row, const CharT* line, std::uint32_t length, std::uint32_t from) const;

  bool CanMatch(std::size_t row, std::uint32_t position) const {
    return (table_[row * words_ + position / 64] >> position % 64 & 1) != 0;
  }
  void SetCanMatch(std::size_t row, std::uint32_t position) {
    table_[row * words_ + position / 64] |= std::uint64_t{1} << position % 64;
  }

  std::vector<Part> parts_;

  bool hasTable_ = false;
  std::size_t words_ = 0;  // the size of a row
  // A row for each part, and a row of ones for the end of the pattern. Bits before the column of the first
  // search are zero.
  std::vector<std::uint64_t> table_;
};

}  // namespace QXFindAndReplace
