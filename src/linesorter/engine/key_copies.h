// Close copies of the keys that are being ranked: a few thousand keys lie in as many pages of memory, each of
// which costs more to look up again than the key costs to compare. So each is visited once and its next
// characters are kept side by side.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "linesorter/engine/sortable_lines.h"

namespace WQLineSorter {

// What is left of a key behind its first characters; never empty.
struct KeyRest {
  const char* text;
  std::uint32_t left;  // in characters
};

struct KeyCopy {
  static constexpr std::uint32_t kBytes = 48;

  KeyRest rest;
  std::uint32_t index;  // of the line
  char bytes[kBytes];   // the first of the rest and, where it is shorter, what stands behind it

  // Reads as far behind the end as a block's guard goes, and no farther.
  void Take(const KeyRest& from, std::uint32_t charSize) {
    constexpr std::uint32_t kAlways = 32;
    static_assert(kAlways <= kBlockGuard && kBytes - kAlways <= kBlockGuard);
    rest = from;
    std::memcpy(bytes, from.text, kAlways);
    if (from.left > (kBytes - kAlways) / charSize) {
      std::memcpy(bytes + kAlways, from.text + kAlways, kBytes - kAlways);
    }
  }

  // How many characters can be compared with wide steps behind the first `skipped`.
  static std::uint32_t Room(std::uint32_t skipped, std::uint32_t charSize) {
    const std::uint32_t characters = (kBytes - 8) / charSize + 1;
    return skipped < characters ? characters - skipped : 0;
  }

  // What is left behind the first `skipped` characters; its next eight bytes can be read.
  KeyRest Rest(std::uint32_t skipped, std::uint32_t charSize) const {
    const char* const text = Room(skipped, charSize) != 0 ? bytes : rest.text;
    return {text + std::size_t{skipped} * charSize, rest.left - skipped};
  }
};

using KeyCopies = std::vector<KeyCopy>;

}  // namespace WQLineSorter
