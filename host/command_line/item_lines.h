// The lines of a list of items, one at a time: however many there are, few bytes are kept.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace QxHost {

class ItemLines {
 public:
  // Fills the buffer with the next bytes and returns how many they are: 0 at the end, nothing if they cannot
  // be read.
  using Source = std::function<std::optional<std::size_t>(char* buffer, std::size_t size)>;

  explicit ItemLines(Source source) : source_(std::move(source)) {}

  // The next line that is not empty, without its line end; a byte order mark before the first is passed over.
  // Nothing at the end. Throws BadCall where the bytes cannot be read, and for a line that is far longer than
  // any path.
  std::optional<std::string> Next();

 private:
  bool ReadMore();

  Source source_;
  std::string pending_;  // read and not yet given
  std::size_t at_ = 0;   // where in it the next line begins
  bool isAtBegin_ = true;
  bool isAtEnd_ = false;
};

// The lines of the file of --items, or of standard input for `-`. Throws BadCall for one that cannot be
// opened.
ItemLines OpenItemLines(const std::string& source);

}  // namespace QxHost
