// Searches names for a few characters.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>

#include "platform/text.h"

namespace Velmora::SDK {

// ContainsAnyOf for a text of at least one block. Compares whole blocks without an early exit, so that the
// compiler vectorizes the comparison.
template <std::size_t kBlock, WCHAR... wanted>
bool ContainsAnyInBlocks(WStringView text) {
  using Block = std::array<std::uint16_t, kBlock>;
  Block found{};
  const auto look = [&found](const WCHAR* units) {
    Block block;
    std::memcpy(block.data(), units, sizeof block);
    for (std::size_t at = 0; at < kBlock; ++at) {
      std::uint16_t isWanted = 0;
      ((isWanted = static_cast<std::uint16_t>(
            isWanted | (block[at] == static_cast<std::uint16_t>(wanted) ? 0xFFFF : 0))),
       ...);
      found[at] = static_cast<std::uint16_t>(found[at] | isWanted);
    }
  };
  const std::size_t last = text.size() - kBlock;
  for (std::size_t at = 0; at < last; at += kBlock) look(text.data() + at);
  look(text.data() + last);  // the last block may overlap the one before
  std::uint16_t isAny = 0;
  for (const std::uint16_t isWanted : found) isAny = static_cast<std::uint16_t>(isAny | isWanted);
  return isAny != 0;
}

// Returns whether the text contains one of the characters.
template <WCHAR... wanted>
bool ContainsAnyOf(WStringView text) {
  constexpr std::size_t kLong = 16;
  constexpr std::size_t kShort = 8;
  if (text.size() >= kLong) return ContainsAnyInBlocks<kLong, wanted...>(text);
  if (text.size() >= kShort) return ContainsAnyInBlocks<kShort, wanted...>(text);
  for (const WCHAR c : text) {
    if ((... || (c == wanted))) return true;
  }
  return false;
}

}  // namespace Velmora::SDK
