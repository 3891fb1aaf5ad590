// Beginnings that many keys share, and the parts of the numbers that they make. In a text of records most
// lines begin with one of a few words, and the keys of one word are too many to visit again for their next
// characters: that costs more than all the rest. If the words are known before, the one pass over all lines
// puts such keys into parts of their own and reads them after what they share.
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

// Keys that begin with the characters of `number`, and go on.
struct CommonBeginning {
  std::uint64_t number;
  KeyRest first;         // of one of the keys, after these characters
  std::uint32_t shared;  // how many more characters all of them share, as far as is known
};

// Parts of all numbers, in their order: one for each highest digit, and within it one for each common
// beginning and one for the numbers between two of these.
class NumberParts {
 public:
  // `commons` are in the order of their numbers.
  explicit NumberParts(std::span<const CommonBeginning> commons)
      : commonOf_(kDigits + 2 * commons.size(), kNone) {
    for (const CommonBeginning& common : commons) {
      const unsigned digit = HighestDigit(common.number);
      commonOf_[digit + 2 * numbers_.size() + 1] = numbers_.size();
      numbers_.push_back(common.number);
      ++firstCommon_[digit + 1];
    }
    for (unsigned digit = 0; digit < kDigits; ++digit) firstCommon_[digit + 1] += firstCommon_[digit];
  }

  std::size_t Count() const { return commonOf_.size(); }

  // The common beginning of a part, or kNone.
  std::size_t CommonOf(std::size_t part) const { return commonOf_[part]; }

  // The part that the number belongs to.
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
