// Searches with ? (any one character) and * (any run of characters, as long as possible) in one line.
//
// A text means the regular expression that WildcardToRegex makes of it, in the ECMAScript grammar of the
// standard library. Braces are counts there, as in `x{2}` (C-205). The library's matcher calls itself for
// each character, so a long line would overflow the stack, and its running time is not bounded. The matchers
// here find the same matches without recursion, in time that grows linearly with the line. Patterns that the
// library rejects are rejected with the library's exceptions: it compiles each brace, and wildcard_elements
// counts the states that it would need. Characters outside ASCII match only themselves, whatever the locale
// or the code page.
//
// The files, in the order in which they process a text:
//
//   wildcard_regex      converts the text to a regular expression
//   wildcard_elements   parses it into elements: characters with their repeats
//   wildcard            chooses a matcher, and finds RequiredText, which most lines do not contain
//   wildcard_literal    the innermost search, for literals: characters and places for any character
//
// There are three matchers. For a pattern of m characters and a line of n:
//
//   matcher            patterns                         time of a search        memory for a line
//   wildcard_segments  ? and *, and exact counts        one pass over the line  none
//                      (`x{3}`)                         for each * of the text
//   wildcard_runs      counts with bounds (`x{1,3}`,    one pass over the line  n bits for each run and
//                      `x{2,}`), and lines in which a   for each run and        each literal, 64 MiB at
//                      match of wildcard_segments       literal, once for all   most
//                      would include a line terminator  searches in the line
//   wildcard_states    repeats of repeats with gaps or  m * n for all searches  m * n bits, and the open
//                      a special order (`x{2}{1,3}`,    in the line, and again  choices on one path, 64 MiB
//                      `x{5,6}{0,3}`); m is the length  the states at the end   each at most
//                      with all counts expanded         of each match
//
// Searches that need more memory (kWildcardMemory) fail with error_complexity. Each matcher's header contains
// an example.
//
// CharT is char or WCHAR; only the letters A to Z have a case.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "findreplace/wildcard/wildcard_literal.h"
#include "findreplace/wildcard/wildcard_match.h"
#include "platform/text.h"

namespace QXFindAndReplace {

// Puts a backslash before each character of \^.$|()[]*+?/ and leaves braces and hyphens unchanged (C-205).
template <typename CharT>
std::basic_string<CharT> EscapeRegex(std::basic_string_view<CharT> text);

// Returns the regular expression for a text with wildcards.
template <typename CharT>
std::basic_string<CharT> WildcardToRegex(std::basic_string_view<CharT> text);

// A compiled text with wildcards. Stores what it has found out about the line searched last, so it must not
// be used by two threads at a time.
template <typename CharT>
class WildcardPattern {
 public:
  // Throws std::regex_error with the text of the library, or std::bad_alloc.
  WildcardPattern(std::basic_string_view<CharT> text, bool ignoreCase);
  WildcardPattern(WildcardPattern&&) noexcept;
  WildcardPattern& operator=(WildcardPattern&&) noexcept;
  ~WildcardPattern();

  using Match = WildcardMatch;

  // Finds the match that std::regex_search would find in the `length` characters of the line from `column`
  // on: the leftmost one, in which each run is as long as possible, earlier runs first. Returns false if
  // nothing matches. `column` must not exceed `length`. Zeros are ordinary characters. ? and * do not match
  // CR and LF, which a line does not contain, nor U+2028 and U+2029 in wide text, which it may contain
  // (C-207).
  //
  // A search in the same line (the same pointer and length) from the end of the previous match on reuses what
  // is known about the line, so its text must not have changed. Throws std::regex_error (error_complexity) if
  // the line needs too much memory, or std::bad_alloc.
  bool Search(const CharT* line, std::uint32_t length, std::uint32_t column, Match& match);

  // RequiredText returns a sequence of characters that every match contains, or an empty one; it is valid
  // during the lifetime of the pattern. With ignoreCase its letters stand for both cases. Required returns
  // the literal that searches for it.
  std::basic_string_view<CharT> RequiredText() const;
  const WildcardLiteral<CharT>& Required() const;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

// A compiled pattern and the text from which it was made.
template <typename CharT>
struct RegexCacheEntry {
  std::basic_string<CharT> text;
  WildcardPattern<CharT> pattern;
};

}  // namespace QXFindAndReplace
