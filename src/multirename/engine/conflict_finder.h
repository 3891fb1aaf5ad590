// What stands against new names, found while they are computed, so that no name is read twice.
#pragma once

#include <atomic>
#include <cstdint>
#include <span>
#include <vector>

#include "multirename/engine/multi_rename_item.h"

namespace Velmora::SDK {

class ConflictFinder {
 public:
  // For a pass over this many rows.
  void Begin(std::size_t rows);

  // Takes the new name of the next row: forbidden characters, and whether it is the first row's, are noted.
  void Add(WStringView newName);

  // Sets the states of the rows that were added, in their order. Stops at the next row when `abort` is set,
  // and returns false.
  bool SetStates(std::span<MultiRenameItem* const> rows, const std::atomic<bool>& abort);

 private:
  std::vector<std::uint8_t> states_;  // of ItemState, by row
  WString first_;                     // the new name of the first row
  bool isFirstDuplicate_ = false;
};

}  // namespace Velmora::SDK
