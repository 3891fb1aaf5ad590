// Sorts one file, from the detection of its format to the output.
#pragma once

#include <string>

#include "linesorter/engine/sort_lines_options.h"
#include "platform/text.h"

namespace WQLineSorter {

struct SortResult {
  std::string message;
  DWORD errorCode = 0;  // a Windows error number, 0 for success
};

// Sorts `source` into `target`, which may be the same path, since the source is closed before the target is
// opened. Returns 0 or the error number; `result` contains the number and a text. Nothing is undone after a
// failure: a partly written target remains, and so does a backup. With SaveDeleteBackup and a target that did
// not exist, the target that was just written is deleted (C-131).
//
// Errors: 1630 "Text format not supported" for binary files and for UTF-8 with a mark or a declaration
// (C-101); 80 "Target file already exists" for SaveAsNewFile without SaveOverwrite; 14 if memory is short or
// a line is longer than a block; 87 "Unsupported date format"; and those of the readers, the format detection
// and the writer. Exceptions of other standard types propagate.
DWORD SortFile(SortResult& result, const WString& source, const WString& target,
               const SortLinesOptions& options);

}  // namespace WQLineSorter
