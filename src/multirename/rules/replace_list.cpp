#include "multirename/rules/replace_list.h"

#include <algorithm>

#include "multirename/engine/multi_rename_item.h"
#include "multirename/rules/letter_case.h"
#include "multirename/rules/rule_flags.h"

namespace Velmora::SDK {

namespace {

std::wstring Widened(const WString& text) { return std::wstring(text.begin(), text.end()); }

std::optional<BoundedRegex> CompiledOrNothing(const WString& find, u32 flags, BoundedRegex::Matcher matcher) {
  try {
    return BoundedRegex(find, (flags & kSearchCaseSensitive) == 0, matcher);
  } catch (const std::regex_error&) {
    return std::nullopt;
  }
}

// Returns the position of the first match at or after `from`. Unless `matchesCase`, `find` is in lower case.
std::size_t FindPlain(WStringView text, WStringView find, std::size_t from, bool matchesCase) {
  if (matchesCase) return text.find(find, from);
  if (text.size() < find.size()) return WStringView::npos;
  const WCHAR lower = find.front();
  const WCHAR upper = UpperLetter(lower);
  for (const std::size_t last = text.size() - find.size(); from <= last; ++from) {
    if (text[from] != lower && text[from] != upper) continue;
    std::size_t equal = 1;
    while (equal < find.size() && LowerLetter(text[from + equal]) == find[equal]) ++equal;
    if (equal == find.size()) return from;
  }
  return WStringView::npos;
}

WString FromThreadCodePage(const char* text) {
  const int needed = MultiByteToWideChar(CP_THREAD_ACP, 0, text, -1, nullptr, 0);
  if (needed <= 1) return {};
  WString wide(static_cast<std::size_t>(needed), WCHAR());
  MultiByteToWideChar(CP_THREAD_ACP, 0, text, -1, wide.data(), needed);
  wide.pop_back();  // the terminator
  return wide;
}

}  // namespace

ReplaceRules::ReplaceRules(const SearchAndReplaceItems& items, u32 flags, BoundedRegex::Matcher matcher)
    : flags_(flags) {
  for (const auto& [find, replace] : items) {
    if (find.empty()) continue;
    Rule rule{find, replace, Widened(replace), std::nullopt};
    if ((flags & kSearchRegex) != 0) {
      rule.regex = CompiledOrNothing(find, flags, matcher);
      if (!rule.regex) continue;
    } else if ((flags & kSearchCaseSensitive) == 0) {
      std::ranges::transform(rule.find, rule.find.begin(), LowerLetter);
    }
    rules_.push_back(std::move(rule));
  }
}

bool ReplaceRules::ReplacePlain(const Rule& rule, WStringView text) {
  const bool matchesCase = (flags_ & kSearchCaseSensitive) != 0;
  std::size_t found = FindPlain(text, rule.find, 0, matchesCase);
  if (found == WStringView::npos) return false;
  std::size_t copied = 0;
  result_.clear();
  do {
    result_ += text.substr(copied, found - copied);
    result_ += rule.replace;
    copied = found + rule.find.size();
    if ((flags_ & kSearchReplaceAll) == 0 || result_.size() > kLongestName) break;
    found = FindPlain(text, rule.find, copied, matchesCase);
  } while (found != WStringView::npos);
  result_ += text.substr(copied);
  if (result_.size() > kLongestName) result_.resize(kLongestName);
  return true;
}

void ReplaceRules::Apply(WString& text) {
  for (const Rule& rule : rules_) {
    try {
      const bool changed = rule.regex ? rule.regex->Replace(text, rule.format, kLongestName, result_)
                                      : ReplacePlain(rule, text);
      if (changed) text.swap(result_);
    } catch (const std::regex_error&) {
      ++abortedSearches_;  // the text remains unchanged; the next pair is applied
    }
  }
}

void ApplyReplaceList(const SearchAndReplaceItems& items, WString& text, u32 flags) {
  ReplaceRules(items, flags, BoundedRegex::Matcher::kLibrary).Apply(text);
}

u32 ValidateExpressions(const SearchAndReplaceItems& items, WString& message) {
  for (std::size_t index = 0; index < items.size(); ++index) {
    const WString& find = items[index].first;
    if (find.empty()) continue;
    try {
      const BoundedRegex compiled(find, false);
    } catch (const std::regex_error& error) {
      message = FromThreadCodePage(error.what());
      return static_cast<u32>(index + 1);
    }
  }
  return 0;
}

}  // namespace Velmora::SDK
