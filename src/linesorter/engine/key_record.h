// The records that the fast paths of the sort move instead of lines: three 32-bit numbers for each line.
#pragma once

#include <cstdint>
#include <vector>

namespace WQLineSorter {

// While keys are being sorted, `high` and `low` are the two halves of the number that the record is sorted
// by. Once the position of a key is final, they are its ranks: First is the position of the first key with
// the same characters, Last the position of the last key that does not compare greater.
struct KeyRecord {
  std::uint32_t high;
  std::uint32_t low;
  std::uint32_t index;  // the index of the line in its range

  std::uint64_t Number() const { return std::uint64_t{high} << 32 | low; }
  void SetNumber(std::uint64_t number) {
    high = static_cast<std::uint32_t>(number >> 32);
    low = static_cast<std::uint32_t>(number);
  }

  std::uint32_t First() const { return high; }
  std::uint32_t Last() const { return low; }
  void SetRanks(std::size_t first, std::size_t last) {
    high = static_cast<std::uint32_t>(first);
    low = static_cast<std::uint32_t>(last);
  }
};
static_assert(sizeof(KeyRecord) == 12);

using KeyRecords = std::vector<KeyRecord>;

// Sorts records with equal numbers by their indices. All records must already be sorted by their numbers.
void OrderEqualsByIndex(KeyRecords& records);

}  // namespace WQLineSorter
