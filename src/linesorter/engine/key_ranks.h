// The ranks of text keys in ordinal order: all that comparing two keys needs, as two small numbers a key.
//
// For bytes the comparison is not a strict weak order: a key equals its own beginning, while two keys that
// begin with it differ. So std::stable_sort has to make the order, as its result is what the rule says. But
// in a dictionary all keys that begin with a key come right after it, so whether a key comes before another
// follows from their places there: less(a, b) is Last(a) < First(b). The keys are brought into the
// dictionary's order once, eight bytes at a time, and std::stable_sort does not read their texts again.
#pragma once

#include <span>

#include "linesorter/engine/key_characters.h"
#include "linesorter/engine/key_record.h"
#include "linesorter/engine/sortable_lines.h"

namespace WQLineSorter {

// Returns one record for each line, in the dictionary's order, with its ranks. Sets `hasBeginnings` if any
// key equals the beginning of a longer one; if none does, First() alone gives the order. The lines' blocks
// have kBlockGuard bytes after their text. Throws std::bad_alloc. Keys is ByteKeys, for the order of
// LineCompare_OrdinalA, or UnitKeys, for that of CompareStringOrdinal. key_ranks.cpp has an overview.
template <typename Keys>
KeyRecords RankKeys(std::span<const SortLine> lines, const FoldRule& rule, bool& hasBeginnings);

}  // namespace WQLineSorter
