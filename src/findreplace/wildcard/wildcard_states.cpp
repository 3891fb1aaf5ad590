#include "findreplace/wildcard/wildcard_states.h"

#include <algorithm>
#include <regex>

namespace QXFindAndReplace {

// Appends a copy of `copied`. Transitions to the end of `copied` lead to the state `after`.
template <typename CharT>
void WildcardStates<CharT>::AppendCopy(States& states, const States& copied, std::uint32_t after) {
  const auto base = static_cast<std::uint32_t>(states.size());
  const auto moved = [&](std::uint32_t target) { return target == copied.size() ? after : base + target; };
  for (const State& state : copied)
    states.push_back({state.isChoice, state.place, moved(state.next), moved(state.other)});
}

template <typename CharT>
typename WildcardStates<CharT>::States WildcardStates<CharT>::Repeated(const States& states,
                                                                       const WildcardRepeat& repeat) {
  const auto size = static_cast<std::uint32_t>(states.size());
  States result;
  std::uint32_t at = 0;
  for (std::uint32_t count = 0; count < repeat.minimum; ++count, at += size)
    AppendCopy(result, states, at + size);
  if (repeat.maximum == kNoMaximum) {
    result.push_back({true, {}, at + 1, at + 1 + size});
    AppendCopy(result, states, at);
    return result;
  }
  const std::uint32_t end = at + (repeat.maximum - repeat.minimum) * (1 + size);
  for (; at < end; at += 1 + size) {
    result.push_back({true, {}, at + 1, end});
    AppendCopy(result, states, at + 1 + size);
  }
  return result;
}

template <typename CharT>
WildcardStates<CharT>::WildcardStates(const std::vector<WildcardElement<CharT>>& elements, bool ignoreCase) {
  for (const WildcardElement<CharT>& element : elements) {
    States states = Repeated({{false, WildcardPlace<CharT>::Of(element, ignoreCase), 1, 1}}, element.repeat);
    for (const WildcardRepeat& repeat : element.outerRepeats) states = Repeated(states, repeat);
    AppendCopy(states_, states, static_cast<std::uint32_t>(states_.size() + states.size()));
  }
  wordsOfPosition_ = states_.size() / 64 + 1;
}

template <typename CharT>
bool WildcardStates<CharT>::Search(const CharT* line, std::uint32_t length, std::uint32_t column,
                                   WildcardMatch& match) {
  if (!isLineKnown_) {
    if ((std::uint64_t{length - column} + 1) * wordsOfPosition_ > kWildcardMemory / sizeof(visited_[0]))
      throw std::regex_error(std::regex_constants::error_complexity);
    firstColumn_ = column;
    visited_.assign((std::size_t{length - column} + 1) * wordsOfPosition_, 0);
    isLineKnown_ = true;
  }
  for (std::uint64_t start = column; start <= length; ++start) {
    std::uint32_t end = 0;
    const auto from = static_cast<std::uint32_t>(start);
    if (!MatchFrom(from, line, length, end)) continue;
    match = {from, end - from};
    // The states on the path of the match are marked as visited although they do not fail, and so may be
    // states that lead to them. Later searches start at the end of the match, so it is enough to forget the
    // visits at that position.
    ForgetVisitsAt(end);
    return true;
  }
  return false;
}

template <typename CharT>
bool WildcardStates<CharT>::MatchFrom(std::uint32_t start, const CharT* line, std::uint32_t length,
                                      std::uint32_t& end) {
  tries_.assign(1, {0, start});
  while (!tries_.empty()) {
    Try at = tries_.back();
    tries_.pop_back();
    while (IsFirstVisit(at)) {
      if (at.state == states_.size()) {
        end = at.position;
        return true;
      }
      const State& state = states_[at.state];
      if (state.isChoice) {
        if (tries_.size() >= kWildcardMemory / sizeof(Try))
          throw std::regex_error(std::regex_constants::error_complexity);
        tries_.push_back({state.other, at.position});
      } else if (at.position < length && state.place.Matches(line[at.position])) {
        ++at.position;
      } else {
        break;
      }
      at.state = state.next;
    }
  }
  return false;
}

template <typename CharT>
bool WildcardStates<CharT>::IsFirstVisit(const Try& at) {
  std::uint64_t& word = visited_[std::size_t{at.position - firstColumn_} * wordsOfPosition_ + at.state / 64];
  const std::uint64_t bit = std::uint64_t{1} << at.state % 64;
  if ((word & bit) != 0) return false;
  word |= bit;
  return true;
}

template <typename CharT>
void WildcardStates<CharT>::ForgetVisitsAt(std::uint32_t position) {
  std::fill_n(
      visited_.begin() + static_cast<std::ptrdiff_t>(std::size_t{position - firstColumn_} * wordsOfPosition_),
      wordsOfPosition_, 0);
}

template class WildcardStates<char>;
template class WildcardStates<WCHAR>;

}  // namespace QXFindAndReplace
