// The mode Multiline: searches for consecutive lines, asks about a match and replaces it.
#pragma once

#include "findreplace/engine/find_and_replace_callback.h"
#include "findreplace/engine/line_match.h"
#include "findreplace/engine/lines.h"

namespace QXFindAndReplace {

// Searches for consecutive lines that contain the items of `findLines`, from a position on. The first item
// may be anywhere in its line and need not extend to its end (C-221); the last item must be at the beginning
// of its line. The last two of the middle lines are not compared (C-222).
template <typename CharT>
void FindMultilineMatch(const TextDocumentT<CharT>& document, LineMatch& match, const Lines& findLines,
                        const TextPosition& startPosition, bool ignoreCase);

// Replaces a range of lines. First asks the user, unless the document's replaceAll is set. Returns false if
// the user has cancelled.
template <typename CharT>
bool ConfirmAndReplaceRange(TextDocumentT<CharT>& document, IFindAndReplaceCallback& callback,
                            const TextRange& range, const Lines& replaceLines);

}  // namespace QXFindAndReplace
