#include "findreplace/wildcard/wildcard_elements.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <regex>
#include <string>

#include "platform/regex_library.h"

namespace QXFindAndReplace {

namespace {

// libstdc++ rejects a pattern whose automaton has more states than this; other standard libraries have other
// limits or none. The states are counted here as libstdc++ creates them, so the same patterns are rejected
// everywhere, and the matchers need not support larger ones.
constexpr std::uint64_t kMaxPatternStates = 100000;
static_assert(kMaxLibraryStates == kMaxPatternStates, "the states are counted as libstdc++ makes them");
// The start and the end of the match, the end of the automaton, and an empty state after the last element.
constexpr std::uint64_t kFixedStates = 4;

// Compiles a short pattern with the library. Throws the library's exception if it rejects the pattern.
void CheckPattern(const std::string& pattern) { const std::regex checked(pattern); }

// Returns the exception that the library throws for a pattern with too many states.
std::regex_error MakeTooManyStatesError() {
  try {
    CheckPattern("x{" + std::to_string(kMaxPatternStates) + "}");
  } catch (const std::regex_error& error) {
    return error;
  }
  return std::regex_error(std::regex_constants::error_space);
}

[[noreturn]] void ThrowTooManyStates() {
  static const std::regex_error refusal = MakeTooManyStatesError();
  throw refusal;
}

class StateCount {
 public:
  void Add(std::uint64_t states) {
    Check(states);
    count_ += states;
  }
  void Check(std::uint64_t states) const {
    if (count_ + states > kMaxPatternStates) ThrowTooManyStates();
  }

 private:
  std::uint64_t count_ = 0;
};

// Returns the number of states that the library needs to repeat `states` states: copies of them, and empty
// states around the copies.
std::uint64_t RepeatedStates(std::uint64_t states, const WildcardRepeat& repeat) {
  const std::uint64_t needed = 1 + repeat.minimum * states;
  if (repeat.maximum == kNoMaximum) return needed + states + 1;
  return needed + std::uint64_t{repeat.maximum - repeat.minimum} * (states + 1) + 1;
}

// Returns a single repeat that is equivalent to both, if there is one. It must allow the same counts and
// prefer larger counts to smaller ones. That holds if the inner repeat can stop after one character or the
// outer count is exact. Otherwise the counts may have gaps (`x{2}{1,3}`) or another order: `x{5,6}{0,3}`
// prefers six and six to five, five and five.
std::optional<WildcardRepeat> Fold(const WildcardRepeat& inner, const WildcardRepeat& outer) {
  if (inner.minimum > 1 && !outer.IsExact()) return std::nullopt;
  WildcardRepeat both;
  both.minimum = inner.minimum * outer.minimum;
  if (inner.maximum == 0 || outer.maximum == 0)
    both.maximum = 0;
  else if (inner.maximum == kNoMaximum || outer.maximum == kNoMaximum)
    both.maximum = kNoMaximum;
  else
    both.maximum = inner.maximum * outer.maximum;  // cannot overflow: the states of both have been counted
  return both;
}

template <typename CharT>
class Parser {
 public:
  explicit Parser(std::basic_string_view<CharT> pattern) : pattern_(pattern) {}

  std::vector<WildcardElement<CharT>> Parse() {
    std::vector<WildcardElement<CharT>> elements;
    while (at_ < pattern_.size()) {
      if (IsAt('{')) CheckBrace("");  // there is nothing to repeat, so the library rejects it
      elements.push_back(TakeElement());
    }
    states_.Add(kFixedStates);
    return elements;
  }

 private:
  bool IsAt(char c) const { return at_ < pattern_.size() && pattern_[at_] == static_cast<CharT>(c); }
  bool IsAtDigit() const { return at_ < pattern_.size() && IsDigit(pattern_[at_]); }
  static bool IsDigit(CharT c) { return c >= CharT('0') && c <= CharT('9'); }

  WildcardElement<CharT> TakeElement() {
    WildcardElement<CharT> element;
    element.isAny = IsAt('.');
    if (IsAt('\\')) ++at_;
    element.character = pattern_[at_++];
    std::uint64_t states = 1;
    states_.Add(1);
    if (IsAt('*')) {
      ++at_;
      element.repeat = {0, kNoMaximum};
      ++states;
      states_.Add(1);
    }
    while (IsAt('{')) {
      const WildcardRepeat repeat = TakeBrace(states);
      states = RepeatedStates(states, repeat);
      states_.Add(states);
      const auto both = element.outerRepeats.empty() ? Fold(element.repeat, repeat) : std::nullopt;
      if (both)
        element.repeat = *both;
      else
        element.outerRepeats.push_back(repeat);
    }
    return element;
  }

  // `states` is the number of states to repeat.
  WildcardRepeat TakeBrace(std::uint64_t states) {
    CheckBrace("x");
    ++at_;
    const std::int64_t first = TakeNumber();
    std::int64_t last = first;
    bool isEndless = false;
    if (IsAt(',')) {
      ++at_;
      isEndless = !IsAtDigit();
      if (!isEndless) last = TakeNumber();
    }
    ++at_;
    // As in the library, a negative first number counts as 0 for the required repeats, but the number of
    // optional repeats is the last number minus the first.
    const std::int64_t minimum = std::max<std::int64_t>(first, 0);
    const std::int64_t more = last - first;
    states_.Check(1 + static_cast<std::uint64_t>(minimum) * states);
    if (more < 0) CheckPattern("x{1,0}");
    states_.Check(static_cast<std::uint64_t>(more));
    return {static_cast<std::uint32_t>(minimum),
            isEndless ? kNoMaximum : static_cast<std::uint32_t>(minimum + more)};
  }

  // The library reads a number as a signed 32-bit integer, in which larger numbers wrap around.
  std::int64_t TakeNumber() {
    std::uint32_t number = 0;
    for (; IsAtDigit(); ++at_) number = number * 10 + static_cast<std::uint32_t>(pattern_[at_] - CharT('0'));
    return static_cast<std::int32_t>(number);
  }

  // Compiles `atom` with the brace at the current position, so that the library checks its form. Passes the
  // brace up to the first character that is neither a digit nor a comma, with 1 in place of each number, so
  // that the library needs few states. That character is passed as `}` or `x`, unless the pattern has ended.
  void CheckBrace(const char* atom) {
    std::string piece = atom;
    piece += '{';
    std::size_t end = at_ + 1;
    for (; end < pattern_.size() && (IsDigit(pattern_[end]) || pattern_[end] == CharT(',')); ++end) {
      const char c = IsDigit(pattern_[end]) ? '1' : ',';
      if (c == ',' || piece.back() != '1') piece += c;
    }
    if (end < pattern_.size()) piece += pattern_[end] == CharT('}') ? '}' : 'x';
    if (piece == accepted_) return;
    CheckPattern(piece);
    accepted_ = piece;
  }

  std::basic_string_view<CharT> pattern_;
  std::size_t at_ = 0;
  StateCount states_;
  std::string accepted_;  // the last piece that the library accepted
};

}  // namespace

template <typename CharT>
std::vector<WildcardElement<CharT>> ParseWildcardRegex(std::basic_string_view<CharT> pattern) {
  return Parser<CharT>(pattern).Parse();
}

template std::vector<WildcardElement<char>> ParseWildcardRegex(std::basic_string_view<char>);
template std::vector<WildcardElement<WCHAR>> ParseWildcardRegex(std::basic_string_view<WCHAR>);

}  // namespace QXFindAndReplace
