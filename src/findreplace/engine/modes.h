// The four modes: how a find text and a replace text are read, and what is run over a document.
#pragma once

#include <cstdint>

#include "findreplace/engine/find_and_replace_options.h"
#include "findreplace/engine/text_document.h"

namespace QXFindAndReplace {

// Runs the first mode bit that is set, in the order Multiline, Many, ManySame, One; without one nothing is
// done. Both texts are zero-terminated and in the document's encoding. Returns the document's changes. Throws
// as FindAndReplaceInLines and ReplaceRange, and WQDataReaderException, 87, for texts that do not fit the
// mode.
template <typename CharT>
std::uint32_t ApplyToDocument(TextDocumentT<CharT>& document, FindAndReplaceOptions& options,
                              const CharT* find, const CharT* replace);

}  // namespace QXFindAndReplace
