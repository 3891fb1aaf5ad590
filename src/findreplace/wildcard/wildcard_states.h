// Matches patterns with repeats of repeats whose counts have gaps or a special order (`x{2}{1,3}`,
// `x{5,6}{0,3}`). Tries the states one by one in the order of the library (C-206), without recursion.
//
// A state that has failed at a position of a line always fails there, so each state is tried only once at a
// position, in all searches that continue in the line.
//
// An example: `a{2}{1,2}b`, which takes two or four letters but not three, has the states
//
//   0 a   1 a   2 choice: 3, or else 5   3 a   4 a   5 b   6 is the end
//
// In the line "aaab", written as state@position:
//
//   start 0   0@0 1@1 2@2 3@2 4@3 fails (4 does not take "b"); the other choice of 2@2: 5@2 fails
//   start 1   0@1 1@2 2@3 3@3 fails; the other choice of 2@3: 5@3 6@4, the end
//
// The match is at 1 to 4. If 5@3 had failed too, a later start that leads to 5@3 would not try it again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "findreplace/wildcard/wildcard_elements.h"
#include "findreplace/wildcard/wildcard_literal.h"
#include "findreplace/wildcard/wildcard_match.h"

namespace QXFindAndReplace {

template <typename CharT>
class WildcardStates {
 public:
  WildcardStates(const std::vector<WildcardElement<CharT>>& elements, bool ignoreCase);

  // Same as WildcardPattern::Search. Throws std::regex_error (error_complexity) if the line needs too much
  // memory.
  bool Search(const CharT* line, std::uint32_t length, std::uint32_t column, WildcardMatch& match);

  // Must be called if the next search is in another line or not after the last match.
  void ForgetLine() { isLineKnown_ = false; }

 private:
  // Either takes a character and continues with `next`, or is a choice that continues with `next` and, if
  // that fails, with `other`. The end of the pattern is the index after the last state.
  struct State {
    bool isChoice;
    WildcardPlace<CharT> place;
    std::uint32_t next;
    std::uint32_t other;
  };
  using States = std::vector<State>;
  struct Try {
    std::uint32_t state;
    std::uint32_t position;
  };

  static void AppendCopy(States& states, const States& copied, std::uint32_t after);
  static States Repeated(const States& states, const WildcardRepeat& repeat);

  bool MatchFrom(std::uint32_t start, const CharT* line, std::uint32_t length, std::uint32_t& end);
  bool IsFirstVisit(const Try& at);
  void ForgetVisitsAt(std::uint32_t position);

  States states_;

  bool isLineKnown_ = false;
  std::uint32_t firstColumn_ = 0;
  // A bit for each position from the first column on and each state: set if the state has been tried there.
  std::vector<std::uint64_t> visited_;
  std::size_t wordsOfPosition_ = 0;
  std::vector<Try> tries_;
};

}  // namespace QXFindAndReplace
