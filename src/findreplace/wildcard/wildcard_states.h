// Patterns with repeats of repeats whose counts have gaps or an order of their own (`x{2}{1,3}`,
// `x{5,6}{0,3}`). They are followed state by state in the library's order (C-206), without recursion.
//
// A state that failed once at a position of a line always fails there, so each is tried once for all searches
// that go on in the line.
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

  // The next search is in another line, or not behind the last match.
  void ForgetLine() { knowsLine_ = false; }

 private:
  // Takes a character and goes on with `next`, or goes on with `next` or else with `other`. The state behind
  // the last one is the end of the pattern.
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

  static void AppendCopy(States& states, const States& copied, std::uint32_t behind);
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
