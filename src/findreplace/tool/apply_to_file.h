// Find and replace in one file.
#pragma once

#include <cstdint>

#include "findreplace/engine/find_and_replace_options.h"
#include "platform/text.h"

namespace QXFindAndReplace {

// Results of ApplyToFile; others are the number of replacements that were made and written (in Multiline 1 as
// well when the user cancelled). 0: nothing was replaced, and nothing written.
constexpr std::int64_t kFailed = -1;      // the error has been reported through the callback
constexpr std::int64_t kCancelled = -99;  // by the user

// Reads `source`, replaces, and writes `target` by the save mode of the options; both may be one file. Throws
// nothing: errors go to the callback, if there is one.
std::int64_t ApplyToFile(const WString& source, const WString& target, FindAndReplaceOptions& options);

}  // namespace QXFindAndReplace
