// The four modes: how they interpret the find and replace texts and process a document.
#pragma once

#include <cstdint>

#include "findreplace/engine/find_and_replace_options.h"
#include "findreplace/engine/text_document.h"

namespace QXFindAndReplace {

// Applies the first mode whose bit is set, in the order Multiline, Many, ManySame, One (C-213); if none is
// set, does nothing. Both texts must be zero-terminated and in the encoding of the document. Returns the
// number of changes in the document. Throws the exceptions of FindAndReplaceInLines and ReplaceRange, and
// WQDataReaderException (87) if the texts do not suit the mode.
template <typename CharT>
std::uint32_t ApplyToDocument(TextDocumentT<CharT>& document, FindAndReplaceOptions& options,
                              const CharT* find, const CharT* replace);

}  // namespace QXFindAndReplace
