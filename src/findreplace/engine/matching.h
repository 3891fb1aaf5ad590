// How a text is found in one line, how a pass goes through a document, and how a block of lines is found.
//
// All searches go through the text of the file, never through the text that earlier replacements left
// (C-201). Lengths and columns are in characters of CharT. CharT is char or WCHAR.
#pragma once

#include <cstdint>

#include "findreplace/engine/find_and_replace_callback.h"
#include "findreplace/engine/text_document.h"

namespace QXFindAndReplace {

struct LineMatch {
  bool found = false;
  TextRange range = {};
};

// A match within one line.
inline LineMatch MatchAt(const TextPosition& position, std::uint32_t length) {
  return {true, {position, {position.line, position.column + length}}};
}

enum LineMatching : std::uint32_t { kMatchPlain = 1, kMatchWildcard = 2 };

// Searches `text` in a line from `column` on. A length of 0 measures the text up to its terminator, but the
// match found has length 0 all the same. A removed line has no match.
//
// Case-sensitive: a zero character in the line ends the search (C-203). Ignoring case, for A to Z only
// (C-204): zeros do not matter, and after a failed comparison the scan goes on after the character that
// failed, so "aab" is not found in "aaab" (C-202).
template <typename CharT>
bool FindInLine(const TextDocumentT<CharT>& document, LineMatch& match, std::uint32_t line,
                std::uint32_t column, const CharT* text, std::uint32_t length, bool ignoreCase);

// Searches a zero-terminated text with ? and * in a line from `column` on. The pattern is compiled when it is
// first needed and kept in the document. Throws std::regex_error for a pattern that is none.
template <typename CharT>
bool FindRegexInLine(TextDocumentT<CharT>& document, LineMatch& match, std::uint32_t line,
                     std::uint32_t column, const CharT* text, bool ignoreCase);

// One pass of one item over the document: finds, asks the callback where there is one, replaces and counts.
// Throws WQDataReaderException: 87 "Unsupported line matching options", 87 "Text part not found" (also for an
// empty match, C-208), 1223 "Operation cancelled by user".
template <typename CharT>
void FindAndReplaceInLines(TextDocumentT<CharT>& document, const CharT* find, std::uint32_t findLength,
                           const CharT* replace, std::uint32_t replaceLength, bool ignoreCase,
                           std::uint32_t matching, IFindAndReplaceCallback* callback);

// Searches consecutive lines that hold the items of `findLines`, from a position on. The first item may be
// anywhere in its line and need not reach the line's end (C-221); the last one begins its line. The last two
// of the middle lines are not compared (C-222).
template <typename CharT>
void FindLineBlock(const TextDocumentT<CharT>& document, LineMatch& match, const Lines& findLines,
                   const TextPosition& startPosition, bool ignoreCase);

// Asks about a range of lines, unless replaceAll is set, and replaces it. False if the user cancelled.
template <typename CharT>
bool ConfirmAndReplaceRange(TextDocumentT<CharT>& document, IFindAndReplaceCallback& callback,
                            const TextRange& range, const Lines& replaceLines);

}  // namespace QXFindAndReplace
