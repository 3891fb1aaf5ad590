// Base64 as MIME uses it. Works in memory; the files are base64_file.h's.
#pragma once

#include <cstddef>
#include <cstdint>

// Stores the characters of `size` bytes in `output`, four for each three bytes, the last group filled up with
// "=", and returns their number. The bits that a last group of one or two bytes leaves open come from
// `behind[0]` and `behind[1]`, the bytes that follow (C-421).
std::size_t EncodeBase64(const unsigned char* bytes, std::size_t size, const unsigned char behind[2],
                         char* output);

class CBase64 {
 public:
  virtual ~CBase64() = default;

  // Decodes the whole groups of four characters in `text`; what is left behind them is dropped. A character
  // outside the alphabet does not stop it and gives wrong bytes. `size` is the room of `output` in bytes, and
  // becomes the number of bytes decoded; the room must exceed that by four at each group, else the answer is
  // false. No bytes behind the room are written.
  bool Decode(const char* text, std::size_t length, unsigned char* output, std::uint32_t* size);
};
