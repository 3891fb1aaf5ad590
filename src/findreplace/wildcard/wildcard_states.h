// Patterns with repeats of repeats whose counts have gaps or an order of their own (`x{2}{1,3}`,
// `x{5,6}{0,3}`). They are followed state by state in the library's order (C-206), without recursion.
//
// A state that failed once at a position of a line always fails there, so each is tried once for all searches
// that go on in the line.
//
// An example: `a{2}{1,2}b`, which takes two or four letters but not three, has the states
//
//   0 a   1 a   2 choice: 3, or else 5   3 a   4 a   5 b   6 is the end
//
// In the line "aaab", written as state@position:
//
//   start 0   0@0 1@1 2@2 3@2 4@3 fails (4 takes no "b"); the other choice of 2@2: 5@2 fails
//   start 1   0@1 1@2 2@3 3@3 fails; the other choice of 2@3: 5@3 6@4, the end
//
// The match is at 1 to 4. If it had failed too, a later start that came to 5@3 would not try it again.
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

  // Throws std::regex_error (error_complexity) if the line needs too much memory.
  bool Search(const CharT* line, std::uint32_t length, std::uint32_t column, WildcardMatch& match);

  // The next search is in another line, or not after the last match.
  void ForgetLine() { knowsLine_ = false; }

 private:
  // Takes a character and goes on with `next`, or is a choice and goes on with `next` or else with `other`.
  // The end of the pattern is one after the last state.
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

  bool knowsLine_ = false;
  std::uint32_t firstColumn_ = 0;
  // A bit for each position from the first column on and each state there.
  std::vector<std::uint64_t> visited_;
  std::size_t wordsOfPosition_ = 0;
  std::vector<Try> tries_;
};

}  // namespace QXFindAndReplace
