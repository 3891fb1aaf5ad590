// Letter case of ASCII names, independent of the locale.
#pragma once

#include <string>
#include <string_view>

namespace QxHost {

// Returns the character, or for the letters A to Z their lower case.
constexpr char AsciiLower(char character) {
  return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

inline std::string AsciiLower(std::string_view text) {
  std::string lowered(text);
  for (char& character : lowered) character = AsciiLower(character);
  return lowered;
}

}  // namespace QxHost
