// One character at a time of UTF-8 and UTF-16.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Platform {

// What stands at the beginning of a text: a character, or `size` bytes that are none. Overlong forms,
// surrogates and what lies above U+10FFFF are none. `size` is at least 1.
struct Utf8Step {
  char32_t codePoint;
  std::size_t size;
  bool valid;
};

// `text` must not be empty. A broken sequence ends before the first byte that does not continue it, and
// behind the one that makes it impossible, as on Windows.
Utf8Step DecodeUtf8(std::string_view text);

// A character, or one surrogate that is not half of a pair: `codePoint` is that surrogate then.
struct Utf16Step {
  char32_t codePoint;
  std::size_t size;
  bool valid;
};

// `text` must not be empty.
Utf16Step DecodeUtf16(std::u16string_view text);

void AppendUtf8(char32_t codePoint, std::string& text);
void AppendUtf16(char32_t codePoint, std::u16string& text);

}  // namespace Platform
