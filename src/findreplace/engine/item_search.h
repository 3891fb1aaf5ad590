// Searches for one text without wildcards, in a line and through a document.
//
// All searches read the text of the file, never text that earlier replacements have inserted (C-201). Lengths
// and columns are in characters of CharT, which is char or WCHAR.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "findreplace/engine/document_search.h"
#include "findreplace/engine/line_match.h"
#include "findreplace/wildcard/wildcard_literal.h"

namespace QXFindAndReplace {

// Searches for `text` in a line, from `column` on. If `length` is 0, the text is zero-terminated, but the
// match still has the length 0. Finds nothing in a removed line.
//
// A case-sensitive search ends at the first zero character in the line (C-203). A search that ignores case,
// for A to Z only (C-204), does not end at zeros, and after a failed comparison continues after the character
// that differed, so it does not find "aab" in "aaab" (C-202).
template <typename CharT>
bool FindInLine(const TextDocumentT<CharT>& document, LineMatch& match, std::uint32_t line,
                std::uint32_t column, const CharT* text, std::uint32_t length, bool ignoreCase);

// Same through all lines of a document.
template <typename CharT>
class ItemSearch {
 public:
  // If `length` is 0, the text is zero-terminated, but its matches still have the length 0.
  ItemSearch(const TextDocumentT<CharT>& document, std::uint32_t firstLine, const CharT* text,
             std::uint32_t length, bool ignoreCase);

  // Finds the next match at or after a position. Positions must not decrease from call to call.
  bool Next(TextPosition position, LineMatch& match);

 private:
  bool NextInBlocks(TextPosition position, LineMatch& match);
  bool NextInLines(TextPosition position, LineMatch& match);
  bool IsAfterNull(const TextLine& line, std::uint32_t from, std::uint32_t column) const;

  const TextDocumentT<CharT>& document_;
  DocumentSearch<CharT> search_;
  std::basic_string_view<CharT> text_;
  WildcardLiteral<CharT> literal_;
  std::uint32_t matchLength_;
  bool ignoreCase_;
};

}  // namespace QXFindAndReplace
