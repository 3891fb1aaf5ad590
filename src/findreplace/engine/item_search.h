// The plain search of one text through a document, line for line as FindInLine tells it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "findreplace/engine/document_search.h"
#include "findreplace/engine/matching.h"

namespace QXFindAndReplace {

template <typename CharT>
class ItemSearch {
 public:
  // A length of 0 measures the text up to its terminator; its matches are empty all the same.
  ItemSearch(const TextDocumentT<CharT>& document, std::uint32_t firstLine, const CharT* text,
             std::uint32_t length, bool ignoreCase);

  // The next match at or behind a position; positions of one search only rise.
  bool Next(TextPosition position, LineMatch& match);

 private:
  bool NextInBlocks(TextPosition position, LineMatch& match);
  bool NextInLines(TextPosition position, LineMatch& match);
  bool IsHiddenByZero(const TextLine& line, std::uint32_t from, std::uint32_t column) const;

  const TextDocumentT<CharT>& document_;
  DocumentSearch<CharT> search_;
  std::basic_string_view<CharT> text_;
  std::uint32_t matchLength_;
  bool ignoreCase_;
};

}  // namespace QXFindAndReplace
