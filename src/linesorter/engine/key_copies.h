// Copies of the keys of a small group. A few thousand keys lie in as many pages of memory, and looking one up
// again costs more than comparing it. So each is visited once, and its next characters are kept side by side.
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
  char bytes[kBytes];   // the first of the rest and, if it is shorter, what comes after it in its block

  // Reads as far past the end as a block's guard goes, and no farther.
  void Take(const KeyRest& from, std::uint32_t charSize) {
    constexpr std::uint32_t kAlways = 32;
    static_assert(kAlways <= kBlockGuard && kBytes - kAlways <= kBlockGuard);
    rest = from;
    std::memcpy(bytes, from.text, kAlways);
    if (from.left > (kBytes - kAlways) / charSize) {
      std::memcpy(bytes + kAlways, from.text + kAlways, kBytes - kAlways);
    }
  }

  // The number of characters after the first `skipped` that can be compared in steps of eight bytes.
  static std::uint32_t Room(std::uint32_t skipped, std::uint32_t charSize) {
    const std::uint32_t characters = (kBytes - 8) / charSize + 1;
    return skipped < characters ? characters - skipped : 0;
  }

  // The rest without its first `skipped` characters; the next eight bytes of it can be read.
  KeyRest Rest(std::uint32_t skipped, std::uint32_t charSize) const {
    const char* const text = Room(skipped, charSize) != 0 ? bytes : rest.text;
    return {text + std::size_t{skipped} * charSize, rest.left - skipped};
  }
};

// The copies of one group of records at a time. From Take to GiveBack the records hold the indices of copies
// in place of those of lines.
template <typename Keys>
class KeyCopies {
 public:
  // Room for the largest group, which has at most `lineCount` keys.
  KeyCopies(const KeyReader<Keys>& reader, std::size_t lineCount)
      : reader_(reader), copies_(std::min(lineCount, kMost)), needed_(copies_.size()) {}

  // The most keys of a group.
  std::size_t Room() const { return copies_.size(); }

  // Copies the keys from `depth` on. Those that are not compared after it are not read: keys that end
  // before, and records whose number no other has.
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

  // Returns the indices of the lines to the records, which may be in another order.
  void GiveBack(std::span<KeyRecord> records) const {
    for (KeyRecord& record : records) record.index = copies_[record.index].index;
  }

  KeyRest RestOf(const KeyRecord& record, std::uint32_t depth) const {
    return CopyOf(record).Rest(depth - depth_, kCharSize);
  }

  // The number of characters after `depth` that both keys have in common, of the next `most`, which both
  // have.
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
  // So many keys are copied: the nearer caches hold them.
  static constexpr std::size_t kMost = 8192;

  static constexpr std::uint32_t kCharSize = KeyReader<Keys>::kCharSize;

  const KeyCopy& CopyOf(const KeyRecord& record) const { return copies_[record.index]; }

  const KeyReader<Keys> reader_;
  std::vector<KeyCopy> copies_;
  std::vector<std::uint32_t> needed_;  // the copies whose texts are needed
  std::uint32_t depth_ = 0;            // at which the copies begin
};

}  // namespace WQLineSorter
