#include "findreplace/engine/pattern_search.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "findreplace/engine/text_search.h"

namespace QXFindAndReplace {

namespace {

// Checks whether a text that contains a line end is a valid pattern; it cannot match any line. Each text of a
// list extends to the end of the list (C-209), so most of it has already been checked with the previous text,
// and only its first line remains to be checked.
template <typename CharT>
void CheckListText(TextDocumentT<CharT>& document, std::basic_string_view<CharT> find, std::size_t lineEnd,
                   bool ignoreCase) {
  const bool isChecked = std::basic_string_view<CharT>(document.checkedList).ends_with(find);
  const WildcardPattern<CharT> checked(isChecked ? find.substr(0, lineEnd + 1) : find, ignoreCase);
  if (!isChecked) document.checkedList = find;
}

// Returns the pattern of a text, or null if it cannot match any line.
template <typename CharT>
WildcardPattern<CharT>* CompiledPattern(TextDocumentT<CharT>& document, const CharT* text, bool ignoreCase) {
  const std::basic_string_view<CharT> find(text);
  const std::size_t lineEnd = FindLineEndIn(find);
  if (lineEnd != find.npos) {
    CheckListText(document, find, lineEnd, ignoreCase);
    return nullptr;
  }
  auto& cache = document.regexCache;
  const auto known = std::ranges::find(cache, find, &RegexCacheEntry<CharT>::text);
  if (known != cache.end()) return &known->pattern;
  cache.push_back({std::basic_string<CharT>(find), WildcardPattern<CharT>(find, ignoreCase)});
  return &cache.back().pattern;
}

template <typename CharT>
bool MatchPattern(WildcardPattern<CharT>& pattern, const TextLine& line, const TextPosition& position,
                  LineMatch& match) {
  typename WildcardPattern<CharT>::Match found = {};
  if (!pattern.Search(FileText<CharT>(line), FileLength<CharT>(line), position.column, found)) return false;
  match = MatchAt({position.line, found.start}, found.length);
  return true;
}

}  // namespace

template <typename CharT>
bool PatternSearch<CharT>::Next(TextPosition position, LineMatch& match) {
  for (; position.line < document_.lines.size(); position = {position.line + 1, 0}) {
    if (pattern_ && !MoveToRequired(position)) return false;
    const TextLine& line = document_.lines[position.line];
    if (line.removed != 0) continue;
    // The pattern is compiled only if there is a line to search.
    if (!pattern_) pattern_ = CompiledPattern(document_, text_, ignoreCase_);
    if (!pattern_) return false;
    if (MatchPattern(*pattern_, line, position, match)) return true;
  }
  return false;
}

// Moves to the next line that contains the required text at or after the position, if that is a later line.
// Returns false if there is no such line.
template <typename CharT>
bool PatternSearch<CharT>::MoveToRequired(TextPosition& position) {
  const WildcardLiteral<CharT>& required = pattern_->Required();
  if (required.Length() == 0) return true;
  TextPosition place = position;
  const bool isFound =
      search_.Next(place, [&](const CharT* p, const CharT* end) { return required.FindFirst(p, end); });
  if (place.line != position.line) position = {place.line, 0};
  return isFound;
}

template <typename CharT>
bool FindRegexInLine(TextDocumentT<CharT>& document, LineMatch& match, std::uint32_t line,
                     std::uint32_t column, const CharT* text, bool ignoreCase) {
  match = {};
  const TextLine& searched = document.lines.at(line);
  if (searched.removed != 0 || column > FileLength<CharT>(searched)) return false;
  WildcardPattern<CharT>* const pattern = CompiledPattern(document, text, ignoreCase);
  return pattern && MatchPattern(*pattern, searched, {line, column}, match);
}

template class PatternSearch<char>;
template class PatternSearch<WCHAR>;
template bool FindRegexInLine(TextDocumentT<char>&, LineMatch&, std::uint32_t, std::uint32_t, const char*,
                              bool);
template bool FindRegexInLine(TextDocumentT<WCHAR>&, LineMatch&, std::uint32_t, std::uint32_t, const WCHAR*,
                              bool);

}  // namespace QXFindAndReplace
