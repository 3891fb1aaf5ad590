// Sorts records by their numbers.
#pragma once

#include <memory>
#include <span>

#include "linesorter/engine/key_record.h"

namespace WQLineSorter {

// The highest digit of a number, and the number of different digits.
constexpr unsigned kDigitBits = 8;
constexpr unsigned kDigits = 1U << kDigitBits;
constexpr unsigned HighestDigit(std::uint64_t number) {
  return static_cast<unsigned>(number >> (64 - kDigitBits));
}

// Sorts records by the digits of their numbers. Not stable, but mostly keeps the order of records with equal
// numbers if the buffer is large enough. Later passes then visit the lines in the order of the file, which is
// faster; nothing may depend on it.
class NumberSort {
 public:
  // Prepares for ranges of up to `count` records. Allocates a buffer for half as many, if there is memory: a
  // larger one would exceed the memory that the sort needs at its end.
  explicit NumberSort(std::size_t count);
  void Sort(std::span<KeyRecord> records) const;

 private:
  void SortByDigits(std::span<KeyRecord> records, unsigned shift) const;

  std::size_t room_;
  std::unique_ptr<KeyRecord[]> buffer_;
};

}  // namespace WQLineSorter
