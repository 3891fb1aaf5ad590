// Letter case of the letters A to Z, independent of the locale. Other characters do not count as letters.
#pragma once

#include <concepts>
#include <string>
#include <string_view>

// Character is a character type of any width, or an integer that holds one.
template <std::integral Character>
constexpr Character AsciiLower(Character c) {
  return c >= 'A' && c <= 'Z' ? static_cast<Character>(c + ('a' - 'A')) : c;
}

template <std::integral Character>
constexpr Character AsciiUpper(Character c) {
  return c >= 'a' && c <= 'z' ? static_cast<Character>(c - ('a' - 'A')) : c;
}

template <std::integral Character>
constexpr bool IsAsciiLetter(Character c) {
  return AsciiLower(c) >= 'a' && AsciiLower(c) <= 'z';
}

inline std::string AsciiLower(std::string_view text) {
  std::string lowered(text);
  for (char& character : lowered) character = AsciiLower(character);
  return lowered;
}
