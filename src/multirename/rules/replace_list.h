// The list of find and replace pairs, which is applied to a new name after the templates and the case rule.
#pragma once

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "frame/host/host_types.h"
#include "multirename/rules/bounded_regex.h"

namespace Velmora::SDK {

// Find and replace texts, applied in order. A shared list is never changed.
using SearchAndReplaceItems = std::vector<std::pair<WString, WString>>;
using SharedReplaceItems = std::shared_ptr<const SearchAndReplaceItems>;

// Applies the pairs in order, each to the result of the one before. Skips pairs with an empty find text. The
// flags are those of SearchFlag.
//
// A plain find text replaces its first match or, with kSearchReplaceAll, every match. Without
// kSearchCaseSensitive, A to Z match a to z. A pair does not search its own replacements.
//
// With kSearchRegex, replaces every match, whether kSearchReplaceAll is set or not (C-613). The find text is
// an ECMAScript expression; the replacement may contain $&, $1 to $99, $`, $' and $$. A pair whose expression
// is refused, or whose search exceeds the limits of bounded_regex.h, leaves the text unchanged (C-687).
//
// Cuts a text that grows beyond kLongestName characters. Throws nothing but std::bad_alloc. Compiles each
// expression again in every call; use ReplaceRules for many texts.
void ApplyReplaceList(const SearchAndReplaceItems& items, WString& text, u32 flags);

// Returns 0 if every find text is a valid expression. Otherwise returns the position, counted from 1, of the
// first one that is not, and stores the matcher's message. Counts empty find texts but does not check them.
// Compiles each expression as case-sensitive.
u32 ValidateExpressions(const SearchAndReplaceItems& items, WString& message);

// Applies pairs as ApplyReplaceList does, but compiles each expression once and reuses memory between texts.
// For one thread at a time.
class ReplaceRules {
 public:
  ReplaceRules(const SearchAndReplaceItems& items, u32 flags,
               BoundedRegex::Matcher matcher = BoundedRegex::Matcher::kFast);

  void Apply(WString& text);

  // Returns how often a pair left a text unchanged because its search exceeded the limits.
  std::size_t AbortedSearches() const { return abortedSearches_; }

 private:
  struct Rule {
    WString find;  // in lower case if letter case is ignored
    WString replace;
    std::wstring format;  // the replacement in the matcher's character type
    std::optional<BoundedRegex> regex;
  };

  // Stores the text with the plain rule applied in result_. Returns false if there is no match.
  bool ReplacePlain(const Rule& rule, WStringView text);

  std::vector<Rule> rules_;  // without those that have no effect
  u32 flags_;
  std::size_t abortedSearches_ = 0;
  WString result_;
};

}  // namespace Velmora::SDK
