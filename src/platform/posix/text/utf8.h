// Decodes and encodes UTF-8 and UTF-16, one character at a time.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Platform {

// The result of decoding the beginning of a UTF-8 text: a character, or an invalid sequence of `size` bytes.
// Overlong forms, surrogates and values above U+10FFFF are invalid. `size` is at least 1.
struct Utf8Step {
  char32_t codePoint;
  std::size_t size;
  bool valid;
};

// Decodes the first character of `text`, which must not be empty. An invalid sequence ends before the first
// byte that is not a continuation byte, and after a continuation byte that no valid sequence can have there,
// as on Windows.
Utf8Step DecodeUtf8(std::string_view text);

// The result of decoding the beginning of a UTF-16 text: a character, or an unpaired surrogate, which is then
// stored in `codePoint`.
struct Utf16Step {
  char32_t codePoint;
  std::size_t size;
  bool valid;
};

// Decodes the first character of `text`, which must not be empty.
Utf16Step DecodeUtf16(std::u16string_view text);

// Append the encoding of a character to `text`.
void AppendUtf8(char32_t codePoint, std::string& text);
void AppendUtf16(char32_t codePoint, std::u16string& text);

}  // namespace Platform
