// Proposals for mistyped names: verbs, options, commands, parameters, answers, fields.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace QxHost {

// Returns the name that `typed` most likely stands for, which is the one with the fewest mistakes; the first
// of several such. A mistake is a character that is missing, one too many or wrong, or two neighbours
// exchanged; letter case does not count. A name of which two or more characters were typed, and the rest was
// left out, has one mistake. A name with more than one mistake for each three typed characters (rounded up)
// is not proposed. Empty if there is no such name. Characters are counted in bytes: all names of this program
// are ASCII.
//
// `mostMistakes` lowers the number of mistakes that a name may have, for long names that have much in common.
std::string_view NearestName(std::string_view typed, std::span<const std::string_view> names,
                             std::size_t mostMistakes = static_cast<std::size_t>(-1));

// The last sentence of a message about a mistyped name: ". Did you mean NAME?", or empty if no name is near.
std::string DidYouMean(std::string_view typed, std::span<const std::string_view> names);

}  // namespace QxHost
