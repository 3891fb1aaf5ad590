// Ranks of text keys in ordinal order: two small numbers for each key replace all further comparisons of
// keys.
//
// For bytes, the comparison is not a strict weak order: a key is equal to a longer key that begins with it,
// while two such longer keys differ. So the order depends on the algorithm, and only std::stable_sort gives
// the required one. But in lexicographic order all keys that begin with a key directly follow it, so the
// result of each comparison follows from the positions of the keys: less(a, b) is Last(a) < First(b). The
// keys are sorted lexicographically once, eight bytes at a time, and std::stable_sort then compares ranks
// without reading any text.
#pragma once

#include <span>

#include "linesorter/engine/key_characters.h"
#include "linesorter/engine/key_record.h"
#include "linesorter/engine/sortable_lines.h"

namespace WQLineSorter {

// Returns one record for each line, in lexicographic order, with its ranks. Sets `hasPrefixes` to true if
// any key is a prefix of a longer one; if none is, First() alone determines the order. The blocks of the
// lines must have kBlockGuard bytes after their text. Throws std::bad_alloc. Keys is ByteKeys for the order
// of LineCompare_OrdinalA, or UnitKeys for that of CompareStringOrdinal. For an overview see key_ranks.cpp.
template <typename Keys>
KeyRecords RankKeys(std::span<const SortLine> lines, const FoldRule& rule, bool& hasPrefixes);

}  // namespace WQLineSorter
