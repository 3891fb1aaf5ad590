// Reads the keys of lines: their next characters as numbers, and how many characters two of them share.
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

// The rest of a key after its first characters; never empty.
struct KeyRest {
  const char* text;
  std::uint32_t left;  // in characters
};

// Reads keys where they lie in the blocks. A depth is the number of characters of a key that come before its
// rest. A reader is small: copy it where it is used, which saves the inner loops a step. Keys is ByteKeys or
// UnitKeys.
template <typename Keys>
class KeyReader {
 public:
  using Key = KeyText<typename Keys::Char>;
  static constexpr std::uint32_t kCharSize = sizeof(typename Keys::Char);

  // Borrows the lines.
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

  // The first characters of a key that is not empty, as a number.
  std::uint64_t BeginningOf(const Key& key) const {
    return NextCharacters<Keys>(reinterpret_cast<const char*>(key.text), key.length, rule_);
  }

  // The first characters of a rest, as a number.
  std::uint64_t NextOf(const KeyRest& rest) const {
    return NextCharacters<Keys>(rest.text, rest.left, rule_);
  }

  // The number of characters that both rests begin with, at most `most`, and fewer than `rest` has: after
  // them `rest` is still not empty. `other` has `most` characters or more.
  std::uint32_t Shared(const KeyRest& rest, const KeyRest& other, std::uint32_t most) const {
    return SharedCharacters<Keys>(rest.text, other.text, std::min(most, rest.left - 1), rule_);
  }

  // Calls visit(i) for each i in [0, count), and asks for the memory of lines and texts some calls ahead.
  // indexOf(i) is the index of the line that visit(i) reads from `depth` on.
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
