// Line records over texts of a test, as a loader creates them.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "linesorter/engine/sortable_lines.h"

struct MadeLines {
  // `kind` is LineEnding::None without an ending, and LineEnding::Lf for one byte or unit.
  MadeLines& Add(std::string_view text, std::string_view ending, WQDR::LineEnding kind) {
    const std::string& stored = storage_.emplace_back(std::string(text) + std::string(ending));
    lines.push_back({stored.data(), static_cast<std::uint32_t>(text.size()),
                     static_cast<std::uint8_t>(ending.size()), kind, 0, 0, 0});
    return *this;
  }
  MadeLines& None(std::string_view text) { return Add(text, "", WQDR::LineEnding::None); }
  MadeLines& Lf(std::string_view text) { return Add(text, "\n", WQDR::LineEnding::Lf); }
  MadeLines& CrLf(std::string_view text) { return Add(text, "\r\n", WQDR::LineEnding::CrLf); }
  MadeLines& WideLf(std::string_view text) {
    return Add(text, std::string_view("\n\0", 2), WQDR::LineEnding::Lf);
  }
  MadeLines& WideCrLf(std::string_view text) {
    return Add(text, std::string_view("\r\0\n\0", 4), WQDR::LineEnding::CrLf);
  }

  std::vector<WQLineSorter::SortLine> lines;

 private:
  std::deque<std::string> storage_;  // the texts that the records point to
};
