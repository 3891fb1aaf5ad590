// How keys get their ranks
//
// Each line has a record. It holds a number made of some characters of the line's key (see
// key_characters.h), so that sorting records by their numbers sorts the keys by these characters.
//
//   1. common_beginnings_sample.h  In a large file, a sample of the keys shows which beginnings many keys
//                                  share, such as "Package: " in a list of packages. Their keys get numbers
//                                  of the characters after it, in the one pass that reads all keys.
//   2. first_records.h             One pass makes the records of all keys and sorts them by the first
//                                  characters.
//   3. range_ranker.h              From the front to the back: a run of records with one number is ranked if
//   its
//                                  keys end there or if it is a single record. If not it becomes a range of
//                                  its own: the next characters of its keys are loaded, it is sorted by them,
//                                  and its runs are ranked before those after it.
//   4. key_copies.h                If a group of records is small enough, its keys are copied side by side
//   once,
//                                  and all its ranges read the copies.
//
// A key that ends needs one more thing, for bytes: the longer keys that begin with it equal it. They come
// right after it, so a binary search over the numbers finds the last of them.
//
// An example: four lines, bytes, whole lines as keys
//
//   0 "pineapple pie"   1 "pine"   2 "pineapples"   3 "plum"
//
//   The first characters are seven bytes, and the eighth holds their count; 8 means that the key goes on:
//     0 "pineapp" 8     1 "pine" 4     2 "pineapp" 8     3 "plum" 4
//   Sorted, at the places 0 to 3:
//     line 1 "pine" 4 | line 0 "pineapp" 8, line 2 "pineapp" 8 | line 3 "plum" 4
//   Place 0: "pine" ends. The records at 1 and 2 begin with it, the one at 3 does not: First 0, Last 2.
//   Places 1 and 2: a run of keys that go on, so it becomes a range. Both keys share "le" next, so depth is
//   7 + 2 and the next characters are " pie" 4 and "s" 1, which are in order. Each is a run of one record:
//   line 0 gets First 1, Last 1 and line 2 gets First 2, Last 2.
//   Place 3: "plum" ends, and nothing comes after it: First 3, Last 3.
//
//   A key comes before another if Last of it is less than First of the other. So "pine" comes before "plum"
//   (2 < 3) but not before "pineapples" (2 < 2 is false) nor that before "pine" (2 < 0 is false): they are
//   equal. "pineapple pie" comes before "pineapples" (1 < 2).
#include "linesorter/engine/key_ranks.h"

#include <utility>
#include <vector>

#include "linesorter/engine/common_beginnings_sample.h"
#include "linesorter/engine/first_records.h"
#include "linesorter/engine/key_copies.h"
#include "linesorter/engine/key_reader.h"
#include "linesorter/engine/number_sort.h"
#include "linesorter/engine/range_ranker.h"

namespace WQLineSorter {

template <typename Keys>
KeyRecords RankKeys(std::span<const SortLine> lines, const FoldRule& rule, bool& hasBeginnings) {
  const KeyReader<Keys> reader(lines, rule);
  KeyRecords records(lines.size());
  const NumberSort sort(lines.size());
  KeyCopies<Keys> copies(reader, lines.size());
  std::vector<CommonBeginning> commons = SampleCommonBeginnings(reader);
  FirstRecords<Keys> first(reader, commons, sort, records);
  first.Make();
  RangeRanker<Keys> ranker(reader, copies, sort, records);
  ranker.Rank(first, commons);
  hasBeginnings = ranker.HasBeginnings();
  return records;
}

template KeyRecords RankKeys<ByteKeys>(std::span<const SortLine>, const FoldRule&, bool&);
template KeyRecords RankKeys<UnitKeys>(std::span<const SortLine>, const FoldRule&, bool&);

}  // namespace WQLineSorter
