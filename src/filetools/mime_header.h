// Parses the header of an encoded file.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

// Iterates over the lines of a header. A line ends at CR LF, LF, or CR. A lone CR ends the iteration: no line
// follows it (C-426).
class HeaderLines {
 public:
  explicit HeaderLines(std::string_view text) : text_(text) {}

  // Returns the next line without its ending; std::nullopt if there is no further line.
  std::optional<std::string_view> Next();

  // Returns the offset of the line after the last one returned; std::nullopt if that ended at a lone CR.
  std::optional<std::size_t> Offset() const { return isInvalid_ ? std::nullopt : std::optional(offset_); }

 private:
  std::string_view text_;
  std::size_t offset_ = 0;
  bool isInvalid_ = false;
};

// Returns the first name in the header, unchecked, as bytes in the thread's code page; std::nullopt if the
// header has no name.
std::optional<std::string_view> FindEncodedName(std::string_view header);

// Returns the offset of the text after the header; 0 if there is no header.
std::size_t FindHeaderEnd(std::string_view head);
