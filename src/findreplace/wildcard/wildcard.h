// Searches with ? (one character) and * (any run of characters, as long as possible) in one line.
//
// The meaning of a text is the regular expression that WildcardToRegex makes of it, in the standard library's
// ECMAScript grammar; braces keep their meaning there (`x{2}`). The library's own matcher calls itself for
// each character, so a long line overflows the stack, and its time has no bound. So its matches are found
// here in another way: without recursion, and in time that grows with the line. What the library refuses is
// refused with its words: it compiles each brace, and the limit of its states is counted in
// wildcard_elements. Characters beyond ASCII mean themselves, whatever the locale or the code page.
//
// The road of a text:
//
//   wildcard_regex      text to regular expression
//   wildcard_elements   regular expression to elements: characters with their repeats
//   wildcard            the choice of a matcher, and RequiredText, which most lines lack
//   wildcard_literal    the innermost search: stretches of characters and places for any character
//
// and one of three matchers. With a pattern of m characters and a line of n:
//
//   matcher            serves                           time of a search        memory for a line
//   wildcard_segments  ? and *, and exact counts        one walk over the line  none
//                      (`x{3}`)                         for each * of the text
//   wildcard_runs      counts with bounds (`x{1,3}`,    a walk over the line    n bits for each run and
//                      `x{2,}`), and what the segments  for each run and        each stretch between two
//                      leave: a match that would reach  stretch, once for all   runs, 64 MiB at most
//                      over a line separator            searches in the line
//   wildcard_states    repeats of repeats with gaps or  m * n for all searches  m * n bits, and as many
//                      an order of their own            in the line, and again  open choices as there are
//                      (`x{2}{1,3}`, `x{5,6}{0,3}`);    the states at the end   on one path, 64 MiB each
//                      m counts them written out        of each match           at most
//
// What needs more memory (kWildcardMemory) is refused with error_complexity. Each matcher's header has a
// worked example.
//
// CharT is char or WCHAR; letters of A to Z alone have a case.
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

// Puts a backslash before each character of \^.$|()[]*+?/ ; braces and hyphens stay as they are (C-205).
template <typename CharT>
std::basic_string<CharT> EscapeRegex(std::basic_string_view<CharT> text);

// The regular expression that a text with wildcards means.
template <typename CharT>
std::basic_string<CharT> WildcardToRegex(std::basic_string_view<CharT> text);

// A text with wildcards, compiled. Keeps what it knows of the line that it searched last, so only one thread
// uses it at a time.
template <typename CharT>
class WildcardPattern {
 public:
  // Throws std::regex_error with the library's text, or std::bad_alloc.
  WildcardPattern(std::basic_string_view<CharT> text, bool ignoreCase);
  WildcardPattern(WildcardPattern&&) noexcept;
  WildcardPattern& operator=(WildcardPattern&&) noexcept;
  ~WildcardPattern();

  using Match = WildcardMatch;

  // The match that std::regex_search finds in the line's `length` characters from `column` on: the leftmost,
  // and from there the one whose runs are each as long as can be, the first before the second. False if there
  // is none. `column` is at most `length`. Zeros are characters like others. A ? or * takes no CR and LF,
  // which a line does not hold, and in WCHARs no U+2028 and U+2029, which it may.
  //
  // A search that begins after the match of the last one in the same line (the same pointer and length) goes
  // on with what is known of the line, so its text must still be the same. Throws std::regex_error
  // (error_complexity) if the line needs too much memory, or std::bad_alloc.
  bool Search(const CharT* line, std::uint32_t length, std::uint32_t column, Match& match);

  // Characters that every match holds, side by side; empty if there are none. Valid as long as the pattern.
  // With ignoreCase its letters mean both cases. Required is the search for it.
  std::basic_string_view<CharT> RequiredText() const;
  const WildcardLiteral<CharT>& Required() const;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

// A compiled pattern and the text that it was made of.
template <typename CharT>
struct RegexCacheEntry {
  std::basic_string<CharT> text;
  WildcardPattern<CharT> pattern;
};

}  // namespace QXFindAndReplace
