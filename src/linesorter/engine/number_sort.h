// Records in the order of their numbers.
#pragma once

#include <memory>
#include <span>

#include "linesorter/engine/key_record.h"

namespace WQLineSorter {

// Highest digit of a number, and how many there are.
constexpr unsigned kDigitBits = 8;
constexpr unsigned kDigits = 1U << kDigitBits;
constexpr unsigned HighestDigit(std::uint64_t number) {
  return static_cast<unsigned>(number >> (64 - kDigitBits));
}

// Sorts runs of records by the digits of their numbers. Equal ones, and within a run's digits all others,
// stay in order as far as the room suffices, so that what follows visits the lines in the order of the file:
// it is only faster so, and nothing may rely on it.
class NumberSort {
 public:
  // For runs of up to `count` records. Takes room for half as many, if there is any: more would be more
  // memory than the sort needs at its end.
  explicit NumberSort(std::size_t count);
  void Sort(std::span<KeyRecord> records) const;

 private:
  void SortByDigits(std::span<KeyRecord> records, unsigned shift) const;

  std::size_t room_;
  std::unique_ptr<KeyRecord[]> buffer_;
};

}  // namespace WQLineSorter
