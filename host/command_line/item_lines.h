// Reads the lines of a list of items one at a time, with constant memory.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace QxHost {

class ItemLines {
 public:
  // Stores the next bytes in the buffer and returns their number: 0 at the end, std::nullopt if they cannot
  // be read.
  using Source = std::function<std::optional<std::size_t>(char* buffer, std::size_t size)>;

  explicit ItemLines(Source source) : source_(std::move(source)) {}

  // Returns the next non-empty line, without its line end and without a byte order mark before the first
  // line; std::nullopt at the end. Throws BadCall if the bytes cannot be read, and for a line that is much
  // longer than any path.
  std::optional<std::string> Next();

 private:
  bool ReadMore();

  Source source_;
  std::string pending_;  // read and not yet returned
  std::size_t at_ = 0;   // position of the next line in pending_
  bool isAtBegin_ = true;
  bool isAtEnd_ = false;
};

// Returns the lines of the file given by --items, or of standard input for `-`. Throws BadCall if the file
// cannot be opened.
ItemLines OpenItemLines(const std::string& source);

}  // namespace QxHost
