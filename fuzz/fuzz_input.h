// Splits the bytes of a fuzz run into values and texts.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <span>
#include <utility>

#include "platform/text.h"

class FuzzInput {
 public:
  FuzzInput(const std::uint8_t* data, std::size_t size) : bytes_(data, size) {}

  std::uint8_t TakeByte() {
    if (bytes_.empty()) return 0;
    const std::uint8_t value = bytes_.front();
    bytes_ = bytes_.subspan(1);
    return value;
  }

  std::uint32_t TakeNumber() {
    std::uint32_t value = 0;
    for (int byte = 0; byte < 4; ++byte) value = value << 8 | TakeByte();
    return value;
  }

  // Returns a text up to the next zero byte, or to the end. The characters are mostly ASCII, so that those
  // with a meaning are frequent: only a byte above 0x7F is combined with the next byte, the low half of its
  // character.
  WString TakeText() {
    WString text;
    while (!bytes_.empty()) {
      const std::uint8_t byte = TakeByte();
      if (byte == 0) break;
      const unsigned unit = byte < 0x80 ? byte : static_cast<unsigned>(byte << 8 | TakeByte());
      text += static_cast<WCHAR>(unit);
    }
    return text;
  }

  // Returns the remaining bytes.
  std::span<const std::uint8_t> TakeRest() { return std::exchange(bytes_, {}); }

 private:
  std::span<const std::uint8_t> bytes_;
};

// Reports a finding to the fuzzer by ending the program, unless the condition holds.
inline void Require(bool holds) {
  if (!holds) std::abort();
}
