#include "findreplace/engine/multiline_match.h"

#include <string>
#include <string_view>

#include "findreplace/engine/item_search.h"
#include "findreplace/engine/text_search.h"

namespace QXFindAndReplace {

namespace {

template <typename CharT>
bool FindItem(const TextDocumentT<CharT>& document, std::uint32_t line, const LineItem& item,
              bool ignoreCase) {
  LineMatch match;
  return item.length == document.lines[line].fileLength &&
         FindInLine(document, match, line, 0, TextOf<CharT>(item), LengthOf<CharT>(item), ignoreCase);
}

// Does not compare the last two middle lines, so up to two middle lines match any text (C-222).
template <typename CharT>
bool MiddleLinesMatch(const TextDocumentT<CharT>& document, std::uint32_t firstLine, const Lines& findLines,
                      bool ignoreCase) {
  const std::uint64_t middleCount = findLines.items.size() - 2;
  const std::uint64_t nextLine = std::uint64_t{firstLine} + 1;
  if (middleCount - 1 + nextLine > document.lines.size()) return false;
  for (std::uint32_t index = 1; index + 2 <= middleCount; ++index) {
    if (!FindItem(document, firstLine + index, findLines.items[index], ignoreCase)) return false;
  }
  return true;
}

template <typename CharT>
bool BeginsWith(const TextLine& line, const LineItem& item, bool ignoreCase) {
  if (item.length > line.fileLength) return false;
  const std::uint32_t length = LengthOf<CharT>(item);
  return ignoreCase ? EqualIgnoringCase(FileText<CharT>(line), TextOf<CharT>(item), length)
                    : EqualText(FileText<CharT>(line), TextOf<CharT>(item), length);
}

// Returns true if the lines after a match of the first item contain the other items, and extends the range of
// the match to their end.
template <typename CharT>
bool ExtendMatch(const TextDocumentT<CharT>& document, LineMatch& match, const Lines& findLines,
                 bool ignoreCase) {
  const std::size_t count = findLines.items.size();
  if (count == 1) return true;
  const std::uint32_t firstLine = match.range.start.line;
  if (count > 2 && !MiddleLinesMatch(document, firstLine, findLines, ignoreCase)) return false;
  const std::uint64_t lastLine = std::uint64_t{firstLine} + count - 1;
  const LineItem& lastItem = findLines.items.back();
  if (lastLine >= document.lines.size()) return false;
  const auto lastNumber = static_cast<std::uint32_t>(lastLine);
  if (!BeginsWith<CharT>(document.lines[lastNumber], lastItem, ignoreCase)) return false;
  match.range.end = {lastNumber, LengthOf<CharT>(lastItem)};
  return true;
}

template <typename CharT>
std::basic_string<CharT> Joined(const Lines& lines) {
  std::basic_string<CharT> text;
  for (const LineItem& item : lines.items) {
    if (&item != &lines.items.front()) text += EndingText<CharT>(LineEnding::CrLf);
    text.append(TextOf<CharT>(item), LengthOf<CharT>(item));
  }
  return text;
}

}  // namespace

template <typename CharT>
void FindMultilineMatch(const TextDocumentT<CharT>& document, LineMatch& match, const Lines& findLines,
                        const TextPosition& startPosition, bool ignoreCase) {
  match = {};
  if (findLines.items.empty()) return;
  const LineItem& first = findLines.items.front();
  ItemSearch<CharT> search(document, startPosition.line, TextOf<CharT>(first), LengthOf<CharT>(first),
                           ignoreCase);
  TextPosition position = startPosition;
  while (search.Next(position, match)) {
    if (ExtendMatch(document, match, findLines, ignoreCase)) return;
    position = {match.range.start.line + 1, 0};
  }
  match = {};
}

template <typename CharT>
bool ConfirmAndReplaceRange(TextDocumentT<CharT>& document, IFindAndReplaceCallback& callback,
                            const TextRange& range, const Lines& replaceLines) {
  if (!document.replaceAll) {
    Highlight highlight = {};
    const auto context = document.GetContextText(range, highlight, LineEnding::Inserted);
    const std::basic_string<CharT> replacement = Joined<CharT>(replaceLines);
    switch (callback.ConfirmReplace(context.get(), document.format, range, highlight, replacement.c_str(),
                                    kZeroTerminated)) {
      case ConfirmResult::ReplaceAll:
        document.replaceAll = true;
        break;
      case ConfirmResult::Replace:
      case ConfirmResult::ReplaceToo:
        break;
      case ConfirmResult::Cancel:
        return false;
      default:
        return true;
    }
  }
  document.ReplaceRange(range, replaceLines);
  return true;
}

template void FindMultilineMatch(const TextDocumentT<char>&, LineMatch&, const Lines&, const TextPosition&,
                                 bool);
template void FindMultilineMatch(const TextDocumentT<WCHAR>&, LineMatch&, const Lines&, const TextPosition&,
                                 bool);
template bool ConfirmAndReplaceRange(TextDocumentT<char>&, IFindAndReplaceCallback&, const TextRange&,
                                     const Lines&);
template bool ConfirmAndReplaceRange(TextDocumentT<WCHAR>&, IFindAndReplaceCallback&, const TextRange&,
                                     const Lines&);

}  // namespace QXFindAndReplace
