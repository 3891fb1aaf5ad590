// Definitions that the matchers of wildcard patterns share.
#pragma once

#include <cstdint>

namespace QXFindAndReplace {

struct WildcardMatch {
  std::uint32_t start;  // counts from the beginning of the line
  std::uint32_t length;
};

// The maximum memory of a matcher for one line in bytes. Searches that need more fail with error_complexity.
constexpr std::uint64_t kWildcardMemory = 64u << 20;

// The line of the last successful search, and the first column from which a search continues that search.
template <typename CharT>
class KnownLine {
 public:
  bool IsContinuedBy(const CharT* line, std::uint32_t length, std::uint32_t column) const {
    return line == line_ && length == length_ && column >= nextColumn_;
  }
  void Forget() { nextColumn_ = std::uint64_t{1} << 32; }
  // After an empty match at `column`, a search from `column` is the same search again, not a continuation.
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
