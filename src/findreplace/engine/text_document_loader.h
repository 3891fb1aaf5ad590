// Loads a text document from a reader.
#pragma once

#include <memory>

#include "data/data_reader.h"
#include "findreplace/engine/text_document.h"

namespace QXFindAndReplace {

struct TextDocumentLoader {
  // The size of a block in bytes. A line must fit into one block.
  std::uint32_t blockSize = 32768;

  // Reads the whole source. Throws the exceptions of the reader, and std::bad_alloc for a line that does not
  // fit into a block.
  template <typename CharT>
  std::shared_ptr<TextDocumentT<CharT>> Load(WQDR::DataReader& reader, WQDR::TextFormat format) const;
};

}  // namespace QXFindAndReplace
