// Reading the header of an encoded file.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

// Goes through the lines of a header. A line ends at LF or at CR; LF and CR LF are stepped over, a CR alone
// is not, and no line follows it (C-426).
class HeaderLines {
 public:
  explicit HeaderLines(std::string_view text) : text_(text) {}

  // The next line without its end; nothing at the end of the text.
  std::optional<std::string_view> Next();

  // Where the line after the last one begins; nothing if that stopped at a CR alone.
  std::optional<std::size_t> Offset() const { return isStuck_ ? std::nullopt : std::optional(offset_); }

 private:
  std::string_view text_;
  std::size_t offset_ = 0;
  bool isStuck_ = false;
};

// Returns the first name in the header, whatever it is, in bytes of the thread's code page; nothing if the
// header has no name.
std::optional<std::string_view> FindEncodedName(std::string_view header);

// The offset of the text behind the header, or 0.
std::size_t FindHeaderEnd(std::string_view head);
