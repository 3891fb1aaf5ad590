// Converts a text with wildcards to a regular expression.
#include "findreplace/wildcard/wildcard.h"

namespace QXFindAndReplace {

namespace {

template <typename CharT>
bool IsOneOf(const char* set, CharT c) {
  for (; *set != '\0'; ++set) {
    if (c == static_cast<CharT>(*set)) return true;
  }
  return false;
}

}  // namespace

template <typename CharT>
std::basic_string<CharT> EscapeRegex(std::basic_string_view<CharT> text) {
  std::basic_string<CharT> escaped;
  escaped.reserve(text.size());
  for (const CharT c : text) {
    if (IsOneOf("\\^.$|()[]*+?/", c)) escaped += CharT('\\');
    escaped += c;
  }
  return escaped;
}

template <typename CharT>
std::basic_string<CharT> WildcardToRegex(std::basic_string_view<CharT> text) {
  const std::basic_string<CharT> escaped = EscapeRegex(text);
  std::basic_string<CharT> pattern;
  pattern.reserve(escaped.size());
  for (std::size_t at = 0; at < escaped.size(); ++at) {
    // Each backslash precedes the character that it escapes.
    if (escaped[at] != CharT('\\')) {
      pattern += escaped[at];
      continue;
    }
    ++at;
    if (escaped[at] == CharT('?')) {
      pattern += CharT('.');
    } else if (escaped[at] == CharT('*')) {
      pattern += CharT('.');
      pattern += CharT('*');
    } else {
      pattern += CharT('\\');
      pattern += escaped[at];
    }
  }
  return pattern;
}

template std::basic_string<char> EscapeRegex(std::basic_string_view<char>);
template std::basic_string<WCHAR> EscapeRegex(std::basic_string_view<WCHAR>);
template std::basic_string<char> WildcardToRegex(std::basic_string_view<char>);
template std::basic_string<WCHAR> WildcardToRegex(std::basic_string_view<WCHAR>);

}  // namespace QXFindAndReplace
