// The elements of the regular expression of a text with wildcards: characters, each with its repeats.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/text.h"

namespace QXFindAndReplace {

constexpr std::uint32_t kNoMaximum = 0xFFFFFFFF;

// Repeats as often as possible, at least `minimum` and at most `maximum` times.
struct WildcardRepeat {
  std::uint32_t minimum = 1;
  std::uint32_t maximum = 1;

  bool IsExact() const { return minimum == maximum; }
};

template <typename CharT>
struct WildcardElement {
  bool isAny = false;  // any character, or only `character`
  CharT character = {};
  WildcardRepeat repeat;
  // Further repeats of the repeated character that cannot be combined with `repeat`, from the inside out
  // (`x{2}{1,3}`).
  std::vector<WildcardRepeat> outerRepeats;
};

// Parses a pattern made by WildcardToRegex. Throws the std::regex_error that the library throws for the
// pattern. Does not compile the whole pattern with the library, whose compiler calls itself for each
// character.
template <typename CharT>
std::vector<WildcardElement<CharT>> ParseWildcardRegex(std::basic_string_view<CharT> pattern);

}  // namespace QXFindAndReplace
