// The search with wildcards through a document, line for line as FindRegexInLine tells it.
#pragma once

#include <cstdint>

#include "findreplace/engine/document_search.h"
#include "findreplace/engine/matching.h"

namespace QXFindAndReplace {

// Lines that lack the longest text that every match holds are passed over without a look.
template <typename CharT>
class PatternSearch {
 public:
  // The text is zero-terminated.
  PatternSearch(TextDocumentT<CharT>& document, const CharT* text, bool ignoreCase)
      : document_(document), search_(document, 0), text_(text), ignoreCase_(ignoreCase) {}

  // The next match at or behind a position; positions of one search only rise. Throws as FindRegexInLine.
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
