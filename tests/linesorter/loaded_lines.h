// Loaded lines in a form that tests can compare.
#pragma once

#include <cstring>
#include <ostream>
#include <string>
#include <vector>

#include "linesorter/engine/sortable_lines.h"
#include "platform/text.h"

// Returns a 16-bit text as the bytes of a file: little-endian units.
inline std::string WideBytes(WStringView text) {
  std::string bytes;
  for (const WCHAR unit : text) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  return bytes;
}

// Returns the characters of a literal, including zeros but without its terminator.
template <std::size_t kSize>
std::string Bytes(const char (&literal)[kSize]) {
  return {literal, kSize - 1};
}

// A record with its text and its ending in place of a pointer. A long text is replaced by its length and
// first byte.
struct LoadedLine {
  std::string text;
  std::string ending;
  WQDR::LineEnding kind;
  friend bool operator==(const LoadedLine&, const LoadedLine&) = default;
};

inline void PrintTo(const LoadedLine& line, std::ostream* out) {
  const auto put = [&](const std::string& text) {
    *out << '"';
    for (const char byte : text.substr(0, 40)) {
      if (byte >= 0x20 && byte < 0x7F) {
        *out << byte;
      } else {
        *out << "\\" << static_cast<int>(static_cast<unsigned char>(byte)) << ";";
      }
    }
    *out << '"';
    if (text.size() > 40) *out << " of " << text.size();
  };
  *out << "{";
  put(line.text);
  *out << ", ";
  put(line.ending);
  *out << ", " << static_cast<std::uint32_t>(line.kind) << "}";
}

inline std::vector<LoadedLine> LinesOf(const WQLineSorter::SortableLinesData& data) {
  std::vector<LoadedLine> lines;
  for (const WQLineSorter::SortLine& line : data.lines) {
    lines.push_back({std::string(line.text, line.length),
                     std::string(line.text + line.length, line.endingSize), line.endingKind});
  }
  return lines;
}
