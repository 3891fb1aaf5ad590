// The list of find and replace pairs that runs over a new name, after the templates and the case rule.
#pragma once

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "frame/host/host_types.h"
#include "multirename/rules/bounded_regex.h"

namespace Velmora::SDK {

// Find and replace texts, applied in order. A compiled list is never changed.
using SearchAndReplaceItems = std::vector<std::pair<WString, WString>>;
using SharedReplaceItems = std::shared_ptr<const SearchAndReplaceItems>;

// Applies the pairs one after the other, each to what the last one left; one with an empty find text is
// skipped. The flags are those of SearchFlag.
//
// Plain: the first match, or with kSearchReplaceAll every one; without kSearchCaseSensitive A to Z count as
// a to z. A replacement is never searched again by its own pair.
//
// With kSearchRegex every match is replaced, whether kSearchReplaceAll is set or not (C-613): ECMAScript
// expressions with $&, $1 to $99, $`, $' and $$ in the replacement. A pair whose expression is refused, or
// whose match takes more steps or stack than bounded_regex.h allows, leaves the text as it was (C-687).
//
// A text that grows beyond kLongestName characters is cut there. Throws nothing but std::bad_alloc. Compiles
// each expression anew; what runs over many texts makes a ReplaceRules.
void ApplyReplaceList(const SearchAndReplaceItems& items, WString& text, u32 flags);

// 0 if every find text is an expression, otherwise the number of the first one that is none, counted from 1,
// and the matcher's message. Empty ones count but are passed over. Each is compiled as if case mattered.
u32 ValidateExpressions(const SearchAndReplaceItems& items, WString& message);

// The same as ApplyReplaceList, with each expression compiled once and the memory kept from text to text. For
// one thread at a time.
class ReplaceRules {
 public:
  ReplaceRules(const SearchAndReplaceItems& items, u32 flags,
               BoundedRegex::Matcher matcher = BoundedRegex::Matcher::kFast);

  void Apply(WString& text);

  // The texts that a pair left as they were because its match was beyond the bounds.
  std::size_t GaveUp() const { return gaveUp_; }

 private:
  struct Rule {
    WString find;  // in lower case where case does not matter
    WString replace;
    std::wstring format;  // the replacement for the matcher
    std::optional<BoundedRegex> regex;
  };

  // Stores the text with the plain rule applied in result_; false if there is no match.
  bool ReplacePlain(const Rule& rule, WStringView text);

  std::vector<Rule> rules_;  // without those that can do nothing
  u32 flags_;
  std::size_t gaveUp_ = 0;
  WString result_;
};

}  // namespace Velmora::SDK
