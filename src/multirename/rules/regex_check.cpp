// Refuses expressions that the library must not compile: its compiler recurses for each character and each
// group, and copies an atom as often as its count says.

#include <algorithm>
#include <vector>

#include "multirename/rules/bounded_regex.h"
#include "platform/regex_library.h"

namespace Velmora::SDK {

namespace {

constexpr std::size_t kMaxCharacters = 1024;  // of an expression, as many as a field of the panel takes
constexpr std::size_t kMaxNesting = 50;       // nested groups
constexpr std::uint64_t kMaxStates = 10'000;  // of the compiled expression, with repetitions written out
constexpr std::uint64_t kMaxBranches = 200;   // alternatives, for which the matcher counts no step
constexpr std::size_t kMaxDigits = 5;         // of a count or of a back reference

// The computed number of states is an upper bound of what libstdc++ creates for an expression, so its own
// limit is never reached. bounded_regex.cpp also relies on libstdc++: each path of its matcher ends in a
// counted step. Tests check this.
static_assert(kMaxLibraryStates >= kMaxStates, "the states are counted as libstdc++ makes them");

bool IsRegexDigit(WCHAR c) { return c >= W('0') && c <= W('9'); }

// An upper bound of the compiled size of a part of the expression.
struct RegexSize {
  std::uint64_t states = 0;
  std::uint64_t branches = 0;
};

RegexSize Times(const RegexSize& size, std::uint64_t count) {
  return {size.states * count, size.branches * count};
}

// Reads an expression as the library's scanner does, as far as its compiled size depends on it. Leaves errors
// of syntax to the library.
class ExpressionCheck {
 public:
  explicit ExpressionCheck(WStringView expression) : expression_(expression) {}

  std::wstring Run() {
    if (expression_.size() > kMaxCharacters) throw RegexRefusal("The regular expression is too long.");
    groups_.emplace_back();
    while (at_ < expression_.size()) Step();
    return std::move(checked_);
  }

 private:
  struct Group {
    RegexSize all;   // of what has been read of the group
    RegexSize atom;  // of its last atom, which a count may repeat; included in `all`
  };

  WCHAR Peek(std::size_t offset) const {
    return at_ + offset < expression_.size() ? expression_[at_ + offset] : WCHAR();
  }

  void Take(std::size_t count) {
    for (; count > 0 && at_ < expression_.size(); --count)
      checked_ += static_cast<wchar_t>(expression_[at_++]);
  }

  void Add(const RegexSize& size) {
    Group& group = groups_.back();
    group.all.states += size.states;
    group.all.branches += size.branches;
    group.atom = size;
    if (group.all.states > kMaxStates || group.all.branches > kMaxBranches) {
      throw RegexRefusal("The regular expression is too large.");
    }
  }

  void Step() {
    switch (expression_[at_]) {
      case W('\\'):
        return TakeEscape();
      case W('['):
        return TakeBracket();
      case W('{'):
        return TakeCount();
      case W('('):
        return OpenGroup();
      case W(')'):
        return CloseGroup();
      case W('|'):
        Take(1);
        return Add({3, 1});
      case W('*'):
      case W('+'):
      case W('?'):
        Take(1);
        return Repeat(1);
      default:
        Take(1);
        return Add({1, 0});
    }
  }

  // Returns the length of the escape, whose characters have no other meaning: 3 for a control character such
  // as "\c[", otherwise 2.
  std::size_t EscapeLength() const { return Peek(1) == W('c') ? 3 : 2; }

  void TakeEscape() {
    if (!IsRegexDigit(Peek(1)) || Peek(1) == W('0')) {
      Take(EscapeLength());
      return Add({2, 0});
    }
    std::size_t digits = 1;
    while (IsRegexDigit(Peek(1 + digits))) ++digits;
    if (digits > kMaxDigits) throw std::regex_error(std::regex_constants::error_backref);
    checked_ += L"(?:(?=)";
    Take(1 + digits);
    checked_ += L')';
    Add({8, 0});
  }

  // A set ends at the first bracket that is not escaped and does not end a class within the set
  // ("[[:alpha:]]").
  void TakeBracket() {
    Take(1);
    if (Peek(0) == W('^')) Take(1);
    while (at_ < expression_.size() && Peek(0) != W(']')) {
      if (Peek(0) == W('\\')) {
        Take(EscapeLength());
      } else if (Peek(0) == W('[') && (Peek(1) == W('.') || Peek(1) == W(':') || Peek(1) == W('='))) {
        const WCHAR closing[] = {Peek(1), W(']')};
        const std::size_t end = expression_.find(WStringView(closing, 2), at_ + 2);
        Take(end == WStringView::npos ? expression_.size() : end + 2 - at_);
      } else {
        Take(1);
      }
    }
    Take(1);
    Add({1, 0});
  }

  void OpenGroup() {
    if (groups_.size() > kMaxNesting) throw RegexRefusal("The regular expression is nested too deeply.");
    const bool isPlain = Peek(1) != W('?');
    Take(isPlain ? 1 : 3);
    groups_.emplace_back();
  }

  void CloseGroup() {
    Take(1);
    if (groups_.size() == 1) return;  // the library reports the error
    RegexSize group = groups_.back().all;
    group.states += 4;
    groups_.pop_back();
    Add(group);
  }

  // Counts the last atom `times` times in all, each time with the states of its repetition.
  void Repeat(std::uint64_t times) {
    RegexSize atom = groups_.back().atom;
    RegexSize more = Times(atom, times - std::min<std::uint64_t>(times, 1));
    more.states += 3 * std::max<std::uint64_t>(times, 1);
    Add(more);
    groups_.back().atom = {atom.states + more.states, atom.branches + more.branches};
  }

  // {n}, {n,} or {n,m}.
  void TakeCount() {
    Take(1);
    std::uint64_t counts[2] = {0, 0};
    std::size_t which = 0;
    std::size_t digits = 0;
    for (; at_ < expression_.size() && Peek(0) != W('}'); Take(1)) {
      const WCHAR c = Peek(0);
      if (c == W(',')) {
        which = 1;
        digits = 0;
      } else if (IsRegexDigit(c)) {
        if (++digits > kMaxDigits) throw RegexRefusal("The regular expression repeats too often.");
        counts[which] = counts[which] * 10 + static_cast<std::uint64_t>(c - W('0'));
      } else {
        break;
      }
    }
    if (Peek(0) == W('}')) Take(1);
    Repeat(std::max(counts[0] + which, counts[1]));
  }

  WStringView expression_;
  std::size_t at_ = 0;
  std::vector<Group> groups_;
  std::wstring checked_;
};

}  // namespace

std::wstring CheckedExpression(WStringView expression) { return ExpressionCheck(expression).Run(); }

}  // namespace Velmora::SDK
