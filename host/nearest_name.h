// Proposals for mistyped names: verbs, options, commands, parameters, answers, fields.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace QxHost {

// Returns the name that `typed` most likely stands for, which is the one with the fewest mistakes; the first
// of several such. A mistake is a character that is missing, one too many or wrong, or two neighbours
// exchanged; letter case is none. A name of which two or more characters were typed, and the rest was left
// out, has one mistake. A name with more than one mistake for each three typed characters (rounded up) is not
// proposed. Empty if there is no such name. Characters are counted in bytes: all names of this program are
// ASCII.
std::string_view NearestName(std::string_view typed, std::span<const std::string_view> names);

// The last sentence of a message about a mistyped name: ". Did you mean NAME?", or empty if no name is near.
std::string DidYouMean(std::string_view typed, std::span<const std::string_view> names);

}  // namespace QxHost
