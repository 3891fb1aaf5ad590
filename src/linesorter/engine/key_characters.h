// Packs the next characters of a key into one number, so that numbers compare as the characters do.
//
// The first character is in the highest bits. The lowest bits, as many as for one character, contain a count
// instead: the number of characters that belong to the key, or one more if the key continues after them. So a
// key that ends sorts before those that continue, the shorter one first, and a zero character in the key
// differs from the padding after its end.
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

#include "platform/text.h"

namespace WQLineSorter {

// How characters are compared.
struct FoldRule {
  bool ignoreCase;
  // For 16-bit units with ignoreCase: the unit that each of the 65,536 units is compared as. Otherwise
  // unused; bytes fold only A to Z.
  const std::uint16_t* foldedUnits;
};

// Keys of bytes end at the first zero byte, which belongs to the key, and are equal to their prefixes.
struct ByteKeys {
  using Char = char;
  static constexpr unsigned kBits = 8;
  static constexpr unsigned kLoaded = 8;  // the number of characters that Load reads
  static constexpr bool kEqualsPrefix = true;
  static constexpr bool kEndsAtZero = true;

  // Reads eight bytes, whatever the length of the key.
  static std::uint64_t Load(const char* text, const FoldRule& rule) {
    const std::uint64_t bytes = FromBigEndian(text);
    return rule.ignoreCase ? Fold(bytes) : bytes;
  }

  // Returns a number with the top bit set in each byte of `bytes` that is zero, and no other bit.
  static std::uint64_t Zeros(std::uint64_t bytes) {
    constexpr std::uint64_t kLows = 0x7F7F7F7F7F7F7F7F;
    return ~(((bytes & kLows) + kLows) | bytes | kLows);
  }

 private:
  static std::uint64_t FromBigEndian(const char* text) {
    std::uint64_t value;
    std::memcpy(&value, text, sizeof value);
    if constexpr (std::endian::native == std::endian::little) {
      value = (value & 0x00FF00FF00FF00FF) << 8 | (value >> 8 & 0x00FF00FF00FF00FF);
      value = (value & 0x0000FFFF0000FFFF) << 16 | (value >> 16 & 0x0000FFFF0000FFFF);
      value = value << 32 | value >> 32;
    }
    return value;
  }

  // Converts A to Z to a to z: computes a number with the top bit set in each byte in that range, and shifts
  // these bits to the position of the bit that makes a letter lower case.
  static std::uint64_t Fold(std::uint64_t bytes) {
    constexpr std::uint64_t kTops = 0x8080808080808080;
    constexpr std::uint64_t kOnes = kTops >> 7;
    const std::uint64_t low = bytes & ~kTops;
    const std::uint64_t fromA = low + kOnes * (0x80 - 'A');
    const std::uint64_t afterZ = low + kOnes * (0x80 - 'Z' - 1);
    return bytes | (fromA & ~afterZ & ~bytes & kTops) >> 2;
  }
};

// Keys of 16-bit units are compared to their full length, zeros included, and a key sorts after its prefixes.
struct UnitKeys {
  using Char = WCHAR;
  static constexpr unsigned kBits = 16;
  static constexpr unsigned kLoaded = 3;  // Load reads a fourth one and ignores it
  static constexpr bool kEqualsPrefix = false;
  static constexpr bool kEndsAtZero = false;

  // Reads eight bytes, from any address and whatever the length of the key.
  static std::uint64_t Load(const char* text, const FoldRule& rule) {
    std::uint16_t units[4];
    std::memcpy(units, text, sizeof units);
    if (rule.ignoreCase) {
      for (std::uint16_t& unit : units) unit = rule.foldedUnits[unit];
    }
    return std::uint64_t{units[0]} << 48 | std::uint64_t{units[1]} << 32 | std::uint64_t{units[2]} << 16;
  }
};

// The number of characters in a number.
template <typename Keys>
constexpr unsigned kStep = 64 / Keys::kBits - 1;

// Returns a mask of the bits of all characters after the first `count`, which is at most kStep, and of the
// count.
template <typename Keys>
constexpr std::uint64_t BitsAfter(unsigned count) {
  return ~std::uint64_t{0} >> (count * Keys::kBits);
}

// Returns the count in a number: how many of its characters belong to the key, or kStep + 1 if the key
// continues after them.
template <typename Keys>
constexpr unsigned CountIn(std::uint64_t number) {
  return static_cast<unsigned>(number & ((1U << Keys::kBits) - 1));
}

// Returns the number made of the next characters of a key of which `left` characters remain, at least one.
template <typename Keys>
std::uint64_t NextCharacters(const char* text, std::uint32_t left, const FoldRule& rule) {
  std::uint64_t characters = Keys::Load(text, rule);
  unsigned count = left <= kStep<Keys> ? left : kStep<Keys> + 1;
  if constexpr (Keys::kEndsAtZero) {
    const auto zero = static_cast<unsigned>(std::countl_zero(Keys::Zeros(characters))) / Keys::kBits;
    if (zero < kStep<Keys> && zero < count) count = zero + 1;
  }
  characters &= ~BitsAfter<Keys>(count < kStep<Keys> ? count : kStep<Keys>);
  return characters | count;
}

// Returns how many of the next characters are equal in two keys, at most `most`. Both keys must have `most`
// more characters. A zero byte that ends both does not count, so the rest of a key after the shared
// characters is not empty if more than `most` were left.
template <typename Keys>
std::uint32_t SharedCharacters(const char* left, const char* right, std::uint32_t most,
                               const FoldRule& rule) {
  for (std::uint32_t shared = 0; shared < most; shared += Keys::kLoaded) {
    const std::size_t offset = std::size_t{shared} * sizeof(typename Keys::Char);
    const std::uint64_t characters = Keys::Load(left + offset, rule);
    std::uint64_t ends = characters ^ Keys::Load(right + offset, rule);
    if constexpr (Keys::kEndsAtZero) ends |= Keys::Zeros(characters);
    if (ends != 0) {
      return std::min(most, shared + static_cast<std::uint32_t>(std::countl_zero(ends)) / Keys::kBits);
    }
  }
  return most;
}

}  // namespace WQLineSorter
