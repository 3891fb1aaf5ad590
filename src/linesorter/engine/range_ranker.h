// Ranks the records of segments, range by range.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "linesorter/engine/common_prefixes.h"
#include "linesorter/engine/first_records.h"
#include "linesorter/engine/key_copies.h"
#include "linesorter/engine/key_reader.h"
#include "linesorter/engine/key_record.h"
#include "linesorter/engine/number_sort.h"

namespace WQLineSorter {

// If a run of records has the same number and its keys continue, it becomes a range: the next characters of
// its keys are loaded, the range is sorted by them, and its own runs are ranked in turn. A stack of ranges is
// used instead of recursion, which could be as deep as a key is long.
template <typename Keys>
class RangeRanker {
 public:
  // Stores references to the copies and the records.
  RangeRanker(const KeyReader<Keys>& reader, KeyCopies<Keys>& copies, const NumberSort& sort,
              std::span<KeyRecord> records)
      : reader_(reader), copies_(copies), sort_(sort), records_(records) {}

  // Ranks all records. `first` has made them with these common prefixes.
  void Rank(const FirstRecords<Keys>& first, std::span<const CommonPrefix> commons) {
    segments_ = first.Segments();
    commons_ = commons;
    SetRanks(0, first.EmptyCount(), first.EmptyCount());
    for (segment_ = 0; segment_ < segments_.size(); ++segment_) {
      const RecordSegment& segment = segments_[segment_];
      if (segment.common == NumberParts::kNone) {
        open_.push_back({segment.begin, segment.end, 0});
      } else {
        open_.push_back({segment.begin, segment.end, kStep<Keys> + commons_[segment.common].shared});
      }
      while (!open_.empty()) RankNext();
    }
  }

  // Returns true if any key is a prefix of a longer one.
  bool HasPrefixes() const { return hasPrefixes_; }

 private:
  // The records [next, end) are still to be ranked. Their keys share `depth` characters and are longer; the
  // records are sorted by the characters after these. The records before `next` are ranked, or are in a range
  // higher on the stack.
  struct OpenRange {
    std::size_t next;
    std::size_t end;
    std::uint32_t depth;
  };

  // Ranks the next run of the innermost range, or opens a range for it.
  void RankNext() {
    const OpenRange range = open_.back();
    if (range.next == range.end) {
      open_.pop_back();
      return;
    }
    const std::size_t begin = range.next;
    const std::uint64_t number = records_[begin].Number();
    std::size_t end = begin + 1;
    while (end < range.end && records_[end].Number() == number) ++end;
    open_.back().next = end;
    const unsigned count = CountIn<Keys>(number);
    if (count <= kStep<Keys>) {
      SetRanks(begin, end, Keys::kEqualsPrefix ? EndOfLongerKeys(number, count) : end);
    } else if (end - begin == 1) {
      SetRanks(begin, end, end);
    } else {
      Open(begin, end, range);
    }
  }

  // Opens a range for the records [begin, end) of `range`, whose numbers are equal and whose keys continue.
  void Open(std::size_t begin, std::size_t end, const OpenRange& range) {
    const std::uint32_t depth = range.depth + kStep<Keys>;
    if (isCopied_) {
      OpenRecords(begin, end, depth + LoadCopied(begin, end, depth));
    } else if (end - begin <= copies_.Room()) {
      const std::size_t copiedEnd = EndOfGroup(begin, range.end);
      open_.back().next = copiedEnd;
      RankByCopies({begin, copiedEnd, range.depth});
    } else {
      OpenRecords(begin, end, depth + LoadLarge(begin, end, depth));
    }
  }

  void OpenRecords(std::size_t begin, std::size_t end, std::uint32_t depth) {
    sort_.Sort(Records(begin, end));
    open_.push_back({begin, end, depth});
  }

  // Sets the ranks of records with equal keys. The keys of the records [end, after) are longer and begin with
  // these.
  void SetRanks(std::size_t begin, std::size_t end, std::size_t after) {
    if (after > end) hasPrefixes_ = true;
    for (std::size_t i = begin; i < end; ++i) records_[i].SetRanks(begin, after - 1);
  }

  // Returns the end of the group that starts at `begin`: as many whole runs before `end` as can be copied at
  // a time.
  std::size_t EndOfGroup(std::size_t begin, std::size_t end) const {
    if (end - begin <= copies_.Room()) return end;
    std::size_t groupEnd = begin + copies_.Room();
    while (groupEnd > begin && records_[groupEnd - 1].Number() == records_[groupEnd].Number()) --groupEnd;
    return groupEnd;
  }

