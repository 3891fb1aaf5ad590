// How keys get their ranks
//
// Each line has a record. It contains a number made of some characters of the line's key (see
// key_characters.h), so that sorting the records by their numbers sorts the keys by these characters.
//
//   1. common_prefixes_sample.h
//      In a large file, a sample of the keys shows which beginnings many keys share, such as "Package: " in a
//      list of packages. The numbers of keys with such a beginning are made of the characters after it, in
//      the one pass that reads all keys.
//   2. first_records.h
//      One pass makes the records of all keys and sorts them by the first characters.
//   3. range_ranker.h
//      Processes the records in order. A run of records with the same number is ranked if its keys end there
//      or if it is a single record. Otherwise it becomes a range: the next characters of its keys are loaded,
//      the range is sorted by them, and its own runs are ranked before the records after it.
//   4. key_copies.h
//      If a group of records is small enough, its keys are copied next to each other once, and all ranges in
//      the group read the copies.
//
// For bytes, a key that ends equals the longer keys that begin with it. These directly follow it, so a binary
// search over the numbers finds the last of them.
//
// An example: four lines, bytes, whole lines as keys
//
//   0 "pineapple pie"   1 "pine"   2 "pineapples"   3 "plum"
//
// A number contains up to seven bytes and, in the eighth, their count; 8 means that the key continues:
//
//   0 "pineapp" 8     1 "pine" 4     2 "pineapp" 8     3 "plum" 4
//
// Sorted, at the positions 0 to 3:
//
//   line 1 "pine" 4 | line 0 "pineapp" 8, line 2 "pineapp" 8 | line 3 "plum" 4
//
// Position 0: "pine" ends. The keys at 1 and 2 begin with it, the one at 3 does not: First 0, Last 2.
//
// Positions 1 and 2: a run of keys that continue, so it becomes a range. Both keys have "le" next, so the
// depth is 7 + 2 and the next characters are " pie" 4 and "s" 1, which are in order. Each is a run of one
// record: line 0 gets First 1, Last 1 and line 2 gets First 2, Last 2.
//
// Position 3: "plum" ends, and nothing follows it: First 3, Last 3.
//
// A key is less than another if its Last is less than the other's First. So "pine" (Last 2) is less than
// "plum" (First 3), but not less than "pineapples" (First 2). "pineapples" (Last 2) is not less than "pine"
// (First 0), so these two are equal. "pineapple pie" (Last 1) is less than "pineapples" (First 2).
#include "linesorter/engine/key_ranks.h"

#include <utility>
#include <vector>

#include "linesorter/engine/common_prefixes_sample.h"
#include "linesorter/engine/first_records.h"
#include "linesorter/engine/key_copies.h"
#include "linesorter/engine/key_reader.h"
#include "linesorter/engine/number_sort.h"
#include "linesorter/engine/range_ranker.h"

namespace WQLineSorter {

template <typename Keys>
KeyRecords RankKeys(std::span<const SortLine> lines, const FoldRule& rule, bool& hasPrefixes) {
  const KeyReader<Keys> reader(lines, rule);
  KeyRecords records(lines.size());
  const NumberSort sort(lines.size());
  KeyCopies<Keys> copies(reader, lines.size());
  std::vector<CommonPrefix> commons = SampleCommonPrefixes(reader);
  FirstRecords<Keys> first(reader, commons, sort, records);
  first.Make();
  RangeRanker<Keys> ranker(reader, copies, sort, records);
  ranker.Rank(first, commons);
  hasPrefixes = ranker.HasPrefixes();
  return records;
}

template KeyRecords RankKeys<ByteKeys>(std::span<const SortLine>, const FoldRule&, bool&);
template KeyRecords RankKeys<UnitKeys>(std::span<const SortLine>, const FoldRule&, bool&);

}  // namespace WQLineSorter
