#include "findreplace/engine/item_search.h"

#include <string>

#include "findreplace/engine/text_search.h"

namespace QXFindAndReplace {

namespace {

template <typename CharT>
std::basic_string_view<CharT> Measured(const CharT* text, std::uint32_t length) {
  return length != 0 ? std::basic_string_view<CharT>(text, length) : std::basic_string_view<CharT>(text);
}

template <typename CharT>
bool HasZero(const CharT* text, std::size_t length) {
  return std::char_traits<CharT>::find(text, length, CharT()) != nullptr;
}

// Returns the first match in a part of a line by the rules of FindInLine, or null.
template <typename CharT>
const CharT* FindInRange(const CharT* p, const CharT* end, std::basic_string_view<CharT> text,
                         bool ignoreCase) {
  if (text.empty()) return ignoreCase || (p != end && *p != CharT()) ? p : nullptr;
  if (ignoreCase) return ScanIgnoringCase(p, end, text.data(), text.size());
  const CharT* const place = WildcardLiteral<CharT>(text, false).FindFirst(p, end);
  return place && !HasZero(p, static_cast<std::size_t>(place - p) + 1) ? place : nullptr;
}

}  // namespace

template <typename CharT>
ItemSearch<CharT>::ItemSearch(const TextDocumentT<CharT>& document, std::uint32_t firstLine,
                              const CharT* text, std::uint32_t length, bool ignoreCase)
    : document_(document),
      search_(document, firstLine),
      text_(Measured(text, length)),
      literal_(text_, false),
      matchLength_(length),
      ignoreCase_(ignoreCase) {}

template <typename CharT>
bool ItemSearch<CharT>::Next(TextPosition position, LineMatch& match) {
  if (FindLineEndIn(text_) != text_.npos) return false;  // no line contains a line end (C-210)
  return text_.empty() ? NextInLines(position, match) : NextInBlocks(position, match);
}

// Returns true if a zero character in [from, column] ends the search before it finds the match at `column`
// (C-203).
template <typename CharT>
bool ItemSearch<CharT>::IsAfterNull(const TextLine& line, std::uint32_t from, std::uint32_t column) const {
  return !ignoreCase_ && HasZero(FileText<CharT>(line) + from, column - from + 1);
}

template <typename CharT>
bool ItemSearch<CharT>::NextInBlocks(TextPosition position, LineMatch& match) {
  const auto find = [this](const CharT* p, const CharT* end) {
    return ignoreCase_ ? ScanIgnoringCase(p, end, text_.data(), text_.size()) : literal_.FindFirst(p, end);
  };
  for (;;) {
    const TextPosition start = position;
    if (!search_.Next(position, find)) return false;
    const TextLine& line = document_.lines[position.line];
    const std::uint32_t from = start.line == position.line ? start.column : 0;
    if (line.removed == 0 && !IsAfterNull(line, from, position.column)) {
      match = MatchAt(position, matchLength_);
      return true;
    }
    position = {position.line + 1, 0};
  }
}

template <typename CharT>
bool ItemSearch<CharT>::NextInLines(TextPosition position, LineMatch& match) {
  for (; position.line < document_.lines.size(); position = {position.line + 1, 0}) {
    const TextLine& line = document_.lines[position.line];
    if (line.removed != 0) continue;
    const CharT* const begin = FileText<CharT>(line);
    const CharT* const place =
        FindInRange(begin + position.column, begin + FileLength<CharT>(line), text_, ignoreCase_);
    if (!place) continue;
    match = MatchAt({position.line, static_cast<std::uint32_t>(place - begin)}, matchLength_);
    return true;
  }
  return false;
}

template <typename CharT>
bool FindInLine(const TextDocumentT<CharT>& document, LineMatch& match, std::uint32_t line,
                std::uint32_t column, const CharT* text, std::uint32_t length, bool ignoreCase) {
  match = {};
  const TextLine& searched = document.lines.at(line);
  if (searched.removed != 0 || column > FileLength<CharT>(searched)) return false;
  const CharT* const begin = FileText<CharT>(searched);
  const CharT* const place =
      FindInRange(begin + column, begin + FileLength<CharT>(searched), Measured(text, length), ignoreCase);
  if (place) match = MatchAt({line, static_cast<std::uint32_t>(place - begin)}, length);
  return match.found;
}

template class ItemSearch<char>;
template class ItemSearch<WCHAR>;
template bool FindInLine(const TextDocumentT<char>&, LineMatch&, std::uint32_t, std::uint32_t, const char*,
                         std::uint32_t, bool);
template bool FindInLine(const TextDocumentT<WCHAR>&, LineMatch&, std::uint32_t, std::uint32_t, const WCHAR*,
                         std::uint32_t, bool);

}  // namespace QXFindAndReplace
