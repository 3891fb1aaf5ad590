// Beginnings that many keys share, and the division of records into parts by these beginnings.
//
// In a file of records, most lines begin with one of a few words. Visiting all keys with the same word again
// for their next characters would cost more than the rest of the sort. If the words are known beforehand, the
// one pass over all lines puts such keys into parts of their own and reads the characters after the
// beginning.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "linesorter/engine/key_reader.h"
#include "linesorter/engine/number_sort.h"

namespace WQLineSorter {

// A beginning that many keys share: the first kStep characters, in `number`. The keys are longer than that.
struct CommonPrefix {
  std::uint64_t number;
  KeyRest first;         // the rest of one of the keys after the beginning
  std::uint32_t shared;  // how many more characters all these keys share, as far as is known
};

// Divides all numbers into parts, in ascending order: for each highest digit, one part for each common
// beginning with that digit and one part for the numbers before, between and after these.
class NumberParts {
 public:
  // The common prefixes must be in the order of their numbers.
  explicit NumberParts(std::span<const CommonPrefix> commons)
      : commonOf_(kDigits + 2 * commons.size(), kNone) {
    for (const CommonPrefix& common : commons) {
      const unsigned digit = HighestDigit(common.number);
      commonOf_[digit + 2 * numbers_.size() + 1] = numbers_.size();
      numbers_.push_back(common.number);
      ++firstCommon_[digit + 1];
    }
    for (unsigned digit = 0; digit < kDigits; ++digit) firstCommon_[digit + 1] += firstCommon_[digit];
  }

  std::size_t Count() const { return commonOf_.size(); }

  // Returns the index of the part's common prefix, or kNone.
  std::size_t CommonOf(std::size_t part) const { return commonOf_[part]; }

  // Returns the index of the part that the number belongs to.
  std::size_t PartOf(std::uint64_t number) const {
    const unsigned digit = HighestDigit(number);
    const auto first = numbers_.begin() + firstCommon_[digit];
    const auto last = numbers_.begin() + firstCommon_[digit + 1];
    const auto next = std::lower_bound(first, last, number);
    const bool isCommon = next != last && *next == number;
    return digit + 2 * static_cast<std::size_t>(next - numbers_.begin()) + (isCommon ? 1 : 0);
  }

  static constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

 private:
  std::vector<std::uint64_t> numbers_;
  std::array<std::ptrdiff_t, kDigits + 1> firstCommon_ = {};
  std::vector<std::size_t> commonOf_;
};

}  // namespace WQLineSorter
