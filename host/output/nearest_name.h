// Proposes corrections of mistyped names: verbs, options, commands, parameters, answers, fields.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace QxHost {

// Returns the name with the fewest mistakes in `typed`; the first one if there are several. A mistake is a
// missing, additional or wrong character, or two neighbours exchanged; letter case is ignored. If `typed` is
// a beginning of a name, of two or more characters, that counts as one mistake. Returns the empty text if
// every name has more than one mistake for every three typed characters (rounded up). Characters are bytes:
// all names of this program are ASCII.
//
// `maxMistakes` further limits the number of mistakes, for long names that are similar to each other.
std::string_view NearestName(std::string_view typed, std::span<const std::string_view> names,
                             std::size_t maxMistakes = static_cast<std::size_t>(-1));

// Returns the end of a message about a mistyped name: ". Did you mean NAME?", or the empty text if no name is
// near.
std::string DidYouMean(std::string_view typed, std::span<const std::string_view> names);

}  // namespace QxHost
