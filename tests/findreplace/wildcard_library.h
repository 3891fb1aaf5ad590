// How the standard library matches a text with wildcards. Only for short texts and lines: its matcher
// recurses for each character and may take exponential time.
#pragma once

#include <cstdint>
#include <regex>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "findreplace/wildcard/wildcard.h"

// 16-bit units are widened one by one, so that positions stay equal.
template <typename CharT>
using LibraryUnit = std::conditional_t<sizeof(CharT) == 1, char, wchar_t>;

template <typename CharT>
std::basic_regex<LibraryUnit<CharT>> CompileInLibrary(std::basic_string_view<CharT> text, bool ignoreCase) {
  const auto pattern = QXFindAndReplace::WildcardToRegex(text);
  const std::basic_string<LibraryUnit<CharT>> units(pattern.begin(), pattern.end());
  using namespace std::regex_constants;
  return std::basic_regex<LibraryUnit<CharT>>(units, ignoreCase ? ECMAScript | icase : ECMAScript);
}

// The reason why a text is refused.
struct Refusal {
  std::string text;
  int code = -1;

  bool operator==(const Refusal&) const = default;
};

template <typename Compile>
Refusal RefusalOf(Compile compile) {
  try {
    compile();
    return {};
  } catch (const std::regex_error& error) {
    return {error.what(), error.code()};
  }
}

// Starts and lengths of all matches in a line, each searched from the end of the previous one; the last one
// may be empty.
using LineMatches = std::vector<std::pair<std::size_t, std::size_t>>;

template <typename CharT>
LineMatches MatchesOfLibrary(const std::basic_regex<LibraryUnit<CharT>>& regex,
                             std::basic_string_view<CharT> line, std::size_t column) {
  using Unit = LibraryUnit<CharT>;
  const std::basic_string<Unit> units(line.begin(), line.end());
  const Unit* const begin = units.data();
  LineMatches matches;
  std::match_results<const Unit*> found;
  while (std::regex_search(begin + column, begin + units.size(), found, regex)) {
    const auto length = static_cast<std::size_t>(found.length());
    matches.emplace_back(column + static_cast<std::size_t>(found.position()), length);
    if (length == 0) break;
    column = matches.back().first + length;
  }
  return matches;
}

template <typename CharT>
LineMatches MatchesOf(QXFindAndReplace::WildcardPattern<CharT>& pattern, std::basic_string_view<CharT> line,
                      std::size_t column) {
  LineMatches matches;
  typename QXFindAndReplace::WildcardPattern<CharT>::Match match = {};
  while (pattern.Search(line.data(), static_cast<std::uint32_t>(line.size()),
                        static_cast<std::uint32_t>(column), match)) {
    matches.emplace_back(match.start, match.length);
    if (match.length == 0) break;
    column = match.start + match.length;
  }
  return matches;
}
