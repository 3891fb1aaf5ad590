// Items that are given by a pattern with * and ?, where the shell leaves that to the program.
#pragma once

#include <string>
#include <vector>

#include "platform/text.h"

namespace QxHost {

// Whether the whole name is of the pattern: * is any text, ? one character, whatever the letter case. As in
// every command of Windows, *.* is each name, with a dot or without.
bool MatchesPattern(WStringView name, WStringView pattern);

// The items with each pattern replaced by the names that it finds, by the alphabet, without hidden ones.
// Throws BadCall for a pattern that finds nothing, and for one in the name of a folder.
std::vector<std::string> WithPatternsFound(const std::vector<std::string>& items);

// Whether items may be patterns: where the shell does not find them itself, and no name holds * or ?.
extern const bool kItemsArePatterns;

}  // namespace QxHost
