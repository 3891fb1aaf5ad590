// What the matchers of wildcard patterns share.
#pragma once

#include <cstdint>

namespace QXFindAndReplace {

struct WildcardMatch {
  std::uint32_t start;  // from the line's beginning
  std::uint32_t length;
};

// Bytes that a matcher may take for one line. What needs more is refused with error_complexity.
constexpr std::uint64_t kWildcardMemory = 64u << 20;

// The line of the last search, if it found something, and the first column that a search which goes on in it
// can have.
template <typename CharT>
class KnownLine {
 public:
  bool IsContinuedBy(const CharT* line, std::uint32_t length, std::uint32_t column) const {
    return line == line_ && length == length_ && column >= nextColumn_;
  }
  void Forget() { nextColumn_ = std::uint64_t{1} << 32; }
  // An empty match at `column` ends what is known: a search from there is the same search.
  void Remember(const CharT* line, std::uint32_t length, std::uint32_t column, std::uint32_t matchEnd) {
    line_ = line;
    length_ = length;
    nextColumn_ = matchEnd > column ? matchEnd : std::uint64_t{column} + 1;
  }

 private:
  const CharT* line_ = nullptr;
  std::uint32_t length_ = 0;
  std::uint64_t nextColumn_ = std::uint64_t{1} << 32;
};

}  // namespace QXFindAndReplace
