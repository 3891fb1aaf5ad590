// Searches with ? (one character) and * (any run of characters, as long as can be) in one line.
//
// What a text means is told by the regular expression that WildcardToRegex makes of it, in the standard
// library's ECMAScript grammar; braces keep their meaning there (`x{2}`). The library's own matcher calls
// itself for each character, which a long line turns into a stack overflow, and may take time without bounds.
// So its matches are found here in another way: without recursion, in time that grows with the line, and with
// no memory for a line where neither the text has braces nor a match would reach over a line separator. The
// library judges the patterns: what it refuses is refused with its words. Beyond ASCII a character means
// itself, whatever the locale or the code page.
//
// CharT is char or WCHAR; letters of A to Z alone have a case.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "findreplace/wildcard/wildcard_match.h"
#include "platform/text.h"

namespace QXFindAndReplace {

// Puts a backslash before each character of \^.$|()[]*+?/ ; braces and hyphens stay as they are (C-205).
template <typename CharT>
std::basic_string<CharT> EscapeRegex(std::basic_string_view<CharT> text);

// The pattern that a text with wildcards means.
template <typename CharT>
std::basic_string<CharT> WildcardToRegex(std::basic_string_view<CharT> text);

// A text with wildcards, made ready for searches. Keeps what it needs for the line that it searched last, so
// one thread uses it at a time.
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
  // A search that begins behind the match of the last one in the same line (the same pointer and length) goes
  // on with what is known of it, so that its text must be the same still. Throws std::regex_error
  // (error_complexity) where a pattern with braces needs too much memory for the line, or std::bad_alloc.
  bool Search(const CharT* line, std::uint32_t length, std::uint32_t column, Match& match);

  // Characters that stand in every match, side by side; empty if the text has none. Stays valid with the
  // pattern. With ignoreCase its letters stand for both cases.
  std::basic_string_view<CharT> RequiredText() const;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

// A compiled pattern under the text that it was made of.
template <typename CharT>
struct RegexCacheEntry {
  std::basic_string<CharT> text;
  WildcardPattern<CharT> pattern;
};

}  // namespace QXFindAndReplace
