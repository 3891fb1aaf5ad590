// What the regular expression of a text with wildcards is made of: characters, each with its repeats.
//
// CharT is char or WCHAR.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/text.h"

namespace QXFindAndReplace {

constexpr std::uint32_t kNoMaximum = 0xFFFFFFFF;

// As often as possible, `minimum` times at least and `maximum` times at most.
struct WildcardRepeat {
  std::uint32_t minimum = 1;
  std::uint32_t maximum = 1;

  bool IsExact() const { return minimum == maximum; }
};

template <typename CharT>
struct WildcardElement {
  bool isAny = false;  // of one character: any, or this one
  CharT character = {};
  WildcardRepeat repeat;
  // Repeats of the repeated character, from the inside out (`x{2}{1,3}`): those that do not fold into
  // `repeat`.
  std::vector<WildcardRepeat> outerRepeats;
};

// Parses a pattern made by WildcardToRegex. Throws the std::regex_error that the library throws at the
// pattern. The library never compiles the whole of it, as its compiler calls itself for each character.
template <typename CharT>
std::vector<WildcardElement<CharT>> ParseWildcardRegex(std::basic_string_view<CharT> pattern);

}  // namespace QXFindAndReplace
