#include "multirename/rules/bounded_regex.h"

#include <cstddef>
#include <iterator>
#include <limits>
#include <locale>
#include <utility>

#include "platform/stack_position.h"

namespace Velmora::SDK {

namespace {

// The steps and the stack that remain for one Replace.
struct RegexBudget {
  std::uint32_t steps;
  std::uintptr_t lowestStack;

  void CountStep() {
    if (steps == 0) throw std::regex_error(std::regex_constants::error_complexity);
    --steps;
    if (StackPosition() < lowestStack) throw std::regex_error(std::regex_constants::error_stack);
  }
};

// A position in a text of 16-bit units, which are widened one by one. Comparing and assigning positions
// counts as a step. The matcher does one of them at every state except at alternatives, and each path through
// alternatives ends in a state that counts.
class CountingIterator {
 public:
  using iterator_category = std::bidirectional_iterator_tag;
  using value_type = wchar_t;
  using difference_type = std::ptrdiff_t;
  using pointer = const wchar_t*;
  using reference = wchar_t;

  CountingIterator() = default;
  CountingIterator(const WCHAR* at, RegexBudget& budget) : at_(at), budget_(&budget) {}
  CountingIterator(const CountingIterator&) = default;
  CountingIterator& operator=(const CountingIterator& other) {
    at_ = other.at_;
    budget_ = other.budget_;
    CountStep();
    return *this;
  }
  ~CountingIterator() = default;

  wchar_t operator*() const { return static_cast<wchar_t>(*at_); }
  CountingIterator& operator++() {
    ++at_;
    return *this;
  }
  CountingIterator operator++(int) {
    CountingIterator before = *this;
    ++at_;
    return before;
  }
  CountingIterator& operator--() {
    --at_;
    return *this;
  }
  CountingIterator operator--(int) {
    CountingIterator before = *this;
    --at_;
    return before;
  }
  friend bool operator==(const CountingIterator& lhs, const CountingIterator& rhs) {
    lhs.CountStep();
    return lhs.at_ == rhs.at_;
  }

  const WCHAR* Position() const { return at_; }

 private:
  void CountStep() const {
    if (budget_) budget_->CountStep();
  }

  const WCHAR* at_ = nullptr;
  RegexBudget* budget_ = nullptr;
};

using CountingMatch = std::match_results<CountingIterator>;

// Appends to a text up to a size and discards the rest.
class CuttingOutput {
 public:
  using iterator_category = std::output_iterator_tag;
  using value_type = void;
  using difference_type = std::ptrdiff_t;
  using pointer = void;
  using reference = void;

  CuttingOutput(WString& text, std::size_t most) : text_(&text), most_(most) {}

  CuttingOutput& operator*() { return *this; }
  CuttingOutput& operator++() { return *this; }
  CuttingOutput operator++(int) { return *this; }
  CuttingOutput& operator=(wchar_t c) {
    if (text_->size() < most_) *text_ += static_cast<WCHAR>(c);
    return *this;
  }

 private:
  WString* text_;
  std::size_t most_;
};

void AppendUpTo(WString& text, std::size_t most, const WCHAR* begin, const WCHAR* end) {
  const auto size = static_cast<std::size_t>(end - begin);
  text.append(begin, size < most - text.size() ? size : most - text.size());
}

std::wregex CompileWide(const std::wstring& expression, bool ignoreCase) {
  using namespace std::regex_constants;
  std::wregex regex;
  regex.imbue(std::locale::classic());
  regex.assign(expression, ignoreCase ? ECMAScript | icase : ECMAScript);
  return regex;
}

}  // namespace

BoundedRegex::BoundedRegex(WStringView expression, bool ignoreCase, Matcher matcher)
    : regex_(CompileWide(CheckedExpression(expression), ignoreCase)) {
  if (matcher == Matcher::kFast) simple_ = SimpleExpression::Parse(expression, ignoreCase);
}

bool BoundedRegex::Replace(WStringView text, const std::wstring& format, std::size_t most,
                           WString& result) const {
  using Outcome = SimpleExpression::Outcome;
  const Outcome outcome = simple_ ? simple_->Replace(text, format, most, result) : Outcome::kUnknown;
  return outcome == Outcome::kUnknown ? ReplaceByLibrary(text, format, most, result)
                                      : outcome == Outcome::kReplaced;
}

bool BoundedRegex::ReplaceByLibrary(WStringView text, const std::wstring& format, std::size_t most,
                                    WString& result) const {
  const std::uintptr_t top = StackPosition();
  constexpr std::uintptr_t kRoom = kMaxRegexStack * kFrameScale;
  RegexBudget budget{kMaxRegexSteps, top > kRoom ? top - kRoom : 0};
  const WCHAR* const begin = text.data();
  const WCHAR* const end = begin + text.size();
  std::regex_iterator<CountingIterator> match(CountingIterator(begin, budget), CountingIterator(end, budget),
                                              regex_);
  const std::regex_iterator<CountingIterator> none;
  if (match == none) return false;
  result.clear();
  const WCHAR* copied = begin;
  while (result.size() < most) {
    const CountingMatch& found = *match;
    AppendUpTo(result, most, copied, found[0].first.Position());
    copied = found[0].second.Position();
    // The size of the output is limited separately; only the search counts steps.
    const std::uint32_t left = std::exchange(budget.steps, std::numeric_limits<std::uint32_t>::max());
    found.format(CuttingOutput(result, most), format.data(), format.data() + format.size());
    budget.steps = left;
    if (++match == none) {
      AppendUpTo(result, most, copied, end);
      break;
    }
  }
  return true;
}

}  // namespace Velmora::SDK
