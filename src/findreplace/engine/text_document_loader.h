// From a reader's bytes to a text document.
#pragma once

#include <memory>

#include "data/data_reader.h"
#include "findreplace/engine/text_document.h"

namespace QXFindAndReplace {

struct TextDocumentLoader {
  // Bytes of a block. A line must fit into one.
  std::uint32_t blockSize = 32768;

  // Reads the whole source. Throws what the reader throws, and std::bad_alloc at once for a line that fills a
  // block and is longer.
  template <typename CharT>
  std::shared_ptr<TextDocumentT<CharT>> Load(WQDR::DataReader& reader, WQDR::TextFormat format) const;
};

}  // namespace QXFindAndReplace