  // Ranks a group of records, which is part of an open range, with copies of their keys.
  void RankByCopies(const OpenRange& group) {
    const auto records = Records(group.next, group.end);
    copies_.Take(records, group.depth + kStep<Keys>);
    isCopied_ = true;
    const std::size_t outer = open_.size();
    open_.push_back(group);
    while (open_.size() > outer) RankNext();
    isCopied_ = false;
    copies_.RestoreIndexes(records);
  }

  // Loads the characters after those that all keys share after `depth`. Returns the number of these shared
  // characters.
  std::uint32_t LoadCopied(std::size_t begin, std::size_t end, std::uint32_t depth) {
    const KeyRecord& first = records_[begin];
    std::uint32_t shared = copies_.RestOf(first, depth).left - 1;
    for (std::size_t i = begin + 1; i < end && shared != 0; ++i) {
      const std::uint32_t most = std::min(shared, copies_.RestOf(records_[i], depth).left - 1);
      shared = copies_.Shared(records_[i], first, depth, most);
    }
    for (KeyRecord& record : Records(begin, end)) {
      record.SetNumber(reader_.NextOf(copies_.RestOf(record, depth + shared)));
    }
    return shared;
  }

  // Same for keys that are too many to copy. To visit each key only once, predicts from a sample how many
  // characters all keys share. If a key shares fewer, visits all keys again.
  std::uint32_t LoadLarge(std::size_t begin, std::size_t end, std::uint32_t depth) {
    constexpr std::size_t kSamples = 8;
    const auto records = Records(begin, end);
    const auto indexOf = [&](std::size_t i) { return records[i].index; };
    const KeyRest first = reader_.RestOfLine(indexOf(0), depth);
    std::uint32_t predicted = first.left;
    for (std::size_t i = 1; i <= kSamples; ++i) {
      const std::size_t sample = (records.size() - 1) / kSamples * i;
      predicted = reader_.Shared(reader_.RestOfLine(indexOf(sample), depth), first, predicted);
    }
    std::uint32_t shared = predicted;
    reader_.Visit(records.size(), depth, indexOf, [&](std::size_t i) {
      const KeyRest rest = reader_.RestOfLine(indexOf(i), depth);
      shared = reader_.Shared(rest, first, shared);
      records[i].SetNumber(reader_.NextOf(reader_.Skip(rest, shared)));
    });
    if (shared != predicted) LoadNext(reader_, records, depth + shared);
    return shared;
  }

  // Returns the end of the records, from the next one of the innermost range on, whose keys begin with the
  // first `count` characters of `number`. These keys are longer than the key that ends there.
  std::size_t EndOfLongerKeys(std::uint64_t number, unsigned count) const {
    const OpenRange& range = open_.back();
    const auto begins = [&](std::uint64_t other) {
      return ((other ^ number) & ~BitsAfter<Keys>(count)) == 0;
    };
    const auto endIn = [&](std::size_t first, std::size_t last) {
      const auto recordBegins = [&](const KeyRecord& record) { return begins(record.Number()); };
      std::size_t step = 1;
      while (step <= last - first && recordBegins(records_[first + step - 1])) {
        first += step;
        step *= 2;
      }
      const KeyRecord* const known = records_.data() + first;
      const KeyRecord* const limit = known + std::min(step, last - first);
      return static_cast<std::size_t>(std::partition_point(known, limit, recordBegins) - records_.data());
    };
    std::size_t end = endIn(range.next, range.end);
    // A group that is ranked with copies is followed by the rest of its range.
    if (open_.size() > 1) {
      const OpenRange& outer = open_[open_.size() - 2];
      if (end == outer.next && range.depth == outer.depth) end = endIn(end, outer.end);
    }
    if (range.depth != 0) return end;
    // Keys that end within their first characters may also be the beginning of keys in the following
    // segments, whose records hold characters of other depths.
    for (std::size_t i = segment_ + 1; i < segments_.size() && end == segments_[i].begin; ++i) {
      const RecordSegment& segment = segments_[i];
      if (segment.common == NumberParts::kNone) {
        end = endIn(segment.begin, segment.end);
      } else if (begins(commons_[segment.common].number)) {
        end = segment.end;
      }
    }
    return end;
  }

  std::span<KeyRecord> Records(std::size_t begin, std::size_t end) {
    return records_.subspan(begin, end - begin);
  }

  const KeyReader<Keys> reader_;
  KeyCopies<Keys>& copies_;
  const NumberSort& sort_;
  const std::span<KeyRecord> records_;
  std::span<const RecordSegment> segments_;
  std::span<const CommonPrefix> commons_;
  std::size_t segment_ = 0;      // the segment that is being ranked
  std::vector<OpenRange> open_;  // a stack; the last is the innermost
  bool isCopied_ = false;        // the `index` of the innermost range's records is that of copies
  bool hasPrefixes_ = false;
};

}  // namespace WQLineSorter
