// A view of a text that need not be aligned: a sort key of 16-bit text may begin in the middle of a
// character.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace Platform {

template <typename CharT>
class UnalignedText {
 public:
  // The type of a unit; bytes are unsigned.
  using Unit = std::conditional_t<sizeof(CharT) == 1, unsigned char, CharT>;

  UnalignedText(const CharT* text, std::size_t size)
      : bytes_(reinterpret_cast<const unsigned char*>(text)), size_(size) {}

  // Returns a view of `count` characters, or of a zero-terminated text if `count` is negative.
  static UnalignedText Counted(const CharT* text, int count) {
    UnalignedText counted(text, 0);
    if (count >= 0) {
      counted.size_ = static_cast<std::size_t>(count);
    } else {
      while (counted[counted.size_] != 0) ++counted.size_;
    }
    return counted;
  }

  std::size_t Size() const { return size_; }
  Unit operator[](std::size_t index) const {
    Unit unit;
    std::memcpy(&unit, bytes_ + index * sizeof(Unit), sizeof unit);
    return unit;
  }
  // Returns the address of the text. Do not read through it unless it is known to be aligned.
  const CharT* Data() const { return reinterpret_cast<const CharT*>(bytes_); }

  // Returns the first index, from `index` on, at which the two texts differ; `limit` if they do not differ
  // before it. Both texts must have at least `limit` characters.
  std::size_t FirstDifference(const UnalignedText& other, std::size_t index, std::size_t limit) const {
    constexpr std::size_t kStep = sizeof(std::uint64_t) / sizeof(Unit);
    for (; limit - index >= kStep; index += kStep) {
      std::uint64_t mine;
      std::uint64_t others;
      std::memcpy(&mine, bytes_ + index * sizeof(Unit), sizeof mine);
      std::memcpy(&others, other.bytes_ + index * sizeof(Unit), sizeof others);
      if (mine != others) break;
    }
    while (index < limit && (*this)[index] == other[index]) ++index;
    return index;
  }

 private:
  const unsigned char* bytes_;
  std::size_t size_;
};

}  // namespace Platform
