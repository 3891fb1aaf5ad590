// Reference for the search and replace list of MultiRename. Expressions are passed to the standard library
// unchecked, so a test must pass only those that are harmless.
#pragma once

#include <locale>
#include <regex>
#include <string>
#include <utility>
#include <vector>

#include "platform/text.h"

namespace PlainRules {

using Pairs = std::vector<std::pair<WString, WString>>;

constexpr std::uint32_t kCaseMatters = 0x100000;
constexpr std::uint32_t kIsExpression = 0x200000;
constexpr std::uint32_t kReplacesAll = 0x400000;

// The longest text that an expression was applied to or produced.
struct SearchedLength {
  std::size_t most = 0;
  void Note(std::size_t length) { most = std::max(most, length); }
};

inline std::wstring Widened(const WString& text) { return std::wstring(text.begin(), text.end()); }

inline wchar_t LowerOf(WCHAR c) {
  static const std::locale locale;
  return std::use_facet<std::ctype<wchar_t>>(locale).tolower(static_cast<wchar_t>(c));
}

inline bool MatchesAt(const WString& text, std::size_t at, const WString& find, bool caseMatters) {
  if (find.size() > text.size() - at) return false;
  for (std::size_t i = 0; i < find.size(); ++i) {
    if (caseMatters ? text[at + i] != find[i] : LowerOf(text[at + i]) != LowerOf(find[i])) return false;
  }
  return true;
}

inline WString ReplacedOnceByReference(const WString& text, const WString& find, const WString& replace,
                                       std::uint32_t flags) {
  WString result;
  std::size_t at = 0;
  bool searches = true;
  while (at < text.size()) {
    if (searches && MatchesAt(text, at, find, (flags & kCaseMatters) != 0)) {
      result += replace;
      at += find.size();
      searches = (flags & kReplacesAll) != 0;
    } else {
      result += text[at++];
    }
  }
  return result;
}

inline WString ReplacedByExpression(const WString& text, const WString& find, const WString& replace,
                                    std::uint32_t flags) {
  try {
    auto options = std::regex_constants::ECMAScript;
    if ((flags & kCaseMatters) == 0) options |= std::regex_constants::icase;
    const std::wregex expression(Widened(find), options);
    const std::wstring result = std::regex_replace(Widened(text), expression, Widened(replace));
    return WString(result.begin(), result.end());
  } catch (const std::regex_error&) {
    return text;
  }
}

inline WString Replaced(WString text, const Pairs& pairs, std::uint32_t flags, SearchedLength& searched) {
  for (const auto& [find, replace] : pairs) {
    if (find.empty()) continue;
    if ((flags & kIsExpression) != 0) {
      searched.Note(text.size());
      text = ReplacedByExpression(text, find, replace, flags);
      searched.Note(text.size());
    } else {
      text = ReplacedOnceByReference(text, find, replace, flags);
    }
    if (text.size() > 32767) text.resize(32767);
  }
  return text;
}

// Returns the number, from 1, of the first find text that is not a valid expression, and the library's
// message; 0 if all are valid.
inline std::pair<std::uint32_t, std::string> FirstBadExpression(const Pairs& pairs) {
  for (std::uint32_t i = 0; i < pairs.size(); ++i) {
    if (pairs[i].first.empty()) continue;
    try {
      const std::wregex expression(Widened(pairs[i].first));
    } catch (const std::regex_error& error) {
      return {i + 1, error.what()};
    }
  }
  return {0, ""};
}

}  // namespace PlainRules
