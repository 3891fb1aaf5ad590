// Reads the keys of lines: their next characters as numbers, and the number of characters that two keys
// share.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "linesorter/engine/key_characters.h"
#include "linesorter/engine/prefetch.h"
#include "linesorter/engine/sort_keys.h"
#include "linesorter/engine/sortable_lines.h"

namespace WQLineSorter {

// The rest of a key after its first characters. Never empty.
struct KeyRest {
  const char* text;
  std::uint32_t left;  // in characters
};

// Reads keys directly from the blocks. A depth is the number of characters of a key before its rest. A reader
// is small; a local copy of it saves the inner loops an indirection. Keys is ByteKeys or UnitKeys.
template <typename Keys>
class KeyReader {
 public:
  using Key = KeyText<typename Keys::Char>;
  static constexpr std::uint32_t kCharSize = sizeof(typename Keys::Char);

  // Does not copy the lines; they must outlive the reader.
  KeyReader(std::span<const SortLine> lines, const FoldRule& rule) : lines_(lines), rule_(rule) {}

  std::size_t LineCount() const { return lines_.size(); }
  const FoldRule& Rule() const { return rule_; }

  Key KeyOfLine(std::size_t index) const { return KeyOf<typename Keys::Char>(lines_[index]); }

  KeyRest RestOfLine(std::size_t index, std::uint32_t depth) const { return RestOf(KeyOfLine(index), depth); }

  static KeyRest RestOf(const Key& key, std::uint32_t depth) {
    return Skip({reinterpret_cast<const char*>(key.text), key.length}, depth);
  }

  static KeyRest Skip(const KeyRest& rest, std::uint32_t count) {
    return {rest.text + std::size_t{count} * kCharSize, rest.left - count};
  }

  // Returns the first characters of a key as a number. The key must not be empty.
  std::uint64_t FirstCharactersOf(const Key& key) const {
    return NextCharacters<Keys>(reinterpret_cast<const char*>(key.text), key.length, rule_);
  }

  // Returns the first characters of a rest as a number.
  std::uint64_t NextOf(const KeyRest& rest) const {
    return NextCharacters<Keys>(rest.text, rest.left, rule_);
  }

  // Returns how many characters at the beginning of both rests are equal: at most `most`, and fewer than
  // `rest` has, so that what remains of `rest` is not empty. `other` must have at least `most` characters.
  std::uint32_t Shared(const KeyRest& rest, const KeyRest& other, std::uint32_t most) const {
    return SharedCharacters<Keys>(rest.text, other.text, std::min(most, rest.left - 1), rule_);
  }

  // Calls visit(i) for each i in [0, count) and prefetches the lines and texts of later calls. indexOf(i)
  // must return the index of the line that visit(i) reads, from `depth` on.
  template <typename IndexOf, typename Function>
  void Visit(std::size_t count, std::uint32_t depth, IndexOf indexOf, Function visit) const {
    constexpr std::size_t kLineAhead = 16;
    constexpr std::size_t kTextAhead = 8;
    for (std::size_t i = 0; i < count; ++i) {
      if (i + kLineAhead < count) {
        Prefetch(&lines_[indexOf(i + kLineAhead)]);
        PrefetchRest(indexOf(i + kTextAhead), depth);
      }
      visit(i);
    }
  }

 private:
  void PrefetchRest(std::size_t index, std::uint32_t depth) const {
    const SortLine& line = lines_[index];
    const auto text = reinterpret_cast<std::uintptr_t>(line.text) + line.keyOffset;
    Prefetch(reinterpret_cast<const void*>(text + std::size_t{depth} * kCharSize));
  }

  std::span<const SortLine> lines_;
  FoldRule rule_;
};

}  // namespace WQLineSorter
