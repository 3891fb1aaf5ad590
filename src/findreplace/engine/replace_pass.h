// One search for one text through a document, with its replacements.
#pragma once

#include <cstdint>

#include "findreplace/engine/find_and_replace_callback.h"
#include "findreplace/engine/text_document.h"

namespace QXFindAndReplace {

enum LineMatching : std::uint32_t { kMatchPlain = 1, kMatchWildcard = 2 };

// Finds all matches in all lines and replaces and counts them. If `callback` is not null, asks it about each
// match. `matching` is a LineMatching. Throws WQDataReaderException: 87 "Unsupported line matching options",
// 87 "Text part not found", also for an empty match (C-208), and 1223 "Operation cancelled by user".
template <typename CharT>
void FindAndReplaceInLines(TextDocumentT<CharT>& document, const CharT* find, std::uint32_t findLength,
                           const CharT* replace, std::uint32_t replaceLength, bool ignoreCase,
                           std::uint32_t matching, IFindAndReplaceCallback* callback);

}  // namespace QXFindAndReplace
