// The search with wildcards, in a line and through a document.
#pragma once

#include <cstdint>

#include "findreplace/engine/document_search.h"
#include "findreplace/engine/line_match.h"

namespace QXFindAndReplace {

// Searches a zero-terminated text with ? and * in a line from `column` on. The pattern is compiled when it is
// first needed and kept in the document. Throws std::regex_error for a pattern that is not valid.
template <typename CharT>
bool FindRegexInLine(TextDocumentT<CharT>& document, LineMatch& match, std::uint32_t line,
                     std::uint32_t column, const CharT* text, bool ignoreCase);

// The same through all lines of a document. Lines without the longest text that every match holds are
// skipped.
template <typename CharT>
class PatternSearch {
 public:
  // The text is zero-terminated.
  PatternSearch(TextDocumentT<CharT>& document, const CharT* text, bool ignoreCase)
      : document_(document), search_(document, 0), text_(text), ignoreCase_(ignoreCase) {}

  // Finds the next match at or after a position; positions of one search only rise. Throws as
  // FindRegexInLine.
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
