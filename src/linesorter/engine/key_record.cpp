#include "linesorter/engine/key_record.h"

#include <algorithm>

namespace WQLineSorter {

void OrderEqualsByIndex(KeyRecords& records) {
  for (auto begin = records.begin(); begin != records.end();) {
    const auto end = std::find_if(begin + 1, records.end(),
                                  [&](const KeyRecord& other) { return other.Number() != begin->Number(); });
    // They usually are in the order of the file already.
    const auto inFileOrder = [](const KeyRecord& a, const KeyRecord& b) { return a.index < b.index; };
    if (!std::is_sorted(begin, end, inFileOrder)) std::sort(begin, end, inFileOrder);
    begin = end;
  }
}

}  // namespace WQLineSorter
