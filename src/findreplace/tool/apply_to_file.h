// Replaces text in one file.
#pragma once

#include <cstdint>

#include "findreplace/engine/find_and_replace_options.h"
#include "platform/text.h"

namespace QXFindAndReplace {

// Special results of ApplyToFile.
constexpr std::int64_t kFailed = -1;      // the error has been reported to the callback
constexpr std::int64_t kCancelled = -99;  // the user has cancelled the run

// Reads `source`, replaces its text, and writes `target` by the save mode of the options; both may be the
// same file. Returns the number of replacements, kFailed or kCancelled. If nothing was replaced, returns 0
// and writes nothing; a Multiline run that the user has cancelled returns 1 and writes nothing (C-233). Does
// not throw; reports errors to the callback, if there is one.
std::int64_t ApplyToFile(const WString& source, const WString& target, FindAndReplaceOptions& options);

}  // namespace QXFindAndReplace
