#include "findreplace/wildcard/wildcard_runs.h"

#include <algorithm>
#include <bit>
#include <regex>

namespace QXFindAndReplace {

template <typename CharT>
WildcardRuns<CharT>::WildcardRuns(const std::vector<WildcardElement<CharT>>& elements, bool ignoreCase) {
  for (const WildcardElement<CharT>& element : elements) {
    const auto place = WildcardPlace<CharT>::Of(element, ignoreCase);
    if (!element.repeat.IsExact()) {
      parts_.push_back({{}, true, place, element.repeat});
      continue;
    }
    if (parts_.empty() || parts_.back().isRun) parts_.emplace_back();
    for (std::uint32_t count = 0; count < element.repeat.minimum; ++count)
      parts_.back().literal.Append(place);
  }
}

template <typename CharT>
bool WildcardRuns<CharT>::Search(const CharT* line, std::uint32_t length, std::uint32_t column,
                                 WildcardMatch& match) {
  if (!hasTable_) MakeTable(line, length, column);

  std::size_t word = column / 64;
  std::uint64_t starts = table_[word] & ~std::uint64_t{0} << column % 64;
  while (starts == 0) {
    if (++word == words_) return false;
    starts = table_[word];
  }
  const auto start = static_cast<std::uint32_t>(word * 64 + static_cast<unsigned>(std::countr_zero(starts)));

  std::uint32_t end = start;
  for (std::size_t row = 0; row < parts_.size(); ++row) {
    if (!parts_[row].isRun) {
      end += static_cast<std::uint32_t>(parts_[row].literal.Length());
      continue;
    }
    end = EndOfRun(row, line, length, end);
    // One of the ends is possible, because the bit of the start is set.
    std::size_t at = end / 64;
    std::uint64_t ends = table_[(row + 1) * words_ + at] & ~std::uint64_t{0} >> (63 - end % 64);
    while (ends == 0) ends = table_[(row + 1) * words_ + --at];
    end = static_cast<std::uint32_t>(at * 64 + static_cast<unsigned>(std::bit_width(ends)) - 1);
  }
  match = {start, end - start};
  return true;
}

template <typename CharT>
void WildcardRuns<CharT>::MakeTable(const CharT* line, std::uint32_t length, std::uint32_t column) {
  words_ = std::size_t{length} / 64 + 1;
  if ((parts_.size() + 1) * words_ > kWildcardMemory / sizeof(table_[0]))
    throw std::regex_error(std::regex_constants::error_complexity);
  table_.assign(parts_.size() * words_, 0);
  table_.resize((parts_.size() + 1) * words_, ~std::uint64_t{0});
  for (std::size_t row = parts_.size(); row-- > 0;) {
    if (parts_[row].isRun)
      MakeRunRow(row, line, length, column);
    else
      MakeLiteralRow(row, line, length, column);
  }
  hasTable_ = true;
}

template <typename CharT>
void WildcardRuns<CharT>::MakeLiteralRow(std::size_t row, const CharT* line, std::uint32_t length,
                                         std::uint32_t column) {
  const WildcardLiteral<CharT>& literal = parts_[row].literal;
  const auto size = static_cast<std::uint32_t>(literal.Length());
  const CharT* end = line + length;
  while (const CharT* const found = literal.FindLast(line + column, end)) {
    const auto position = static_cast<std::uint32_t>(found - line);
    if (CanMatch(row + 1, position + size) && literal.IsTakenAt(found)) SetCanMatch(row, position);
    if (position == column) break;
    end = found + size - 1;
  }
}

template <typename CharT>
void WildcardRuns<CharT>::MakeRunRow(std::size_t row, const CharT* line, std::uint32_t length,
                                     std::uint32_t column) {
  const Part& part = parts_[row];
  // Both values only decrease: the end of the characters that the run can take, and the last end of the run
  // from which the rest of the pattern can match.
  std::uint32_t takenEnd = length;
  std::int64_t best = length;
  for (std::int64_t at = length; at >= column; --at) {
    const auto position = static_cast<std::uint32_t>(at);
    if (position < length && !part.place.Matches(line[position])) takenEnd = position;
    const std::uint32_t furthest =
        takenEnd - position > part.repeat.maximum ? position + part.repeat.maximum : takenEnd;
    best = std::min<std::int64_t>(best, furthest);
    while (best >= at && !CanMatch(row + 1, static_cast<std::uint32_t>(best))) --best;
    if (best >= at + part.repeat.minimum) SetCanMatch(row, position);
  }
}

// Returns the end of the longest run from a position, whether or not the rest of the pattern can match there.
template <typename CharT>
std::uint32_t WildcardRuns<CharT>::EndOfRun(std::size_t row, const CharT* line, std::uint32_t length,
                                            std::uint32_t from) const {
  const Part& part = parts_[row];
  const std::uint32_t last = length - from > part.repeat.maximum ? from + part.repeat.maximum : length;
  std::uint32_t end = from;
  while (end < last && part.place.Matches(line[end])) ++end;
  return end;
}

template class WildcardRuns<char>;
template class WildcardRuns<WCHAR>;

}  // namespace QXFindAndReplace
