// Test texts in both character widths of the line sorter.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "platform/text.h"

// Widens each character; a byte above 0x7F becomes the unit with the same value.
template <typename CharT>
std::basic_string<CharT> In(std::string_view text) {
  std::basic_string<CharT> result;
  for (const char character : text) result += static_cast<CharT>(static_cast<unsigned char>(character));
  return result;
}

// A copy of `text` that ends exactly where its memory ends, so that memory checkers detect an access after
// it.
template <typename CharT>
class Exact {
 public:
  explicit Exact(std::basic_string_view<CharT> text)
      : size(text.size()), memory(std::make_unique<CharT[]>(size)) {
    std::copy(text.begin(), text.end(), memory.get());
  }
  const CharT* Begin() const { return memory.get(); }
  std::uint32_t Length() const { return static_cast<std::uint32_t>(size); }

 private:
  std::size_t size;
  std::unique_ptr<CharT[]> memory;
};

using BothWidths = testing::Types<char, WCHAR>;
