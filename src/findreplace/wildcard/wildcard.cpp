// Chooses the matcher for a pattern, and finds the text that all its matches contain.
#include "findreplace/wildcard/wildcard.h"

#include <algorithm>
#include <optional>

#include "findreplace/wildcard/wildcard_elements.h"
#include "findreplace/wildcard/wildcard_runs.h"
#include "findreplace/wildcard/wildcard_segments.h"
#include "findreplace/wildcard/wildcard_states.h"

namespace QXFindAndReplace {

namespace {

template <typename CharT>
using Elements = std::vector<WildcardElement<CharT>>;

template <typename CharT>
bool HasNestedRepeats(const Elements<CharT>& elements) {
  return std::any_of(elements.begin(), elements.end(),
                     [](const WildcardElement<CharT>& element) { return !element.outerRepeats.empty(); });
}

// Returns the longest sequence of characters that have exact counts.
template <typename CharT>
std::basic_string<CharT> FindRequiredText(const Elements<CharT>& elements) {
  std::basic_string<CharT> longest;
  std::basic_string<CharT> run;
  const auto endRun = [&] {
    if (run.size() > longest.size()) longest.swap(run);
    run.clear();
  };
  for (const WildcardElement<CharT>& element : elements) {
    if (element.isAny || !element.outerRepeats.empty() || !element.repeat.IsExact())
      endRun();
    else
      run.append(element.repeat.minimum, element.character);
  }
  endRun();
  return longest;
}

}  // namespace

template <typename CharT>
class WildcardPattern<CharT>::Implementation {
  using SearchResult = typename WildcardSegments<CharT>::SearchResult;

 public:
  Implementation(const Elements<CharT>& elements, bool ignoreCase)
      : requiredText_(FindRequiredText(elements)), required_(requiredText_, ignoreCase) {
    if (WildcardSegments<CharT>::Supports(elements)) segments_.emplace(elements, ignoreCase);
    if (HasNestedRepeats(elements))
      states_.emplace(elements, ignoreCase);
    else
      runs_.emplace(elements, ignoreCase);
  }

  bool Search(const CharT* line, std::uint32_t length, std::uint32_t column, Match& match) {
    if (!known_.IsContinuedBy(line, length, column)) {
      if (runs_) runs_->ForgetLine();
      if (states_) states_->ForgetLine();
    }
    known_.Forget();
    if (!FindMatch(line, length, column, match)) return false;
    known_.Remember(line, length, column, match.start + match.length);
    return true;
  }

  std::basic_string_view<CharT> RequiredText() const { return requiredText_; }
  const WildcardLiteral<CharT>& Required() const { return required_; }

 private:
  bool FindMatch(const CharT* line, std::uint32_t length, std::uint32_t column, Match& match) {
    // If runs_ has a table for the line, segments_ could not decide an earlier search in this line.
    if (segments_ && !runs_->IsKnownLine()) {
      const auto result = segments_->Search(line, length, column, match);
      if (result != SearchResult::kUnknown) return result == SearchResult::kFound;
    }
    // Most lines do not contain the required text, and a table need not be made for them.
    if (required_.FindFirst(line + column, line + length) == nullptr) return false;
    return states_ ? states_->Search(line, length, column, match)
                   : runs_->Search(line, length, column, match);
  }

  std::optional<WildcardSegments<CharT>> segments_;
  std::optional<WildcardRuns<CharT>> runs_;
  std::optional<WildcardStates<CharT>> states_;
  std::basic_string<CharT> requiredText_;
  WildcardLiteral<CharT> required_;
  KnownLine<CharT> known_;
};

template <typename CharT>
WildcardPattern<CharT>::WildcardPattern(std::basic_string_view<CharT> text, bool ignoreCase)
    : implementation_(std::make_unique<Implementation>(
          ParseWildcardRegex(std::basic_string_view<CharT>(WildcardToRegex(text))), ignoreCase)) {}

template <typename CharT>
WildcardPattern<CharT>::WildcardPattern(WildcardPattern&&) noexcept = default;
template <typename CharT>
WildcardPattern<CharT>& WildcardPattern<CharT>::operator=(WildcardPattern&&) noexcept = default;
template <typename CharT>
WildcardPattern<CharT>::~WildcardPattern() = default;

template <typename CharT>
bool WildcardPattern<CharT>::Search(const CharT* line, std::uint32_t length, std::uint32_t column,
                                    Match& match) {
  return implementation_->Search(line, length, column, match);
}

template <typename CharT>
std::basic_string_view<CharT> WildcardPattern<CharT>::RequiredText() const {
  return implementation_->RequiredText();
}

template <typename CharT>
const WildcardLiteral<CharT>& WildcardPattern<CharT>::Required() const {
  return implementation_->Required();
}

template class WildcardPattern<char>;
template class WildcardPattern<WCHAR>;

}  // namespace QXFindAndReplace
