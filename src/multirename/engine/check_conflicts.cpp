#include "multirename/engine/conflict_finder.h"
#include "multirename/engine/multi_rename_engine.h"
#include "multirename/rules/character_scan.h"
#include "multirename/rules/letter_case.h"
#include "platform/prefetch.h"

namespace Velmora::SDK {

namespace {

bool ContainsForbidden(WStringView name) {
  return ContainsAnyOf<W('*'), W('|'), W('\\'), W('/'), W(':'), W('"'), W('<'), W('>'), W('?')>(name);
}

// Compares the last characters first: numbered names differ at their ends and begin alike.
bool IsSameNewName(WStringView name, WStringView first) {
  if (name.size() != first.size()) return false;
  return name.empty() ||
         (LowerLetter(name.back()) == LowerLetter(first.back()) && EqualButForCase(name, first));
}

// If there are very many rows, neither the rows nor their names are in the processor's cache. Both are
// prefetched some rows ahead; the names later than their row, as it contains their addresses.
constexpr std::size_t kNamesAhead = 6;
constexpr std::size_t kRowsAhead = 2 * kNamesAhead;
constexpr std::size_t kCacheLine = 64;  // bytes

void FetchRow(const MultiRenameItem& row) {
  const char* const begin = reinterpret_cast<const char*>(&row);
  for (std::size_t at = 0; at < sizeof row; at += kCacheLine) Prefetch(begin + at);
}

void FetchNames(const MultiRenameItem& row) {
  for (const WString* const name : {&row.oldName, &row.newName}) {
    const char* const begin = reinterpret_cast<const char*>(name->data());
    Prefetch(begin);
    Prefetch(begin + kCacheLine);
  }
}

}  // namespace

void ConflictFinder::Begin(std::size_t rows) {
  states_.clear();
  states_.reserve(rows);
  isFirstDuplicate_ = false;
}

// Compares every row with the first one only, by the new name without its folder (C-615). Equal names further
// down are left to the host, whose rename decides (C-614).
void ConflictFinder::Add(WStringView newName) {
  const bool isFirst = states_.empty();
  if (isFirst) first_ = newName;
  const bool isDuplicate = !isFirst && IsSameNewName(newName, first_);
  if (isDuplicate) isFirstDuplicate_ = true;
  states_.push_back(isDuplicate                  ? StateDuplicate
                    : ContainsForbidden(newName) ? StateInvalidName
                                                 : StateReady);
}

bool ConflictFinder::SetStates(std::span<MultiRenameItem* const> rows, const std::atomic<bool>& abort) {
  if (isFirstDuplicate_) states_.front() = StateDuplicate;
  for (std::size_t row = 0; row < states_.size(); ++row) {
    if (abort.load(std::memory_order_relaxed)) return false;
    std::atomic<u32>& state = rows[row]->state;
    if (state.load(std::memory_order_relaxed) != states_[row]) {
      state.store(states_[row], std::memory_order_relaxed);
    }
  }
  return true;
}

void CheckConflicts(MultiRenameEngine& engine) {
  engine.conflicts.Begin(engine.items.size());
  for (const MultiRenameItem* const item : engine.items) engine.conflicts.Add(item->newName);
  const std::atomic<bool> never = false;
  engine.conflicts.SetStates(engine.items, never);
}

bool ComputeNames(MultiRenameEngine& engine, const std::atomic<bool>& abort) {
  engine.conflicts.Begin(engine.items.size());
  const std::vector<MultiRenameItem*>& items = engine.items;
  for (std::size_t row = 0; row < items.size(); ++row) {
    if (abort.load(std::memory_order_relaxed)) return false;
    if (row + kRowsAhead < items.size()) FetchRow(*items[row + kRowsAhead]);
    if (row + kNamesAhead < items.size()) FetchNames(*items[row + kNamesAhead]);
    ComputeName(engine, *items[row]);
    // Needs no guard: only this thread writes new names.
    engine.conflicts.Add(items[row]->newName);
  }
  return engine.conflicts.SetStates(engine.items, abort);
}

}  // namespace Velmora::SDK
