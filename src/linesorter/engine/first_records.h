// The first step of ranking: makes the records of all keys, in the order of the keys' first characters.
#pragma once

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "linesorter/engine/common_prefixes.h"
#include "linesorter/engine/key_reader.h"
#include "linesorter/engine/key_record.h"
#include "linesorter/engine/number_sort.h"

namespace WQLineSorter {

// Sets the number of each record to the characters of its key after the first `depth`. The keys must be
// longer than `depth`.
template <typename Keys>
void LoadNext(const KeyReader<Keys>& reader, std::span<KeyRecord> records, std::uint32_t depth) {
  reader.Visit(
      records.size(), depth, [&](std::size_t i) { return records[i].index; },
      [&](std::size_t i) {
        records[i].SetNumber(reader.NextOf(reader.RestOfLine(records[i].index, depth)));
      });
}

// Records [begin, end), whose keys have one common prefix, or are those between two common prefixes.
struct RecordSegment {
  std::size_t begin;
  std::size_t end;
  std::size_t common;  // index of the common prefix, or NumberParts::kNone
};

// Fills `records`, one for each line, in the order of the keys' first characters. In the segment of a common
// beginning, a record's number consists of the characters after those that all keys of the segment share; in
// other segments, of the key's first characters. The records of empty keys come first and belong to no
// segment, since an empty key equals only empty keys.
template <typename Keys>
class FirstRecords {
 public:
  // Stores references to the common prefixes and the records. Make lowers `shared` of the common prefixes
  // to what all their keys share.
  FirstRecords(const KeyReader<Keys>& reader, std::span<CommonPrefix> commons, const NumberSort& sort,
               std::span<KeyRecord> records)
      : reader_(reader), commons_(commons), sort_(sort), records_(records), parts_(commons) {}

  // Reads each key twice. The first pass counts the keys of each part, so that the second writes each record
  // directly into its part.
  void Make() {
    const std::vector<CommonPrefix> predicted(commons_.begin(), commons_.end());
    const std::vector<std::size_t> ends = FillParts(CountKeys());
    std::size_t begin = emptyCount_;
    for (std::size_t part = 0; part < ends.size(); ++part) {
      const std::size_t end = ends[part];
      const std::size_t common = parts_.CommonOf(part);
      const auto records = records_.subspan(begin, end - begin);
      if (common != NumberParts::kNone && commons_[common].shared != predicted[common].shared) {
        LoadNext(reader_, records, kStep<Keys> + commons_[common].shared);
      }
      sort_.Sort(records);
      AddSegment(begin, end, common);
      begin = end;
    }
  }

  std::size_t EmptyCount() const { return emptyCount_; }
  const std::vector<RecordSegment>& Segments() const { return segments_; }

 private:
  // Counts the empty keys and returns the index at which the records of each part begin.
  std::vector<std::size_t> CountKeys() {
    const KeyReader<Keys> reader = reader_;  // a copy, which can stay in registers
    std::vector<std::size_t> next(parts_.Count());
    std::size_t empty = 0;
    for (std::size_t i = 0; i < reader.LineCount(); ++i) {
      const auto key = reader.KeyOfLine(i);
      ++(key.length == 0 ? empty : next[parts_.PartOf(reader.FirstCharactersOf(key))]);
    }
    emptyCount_ = empty;
    std::size_t begin = empty;
    for (std::size_t& place : next) begin += std::exchange(place, begin);
    return next;
  }

  // Writes each record to the next free place of its part. Returns the ends of the parts.
  std::vector<std::size_t> FillParts(std::vector<std::size_t> next) {
    const KeyReader<Keys> reader = reader_;
    std::size_t nextEmpty = 0;
    for (std::size_t i = 0; i < reader.LineCount(); ++i) {
      const auto key = reader.KeyOfLine(i);
      if (key.length == 0) {
        records_[nextEmpty++].index = static_cast<std::uint32_t>(i);
        continue;
      }
      std::uint64_t number = reader.FirstCharactersOf(key);
      const std::size_t part = parts_.PartOf(number);
      const std::size_t common = parts_.CommonOf(part);
      KeyRecord& record = records_[next[part]++];
      if (common != NumberParts::kNone) {
        const KeyRest rest = reader.RestOf(key, kStep<Keys>);
        std::uint32_t& shared = commons_[common].shared;
        shared = reader.Shared(rest, commons_[common].first, shared);
        number = reader.NextOf(reader.Skip(rest, shared));
      }
      record.SetNumber(number);
      record.index = static_cast<std::uint32_t>(i);
    }
    return next;
  }

  // Merges adjacent parts without a common prefix into one segment.
  void AddSegment(std::size_t begin, std::size_t end, std::size_t common) {
    if (begin == end) return;
    if (common == NumberParts::kNone && !segments_.empty() && segments_.back().common == common) {
      segments_.back().end = end;
    } else {
      segments_.push_back({begin, end, common});
    }
  }

  const KeyReader<Keys> reader_;
  const std::span<CommonPrefix> commons_;
  const NumberSort& sort_;
  const std::span<KeyRecord> records_;
  NumberParts parts_;
  std::size_t emptyCount_ = 0;
  std::vector<RecordSegment> segments_;
};

}  // namespace WQLineSorter
