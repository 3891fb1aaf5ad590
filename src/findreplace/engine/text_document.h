// A text file in memory while its text is replaced.
//
// The bytes of the file are stored in blocks as they were read and are never moved, changed or transcoded; a
// byte order mark is ordinary text of the first line. Each line is a chain of parts. Its first part is the
// line itself; a replacement cuts a part in two and links a part with the inserted text between the halves.
// Searches read the text of the line in the file; only the writers follow the chains.
//
// A line before and after two edits:
//
//   columns        012345
//   as loaded      [abcdef]
//   columns 1 to 3 replaced by "xyz" (ReplaceInLine)
//                  [a] -> (xyz) -> [def]
//   columns 4 to 5 replaced by the lines "u" and "v" (ReplaceRange)
//                  [a] -> (xyz) -> [d] -> (u) -> [] => (v) -> [f]
//   written        axyzdu
//                  vf
//
// [ ] is text of the file, which points into a block: [a] is the line, [def] and [d] begin at column 3, []
// and [f] at 5. ( ) is inserted text. => leads to an inserted line (lineFollows): the line ends before it.
// The empty part is where the line was cut to insert the second line of the replacement.
//
// text_document_loader creates documents, text_document_edit.cpp contains the edits, text_document_write.cpp
// the writers, and item_search, pattern_search and multiline_match the searches.
//
// CharT is char for ANSI and UTF-8 files and WCHAR for UTF-16 files. Lines and columns count from 0, columns
// in characters of CharT (bytes, or 16-bit units). If an operation has thrown an exception, the document must
// not be written. A document is used by one thread at a time.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <vector>

#include "data/data_writer.h"
#include "data/line_ending.h"
#include "data/line_reader.h"
#include "data/text_format.h"
#include "findreplace/engine/lines.h"
#include "findreplace/engine/text_arena.h"
#include "findreplace/wildcard/wildcard.h"

namespace QXFindAndReplace {

enum PartKind : std::uint8_t { kFileText = 0, kInsertedText = 1 };

// A part of a line's text.
struct TextPart {
  std::uint8_t kind;           // PartKind
  std::uint8_t lineFollows;    // 1: `next` is an inserted TextLine, not a further part of this line
  std::uint32_t originOffset;  // if cut off: the offset of its first byte in the line's file text
  std::uint32_t length;        // in bytes
  const char* text;            // not owned
  TextPart* next;              // a TextPart or TextLine of the chain, or null
};

// A line is the first part of its own chain.
struct TextLine : TextPart {
  std::uint32_t fileLength;  // in bytes, without the ending; stays the same when the line is cut
  std::uint8_t endingSize;   // in bytes
  LineEnding ending;
  std::uint8_t removed;  // 1: replaced as one of several lines; neither searched nor written
};

struct TextPosition {
  std::uint32_t line;
  std::uint32_t column;
};

// The end column is that after the last character.
struct TextRange {
  TextPosition start;
  TextPosition end;
};

// The range of the match in a context text, in characters.
struct Highlight {
  std::uint32_t start;
  std::uint32_t end;
};

template <typename CharT>
class TextDocumentT {
 public:
  TextDocumentT() = default;
  TextDocumentT(const TextDocumentT&) = delete;
  TextDocumentT& operator=(const TextDocumentT&) = delete;

  // Replaces the columns from `startColumn` to `endColumn` of a line's file text by a copy of `length`
  // characters of `text`. Returns true. Throws WQDataReaderException (87, "Text part not found") if the range
  // begins in text that has been replaced or at the end of the line, or extends beyond the part in which it
  // begins. Throws std::out_of_range if the line does not exist.
  bool ReplaceInLine(std::uint32_t line, std::uint32_t startColumn, std::uint32_t endColumn,
                     const CharT* text, std::uint32_t length);

  // Replaces a range in one line or over several lines by the lines of `replacement`, which counts as one
  // change. Throws the exceptions of ReplaceInLine; std::out_of_range, "invalid vector<T> subscript", if the
  // replacement has no lines (C-227) or the start line does not exist; and WQDataReaderException, 87, "Line
  // index out of range", if the end line does not exist.
  void ReplaceRange(const TextRange& range, const Lines& replacement);

  // Writes the text with all edits, and the writer's line ending after each line that has an ending. Returns
  // the number of bytes written. Throws the exceptions of the writer.
  std::uint64_t WriteLines(WQDR::DataWriter& writer) const;

  // Returns the text around a range with all edits, zero-terminated: the lines of the range, the one before
  // and the one after, each with `ending` (LineEnding::Inserted for that of GetEndingForOutput). The
  // highlight is 0, 0 if the range, or what it covers of its first or last line, is not in a single part.
  std::unique_ptr<CharT[]> GetContextText(const TextRange& range, Highlight& highlight,
                                          LineEnding ending) const;

  std::uint32_t GetLineCount() const { return static_cast<std::uint32_t>(lines.size()); }

  // Returns the ending for the whole output: that of the first line with an ending, or LF (C-229).
  LineEnding GetEndingForOutput() const;

  std::vector<WQDR::TextBlock> blocks;  // the bytes of the file
  std::vector<TextLine> lines;          // in file order
  WQDR::TextFormat format = WQDR::TextFormat::Ansi;
  bool replaceAll = false;        // no more questions about matches in this file
  std::uint32_t changeCount = 0;  // the number of replacements made
  std::deque<TextPart> parts;
  std::deque<TextLine> insertedLines;
  TextArena insertedTexts;
  std::vector<RegexCacheEntry<CharT>> regexCache;  // compiled patterns, in order of creation
  std::basic_string<CharT> checkedList;  // the longest text of a list that was found to be a valid pattern

  // The lines of one block, whose text can be searched as a whole.
  struct BlockSpan {
    std::uint32_t firstLine;
    std::size_t block;  // in `blocks`
    const CharT* end;   // the end of the last line's text
  };
  std::vector<BlockSpan> spans;

  // The odd byte at the end of a 16-bit file, which is not searched and is written after the text (C-230).
  std::optional<char> separateByte;

 private:
  TextPart* FirstPartAt(TextLine& line, const char* address);
  TextPart& FindPart(TextLine& line, const char* address);
  TextPart& Cut(TextLine& line, TextPart& part, std::uint32_t length, const char* tailText);
  TextLine& NewInsertedLine(const LineItem& item);
  TextPart& AppendLines(TextPart& part, const Lines& replacement, std::size_t first, std::size_t end);
  void InsertLinesAt(TextLine& line, std::uint32_t offset, const Lines& replacement);

  // The part after the last cut, or null before the first cut. A pass edits a line from left to right, and
  // the file texts in a chain are in ascending order, so the next edit can start at this part instead of the
  // beginning of the chain.
  TextPart* lastTail_ = nullptr;
  const TextLine* lastTailLine_ = nullptr;
};

// Returns the characters of an ending, zero-terminated; an empty text unless the ending is Cr, Lf or CrLf.
template <typename CharT>
const CharT* EndingText(LineEnding ending);

// Sets the line ending of a writer.
template <typename CharT>
void SetWriterEnding(WQDR::DataWriter& writer, LineEnding ending);

}  // namespace QXFindAndReplace
