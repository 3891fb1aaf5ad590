// Base64 as MIME uses it, in memory. For files see base64_file.h.
#pragma once

#include <cstddef>
#include <cstdint>

// Encodes `size` bytes to `output`, four characters for three bytes, the last group padded with "=", and
// returns the number of characters. If the last group has only one or two bytes, its unused bits come from
// `following[0]` and `following[1]`, the bytes that follow (C-421).
std::size_t EncodeBase64(const unsigned char* bytes, std::size_t size, const unsigned char following[2],
                         char* output);

class CBase64 {
 public:
  virtual ~CBase64() = default;

  // Decodes the complete groups of four characters in `text`; ignores the characters after them. Does not
  // stop at a character outside the alphabet, which results in wrong bytes. On entry `*size` is the size of
  // `output` in bytes; it is set to the number of bytes decoded. Returns false if at any group the output has
  // not room for four bytes more than decoded so far. Never writes past the end of `output`.
  bool Decode(const char* text, std::size_t length, unsigned char* output, std::uint32_t* size);
};
