// The plain search of one text, in a line and through a document.
//
// All searches read the text of the file, never the text that earlier replacements left (C-201). Lengths and
// columns are in characters of CharT. CharT is char or WCHAR.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "findreplace/engine/document_search.h"
#include "findreplace/engine/line_match.h"
#include "findreplace/wildcard/wildcard_literal.h"

namespace QXFindAndReplace {

// Searches `text` in a line from `column` on. A length of 0 measures the text up to its terminator, but the
// match found has length 0 all the same. A removed line has no match.
//
// Case-sensitive: a zero character in the line ends the search (C-203). Ignoring case, for A to Z only
// (C-204): zeros do not matter, and after a failed comparison the scan goes on after the character that
// failed, so "aab" is not found in "aaab" (C-202).
template <typename CharT>
bool FindInLine(const TextDocumentT<CharT>& document, LineMatch& match, std::uint32_t line,
                std::uint32_t column, const CharT* text, std::uint32_t length, bool ignoreCase);

// The same through all lines of a document.
template <typename CharT>
class ItemSearch {
 public:
  // A length of 0 measures the text up to its terminator; its matches are empty all the same.
  ItemSearch(const TextDocumentT<CharT>& document, std::uint32_t firstLine, const CharT* text,
             std::uint32_t length, bool ignoreCase);

  // Finds the next match at or after a position; positions of one search only rise.
  bool Next(TextPosition position, LineMatch& match);

 private:
  bool NextInBlocks(TextPosition position, LineMatch& match);
  bool NextInLines(TextPosition position, LineMatch& match);
  bool IsHiddenByZero(const TextLine& line, std::uint32_t from, std::uint32_t column) const;

  const TextDocumentT<CharT>& document_;
  DocumentSearch<CharT> search_;
  std::basic_string_view<CharT> text_;
  WildcardLiteral<CharT> literal_;
  std::uint32_t matchLength_;
  bool ignoreCase_;
};

}  // namespace QXFindAndReplace
