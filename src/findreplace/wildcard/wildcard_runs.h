// Patterns with runs of one character between bounds (`x{1,3}`), and stretches of one length between them.
//
// Whether the rest of a pattern can match from a position does not depend on how the position was reached. So
// a table holds it for each part of the pattern and each position of a line, one bit each. It is made from
// the last part to the first, in time that grows with the line for each part. A search then takes the
// leftmost start that can match, and each run as far as the rest can still match. The table serves all
// searches that go on in the line.
//
// An example: `a{1,3}ab` has the parts a{1,3}, a run, and "ab", a stretch.
//
//   position    0 1 2 3 4 5
//   line        x a a a b
//   end         1 1 1 1 1 1    after the pattern every position will do
//   "ab"        0 0 0 1 0 0    "ab" is at 3, and the end can follow at 5
//   a{1,3}      0 1 1 0 0 0    from 1 two letters and from 2 one letter lead to 3
//
//   The leftmost start is 1. The longest run from there ends at 4; the last position up to 4 at which "ab"
//   can match is 3, so the run is "aa". With "ab" the match is at 1 to 5.
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
  // The elements have no outer repeats.
  WildcardRuns(const std::vector<WildcardElement<CharT>>& elements, bool ignoreCase);

  // Throws std::regex_error (error_complexity) if the table would be too large.
  bool Search(const CharT* line, std::uint32_t length, std::uint32_t column, WildcardMatch& match);

  // The next search is in another line, or not after the last match.
  void ForgetLine() { hasTable_ = false; }
  bool KnowsLine() const { return hasTable_; }

 private:
  // A stretch, or a run.
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
  std::size_t words_ = 0;  // of a row
  // A row for each part, and one of ones for the end of the pattern. Bits before the first search's column
  // are zero.
  std::vector<std::uint64_t> table_;
};

}  // namespace QXFindAndReplace
