// Matches wildcard patterns against any line: checks the properties of all matches and, for short patterns,
// compares them with those of the standard library.
#include <algorithm>
#include <optional>

#include "findreplace/wildcard/wildcard.h"
#include "findreplace/wildcard_library.h"
#include "fuzz_input.h"

using namespace QXFindAndReplace;

namespace {

template <typename CharT>
using Text = std::basic_string<CharT>;

// Narrowed to bytes if CharT is char. Zeros of the input become the character 1, as a zero would end the
// text.
template <typename CharT>
Text<CharT> TakeText(FuzzInput& input) {
  Text<CharT> text;
  for (const WCHAR c : input.TakeText()) text += c == 1 ? CharT() : static_cast<CharT>(c);
  return text;
}

// The library's compiler recurses for each character, its matcher takes exponential time for nested
// repetitions, and its behavior is undefined for numbers beyond 32 bits.
template <typename CharT>
bool CanAskLibrary(const Text<CharT>& text, const Text<CharT>& line) {
  int braces = 0;
  int stars = 0;
  int nested = 0;
  int digits = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const CharT c = text[at];
    digits = c >= CharT('0') && c <= CharT('9') ? digits + 1 : 0;
    if (digits > 2) return false;
    braces += c == CharT('{');
    stars += c == CharT('*');
    nested += at > 0 && c == CharT('{') && (text[at - 1] == CharT('}') || text[at - 1] == CharT('*'));
  }
  if (nested > 1) return false;
  if (nested == 1) return text.size() <= 16 && line.size() <= 8 && braces <= 2 && stars <= 1;
  return text.size() <= 64 && line.size() <= 40 && braces + stars <= 4;
}

// Matches are in order and do not overlap; an empty one is the last.
void RequireOrder(const LineMatches& matches, std::size_t column, std::size_t size) {
  for (std::size_t at = 0; at < matches.size(); ++at) {
    Require(matches[at].first >= column);
    Require(matches[at].second != 0 || at + 1 == matches.size());
    column = matches[at].first + matches[at].second;
    Require(column <= size);
  }
}

template <typename CharT>
void RequireText(const WildcardPattern<CharT>& pattern, const LineMatches& matches, const Text<CharT>& line) {
  for (const auto& [start, length] : matches) {
    Require(std::basic_string_view<CharT>(line).substr(start, length).find(pattern.RequiredText()) !=
            Text<CharT>::npos);
  }
}

template <typename CharT>
void Try(FuzzInput& input) {
  const std::uint8_t flags = input.TakeByte();
  const bool ignoreCase = flags % 2 != 0;
  Text<CharT> text = TakeText<CharT>(input);
  Text<CharT> line = TakeText<CharT>(input);
  const std::size_t column = std::min<std::size_t>(flags / 2, line.size());
  const bool canAsk = CanAskLibrary(text, line);
  line.shrink_to_fit();

  std::optional<WildcardPattern<CharT>> pattern;
  const Refusal refusal = RefusalOf([&] { pattern.emplace(text, ignoreCase); });
  std::optional<std::basic_regex<LibraryUnit<CharT>>> regex;
  if (canAsk)
    Require(RefusalOf([&] { regex.emplace(CompileInLibrary<CharT>(text, ignoreCase)); }) == refusal);
  if (!pattern) return;

  LineMatches matches;
  const Refusal tooComplex = RefusalOf([&] { matches = MatchesOf<CharT>(*pattern, line, column); });
  if (tooComplex.code != -1) {
    Require(tooComplex.code == std::regex_constants::error_complexity && !canAsk);
    return;
  }
  RequireOrder(matches, column, line.size());
  if (!ignoreCase) RequireText(*pattern, matches, line);
  // The data that a pattern stores about a line does not affect the matches.
  for (const auto& [start, length] : matches) {
    WildcardPattern<CharT> fresh(text, ignoreCase);
    const LineMatches rest = MatchesOf<CharT>(fresh, line, start);
    Require(!rest.empty() && rest.front() == std::pair(start, length));
    if (matches.size() > 8) break;
  }
  if (regex) Require(matches == MatchesOfLibrary<CharT>(*regex, line, column));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  if (input.TakeByte() % 2 == 0)
    Try<char>(input);
  else
    Try<WCHAR>(input);
  return 0;
}
