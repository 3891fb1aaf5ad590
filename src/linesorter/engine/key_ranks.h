// The ranks of text keys in ordinal order: all that comparing two keys needs, as two small numbers a key.
//
// Comparing bytes is no strict weak order: a key equals its own beginning, while two keys that begin with it
// differ. So the order that std::stable_sort makes of them has to be made by std::stable_sort. But in a
// dictionary all keys that begin with a key stand right behind it, so whether a key comes before another
// follows from their places there: less(a, b) is First(b) > Last(a). The keys are brought into the
// dictionary's order once, eight bytes at a time, and their texts are not looked at again.
#pragma once

#include <span>

#include "linesorter/engine/key_characters.h"
#include "linesorter/engine/key_record.h"
#include "linesorter/engine/sortable_lines.h"

namespace WQLineSorter {

// Makes one record a line, in the dictionary's order, with its ranks. `beginnings` tells whether any key
// equals the beginning of a longer one; if none does, First() alone gives the order. The lines' blocks have
// kBlockGuard bytes behind them. Throws std::bad_alloc. Keys is ByteKeys, for the order of
// LineCompare_OrdinalA, or UnitKeys, for that of CompareStringOrdinal.
template <typename Keys>
KeyRecords RankKeys(std::span<const SortLine> lines, const FoldRule& rule, bool& beginnings);

}  // namespace WQLineSorter
