// Searches the text of whole blocks. A text without line ends that is found in a block is in one of its
// lines, so the lines need not be searched one by one.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "findreplace/engine/text_document.h"

namespace QXFindAndReplace {

template <typename CharT>
const CharT* FileText(const TextLine& line) {
  return reinterpret_cast<const CharT*>(line.text);
}
template <typename CharT>
std::uint32_t FileLength(const TextLine& line) {
  return line.fileLength / static_cast<std::uint32_t>(sizeof(CharT));
}

// Performs one search with ascending positions. The document must not be reloaded during the search; it may
// be edited.
template <typename CharT>
class DocumentSearch {
 public:
  DocumentSearch(const TextDocumentT<CharT>& document, std::uint32_t firstLine) : document_(document) {
    const auto& spans = document.spans;
    const auto next =
        std::upper_bound(spans.begin(), spans.end(), firstLine,
                         [](std::uint32_t line, const auto& span) { return line < span.firstLine; });
    span_ = next == spans.begin() ? 0 : static_cast<std::size_t>(next - spans.begin()) - 1;
  }

  // Moves the position to the next match. Calls `find(begin, end)` for the texts of the blocks from the
  // position on; it returns the first match in the text or null. Returns false if there is no match. The
  // match may be in a removed line.
  template <typename Find>
  bool Next(TextPosition& position, Find&& find) {
    const auto& spans = document_.spans;
    if (position.line >= document_.lines.size()) return false;
    while (span_ + 1 < spans.size() && spans[span_ + 1].firstLine <= position.line) ++span_;
    for (;;) {
      const TextLine& line = document_.lines[position.line];
      const CharT* const place = find(FileText<CharT>(line) + position.column, spans[span_].end);
      if (place) {
        position.line = LineOf(place, position.line);
        position.column = static_cast<std::uint32_t>(place - FileText<CharT>(document_.lines[position.line]));
        return true;
      }
      if (++span_ == spans.size()) {
        --span_;
        return false;
      }
      position = {spans[span_].firstLine, 0};
    }
  }

 private:
  // Returns the line of the current span that contains `place`. The search starts at line `low`, since most
  // matches are near the previous one.
  std::uint32_t LineOf(const CharT* place, std::uint32_t low) const {
    const auto& lines = document_.lines;
    const std::uint64_t end =
        span_ + 1 < document_.spans.size() ? document_.spans[span_ + 1].firstLine : lines.size();
    const auto isAfter = [&](std::uint64_t line) { return place < FileText<CharT>(lines[line]); };
    std::uint64_t step = 1;
    std::uint64_t known = low;
    while (known + step < end && !isAfter(known + step)) {
      known += step;
      step *= 2;
    }
    std::uint64_t after = std::min(known + step, end);
    while (after - known > 1) {
      const std::uint64_t middle = known + (after - known) / 2;
      (isAfter(middle) ? after : known) = middle;
    }
    return static_cast<std::uint32_t>(known);
  }

  const TextDocumentT<CharT>& document_;
  std::size_t span_;
};

}  // namespace QXFindAndReplace
