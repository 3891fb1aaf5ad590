// Matches of consecutive lines: the mode Multiline. How they are found, and how one is confirmed and
// replaced.
#pragma once

#include "findreplace/engine/find_and_replace_callback.h"
#include "findreplace/engine/line_match.h"
#include "findreplace/engine/lines.h"

namespace QXFindAndReplace {

// Searches consecutive lines that hold the items of `findLines`, from a position on. The first item may be
// anywhere in its line and need not reach the line's end (C-221); the last one begins its line. The last two
// of the middle lines are not compared (C-222).
template <typename CharT>
void FindMultilineMatch(const TextDocumentT<CharT>& document, LineMatch& match, const Lines& findLines,
                        const TextPosition& startPosition, bool ignoreCase);

// Asks about a range of lines, unless replaceAll is set, and replaces it. Returns false if the user
// cancelled.
template <typename CharT>
bool ConfirmAndReplaceRange(TextDocumentT<CharT>& document, IFindAndReplaceCallback& callback,
                            const TextRange& range, const Lines& replaceLines);

}  // namespace QXFindAndReplace
