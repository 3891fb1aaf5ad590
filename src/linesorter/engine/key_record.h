// The small records that the fast ways of sorting move in place of the lines: three 32-bit numbers a line.
#pragma once

#include <cstdint>
#include <vector>

namespace WQLineSorter {

// While keys are brought into order, `high` and `low` are the number that the record is sorted by. Once a key
// has its place they are its ranks: First is the place of the first key with the same characters, Last that
// of the last key that does not come after it.
struct KeyRecord {
  std::uint32_t high;
  std::uint32_t low;
  std::uint32_t index;  // of the line in its range

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

// Brings records with the same number into the order of their indices, where all are in the order of their
// numbers.
void OrderEqualsByIndex(KeyRecords& records);

}  // namespace WQLineSorter
