// Expands patterns with * and ? in items, on systems whose shell does not do so.
#pragma once

#include <string>
#include <vector>

#include "platform/text.h"

namespace QxHost {

// Returns whether the complete name matches the pattern, ignoring letter case: * matches any text and ? one
// character. As in all Windows commands, *.* matches every name, with or without a dot.
bool MatchesPattern(WStringView name, WStringView pattern);

// Returns the items with each pattern replaced by the matching names, sorted and without hidden files. Throws
// BadCall for a pattern that matches nothing, and for one in the name of a folder.
std::vector<std::string> WithPatternsFound(const std::vector<std::string>& items);

// Whether items may be patterns: true on systems where the shell does not expand them and names cannot
// contain * or ?.
extern const bool kItemsArePatterns;

}  // namespace QxHost
