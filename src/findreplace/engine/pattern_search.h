// Searches with wildcards, in a line and through a document.
#pragma once

#include <cstdint>

#include "findreplace/engine/document_search.h"
#include "findreplace/engine/line_match.h"

namespace QXFindAndReplace {

// Searches for a zero-terminated text with ? and * in a line, from `column` on. The pattern is compiled at
// its first use and stored in the document. Throws std::regex_error if the pattern is not valid.
template <typename CharT>
bool FindRegexInLine(TextDocumentT<CharT>& document, LineMatch& match, std::uint32_t line,
                     std::uint32_t column, const CharT* text, bool ignoreCase);

// Same through all lines of a document. Skips lines that do not contain the required text of the pattern.
template <typename CharT>
class PatternSearch {
 public:
  // `text` must be zero-terminated.
  PatternSearch(TextDocumentT<CharT>& document, const CharT* text, bool ignoreCase)
      : document_(document), search_(document, 0), text_(text), ignoreCase_(ignoreCase) {}

  // Finds the next match at or after a position. Positions must not decrease from call to call. Throws the
  // exceptions of FindRegexInLine.
  bool Next(TextPosition position, LineMatch& match);

 private:
  bool MoveToRequired(TextPosition& position);

  TextDocumentT<CharT>& document_;
  DocumentSearch<CharT> search_;
  const CharT* text_;
  bool ignoreCase_;
  WildcardPattern<CharT>* pattern_ = nullptr;
};

}  // namespace QXFindAndReplace
