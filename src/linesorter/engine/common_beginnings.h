// The beginnings that many keys share, found in a sample. Text of records begins most lines with one of a few
// words, and the keys of one word are too many to visit them again for their next characters: that costs more
// than all the rest. Known beforehand, such keys are parted, and read behind what they share, in the one pass
// over all lines.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "linesorter/engine/key_copies.h"
#include "linesorter/engine/number_sort.h"

namespace WQLineSorter {

// Keys that begin with the characters of `number`, and go on.
struct CommonBeginning {
  std::uint64_t number;
  KeyRest first;         // behind these characters, one of the keys
  std::uint32_t shared;  // how many more characters all of them share, as far as is known
};

// Parts of all numbers, in their order: each digit's, and within it one for each common beginning and one for
// what lies between two of them.
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

  // Where the number belongs.
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
