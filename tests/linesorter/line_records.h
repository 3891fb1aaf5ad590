// Lines as the loader returns them: their text in one block of exact size, and records that point into it.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "linesorter/engine/sortable_lines.h"
#include "linesorter/widths.h"

template <typename CharT>
class LineRecords {
 public:
  using Text = std::basic_string<CharT>;

  // All texts have the same ending: "\n", "\r\n", a "\r" that is dropped, or none.
  explicit LineRecords(const std::vector<Text>& texts, std::string_view ending = "\n") {
    const Text wideEnding = In<CharT>(ending);
    Text all;
    for (const Text& text : texts) all.append(text).append(wideEnding);
    const std::size_t size = all.size() * sizeof(CharT);
    block = std::make_unique<char[]>(size + WQLineSorter::kBlockGuard);  // the text is followed by zeros
    if (size != 0) std::memcpy(block.get(), all.data(), size);

    const bool kept = ending.ends_with('\n');
    const char* place = block.get();
    for (const Text& text : texts) {
      WQLineSorter::SortLine line{};
      line.text = place;
      line.length = static_cast<std::uint32_t>(text.size() * sizeof(CharT));
      line.endingSize = static_cast<std::uint8_t>(kept ? wideEnding.size() * sizeof(CharT) : 0);
      line.endingKind = !kept ? WQDR::LineEnding::None
                              : (ending.size() == 2 ? WQDR::LineEnding::CrLf : WQDR::LineEnding::Lf);
      lines.push_back(line);
      place += (text.size() + wideEnding.size()) * sizeof(CharT);
    }
  }

  std::vector<WQLineSorter::SortLine> lines;

 private:
  std::unique_ptr<char[]> block;
};

// Returns lines with these texts in the width of CharT.
template <typename CharT>
LineRecords<CharT> LinesOf(const std::vector<std::string>& texts, std::string_view ending = "\n") {
  std::vector<std::basic_string<CharT>> wide;
  for (const std::string& text : texts) wide.push_back(In<CharT>(text));
  return LineRecords<CharT>(wide, ending);
}

// Returns the texts of the lines in their order. A unit above 0xFF is shown as "?".
template <typename CharT>
std::vector<std::string> TextsOf(const std::vector<WQLineSorter::SortLine>& lines) {
  std::vector<std::string> texts;
  for (const WQLineSorter::SortLine& line : lines) {
    std::string text;
    for (std::uint32_t at = 0; at < line.length; at += sizeof(CharT)) {
      CharT character;
      std::memcpy(&character, line.text + at, sizeof(CharT));
      const bool shown = static_cast<std::make_unsigned_t<CharT>>(character) < 0x100;
      text += shown ? static_cast<char>(character) : '?';
    }
    texts.push_back(text);
  }
  return texts;
}
