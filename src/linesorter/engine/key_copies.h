// Copies of the keys of a small group of records. A few thousand keys lie on as many pages of memory, and
// accessing one again costs more than comparing it. So each key is visited once, and its next characters are
// stored next to those of the others.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <utility>
#include <vector>

#include "linesorter/engine/key_reader.h"
#include "linesorter/engine/key_record.h"
#include "linesorter/engine/sortable_lines.h"

namespace WQLineSorter {

struct KeyCopy {
  static constexpr std::uint32_t kBytes = 48;

  KeyRest rest;
  std::uint32_t index;  // of the line
  char bytes[kBytes];   // the first bytes of the rest; if it is shorter, also what follows it in its block

  // Copies the beginning of `from`. May read past the end of the key, but not past the guard bytes of the
  // block.
  void Take(const KeyRest& from, std::uint32_t charSize) {
    constexpr std::uint32_t kAlways = 32;
    static_assert(kAlways <= kBlockGuard && kBytes - kAlways <= kBlockGuard);
    rest = from;
    std::memcpy(bytes, from.text, kAlways);
    if (from.left > (kBytes - kAlways) / charSize) {
      std::memcpy(bytes + kAlways, from.text + kAlways, kBytes - kAlways);
    }
  }

  // Returns how many characters after the first `skipped` can be compared in the copy, which is read in steps
  // of eight bytes.
  static std::uint32_t Room(std::uint32_t skipped, std::uint32_t charSize) {
    const std::uint32_t characters = (kBytes - 8) / charSize + 1;
    return skipped < characters ? characters - skipped : 0;
  }

  // Returns the rest without its first `skipped` characters, in the copy if its next eight bytes are there,
  // otherwise in the block.
  KeyRest Rest(std::uint32_t skipped, std::uint32_t charSize) const {
    const char* const text = Room(skipped, charSize) != 0 ? bytes : rest.text;
    return {text + std::size_t{skipped} * charSize, rest.left - skipped};
  }
};

// Copies the keys of one group of records at a time. From Take until RestoreIndexes, the `index` of a record
// is that of a copy instead of a line.
template <typename Keys>
class KeyCopies {
 public:
  // Allocates the copies for the largest possible group. There are at most `lineCount` keys.
  KeyCopies(const KeyReader<Keys>& reader, std::size_t lineCount)
      : reader_(reader), copies_(std::min(lineCount, kMaxKeys)), needed_(copies_.size()) {}

  // Returns the maximum number of keys in a group.
  std::size_t Room() const { return copies_.size(); }

  // Copies the keys from `depth` on. Does not copy those that need no further comparison: keys without
  // characters after `depth`, and keys of records with a unique number.
  void Take(std::span<KeyRecord> records, std::uint32_t depth) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < records.size(); ++i) {
      const auto copy = static_cast<std::uint32_t>(i);
      copies_[copy].index = std::exchange(records[i].index, copy);
      const std::uint64_t number = records[i].Number();
      const bool isAlone = (i == 0 || records[i - 1].Number() != number) &&
                           (i + 1 == records.size() || records[i + 1].Number() != number);
      if (!isAlone && CountIn<Keys>(number) > kStep<Keys>) needed_[count++] = copy;
    }
    depth_ = depth;
    reader_.Visit(
        count, depth, [&](std::size_t i) { return copies_[needed_[i]].index; },
        [&](std::size_t i) {
          KeyCopy& copy = copies_[needed_[i]];
          copy.Take(reader_.RestOfLine(copy.index, depth), kCharSize);
        });
  }

  // Restores the indices of the lines in the records, which may be in another order than at Take.
  void RestoreIndexes(std::span<KeyRecord> records) const {
    for (KeyRecord& record : records) record.index = copies_[record.index].index;
  }

  KeyRest RestOf(const KeyRecord& record, std::uint32_t depth) const {
    return CopyOf(record).Rest(depth - depth_, kCharSize);
  }

  // Returns how many of the next `most` characters after `depth` are equal in both keys. Both keys must have
  // that many.
  std::uint32_t Shared(const KeyRecord& left, const KeyRecord& right, std::uint32_t depth,
                       std::uint32_t most) const {
    const std::uint32_t skipped = depth - depth_;
    const std::uint32_t copied = std::min(most, KeyCopy::Room(skipped, kCharSize));
    std::uint32_t shared = 0;
    if (copied != 0) {
      shared = SharedCharacters<Keys>(CopyOf(left).bytes + skipped * kCharSize,
                                      CopyOf(right).bytes + skipped * kCharSize, copied, reader_.Rule());
      if (shared < copied || copied == most) return shared;
    }
    return copied + SharedCharacters<Keys>(reader_.Skip(CopyOf(left).rest, skipped + copied).text,
                                           reader_.Skip(CopyOf(right).rest, skipped + copied).text,
                                           most - copied, reader_.Rule());
  }

 private:
  // The maximum number of copied keys; so many fit into the nearer caches.
  static constexpr std::size_t kMaxKeys = 8192;

  static constexpr std::uint32_t kCharSize = KeyReader<Keys>::kCharSize;

  const KeyCopy& CopyOf(const KeyRecord& record) const { return copies_[record.index]; }

  const KeyReader<Keys> reader_;
  std::vector<KeyCopy> copies_;
  std::vector<std::uint32_t> needed_;  // the indices of the copies to fill
  std::uint32_t depth_ = 0;            // the depth at which the copies begin
};

}  // namespace WQLineSorter
