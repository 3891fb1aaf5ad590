// The edits of a document, which cut the parts of a line.
#include <cstring>
#include <stdexcept>

#include "findreplace/engine/document_errors.h"
#include "findreplace/engine/text_document.h"

namespace QXFindAndReplace {

namespace {

[[noreturn]] void ThrowSubscript() { throw std::out_of_range("invalid vector<T> subscript"); }

TextPart& LastPart(TextPart* part) {
  while (part->next) part = part->next;
  return *part;
}

}  // namespace

// Returns the part at which to start the search for the part that contains an address.
template <typename CharT>
TextPart* TextDocumentT<CharT>::FirstPartAt(TextLine& line, const char* address) {
  const bool isAfterTail = lastTail_ && lastTailLine_ == &line && lastTail_->text <= address;
  return isAfterTail ? lastTail_ : &line;
}

// Returns the part that contains an address. Throws if the address is in text that has been replaced.
template <typename CharT>
TextPart& TextDocumentT<CharT>::FindPart(TextLine& line, const char* address) {
  for (TextPart* part = FirstPartAt(line, address); part; part = part->next) {
    if (part->kind == kInsertedText || address < part->text) continue;
    if (static_cast<std::size_t>(address - part->text) < part->length) return *part;
  }
  ThrowNoPart();
}

// Ends the part after `length` bytes and links a new part after it, which contains the text of the part from
// `tailText` on.
template <typename CharT>
TextPart& TextDocumentT<CharT>::Cut(TextLine& line, TextPart& part, std::uint32_t length,
                                    const char* tailText) {
  const auto taken = static_cast<std::uint32_t>(tailText - part.text);
  TextPart& tail = parts.emplace_back();
  tail.kind = part.kind;
  tail.lineFollows = part.lineFollows;
  tail.originOffset = static_cast<std::uint32_t>(tailText - line.text);
  tail.length = part.length - taken;
  tail.text = tailText;
  tail.next = part.next;
  part.length = length;
  part.lineFollows = 0;
  part.next = &tail;
  lastTail_ = &tail;
  lastTailLine_ = &line;
  return tail;
}

template <typename CharT>
bool TextDocumentT<CharT>::ReplaceInLine(std::uint32_t lineNumber, std::uint32_t startColumn,
                                         std::uint32_t endColumn, const CharT* text, std::uint32_t length) {
  if (lineNumber >= lines.size()) ThrowSubscript();
  TextLine& line = lines[lineNumber];
  const std::uint64_t start = std::uint64_t{startColumn} * sizeof(CharT);
  const std::uint64_t end = std::uint64_t{endColumn} * sizeof(CharT);
  if (start >= line.fileLength) ThrowNoPart();
  TextPart& part = FindPart(line, line.text + start);
  // The end is subtracted from the start (C-226). So nothing is replaced if both the text and the range are
  // empty, or if the range ends before it starts by the length of the text; a text of the same length as its
  // range is replaced like any other.
  if (length * static_cast<std::uint32_t>(sizeof(CharT)) == static_cast<std::uint32_t>(start - end))
    return true;
  const auto offset = static_cast<std::uint32_t>(line.text + start - part.text);
  if (end < start || end - start > part.length - offset) ThrowNoPart();

  const std::size_t bytes = std::size_t{length} * sizeof(CharT);
  const char* const copy = insertedTexts.Copy(text, bytes, 2);
  // If an inserted line follows the part, the new text is not linked (C-225).
  const bool isLinked = part.lineFollows == 0;
  TextPart& tail = Cut(line, part, offset, line.text + end);
  if (!isLinked) return true;
  TextPart& inserted = parts.emplace_back();
  inserted.kind = kInsertedText;
  inserted.length = static_cast<std::uint32_t>(bytes);
  inserted.text = copy;
  inserted.next = &tail;
  part.next = &inserted;
  return true;
}

template <typename CharT>
TextLine& TextDocumentT<CharT>::NewInsertedLine(const LineItem& item) {
  TextLine& line = insertedLines.emplace_back();
  line.kind = kInsertedText;
  line.length = item.length;
  line.fileLength = item.length;
  line.text = insertedTexts.Copy(item.text, item.length, 1);
  line.ending = LineEnding::Inserted;
  return line;
}

// Creates lines for the items [first, end) and links them after a part. Returns the last line.
template <typename CharT>
TextPart& TextDocumentT<CharT>::AppendLines(TextPart& part, const Lines& replacement, std::size_t first,
                                            std::size_t end) {
  TextPart* last = &part;
  for (std::size_t index = first; index < end; ++index) {
    TextLine& inserted = NewInsertedLine(replacement.items[index]);
    last->lineFollows = 1;
    last->next = &inserted;
    last = &inserted;
  }
  return *last;
}

// Inserts all lines of a replacement except the first at an offset of a line's file text. With one inserted
// line, the text after the offset follows it; with several, that text is lost (C-224).
template <typename CharT>
void TextDocumentT<CharT>::InsertLinesAt(TextLine& line, std::uint32_t offset, const Lines& replacement) {
  const char* const address = line.text + offset;
  // If a match ends at the end of its line, the tail is empty but still is the part at the end.
  const bool isAtTail = lastTail_ && lastTailLine_ == &line && lastTail_->text == address &&
                        (lastTail_->length != 0 || offset == line.fileLength);
  TextPart& part = isAtTail ? *lastTail_ : FindPart(line, address);
  TextPart& tail = Cut(line, part, static_cast<std::uint32_t>(address - part.text), address);
  TextPart& last = AppendLines(part, replacement, 1, replacement.items.size());
  if (replacement.items.size() == 2) {
    last.next = &tail;
  } else {
    lastTail_ = nullptr;
  }
}

template <typename CharT>
void TextDocumentT<CharT>::ReplaceRange(const TextRange& range, const Lines& replacement) {
  const std::vector<LineItem>& items = replacement.items;
  const std::size_t count = items.size();
  if (count == 0 || range.start.line >= lines.size()) ThrowSubscript();
  if (range.end.line >= lines.size()) {
    throw WQDR::WQDataReaderException(ERROR_INVALID_PARAMETER, "Line index out of range");
  }
  const bool spansLines = range.start.line != range.end.line;
  TextLine& line = lines[range.start.line];
  const std::uint32_t endColumn =
      spansLines ? line.fileLength / static_cast<std::uint32_t>(sizeof(CharT)) : range.end.column;
  const auto replace = [&](std::uint32_t number, std::uint32_t start, std::uint32_t end,
                           const LineItem& item) {
    return ReplaceInLine(number, start, end, TextOf<CharT>(item), LengthOf<CharT>(item));
  };

  bool isChanged = replace(range.start.line, range.start.column, endColumn, items.front());
  if (!spansLines && count >= 2) {
    InsertLinesAt(line, endColumn * static_cast<std::uint32_t>(sizeof(CharT)), replacement);
  }
  for (std::uint32_t number = range.start.line + 1; number < range.end.line; ++number)
    lines[number].removed = 1;
  // In a single line this inserts lines again that have been inserted already (C-224).
  if (count > 2)
    AppendLines(LastPart(FirstPartAt(line, line.text + line.fileLength)), replacement, 1, count - 1);
  // If the replacement is a single line, the beginning of the end line remains (C-223).
  if (spansLines && count > 1) isChanged = replace(range.end.line, 0, range.end.column, items.back());
  if (isChanged) ++changeCount;
}

template bool TextDocumentT<char>::ReplaceInLine(std::uint32_t, std::uint32_t, std::uint32_t, const char*,
                                                 std::uint32_t);
template bool TextDocumentT<WCHAR>::ReplaceInLine(std::uint32_t, std::uint32_t, std::uint32_t, const WCHAR*,
                                                  std::uint32_t);
template void TextDocumentT<char>::ReplaceRange(const TextRange&, const Lines&);
template void TextDocumentT<WCHAR>::ReplaceRange(const TextRange&, const Lines&);

}  // namespace QXFindAndReplace
