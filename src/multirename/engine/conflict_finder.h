// Finds the conflicts of new names while they are computed, so that no name is read twice.
#pragma once

#include <atomic>
#include <cstdint>
#include <span>
#include <vector>

#include "multirename/engine/multi_rename_item.h"

namespace Velmora::SDK {

class ConflictFinder {
 public:
  // Starts a pass over this many rows.
  void Begin(std::size_t rows);

  // Adds the new name of the next row: records whether it contains forbidden characters and whether it equals
  // that of the first row.
  void Add(WStringView newName);

  // Sets the states of the rows that were added, in their order. If `abort` is set, stops at the next row and
  // returns false.
  bool SetStates(std::span<MultiRenameItem* const> rows, const std::atomic<bool>& abort);

 private:
  std::vector<std::uint8_t> states_;  // an ItemState for each row
  WString first_;                     // the new name of the first row
  bool isFirstDuplicate_ = false;
};

}  // namespace Velmora::SDK
